#include "DialogOracle.h"
#include "MainWindow.h"
#include "MessageLogDock.h"
#include "ScriptRunner.h"
#include "TimerHold.h"
#include "ToolWindow.h"
#include "WidgetFinder.h"
#include "WorkbenchSession.h"
#include "dialogtest.h"

#include <QAction>
#include <QMenu>
#include <QMenuBar>
#include <QSignalSpy>

#include <memory>

/** Runs scripts with the built plug-in in the default scenario. */
class tst_ScriptRunner : public QObject {
    Q_OBJECT

private slots:
    void init();
    void cleanup();
    void menusComeFromTheModule();
    void measurementDisablesEntries();
    void fitGivesTheOpeningSize();
    void configurationReachesTheModule();
    void succeeds();
    void fails_data();
    void fails();
    void openWindowAtTheEndFails();
    void failingLineLeavesTheRest();
    void secondClientByScript();
    void keysGoToAnyWidget();
    void soundnessIsWatched();
    void soundnessForgivesANameThatAFaultMadeUp();
    void statePaths();
    void tickFiresHeldTimers();
    void oracleSeesForeignChanges();
    void oracleKnowsWhatOlderControllersDoNotAnswer_data();
    void oracleKnowsWhatOlderControllersDoNotAnswer();
    void modalDialogsBlockTheHostOnly();
    void secondClientActsWhileADialogIsOpen();
    void secondClientActsWhileASearchRuns();
    void moduleIsUnloadedAndLoadedAgain();

private:
    /** Runs the text to its end; returns the failure. */
    QString run(const QByteArray &text);

    std::unique_ptr<QTemporaryDir> m_home;
    std::unique_ptr<WorkbenchSession> m_session;
    std::unique_ptr<MainWindow> m_window;
    std::unique_ptr<TimerHold> m_timers;
};

void tst_ScriptRunner::init()
{
    m_home = std::make_unique<QTemporaryDir>();
    qputenv("HOME", m_home->path().toLocal8Bit());
    Scenario scenario;
    scenario.name = QStringLiteral("studio");
    scenario.state = TestHost::scenario(scenario.name);
    m_session = std::make_unique<WorkbenchSession>(scenario);
    m_window = std::make_unique<MainWindow>(m_session.get());
    m_window->show();
    QString error;
    QVERIFY2(m_session->loadModule(QStringLiteral(MODULE_PLUGIN), m_window.get(), &error),
             qPrintable(error));
    m_timers = std::make_unique<TimerHold>();
    for (const _GuiElement *element : m_session->module()->elements())
        m_timers->watch(element->content);
}

void tst_ScriptRunner::cleanup()
{
    m_session->unloadModule();
    m_window.reset();
    m_timers.reset();
    m_session.reset();
}

QString tst_ScriptRunner::run(const QByteArray &text)
{
    Script script;
    QString error;
    if (!Script::parse(text, QStringLiteral("s"), &script, &error))
        return error;
    ScriptContext context;
    context.session = m_session.get();
    context.window = m_window.get();
    context.timers = m_timers.get();
    context.pictureDir = m_home->path();
    ScriptRunner runner(script, context);
    QEventLoop loop;
    connect(&runner, &ScriptRunner::finished, &loop, [&loop] {
        // A dialog that a failed script left open would block the event loop.
        while (QWidget *modal = WidgetFinder::modalWindow())
            modal->hide();
        loop.quit();
    });
    runner.start();
    loop.exec();
    return runner.failure();
}

void tst_ScriptRunner::menusComeFromTheModule()
{
    QStringList menus;
    QStringList entries;
    for (const QAction *menu : m_window->menuBar()->actions())
        menus << menu->text();
    for (const QAction *entry : m_window->menuBar()->actions().first()->menu()->actions())
        entries << entry->text();
    QCOMPARE(menus, QStringList({"&Tracking", "&Workbench"}));
    QCOMPARE(entries, QStringList({"&Single markers", "&Body administration"}));
}

void tst_ScriptRunner::measurementDisablesEntries()
{
    QCOMPARE(run("measurement on\nmenu \"Body administration\"\n"),
             QStringLiteral("s:2: expected the entry \"Body administration\" enabled, found it "
                            "disabled"));
    QCOMPARE(run("measurement off\nmenu \"Body administration\"\nclick pushButton_exit\n"),
             QString());
}

