#include "filterdialogtest.h"

#include <clocale>

/** The lines that the filter dialog sends when its user changes a value. */
class tst_FilterDialogEdit : public FilterDialogTest {
    Q_OBJECT

private slots:
    void presetRereadsTheThreeOthers_data();
    void presetRereadsTheThreeOthers();
    void hybridPresetHidesTheStrength();
    void switchingOffAndOn();
    void modeIsSentOnce();
    void firstEntriesCanBeChosen();
    void editEndsOnce_data();
    void editEndsOnce();
    void stepsAreSentWhenEditingEnds();
    void valueSetWithoutFocusIsSentAtTheEnd();
    void enterPressesNoButton_data();
    void enterPressesNoButton();
    void endingWithoutAnEditSendsNothing();
    void sameNumberTypedIsSentOnce_data();
    void sameNumberTypedIsSentOnce();
    void refusedValueCanBeSentAgain_data();
    void refusedValueCanBeSentAgain();
    void typingBackIsSentAgain();
    void anotherBodyLeavesTheEditWithTheFirst();
    void unitsOfThePrediction_data();
    void unitsOfThePrediction();
    void clampedValues_data();
    void clampedValues();
    void refusedValueStays();
    void germanDesktop();
    void wholeVisit();
    void joywandIdentifiers();
    void secondClientIsSeenAtTheNextOpening();
    void lockedSendsNothing();
};

void tst_FilterDialogEdit::presetRereadsTheThreeOthers_data()
{
    QTest::addColumn<QString>("protocol");
    QTest::addColumn<QStringList>("modeList");
    QTest::newRow("1.12") << "1.12" << QStringList();
    QTest::newRow("1.20") << "1.20" << QStringList();
    const QStringList asked = {"filter6d number_of_modes",
                               "filter6d mode_id t01",
                               "body filter6d_mode_available standard b01 adaptive_fast",
                               "filter6d mode_desc adaptive_fast",
                               "filter6d mode_id t02",
                               "body filter6d_mode_available standard b01 adaptive_slow",
                               "filter6d mode_desc adaptive_slow"};
    QTest::newRow("1.21") << "1.21" << asked;
    QTest::newRow("1.24") << "1.24" << asked;
}

void tst_FilterDialogEdit::presetRereadsTheThreeOthers()
{
    QFETCH(QString, protocol);
    QFETCH(QStringList, modeList);
    TestHost host(smallState(protocol));
    visit(host, standard, 0, [&](const FilterWidgets &w) {
        host.clear();
        Drive::choose(w.preset, "Default");
        QCOMPARE(host.lines(), QStringList({"body filter6d_preset standard b01 preset6d_default",
                                            "body filter6d_strength standard b01",
                                            "body filter6d_prediction standard b01"})
                                       + modeList
                                       + QStringList({"body filter6d_mode standard b01"}));
        QCOMPARE(w.strength->text(), QString("0.50"));
        QCOMPARE(w.prediction->text(), QString("33"));
        QCOMPARE(w.mode->currentText(), QString("Adaptive slow"));
        QVERIFY(!w.strength->isEnabled());
        QVERIFY(!w.prediction->isEnabled());
        QVERIFY(!w.mode->isEnabled());
    });
    QCOMPARE(host.writes(), QStringList({"body filter6d_preset standard b01 preset6d_default"}));
    QCOMPARE(host.state().bodyTypes["standard"].bodies[0].filterPreset,
             QString("preset6d_default"));
    QCOMPARE(host.log(), QStringList());
}

void tst_FilterDialogEdit::hybridPresetHidesTheStrength()
{
    TestHost host;
    visit(host, standard, 3, [&](const FilterWidgets &w) {
        QCOMPARE(w.preset->currentText(), QString("Hybrid custom"));
        QVERIFY(!w.strength->isVisible());
        Drive::choose(w.preset, "Default");
        QVERIFY(w.strength->isVisible());
        QVERIFY(w.labelStrength->isVisible());
        QVERIFY(!w.strength->isEnabled());
        QVERIFY(!w.prediction->isEnabled());
        Drive::choose(w.preset, "Hybrid");
        QVERIFY(!w.strength->isVisible());
        QVERIFY(!w.labelStrength->isVisible());
        QVERIFY(w.prediction->isVisible());
        QVERIFY(!w.prediction->isEnabled());
        Drive::choose(w.preset, "Hybrid custom");
        QVERIFY(w.prediction->isEnabled());
        type(w.prediction, "40");
        QTest::keyClick(w.prediction, Qt::Key_Return);
    });
    QCOMPARE(host.writes(), QStringList({"body filter6d_preset standard b04 preset6d_default",
                                         "body filter6d_preset standard b04 preset6d_hybrid",
                                         "body filter6d_preset standard b04 preset6d_hybrid_custom",
                                         "body filter6d_prediction standard b04 0.040000"}));
}

