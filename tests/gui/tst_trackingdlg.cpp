#include "trackingfixture.h"

#include <QComboBox>
#include <QLabel>
#include <QLayout>
#include <QPushButton>

#include <memory>

class tst_trackingdlg : public TrackingFixture {
    Q_OBJECT

private slots:
    void opening_data();
    void opening();
    void preferencesChangeTheOpening_data();
    void preferencesChangeTheOpening();
    void form();
    void okWithoutChangeSendsNothing();
    void secondOpeningForgetsTheFirstOnesChanges();
    void okWritesAllThree();
    void okBelowTheGates();
    void cancelRestoresWhatWasRead();
    void closingOtherwiseNeitherSavesNorRestores();
    void locked();
    void versionGatesDisable_data();
    void versionGatesDisable();
    void advancedFollowsTheThirdFlag();
    void advancedOnAnOldController();
    void advancedOpensTheFixedAngles();
    void pocketUnit_data();
    void pocketUnit();
    void pocketUnitFailures();
    void failedQuery_data();
    void failedQuery();
    void failedWrite_data();
    void failedWrite();
    void nullHostObjects();
    void deletedWhileOpen();
    void visibleDialogIsOnlyRaised();
    void openedAThousandTimes();
};

void tst_trackingdlg::opening_data()
{
    const QStringList marker{QStringLiteral("standard calculate_marker")};
    const QStringList restart = QStringList{QStringLiteral("tracking auto_restart yes")} + marker
                                + QStringList{QStringLiteral("tracking auto_restart")};
    const QStringList angles{QStringLiteral("standard number_of_bodies"),
                             QStringLiteral("standard fixed_angle b01"),
                             QStringLiteral("standard fixed_angle b02")};
    const QStringList lock{QStringLiteral("config is_changeable")};
    const QStringList axis{QStringLiteral("tracking axis_5dof_central")};

    QTest::addColumn<QString>("protocol");
    QTest::addColumn<QStringList>("lines");
    QTest::newRow("0.12") << "0.12" << marker;
    QTest::newRow("0.13") << "0.13" << marker;
    QTest::newRow("0.14") << "0.14" << restart;
    QTest::newRow("1.5") << "1.5" << restart;
    QTest::newRow("1.6") << "1.6" << angles + restart;
    QTest::newRow("1.8") << "1.8" << angles + restart;
    QTest::newRow("1.9") << "1.9" << lock + angles + restart;
    QTest::newRow("1.11") << "1.11" << lock + angles + restart;
    QTest::newRow("1.12") << "1.12" << lock + angles + restart + axis;
    QTest::newRow("1.24") << "1.24" << lock + angles + restart + axis;
    QTest::newRow("2.0") << "2.0" << lock + angles + restart + axis;
}

void tst_trackingdlg::opening()
{
    QFETCH(QString, protocol);
    QFETCH(QStringList, lines);
    TestHost host(twoBodies(protocol));
    TrackingDlg dialog(&host.io, &host.mainWindow, &host.versions, moduleVersion);
    QCOMPARE(host.lines(), QStringList());
    openAndCancel(&dialog);
    QCOMPARE(host.lines(), lines);
    QCOMPARE(host.log(), QStringList());
}

void tst_trackingdlg::preferencesChangeTheOpening_data()
{
    QTest::addColumn<QByteArray>("preferences");
    QTest::addColumn<bool>("restartVisible");
    QTest::addColumn<bool>("advancedVisible");
    QTest::addColumn<QStringList>("first");
    const QString lock = QStringLiteral("config is_changeable");
    const QString force = QStringLiteral("tracking auto_restart yes");
    const QString marker = QStringLiteral("standard calculate_marker");
    const QStringList angles{QStringLiteral("standard number_of_bodies"),
                             QStringLiteral("standard fixed_angle b01"),
                             QStringLiteral("standard fixed_angle b02")};
    QTest::newRow("nothing shown")
            << QByteArray() << false << false << QStringList{lock} + angles + QStringList{force};
    QTest::newRow("automatic restart shown")
            << showAutoRestart << true << false << QStringList{lock} + angles + QStringList{marker};
    QTest::newRow("fixed angles shown") << QByteArray("<FIXED_ANGLE VISIBLE=\"true\"/>") << false
                                        << true << QStringList{lock, force, marker};
}

