#pragma once

#include "Exploration.h"
#include "Script.h"
#include "WorkbenchOptions.h"

#include <QString>
#include <QStringList>

#include <memory>

class Dress;
class MainWindow;
class QTemporaryDir;
class Recorder;
class Replayer;
class ScriptRunner;
class ScriptWatchdog;
struct Scenario;
class TimerHold;
class WorkbenchSession;

/**
 * The program behind main(): it sets up the session and the windows for the options, runs them and
 * returns an exit status. It is on main()'s stack, after the application object.
 */
class WorkbenchProgram {
public:
    explicit WorkbenchProgram(const WorkbenchOptions &options);
    ~WorkbenchProgram();

    /** 0 when done, 1 when an expectation failed, 2 when the input cannot be used. */
    int run();
    /** What is wrong with the script or the scenario; can be called without a display. */
    QString inputProblem();

private:
    /** Each of these returns false, with *error, when the input cannot be used. */
    bool loadScript(QString *error);
    bool prepareHome(QString *error);
    bool loadScenario(Scenario *scenario, QString *error) const;
    bool createSession(QString *error);
    bool startRecording(QString *error);
    bool dress(QString *error);
    bool openWindows(QString *error);
    bool setTheStage(QString *error);

    int compareRecordings();
    int checkScenario();
    int runSweep();
    bool readExploration(Exploration::Request *request, QString *error) const;
    int drive(const Exploration::Request &request);
    QString pluginFile() const;
    bool writeJUnit(QString *error) const;

    int runScripted();
    int runInteractive();
    bool writeTourResults(QString *error) const;
    void shutDown();

    WorkbenchOptions m_options;
    Script m_script;
    std::unique_ptr<Dress> m_dress; ///< outlives the windows that use it
    QStringList m_rules;            ///< fault rules of the scenario and of the command line
    std::unique_ptr<QTemporaryDir> m_home;
    std::unique_ptr<WorkbenchSession> m_session;
    std::unique_ptr<Recorder> m_recorder;
    std::unique_ptr<Replayer> m_replayer;
    std::unique_ptr<MainWindow> m_window;
    std::unique_ptr<TimerHold> m_timers;
    std::unique_ptr<ScriptRunner> m_runner;
    std::unique_ptr<ScriptWatchdog> m_watchdog; ///< exists only while no person watches
};
