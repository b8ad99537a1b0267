#include "filterdialogtest.h"

/** Failing queries and writes of the filter dialog: each logs its line, and the dialog goes on. */
class tst_FilterDialogFailures : public FilterDialogTest {
    Q_OBJECT

private slots:
    void constructionQuery_data();
    void constructionQuery();
    void bodyListQuery_data();
    void bodyListQuery();
    void valueQuery_data();
    void valueQuery();
    void failedWrite_data();
    void failedWrite();
    void unreadableLimits();
    void unreadableStrengthShowsZero();
    void valueAfterAnUnreadableOneStaysInItsLimits();
    void unreadableSensorCountsAsNone();
    void blankIdentifierIsNoEntry_data();
    void blankIdentifierIsNoEntry();
    void blankSensorIsNone();
    void listGoesOn_data();
    void listGoesOn();
    void refusedPresetIsReadBack();
    void deadLink();
    void withoutHostObjects();
};

void tst_FilterDialogFailures::constructionQuery_data()
{
    QTest::addColumn<QString>("query");
    QTest::addColumn<QString>("line");
    QTest::newRow("preset count") << "filter6d number_of_presets"
                                  << "Error: Unable to get number of filter 6d presets";
    QTest::newRow("preset id") << "filter6d preset_id t01"
                               << "Error: Unable to get filter 6d preset id";
    QTest::newRow("preset text") << "filter6d preset_desc preset6d_default"
                                 << "Error: Unable to get filter 6d preset description";
    QTest::newRow("mode count") << "filter6d number_of_modes"
                                << "Error: Unable to get number of filter 6d modes";
    QTest::newRow("mode id") << "filter6d mode_id t02"
                             << "Error: Unable to get filter 6d mode id";
    QTest::newRow("mode text") << "filter6d mode_desc adaptive_slow"
                               << "Error: Unable to get filter 6d mode description";
    QTest::newRow("strength min") << "filter6d limit strength_min"
                                  << "Error: Unable to get minimum of filter 6d strength";
    QTest::newRow("strength max") << "filter6d limit strength_max"
                                  << "Error: Unable to get maximum of filter 6d strength";
    QTest::newRow("prediction min") << "filter6d limit prediction_min"
                                    << "Error: Unable to get minimum of filter 6d prediction";
    QTest::newRow("prediction max") << "filter6d limit prediction_max"
                                    << "Error: Unable to get maximum of filter 6d prediction";
}

void tst_FilterDialogFailures::constructionQuery()
{
    QFETCH(QString, query);
    QFETCH(QString, line);
    TestHost host(smallState("1.20"));
    host.fault(query + " fail");
    const FilterDialog dialog(&host.io, &host.mainWindow, &host.versions);
    QCOMPARE(host.log(), QStringList({line}));
    QCOMPARE(host.queries().count(query), 1);
}

void tst_FilterDialogFailures::bodyListQuery_data()
{
    QTest::addColumn<QString>("query");
    QTest::addColumn<int>("type");
    QTest::addColumn<QString>("line");
    QTest::addColumn<QStringList>("bodies");
    const QStringList both = {"standard body 01 (Cap)", "standard body 02 (Rig)"};
    const QStringList wands = {"Joywand body 01"};
    QTest::newRow("standard count")
            << "body number_of_bodies standard" << standard
            << "Error: Unable to get number of standard bodies" << QStringList();
    QTest::newRow("joywand count")
            << "joywand number_of_devices" << joywand
            << "Error: Unable to get number of Joywand devices" << QStringList();
    QTest::newRow("standard calibrated")
            << "body calibrated standard b01" << standard
            << "Error: Unable to get calibration state of body standard b01"
            << QStringList(both.mid(1));
    QTest::newRow("joywand calibrated")
            << "body calibrated joywand b02" << joywand
            << "Error: Unable to get calibration state of body joywand b02" << wands;
    QTest::newRow("sensor") << "body inertial_sensor standard b02" << standard
                            << "Error: Unable to get inertial sensor of body standard b02" << both;
    QTest::newRow("description") << "body desc standard b01" << standard
                                 << "Error: Unable to get description of body standard b01"
                                 << QStringList({"standard body 01", "standard body 02 (Rig)"});
}

void tst_FilterDialogFailures::bodyListQuery()
{
    QFETCH(QString, query);
    QFETCH(int, type);
    QFETCH(QString, line);
    QFETCH(QStringList, bodies);
    TestHost host(smallState());
    host.fault(query + " fail");
    visit(host, type, allBodies,
          [&](const FilterWidgets &w) { QCOMPARE(entries(w.body), bodies); });
    QCOMPARE(host.log(), QStringList({line}));
    QCOMPARE(host.writes(), QStringList());
}

