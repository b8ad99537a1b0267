#pragma once

#include "CommandTable.h"

#include <QVector>

// The parts of the command table, each in a source file of its own.
QVector<CommandEntry> bodyCommands();
QVector<CommandEntry> bodyFilterCommands();
QVector<CommandEntry> bodyTypeCommands();
QVector<CommandEntry> targetLibraryCommands();
QVector<CommandEntry> filter6dCommands();
QVector<CommandEntry> inertialCommands();
QVector<CommandEntry> systemCommands();
QVector<CommandEntry> actionCommands();
