#include "administrationfixture.h"

namespace {

const QString standardTitle = QStringLiteral("&Standard");
const QString joywandTitle = QStringLiteral("&Joywand");
const QString handsTitle = QStringLiteral("F&ingertracking");
const QString toolsTitle = QStringLiteral("&Measurement Tool");

} // namespace

/** The body administration dialog as an operator works with it. */
class tst_BodyAdministration : public AdministrationFixture {
    Q_OBJECT

private slots:
    void renamesBodyByDoubleClick();
    void fillingSendsNoWrite();
    void offersPages_data();
    void offersPages();
    void f8WalksThroughAllPages();
    void thirdPageWithoutHandsIsTheTools();
    void buttonsFollowPageAndBody_data();
    void buttonsFollowPageAndBody();
    void handsBodyOver_data();
    void handsBodyOver();
    void sendsNothingWithoutBody();
    void reopensOnceAfterTheSenderReturned();
    void reopensWhenAnsweredAtOnce();
    void reopensAfterTheModulesOwnEventLoop_data();
    void reopensAfterTheModulesOwnEventLoop();
    void reopenWhileOpenOnlyRefreshes();
    void ignoresOtherMessages_data();
    void ignoresOtherMessages();
    void buttonsWaitForTheirModules();
    void hearsNothingAfterAboutToExit();
    void multiUserModeDisablesAdjustment();
};

void tst_BodyAdministration::renamesBodyByDoubleClick()
{
    TestHost host;
    BodyAdministrationDlg dialog(&host.io, &host.mainWindow, &host.versions);
    open(&dialog, [&host](QWidget *window) {
        auto *table = Drive::find<QTableWidget>(window, "tableWidget_standard");
        host.clear();
        Drive::typeIntoCell(table, 1, 3, QStringLiteral("left_hand"));
        QCOMPARE(host.writes(), QStringList{"body desc standard b02 \"left_hand\""});
        QCOMPARE(Drive::cell(table, 1, 3), QStringLiteral("left_hand"));
        Drive::click(window, "pushButton_exit");
    });
    QCOMPARE(host.state().bodyTypes["standard"].bodies[1].description, QStringLiteral("left_hand"));
    QCOMPARE(host.log(), QStringList());
}

void tst_BodyAdministration::fillingSendsNoWrite()
{
    TestHost host(TestHost::scenario(QStringLiteral("full")));
    BodyAdministrationDlg dialog(&host.io, &host.mainWindow, &host.versions);
    open(&dialog, [](QWidget *window) {
        for (const char *form : {joywandPage, handsPage, toolsPage, standardPage})
            goTo(window, form);
    });
    QCOMPARE(changes(host), QStringList());
    QCOMPARE(host.requests(), QStringList());
    QCOMPARE(host.log(), QStringList());
}

// Pages

void tst_BodyAdministration::offersPages_data()
{
    QTest::addColumn<QString>("model");
    QTest::addColumn<QString>("system");
    QTest::addColumn<QString>("protocol");
    QTest::addColumn<QStringList>("expected");
    const QStringList two{standardTitle, joywandTitle};
    const QStringList withHands{standardTitle, joywandTitle, handsTitle};
    const QStringList withTools{standardTitle, joywandTitle, toolsTitle};
    const QStringList all{standardTitle, joywandTitle, handsTitle, toolsTitle};
    QTest::newRow("compact 2.9.3") << "POCKETUNIT"
                                   << "2.9.3"
                                   << "1.24" << two;
    QTest::newRow("compact 2.9.4") << "POCKETUNIT"
                                   << "2.9.4"
                                   << "1.24" << withTools;
    QTest::newRow("compact 2.10.0") << "POCKETUNIT2"
                                    << "2.10.0"
                                    << "1.24" << withTools;
    QTest::newRow("compact 3.0.0") << "POCKETUNIT"
                                   << "3.0.0"
                                   << "1.24" << withTools;
    QTest::newRow("compact 3.0.0, old protocol") << "POCKETUNIT"
                                                 << "3.0.0"
                                                 << "1.2" << two;
    QTest::newRow("large 2.9.3") << "STUDIO4"
                                 << "2.9.3"
                                 << "1.24" << all;
    QTest::newRow("name elsewhere") << "THE POCKETUNIT"
                                    << "2.9.3"
                                    << "1.24" << all;
    QTest::newRow("protocol 0.16") << "STUDIO4"
                                   << "3.1.0"
                                   << "0.16" << two;
    QTest::newRow("protocol 0.17") << "STUDIO4"
                                   << "3.1.0"
                                   << "0.17" << withHands;
    QTest::newRow("protocol 1.2") << "STUDIO4"
                                  << "3.1.0"
                                  << "1.2" << withHands;
    for (const char *protocol : {"1.3", "1.4", "1.21", "1.22"}) {
        QTest::newRow(qPrintable(QStringLiteral("protocol %1").arg(protocol)))
                << "STUDIO4"
                << "3.1.0" << protocol << all;
    }
}

