#include "JsonKeys.h"

#include <QJsonArray>
#include <QJsonDocument>
#include <QSet>
#include <QStringList>
#include <QVector>

namespace {

/** An object or array that contains the present position. */
struct Level {
    bool isObject = false;
    QSet<QString> keys;
    QString key;   ///< in an object: the key read last
    int index = 0; ///< in an array: the element that is being read
};

/**
 * Reads the string whose opening quote is at *position, and moves *position to the closing quote.
 */
QString readString(const QByteArray &json, int *position)
{
    const int begin = *position;
    int end = begin + 1;
    while (end < json.size() && json.at(end) != '"')
        end += json.at(end) == '\\' ? 2 : 1;
    *position = end;
    // Two spellings of one key, such as "a" and "\u0061", count as the same key.
    const QByteArray array = '[' + json.mid(begin, end - begin + 1) + ']';
    return QJsonDocument::fromJson(array).array().at(0).toString();
}

QString pathOf(const QVector<Level> &levels)
{
    QString path;
    for (const Level &level : levels) {
        if (!level.isObject)
            path += QStringLiteral("[%1]").arg(level.index);
        else
            path += path.isEmpty() ? level.key : QLatin1Char('.') + level.key;
    }
    return path;
}

} // namespace

QString JsonKeys::firstDuplicate(const QByteArray &json)
{
    QVector<Level> levels;
    bool isKeyNext = false;
    for (int i = 0; i < json.size(); ++i) {
        const char sign = json.at(i);
        if (sign == '{' || sign == '[') {
            Level level;
            level.isObject = sign == '{';
            levels.append(level);
            isKeyNext = level.isObject;
        } else if (sign == '}' || sign == ']') {
            levels.removeLast();
            isKeyNext = false;
        } else if (sign == ',') {
            isKeyNext = levels.last().isObject;
            ++levels.last().index;
        } else if (sign == '"') {
            const QString text = readString(json, &i);
            if (!isKeyNext)
                continue;
            isKeyNext = false;
            Level &object = levels.last();
            object.key = text;
            if (object.keys.contains(text))
                return pathOf(levels);
            object.keys.insert(text);
        }
    }
    return QString();
}

QString JsonKeys::spelled(const QJsonValue &value)
{
    const QByteArray array = QJsonDocument(QJsonArray{value}).toJson(QJsonDocument::Compact);
    return QString::fromUtf8(array.mid(1, array.size() - 2));
}
