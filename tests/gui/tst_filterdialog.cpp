#include "filterdialogtest.h"

/** The queries of the filter dialog, and what it shows. */
class tst_FilterDialog : public FilterDialogTest {
    Q_OBJECT

private slots:
    void openingSequence_data();
    void openingSequence();
    void newControllerReadsListsForTheBody();
    void unavailable_data();
    void unavailable();
    void lockedShowsNothing();
    void lockIsAskedFromItsVersionOn_data();
    void lockIsAskedFromItsVersionOn();
    void bodyList_data();
    void bodyList();
    void noCalibratedBody();
    void inertialBodyHidesTheSwitch();
    void oldControllerInertialPresets_data();
    void oldControllerInertialPresets();
    void newControllerTellsWhatIsAvailable();
    void anotherBodyIsReadAgain();
    void fillingWritesNothing();
    void openedAgainAfterALock();
};

namespace {

const QStringList construction = {"filter6d number_of_presets",
                                  "filter6d preset_id t01",
                                  "filter6d preset_desc preset6d_default",
                                  "filter6d preset_id t02",
                                  "filter6d preset_desc preset6d_custom",
                                  "filter6d limit strength_min",
                                  "filter6d limit strength_max",
                                  "filter6d limit prediction_min",
                                  "filter6d limit prediction_max",
                                  "filter6d number_of_modes",
                                  "filter6d mode_id t01",
                                  "filter6d mode_desc adaptive_fast",
                                  "filter6d mode_id t02",
                                  "filter6d mode_desc adaptive_slow"};

const QStringList constructionRefused = {
        "filter6d number_of_presets",    "filter6d limit strength_min",
        "filter6d limit strength_max",   "filter6d limit prediction_min",
        "filter6d limit prediction_max", "filter6d number_of_modes"};

const QStringList oneStandardBody = {"filter6d available standard", "config is_changeable",
                                     "body inertial_sensor standard b01", "body desc standard b01"};

const QStringList allStandardBodies = {"filter6d available standard",
                                       "config is_changeable",
                                       "body number_of_bodies standard",
                                       "body calibrated standard b01",
                                       "body inertial_sensor standard b01",
                                       "body desc standard b01",
                                       "body calibrated standard b02",
                                       "body inertial_sensor standard b02",
                                       "body desc standard b02",
                                       "body calibrated standard b03"};

const QStringList allJoywands = {"filter6d available joywand", "config is_changeable",
                                 "joywand number_of_devices", "body calibrated joywand b01",
                                 "body calibrated joywand b02"};

/**
 * The queries for a body; `asksLists` adds those for presets and modes, which a new controller
 * answers.
 */
QStringList values(const QString &body, bool asksLists)
{
    const QStringList presets = {"filter6d number_of_presets",
                                 "filter6d preset_id t01",
                                 "body filter6d_preset_available " + body + " preset6d_default",
                                 "filter6d preset_desc preset6d_default",
                                 "filter6d preset_id t02",
                                 "body filter6d_preset_available " + body + " preset6d_custom",
                                 "filter6d preset_desc preset6d_custom"};
    const QStringList modes = {"filter6d number_of_modes",
                               "filter6d mode_id t01",
                               "body filter6d_mode_available " + body + " adaptive_fast",
                               "filter6d mode_desc adaptive_fast",
                               "filter6d mode_id t02",
                               "body filter6d_mode_available " + body + " adaptive_slow",
                               "filter6d mode_desc adaptive_slow"};
    QStringList lines = {"body filter6d_enabled " + body, "body inertial_sensor " + body};
    if (asksLists)
        lines += presets;
    lines << "body filter6d_preset " + body << "body filter6d_strength " + body
          << "body filter6d_prediction " + body;
    if (asksLists)
        lines += modes;
    return lines << "body filter6d_mode " + body;
}

const QStringList editingWidgets = {
        "label_body",         "comboBox_body",  "checkBox_active",  "label_preset",
        "comboBox_preset",    "label_strength", "label_prediction", "doubleSpinBox_strength",
        "spinBox_prediction", "label_mode",     "comboBox_mode"};

QStringList enabledWidgets(QWidget *dialog)
{
    QStringList enabled;
    for (const QString &name : editingWidgets) {
        if (Drive::find<QWidget>(dialog, qPrintable(name))->isEnabled())
            enabled << name;
    }
    return enabled;
}

} // namespace

