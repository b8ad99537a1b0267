#pragma once

#include "tabwidgets.h"
#include "targetsearchrun.h"

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

    TargetSearchPanel(const ControllerLink &link, QTimer *pollTimer, QTimer *trackedTimer);

    /** Once, after the tab's form was set up. */
    void setWidgets(const TabWidgets &widgets);
    const TabWidgets &widgets() const { return m_widgets; }

    /** A search runs exactly while its start button is disabled. */
    bool isSearching() const;
    /** True while this tab polls a search it started. */
    bool isRunning() const;

    /** Starts a search when the controller can; false when nothing was touched. */
    bool start();
    TargetSearchRun::Step poll();
    void cancel();
    /** Buttons and controls after a run. */
    void showIdle();
    /** From now on the tracked states are refreshed. */
    void startTracking();
    int countTracked(const Targetlibrary &library) const;
    /** Shows the counts while the bar stands between its ends. */
    void showCounts(int found, int alreadyUsed);
    /** Bar, label and stop button as at the beginning; leaves a running search alone. */
    void reset();
    void stopTimers();

    void setControlsEnabled(bool enabled);
    void setConfigLocked(bool locked);
    void applySelectRule();
    /** Enables select by the target table alone. */
    void applyStartRule();
    void applyDeselectRule();

private:
    /** Column whose text tells whether there is something to deselect. */
    static constexpr int deselectColumn = 4;

    void applyControls();

    TargetSearchRun m_run;
    QTimer *m_pollTimer;
    QTimer *m_trackedTimer;
    TabWidgets m_widgets;
    bool m_controlsEnabled = true;
    bool m_locked = false;
};
