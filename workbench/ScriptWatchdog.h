#pragma once

#include <QString>

#include <condition_variable>
#include <mutex>
#include <string>
#include <thread>

/**
 * Ends the program with status 1 when something keeps a script from going on.
 *
 * Watches from a thread of its own, so that it also notices a module that never gives the event
 * loop its turn back. What was recorded until then is in its file already.
 */
class ScriptWatchdog {
public:
    /** @param limitSeconds how long a watched step may take; at least 1 */
    explicit ScriptWatchdog(int limitSeconds);
    /** Stops watching. */
    ~ScriptWatchdog();
    ScriptWatchdog(const ScriptWatchdog &) = delete;
    ScriptWatchdog &operator=(const ScriptWatchdog &) = delete;

    /** From now on `step` has the whole limit; its name is shown when that was too short. */
    void watch(const QString &step);

private:
    void guard();

    const int m_limitSeconds;
    std::mutex m_mutex;
    std::condition_variable m_changed;
    std::string m_step;
    unsigned m_steps = 0;
    bool m_ended = false;
    std::thread m_thread; ///< last, so that it finds all the others
};
