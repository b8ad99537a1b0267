#include "FaultEngine.h"
#include "administrationfixture.h"
#include "interruption.h"

#include <QComboBox>
#include <QLineEdit>
#include <QPointer>

namespace {

/** An action of the operator on a page, with the boxes that open before its first write. */
struct Action {
    const char *form;
    std::function<void(QWidget *page)> act;
    QVector<QPair<QString, QString>> boxes = {}; ///< title and text, each answered with Yes or OK
    QString lastBox = {};                        ///< text of an information after the last write
    std::function<void(ControllerState &)> prepare = {};
    std::function<void(QWidget *page)> setUp = {}; ///< preparation of the action
    bool leavesSearch = false; ///< a search has to be stopped before the dialog closes
};

void pickTarget(QWidget *page, const QString &category, int row)
{
    Drive::choose(Drive::find<QComboBox>(page, "comboBox_filter"), category);
    Drive::clickCell(Drive::find<QTableWidget>(page, "tableWidget_targetlibrary"), row, 1);
}

} // namespace

Q_DECLARE_METATYPE(Action)

/** The dialog in a host that shuts down, deletes it, or calls it again at any moment. */
class tst_Lifetime : public AdministrationFixture {
    Q_OBJECT

private slots:
    void shutDownWithOpenEditor_data();
    void shutDownWithOpenEditor();
    void shutDownWithTypedCount();
    void nothingQueuedHappensAfterTheHostLeft();
    void noTimerActsAfterTheHostLeft();
    void destructionWithdrawsTheReceiver();
    void deletedInsideEachWrite_data();
    void deletedInsideEachWrite();
    void deletedWhileOpening();
    void eventLoopInsideEachOperation_data();
    void eventLoopInsideEachOperation();
    void changeWhileReadingIsReadOnceAfterwards();
    void bodiesDroppedWhileReading();
    void menuEntryInsideTheOpening();
    void reopenAsTheFirstShowing();
    void trackedStatesRestWhileHidden();
    void foundTargetsAskForNoUse();
    void refusedExitOffersStop();
    void stopStaysWithTheSearchThatIsPolled();

private:
    static void addActions();
    void run(TestHost &host, const Action &action, QPointer<BodyAdministrationDlg> dialog,
             const std::function<void()> &act);
};

void tst_Lifetime::shutDownWithOpenEditor_data()
{
    QTest::addColumn<QByteArray>("form");
    QTest::addColumn<QByteArray>("bodyTable");
    QTest::addColumn<int>("nameColumn");
    QTest::newRow("standard") << QByteArray(standardPage) << QByteArray("tableWidget_standard")
                              << 3;
    QTest::newRow("joywand") << QByteArray(joywandPage) << QByteArray("tableWidget_joywand") << 2;
    QTest::newRow("hands") << QByteArray(handsPage) << QByteArray("tableWidget_fingertracking")
                           << 2;
    QTest::newRow("references") << QByteArray(toolsPage) << QByteArray("tableWidget_ref") << 2;
}

void tst_Lifetime::shutDownWithOpenEditor()
{
    QFETCH(QByteArray, form);
    QFETCH(QByteArray, bodyTable);
    QFETCH(int, nameColumn);
    TestHost host;
    QPointer<BodyAdministrationDlg> dialog =
            new BodyAdministrationDlg(&host.io, &host.mainWindow, &host.versions);
    open(dialog, [&](QWidget *window) {
        goTo(window, form);
        QTableWidget *bodies = table(window, bodyTable);
        Drive::doubleClickCell(bodies, 0, nameColumn);
        auto *editor = bodies->viewport()->findChild<QLineEdit *>();
        QVERIFY(editor);
        QTest::keyClicks(editor, QStringLiteral("Half"));
        Drive::settle();
        dialog->about_to_exit();
        host.clear();
        delete dialog;
    });
    Drive::settle();
    QCOMPARE(host.lines(), QStringList());
    QCOMPARE(host.log(), QStringList());
}

void tst_Lifetime::shutDownWithTypedCount()
{
    TestHost host;
    QPointer<BodyAdministrationDlg> dialog =
            new BodyAdministrationDlg(&host.io, &host.mainWindow, &host.versions);
    open(dialog, [&](QWidget *window) {
        auto *box = Drive::find<QSpinBox>(window, "spinBox_standard_bodies");
        box->setFocus();
        box->selectAll();
        QTest::keyClicks(box, QStringLiteral("9"));
        host.clear();
        delete dialog;
    });
    Drive::settle();
    QCOMPARE(host.lines(), QStringList());
}

