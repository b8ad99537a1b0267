#include "CommandFamilies.h"
#include "ControllerRules.h"

namespace {

using Access = CommandAccess;

/** The number of markers of a body that was calibrated from a library target. */
constexpr int libraryMarkers = 5;

CommandOutcome startSearch(CommandContext &c)
{
    SearchState &search = c.state.search;
    if (search.active)
        return CommandOutcome::refused(QStringLiteral("a search is running"));
    if (!search.available || search.failsToStart)
        return CommandOutcome::refused(QStringLiteral("the search cannot start"));
    search.active = true;
    search.elapsedTicks = 0;
    for (TargetState &target : c.state.targets)
        target.tracked = false;
    return CommandOutcome::done();
}

CommandOutcome stopSearch(CommandContext &c)
{
    if (!c.state.search.active)
        return CommandOutcome::refused(QStringLiteral("no search is running"));
    c.state.search.active = false;
    return CommandOutcome::done();
}

CommandOutcome calibrateFromLibrary(CommandContext &c)
{
    BodyState *body = c.body();
    const int index = ControllerRules::targetIndex(c.state, c.argument(2));
    if (!body)
        return CommandOutcome::refused(QStringLiteral("there is no such body"));
    if (index < 0)
        return CommandOutcome::refused(QStringLiteral("there is no such target"));
    TargetState &target = c.state.targets[index];
    if (!ControllerRules::targetFits(target.bodyType, c.argument(0)))
        return CommandOutcome::refused(QStringLiteral("the target is of another type"));
    const QString holder = ControllerRules::bodyWith(c.state, &BodyState::target, target.shortName);
    if (!holder.isEmpty() && body->target != target.shortName)
        return CommandOutcome::refused(QStringLiteral("%1 holds the target").arg(holder));
    body->calibrated = true;
    body->recalibrated = false;
    body->active = true;
    body->target = target.shortName;
    body->markers = libraryMarkers;
    if (body->description.isEmpty())
        body->description = target.shortName;
    target.custom = false;
    return CommandOutcome::done();
}

CommandOutcome switchBodies(CommandContext &c)
{
    if (!c.body(0) || !c.body(2))
        return CommandOutcome::refused(QStringLiteral("there is no such body"));
    if (c.argument(0) != c.argument(2))
        return CommandOutcome::refused(QStringLiteral("the bodies are of two types"));
    ControllerRules::switchBodies(c.state, c.argument(0), c.numbered(1), c.numbered(3));
    return CommandOutcome::done();
}

/** Marks a target that a body holds as custom exactly when the body was calibrated again. */
CommandOutcome checkCustomCalibration(CommandContext &c)
{
    for (TargetState &target : c.state.targets) {
        const QString holder =
                ControllerRules::bodyWith(c.state, &BodyState::target, target.shortName);
        if (holder.isEmpty())
            continue;
        const BodyState *body = ControllerRules::body(
                c.state, holder.section(QLatin1Char(' '), 0, 0),
                ControllerRules::numberOf(holder.section(QLatin1Char(' '), 1)));
        const bool custom = body && body->recalibrated;
        c.stateChanged = c.stateChanged || target.custom != custom;
        target.custom = custom;
    }
    return CommandOutcome::done();
}

CommandOutcome restoreSensor(CommandContext &c)
{
    SensorState *sensor = ControllerRules::sensor(c.state, c.argument(0));
    if (!sensor)
        return CommandOutcome::refused(QStringLiteral("there is no such sensor"));
    if (!sensor->hasStorage || !sensor->present)
        return CommandOutcome::refused(QStringLiteral("the sensor has no stored values"));
    sensor->handEye = sensor->storedHandEye;
    return CommandOutcome::done();
}

} // namespace

QVector<CommandEntry> actionCommands()
{
    return {
            {Access::Action, "morvek2 cal targetlib start", 0, 1, false,
             "starts a search for library targets", "TargetSearchRun", startSearch},
            {Access::Action, "morvek2 cal targetlib stop", 0, 1, false, "ends the running search",
             "TargetSearchRun", stopSearch},
            {Access::Action, "morvek2 body calibrate_from_targetlib TYPE bNN NAME", 0, 1, true,
             "gives the body the geometry of a target, by number word or short name",
             "BodyCommands", calibrateFromLibrary},
            {Access::Action, "morvek2 body switch TYPE bNN TYPE bNN", 1, 11, true,
             "exchanges two bodies of a type", "BodyCommands", switchBodies},
            {Access::Action, "morvek2 targetlib check_custom_calibration", 0, 1, false,
             "finds out which targets have a custom calibration", "TargetAssignment",
             checkCustomCalibration},
            {Access::Action, "morvek2 set inertial sensor_default SENSOR", 1, 21, true,
             "restores the hand-eye calibration that the sensor keeps", "BodyCommands",
             restoreSensor},
    };
}
