#pragma once

#include <QString>

#include <functional>

class PlayStage;
struct Script;
struct SweepPlan;

/** The sweep as the program offers it. */
namespace SweepCommand {

/**
 * Sweeps the script and prints what was found.
 *
 * @param junitFile file for the results; empty: none
 * @param watch is called with the way to repeat a run before it begins
 * @return exit status: 0 nothing found, 1 violations, 2 the script cannot be swept
 */
int run(const Script &script, PlayStage *stage, const SweepPlan &plan, const QString &junitFile,
        const std::function<void(const QString &)> &watch);

} // namespace SweepCommand