void tst_trackingdlg::preferencesChangeTheOpening()
{
    QFETCH(QByteArray, preferences);
    QFETCH(bool, restartVisible);
    QFETCH(bool, advancedVisible);
    QFETCH(QStringList, first);
    writePreferences(preferences);
    TestHost host(twoBodies());
    TrackingDlg dialog(&host.io, &host.mainWindow, &host.versions, moduleVersion);
    open(&dialog, [=](QWidget *shown) {
        QCOMPARE(isVisible(shown, "checkBox_autoReStart"), restartVisible);
        QCOMPARE(isVisible(shown, "pushButton_advanced"), advancedVisible);
        Drive::click(shown, "pushButton_cancel");
    });
    QCOMPARE(host.lines().mid(0, first.size()), first);
    QCOMPARE(host.state().autoRestart, !restartVisible);
}

void tst_trackingdlg::form()
{
    writePreferences(showAutoRestart);
    TestHost host(twoBodies());
    TrackingDlg dialog(&host.io, &host.mainWindow, &host.versions, moduleVersion);
    open(&dialog, [](QWidget *shown) {
        QCOMPARE(shown->windowTitle(), QStringLiteral("Single Markers"));
        QCOMPARE(shown->toolTip(), QStringLiteral("Adjust single marker settings"));
        QCOMPARE(shown->layout()->sizeConstraint(), QLayout::SetFixedSize);
        auto *axis = Drive::find<QComboBox>(shown, "comboBox_5dofAxis");
        QStringList names;
        for (int i = 0; i < axis->count(); ++i)
            names.append(axis->itemText(i));
        QCOMPARE(names.join(QLatin1Char(' ')), QStringLiteral("x -x y -y z -z"));
        QCOMPARE(Drive::find<QLabel>(shown, "label_setAxis5dof")->buddy(), axis);
        QVERIFY(!isVisible(shown, "frame_trackingPulse"));
        // The access key of the label gives its buddy the focus.
        mnemonic(shown, Qt::Key_5);
        QCOMPARE(shown->focusWidget(), axis);
        Drive::click(shown, "pushButton_cancel");
    });
    QCOMPARE(dialog.result(), int(QDialog::Rejected));
}

void tst_trackingdlg::okWithoutChangeSendsNothing()
{
    writePreferences(showAutoRestart);
    ControllerState state = twoBodies();
    state.calculateMarker = true;
    state.axis5dofCentral = {{0.0, -1.0, 0.0}};
    TestHost host(state);
    TrackingDlg dialog(&host.io, &host.mainWindow, &host.versions, moduleVersion);
    open(&dialog, [](QWidget *shown) {
        QVERIFY(Drive::find<QCheckBox>(shown, "checkBox_force3d")->isChecked());
        Drive::click(shown, "pushButton_ok");
    });
    QCOMPARE(dialog.result(), int(QDialog::Accepted));
    QCOMPARE(host.writes(), QStringList());
}

void tst_trackingdlg::secondOpeningForgetsTheFirstOnesChanges()
{
    TestHost host(twoBodies());
    TrackingDlg dialog(&host.io, &host.mainWindow, &host.versions, moduleVersion);
    open(&dialog, [](QWidget *shown) {
        toggle(shown, "checkBox_force3d");
        QTest::keyClick(shown, Qt::Key_Escape);
    });
    host.clear();
    open(&dialog, [](QWidget *shown) {
        QVERIFY(!Drive::find<QCheckBox>(shown, "checkBox_force3d")->isChecked());
        Drive::click(shown, "pushButton_ok");
    });
    QCOMPARE(host.writes(), QStringList{QStringLiteral("tracking auto_restart yes")});
    QVERIFY(!host.state().calculateMarker);
}

