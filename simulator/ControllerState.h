#pragma once

#include <QJsonObject>
#include <QMap>
#include <QString>
#include <QStringList>
#include <QVector>

#include <array>

/** One axis of a body's fixed rotation. */
struct FixedAngleState {
    bool enabled = false; ///< the rotation about this axis is fixed
    double degrees = 0.0; ///< in degrees; the controller accepts -20.0 to 20.0
};

/** One body slot of a type. */
struct BodyState {
    QString description;       ///< name that the operator gave; no double quotes
    bool active = true;        ///< the controller tracks it
    bool calibrated = false;   ///< has a geometry
    bool recalibrated = false; ///< calibrated again after it got its geometry
    QString target;  ///< short name of the library target it was calibrated from; empty when none
    QString sensor;  ///< name of the inertial sensor it carries; empty when none
    int markers = 0; ///< number of markers of its geometry, 0 to 100
    QString targetType = QStringLiteral("tt_std");             ///< kind of its target, one word
    bool filterEnabled = true;                                 ///< true when its 6DOF filter is on
    QString filterPreset = QStringLiteral("preset6d_default"); ///< identifier of a preset
    double filterStrength = 0.5;                               ///< 0.01 to 0.99
    double filterPrediction = 0.033;                           ///< in seconds
    QString filterMode;                                        ///< identifier of a mode
    std::array<FixedAngleState, 3> fixedAngles;                ///< about x, y and z
    QString reference; ///< measurement tools: "b03" of the reference they use; empty when none
};

/** All bodies of one type word. */
struct BodyTypeState {
    QString description;          ///< shown to the operator
    bool filterAvailable = false; ///< its bodies have a 6DOF filter
    /// largest number of bodies that the controller accepts, 0 to 999
    int maximum = 0;
    QVector<BodyState> bodies; ///< b01, b02, ... in this order
};

/** One target of the library. The bodies decide whether it is in use. */
struct TargetState {
    QString shortName;     ///< one word, unique in the library
    QString longName;      ///< shown to the operator
    QString bodyType;      ///< type word, or empty for none
    QString group;         ///< empty when it belongs to no group
    bool custom = false;   ///< true when its calibration is a custom one
    bool inVolume = false; ///< true when a search can find it
    bool tracked = false;  ///< true when the last search found it or the cameras see it
};

/** One inertial sensor. */
struct SensorState {
    QString name;             ///< three words: vendor, model, 'device id'
    QString modelDescription; ///< shown to the user
    QString handEye;          ///< empty when there is no hand-eye calibration
    bool hasStorage = false;  ///< true when the sensor stores its hand-eye calibration
    QString storedHandEye;    ///< the calibration in the sensor's storage
    bool present = true;      ///< true when the sensor is connected
};

/** One handheld device. */
struct DeviceState {
    QString kind;             ///< word 0 of the device text
    QString vendor;           ///< word 1
    QString model;            ///< word 2
    QString serial;           ///< word 3
    QString modelDescription; ///< shown to the operator
};

/** One 6DOF filter preset. */
struct FilterPresetState {
    QString id;                        ///< one word
    QString description;               ///< shown to the operator
    double strength = 0.5;             ///< 0.0 to 1.0
    double prediction = 0.033;         ///< in seconds
    QString mode;                      ///< identifier of a mode
    bool availableForInertial = false; ///< true when bodies with a sensor can have it
    bool onlyForInertial = false;      ///< true when bodies without a sensor cannot have it
};

/** One 6DOF filter mode. */
struct FilterModeState {
    QString id;                       ///< one word
    QString description;              ///< shown to the operator
    bool availableForInertial = true; ///< true when bodies with a sensor can have it
    bool onlyForInertial = false;     ///< true when bodies without a sensor cannot have it
};

/** The running or last search for library targets. */
struct SearchState {
    bool active = false;       ///< true while the search runs
    int elapsedTicks = 0;      ///< number of polls since the start
    int durationTicks = 10;    ///< number of polls of 600 ms until the step ends
    bool available = true;     ///< true when a search is possible
    bool failsToStart = false; ///< true when each start is refused
};

/**
 * The complete state of a simulated controller. A plain value: a copy is a snapshot, and a
 * comparison of the JSON forms shows the changes. ScenarioFile writes and reads it.
 */
struct ControllerState {
    QString systemVersion = QStringLiteral("3.1.0"); ///< decides which pages the compact system has
    QString controllerVersion = QStringLiteral("3.1.0"); ///< BackendVersions::sysCt
    /// decides which commands the controller knows
    QString protocol = QStringLiteral("1.24");
    QString model = QStringLiteral("STUDIO4"); ///< BackendVersions::mod
    /// false when the configuration is locked, so that changes are refused
    bool configChangeable = true;

    QMap<QString, BodyTypeState> bodyTypes; ///< by type word
    QString trackingReference;              ///< "standard b03"; empty when none
    QVector<TargetState> targets;           ///< t01, t02, ... in this order
    QStringList targetGroups;               ///< g01, g02, ... in this order
    QVector<SensorState> sensors;           ///< d01, d02, ... in this order
    bool inertialAvailable = false;         ///< true when inertial sensors can be used
    bool inertialWarmup = false;            ///< true while the sensors are warming up
    double inertialFrequency = 100.0;       ///< in Hz
    /// for each Joywand slot; a slot beyond the end has no device
    QVector<DeviceState> devices;

    bool joywandFilter = true;               ///< global filter of the Joywands
    bool multiUserAvailable = false;         ///< true when several users are possible
    bool multiUserWithHeadAvailable = false; ///< true when head targets are possible
    bool multiUser = false;                  ///< true when there are several users
    bool multiUserWithHead = false;          ///< true when each user has a head target
    bool measurementToolAvailable = true;    ///< true when measurement tools are possible
    /// true when hands are possible; newer protocols always offer them
    bool fingertrackingAvailable = true;
    bool standardFilter = true; ///< global filter of the standard bodies

    bool calculateMarker = false; ///< true when 3DOF markers are calculated
    /// true when measuring starts again after a loss of the sync signal
    bool autoRestart = false;
    /// axis that points upwards for 5DOF bodies
    std::array<double, 3> axis5dofCentral{{0.0, 0.0, 1.0}};
    /// source of the tracking frequency
    QString trackingPulse = QStringLiteral("synchronous_cameras");
    double syncOutputFrequency = 60.0; ///< in Hz

    QVector<FilterPresetState> filterPresets; ///< in the order of the controller
    QVector<FilterModeState> filterModes;     ///< in the order of the controller
    double strengthMin = 0.01;                ///< 0.0 to strengthMax
    double strengthMax = 0.99;                ///< strengthMin to 1.0
    double predictionMin = -0.066;            ///< in seconds
    double predictionMax = 0.066;             ///< in seconds

    SearchState search; ///< the search for targets of the library
};