void tst_FilterDialog::openingSequence_data()
{
    QTest::addColumn<QString>("protocol");
    QTest::addColumn<int>("type");
    QTest::addColumn<int>("index");
    QTest::addColumn<QStringList>("expected");

    QTest::newRow("1.11 one") << "1.11" << standard << 0
                              << constructionRefused + QStringList{"config is_changeable"};
    QTest::newRow("1.11 all") << "1.11" << standard << allBodies
                              << constructionRefused + QStringList{"config is_changeable"};
    for (const char *protocol : {"1.12", "1.20", "1.21", "1.24"}) {
        const bool asksLists = qstrcmp(protocol, "1.21") >= 0;
        QTest::addRow("%s one standard", protocol)
                << protocol << standard << 0
                << construction + oneStandardBody + values("standard b01", asksLists);
        QTest::addRow("%s all standard", protocol)
                << protocol << standard << allBodies
                << construction + allStandardBodies + values("standard b01", asksLists);
        QTest::addRow("%s one joywand", protocol)
                << protocol << joywand << 1
                << construction + allJoywands.mid(0, 2) + values("joywand b02", asksLists);
        QTest::addRow("%s all joywand", protocol)
                << protocol << joywand << allBodies
                << construction + allJoywands + values("joywand b01", asksLists);
    }
}

void tst_FilterDialog::openingSequence()
{
    QFETCH(QString, protocol);
    QFETCH(int, type);
    QFETCH(int, index);
    QFETCH(QStringList, expected);
    TestHost host(smallState(protocol));
    visit(host, type, index, [&](const FilterWidgets &) { QCOMPARE(host.lines(), expected); });
    QCOMPARE(host.lines(), expected);
    QCOMPARE(host.log(), QStringList());
}

void tst_FilterDialog::newControllerReadsListsForTheBody()
{
    TestHost host(smallState());
    visit(host, standard, 0, [&](const FilterWidgets &w) {
        QCOMPARE(entries(w.preset), QStringList({"Default", "Custom"}));
        QCOMPARE(w.preset->currentText(), QString("Custom"));
        QCOMPARE(w.preset->currentData().toString(), QString("preset6d_custom"));
        QVERIFY(w.active->isChecked());
        QCOMPARE(w.strength->text(), QString("0.42"));
        QCOMPARE(w.prediction->text(), QString("20"));
        QCOMPARE(entries(w.mode), QStringList({"Adaptive fast", "Adaptive slow"}));
        QCOMPARE(w.mode->currentText(), QString("Adaptive fast"));
        QCOMPARE(w.mode->currentData().toString(), QString("adaptive_fast"));
    });
}

void tst_FilterDialog::unavailable_data()
{
    QTest::addColumn<QString>("protocol");
    QTest::addColumn<QString>("fault");
    QTest::addColumn<int>("type");
    QTest::addColumn<QString>("text");
    const QString forStandard =
            "<b><font color=red>6DOF filter for standard bodies not available</font></b>";
    const QString forJoywands =
            "<b><font color=red>6DOF filter for joywands not available</font></b>";
    const QString forOthers = "<b><font color=red>6DOF filter not available</font></b>";

    QTest::newRow("old standard") << "1.11"
                                  << "" << standard << forStandard;
    QTest::newRow("old joywand") << "1.11"
                                 << "" << joywand << forJoywands;
    QTest::newRow("old other") << "1.11"
                               << "" << 2 << forOthers;
    QTest::newRow("other type") << "1.24"
                                << "" << 2 << forOthers;
    QTest::newRow("negative type") << "1.24"
                                   << "" << -1 << forOthers;
    QTest::newRow("standard no") << "1.24"
                                 << "filter6d available standard answer \"no\"" << standard
                                 << forStandard;
    QTest::newRow("joywand no") << "1.24"
                                << "filter6d available joywand answer \"no\"" << joywand
                                << forJoywands;
    QTest::newRow("nearly yes") << "1.24"
                                << "filter6d available standard answer \"yes.\"" << standard
                                << forStandard;
    QTest::newRow("standard fails")
            << "1.24"
            << "filter6d available standard fail" << standard << forStandard;
    QTest::newRow("joywand fails") << "1.24"
                                   << "filter6d available joywand fail" << joywand << forJoywands;
}

