#pragma once

#include <QJsonObject>
#include <QMap>
#include <QString>
#include <QStringList>
#include <QVector>

#include <array>

/** One axis of a body's fixed rotation. */
struct FixedAngleState {
    bool enabled = false;
    double degrees = 0.0; ///< the controller accepts -20.0 to 20.0
};

/** One body slot of a type. */
struct BodyState {
    QString description;
    bool active = true;
    bool calibrated = false;
    bool recalibrated = false;
    QString target; ///< short name of the library target it was calibrated from; empty when none
    QString sensor; ///< name of the inertial sensor it carries; empty when none
    int markers = 0;
    QString targetType = QStringLiteral("tt_std");
    bool filterEnabled = true;
    QString filterPreset = QStringLiteral("preset6d_default");
    double filterStrength = 0.5;     ///< 0.01 to 0.99
    double filterPrediction = 0.033; ///< seconds
    QString filterMode;
    std::array<FixedAngleState, 3> fixedAngles;
    QString reference; ///< measurement tools: "b03" of the reference they use; empty when none
};

/** All bodies of one type word. */
struct BodyTypeState {
    QString description;
    bool filterAvailable = false;
    int maximum = 0;
    QVector<BodyState> bodies;
};

/** One target of the library. Whether it is used follows from the bodies. */
struct TargetState {
    QString shortName;
    QString longName;
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
    bool hasStorage = false;
    QString storedHandEye; ///< what the sensor's storage restores
    bool present = true;
};

/** One handheld device. */
struct DeviceState {
    QString kind;   ///< word 0 of the device text
    QString vendor; ///< word 1
    QString model;  ///< word 2
    QString serial; ///< word 3
    QString modelDescription;
};

/** One 6DOF filter preset. */
struct FilterPresetState {
    QString id;
    QString description;
    double strength = 0.5;
    double prediction = 0.033; ///< seconds
    QString mode;
    bool availableForInertial = false;
    bool onlyForInertial = false;
};

/** One 6DOF filter mode. */
struct FilterModeState {
    QString id;
    QString description;
    bool availableForInertial = true;
    bool onlyForInertial = false;
};

/** The running or last search for library targets. */
struct SearchState {
    bool active = false;
    int elapsedTicks = 0;
    int durationTicks = 10; ///< polls of 600 ms until the step ends
    bool available = true;
    bool failsToStart = false;
};

/**
 * Everything a simulated controller holds. A plain value: copying it is a snapshot, comparing its
 * JSON form shows what changed. Written and read by ScenarioFile.
 */
struct ControllerState {
    QString systemVersion = QStringLiteral("3.1.0"); ///< decides about the compact system's pages
    QString controllerVersion = QStringLiteral("3.1.0");
    QString protocol = QStringLiteral("1.24");
    QString model = QStringLiteral("STUDIO4");
    bool configChangeable = true;

    QMap<QString, BodyTypeState> bodyTypes; ///< by type word
    QString trackingReference;              ///< "standard b03"; empty when none
    QVector<TargetState> targets;           ///< t01, t02, ... in this order
    QStringList targetGroups;               ///< g01, g02, ... in this order
    QVector<SensorState> sensors;           ///< d01, d02, ... in this order
    bool inertialAvailable = false;
    bool inertialWarmup = false;
    double inertialFrequency = 100.0; ///< Hz
    QVector<DeviceState> devices;     ///< per Joywand slot; a slot beyond the end has none

    bool joywandFilter = true;
    bool multiUserAvailable = false;
    bool multiUserWithHeadAvailable = false;
    bool multiUser = false;
    bool multiUserWithHead = false;
    bool measurementToolAvailable = true;
    bool fingertrackingAvailable = true;
    bool standardFilter = true;

    bool calculateMarker = false;
    bool autoRestart = false;
    std::array<double, 3> axis5dofCentral{{0.0, 0.0, 1.0}};
    QString trackingPulse = QStringLiteral("synchronous_cameras");
    double syncOutputFrequency = 60.0; ///< Hz

    QVector<FilterPresetState> filterPresets;
    QVector<FilterModeState> filterModes;
    double strengthMin = 0.01;
    double strengthMax = 0.99;
    double predictionMin = -0.066; ///< seconds
    double predictionMax = 0.066;  ///< seconds

    SearchState search;
};