void tst_FilterDialogEdit::switchingOffAndOn()
{
    TestHost host(smallState("1.20"));
    const QStringList reread = {
            "body filter6d_preset standard b01", "body filter6d_strength standard b01",
            "body filter6d_prediction standard b01", "body filter6d_mode standard b01"};
    visit(host, standard, 0, [&](const FilterWidgets &w) {
        host.clear();
        toggle(w.active);
        QVERIFY(!w.active->isChecked());
        QCOMPARE(host.lines(), QStringList({"body filter6d_enabled standard b01 no"}) + reread);
        QVERIFY(!host.state().bodyTypes["standard"].bodies[0].filterEnabled);
        // The values can be read while they cannot be changed.
        QCOMPARE(w.preset->currentText(), QString("Custom"));
        QCOMPARE(w.mode->currentText(), QString("Adaptive fast"));
        QVERIFY(!w.preset->isEnabled());
        QVERIFY(!w.strength->isEnabled());
        QVERIFY(!w.prediction->isEnabled());
        QVERIFY(!w.mode->isEnabled());
        host.clear();
        toggle(w.active);
        QCOMPARE(host.lines(), QStringList({"body filter6d_enabled standard b01 yes"}) + reread);
        QVERIFY(w.preset->isEnabled());
        QVERIFY(w.strength->isEnabled());
        QVERIFY(w.prediction->isEnabled());
        QVERIFY(w.mode->isEnabled());
    });
}

void tst_FilterDialogEdit::modeIsSentOnce()
{
    TestHost host(smallState());
    visit(host, standard, 0, [&](const FilterWidgets &w) {
        host.clear();
        Drive::choose(w.mode, "Adaptive slow");
        QCOMPARE(host.lines(), QStringList({"body filter6d_mode standard b01 adaptive_slow"}));
        Drive::choose(w.mode, "Adaptive slow");
    });
    QCOMPARE(host.writes(), QStringList({"body filter6d_mode standard b01 adaptive_slow"}));
    QCOMPARE(host.state().bodyTypes["standard"].bodies[0].filterMode, QString("adaptive_slow"));
}

void tst_FilterDialogEdit::firstEntriesCanBeChosen()
{
    ControllerState state = smallState();
    std::swap(state.filterPresets[0], state.filterPresets[1]);
    standardBody(state, 0).filterPreset = "preset6d_default";
    standardBody(state, 0).filterMode = "adaptive_slow";
    TestHost host(state);
    visit(host, standard, 0, [&](const FilterWidgets &w) {
        Drive::choose(w.preset, "Custom");
        QCOMPARE(w.preset->currentIndex(), 0);
        Drive::choose(w.mode, "Adaptive slow");
        Drive::choose(w.mode, "Adaptive fast");
        QCOMPARE(w.mode->currentIndex(), 0);
    });
    QCOMPARE(host.writes(), QStringList({"body filter6d_preset standard b01 preset6d_custom",
                                         "body filter6d_mode standard b01 adaptive_slow",
                                         "body filter6d_mode standard b01 adaptive_fast"}));
}

void tst_FilterDialogEdit::editEndsOnce_data()
{
    QTest::addColumn<QString>("box");
    QTest::addColumn<QString>("typed");
    QTest::addColumn<QString>("command");
    QTest::addColumn<QString>("ending");
    for (const char *ending : {"enter", "tab", "other box", "escape", "exit by mouse",
                               "exit by key", "title bar", "enter and tab", "enter and escape"}) {
        QTest::addRow("strength, %s", ending)
                << "doubleSpinBox_strength"
                << "0.67"
                << "body filter6d_strength standard b01 0.670000" << ending;
        QTest::addRow("prediction, %s", ending)
                << "spinBox_prediction"
                << "45"
                << "body filter6d_prediction standard b01 0.045000" << ending;
    }
}

