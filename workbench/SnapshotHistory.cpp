#include "SnapshotHistory.h"

#include "ScenarioFile.h"

bool SnapshotHistory::take(const ControllerState &state)
{
    if (m_current >= 0
        && ScenarioFile::toJson(m_states.at(m_current)) == ScenarioFile::toJson(state))
        return false;
    m_states.resize(m_current + 1);
    m_states.append(state);
    ++m_current;
    return true;
}

const ControllerState &SnapshotHistory::stepBack()
{
    return m_states.at(--m_current);
}

const ControllerState &SnapshotHistory::stepForward()
{
    return m_states.at(++m_current);
}

QStringList SnapshotHistory::changesSince(const ControllerState &state) const
{
    return m_current < 0 ? QStringList() : ScenarioFile::differences(m_states.at(m_current), state);
}
