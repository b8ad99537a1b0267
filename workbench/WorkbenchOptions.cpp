#include "WorkbenchOptions.h"

#include <QCoreApplication>
#include <QVector>

#include <functional>

namespace {

constexpr int maximumLatencyMs = 500;
constexpr int maximumTimeoutS = 3600;

struct OptionEntry {
    QString name;
    QStringList values; ///< names of the values, for messages and the help
    QString meaning;
    std::function<QString(WorkbenchOptions &, const QStringList &)>
            apply; ///< answers an expectation
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

QString applyLatency(WorkbenchOptions &options, const QStringList &values)
{
    bool isNumber = false;
    options.latencyMs = values.first().toInt(&isNumber);
    const bool valid = isNumber && options.latencyMs >= 0 && options.latencyMs <= maximumLatencyMs;
    return valid ? QString()
                 : QStringLiteral("a whole number of ms from 0 to %1").arg(maximumLatencyMs);
}

QString applyTimeout(WorkbenchOptions &options, const QStringList &values)
{
    bool isNumber = false;
    options.timeoutS = values.first().toInt(&isNumber);
    const bool valid = isNumber && options.timeoutS >= 1 && options.timeoutS <= maximumTimeoutS;
    return valid ? QString()
                 : QStringLiteral("a whole number of seconds from 1 to %1").arg(maximumTimeoutS);
}

QVector<OptionEntry> entries()
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
            flag("headless", "no window on a display; needs --script, --demo or --tour",
                 &O::headless),
            {"fault",
             {"RULE"},
             "disturb commands, e.g. \"set body active* every 2 refuse\"",
             [](O &options, const QStringList &values) {
                 options.faults += values;
                 return QString();
             }},
            {"latency", {"MS"}, "time each command takes, 0 to 500 ms", applyLatency},
            {"timeout",
             {"SECONDS"},
             "time a line of a script may take (default: 120)",
             applyTimeout},
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
            flag("help", "show this text", &O::help),
            flag("version", "show the version", &O::version),
    };
}

const OptionEntry *findEntry(const QVector<OptionEntry> &known, const QString &name)
{
    for (const OptionEntry &entry : known) {
        if (entry.name == name)
            return &entry;
    }
    return nullptr;
}

/** What the options ask for together that cannot be done; empty when they fit. */
QString conflict(const WorkbenchOptions &options)
{
    if (options.headless && options.tourDir.isEmpty() && options.scriptFile.isEmpty()
        && options.demo.isEmpty())
        return QStringLiteral("--headless: expected --script, --demo or --tour beside it");
    const int drivers = int(!options.tourDir.isEmpty()) + int(!options.scriptFile.isEmpty())
                        + int(!options.demo.isEmpty());
    if (drivers > 1)
        return QStringLiteral("--tour, --script, --demo: expected only one of them");
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
        // "transcript-diff A B" reads like a command of its own, so the dashes may be left out.
        const QString name =
                argument == QLatin1String("transcript-diff")
                        ? argument
                        : (isOption ? argument.mid(2, equals < 0 ? -1 : equals - 2) : QString());
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
