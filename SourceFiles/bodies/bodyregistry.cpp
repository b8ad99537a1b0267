#include "bodies/bodyregistry.h"

#include <QSpinBox>
#include <QTableWidget>

#include <algorithm>

void BodyRegistry::insert(const QString &type, const AdminBodyType &record)
{
    m_types.insert(type, record);
}

void BodyRegistry::remove(const QString &type)
{
    m_types.remove(type);
}

AdminBodyType *BodyRegistry::find(const QString &type)
{
    const auto found = m_types.find(type);
    return found == m_types.end() ? nullptr : &found.value();
}

const AdminBodyType &BodyRegistry::type(const QString &type) const
{
    static const AdminBodyType unknown;
    const auto found = m_types.constFind(type);
    return found == m_types.constEnd() ? unknown : found.value();
}

bool BodyRegistry::hasBody(const QString &typeName, int index) const
{
    return type(typeName).isValidIndex(index);
}

const AdminBody &BodyRegistry::body(const QString &typeName, int index) const
{
    static const AdminBody unknown;
    const AdminBodyType &record = type(typeName);
    return record.isValidIndex(index) ? record.bodies.at(index) : unknown;
}

void BodyRegistry::setLimit(const QString &typeName, int limit)
{
    if (AdminBodyType *record = find(typeName))
        record->limit = limit;
}

int BodyRegistry::calibratedBodies(const QString &typeName) const
{
    const QVector<AdminBody> &bodies = type(typeName).bodies;
    return int(std::count_if(bodies.begin(), bodies.end(),
                             [](const AdminBody &body) { return body.calibrated; }));
}

void BodyRegistry::countSensors(const QString &typeName)
{
    AdminBodyType *record = find(typeName);
    if (!record)
        return;
    const QVector<AdminBody> &bodies = record->bodies;
    record->numInertialSensors =
            int(std::count_if(bodies.begin(), bodies.end(), [](const AdminBody &body) {
                return !body.inertialSensor.isEmpty();
            }));
}

QString BodyRegistry::label(const QString &typeName) const
{
    const QString description = type(typeName).typedesc;
    return description.isEmpty() ? typeName : description;
}

QString BodyRegistry::typeOfTable(const QObject *table) const
{
    for (auto record = m_types.constBegin(); record != m_types.constEnd(); ++record) {
        if (table && record->tableWidget == table)
            return record.key();
    }
    return {};
}

QString BodyRegistry::typeOfSpinBox(const QObject *spinBox) const
{
    for (auto record = m_types.constBegin(); record != m_types.constEnd(); ++record) {
        if (spinBox && record->spinBox == spinBox)
            return record.key();
    }
    return {};
}