void tst_FilterDialogFailures::valueQuery_data()
{
    QTest::addColumn<QString>("protocol");
    QTest::addColumn<QString>("query");
    QTest::addColumn<QString>("line");
    QTest::addColumn<QString>("shown"); // in the order switch, preset, strength, prediction, mode
    const QString presetOff = "on||0.42|20|Adaptive fast";
    const QString modeOff = "on|Custom|0.42|20|";
    for (const char *protocol : {"1.20", "1.24"}) {
        const QString of = protocol;
        QTest::addRow("%s available", protocol)
                << of << "filter6d available standard"
                << "Error: Unable to get availability of filter6d for bodytype standard"
                << "off||0.51|33|";
        QTest::addRow("%s enabled", protocol)
                << of << "body filter6d_enabled standard b01"
                << "Error: Unable to get filter 6d state for body standard b01"
                << "off|Custom|0.42|20|Adaptive fast";
        QTest::addRow("%s preset", protocol)
                << of << "body filter6d_preset standard b01"
                << "Error: Unable to get filter 6d preset for body standard b01" << presetOff;
        QTest::addRow("%s strength", protocol)
                << of << "body filter6d_strength standard b01"
                << "Error: Unable to get filter 6d strength for body standard b01"
                << "on|Custom|0.00|20|Adaptive fast";
        QTest::addRow("%s prediction", protocol)
                << of << "body filter6d_prediction standard b01"
                << "Error: Unable to get filter 6d prediction for body standard b01"
                << "on|Custom|0.42|0|Adaptive fast";
        QTest::addRow("%s mode", protocol)
                << of << "body filter6d_mode standard b01"
                << "Error: Unable to get filter 6d mode for body standard b01" << modeOff;
    }
    QTest::newRow("preset count") << "1.24"
                                  << "filter6d number_of_presets"
                                  << "Error: Unable to get number of filter 6d presets"
                                  << presetOff;
    QTest::newRow("preset id") << "1.24"
                               << "filter6d preset_id t02"
                               << "Error: Unable to get filter 6d preset id" << presetOff;
    QTest::newRow("preset available")
            << "1.24"
            << "body filter6d_preset_available standard b01 preset6d_custom"
            << "Error: Unable to get filter 6d preset id available" << presetOff;
    QTest::newRow("preset text") << "1.24"
                                 << "filter6d preset_desc preset6d_custom"
                                 << "Error: Unable to get filter 6d preset description"
                                 << presetOff;
    QTest::newRow("mode count") << "1.24"
                                << "filter6d number_of_modes"
                                << "Error: Unable to get number of filter 6d modes" << modeOff;
    QTest::newRow("mode id") << "1.24"
                             << "filter6d mode_id t01"
                             << "Error: Unable to get filter 6d mode id" << modeOff;
    QTest::newRow("mode available")
            << "1.24"
            << "body filter6d_mode_available standard b01 adaptive_fast"
            << "Error: Unable to get filter 6d mode id available" << modeOff;
    QTest::newRow("mode text") << "1.24"
                               << "filter6d mode_desc adaptive_fast"
                               << "Error: Unable to get filter 6d mode description" << modeOff;
}

void tst_FilterDialogFailures::valueQuery()
{
    QFETCH(QString, protocol);
    QFETCH(QString, query);
    QFETCH(QString, line);
    QFETCH(QString, shown);
    TestHost host(smallState(protocol));
    FilterDialog dialog(&host.io, &host.mainWindow, &host.versions);
    host.fault("get " + query + " fail");
    visit(host, dialog, standard, 0, [&](const FilterWidgets &w) {
        const QStringList found = {w.active->isChecked() ? "on" : "off", w.preset->currentText(),
                                   w.strength->text(), w.prediction->text(), w.mode->currentText()};
        QCOMPARE(found.join('|'), shown);
    });
    QCOMPARE(host.log(), QStringList({line}));
    QCOMPARE(host.queries().mid(14).count(query), 1);
    QCOMPARE(host.writes(), QStringList());
}

void tst_FilterDialogFailures::failedWrite_data()
{
    QTest::addColumn<QString>("command");
    QTest::addColumn<QString>("line");
    QTest::newRow("enabled") << "body filter6d_enabled standard b01 no"
                             << "Error: Unable to activate/deactivate filter 6d for body %1";
    QTest::newRow("preset") << "body filter6d_preset standard b01 preset6d_default"
                            << "Error: Unable to set filter 6d preset for body %1";
    QTest::newRow("strength") << "body filter6d_strength standard b01 0.670000"
                              << "Error: Unable to set filter 6d strength for body %1";
    QTest::newRow("prediction") << "body filter6d_prediction standard b01 0.045000"
                                << "Error: Unable to set filter 6d prediction for body %1";
    QTest::newRow("mode") << "body filter6d_mode standard b01 adaptive_slow"
                          << "Error: Unable to set filter 6d mode for body %1";
}

