#include "targets/targetsearchrun.h"

#include "targetlibrary.h"
#include "targets/target.h"

namespace {

/** A fraction as whole percent, truncated after rounding off binary errors: 0.29 is 29. */
int wholePercent(double fraction)
{
    constexpr double stepsPerUnit = 1e14;
    constexpr qint64 stepsPerPercent = 1000000000000;
    return int(qRound64(qBound(0.0, fraction, 1.0) * stepsPerUnit) / stepsPerPercent);
}

} // namespace

bool TargetSearchRun::canStart() const
{
    const ControllerLink link = m_link;
    if (link.text("cal available targetlib") != QLatin1String("yes")) {
        link.log(QStringLiteral("Error: Unable to start target library calibration. "
                                "Calibration type is not available"));
        return false;
    }
    const auto active = link.text("status active");
    if (!active) {
        link.log(QStringLiteral("Error: Unable to start target library calibration"));
        return false;
    }
    if (*active != QLatin1String("none") && *active != QLatin1String("err")) {
        link.log(QStringLiteral("Error: Unable to start target library calibration. "
                                "Calibration is already active."));
        return false;
    }
    return true;
}

bool TargetSearchRun::start(const QStringList &shortNamesInUse)
{
    const ControllerLink link = m_link;
    const bool started = link.command("morvek2 cal targetlib start");
    if (link.isClosed())
        return false;
    m_running = started;
    m_isProgressLost = false;
    if (!started) {
        link.log(QStringLiteral("Error: Unable to start target library calibration"));
        return false;
    }
    link.log(QStringLiteral("target library calibration started"));
    for (const QString &shortName : shortNamesInUse)
        link.log(QStringLiteral("%1 already calibrated").arg(shortName));
    return !link.isClosed();
}

TargetSearchRun::Poll TargetSearchRun::poll()
{
    const ControllerLink link = m_link;
    const auto step = link.text("status step_active");
    if (link.isClosed())
        return {Step::Aborted, std::nullopt};
    if (!step) {
        m_running = false;
        link.log(QStringLiteral("Error during target library calibration. Calibration aborted"));
        return {Step::Aborted, std::nullopt};
    }
    if (!step->startsWith(QLatin1String("cal"))) {
        m_running = false;
        link.log(QStringLiteral("target library calibration stopped"));
        return {Step::Ended, std::nullopt};
    }
    Poll result;
    const auto progress = link.real("status progress");
    if (link.isClosed())
        return {Step::Aborted, std::nullopt};
    if (progress)
        result.percent = wholePercent(*progress);
    else if (!m_isProgressLost)
        link.log(QStringLiteral("Error: Unable to get progress of target library calibration"));
    m_isProgressLost = !progress;
    return result;
}

void TargetSearchRun::cancel()
{
    m_running = false;
    const ControllerLink link = m_link;
    link.command("morvek2 cal targetlib stop");
    link.log(QStringLiteral("target library calibration cancelled"));
}

int TargetSearchRun::countTracked(const Targetlibrary &library, const QString &type) const
{
    const ControllerLink link = m_link;
    const QList<Target *> targets = library.targets().values();
    int tracked = 0;
    for (const Target *target : targets) {
        if (link.isClosed() || !library.isOfType(*target, type))
            continue;
        const QString id = target->id();
        const auto state = link.text("targetlib target_status_tracked %s",
                                     ControllerLink::argument(id).constData());
        if (!state)
            link.log(QStringLiteral("Error: Unable to get tracked state of target %1").arg(id));
        tracked += state == QLatin1String("yes") ? 1 : 0;
    }
    return tracked;
}
