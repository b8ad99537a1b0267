#include "ScriptRunner.h"

#include "DialogOracle.h"
#include "ScriptCommand.h"
#include "WidgetFinder.h"
#include "WorkbenchSession.h"

#include <QTimer>

namespace {

// Queued calls of one line's work are delivered before a timer fires, those that they cause in turn
// one round later.
constexpr int settlingRounds = 3;

} // namespace

ScriptRunner::ScriptRunner(const Script &script, const ScriptContext &context, QObject *parent)
    : QObject(parent), m_script(script), m_context(context)
{
}

void ScriptRunner::start()
{
    scheduleNext(settlingRounds);
}

void ScriptRunner::scheduleNext(int hops)
{
    QTimer::singleShot(1, this, [this, hops] {
        if (m_finished)
            return;
        m_heldNs = qMax(m_heldNs, m_clock.isValid() ? m_clock.nsecsElapsed() : 0);
        m_clock.start();
        if (hops > 1)
            scheduleNext(hops - 1);
        else
            runNext();
    });
}

void ScriptRunner::runNext()
{
    recordCost();
    const QString difference = differenceAfterLine();
    if (!difference.isEmpty()) {
        finish(difference);
        return;
    }
    if (m_next == m_script.lines.size()) {
        const QWidget *modal = WidgetFinder::modalWindow();
        finish(modal ? QStringLiteral("%1:end: expected no open window, found %2")
                               .arg(m_script.name, WidgetFinder::describe(modal))
                     : QString());
        return;
    }
    const Script::Line line = m_script.lines.at(m_next++);
    ++m_context.linesStarted;
    int nameLength = 0;
    const ScriptCommand *command = ScriptCommands::find(line.words, &nameLength);
    // A line that opens a dialog returns only when it closes; the next one is waiting for it
    // already.
    scheduleNext(settlingRounds);
    m_operationsBefore = m_context.session->io()->transcript().size();
    m_heldNs = 0;
    emit lineStarted(QStringLiteral("%1:%2").arg(m_script.name).arg(line.number));
    m_clock.start();
    const QString problem = command->run(m_context, line.words.mid(nameLength));
    if (!problem.isEmpty() && !m_finished)
        finish(QStringLiteral("%1:%2: %3").arg(m_script.name).arg(line.number).arg(problem));
}

QString ScriptRunner::differenceAfterLine() const
{
    if (!m_context.comparesDialogs || m_next == 0)
        return QString();
    const QStringList lines =
            DialogOracle::differences(m_context.session->state(), WidgetFinder::modalWindow());
    if (lines.isEmpty())
        return QString();
    return QStringLiteral("%1:%2: expected the dialog to agree with the controller, found %3")
            .arg(m_script.name)
            .arg(m_script.lines.at(m_next - 1).number)
            .arg(lines.join(QStringLiteral("; ")));
}

void ScriptRunner::recordCost()
{
    if (m_next == 0)
        return;
    const Script::Line &line = m_script.lines.at(m_next - 1);
    const int operations = m_context.session->io()->transcript().size() - m_operationsBefore;
    if (operations <= 0)
        return;
    m_costs << QStringLiteral("line %1: %2 operations, held %3 ms: %4")
                       .arg(line.number)
                       .arg(operations)
                       .arg(m_heldNs / 1e6, 0, 'f', 1)
                       .arg(line.words.join(QLatin1Char(' '))
                                    .replace(QLatin1Char('\n'), QLatin1Char(' ')));
}

void ScriptRunner::finish(const QString &failure)
{
    m_finished = true;
    m_failure = failure;
    emit finished(failure.isEmpty());
}
