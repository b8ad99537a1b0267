#pragma once

#include "controllerlink.h"

#include <QString>
#include <QStringList>

#include <optional>

class Targetlibrary;

/**
 * The search for library targets in the tracking volume, as the controller runs it: a state machine
 * without widgets or timers. Its owner calls poll() while isRunning() is true. Messages go to the
 * log.
 */
class TargetSearchRun {
public:
    /** What a poll found. */
    enum class Step {
        Searching, ///< the search goes on
        Ended,     ///< the controller ended the search
        Aborted    ///< the state of the search could not be read
    };
    struct Poll {
        Step step = Step::Searching;
        std::optional<int> percent; ///< 0 to 100, truncated; nothing when it could not be read
    };

    explicit TargetSearchRun(const ControllerLink &link) : m_link(link) {}

    bool isRunning() const { return m_running; }

    /** Queries whether a search can start; logs the reason when it cannot. */
    bool canStart() const;
    /** Starts a search. Logs the targets that are already in use, or that the start failed. */
    bool start(const QStringList &shortNamesInUse);
    /** Polls a running search once. */
    Poll poll();
    /** Stops the search on the user's request. */
    void cancel();

    /**
     * Number of library targets of the type that the controller sees now; sends one query for each
     * target.
     */
    int countTracked(const Targetlibrary &library, const QString &type) const;

private:
    ControllerLink m_link;
    bool m_running = false;
    /// true when the failed progress query has been logged; later polls do not repeat the line
    bool m_isProgressLost = false;
};