void tst_FilterDialogEdit::editEndsOnce()
{
    QFETCH(QString, box);
    QFETCH(QString, typed);
    QFETCH(QString, command);
    QFETCH(QString, ending);
    TestHost host(smallState());
    visit(host, standard, 0, [&](const FilterWidgets &w) {
        auto *edited = Drive::find<QAbstractSpinBox>(w.dialog, qPrintable(box));
        type(edited, typed);
        QCOMPARE(host.writes(), QStringList());
        if (ending.startsWith("enter")) {
            QTest::keyClick(edited, Qt::Key_Return);
            QCOMPARE(host.writes(), QStringList({command}));
        }
        if (ending.endsWith("tab"))
            QTest::keyClick(edited, Qt::Key_Tab);
        if (ending.endsWith("escape"))
            QTest::keyClick(edited, Qt::Key_Escape);
        if (ending == "other box")
            w.mode->setFocus(Qt::MouseFocusReason);
        if (ending == "exit by mouse")
            Drive::click(w.dialog, "pushButton_exit");
        if (ending == "exit by key") {
            QTest::keyClick(edited, Qt::Key_X, Qt::AltModifier);
            QTRY_VERIFY(!w.dialog->isVisible());
        }
        if (ending == "title bar")
            w.dialog->close();
        if (ending.endsWith("enter"))
            QVERIFY(w.dialog->isVisible());
    });
    QCOMPARE(host.writes(), QStringList({command}));
    QCOMPARE(host.log(), QStringList());
}

void tst_FilterDialogEdit::stepsAreSentWhenEditingEnds()
{
    TestHost host(smallState());
    visit(host, standard, 0, [&](const FilterWidgets &w) {
        w.strength->setFocus(Qt::TabFocusReason);
        QTest::keyClick(w.strength, Qt::Key_Up);
        QTest::keyClick(w.strength, Qt::Key_Up);
        QTest::keyClick(w.strength, Qt::Key_Up);
        QCOMPARE(w.strength->text(), QString("0.45"));
        QCOMPARE(host.writes(), QStringList());
        QTest::keyClick(w.strength, Qt::Key_Tab);
        QCOMPARE(host.writes(), QStringList({"body filter6d_strength standard b01 0.450000"}));
    });
    QCOMPARE(host.writes().size(), 1);
}

void tst_FilterDialogEdit::valueSetWithoutFocusIsSentAtTheEnd()
{
    TestHost host(smallState());
    visit(host, standard, 0, [&](const FilterWidgets &w) {
        w.body->setFocus(Qt::TabFocusReason);
        // Assistive technology steps a box that does not have the focus.
        w.strength->stepUp();
        w.prediction->stepDown();
        QCOMPARE(host.writes(), QStringList());
        QTest::keyClick(w.dialog, Qt::Key_Escape);
        QVERIFY(!w.dialog->isVisible());
    });
    QCOMPARE(host.writes(), QStringList({"body filter6d_strength standard b01 0.430000",
                                         "body filter6d_prediction standard b01 0.019000"}));
}

void tst_FilterDialogEdit::enterPressesNoButton_data()
{
    QTest::addColumn<QString>("widget");
    QTest::newRow("strength") << "doubleSpinBox_strength";
    QTest::newRow("prediction") << "spinBox_prediction";
    QTest::newRow("body") << "comboBox_body";
    QTest::newRow("switch") << "checkBox_active";
}

void tst_FilterDialogEdit::enterPressesNoButton()
{
    QFETCH(QString, widget);
    TestHost host(smallState());
    visit(host, standard, 0, [&](const FilterWidgets &w) {
        auto *focused = Drive::find<QWidget>(w.dialog, qPrintable(widget));
        focused->setFocus(Qt::TabFocusReason);
        QTest::keyClick(focused, Qt::Key_Return);
        // A help page would be the active modal window.
        QCOMPARE(QApplication::activeModalWidget(), w.dialog);
        QVERIFY(w.dialog->isVisible());
    });
    QCOMPARE(host.writes(), QStringList());
}

void tst_FilterDialogEdit::endingWithoutAnEditSendsNothing()
{
    TestHost host(smallState());
    visit(host, standard, 0, [&](const FilterWidgets &w) {
        for (QAbstractSpinBox *box : {static_cast<QAbstractSpinBox *>(w.strength),
                                      static_cast<QAbstractSpinBox *>(w.prediction)}) {
            box->setFocus(Qt::TabFocusReason);
            QTest::keyClick(box, Qt::Key_Return);
            QTest::keyClick(box, Qt::Key_Tab);
            QVERIFY(!box->hasFocus());
        }
        // The boxes show values that a user could have sent.
        QCOMPARE(w.strength->text(), QString("0.42"));
        QCOMPARE(w.prediction->text(), QString("20"));
        QVERIFY(w.strength->isEnabled());
        QVERIFY(w.prediction->isEnabled());
    });
    QCOMPARE(host.writes(), QStringList());
}

