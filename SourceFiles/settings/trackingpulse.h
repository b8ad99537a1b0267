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
        QString description; ///< vendor's model description; the identifier when that is unknown
    };

    explicit TrackingPulse(const ControllerLink &link);

    /** Where the frequency comes from; Unknown when the query failed or has another answer. */
    Source source() const;
    /** The frequency in force in Hz; a usual one where the controller gives none. */
    double frequencyHz() const;
    /** The sensors that a body carries, in the controller's order. */
    QVector<Sensor> sensors() const;

    /** Each sets the source; false and a line in the log when the controller refused it. */
    bool followCameras() const;
    bool followSensor(const QString &identifier) const;
    bool setFrequency(double frequencyHz) const;

private:
    static Source sourceOf(const QString &answer);

    ControllerLink m_link;
};
