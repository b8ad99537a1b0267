#include "ScenarioReader.h"

#include "JsonKeys.h"

#include <cmath>
#include <limits>

namespace {

/** A value as the file spells it, shortened to a readable length. */
QString shown(const QJsonValue &value)
{
    constexpr int longest = 60;
    const QString text = JsonKeys::spelled(value);
    return text.size() <= longest ? text : text.left(longest) + QStringLiteral("...");
}

} // namespace

ScenarioReader::ScenarioReader(const QJsonObject &object, const QString &path, QString *error)
    : m_object(object), m_path(path), m_error(error)
{
}

void ScenarioReader::prepare(BodyState &body)
{
    // NaN marks filter values that the body does not give; they come from its preset.
    body.filterStrength = std::numeric_limits<double>::quiet_NaN();
    body.filterPrediction = std::numeric_limits<double>::quiet_NaN();
}

void ScenarioReader::field(const char *key, bool &value)
{
    QJsonValue found;
    if (!take(key, &found))
        return;
    if (found.isBool())
        value = found.toBool();
    else
        fail(pathOf(key), QStringLiteral("true or false"), found);
}

void ScenarioReader::field(const char *key, QString &value, const ScenarioRules::TextRule &rule)
{
    QJsonValue found;
    const bool isThere = take(key, &found);
    const QString expected = QString::fromLatin1(rule.expected);
    if (!isThere) {
        if (!rule.accepts(value))
            fail(pathOf(key), expected, QStringLiteral("nothing"));
    } else if (!found.isString() || !rule.accepts(found.toString())) {
        fail(pathOf(key), expected, found);
    } else {
        value = found.toString();
    }
}

void ScenarioReader::field(const char *key, double &value, const ScenarioRules::NumberRange &range)
{
    number(key, range, false, &value);
}

void ScenarioReader::field(const char *key, int &value, const ScenarioRules::NumberRange &range)
{
    double found = 0.0;
    if (number(key, range, true, &found))
        value = int(found);
}

void ScenarioReader::field(const char *key, QStringList &value)
{
    QJsonArray array;
    if (!take(key, &array))
        return;
    value.clear();
    for (int i = 0; i < array.size(); ++i) {
        if (!array.at(i).isString())
            fail(pathOf(key, i), QStringLiteral("a text"), array.at(i));
        value << array.at(i).toString();
    }
}

void ScenarioReader::field(const char *key, std::array<double, 3> &value)
{
    QJsonArray array;
    if (!take(key, &array))
        return;
    if (array.size() != 3) {
        fail(pathOf(key), QStringLiteral("3 numbers"), QJsonValue(array));
        return;
    }
    for (int i = 0; i < 3; ++i) {
        if (!array.at(i).isDouble())
            fail(pathOf(key, i), QStringLiteral("a number"), array.at(i));
        value[std::size_t(i)] = array.at(i).toDouble();
    }
}

void ScenarioReader::field(const char *key, QMap<QString, BodyTypeState> &value)
{
    QJsonValue found;
    if (!take(key, &found))
        return;
    if (!found.isObject()) {
        fail(pathOf(key), QStringLiteral("an object"), found);
        return;
    }
    value.clear();
    const QJsonObject types = found.toObject();
    for (auto it = types.begin(); it != types.end(); ++it) {
        BodyTypeState type;
        object(pathOf(key) + QLatin1Char('.') + it.key(), it.value(), type);
        value.insert(it.key(), type);
    }
}

void ScenarioReader::finish()
{
    for (auto it = m_object.begin(); it != m_object.end(); ++it) {
        if (m_keys.contains(it.key()))
            continue;
        const QString path = m_path.isEmpty() ? it.key() : m_path + QLatin1Char('.') + it.key();
        fail(path, QStringLiteral("one of the keys ") + m_keys.join(QStringLiteral(", ")),
             QLatin1Char('"') + it.key() + QLatin1Char('"'));
        return;
    }
}

QString ScenarioReader::pathOf(const char *key) const
{
    const QString name = QString::fromLatin1(key);
    return m_path.isEmpty() ? name : m_path + QLatin1Char('.') + name;
}

QString ScenarioReader::pathOf(const char *key, int index) const
{
    return pathOf(key) + QStringLiteral("[%1]").arg(index);
}

bool ScenarioReader::take(const char *key, QJsonValue *value)
{
    const QString name = QString::fromLatin1(key);
    m_keys << name;
    *value = m_object.value(name);
    return !value->isUndefined();
}

bool ScenarioReader::take(const char *key, QJsonArray *array)
{
    QJsonValue found;
    if (!take(key, &found))
        return false;
    if (!found.isArray()) {
        fail(pathOf(key), QStringLiteral("an array"), found);
        return false;
    }
    *array = found.toArray();
    return true;
}

bool ScenarioReader::number(const char *key, const ScenarioRules::NumberRange &range, bool whole,
                            double *value)
{
    QJsonValue found;
    if (!take(key, &found))
        return false;
    const double parsed = found.toDouble();
    const bool isKind = found.isDouble() && (!whole || std::trunc(parsed) == parsed);
    if (!isKind || parsed < range.minimum || parsed > range.maximum) {
        fail(pathOf(key),
             QStringLiteral("a %1 from %2 to %3")
                     .arg(whole ? QStringLiteral("whole number") : QStringLiteral("number"))
                     .arg(range.minimum)
                     .arg(range.maximum),
             found);
        return false;
    }
    *value = parsed;
    return true;
}

void ScenarioReader::fail(const QString &path, const QString &expected, const QJsonValue &found)
{
    fail(path, expected, shown(found));
}

void ScenarioReader::fail(const QString &path, const QString &expected, const QString &found)
{
    if (m_error->isEmpty())
        *m_error = QStringLiteral("%1: expected %2, found %3").arg(path, expected, found);
}