void tst_Lifetime::nothingQueuedHappensAfterTheHostLeft()
{
    TestHost host;
    BodyAdministrationDlg dialog(&host.io, &host.mainWindow, &host.versions);
    open(&dialog, [&](QWidget *window) {
        Drive::settle();
        QTableWidget *bodies = table(window, "tableWidget_standard");
        const QPoint cell = bodies->visualItemRect(bodies->item(1, 8)).center();
        QTest::mouseClick(bodies->viewport(), Qt::LeftButton, Qt::NoModifier, cell);
        host.io.send_message("BodyAdministrationModule", "Any", 1, "reopen");
        announce(host, "ActiveConfigurationChanged", "ConfigurationModule");
        dialog.about_to_exit();
        host.clear();
        Drive::settle();
        QCOMPARE(host.lines(), QStringList());
    });
    host.clear();
    Drive::settle();
    QVERIFY(!dialog.isVisible());
    QCOMPARE(host.lines(), QStringList());
}

void tst_Lifetime::noTimerActsAfterTheHostLeft()
{
    TestHost host;
    BodyAdministrationDlg dialog(&host.io, &host.mainWindow, &host.versions);
    open(&dialog, [&](QWidget *window) {
        QWidget *standard = page(window, standardPage);
        Drive::holdTimers(standard);
        Drive::click(standard, "pushButton_start");
        QVERIFY(Drive::tick(standard, "timerDoMea_tl"));
        robot().expectBox(boxTitle, QStringLiteral("No targets could be identified in library"),
                          Box::Ok, [&] { dialog.about_to_exit(); });
        Drive::click(standard, "pushButton_stop");
        host.clear();
        Drive::tick(standard, "timerDoMea_tl");
        Drive::tick(standard, "timerCheckForTracked_tl");
        QCOMPARE(host.lines(), QStringList());
    });
}

void tst_Lifetime::destructionWithdrawsTheReceiver()
{
    TestHost host;
    {
        BodyAdministrationDlg dialog(&host.io, &host.mainWindow, &host.versions);
        QCOMPARE(host.io.receiverCount("GlobalEvent"), 1);
    }
    QCOMPARE(host.io.receiverCount("GlobalEvent"), 0);
    QCOMPARE(host.io.receiverCount("BodyAdministrationModule"), 0);
}

// Re-entered and deleted inside operations

void tst_Lifetime::addActions()
{
    QTest::addColumn<Action>("action");
    const auto cell = [](const char *name, int row, int column) {
        return [=](QWidget *page) { Drive::clickCell(table(page, name), row, column); };
    };
    const auto toggle = [](const char *name, int row, int column) {
        return [=](QWidget *page) { Drive::toggleCell(table(page, name), row, column); };
    };
    const auto standard = "tableWidget_standard";
    QTest::newRow("active") << Action{standardPage, toggle(standard, 0, 1)};
    QTest::newRow("reference") << Action{standardPage, toggle(standard, 0, 2)};
    QTest::newRow("no reference") << Action{standardPage, toggle(standard, 2, 2)};
    QTest::newRow("name") << Action{standardPage, [](QWidget *page) {
                                        Drive::typeIntoCell(table(page, "tableWidget_standard"), 0,
                                                            3, QStringLiteral("Hat"));
                                    }};
    QTest::newRow("count") << Action{
            standardPage, [](QWidget *page) {
                Drive::typeNumber(Drive::find<QSpinBox>(page, "spinBox_standard_bodies"),
                                  QStringLiteral("10"));
            }};
    QTest::newRow("delete") << Action{
            standardPage,
            cell(standard, 1, 8),
            {{boxTitle, QStringLiteral("Delete geometry of Standard body 02?\nGlasses round")}}};
    QTest::newRow("delete the reference")
            << Action{standardPage,
                      cell(standard, 2, 8),
                      {{boxTitle, QStringLiteral("Delete geometry of Standard body 03?\nIf yes, "
                                                 "the assignment as reference to other bodies "
                                                 "will be deleted.\nRoom frame")}}};
    Action move{standardPage, [](QWidget *page) { Drive::click(page, "pushButton_down"); }};
    move.setUp = cell(standard, 0, 0);
    QTest::newRow("move") << move;
    Action assign{standardPage, [](QWidget *page) { Drive::click(page, "pushButton_select"); }};
    assign.setUp = [](QWidget *page) {
        Drive::clickCell(table(page, "tableWidget_standard"), 7, 0);
        pickTarget(page, QStringLiteral("Cross Target"), 0);
    };
    QTest::newRow("assign") << assign;
    Action start{standardPage, [](QWidget *page) { Drive::click(page, "pushButton_start"); }};
    start.leavesSearch = true;
    QTest::newRow("start") << start;
    Action stop{standardPage, [](QWidget *page) { Drive::click(page, "pushButton_stop"); }};
    stop.setUp = [](QWidget *page) { Drive::click(page, "pushButton_start"); };
    stop.lastBox = QStringLiteral("No targets could be identified in library");
    QTest::newRow("stop") << stop;
    QTest::newRow("another configuration")
            << Action{standardPage,
                      [](QWidget *page) {
                          // The fixture sends the message; here the refresh is delivered.
                          page->setProperty("configurationChanged", true);
                      },
                      {},
                      {},
                      [](ControllerState &state) { state.standardFilter = false; }};
    QTest::newRow("delete a tool reference")
            << Action{toolsPage,
                      cell("tableWidget_ref", 0, 4),
                      {{boxTitle, QStringLiteral("Delete Measurement Tool reference body 01?\n"
                                                 "If yes, the assignment to the Measurement Tool "
                                                 "will be deleted.\nContinue?")}}};
}

