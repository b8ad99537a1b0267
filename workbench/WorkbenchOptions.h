#pragma once

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
    QString recordFile;
    QString replayFile;
    QStringList transcriptDiff; ///< two files, or empty
    int latencyMs = 0;          ///< 0 to 500, per command
    int timeoutS = 120;         ///< 1 to 3600, per line of a script
    bool help = false;
    bool version = false;

    /** Runs a script that reports success or failure instead of waiting for a person. */
    bool isScripted() const { return headless || !tourDir.isEmpty() || !scriptFile.isEmpty(); }

    /**
     * Reads the arguments that follow the program's name.
     *
     * @return false with *error naming the option and what was expected
     */
    static bool parse(const QStringList &arguments, WorkbenchOptions *options, QString *error);
    /** All options with one line of meaning each. */
    static QString helpText();
};
