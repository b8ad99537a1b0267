#pragma once

#include "CommandTable.h"

#include <QVector>

// The table's parts, one source file each.
QVector<CommandEntry> bodyCommands();
QVector<CommandEntry> bodyFilterCommands();
QVector<CommandEntry> bodyTypeCommands();
QVector<CommandEntry> targetLibraryCommands();
QVector<CommandEntry> filter6dCommands();
QVector<CommandEntry> inertialCommands();
QVector<CommandEntry> systemCommands();
QVector<CommandEntry> actionCommands();
