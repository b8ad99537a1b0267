#pragma once

#include "bodies/tabwidgets.h"
#include "targets/targetassignment.h"
#include "targets/targetlistpanel.h"
#include "targets/targetsearchpanel.h"
#include "targets/targettablefiller.h"

#include <QIcon>
#include <QString>
#include <QStringList>

class QTableWidget;
class QTimer;

/**
 * The target table and the search of a tab, and the operations on them that need no body, with the
 * names that the tabs and the dialog use. A base class of the tab, like the records. The module
 * does not call the functions that are kept for other tabs, because the search uses the panels
 * directly.
 */
class TargetOperations {
public:
    /** Sets up columns, headers and selection of an empty target table. */
    void setup_tableWidget_targetlibrary(QTableWidget *table) { TargetTableFiller::setUp(table); }
    /** Lists the targets of the type; a null group lists all of them. */
    void update_tableWidget_targetlibrary(QTableWidget *table, const QString &type,
                                          const QString &group = QString())
    {
        m_targets.list(table, type, group);
    }
    /**
     * Reads whether a body holds the target. On failure the known state stays and a line is logged.
     */
    void updateTlCalibratedOfTarget(const QString &targetId) { assignment().refreshUsed(targetId); }
    /** updateTlCalibratedOfTarget() for each identifier. Kept for other tabs. */
    void updateTlCalibratedOfTargets(const QStringList &ids) { assignment().refreshUsed(ids); }
    /** Queries which targets of the type the cameras see. Kept for other tabs. */
    void updateTlTrackedStatus(const QString &type) { m_targets.refreshTracked(type); }
    /** Marks the listed targets that the cameras see and counts them. Kept for other tabs. */
    void do_updateTrackedAndAcceptStatus_tl(QTableWidget *table, int &tracked, int &calibrated)
    {
        m_targets.refreshTrackedRows(table, &tracked, &calibrated);
    }
    /** Stops polling the search and the tracked states. */
    void stopAllTimer() { m_search.stopTimers(); }
    /**
     * Queries which targets of the tab's type the cameras see, and counts them. Kept for other
     * tabs.
     */
    int getTrackedTargets() { return m_search.countTracked(*targetlib); }

    /** Enables select depending on the target table alone. Kept for other tabs. */
    void activate_pushButton_start() { m_search.applyStartRule(); }
    /** The same rule as activate_pushButton_deselect(). Kept for other tabs. */
    void activate_pushButton_stop() { m_search.applyDeselectRule(); }
    /** Enables select while a body and a target are current and no search runs. */
    void activate_pushButton_select() { m_search.applySelectRule(); }
    /** Enables deselect depending on the current body's row, while no search runs. */
    void activate_pushButton_deselect() { m_search.applyDeselectRule(); }
    /** Enables the controls that a running search disables. Kept for other tabs. */
    void enableControls(bool enable) { m_search.setControlsEnabled(enable); }

    /** The body type to which targets are assigned on the tab's page. */
    QString mainBodyType() const { return tabWidgets().type; }
    /** True while this tab polls a search that it started. */
    bool isSearchRunning() const { return m_search.isRunning(); }
    /** Lets the operator stop a search that no tab polls. */
    void offerStop() { m_search.offerStop(); }

protected:
    /** The tab becomes the parent of the timers; the library outlives the object. */
    TargetOperations(QObject *tab, const ControllerLink &link, Targetlibrary *library);
    ~TargetOperations() = default;

    /** Called once, after the set-up of the form. */
    void setTabWidgets(const TabWidgets &widgets)
    {
        m_search.setWidgets(widgets);
        m_targets.setWidgets(widgets);
    }
    const TabWidgets &tabWidgets() const { return m_search.widgets(); }
    /** Returned by value, because a host may delete the tab while it works. */
    TargetAssignment assignment() const { return m_assignment; }

    /** Updates select and deselect after a row was chosen in the body or the target table. */
    void rowChosen()
    {
        activate_pushButton_select();
        activate_pushButton_deselect();
    }
    /** Puts the categories of the tab's targets into its category box. */
    void update_comboBox_filter() { m_targets.fillCategories(); }
    /** Makes the category with exactly that name current, or none. Kept for other tabs. */
    void set_comboBox_filter_to(const QString &group) { m_targets.selectCategory(group); }
    /** The chosen category; null in a tab without categories. */
    QString currentGroup() const { return m_targets.category(); }

    Targetlibrary *targetlib;
    QTimer *timerDoMea_tl;
    QTimer *timerCheckForTracked_tl;
    QIcon icon_ok{QStringLiteral(":/green.png")};
    TargetAssignment m_assignment;
    TargetListPanel m_targets;
    TargetSearchPanel m_search;
};
