#pragma once

#include "BodyTypeAdministrationTab.h"
#include "bodies/bodycolumn.h"

#include <memory>

class EditDelegate;

namespace Ui {
class JoywandAdministrationClass;
}

/** The tab of the handheld devices and, in multi-user mode with heads, of their head targets. */
class JoywandAdministration : public BodyTypeAdministrationTab {
    Q_OBJECT

public:
    JoywandAdministration(IOManager *iom, QWidget *parent, BackendVersions *beVers,
                          const QString &moduleVersion, Targetlibrary *targetlib);
    ~JoywandAdministration() override;

    QString getTabTitle() override;
    bool isAvailable() override;
    int getCurrentBodyindex() override;
    void updateView() override;
    void update_tab() override;
    int morvek2_getMaxNumberOfBodies(const QString &type) override;
    bool morvek2_setNumberOfBodies(const QString &type, int count) override;
    void updateTableWidgetCell(const QString &type, int index, int column,
                               QTableWidgetItem *item) override;

    /** Queries whether several devices serve several users; false when the query fails. */
    bool is_multiuser_enabled() const;
    /** Queries whether each device has a head target; false when the query fails. */
    bool is_header_enabled() const;

public slots:
    void ON_activeConfigurationChanged() override;

protected:
    void resizeEvent(QResizeEvent *event) override;

private slots:
    void ON_spinBox_joywands_valueChanged(int count);
    void on_tableWidget_joywand_itemSelectionChanged();
    void on_pushButton_calibration_clicked();
    void on_pushButton_filter_clicked();

private:
    void setup_joywand_table();
    void setup_header_table();
    void check_multiuser_header();
    void update_joywand_table();
    void set_table_column_size();
    QString deviceText(int index);

    std::unique_ptr<Ui::JoywandAdministrationClass> ui;
    BodyColumns m_columns;
    BodyColumns m_headColumns;
    EditDelegate *m_editDelegate;
    bool m_headTableShown = false;
    bool m_filterAvailable = false;
    int m_deviceIndex = -1; ///< the device whose text was read for the row that is being filled
    QString m_deviceText;
};
