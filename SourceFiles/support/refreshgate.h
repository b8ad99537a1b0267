#pragma once

#include "support/steps.h"

/** Lets one refresh run at a time: one that is asked for meanwhile is done once, after it. */
class RefreshGate {
public:
    /** Runs the steps of a refresh; the gate is a member of `owner`, which they may delete. */
    void run(QObject *owner, std::initializer_list<std::function<void()>> steps)
    {
        m_isWanted = true;
        if (m_isRunning)
            return;
        m_isRunning = true;
        const QPointer<QObject> guard(owner);
        while (guard && m_isWanted) {
            m_isWanted = false;
            runSteps(owner, steps);
        }
        if (guard)
            m_isRunning = false;
    }

private:
    bool m_isRunning = false;
    bool m_isWanted = false;
};
