#pragma once

#include "bodies/tabwidgets.h"
#include "targets/targetsearchrun.h"

#include <QSet>

class QTimer;

/**
 * Shows a search run in the widgets that the tabs have in common and applies the button rules.
 * Owned by the tab; the timers are the tab's children.
 */
class TargetSearchPanel {
public:
    /** Between two polls of a running search, in ms. */
    static constexpr int pollIntervalMs = 600;
    /** Between two refreshes of the tracked states while no search runs, in ms. */
    static constexpr int trackedIntervalMs = 603;

    /** Neither timer may be null. */
    TargetSearchPanel(const ControllerLink &link, QTimer *pollTimer, QTimer *trackedTimer);

    /** Once, after the tab's form was set up. */
    void setWidgets(const TabWidgets &widgets);
    const TabWidgets &widgets() const { return m_widgets; }

    /** A search runs exactly while its start button is disabled. */
    bool isSearching() const;
    /** True while this tab polls a search it started. */
    bool isRunning() const;
    /** Lets the operator stop a search that this tab does not poll. */
    void offerStop();

    /** Asks whether a search can start; logs why not. */
    bool canStart() const { return m_run.canStart(); }
    /** The start and stop buttons while a search runs. */
    void showRunning();
    // A host may delete the tab in these: the owner of the panel looks after itself afterwards.

    /** Starts a search, or goes back to refreshing the tracked states when it cannot. */
    void start();
    /** One step of a running search: moves the bar, and stops polling after the last step. */
    TargetSearchRun::Step poll();
    /** Stops the search on the controller and puts the bar back. */
    void cancel();
    /** Buttons and controls after a run. */
    void showIdle();
    /** From now on the tracked states are refreshed. */
    void startTracking();
    /** How many targets of the tab's type the controller sees now; one query each. */
    int countTracked(const Targetlibrary &library) const;
    /** Shows the counts while the bar is between its ends. */
    void showCounts(int found, int alreadyUsed);
    /** Bar, label and stop button as at the beginning; leaves a running search alone. */
    void reset();
    /** No more polls and no more tracked states. */
    void stopTimers();

    /** The tables and the category box report to `listener` no longer. */
    void disconnectWidgets(const QObject *listener) const;

    /** Enables what a running search locks, as far as the configuration lets it. */
    void setControlsEnabled(bool enabled);
    /** A locked configuration keeps the editing controls disabled. */
    void setConfigLocked(bool locked);
    /** An editing control that is not usable stays disabled, whatever else would enable it. */
    void setUsable(QWidget *control, bool usable);
    /** Enables the page's filter and calibration buttons, as far as no search runs. */
    void applyPageRules(bool filterPossible);
    /** Enables select while a body and a target are current and no search runs. */
    void applySelectRule();
    /** Enables select by the target table alone. */
    void applyStartRule();
    /** Enables deselect by what the current body's row shows, while no search runs. */
    void applyDeselectRule();

private:
    /** Column whose text shows whether there is something to deselect. */
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