void tst_FilterDialogFailures::failedWrite()
{
    QFETCH(QString, command);
    QFETCH(QString, line);
    TestHost host(smallState());
    host.fault("set " + command + " refuse");
    const QString kind = QTest::currentDataTag();
    visit(host, standard, 0, [&](const FilterWidgets &w) {
        if (kind == "enabled")
            toggle(w.active);
        else if (kind == "preset")
            Drive::choose(w.preset, "Default");
        else if (kind == "strength")
            type(w.strength, "0.67");
        else if (kind == "prediction")
            type(w.prediction, "45");
        else
            Drive::choose(w.mode, "Adaptive slow");
        QTest::keyClick(w.body, Qt::Key_Tab);
        w.body->setFocus();
        // The widget still shows the user's choice after the refusal.
        const QStringList shown = {w.active->isChecked() ? "on" : "off", w.preset->currentText(),
                                   w.strength->text(), w.prediction->text(), w.mode->currentText()};
        const QMap<QString, QString> expected = {{"enabled", "off|Custom|0.42|20|Adaptive fast"},
                                                 {"preset", "on|Default|0.42|20|Adaptive fast"},
                                                 {"strength", "on|Custom|0.67|20|Adaptive fast"},
                                                 {"prediction", "on|Custom|0.42|45|Adaptive fast"},
                                                 {"mode", "on|Custom|0.42|20|Adaptive slow"}};
        QCOMPARE(shown.join('|'), expected.value(kind));
    });
    QCOMPARE(host.writes(), QStringList({command}));
    QCOMPARE(host.log(), QStringList({line.arg("standard b01")}));
    const BodyState &body = host.state().bodyTypes["standard"].bodies[0];
    QVERIFY(body.filterEnabled);
    QCOMPARE(body.filterPreset, QString("preset6d_custom"));
    QCOMPARE(body.filterStrength, 0.42);
    QCOMPARE(body.filterPrediction, 0.02);
    QCOMPARE(body.filterMode, QString("adaptive_fast"));
}

void tst_FilterDialogFailures::unreadableLimits()
{
    TestHost host(smallState());
    host.fault("filter6d limit* fail");
    const FilterDialog dialog(&host.io, &host.mainWindow, &host.versions);
    const auto *strength = dialog.findChild<QDoubleSpinBox *>("doubleSpinBox_strength");
    const auto *prediction = dialog.findChild<QSpinBox *>("spinBox_prediction");
    QCOMPARE(strength->minimum(), 0.0);
    QCOMPARE(strength->maximum(), 0.0);
    QCOMPARE(prediction->minimum(), 0);
    QCOMPARE(prediction->maximum(), 0);
    QCOMPARE(host.log().size(), 4);
}

void tst_FilterDialogFailures::unreadableStrengthShowsZero()
{
    TestHost host(smallState());
    host.fault("get body filter6d_strength standard b01 call 1 fail");
    visit(host, standard, allBodies, [&](const FilterWidgets &w) {
        QCOMPARE(w.strength->text(), QString("0.00"));
        Drive::choose(w.body, "standard body 02 (Rig)");
        QCOMPARE(w.strength->minimum(), 0.01);
        Drive::choose(w.body, "standard body 01 (Cap)");
        QCOMPARE(w.strength->text(), QString("0.42"));
    });
    QCOMPARE(host.writes(), QStringList());
}

void tst_FilterDialogFailures::valueAfterAnUnreadableOneStaysInItsLimits()
{
    ControllerState state = smallState();
    state.strengthMin = 0.2;
    state.predictionMin = 0.01;
    TestHost host(state);
    host.fault("get body filter6d_strength* fail");
    host.fault("get body filter6d_prediction* fail");
    visit(host, standard, 0, [&](const FilterWidgets &w) {
        type(w.strength, "0.10");
        QTest::keyClick(w.strength, Qt::Key_Return);
        QCOMPARE(w.strength->text(), QString("0.20"));
        type(w.prediction, "5");
        QTest::keyClick(w.prediction, Qt::Key_Return);
        QCOMPARE(w.prediction->text(), QString("10"));
    });
    QCOMPARE(host.writes(), QStringList({"body filter6d_strength standard b01 0.200000",
                                         "body filter6d_prediction standard b01 0.010000"}));
}

void tst_FilterDialogFailures::unreadableSensorCountsAsNone()
{
    TestHost host(smallState("1.20"));
    host.fault("body inertial_sensor standard b02 fail");
    visit(host, standard, 1, [&](const FilterWidgets &w) {
        QVERIFY(w.active->isVisible());
        QCOMPARE(entries(w.preset), QStringList({"Default", "Custom"}));
    });
    // The query is sent once for the list and once for the check box.
    const QString line = "Error: Unable to get inertial sensor of body standard b02";
    QCOMPARE(host.log(), QStringList({line, line}));
}

