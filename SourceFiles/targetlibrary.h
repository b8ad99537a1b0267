#pragma once

#include "controllerlink.h"

#include <QMap>
#include <QObject>
#include <QString>
#include <QVector>

class Target;

/**
 * The controller's target library, read once when it is constructed: the known targets with their
 * names, body types and groups. Owned by the body administration dialog and shared by its tabs. A
 * target whose name cannot be read is left out; other failed queries are logged and count as none.
 */
class Targetlibrary : public QObject {
    Q_OBJECT

public:
    Targetlibrary(IOManager *iom, BackendVersions *beVers, QObject *parent = nullptr);
    ~Targetlibrary() override;

    /**
     * Asks again what could not be read; nothing is asked when all was. True when more is known;
     * false when the library was deleted meanwhile.
     */
    bool readMissing();

    /** All targets by identifier, in ascending order of its text. */
    const QMap<QString, Target *> &targets() const { return map_targets; }
    /** The target of that identifier; null when there is none. */
    Target *target(const QString &tid) const { return map_targets.value(tid); }

    /** Long name of the target; empty when there is none of that identifier. */
    QString getLongNameFromTid(const QString &tid) const;
    /** Identifier of the first target of exactly that short name; empty when none matches. */
    QString getTidFromShortname(const QString &shortName) const;
    /** Name of the group that holds the identifier; empty when none does. */
    QString getGroupFromTid(const QString &tid) const;

    /** True when bodies of `type` are calibrated from this target. */
    bool isOfType(const Target &target, const QString &type) const;

private:
    /** A group whose name, or whose number of members, could not be read. */
    struct UnreadGroup {
        int number;
        QString name; ///< null while it is what could not be read
    };
    /** A member of a group that could not be read. */
    struct UnreadMember {
        int group;
        int member;
        QString groupName;
    };

    void fillTargetMap();
    void fillGroupOfTargetMap();
    void updateTargetMapWithgroups();
    void readTarget(int number);
    void readGroup(UnreadGroup group);
    void readMember(const UnreadMember &member);
    void readUnread();
    int missing() const;

    QMap<QString, Target *> map_targets;
    IOManager *iom;
    BackendVersions *beVers;
    QMap<QString, QString> map_groupOfTarget;
    ControllerLink m_link;
    bool m_isTargetCountUnread = false;
    bool m_isGroupCountUnread = false;
    QVector<int> m_unreadTargets; ///< one-based numbers of those without a name
    QVector<UnreadGroup> m_unreadGroups;
    QVector<UnreadMember> m_unreadMembers;
};
