#pragma once

#include "BodyTypeAdministrationTab.h"
#include "bodies/bodycolumn.h"
#include "qtportability.h"

#include <memory>

class EditDelegate;

namespace Ui {
class MtAdministrationClass;
}

/**
 * The tab of the measurement tools and the references against which they are measured. Targets are
 * assigned to references. The body types are registered when the controller offers the tools.
 */
class MtAdministration : public BodyTypeAdministrationTab {
    Q_OBJECT

public:
    MtAdministration(IOManager *iom, QWidget *parent, BackendVersions *beVers,
                     const QString &moduleVersion, Targetlibrary *targetlib);
    ~MtAdministration() override;

    QString getTabTitle() override;
    bool isAvailable() override;
    bool is_bodyadjustment_possible() override;
    int getCurrentBodyindex() override;
    void updateView() override;
    void update_tab() override;
    void setBodyActive(const QString &type, int index, bool active) override;
    bool deleteBody(const QString &type, int index) override;
    int morvek2_getMaxNumberOfBodies(const QString &type) override;
    bool morvek2_setNumberOfBodies(const QString &type, int count) override;
    void updateTableWidgetCell(const QString &type, int index, int column,
                               QTableWidgetItem *item) override;
    void saveSelectionOfMtTables() override;

protected:
    bool mayAssignTarget(const QString &targetShortName) override;

private slots:
    void on_tableWidget_ref_itemSelectionChanged();

private:
    COMBO_TEXT_SLOT void on_comboBox_filter_currentIndexChanged(const QString &group);
    void setup_mt_table();
    void setup_ref_table();
    void setupTableWidgetData();
    void checkActivateMeasurementtool();
    bool is_mt_available() const;
    void set_table_column_size();
    void update_mt_table();
    void update_ref_table();
    void displayErrorMessage(bool unavailable);
    void restoreSelectionOfMtTables();
    void refreshToolTargets();
    void activateLate();
    bool deleteCalibrationStandardTargetIfNeeded(const QString &shortName);
    /**
     * Zero-based indexes of the tools measured against that reference, as the table of tools shows
     * them.
     */
    QVector<int> toolsOfReference(int reference) const;
    /**
     * True while exactly these tools are measured against that reference; otherwise false, and
     * logged.
     */
    bool areStillUsing(int reference, const QVector<int> &tools) const;

    std::unique_ptr<Ui::MtAdministrationClass> ui;
    BodyColumns m_toolColumns;
    BodyColumns m_referenceColumns;
    EditDelegate *m_editDelegate;
    bool m_activated = false;
    int m_toolRow = -1;
    int m_referenceRow = -1;
};