void tst_Lifetime::run(TestHost &host, const Action &action, QPointer<BodyAdministrationDlg> dialog,
                       const std::function<void()> &act)
{
    open(dialog, [&](QWidget *window) {
        goTo(window, action.form);
        QWidget *shown = page(window, action.form);
        Drive::holdTimers(shown);
        if (action.setUp)
            action.setUp(shown);
        Drive::settle();
        host.clear();
        for (const auto &box : action.boxes)
            robot().expectBox(box.first, box.second, Box::Yes);
        act();
        action.act(shown);
        if (dialog && shown->property("configurationChanged").toBool())
            configurationChanged(host);
        Drive::settle();
        if (dialog && action.leavesSearch) {
            QObject::disconnect(&host.io, &SimulatedIOManager::recorded, nullptr, nullptr);
            robot().expectBox(boxTitle, QStringLiteral("No targets could be identified in library"),
                              Box::Ok);
            Drive::click(shown, "pushButton_stop");
        }
    });
}

void tst_Lifetime::deletedInsideEachWrite_data()
{
    addActions();
}

void tst_Lifetime::deletedInsideEachWrite()
{
    QFETCH(Action, action);
    ControllerState state = studio();
    if (action.prepare)
        action.prepare(state);
    for (int write = 0;; ++write) {
        TestHost host(state);
        QPointer<BodyAdministrationDlg> dialog =
                new BodyAdministrationDlg(&host.io, &host.mainWindow, &host.versions);
        std::unique_ptr<Interruption> interruption;
        QStringList sent;
        run(host, action, dialog, [&] {
            interruption =
                    std::make_unique<Interruption>(host.io, Interruption::atWrite(write), [&] {
                        delete dialog;
                        sent = host.lines();
                        host.io.clearTranscript();
                    });
            // Its only write is the first one, and no box opens after a deletion.
            if (write == 1 && !action.lastBox.isEmpty())
                robot().expectBox(boxTitle, action.lastBox, Box::Ok);
        });
        if (dialog) {
            QVERIFY2(write > 0, "the action writes nothing");
            delete dialog;
            return;
        }
        QVERIFY(!sent.isEmpty());
        QCOMPARE(host.writes(), QStringList());
        QCOMPARE(host.log(), QStringList());
    }
}

void tst_Lifetime::deletedWhileOpening()
{
    TestHost host;
    QPointer<BodyAdministrationDlg> dialog =
            new BodyAdministrationDlg(&host.io, &host.mainWindow, &host.versions);
    const Interruption interruption(host.io, Interruption::atFirst(customCheck.toUtf8()), [&] {
        delete dialog;
        host.clear();
    });
    dialog->update_and_exec();
    QVERIFY(!dialog);
    QCOMPARE(host.lines(), QStringList());
}

void tst_Lifetime::eventLoopInsideEachOperation_data()
{
    addActions();
}

