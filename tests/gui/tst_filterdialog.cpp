#include "filterdialogtest.h"

#include <QPointer>
#include <QTextBrowser>

/** What the filter dialog reads and shows. */
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
    void enablingRules_data();
    void enablingRules();
    void predictionLimits_data();
    void predictionLimits();
    void strengthLimits();
    void predictionIsTruncated_data();
    void predictionIsTruncated();
    void presetOutsideTheList();
    void modeOutsideTheList();
    void oldControllerInertialPresets_data();
    void oldControllerInertialPresets();
    void newControllerTellsWhatIsAvailable();
    void anotherBodyIsReadAgain();
    void fillingWritesNothing();
    void openedAgainAfterALock();
    void texts_data();
    void texts();
    void iconOfTheParent();
    void helpPage();
    void deletedWhileOpen();
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

/** What is read of a body; `presets` and `modes` stand where a new controller is asked for both. */
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

void tst_FilterDialog::enablingRules_data()
{
    QTest::addColumn<QString>("preset");
    QTest::addColumn<bool>("active");
    QTest::addColumn<bool>("strengthEnabled");
    QTest::addColumn<bool>("strengthShown");
    QTest::addColumn<bool>("othersEnabled"); // prediction and mode
    QTest::newRow("fixed") << "preset6d_default" << true << false << true << false;
    QTest::newRow("custom") << "preset6d_custom" << true << true << true << true;
    QTest::newRow("custom off") << "preset6d_custom" << false << false << true << false;
    QTest::newRow("another custom") << "preset6d_my_custom_2" << true << true << true << true;
    QTest::newRow("hybrid") << "preset6d_hybrid" << true << false << false << false;
    QTest::newRow("hybrid custom") << "preset6d_hybrid_custom" << true << false << false << true;
    QTest::newRow("hybrid custom off")
            << "preset6d_hybrid_custom" << false << false << false << false;
    QTest::newRow("foreign family") << "filter_custom" << true << false << true << false;
    QTest::newRow("no underscore") << "preset6d_1custom" << true << false << true << false;
    QTest::newRow("other case") << "preset6d_Custom" << true << false << true << false;
}

void tst_FilterDialog::enablingRules()
{
    QFETCH(QString, preset);
    QFETCH(bool, active);
    QFETCH(bool, strengthEnabled);
    QFETCH(bool, strengthShown);
    QFETCH(bool, othersEnabled);
    ControllerState state = smallState();
    state.filterPresets = {FilterDialogTest::preset(qPrintable(preset), "The one", 0.5, 0.033,
                                                    "adaptive_slow", true)};
    for (BodyState &each : state.bodyTypes["standard"].bodies)
        each.filterPreset = preset;
    state.bodyTypes["joywand"].bodies.clear();
    standardBody(state, 0).filterEnabled = active;
    TestHost host(state);
    visit(host, standard, 0, [&](const FilterWidgets &w) {
        QCOMPARE(w.preset->currentText(), QString("The one"));
        QCOMPARE(w.preset->isEnabled(), active);
        QCOMPARE(w.strength->isEnabled(), strengthEnabled);
        QCOMPARE(w.strength->isVisible(), strengthShown);
        QCOMPARE(w.labelStrength->isVisible(), strengthShown);
        QCOMPARE(w.prediction->isEnabled(), othersEnabled);
        QVERIFY(w.prediction->isVisible());
        QCOMPARE(w.prediction->value(), 20);
        QCOMPARE(w.mode->isEnabled(), othersEnabled);
        QCOMPARE(w.mode->currentText(), QString("Adaptive fast"));
    });
}

void tst_FilterDialog::predictionLimits_data()
{
    QTest::addColumn<double>("minimumSeconds");
    QTest::addColumn<double>("maximumSeconds");
    QTest::addColumn<int>("minimumMs");
    QTest::addColumn<int>("maximumMs");
    QTest::newRow("nothing to 66.5 ms") << 0.0 << 0.0665 << 0 << 66;
    QTest::newRow("usual") << -0.066 << 0.066 << -66 << 66;
    QTest::newRow("toward zero") << -0.0305 << 0.0309 << -30 << 30;
    QTest::newRow("decimal") << -0.029 << 0.057 << -29 << 57;
}