void tst_FilterDialog::unavailable()
{
    QFETCH(QString, protocol);
    QFETCH(QString, fault);
    QFETCH(int, type);
    QFETCH(QString, text);
    TestHost host(smallState(protocol));
    if (!fault.isEmpty())
        host.fault(fault);
    visit(host, type, 0, [&](const FilterWidgets &w) {
        QCOMPARE(w.error->text(), text);
        QCOMPARE(enabledWidgets(w.dialog), QStringList());
        QCOMPARE(w.body->count(), 0);
        QVERIFY(Drive::find<QWidget>(w.dialog, "pushButton_help")->isEnabled());
        Drive::click(w.dialog, "pushButton_exit");
        QVERIFY(!w.dialog->isVisible());
    });
    QCOMPARE(host.writes(), QStringList());
}

void tst_FilterDialog::lockedShowsNothing()
{
    ControllerState state = smallState();
    state.configChangeable = false;
    TestHost host(state);
    visit(host, standard, 0, [&](const FilterWidgets &w) {
        QCOMPARE(w.error->text(), QString());
        QCOMPARE(enabledWidgets(w.dialog), QStringList());
        QCOMPARE(w.body->count(), 0);
        QCOMPARE(w.preset->count(), 0);
        QCOMPARE(w.mode->currentText(), QString());
        QVERIFY(!w.active->isChecked());
    });
    QCOMPARE(host.lines(), construction + oneStandardBody.mid(0, 2));
}

void tst_FilterDialog::lockIsAskedFromItsVersionOn_data()
{
    QTest::addColumn<QString>("protocol");
    QTest::addColumn<QString>("fault");
    QTest::addColumn<bool>("locked");
    QTest::newRow("before") << "1.8"
                            << "" << false;
    QTest::newRow("from then on") << "1.9"
                                  << "" << true;
    QTest::newRow("unreadable") << "1.24"
                                << "config is_changeable fail" << false;
    QTest::newRow("only on no") << "1.24"
                                << "config is_changeable answer \"No\"" << false;
    QTest::newRow("no") << "1.24"
                        << "" << true;
}

void tst_FilterDialog::lockIsAskedFromItsVersionOn()
{
    QFETCH(QString, protocol);
    QFETCH(QString, fault);
    QFETCH(bool, locked);
    ControllerState state = smallState(protocol);
    state.configChangeable = false;
    TestHost host(state);
    if (!fault.isEmpty())
        host.fault(fault);
    const FilterDialog dialog(&host.io, &host.mainWindow, &host.versions);
    QCOMPARE(dialog.getConfigLocked(), locked);
}

