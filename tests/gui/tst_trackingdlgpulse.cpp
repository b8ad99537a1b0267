#include "trackingfixture.h"

#include <QComboBox>
#include <QDoubleSpinBox>
#include <QRadioButton>

/** The tracking frequency, which is hidden from the user; the tests call the dialog's functions. */
class tst_trackingdlgpulse : public TrackingFixture {
    Q_OBJECT

private slots:
    void staysHiddenAndSilent();
    void frequency_data();
    void frequency();
    void frequencyBelowItsGate();
    void source_data();
    void source();
    void sensors();
    void sensorQueriesFail_data();
    void sensorQueriesFail();
    void blankNamesAreNone_data();
    void blankNamesAreNone();
    void inputsFollowTheSource();
    void sent_data();
    void sent();
    void refused_data();
    void refused();
    void notSentBelowItsGate();
    void touchedSectionIsSentOnOk_data() { sent_data(); }
    void touchedSectionIsSentOnOk();
    void fillingIsNoChange();

private:
    static void check(QWidget *dialog, const char *radioButton)
    {
        Drive::find<QRadioButton>(dialog, radioButton)->setChecked(true);
    }
};

void tst_trackingdlgpulse::staysHiddenAndSilent()
{
    TestHost host(twoBodies());
    TrackingDlg dialog(&host.io, &host.mainWindow, &host.versions, moduleVersion);
    open(&dialog, [](QWidget *shown) {
        QVERIFY(!isVisible(shown, "frame_trackingPulse"));
        toggle(shown, "checkBox_force3d");
        Drive::click(shown, "pushButton_ok");
    });
    for (const QString &line : host.lines()) {
        QVERIFY(!line.startsWith(QLatin1String("tracking pulse")));
        QVERIFY(!line.startsWith(QLatin1String("inertial")));
    }
}

void tst_trackingdlgpulse::frequency_data()
{
    QTest::addColumn<QString>("fault");
    QTest::addColumn<QString>("pulse");
    QTest::addColumn<double>("expected");
    QTest::addColumn<QStringList>("log");
    const QString none;
    const QString cameras = QStringLiteral("synchronous_cameras");
    const QString sensor = QStringLiteral("inertial_sensor vendorone mini 'A7'");
    QTest::newRow("cameras") << none << cameras << 75.0 << QStringList();
    QTest::newRow("cameras too slow")
            << "get synccard output_frequency answer \"9.9\"" << cameras << 60.0 << QStringList();
    QTest::newRow("cameras at the limit")
            << "get synccard output_frequency answer \"10\"" << cameras << 10.0 << QStringList();
    QTest::newRow("cameras unknown")
            << "get synccard output_frequency fail" << cameras << 60.0
            << QStringList{"Error: Unable to get output frequency of the synccard"};
    QTest::newRow("sensor") << none << sensor << 400.0 << QStringList();
    QTest::newRow("sensor unknown") << "get inertial frequency fail" << sensor << 100.0
                                    << QStringList{"Error: Unable to get inertial frequency"};
    QTest::newRow("custom") << none << "frequency 120.000" << 120.0 << QStringList();
    QTest::newRow("custom, no number")
            << "get tracking pulse answer \"frequency fast\"" << cameras << 100.0 << QStringList();
    QTest::newRow("custom, nothing")
            << "get tracking pulse answer \"frequency\"" << cameras << 100.0 << QStringList();
    QTest::newRow("another word") << "get tracking pulse answer \"sundial\"" << cameras << 60.0
                                  << QStringList();
    QTest::newRow("source unknown")
            << "get tracking pulse fail" << cameras << 75.0
            << QStringList{"Error: Unable to info of tracking frequency type"};
}

void tst_trackingdlgpulse::frequency()
{
    QFETCH(QString, fault);
    QFETCH(QString, pulse);
    QFETCH(double, expected);
    QFETCH(QStringList, log);
    ControllerState state = twoBodies();
    state.trackingPulse = pulse;
    state.syncOutputFrequency = 75.0;
    state.inertialFrequency = 400.0;
    TestHost host(state);
    if (!fault.isEmpty())
        host.fault(fault);
    TrackingDlg dialog(&host.io, &host.mainWindow, &host.versions, moduleVersion);
    dialog.update_spinBox_frequency();
    auto *spin = Drive::find<QDoubleSpinBox>(&dialog, "doubleSpinBox_frequency");
    QCOMPARE(spin->value(), expected);
    QCOMPARE(spin->minimum(), 10.0);
    QCOMPARE(spin->maximum(), 1000.0);
    QCOMPARE(spin->suffix(), QStringLiteral("Hz"));
    QCOMPARE(host.log(), log);
    QCOMPARE(host.writes(), QStringList());
}

