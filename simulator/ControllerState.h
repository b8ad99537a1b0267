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
    double degrees = 0.0; ///< the controller accepts -20.0 to 20.0
};

/** One body slot of a type. */
struct BodyState {
    QString description;       ///< name that the operator gave; no double quotes
    bool active = true;        ///< the controller tracks it
    bool calibrated = false;   ///< has a geometry
    bool recalibrated = false; ///< calibrated again after it got its geometry
    QString target;  ///< short name of the library target it was calibrated from; empty when none
    QString sensor;  ///< name of the inertial sensor it carries; empty when none
    int markers = 0; ///< of its geometry, 0 to 100
    QString targetType = QStringLiteral("tt_std");             ///< kind of its target, one word
    bool filterEnabled = true;                                 ///< its 6DOF filter is on
    QString filterPreset = QStringLiteral("preset6d_default"); ///< identifier of a preset
    double filterStrength = 0.5;                               ///< 0.01 to 0.99
    double filterPrediction = 0.033;                           ///< seconds
    QString filterMode;                                        ///< identifier of a mode
    std::array<FixedAngleState, 3> fixedAngles;                ///< about x, y and z
    QString reference; ///< measurement tools: "b03" of the reference they use; empty when none
};

/** All bodies of one type word. */
struct BodyTypeState {
    QString description;          ///< shown to the operator
    bool filterAvailable = false; ///< its bodies have a 6DOF filter
    int maximum = 0;              ///< most bodies that the controller accepts, 0 to 999
    QVector<BodyState> bodies;    ///< b01, b02, ... in this order
};

/** One target of the library. Whether it is used follows from the bodies. */
struct TargetState {
    QString shortName;     ///< one word, unique in the library
    QString longName;      ///< shown to the operator
    QString bodyType;      ///< type word, or empty for none
    QString group;         ///< empty when it belongs to no group
    bool custom = false;   ///< its calibration is a custom one
    bool inVolume = false; ///< a search can find it
    bool tracked = false;  ///< found by the last search or still seen
};

/** One inertial sensor. */
struct SensorState {
    QString name;             ///< three words: vendor, model, 'device id'
    QString modelDescription; ///< shown to the user
    QString handEye;          ///< empty when there is no hand-eye calibration
    bool hasStorage = false;  ///< keeps its hand-eye calibration itself
    QString storedHandEye;    ///< what the sensor's storage restores
    bool present = true;      ///< connected
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
    double prediction = 0.033;         ///< seconds
    QString mode;                      ///< identifier of a mode
    bool availableForInertial = false; ///< bodies with a sensor can have it
    bool onlyForInertial = false;      ///< bodies without a sensor cannot have it
};

/** One 6DOF filter mode. */
struct FilterModeState {
    QString id;                       ///< one word
    QString description;              ///< shown to the operator
    bool availableForInertial = true; ///< bodies with a sensor can have it
    bool onlyForInertial = false;     ///< bodies without a sensor cannot have it
};

/** The running or last search for library targets. */
struct SearchState {
    bool active = false;       ///< running
    int elapsedTicks = 0;      ///< polls since the start
    int durationTicks = 10;    ///< polls of 600 ms until the step ends
    bool available = true;     ///< a search is possible
    bool failsToStart = false; ///< each start is refused
};

/**
 * Everything a simulated controller holds. A plain value: copying it is a snapshot, comparing its
 * JSON form shows what changed. Written and read by ScenarioFile.
 */
struct ControllerState {
    QString systemVersion = QStringLiteral("3.1.0"); ///< decides about the compact system's pages
    QString controllerVersion = QStringLiteral("3.1.0"); ///< BackendVersions::sysCt
    QString protocol = QStringLiteral("1.24");           ///< decides which commands are known
    QString model = QStringLiteral("STUDIO4");           ///< BackendVersions::mod
    bool configChangeable = true;                        ///< false: locked, changes are refused

    QMap<QString, BodyTypeState> bodyTypes; ///< by type word
    QString trackingReference;              ///< "standard b03"; empty when none
    QVector<TargetState> targets;           ///< t01, t02, ... in this order
    QStringList targetGroups;               ///< g01, g02, ... in this order
    QVector<SensorState> sensors;           ///< d01, d02, ... in this order
    bool inertialAvailable = false;         ///< inertial sensors can be used
    bool inertialWarmup = false;            ///< the sensors are warming up
    double inertialFrequency = 100.0;       ///< Hz
    QVector<DeviceState> devices;           ///< per Joywand slot; a slot beyond the end has none

    bool joywandFilter = true;               ///< global filter of the Joywands
    bool multiUserAvailable = false;         ///< several users are possible
    bool multiUserWithHeadAvailable = false; ///< head targets are possible
    bool multiUser = false;                  ///< several users
    bool multiUserWithHead = false;          ///< a head target for each of them
    bool measurementToolAvailable = true;    ///< bodies of that type are possible
    bool fingertrackingAvailable = true;     ///< as far as the protocol lets it count
    bool standardFilter = true;              ///< global filter of the standard bodies

    bool calculateMarker = false; ///< 3DOF markers are calculated
    bool autoRestart = false;     ///< measuring goes on after the sync signal was lost
    std::array<double, 3> axis5dofCentral{{0.0, 0.0, 1.0}}; ///< axis that is up for 5DOF bodies
    QString trackingPulse = QStringLiteral("synchronous_cameras"); ///< what paces the tracking
    double syncOutputFrequency = 60.0;                             ///< Hz

    QVector<FilterPresetState> filterPresets; ///< in the order of the controller
    QVector<FilterModeState> filterModes;     ///< in the order of the controller
    double strengthMin = 0.01;                ///< 0.0 to strengthMax
    double strengthMax = 0.99;                ///< strengthMin to 1.0
    double predictionMin = -0.066;            ///< seconds
    double predictionMax = 0.066;             ///< seconds

    SearchState search; ///< for targets of the library
};
