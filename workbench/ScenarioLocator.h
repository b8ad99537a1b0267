#pragma once

#include <QString>
#include <QStringList>

/** Finds the files shipped beside the workbench: scenarios, demonstrations and the tour. */
namespace ScenarioLocator {

/** Folder of the shipped scenarios: that of the source tree, or the installed one. */
QString folder();
/**
 * The file itself when it exists, otherwise the shipped scenario with that name, which may not
 * exist.
 */
QString scenarioFile(const QString &nameOrFile);
/** Like scenarioFile(), for demonstrations. */
QString demoFile(const QString &nameOrFile);
/** The scripts of the tour in the order in which they are played. The first one always exists. */
QStringList tourFiles();
/** Names of the shipped scenarios, sorted. */
QStringList scenarioNames();
/** Names of the shipped demonstrations, sorted. */
QStringList demoNames();

} // namespace ScenarioLocator