void tst_trackingdlgpulse::frequencyBelowItsGate()
{
    TestHost host(twoBodies(QStringLiteral("1.20")));
    TrackingDlg dialog(&host.io, &host.mainWindow, &host.versions, moduleVersion);
    dialog.update_spinBox_frequency();
    dialog.update_radioButtonsInertial();
    QCOMPARE(host.lines(), QStringList());
    QCOMPARE(Drive::find<QDoubleSpinBox>(&dialog, "doubleSpinBox_frequency")->value(), 100.0);
}

void tst_trackingdlgpulse::source_data()
{
    QTest::addColumn<QString>("pulse");
    QTest::addColumn<QString>("button");
    QTest::newRow("cameras") << "synchronous_cameras"
                             << "radioButton_cameraSynchronous";
    QTest::newRow("sensor") << "inertial_sensor vendorone mini 'A7'"
                            << "radioButton_inertialSensor";
    QTest::newRow("custom") << "frequency 120.000"
                            << "radioButton_frequency";
    QTest::newRow("unknown") << QString() << QString();
}

void tst_trackingdlgpulse::source()
{
    QFETCH(QString, pulse);
    QFETCH(QString, button);
    ControllerState state = twoBodies();
    if (!pulse.isEmpty())
        state.trackingPulse = pulse;
    TestHost host(state);
    if (pulse.isEmpty())
        host.fault(QStringLiteral("get tracking pulse fail"));
    TrackingDlg dialog(&host.io, &host.mainWindow, &host.versions, moduleVersion);
    dialog.update_radioButtonsInertial();
    for (const char *name :
         {"radioButton_cameraSynchronous", "radioButton_inertialSensor", "radioButton_frequency"})
        QCOMPARE(Drive::find<QRadioButton>(&dialog, name)->isChecked(),
                 button == QLatin1String(name));
    QCOMPARE(host.log(),
             pulse.isEmpty()
                     ? QStringList{QStringLiteral("Error: Unable to info of frequency type")}
                     : QStringList());
}

void tst_trackingdlgpulse::sensors()
{
    ControllerState state = twoBodies();
    state.sensors.resize(2);
    state.sensors[0].name = QStringLiteral("vendorone mini 'A7'");
    state.sensors[0].modelDescription = QStringLiteral("Mini 'motion' sensor");
    state.sensors[1].name = QStringLiteral("vendorone mini 'B12'");
    state.bodyTypes[QStringLiteral("standard")].bodies[0].sensor = state.sensors[0].name;
    TestHost host(state);
    TrackingDlg dialog(&host.io, &host.mainWindow, &host.versions, moduleVersion);
    for (int i = 0; i < 2; ++i) {
        host.clear();
        dialog.update_comboBox_inertialSensor();
        QCOMPARE(host.lines(),
                 (QStringList{QStringLiteral("inertial number_of_sensors"),
                              QStringLiteral("inertial sensor d01"),
                              QStringLiteral("inertial body_of_sensor vendorone mini 'A7'"),
                              QStringLiteral("inertial sensor_model_desc vendorone mini 'A7'"),
                              QStringLiteral("inertial sensor d02"),
                              QStringLiteral("inertial body_of_sensor vendorone mini 'B12'")}));
    }
    auto *list = Drive::find<QComboBox>(&dialog, "comboBox_inertialSensor");
    QCOMPARE(list->count(), 1);
    QCOMPARE(list->itemText(0), QStringLiteral("Mini motion sensor"));
    QCOMPARE(list->itemData(0).toString(), QStringLiteral("vendorone mini 'A7'"));
    QVERIFY(list->isEnabled());
}

void tst_trackingdlgpulse::sensorQueriesFail_data()
{
    QTest::addColumn<QString>("query");
    QTest::addColumn<QString>("log");
    QTest::addColumn<int>("items");
    QTest::newRow("count") << "inertial number_of_sensors"
                           << "Error: Unable to get number of inertial sensors" << 0;
    QTest::newRow("serial number") << "inertial sensor d01"
                                   << "Error: Unable to get serial number of inertial sensor" << 1;
    QTest::newRow("body") << "inertial body_of_sensor vendorone mini 'A7'"
                          << "Error: Unable to get body of sensor sensor" << 1;
    QTest::newRow("model") << "inertial sensor_model_desc vendorone mini 'A7'"
                           << "Error: Unable to get vendor model of inertial sensor" << 2;
}

