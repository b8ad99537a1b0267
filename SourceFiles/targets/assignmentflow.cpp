#include "targets/assignmentflow.h"

#include "bodies/bodycommands.h"
#include "bodies/bodyquestions.h"
#include "bodies/bodyreader.h"
#include "bodies/tabwidgets.h"
#include "support/userquestion.h"
#include "targets/targettablefiller.h"

#include <QTableWidget>

using UserQuestion::Answer;

AssignmentFlow::AssignmentFlow(QWidget *parent, const ControllerLink &link,
                               const BodyRegistry &registry, const TargetAssignment &assignment)
    : m_parent(parent), m_link(link), m_registry(registry), m_assignment(assignment)
{
}

AssignmentFlow::Choice AssignmentFlow::current(const QString &type, const QTableWidget *bodyTable,
                                               const QTableWidget *targetTable) const
{
    const int targetRow = targetTable->currentRow();
    return {BodySnapshot(m_registry, type, bodyTable->currentRow()), targetRow,
            TargetTableFiller::targetId(targetTable, targetRow),
            TargetTableFiller::shortName(targetTable, targetRow)};
}

bool AssignmentFlow::choose(const TabWidgets &widgets)
{
    m_bodyTable = widgets.bodyTable;
    m_targetTable = widgets.targetTable;
    m_choice = current(widgets.type, m_bodyTable, m_targetTable);
    return m_choice.isComplete();
}

bool AssignmentFlow::isChoiceUnchanged() const
{
    const Choice now = current(m_choice.body.type(), m_bodyTable, m_targetTable);
    if (!m_registry.isLocked() && m_choice.body.isCurrent(m_registry)
        && now.body.index() == m_choice.body.index() && now.targetId == m_choice.targetId)
        return true;
    BodyQuestions::logChanged(m_link);
    return false;
}

bool AssignmentFlow::confirmOverwrite(const QString &name) const
{
    return name.isEmpty()
           || UserQuestion::okCancel(m_parent, tr("Warning"),
                                     tr("Overwrite body calibration data of %1?").arg(name))
                      == Answer::Accepted;
}

bool AssignmentFlow::assign(const Choice &choice, const QStringList &listed) const
{
    if (!choice.isComplete())
        return false;
    const TargetAssignment assignment = m_assignment;
    const QString type = choice.body.type();
    assignment.freeElsewhere(choice.targetShortName, type, choice.body.index(),
                             m_registry.type(type).bodies.size());
    const bool assigned = assignment.assign(choice.targetId, type, choice.body.index());
    if (assigned)
        assignment.refreshUsed(listed);
    return assigned;
}

bool AssignmentFlow::takeFromOtherType(const QString &type, const QString &targetShortName,
                                       const QString &text, const QString &question) const
{
    const ControllerLink host = m_link;
    const BodyReader reader(host);
    const int count = targetShortName.isEmpty() ? 0 : reader.readHolderCount(type);
    for (int index = 0; index < count; ++index) {
        const auto held = reader.readHolder(type, index);
        if (host.isClosed())
            return false;
        if (held != targetShortName)
            continue;
        const Answer answer = UserQuestion::okCancel(m_parent, tr("Warning"), text.arg(index + 1),
                                                     question.arg(index + 1));
        if (answer != Answer::Accepted || !isChoiceUnchanged())
            return false;
        BodyCommands(host).freeOtherHolder(type, index);
        return !host.isClosed();
    }
    return !host.isClosed();
}