void tst_BodyAdministration::offersPages()
{
    QFETCH(QString, model);
    QFETCH(QString, system);
    QFETCH(QString, protocol);
    QFETCH(QStringList, expected);
    ControllerState state = studio(protocol);
    state.model = model;
    state.systemVersion = system;
    TestHost host(state);
    BodyAdministrationDlg dialog(&host.io, &host.mainWindow, &host.versions);
    open(&dialog, [&expected](QWidget *window) {
        QCOMPARE(titles(window), expected);
        // Every page can be opened on such a controller.
        for (int i = 1; i < expected.size(); ++i) {
            QTest::keyClick(window, Qt::Key_F8);
            QCOMPARE(pages(window)->currentIndex(), i);
        }
    });
}

void tst_BodyAdministration::f8WalksThroughAllPages()
{
    TestHost host;
    BodyAdministrationDlg dialog(&host.io, &host.mainWindow, &host.versions);
    open(&dialog, [](QWidget *window) {
        QTabWidget *tabs = pages(window);
        QStringList seen{tabs->tabText(tabs->currentIndex())};
        for (int i = 0; i < 4; ++i) {
            QTest::keyClick(window, Qt::Key_F8);
            seen.append(tabs->tabText(tabs->currentIndex()));
        }
        QCOMPARE(seen,
                 (QStringList{standardTitle, joywandTitle, handsTitle, toolsTitle, standardTitle}));
    });
}

void tst_BodyAdministration::thirdPageWithoutHandsIsTheTools()
{
    ControllerState state = studio();
    state.model = QStringLiteral("POCKETUNIT2");
    state.systemVersion = QStringLiteral("2.9.4");
    TestHost host(state);
    announceModules(host);
    BodyAdministrationDlg dialog(&host.io, &host.mainWindow, &host.versions);
    announceModules(host);
    open(&dialog, [&host](QWidget *window) {
        QTest::keyClick(window, Qt::Key_F8);
        host.clear();
        QTest::keyClick(window, Qt::Key_F8);
        QVERIFY(page(window, toolsPage)->isVisible());
        QVERIFY(host.queries().contains(QStringLiteral("measurementtool max_number_of_tools")));
        QVERIFY(isVisible(window, "pushButton_calibration"));
        Drive::clickCell(table(window, "tableWidget_mt"), 1, 0);
        QVERIFY(isEnabled(window, "pushButton_calibration"));
        QTest::keyClick(window, Qt::Key_F8);
        QVERIFY(page(window, standardPage)->isVisible());
        QVERIFY(!isVisible(window, "pushButton_calibration"));
    });
}

// Buttons and requests

void tst_BodyAdministration::buttonsFollowPageAndBody_data()
{
    QTest::addColumn<QByteArray>("form");
    QTest::addColumn<QByteArray>("bodyTable");
    QTest::addColumn<int>("row");
    QTest::addColumn<bool>("calibrationShown");
    QTest::addColumn<bool>("filter");
    QTest::addColumn<bool>("hybrid");
    QTest::addColumn<bool>("adjustment");
    const QByteArray standard("tableWidget_standard");
    QTest::newRow("standard, calibrated")
            << QByteArray(standardPage) << standard << 0 << false << true << false << true;
    QTest::newRow("standard, with sensor")
            << QByteArray(standardPage) << standard << 3 << false << true << true << true;
    QTest::newRow("standard, uncalibrated")
            << QByteArray(standardPage) << standard << 7 << false << false << false << false;
    QTest::newRow("joywand") << QByteArray(joywandPage) << QByteArray("tableWidget_joywand") << 1
                             << false << true << false << true;
    QTest::newRow("hand") << QByteArray(handsPage) << QByteArray("tableWidget_fingertracking") << 0
                          << false << false << false << false;
    QTest::newRow("tool") << QByteArray(toolsPage) << QByteArray("tableWidget_mt") << 1 << true
                          << false << false << true;
    QTest::newRow("tool reference") << QByteArray(toolsPage) << QByteArray("tableWidget_ref") << 1
                                    << true << false << false << true;
}

