#pragma once

#include <QString>

#include <functional>

class PlayStage;
struct Script;
struct SweepPlan;

/** The sweep, as the program's option offers it. */
namespace SweepCommand {

/**
 * Sweeps the script and prints the violations.
 *
 * @param junitFile file for the results; empty: none
 * @param watch is called before each run with the command that repeats it
 * @return exit status: 0 no violation, 1 violations, 2 the script cannot be swept
 */
int run(const Script &script, PlayStage *stage, const SweepPlan &plan, const QString &junitFile,
        const std::function<void(const QString &)> &watch);

} // namespace SweepCommand
