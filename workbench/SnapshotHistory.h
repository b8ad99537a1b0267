#pragma once

#include "ControllerState.h"

#include <QStringList>
#include <QVector>

/**
 * Stored states of the controller in the order in which they were taken, with a position that can
 * step back and forward. A new snapshot removes those after the position.
 */
class SnapshotHistory {
public:
    /**
     * Stores the state and makes it the present one; does nothing when it equals the present one.
     */
    bool take(const ControllerState &state);
    bool canStepBack() const { return m_current > 0; }
    bool canStepForward() const { return m_current + 1 < m_states.size(); }
    /**
     * Makes the state before the present one the present one, and returns it. Requires
     * canStepBack().
     */
    const ControllerState &stepBack();
    const ControllerState &stepForward();

    int size() const { return m_states.size(); }
    /** Index of the present snapshot; -1 when there is none. */
    int current() const { return m_current; }
    /** Readable lines with the differences between the present snapshot and `state`. */
    QStringList changesSince(const ControllerState &state) const;

private:
    QVector<ControllerState> m_states;
    int m_current = -1;
};
