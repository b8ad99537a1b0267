#include "PlayStage.h"

#include "FaultEngine.h"
#include "LineRunner.h"
#include "MainWindow.h"
#include "MessageLogDock.h"
#include "TimerHold.h"
#include "ToolWindow.h"
#include "WidgetFinder.h"
#include "WorkbenchSession.h"

#include <QDir>
#include <QEventLoop>
#include <QWidget>

PlayStage::PlayStage(WorkbenchSession *session, MainWindow *window, const QString &plugin,
                     const QStringList &rules)
    : m_session(session),
      m_window(window),
      m_plugin(plugin),
      m_rules(rules),
      m_initial(session->state())
{
    // The panels are not watched during the plays, and painting them takes most of the time.
    window->toolWindow()->hide();
}

PlayStage::~PlayStage() = default;

bool PlayStage::reset(const QString &rule, QString *error)
{
    m_session->unloadModule();
    m_timers = std::make_unique<TimerHold>();
    SimulatedIOManager *io = m_session->io();
    io->faults()->clear();
    io->faults()->setLinkDead(false);
    io->clearTranscript();
    m_window->messageLog()->clear();
    m_session->setMeasurementRunning(false);
    m_session->controller()->setState(m_initial);
    // Each play begins without preferences; the home folder is a temporary one.
    for (const QString &entry :
         QDir::home().entryList(QDir::Dirs | QDir::Files | QDir::Hidden | QDir::NoDotAndDotDot)) {
        QDir(QDir::home().filePath(entry)).removeRecursively();
        QDir::home().remove(entry);
    }
    for (const QString &one : m_rules + QStringList{rule}) {
        if (!one.isEmpty() && !m_session->addFault(one, error))
            return false;
    }
    if (!m_session->loadModule(m_plugin, m_window, error))
        return false;
    for (const _GuiElement *element : m_session->module()->elements())
        m_timers->watch(element->content);
    return true;
}

void PlayStage::play(LineRunner *runner)
{
    QEventLoop loop;
    QObject::connect(runner, &LineRunner::finished, &loop, [&loop] {
        while (QWidget *modal = WidgetFinder::modalWindow())
            modal->hide();
        loop.quit();
    });
    runner->start();
    loop.exec();
}

ScriptContext PlayStage::context() const
{
    ScriptContext context;
    context.session = m_session;
    context.window = m_window;
    context.timers = m_timers.get();
    return context;
}
