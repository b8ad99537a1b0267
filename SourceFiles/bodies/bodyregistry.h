#pragma once

#include "bodies/adminbodytype.h"

#include <QMap>
#include <QString>
#include <QStringList>

class QObject;

/**
 * The body types that a tab registered, by their names: the picture of the controller's bodies as
 * it was read last, and which widget shows which type. A plain value that queries and sends
 * nothing. What is not there reads as a record of default values.
 */
class BodyRegistry {
public:
    /** Stores the record of a type; one that is there already is replaced. */
    void insert(const QString &type, const AdminBodyType &record);
    /** Forgets a type; one that is not there changes nothing. */
    void remove(const QString &type);
    bool contains(const QString &type) const { return m_types.contains(type); }
    /** The registered types in the order of their names. */
    QStringList names() const { return m_types.keys(); }

    /** The record of a type, made when it is not there. */
    AdminBodyType &operator[](const QString &type) { return m_types[type]; }
    /** The record of a type; null when it is not registered. */
    AdminBodyType *find(const QString &type);
    /** The record of a type; one of default values when it is not registered. */
    const AdminBodyType &type(const QString &type) const;
    /** The record of a body; one of default values when it is not there. */
    const AdminBody &body(const QString &type, int index) const;
    /** True when the type is registered and has a body of that zero-based index. */
    bool hasBody(const QString &type, int index) const;

    /** The largest number of bodies that the type may have. */
    void setLimit(const QString &type, int limit);
    /** Bodies of the type with a geometry. */
    int calibratedBodies(const QString &type) const;
    /** Counts the bodies of the type that carry an inertial sensor into its record. */
    void countSensors(const QString &type);
    /** The controller's description of a type, or its name when the controller gave none. */
    QString label(const QString &type) const;

    /** The type whose bodies that table shows; empty when it is none of the body tables. */
    QString typeOfTable(const QObject *table) const;
    /** The type whose number of bodies that box shows; empty when it is none of them. */
    QString typeOfSpinBox(const QObject *spinBox) const;

    /** The configuration that the bodies belong to cannot be changed. */
    bool isLocked() const { return m_locked; }
    void setLocked(bool locked) { m_locked = locked; }
    /** Counts the configurations that became active: what was read before belongs to another. */
    int generation() const { return m_generation; }
    void beginGeneration() { ++m_generation; }

private:
    QMap<QString, AdminBodyType> m_types;
    bool m_locked = false;
    int m_generation = 0;
};