void tst_FilterDialog::predictionLimits()
{
    QFETCH(double, minimumSeconds);
    QFETCH(double, maximumSeconds);
    ControllerState state = smallState();
    state.predictionMin = minimumSeconds;
    state.predictionMax = maximumSeconds;
    TestHost host(state);
    visit(host, standard, 0, [&](const FilterWidgets &w) {
        QTEST(w.prediction->minimum(), "minimumMs");
        QTEST(w.prediction->maximum(), "maximumMs");
    });
}

void tst_FilterDialog::strengthLimits()
{
    ControllerState state = smallState();
    state.strengthMin = 0.2;
    state.strengthMax = 0.8;
    TestHost host(state);
    visit(host, standard, 0, [&](const FilterWidgets &w) {
        QCOMPARE(w.strength->minimum(), 0.2);
        QCOMPARE(w.strength->maximum(), 0.8);
        QCOMPARE(w.strength->singleStep(), 0.01);
    });
}

void tst_FilterDialog::predictionIsTruncated_data()
{
    QTest::addColumn<double>("seconds");
    QTest::addColumn<QString>("shown");
    QTest::newRow("half") << 0.0125 << "12";
    QTest::newRow("negative half") << -0.0125 << "-12";
    QTest::newRow("no binary loss") << 0.029 << "29";
    QTest::newRow("nothing") << 0.0 << "0";
    QTest::newRow("below one") << 0.0009 << "0";
}

void tst_FilterDialog::predictionIsTruncated()
{
    QFETCH(double, seconds);
    ControllerState state = smallState();
    standardBody(state, 0).filterPrediction = seconds;
    TestHost host(state);
    visit(host, standard, 0, [&](const FilterWidgets &w) {
        const QString text = w.prediction->text();
        QTEST(text, "shown");
    });
}

void tst_FilterDialog::presetOutsideTheList()
{
    TestHost host(smallState());
    host.fault("body filter6d_preset standard b01 answer \"preset6d_gone_custom\"");
    visit(host, standard, 0, [&](const FilterWidgets &w) {
        QCOMPARE(w.preset->count(), 2);
        QCOMPARE(w.preset->currentIndex(), -1);
        QVERIFY(w.preset->isEnabled());
        QVERIFY(!w.strength->isEnabled());
        QVERIFY(!w.prediction->isEnabled());
        QVERIFY(!w.mode->isEnabled());
    });
    QCOMPARE(host.log(), QStringList());
}

void tst_FilterDialog::modeOutsideTheList()
{
    TestHost host(smallState());
    host.fault("body filter6d_mode standard b01 answer \"ADAPTIVE_FAST\"");
    visit(host, standard, 0, [&](const FilterWidgets &w) {
        QCOMPARE(w.mode->count(), 2);
        QCOMPARE(w.mode->currentIndex(), -1);
        QVERIFY(w.mode->isEnabled());
    });
    QCOMPARE(host.log(), QStringList());
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
        // What is not available for the body is not described either.
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
    visit(host, dialog, standard, 0,
          [&](const FilterWidgets &w) { QVERIFY(w.error->text().contains("not available")); });
    host.io.faults()->clear();
    visit(host, dialog, standard, 0,
          [&](const FilterWidgets &w) { QCOMPARE(w.error->text(), QString()); });
    QCOMPARE(host.writes(), QStringList());
}

