#pragma once

#include "bodies/adminbodytype.h"
#include "bodies/bodyreader.h"
#include "bodies/bodytablefiller.h"
#include "bodies/tabwidgets.h"
#include "controllerlink.h"
#include "targets/targetassignment.h"
#include "targets/targetsearchpanel.h"
#include "targets/targettablefiller.h"

#include <QIcon>
#include <QMap>
#include <QPointer>
#include <QSet>
#include <QString>
#include <QStringList>
#include <QVector>
#include <QWidget>

#include <functional>
#include <memory>
#include <optional>

class QLabel;
class QTableWidgetItem;
class QTimer;

/**
 * What the tabs of the body administration have in common: the registry of body types with the
 * cached picture of the controller's bodies, the body tables and their editing, the target table,
 * the assignment of targets and the search for them.
 *
 * Created and owned by the body administration dialog, with the dialog as parent. A subclass
 * registers its types and widgets in its constructor, hands its common widgets to setTabWidgets()
 * after setting up its form, and overrides what is particular to it. Type words are the
 * controller's; indexes are zero-based. Nothing is stored that was not read from the controller.
 */
class BodyTypeAdministrationTab : public QWidget {
    Q_OBJECT

public:
    /** The manager and the versions outlive the tab and may be null; the catalogue may not. */
    BodyTypeAdministrationTab(IOManager *iom, QWidget *parent, BackendVersions *beVers,
                              const QString &moduleVersion, Targetlibrary *targetlib);
    ~BodyTypeAdministrationTab() override;

    /** Title of the tab's page. */
    virtual QString getTabTitle() = 0;
    /** True when the controller offers what the tab administers. */
    virtual bool isAvailable() = 0;
    /** True when the type has 6DOF filters and the current body a geometry to filter. */
    virtual bool is_filter6d_possible();
    /** True when a body is current that may be calibrated. */
    virtual bool is_bodycal_possible();
    /** True when the current body is calibrated and may be adjusted. */
    virtual bool is_bodyadjustment_possible();
    /** True when the current body carries a sensor that is present; asks the controller. */
    virtual bool is_hybridbodycalibration_possible();
    /** Current row of the tab's body table; -1 when none. */
    virtual int getCurrentBodyindex() = 0;
    /** Re-evaluates what depends on the records: labels, columns, move buttons. */
    virtual void updateView() = 0;
    /** Reads everything anew from the controller and shows it. */
    virtual void update_tab();
    /** The dialog is about to close: stops the timers. */
    virtual void about_to_exit();
public slots:
    /** Another configuration was activated on the controller. */
    virtual void ON_activeConfigurationChanged();

public:
    /** Switches a body on or off; re-reads the body whether or not the controller agreed. */
    virtual void setBodyActive(const QString &type, int index, bool active);
    /** Renames a body and re-reads it. */
    virtual void setBodyDescription(const QString &type, int index, const QString &text);
    /** Undoes the calibration of a body, asking first. False when nothing or not all was done. */
    virtual bool resetBody(const QString &type, int index);
    /** Clears a body slot, asking first. False when nothing or not all was done. */
    virtual bool deleteBody(const QString &type, int index);
    /** Exchanges two bodies (protocol 1.11). False when the controller did not. */
    virtual bool switchBody(const QString &type, int index, int otherIndex);
    /** Largest number of bodies, asked of the controller; a default, and logged, on failure. */
    virtual int morvek2_getMaxNumberOfBodies(const QString &type) = 0;
    /** Tells the controller the number of bodies; false, and logged, when it refused. */
    virtual bool morvek2_setNumberOfBodies(const QString &type, int count) = 0;
    /** Fills the item of a custom column; the item is new. */
    virtual void updateTableWidgetCell(const QString &type, int index, int column,
                                       QTableWidgetItem *item);
    /** Remembers the current rows of a tab that has two body tables; elsewhere does nothing. */
    virtual void saveSelectionOfMtTables();

    /** Stores a fresh record of the type and reads its description and filter availability. */
    void registerBodyType(const QString &type);
    /** Forgets the record; the widgets stay. An unknown type changes nothing. */
    void unregisterBodyType(const QString &type);
    /** True from registerBodyType() to unregisterBodyType(). */
    bool isBodyTypeRegistered(const QString &type) const;
    /** The box that shows and sets the number of bodies of the type. */
    void registerSpinBox(const QString &type, QSpinBox *spinBox);
    /** A combo box that belongs to the type; kept in the record only. */
    void registerComboBox(const QString &type, QComboBox *comboBox);
    /** The table that shows the type's bodies; `idFormat` makes the ID cell of a row. */
    void registerTableWidget(const QString &type, QTableWidget *table,
                             const QVector<COLUMN_TYPE> &columns, const QString &idFormat);
    /** The target table of the type, when it is not the one that all tabs have in common. */
    void registerTableWidget_tl(const QString &type, QTableWidget *table);