void tst_FilterDialogEdit::sameNumberTypedIsSentOnce_data()
{
    QTest::addColumn<QString>("box");
    QTest::addColumn<QString>("shown");
    QTest::addColumn<QString>("command");
    QTest::addColumn<bool>("withEnter");
    for (const bool withEnter : {true, false}) {
        const char *ending = withEnter ? "enter" : "leaving";
        QTest::addRow("strength, %s", ending)
                << "doubleSpinBox_strength"
                << "0.42"
                << "body filter6d_strength standard b01 0.420000" << withEnter;
        QTest::addRow("prediction, %s", ending)
                << "spinBox_prediction"
                << "12"
                << "body filter6d_prediction standard b01 0.012000" << withEnter;
    }
}

void tst_FilterDialogEdit::sameNumberTypedIsSentOnce()
{
    QFETCH(QString, box);
    QFETCH(QString, shown);
    QFETCH(QString, command);
    QFETCH(bool, withEnter);
    ControllerState state = smallState();
    // The number shown is rounded, and a user who types it means the rounded number.
    standardBody(state, 0).filterStrength = 0.4172;
    standardBody(state, 0).filterPrediction = 0.0125;
    TestHost host(state);
    visit(host, standard, 0, [&](const FilterWidgets &w) {
        auto *edited = Drive::find<QAbstractSpinBox>(w.dialog, qPrintable(box));
        QCOMPARE(edited->text(), shown);
        type(edited, shown);
        QCOMPARE(host.writes(), QStringList());
        if (withEnter)
            QTest::keyClick(edited, Qt::Key_Return);
        QTest::keyClick(edited, Qt::Key_Tab);
        QCOMPARE(host.writes(), QStringList{command});
    });
    QCOMPARE(host.writes(), QStringList{command});
}

void tst_FilterDialogEdit::refusedValueCanBeSentAgain_data()
{
    QTest::addColumn<QString>("box");
    QTest::addColumn<QString>("typed");
    QTest::addColumn<QString>("command");
    QTest::addColumn<QString>("effect");
    for (const char *effect : {"refuse", "fail"}) {
        QTest::addRow("strength, %s", effect)
                << "doubleSpinBox_strength"
                << "0.67"
                << "body filter6d_strength standard b01 0.670000" << effect;
        QTest::addRow("prediction, %s", effect)
                << "spinBox_prediction"
                << "45"
                << "body filter6d_prediction standard b01 0.045000" << effect;
    }
}

void tst_FilterDialogEdit::refusedValueCanBeSentAgain()
{
    QFETCH(QString, box);
    QFETCH(QString, typed);
    QFETCH(QString, command);
    QFETCH(QString, effect);
    TestHost host(smallState());
    host.fault("set " + command + " call 1 " + effect);
    visit(host, standard, 0, [&](const FilterWidgets &w) {
        auto *edited = Drive::find<QAbstractSpinBox>(w.dialog, qPrintable(box));
        for (int i = 0; i < 2; ++i) {
            type(edited, typed);
            QTest::keyClick(edited, Qt::Key_Return);
            QTest::keyClick(edited, Qt::Key_Tab);
        }
    });
    QCOMPARE(host.writes(), QStringList({command, command}));
    QCOMPARE(host.log().size(), 1);
    const BodyState &body = host.state().bodyTypes["standard"].bodies[0];
    QVERIFY(body.filterStrength == 0.67 || body.filterPrediction == 0.045);
}

void tst_FilterDialogEdit::typingBackIsSentAgain()
{
    TestHost host(smallState());
    visit(host, standard, 0, [&](const FilterWidgets &w) {
        type(w.strength, "0.67");
        QTest::keyClick(w.strength, Qt::Key_Return);
        type(w.strength, "0.42");
        QTest::keyClick(w.strength, Qt::Key_Return);
    });
    QCOMPARE(host.writes(), QStringList({"body filter6d_strength standard b01 0.670000",
                                         "body filter6d_strength standard b01 0.420000"}));
}

