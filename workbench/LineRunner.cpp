#include "LineRunner.h"

#include "ScriptCommand.h"
#include "WorkbenchSession.h"

namespace {

// Queued calls of a line's work are delivered before a timer fires; the calls that those queue
// follow one round later.
constexpr int settlingRounds = 3;

} // namespace

LineRunner::LineRunner(const ScriptContext &context, QObject *parent)
    : QObject(parent), m_context(context)
{
    // The timer fires after the queued calls. QTimer::singleShot(0) would queue its call among
    // them, and a longer interval would waste time.
    m_turn.setInterval(0);
    connect(&m_turn, &QTimer::timeout, this, &LineRunner::takeTurn);
}

void LineRunner::start()
{
    awaitSettling();
}

void LineRunner::awaitSettling()
{
    m_roundsLeft = settlingRounds;
    m_turn.start();
}

void LineRunner::takeTurn()
{
    m_heldNs = qMax(m_heldNs, m_clock.isValid() ? m_clock.nsecsElapsed() : 0);
    m_clock.start();
    if (--m_roundsLeft > 0)
        return;
    m_turn.stop();
    runNext();
}

void LineRunner::runNext()
{
    const QString outcome = checkOutcome();
    if (!outcome.isEmpty()) {
        finish(outcome);
        return;
    }
    if (clearTheWay()) {
        awaitSettling();
        return;
    }
    Script::Line line;
    if (!takeLine(&line)) {
        finish(checkEnd());
        return;
    }
    ++m_context.linesStarted;
    m_context.operationsAtLine = m_context.session->io()->operationCount();
    int nameLength = 0;
    const ScriptCommand *command = ScriptCommands::find(line.words, &nameLength);
    // A line that opens a dialog returns only when the dialog closes. The next line is therefore
    // scheduled before.
    awaitSettling();
    m_heldNs = 0;
    emit lineStarted(placeOf(line));
    m_clock.start();
    const QString problem = command->run(m_context, line.words.mid(nameLength));
    if (problem.isEmpty() || m_finished)
        return;
    const QString judged = judge(line, problem);
    if (!judged.isEmpty())
        finish(judged);
}

void LineRunner::finish(const QString &failure)
{
    m_turn.stop();
    m_finished = true;
    m_failure = failure;
    emit finished(failure.isEmpty());
}