void tst_Lifetime::eventLoopInsideEachOperation()
{
    QFETCH(Action, action);
    ControllerState state = studio();
    if (action.prepare)
        action.prepare(state);
    QStringList written[2];
    for (const bool interrupted : {false, true}) {
        TestHost host(state);
        BodyAdministrationDlg dialog(&host.io, &host.mainWindow, &host.versions);
        std::unique_ptr<Interruption> interruption;
        run(host, action, &dialog, [&] {
            if (!action.lastBox.isEmpty())
                robot().expectBox(boxTitle, action.lastBox, Box::Ok);
            if (interrupted) {
                interruption =
                        std::make_unique<Interruption>(host.io, Interruption::everywhere(),
                                                       [] { QCoreApplication::processEvents(); });
            }
        });
        written[interrupted ? 1 : 0] = changes(host);
    }
    QVERIFY(!written[0].isEmpty());
    QCOMPARE(written[1], written[0]);
}

void tst_Lifetime::changeWhileReadingIsReadOnceAfterwards()
{
    TestHost host;
    BodyAdministrationDlg dialog(&host.io, &host.mainWindow, &host.versions);
    open(&dialog, [&](QWidget *window) {
        Drive::settle();
        host.clear();
        const Interruption interruption(
                host.io, Interruption::atFirst("body desc standard b05"), [&] {
                    host.edit([](ControllerState &state) {
                        state.bodyTypes["standard"].bodies[0].description = QStringLiteral("New");
                    });
                    configurationChanged(host);
                });
        host.io.send_message("BodyAdministrationModule", "Any", 1, "reopen");
        Drive::settle();
        QCOMPARE(interruption.times(), 1);
        QCOMPARE(host.queries().count(QStringLiteral("body number_of_bodies standard")), 2);
        QCOMPARE(Drive::cell(table(window, "tableWidget_standard"), 0, 3), QStringLiteral("New"));
    });
}

void tst_Lifetime::bodiesDroppedWhileReading()
{
    // Custom cells, fillers and readers find their row again.
    for (const QByteArray line : {"inertial sensor_model_desc vendorone mini", "inertial warmup",
                                  "body active standard b06", "standard max_number_of_bodies",
                                  "inertial sensor_handeye vendorone mini 'A7'"}) {
        TestHost host;
        BodyAdministrationDlg dialog(&host.io, &host.mainWindow, &host.versions);
        open(&dialog, [&](QWidget *window) {
            QWidget *standard = page(window, standardPage);
            Drive::settle();
            const Interruption interruption(host.io, Interruption::atFirst(line), [&] {
                Drive::typeNumber(Drive::find<QSpinBox>(standard, "spinBox_standard_bodies"),
                                  QStringLiteral("3"));
            });
            host.io.send_message("BodyAdministrationModule", "Any", 1, "reopen");
            Drive::settle();
            QCOMPARE(interruption.times(), 1);
            QCOMPARE(table(window, "tableWidget_standard")->rowCount(), 3);
            QCOMPARE(Drive::find<QSpinBox>(standard, "spinBox_standard_bodies")->value(), 3);
        });
    }
}

void tst_Lifetime::menuEntryInsideTheOpening()
{
    TestHost host;
    BodyAdministrationDlg dialog(&host.io, &host.mainWindow, &host.versions);
    const Interruption interruption(host.io, Interruption::atFirst("body desc standard b01"),
                                    [&] { dialog.update_and_exec(); });
    open(&dialog, [](QWidget *) {});
    QCOMPARE(interruption.times(), 1);
    QVERIFY(!dialog.isVisible());
}

void tst_Lifetime::reopenAsTheFirstShowing()
{
    ControllerState state = studio();
    state.configChangeable = false;
    TestHost host(state);
    BodyAdministrationDlg dialog(&host.io, &host.mainWindow, &host.versions);
    announceModules(host);
    robot().expectDialog(QStringLiteral("BodyAdministrationDlg"), [&](QWidget *window) {
        QVERIFY(!isVisible(window, "pushButton_calibration"));
        for (const char *button :
             {"pushButton_filter", "pushButton_hybridCalibration", "pushButton_body_adjustment"})
            QVERIFY2(!isEnabled(window, button), button);
        QCOMPARE(window->windowIcon().pixmap(16, 16).toImage(),
                 QIcon(QStringLiteral(":/lock.png")).pixmap(16, 16).toImage());
    });
    host.io.send_message("BodyAdministrationModule", "Any", 1, "reopen");
    Drive::settle();
}

