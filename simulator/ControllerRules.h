#pragma once

#include "ControllerState.h"

#include <QString>
#include <QStringList>

class VersionInfo;

/** What holds between the parts of a controller's state, and the changes that keep it so. */
namespace ControllerRules {

/** The words by which body types are known. */
QStringList bodyTypeWords();

/** "b03" for prefix 'b' and number 3; two digits at least. */
QString numberedWord(char prefix, int number);
/** 3 for "b03"; 0 when the word is no letter followed by digits. */
int numberOf(const QString &word);

/** False for a type that the controller does not have, or not in this state. */
bool isTypeAvailable(const ControllerState &state, const VersionInfo &protocol,
                     const QString &type);
/** Body `number` (one-based) of the type; null when there is none. */
BodyState *body(ControllerState &state, const QString &type, int number);

/** "standard b02" of the first body for which `field` holds `value`; empty when there is none. */
QString bodyWith(const ControllerState &state, QString BodyState::*field, const QString &value);

/** Target by identifier ("t03") or short name, -1 when there is none. */
int targetIndex(const ControllerState &state, const QString &idOrShortName);
/** A target of this type can give its geometry to bodies of that type. */
bool targetFits(const QString &targetType, const QString &bodyType);

/** Sensor by full name; null when there is none. */
SensorState *sensor(ControllerState &state, const QString &name);
const FilterPresetState *preset(const ControllerState &state, const QString &id);
const FilterModeState *mode(const ControllerState &state, const QString &id);

/** Adds bodies at the end or drops the last ones; references to dropped bodies end. */
void setBodyCount(ControllerState &state, const QString &type, int count);
/** Takes calibration, target and markers from a body, which can no longer be the reference. */
void clearGeometry(ControllerState &state, const QString &type, int number);
/** Exchanges two bodies of a type; whoever referred to one of them follows it. */
void switchBodies(ControllerState &state, const QString &type, int number, int other);

} // namespace ControllerRules
