#pragma once

#include "ControllerState.h"

#include <QByteArray>
#include <QJsonObject>
#include <QString>
#include <QStringList>

/** The contents of a scenario: a controller and its faults at the start. */
struct Scenario {
    QString name;          ///< one line
    QString description;   ///< for people
    ControllerState state; ///< the controller's state at the start
    QStringList faults;    ///< rules for the FaultEngine
};

/**
 * Reads and writes scenarios as JSON. For wrong input the error has the key path and what was
 * expected.
 */
namespace ScenarioFile {

/** False with *error ("file: key path: what was expected") when the file cannot be used. */
bool load(const QString &path, Scenario *scenario, QString *error);
/**
 * Like load(), for bytes; errors use `name` for the file. The JSON object has the keys name,
 * description, faults and state; state has the names of ControllerState's members. A missing key
 * leaves the member at its default. The filter values that a body does not give come from its
 * preset.
 */
bool parse(const QByteArray &json, const QString &name, Scenario *scenario, QString *error);
/** The whole state as JSON. parse() with it under the key state gives the same state. */
QJsonObject toJson(const ControllerState &state);
/** The complete scenario, with every default. parse() gives the same scenario. */
QByteArray toBytes(const Scenario &scenario);
/** Writes toBytes() atomically. The same scenario gives the same bytes. */
bool save(const QString &path, const Scenario &scenario, QString *error);
/** One readable line for each value that differs, "path: old -> new". */
QStringList differences(const ControllerState &before, const ControllerState &after);

} // namespace ScenarioFile
