#pragma once

#include "ControllerState.h"

#include <QStringList>
#include <QVector>

/**
 * States of the controller that somebody wanted to keep, in the order they were taken, with a place
 * in it to step back and forward. A new snapshot drops those after the present place.
 */
class SnapshotHistory {
public:
    /** Keeps the state and makes it the present one; does nothing when it equals the present one.
     */
    bool take(const ControllerState &state);
    bool canStepBack() const { return m_current > 0; }
    bool canStepForward() const { return m_current + 1 < m_states.size(); }
    /** The state before the present one, which becomes the present one. Only if canStepBack(). */
    const ControllerState &stepBack();
    const ControllerState &stepForward();

    int size() const { return m_states.size(); }
    /** Index of the present snapshot; -1 when there is none. */
    int current() const { return m_current; }
    /** Readable lines: what differs between the present snapshot and `state`. */
    QStringList changesSince(const ControllerState &state) const;

private:
    QVector<ControllerState> m_states;
    int m_current = -1;
};