void tst_trackingdlg::okWritesAllThree()
{
    writePreferences(showAutoRestart);
    TestHost host(twoBodies());
    TrackingDlg dialog(&host.io, &host.mainWindow, &host.versions, moduleVersion);
    open(&dialog, [](QWidget *shown) {
        toggle(shown, "checkBox_force3d");
        toggle(shown, "checkBox_autoReStart");
        Drive::choose(Drive::find<QComboBox>(shown, "comboBox_5dofAxis"), QStringLiteral("-x"));
        Drive::click(shown, "pushButton_ok");
    });
    QCOMPARE(host.writes(),
             (QStringList{QStringLiteral("standard calculate_marker yes"),
                          QStringLiteral("tracking auto_restart yes"),
                          QStringLiteral("tracking axis_5dof_central -1.000 0.000 0.000")}));
    QVERIFY(host.state().calculateMarker);
    QVERIFY(host.state().autoRestart);
    QCOMPARE(host.state().axis5dofCentral[0], -1.0);
}

void tst_trackingdlg::okBelowTheGates()
{
    // When the controller answers no axis, none is selected, so that none is written.
    TestHost host(twoBodies(QStringLiteral("0.13")));
    TrackingDlg dialog(&host.io, &host.mainWindow, &host.versions, moduleVersion);
    open(&dialog, [](QWidget *shown) {
        toggle(shown, "checkBox_force3d");
        Drive::click(shown, "pushButton_ok");
    });
    QCOMPARE(host.writes(), QStringList{QStringLiteral("standard calculate_marker yes")});
}

void tst_trackingdlg::cancelRestoresWhatWasRead()
{
    writePreferences(showAutoRestart);
    ControllerState state = twoBodies();
    state.calculateMarker = true;
    TestHost host(state);
    TrackingDlg dialog(&host.io, &host.mainWindow, &host.versions, moduleVersion);
    open(&dialog, [](QWidget *shown) {
        Drive::choose(Drive::find<QComboBox>(shown, "comboBox_5dofAxis"), QStringLiteral("y"));
        Drive::click(shown, "pushButton_cancel");
    });
    QCOMPARE(host.writes(), (QStringList{QStringLiteral("standard calculate_marker yes"),
                                         QStringLiteral("tracking auto_restart no")}));
    QCOMPARE(host.state().axis5dofCentral[2], 1.0);
}

void tst_trackingdlg::closingOtherwiseNeitherSavesNorRestores()
{
    writePreferences(showAutoRestart);
    TestHost host(twoBodies());
    TrackingDlg dialog(&host.io, &host.mainWindow, &host.versions, moduleVersion);
    open(&dialog, [](QWidget *shown) {
        toggle(shown, "checkBox_force3d");
        QTest::keyClick(shown, Qt::Key_Escape);
    });
    QCOMPARE(host.writes(), QStringList());
    open(&dialog, [](QWidget *shown) {
        toggle(shown, "checkBox_force3d");
        shown->close();
    });
    QCOMPARE(host.writes(), QStringList());
}

void tst_trackingdlg::locked()
{
    writePreferences("<FIXED_ANGLE VISIBLE=\"true\"/>");
    ControllerState state = twoBodies();
    state.configChangeable = false;
    TestHost host(state);
    QPixmap parentPixmap(16, 16);
    parentPixmap.fill(Qt::green);
    host.mainWindow.setWindowIcon(QIcon(parentPixmap));
    const auto pictureOf = [](const QIcon &icon) { return icon.pixmap(16, 16).toImage(); };
    TrackingDlg dialog(&host.io, &host.mainWindow, &host.versions, moduleVersion);
    const std::vector<const char *> editing{"checkBox_force3d",  "checkBox_autoReStart",
                                            "pushButton_ok",     "pushButton_advanced",
                                            "label_setAxis5dof", "comboBox_5dofAxis"};
    open(&dialog, [&](QWidget *shown) {
        for (const char *name : editing)
            QVERIFY2(!isEnabled(shown, name), name);
        QVERIFY(isVisible(shown, "pushButton_advanced"));
        QCOMPARE(pictureOf(shown->windowIcon()), pictureOf(QIcon(QStringLiteral(":/lock.png"))));
        Drive::click(shown, "pushButton_cancel");
    });
    QCOMPARE(host.writes(), QStringList());
    // The lock is queried at every opening.
    host.edit([](ControllerState &changed) { changed.configChangeable = true; });
    open(&dialog, [&](QWidget *shown) {
        for (const char *name : editing)
            QVERIFY2(isEnabled(shown, name), name);
        QCOMPARE(pictureOf(shown->windowIcon()), parentPixmap.toImage());
        Drive::click(shown, "pushButton_cancel");
    });
    QCOMPARE(host.writes(), QStringList{QStringLiteral("tracking auto_restart yes")});
}

