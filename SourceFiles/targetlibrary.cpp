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

Targetlibrary::~Targetlibrary()
{
    m_link.close();
}

bool Targetlibrary::readMissing()
{
    const int missingBefore = missing();
    const int known = map_targets.size() + map_groupOfTarget.size();
    if (missingBefore == 0)
        return false;
    const ControllerLink link = m_link;
    readUnread();
    if (link.isClosed())
        return false;
    updateTargetMapWithgroups();
    return missing() != missingBefore || map_targets.size() + map_groupOfTarget.size() != known;
}

void Targetlibrary::readUnread()
{
    const ControllerLink link = m_link;
    if (m_isTargetCountUnread)
        fillTargetMap();
    if (link.isClosed())
        return;
    for (const int number : std::exchange(m_unreadTargets, {})) {
        if (!link.isClosed())
            readTarget(number);
    }
    if (!link.isClosed() && m_isGroupCountUnread)
        fillGroupOfTargetMap();
    if (link.isClosed())
        return;
    for (const UnreadGroup &group : std::exchange(m_unreadGroups, {})) {
        if (!link.isClosed())
            readGroup(group);
    }
    if (link.isClosed())
        return;
    for (const UnreadMember &member : std::exchange(m_unreadMembers, {})) {
        if (!link.isClosed())
            readMember(member);
    }
}

void Targetlibrary::fillTargetMap()
{
    const ControllerLink link = m_link;
    const auto count = link.count("targetlib number_of_targets");
    if (link.isClosed())
        return;
    m_isTargetCountUnread = !count;
    for (int number = 1; !link.isClosed() && number <= count.value_or(0); ++number)
        readTarget(number);
}

void Targetlibrary::readTarget(int number)
{
    const ControllerLink link = m_link;
    const QString tid = QStringLiteral("t%1").arg(number, 2, 10, QLatin1Char('0'));
    const QByteArray tidWord = ControllerLink::argument(tid);
    const auto name = link.text("targetlib target_name %s", tidWord.constData());
    if (!name)
        link.log(QStringLiteral("Error: Unable to get target name"));
    if (!name && !link.isClosed())
        m_unreadTargets.append(number);
    if (!name)
        return;
    const QString calibrated = link.text("targetlib target_status_calibrated t%02d", number)
                                       .value_or(QStringLiteral("none"));
    const auto bodyType = link.text("targetlib target_bodytype %s", tidWord.constData());
    if (!bodyType)
        link.log(QStringLiteral("Error: Unable to get body type"));
    if (link.isClosed())
        return;
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
    const ControllerLink link = m_link;
    const auto groups = link.count("targetlib number_of_groups");
    if (link.isClosed())
        return;
    m_isGroupCountUnread = !groups;
    for (int number = 1; !link.isClosed() && number <= groups.value_or(0); ++number)
        readGroup({number, QString()});
}

void Targetlibrary::readGroup(UnreadGroup group)
{
    const ControllerLink link = m_link;
    if (group.name.isNull()) {
        const auto name = link.text("targetlib group_name g%02d", group.number);
        if (!name)
            link.log(QStringLiteral("Error: Unable to get group name"));
        if (!name && !link.isClosed())
            m_unreadGroups.append(group);
        if (!name)
            return;
        group.name = *name;
    }
    const auto members = link.count("targetlib number_of_group_members g%02d", group.number);
    if (!members && !link.isClosed())
        m_unreadGroups.append(group);
    for (int member = 1; !link.isClosed() && member <= members.value_or(0); ++member)
        readMember({group.number, member, group.name});
}

void Targetlibrary::readMember(const UnreadMember &member)
{
    const ControllerLink link = m_link;
    const auto tid = link.text("targetlib group_member g%02d m%02d", member.group, member.member);
    if (tid)
        map_groupOfTarget.insert(ControllerLink::withoutDoubleQuotes(*tid), member.groupName);
    else if (!link.isClosed())
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
