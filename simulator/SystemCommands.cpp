#include "CommandFamilies.h"
#include "ControllerRules.h"

namespace {

using Access = CommandAccess;

CommandOutcome reference(CommandContext &c)
{
    return CommandOutcome::textOrNone(c.state.trackingReference);
}

CommandOutcome clearReference(CommandContext &c)
{
    c.state.trackingReference.clear();
    return CommandOutcome::done();
}

CommandOutcome setReference(CommandContext &c)
{
    const BodyState *body = c.body();
    if (!body || c.argument(0) != QLatin1String("standard"))
        return CommandOutcome::refused(QStringLiteral("only a standard body can be it"));
    if (!body->active || !body->calibrated)
        return CommandOutcome::refused(QStringLiteral("the body is not tracked"));
    c.state.trackingReference = c.argument(0) + QLatin1Char(' ') + c.argument(1);
    return CommandOutcome::done();
}

CommandOutcome autoRestart(CommandContext &c)
{
    return CommandOutcome::flag(c.state.autoRestart);
}

CommandOutcome setAutoRestart(CommandContext &c)
{
    bool ok = false;
    const bool on = c.flag(0, &ok);
    if (!ok)
        return CommandOutcome::refused(QStringLiteral("expected yes or no"));
    c.state.autoRestart = on;
    return CommandOutcome::done();
}

CommandOutcome axis(CommandContext &c)
{
    QStringList words;
    for (double value : c.state.axis5dofCentral)
        words << QString::number(value, 'f', 3);
    return CommandOutcome::text(words.join(QLatin1Char(' ')));
}

CommandOutcome setAxis(CommandContext &c)
{
    std::array<double, 3> vector{};
    bool isZero = true;
    for (int i = 0; i < 3; ++i) {
        bool ok = false;
        vector[i] = c.real(i, &ok);
        if (!ok)
            return CommandOutcome::refused(QStringLiteral("expected three numbers"));
        isZero = isZero && vector[i] == 0.0;
    }
    if (isZero)
        return CommandOutcome::refused(QStringLiteral("the axis has no direction"));
    c.state.axis5dofCentral = vector;
    return CommandOutcome::done();
}

CommandOutcome pulse(CommandContext &c)
{
    return CommandOutcome::text(c.state.trackingPulse);
}

CommandOutcome pulseOfCameras(CommandContext &c)
{
    c.state.trackingPulse = QStringLiteral("synchronous_cameras");
    return CommandOutcome::done();
}

CommandOutcome pulseOfSensor(CommandContext &c)
{
    if (!ControllerRules::sensor(c.state, c.argument(0)))
        return CommandOutcome::refused(QStringLiteral("there is no such sensor"));
    c.state.trackingPulse = QStringLiteral("inertial_sensor ") + c.argument(0);
    return CommandOutcome::done();
}

CommandOutcome pulseFrequency(CommandContext &c)
{
    constexpr double slowestHz = 1.0;
    constexpr double fastestHz = 1000.0;
    bool ok = false;
    const double frequencyHz = c.real(0, &ok);
    if (!ok || frequencyHz < slowestHz || frequencyHz > fastestHz)
        return CommandOutcome::refused(QStringLiteral("the frequency is outside its limits"));
    c.state.trackingPulse = QStringLiteral("frequency ") + QString::number(frequencyHz, 'f', 3);
    return CommandOutcome::done();
}

CommandOutcome syncFrequency(CommandContext &c)
{
    return CommandOutcome::real(c.state.syncOutputFrequency);
}

CommandOutcome deviceModel(CommandContext &c)
{
    for (const DeviceState &device : c.state.devices) {
        if (device.vendor == c.argument(0) && device.model == c.argument(1))
            return CommandOutcome::quoted(device.modelDescription);
    }
    return CommandOutcome::refused(QStringLiteral("there is no such device model"));
}

CommandOutcome isChangeable(CommandContext &c)
{
    return CommandOutcome::flag(c.state.configChangeable);
}

CommandOutcome calibrationAvailable(CommandContext &c)
{
    return CommandOutcome::flag(c.state.search.available);
}

CommandOutcome active(CommandContext &c)
{
    return CommandOutcome::text(c.state.search.active ? QStringLiteral("targetlib")
                                                      : QStringLiteral("none"));
}

/** Marks the first `count` targets in the volume as found. */
void findTargets(ControllerState &state, int count)
{
    for (TargetState &target : state.targets) {
        if (count > 0 && target.inVolume) {
            target.tracked = true;
            --count;
        }
    }
}

/** Each query of the step is one tick of the search, because the simulated time is virtual. */
CommandOutcome stepActive(CommandContext &c)
{
    SearchState &search = c.state.search;
    if (!search.active)
        return CommandOutcome::text(QStringLiteral("none"));
    c.stateChanged = true;
    int inVolume = 0;
    for (const TargetState &target : qAsConst(c.state.targets))
        inVolume += target.inVolume ? 1 : 0;
    search.elapsedTicks = qMin(search.elapsedTicks + 1, search.durationTicks);
    if (search.elapsedTicks >= search.durationTicks) {
        findTargets(c.state, inVolume);
        search.active = false;
        return CommandOutcome::text(QStringLiteral("none"));
    }
    findTargets(c.state, inVolume * search.elapsedTicks / search.durationTicks);
    return CommandOutcome::text(QStringLiteral("calibration"));
}

CommandOutcome progress(CommandContext &c)
{
    const SearchState &search = c.state.search;
    const int duration = qMax(1, search.durationTicks);
    return CommandOutcome::text(QString::number(double(search.elapsedTicks) / duration, 'f', 3));
}

} // namespace