void tst_ScriptRunner::fitGivesTheOpeningSize()
{
    QCOMPARE(run("menu \"Body administration\"\n"
                 "fit 900 500\n"
                 "screenshot bounded\n"
                 "fit 5000 4000\n"
                 "screenshot whole\n"
                 "click pushButton_exit\n"),
             QString());
    const QSize bounded = QImage(m_home->filePath(QStringLiteral("bounded.png"))).size();
    const QSize whole = QImage(m_home->filePath(QStringLiteral("whole.png"))).size();
    QCOMPARE(bounded, QSize(900, 500));
    QVERIFY(whole.width() > bounded.width() && whole.width() < 5000);
    QVERIFY(whole.height() > bounded.height() && whole.height() < 4000);
}

void tst_ScriptRunner::configurationReachesTheModule()
{
    m_session->edit([](ControllerState &state) { state.standardFilter = false; });
    QCOMPARE(run("mark\nmenu \"Configuration changed\"\n"
                 "expect command \"standard filter_bodies yes\"\n"
                 "expect state standardFilter true\n"),
             QString());
}

void tst_ScriptRunner::succeeds()
{
    QCOMPARE(run("oracle on\n"
                 "key F8\n"
                 "expect window \"Body Administration\"\n"
                 "spin spinBox_standard_bodies 9\n"
                 "expect rows tableWidget_standard 9\n"
                 "expect enabled pushButton_start\n"
                 "expect disabled pushButton_stop\n"
                 "expect hidden comboBox_5dofAxis\n"
                 "cell tableWidget_standard 1 ID\n"
                 "screenshot picture\n"
                 "key Escape\n"
                 "expect no-window\n"
                 "expect no-log\n"),
             QString());
    QVERIFY(QFile::exists(m_home->filePath(QStringLiteral("picture.png"))));
    QCOMPARE(m_session->state().bodyTypes[QStringLiteral("standard")].bodies.size(), 9);
}

