#include "DemonstrationDock.h"
#include "MainWindow.h"
#include "OracleDock.h"
#include "ToolWindow.h"
#include "WidgetFinder.h"
#include "WorkbenchSession.h"
#include "dialogtest.h"

#include <QAction>
#include <QCheckBox>
#include <QLabel>
#include <QPlainTextEdit>
#include <QPushButton>

#include <memory>

/** The docks that need the module: demonstrations and differences. */
class tst_Demonstration : public QObject {
    Q_OBJECT

private slots:
    void init();
    void cleanup();
    void tellsAndPlays();
    void playsAgain();
    void showsTheFailedLine();
    void waitsForTheOpenDialog();
    void timersRunFreeAfterwards();
    void differencesOnDemand();
    void differencesAfterEachAction();

private:
    void show(const QByteArray &text);
    QString outcome() const;
    void play();
    /** Opens the tracking settings and calls `work` while they are open. */
    void whileSettingsAreOpen(const std::function<void()> &work);

    std::unique_ptr<QTemporaryDir> m_home;
    std::unique_ptr<WorkbenchSession> m_session;
    std::unique_ptr<MainWindow> m_window;
};

void tst_Demonstration::init()
{
    m_home = std::make_unique<QTemporaryDir>();
    qputenv("HOME", m_home->path().toLocal8Bit());
    Scenario scenario;
    scenario.name = QStringLiteral("studio");
    scenario.state = TestHost::scenario(scenario.name);
    m_session = std::make_unique<WorkbenchSession>(scenario);
    m_window = std::make_unique<MainWindow>(m_session.get());
    m_window->show();
    m_window->toolWindow()->show();
    QString error;
    QVERIFY2(m_session->loadModule(QStringLiteral(MODULE_PLUGIN), m_window.get(), &error),
             qPrintable(error));
}

void tst_Demonstration::cleanup()
{
    m_session->unloadModule();
    m_window.reset();
    m_session.reset();
}

void tst_Demonstration::show(const QByteArray &text)
{
    Script script;
    QString error;
    QVERIFY2(Script::parse(text, QStringLiteral("s"), &script, &error), qPrintable(error));
    ScriptContext context;
    context.session = m_session.get();
    context.window = m_window.get();
    m_window->toolWindow()->showDemonstration(script, context);
    // The event loop shows a dock that is added later.
    QTRY_VERIFY(Drive::find<QPushButton>(m_window->toolWindow(), "pushButton_playDemonstration")
                        ->isVisible());
}

QString tst_Demonstration::outcome() const
{
    return Drive::find<QLabel>(m_window->toolWindow(), "label_demonstrationOutcome")->text();
}

void tst_Demonstration::play()
{
    Drive::click(m_window->toolWindow(), "pushButton_playDemonstration");
}

void tst_Demonstration::whileSettingsAreOpen(const std::function<void()> &work)
{
    bool wasOpen = false;
    QTimer::singleShot(0, this, [&] {
        wasOpen = WidgetFinder::modalWindow() != nullptr;
        work();
        if (wasOpen)
            QTest::keyClick(WidgetFinder::modalWindow(), Qt::Key_Escape);
    });
    m_session->module()->elements().first()->menu_entry->trigger();
    QVERIFY(wasOpen);
}

void tst_Demonstration::tellsAndPlays()
{
    show("tell \"Try this.\"\ntell \"And that.\"\nbegin\n"
         "menu \"Single markers\"\nclick checkBox_force3d\nclick pushButton_ok\n"
         "expect state calculateMarker true\n");
    QCOMPARE(Drive::find<QLabel>(m_window->toolWindow(), "label_demonstration")->text(),
             QStringLiteral("Try this.\n\nAnd that."));
    QCOMPARE(outcome(), QString());
    play();
    QCOMPARE(outcome(), QStringLiteral("playing"));
    QTRY_COMPARE(outcome(), QStringLiteral("Played; every check was met."));
    QVERIFY(m_session->state().calculateMarker);
}

void tst_Demonstration::playsAgain()
{
    show("tell \"Toggle.\"\nbegin\nmenu \"Single markers\"\nclick checkBox_force3d\n"
         "click pushButton_ok\n");
    for (const bool expected : {true, false}) {
        play();
        QTRY_COMPARE(outcome(), QStringLiteral("Played; every check was met."));
        QCOMPARE(m_session->state().calculateMarker, expected);
    }
}

void tst_Demonstration::showsTheFailedLine()
{
    show("tell \"Fails.\"\nbegin\nexpect state model OTHER\n");
    play();
    QTRY_COMPARE(outcome(), QStringLiteral("s:3: expected model \"OTHER\", found \"STUDIO4\""));
    QVERIFY(Drive::find<QPushButton>(m_window->toolWindow(), "pushButton_playDemonstration")
                    ->isEnabled());
}

void tst_Demonstration::waitsForTheOpenDialog()
{
    show("tell \"Waits.\"\nbegin\nset model CHANGED\n");
    whileSettingsAreOpen([this] {
        play();
        QCOMPARE(outcome(), QStringLiteral("Close the open dialog first."));
    });
    QCOMPARE(m_session->state().model, QStringLiteral("STUDIO4"));
}

void tst_Demonstration::timersRunFreeAfterwards()
{
    show("tell \"Done.\"\nbegin\nmark\n");
    play();
    QTRY_COMPARE(outcome(), QStringLiteral("Played; every check was met."));
    QTimer poll(m_session->module()->elements().first()->content);
    QSignalSpy spy(&poll, &QTimer::timeout);
    poll.start(600);
    QTimerEvent event(poll.timerId());
    QCoreApplication::sendEvent(&poll, &event);
    QCOMPARE(spy.count(), 1);
}

void tst_Demonstration::differencesOnDemand()
{
    OracleDock dock(m_session.get());
    dock.show();
    const auto *text = Drive::find<QPlainTextEdit>(&dock, "plainTextEdit_oracle");
    Drive::click(&dock, "pushButton_compareNow");
    QCOMPARE(text->toPlainText(), QStringLiteral("no dialog is open"));
    whileSettingsAreOpen([&] {
        Drive::click(&dock, "pushButton_compareNow");
        QCOMPARE(text->toPlainText(), QStringLiteral("no difference"));
        m_session->edit([](ControllerState &state) { state.calculateMarker = true; });
        Drive::click(&dock, "pushButton_compareNow");
        QCOMPARE(text->toPlainText(),
                 QStringLiteral("checkBox_force3d: shows \"unchecked\", the controller holds "
                                "\"checked\""));
    });
}

void tst_Demonstration::differencesAfterEachAction()
{
    OracleDock dock(m_session.get());
    dock.show();
    const auto *text = Drive::find<QPlainTextEdit>(&dock, "plainTextEdit_oracle");
    char answer[200];
    m_session->io()->get_string(answer, "status active");
    QCoreApplication::processEvents();
    QCOMPARE(text->toPlainText(), QString());
    Drive::click(&dock, "checkBox_compareAlways");
    m_session->io()->get_string(answer, "status active");
    QTRY_COMPARE(text->toPlainText(), QStringLiteral("no dialog is open"));
}

TRACKING_TEST_MAIN(tst_Demonstration)
#include "tst_demonstration.moc"
