#pragma once

#include "ControllerState.h"
#include "ScenarioFile.h"
#include "ScenarioRules.h"

// The keys of a scenario. Reading and writing both follow these lists; `Archive` is the
// ScenarioReader or the ScenarioWriter.

template <typename Archive>
void describe(Archive &archive, FixedAngleState &angle)
{
    archive.field("enabled", angle.enabled);
    archive.field("degrees", angle.degrees, ScenarioRules::NumberRange{-20.0, 20.0});
}

template <typename Archive>
void describe(Archive &archive, BodyState &body)
{
    archive.field("description", body.description, ScenarioRules::unquotedText());
    archive.field("active", body.active);
    archive.field("calibrated", body.calibrated);
    archive.field("recalibrated", body.recalibrated);
    archive.field("target", body.target);
    archive.field("sensor", body.sensor);
    archive.field("markers", body.markers, ScenarioRules::NumberRange{0, 100});
    archive.field("targetType", body.targetType, ScenarioRules::word());
    archive.field("filterEnabled", body.filterEnabled);
    archive.field("filterPreset", body.filterPreset, ScenarioRules::word());
    archive.field("filterStrength", body.filterStrength, ScenarioRules::NumberRange{0.0, 1.0});
    archive.field("filterPrediction", body.filterPrediction,
                  ScenarioRules::NumberRange{-10.0, 10.0});
    archive.field("filterMode", body.filterMode);
    archive.field("fixedAngles", body.fixedAngles);
    archive.field("reference", body.reference);
}

template <typename Archive>
void describe(Archive &archive, BodyTypeState &type)
{
    archive.field("description", type.description, ScenarioRules::unquotedText());
    archive.field("filterAvailable", type.filterAvailable);
    archive.field("maximum", type.maximum, ScenarioRules::NumberRange{0, 999});
    archive.field("bodies", type.bodies);
}

template <typename Archive>
void describe(Archive &archive, TargetState &target)
{
    archive.field("shortName", target.shortName, ScenarioRules::word());
    archive.field("longName", target.longName, ScenarioRules::unquotedText());
    archive.field("bodyType", target.bodyType);
    archive.field("group", target.group);
    archive.field("custom", target.custom);
    archive.field("inVolume", target.inVolume);
    archive.field("tracked", target.tracked);
}

template <typename Archive>
void describe(Archive &archive, SensorState &sensor)
{
    archive.field("name", sensor.name, ScenarioRules::sensorName());
    archive.field("modelDescription", sensor.modelDescription, ScenarioRules::unquotedText());
    archive.field("handEye", sensor.handEye, ScenarioRules::unquotedText());
    archive.field("hasStorage", sensor.hasStorage);
    archive.field("storedHandEye", sensor.storedHandEye, ScenarioRules::unquotedText());
    archive.field("present", sensor.present);
}

template <typename Archive>
void describe(Archive &archive, DeviceState &device)
{
    archive.field("kind", device.kind, ScenarioRules::wordOrNothing());
    archive.field("vendor", device.vendor, ScenarioRules::wordOrNothing());
    archive.field("model", device.model, ScenarioRules::wordOrNothing());
    archive.field("serial", device.serial, ScenarioRules::wordOrNothing());
    archive.field("modelDescription", device.modelDescription, ScenarioRules::unquotedText());
}

template <typename Archive>
void describe(Archive &archive, FilterPresetState &preset)
{
    archive.field("id", preset.id, ScenarioRules::word());
    archive.field("description", preset.description, ScenarioRules::unquotedText());
    archive.field("strength", preset.strength, ScenarioRules::NumberRange{0.0, 1.0});
    archive.field("prediction", preset.prediction, ScenarioRules::NumberRange{-10.0, 10.0});
    archive.field("mode", preset.mode);
    archive.field("availableForInertial", preset.availableForInertial);
    archive.field("onlyForInertial", preset.onlyForInertial);
}

template <typename Archive>
void describe(Archive &archive, FilterModeState &mode)
{
    archive.field("id", mode.id, ScenarioRules::word());
    archive.field("description", mode.description, ScenarioRules::unquotedText());
    archive.field("availableForInertial", mode.availableForInertial);
    archive.field("onlyForInertial", mode.onlyForInertial);
}

template <typename Archive>
void describe(Archive &archive, SearchState &search)
{
    archive.field("active", search.active);
    archive.field("elapsedTicks", search.elapsedTicks, ScenarioRules::NumberRange{0, 100000});
    archive.field("durationTicks", search.durationTicks, ScenarioRules::NumberRange{1, 100000});
    archive.field("available", search.available);
    archive.field("failsToStart", search.failsToStart);
}

template <typename Archive>
void describe(Archive &archive, ControllerState &state)
{
    using ScenarioRules::NumberRange;
    archive.field("systemVersion", state.systemVersion, ScenarioRules::version());
    archive.field("controllerVersion", state.controllerVersion, ScenarioRules::version());
    archive.field("protocol", state.protocol, ScenarioRules::version());
    archive.field("model", state.model, ScenarioRules::unquotedText());
    archive.field("configChangeable", state.configChangeable);
    archive.field("bodyTypes", state.bodyTypes);
    archive.field("trackingReference", state.trackingReference);
    archive.field("targets", state.targets);
    archive.field("targetGroups", state.targetGroups);
    archive.field("sensors", state.sensors);
    archive.field("inertialAvailable", state.inertialAvailable);
    archive.field("inertialWarmup", state.inertialWarmup);
    archive.field("inertialFrequency", state.inertialFrequency, NumberRange{1.0, 10000.0});
    archive.field("devices", state.devices);
    archive.field("joywandFilter", state.joywandFilter);
    archive.field("multiUserAvailable", state.multiUserAvailable);
    archive.field("multiUserWithHeadAvailable", state.multiUserWithHeadAvailable);
    archive.field("multiUser", state.multiUser);
    archive.field("multiUserWithHead", state.multiUserWithHead);
    archive.field("measurementToolAvailable", state.measurementToolAvailable);
    archive.field("fingertrackingAvailable", state.fingertrackingAvailable);
    archive.field("standardFilter", state.standardFilter);
    archive.field("calculateMarker", state.calculateMarker);
    archive.field("autoRestart", state.autoRestart);
    archive.field("axis5dofCentral", state.axis5dofCentral);
    archive.field("trackingPulse", state.trackingPulse, ScenarioRules::unquotedText());
    archive.field("syncOutputFrequency", state.syncOutputFrequency, NumberRange{0.0, 10000.0});
    archive.field("filterPresets", state.filterPresets);
    archive.field("filterModes", state.filterModes);
    archive.field("strengthMin", state.strengthMin, NumberRange{0.0, 1.0});
    archive.field("strengthMax", state.strengthMax, NumberRange{0.0, 1.0});
    archive.field("predictionMin", state.predictionMin, NumberRange{-10.0, 10.0});
    archive.field("predictionMax", state.predictionMax, NumberRange{-10.0, 10.0});
    archive.field("search", state.search);
}

template <typename Archive>
void describe(Archive &archive, Scenario &scenario)
{
    archive.field("name", scenario.name, ScenarioRules::unquotedText());
    archive.field("description", scenario.description);
    archive.field("faults", scenario.faults);
    archive.field("state", scenario.state);
}
