#pragma once

#include "BodyTypeAdministrationTab.h"
#include "bodies/bodycolumn.h"
#include "qtportability.h"

#include <memory>

class EditDelegate;
class Ui_StandardAdministrationClass;

/** The tab of the standard bodies: ordinary rigid bodies with names, a reference and sensors. */
class StandardAdministration : public BodyTypeAdministrationTab {
    Q_OBJECT

public:
    StandardAdministration(IOManager *iom, QWidget *parent, BackendVersions *beVers,
                           const QString &moduleVersion, Targetlibrary *targetlib);
    ~StandardAdministration() override;

    QString getTabTitle() override;
    bool isAvailable() override;
    int getCurrentBodyindex() override;
    void updateView() override;
    void update_tab() override;
    void setBodyActive(const QString &type, int index, bool active) override;
    int morvek2_getMaxNumberOfBodies(const QString &type) override;
    bool morvek2_setNumberOfBodies(const QString &type, int count) override;
    void updateTableWidgetCell(const QString &type, int index, int column,
                               QTableWidgetItem *item) override;
    void setConfigLockedStatus(bool locked) override;

    /** Row of the first body whose reference mark is checked in the table; -1 when none. */
    int getReferenceId() const;

public slots:
    void ON_activeConfigurationChanged() override;

protected:
    bool mayAssignTarget(const QString &targetShortName) override;
    void targetAssigned(const QString &targetId) override;
    void resizeEvent(QResizeEvent *event) override;

private slots:
    void on_pushButton_up_clicked();
    void on_pushButton_down_clicked();
    void on_tableWidget_standard_itemSelectionChanged();
    void on_pushButton_customCalibration_clicked();
    void on_pushButton_filter_clicked();

private:
    COMBO_TEXT_SLOT void on_comboBox_filter_currentIndexChanged(const QString &group);
    void setup_standard_table();
    /** Kept for a caller that resizes columns; the set-up of the table already sizes them. */
    void set_table_column_size();
    void update_standard_table();
    void update_label_error();
    void update_up_button();
    void update_down_button();
    void warnforRecalibrationIfGlassesTarget(const QString &targetId);
    bool deleteCalibrationMeatoolReferenceIfNeeded(const QString &shortName);
    int selectedRow() const;
    void moveBody(int offset);

    std::unique_ptr<Ui_StandardAdministrationClass> ui;
    BodyColumns m_columns;
    QWidget *parent;
    EditDelegate *editDelegate;
    QComboBox *combo = nullptr;
    bool m_is_6dof_filter_available = false;
};