namespace {

/** Opens the body administration; the next line is line 3. */
const QByteArray opened = QByteArrayLiteral("menu \"Body administration\"\nmark\n");

/** Actions that a user cannot do. */
void inputRows()
{
    QTest::newRow("menu entry") << QByteArray("menu Nothing\n")
                                << "s:1: expected a menu entry \"Nothing\", found ";
    QTest::newRow("key") << QByteArray("key Nokey\n")
                         << "s:1: expected a key such as F8, found \"Nokey\"";
    QTest::newRow("size") << QByteArray("resize 0 400\n")
                          << "s:1: expected a width and a height in pixels, found 0 400";
    QTest::newRow("room") << QByteArray("fit wide 400\n")
                          << "s:1: expected a width and a height in pixels, found wide 400";
    QTest::newRow("no widget") << opened + "click nothing\n"
                               << "s:3: expected a visible widget \"nothing\", found none in the "
                                  "window \"Body Administration\"";
    QTest::newRow("disabled widget")
            << opened + "click pushButton_stop\n"
            << "s:3: expected \"pushButton_stop\" enabled, found it disabled";
    QTest::newRow("another class") << opened + "choose pushButton_exit x\n"
                                   << "s:3: expected a QComboBox \"pushButton_exit\", found a "
                                      "QPushButton";
    QTest::newRow("no entry") << opened + "choose comboBox_filter Nothing\n"
                              << "s:3: expected an entry \"Nothing\", found \"- Found Targets -\"";
    QTest::newRow("no row") << opened + "cell tableWidget_standard 9 ID\n"
                            << "s:3: expected row 9, column \"ID\" in \"tableWidget_standard\", "
                               "found 8 rows and 10 columns";
    QTest::newRow("no row of that text")
            << opened + "cell tableWidget_standard Nobody ID\n"
            << "s:3: expected row Nobody, column \"ID\" in \"tableWidget_standard\", "
               "found 8 rows and 10 columns";
    QTest::newRow("no check box") << opened + "check tableWidget_standard 8 Active\n"
                                  << "s:3: expected a check box in the cell, found none";
    QTest::newRow("not editable") << opened + "type tableWidget_standard 1 ID x\n"
                                  << "s:3: expected the cell to be editable, found no editor in it";
    QTest::newRow("no page") << opened + "page tabWidget Nothing\n"
                             << "s:3: expected a page \"Nothing\", found Standard, ";
    QTest::newRow("no box") << opened + "answer A B OK\n"
                            << "s:3: expected a box \"A: B\", found the window \"Body "
                               "Administration\"";
    QTest::newRow("another box")
            << opened + "cell tableWidget_standard 1 Delete\nanswer MORVEK3 Other Yes\n"
            << "s:4: expected a box \"MORVEK3: Other\", found \"MORVEK3: ";
    QTest::newRow("no such button")
            << opened + "cell tableWidget_standard 1 Delete\nanswer MORVEK3 .* Maybe\n"
            << "s:4: expected a button \"Maybe\", found ";
}

/** Unknown names, and texts that are read. */
void nameRows()
{
    QTest::newRow("mistyped widget") << opened + "click pushButton_exti\n"
                                     << "s:3: expected a visible widget \"pushButton_exti\", found "
                                        "none in the window \"Body "
                                        "Administration\"; did you mean \"pushButton_exit\"?";
    QTest::newRow("mistyped column")
            << opened + "cell tableWidget_standard 1 Nam\n"
            << "s:3: expected row 1, column \"Nam\" in \"tableWidget_standard\", found 8 rows and "
               "10 columns; did you mean \"Name\"?";
    QTest::newRow("key for a disabled widget")
            << opened + "key Space pushButton_stop\n"
            << "s:3: expected \"pushButton_stop\" enabled, found it disabled";
    QTest::newRow("accessible name")
            << opened + "expect a11y pushButton_exit Leave\n"
            << "s:3: expected pushButton_exit read out as \"Leave\", found \"";
    QTest::newRow("no message line")
            << QByteArray("expect message Hello\n")
            << "s:1: expected a visible widget \"messageLine\", found it hidden in the window ";
}

/** Expectations that do not hold. */
void expectationRows()
{
    QTest::newRow("text") << opened + "expect text spinBox_standard_bodies 7\n"
                          << "s:3: expected spinBox_standard_bodies \"7\", found \"8\"";
    QTest::newRow("row by its text") << opened + "expect cell tableWidget_standard Cap ID 2\n"
                                     << "s:3: expected row Cap, ID, \"2\", found \"1\"";
    QTest::newRow("cell") << opened + "expect cell tableWidget_standard 1 Name Hat\n"
                          << "s:3: expected row 1, Name, \"Hat\", found \"Cap\"";
    QTest::newRow("rows") << opened + "expect rows tableWidget_standard 7\n"
                          << "s:3: expected rows \"7\", found \"8\"";
    QTest::newRow("state") << QByteArray("expect state model OTHER\n")
                           << "s:1: expected model \"OTHER\", found \"STUDIO4\"";
    QTest::newRow("no state") << QByteArray("expect state nothing.here x\n")
                              << "s:1: expected a value at \"nothing.here\", found none";
    QTest::newRow("no command") << opened + "expect command \"body x\"\n"
                                << "s:3: expected the command \"body x\", found nothing";
    QTest::newRow("command") << QByteArray("mark\nmenu \"Body administration\"\n"
                                           "expect no-command \"config is_changeable\"\n")
                             << "s:3: expected no command \"config is_changeable\", found it";
    QTest::newRow("writes")
            << opened + "check tableWidget_standard 1 Active\nexpect writes\n"
            << "s:4: expected exactly nothing, found \"body active standard b01 no\"";
    QTest::newRow("log") << opened + "expect log \"Error:\"\n"
                         << "s:3: expected a log line \"Error:\", found nothing";
    QTest::newRow("no log") << QByteArray("mark\nfault \"config is_changeable fail\"\n"
                                          "fault \"body type_desc* fail\"\n"
                                          "fault \"set body active* refuse\"\n"
                                          "menu \"Body administration\"\n"
                                          "check tableWidget_standard 1 Active\nexpect no-log\n")
                            << "s:7: expected no log line, found \"Error: Unable to ";
    QTest::newRow("window") << QByteArray("expect window Nothing\n")
                            << "s:1: expected a window \"Nothing\", found ";
    QTest::newRow("no window") << opened + "expect no-window\n"
                               << "s:3: expected no open window, found the window \"Body "
                                  "Administration\"";
    QTest::newRow("enabled") << opened + "expect disabled pushButton_start\n"
                             << "s:3: expected \"pushButton_start\" disabled, found it enabled";
    QTest::newRow("hidden") << opened + "expect hidden pushButton_start\n"
                            << "s:3: expected \"pushButton_start\" hidden, found it visible";
    QTest::newRow("fired") << QByteArray("fault \"status active fail\"\nexpect fired 1 2\n")
                           << "s:2: expected firings of rule 1 \"2\", found \"0\"";
    QTest::newRow("time") << QByteArray("mark\ntick 2\nexpect within 1199\n")
                          << "s:3: expected at most 1199 ms, found 1200 ms";
}

/** Values that the controller cannot have. */
void controllerRows()
{
    QTest::newRow("fault") << QByteArray("fault \"* explode\"\n") << "s:1: column ";
    QTest::newRow("fault number") << QByteArray("fault-off 1\n")
                                  << "s:1: expected a rule from 1 to 0, found \"1\"";
    QTest::newRow("link") << QByteArray("link maybe\n")
                          << "s:1: expected \"dead\" or \"back\", found \"maybe\"";
    QTest::newRow("target") << QByteArray("volume XX99 in\n")
                            << "s:1: expected a target's short name, found \"XX99\"";
    QTest::newRow("set") << QByteArray("set configChangeable maybe\n")
                         << "s:1: expected a value like \"true\" for \"configChangeable\", found "
                            "\"maybe\"";
    QTest::newRow("count") << QByteArray("count standard 21\n")
                           << "s:1: expected a count from 0 to 20, found \"21\"";
    QTest::newRow("delete") << QByteArray("delete standard 9\n")
                            << "s:1: expected a body from 1 to 8, found \"9\"";
    QTest::newRow("rename") << QByteArray("rename standard 1 \"a\\\"b\"\n")
                            << "s:1: expected a name, found a description cannot hold a quote sign";
    QTest::newRow("swap") << QByteArray("swap standard 1 9\n")
                          << "s:1: expected two bodies from 1 to 8, found 1 and 9";
    QTest::newRow("restart") << QByteArray("restart new\n")
                             << "s:1: expected a version such as 1.24, found \"new\"";
    QTest::newRow("screenshot") << QByteArray("screenshot no/such/folder/x\n")
                                << "s:1: expected to write ";
}

} // namespace

