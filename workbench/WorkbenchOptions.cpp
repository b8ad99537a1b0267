#include "WorkbenchOptions.h"

#include <QCoreApplication>
#include <QVector>

#include <functional>

namespace {

constexpr int maximumLatencyMs = 500;
constexpr int maximumTimeoutS = 3600;
constexpr int mostSteps = 1000000;
constexpr int fewestKept = 100;
constexpr int mostKept = 10000000;

struct OptionEntry {
    QString name;
    QStringList values; ///< names of the values, for messages and the help
    QString meaning;
    std::function<QString(WorkbenchOptions &, const QStringList &)>
            apply; ///< returns an expectation when the values are wrong
};

OptionEntry text(const QString &name, const QString &value, const QString &meaning,
                 QString WorkbenchOptions::*member)
{
    return {name, {value}, meaning, [member](WorkbenchOptions &options, const QStringList &values) {
                options.*member = values.first();
                return values.first().isEmpty() ? QStringLiteral("a text that is not empty")
                                                : QString();
            }};
}

OptionEntry flag(const QString &name, const QString &meaning, bool WorkbenchOptions::*member)
{
    return {name, {}, meaning, [member](WorkbenchOptions &options, const QStringList &) {
                options.*member = true;
                return QString();
            }};
}

QString applyScenario(WorkbenchOptions &options, const QStringList &values)
{
    options.scenario = values.first();
    options.scenarioGiven = true;
    return values.first().isEmpty() ? QStringLiteral("the name of a scenario or a file")
                                    : QString();
}

/** An option that takes a whole number within limits. */
OptionEntry number(const QString &name, const QString &value, const QString &meaning,
                   int WorkbenchOptions::*member, int minimum, int maximum, const QString &unit)
{
    return {name, {value}, meaning, [=](WorkbenchOptions &options, const QStringList &values) {
                bool isNumber = false;
                options.*member = values.first().toInt(&isNumber);
                const bool valid =
                        isNumber && options.*member >= minimum && options.*member <= maximum;
                return valid ? QString()
                             : QStringLiteral("a whole number%1 from %2 to %3")
                                       .arg(unit)
                                       .arg(minimum)
                                       .arg(maximum);
            }};
}

OptionEntry sweepNumber(const QString &name, const QString &meaning, int SweepPlan::*member)
{
    return {name, {"N"}, meaning, [=](WorkbenchOptions &options, const QStringList &values) {
                bool isNumber = false;
                options.sweepPlan.*member = values.first().toInt(&isNumber);
                return isNumber && options.sweepPlan.*member >= 1
                               ? QString()
                               : QStringLiteral("a whole number from 1");
            }};
}

QString applyFaults(WorkbenchOptions &options, const QStringList &values)
{
    // "turns" alone takes turns with all faults, "turns,fail,empty" with those two.
    QStringList names = values.first().split(QLatin1Char(','));
    options.sweepPlan.inTurns = names.removeAll(QStringLiteral("turns")) > 0;
    if (names.isEmpty())
        names << QStringLiteral("all");
    QString problem;
    SweepFaults::parse(names.join(QLatin1Char(',')), &options.sweepPlan.faults, &problem);
    return problem.section(QStringLiteral("expected "), 1).section(QStringLiteral(", found"), 0, 0);
}

/** The options for what is simulated and driven, and how. */
QVector<OptionEntry> playEntries()
{
    using O = WorkbenchOptions;
    return {
            {"scenario", {"NAME|FILE"}, "controller to simulate (default: studio)", applyScenario},
            text("plugin", "FILE", "plug-in to load instead of the built one", &O::pluginFile),
            text("tour", "DIR", "drive the dialogs, write pictures and the transcript into DIR",
                 &O::tourDir),
            text("script", "FILE", "run the actions and expectations of FILE", &O::scriptFile),
            text("demo", "NAME", "show a demonstration; with --headless play and check it",
                 &O::demo),
            flag("headless", "no window on a display, for all that needs no person", &O::headless),
            {"fault",
             {"RULE"},
             "disturb commands, e.g. \"set body active* every 2 refuse\"",
             [](O &options, const QStringList &values) {
                 options.faults += values;
                 return QString();
             }},
            number("latency", "MS", "time each command takes, 0 to 500 ms", &O::latencyMs, 0,
                   maximumLatencyMs, " of ms"),
            number("timeout", "SECONDS", "time a line of a script may take (default: 120)",
                   &O::timeoutS, 1, maximumTimeoutS, " of seconds"),
            number("transcript-limit", "N", "operations the transcript keeps (default: 200000)",
                   &O::transcriptLimit, fewestKept, mostKept, " of operations"),
    };
}

/** The options for sweeps and explorations. */
QVector<OptionEntry> trialEntries()
{
    using O = WorkbenchOptions;
    return {
            text("sweep", "SCRIPT", "play a script with every fault at every operation",
                 &O::sweepFile),
            sweepNumber("every", "sweep every Nth operation only", &SweepPlan::every),
            sweepNumber("from", "sweep from this operation on", &SweepPlan::from),
            sweepNumber("to", "sweep up to this operation", &SweepPlan::to),
            {"faults", {"LIST"}, "sweep with these faults, with all, or in turns", applyFaults},
            text("explore", "SEED", "drive the dialogs at random; 1-20 for many seeds",
                 &O::explore),
            number("steps", "N", "actions for each seed (default: 300)", &O::steps, 1, mostSteps,
                   QString()),
            text("explore-into", "FILE", "drive in this process, with the lines in FILE",
                 &O::exploreInto),
    };
}

/** The options for files that are read and written, and for help and version. */
QVector<OptionEntry> fileEntries()
{
    using O = WorkbenchOptions;
    return {
            text("junit", "FILE", "write the results for build servers", &O::junitFile),
            text("scenario-check", "FILE", "check a scenario and print it in full",
                 &O::scenarioCheckFile),
            text("record", "FILE", "write every operation to FILE, one JSON object a line",
                 &O::recordFile),
            text("replay", "FILE", "answer from a recording, stop at the first difference",
                 &O::replayFile),
            {"transcript-diff",
             {"A", "B"},
             "compare two recordings",
             [](O &options, const QStringList &values) {
                 options.transcriptDiff = values;
                 return QString();
             }},
            flag("help", "show this text; also -h", &O::help),
            flag("version", "show the version; also -v", &O::version),
    };
}

QVector<OptionEntry> entries()
{
    return playEntries() + trialEntries() + fileEntries();
}

const OptionEntry *findEntry(const QVector<OptionEntry> &known, const QString &name)
{
    for (const OptionEntry &entry : known) {
        if (entry.name == name)
            return &entry;
    }
    return nullptr;
}

/** The option that an argument without two dashes means; empty when it means none. */
QString longName(const QString &argument)
{
    if (argument == QLatin1String("-h"))
        return QStringLiteral("help");
    if (argument == QLatin1String("-v"))
        return QStringLiteral("version");
    // "transcript-diff A B" reads like a command of its own, so the dashes may be left out.
    return argument == QLatin1String("transcript-diff") ? argument : QString();
}

/** A contradiction between options; empty when there is none. */
QString conflict(const WorkbenchOptions &options)
{
    const QStringList given = {options.tourDir, options.scriptFile, options.demo, options.sweepFile,
                               options.explore};
    const int drivers = given.size() - given.count(QString());
    if (options.headless && drivers == 0)
        return QStringLiteral(
                "--headless: expected --script, --demo, --tour, --sweep or --explore beside it");
    if (!options.exploreInto.isEmpty() && options.explore.isEmpty())
        return QStringLiteral("--explore-into: expected --explore beside it");
    if (drivers > 1)
        return QStringLiteral(
                "--tour, --script, --demo, --sweep, --explore: expected only one of them");
    return QString();
}

} // namespace

