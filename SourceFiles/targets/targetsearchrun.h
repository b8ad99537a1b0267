#pragma once

#include "controllerlink.h"

#include <QString>
#include <QStringList>

#include <optional>

class Targetlibrary;

/**
 * The search for library targets in the tracking volume, as the controller runs it: a state machine
 * without widgets or timers. Its owner calls poll() while isRunning(). Messages go to the log.
 */
class TargetSearchRun {
public:
    /** What a poll found. */
    enum class Step {
        Searching, ///< goes on
        Ended,     ///< the controller ended it unasked
        Aborted    ///< its state could not be read
    };
    struct Poll {
        Step step = Step::Searching;
        std::optional<int> percent; ///< 0 to 100, truncated; nothing when it could not be read
    };

    explicit TargetSearchRun(const ControllerLink &link) : m_link(link) {}

    bool isRunning() const { return m_running; }

    /** Asks whether a search can start; logs why not. */
    bool canStart() const;
    /** Starts; logs the targets already in use, or that it failed. */
    bool start(const QStringList &shortNamesInUse);
    /** One step of a running search. */
    Poll poll();
    /** The user stops the search. */
    void cancel();

    /** How many library targets of the type the controller sees now; one query each. */
    int countTracked(const Targetlibrary &library, const QString &type) const;

private:
    ControllerLink m_link;
    bool m_running = false;
    bool m_isProgressLost = false; ///< its line is in the log; a poll does not repeat it
};