void tst_BodyAdministration::buttonsFollowPageAndBody()
{
    QFETCH(QByteArray, form);
    QFETCH(QByteArray, bodyTable);
    QFETCH(int, row);
    QFETCH(bool, calibrationShown);
    QFETCH(bool, filter);
    QFETCH(bool, hybrid);
    QFETCH(bool, adjustment);
    TestHost host;
    BodyAdministrationDlg dialog(&host.io, &host.mainWindow, &host.versions);
    announceModules(host);
    open(&dialog, [&](QWidget *window) {
        goTo(window, form);
        Drive::clickCell(table(window, bodyTable), row, 0);
        QCOMPARE(isVisible(window, "pushButton_calibration"), calibrationShown);
        QVERIFY(isEnabled(window, "pushButton_calibration"));
        QCOMPARE(isEnabled(window, "pushButton_filter"), filter);
        QCOMPARE(isEnabled(window, "pushButton_hybridCalibration"), hybrid);
        QCOMPARE(isEnabled(window, "pushButton_body_adjustment"), adjustment);
    });
}

void tst_BodyAdministration::handsBodyOver_data()
{
    QTest::addColumn<QByteArray>("form");
    QTest::addColumn<QByteArray>("bodyTable");
    QTest::addColumn<int>("row");
    QTest::addColumn<QByteArray>("button");
    QTest::addColumn<QString>("request");
    const QString sender = QStringLiteral("|BodyAdministrationModule|");
    const QByteArray standard("tableWidget_standard");
    const QByteArray tools("tableWidget_mt");
    QTest::newRow("tool calibration")
            << QByteArray(toolsPage) << tools << 1 << QByteArray("pushButton_calibration")
            << "BodyCalModule" + sender + "OpenBodyCalDialog measurementtool b02";
    QTest::newRow("reference calibration")
            << QByteArray(toolsPage) << QByteArray("tableWidget_ref") << 2
            << QByteArray("pushButton_calibration")
            << "BodyCalModule" + sender + "OpenBodyCalDialog measurementtool_reference b03";
    QTest::newRow("standard calibration")
            << QByteArray(standardPage) << standard << 1
            << QByteArray("pushButton_customCalibration")
            << "BodyCalModule" + sender + "OpenBodyCalDialog standard b02";
    QTest::newRow("joywand calibration")
            << QByteArray(joywandPage) << QByteArray("tableWidget_joywand") << 0
            << QByteArray("pushButton_calibration")
            << "BodyCalModule" + sender + "OpenBodyCalDialog joywand b01";
    QTest::newRow("hand calibration")
            << QByteArray(handsPage) << QByteArray("tableWidget_fingertracking") << 1
            << QByteArray("pushButton_calibration")
            << "BodyCalModule" + sender + "OpenBodyCalDialog fingertracking b02";
    QTest::newRow("hybrid, full") << QByteArray(standardPage) << standard << 3
                                  << QByteArray("pushButton_hybridCalibration")
                                  << "HybridBodyCalibration" + sender
                                             + "OpenHybridBodyCalibration standard|4|Full";
    QTest::newRow("hybrid, optical")
            << QByteArray(standardPage) << standard << 4
            << QByteArray("pushButton_hybridCalibration")
            << "HybridBodyCalibration" + sender + "OpenHybridBodyCalibration standard|5|Optical";
    QTest::newRow("adjustment") << QByteArray(standardPage) << standard << 1
                                << QByteArray("pushButton_body_adjustment")
                                << "BodyAdjustmentModule" + sender
                                           + "OpenBodyAdjustmentDialog standard|2|calibrated";
    QTest::newRow("tool adjustment")
            << QByteArray(toolsPage) << tools << 0 << QByteArray("pushButton_body_adjustment")
            << "BodyAdjustmentModule" + sender
                       + "OpenBodyAdjustmentDialog measurementtool|1|calibrated";
}

