#include "CommandFamilies.h"
#include "ControllerRules.h"

namespace {

CommandOutcome noSuchBody()
{
    return CommandOutcome::refused(QStringLiteral("there is no such body"));
}

CommandOutcome numberOfBodies(CommandContext &c)
{
    if (!ControllerRules::isTypeAvailable(c.state, c.protocol, c.argument(0)))
        return CommandOutcome::refused(QStringLiteral("the body type is not available"));
    return CommandOutcome::number(c.state.bodyTypes.value(c.argument(0)).bodies.size());
}

CommandOutcome typeDescription(CommandContext &c)
{
    if (!ControllerRules::isTypeAvailable(c.state, c.protocol, c.argument(0)))
        return CommandOutcome::refused(QStringLiteral("the body type is not available"));
    return CommandOutcome::quoted(c.state.bodyTypes.value(c.argument(0)).description);
}

/** Answers a member of the body, which is a text or a flag. */
template <typename T, T BodyState::*member>
CommandOutcome read(CommandContext &c)
{
    const BodyState *body = c.body();
    if (!body)
        return noSuchBody();
    if constexpr (std::is_same_v<T, bool>)
        return CommandOutcome::flag(body->*member);
    else
        return CommandOutcome::text(body->*member);
}

template <QString BodyState::*member>
CommandOutcome readOrNone(CommandContext &c)
{
    const BodyState *body = c.body();
    return body ? CommandOutcome::textOrNone(body->*member) : noSuchBody();
}

CommandOutcome setDescription(CommandContext &c)
{
    BodyState *body = c.body();
    if (!body)
        return noSuchBody();
    QString text = c.argument(2);
    const QLatin1Char quote('"');
    if (text.size() >= 2 && text.startsWith(quote) && text.endsWith(quote))
        text = text.mid(1, text.size() - 2);
    QString refusal;
    if (!ControllerRules::rename(*body, text, &refusal))
        return CommandOutcome::refused(refusal);
    return CommandOutcome::done();
}

CommandOutcome setActive(CommandContext &c)
{
    BodyState *body = c.body();
    bool ok = false;
    const bool on = c.flag(2, &ok);
    if (!body)
        return noSuchBody();
    if (!ok)
        return CommandOutcome::refused(QStringLiteral("expected yes or no"));
    if (on && !body->active && !body->calibrated)
        return CommandOutcome::refused(QStringLiteral("the body is not calibrated"));
    body->active = on;
    return CommandOutcome::done();
}

CommandOutcome setNumberOfMarkers(CommandContext &c)
{
    if (!c.body())
        return noSuchBody();
    if (c.argument(2) != QLatin1String("0"))
        return CommandOutcome::refused(QStringLiteral("only a calibration adds markers"));
    ControllerRules::clearGeometry(c.state, c.argument(0), c.numbered(1));
    return CommandOutcome::done();
}

CommandOutcome setSensor(CommandContext &c)
{
    BodyState *body = c.body();
    const QString name = c.argument(2);
    if (!body)
        return noSuchBody();
    if (name == QLatin1String("none")) {
        body->sensor.clear();
        return CommandOutcome::done();
    }
    if (!ControllerRules::sensor(c.state, name))
        return CommandOutcome::refused(QStringLiteral("there is no such sensor"));
    const QString holder = ControllerRules::bodyWith(c.state, &BodyState::sensor, name);
    if (!holder.isEmpty() && holder != c.argument(0) + QLatin1Char(' ') + c.argument(1))
        return CommandOutcome::refused(QStringLiteral("%1 carries the sensor").arg(holder));
    body->sensor = name;
    return CommandOutcome::done();
}

} // namespace

QVector<CommandEntry> bodyCommands()
{
    using Access = CommandAccess;
    return {
            {Access::Get, "body number_of_bodies TYPE", 0, 1, false, "number of bodies of the type",
             "BodyReader, BodySettingsDlg, FilterReader, FixedAngles", numberOfBodies},
            {Access::Get, "body type_desc TYPE", 0, 3, false,
             "name of the body type for people, in double quotes", "BodyReader", typeDescription},
            {Access::Get, "body desc TYPE bNN", 0, 16, false, "the body's name",
             "BodyReader, BodySettingsDlg, FilterReader, FixedAngles",
             read<QString, &BodyState::description>},
            {Access::Set, "body desc TYPE bNN TEXT", 0, 16, true,
             "names the body; the text may stand in double quotes", "BodyCommands, BodySettingsDlg",
             setDescription},
            {Access::Get, "body active TYPE bNN", 1, 11, false, "the body is active", "BodyReader",
             read<bool, &BodyState::active>},
            {Access::Set, "body active TYPE bNN VALUE", 1, 11, true,
             "switches the body on or off; only a calibrated body can be switched on",
             "BodyCommands", setActive},
            {Access::Get, "body calibrated TYPE bNN", 0, 3, false, "the body is calibrated",
             "BodyReader, BodySettingsDlg, FilterReader, FixedAngles",
             read<bool, &BodyState::calibrated>},
            {Access::Get, "body recalibrated TYPE bNN", 1, 11, false,
             "the body was calibrated again after it got its geometry", "BodyReader",
             read<bool, &BodyState::recalibrated>},
            {Access::Get, "body targetlib_name TYPE bNN", 1, 11, false,
             "short name of the library target that gave the geometry, or none", "BodyReader",
             readOrNone<&BodyState::target>},
            {Access::Get, "body target_type TYPE bNN", 1, 6, false, "kind of the body's target",
             "FixedAngles", read<QString, &BodyState::targetType>},
            {Access::Set, "body number_of_marker TYPE bNN VALUE", 0, 1, true,
             "0 takes the geometry and the library target from the body", "BodyCommands",
             setNumberOfMarkers},
            {Access::Get, "body inertial_sensor TYPE bNN", 1, 12, false,
             "name of the inertial sensor that the body carries, or none",
             "BodyReader, FilterReader", readOrNone<&BodyState::sensor>},
            {Access::Set, "body inertial_sensor TYPE bNN SENSOR", 1, 12, true,
             "gives the body a sensor that no other body carries, or none", "BodyCommands",
             setSensor},
    };
}
