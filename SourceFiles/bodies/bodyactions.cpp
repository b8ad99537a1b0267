#include "bodies/bodyactions.h"

#include "bodies/bodyregistry.h"

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
        return resetSensor(type, index);
    m_questions.showUnknownReset(type, index);
    return Outcome::Left;
}

Outcome BodyActions::resetToLibrary(const QString &type, int index) const
{
    if (m_questions.confirmResetToLibrary(type, index) != Answer::Accepted)
        return Outcome::Left;
    const QString target = m_registry.body(type, index).tlibName;
    return resetOutcome(type, index, m_commands.resetToLibrary(type, index, target));
}

Outcome BodyActions::resetSensor(const QString &type, int index) const
{
    const QString sensor = m_registry.body(type, index).inertialSensor;
    const BodyCommands::SensorReset how = m_commands.sensorReset(sensor);
    if (m_questions.confirmSensorReset(type, index, how) != Answer::Accepted)
        return Outcome::Left;
    return resetOutcome(type, index, m_commands.resetSensor(sensor, how));
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
    if (m_registry.body(type, index).isReference)
        m_commands.resetReference();
    const auto step = m_commands.clearBody(m_registry.type(type), type, index);
    if (step == BodyCommands::DeleteStep::Done)
        return Outcome::Done;
    return m_questions.showDeleteFailed(type, index, step) ? Outcome::Failed : Outcome::Left;
}

Outcome BodyActions::exchange(const QString &type, int index, int otherIndex) const
{
    if (!m_registry.hasBody(type, index) || !m_registry.hasBody(type, otherIndex)
        || !m_commands.canSwitchBodies())
        return Outcome::Left;
    if (m_commands.switchBodies(type, index, otherIndex))
        return Outcome::Done;
    m_questions.showSwitchFailed(type, index, otherIndex);
    return Outcome::Left;
}
