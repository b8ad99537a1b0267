#pragma once

#include "controllerlink.h"

#include <QPointer>
#include <QSet>
#include <QString>
#include <QStringList>

class Target;
class Targetlibrary;

/**
 * Sends every command and query about library targets: assigns and frees them, and reads their
 * used, custom and tracked states. It has no widgets. Failures are logged, and the next body or
 * target follows. A host may delete the owner in any of these functions, so that callers work with
 * a copy.
 */
class TargetAssignment {
public:
    TargetAssignment(const ControllerLink &link, Targetlibrary *library);
    TargetAssignment(const TargetAssignment &other);
    TargetAssignment &operator=(const TargetAssignment &) = delete;
    ~TargetAssignment();

    /**
     * True when the link was closed because its owner, and the library with it, may have been
     * deleted.
     */
    bool isClosed() const { return m_link.isClosed(); }

    /** Calibrates a body from the target with that identifier; logs a failure. */
    bool assign(const QString &targetId, const QString &type, int index) const;
    /** Frees the target from every body of the type except the one that will receive it. */
    void freeElsewhere(const QString &targetShortName, const QString &type, int receiver,
                       int bodies) const;
    /**
     * Short name of the target that a body holds, or "none"; empty, and logged, when it cannot be
     * read.
     */
    QString targetOfBody(const QString &type, int index) const;

    /**
     * Reads whether a body holds the target. On failure the known state stays and a line is logged.
     */
    void refreshUsed(const QString &targetId) const;
    /** The same for each identifier. */
    void refreshUsed(const QStringList &targetIds) const;
    /**
     * Reads whether the cameras see the target. A failure counts as not seen; only the first of
     * several failures in a row is logged.
     */
    void refreshTracked(Target *target) const;
    /**
     * Identifiers of the targets whose calibration is a custom one; false while a calibration runs.
     * `failures` holds the log lines of the last reading, which are not logged again, and receives
     * those of this one.
     */
    bool readCustom(const QStringList &targetIds, QSet<QString> *custom,
                    QStringList *failures = nullptr) const;

private:
    ControllerLink m_link;
    QPointer<Targetlibrary> m_library;
};