void tst_trackingdlgpulse::sensorQueriesFail()
{
    QFETCH(QString, query);
    QFETCH(QString, log);
    QFETCH(int, items);
    ControllerState state = twoBodies();
    state.sensors.resize(2);
    state.sensors[0].name = QStringLiteral("vendorone mini 'A7'");
    state.sensors[1].name = QStringLiteral("vendortwo core 'C3'");
    for (int i = 0; i < 2; ++i)
        state.bodyTypes[QStringLiteral("standard")].bodies[i].sensor = state.sensors[i].name;
    TestHost host(state);
    host.fault(QStringLiteral("get %1 fail").arg(query));
    TrackingDlg dialog(&host.io, &host.mainWindow, &host.versions, moduleVersion);
    dialog.update_comboBox_inertialSensor();
    QCOMPARE(host.log(), QStringList{log});
    auto *list = Drive::find<QComboBox>(&dialog, "comboBox_inertialSensor");
    QCOMPARE(list->count(), items);
    QCOMPARE(list->isEnabled(), items > 0);
}

void tst_trackingdlgpulse::blankNamesAreNone_data()
{
    QTest::addColumn<QString>("query");
    QTest::newRow("sensor") << "inertial sensor d01";
    QTest::newRow("body") << "inertial body_of_sensor vendorone mini 'A7'";
}

void tst_trackingdlgpulse::blankNamesAreNone()
{
    QFETCH(QString, query);
    ControllerState state = twoBodies();
    state.sensors.resize(1);
    state.sensors[0].name = QStringLiteral("vendorone mini 'A7'");
    state.bodyTypes[QStringLiteral("standard")].bodies[0].sensor = state.sensors[0].name;
    TestHost host(state);
    host.fault(QStringLiteral("get %1 empty").arg(query));
    TrackingDlg dialog(&host.io, &host.mainWindow, &host.versions, moduleVersion);
    dialog.update_comboBox_inertialSensor();
    QCOMPARE(Drive::find<QComboBox>(&dialog, "comboBox_inertialSensor")->count(), 0);
    // There is no query for a sensor without a name or without a body.
    QCOMPARE(host.queries().last(), query);
    QCOMPARE(host.log(), QStringList());
}

void tst_trackingdlgpulse::inputsFollowTheSource()
{
    TestHost host(twoBodies());
    TrackingDlg dialog(&host.io, &host.mainWindow, &host.versions, moduleVersion);
    auto *spin = Drive::find<QDoubleSpinBox>(&dialog, "doubleSpinBox_frequency");
    auto *list = Drive::find<QComboBox>(&dialog, "comboBox_inertialSensor");
    check(&dialog, "radioButton_cameraSynchronous");
    QVERIFY(!spin->isEnabled());
    QVERIFY(!list->isEnabled());
    check(&dialog, "radioButton_frequency");
    QVERIFY(spin->isEnabled());
    QVERIFY(!list->isEnabled());
    check(&dialog, "radioButton_inertialSensor");
    QVERIFY(!spin->isEnabled());
    QVERIFY(list->isEnabled());
}

void tst_trackingdlgpulse::sent_data()
{
    QTest::addColumn<QString>("button");
    QTest::addColumn<QString>("line");
    QTest::newRow("cameras") << "radioButton_cameraSynchronous"
                             << "tracking pulse synchronous_cameras";
    QTest::newRow("sensor") << "radioButton_inertialSensor"
                            << "tracking pulse inertial_sensor vendorone mini 'A7'";
    QTest::newRow("custom") << "radioButton_frequency"
                            << "tracking pulse frequency 120.000000";
}

void tst_trackingdlgpulse::sent()
{
    QFETCH(QString, button);
    QFETCH(QString, line);
    QLocale::setDefault(QLocale(QLocale::German, QLocale::Germany));
    ControllerState state = twoBodies();
    state.bodyTypes[QStringLiteral("standard")].bodies[0].sensor =
            QStringLiteral("vendorone mini 'A7'");
    TestHost host(state);
    TrackingDlg dialog(&host.io, &host.mainWindow, &host.versions, moduleVersion);
    dialog.update_comboBox_inertialSensor();
    Drive::find<QDoubleSpinBox>(&dialog, "doubleSpinBox_frequency")->setValue(120.0);
    check(&dialog, button.toLatin1().constData());
    host.clear();
    dialog.sendInertialSettingsToAtc();
    QCOMPARE(host.lines(), QStringList{line});
    QCOMPARE(host.log(), QStringList());
}

