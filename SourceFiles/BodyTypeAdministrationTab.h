#pragma once

#include "bodies/bodyactions.h"
#include "bodies/bodycommands.h"
#include "bodies/bodyquestions.h"
#include "bodies/bodyreader.h"
#include "bodies/bodyrecords.h"
#include "bodies/bodytablefiller.h"
#include "bodies/bodytableinput.h"
#include "linkobserver.h"
#include "support/filterdialogrun.h"
#include "support/refreshgate.h"
#include "support/steps.h"
#include "targets/assignmentflow.h"
#include "targets/searchflow.h"
#include "targets/targetoperations.h"

#include <QIcon>
#include <QString>
#include <QTableWidget>
#include <QVector>
#include <QWidget>

#include <functional>

/**
 * The base class of the tabs of the body administration. Its named operations decide, ask the
 * operator and call a part. The parts hold the records, read and write bodies, handle input in the
 * tables, list the targets, assign them and search for them; they never call the tab.
 *
 * The body administration dialog creates and owns the tab and is its parent. A subclass registers
 * its types and widgets in its constructor, passes its common widgets to setTabWidgets() after
 * setting up its form, and overrides what is particular to it. Type words are the controller's;
 * indexes are zero-based. The records hold only values that were read from the controller, or
 * defaults.
 */
class BodyTypeAdministrationTab : public QWidget, public BodyRecords, public TargetOperations {
    Q_OBJECT

public:
    /**
     * The manager and the versions outlive the tab and may be null. The catalogue outlives it, too,
     * and must not be null.
     */
    BodyTypeAdministrationTab(IOManager *iom, QWidget *parent, BackendVersions *beVers,
                              const QString &moduleVersion, Targetlibrary *targetlib);
    ~BodyTypeAdministrationTab() override;

    /** Title of the tab's page. */
    virtual QString getTabTitle() = 0;
    /**
     * True when the controller offers the bodies of this tab. Kept for a host of tabs; the dialog
     * shows every tab.
     */
    virtual bool isAvailable() = 0;
    /** True when the type has 6DOF filters and the current body has a geometry to filter. */
    virtual bool is_filter6d_possible();
    /** True when a body is current and the configuration is not locked. */
    virtual bool is_bodycal_possible() { return !m_is_config_locked && current_bid != -1; }
    /** True when the current body is calibrated and may be adjusted. */
    virtual bool is_bodyadjustment_possible()
    {
        return !m_is_config_locked && isBodyCalibrated(current_btype, current_bid);
    }
    /** True when the current body carries a sensor that is present; queries the controller. */
    virtual bool is_hybridbodycalibration_possible();
    /** Current row of the tab's body table; -1 when none. */
    virtual int getCurrentBodyindex() = 0;
    /** Re-evaluates what depends on the records: labels, columns, move buttons. */
    virtual void updateView() = 0;
    /** Reads everything again from the controller and shows it. */
    virtual void update_tab();
    /** The dialog is about to close: stops the timers. */
    virtual void about_to_exit() { stopAllTimer(); }
    /** Called when the host shuts down: from now on no timer and no queued call acts. */
    void retire();
    /**
     * Called before deletion: from now on typed text is not taken over, and nothing is sent or
     * emitted.
     */
    void abandon();
    /** Takes over what is typed, because the page is about to be hidden. */
    void commitEditing() { m_input.commit(); }
    /**
     * Marks the records as those of a configuration that is no longer active, and drops what is
     * typed.
     */
    void outdate()
    {
        bodytypes.beginGeneration();
        m_input.discard();
    }
    /** Runs what a button requests; does nothing while another request or its question is open. */
    void perform(const std::function<void()> &request) { m_input.perform(request); }
public slots:
    /** Called when another configuration was activated on the controller. */
    virtual void ON_activeConfigurationChanged() {}

public:
    /** Switches a body on or off, and reads the body again even when the controller refused. */
    virtual void setBodyActive(const QString &type, int index, bool active);
    /** Renames a body and reads it again. */
    virtual void setBodyDescription(const QString &type, int index, const QString &text);
    /**
     * Undoes the calibration of a body after a question. False when nothing or only a part was
     * done.
     */
    virtual bool resetBody(const QString &type, int index)
    {
        return refreshAfter(type, index, m_actions.reset(type, index));
    }
    /** Clears a body slot after a question. False when nothing or only a part was done. */
    virtual bool deleteBody(const QString &type, int index)
    {
        return refreshAfter(type, index, m_actions.clear(type, index));
    }
    /** Exchanges two bodies (protocol 1.11). False when the controller did not exchange them. */
    virtual bool switchBody(const QString &type, int index, int otherIndex);
    /**
     * Largest number of bodies that the controller allows. A failure is logged and gives a default.
     */
    virtual int morvek2_getMaxNumberOfBodies(const QString &type) = 0;
    /** Sets the controller's number of bodies. False, and logged, when the controller refused. */
    virtual bool morvek2_setNumberOfBodies(const QString &type, int count) = 0;
    /** Fills the item of a custom column; the item is new. */
    virtual void updateTableWidgetCell(const QString &, int, int, QTableWidgetItem *) {}
    /** Remembers the current rows of a tab that has two body tables; does nothing in other tabs. */
    virtual void saveSelectionOfMtTables() {}

