#include "targetlibrary.h"

#include "linkobserver.h"
#include "targets/target.h"

#include <utility>

Targetlibrary::Targetlibrary(IOManager *manager, BackendVersions *versions, QObject *parent)
    : QObject(parent), iom(manager), beVers(versions), m_link(iom, beVers, LinkObserver::of(parent))
{
    fillTargetMap();
    fillGroupOfTargetMap();
    updateTargetMapWithgroups();
}

int Targetlibrary::missing() const
{
    return (m_isTargetCountUnread ? 1 : 0) + (m_isGroupCountUnread ? 1 : 0) + m_unreadTargets.size()
           + m_unreadGroups.size() + m_unreadMembers.size();
}

bool Targetlibrary::readMissing()
{
    const int missingBefore = missing();
    const int known = map_targets.size() + map_groupOfTarget.size();
    if (missingBefore == 0)
        return false;
    if (m_isTargetCountUnread)
        fillTargetMap();
    for (const int number : std::exchange(m_unreadTargets, {}))
        readTarget(number);
    if (m_isGroupCountUnread)
        fillGroupOfTargetMap();
    for (const UnreadGroup &group : std::exchange(m_unreadGroups, {}))
        readGroup(group);
    for (const UnreadMember &member : std::exchange(m_unreadMembers, {}))
        readMember(member);
    updateTargetMapWithgroups();
    return missing() != missingBefore || map_targets.size() + map_groupOfTarget.size() != known;
}

void Targetlibrary::fillTargetMap()
{
    const auto count = m_link.count("targetlib number_of_targets");
    m_isTargetCountUnread = !count;
    for (int number = 1; number <= count.value_or(0); ++number)
        readTarget(number);
}

void Targetlibrary::readTarget(int number)
{
    const QString tid = QStringLiteral("t%1").arg(number, 2, 10, QLatin1Char('0'));
    const QByteArray tidWord = ControllerLink::argument(tid);
    const auto name = m_link.text("targetlib target_name %s", tidWord.constData());
    if (!name) {
        m_link.log(QStringLiteral("Error: Unable to get target name"));
        m_unreadTargets.append(number);
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
    const auto groups = m_link.count("targetlib number_of_groups");
    m_isGroupCountUnread = !groups;
    for (int number = 1; number <= groups.value_or(0); ++number)
        readGroup({number, QString()});
}

void Targetlibrary::readGroup(UnreadGroup group)
{
    if (group.name.isNull()) {
        const auto name = m_link.text("targetlib group_name g%02d", group.number);
        if (!name) {
            m_link.log(QStringLiteral("Error: Unable to get group name"));
            m_unreadGroups.append(group);
            return;
        }
        group.name = *name;
    }
    const auto members = m_link.count("targetlib number_of_group_members g%02d", group.number);
    if (!members)
        m_unreadGroups.append(group);
    for (int member = 1; member <= members.value_or(0); ++member)
        readMember({group.number, member, group.name});
}

void Targetlibrary::readMember(const UnreadMember &member)
{
    const auto tid = m_link.text("targetlib group_member g%02d m%02d", member.group, member.member);
    if (tid)
        map_groupOfTarget.insert(ControllerLink::withoutDoubleQuotes(*tid), member.groupName);
    else
        m_unreadMembers.append(member);
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