void tst_BodyAdministration::handsBodyOver()
{
    QFETCH(QByteArray, form);
    QFETCH(QByteArray, bodyTable);
    QFETCH(int, row);
    QFETCH(QByteArray, button);
    QFETCH(QString, request);
    TestHost host;
    BodyAdministrationDlg dialog(&host.io, &host.mainWindow, &host.versions);
    announceModules(host);
    QVector<bool> shownWhenSent;
    connect(&host.io, &SimulatedIOManager::messageSent, &dialog,
            [&] { shownWhenSent.append(dialog.isVisible()); });
    open(&dialog, [&](QWidget *window) {
        goTo(window, form);
        Drive::clickCell(table(window, bodyTable), row, 0);
        host.clear();
        Drive::click(form == toolsPage || button == "pushButton_hybridCalibration"
                                     || button == "pushButton_body_adjustment"
                             ? window
                             : page(window, form),
                     button);
    });
    QCOMPARE(host.requests(), QStringList{request});
    QCOMPARE(shownWhenSent, QVector<bool>{false});
    QCOMPARE(host.writes(), QStringList());
}

void tst_BodyAdministration::sendsNothingWithoutBody()
{
    TestHost host(TestHost::scenario(QStringLiteral("bare")));
    BodyAdministrationDlg dialog(&host.io, &host.mainWindow, &host.versions);
    announceModules(host);
    host.clear();
    open(&dialog, [](QWidget *window) {
        for (const char *form : {standardPage, joywandPage, handsPage, toolsPage}) {
            goTo(window, form);
            for (const char *button : actionButtons)
                QVERIFY2(!isEnabled(window, button), form);
        }
        // The page's own button is disabled, too. The check that its slot sends nothing is an
        // additional guard.
        for (const char *form : {joywandPage, handsPage}) {
            goTo(window, form);
            QVERIFY2(!isEnabled(page(window, form), "pushButton_calibration"), form);
            QMetaObject::invokeMethod(page(window, form), "on_pushButton_calibration_clicked");
        }
        QVERIFY(window->isVisible());
    });
    QCOMPARE(host.requests(), QStringList());
}

// Reopening

void tst_BodyAdministration::reopensOnceAfterTheSenderReturned()
{
    TestHost host;
    BodyAdministrationDlg dialog(&host.io, &host.mainWindow, &host.versions);
    announceModules(host);
    open(&dialog, [](QWidget *window) {
        goTo(window, joywandPage);
        Drive::clickCell(table(window, "tableWidget_joywand"), 0, 0);
        Drive::click(window, "pushButton_body_adjustment");
    });
    QVERIFY(!dialog.isVisible());
    host.edit([](ControllerState &state) {
        state.bodyTypes[QStringLiteral("joywand")].bodies[0].description = QStringLiteral("New");
    });
    host.clear();
    int opened = 0;
    robot().expectDialog(QStringLiteral("BodyAdministrationDlg"), [&opened](QWidget *window) {
        ++opened;
        QCOMPARE(Drive::cell(table(window, "tableWidget_joywand"), 0, 2), QStringLiteral("New"));
    });
    host.io.send_message("BodyAdministrationModule", "BodyAdjustmentModule", 1, "reopen");
    QCOMPARE(host.lines(), QStringList());
    QVERIFY(!dialog.isVisible());
    Drive::settle();
    QCOMPARE(opened, 1);
    QVERIFY(!dialog.isVisible());
    // The used marks of the page's targets are read before its bodies.
    const QStringList queries = host.queries();
    const int used = queries.indexOf(QStringLiteral("targetlib target_status_calibrated t15"));
    QVERIFY(used >= 0);
    QVERIFY(used < queries.indexOf(QStringLiteral("body number_of_bodies joywand")));
    QCOMPARE(queries.count(QStringLiteral("body number_of_bodies joywand")), 1);
}

