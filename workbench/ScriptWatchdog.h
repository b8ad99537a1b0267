#pragma once

#include <QString>

#include <condition_variable>
#include <mutex>
#include <string>
#include <thread>

/**
 * Ends the program with status 1 when a script does not go on.
 *
 * It watches in a thread of its own, so that it also notices a module that never returns to the
 * event loop. The operations recorded until then are already in their file.
 */
class ScriptWatchdog {
public:
    /** @param limitSeconds longest duration of a watched step; at least 1 */
    explicit ScriptWatchdog(int limitSeconds);
    /** Stops watching. */
    ~ScriptWatchdog();
    ScriptWatchdog(const ScriptWatchdog &) = delete;
    ScriptWatchdog &operator=(const ScriptWatchdog &) = delete;

    /** Begins the whole limit for `step`, whose name is shown when the limit is exceeded. */
    void watch(const QString &step);

private:
    void guard();

    const int m_limitSeconds;
    std::mutex m_mutex;
    std::condition_variable m_changed;
    std::string m_step;
    unsigned m_steps = 0;
    bool m_ended = false;
    std::thread m_thread; ///< declared last, so that all other members exist when it starts
};
