#pragma once

#include "bodies/bodysnapshot.h"
#include "controllerlink.h"
#include "targets/targetassignment.h"

#include <QCoreApplication>
#include <QString>
#include <QStringList>

class QTableWidget;
class QWidget;
struct TabWidgets;

/**
 * Assigns a target after the press of select: it remembers what was chosen, asks the questions and
 * checks after each question whether the choice is still the same. Owned by the tab, which is the
 * parent of the boxes. When the tab is deleted while a box is open, the functions return false and
 * touch nothing of it.
 */
class AssignmentFlow {
    Q_DECLARE_TR_FUNCTIONS(BodyTypeAdministrationTab)

public:
    /** A body and a target that are current in their tables. */
    struct Choice {
        BodySnapshot body;
        int targetRow = -1;
        QString targetId;
        QString targetShortName;

        bool isComplete() const { return body.index() >= 0 && !targetId.isEmpty(); }
    };

    /** The registry outlives the flow. */
    AssignmentFlow(QWidget *parent, const ControllerLink &link, const BodyRegistry &registry,
                   const TargetAssignment &assignment);

    /** What is current now in a table of bodies of `type` and in a table of targets. */
    Choice current(const QString &type, const QTableWidget *bodyTable,
                   const QTableWidget *targetTable) const;
    /** Remembers what is current in the tab's tables; false unless that is a body and a target. */
    bool choose(const TabWidgets &widgets);
    /** What choose() remembered. */
    const Choice &choice() const { return m_choice; }
    /**
     * True while the choice is still current, its body reads the same, and the configuration is not
     * locked; otherwise false, and logged.
     */
    bool isChoiceUnchanged() const;

    /**
     * Asks whether a named body may be overwritten; true without a question for a body without a
     * name.
     */
    bool confirmOverwrite(const QString &name) const;
    /**
     * Frees the target from the bodies of the type that hold it, except the receiving body, and
     * assigns it to that body. Then reads which of the `listed` targets are in use. False when the
     * choice is incomplete or the controller refused.
     */
    bool assign(const Choice &choice, const QStringList &listed) const;
    /**
     * Asks whether the target may be taken from the first body of another type that holds it, and
     * frees it from that body. True when no such body holds it or it was freed.
     *
     * @param type "standard" or "measurementtool_reference"
     * @param text question of the box; %1 is the number of the body
     */
    bool takeFromOtherType(const QString &type, const QString &targetShortName, const QString &text,
                           const QString &question) const;

private:
    QWidget *m_parent;
    ControllerLink m_link;
    const BodyRegistry &m_registry;
    TargetAssignment m_assignment;
    Choice m_choice;
    const QTableWidget *m_bodyTable = nullptr;
    const QTableWidget *m_targetTable = nullptr;
};