void tst_trackingdlg::versionGatesDisable_data()
{
    QTest::addColumn<QString>("protocol");
    QTest::addColumn<bool>("restart");
    QTest::addColumn<bool>("axis");
    QTest::newRow("0.13") << "0.13" << false << false;
    QTest::newRow("0.14") << "0.14" << true << false;
    QTest::newRow("1.11") << "1.11" << true << false;
    QTest::newRow("1.12") << "1.12" << true << true;
}

void tst_trackingdlg::versionGatesDisable()
{
    QFETCH(QString, protocol);
    QFETCH(bool, restart);
    QFETCH(bool, axis);
    writePreferences(showAutoRestart);
    TestHost host(twoBodies(protocol));
    TrackingDlg dialog(&host.io, &host.mainWindow, &host.versions, moduleVersion);
    open(&dialog, [=](QWidget *shown) {
        QCOMPARE(isEnabled(shown, "checkBox_autoReStart"), restart);
        QCOMPARE(isEnabled(shown, "label_setAxis5dof"), axis);
        QCOMPARE(isEnabled(shown, "comboBox_5dofAxis"), axis);
        QVERIFY(isEnabled(shown, "checkBox_force3d"));
        Drive::click(shown, "pushButton_cancel");
    });
}

void tst_trackingdlg::advancedFollowsTheThirdFlag()
{
    ControllerState state = twoBodies();
    state.bodyTypes[QStringLiteral("standard")].bodies[0].fixedAngles[2].enabled = true;
    TestHost host(state);
    TrackingDlg dialog(&host.io, &host.mainWindow, &host.versions, moduleVersion);
    open(&dialog, [](QWidget *shown) {
        QVERIFY(isVisible(shown, "pushButton_advanced"));
        QVERIFY(isEnabled(shown, "pushButton_advanced"));
        Drive::click(shown, "pushButton_cancel");
    });
    // All bodies are read, even when the answer is already known.
    QVERIFY(host.queries().contains(QStringLiteral("standard fixed_angle b02")));
}

void tst_trackingdlg::advancedOnAnOldController()
{
    writePreferences("<FIXED_ANGLE VISIBLE=\"true\"/>");
    TestHost host(twoBodies(QStringLiteral("1.5")));
    TrackingDlg dialog(&host.io, &host.mainWindow, &host.versions, moduleVersion);
    open(&dialog, [](QWidget *shown) {
        QVERIFY(isVisible(shown, "pushButton_advanced"));
        QVERIFY(!isEnabled(shown, "pushButton_advanced"));
        Drive::click(shown, "pushButton_cancel");
    });
    QCOMPARE(host.log(),
             QStringList{QStringLiteral("TrackingSettings: Old version of Zyrcam Controller")});
}

void tst_trackingdlg::advancedOpensTheFixedAngles()
{
    writePreferences("<FIXED_ANGLE VISIBLE=\"true\"/>");
    TestHost host(twoBodies());
    TrackingDlg dialog(&host.io, &host.mainWindow, &host.versions, moduleVersion);
    robot().expectDialog(QStringLiteral("TrackingDlg"), [this](QWidget *shown) {
        robot().expectDialog(QStringLiteral("FixedAngleDlg"), [shown](QWidget *angles) {
            QCOMPARE(angles->parentWidget(), shown);
            Drive::click(angles, "pushButton_cancel");
        });
        QTest::keyClick(Drive::find<QPushButton>(shown, "pushButton_advanced"), Qt::Key_Space);
        QCOMPARE(shown->findChildren<QDialog *>().size(), 0);
        Drive::click(shown, "pushButton_ok");
    });
    dialog.update_and_exec();
    robot().verify();
    QCOMPARE(host.writes(), QStringList{QStringLiteral("tracking auto_restart yes")});
}

