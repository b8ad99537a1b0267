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
 * The target table and the search of a tab, and the operations on them that need no body, under the
 * names by which the tabs and the dialog know them. A base of the tab, beside the records. Those
 * that are kept for other tabs are not called here: the search works on the panels themselves.
 */
class TargetOperations {
public:
    /** Columns, headers and selection of an empty target table. */
    void setup_tableWidget_targetlibrary(QTableWidget *table) { TargetTableFiller::setUp(table); }
    /** Lists the targets of the type; a null group lists them all. */
    void update_tableWidget_targetlibrary(QTableWidget *table, const QString &type,
                                          const QString &group = QString())
    {
        m_targets.list(table, type, group);
    }
    /** Reads whether a body holds the target; keeps what is known, and logs, on failure. */
    void updateTlCalibratedOfTarget(const QString &targetId) { assignment().refreshUsed(targetId); }
    /** updateTlCalibratedOfTarget() for each identifier. Kept for other tabs. */
    void updateTlCalibratedOfTargets(const QStringList &ids) { assignment().refreshUsed(ids); }
    /** Asks the controller which targets of the type the cameras see. Kept for other tabs. */
    void updateTlTrackedStatus(const QString &type) { m_targets.refreshTracked(type); }
    /** Marks the listed targets that the cameras see and counts them. Kept for other tabs. */
    void do_updateTrackedAndAcceptStatus_tl(QTableWidget *table, int &tracked, int &calibrated)
    {
        m_targets.refreshTrackedRows(table, &tracked, &calibrated);
    }
    /** Stops polling the search and the tracked states. */
    void stopAllTimer() { m_search.stopTimers(); }
    /** Asks which targets of the tab's type are seen, and counts them. Kept for other tabs. */
    int getTrackedTargets() { return m_search.countTracked(*targetlib); }

    /** Enables select by the target table alone. Kept for other tabs. */
    void activate_pushButton_start() { m_search.applyStartRule(); }
    /** The same rule as activate_pushButton_deselect(). Kept for other tabs. */
    void activate_pushButton_stop() { m_search.applyDeselectRule(); }
    /** Enables select while a body and a target are current and no search runs. */
    void activate_pushButton_select() { m_search.applySelectRule(); }
    /** Enables deselect by what the current body's row shows, while no search runs. */
    void activate_pushButton_deselect() { m_search.applyDeselectRule(); }
    /** Enables the controls that a running search locks. Kept for other tabs. */
    void enableControls(bool enable) { m_search.setControlsEnabled(enable); }

    /** The body type that the tab's page is about. */
    QString mainBodyType() const { return tabWidgets().type; }
    /** True while this tab polls a search it started. */
    bool isSearchRunning() const { return m_search.isRunning(); }
    /** Lets the operator stop a search that no tab polls. */
    void offerStop() { m_search.offerStop(); }

protected:
    /** The tab becomes the parent of the timers; the library outlives it. */
    TargetOperations(QObject *tab, const ControllerLink &link, Targetlibrary *library);
    ~TargetOperations() = default;

    /** Once, after the form was set up. */
    void setTabWidgets(const TabWidgets &widgets)
    {
        m_search.setWidgets(widgets);
        m_targets.setWidgets(widgets);
    }
    const TabWidgets &tabWidgets() const { return m_search.widgets(); }
    /** By value: a host may delete the tab while it works. */
    TargetAssignment assignment() const { return m_assignment; }

    /** A row was chosen in the body or the target table: select and deselect follow. */
    void rowChosen()
    {
        activate_pushButton_select();
        activate_pushButton_deselect();
    }
    /** The categories of the tab's targets, for its category filter. */
    void update_comboBox_filter() { m_targets.fillCategories(); }
    /** Makes the category of exactly that name current, or none. Kept for other tabs. */
    void set_comboBox_filter_to(const QString &group) { m_targets.selectCategory(group); }
    /** The category shown; null in a tab without categories. */
    QString currentGroup() const { return m_targets.category(); }

    Targetlibrary *targetlib;
    QTimer *timerDoMea_tl;
    QTimer *timerCheckForTracked_tl;
    QIcon icon_ok{QStringLiteral(":/green.png")};
    TargetAssignment m_assignment;
    TargetListPanel m_targets;
    TargetSearchPanel m_search;
};
