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
 * From the press of select to the assigned target: remembers what was chosen, asks the questions on
 * the way and finds out after each of them whether the choice is still the same. Owned by the tab,
 * which is the parent of the boxes; where a box outlives the tab, false comes back and nothing is
 * touched.
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

    /** What is current now in a table of bodies of `type` and a table of targets. */
    Choice current(const QString &type, const QTableWidget *bodyTable,
                   const QTableWidget *targetTable) const;
    /** Remembers what is current in the tab's tables; false when that is no body and target. */
    bool choose(const TabWidgets &widgets);
    /** What choose() remembered. */
    const Choice &choice() const { return m_choice; }
    /** True while it is still current, its body reads the same, and nothing is locked; else logged.
     */
    bool isChoiceUnchanged() const;

    /** Asks whether a named body may be overwritten; true without asking for one without name. */
    bool confirmOverwrite(const QString &name) const;
    /**
     * Frees a target from the bodies of the type that hold it, but not from the one that is about
     * to receive it, and gives it to that one; then reads the use of the `listed` targets. False
     * when the choice is incomplete or the controller refused.
     */
    bool assign(const Choice &choice, const QStringList &listed) const;
    /**
     * Asks whether the target may be taken from the first body of another type that holds it, and
     * takes it. True when none holds it or it was taken.
     *
     * @param type "standard" or "measurementtool_reference"
     * @param text, question of the box; %1 is the number of the body
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
