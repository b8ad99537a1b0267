#pragma once

#include "FaultSweep.h"

#include <QString>
#include <QStringList>

/** What the command line asks of the workbench. */
struct WorkbenchOptions {
    QString scenario = QStringLiteral("studio"); ///< name of a shipped scenario, or a file
    bool scenarioGiven = false;                  ///< a demonstration's own scenario gives way
    QString pluginFile;                          ///< empty: the built or installed plug-in
    QString tourDir;                             ///< folder for the tour's pictures and transcript
    QString tourScript; ///< the part of the tour to play; set by the program, not by an option
    QStringList faults; ///< rules, added after those of the scenario
    QString scriptFile;
    QString demo; ///< name of a shipped demonstration, or a file
    bool headless = false;
    QString sweepFile; ///< script to play with every fault at every operation
    SweepPlan sweepPlan;
    QString explore;           ///< seed, or first and last seed with a dash, of random driving
    int steps = 300;           ///< actions for each seed
    QString exploreInto;       ///< file for the lines of the seed that is driven in this process
    QString scenarioCheckFile; ///< scenario to check and print
    QString junitFile;         ///< results for build servers
    QString recordFile;
    QString replayFile;
    QStringList transcriptDiff;   ///< two files, or empty
    int latencyMs = 0;            ///< 0 to 500, per command
    int timeoutS = 120;           ///< 1 to 3600, per line of a script
    int transcriptLimit = 200000; ///< 100 to 10,000,000 operations
    bool help = false;
    bool version = false;

    /** Runs a script that reports success or failure instead of waiting for a person. */
    bool isScripted() const
    {
        return headless || !tourDir.isEmpty() || !scriptFile.isEmpty() || !sweepFile.isEmpty()
               || !explore.isEmpty();
    }
    /** Reads or writes files only. */
    bool needsNoWindow() const { return !transcriptDiff.isEmpty() || !scenarioCheckFile.isEmpty(); }

    /**
     * Reads the arguments that follow the program's name.
     *
     * @return false with *error naming the option and what was expected
     */
    static bool parse(const QStringList &arguments, WorkbenchOptions *options, QString *error);
    /** All options with one line of meaning each. */
    static QString helpText();
};