    // From the records, nothing is sent: false, 0 or an empty text for what is not there.

    /** The controller's description of the type. */
    QString getBodyTypeDescription(const QString &type) const;
    /** True when the controller offers 6DOF filters for the type. */
    bool getBodyTypeFilter6dAvailable(const QString &type) const;
    /** Bodies that an inertial sensor is assigned to. */
    int getNumberOfInertialSensors(const QString &type) const;
    /** Body slots, calibrated or not. */
    int getNumberOfBodies(const QString &type) const;
    /** Bodies with a geometry. */
    int getNumberOfCalibratedBodies(const QString &type) const;
    /** True when the controller tracks the body. */
    bool isBodyActive(const QString &type, int index) const;
    /** True when the body has a geometry. */
    bool isBodyCalibrated(const QString &type, int index) const;
    /** True when the controller says that the geometry was measured anew. */
    bool isBodyRecalibrated(const QString &type, int index) const;
    /** True when the body's sensor has a hand-eye calibration. */
    bool hasBodyHandEye(const QString &type, int index) const;
    /** True when all other bodies are measured relative to this one. */
    bool getBodyIsReference(const QString &type, int index) const;
    /** The same as getBodyIsReference(). */
    bool isBodyReference(const QString &type, int index) const;
    /** The name that the operator gave. */
    QString getBodyDescription(const QString &type, int index) const;
    /** Short name of the library target that the body holds; empty when none. */
    QString getBodyTargetlibName(const QString &type, int index) const;
    /** How the body was calibrated, as the table shows it. */
    QString getBodyCalibrationStatus(const QString &type, int index) const;
    /** Identifier of the assigned inertial sensor; empty when none. */
    QString getBodyInertialSensor(const QString &type, int index) const;
    /** The filters as one line for the table. */
    QString getBodyFilter6dPreset(const QString &type, int index) const;

    /** Reads all registered types and fills their tables; a failed query is logged. */
    void updateBodyTypesInfo();
    /** Reads the count and all bodies of the type; the table stays as it is. */
    void updateBodyTypeInfo(const QString &type);
    /** Reads one body into its record; logs each failed query and goes on. */
    void updateBodyInfo(const QString &type, int index);
    /** Reads the filters of one body into its record. */
    void updateBodyFilter6dPreset(const QString &type, int index);
    /** Counts the assigned sensors from the records. */
    void updateNumberOfInertialSensors(const QString &type);
    /** Shows the number of bodies; with `readMaximum` the limit is read first. */
    void updateBodyTypeSpinBox(const QString &type, bool readMaximum);
    /** Fills the table from the records; asks only whether the sensors warm up. */
    void updateTableWidget(const QString &type);

    /** Tells the controller the count and reads it back; asks before the reference is dropped. */
    void setNumberOfBodies(const QString &type, int count);
    /** Makes the body the reference or none; refuses, with a box, a body that is not active. */
    void setBodyReference(const QString &type, int index, bool reference);

    // The commands alone, without reading back: false, and logged, when the controller refused.

    /** Switches a body on or off. */
    bool morvek2_setBodyActive(const QString &type, int index, bool active);
    /** Names a body; a line break in the name is refused. */
    bool morvek2_setBodyDescription(const QString &type, int index, const QString &text);
    /** Makes a standard body the reference, the only kind that can be; false: no body at all. */
    bool morvek2_setBodyIsReference(const QString &type, int index, bool reference);

    /** Asks before the last body is dropped while it is the reference; may put the count back. */
    void checkForReferenceDisabeledAndResetIfNec(int &newCount, int oldCount, const QString &type);
    /** Makes no body the reference; a refusal is logged. */
    void resetReferenceTargetIfAny();

    /** True when the body's inertial sensor is present; false, and logged, when unreadable. */
    bool is_hybridbodycalibration_available(const QString &type, int index);
    /** A locked configuration is shown but cannot be edited. */
    virtual void setConfigLockedStatus(bool locked);

