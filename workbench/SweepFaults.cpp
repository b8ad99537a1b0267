#include "SweepFaults.h"

#include "FaultRuleParser.h"
#include "Suggestion.h"
#include "TranscriptEntry.h"

bool SweepFault::concerns(const TranscriptEntry &entry) const
{
    FaultRule parsed;
    QString error;
    return FaultRuleParser::parse(rule.arg(1), &parsed, &error)
           && FaultRuleParser::concerns(parsed, entry.operation);
}

const QVector<SweepFault> &SweepFaults::all()
{
    static const QVector<SweepFault> faults = {
            {"fail", "* at %1 fail"},
            {"dead", "* from %1 fail"},
            {"empty", "* at %1 empty"},
            {"garbage", "* at %1 answer \"?|;:,. 'x\""},
            {"long", "* at %1 long"},
            {"over-long", "* at %1 over-long"},
            {"bytes", "* at %1 garbled"},
            {"format", "* at %1 answer \"%n%s%n%s\""},
            {"huge", "* at %1 answer \"99999999999999999999\""},
            {"big", "* at %1 answer \"2147483647\""},
            {"negative", "* at %1 answer \"-7\""},
            {"nan", "* at %1 answer \"nan\""},
            {"markup", "* at %1 answer \"\\\"<b>x</b>&amp;<img src='y'>\\\"\""},
            {"none", "* at %1 answer \"none\""},
            {"report-failed", "* at %1 report-failed"},
            {"refuse", "* at %1 refuse"},
            {"lock", "* at %1 lock"},
            {"slow", "* from %1 delay 5000"},
    };
    return faults;
}

QStringList SweepFaults::names()
{
    QStringList names;
    for (const SweepFault &fault : all())
        names << fault.name;
    return names;
}

bool SweepFaults::parse(const QString &list, QVector<SweepFault> *faults, QString *problem)
{
    *faults = list == QLatin1String("all") ? all() : QVector<SweepFault>();
    if (!faults->isEmpty())
        return true;
    for (const QString &name : list.split(QLatin1Char(','))) {
        const int index = names().indexOf(name.trimmed());
        if (index < 0) {
            *problem = QStringLiteral("expected all or some of %1, found \"%2\"%3")
                               .arg(names().join(QLatin1Char(',')), name,
                                    Suggestion::forWord(name, names()));
            return false;
        }
        *faults << all().at(index);
    }
    return true;
}