    /** The box that shows and sets the number of bodies of the type. */
    void registerSpinBox(const QString &type, QSpinBox *spinBox);
    /** The table that shows the type's bodies; `idFormat` makes the ID cell of a row. */
    void registerTableWidget(const QString &type, QTableWidget *table,
                             const QVector<COLUMN_TYPE> &columns, const QString &idFormat);

    /**
     * Queries again what could not be read when the tab was made, and shows what is known since
     * then.
     */
    void readMissing(bool isLibraryNew);
    /** Reads all registered types and fills their tables; a failed query is logged. */
    void updateBodyTypesInfo();
    /** Reads the count and all bodies of the type; does not change the table. */
    void updateBodyTypeInfo(const QString &type);
    /** Shows the number of bodies; with `readMaximum` the limit is read first. */
    void updateBodyTypeSpinBox(const QString &type, bool readMaximum);
    /** Fills the table from the records; queries only whether the sensors warm up. */
    void updateTableWidget(const QString &type);

    /**
     * Sets the controller's count and reads it back; asks the operator before the reference is
     * dropped.
     */
    void setNumberOfBodies(const QString &type, int count);
    /**
     * Makes the body the reference or removes its mark. A body that is not active is refused with a
     * box.
     */
    void setBodyReference(const QString &type, int index, bool reference);

    /**
     * Asks before the last body is dropped while it is the reference; sets `newCount` back to
     * `oldCount` when the operator declines.
     */
    void checkForReferenceDisabeledAndResetIfNec(int &newCount, int oldCount, const QString &type);
    /** Keeps the widgets that change the configuration disabled while `locked` is true. */
    virtual void setConfigLockedStatus(bool locked);

    /** Assigns the current target to the current body; false when it was not done. */
    bool pushButtonSelectClicked(const QString &type, QTableWidget *bodyTable,
                                 QTableWidget *tlTable)
    {
        return m_flow.assign(m_flow.current(type, bodyTable, tlTable),
                             TargetListPanel::listedIds(tlTable));
    }
    /** Deletes the current body after a question; does nothing without a current body. */
    void pushButtonDeSelectClicked(const QString &type, QTableWidget *bodyTable)
    {
        if (bodyTable->currentRow() >= 0)
            deleteBodyAndUpdateTlCalibratedOfTarget(type, bodyTable->currentRow());
    }
    /** Frees the target from all bodies but the table's current one. Kept for other tabs. */
    void deleteTargetInDifferentSlotIfExists(const QString &target, const QString &type,
                                             QTableWidget *table)
    {
        assignment().freeElsewhere(target, type, table->currentRow(), getNumberOfBodies(type));
    }
    /**
     * Deletes a body after a question, and reads whether the target that it held is still in use.
     */
    void deleteBodyAndUpdateTlCalibratedOfTarget(const QString &type, int index);
    /** Reads which of the listed targets are in use and shows it. */
    void updateCalStatusTablewidgetTl(const QString &type);
    /**
     * Shows the operator how many targets were found; the tab may be deleted while the box is open.
     * Kept for other tabs: a search shows the box when it ends.
     */
    void showMessageFoundTargets_tl(int count) { m_questions.showFoundTargets(count); }
    /**
     * Asks whether a named body may be overwritten; true without a question for a body without a
     * name.
     */
    bool overwriteBodyCalibration(const QString &name) { return m_flow.confirmOverwrite(name); }
signals:
    /** The current body changed, or an action on it has ended. */
    void selection_changed(QString bodyType, int bodyIndex);

protected slots:
    void ON_spinBox_valueChanged(int) { m_input.spinBoxChanged(sender()); }
    void ON_tableWidget_cellClicked(int row, int column);
    void ON_tableWidget_cellDoubleClicked(int row, int column)
    {
        m_input.cellDoubleClicked(sender(), row, column);
    }
    void ON_tableWidget_currentItemChanged(QTableWidgetItem *current, QTableWidgetItem *)
    {
        m_input.currentItemChanged(current);
    }
    void ON_tableWidget_itemChanged(QTableWidgetItem *item) { m_input.itemChanged(item); }

