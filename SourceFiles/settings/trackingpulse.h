#pragma once

#include "controllerlink.h"

#include <QString>
#include <QVector>

/**
 * Reads and writes the source of the tracking frequency of inertial sensors.
 *
 * A value without widgets; every failure is one line in the message log.
 */
class TrackingPulse {
public:
    enum class Source { Unknown, Cameras, InertialSensor, Frequency };

    /** An inertial sensor that a body carries. */
    struct Sensor {
        QString identifier;
        /// vendor's model description; the identifier when the description is unknown
        QString description;
    };

    explicit TrackingPulse(const ControllerLink &link);

    /** The source of the frequency; Unknown when the query failed or gave any other answer. */
    Source source() const;
    /** The frequency in force, in Hz; a usual value when the controller gives none. */
    double frequencyHz() const;
    /** The sensors that bodies carry, in the controller's order. */
    QVector<Sensor> sensors() const;

    /** Each function sets the source. False, and logged, when the controller refused it. */
    bool followCameras() const;
    bool followSensor(const QString &identifier) const;
    bool setFrequency(double frequencyHz) const;

private:
    static Source sourceOf(const QString &answer);

    ControllerLink m_link;
};
