#include "LineChecks.h"

#include "CommandTable.h"
#include "DialogOracle.h"
#include "ScenarioCheck.h"
#include "ScriptContext.h"
#include "WidgetFinder.h"
#include "WorkbenchSession.h"
#include "WorkbenchTime.h"

#include <algorithm>

namespace {

CommandAccess accessOf(const TranscriptEntry &entry)
{
    if (entry.isGet())
        return CommandAccess::Get;
    return entry.operation == TranscriptEntry::Operation::Set ? CommandAccess::Set
                                                              : CommandAccess::Action;
}

/** True when a text such as "nan" is in the place of a number; a name may be any text. */
bool holdsNoNumber(const TranscriptEntry &entry)
{
    const CommandTable::Match match = CommandTable::instance().find(accessOf(entry), entry.line);
    const QList<QByteArray> pattern = QByteArray(match.entry->pattern).split(' ');
    const QList<QByteArray> words = entry.line.trimmed().split(' ');
    for (int i = 0; i < qMin(words.size(), pattern.size()); ++i) {
        const QByteArray &word = words.at(i);
        if (pattern.at(i) == "SENSOR")
            return false;
        if (pattern.at(i) == "VALUE"
            && (word == "nan" || word == "-nan" || word == "inf" || word == "-inf"))
            return true;
    }
    return false;
}

QString differences(const ScriptContext &context)
{
    const QStringList lines =
            DialogOracle::differences(context.session->state(), WidgetFinder::modalWindow());
    return lines.isEmpty()
                   ? QString()
                   : QStringLiteral("expected the dialog to agree with the controller, found %1")
                             .arg(lines.join(QStringLiteral("; ")));
}

/** True when a query repeats a name that an earlier answer gave, however odd a fault made it. */
bool isAboutAnAnswer(const QVector<TranscriptEntry> &transcript, int query)
{
    return std::any_of(transcript.begin(), transcript.begin() + query,
                       [&](const TranscriptEntry &earlier) {
                           return LineChecks::repeats(transcript.at(query),
                                                      QString::fromUtf8(earlier.answer).trimmed());
                       });
}

/**
 * What is wrong with the operations of the last line or with the controller's state; empty when
 * nothing is.
 */
QString unsoundness(const ScriptContext &context)
{
    const SimulatedIOManager *io = context.session->io();
    const QVector<TranscriptEntry> &all = io->transcript();
    const qint64 fresh = io->operationCount() - context.operationsAtLine;
    for (int i = int(qMax<qint64>(0, all.size() - fresh)); i < all.size(); ++i) {
        const QString problem = LineChecks::malformation(all.at(i));
        if (!problem.isEmpty() && !isAboutAnAnswer(all, i))
            return problem;
    }
    Scenario scenario;
    scenario.state = context.session->state();
    const QString conflict = scenarioConflict(scenario);
    return conflict.isEmpty()
                   ? QString()
                   : QStringLiteral("expected a sound controller, found %1").arg(conflict);
}

} // namespace

QString LineChecks::afterLine(const ScriptContext &context)
{
    const WorkbenchTime own;
    const QString difference = context.comparesDialogs ? differences(context) : QString();
    if (!difference.isEmpty() || !context.checksSoundness)
        return difference;
    return unsoundness(context);
}

bool LineChecks::repeats(const TranscriptEntry &query, const QString &answer)
{
    const QString question = QString::fromUtf8(query.line);
    const QString word = question.section(QLatin1Char(' '), -1);
    return query.isGet() && !answer.isEmpty()
           && (question.contains(answer) || answer.split(QLatin1Char(' ')).contains(word));
}

QString LineChecks::malformation(const TranscriptEntry &entry)
{
    if (entry.operation == TranscriptEntry::Operation::Message)
        return QString();
    QString reason;
    if (QString::fromUtf8(entry.line).toUtf8() != entry.line)
        reason = QStringLiteral("bytes that are no text");
    for (const char sign : entry.line) {
        if (uchar(sign) < ' ')
            reason = QStringLiteral("a control character");
    }
    if (reason.isEmpty() && !CommandTable::instance().find(accessOf(entry), entry.line).entry)
        reason = QStringLiteral("a command that the controller does not know");
    if (reason.isEmpty() && holdsNoNumber(entry))
        reason = QStringLiteral("no number");
    return reason.isEmpty() ? QString()
                            : QStringLiteral("expected a well-formed command, found %1: \"%2\"")
                                      .arg(reason, QString::fromUtf8(entry.line));
}
