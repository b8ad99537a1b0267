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
const FilterPresetState *preset(const ControllerState &state,
                                const QString &id); ///< null when there is none
const FilterModeState *mode(const ControllerState &state,
                            const QString &id); ///< null when there is none

/**
 * Adds bodies at the end or drops the last ones; references to dropped bodies end. Devices of
 * several users bring and take their head targets along.
 */
void setBodyCount(ControllerState &state, const QString &type, int count);
/** Names a body; false with the reason in *refusal when it is no name for one. */
bool rename(BodyState &body, const QString &description, QString *refusal);
/** Takes calibration, target and markers from a body, which can no longer be the reference. */
void clearGeometry(ControllerState &state, const QString &type, int number);
/**
 * What the commands of a deletion do together: geometry, sensor, name and filter of the body are as
 * in a new slot, it is off, and no tool refers to it any more.
 */
void deleteBody(ControllerState &state, const QString &type, int number);
/** Exchanges two bodies of a type; whoever referred to one of them follows it. */
void switchBodies(ControllerState &state, const QString &type, int number, int other);

/** Gives the body a geometry of its own, which replaces one that came from the library. */
void calibrate(BodyState &body);
/** Another configuration becomes active: the global filters are off. */
void activateConfiguration(ControllerState &state);
/** Starts the controller again with a protocol; whatever it was doing ends. */
void restart(ControllerState &state, const QString &protocol);

} // namespace ControllerRules
