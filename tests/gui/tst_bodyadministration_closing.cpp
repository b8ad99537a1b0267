#include "administrationfixture.h"

#include <QLineEdit>
#include <QPointer>

/** When the body administration can be used and closed, and what closing does. */
class tst_BodyAdministrationClosing : public AdministrationFixture {
    Q_OBJECT

private slots:
    void lockedConfigurationDisablesEveryPage_data();
    void lockedConfigurationDisablesEveryPage();
    void asksForTheLock_data();
    void asksForTheLock();
    void lockComesAndGoesWhileOpen();
    void refusesToCloseDuringSearch_data();
    void refusesToCloseDuringSearch();
    void closesWhenActivityCannotBeRead();
    void closingStopsTimers();
    void filterButtonOpensFilterOfPage_data();
    void filterButtonOpensFilterOfPage();
    void survivesBeingDeletedWhileOpen();
    void survivesBeingDeletedWithQuestion_data();
    void survivesBeingDeletedWithQuestion();

private:
    static void deleteFirstReference(QWidget *page);
};

// The configuration lock

void tst_BodyAdministrationClosing::lockedConfigurationDisablesEveryPage_data()
{
    QTest::addColumn<QByteArray>("form");
    QTest::addColumn<QByteArray>("bodyTable");
    QTest::addColumn<int>("nameColumn");
    QTest::addColumn<QList<QByteArray>>("editors");
    QTest::newRow("standard") << QByteArray(standardPage) << QByteArray("tableWidget_standard") << 3
                              << QList<QByteArray>{"spinBox_standard_bodies", "pushButton_filter",
                                                   "pushButton_customCalibration", "pushButton_up",
                                                   "pushButton_down"};
    QTest::newRow("joywand") << QByteArray(joywandPage) << QByteArray("tableWidget_joywand") << 2
                             << QList<QByteArray>{"spinBox_joywands", "pushButton_filter",
                                                  "pushButton_calibration"};
    QTest::newRow("hands") << QByteArray(handsPage) << QByteArray("tableWidget_fingertracking") << 2
                           << QList<QByteArray>{"spinBox_hands", "pushButton_calibration"};
    QTest::newRow("tools") << QByteArray(toolsPage) << QByteArray("tableWidget_ref") << 2
                           << QList<QByteArray>{"spinBox_mt", "spinBox_mtref"};
}

void tst_BodyAdministrationClosing::lockedConfigurationDisablesEveryPage()
{
    QFETCH(QByteArray, form);
    QFETCH(QByteArray, bodyTable);
    QFETCH(int, nameColumn);
    QFETCH(QList<QByteArray>, editors);
    TestHost host(TestHost::scenario(QStringLiteral("locked")));
    BodyAdministrationDlg dialog(&host.io, &host.mainWindow, &host.versions);
    announceModules(host);
    host.clear();
    open(&dialog, [&](QWidget *window) {
        goTo(window, form);
        QTableWidget *bodies = table(window, bodyTable);
        Drive::clickCell(bodies, 0, 0);
        Drive::toggleCell(bodies, 0, 1);
        for (int column = bodies->columnCount() - 2; column < bodies->columnCount(); ++column) {
            if (!bodies->isColumnHidden(column))
                Drive::clickCell(bodies, 0, column);
        }
        Drive::doubleClickCell(bodies, 0, nameColumn);
        QVERIFY(!bodies->viewport()->findChild<QLineEdit *>());
        QTableWidget *targets = table(page(window, form), "tableWidget_targetlibrary");
        if (targets->rowCount() > 0)
            Drive::clickCell(targets, 0, 1);
        for (const char *button : actionButtons)
            QVERIFY2(!isEnabled(window, button), button);
        editors.append({"pushButton_select", "pushButton_deselect"});
        for (const QByteArray &editor : qAsConst(editors))
            QVERIFY2(!isEnabled(page(window, form), editor), editor);
        QVERIFY(isEnabled(page(window, form), "pushButton_start"));
    });
    QCOMPARE(changes(host), QStringList());
    QCOMPARE(host.requests(), QStringList());
    QCOMPARE(host.log(), QStringList());
}

void tst_BodyAdministrationClosing::asksForTheLock_data()
{
    QTest::addColumn<QString>("protocol");
    QTest::addColumn<bool>("changeable");
    QTest::addColumn<QString>("fault");
    QTest::addColumn<bool>("asked");
    QTest::addColumn<bool>("locked");
    QTest::newRow("1.8 never asks") << "1.8" << false << "" << false << false;
    QTest::newRow("1.9 locked") << "1.9" << false << "" << true << true;
    QTest::newRow("changeable") << "1.24" << true << "" << true << false;
    QTest::newRow("unreadable") << "1.24" << false << "get config is_changeable fail" << true
                                << false;
    QTest::newRow("other answer") << "1.24" << false << "get config is_changeable answer \"No\""
                                  << true << false;
}

