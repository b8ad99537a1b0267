#include "CommandContext.h"

#include "ControllerRules.h"

#include <cmath>

CommandOutcome CommandOutcome::text(const QString &answer)
{
    CommandOutcome outcome;
    outcome.ok = true;
    outcome.answer = answer.toUtf8();
    return outcome;
}

CommandOutcome CommandOutcome::quoted(const QString &answer)
{
    return text(QLatin1Char('"') + answer + QLatin1Char('"'));
}

CommandOutcome CommandOutcome::textOrNone(const QString &answer)
{
    return text(answer.isEmpty() ? QStringLiteral("none") : answer);
}

CommandOutcome CommandOutcome::number(int value)
{
    return text(QString::number(value));
}

CommandOutcome CommandOutcome::real(double value)
{
    return text(QString::number(value, 'f', 6));
}

CommandOutcome CommandOutcome::flag(bool value)
{
    return text(value ? QStringLiteral("yes") : QStringLiteral("no"));
}

CommandOutcome CommandOutcome::done()
{
    return text(QString());
}

CommandOutcome CommandOutcome::refused(const QString &reason)
{
    CommandOutcome outcome;
    outcome.reason = reason;
    return outcome;
}

CommandContext::CommandContext(ControllerState &controllerState,
                               const QStringList &commandArguments,
                               const VersionInfo &protocolVersion)
    : state(controllerState), arguments(commandArguments), protocol(protocolVersion)
{
}

int CommandContext::numbered(int index) const
{
    return ControllerRules::numberOf(argument(index));
}

BodyState *CommandContext::body(int first) const
{
    if (!ControllerRules::isTypeAvailable(state, protocol, argument(first)))
        return nullptr;
    return ControllerRules::body(state, argument(first), numbered(first + 1));
}

bool CommandContext::flag(int index, bool *ok) const
{
    const bool on = argument(index) == QLatin1String("yes");
    *ok = on || argument(index) == QLatin1String("no");
    return on;
}

double CommandContext::real(int index, bool *ok) const
{
    const double value = argument(index).toLatin1().toDouble(ok);
    *ok = *ok && std::isfinite(value);
    return value;
}
