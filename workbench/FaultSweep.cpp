#include "FaultSweep.h"

#include "JUnitReport.h"
#include "PlayStage.h"
#include "SweepChecks.h"
#include "WorkbenchSession.h"

FaultSweep::FaultSweep(const Script &script, PlayStage *stage, const SweepPlan &plan)
    : m_script(script), m_stage(stage), m_plan(plan)
{
    if (m_plan.faults.isEmpty())
        m_plan.faults = SweepFaults::all();
    m_byFault.resize(m_plan.faults.size());
}

bool FaultSweep::playUndisturbed(QString *error)
{
    const qint64 before = m_stage->session()->io()->operationCount();
    if (!m_stage->reset(QString(), error))
        return false;
    SweepRun run(m_script, m_stage->context(), false, before);
    m_stage->play(&run);
    *error = run.failure();
    if (error->isEmpty() && !run.violations().isEmpty())
        *error = run.violations().join(QStringLiteral("; "));
    m_undisturbed = run.steps();
    m_operations = run.operationCount();
    return error->isEmpty();
}

const TranscriptEntry &FaultSweep::operationAt(int operation) const
{
    int step = 0;
    int index = operation - 1;
    while (index >= m_undisturbed.at(step).operations.size())
        index -= m_undisturbed.at(step++).operations.size();
    return m_undisturbed.at(step).operations.at(index);
}

QString FaultSweep::repetition(int operation, const SweepFault &fault) const
{
    return QStringLiteral("--sweep %1 --from %2 --to %2 --faults %3")
            .arg(m_script.name)
            .arg(operation)
            .arg(fault.name);
}

bool FaultSweep::playDisturbed(int operation, const SweepFault &fault, QString *error)
{
    const QString again = repetition(operation, fault);
    if (m_watch)
        m_watch(again);
    SimulatedIOManager *io = m_stage->session()->io();
    const qint64 before = io->operationCount();
    if (!m_stage->reset(fault.rule.arg(operation), error))
        return false;
    SweepRun run(m_script, m_stage->context(), true, before);
    run.follow(m_undisturbed);
    if (operation <= m_undisturbed.first().operations.size())
        run.allowDifferences();
    m_stage->play(&run);
    ++m_runs;
    const QStringList found =
            run.violations()
            + SweepChecks::violations(m_undisturbed, run.steps(), io->transcript(), operation);
    const TranscriptEntry &entry = operationAt(operation);
    int index = 0;
    while (m_plan.faults.at(index).name != fault.name)
        ++index;
    for (const QString &one : found) {
        const QString text = QStringLiteral("operation %1 (%2 %3), fault %4: %5\n    ./run "
                                            "--headless %6")
                                     .arg(operation)
                                     .arg(TranscriptEntry::operationName(entry.operation),
                                          QString::fromUtf8(entry.line), fault.name, one, again);
        m_violations << text;
        m_byFault[index] << text;
        if (m_found)
            m_found(text);
    }
    return true;
}

bool FaultSweep::run(QString *error)
{
    if (!playUndisturbed(error))
        return false;
    const int last = m_plan.to > 0 ? qMin(m_plan.to, m_operations) : m_operations;
    int turn = 0;
    for (int operation = m_plan.from; operation <= last; operation += m_plan.every) {
        const TranscriptEntry &entry = operationAt(operation);
        QVector<SweepFault> faults;
        for (const SweepFault &fault : qAsConst(m_plan.faults)) {
            if (fault.concerns(entry))
                faults << fault;
        }
        if (m_plan.inTurns && !faults.isEmpty())
            faults = {faults.at(turn++ % faults.size())};
        for (const SweepFault &fault : qAsConst(faults)) {
            if (!playDisturbed(operation, fault, error))
                return false;
        }
    }
    return true;
}

QString FaultSweep::summary() const
{
    return QStringLiteral("%1: %2 operations, %3 disturbed runs, %4 violations")
            .arg(m_script.name)
            .arg(m_operations)
            .arg(m_runs)
            .arg(m_violations.size());
}

void FaultSweep::report(JUnitReport *report) const
{
    for (int i = 0; i < m_plan.faults.size(); ++i) {
        if (m_byFault.at(i).isEmpty())
            report->addPassed(m_plan.faults.at(i).name);
        else
            report->addFailed(m_plan.faults.at(i).name, m_byFault.at(i).join(QLatin1Char('\n')));
    }
}
