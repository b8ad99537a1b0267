#pragma once

#include "ControllerState.h"

#include <QString>

/**
 * Reads and writes single values of a controller's state by key path, for example
 * bodyTypes.standard.bodies[0].description.
 */
namespace StatePath {

/**
 * The value as text: "true"/"false", the shortest form of a number, an unchanged text; lists and
 * objects as JSON.
 */
bool read(const ControllerState &state, const QString &path, QString *value, QString *problem);
/** Replaces a text, number or truth value by one of the same kind. */
bool write(ControllerState *state, const QString &path, const QString &value, QString *problem);

} // namespace StatePath
