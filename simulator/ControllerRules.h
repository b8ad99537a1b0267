#pragma once

#include "ControllerState.h"

#include <QString>
#include <QStringList>

class VersionInfo;

/** The rules between the parts of a controller's state, and the changes that keep these rules. */
namespace ControllerRules {

/** The words for the body types. */
QStringList bodyTypeWords();

/** "b03" for prefix 'b' and number 3; the number has at least two digits. */
QString numberedWord(char prefix, int number);
/** 3 for "b03"; 0 when the word is not a letter followed by digits. */
int numberOf(const QString &word);

/** False for an unknown type, or one that the controller does not offer in this state. */
bool isTypeAvailable(const ControllerState &state, const VersionInfo &protocol,
                     const QString &type);
/** Body `number` (one-based) of the type; null when it does not exist. */
BodyState *body(ControllerState &state, const QString &type, int number);

/** "standard b02" for the first body whose `field` is `value`; empty when there is none. */
QString bodyWith(const ControllerState &state, QString BodyState::*field, const QString &value);

/** Index of the target with that identifier ("t03") or short name; -1 when there is none. */
int targetIndex(const ControllerState &state, const QString &idOrShortName);
/** True when a target of this type can give its geometry to bodies of that type. */
bool targetFits(const QString &targetType, const QString &bodyType);

/** The sensor with that full name; null when there is none. */
SensorState *sensor(ControllerState &state, const QString &name);
const FilterPresetState *preset(const ControllerState &state,
                                const QString &id); ///< null when there is none
const FilterModeState *mode(const ControllerState &state,
                            const QString &id); ///< null when there is none

/**
 * Adds bodies at the end or drops the last ones; references to dropped bodies are removed. With
 * several users the number of head targets follows the number of devices.
 */
void setBodyCount(ControllerState &state, const QString &type, int count);
/** Names a body. False, with the reason in *refusal, when the description is not allowed. */
bool rename(BodyState &body, const QString &description, QString *refusal);
/**
 * Removes calibration, target and markers from a body. If it was the reference, there is none then.
 */
void clearGeometry(ControllerState &state, const QString &type, int number);
/**
 * Does what the commands of a deletion do together: geometry, sensor, name and filter of the body
 * become those of a new slot, the body is switched off, and no tool refers to it any more.
 */
void deleteBody(ControllerState &state, const QString &type, int number);
/** Exchanges two bodies of a type; references to one of them follow it. */
void switchBodies(ControllerState &state, const QString &type, int number, int other);

/** Gives the body a geometry of its own, which replaces one from the library. */
void calibrate(BodyState &body);
/** Makes another configuration active, which switches the global filters off. */
void activateConfiguration(ControllerState &state);
/** Starts the controller again with a protocol, and ends a running search. */
void restart(ControllerState &state, const QString &protocol);

} // namespace ControllerRules
