#pragma once

#include "BodyTypeAdministrationTab.h"
#include "bodies/bodycolumn.h"

#include <memory>

class EditDelegate;
class Ui_FingertrackingAdministrationClass;

/** The tab of the tracked hands. Its body type is registered when the controller offers hands. */
class FingertrackingAdministration : public BodyTypeAdministrationTab {
    Q_OBJECT

public:
    FingertrackingAdministration(IOManager *iom, QWidget *parent, BackendVersions *beVers,
                                 const QString &moduleVersion, Targetlibrary *targetlib);
    ~FingertrackingAdministration() override;

    QString getTabTitle() override;
    bool isAvailable() override;
    bool is_bodyadjustment_possible() override;
    int getCurrentBodyindex() override;
    void updateView() override;
    void update_tab() override;
    int morvek2_getMaxNumberOfBodies(const QString &type) override;
    bool morvek2_setNumberOfBodies(const QString &type, int count) override;

protected:
    void resizeEvent(QResizeEvent *event) override;

private slots:
    void on_tableWidget_fingertracking_itemSelectionChanged();
    void on_pushButton_calibration_clicked();

private:
    bool is_fingertracking_available() const;
    void checkActivateFingertracking();
    void setup_fingertracking_table();
    void setupTableWidgetData();
    void update_fingertracking_table();
    void set_table_column_size();
    void displayErrorMessage(bool unavailable);

    std::unique_ptr<Ui_FingertrackingAdministrationClass> ui;
    BodyColumns m_columns;
    EditDelegate *m_editDelegate;
    bool m_available = false;
};
