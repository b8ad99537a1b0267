#include "CommandFamilies.h"
#include "ControllerRules.h"

namespace {

using Access = CommandAccess;

CommandOutcome filterAvailable(CommandContext &c)
{
    return CommandOutcome::flag(ControllerRules::isTypeAvailable(c.state, c.protocol, c.argument(0))
                                && c.state.bodyTypes.value(c.argument(0)).filterAvailable);
}

template <double ControllerState::*member>
CommandOutcome limit(CommandContext &c)
{
    return CommandOutcome::real(c.state.*member);
}

template <typename Choice>
CommandOutcome identifier(const QVector<Choice> &choices, int number)
{
    if (number < 1 || number > choices.size())
        return CommandOutcome::refused(QStringLiteral("there is no such number"));
    return CommandOutcome::text(choices.at(number - 1).id);
}

CommandOutcome presetCount(CommandContext &c)
{
    return CommandOutcome::number(c.state.filterPresets.size());
}

CommandOutcome presetId(CommandContext &c)
{
    return identifier(c.state.filterPresets, c.numbered(0));
}

CommandOutcome presetDescription(CommandContext &c)
{
    const FilterPresetState *preset = ControllerRules::preset(c.state, c.argument(0));
    return preset ? CommandOutcome::quoted(preset->description)
                  : CommandOutcome::refused(QStringLiteral("there is no such preset"));
}

CommandOutcome modeCount(CommandContext &c)
{
    return CommandOutcome::number(c.state.filterModes.size());
}

CommandOutcome modeId(CommandContext &c)
{
    return identifier(c.state.filterModes, c.numbered(0));
}

CommandOutcome modeDescription(CommandContext &c)
{
    const FilterModeState *mode = ControllerRules::mode(c.state, c.argument(0));
    return mode ? CommandOutcome::quoted(mode->description)
                : CommandOutcome::refused(QStringLiteral("there is no such mode"));
}

} // namespace

QVector<CommandEntry> filter6dCommands()
{
    return {
            {Access::Get, "filter6d available TYPE", 1, 12, false,
             "bodies of the type have the 6DOF filter", "BodyReader, FilterReader",
             filterAvailable},
            {Access::Get, "filter6d limit strength_min", 1, 12, false, "smallest strength",
             "FilterReader", limit<&ControllerState::strengthMin>},
            {Access::Get, "filter6d limit strength_max", 1, 12, false, "greatest strength",
             "FilterReader", limit<&ControllerState::strengthMax>},
            {Access::Get, "filter6d limit prediction_min", 1, 12, false,
             "smallest prediction in seconds", "FilterReader",
             limit<&ControllerState::predictionMin>},
            {Access::Get, "filter6d limit prediction_max", 1, 12, false,
             "greatest prediction in seconds", "FilterReader",
             limit<&ControllerState::predictionMax>},
            {Access::Get, "filter6d number_of_presets", 1, 12, false, "number of presets",
             "FilterReader", presetCount},
            {Access::Get, "filter6d preset_id tNN", 1, 12, false, "identifier of a preset",
             "FilterReader", presetId},
            {Access::Get, "filter6d preset_desc NAME", 1, 12, false,
             "name of a preset for people, in double quotes", "FilterReader", presetDescription},
            {Access::Get, "filter6d number_of_modes", 1, 12, false, "number of filter modes",
             "FilterReader", modeCount},
            {Access::Get, "filter6d mode_id tNN", 1, 12, false, "identifier of a mode",
             "FilterReader", modeId},
            {Access::Get, "filter6d mode_desc NAME", 1, 12, false,
             "name of a mode for people, in double quotes", "FilterReader", modeDescription},
    };
}
