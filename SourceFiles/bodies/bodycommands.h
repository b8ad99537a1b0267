#pragma once

#include "controllerlink.h"

#include <QString>
#include <QVector>

struct AdminBodyType;

/**
 * Sends every write to bodies and logs each failure. It has no widgets: the tab asks the operator
 * and shows what failed. Indexes are zero-based; a bool result is false when the controller
 * refused.
 */
class BodyCommands {
public:
    /** How a body with an inertial sensor can be reset. */
    struct SensorReset {
        bool hasStorage = false; ///< the sensor can restore its stored values
        bool hasHandEye = false; ///< without storage: a reset deletes a hand-eye calibration
    };
    /** The step at which the deletion of a body stopped. */
    enum class DeleteStep { Filter, Sensor, Markers, Description, Done };

    explicit BodyCommands(const ControllerLink &link) : m_link(link) {}

    /** True when the link was closed because its owner may have been deleted. */
    bool isClosed() const { return m_link.isClosed(); }

    /** Switches a body on or off. */
    bool setActive(const QString &type, int index, bool active) const;
    /** Names a body. A name with a line break is refused. */
    bool setDescription(const QString &type, int index, const QString &text) const;
    /**
     * Makes a standard body the reference. For a body of another type it returns false and sends
     * nothing.
     */
    bool setReference(const QString &type, int index) const;
    /**
     * Takes the reference mark away on the operator's request; also true when no body has the mark.
     */
    bool clearReference() const;
    /** Takes the reference mark away because the body that has it is about to be deleted. */
    void resetReference() const;
    /**
     * Sets the number of bodies. For a type without such a command it returns false, sends nothing
     * and logs nothing.
     */
    bool setCount(const QString &type, int count) const;
    /** Switches the 6DOF filter on for all bodies of the type. */
    void switchGlobalFilterOn(const QString &type) const;

    /** Gives the body the geometry of a library target, named by its identifier or short name. */
    bool calibrateFromTarget(const QString &type, int index, const QString &target) const;
    /** Calibrates the body again from the target from which it was calibrated. */
    bool resetToLibrary(const QString &type, int index, const QString &target) const;
    /**
     * Queries what a reset would do. A storage that cannot be read counts as absent. Logs failed
     * queries.
     */
    SensorReset sensorReset(const QString &sensor) const;
    /** Resets the sensor, and pauses its warm-up meanwhile. */
    bool resetSensor(const QString &sensor, const SensorReset &reset) const;

    /** Clears the body's filter, sensor, markers and description; stops at the first failure. */
    DeleteStep clearBody(const AdminBodyType &record, const QString &type, int index) const;
    /** Takes a library target from a body because another body of the same type will receive it. */
    void freeBody(const QString &type, int index) const;
    /** Takes a library target from a body because a body of another type will receive it. */
    void freeOtherHolder(const QString &type, int index) const;
    /**
     * Clears a reference of measurement tools and removes it from the tools measured against it.
     */
    bool clearToolReference(const QString &label, int index, const QVector<int> &tools) const;

    /**
     * False when the controller is too old to exchange bodies; the operator then gets a message.
     */
    bool canSwitchBodies() const;
    /** Exchanges two bodies of a type. */
    bool switchBodies(const QString &type, int index, int otherIndex) const;

private:
    enum class FilterReset { None, IfOffered, Always };
    /**
     * Which parts of a slot are cleared, and the log lines for the parts that the controller
     * refuses.
     */
    struct Clearing {
        FilterReset filter = FilterReset::None;
        bool sensor = false;
        bool markers = true;
        bool description = true;
        bool stopsAtFailure = false;
        QString filterError; ///< not logged when empty, like the next two
        QString markersError;
        QString descriptionError;
    };

    /** Clears a body slot; returns the first step that failed. */
    DeleteStep clearSlot(const QString &type, int index, const Clearing &what) const;
    bool resetFilter(const QString &type, int index, FilterReset how) const;
    bool calibrate(const QString &type, int index, const QString &target,
                   const QString &error) const;
    bool pauseWarmup() const;
    /** Logs the line when `done` is false. */
    bool logged(bool done, const QString &error) const;

    ControllerLink m_link;
};
