#pragma once

#include "bodies/tabwidgets.h"
#include "targets/targetsearchrun.h"

#include <QSet>

class QTimer;

/**
 * Shows a search run in the widgets that all tabs have, and applies the button rules. Owned by the
 * tab; the timers are the tab's children.
 */
class TargetSearchPanel {
public:
    /** Time between two polls of a running search, in ms. */
    static constexpr int pollIntervalMs = 600;
    /** Time between two refreshes of the tracked states while no search runs, in ms. */
    static constexpr int trackedIntervalMs = 603;

    /** Neither timer may be null. */
    TargetSearchPanel(const ControllerLink &link, QTimer *pollTimer, QTimer *trackedTimer);

    /** Called once, after the set-up of the tab's form. */
    void setWidgets(const TabWidgets &widgets);
    const TabWidgets &widgets() const { return m_widgets; }

    /** A search runs exactly while its start button is disabled. */
    bool isSearching() const;
    /** True while this tab polls a search that it started. */
    bool isRunning() const;
    /** Lets the operator stop a search that this tab does not poll. */
    void offerStop();

    /** Queries whether a search can start; logs the reason when it cannot. */
    bool canStart() const { return m_run.canStart(); }
    /** Sets the start and stop buttons for a running search. */
    void showRunning();
    // A host may delete the tab in the following functions; the caller checks that it still exists.

    /** Starts a search, or refreshes the tracked states again when the search cannot start. */
    void start();
    /** Polls a running search once: moves the bar, and stops polling after the last step. */
    TargetSearchRun::Step poll();
    /** Stops the search on the controller and sets the bar back to its beginning. */
    void cancel();
    /** Sets buttons and controls after a run. */
    void showIdle();
    /** Begins to refresh the tracked states. */
    void startTracking();
    /**
     * Number of targets of the tab's type that the controller sees now; sends one query for each
     * target.
     */
    int countTracked(const Targetlibrary &library) const;
    /** Shows the counts while the bar is between its ends. */
    void showCounts(int found, int alreadyUsed);
    /** Sets bar, label and stop button to their initial state; leaves a running search alone. */
    void reset();
    /** Stops the polls and the refreshes of the tracked states. */
    void stopTimers();

    /** Disconnects the signals of the tables and the category box from `listener`. */
    void disconnectWidgets(const QObject *listener) const;

    /** Enables the controls that a running search disables, as far as the configuration allows. */
    void setControlsEnabled(bool enabled);
    /** Keeps the editing controls disabled while `locked` is true. */
    void setConfigLocked(bool locked);
    /**
     * Keeps an editing control that is not usable disabled, even when another rule would enable it.
     */
    void setUsable(QWidget *control, bool usable);
    /** Enables the page's filter and calibration buttons while no search runs. */
    void applyPageRules(bool filterPossible);
    /** Enables select while a body and a target are current and no search runs. */
    void applySelectRule();
    /** Enables select depending on the target table alone. */
    void applyStartRule();
    /** Enables deselect depending on the current body's row, while no search runs. */
    void applyDeselectRule();

private:
    /** The column whose text decides whether a target can be deselected. */
    static constexpr int deselectColumn = 4;

    void applyControls();
    void showResult(const QString &text);

    TargetSearchRun m_run;
    QTimer *m_pollTimer;
    QTimer *m_trackedTimer;
    TabWidgets m_widgets;
    bool m_controlsEnabled = true;
    bool m_locked = false;
    QSet<const QWidget *> m_unusable;
};
