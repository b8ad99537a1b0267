#include "BodyTypeWords.h"
#include "CommandFamilies.h"
#include "ControllerRules.h"

namespace {

using namespace BodyTypeWords;
using Access = CommandAccess;

CommandOutcome notAvailable()
{
    return CommandOutcome::refused(QStringLiteral("the body type is not available"));
}

template <const QString &type>
CommandOutcome count(CommandContext &c)
{
    if (!ControllerRules::isTypeAvailable(c.state, c.protocol, type))
        return notAvailable();
    return CommandOutcome::number(c.state.bodyTypes.value(type).bodies.size());
}

template <const QString &type>
CommandOutcome maximum(CommandContext &c)
{
    if (!ControllerRules::isTypeAvailable(c.state, c.protocol, type))
        return notAvailable();
    return CommandOutcome::number(c.state.bodyTypes.value(type).maximum);
}

template <const QString &type>
CommandOutcome setCount(CommandContext &c)
{
    if (!ControllerRules::isTypeAvailable(c.state, c.protocol, type))
        return notAvailable();
    bool ok = false;
    const int number = c.argument(0).toInt(&ok);
    if (!ok || number < 0 || number > c.state.bodyTypes.value(type).maximum)
        return CommandOutcome::refused(QStringLiteral("the count is outside its limits"));
    ControllerRules::setBodyCount(c.state, type, number);
    return CommandOutcome::done();
}

template <bool ControllerState::*member>
CommandOutcome readFlag(CommandContext &c)
{
    return CommandOutcome::flag(c.state.*member);
}

template <bool ControllerState::*member>
CommandOutcome writeFlag(CommandContext &c)
{
    bool ok = false;
    const bool on = c.flag(0, &ok);
    if (!ok)
        return CommandOutcome::refused(QStringLiteral("expected yes or no"));
    c.state.*member = on;
    return CommandOutcome::done();
}

CommandOutcome fixedAngles(CommandContext &c)
{
    const BodyState *body = ControllerRules::body(c.state, standardWord, c.numbered(0));
    if (!body)
        return CommandOutcome::refused(QStringLiteral("there is no such body"));
    QStringList words;
    for (const FixedAngleState &angle : body->fixedAngles) {
        words << (angle.enabled ? QStringLiteral("yes") : QStringLiteral("no"))
              << QString::number(angle.degrees, 'f', 3);
    }
    return CommandOutcome::text(words.join(QLatin1Char(' ')));
}

CommandOutcome setFixedAngles(CommandContext &c)
{
    BodyState *body = ControllerRules::body(c.state, standardWord, c.numbered(0));
    if (!body)
        return CommandOutcome::refused(QStringLiteral("there is no such body"));
    const bool allowed = body->targetType == QLatin1String("tt_std")
                         || body->targetType == QLatin1String("tt_2x5dof_cyl");
    constexpr double limitDegrees = 20.0;
    auto angles = body->fixedAngles;
    for (int axis = 0; axis < 3; ++axis) {
        bool isFlag = false;
        bool isNumber = false;
        const bool on = c.flag(1 + 2 * axis, &isFlag);
        const double degrees = c.real(2 + 2 * axis, &isNumber);
        if (!isFlag || !isNumber)
            return CommandOutcome::refused(QStringLiteral("expected three flags with angles"));
        if (degrees < -limitDegrees || degrees > limitDegrees)
            return CommandOutcome::refused(QStringLiteral("the angle is outside its limits"));
        if (on && !allowed && !angles[axis].enabled)
            return CommandOutcome::refused(QStringLiteral("the target allows no fixed angle"));
        angles[axis] = {on, degrees};
    }
    body->fixedAngles = angles;
    return CommandOutcome::done();
}

CommandOutcome device(CommandContext &c)
{
    if (!ControllerRules::body(c.state, joywandWord, c.numbered(0)))
        return CommandOutcome::refused(QStringLiteral("there is no such device slot"));
    const DeviceState found = c.state.devices.value(c.numbered(0) - 1);
    if (found.kind.isEmpty())
        return CommandOutcome::text(QStringLiteral("none"));
    return CommandOutcome::text(
            QStringList{found.kind, found.vendor, found.model, found.serial}.join(
                    QLatin1Char(' ')));
}

BodyState *tool(CommandContext &c)
{
    if (!ControllerRules::isTypeAvailable(c.state, c.protocol, toolWord))
        return nullptr;
    return ControllerRules::body(c.state, toolWord, c.numbered(0));
}

CommandOutcome referenceOfTool(CommandContext &c)
{
    const BodyState *found = tool(c);
    return found ? CommandOutcome::textOrNone(found->reference)
                 : CommandOutcome::refused(QStringLiteral("there is no such tool"));
}

CommandOutcome setReferenceOfTool(CommandContext &c)
{
    BodyState *found = tool(c);
    if (!found)
        return CommandOutcome::refused(QStringLiteral("there is no such tool"));
    const QString reference = c.argument(1);
    if (reference == QLatin1String("none")) {
        found->reference.clear();
        return CommandOutcome::done();
    }
    if (!ControllerRules::body(c.state, referenceWord, ControllerRules::numberOf(reference)))
        return CommandOutcome::refused(QStringLiteral("there is no such reference"));
    found->reference = reference;
    return CommandOutcome::done();
}

CommandOutcome handsAvailable(CommandContext &c)
{
    return CommandOutcome::flag(c.state.fingertrackingAvailable);
}

QVector<CommandEntry> standardCommands()
{
    return {
            {Access::Get, "standard number_of_bodies", 0, 1, false, "number of standard bodies",
             "BodyReader, FixedAngles", count<standardWord>},
            {Access::Set, "standard number_of_bodies VALUE", 0, 1, true,
             "adds or drops standard bodies at the end", "BodyCommands", setCount<standardWord>},
            {Access::Get, "standard max_number_of_bodies", 0, 1, false,
             "most standard bodies there can be", "BodyReader", maximum<standardWord>},
            {Access::Get, "standard filter_bodies", 1, 12, false,
             "global switch of the standard bodies' 6DOF filter", "BodyReader",
             readFlag<&ControllerState::standardFilter>},
            {Access::Set, "standard filter_bodies VALUE", 1, 12, true, "sets the global switch",
             "BodyCommands", writeFlag<&ControllerState::standardFilter>},
            {Access::Get, "standard calculate_marker", 0, 1, false, "3DOF markers are calculated",
             "MarkerSettings", readFlag<&ControllerState::calculateMarker>},
            {Access::Set, "standard calculate_marker VALUE", 0, 1, true,
             "switches the calculation of 3DOF markers", "MarkerSettings",
             writeFlag<&ControllerState::calculateMarker>},
            {Access::Get, "standard fixed_angle bNN", 1, 6, false,
             "flag and angle in degrees about x, y and z", "FixedAngles", fixedAngles},
            {Access::Set, "standard fixed_angle bNN VALUE VALUE VALUE VALUE VALUE VALUE", 1, 6,
             true, "sets the three flags and angles, -20 to 20 degrees", "FixedAngles",
             setFixedAngles},
    };
}

QVector<CommandEntry> joywandCommands()
{
    return {
            {Access::Get, "joywand number_of_devices", 0, 1, false, "number of devices",
             "FilterReader", count<joywandWord>},
            {Access::Set, "joywand number_of_devices VALUE", 0, 1, true,
             "adds or drops devices at the end, and their head targets", "BodyCommands",
             setCount<joywandWord>},
            {Access::Get, "joywand max_number_of_devices", 0, 1, false, "most devices there can be",
             "BodyReader", maximum<joywandWord>},
            {Access::Get, "joywand filter", 1, 12, false,
             "global switch of the devices' 6DOF filter", "BodyReader",
             readFlag<&ControllerState::joywandFilter>},
            {Access::Set, "joywand filter VALUE", 1, 12, true, "sets the global switch",
             "BodyCommands", writeFlag<&ControllerState::joywandFilter>},
            {Access::Get, "joywand device bNN", 0, 1, false,
             "kind, vendor, model and serial number of the device in a slot, or none", "BodyReader",
             device},
            {Access::Get, "joywand multiuser_available", 0, 13, false, "several users are possible",
             "JoywandAdministration", readFlag<&ControllerState::multiUserAvailable>},
            {Access::Get, "joywand multiuser_with_head_available", 0, 13, false,
             "head targets are possible", "JoywandAdministration",
             readFlag<&ControllerState::multiUserWithHeadAvailable>},
            {Access::Get, "joywand multiuser", 0, 13, false, "several users are on",
             "JoywandAdministration", readFlag<&ControllerState::multiUser>},
            {Access::Get, "joywand multiuser_with_head", 0, 13, false, "head targets are on",
             "JoywandAdministration", readFlag<&ControllerState::multiUserWithHead>},
    };
}

QVector<CommandEntry> toolCommands()
{
    return {
            {Access::Get, "measurementtool available", 1, 3, false,
             "the controller has measurement tools", "MtAdministration",
             readFlag<&ControllerState::measurementToolAvailable>},
            {Access::Get, "measurementtool max_number_of_tools", 1, 3, false,
             "most tools there can be", "BodyReader", maximum<toolWord>},
            {Access::Get, "measurementtool max_number_of_references", 1, 3, false,
             "most references there can be", "BodyReader", maximum<referenceWord>},
            {Access::Set, "measurementtool number_of_tools VALUE", 1, 3, true,
             "adds or drops tools at the end", "BodyCommands", setCount<toolWord>},
            {Access::Get, "measurementtool number_of_references", 1, 3, false,
             "number of references", "BodyReader", count<referenceWord>},
            {Access::Set, "measurementtool number_of_references VALUE", 1, 3, true,
             "adds or drops references at the end", "BodyCommands", setCount<referenceWord>},
            {Access::Get, "measurementtool reference_of_tool bNN", 1, 3, false,
             "number word of the reference that the tool uses, or none", "BodyReader",
             referenceOfTool},
            {Access::Set, "measurementtool reference_of_tool bNN VALUE", 1, 3, true,
             "gives the tool a reference, or none", "BodyCommands", setReferenceOfTool},
    };
}

QVector<CommandEntry> handCommands()
{
    return {
            {Access::Get, "fingertracking available", 0, 17, false, "the controller has hands",
             "FingertrackingAdministration", handsAvailable},
            {Access::Get, "fingertracking max_number_of_hands", 0, 17, false,
             "most hands there can be", "BodyReader", maximum<handWord>},
            {Access::Set, "fingertracking number_of_hands VALUE", 0, 17, true,
             "adds or drops hands at the end", "BodyCommands", setCount<handWord>},
    };
}

} // namespace

QVector<CommandEntry> bodyTypeCommands()
{
    return standardCommands() + joywandCommands() + toolCommands() + handCommands();
}
