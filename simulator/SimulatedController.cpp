#include "SimulatedController.h"

#include "CommandTable.h"

namespace {

CommandReply refusal(CommandAccess access, const QString &reason)
{
    CommandReply reply;
    reply.reason = reason;
    if (access == CommandAccess::Action)
        reply.answer = "morvek2 err \"" + reason.toUtf8() + '"';
    return reply;
}

} // namespace

SimulatedController::SimulatedController(const ControllerState &state, QObject *parent)
    : QObject(parent), m_state(state)
{
}

SimulatedController::~SimulatedController() = default;

CommandReply SimulatedController::execute(CommandAccess access, const QByteArray &line)
{
    const CommandTable::Match match = CommandTable::instance().find(access, line);
    if (!match.entry) {
        m_unknownCommands << QString::fromUtf8(line);
        CommandReply reply = refusal(access, QStringLiteral("unknown command"));
        reply.unknown = true;
        return reply;
    }
    const CommandEntry &entry = *match.entry;
    const VersionInfo protocol = protocolVersion();
    if (protocol < VersionInfo(entry.major, entry.minor, -1))
        return refusal(access, QStringLiteral("the protocol is too old"));
    if (entry.changesConfiguration && !m_state.configChangeable)
        return refusal(access, QStringLiteral("the configuration is locked"));

    CommandContext context(m_state, match.arguments, protocol);
    const CommandOutcome outcome = entry.handler(context);
    if (!outcome.ok)
        return refusal(access, outcome.reason);
    CommandReply reply;
    reply.ok = true;
    reply.answer = access == CommandAccess::Action ? QByteArray("morvek2 ok") : outcome.answer;
    if (access != CommandAccess::Get || context.stateChanged)
        emit stateChanged();
    return reply;
}

const VersionInfo &SimulatedController::protocolVersion()
{
    if (m_protocolText != m_state.protocol) {
        m_protocolText = m_state.protocol;
        m_protocol = VersionInfo();
        m_protocol.fromString(m_protocolText);
    }
    return m_protocol;
}

void SimulatedController::setState(const ControllerState &state)
{
    m_state = state;
    emit stateChanged();
}
