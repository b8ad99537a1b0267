#include "ScenarioFile.h"

#include "ControllerRules.h"
#include "JsonKeys.h"
#include "ScenarioCheck.h"
#include "ScenarioReader.h"
#include "ScenarioWriter.h"

#include <QFile>
#include <QFileInfo>
#include <QJsonArray>
#include <QJsonDocument>
#include <QJsonParseError>
#include <QSaveFile>

#include <cmath>

namespace {

/** The place of a syntax error; the parser counts the wrong character as read. */
QString placeOf(const QByteArray &json, int offset)
{
    const QByteArray before = json.left(qBound(0, offset - 1, json.size()));
    const int line = before.count('\n') + 1;
    const int column = before.size() - before.lastIndexOf('\n');
    return QStringLiteral("line %1, column %2").arg(line).arg(column);
}

void fillFilterValues(ControllerState *state)
{
    for (BodyTypeState &type : state->bodyTypes) {
        for (BodyState &body : type.bodies) {
            const FilterPresetState *preset = ControllerRules::preset(*state, body.filterPreset);
            if (std::isnan(body.filterStrength))
                body.filterStrength = preset ? preset->strength : BodyState().filterStrength;
            if (std::isnan(body.filterPrediction))
                body.filterPrediction = preset ? preset->prediction : BodyState().filterPrediction;
            if (preset && body.filterMode.isEmpty())
                body.filterMode = preset->mode;
        }
    }
}

QString shownOrNothing(const QJsonValue &value)
{
    return value.isUndefined() ? QStringLiteral("nothing") : JsonKeys::spelled(value);
}

void collectDifferences(const QString &path, const QJsonValue &before, const QJsonValue &after,
                        QStringList *lines)
{
    if (before == after)
        return;
    if (before.isObject() && after.isObject()) {
        const QJsonObject old = before.toObject();
        const QJsonObject now = after.toObject();
        QStringList keys = old.keys() + now.keys();
        keys.sort();
        keys.removeDuplicates();
        for (const QString &key : qAsConst(keys)) {
            collectDifferences(path.isEmpty() ? key : path + QLatin1Char('.') + key, old.value(key),
                               now.value(key), lines);
        }
    } else if (before.isArray() && after.isArray()) {
        const QJsonArray old = before.toArray();
        const QJsonArray now = after.toArray();
        for (int i = 0; i < qMax(old.size(), now.size()); ++i) {
            collectDifferences(path + QStringLiteral("[%1]").arg(i),
                               i < old.size() ? old.at(i) : QJsonValue(QJsonValue::Undefined),
                               i < now.size() ? now.at(i) : QJsonValue(QJsonValue::Undefined),
                               lines);
        }
    } else {
        *lines << QStringLiteral("%1: %2 -> %3")
                          .arg(path, shownOrNothing(before), shownOrNothing(after));
    }
}

} // namespace

namespace ScenarioFile {

bool load(const QString &path, Scenario *scenario, QString *error)
{
    QFile file(path);
    if (!file.open(QIODevice::ReadOnly)) {
        *error = QStringLiteral("%1: cannot be read: %2").arg(path, file.errorString());
        return false;
    }
    Scenario loaded;
    if (!parse(file.readAll(), path, &loaded, error))
        return false;
    if (loaded.name.isEmpty())
        loaded.name = QFileInfo(path).completeBaseName();
    *scenario = loaded;
    return true;
}

bool parse(const QByteArray &json, const QString &name, Scenario *scenario, QString *error)
{
    QJsonParseError syntax;
    const QJsonDocument document = QJsonDocument::fromJson(json, &syntax);
    if (syntax.error != QJsonParseError::NoError) {
        *error = QStringLiteral("%1: %2: %3")
                         .arg(name, placeOf(json, syntax.offset), syntax.errorString());
        return false;
    }
    if (!document.isObject()) {
        *error = QStringLiteral("%1: expected an object, found an array").arg(name);
        return false;
    }
    const QString duplicate = JsonKeys::firstDuplicate(json);
    if (!duplicate.isEmpty()) {
        *error = QStringLiteral("%1: %2: expected the key once, found it twice")
                         .arg(name, duplicate);
        return false;
    }
    Scenario parsed;
    QString problem;
    ScenarioReader reader(document.object(), QString(), &problem);
    describe(reader, parsed);
    reader.finish();
    fillFilterValues(&parsed.state);
    if (problem.isEmpty())
        problem = scenarioConflict(parsed);
    if (!problem.isEmpty()) {
        *error = QStringLiteral("%1: %2").arg(name, problem);
        return false;
    }
    *scenario = parsed;
    return true;
}

QJsonObject toJson(const ControllerState &state)
{
    return ScenarioWriter::toObject(state);
}

QByteArray toBytes(const Scenario &scenario)
{
    return QJsonDocument(ScenarioWriter::toObject(scenario)).toJson(QJsonDocument::Indented);
}

bool save(const QString &path, const Scenario &scenario, QString *error)
{
    const QByteArray json = toBytes(scenario);
    QSaveFile file(path);
    if (!file.open(QIODevice::WriteOnly) || file.write(json) != json.size() || !file.commit()) {
        *error = QStringLiteral("%1: cannot be written: %2").arg(path, file.errorString());
        return false;
    }
    return true;
}

QStringList differences(const ControllerState &before, const ControllerState &after)
{
    QStringList lines;
    collectDifferences(QString(), toJson(before), toJson(after), &lines);
    return lines;
}

} // namespace ScenarioFile
