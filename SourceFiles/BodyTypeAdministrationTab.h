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
 * What the tabs of the body administration have in common: the face of the parts that hold the
 * records, read, write, listen to the tables, list the targets, assign them and search for them.
 * Its named operations decide, ask the operator and call a part; the parts never call back.
 *
 * Created and owned by the body administration dialog, with the dialog as parent. A subclass
 * registers its types and widgets in its constructor, hands its common widgets to setTabWidgets()
 * after setting up its form, and overrides what is particular to it. Type words are the
 * controller's; indexes are zero-based. Nothing is stored that was not read from the controller.
 */
class BodyTypeAdministrationTab : public QWidget, public BodyRecords, public TargetOperations {
    Q_OBJECT

public:
    /** The manager and the versions outlive the tab and may be null; the catalogue may not. */
    BodyTypeAdministrationTab(IOManager *iom, QWidget *parent, BackendVersions *beVers,
                              const QString &moduleVersion, Targetlibrary *targetlib);
    ~BodyTypeAdministrationTab() override;

    /** Title of the tab's page. */
    virtual QString getTabTitle() = 0;
    /** True when the controller offers it. Kept for a host of tabs; the dialog shows every tab. */
    virtual bool isAvailable() = 0;
    /** True when the type has 6DOF filters and the current body a geometry to filter. */
    virtual bool is_filter6d_possible();
    /** True when a body is current that may be calibrated. */
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
    /** The host shuts down: nothing that is timed or queued happens any more. */
    void retire();
    /** About to be deleted: nothing typed is taken over, nothing is sent or emitted any more. */
    void abandon();
    /** The page is about to be hidden: what is typed is taken over. */
    void commitEditing() { m_input.commit(); }
    /** The records belong to a configuration that is active no more; what is typed is dropped. */
    void outdate()
    {
        bodytypes.beginGeneration();
        m_input.discard();
    }
    /** What a button asks for; dropped while another request or its question is under way. */
    void perform(const std::function<void()> &request) { m_input.perform(request); }
public slots:
    /** Another configuration was activated on the controller. */
    virtual void ON_activeConfigurationChanged() {}

public:
    /** Switches a body on or off; re-reads the body whether or not the controller agreed. */
    virtual void setBodyActive(const QString &type, int index, bool active);
    /** Renames a body and re-reads it. */
    virtual void setBodyDescription(const QString &type, int index, const QString &text);
    /** Undoes the calibration of a body, asking first. False when nothing or not all was done. */
    virtual bool resetBody(const QString &type, int index)
    {
        return refreshAfter(type, index, m_actions.reset(type, index));
    }
    /** Clears a body slot, asking first. False when nothing or not all was done. */
    virtual bool deleteBody(const QString &type, int index)
    {
        return refreshAfter(type, index, m_actions.clear(type, index));
    }
    /** Exchanges two bodies (protocol 1.11). False when the controller did not. */
    virtual bool switchBody(const QString &type, int index, int otherIndex);
    /** Largest number of bodies, as the controller answers; a default, and logged, on failure. */
    virtual int morvek2_getMaxNumberOfBodies(const QString &type) = 0;
    /** Sets the controller's number of bodies; false, and logged, when it refused. */
    virtual bool morvek2_setNumberOfBodies(const QString &type, int count) = 0;
    /** Fills the item of a custom column; the item is new. */
    virtual void updateTableWidgetCell(const QString &, int, int, QTableWidgetItem *) {}
    /** Remembers the current rows of a tab that has two body tables; elsewhere does nothing. */
    virtual void saveSelectionOfMtTables() {}

    /** The box that shows and sets the number of bodies of the type. */
    void registerSpinBox(const QString &type, QSpinBox *spinBox);
    /** The table that shows the type's bodies; `idFormat` makes the ID cell of a row. */
    void registerTableWidget(const QString &type, QTableWidget *table,
                             const QVector<COLUMN_TYPE> &columns, const QString &idFormat);

