#pragma once

#include "ScenarioFile.h"

#include <QString>

/**
 * Checks that the parts of a scenario fit together: everything that is named exists, and nothing is
 * assigned twice. Empty when they do, otherwise "key.path[3]: expected ..., found ...".
 */
QString scenarioConflict(const Scenario &scenario);