void tst_ScriptRunner::fails_data()
{
    QTest::addColumn<QByteArray>("text");
    QTest::addColumn<QString>("failure");
    inputRows();
    nameRows();
    expectationRows();
    controllerRows();
}

void tst_ScriptRunner::fails()
{
    QFETCH(QByteArray, text);
    QFETCH(QString, failure);
    const QString found = run(text);
    QVERIFY2(found.startsWith(failure), qPrintable(found));
}

void tst_ScriptRunner::openWindowAtTheEndFails()
{
    QCOMPARE(run("menu \"Single markers\"\n"),
             QStringLiteral("s:end: expected no open window, found the window \"Single Markers\""));
}

void tst_ScriptRunner::failingLineLeavesTheRest()
{
    const QString failure = run("expect state model OTHER\nset model CHANGED\n");
    QVERIFY(failure.startsWith(QStringLiteral("s:1: ")));
    QCOMPARE(m_session->state().model, QStringLiteral("STUDIO4"));
}

void tst_ScriptRunner::secondClientByScript()
{
    QCOMPARE(run("count standard 9\nrename standard 9 \"Bench top\"\nswap standard 9 1\n"
                 "expect state bodyTypes.standard.bodies[0].description \"Bench top\"\n"
                 "delete standard 1\n"
                 "expect state bodyTypes.standard.bodies[0].description \"\"\n"
                 "fault \"* fail\"\nno-faults\nmenu \"Single markers\"\n"
                 "click pushButton_cancel\nexpect no-log\n"),
             QString());
}

void tst_ScriptRunner::keysGoToAnyWidget()
{
    QCOMPARE(run("menu \"Body administration\"\n"
                 "expect a11y pushButton_exit Exit\n"
                 "mark\n"
                 "key Up spinBox_standard_bodies\n"
                 "expect writes \"standard number_of_bodies 9\"\n"
                 "key Space pushButton_exit\n"
                 "expect no-window\n"),
             QString());
}

