#pragma once

#include "bodies/bodycommands.h"
#include "support/userquestion.h"

#include <QCoreApplication>
#include <QString>

class BodyRegistry;
class BodySnapshot;
class QWidget;

/**
 * The questions and messages about bodies. An acceptance counts only while the records still read
 * as they did when the question was asked: when a body changed meanwhile, the question counts as
 * declined. When the parent was deleted while a box was open, nothing of it is touched, and the
 * result is Gone or false.
 */
class BodyQuestions {
    Q_DECLARE_TR_FUNCTIONS(BodyTypeAdministrationTab)

public:
    /**
     * Parent and registry outlive the object, except that the parent may be deleted while a box is
     * open.
     */
    BodyQuestions(QWidget *parent, const ControllerLink &link, const BodyRegistry &registry)
        : m_parent(parent), m_link(link), m_registry(registry)
    {
    }

    /**
     * Asks Yes or No about one body as the operator saw it, with No as the default. The body's name
     * is shown below the text. A body that changed meanwhile is logged, and the question counts as
     * declined.
     */
    UserQuestion::Answer confirm(const BodySnapshot &asked, const QString &text,
                                 const QString &informativeText = QString()) const;
    /** Asks the same about the body as its record reads now. */
    UserQuestion::Answer confirm(const QString &type, int index, const QString &text,
                                 const QString &informativeText = QString()) const;

    UserQuestion::Answer confirmResetToLibrary(const QString &type, int index) const;
    UserQuestion::Answer confirmSensorReset(const BodySnapshot &asked,
                                            const BodyCommands::SensorReset &reset) const;
    UserQuestion::Answer confirmDelete(const QString &type, int index) const;
    /** Asks because the last body has the reference mark and is about to be dropped. */
    UserQuestion::Answer confirmReferenceDropped(const QString &type, int index) const;

    /** Logs that the bodies of a confirmed question have changed meanwhile. */
    static void logChanged(const ControllerLink &link);

    // Boxes with OK. Each returns false when the parent was deleted meanwhile.

    bool showInactiveReference(const QString &type, int index) const;
    bool showUnknownReset(const QString &type, int index) const;
    bool showResetFailed(const QString &type, int index) const;
    bool showDeleteFailed(const QString &type, int index, BodyCommands::DeleteStep step) const;
    /** `text` says what could not be deleted. */
    bool showDeleteFailed(const QString &type, int index, const QString &text) const;
    bool showSwitchFailed(const QString &type, int index, int otherIndex) const;
    /** Shows how many targets a search found. */
    bool showFoundTargets(int count) const;

private:
    /** Shows a box with the names of the bodies below a text that does not contain them. */
    bool warn(const QString &text, const QString &names) const;
    QString name(const QString &type, int index) const;
    /** `text` with the type's label as %1 and the body's number as %2. */
    QString about(const QString &text, const QString &type, int index) const;

    QWidget *m_parent;
    ControllerLink m_link;
    const BodyRegistry &m_registry;
};