    /** Columns, headers and selection of an empty target table. */
    void setup_tableWidget_targetlibrary(QTableWidget *table);
    /** Lists the targets of the type; a null group lists them all. */
    void update_tableWidget_targetlibrary(QTableWidget *table, const QString &type,
                                          const QString &group = QString());
    /** Assigns the current target to the current body; false when it was not done. */
    bool pushButtonSelectClicked(const QString &type, QTableWidget *bodyTable,
                                 QTableWidget *tlTable);
    /** Deletes the current body, asking first; nothing without a current body. */
    void pushButtonDeSelectClicked(const QString &type, QTableWidget *bodyTable);
    /** Frees the target, by its short name, from every body but the table's current one. */
    void deleteTargetInDifferentSlotIfExists(const QString &target, const QString &type,
                                             QTableWidget *bodyTable);
    /** Deletes a body, asking first, and reads whether the target it held is still in use. */
    void deleteBodyAndUpdateTlCalibratedOfTarget(const QString &type, int index);
    /** Reads whether a body holds the target; keeps what is known, and logs, on failure. */
    void updateTlCalibratedOfTarget(const QString &targetId);
    /** updateTlCalibratedOfTarget() for each identifier. */
    void updateTlCalibratedOfTargets(const QStringList &targetIds);
    /** Reads which of the listed targets are in use and shows it. */
    void updateCalStatusTablewidgetTl(const QString &type);
    /** Asks the controller which targets of the type the cameras see. */
    void updateTlTrackedStatus(const QString &type);
    /** Marks the listed targets that the cameras see and counts them. */
    void do_updateTrackedAndAcceptStatus_tl(QTableWidget *table, int &numTracked,
                                            int &numCalibrated);
    /** Tells the operator how many targets were found; the tab may be gone afterwards. */
    void showMessageFoundTargets_tl(int count);
    /** Asks whether a named body may be overwritten; true without asking for one without name. */
    bool overwriteBodyCalibration(const QString &name);
    /** Stops polling the search and the tracked states. */
    void stopAllTimer();
    /** Asks the controller which targets of the tab's type are seen, and counts them. */
    int getTrackedTargets();

    /** Enables select by the target table alone. */
    void activate_pushButton_start();
    /** The same rule as activate_pushButton_deselect(). */
    void activate_pushButton_stop();
    /** Enables select while a body and a target are current and no search runs. */
    void activate_pushButton_select();
    /** Enables deselect by what the current body's row shows, while no search runs. */
    void activate_pushButton_deselect();
    /** Enables the controls that a running search locks. */
    void enableControls(bool enable);

    /** The body type that the tab's page stands for. */
    QString mainBodyType() const { return tabWidgets().type; }

signals:
    /** The current body changed or was acted on. */
    void selection_changed(QString bodyType, int bodyIndex);

protected slots:
    void ON_spinBox_valueChanged(int count);
    void ON_tableWidget_cellClicked(int row, int column);
    void ON_tableWidget_cellDoubleClicked(int row, int column);
    void ON_tableWidget_currentItemChanged(QTableWidgetItem *current, QTableWidgetItem *previous);
    void ON_tableWidget_itemChanged(QTableWidgetItem *item);

    void on_pushButton_select_clicked();
    void on_pushButton_deselect_clicked();
    void on_pushButton_start_clicked();
    void on_pushButton_stop_clicked();
    void on_tableWidget_targetlibrary_itemSelectionChanged();
    void doMeasurement_tl();
    void updateTrackedAndAcceptStatus_tl();

protected:
    /** A box may stand between the click on select and the assignment; false stops it. */
    virtual bool mayAssignTarget(const QString &targetShortName);
    /** True while the body and the target are current that the user pressed select for. */
    bool isChoiceUnchanged() const;
    /** The target was assigned and the tab refreshed. */
    virtual void targetAssigned(const QString &targetId);
    bool eventFilter(QObject *watched, QEvent *event) override;

    /** Once, after the form was set up. */
    void setTabWidgets(const TabWidgets &widgets);
    const TabWidgets &tabWidgets() const { return m_search.widgets(); }
    const ControllerLink &link() const { return m_link; }
    /** True while this tab polls a search it started. */
    bool isSearchRunning() const { return m_search.isRunning(); }
    /** The record of a type, null when it is not registered. */
    const AdminBodyType *record(const QString &type) const;
    /** The type's description, or its word when the controller gave none. */
    QString typeLabel(const QString &type) const;