void tst_ScriptRunner::soundnessIsWatched()
{
    QCOMPARE(run("sound on\nmenu \"Body administration\"\nclick pushButton_exit\n"), QString());
    m_session->edit([](ControllerState &changed) {
        changed.trackingReference = QStringLiteral("standard b99");
    });
    QCOMPARE(run("mark\nsound on\n"),
             QStringLiteral("s:2: expected a sound controller, found state.trackingReference: "
                            "expected type and number of a body, such as \"standard b03\", found "
                            "\"standard b99\""));
}

/** The dialog has to ask about a preset by the name that it was given. */
void tst_ScriptRunner::soundnessForgivesANameThatAFaultMadeUp()
{
    QCOMPARE(run("sound on\nmenu \"Body administration\"\n"
                 "fault \"get filter6d preset_id* answer \\\"odd name\\\"\"\nmark\n"
                 "click pushButton_filter\nexpect command \"filter6d preset_desc odd name\"\n"
                 "click pushButton_exit\nclick pushButton_exit\n"),
             QString());
}

void tst_ScriptRunner::statePaths()
{
    QCOMPARE(run("set bodyTypes.standard.bodies[0].description Hat\n"
                 "expect state bodyTypes.standard.bodies[0].description Hat\n"
                 "set configChangeable false\n"
                 "expect state configChangeable false\n"
                 "set inertialFrequency 120.5\n"
                 "expect state inertialFrequency 120.5\n"
                 "expect state axis5dofCentral \"[0,0,1]\"\n"
                 "swap standard 1 2\n"
                 "expect state bodyTypes.standard.bodies[1].description Hat\n"),
             QString());
}

void tst_ScriptRunner::tickFiresHeldTimers()
{
    QTimer *poll = new QTimer(m_session->module()->elements().first()->content);
    QSignalSpy spy(poll, &QTimer::timeout);
    poll->start(600);
    QCOMPARE(m_timers->tick(), QVector<int>{600});
    QCOMPARE(spy.count(), 1);
    poll->stop();
    QCOMPARE(m_timers->tick(), QVector<int>{});
    QCOMPARE(spy.count(), 1);
    // A held timer does not fire, however late it is.
    poll->start(600);
    QTimerEvent event(poll->timerId());
    QCoreApplication::sendEvent(poll, &event);
    QCOMPARE(spy.count(), 1);
    // Short timers and timers of other objects are not held.
    QTimer other;
    QSignalSpy otherSpy(&other, &QTimer::timeout);
    other.start(600);
    QTimerEvent otherEvent(other.timerId());
    QCoreApplication::sendEvent(&other, &otherEvent);
    QCOMPARE(otherSpy.count(), 1);
}

void tst_ScriptRunner::oracleSeesForeignChanges()
{
    const QString failure = run("oracle on\n"
                                "menu \"Body administration\"\n"
                                "set bodyTypes.standard.bodies[0].description Foreign\n"
                                "click pushButton_exit\n");
    QCOMPARE(failure,
             QStringLiteral("s:3: expected the dialog to agree with the controller, found "
                            "tableWidget_standard row 1 Name: shows \"Cap\", the controller holds "
                            "\"Foreign\""));
    QVERIFY(DialogOracle::differences(m_session->state(), nullptr).isEmpty());
    const QString device = run("oracle on\n"
                               "menu \"Body administration\"\n"
                               "page tabWidget Joywand\n"
                               "set devices[0].serial 99\n"
                               "click pushButton_exit\n");
    QCOMPARE(device, QStringLiteral("s:4: expected the dialog to agree with the controller, found "
                                    "tableWidget_joywand row 1 Serial: shows \"00417\", the "
                                    "controller holds \"00099\""));
    const QString sensor = run("oracle on\n"
                               "menu \"Body administration\"\n"
                               "page tabWidget Standard\n"
                               "set sensors[0].modelDescription Foreign\n"
                               "click pushButton_exit\n");
    QVERIFY2(sensor.contains(QStringLiteral(" Model: shows \"")), qPrintable(sensor));
    const QString mode = run("menu \"Body administration\"\n"
                             "cell tableWidget_standard 1 Filter\n"
                             "oracle on\n"
                             "set bodyTypes.standard.bodies[0].filterMode reference_target\n"
                             "click pushButton_exit\n");
    QVERIFY2(mode.contains(QStringLiteral("comboBox_mode: shows \"Adaptive fast\"")),
             qPrintable(mode));
    const QString axis = run("oracle on\nmenu \"Single markers\"\nchoose comboBox_5dofAxis x\n");
    QCOMPARE(axis, QStringLiteral("s:3: expected the dialog to agree with the controller, found "
                                  "comboBox_5dofAxis: shows \"x\", the controller holds \"z\""));
}

