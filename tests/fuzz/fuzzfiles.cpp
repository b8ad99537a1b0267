#include "FaultRuleParser.h"
#include "Recording.h"
#include "ScenarioFile.h"
#include "Script.h"
#include "fuzztargets.h"

#include <QJsonDocument>
#include <QJsonObject>

void FuzzTargets::scenario(const QByteArray &input)
{
    Scenario read;
    QString error;
    if (!ScenarioFile::parse(input, QStringLiteral("input"), &read, &error)) {
        expect(!error.isEmpty(), "a refused scenario has a reason");
        return;
    }
    const QJsonObject written{{QStringLiteral("name"), read.name},
                              {QStringLiteral("state"), ScenarioFile::toJson(read.state)}};
    Scenario again;
    expect(ScenarioFile::parse(QJsonDocument(written).toJson(), QStringLiteral("written"), &again,
                               &error),
           "a written scenario can be read");
    expect(ScenarioFile::differences(read.state, again.state).isEmpty(),
           "a written scenario is the same");
}

void FuzzTargets::script(const QByteArray &input)
{
    Script read;
    QString error;
    const bool understood = Script::parse(input, QStringLiteral("input"), &read, &error);
    expect(understood || !error.isEmpty(), "a refused script has a reason");
    if (!understood)
        return;
    for (const Script::Line &line : qAsConst(read.lines))
        expect(!line.words.isEmpty() && line.number > 0, "a line of a script has words");
}

void FuzzTargets::recording(const QByteArray &input)
{
    for (const QByteArray &line : input.split('\n')) {
        TranscriptEntry read;
        QString problem;
        if (!Recording::fromLine(line, &read, &problem)) {
            expect(!problem.isEmpty(), "a refused line has a reason");
            continue;
        }
        TranscriptEntry again;
        expect(Recording::fromLine(Recording::toLine(read), &again, &problem),
               "a written operation can be read");
        expect(Recording::difference({read}, {again}).isEmpty(), "a written operation is the same");
    }
}

void FuzzTargets::faultrule(const QByteArray &input)
{
    for (const QByteArray &line : input.split('\n')) {
        FaultRule rule;
        QString error;
        const bool understood = FaultRuleParser::parse(QString::fromUtf8(line), &rule, &error);
        expect(understood || !error.isEmpty(), "a refused rule has a reason");
        if (understood)
            expect(!FaultRuleParser::effectName(rule.effect).isEmpty(), "a rule has an effect");
    }
}