void tst_trackingdlg::pocketUnit_data()
{
    QTest::addColumn<QString>("model");
    QTest::addColumn<QString>("protocol");
    QTest::addColumn<bool>("running");
    QTest::addColumn<bool>("boxShown");
    QTest::addColumn<QStringList>("lines");
    const QString get = QStringLiteral("tracking auto_restart");
    const QString force = QStringLiteral("tracking auto_restart yes");
    QTest::newRow("restart off") << "POCKETUNIT2"
                                 << "1.24" << false << false << QStringList{get, force};
    QTest::newRow("restart on") << "POCKETUNIT2"
                                << "1.24" << true << false << QStringList{get};
    QTest::newRow("old") << "POCKETUNIT2"
                         << "0.13" << false << false << QStringList();
    QTest::newRow("case matters") << "PocketUnit2"
                                  << "1.24" << false << true << QStringList();
}

void tst_trackingdlg::pocketUnit()
{
    QFETCH(QString, model);
    QFETCH(QString, protocol);
    QFETCH(bool, running);
    QFETCH(bool, boxShown);
    QFETCH(QStringList, lines);
    writePreferences(showAutoRestart);
    ControllerState state = twoBodies(protocol);
    state.model = model;
    state.autoRestart = running;
    TestHost host(state);
    TrackingDlg dialog(&host.io, &host.mainWindow, &host.versions, moduleVersion);
    QCOMPARE(host.lines(), lines);
    open(&dialog, [=](QWidget *shown) {
        QCOMPARE(isVisible(shown, "checkBox_autoReStart"), boxShown);
        Drive::click(shown, "pushButton_cancel");
    });
}

void tst_trackingdlg::pocketUnitFailures()
{
    ControllerState state = twoBodies();
    state.model = QStringLiteral("POCKETUNIT2");
    TestHost host(state);
    host.fault(QStringLiteral("tracking auto_restart* fail"));
    TrackingDlg dialog(&host.io, &host.mainWindow, &host.versions, moduleVersion);
    QCOMPARE(host.lines(), (QStringList{"tracking auto_restart", "tracking auto_restart yes"}));
    QCOMPARE(host.log(),
             (QStringList{"Error: Unable to get the automatic restart of the measurement",
                          "Error: Unable to set the automatic restart of the measurement"}));
}

void tst_trackingdlg::failedQuery_data()
{
    QTest::addColumn<QString>("query");
    QTest::addColumn<QStringList>("log");
    QTest::newRow("lock") << "config is_changeable"
                          << QStringList{"Error: Unable to get lock state of the configuration"};
    QTest::newRow("body count") << "standard number_of_bodies"
                                << QStringList{"Error: Unable to check number of standard bodies"};
    QTest::newRow("fixed angle") << "standard fixed_angle b01"
                                 << QStringList{
                                            "Error: Unable to check fixed angle of standard body"};
    QTest::newRow("marker calculation")
            << "standard calculate_marker"
            << QStringList{"Error: Unable to get the calculation of 3DOF markers"};
    QTest::newRow("automatic restart")
            << "tracking auto_restart"
            << QStringList{"Error: Unable to get the automatic restart of the measurement"};
    QTest::newRow("axis") << "tracking axis_5dof_central"
                          << QStringList{"Error: Unable to get values of the 5DOF central axis"};
}

void tst_trackingdlg::failedQuery()
{
    QFETCH(QString, query);
    QFETCH(QStringList, log);
    writePreferences(showAutoRestart);
    ControllerState state = twoBodies();
    state.calculateMarker = true;
    state.autoRestart = true;
    TestHost host(state);
    TrackingDlg dialog(&host.io, &host.mainWindow, &host.versions, moduleVersion);
    host.fault(QStringLiteral("get ") + query + QStringLiteral(" fail"));
    open(&dialog, [=](QWidget *shown) {
        QCOMPARE(Drive::find<QCheckBox>(shown, "checkBox_force3d")->isChecked(),
                 query != QLatin1String("standard calculate_marker"));
        QCOMPARE(Drive::find<QCheckBox>(shown, "checkBox_autoReStart")->isChecked(),
                 query != QLatin1String("tracking auto_restart"));
        QCOMPARE(Drive::find<QComboBox>(shown, "comboBox_5dofAxis")->currentIndex(),
                 query == QLatin1String("tracking axis_5dof_central") ? -1 : 4);
        QVERIFY(isEnabled(shown, "pushButton_ok"));
        QVERIFY(!isVisible(shown, "pushButton_advanced"));
        Drive::click(shown, "pushButton_ok");
    });
    QCOMPARE(host.log(), log);
    // The axis is read last, so that reading went on after every failure.
    QCOMPARE(host.queries().last(), QStringLiteral("tracking axis_5dof_central"));
    QCOMPARE(host.writes(), QStringList());
}

