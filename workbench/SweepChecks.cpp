#include "SweepChecks.h"

#include "CommandTable.h"
#include "LineChecks.h"

namespace {

using Operation = TranscriptEntry::Operation;

/** How many times the operations of the undisturbed run a disturbed one may take. */
constexpr int mostTimes = 3;
constexpr int operationsOfAnyLine = 200;

/** Looking for targets in the volume changes nothing; the module asks for it again and again. */
bool isWrite(const TranscriptEntry &entry)
{
    return !entry.isGet() && entry.line != "morvek2 targetlib check_custom_calibration";
}

QString shown(const TranscriptEntry &entry)
{
    return QStringLiteral("%1 %2").arg(TranscriptEntry::operationName(entry.operation),
                                       QString::fromUtf8(entry.line));
}

QStringList writesOf(const SweepStep &step)
{
    QStringList lines;
    for (const TranscriptEntry &entry : step.operations) {
        if (isWrite(entry))
            lines << shown(entry);
    }
    return lines;
}

/** What kinds of writes a step has: commands without their values. */
QStringList shapesOf(const SweepStep &step)
{
    QStringList shapes;
    for (const TranscriptEntry &entry : step.operations) {
        if (!isWrite(entry))
            continue;
        const CommandAccess access =
                entry.operation == Operation::Set ? CommandAccess::Set : CommandAccess::Action;
        const CommandTable::Match match = CommandTable::instance().find(access, entry.line);
        shapes << (match.entry ? QString::fromLatin1(match.entry->pattern) : shown(entry));
    }
    shapes.removeDuplicates();
    return shapes;
}

/** The first of the writes that is not among the allowed ones, which each allow one; or nothing. */
QString unasked(const QStringList &writes, QStringList allowed)
{
    for (const QString &write : writes) {
        if (!allowed.removeOne(write))
            return write;
    }
    return QString();
}

/**
 * The dialogs ask for these in passing as well: without an answer they take what is usual, and
 * nothing is said about it. Nor do they look at how the end of a search was answered.
 */
bool isAskedInPassing(const TranscriptEntry &entry)
{
    if (entry.operation == Operation::Command)
        return entry.line == "morvek2 cal targetlib stop";
    static const QVector<QByteArray> patterns = {
            "body targetlib_name TYPE bNN",
            "config is_changeable",
            "inertial sensor_model_desc SENSOR",
            "measurementtool number_of_references",
            "standard number_of_bodies",
            "status active",
            "status progress",
            "synccard output_frequency",
            "targetlib group_member gNN mNN",
            "targetlib number_of_group_members gNN",
            "targetlib number_of_groups",
            "targetlib number_of_targets",
            "targetlib target_status_calibrated tNN",
            "targetlib target_status_calibrated_custom tNN",
            "targetlib target_status_tracked tNN",
    };
    const CommandTable::Match match = CommandTable::instance().find(CommandAccess::Get, entry.line);
    return entry.isGet() && match.entry && patterns.contains(match.entry->pattern);
}

/** How many operations failed that the message log must tell of. */
int failuresOf(const SweepStep &step)
{
    int count = 0;
    for (const TranscriptEntry &entry : step.operations)
        count += entry.result != 0 && !isAskedInPassing(entry) ? 1 : 0;
    return count;
}

/** How many log lines the disturbed step has that the undisturbed one has not. */
int newLogLines(const SweepStep &undisturbed, const SweepStep &step)
{
    QStringList known = undisturbed.log;
    int count = 0;
    for (const QString &line : step.log)
        count += known.removeOne(line) ? 0 : 1;
    return count;
}

/** What the operation of that number, from 1, was answered; messages are not counted. */
QString answerAt(const QVector<TranscriptEntry> &transcript, int operation)
{
    for (const TranscriptEntry &entry : transcript) {
        if (entry.operation != Operation::Message && --operation == 0)
            return QString::fromUtf8(entry.answer).trimmed();
    }
    return QString();
}

/** Which step the operation belongs to; its number is then that within the step, from 1. */
int stepOf(const QVector<SweepStep> &steps, int *operation)
{
    int step = 0;
    while (step + 1 < steps.size() && *operation > steps.at(step).operations.size())
        *operation -= steps.at(step++).operations.size();
    return step;
}

/** What a line may write; its own writes, and those of the answer to a box that it may not open. */
SweepStep allowedIn(const QVector<SweepStep> &undisturbedSteps, int index, bool isNameUnread)
{
    SweepStep allowed = undisturbedSteps.at(index);
    const SweepStep following = undisturbedSteps.value(index + 1);
    // A body without a name is overwritten without the question that names it.
    if (isNameUnread && following.line.words.value(0) == QLatin1String("answer"))
        allowed.operations += following.operations;
    return allowed;
}

bool isNameOfBody(const TranscriptEntry &entry)
{
    const CommandTable::Match match = CommandTable::instance().find(CommandAccess::Get, entry.line);
    return entry.isGet() && match.entry && QByteArray(match.entry->pattern) == "body desc TYPE bNN";
}

/** A name that the controller gives, or its last word, is asked about as it came. */
bool repeats(const QString &question, const QString &answer)
{
    const QString word = question.section(QLatin1Char(' '), -1);
    return !answer.isEmpty()
           && (question.contains(answer) || answer.split(QLatin1Char(' ')).contains(word));
}

QStringList malformations(const QVector<TranscriptEntry> &transcript, const QString &answer)
{
    QStringList found;
    for (const TranscriptEntry &entry : transcript) {
        if (entry.isGet() && repeats(QString::fromUtf8(entry.line), answer))
            continue;
        const QString problem = LineChecks::malformation(entry);
        if (!problem.isEmpty() && !found.contains(problem))
            found << problem;
    }
    return found;
}

} // namespace

