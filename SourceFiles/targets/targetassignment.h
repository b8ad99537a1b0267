#pragma once

#include "controllerlink.h"

#include <QPointer>
#include <QSet>
#include <QString>
#include <QStringList>

class Target;
class Targetlibrary;

/**
 * Every command and query about library targets: assigning and freeing them, their
 * used, custom and tracked states. Without widgets. Failures are logged; the next body or target
 * follows. A host may delete the owner in any of it, so callers work with a copy.
 */
class TargetAssignment {
public:
    TargetAssignment(const ControllerLink &link, Targetlibrary *library);
    TargetAssignment(const TargetAssignment &other);
    TargetAssignment &operator=(const TargetAssignment &) = delete;
    ~TargetAssignment();

    /** True once the owner of the link may be gone, and the library with it. */
    bool isClosed() const { return m_link.isClosed(); }

    /** Calibrates a body from the target of that identifier; logs a failure. */
    bool assign(const QString &targetId, const QString &type, int index) const;
    /** Frees the target from every body of the type but the one that is about to receive it. */
    void freeElsewhere(const QString &targetShortName, const QString &type, int receiver,
                       int bodies) const;
    /** Short name of the target that a body holds, or "none"; empty, and logged, when unreadable.
     */
    QString targetOfBody(const QString &type, int index) const;

    /** Reads whether a body holds the target; keeps what is known, and logs, on failure. */
    void refreshUsed(const QString &targetId) const;
    /** The same for each identifier. */
    void refreshUsed(const QStringList &targetIds) const;
    /** Reads whether the cameras see the target; not seen on failure, the first of a row logged. */
    void refreshTracked(Target *target) const;
    /**
     * Identifiers of those whose calibration is a custom one; false while a calibration runs. Lines
     * that `failures` holds from the last reading are not logged again; it gets those of this one.
     */
    bool readCustom(const QStringList &targetIds, QSet<QString> *custom,
                    QStringList *failures = nullptr) const;

private:
    ControllerLink m_link;
    QPointer<Targetlibrary> m_library;
};
