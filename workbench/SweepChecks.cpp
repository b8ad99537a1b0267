#include "SweepChecks.h"

#include "CommandTable.h"
#include "LineChecks.h"

namespace {

using Operation = TranscriptEntry::Operation;

/** How many times as many operations as the undisturbed run a disturbed run may have. */
constexpr int mostTimes = 3;
constexpr int operationsOfAnyLine = 200;

/**
 * True for sets and actions except the check for custom calibrations, which changes nothing and
 * which the module repeats.
 */
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

/** The kinds of a step's writes: commands without their values. */
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

/**
 * The first write that is not among the allowed ones, each of which allows one write; empty when
 * there is none.
 */
QString unasked(const QStringList &writes, QStringList allowed)
{
    for (const QString &write : writes) {
        if (!allowed.removeOne(write))
            return write;
    }
    return QString();
}

/**
 * True for queries whose failure the dialogs do not report, because they use a default instead. The
 * dialogs do not check the answer to the end of a search either.
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

/** Number of failed operations that need a line in the message log. */
int failuresOf(const SweepStep &step)
{
    int count = 0;
    for (const TranscriptEntry &entry : step.operations)
        count += entry.result != 0 && !isAskedInPassing(entry) ? 1 : 0;
    return count;
}

/** Number of log lines that only the disturbed step has. */
int newLogLines(const SweepStep &undisturbed, const SweepStep &step)
{
    QStringList known = undisturbed.log;
    int count = 0;
    for (const QString &line : step.log)
        count += known.removeOne(line) ? 0 : 1;
    return count;
}

/** The answer to the operation with that number, from 1, not counting messages. */
QString answerAt(const QVector<TranscriptEntry> &transcript, int operation)
{
    for (const TranscriptEntry &entry : transcript) {
        if (entry.operation != Operation::Message && --operation == 0)
            return QString::fromUtf8(entry.answer).trimmed();
    }
    return QString();
}

/** The step of the operation. *operation becomes the operation's number within the step, from 1. */
int stepOf(const QVector<SweepStep> &steps, int *operation)
{
    int step = 0;
    while (step + 1 < steps.size() && *operation > steps.at(step).operations.size())
        *operation -= steps.at(step++).operations.size();
    return step;
}

/** The writes that a line may have: its own, and those of the answer to a box that may not open. */
SweepStep allowedIn(const QVector<SweepStep> &undisturbedSteps, int index, bool isNameUnread)
{
    SweepStep allowed = undisturbedSteps.at(index);
    const SweepStep following = undisturbedSteps.value(index + 1);
    // A body without a name is overwritten without a question, because the question names the body.
    if (isNameUnread && following.line.words.value(0) == QLatin1String("answer"))
        allowed.operations += following.operations;
    return allowed;
}

bool isNameOfBody(const TranscriptEntry &entry)
{
    const CommandTable::Match match = CommandTable::instance().find(CommandAccess::Get, entry.line);
    return entry.isGet() && match.entry && QByteArray(match.entry->pattern) == "body desc TYPE bNN";
}

/**
 * Resetting a body names the target as the controller does. What a fault made of that name counts
 * as one word, which the controller then refuses.
 */
void takeAsOneWord(const QString &answer, QVector<TranscriptEntry> *entries)
{
    const QByteArray made = answer.toUtf8();
    if (!made.contains(' '))
        return;
    for (TranscriptEntry &entry : *entries) {
        if (entry.line.startsWith("morvek2 body calibrate_from_targetlib ")
            && entry.line.endsWith(' ' + made))
            entry.line.replace(entry.line.size() - made.size(), made.size(), "name");
    }
}

QStringList malformations(const QVector<TranscriptEntry> &transcript, const QString &answer)
{
    QStringList found;
    for (const TranscriptEntry &entry : transcript) {
        if (LineChecks::repeats(entry, answer))
            continue;
        const QString problem = LineChecks::malformation(entry);
        if (!problem.isEmpty() && !found.contains(problem))
            found << problem;
    }
    return found;
}

} // namespace

QStringList SweepChecks::violations(const QVector<SweepStep> &undisturbedSteps,
                                    QVector<SweepStep> steps, QVector<TranscriptEntry> transcript,
                                    int disturbed)
{
    const QString answer = answerAt(transcript, disturbed);
    takeAsOneWord(answer, &transcript);
    for (SweepStep &step : steps)
        takeAsOneWord(answer, &step.operations);
    QStringList found = malformations(transcript, answer);
    const int disturbedStep = stepOf(undisturbedSteps, &disturbed);
    const bool isNameUnread =
            isNameOfBody(undisturbedSteps.at(disturbedStep).operations.at(disturbed - 1));
    int next = 0;
    for (int i = 0; i < steps.size(); ++i) {
        const SweepStep &step = steps.at(i);
        // The disturbed run skips expectations, which describe an undisturbed run.
        while (undisturbedSteps.at(next).line.number != step.line.number)
            ++next;
        const SweepStep &undisturbed = undisturbedSteps.at(next);
        if (next < disturbedStep)
            continue;
        const QString place = QStringLiteral("line %1: ").arg(step.line.number);
        const SweepStep allowed = allowedIn(undisturbedSteps, next, isNameUnread);
        // Later lines start from what the disturbance left behind, so that only the kinds of their
        // writes are known.
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
        // A box that does not open in the undisturbed run reports the failure.
        if (failuresOf(step) > failuresOf(undisturbed) && newLogLines(undisturbed, step) == 0
            && step.boxes == 0)
            found << place
                             + QStringLiteral("expected a log line for the failed operation, found "
                                              "none");
    }
    return found;
}