void tst_FilterDialog::bodyList_data()
{
    QTest::addColumn<int>("type");
    QTest::addColumn<int>("index");
    QTest::addColumn<QStringList>("texts");
    QTest::addColumn<QStringList>("identifiers");
    const QString seventh = "standard body 07 (tool)";
    QTest::newRow("all standard") << standard << allBodies
                                  << QStringList{"standard body 01 (Cap)", "standard body 02 (Rig)",
                                                 seventh, "standard body 12"}
                                  << QStringList{"standard b01", "standard b02", "standard b07",
                                                 "standard b12"};
    QTest::newRow("seventh") << standard << 6 << QStringList{seventh}
                             << QStringList{"standard b07"};
    QTest::newRow("uncalibrated alone")
            << standard << 2 << QStringList{"standard body 03"} << QStringList{"standard b03"};
    QTest::newRow("all joywands") << joywand << allBodies << QStringList{"Joywand body 01"}
                                  << QStringList{"joywand b01"};
    QTest::newRow("uncalibrated joywand alone")
            << joywand << 1 << QStringList{"Joywand body 02"} << QStringList{"joywand b02"};
}

void tst_FilterDialog::bodyList()
{
    QFETCH(int, type);
    QFETCH(int, index);
    QFETCH(QStringList, texts);
    QFETCH(QStringList, identifiers);
    ControllerState state = smallState();
    state.bodyTypes["standard"].bodies.resize(12);
    standardBody(state, 6) = body("tool", "preset6d_default");
    standardBody(state, 11) = body("", "preset6d_default");
    TestHost host(state);
    visit(host, type, index, [&](const FilterWidgets &w) {
        QCOMPARE(entries(w.body), texts);
        QStringList data;
        for (int i = 0; i < w.body->count(); ++i)
            data << w.body->itemData(i).toString();
        QCOMPARE(data, identifiers);
        QCOMPARE(w.body->currentIndex(), 0);
    });
}

void tst_FilterDialog::noCalibratedBody()
{
    ControllerState state = smallState();
    for (BodyState &each : state.bodyTypes["standard"].bodies)
        each.calibrated = false;
    TestHost host(state);
    visit(host, standard, allBodies, [&](const FilterWidgets &w) {
        QCOMPARE(w.body->count(), 0);
        QVERIFY(!w.active->isChecked());
        QCOMPARE(w.strength->value(), 0.0);
        QCOMPARE(w.prediction->value(), 0);
        QCOMPARE(w.preset->currentIndex(), -1);
        QCOMPARE(w.mode->currentIndex(), -1);
        QVERIFY(!w.preset->isEnabled());
        QVERIFY(!w.strength->isEnabled());
        QVERIFY(!w.prediction->isEnabled());
        QVERIFY(!w.mode->isEnabled());
        const QStringList soFar = host.lines();
        toggle(w.active);
        QVERIFY(!w.active->isChecked());
        QCOMPARE(host.lines(), soFar);
    });
    const QStringList asked = {"filter6d available standard",    "config is_changeable",
                               "body number_of_bodies standard", "body calibrated standard b01",
                               "body calibrated standard b02",   "body calibrated standard b03"};
    QCOMPARE(host.lines(), construction + asked);
}

void tst_FilterDialog::inertialBodyHidesTheSwitch()
{
    TestHost host(smallState());
    visit(host, standard, allBodies, [&](const FilterWidgets &w) {
        QVERIFY(w.active->isVisible());
        Drive::choose(w.body, "standard body 02 (Rig)");
        QVERIFY(!w.active->isVisible());
        QVERIFY(w.active->isChecked());
        QCOMPARE(entries(w.preset), QStringList({"Default"}));
        Drive::choose(w.body, "standard body 01 (Cap)");
        QVERIFY(w.active->isVisible());
    });
    QCOMPARE(host.writes(), QStringList());
}

void tst_FilterDialog::oldControllerInertialPresets_data()
{
    QTest::addColumn<QString>("protocol");
    QTest::newRow("first with filter") << "1.12";
    QTest::newRow("last without lists") << "1.20";
}

