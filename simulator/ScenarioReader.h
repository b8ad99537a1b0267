#pragma once

#include "ScenarioFields.h"

#include <QJsonArray>
#include <QJsonObject>
#include <QJsonValue>
#include <QMap>
#include <QString>
#include <QStringList>
#include <QVector>

#include <array>

/**
 * Reads one JSON object strictly: unknown keys and values of another type or out of range are
 * errors. A missing key leaves the value unchanged. The first error is stored in *error as
 * "key.path[3]: expected ..., found ...", with indexes from 0.
 */
class ScenarioReader {
public:
    /** `path` is written before the keys in errors. *error is empty at first. */
    ScenarioReader(const QJsonObject &object, const QString &path, QString *error);

    /** Takes a value over if the object has the key and its value fits. @{ */
    void field(const char *key, bool &value);
    void field(const char *key, QString &value,
               const ScenarioRules::TextRule &rule = ScenarioRules::anyText());
    void field(const char *key, double &value, const ScenarioRules::NumberRange &range);
    void field(const char *key, int &value, const ScenarioRules::NumberRange &range);
    void field(const char *key, QStringList &value);
    void field(const char *key, std::array<double, 3> &value);
    void field(const char *key, QMap<QString, BodyTypeState> &value);

    template <typename Item>
    void field(const char *key, QVector<Item> &value)
    {
        QJsonArray array;
        if (!take(key, &array))
            return;
        value.clear();
        for (int i = 0; i < array.size(); ++i) {
            Item item;
            prepare(item);
            object(pathOf(key, i), array.at(i), item);
            value << item;
        }
    }

    template <typename Item, std::size_t size>
    void field(const char *key, std::array<Item, size> &value)
    {
        QJsonArray array;
        if (!take(key, &array))
            return;
        if (array.size() != int(size)) {
            fail(pathOf(key), QStringLiteral("%1 elements").arg(size),
                 QString::number(array.size()));
            return;
        }
        for (int i = 0; i < array.size(); ++i)
            object(pathOf(key, i), array.at(i), value[std::size_t(i)]);
    }

    template <typename Item>
    void field(const char *key, Item &value)
    {
        QJsonValue found;
        if (take(key, &found))
            object(pathOf(key), found, value);
    }

    /** @} */

    /** Reports a key that no field has read. */
    void finish();

private:
    static void prepare(BodyState &body);
    template <typename Item>
    static void prepare(Item &)
    {
    }

    template <typename Item>
    void object(const QString &path, const QJsonValue &value, Item &item)
    {
        if (!value.isObject()) {
            fail(path, QStringLiteral("an object"), value);
            return;
        }
        ScenarioReader reader(value.toObject(), path, m_error);
        describe(reader, item);
        reader.finish();
    }

    QString pathOf(const char *key) const;
    QString pathOf(const char *key, int index) const;
    bool take(const char *key, QJsonValue *value);
    bool take(const char *key, QJsonArray *array);
    bool number(const char *key, const ScenarioRules::NumberRange &range, bool whole,
                double *value);
    void fail(const QString &path, const QString &expected, const QJsonValue &found);
    void fail(const QString &path, const QString &expected, const QString &found);

    QJsonObject m_object;
    QString m_path;
    QString *m_error;
    QStringList m_keys;
};
