#pragma once

#include "bodies/bodycommands.h"
#include "support/userquestion.h"

#include <QCoreApplication>
#include <QString>

class BodyRegistry;
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
    BodyQuestions(QWidget *parent, const BodyRegistry &registry)
        : m_parent(parent), m_registry(registry)
    {
    }

    /** Asks Yes or No, No preset, about one body. */
    UserQuestion::Answer confirm(const QString &type, int index, const QString &text,
                                 const QString &informativeText = QString()) const;

    UserQuestion::Answer confirmResetToLibrary(const QString &type, int index) const;
    UserQuestion::Answer confirmSensorReset(const QString &type, int index,
                                            const BodyCommands::SensorReset &reset) const;
    UserQuestion::Answer confirmDelete(const QString &type, int index) const;
    /** The last body carries the reference mark and is about to be dropped. */
    UserQuestion::Answer confirmReferenceDropped(const QString &type, int index) const;

    // Boxes with OK: false when the parent was deleted meanwhile.

    bool showInactiveReference() const;
    bool showUnknownReset(const QString &type, int index) const;
    bool showResetFailed(const QString &type, int index) const;
    bool showDeleteFailed(const QString &type, int index, BodyCommands::DeleteStep step) const;
    bool showSwitchFailed(const QString &type, int index, int otherIndex) const;
    /** How many targets a search found. */
    bool showFoundTargets(int count) const;

private:
    bool warn(const QString &text) const;
    /** `text` with the type's label as %1 and the body's number as %2. */
    QString about(const QString &text, const QString &type, int index) const;

    QWidget *m_parent;
    const BodyRegistry &m_registry;
};
