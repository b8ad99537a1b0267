#pragma once

#include "FaultSweep.h"

#include <QString>
#include <QStringList>

/** The workbench's command line. */
struct WorkbenchOptions {
    QString scenario = QStringLiteral("studio"); ///< name of a shipped scenario, or a file
    /// false lets a demonstration's own scenario replace it
    bool scenarioGiven = false;
    QString pluginFile; ///< empty: the built or installed plug-in
    QString tourDir;    ///< folder for the tour's pictures and transcript
    QString tourScript; ///< the part of the tour to play; set by the program, not by an option
    QStringList faults; ///< rules, added after those of the scenario
    QString scriptFile;
    QString demo; ///< name of a shipped demonstration, or a file
    bool headless = false;
    QString sweepFile; ///< script to play with every fault at every operation
    SweepPlan sweepPlan;
    QString explore;           ///< one seed, or the first and the last one with a dash
    int steps = 300;           ///< number of actions for each seed
    QString exploreInto;       ///< file for the lines of the seed that this process drives
    QString scenarioCheckFile; ///< scenario to check and print
    QString junitFile;         ///< file for the results, for build servers
    QString recordFile;
    QString replayFile;
    QStringList transcriptDiff;   ///< two files, or empty
    int latencyMs = 0;            ///< duration of each operation, 0 to 500
    int timeoutS = 120;           ///< limit for each line of a script, 1 to 3600
    int transcriptLimit = 200000; ///< 100 to 10,000,000 operations
    bool help = false;
    bool version = false;

    /** True when a script runs that reports success or failure and waits for no person. */
    bool isScripted() const
    {
        return headless || !tourDir.isEmpty() || !scriptFile.isEmpty() || !sweepFile.isEmpty()
               || !explore.isEmpty();
    }
    /** True when the program only reads or writes files. */
    bool needsNoWindow() const { return !transcriptDiff.isEmpty() || !scenarioCheckFile.isEmpty(); }

    /**
     * Reads the arguments that follow the program's name.
     *
     * @return false with *error naming the option and what was expected
     */
    static bool parse(const QStringList &arguments, WorkbenchOptions *options, QString *error);
    /** All options, each with one line of explanation. */
    static QString helpText();
};
