#pragma once

#include "ScriptCommand.h"

namespace ScriptCommands {

// The actions' parts, one source file each.
/** The actions of a user with keys and mouse. */
QVector<ScriptCommand> inputActions();
/** The actions on the controller and its link, and those for the script itself. */
QVector<ScriptCommand> controllerActions();

} // namespace ScriptCommands
