#pragma once

#include "controllerlink.h"

#include <QMap>
#include <QObject>
#include <QString>
#include <QVector>

class Target;

/**
 * The controller's target library, read once by the constructor: the known targets with their
 * names, body types and groups. The body administration dialog owns it, and its tabs share it. A
 * target whose name cannot be read is left out. Other failed queries are logged, and their values
 * count as absent.
 */
class Targetlibrary : public QObject {
    Q_OBJECT

public:
    Targetlibrary(IOManager *iom, BackendVersions *beVers, QObject *parent = nullptr);
    ~Targetlibrary() override;

    /**
     * Queries again what could not be read; sends nothing when everything was read. True when more
     * is known than before; false when the library was deleted meanwhile.
     */
    bool readMissing();

    /** All targets by identifier, in the alphabetical order of the identifiers. */
    const QMap<QString, Target *> &targets() const { return map_targets; }
    /** The target with that identifier; null when there is none. */
    Target *target(const QString &tid) const { return map_targets.value(tid); }

    /** Long name of the target; empty when no target has that identifier. */
    QString getLongNameFromTid(const QString &tid) const;
    /** Identifier of the first target with exactly that short name; empty when no target has it. */
    QString getTidFromShortname(const QString &shortName) const;
    /** Name of the group that contains the identifier; empty when no group does. */
    QString getGroupFromTid(const QString &tid) const;

    /** True when bodies of `type` can be calibrated from this target. */
    bool isOfType(const Target &target, const QString &type) const;

private:
    /** A group whose name, or whose number of members, could not be read. */
    struct UnreadGroup {
        int number;
        QString name; ///< null when the name is what could not be read
    };
    /** A member of a group whose identifier could not be read. */
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
    QVector<int> m_unreadTargets; ///< one-based numbers of the targets without a name
    QVector<UnreadGroup> m_unreadGroups;
    QVector<UnreadMember> m_unreadMembers;
};