void tst_BodyAdministration::reopensWhenAnsweredAtOnce()
{
    TestHost host;
    BodyAdministrationDlg dialog(&host.io, &host.mainWindow, &host.versions);
    announceModules(host);
    connect(&host.io, &SimulatedIOManager::messageSent, &dialog, [&host](const QString &channel) {
        if (channel == QLatin1String("BodyAdjustmentModule"))
            host.io.send_message("BodyAdministrationModule", "BodyAdjustmentModule", 1, "reopen");
    });
    robot().expectDialog(QStringLiteral("BodyAdministrationDlg"), [](QWidget *window) {
        Drive::clickCell(table(window, "tableWidget_standard"), 0, 0);
        Drive::click(window, "pushButton_body_adjustment");
    });
    int shownAgain = 0;
    robot().expectDialog(QStringLiteral("BodyAdministrationDlg"), [&shownAgain](QWidget *window) {
        ++shownAgain;
        Drive::click(window, "pushButton_exit");
    });
    dialog.update_and_exec();
    Drive::settle();
    QCOMPARE(shownAgain, 1);
    QVERIFY(!dialog.isVisible());
}

void tst_BodyAdministration::reopensAfterTheModulesOwnEventLoop_data()
{
    QTest::addColumn<bool>("isLeaving");
    QTest::newRow("the host goes on") << false;
    QTest::newRow("the host leaves meanwhile") << true;
}

void tst_BodyAdministration::reopensAfterTheModulesOwnEventLoop()
{
    QFETCH(bool, isLeaving);
    TestHost host;
    BodyAdministrationDlg dialog(&host.io, &host.mainWindow, &host.versions);
    announceModules(host);
    connect(&host.io, &SimulatedIOManager::messageSent, &dialog, [&](const QString &channel) {
        if (channel != QLatin1String("BodyAdjustmentModule"))
            return;
        // The module works in a dialog of its own and asks for the reopening before it returns.
        host.io.send_message("BodyAdministrationModule", "BodyAdjustmentModule", 1, "reopen");
        Drive::settle();
        QVERIFY(!dialog.isVisible());
        if (isLeaving)
            dialog.about_to_exit();
    });
    robot().expectDialog(QStringLiteral("BodyAdministrationDlg"), [](QWidget *window) {
        Drive::clickCell(table(window, "tableWidget_standard"), 0, 0);
        Drive::click(window, "pushButton_body_adjustment");
    });
    int shownAgain = 0;
    if (!isLeaving) {
        robot().expectDialog(QStringLiteral("BodyAdministrationDlg"), [&](QWidget *window) {
            ++shownAgain;
            Drive::click(window, "pushButton_exit");
        });
    }
    dialog.update_and_exec();
    QCOMPARE(shownAgain, isLeaving ? 0 : 1);
    QVERIFY(!dialog.isVisible());
}

void tst_BodyAdministration::reopenWhileOpenOnlyRefreshes()
{
    TestHost host;
    BodyAdministrationDlg dialog(&host.io, &host.mainWindow, &host.versions);
    open(&dialog, [&host](QWidget *window) {
        host.edit([](ControllerState &state) {
            state.bodyTypes[QStringLiteral("standard")].bodies[0].description =
                    QStringLiteral("New");
        });
        host.clear();
        host.io.send_message("BodyAdministrationModule", "Any", 1, "reopen");
        QCOMPARE(host.lines(), QStringList());
        Drive::settle();
        QCOMPARE(Drive::cell(table(window, "tableWidget_standard"), 0, 3), QStringLiteral("New"));
        QVERIFY(window->isVisible());
    });
    // One Escape closes the dialog, because no second event loop is on the stack.
    QVERIFY(!dialog.isVisible());
}

