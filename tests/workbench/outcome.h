#pragma once

#include <QProcess>

/** The longest duration of a run of the program. */
constexpr int patienceMs = 120000;

/** The exit status and the output of a run of the program. */
struct Outcome {
    int status = -1; ///< -1 when it did not end, -2 after a crash
    QString out;
    QString err;
};

/** Waits for the end of a process that was started. */
inline Outcome outcomeOf(QProcess &process)
{
    Outcome outcome;
    if (!process.waitForFinished(patienceMs))
        return outcome;
    outcome.status = process.exitStatus() == QProcess::NormalExit ? process.exitCode() : -2;
    outcome.out = QString::fromUtf8(process.readAllStandardOutput());
    outcome.err = QString::fromUtf8(process.readAllStandardError());
    return outcome;
}
