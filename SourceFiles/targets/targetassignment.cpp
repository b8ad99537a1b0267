#include "targets/targetassignment.h"

#include "bodies/bodycommands.h"
#include "bodies/bodyreader.h"
#include "targetlibrary.h"
#include "targets/target.h"

#include <utility>

TargetAssignment::TargetAssignment(const ControllerLink &link, Targetlibrary *library)
    : m_link(link), m_library(library)
{
}
TargetAssignment::TargetAssignment(const TargetAssignment &) = default;
TargetAssignment::~TargetAssignment() = default;

bool TargetAssignment::assign(const QString &targetId, const QString &type, int index) const
{
    return BodyCommands(m_link).calibrateFromTarget(type, index, targetId);
}

void TargetAssignment::freeElsewhere(const QString &targetShortName, const QString &type,
                                     int receiver, int bodies) const
{
    for (int index = 0; index < bodies; ++index) {
        if (index == receiver)
            continue;
        const QString held = targetOfBody(type, index);
        if (held == targetShortName && !held.isEmpty() && held != QLatin1String("none"))
            BodyCommands(m_link).freeBody(type, index);
    }
}

QString TargetAssignment::targetOfBody(const QString &type, int index) const
{
    const auto name = BodyReader(m_link).readTargetName(type, index);
    if (!name)
        m_link.log(QStringLiteral("Unable to get info targetlib ID of body"));
    return name.value_or(QString());
}

void TargetAssignment::refreshUsed(const QString &targetId) const
{
    Target *target = m_library ? m_library->target(targetId) : nullptr;
    if (!target)
        return;
    const auto state = m_link.text("targetlib target_status_calibrated %s",
                                   ControllerLink::argument(targetId).constData());
    if (isClosed())
        return;
    if (state)
        target->setCalibrated(*state != QLatin1String("none"));
    else
        m_link.log(QStringLiteral("Error: Unable to get calibration state of target %1")
                           .arg(targetId));
}

void TargetAssignment::refreshUsed(const QStringList &targetIds) const
{
    for (const QString &targetId : targetIds)
        refreshUsed(targetId);
}

void TargetAssignment::refreshTracked(Target *target) const
{
    const QString id = target->id();
    const auto state = m_link.text("targetlib target_status_tracked %s",
                                   ControllerLink::argument(id).constData());
    if (isClosed())
        return;
    // The query is repeated twice a second, so that only the first of several failures in a row is
    // logged.
    const bool failsNow = !state && !target->isTrackedUnread();
    target->setTrackedUnread(!state);
    target->setIsTracked(state && state->startsWith(QLatin1String("ye")));
    if (failsNow)
        m_link.log(QStringLiteral("Error: Unable to get tracked state of target %1").arg(id));
}

bool TargetAssignment::readCustom(const QStringList &targetIds, QSet<QString> *custom,
                                  QStringList *failures) const
{
    const QStringList logged = failures ? std::exchange(*failures, {}) : QStringList();
    const auto fail = [&](const QString &line) {
        if (failures)
            failures->append(line);
        if (!logged.contains(line))
            m_link.log(line);
    };
    const auto active = m_link.text("status active");
    if (!active)
        fail(QStringLiteral("Error: Unable to get state of calibration"));
    if (active != QLatin1String("none"))
        return false;
    if (!m_link.command("morvek2 targetlib check_custom_calibration"))
        fail(QStringLiteral("Error: Unable to check custom calibrations of targets"));
    for (const QString &targetId : targetIds) {
        const auto state = m_link.text("targetlib target_status_calibrated_custom %s",
                                       ControllerLink::argument(targetId).constData());
        if (!state) {
            fail(QStringLiteral("Error: Unable to get custom calibration state of target %1")
                         .arg(targetId));
        }
        if (state && *state != QLatin1String("none") && *state != QLatin1String("no"))
            custom->insert(targetId);
        else
            custom->remove(targetId);
    }
    return true;
}
