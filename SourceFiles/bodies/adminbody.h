#pragma once

#include <QString>

/**
 * What the table columns of a body type show. Tabs pass these values when they register a table.
 */
enum COLUMN_TYPE {
    COLUMN_TYPE_CUSTOM = 0,     ///< filled by the tab that registered the table
    COLUMN_TYPE_ID = 1,         ///< body number
    COLUMN_TYPE_ACTIVE = 2,     ///< activeness, a check box
    COLUMN_TYPE_REFERENCE = 3,  ///< reference flag, a check box
    COLUMN_TYPE_NAME = 4,       ///< description
    COLUMN_TYPE_CALIBRATED = 5, ///< calibration status
    COLUMN_TYPE_FILTER = 6,     ///< 6DOF filter summary
    COLUMN_TYPE_DELETE = 7,     ///< delete button cell
    COLUMN_TYPE_RESET = 8       ///< reset button cell
};

/** The state of one body of the controller as it was read last; a plain value. */
struct AdminBody {
    QString desc;
    bool active = false;
    bool calibrated = false;
    bool recalibrated = false;
    bool has_handeye = false;  ///< the inertial sensor has a hand-eye calibration
    QString tlibName;          ///< library target it was calibrated from; empty when none
    QString inertialSensor;    ///< name of the assigned inertial sensor; empty when none
    QString calibrationStatus; ///< display text
    QString filter6dPreset;    ///< display text
    bool isReference = false;  ///< the body is the tracking reference

    /** Resets all fields to the values of a body that was never read. */
    void clear() { *this = AdminBody(); }
};
