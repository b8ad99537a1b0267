#pragma once

#include "ScenarioFile.h"
#include "ScriptContext.h"

#include <QString>
#include <QStringList>

#include <memory>

class QEventLoop;
class LineRunner;

/**
 * The surroundings in which a script is played many times: each time the controller, the module,
 * the message log and the home folder are in their initial state. The session and the window
 * outlive it.
 */
class PlayStage {
public:
    /**
     * @param plugin file of the module
     * @param rules fault rules that belong to the scenario
     */
    PlayStage(WorkbenchSession *session, MainWindow *window, const QString &plugin,
              const QStringList &rules);
    ~PlayStage();

    /** Sets everything up again; `rule` is in force before the module is loaded. */
    bool reset(const QString &rule, QString *error);
    /** Plays to the end and closes the windows that the runner left open. */
    void play(LineRunner *runner);
    ScriptContext context() const;
    WorkbenchSession *session() const { return m_session; }

private:
    WorkbenchSession *m_session;
    MainWindow *m_window;
    QString m_plugin;
    QStringList m_rules;
    ControllerState m_initial;
    std::unique_ptr<TimerHold> m_timers;
};
