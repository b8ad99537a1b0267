#include "StatePath.h"

#include "ScenarioFile.h"

#include <QJsonArray>
#include <QJsonDocument>
#include <QJsonValue>
#include <QRegularExpression>
#include <QStringList>

namespace {

/** "a.b[2].c" as "a", "b", "[2]", "c"; empty when it is no path. */
QStringList steps(const QString &path)
{
    static const QRegularExpression shape(
            QStringLiteral("^[^.\\[\\]]+(\\[\\d+\\])*(\\.[^.\\[\\]]+(\\[\\d+\\])*)*$"));
    if (!shape.match(path).hasMatch())
        return QStringList();
    QString separated = path;
    separated.replace(QLatin1Char('['), QLatin1String(".["));
    return separated.split(QLatin1Char('.'), Qt::SkipEmptyParts);
}

int indexOf(const QString &step)
{
    return step.startsWith(QLatin1Char('[')) ? step.mid(1, step.size() - 2).toInt() : -1;
}

QJsonValue child(const QJsonValue &value, const QString &step)
{
    const int index = indexOf(step);
    // at() with an index beyond the end returns undefined.
    return index >= 0 ? value.toArray().at(index) : value.toObject().value(step);
}

QString textOf(const QJsonValue &value)
{
    switch (value.type()) {
    case QJsonValue::Bool:
        return value.toBool() ? QStringLiteral("true") : QStringLiteral("false");
    case QJsonValue::Double:
        return QString::number(value.toDouble(), 'g', QLocale::FloatingPointShortest);
    case QJsonValue::String:
        return value.toString();
    case QJsonValue::Array:
        return QString::fromUtf8(QJsonDocument(value.toArray()).toJson(QJsonDocument::Compact));
    case QJsonValue::Object:
        return QString::fromUtf8(QJsonDocument(value.toObject()).toJson(QJsonDocument::Compact));
    default:
        return QStringLiteral("null");
    }
}

/** The new value with the type of the old one; undefined when the text does not fit that type. */
QJsonValue sameKind(const QJsonValue &old, const QString &text)
{
    if (old.isString())
        return text;
    if (old.isBool() && (text == QLatin1String("true") || text == QLatin1String("false")))
        return text == QLatin1String("true");
    bool isNumber = false;
    const double number = text.toDouble(&isNumber);
    return old.isDouble() && isNumber ? QJsonValue(number) : QJsonValue(QJsonValue::Undefined);
}

QJsonValue replaced(const QJsonValue &value, const QStringList &path, int depth,
                    const QJsonValue &leaf)
{
    if (depth == path.size())
        return leaf;
    const QString &step = path.at(depth);
    const QJsonValue inner = replaced(child(value, step), path, depth + 1, leaf);
    if (indexOf(step) >= 0) {
        QJsonArray array = value.toArray();
        array.replace(indexOf(step), inner);
        return array;
    }
    QJsonObject object = value.toObject();
    object.insert(step, inner);
    return object;
}

bool find(const QJsonObject &root, const QString &path, QJsonValue *value, QString *problem)
{
    const QStringList names = steps(path);
    *value = names.isEmpty() ? QJsonValue(QJsonValue::Undefined) : QJsonValue(root);
    for (const QString &step : names) {
        *value = child(*value, step);
        if (value->isUndefined())
            break;
    }
    if (value->isUndefined())
        *problem = QStringLiteral("expected a value at \"%1\", found none").arg(path);
    return !value->isUndefined();
}

} // namespace

bool StatePath::read(const ControllerState &state, const QString &path, QString *value,
                     QString *problem)
{
    QJsonValue found;
    if (!find(ScenarioFile::toJson(state), path, &found, problem))
        return false;
    *value = textOf(found);
    return true;
}

bool StatePath::write(ControllerState *state, const QString &path, const QString &value,
                      QString *problem)
{
    const QJsonObject root = ScenarioFile::toJson(*state);
    QJsonValue old;
    if (!find(root, path, &old, problem))
        return false;
    const QJsonValue leaf = sameKind(old, value);
    if (leaf.isUndefined()) {
        *problem = QStringLiteral("expected a value like \"%1\" for \"%2\", found \"%3\"")
                           .arg(textOf(old), path, value);
        return false;
    }
    const QJsonObject changed{{QStringLiteral("state"), replaced(root, steps(path), 0, leaf)}};
    Scenario scenario;
    if (!ScenarioFile::parse(QJsonDocument(changed).toJson(), path, &scenario, problem))
        return false;
    *state = scenario.state;
    return true;
}