void tst_BodyAdministrationClosing::asksForTheLock()
{
    QFETCH(QString, protocol);
    QFETCH(bool, changeable);
    QFETCH(QString, fault);
    QFETCH(bool, asked);
    QFETCH(bool, locked);
    ControllerState state = studio(protocol);
    state.configChangeable = changeable;
    TestHost host(state);
    if (!fault.isEmpty())
        host.fault(fault);
    QPixmap parentPixmap(16, 16);
    parentPixmap.fill(Qt::green);
    host.mainWindow.setWindowIcon(QIcon(parentPixmap));
    BodyAdministrationDlg dialog(&host.io, &host.mainWindow, &host.versions);
    announceModules(host);
    host.clear();
    open(&dialog, [&](QWidget *window) {
        const QIcon expected =
                locked ? QIcon(QStringLiteral(":/lock.png")) : host.mainWindow.windowIcon();
        const QImage shown = window->windowIcon().pixmap(16, 16).toImage();
        QVERIFY(!shown.isNull());
        QCOMPARE(shown, expected.pixmap(16, 16).toImage());
        Drive::clickCell(table(window, "tableWidget_standard"), 0, 0);
        QCOMPARE(isEnabled(window, "pushButton_body_adjustment"), !locked);
    });
    QCOMPARE(host.queries().contains(QStringLiteral("config is_changeable")), asked);
    const QString lost = "Error: Unable to get lock state of the configuration";
    QStringList lines = host.log();
    lines.removeDuplicates();
    QCOMPARE(lines, fault.endsWith(QLatin1String("fail")) ? QStringList(lost) : QStringList());
}

void tst_BodyAdministrationClosing::lockComesAndGoesWhileOpen()
{
    TestHost host;
    BodyAdministrationDlg dialog(&host.io, &host.mainWindow, &host.versions);
    announceModules(host);
    open(&dialog, [&host](QWidget *window) {
        QWidget *standard = page(window, standardPage);
        for (const bool changeable : {false, true}) {
            host.edit(
                    [changeable](ControllerState &state) { state.configChangeable = changeable; });
            configurationChanged(host);
            QCOMPARE(isEnabled(window, "pushButton_filter"), changeable);
            QCOMPARE(isEnabled(window, "pushButton_body_adjustment"), changeable);
            QCOMPARE(isEnabled(standard, "spinBox_standard_bodies"), changeable);
            QCOMPARE(isEnabled(standard, "pushButton_customCalibration"), changeable);
        }
    });
}

// Closing

void tst_BodyAdministrationClosing::refusesToCloseDuringSearch_data()
{
    QTest::addColumn<QString>("way");
    QTest::newRow("exit button") << "exit";
    QTest::newRow("Escape") << "escape";
    QTest::newRow("window close") << "close";
}

void tst_BodyAdministrationClosing::refusesToCloseDuringSearch()
{
    QFETCH(QString, way);
    TestHost host;
    BodyAdministrationDlg dialog(&host.io, &host.mainWindow, &host.versions);
    open(&dialog, [&](QWidget *window) {
        QWidget *standard = page(window, standardPage);
        Drive::holdTimers(standard);
        Drive::click(standard, "pushButton_start");
        host.clear();
        if (way == QLatin1String("exit"))
            Drive::click(window, "pushButton_exit");
        else if (way == QLatin1String("escape"))
            QTest::keyClick(window, Qt::Key_Escape);
        else
            window->close();
        QVERIFY(window->isVisible());
        QCOMPARE(host.lines(), QStringList{QStringLiteral("status active")});
        QCOMPARE(host.log(), QStringList{QStringLiteral(
                                     "Unable to close dialog during calibration is running")});
        robot().expectBox(boxTitle, QStringLiteral("No targets could be identified in library"),
                          Box::Ok);
        Drive::click(standard, "pushButton_stop");
        Drive::click(window, "pushButton_exit");
        QVERIFY(!window->isVisible());
    });
}

void tst_BodyAdministrationClosing::closesWhenActivityCannotBeRead()
{
    TestHost host;
    BodyAdministrationDlg dialog(&host.io, &host.mainWindow, &host.versions);
    open(&dialog, [&host](QWidget *window) {
        host.fault(QStringLiteral("get status active fail"));
        host.clear();
        Drive::click(window, "pushButton_exit");
        QVERIFY(!window->isVisible());
    });
    QCOMPARE(dialog.result(), int(QDialog::Accepted));
    QCOMPARE(host.log(), QStringList("Error: Unable to get state of calibration"));
}

void tst_BodyAdministrationClosing::closingStopsTimers()
{
    TestHost host;
    BodyAdministrationDlg dialog(&host.io, &host.mainWindow, &host.versions);
    QList<QWidget *> forms;
    open(&dialog, [&](QWidget *window) {
        for (const char *form : {standardPage, joywandPage, handsPage, toolsPage}) {
            goTo(window, form);
            forms.append(page(window, form));
            Drive::holdTimers(forms.last());
            Drive::click(forms.last(), "pushButton_start");
            robot().expectBox(boxTitle, QStringLiteral("No targets could be identified in library"),
                              Box::Ok);
            Drive::click(forms.last(), "pushButton_stop");
            QVERIFY(Drive::tick(forms.last(), "timerCheckForTracked_tl"));
        }
    });
    QCOMPARE(forms.size(), 4);
    for (QWidget *form : qAsConst(forms)) {
        QVERIFY(!Drive::tick(form, "timerCheckForTracked_tl"));
        QVERIFY(!Drive::tick(form, "timerDoMea_tl"));
    }
}

