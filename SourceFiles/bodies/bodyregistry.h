#pragma once

#include "bodies/adminbodytype.h"

#include <QMap>
#include <QString>
#include <QStringList>

class QObject;

/**
 * The body types that a tab registered, by their names. It holds the controller's bodies as they
 * were read last, and the widgets that show each type. A plain value that queries and sends
 * nothing. A type or body that does not exist reads as a record of default values.
 */
class BodyRegistry {
public:
    /** Stores the record of a type; replaces an existing one. */
    void insert(const QString &type, const AdminBodyType &record);
    /** Removes a type; does nothing when the type is not registered. */
    void remove(const QString &type);
    bool contains(const QString &type) const { return m_types.contains(type); }
    /** The registered types in the order of their names. */
    QStringList names() const { return m_types.keys(); }

    /** The record of a type; makes it when the type is not registered. */
    AdminBodyType &operator[](const QString &type) { return m_types[type]; }
    /** The record of a type; null when it is not registered. */
    AdminBodyType *find(const QString &type);
    /** The record of a type; a record of default values when the type is not registered. */
    const AdminBodyType &type(const QString &type) const;
    /** The record of a body; a record of default values when the body does not exist. */
    const AdminBody &body(const QString &type, int index) const;
    /** True when the type is registered and has a body with that zero-based index. */
    bool hasBody(const QString &type, int index) const;

    /** Sets the largest number of bodies that the type may have. */
    void setLimit(const QString &type, int limit);
    /** Number of bodies of the type with a geometry. */
    int calibratedBodies(const QString &type) const;
    /**
     * Counts the bodies of the type that carry an inertial sensor, and stores the number in its
     * record.
     */
    void countSensors(const QString &type);
    /** The controller's description of a type, or its name when the controller gave none. */
    QString label(const QString &type) const;

    /** The type whose bodies that table shows; empty when it is not a body table. */
    QString typeOfTable(const QObject *table) const;
    /** The type whose number of bodies that box shows; empty when it is not such a box. */
    QString typeOfSpinBox(const QObject *spinBox) const;

    /** True when the active configuration cannot be changed. */
    bool isLocked() const { return m_locked; }
    void setLocked(bool locked) { m_locked = locked; }
    /**
     * How often another configuration has become active. Values read before belong to an earlier
     * one.
     */
    int generation() const { return m_generation; }
    void beginGeneration() { ++m_generation; }

private:
    QMap<QString, AdminBodyType> m_types;
    bool m_locked = false;
    int m_generation = 0;
};
