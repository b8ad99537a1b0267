#include "ScenarioWriter.h"

void ScenarioWriter::field(const char *key, const std::array<double, 3> &value)
{
    insert(key, QJsonArray{value[0], value[1], value[2]});
}

void ScenarioWriter::field(const char *key, const QMap<QString, BodyTypeState> &value)
{
    QJsonObject types;
    for (auto it = value.cbegin(); it != value.cend(); ++it)
        types.insert(it.key(), toObject(it.value()));
    insert(key, types);
}

void ScenarioWriter::insert(const char *key, const QJsonValue &value)
{
    m_object.insert(QString::fromLatin1(key), value);
}