void tst_FilterDialog::oldControllerInertialPresets()
{
    QFETCH(QString, protocol);
    ControllerState state = smallState(protocol);
    state.filterPresets +=
            {preset("preset6d_med_pred", "Medium", 0.5, 0.03, "adaptive_slow", false),
             preset("preset6d_default_2", "Second", 0.5, 0.03, "adaptive_slow", true)};
    TestHost host(state);
    visit(host, standard, allBodies, [&](const FilterWidgets &w) {
        QCOMPARE(entries(w.preset), QStringList({"Default", "Custom", "Medium", "Second"}));
        Drive::choose(w.body, "standard body 02 (Rig)");
        QCOMPARE(entries(w.preset), QStringList({"Default", "Medium"}));
        QCOMPARE(w.preset->currentText(), QString("Default"));
        QCOMPARE(entries(w.mode), QStringList({"Adaptive fast", "Adaptive slow"}));
    });
}

void tst_FilterDialog::newControllerTellsWhatIsAvailable()
{
    ControllerState state = smallState("1.21");
    state.filterPresets[1].availableForInertial = true;
    state.filterModes[0].availableForInertial = false;
    TestHost host(state);
    visit(host, standard, 1, [&](const FilterWidgets &w) {
        QCOMPARE(entries(w.preset), QStringList({"Default", "Custom"}));
        QCOMPARE(entries(w.mode), QStringList({"Adaptive slow"}));
    });
}

void tst_FilterDialog::anotherBodyIsReadAgain()
{
    TestHost host(smallState());
    visit(host, standard, allBodies, [&](const FilterWidgets &w) {
        host.clear();
        Drive::choose(w.body, "standard body 02 (Rig)");
        QStringList expected = values("standard b02", true);
        // Entries that are not available for the body are not queried for their description either.
        const int asked =
                expected.indexOf("body filter6d_preset_available standard b02 preset6d_custom");
        expected.removeAt(asked + 1);
        QCOMPARE(host.lines(), expected);
        QCOMPARE(w.strength->text(), QString("0.50"));
        QCOMPARE(w.prediction->text(), QString("33"));
        QCOMPARE(w.mode->currentText(), QString("Adaptive slow"));
    });
}

void tst_FilterDialog::fillingWritesNothing()
{
    TestHost host;
    visit(host, standard, allBodies, [&](const FilterWidgets &w) {
        for (const QString &each : entries(w.body)) {
            if (each != w.body->currentText())
                Drive::choose(w.body, each);
        }
    });
    visit(host, joywand, allBodies, nothing());
    QCOMPARE(host.writes(), QStringList());
    QCOMPARE(host.log(), QStringList());
}

void tst_FilterDialog::openedAgainAfterALock()
{
    ControllerState state = smallState();
    state.configChangeable = false;
    TestHost host(state);
    FilterDialog dialog(&host.io, &host.mainWindow, &host.versions);
    visit(host, dialog, standard, 0,
          [&](const FilterWidgets &w) { QCOMPARE(enabledWidgets(w.dialog), QStringList()); });
    host.edit([](ControllerState &changed) { changed.configChangeable = true; });
    visit(host, dialog, standard, 0, [&](const FilterWidgets &w) {
        QStringList all = editingWidgets;
        all.sort();
        QStringList enabled = enabledWidgets(w.dialog);
        enabled.sort();
        QCOMPARE(enabled, all);
        QCOMPARE(w.strength->text(), QString("0.42"));
    });
    host.fault("filter6d available standard fail");
    visit(host, dialog, standard, 0, [&](const FilterWidgets &w) {
        QVERIFY(w.error->text().contains("not available"));
        QCOMPARE(enabledWidgets(w.dialog), QStringList());
        QCOMPARE(w.body->count(), 0);
        QVERIFY(!w.active->isChecked());
        QCOMPARE(w.preset->currentText(), QString());
        QCOMPARE(w.mode->currentText(), QString());
    });
    host.io.faults()->clear();
    visit(host, dialog, standard, 0,
          [&](const FilterWidgets &w) { QCOMPARE(w.error->text(), QString()); });
    QCOMPARE(host.writes(), QStringList());
}

TRACKING_TEST_MAIN(tst_FilterDialog)
#include "tst_filterdialog.moc"