void tst_trackingdlg::failedWrite_data()
{
    QTest::addColumn<QString>("command");
    QTest::addColumn<QString>("log");
    QTest::newRow("marker calculation") << "standard calculate_marker*"
                                        << "Error: Unable to set the calculation of 3DOF markers";
    QTest::newRow("automatic restart")
            << "tracking auto_restart*"
            << "Error: Unable to set the automatic restart of the measurement";
    QTest::newRow("axis") << "tracking axis_5dof_central*"
                          << "Error: Unable to set values of the 5DOF central axis";
}

void tst_trackingdlg::failedWrite()
{
    QFETCH(QString, command);
    QFETCH(QString, log);
    writePreferences(showAutoRestart);
    TestHost host(twoBodies());
    TrackingDlg dialog(&host.io, &host.mainWindow, &host.versions, moduleVersion);
    host.fault(QStringLiteral("set ") + command + QStringLiteral(" refuse"));
    open(&dialog, [](QWidget *shown) {
        toggle(shown, "checkBox_force3d");
        Drive::click(shown, "pushButton_ok");
    });
    QCOMPARE(host.log(), QStringList{log});
    QCOMPARE(host.writes().size(), 3);
    QCOMPARE(dialog.result(), int(QDialog::Accepted));
}

void tst_trackingdlg::nullHostObjects()
{
    TrackingDlg dialog(nullptr, nullptr, nullptr, moduleVersion);
    open(&dialog, [](QWidget *shown) {
        QVERIFY(!isEnabled(shown, "comboBox_5dofAxis"));
        QVERIFY(!isVisible(shown, "pushButton_advanced"));
        toggle(shown, "checkBox_force3d");
        Drive::click(shown, "pushButton_ok");
    });
    QCOMPARE(dialog.result(), int(QDialog::Accepted));
}

void tst_trackingdlg::deletedWhileOpen()
{
    TestHost host(twoBodies());
    auto dialog = std::make_unique<TrackingDlg>(&host.io, &host.mainWindow, &host.versions,
                                                moduleVersion);
    TrackingDlg *opened = dialog.get();
    robot().expectDialog(QStringLiteral("TrackingDlg"), [&](QWidget *) { dialog.reset(); });
    QCOMPARE(opened->update_and_exec(), int(QDialog::Rejected));
    robot().verify();
    QVERIFY(!dialog);
}

void tst_trackingdlg::visibleDialogIsOnlyRaised()
{
    TestHost host(twoBodies());
    TrackingDlg dialog(&host.io, &host.mainWindow, &host.versions, moduleVersion);
    open(&dialog, [&](QWidget *shown) {
        toggle(shown, "checkBox_force3d");
        host.clear();
        QCOMPARE(dialog.update_and_exec(), int(QDialog::Rejected));
        QCOMPARE(host.lines(), QStringList());
        QVERIFY(Drive::find<QCheckBox>(shown, "checkBox_force3d")->isChecked());
        Drive::click(shown, "pushButton_ok");
    });
    QVERIFY(host.state().calculateMarker);
}

void tst_trackingdlg::openedAThousandTimes()
{
    TestHost host(twoBodies());
    TrackingDlg dialog(&host.io, &host.mainWindow, &host.versions, moduleVersion);
    openAndCancel(&dialog);
    const int children = dialog.findChildren<QObject *>().size();
    const QStringList lines = host.lines();
    for (int i = 0; i < 1000; ++i) {
        host.clear();
        openAndCancel(&dialog);
    }
    QCOMPARE(dialog.findChildren<QObject *>().size(), children);
    QCOMPARE(host.lines(), lines);
}

TRACKING_TEST_MAIN(tst_trackingdlg)
#include "tst_trackingdlg.moc"
