#include "targetlibrary.h"

#include "linkobserver.h"
#include "targets/target.h"

Targetlibrary::Targetlibrary(IOManager *manager, BackendVersions *versions, QObject *parent)
    : QObject(parent), iom(manager), beVers(versions), m_link(iom, beVers, LinkObserver::of(parent))
{
    fillTargetMap();
    fillGroupOfTargetMap();
    updateTargetMapWithgroups();
}

void Targetlibrary::fillTargetMap()
{
    const int count = m_link.count("targetlib number_of_targets").value_or(0);
    for (int number = 1; number <= count; ++number)
        readTarget(number);
}

void Targetlibrary::readTarget(int number)
{
    const QString tid = QStringLiteral("t%1").arg(number, 2, 10, QLatin1Char('0'));
    const QByteArray tidWord = ControllerLink::argument(tid);
    const auto name = m_link.text("targetlib target_name %s", tidWord.constData());
    if (!name) {
        m_link.log(QStringLiteral("Error: Unable to get target name"));
        return;
    }
    const QString calibrated = m_link.text("targetlib target_status_calibrated t%02d", number)
                                       .value_or(QStringLiteral("none"));
    const auto bodyType = m_link.text("targetlib target_bodytype %s", tidWord.constData());
    if (!bodyType)
        m_link.log(QStringLiteral("Error: Unable to get body type"));
    auto *target = new Target(this);
    target->setId(tid);
    target->setShortName(name->section(QLatin1Char(' '), 0, 0).remove(QLatin1Char('\'')));
    target->setLongName(ControllerLink::withoutDoubleQuotes(name->section(QLatin1Char(' '), 1)));
    target->setCalibrated(calibrated != QLatin1String("none"));
    target->setBodyType(bodyType.value_or(QStringLiteral("none")).remove(QLatin1Char('\'')));
    map_targets.insert(tid, target);
}

void Targetlibrary::fillGroupOfTargetMap()
{
    const int groups = m_link.count("targetlib number_of_groups").value_or(0);
    for (int group = 1; group <= groups; ++group) {
        const auto name = m_link.text("targetlib group_name g%02d", group);
        if (!name) {
            m_link.log(QStringLiteral("Error: Unable to get group name"));
            continue;
        }
        const int members =
                m_link.count("targetlib number_of_group_members g%02d", group).value_or(0);
        for (int member = 1; member <= members; ++member) {
            const auto tid = m_link.text("targetlib group_member g%02d m%02d", group, member);
            if (tid)
                map_groupOfTarget.insert(ControllerLink::withoutDoubleQuotes(*tid), *name);
        }
    }
}

void Targetlibrary::updateTargetMapWithgroups()
{
    for (Target *target : qAsConst(map_targets)) {
        if (map_groupOfTarget.contains(target->id()))
            target->setGroup(map_groupOfTarget.value(target->id()));
    }
}

QString Targetlibrary::getLongNameFromTid(const QString &tid) const
{
    const Target *known = target(tid);
    return known ? known->longName() : QString();
}

QString Targetlibrary::getTidFromShortname(const QString &shortName) const
{
    for (const Target *target : map_targets) {
        if (target->shortName() == shortName)
            return target->id();
    }
    return {};
}

QString Targetlibrary::getGroupFromTid(const QString &tid) const
{
    return map_groupOfTarget.value(tid);
}

bool Targetlibrary::isOfType(const Target &target, const QString &type) const
{
    const QLatin1String toolPrefix("mea");
    return type.startsWith(toolPrefix) ? target.bodyType().startsWith(toolPrefix)
                                       : target.bodyType() == type;
}
