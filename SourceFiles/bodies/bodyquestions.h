#pragma once

#include "bodies/bodycommands.h"
#include "support/userquestion.h"

#include <QCoreApplication>
#include <QString>

class BodyRegistry;
class BodySnapshot;
class QWidget;

/**
 * What the operator is asked and shown about bodies. An acceptance holds only while the records
 * still read as when the question was asked: a body that changed meanwhile counts as declined.
 * Where the parent was deleted under the box, nothing is touched afterwards, and the answer says
 * so.
 */
class BodyQuestions {
    Q_DECLARE_TR_FUNCTIONS(BodyTypeAdministrationTab)

public:
    /** Both outlive the object, except that the parent may be deleted while a box is open. */
    BodyQuestions(QWidget *parent, const ControllerLink &link, const BodyRegistry &registry)
        : m_parent(parent), m_link(link), m_registry(registry)
    {
    }

    /**
     * Asks Yes or No, No preset, about one body as the operator saw it. Its name is shown below the
     * text. A body that changed meanwhile is logged and counts as declined.
     */
    UserQuestion::Answer confirm(const BodySnapshot &asked, const QString &text,
                                 const QString &informativeText = QString()) const;
    /** The same about the body as its record reads now. */
    UserQuestion::Answer confirm(const QString &type, int index, const QString &text,
                                 const QString &informativeText = QString()) const;

    UserQuestion::Answer confirmResetToLibrary(const QString &type, int index) const;
    UserQuestion::Answer confirmSensorReset(const BodySnapshot &asked,
                                            const BodyCommands::SensorReset &reset) const;
    UserQuestion::Answer confirmDelete(const QString &type, int index) const;
    /** The last body carries the reference mark and is about to be dropped. */
    UserQuestion::Answer confirmReferenceDropped(const QString &type, int index) const;

    /** Puts into the log that what was confirmed has changed meanwhile. */
    static void logChanged(const ControllerLink &link);

    // Boxes with OK: false when the parent was deleted meanwhile.

    bool showInactiveReference(const QString &type, int index) const;
    bool showUnknownReset(const QString &type, int index) const;
    bool showResetFailed(const QString &type, int index) const;
    bool showDeleteFailed(const QString &type, int index, BodyCommands::DeleteStep step) const;
    /** `text` says what could not be deleted. */
    bool showDeleteFailed(const QString &type, int index, const QString &text) const;
    bool showSwitchFailed(const QString &type, int index, int otherIndex) const;
    /** How many targets a search found. */
    bool showFoundTargets(int count) const;

private:
    /** A box with the names of bodies below a text that has only their type and number, or less. */
    bool warn(const QString &text, const QString &names) const;
    QString name(const QString &type, int index) const;
    /** `text` with the type's label as %1 and the body's number as %2. */
    QString about(const QString &text, const QString &type, int index) const;

    QWidget *m_parent;
    ControllerLink m_link;
    const BodyRegistry &m_registry;
};