void tst_FilterDialogEdit::anotherBodyLeavesTheEditWithTheFirst()
{
    TestHost host(smallState());
    visit(host, standard, allBodies, [&](const FilterWidgets &w) {
        type(w.strength, "0.67");
        Drive::choose(w.body, "standard body 02 (Rig)");
        QCOMPARE(w.strength->text(), QString("0.50"));
    });
    QCOMPARE(host.writes(), QStringList({"body filter6d_strength standard b01 0.670000"}));
    QCOMPARE(host.state().bodyTypes["standard"].bodies[0].filterStrength, 0.67);
    QCOMPARE(host.state().bodyTypes["standard"].bodies[1].filterStrength, 0.5);
}

void tst_FilterDialogEdit::unitsOfThePrediction_data()
{
    QTest::addColumn<QString>("typed");
    QTest::addColumn<QString>("sent");
    QTest::newRow("positive") << "29"
                              << "0.029000";
    QTest::newRow("negative") << "-7"
                              << "-0.007000";
    QTest::newRow("nothing") << "0"
                             << "0.000000";
    QTest::newRow("upper limit") << "66"
                                 << "0.066000";
    QTest::newRow("lower limit") << "-66"
                                 << "-0.066000";
}

void tst_FilterDialogEdit::unitsOfThePrediction()
{
    QFETCH(QString, typed);
    QFETCH(QString, sent);
    TestHost host(smallState());
    visit(host, standard, 0, [&](const FilterWidgets &w) {
        type(w.prediction, typed);
        QTest::keyClick(w.prediction, Qt::Key_Return);
    });
    QCOMPARE(host.writes(), QStringList({"body filter6d_prediction standard b01 " + sent}));
    visit(host, standard, 0,
          [&](const FilterWidgets &w) { QCOMPARE(w.prediction->text(), typed); });
}

void tst_FilterDialogEdit::clampedValues_data()
{
    QTest::addColumn<QString>("box");
    QTest::addColumn<QString>("fault");
    QTest::addColumn<QString>("typed");
    QTest::addColumn<QString>("clamped");
    QTest::newRow("strength") << "doubleSpinBox_strength"
                              << "set body filter6d_strength* clamp"
                              << "0.80"
                              << "0.40";
    QTest::newRow("prediction") << "spinBox_prediction"
                                << "set body filter6d_prediction* clamp"
                                << "44"
                                << "22";
}

void tst_FilterDialogEdit::clampedValues()
{
    QFETCH(QString, box);
    QFETCH(QString, fault);
    QFETCH(QString, typed);
    QFETCH(QString, clamped);
    TestHost host(smallState());
    host.fault(fault);
    visit(host, standard, allBodies, [&](const FilterWidgets &w) {
        auto *edited = Drive::find<QAbstractSpinBox>(w.dialog, qPrintable(box));
        type(edited, typed);
        QTest::keyClick(edited, Qt::Key_Return);
        QCOMPARE(edited->text(), typed);
        Drive::choose(w.body, "standard body 02 (Rig)");
        Drive::choose(w.body, "standard body 01 (Cap)");
        QCOMPARE(edited->text(), clamped);
        // The value that was read back counts as known, so that the clamped value is not sent back.
        edited->setFocus(Qt::TabFocusReason);
        QTest::keyClick(edited, Qt::Key_Return);
    });
    QCOMPARE(host.writes().size(), 1);
    QCOMPARE(host.log(), QStringList());
}

void tst_FilterDialogEdit::refusedValueStays()
{
    ControllerState state = smallState();
    TestHost host(state);
    visit(host, standard, 0, [&](const FilterWidgets &w) {
        // Another client gives the body a preset that fixes its strength.
        host.edit([](ControllerState &changed) {
            standardBody(changed, 0).filterPreset = "preset6d_default";
        });
        type(w.strength, "0.67");
        QTest::keyClick(w.strength, Qt::Key_Return);
        QCOMPARE(w.strength->text(), QString("0.67"));
        QTest::keyClick(w.strength, Qt::Key_Tab);
        QCOMPARE(w.strength->text(), QString("0.67"));
    });
    QCOMPARE(host.writes(), QStringList({"body filter6d_strength standard b01 0.670000"}));
    QCOMPARE(host.log(),
             QStringList({"Error: Unable to set filter 6d strength for body standard b01"}));
    QCOMPARE(host.state().bodyTypes["standard"].bodies[0].filterStrength, 0.42);
}