    /** The limit that was read, or the default with `error` in the log when it was not. */
    int maximumOr(const std::optional<int> &maximum, int defaultMaximum,
                  const QString &error) const;
    /** Shows `text` while the spin box stands at its maximum. */
    static void showLimit(QLabel *label, const QSpinBox *spinBox, const QString &text);
    /** The row chosen in the body table changed: select and deselect follow. */
    void bodyRowChosen();
    /** Re-reads one body and shows it. */
    void refreshBody(const QString &type, int index);
    /** First half of the tabs' refresh: remembers the current body and refills the target table. */
    void refreshTargets();
    /** Second half: reads the bodies, restores the selections, resets the search widgets. */
    void refreshBodies();
    void setSelectionOfTables(QTableWidget *bodyTable, QTableWidget *tlTable);
    /** Bar, label and buttons of the search as at the beginning; leaves a running one alone. */
    void resetSearchWidgets();
    /** Bodies of another type that may hold the target that is to be assigned. */
    struct OtherHolders {
        int count = 0;
        std::function<std::optional<QString>(int)> targetOfBody; ///< by one-based number
        QString text;                                            ///< of the box, %1 is the number
        QString question;                                        ///< of the box, %1 is the number
        std::function<void(int)> clearBody;                      ///< by one-based number
    };
    /**
     * Asks whether the target may be taken from the first body that holds it, and takes it. True
     * when nobody holds it or it was taken.
     */
    bool takeTargetFromOthers(const QString &shortName, const OtherHolders &others);
    /** Name of the category shown; null in a tab without categories. */
    QString currentGroup() const;
    /** Hides the dialog and asks the calibration module to calibrate the current body. */
    void requestBodyCalibration();
    /** The 6DOF filter dialog for one body; 0 standard bodies, 1 Joywand devices. */
    void openFilterDialog(int filterBodyType, int index);
    /** The commands and log lines around the global 6DOF filter of a body type. */
    struct GlobalFilter {
        const char *query;
        const char *switchOn;
        QString queryError;
        QString switchError;
    };
    /** Switches a body type's global 6DOF filter on when it is off. */
    void switchGlobalFilterOn(const GlobalFilter &filter);

    /** The categories of the tab's targets, for its category filter. */
    void fillCategories(QComboBox *box) const;
    /** Makes the category of exactly that name current; none when it is not there. */
    void selectCategory(const QString &group);
    /** The user chose a category. */
    void categoryChosen(const QString &group);

    IOManager *iom;
    BackendVersions *beVers;
    QString m_module_version;
    bool m_is_config_locked = false;
    QString current_btype;
    int current_bid = -1;
    QIcon icon_ok;
    QIcon icon_not_cal;
    QIcon icon_yellow_hook;
    QIcon icon_cross;
    QIcon icon_reset;
    Targetlibrary *targetlib;
    QTimer *timerDoMea_tl;
    QTimer *timerCheckForTracked_tl;
    int numTracked_tl = 0;
    int selectionTableLeft = -1;
    int selectionTableRight = -1;
    QMap<QString, AdminBodyType> bodytypes;

private:
    /** What the user chose when pressing select. */
    struct AssignmentChoice {
        int bodyRow = -1;
        QString bodyName;
        QString targetId;
    };
    AssignmentChoice currentChoice() const;
    void refreshTracked(Target *target);
    AdminBodyType *recordOf(const QString &type);
    const AdminBody *bodyOf(const QString &type, int index) const;
    QString typeOfTable(const QObject *table) const;
    void actOnCell(const QString &type, int row, int column);
    void actOnCellLater(const QString &type, int row, int column);
    void actOnCheckBox(const QString &type, int row, int column);
    void countChosen(const QString &type);
    void filterCellClicked(const QString &type, int row);
    bool resetToLibrary(const QString &type, int index, const QString &target);
    bool resetSensor(const QString &type, int index, const QString &sensor);
    bool confirmDelete(const QString &type, int index);
    void showDeleteFailure(const QString &type, int index, int step);
    TargetTableFiller targetTableFiller(const QString &type) const;
    QVector<const Target *> listedTargets(const TargetTableFiller &filler,
                                          const QString &group) const;
    void runEnded();

    ControllerLink m_link;
    BodyReader m_reader;
    TargetAssignment m_assignment;
    std::unique_ptr<BodyTableIcons> m_tableIcons;
    TargetSearchPanel m_search;
    QSet<QString> m_customTargets;
    AssignmentChoice m_choice;
    bool m_isActingOnCheckBox = false;
    int m_filling = 0;
    bool m_isCountBeingChosen = false;
    bool m_isCurrentCellTold = false;
};
