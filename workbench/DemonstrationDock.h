#pragma once

#include "Script.h"
#include "ScriptContext.h"

#include <QDockWidget>

#include <memory>

class QLabel;
class QPushButton;
class ScriptRunner;
class TimerHold;

/** Tells what to try in a demonstration, and plays and checks it on demand. */
class DemonstrationDock : public QDockWidget {
    Q_OBJECT

public:
    /** @param context what the script acts on; its timers are held only while it plays */
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