void tst_FilterDialogEdit::germanDesktop()
{
    QLocale::setDefault(QLocale(QLocale::German, QLocale::Germany));
    const char *const installed = setlocale(LC_NUMERIC, "de_DE.UTF-8");
    TestHost host(smallState());
    visit(host, standard, 0, [&](const FilterWidgets &w) {
        QCOMPARE(w.strength->text(), QString("0,42"));
        QCOMPARE(w.strength->maximum(), 0.99);
        type(w.strength, "0,67");
        QTest::keyClick(w.strength, Qt::Key_Return);
        type(w.prediction, "15");
        QTest::keyClick(w.prediction, Qt::Key_Return);
    });
    if (installed)
        setlocale(LC_NUMERIC, "C");
    QLocale::setDefault(QLocale::c());
    QCOMPARE(host.writes(), QStringList({"body filter6d_strength standard b01 0.670000",
                                         "body filter6d_prediction standard b01 0.015000"}));
}

void tst_FilterDialogEdit::wholeVisit()
{
    TestHost host(smallState());
    visit(host, standard, 1, nothing());
    host.clear();
    visit(host, standard, 2, [&](const FilterWidgets &w) {
        host.clear();
        Drive::choose(w.preset, "Custom");
        type(w.strength, "0.67");
        QTest::keyClick(w.strength, Qt::Key_Tab);
        type(w.prediction, "15");
        Drive::choose(w.mode, "Adaptive slow");
        Drive::click(w.dialog, "pushButton_exit");
    });
    QCOMPARE(host.writes(), QStringList({"body filter6d_preset standard b03 preset6d_custom",
                                         "body filter6d_strength standard b03 0.670000",
                                         "body filter6d_prediction standard b03 0.015000",
                                         "body filter6d_mode standard b03 adaptive_slow"}));
    QStringList lines = host.lines();
    QCOMPARE(lines.removeDuplicates(), 0);
    const BodyState &body = host.state().bodyTypes["standard"].bodies[2];
    QCOMPARE(body.filterPreset, QString("preset6d_custom"));
    QCOMPARE(body.filterStrength, 0.67);
    QCOMPARE(body.filterPrediction, 0.015);
    QCOMPARE(body.filterMode, QString("adaptive_slow"));
}

void tst_FilterDialogEdit::joywandIdentifiers()
{
    TestHost host(smallState());
    visit(host, joywand, 0, [&](const FilterWidgets &w) {
        Drive::choose(w.preset, "Custom");
        type(w.strength, "0.67");
        type(w.prediction, "15");
        Drive::choose(w.mode, "Adaptive slow");
        toggle(w.active);
    });
    QCOMPARE(host.writes(), QStringList({"body filter6d_preset joywand b01 preset6d_custom",
                                         "body filter6d_strength joywand b01 0.670000",
                                         "body filter6d_prediction joywand b01 0.015000",
                                         "body filter6d_mode joywand b01 adaptive_slow",
                                         "body filter6d_enabled joywand b01 no"}));
}

void tst_FilterDialogEdit::secondClientIsSeenAtTheNextOpening()
{
    TestHost host(smallState());
    FilterDialog dialog(&host.io, &host.mainWindow, &host.versions);
    visit(host, dialog, standard, 0, nothing());
    host.edit([](ControllerState &changed) {
        standardBody(changed, 0).filterStrength = 0.9;
        standardBody(changed, 0).filterPrediction = -0.01;
    });
    visit(host, dialog, standard, 0, [&](const FilterWidgets &w) {
        QCOMPARE(w.strength->text(), QString("0.90"));
        QCOMPARE(w.prediction->text(), QString("-10"));
    });
    QCOMPARE(host.writes(), QStringList());
}

void tst_FilterDialogEdit::lockedSendsNothing()
{
    ControllerState state = smallState();
    state.configChangeable = false;
    TestHost host(state);
    visit(host, standard, 0, [&](const FilterWidgets &w) {
        toggle(w.active);
        QTest::keyClick(w.preset, Qt::Key_Down);
        QTest::keyClick(w.strength, Qt::Key_Up);
        QTest::keyClick(w.dialog, Qt::Key_Escape);
    });
    QCOMPARE(host.writes(), QStringList());
}

TRACKING_TEST_MAIN(tst_FilterDialogEdit)
#include "tst_filterdialog_edit.moc"
