#include "CommandFamilies.h"
#include "ControllerRules.h"

#include <cmath>

namespace {

/** Carries a command out on a body whose type has the filter; refuses it for other types. */
template <CommandOutcome (*command)(const CommandContext &, BodyState &)>
CommandOutcome onFilteredBody(CommandContext &c)
{
    BodyState *body = c.body();
    if (!body)
        return CommandOutcome::refused(QStringLiteral("there is no such body"));
    if (!c.state.bodyTypes.value(c.argument(0)).filterAvailable)
        return CommandOutcome::refused(QStringLiteral("the body type has no 6DOF filter"));
    return command(c, *body);
}

/** Answers a member of the body's filter. */
template <auto member>
CommandOutcome read(const CommandContext &, BodyState &body)
{
    using Value = std::decay_t<decltype(body.*member)>;
    if constexpr (std::is_same_v<Value, bool>)
        return CommandOutcome::flag(body.*member);
    else if constexpr (std::is_same_v<Value, double>)
        return CommandOutcome::real(body.*member);
    else
        return CommandOutcome::text(body.*member);
}

template <typename Choice>
bool suits(const BodyState &body, const Choice &choice)
{
    return body.sensor.isEmpty() ? !choice.onlyForInertial : choice.availableForInertial;
}

template <auto find>
CommandOutcome available(const CommandContext &c, BodyState &body)
{
    const auto *choice = find(c.state, c.argument(2));
    return CommandOutcome::flag(choice && suits(body, *choice));
}

CommandOutcome setEnabled(const CommandContext &c, BodyState &body)
{
    bool ok = false;
    const bool on = c.flag(2, &ok);
    if (!ok)
        return CommandOutcome::refused(QStringLiteral("expected yes or no"));
    if (!on && !body.sensor.isEmpty())
        return CommandOutcome::refused(QStringLiteral("an inertial body is always filtered"));
    body.filterEnabled = on;
    return CommandOutcome::done();
}

CommandOutcome setPreset(const CommandContext &c, BodyState &body)
{
    const FilterPresetState *preset = ControllerRules::preset(c.state, c.argument(2));
    if (!preset || !suits(body, *preset))
        return CommandOutcome::refused(QStringLiteral("the preset is not available for the body"));
    body.filterPreset = preset->id;
    body.filterStrength = preset->strength;
    body.filterPrediction = preset->prediction;
    body.filterMode = preset->mode;
    return CommandOutcome::done();
}

bool isCustom(const BodyState &body)
{
    return body.filterPreset.contains(QLatin1String("_custom"));
}

CommandOutcome onlyCustom()
{
    return CommandOutcome::refused(QStringLiteral("the preset fixes this value"));
}

template <double BodyState::*member, double ControllerState::*minimum,
          double ControllerState::*maximum>
CommandOutcome setReal(const CommandContext &c, BodyState &body)
{
    if (!isCustom(body))
        return onlyCustom();
    // Commands have six decimals, so that even a limit may arrive rounded.
    constexpr double rounding = 1e-6;
    bool ok = false;
    const double value = c.real(2, &ok);
    if (!ok || value < c.state.*minimum - rounding || value > c.state.*maximum + rounding)
        return CommandOutcome::refused(QStringLiteral("the value is outside its limits"));
    body.*member = value;
    return CommandOutcome::done();
}

CommandOutcome setMode(const CommandContext &c, BodyState &body)
{
    if (!isCustom(body))
        return onlyCustom();
    const FilterModeState *mode = ControllerRules::mode(c.state, c.argument(2));
    if (!mode || !suits(body, *mode))
        return CommandOutcome::refused(QStringLiteral("the mode is not available for the body"));
    body.filterMode = mode->id;
    return CommandOutcome::done();
}

} // namespace

QVector<CommandEntry> bodyFilterCommands()
{
    using Access = CommandAccess;
    return {
            {Access::Get, "body filter6d_enabled TYPE bNN", 1, 12, false, "the body is filtered",
             "FilterReader", onFilteredBody<read<&BodyState::filterEnabled>>},
            {Access::Set, "body filter6d_enabled TYPE bNN VALUE", 1, 12, true,
             "switches the body's filter; an inertial body is always filtered", "FilterCommands",
             onFilteredBody<setEnabled>},
            {Access::Get, "body filter6d_preset TYPE bNN", 1, 12, false,
             "identifier of the body's preset", "FilterReader",
             onFilteredBody<read<&BodyState::filterPreset>>},
            {Access::Set, "body filter6d_preset TYPE bNN NAME", 1, 12, true,
             "chooses a preset, which brings its strength, prediction and mode",
             "BodyCommands, FilterCommands", onFilteredBody<setPreset>},
            {Access::Get, "body filter6d_preset_available TYPE bNN NAME", 1, 21, false,
             "the preset may be chosen for the body", "BodyCommands, FilterReader",
             onFilteredBody<available<ControllerRules::preset>>},
            {Access::Get, "body filter6d_strength TYPE bNN", 1, 12, false, "strength",
             "FilterReader", onFilteredBody<read<&BodyState::filterStrength>>},
            {Access::Set, "body filter6d_strength TYPE bNN VALUE", 1, 12, true,
             "sets the strength within its limits, under a custom preset only", "FilterCommands",
             onFilteredBody<setReal<&BodyState::filterStrength, &ControllerState::strengthMin,
                                    &ControllerState::strengthMax>>},
            {Access::Get, "body filter6d_prediction TYPE bNN", 1, 12, false,
             "prediction in seconds", "FilterReader",
             onFilteredBody<read<&BodyState::filterPrediction>>},
            {Access::Set, "body filter6d_prediction TYPE bNN VALUE", 1, 12, true,
             "sets the prediction in seconds within its limits, under a custom preset only",
             "FilterCommands",
             onFilteredBody<setReal<&BodyState::filterPrediction, &ControllerState::predictionMin,
                                    &ControllerState::predictionMax>>},
            {Access::Get, "body filter6d_mode TYPE bNN", 1, 12, false,
             "identifier of the body's filter mode", "FilterReader",
             onFilteredBody<read<&BodyState::filterMode>>},
            {Access::Set, "body filter6d_mode TYPE bNN NAME", 1, 12, true,
             "chooses a mode, under a custom preset only", "FilterCommands",
             onFilteredBody<setMode>},
            {Access::Get, "body filter6d_mode_available TYPE bNN NAME", 1, 21, false,
             "the mode may be chosen for the body", "FilterReader",
             onFilteredBody<available<ControllerRules::mode>>},
    };
}
