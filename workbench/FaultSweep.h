#pragma once

#include "Script.h"
#include "SweepFaults.h"
#include "SweepRun.h"

#include <QStringList>
#include <QVector>

#include <functional>

class JUnitReport;
class PlayStage;

/** Which operations a sweep disturbs, and with which faults. */
struct SweepPlan {
    int every = 1;              ///< disturbs every Nth operation
    int from = 1;               ///< first operation
    int to = 0;                 ///< last operation; 0: the last one of the script
    bool inTurns = false;       ///< true: one fault for each operation, in turn
    QVector<SweepFault> faults; ///< empty: all faults
};

/**
 * Plays a script once undisturbed, then once for every operation and every fault, and checks after
 * each run the rules that hold for every failure of a controller.
 */
class FaultSweep {
public:
    FaultSweep(const Script &script, PlayStage *stage, const SweepPlan &plan);

    /** `watch` is called before each run with the command that repeats it. */
    void setWatch(const std::function<void(const QString &)> &watch) { m_watch = watch; }
    /** `found` is called with each violation when it is found. */
    void setFound(const std::function<void(const QString &)> &found) { m_found = found; }
    /** False with *error when the undisturbed run does not succeed. */
    bool run(QString *error);
    /** The violations, each with the command that repeats it. */
    const QStringList &violations() const { return m_violations; }
    /** One line: what was played, and how many violations were found. */
    QString summary() const;
    /** Adds one case for each fault. */
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
    QVector<QStringList> m_byFault; ///< the violations of each fault of the plan
};
