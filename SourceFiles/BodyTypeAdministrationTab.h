#pragma once

#include <functional>
#include <memory>
#include <optional>

#include <QIcon>
#include <QMap>
#include <QPointer>
#include <QSet>
#include <QString>
#include <QStringList>
#include <QVector>
#include <QWidget>

#include "ControllerLink.h"
#include "adminbodytype.h"
#include "bodyreader.h"
#include "bodytablefiller.h"
#include "tabwidgets.h"
#include "targetassignment.h"
#include "targetsearchpanel.h"
#include "targettablefiller.h"

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
    BodyTypeAdministrationTab(IOManager *iom, QWidget *parent, BackendVersions *beVers,
                              const QString &moduleVersion, Targetlibrary *targetlib);
    ~BodyTypeAdministrationTab() override;

    /** Title of the tab's page. */
    virtual QString getTabTitle() = 0;
    /** True when the controller offers what the tab administers. */
    virtual bool isAvailable() = 0;
    virtual bool is_filter6d_possible();
    virtual bool is_bodycal_possible();
    virtual bool is_bodyadjustment_possible();
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
    virtual int morvek2_getMaxNumberOfBodies(const QString &type) = 0;
    virtual bool morvek2_setNumberOfBodies(const QString &type, int count) = 0;
    /** Fills the item of a custom column; the item is new. */
    virtual void updateTableWidgetCell(const QString &type, int index, int column,
                                       QTableWidgetItem *item);
    virtual void saveSelectionOfMtTables();

    /** Stores a fresh record of the type and reads its description and filter availability. */
    void registerBodyType(const QString &type);
    void unregisterBodyType(const QString &type);
    bool isBodyTypeRegistered(const QString &type) const;
    void registerSpinBox(const QString &type, QSpinBox *spinBox);
    void registerComboBox(const QString &type, QComboBox *comboBox);
    void registerTableWidget(const QString &type, QTableWidget *table,
                             const QVector<COLUMN_TYPE> &columns, const QString &idFormat);
    void registerTableWidget_tl(const QString &type, QTableWidget *table);

    QString getBodyTypeDescription(const QString &type) const;
    bool getBodyTypeFilter6dAvailable(const QString &type) const;
    int getNumberOfInertialSensors(const QString &type) const;
    int getNumberOfBodies(const QString &type) const;
    int getNumberOfCalibratedBodies(const QString &type) const;
    bool isBodyActive(const QString &type, int index) const;
    bool isBodyCalibrated(const QString &type, int index) const;
    bool isBodyRecalibrated(const QString &type, int index) const;
    bool hasBodyHandEye(const QString &type, int index) const;
    bool getBodyIsReference(const QString &type, int index) const;
    bool isBodyReference(const QString &type, int index) const;
    QString getBodyDescription(const QString &type, int index) const;
    QString getBodyTargetlibName(const QString &type, int index) const;
    QString getBodyCalibrationStatus(const QString &type, int index) const;
    QString getBodyInertialSensor(const QString &type, int index) const;
    QString getBodyFilter6dPreset(const QString &type, int index) const;

    void updateBodyTypesInfo();
    void updateBodyTypeInfo(const QString &type);
    void updateBodyInfo(const QString &type, int index);
    void updateBodyFilter6dPreset(const QString &type, int index);
    void updateNumberOfInertialSensors(const QString &type);
    /** Shows the number of bodies; with `readMaximum` the limit is read first. */
    void updateBodyTypeSpinBox(const QString &type, bool readMaximum);
    void updateTableWidget(const QString &type);

    void setNumberOfBodies(const QString &type, int count);
    void setBodyReference(const QString &type, int index, bool reference);
    bool morvek2_setBodyActive(const QString &type, int index, bool active);
    bool morvek2_setBodyDescription(const QString &type, int index, const QString &text);
    bool morvek2_setBodyIsReference(const QString &type, int index, bool reference);
    /** Asks before the last body is dropped while it is the reference; may put the count back. */
    void checkForReferenceDisabeledAndResetIfNec(int &newCount, int oldCount, const QString &type);
    void resetReferenceTargetIfAny();

    bool is_hybridbodycalibration_available(const QString &type, int index);
    virtual void setConfigLockedStatus(bool locked);

    void setup_tableWidget_targetlibrary(QTableWidget *table);
    /** Lists the targets of the type; a null group lists them all. */
    void update_tableWidget_targetlibrary(QTableWidget *table, const QString &type,
                                          const QString &group = QString());
    /** Assigns the current target to the current body; false when it was not done. */
    bool pushButtonSelectClicked(const QString &type, QTableWidget *bodyTable,
                                 QTableWidget *tlTable);
    void pushButtonDeSelectClicked(const QString &type, QTableWidget *bodyTable);
    void deleteTargetInDifferentSlotIfExists(const QString &target, const QString &type,
                                             QTableWidget *bodyTable);
    void deleteBodyAndUpdateTlCalibratedOfTarget(const QString &type, int index);
    void updateTlCalibratedOfTarget(const QString &targetId);
    void updateTlCalibratedOfTargets(const QStringList &targetIds);
    void updateCalStatusTablewidgetTl(const QString &type);
    /** Asks the controller which targets of the type the cameras see. */
    void updateTlTrackedStatus(const QString &type);
    /** Marks the listed targets that the cameras see and counts them. */
    void do_updateTrackedAndAcceptStatus_tl(QTableWidget *table, int &numTracked,
                                            int &numCalibrated);
    void showMessageFoundTargets_tl(int count);
    bool overwriteBodyCalibration(const QString &name);
    void stopAllTimer();
    int getTrackedTargets();

    void activate_pushButton_start();
    void activate_pushButton_stop();
    void activate_pushButton_select();
    void activate_pushButton_deselect();
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