// Searches

void tst_Lifetime::trackedStatesRestWhileHidden()
{
    TestHost host;
    BodyAdministrationDlg dialog(&host.io, &host.mainWindow, &host.versions);
    QWidget *standard = nullptr;
    open(&dialog, [&](QWidget *window) {
        standard = page(window, standardPage);
        Drive::holdTimers(standard);
        Drive::click(standard, "pushButton_start");
        robot().expectBox(boxTitle, QStringLiteral("No targets could be identified in library"),
                          Box::Ok);
        Drive::click(standard, "pushButton_stop");
        Drive::clickCell(table(window, "tableWidget_standard"), 0, 0);
        Drive::click(standard, "pushButton_customCalibration");
        QVERIFY(!window->isVisible());
    });
    host.clear();
    QVERIFY(Drive::tick(standard, "timerCheckForTracked_tl"));
    QCOMPARE(host.lines(), QStringList());
    robot().expectDialog(QStringLiteral("BodyAdministrationDlg"), [&](QWidget *) {
        host.clear();
        QVERIFY(Drive::tick(standard, "timerCheckForTracked_tl"));
        QVERIFY(!host.queries().isEmpty());
    });
    host.io.send_message("BodyAdministrationModule", "Any", 1, "reopen");
    Drive::settle();
}

void tst_Lifetime::foundTargetsAskForNoUse()
{
    TestHost host;
    openAt(host, standardPage, [&](QWidget *page) {
        Drive::holdTimers(page);
        auto *category = Drive::find<QComboBox>(page, "comboBox_filter");
        Drive::choose(category, QStringLiteral("Cross Target"));
        host.clear();
        Drive::choose(category, foundTargets);
        Drive::click(page, "pushButton_start");
        host.edit([](ControllerState &state) {
            for (TargetState &target : state.targets)
                target.tracked = target.inVolume;
        });
        QVERIFY(Drive::tick(page, "timerDoMea_tl"));
        QVERIFY(host.queries().contains(QStringLiteral("targetlib target_status_tracked t01")));
        const QStringList uses =
                host.queries().filter(QStringLiteral("targetlib target_status_calibrated t"));
        QCOMPARE(uses, QStringList());
        QVERIFY(table(page, "tableWidget_targetlibrary")->rowCount() > 0);
        robot().expectBox(boxTitle, QStringLiteral("4 targets could be identified in library"),
                          Box::Ok);
        Drive::click(page, "pushButton_stop");
    });
}

void tst_Lifetime::refusedExitOffersStop()
{
    TestHost host;
    BodyAdministrationDlg dialog(&host.io, &host.mainWindow, &host.versions);
    open(&dialog, [&](QWidget *window) {
        QWidget *standard = page(window, standardPage);
        Drive::holdTimers(standard);
        Drive::click(standard, "pushButton_start");
        host.fault(QStringLiteral("get status step_active fail"));
        QVERIFY(Drive::tick(standard, "timerDoMea_tl"));
        host.io.faults()->clear();
        QVERIFY(!isEnabled(standard, "pushButton_stop"));
        Drive::click(window, "pushButton_exit");
        QVERIFY(window->isVisible());
        QVERIFY(isEnabled(standard, "pushButton_stop"));
        robot().expectBox(boxTitle, QStringLiteral("No targets could be identified in library"),
                          Box::Ok);
        Drive::click(standard, "pushButton_stop");
        Drive::click(window, "pushButton_exit");
        QVERIFY(!window->isVisible());
    });
}

void tst_Lifetime::stopStaysWithTheSearchThatIsPolled()
{
    TestHost host;
    BodyAdministrationDlg dialog(&host.io, &host.mainWindow, &host.versions);
    open(&dialog, [&](QWidget *window) {
        QWidget *standard = page(window, standardPage);
        Drive::holdTimers(standard);
        Drive::click(standard, "pushButton_start");
        goTo(window, joywandPage);
        Drive::click(window, "pushButton_exit");
        QVERIFY(!isEnabled(page(window, joywandPage), "pushButton_stop"));
        goTo(window, standardPage);
        robot().expectBox(boxTitle, QStringLiteral("No targets could be identified in library"),
                          Box::Ok);
        Drive::click(standard, "pushButton_stop");
    });
}

TRACKING_TEST_MAIN(tst_Lifetime)
#include "tst_lifetime.moc"
