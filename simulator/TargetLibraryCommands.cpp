#include "CommandFamilies.h"
#include "ControllerRules.h"

namespace {

using Access = CommandAccess;

CommandOutcome noSuchTarget()
{
    return CommandOutcome::refused(QStringLiteral("there is no such target"));
}

/** The target with the number in argument 0; null when there is none. */
const TargetState *target(const CommandContext &c)
{
    const int index = c.numbered(0) - 1;
    return index >= 0 && index < c.state.targets.size() ? &c.state.targets.at(index) : nullptr;
}

QString groupName(const CommandContext &c)
{
    return c.state.targetGroups.value(c.numbered(0) - 1);
}

/** One-based numbers of the targets that belong to a group. */
QVector<int> members(const ControllerState &state, const QString &group)
{
    QVector<int> numbers;
    for (int i = 0; i < state.targets.size(); ++i) {
        if (state.targets.at(i).group == group)
            numbers << i + 1;
    }
    return numbers;
}

CommandOutcome targetName(CommandContext &c)
{
    const TargetState *found = target(c);
    if (!found)
        return noSuchTarget();
    return CommandOutcome::text(
            QStringLiteral("'%1' \"%2\"").arg(found->shortName, found->longName));
}

CommandOutcome targetBodyType(CommandContext &c)
{
    const TargetState *found = target(c);
    if (!found)
        return noSuchTarget();
    return CommandOutcome::text(found->bodyType.isEmpty()
                                        ? QStringLiteral("none")
                                        : QStringLiteral("'%1'").arg(found->bodyType));
}

CommandOutcome statusCalibrated(CommandContext &c)
{
    const TargetState *found = target(c);
    if (!found)
        return noSuchTarget();
    return CommandOutcome::textOrNone(
            ControllerRules::bodyWith(c.state, &BodyState::target, found->shortName));
}

template <bool TargetState::*member>
CommandOutcome readFlag(CommandContext &c)
{
    const TargetState *found = target(c);
    return found ? CommandOutcome::flag(found->*member) : noSuchTarget();
}

CommandOutcome nameOfGroup(CommandContext &c)
{
    const QString name = groupName(c);
    return name.isEmpty() ? CommandOutcome::refused(QStringLiteral("there is no such group"))
                          : CommandOutcome::text(name);
}

CommandOutcome numberOfMembers(CommandContext &c)
{
    const QString name = groupName(c);
    return name.isEmpty() ? CommandOutcome::refused(QStringLiteral("there is no such group"))
                          : CommandOutcome::number(members(c.state, name).size());
}

CommandOutcome groupMember(CommandContext &c)
{
    const QString name = groupName(c);
    const int number = name.isEmpty() ? 0 : members(c.state, name).value(c.numbered(1) - 1);
    return number < 1 ? CommandOutcome::refused(QStringLiteral("there is no such member"))
                      : CommandOutcome::quoted(ControllerRules::numberedWord('t', number));
}

CommandOutcome numberOfTargets(CommandContext &c)
{
    return CommandOutcome::number(c.state.targets.size());
}

CommandOutcome numberOfGroups(CommandContext &c)
{
    return CommandOutcome::number(c.state.targetGroups.size());
}

} // namespace

QVector<CommandEntry> targetLibraryCommands()
{
    return {
            {Access::Get, "targetlib number_of_targets", 0, 1, false,
             "number of targets in the library", "Targetlibrary", numberOfTargets},
            {Access::Get, "targetlib target_name tNN", 0, 1, false,
             "short name in apostrophes and long name in double quotes", "Targetlibrary",
             targetName},
            {Access::Get, "targetlib target_bodytype tNN", 0, 1, false,
             "body type in apostrophes, or none", "Targetlibrary", targetBodyType},
            {Access::Get, "targetlib target_status_calibrated tNN", 0, 1, false,
             "type and number of the body that holds the target, or none",
             "TargetAssignment, Targetlibrary", statusCalibrated},
            {Access::Get, "targetlib target_status_calibrated_custom tNN", 0, 1, false,
             "the target's calibration is a custom one", "TargetAssignment",
             readFlag<&TargetState::custom>},
            {Access::Get, "targetlib target_status_tracked tNN", 0, 1, false,
             "the last search found the target", "TargetAssignment, TargetSearchRun",
             readFlag<&TargetState::tracked>},
            {Access::Get, "targetlib number_of_groups", 0, 1, false, "number of target groups",
             "Targetlibrary", numberOfGroups},
            {Access::Get, "targetlib group_name gNN", 0, 1, false, "name of a group",
             "Targetlibrary", nameOfGroup},
            {Access::Get, "targetlib number_of_group_members gNN", 0, 1, false,
             "number of targets in a group", "Targetlibrary", numberOfMembers},
            {Access::Get, "targetlib group_member gNN mNN", 0, 1, false,
             "number word of a target of the group, in double quotes", "Targetlibrary",
             groupMember},
    };
}
