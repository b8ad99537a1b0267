#include "targets/targetsearchrun.h"

#include "targetlibrary.h"
#include "targets/target.h"

namespace {

/** A fraction as whole percent, truncated from the decimal value: 0.29 is 29. */
int wholePercent(double fraction)
{
    constexpr double stepsPerUnit = 1e8;
    constexpr qint64 stepsPerPercent = 1000000;
    return int(qRound64(qBound(0.0, fraction, 1.0) * stepsPerUnit) / stepsPerPercent);
}

} // namespace

bool TargetSearchRun::canStart() const
{
    if (m_link.text("cal available targetlib") != QLatin1String("yes")) {
        m_link.log(QStringLiteral("Error: Unable to start target library calibration. "
                                  "Calibration type is not available"));
        return false;
    }
    const auto active = m_link.text("status active");
    if (!active) {
        m_link.log(QStringLiteral("Error: Unable to start target library calibration"));
        return false;
    }
    if (*active != QLatin1String("none") && *active != QLatin1String("err")) {
        m_link.log(QStringLiteral("Error: Unable to start target library calibration. "
                                  "Calibration is already active."));
        return false;
    }
    return true;
}

bool TargetSearchRun::start(const QStringList &shortNamesInUse)
{
    m_running = m_link.command("morvek2 cal targetlib start");
    m_isProgressLost = false;
    if (!m_running) {
        m_link.log(QStringLiteral("Error: Unable to start target library calibration"));
        return false;
    }
    m_link.log(QStringLiteral("target library calibration started"));
    for (const QString &shortName : shortNamesInUse)
        m_link.log(QStringLiteral("%1 already calibrated").arg(shortName));
    return true;
}

TargetSearchRun::Poll TargetSearchRun::poll()
{
    const auto step = m_link.text("status step_active");
    if (!step) {
        m_running = false;
        m_link.log(QStringLiteral("Error during target library calibration. Calibration aborted"));
        return {Step::Aborted, std::nullopt};
    }
    if (!step->startsWith(QLatin1String("cal"))) {
        m_running = false;
        m_link.log(QStringLiteral("target library calibration stopped"));
        return {Step::Ended, std::nullopt};
    }
    Poll result;
    const auto progress = m_link.real("status progress");
    if (progress)
        result.percent = wholePercent(*progress);
    else if (!m_isProgressLost)
        m_link.log(QStringLiteral("Error: Unable to get progress of target library calibration"));
    m_isProgressLost = !progress;
    return result;
}

void TargetSearchRun::cancel()
{
    m_running = false;
    m_link.command("morvek2 cal targetlib stop");
    m_link.log(QStringLiteral("target library calibration cancelled"));
}

int TargetSearchRun::countTracked(const Targetlibrary &library, const QString &type) const
{
    int tracked = 0;
    for (const Target *target : library.targets()) {
        if (!library.isOfType(*target, type))
            continue;
        const auto state = m_link.text("targetlib target_status_tracked %s",
                                       ControllerLink::argument(target->id()).constData());
        if (!state) {
            m_link.log(QStringLiteral("Error: Unable to get tracked state of target %1")
                               .arg(target->id()));
        }
        tracked += state == QLatin1String("yes") ? 1 : 0;
    }
    return tracked;
}
