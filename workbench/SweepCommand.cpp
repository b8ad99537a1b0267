#include "SweepCommand.h"

#include "FaultSweep.h"
#include "JUnitReport.h"
#include "ProgramStatus.h"

#include <QTextStream>

int SweepCommand::run(const Script &script, PlayStage *stage, const SweepPlan &plan,
                      const QString &junitFile, const std::function<void(const QString &)> &watch)
{
    FaultSweep sweep(script, stage, plan);
    sweep.setWatch(watch);
    sweep.setFound([](const QString &violation) { QTextStream(stdout) << violation << '\n'; });
    QString error;
    if (!sweep.run(&error))
        return ProgramStatus::complain(
                QStringLiteral("--sweep: expected the script to succeed undisturbed: %1")
                        .arg(error));
    QTextStream(stdout) << sweep.summary() << '\n';
    if (!junitFile.isEmpty()) {
        JUnitReport report(script.name);
        sweep.report(&report);
        if (!report.save(junitFile, &error))
            return ProgramStatus::complain(error);
    }
    return sweep.violations().isEmpty() ? ProgramStatus::done : ProgramStatus::failed;
}