QVector<CommandEntry> systemCommands()
{
    return {
            {Access::Get, "tracking reference", 1, 24, false,
             "type and number of the reference body, or none", "BodyCommands, BodyReader",
             reference},
            {Access::Set, "tracking reference none", 1, 24, true, "ends the use of a reference",
             "BodyCommands", clearReference},
            {Access::Set, "tracking reference TYPE bNN", 1, 24, true,
             "makes an active, calibrated standard body the reference", "BodyCommands",
             setReference},
            {Access::Get, "tracking auto_restart", 0, 14, false,
             "measuring goes on automatically after the sync signal was lost", "MarkerSettings",
             autoRestart},
            {Access::Set, "tracking auto_restart VALUE", 0, 14, true,
             "switches the automatic restart", "MarkerSettings", setAutoRestart},
            {Access::Get, "tracking axis_5dof_central", 1, 12, false,
             "x, y and z of the axis that is up for 5DOF bodies", "MarkerSettings", axis},
            {Access::Set, "tracking axis_5dof_central VALUE VALUE VALUE", 1, 12, true,
             "sets that axis", "MarkerSettings", setAxis},
            {Access::Get, "tracking pulse", 1, 21, false,
             "what paces the tracking: cameras, a sensor or a frequency", "TrackingPulse", pulse},
            {Access::Set, "tracking pulse synchronous_cameras", 1, 21, true,
             "tracks with the cameras", "TrackingPulse", pulseOfCameras},
            {Access::Set, "tracking pulse frequency VALUE", 1, 21, true,
             "tracks with a frequency of 1 to 1000 Hz", "TrackingPulse", pulseFrequency},
            {Access::Set, "tracking pulse inertial_sensor SENSOR", 1, 21, true,
             "tracks with a sensor", "TrackingPulse", pulseOfSensor},
            {Access::Get, "synccard output_frequency", 0, 1, false, "camera frequency in Hz",
             "TrackingPulse", syncFrequency},
            {Access::Get, "qorwpan device_model_desc NAME NAME", 1, 3, false,
             "name of a device's model for people, in double quotes", "BodyReader", deviceModel},
            {Access::Get, "config is_changeable", 1, 9, false,
             "the active configuration may be changed", "ControllerLink", isChangeable},
            {Access::Get, "cal available targetlib", 0, 1, false,
             "a search for library targets is possible", "TargetSearchRun", calibrationAvailable},
            {Access::Get, "status active", 0, 1, false, "targetlib while a search runs, else none",
             "BodyAdministrationDlg, TargetAssignment, TargetSearchRun", active},
            {Access::Get, "status step_active", 0, 1, false,
             "calibration while a search runs, else none; one tick of the search",
             "TargetSearchRun", stepActive},
            {Access::Get, "status progress", 0, 1, false, "progress of the search, 0 to 1",
             "TargetSearchRun", progress},
    };
}
