#pragma once

#include "controllerlink.h"

#include <QString>

struct AdminBody;
struct AdminBodyType;

/**
 * The command sequences behind resetting, deleting and switching bodies. Without widgets: the tab
 * asks the user and shows what failed. Indexes are zero-based.
 */
class BodyCommands {
public:
    /** How a body with an inertial sensor can be reset. */
    struct SensorReset {
        bool hasStorage = false; ///< the sensor restores its stored values
        bool hasHandEye = false; ///< without storage: a hand-eye calibration will be deleted
    };
    /** The step at which deleting stopped. */
    enum class DeleteStep { Filter, Sensor, Markers, Description, Done };

    explicit BodyCommands(const ControllerLink &link) : m_link(link) {}

    /** Calibrates the body anew from the target it was calibrated from; logs a failure. */
    bool resetToLibrary(const QString &type, int index, const QString &target) const;
    /** Asks what a reset would do; an unreadable storage counts as none. Logs failed queries. */
    SensorReset sensorReset(const QString &sensor) const;
    /** Resets the sensor, with its warm-up paused meanwhile. Logs what failed. */
    bool resetSensor(const QString &sensor, const SensorReset &reset) const;

    /** Clears the body's filter, sensor, markers and description; stops at the first failure. */
    DeleteStep clearBody(const AdminBodyType &record, const QString &type, int index) const;

    /** Exchanges two bodies of a type; logs a failure. */
    bool switchBodies(const QString &type, int index, int otherIndex) const;

private:
    bool pauseWarmup() const;
    bool resetFilter(const QString &type, int index) const;

    ControllerLink m_link;
};
