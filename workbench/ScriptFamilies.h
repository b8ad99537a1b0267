#pragma once

#include "ScriptCommand.h"

namespace ScriptCommands {

// The actions' parts, one source file each.
/** What a user does with keys and mouse. */
QVector<ScriptCommand> inputActions();
/** What happens to the controller and its link, and what the script itself is asked for. */
QVector<ScriptCommand> controllerActions();

} // namespace ScriptCommands
