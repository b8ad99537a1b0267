#pragma once

#include "ControllerState.h"

#include <QByteArray>
#include <QJsonObject>
#include <QString>
#include <QStringList>

/** What a scenario describes: a controller and the faults it starts with. */
struct Scenario {
    QString name;          ///< one line
    QString description;   ///< for people
    ControllerState state; ///< of the controller at the start
    QStringList faults;    ///< rules for the FaultEngine
};

/** Reads and writes scenarios as JSON. Wrong input gives an error with key path and expectation. */
namespace ScenarioFile {

/** False with *error ("file: key path: what was expected") when the file cannot be used. */
bool load(const QString &path, Scenario *scenario, QString *error);
/**
 * As load(), from bytes; `name` is what errors call the file. The JSON object has the keys name,
 * description, faults and state; state has the names of ControllerState's members. A missing key
 * leaves the member at its default; what a body does not say of its filter comes from its preset.
 */
bool parse(const QByteArray &json, const QString &name, Scenario *scenario, QString *error);
/** The whole state as JSON; parse() of it under the key state gives the same state back. */
QJsonObject toJson(const ControllerState &state);
/** The scenario in full, every default written out; parse() of it gives the same scenario. */
QByteArray toBytes(const Scenario &scenario);
/** Writes toBytes() atomically; the same scenario gives the same bytes. */
bool save(const QString &path, const Scenario &scenario, QString *error);
/** One readable line for every value that differs, "path: old -> new". */
QStringList differences(const ControllerState &before, const ControllerState &after);

} // namespace ScenarioFile