    void on_pushButton_select_clicked()
    {
        perform([this] { assignTarget(); });
    }
    void on_pushButton_deselect_clicked()
    {
        perform([this] { releaseTarget(); });
    }
    void on_pushButton_start_clicked()
    {
        perform([this] { m_searchFlow.start(); });
    }
    void on_pushButton_stop_clicked()
    {
        perform([this] {
            runSteps(this,
                     {[this] { m_searchFlow.stop(numTracked_tl); }, [this] { applyPageRules(); }});
        });
    }
    void on_tableWidget_targetlibrary_itemSelectionChanged() { rowChosen(); }
    void doMeasurement_tl()
    {
        selectedRowTl = tabWidgets().targetTable->currentRow();
        runSteps(this,
                 {[this] { m_searchFlow.poll(&numTracked_tl); }, [this] { applyPageRules(); }});
    }
    void updateTrackedAndAcceptStatus_tl()
    {
        selectedRowTl = tabWidgets().targetTable->currentRow();
        m_searchFlow.refresh(&numTracked_tl);
    }

protected:
    /** Called after the press of select and before the assignment; false stops the assignment. */
    virtual bool mayAssignTarget(const QString &) { return true; }
    /** Called when the target was assigned and the tab was refreshed. */
    virtual void targetAssigned(const QString &) {}

    bool isRetired() const { return m_input.isRetired(); }
    const BodyQuestions &questions() const { return m_questions; }
    const AssignmentFlow &assignmentFlow() const { return m_flow; }

    /** Enables the page's filter and calibration buttons for the current body and the search. */
    void applyPageRules();
    /** The observer of the dialog that the tab belongs to; null when the dialog has none. */
    LinkObserver *observer() const { return LinkObserver::of(this); }
    /**
     * First half of a tab's refresh: remembers the current body and fills the target table again.
     */
    void refreshTargets();
    /**
     * Second half of a tab's refresh: reads the bodies, restores the selections, resets the search.
     */
    void refreshBodies();
    /** Makes the remembered rows current again. */
    void setSelectionOfTables(QTableWidget *bodyTable, QTableWidget *tlTable);
    /**
     * Sets bar, label and buttons of the search to their initial state; leaves a running search
     * alone.
     */
    void resetSearchWidgets()
    {
        m_search.reset();
        rowChosen();
        applyPageRules();
    }
    /** Hides the dialog and requests the current body's calibration from the other module. */
    void requestBodyCalibration();
    /** Opens the dialog for the filters of one body. False when the tab was deleted meanwhile. */
    bool openFilterDialog(int bodyType, int index)
    {
        return runFilterDialog(this, iom, beVers, bodyType, index);
    }
    /** Switches the global 6DOF filter of the type's bodies on when it is off. */
    void switchGlobalFilterOn(const QString &type);

    /** Lists the targets of the category that the operator chose. */
    void categoryChosen(const QString &group);

    IOManager *iom;
    BackendVersions *beVers;
    QString m_module_version;
    bool m_is_config_locked = false;
    QString current_btype;
    int current_bid = -1;
    QIcon icon_not_cal{QStringLiteral(":/red.png")};
    QIcon icon_yellow_hook{QStringLiteral(":/yellow.png")};
    QIcon icon_cross{QStringLiteral(":/118.png")};
    QIcon icon_reset{QStringLiteral(":/48.png")};
    int numTracked_tl = 0;
    int selectionTableLeft = -1;
    int selectionTableRight = -1;
    int selectedRowTl = -1;
    RefreshGate m_refresh;

private:
    void assignTarget();
    void releaseTarget();
    bool readLimit(const QString &type);
    void limitCurrentBody(const QString &type);
    void changeCount(const QString &type, int asked, int count);
    void takeCurrentBody(const QString &type, int index);
    void takeName(const QString &type, int index, const QString &name);
    void takeCount(const QString &type, int count);
    void editFilter(const QString &type, int index);
    void deleteAndRefresh(const QString &type, int index);
    void refreshBody(const QString &type, int index);
    bool refreshAfter(const QString &type, int index, BodyActions::Outcome outcome);

    BodyQuestions m_questions{this, link(), bodytypes};
    BodyActions m_actions{link(), bodytypes, m_questions};
    BodyTableIcons m_tableIcons{icon_ok, icon_not_cal, icon_yellow_hook, icon_cross, icon_reset};
    BodyTableInput m_input{bodytypes, observer()};
    AssignmentFlow m_flow{this, link(), bodytypes, m_assignment};
    SearchFlow m_searchFlow{this, m_search, m_targets, m_questions, *targetlib};
};
