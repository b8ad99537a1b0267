#pragma once

#include <QString>
#include <QStringList>

/** Finds the files shipped beside the workbench: scenarios, demonstrations and the tour. */
namespace ScenarioLocator {

/** Folder of the shipped scenarios: the source tree's, or the installed one. */
QString folder();
/** The file itself when it exists, else the shipped scenario of that name (may not exist). */
QString scenarioFile(const QString &nameOrFile);
/** As scenarioFile(), for demonstrations. */
QString demoFile(const QString &nameOrFile);
/** The scripts of the tour in the order in which they are played; the first one always exists. */
QStringList tourFiles();
/** Names of the shipped scenarios, sorted. */
QStringList scenarioNames();
/** Names of the shipped demonstrations, sorted. */
QStringList demoNames();

} // namespace ScenarioLocator
