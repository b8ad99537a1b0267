#pragma once

#include "ScenarioFields.h"

#include <QJsonArray>
#include <QJsonObject>
#include <QMap>
#include <QString>
#include <QStringList>
#include <QVector>

#include <array>

/** Writes every field of a described value into a JSON object. */
class ScenarioWriter {
public:
    /** The item as a JSON object with all its fields. */
    template <typename Item>
    static QJsonObject toObject(Item item)
    {
        ScenarioWriter writer;
        describe(writer, item);
        return writer.m_object;
    }

    /** Writes a value under its key; the reader's rule for it is not looked at. @{ */
    void field(const char *key, const bool &value) { insert(key, value); }
    void field(const char *key, const QString &value,
               const ScenarioRules::TextRule & = ScenarioRules::anyText())
    {
        insert(key, value);
    }
    void field(const char *key, const double &value, const ScenarioRules::NumberRange &)
    {
        insert(key, value);
    }
    void field(const char *key, const int &value, const ScenarioRules::NumberRange &)
    {
        insert(key, value);
    }
    void field(const char *key, const QStringList &value)
    {
        insert(key, QJsonArray::fromStringList(value));
    }
    void field(const char *key, const std::array<double, 3> &value);
    void field(const char *key, const QMap<QString, BodyTypeState> &value);

    template <typename Item>
    void field(const char *key, const QVector<Item> &value)
    {
        QJsonArray array;
        for (const Item &item : value)
            array << toObject(item);
        insert(key, array);
    }

    template <typename Item, std::size_t size>
    void field(const char *key, const std::array<Item, size> &value)
    {
        QJsonArray array;
        for (const Item &item : value)
            array << toObject(item);
        insert(key, array);
    }

    template <typename Item>
    void field(const char *key, const Item &value)
    {
        insert(key, toObject(value));
    }
    /** @} */

private:
    void insert(const char *key, const QJsonValue &value);

    QJsonObject m_object;
};
