#pragma once

#include "controllerlink.h"

#include <QString>
#include <QVector>

struct AdminBodyType;

/**
 * Every write to bodies, each with the log line of its failure. Without widgets: the tab asks the
 * operator and shows what failed. Indexes are zero-based; a bool answer is false when the
 * controller refused.
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

    /** True once the owner of the link may be gone. */
    bool isClosed() const { return m_link.isClosed(); }

    /** Switches a body on or off. */
    bool setActive(const QString &type, int index, bool active) const;
    /** Names a body; a line break in the name is refused. */
    bool setDescription(const QString &type, int index, const QString &text) const;
    /** Makes a standard body the reference; a body of any other type is refused unsent. */
    bool setReference(const QString &type, int index) const;
    /** The operator takes the reference mark away; true as well when no body has it. */
    bool clearReference() const;
    /** The body with the reference mark is about to be deleted. */
    void resetReference() const;
    /** Sets the number of bodies; a type without such a command is refused unsent, unlogged. */
    bool setCount(const QString &type, int count) const;
    /** Switches the 6DOF filter of all bodies of the type on. */
    void switchGlobalFilterOn(const QString &type) const;

    /** Gives the body the geometry of a library target, named by its identifier or short name. */
    bool calibrateFromTarget(const QString &type, int index, const QString &target) const;
    /** Calibrates the body again from the target it was calibrated from. */
    bool resetToLibrary(const QString &type, int index, const QString &target) const;
    /** Asks what a reset would do; an unreadable storage counts as none. Logs failed queries. */
    SensorReset sensorReset(const QString &sensor) const;
    /** Resets the sensor, with its warm-up paused meanwhile. */
    bool resetSensor(const QString &sensor, const SensorReset &reset) const;

    /** Clears the body's filter, sensor, markers and description; stops at the first failure. */
    DeleteStep clearBody(const AdminBodyType &record, const QString &type, int index) const;
    /** Takes its library target from a body that another body of its type is to receive. */
    void freeBody(const QString &type, int index) const;
    /** Takes its library target from a body that a body of another type is to receive. */
    void freeOtherHolder(const QString &type, int index) const;
    /** Clears a reference of measurement tools and takes it from the tools measured against it. */
    bool clearToolReference(const QString &label, int index, const QVector<int> &tools) const;

    /** False, and said to the operator, with a controller too old to exchange bodies. */
    bool canSwitchBodies() const;
    /** Exchanges two bodies of a type. */
    bool switchBodies(const QString &type, int index, int otherIndex) const;

private:
    enum class FilterReset { None, IfOffered, Always };
    /** What of a slot is cleared, and the log lines of what the controller refuses. */
    struct Clearing {
        FilterReset filter = FilterReset::None;
        bool sensor = false;
        bool markers = true;
        bool description = true;
        bool stopsAtFailure = false;
        QString filterError; ///< empty, as the next two: not logged
        QString markersError;
        QString descriptionError;
    };

    /** Clears a body slot; the first step that failed. */
    DeleteStep clearSlot(const QString &type, int index, const Clearing &what) const;
    bool resetFilter(const QString &type, int index, FilterReset how) const;
    bool calibrate(const QString &type, int index, const QString &target,
                   const QString &error) const;
    bool pauseWarmup() const;
    /** Logs the line when `done` is false. */
    bool logged(bool done, const QString &error) const;

    ControllerLink m_link;
};