void tst_FilterDialog::texts_data()
{
    QTest::addColumn<QString>("widget");
    QTest::addColumn<QByteArray>("property");
    QTest::addColumn<QString>("text");
    const QByteArray text = "text";
    const QByteArray help = "whatsThis";
    QTest::newRow("body") << "label_body" << text << "&body";
    QTest::newRow("body help") << "comboBox_body" << help
                               << "Select body to adjust the 6DOF filter";
    QTest::newRow("active") << "checkBox_active" << text << "&active";
    QTest::newRow("preset") << "label_preset" << text << "&preset";
    QTest::newRow("strength") << "label_strength" << text << "&strength";
    QTest::newRow("strength help") << "doubleSpinBox_strength" << help
                                   << "Adjust 6DOF filter strength. Min. = 0.01, max. = 0.99";
    QTest::newRow("prediction") << "label_prediction" << text << "pre&diction [ms]";
    QTest::newRow("mode") << "label_mode" << text << "&mode";
    QTest::newRow("mode help") << "comboBox_mode" << help << "Adjust 6DOF filter mode";
    QTest::newRow("error") << "label_error" << text << "";
    QTest::newRow("help") << "pushButton_help" << text << "&Help";
    QTest::newRow("exit") << "pushButton_exit" << text << "E&xit";
    QTest::newRow("exit help") << "pushButton_exit" << help << "Close dialog";
}

void tst_FilterDialog::texts()
{
    QFETCH(QString, widget);
    QFETCH(QByteArray, property);
    TestHost host(smallState());
    FilterDialog dialog(&host.io, &host.mainWindow, &host.versions);
    QCOMPARE(dialog.windowTitle(), QString("Filter Settings"));
    QCOMPARE(dialog.whatsThis(), QString("6DOF filter settings"));
    const QString text =
            Drive::find<QWidget>(&dialog, qPrintable(widget))->property(property).toString();
    QTEST(text, "text");
    QVERIFY(Drive::find<QComboBox>(&dialog, "comboBox_preset")
                    ->whatsThis()
                    .contains("<p>A preset is a pre-definded set of strength, prediction and "
                              "mode.</p>"));
}

void tst_FilterDialog::iconOfTheParent()
{
    TestHost host(smallState());
    QPixmap red(16, 16);
    red.fill(Qt::red);
    host.mainWindow.setWindowIcon(QIcon(red));
    const FilterDialog dialog(&host.io, &host.mainWindow, &host.versions);
    QCOMPARE(dialog.windowIcon().pixmap(16).toImage().pixelColor(8, 8), QColor(Qt::red));
}

void tst_FilterDialog::helpPage()
{
    TestHost host(smallState());
    visit(host, standard, 0, [&](const FilterWidgets &w) {
        robot().expectDialog("FilterHelp", [&](QWidget *help) {
            QCOMPARE(help->windowTitle(), QString("Help Filter"));
            QCOMPARE(help->whatsThis(), QString("Help for filter settings"));
            QVERIFY(help->isModal());
            QVERIFY(!help->parentWidget());
            const QString page = Drive::find<QTextBrowser>(help, "textBrowser")->toPlainText();
            for (const char *word :
                 {"Strength", "Prediction", "Low values", "High values", "adaptive fast",
                  "adaptive slow", "reference target", "hybrid target"})
                QVERIFY2(page.contains(word), word);
            Drive::click(help, "pushButton_exit");
            QVERIFY(!help->isVisible());
        });
        const QStringList soFar = host.lines();
        Drive::click(w.dialog, "pushButton_help");
        QCOMPARE(host.lines(), soFar);
        QVERIFY(w.dialog->isVisible());
    });
}

void tst_FilterDialog::deletedWhileOpen()
{
    TestHost host(smallState());
    QPointer<FilterDialog> dialog = new FilterDialog(&host.io, &host.mainWindow, &host.versions);
    robot().expectDialog("FilterDialog", [&](QWidget *) { delete dialog.data(); });
    QCOMPARE(dialog->update_and_exec(standard, 0), int(QDialog::Rejected));
    QVERIFY(!dialog);
    QCOMPARE(host.writes(), QStringList());
}

TRACKING_TEST_MAIN(tst_FilterDialog)
#include "tst_filterdialog.moc"
