#pragma once

#include <QString>

/** The exit status of the program, and its error message. */
namespace ProgramStatus {

constexpr int done = 0;
/** A check or a line of a script failed. */
constexpr int failed = 1;
/** The input cannot be used: a wrong argument, a wrong file, or no display. */
constexpr int unusable = 2;

/** Writes "workbench: TEXT" to the standard error output; returns `unusable`. */
int complain(const QString &text);

} // namespace ProgramStatus