void tst_ScriptRunner::oracleKnowsWhatOlderControllersDoNotAnswer_data()
{
    QTest::addColumn<QByteArray>("script");
    const QByteArray opened = "oracle on\nmenu \"Body administration\"\n";
    QTest::newRow("reference") << QByteArray("expect state trackingReference \"standard b03\"\n"
                                             "restart 1.21\n")
                                          + opened + "expect rows tableWidget_standard 8\n";
    QTest::newRow("target of a body")
            << QByteArray("restart 1.10\n") + opened
                       + "page tabWidget Joywand\n"
                         "select tableWidget_joywand 1\n"
                         "click pushButton_deselect\n"
                         "answer MORVEK3 \"Delete geometry of.*\" Yes\n"
                         "expect state bodyTypes.joywand.bodies[0].calibrated false\n";
    QTest::newRow("preset of a body with a sensor")
            << QByteArray("restart 1.12\n") + opened
                       + "select tableWidget_standard 4\n"
                         "click pushButton_filter\n"
                         "expect text comboBox_preset \"\"\n"
                         "click pushButton_exit\n";
}

void tst_ScriptRunner::oracleKnowsWhatOlderControllersDoNotAnswer()
{
    QFETCH(QByteArray, script);
    QCOMPARE(run(script + "click pushButton_exit\n"), QString());
}

void tst_ScriptRunner::modalDialogsBlockTheHostOnly()
{
    const QString blocked = run("menu \"Body administration\"\nmenu \"Single markers\"\n");
    QCOMPARE(blocked, QStringLiteral("s:2: expected the menu to take input, found it blocked by "
                                     "the window \"Body Administration\""));
}

void tst_ScriptRunner::secondClientActsWhileADialogIsOpen()
{
    m_window->toolWindow()->show();
    QCOMPARE(run("menu \"Body administration\"\n"
                 "text lineEdit_clientName Foreign\n"
                 "click pushButton_clientRename\n"
                 "expect state bodyTypes.standard.bodies[0].description Foreign\n"
                 "click pushButton_clientLock\n"
                 "expect state configChangeable false\n"
                 "click pushButton_clientConfiguration\n"
                 "expect window \"Body Administration\"\n"
                 "click pushButton_exit\n"
                 "expect no-window\n"),
             QString());
}

void tst_ScriptRunner::secondClientActsWhileASearchRuns()
{
    m_window->toolWindow()->show();
    QCOMPARE(run("menu \"Body administration\"\n"
                 "click pushButton_start\n"
                 "tick 2\n"
                 "volume HM03 in\n"
                 "text lineEdit_clientProtocol 1.24\n"
                 "click pushButton_clientRestart\n"
                 "tick 2\n"
                 "answer MORVEK3 \".*targets? could be identified in library\" OK\n"
                 "expect enabled pushButton_start\n"
                 "expect log \"target library calibration stopped\"\n"
                 "click pushButton_exit\n"
                 "expect no-window\n"),
             QString());
}

void tst_ScriptRunner::moduleIsUnloadedAndLoadedAgain()
{
    QCOMPARE(run("unload\n"), QString());
    QVERIFY(!m_session->module()->isLoaded());
    QCOMPARE(m_session->io()->receiverCount("GlobalEvent"), 0);
    QCOMPARE(m_window->menuBar()->actions().size(), 1);
    QString error;
    QVERIFY2(m_session->loadModule(QStringLiteral(MODULE_PLUGIN), m_window.get(), &error),
             qPrintable(error));
    QCOMPARE(run("menu \"Body administration\"\nclick pushButton_exit\n"), QString());
}

TRACKING_TEST_MAIN(tst_ScriptRunner)
#include "tst_scriptrunner.moc"