void tst_BodyAdministrationClosing::filterButtonOpensFilterOfPage_data()
{
    QTest::addColumn<QByteArray>("form");
    QTest::addColumn<QByteArray>("bodyTable");
    QTest::addColumn<QString>("firstQuery");
    QTest::newRow("standard") << QByteArray(standardPage) << QByteArray("tableWidget_standard")
                              << "body filter6d_preset standard b02";
    QTest::newRow("joywand") << QByteArray(joywandPage) << QByteArray("tableWidget_joywand")
                             << "body filter6d_preset joywand b02";
}

void tst_BodyAdministrationClosing::filterButtonOpensFilterOfPage()
{
    QFETCH(QByteArray, form);
    QFETCH(QByteArray, bodyTable);
    QFETCH(QString, firstQuery);
    TestHost host;
    BodyAdministrationDlg dialog(&host.io, &host.mainWindow, &host.versions);
    open(&dialog, [&](QWidget *window) {
        goTo(window, form);
        Drive::clickCell(table(window, bodyTable), 1, 0);
        host.clear();
        robot().expectDialog(QStringLiteral("FilterDialog"), [&](QWidget *) {
            QVERIFY2(host.queries().contains(firstQuery),
                     qPrintable(host.queries().join(QLatin1Char('\n'))));
            host.edit([](ControllerState &state) {
                for (BodyTypeState &type : state.bodyTypes) {
                    if (!type.bodies.isEmpty())
                        type.bodies[0].description = QStringLiteral("Refreshed");
                }
            });
        });
        Drive::click(window, "pushButton_filter");
        QVERIFY(Drive::row(table(window, bodyTable), 0).contains(QStringLiteral("Refreshed")));
        QCOMPARE(table(window, bodyTable)->currentRow(), 1);
    });
}

// Deleted while open

void tst_BodyAdministrationClosing::survivesBeingDeletedWhileOpen()
{
    TestHost host;
    QPointer<BodyAdministrationDlg> dialog =
            new BodyAdministrationDlg(&host.io, &host.mainWindow, &host.versions);
    open(dialog, [&dialog](QWidget *) {
        dialog->about_to_exit();
        delete dialog;
    });
    QVERIFY(!dialog);
    QCOMPARE(host.io.receiverCount("GlobalEvent"), 0);
}

void tst_BodyAdministrationClosing::deleteFirstReference(QWidget *page)
{
    Drive::clickCell(table(page, "tableWidget_ref"), 0, 4);
}

void tst_BodyAdministrationClosing::survivesBeingDeletedWithQuestion_data()
{
    QTest::addColumn<QByteArray>("form");
    QTest::addColumn<QString>("title");
    QTest::addColumn<QString>("text");
    QTest::addColumn<QByteArray>("button");
    QTest::newRow("deleting a reference")
            << QByteArray(toolsPage) << "MORVEK3"
            << "Delete Measurement Tool reference body 01?\n"
               "If yes, the assignment to the Measurement Tool will be deleted.\nContinue?"
            << QByteArray();
    QTest::newRow("result of a search")
            << QByteArray(standardPage) << "MORVEK3"
            << "No targets could be identified in library" << QByteArray("pushButton_stop");
    QTest::newRow("overwriting a calibration")
            << QByteArray(handsPage) << "Warning"
            << "Overwrite body calibration data of Left hand?" << QByteArray("pushButton_select");
}

void tst_BodyAdministrationClosing::survivesBeingDeletedWithQuestion()
{
    QFETCH(QByteArray, form);
    QFETCH(QString, title);
    QFETCH(QString, text);
    QFETCH(QByteArray, button);
    TestHost host;
    QPointer<BodyAdministrationDlg> dialog =
            new BodyAdministrationDlg(&host.io, &host.mainWindow, &host.versions);
    open(dialog, [&](QWidget *window) {
        goTo(window, form);
        QWidget *shown = page(window, form);
        Drive::holdTimers(shown);
        if (button == "pushButton_stop")
            Drive::click(shown, "pushButton_start");
        if (button == "pushButton_select") {
            Drive::clickCell(table(shown, "tableWidget_fingertracking"), 0, 0);
            Drive::clickCell(table(shown, "tableWidget_targetlibrary"), 1, 1);
        }
        QStringList lines;
        robot().expectBox(title, text, Box::Ok, [&] {
            host.clear();
            delete dialog;
        });
        if (button.isEmpty())
            deleteFirstReference(shown);
        else
            Drive::click(shown, button);
    });
    QVERIFY(!dialog);
    QCOMPARE(host.lines(), QStringList());
}

TRACKING_TEST_MAIN(tst_BodyAdministrationClosing)
#include "tst_bodyadministration_closing.moc"
