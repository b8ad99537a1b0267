#include "ScriptWatchdog.h"

#include <chrono>
#include <cstdio>
#include <cstdlib>

ScriptWatchdog::ScriptWatchdog(int limitSeconds)
    : m_limitSeconds(limitSeconds), m_thread(&ScriptWatchdog::guard, this)
{
}

ScriptWatchdog::~ScriptWatchdog()
{
    {
        const std::lock_guard<std::mutex> lock(m_mutex);
        m_ended = true;
    }
    m_changed.notify_one();
    m_thread.join();
}

void ScriptWatchdog::watch(const QString &step)
{
    {
        const std::lock_guard<std::mutex> lock(m_mutex);
        m_step = step.toStdString();
        ++m_steps;
    }
    m_changed.notify_one();
}

void ScriptWatchdog::guard()
{
    std::unique_lock<std::mutex> lock(m_mutex);
    while (!m_ended) {
        const unsigned seen = m_steps;
        const bool moved = m_changed.wait_for(lock, std::chrono::seconds(m_limitSeconds),
                                              [&] { return m_ended || m_steps != seen; });
        // There is nothing to wait for before the first step.
        if (moved || seen == 0)
            continue;
        std::fprintf(stderr, "workbench: %s: expected an end within %d s, found it still busy\n",
                     m_step.c_str(), m_limitSeconds);
        std::fflush(nullptr);
        // The hanging thread cannot clean up.
        std::_Exit(EXIT_FAILURE);
    }
}
