#include "bodies/bodyactions.h"

#include "bodies/bodyregistry.h"
#include "bodies/bodysnapshot.h"

using Outcome = BodyActions::Outcome;
using UserQuestion::Answer;

Outcome BodyActions::reset(const QString &type, int index) const
{
    const AdminBody &body = m_registry.body(type, index);
    if (!m_registry.hasBody(type, index))
        return Outcome::Left;
    if (!body.tlibName.isEmpty())
        return resetToLibrary(type, index);
    if (!body.inertialSensor.isEmpty())
        return resetSensor(BodySnapshot(m_registry, type, index));
    m_questions.showUnknownReset(type, index);
    return Outcome::Left;
}

Outcome BodyActions::resetToLibrary(const QString &type, int index) const
{
    if (m_questions.confirmResetToLibrary(type, index) != Answer::Accepted)
        return Outcome::Left;
    const QString target = m_registry.body(type, index).tlibName;
    const BodyCommands commands = m_commands;
    const bool done = commands.resetToLibrary(type, index, target);
    return commands.isClosed() ? Outcome::Left : resetOutcome(type, index, done);
}

Outcome BodyActions::resetSensor(const BodySnapshot &body) const
{
    const BodyCommands commands = m_commands;
    const BodyCommands::SensorReset how = commands.sensorReset(body.sensor());
    if (commands.isClosed() || m_questions.confirmSensorReset(body, how) != Answer::Accepted)
        return Outcome::Left;
    const bool done = commands.resetSensor(body.sensor(), how);
    return commands.isClosed() ? Outcome::Left : resetOutcome(body.type(), body.index(), done);
}

Outcome BodyActions::resetOutcome(const QString &type, int index, bool done) const
{
    if (done)
        return Outcome::Done;
    return m_questions.showResetFailed(type, index) ? Outcome::Failed : Outcome::Left;
}

Outcome BodyActions::clear(const QString &type, int index) const
{
    if (!m_registry.hasBody(type, index)
        || m_questions.confirmDelete(type, index) != Answer::Accepted)
        return Outcome::Left;
    const BodyCommands commands = m_commands;
    const AdminBodyType record = m_registry.type(type);
    if (record.bodies.at(index).isReference)
        commands.resetReference();
    const auto step = commands.clearBody(record, type, index);
    if (commands.isClosed())
        return Outcome::Left;
    if (step == BodyCommands::DeleteStep::Done)
        return Outcome::Done;
    return m_questions.showDeleteFailed(type, index, step) ? Outcome::Failed : Outcome::Left;
}

Outcome BodyActions::exchange(const QString &type, int index, int otherIndex) const
{
    if (!m_registry.hasBody(type, index) || !m_registry.hasBody(type, otherIndex)
        || !m_commands.canSwitchBodies())
        return Outcome::Left;
    const BodyCommands commands = m_commands;
    if (commands.switchBodies(type, index, otherIndex))
        return Outcome::Done;
    if (!commands.isClosed())
        m_questions.showSwitchFailed(type, index, otherIndex);
    return Outcome::Left;
}