void tst_BodyAdministration::ignoresOtherMessages_data()
{
    QTest::addColumn<QByteArray>("sender");
    QTest::addColumn<QByteArray>("text");
    QTest::newRow("blank behind") << QByteArray("Any") << QByteArray("reopen ");
    QTest::newRow("capital letter") << QByteArray("Any") << QByteArray("Reopen");
    QTest::newRow("empty") << QByteArray("Any") << QByteArray();
    QTest::newRow("other sender") << QByteArray("Any") << QByteArray("ActiveConfigurationChanged");
    QTest::newRow("sender with blank")
            << QByteArray("ConfigurationModule ") << QByteArray("ActiveConfigurationChanged");
    QTest::newRow("continued") << QByteArray("ConfigurationModule")
                               << QByteArray("ActiveConfigurationChanged now");
    QTest::newRow("not at the beginning")
            << QByteArray("Any") << QByteArray("the bodycalibration available");
}

void tst_BodyAdministration::ignoresOtherMessages()
{
    QFETCH(QByteArray, sender);
    QFETCH(QByteArray, text);
    TestHost host;
    BodyAdministrationDlg dialog(&host.io, &host.mainWindow, &host.versions);
    for (const char *channel : {"GlobalEvent", "BodyAdministrationModule"}) {
        host.clear();
        host.io.send_message(channel, sender, 1, text);
        Drive::settle();
        QCOMPARE(host.lines(), QStringList());
        QVERIFY(!dialog.isVisible());
    }
    open(&dialog, [](QWidget *window) {
        goTo(window, toolsPage);
        Drive::clickCell(table(window, "tableWidget_mt"), 0, 0);
        QVERIFY(!isEnabled(window, "pushButton_calibration"));
    });
}

void tst_BodyAdministration::buttonsWaitForTheirModules()
{
    TestHost host;
    BodyAdministrationDlg dialog(&host.io, &host.mainWindow, &host.versions);
    const auto states = [this, &dialog] {
        QVector<bool> enabled;
        open(&dialog, [&enabled](QWidget *window) {
            goTo(window, toolsPage);
            Drive::clickCell(table(window, "tableWidget_mt"), 0, 0);
            enabled = {isEnabled(window, "pushButton_calibration"),
                       isEnabled(window, "pushButton_body_adjustment")};
        });
        return enabled;
    };
    QCOMPARE(states(), (QVector<bool>{false, false}));
    announce(host, "bodycalibration available in version 2", "Whoever");
    QCOMPARE(states(), (QVector<bool>{true, false}));
    host.io.send_message("BodyAdministrationModule", "Whoever", 7, "bodyadjustment available");
    QCOMPARE(states(), (QVector<bool>{true, true}));
    // A module that was announced once remains available.
    QCOMPARE(states(), (QVector<bool>{true, true}));
}

void tst_BodyAdministration::hearsNothingAfterAboutToExit()
{
    TestHost host;
    BodyAdministrationDlg dialog(&host.io, &host.mainWindow, &host.versions);
    QCOMPARE(host.io.receiverCount("GlobalEvent"), 1);
    QCOMPARE(host.io.receiverCount("BodyAdministrationModule"), 1);
    dialog.about_to_exit();
    QCOMPARE(host.io.receiverCount("GlobalEvent"), 0);
    QCOMPARE(host.io.receiverCount("BodyAdministrationModule"), 0);
    announceModules(host);
    host.clear();
    configurationChanged(host);
    host.io.send_message("BodyAdministrationModule", "Any", 1, "reopen");
    Drive::settle();
    QCOMPARE(host.lines(), QStringList());
    QVERIFY(!dialog.isVisible());
}

void tst_BodyAdministration::multiUserModeDisablesAdjustment()
{
    TestHost host(TestHost::scenario(QStringLiteral("multiuser")));
    BodyAdministrationDlg dialog(&host.io, &host.mainWindow, &host.versions);
    announceModules(host);
    const auto adjustment = [this, &dialog] {
        bool enabled = false;
        open(&dialog, [&enabled](QWidget *window) {
            Drive::clickCell(table(window, "tableWidget_standard"), 0, 0);
            enabled = isEnabled(window, "pushButton_body_adjustment");
        });
        return enabled;
    };
    QVERIFY(!adjustment());
    host.edit([](ControllerState &state) { state.multiUser = false; });
    QVERIFY(adjustment());
    host.edit([](ControllerState &state) { state.multiUser = true; });
    QVERIFY(!adjustment());
}

TRACKING_TEST_MAIN(tst_BodyAdministration)
#include "tst_bodyadministration.moc"
