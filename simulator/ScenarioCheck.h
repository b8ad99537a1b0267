#pragma once

#include "ScenarioFile.h"

#include <QString>

/**
 * Whether the parts of a scenario fit together: everything named exists, nothing is given away
 * twice. Empty when they do, else "key.path[3]: expected ..., found ...".
 */
QString scenarioConflict(const Scenario &scenario);
