#pragma once

#include "bodies/bodyregistry.h"

#include <QString>

/**
 * What the operator saw of a body when a question about it was asked. The snapshot is taken before
 * the box opens and is compared with the records after the box has closed, because the answer
 * counts only for the body that the operator saw.
 */
class BodySnapshot {
public:
    /** A snapshot of no body, with which no registry agrees. */
    BodySnapshot() = default;

    BodySnapshot(const BodyRegistry &registry, const QString &type, int index)
        : m_type(type),
          m_index(index),
          m_count(registry.type(type).bodies.size()),
          m_generation(registry.generation()),
          m_locked(registry.isLocked())
    {
        const AdminBody &body = registry.body(type, index);
        m_name = body.desc;
        m_target = body.tlibName;
        m_sensor = body.inertialSensor;
        m_isReference = body.isReference;
    }

    QString type() const { return m_type; }
    int index() const { return m_index; }
    QString name() const { return m_name; }
    /** Name of the body's inertial sensor; empty when it has none. */
    QString sensor() const { return m_sensor; }

    /**
     * True while the records have the body with the same name, target, sensor and reference mark,
     * the same number of bodies of its type, the same configuration and the same lock.
     */
    bool isCurrent(const BodyRegistry &registry) const
    {
        const BodySnapshot now(registry, m_type, m_index);
        return registry.hasBody(m_type, m_index) && m_count == now.m_count
               && m_generation == now.m_generation && m_locked == now.m_locked
               && m_name == now.m_name && m_target == now.m_target && m_sensor == now.m_sensor
               && m_isReference == now.m_isReference;
    }

private:
    QString m_type;
    int m_index = -1;
    int m_count = 0;
    int m_generation = 0;
    bool m_locked = false;
    QString m_name;
    QString m_target;
    QString m_sensor;
    bool m_isReference = false;
};
