#pragma once

#include "Script.h"
#include "ScriptContext.h"

#include <QDockWidget>

#include <memory>

class QLabel;
class QPushButton;
class ScriptRunner;
class TimerHold;

/** Shows what to try in a demonstration, and plays and checks it when a button is pressed. */
class DemonstrationDock : public QDockWidget {
    Q_OBJECT

public:
    /**
     * @param context the objects that the script uses; their timers are held only while it plays
     */
    DemonstrationDock(const Script &script, const ScriptContext &context,
                      QWidget *parent = nullptr);
    ~DemonstrationDock() override;

private:
    void play();
    void showOutcome();

    Script m_script;
    ScriptContext m_context;
    std::unique_ptr<TimerHold> m_timers;
    std::unique_ptr<ScriptRunner> m_runner;
    QPushButton *m_play;
    QLabel *m_outcome;
};
