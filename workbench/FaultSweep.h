#pragma once

#include "Script.h"
#include "SweepFaults.h"
#include "SweepRun.h"

#include <QStringList>
#include <QVector>

#include <functional>

class JUnitReport;
class PlayStage;

/** Which operations a sweep disturbs, and how. */
struct SweepPlan {
    int every = 1;              ///< every how many operations
    int from = 1;               ///< first operation
    int to = 0;                 ///< last operation; 0: the script's last one
    bool inTurns = false;       ///< one fault for each operation, one after another
    QVector<SweepFault> faults; ///< empty: all
};

/**
 * Plays a script once undisturbed, then once for every operation and every fault, and checks each
 * time what must hold however a controller fails.
 */
class FaultSweep {
public:
    FaultSweep(const Script &script, PlayStage *stage, const SweepPlan &plan);

    /** Is called with the way to repeat a run before it begins. */
    void setWatch(const std::function<void(const QString &)> &watch) { m_watch = watch; }
    /** Is called with each violation when it is found. */
    void setFound(const std::function<void(const QString &)> &found) { m_found = found; }
    /** False with *error when the script does not succeed undisturbed. */
    bool run(QString *error);
    /** Each with the command that repeats it. */
    const QStringList &violations() const { return m_violations; }
    /** One line: what was played, and what was found. */
    QString summary() const;
    /** One case for each fault. */
    void report(JUnitReport *report) const;

private:
    bool playUndisturbed(QString *error);
    bool playDisturbed(int operation, const SweepFault &fault, QString *error);
    QString repetition(int operation, const SweepFault &fault) const;
    const TranscriptEntry &operationAt(int operation) const;

    Script m_script;
    PlayStage *m_stage;
    SweepPlan m_plan;
    std::function<void(const QString &)> m_watch;
    std::function<void(const QString &)> m_found;
    QVector<SweepStep> m_undisturbed;
    int m_operations = 0;
    int m_runs = 0;
    QStringList m_violations;
    QVector<QStringList> m_byFault; ///< violations of each fault of the plan
};
