#include "filterdialogtest.h"
#include "trackingfixture.h"

#include <QRadioButton>

/**
 * The protocol versions that the settings dialogs require: the version below each, and the version
 * itself.
 */
class tst_SettingsGates : public TrackingFixture {
    Q_OBJECT

private slots:
    void pulseIsReadFromItsVersionOn_data() { pair("1.20", "1.21"); }
    void pulseIsReadFromItsVersionOn();
    void pulseIsSentFromItsVersionOn_data() { pair("1.20", "1.21"); }
    void pulseIsSentFromItsVersionOn();
    void sensorsAreListedFromTheirVersionOn_data() { pair("1.11", "1.12"); }
    void sensorsAreListedFromTheirVersionOn();
    void restartIsWrittenFromItsVersionOn_data() { pair("0.13", "0.14"); }
    void restartIsWrittenFromItsVersionOn();
    void compactSystemRestartsFromItsVersionOn_data() { pair("0.13", "0.14"); }
    void compactSystemRestartsFromItsVersionOn();
    void filterSwitchAsksForTheSensorFromItsVersionOn_data() { pair("1.11", "1.12"); }
    void filterSwitchAsksForTheSensorFromItsVersionOn();
    void filterFailuresAreLoggedFromItsVersionOn_data() { pair("1.11", "1.12"); }
    void filterFailuresAreLoggedFromItsVersionOn();

private:
    static void pair(const char *below, const char *first)
    {
        QTest::addColumn<QString>("protocol");
        QTest::addColumn<bool>("known");
        QTest::newRow(below) << below << false;
        QTest::newRow(first) << first << true;
    }
};

void tst_SettingsGates::pulseIsReadFromItsVersionOn()
{
    QFETCH(QString, protocol);
    QFETCH(bool, known);
    TestHost host(twoBodies(protocol));
    TrackingDlg dialog(&host.io, &host.mainWindow, &host.versions, moduleVersion);
    host.clear();
    dialog.update_radioButtonsInertial();
    QCOMPARE(host.lines(), known ? QStringList{"tracking pulse"} : QStringList());
    host.clear();
    dialog.update_spinBox_frequency();
    QCOMPARE(host.lines().value(0), known ? QString("tracking pulse") : QString());
}

void tst_SettingsGates::pulseIsSentFromItsVersionOn()
{
    QFETCH(QString, protocol);
    QFETCH(bool, known);
    TestHost host(twoBodies(protocol));
    TrackingDlg dialog(&host.io, &host.mainWindow, &host.versions, moduleVersion);
    Drive::find<QRadioButton>(&dialog, "radioButton_cameraSynchronous")->setChecked(true);
    host.clear();
    dialog.sendInertialSettingsToAtc();
    QCOMPARE(host.writes(),
             known ? QStringList{"tracking pulse synchronous_cameras"} : QStringList());
    QCOMPARE(host.log(), known ? QStringList()
                               : QStringList{"Error: Unable to set inertial tracking settings"});
}

void tst_SettingsGates::sensorsAreListedFromTheirVersionOn()
{
    QFETCH(QString, protocol);
    QFETCH(bool, known);
    TestHost host(twoBodies(protocol));
    TrackingDlg dialog(&host.io, &host.mainWindow, &host.versions, moduleVersion);
    host.clear();
    dialog.update_comboBox_inertialSensor();
    QCOMPARE(host.lines().value(0), known ? QString("inertial number_of_sensors") : QString());
}

void tst_SettingsGates::restartIsWrittenFromItsVersionOn()
{
    QFETCH(QString, protocol);
    QFETCH(bool, known);
    writePreferences(showAutoRestart);
    for (const char *button : {"pushButton_ok", "pushButton_cancel"}) {
        TestHost host(twoBodies(protocol));
        TrackingDlg dialog(&host.io, &host.mainWindow, &host.versions, moduleVersion);
        open(&dialog, [button](QWidget *shown) {
            toggle(shown, "checkBox_force3d");
            Drive::click(shown, button);
        });
        QCOMPARE(host.writes().filter("tracking auto_restart"),
                 known ? QStringList{"tracking auto_restart no"} : QStringList());
        QCOMPARE(host.writes().filter("calculate_marker").size(), 1);
    }
}

void tst_SettingsGates::compactSystemRestartsFromItsVersionOn()
{
    QFETCH(QString, protocol);
    QFETCH(bool, known);
    TestHost host(twoBodies(protocol));
    host.versions.mod = QStringLiteral("POCKETUNIT 2");
    const TrackingDlg dialog(&host.io, &host.mainWindow, &host.versions, moduleVersion);
    QCOMPARE(host.lines(),
             known ? QStringList({"tracking auto_restart", "tracking auto_restart yes"})
                   : QStringList());
}

void tst_SettingsGates::filterSwitchAsksForTheSensorFromItsVersionOn()
{
    QFETCH(QString, protocol);
    QFETCH(bool, known);
    TestHost host(twoBodies(protocol));
    FilterDialog dialog(&host.io, &host.mainWindow, &host.versions);
    auto *active = Drive::find<QCheckBox>(&dialog, "checkBox_active");
    active->hide();
    host.clear();
    dialog.activate_checkbox_active("standard b01");
    QCOMPARE(host.lines(),
             known ? QStringList{"body inertial_sensor standard b01"} : QStringList());
    QVERIFY(!active->isHidden());
}

void tst_SettingsGates::filterFailuresAreLoggedFromItsVersionOn()
{
    QFETCH(QString, protocol);
    QFETCH(bool, known);
    TestHost host(twoBodies(protocol));
    host.fault("get filter6d number_of_presets fail");
    host.fault("get filter6d limit* answer \"0.5\"");
    host.fault("get filter6d number_of_modes answer \"0\"");
    const FilterDialog dialog(&host.io, &host.mainWindow, &host.versions);
    QCOMPARE(host.queries().size(), 6);
    QCOMPARE(host.log().contains("Error: Unable to get number of filter 6d presets"), known);
    QCOMPARE(host.log().isEmpty(), !known);
}

TRACKING_TEST_MAIN(tst_SettingsGates)
#include "tst_settingsgates.moc"
