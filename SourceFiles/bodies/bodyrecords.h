#pragma once

#include "bodies/bodycommands.h"
#include "bodies/bodyreader.h"
#include "bodies/bodyregistry.h"

#include <QString>

class QComboBox;
class QTableWidget;

/**
 * The records of a tab's bodies and the operations on them that need neither a widget nor a
 * question, with the names that the tabs and the dialog use. A base class of the tab. A type or
 * body that does not exist reads as false, 0 or an empty text, and no query is sent about it.
 * Indexes are zero-based.
 */
class BodyRecords {
public:
    /** Stores a new record of the type and reads its description and filter availability. */
    void registerBodyType(const QString &type);
    /**
     * Queries again what could not be read of the types; returns the types of which more is known
     * now.
     */
    QStringList readMissingOfTypes();
    /**
     * Removes a type; its widgets remain. Kept for tabs that remove a type; no tab does so today.
     */
    void unregisterBodyType(const QString &type) { bodytypes.remove(type); }
    /** True while the type has a record. */
    bool isBodyTypeRegistered(const QString &type) const { return bodytypes.contains(type); }
    /** Registers a combo box that belongs to the type; only the record uses it. */
    void registerComboBox(const QString &type, QComboBox *box) { bodytypes[type].comboBox = box; }
    /**
     * Registers the target table of the type, when it is not the one that all tabs have in common.
     */
    void registerTableWidget_tl(const QString &type, QTableWidget *table)
    {
        bodytypes[type].tableWidget_tl = table;
    }

    /** The controller's description of the type. Kept for other tabs; boxes show typeLabel(). */
    QString getBodyTypeDescription(const QString &type) const
    {
        return bodytypes.type(type).typedesc;
    }
    /** True when the controller offers 6DOF filters for the type. */
    bool getBodyTypeFilter6dAvailable(const QString &type) const
    {
        return bodytypes.type(type).filter6dAvailable;
    }
    /** Number of bodies to which an inertial sensor is assigned, as counted last. */
    int getNumberOfInertialSensors(const QString &type) const
    {
        return bodytypes.type(type).numInertialSensors;
    }
    /** Counts the bodies to which an inertial sensor is assigned. */
    void updateNumberOfInertialSensors(const QString &type) { bodytypes.countSensors(type); }
    /** Number of body slots, calibrated or not. */
    int getNumberOfBodies(const QString &type) const { return bodytypes.type(type).bodies.size(); }
    /** Number of bodies with a geometry. */
    int getNumberOfCalibratedBodies(const QString &type) const
    {
        return bodytypes.calibratedBodies(type);
    }

    /** Reads one body into its record; logs each failed query and goes on. */
    void updateBodyInfo(const QString &type, int index);
    /** Reads the filters of one body into its record. */
    void updateBodyFilter6dPreset(const QString &type, int index);
    /**
     * True when the body's inertial sensor is present. False, and logged, when this cannot be read.
     */
    bool is_hybridbodycalibration_available(const QString &type, int index) const
    {
        return reader().isSensorPresent(type, index);
    }

    // The following functions send commands only, without reading back. Each returns false, and
    // logs, when the controller refused.

    /** Switches a body on or off. */
    bool morvek2_setBodyActive(const QString &type, int index, bool active)
    {
        return commands().setActive(type, index, active);
    }
    /** Names a body. A name with a line break is refused. */
    bool morvek2_setBodyDescription(const QString &type, int index, const QString &text)
    {
        return commands().setDescription(type, index, text);
    }
    /**
     * Makes a standard body the reference; bodies of other types cannot be. With false no body is.
     */
    bool morvek2_setBodyIsReference(const QString &type, int index, bool reference)
    {
        return reference ? commands().setReference(type, index) : commands().clearReference();
    }
    /** Makes no body the reference. Kept for other tabs; deleting a body does the same. */
    void resetReferenceTargetIfAny() { commands().resetReference(); }

    // The following functions read the records and send nothing.

    /** True when the controller tracks the body. */
    bool isBodyActive(const QString &type, int index) const
    {
        return bodytypes.body(type, index).active;
    }
    /** True when the body has a geometry. */
    bool isBodyCalibrated(const QString &type, int index) const
    {
        return bodytypes.body(type, index).calibrated;
    }
    /**
     * True when the geometry was measured again. Kept for other tabs; the table reads the records.
     */
    bool isBodyRecalibrated(const QString &type, int index) const
    {
        return bodytypes.body(type, index).recalibrated;
    }
    /** True when the body's sensor has a hand-eye calibration. Kept for other tabs. */
    bool hasBodyHandEye(const QString &type, int index) const
    {
        return bodytypes.body(type, index).has_handeye;
    }
    /** True when all other bodies are measured relative to this one. */
    bool getBodyIsReference(const QString &type, int index) const
    {
        return bodytypes.body(type, index).isReference;
    }
    /** The same as getBodyIsReference(). Kept for callers that use this name. */
    bool isBodyReference(const QString &type, int index) const
    {
        return getBodyIsReference(type, index);
    }
    /** The name that the operator gave. Kept for other tabs. */
    QString getBodyDescription(const QString &type, int index) const
    {
        return bodytypes.body(type, index).desc;
    }
    /** Short name of the body's target; empty when it has none. Kept for other tabs. */
    QString getBodyTargetlibName(const QString &type, int index) const
    {
        return bodytypes.body(type, index).tlibName;
    }
    /** How the body was calibrated, as the table shows it. */
    QString getBodyCalibrationStatus(const QString &type, int index) const
    {
        return bodytypes.body(type, index).calibrationStatus;
    }
    /** Identifier of the assigned inertial sensor; empty when none. */
    QString getBodyInertialSensor(const QString &type, int index) const
    {
        return bodytypes.body(type, index).inertialSensor;
    }
    /** The filters as one line. Kept for other tabs. */
    QString getBodyFilter6dPreset(const QString &type, int index) const
    {
        return bodytypes.body(type, index).filter6dPreset;
    }

protected:
    explicit BodyRecords(const ControllerLink &link)
        : m_link(link), m_reader(link), m_commands(link)
    {
    }
    /** Closes the link, so that operations that are still on the stack send nothing more. */
    ~BodyRecords() { m_link.close(); }

    // Returned by value, because a host may delete the tab while they work.

    ControllerLink link() const { return m_link; }
    BodyReader reader() const { return m_reader; }
    BodyCommands commands() const { return m_commands; }

    /** The type's description, or its word when the controller gave none. */
    QString typeLabel(const QString &type) const { return bodytypes.label(type); }

    BodyRegistry bodytypes;

private:
    ControllerLink m_link;
    BodyReader m_reader;
    BodyCommands m_commands;
};