bool WorkbenchOptions::parse(const QStringList &arguments, WorkbenchOptions *options,
                             QString *error)
{
    const QVector<OptionEntry> known = entries();
    for (int i = 0; i < arguments.size(); ++i) {
        const QString &argument = arguments.at(i);
        const bool isOption = argument.startsWith(QLatin1String("--"));
        const int equals = isOption ? argument.indexOf(QLatin1Char('=')) : -1;
        const QString name =
                isOption ? argument.mid(2, equals < 0 ? -1 : equals - 2) : longName(argument);
        const OptionEntry *entry = findEntry(known, name);
        if (!entry) {
            *error = QStringLiteral("%1: expected an option; --help lists them").arg(argument);
            return false;
        }
        QStringList values;
        if (equals >= 0)
            values << argument.mid(equals + 1);
        while (values.size() < entry->values.size() && i + 1 < arguments.size())
            values << arguments.at(++i);
        if (values.size() != entry->values.size()) {
            *error = QStringLiteral("--%1: expected %2")
                             .arg(name, entry->values.isEmpty()
                                                ? QStringLiteral("no value")
                                                : entry->values.join(QLatin1Char(' ')));
            return false;
        }
        const QString expectation = entry->apply(*options, values);
        if (!expectation.isEmpty()) {
            *error = QStringLiteral("--%1: expected %2, found \"%3\"")
                             .arg(name, expectation, values.join(QLatin1Char(' ')));
            return false;
        }
    }
    *error = conflict(*options);
    return error->isEmpty();
}

QString WorkbenchOptions::helpText()
{
    QString help = QStringLiteral("Usage: workbench [options]\n\n"
                                  "A substitute host with a simulated tracking controller.\n\n");
    for (const OptionEntry &entry : entries()) {
        const QString usage = QStringLiteral("--%1 %2").arg(entry.name, entry.values.join(' '));
        help += QStringLiteral("  %1 %2\n").arg(usage, -26).arg(entry.meaning);
    }
    return help
           + QStringLiteral("\nExit status: 0 done, 1 an expectation failed, 2 unusable input.\n");
}