    /** Asks again what could not be read when the tab was made; and shows what is known since. */
    void readMissing(bool isLibraryNew);
    /** Reads all registered types and fills their tables; a failed query is logged. */
    void updateBodyTypesInfo();
    /** Reads the count and all bodies of the type; the table stays as it is. */
    void updateBodyTypeInfo(const QString &type);
    /** Shows the number of bodies; with `readMaximum` the limit is read first. */
    void updateBodyTypeSpinBox(const QString &type, bool readMaximum);
    /** Fills the table from the records; its one query is whether the sensors warm up. */
    void updateTableWidget(const QString &type);

    /** Sets the controller's count and reads it back; asks before the reference is dropped. */
    void setNumberOfBodies(const QString &type, int count);
    /** Makes the body the reference or none; refuses, with a box, a body that is not active. */
    void setBodyReference(const QString &type, int index, bool reference);

    /** Asks before the last body is dropped while it is the reference; may put the count back. */
    void checkForReferenceDisabeledAndResetIfNec(int &newCount, int oldCount, const QString &type);
    /** A locked configuration is shown but cannot be edited. */
    virtual void setConfigLockedStatus(bool locked);

    /** Assigns the current target to the current body; false when it was not done. */
    bool pushButtonSelectClicked(const QString &type, QTableWidget *bodyTable,
                                 QTableWidget *tlTable)
    {
        return m_flow.assign(m_flow.current(type, bodyTable, tlTable),
                             TargetListPanel::listedIds(tlTable));
    }
    /** Deletes the current body, asking first; nothing without a current body. */
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
    /** Deletes a body, asking first, and reads whether the target it held is still in use. */
    void deleteBodyAndUpdateTlCalibratedOfTarget(const QString &type, int index);
    /** Reads which of the listed targets are in use and shows it. */
    void updateCalStatusTablewidgetTl(const QString &type);
    /**
     * Shows the operator how many targets were found; the tab may be gone afterwards. Kept for
     * other tabs: a search shows it with its end.
     */
    void showMessageFoundTargets_tl(int count) { m_questions.showFoundTargets(count); }
    /** Asks whether a named body may be overwritten; true without asking for one without name. */
    bool overwriteBodyCalibration(const QString &name) { return m_flow.confirmOverwrite(name); }
signals:
    /** The current body changed or was acted on. */
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
    /** Asked between the click on select and the assignment; false stops it. */
    virtual bool mayAssignTarget(const QString &) { return true; }
    /** The target was assigned and the tab refreshed. */
    virtual void targetAssigned(const QString &) {}

    bool isRetired() const { return m_input.isRetired(); }
    const BodyQuestions &questions() const { return m_questions; }
    const AssignmentFlow &assignmentFlow() const { return m_flow; }

    /** The page's filter and calibration buttons follow the current body and the search. */
    void applyPageRules();
    /** Of the dialog that the tab belongs to; null when it has none. */
    LinkObserver *observer() const { return LinkObserver::of(this); }
    /** First half of the tabs' refresh: remembers the current body and refills the target table. */
    void refreshTargets();
    /** Second half: reads the bodies, restores the selections, resets the search widgets. */
    void refreshBodies();
    /** Makes the rows current again that were current when they were remembered. */
    void setSelectionOfTables(QTableWidget *bodyTable, QTableWidget *tlTable);
    /** Bar, label and buttons of the search as at the beginning; leaves a running one alone. */
    void resetSearchWidgets()
    {
        m_search.reset();
        rowChosen();
        applyPageRules();
    }
    /** Hides the dialog and requests the current body's calibration from the other module. */
    void requestBodyCalibration();
    /** Edits the filters of one body in a dialog; false when the tab was deleted meanwhile. */
    bool openFilterDialog(int bodyType, int index)
    {
        return runFilterDialog(this, iom, beVers, bodyType, index);
    }
    /** Switches the global 6DOF filter of the type's bodies on when it is off. */
    void switchGlobalFilterOn(const QString &type);

    /** The operator chose a category. */
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