QStringList SweepChecks::violations(const QVector<SweepStep> &undisturbedSteps,
                                    const QVector<SweepStep> &steps,
                                    const QVector<TranscriptEntry> &transcript, int disturbed)
{
    QStringList found = malformations(transcript, answerAt(transcript, disturbed));
    const int disturbedStep = stepOf(undisturbedSteps, &disturbed);
    const bool isNameUnread =
            isNameOfBody(undisturbedSteps.at(disturbedStep).operations.at(disturbed - 1));
    int next = 0;
    for (int i = 0; i < steps.size(); ++i) {
        const SweepStep &step = steps.at(i);
        // The disturbed run leaves out what says how an undisturbed one looks.
        while (undisturbedSteps.at(next).line.number != step.line.number)
            ++next;
        const SweepStep &undisturbed = undisturbedSteps.at(next);
        if (next < disturbedStep)
            continue;
        const QString place = QStringLiteral("line %1: ").arg(step.line.number);
        const SweepStep allowed = allowedIn(undisturbedSteps, next, isNameUnread);
        // Later lines act on what the disturbance left, so only their kind of writes is known.
        const QString write = next == disturbedStep ? unasked(writesOf(step), writesOf(allowed))
                                                    : unasked(shapesOf(step), shapesOf(allowed));
        if (!write.isEmpty())
            found << place
                             + QStringLiteral("expected no other writes than undisturbed, found %1")
                                       .arg(write);
        if (step.operations.size()
            > mostTimes * undisturbed.operations.size() + operationsOfAnyLine)
            found << place
                             + QStringLiteral("expected about %1 operations, found %2")
                                       .arg(undisturbed.operations.size())
                                       .arg(step.operations.size());
        // A box that the undisturbed line does not open is about the failure.
        if (failuresOf(step) > failuresOf(undisturbed) && newLogLines(undisturbed, step) == 0
            && step.boxes == 0)
            found << place
                             + QStringLiteral("expected a log line for the failed operation, found "
                                              "none");
    }
    return found;
}
