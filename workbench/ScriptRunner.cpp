#include "ScriptRunner.h"

#include "LineChecks.h"
#include "WidgetFinder.h"
#include "WorkbenchSession.h"

ScriptRunner::ScriptRunner(const Script &script, const ScriptContext &context, QObject *parent)
    : LineRunner(context, parent), m_script(script)
{
}

QString ScriptRunner::checkOutcome()
{
    if (m_next == 0)
        return QString();
    recordCost();
    const QString problem = LineChecks::afterLine(context());
    return problem.isEmpty()
                   ? QString()
                   : QStringLiteral("%1: %2").arg(placeOf(m_script.lines.at(m_next - 1)), problem);
}

bool ScriptRunner::takeLine(Script::Line *line)
{
    if (m_next == m_script.lines.size())
        return false;
    *line = m_script.lines.at(m_next++);
    m_operationsBefore = context().session->io()->operationCount();
    return true;
}

QString ScriptRunner::checkEnd()
{
    const QWidget *modal = WidgetFinder::modalWindow();
    return modal ? QStringLiteral("%1:end: expected no open window, found %2")
                           .arg(m_script.name, WidgetFinder::describe(modal))
                 : QString();
}

QString ScriptRunner::judge(const Script::Line &line, const QString &problem)
{
    return QStringLiteral("%1: %2").arg(placeOf(line), problem);
}

QString ScriptRunner::placeOf(const Script::Line &line) const
{
    return QStringLiteral("%1:%2").arg(m_script.name).arg(line.number);
}

void ScriptRunner::recordCost()
{
    const Script::Line &line = m_script.lines.at(m_next - 1);
    const qint64 operations = context().session->io()->operationCount() - m_operationsBefore;
    if (operations <= 0)
        return;
    m_costs << QStringLiteral("line %1: %2 operations, held %3 ms: %4")
                       .arg(line.number)
                       .arg(operations)
                       .arg(heldNs() / 1e6, 0, 'f', 1)
                       .arg(line.words.join(QLatin1Char(' '))
                                    .replace(QLatin1Char('\n'), QLatin1Char(' ')));
}
