#include "CommandFamilies.h"
#include "ControllerRules.h"

namespace {

using Access = CommandAccess;

CommandOutcome noSuchSensor()
{
    return CommandOutcome::refused(QStringLiteral("there is no such sensor"));
}

CommandOutcome inertialAvailable(CommandContext &c)
{
    return CommandOutcome::flag(c.state.inertialAvailable);
}

CommandOutcome warmup(CommandContext &c)
{
    return CommandOutcome::flag(c.state.inertialWarmup);
}

CommandOutcome setWarmup(CommandContext &c)
{
    bool ok = false;
    const bool on = c.flag(0, &ok);
    if (!ok)
        return CommandOutcome::refused(QStringLiteral("expected yes or no"));
    if (on && !c.state.inertialAvailable)
        return CommandOutcome::refused(QStringLiteral("there are no inertial sensors"));
    c.state.inertialWarmup = on;
    return CommandOutcome::done();
}

CommandOutcome frequency(CommandContext &c)
{
    return CommandOutcome::real(c.state.inertialFrequency);
}

CommandOutcome sensorCount(CommandContext &c)
{
    return CommandOutcome::number(c.state.sensors.size());
}

CommandOutcome sensorName(CommandContext &c)
{
    const int index = c.numbered(0) - 1;
    if (index < 0 || index >= c.state.sensors.size())
        return noSuchSensor();
    return CommandOutcome::text(c.state.sensors.at(index).name);
}

CommandOutcome bodyOfSensor(CommandContext &c)
{
    if (!ControllerRules::sensor(c.state, c.argument(0)))
        return noSuchSensor();
    return CommandOutcome::textOrNone(
            ControllerRules::bodyWith(c.state, &BodyState::sensor, c.argument(0)));
}

/** Sensors of one model share its description, so that the query needs only vendor and model. */
CommandOutcome modelDescription(CommandContext &c)
{
    const QString key = c.argument(0);
    for (const SensorState &sensor : c.state.sensors) {
        if (sensor.name == key || sensor.name.startsWith(key + QLatin1Char(' ')))
            return CommandOutcome::quoted(sensor.modelDescription);
    }
    return CommandOutcome::refused(QStringLiteral("there is no such sensor model"));
}

CommandOutcome present(CommandContext &c)
{
    const SensorState *sensor = ControllerRules::sensor(c.state, c.argument(0));
    return sensor ? CommandOutcome::flag(sensor->present) : noSuchSensor();
}

CommandOutcome hasStorage(CommandContext &c)
{
    const SensorState *sensor = ControllerRules::sensor(c.state, c.argument(0));
    return sensor ? CommandOutcome::flag(sensor->hasStorage) : noSuchSensor();
}

CommandOutcome handEye(CommandContext &c)
{
    const SensorState *sensor = ControllerRules::sensor(c.state, c.argument(0));
    return sensor ? CommandOutcome::textOrNone(sensor->handEye) : noSuchSensor();
}

CommandOutcome clearHandEye(CommandContext &c)
{
    SensorState *sensor = ControllerRules::sensor(c.state, c.argument(0));
    if (!sensor)
        return noSuchSensor();
    sensor->handEye.clear();
    return CommandOutcome::done();
}

} // namespace

QVector<CommandEntry> inertialCommands()
{
    return {
            {Access::Get, "inertial available", 1, 12, false, "inertial sensors can be used",
             "BodyReader", inertialAvailable},
            {Access::Get, "inertial warmup", 1, 12, false, "the sensors are warming up",
             "BodyReader, BodyCommands", warmup},
            {Access::Set, "inertial warmup VALUE", 1, 12, false, "starts or stops the warm-up",
             "BodyCommands", setWarmup},
            {Access::Get, "inertial frequency", 1, 21, false, "measuring frequency in Hz",
             "TrackingPulse", frequency},
            {Access::Get, "inertial number_of_sensors", 1, 12, false, "number of sensors",
             "TrackingPulse", sensorCount},
            {Access::Get, "inertial sensor dNN", 1, 12, false,
             "name of a sensor: vendor, model and 'device id'", "TrackingPulse", sensorName},
            {Access::Get, "inertial body_of_sensor SENSOR", 1, 12, false,
             "type and number of the body that carries the sensor, or none", "TrackingPulse",
             bodyOfSensor},
            {Access::Get, "inertial sensor_model_desc SENSOR", 1, 12, false,
             "name of the sensor's model for people, in double quotes; vendor and model suffice",
             "BodyReader, TrackingPulse", modelDescription},
            {Access::Get, "inertial sensor_present SENSOR", 1, 12, false, "the sensor is connected",
             "BodyReader", present},
            {Access::Get, "inertial sensor_has_storage SENSOR", 1, 21, false,
             "the sensor keeps its hand-eye calibration itself", "BodyCommands", hasStorage},
            {Access::Get, "inertial sensor_handeye SENSOR", 1, 12, false,
             "the sensor's hand-eye calibration, or none", "BodyReader, BodyCommands", handEye},
            {Access::Set, "inertial sensor_handeye SENSOR none", 1, 12, true,
             "deletes the hand-eye calibration", "BodyCommands", clearHandEye},
    };
}