void tst_trackingdlgpulse::refused_data()
{
    QTest::addColumn<QString>("sensor");
    QTest::addColumn<QString>("button");
    QTest::addColumn<QStringList>("writes");
    QTest::addColumn<QString>("log");
    QTest::newRow("cameras") << ""
                             << "radioButton_cameraSynchronous"
                             << QStringList{"tracking pulse synchronous_cameras"}
                             << "Error: Unable to set inertial tracking synchronous to cameras";
    QTest::newRow("sensor") << "vendorone mini 'A7'"
                            << "radioButton_inertialSensor"
                            << QStringList{"tracking pulse inertial_sensor vendorone mini 'A7'"}
                            << "Error: Unable to set inertial tracking to sensor";
    QTest::newRow("no sensor") << ""
                               << "radioButton_inertialSensor" << QStringList()
                               << "Error: Unable to set inertial tracking to sensor";
    QTest::newRow("custom") << ""
                            << "radioButton_frequency"
                            << QStringList{"tracking pulse frequency 100.000000"}
                            << "Error: Unable to set inertial tracking frequency";
}

void tst_trackingdlgpulse::refused()
{
    QFETCH(QString, sensor);
    QFETCH(QString, button);
    QFETCH(QStringList, writes);
    QFETCH(QString, log);
    ControllerState state = twoBodies();
    state.bodyTypes[QStringLiteral("standard")].bodies[0].sensor = sensor;
    TestHost host(state);
    host.fault(QStringLiteral("set tracking pulse* refuse"));
    TrackingDlg dialog(&host.io, &host.mainWindow, &host.versions, moduleVersion);
    dialog.update_comboBox_inertialSensor();
    check(&dialog, button.toLatin1().constData());
    dialog.sendInertialSettingsToAtc();
    QCOMPARE(host.writes(), writes);
    QCOMPARE(host.log(), QStringList{log});
}

void tst_trackingdlgpulse::notSentBelowItsGate()
{
    TestHost host(twoBodies(QStringLiteral("1.20")));
    TrackingDlg dialog(&host.io, &host.mainWindow, &host.versions, moduleVersion);
    check(&dialog, "radioButton_cameraSynchronous");
    dialog.sendInertialSettingsToAtc();
    QCOMPARE(host.lines(), QStringList());
    QCOMPARE(host.log(),
             QStringList{QStringLiteral("Error: Unable to set inertial tracking settings")});
}

void tst_trackingdlgpulse::touchedSectionIsSentOnOk()
{
    QFETCH(QString, button);
    QFETCH(QString, line);
    ControllerState state = twoBodies();
    state.trackingPulse.clear();
    state.bodyTypes[QStringLiteral("standard")].bodies[0].sensor =
            QStringLiteral("vendorone mini 'A7'");
    TestHost host(state);
    TrackingDlg dialog(&host.io, &host.mainWindow, &host.versions, moduleVersion);
    dialog.update_comboBox_inertialSensor();
    Drive::find<QDoubleSpinBox>(&dialog, "doubleSpinBox_frequency")->setValue(120.0);
    open(&dialog, [&](QWidget *shown) {
        check(shown, button.toLatin1().constData());
        Drive::click(shown, "pushButton_ok");
    });
    QCOMPARE(host.writes().last(), line);
    QCOMPARE(host.state().trackingPulse.section(QLatin1Char(' '), 0, 0),
             line.section(QLatin1Char(' '), 2, 2));
}

void tst_trackingdlgpulse::fillingIsNoChange()
{
    ControllerState state = twoBodies();
    state.trackingPulse = QStringLiteral("frequency 120.000");
    state.bodyTypes[QStringLiteral("standard")].bodies[0].sensor =
            QStringLiteral("vendorone mini 'A7'");
    TestHost host(state);
    TrackingDlg dialog(&host.io, &host.mainWindow, &host.versions, moduleVersion);
    dialog.update_spinBox_frequency();
    dialog.update_radioButtonsInertial();
    dialog.update_comboBox_inertialSensor();
    open(&dialog, [](QWidget *shown) { Drive::click(shown, "pushButton_ok"); });
    QCOMPARE(host.writes(), QStringList{QStringLiteral("tracking auto_restart yes")});
}

TRACKING_TEST_MAIN(tst_trackingdlgpulse)
#include "tst_trackingdlgpulse.moc"