void tst_FilterDialogFailures::blankIdentifierIsNoEntry_data()
{
    QTest::addColumn<QString>("protocol");
    QTest::addColumn<QString>("effect");
    for (const char *protocol : {"1.20", "1.21"}) {
        for (const char *effect : {"empty", "answer \"  \"", "answer \"none\""})
            QTest::addRow("%s %s", protocol, effect) << protocol << effect;
    }
}

void tst_FilterDialogFailures::blankIdentifierIsNoEntry()
{
    QFETCH(QString, protocol);
    QFETCH(QString, effect);
    TestHost host(smallState(protocol));
    host.fault("get filter6d preset_id t01 " + effect);
    host.fault("get filter6d mode_id t02 " + effect);
    visit(host, standard, 0, [&](const FilterWidgets &w) {
        QCOMPARE(entries(w.preset), QStringList{"Custom"});
        QCOMPARE(entries(w.mode), QStringList{"Adaptive fast"});
    });
    for (const QString &line : host.lines())
        QVERIFY2(!line.endsWith(' ') && !line.contains("  "), qPrintable(line));
    QCOMPARE(host.lines().filter("_desc none"), QStringList());
}

void tst_FilterDialogFailures::blankSensorIsNone()
{
    TestHost host(smallState("1.20"));
    host.fault("body inertial_sensor standard b02 empty");
    visit(host, standard, 1, [&](const FilterWidgets &w) {
        QVERIFY(w.active->isVisible());
        QCOMPARE(entries(w.preset), QStringList({"Default", "Custom"}));
    });
    QCOMPARE(host.log(), QStringList());
}

void tst_FilterDialogFailures::listGoesOn_data()
{
    QTest::addColumn<QString>("protocol");
    QTest::newRow("read at construction") << "1.20";
    QTest::newRow("read for the body") << "1.21";
}

void tst_FilterDialogFailures::listGoesOn()
{
    QFETCH(QString, protocol);
    ControllerState state = smallState(protocol);
    state.filterPresets.prepend(
            preset("preset6d_first", "First", 0.5, 0.03, "adaptive_slow", true));
    state.filterPresets.append(preset("preset6d_last", "Last", 0.5, 0.03, "adaptive_slow", true));
    state.filterModes.append({"steady", "Steady", true, false});
    TestHost host(state);
    host.fault("filter6d preset_id t02 fail");
    host.fault("filter6d preset_desc preset6d_last fail");
    host.fault("filter6d mode_id t02 fail");
    host.fault("filter6d mode_desc adaptive_fast fail");
    visit(host, standard, 0, [&](const FilterWidgets &w) {
        QCOMPARE(entries(w.preset), QStringList({"First", "Custom"}));
        QCOMPARE(entries(w.mode), QStringList({"Steady"}));
    });
}

void tst_FilterDialogFailures::refusedPresetIsReadBack()
{
    TestHost host(smallState());
    host.fault("set body filter6d_preset* refuse");
    visit(host, standard, 0, [&](const FilterWidgets &w) {
        host.clear();
        Drive::choose(w.preset, "Default");
        QCOMPARE(host.queries().first(), QString("body filter6d_strength standard b01"));
        QCOMPARE(host.queries().last(), QString("body filter6d_mode standard b01"));
        QCOMPARE(w.strength->text(), QString("0.42"));
    });
}

void tst_FilterDialogFailures::deadLink()
{
    TestHost host(smallState());
    visit(host, standard, 0, [&](const FilterWidgets &w) {
        host.io.faults()->setLinkDead(true);
        host.clear();
        Drive::choose(w.preset, "Default");
        QCOMPARE(w.strength->text(), QString("0.00"));
        QCOMPARE(w.prediction->text(), QString("0"));
        QCOMPARE(w.mode->count(), 0);
    });
    const QStringList expected = {"Error: Unable to set filter 6d preset for body standard b01",
                                  "Error: Unable to get filter 6d strength for body standard b01",
                                  "Error: Unable to get filter 6d prediction for body standard b01",
                                  "Error: Unable to get number of filter 6d modes",
                                  "Error: Unable to get filter 6d mode for body standard b01"};
    QCOMPARE(host.log(), expected);
}

void tst_FilterDialogFailures::withoutHostObjects()
{
    FilterDialog dialog(nullptr, nullptr, nullptr);
    robot().expectDialog("FilterDialog", [](QWidget *shown) {
        const FilterWidgets w(shown);
        QVERIFY(w.error->text().contains("6DOF filter for standard bodies not available"));
        QVERIFY(!w.body->isEnabled());
    });
    dialog.update_and_exec(standard, 0);
}

TRACKING_TEST_MAIN(tst_FilterDialogFailures)
#include "tst_filterdialog_failures.moc"
