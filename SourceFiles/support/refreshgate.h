#pragma once

#include "support/steps.h"

/**
 * Lets only one refresh run at a time. Requests that come meanwhile cause one more refresh after
 * it.
 */
class RefreshGate {
public:
    /** Runs the steps of a refresh. The gate is a member of `owner`, which the steps may delete. */
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
