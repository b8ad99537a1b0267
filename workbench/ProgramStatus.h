#pragma once

#include <QString>

/** How the program ends, and what it says then. */
namespace ProgramStatus {

constexpr int done = 0;
/** A check or a line of a script failed. */
constexpr int failed = 1;
/** Nothing could be done: a wrong argument, a file that cannot be used, no display. */
constexpr int unusable = 2;

/** Writes "workbench: TEXT" to the standard error output; answers `unusable`. */
int complain(const QString &text);

} // namespace ProgramStatus
