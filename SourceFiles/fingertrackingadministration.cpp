#include "fingertrackingadministration.h"

#include "ui_fingertrackingadministration.h"

#include "editdelegate.h"
#include "targetlibrary.h"

#include <QResizeEvent>

namespace {

const QString handsType = QStringLiteral("fingertracking");

enum HandsColumn {
    IdColumn,
    ActiveColumn,
    NameColumn,
    CalibrationColumn,
    DeleteColumn,
    ResetColumn
};

} // namespace

FingertrackingAdministration::FingertrackingAdministration(IOManager *manager, QWidget *parent,
                                                           BackendVersions *versions,
                                                           const QString &moduleVersion,
                                                           Targetlibrary *library)
    : BodyTypeAdministrationTab(manager, parent, versions, moduleVersion, library),
      ui(std::make_unique<Ui_FingertrackingAdministrationClass>()),
      m_editDelegate(new EditDelegate(this))
{
    ui->setupUi(this);
    setTabWidgets({handsType,
                   ui->tableWidget_fingertracking,
                   ui->tableWidget_targetlibrary,
                   ui->pushButton_select,
                   ui->pushButton_deselect,
                   ui->pushButton_start,
                   ui->pushButton_stop,
                   ui->progressBar,
                   ui->label_targetlibrary,
                   nullptr,
                   {ui->spinBox_hands, ui->pushButton_calibration},
                   {ui->spinBox_hands, ui->pushButton_calibration}});
    setup_fingertracking_table();
    setup_tableWidget_targetlibrary(ui->tableWidget_targetlibrary);
    checkActivateFingertracking();
}

FingertrackingAdministration::~FingertrackingAdministration() = default;

QString FingertrackingAdministration::getTabTitle()
{
    return tr("F&ingertracking");
}

bool FingertrackingAdministration::isAvailable()
{
    return m_available;
}

bool FingertrackingAdministration::is_bodyadjustment_possible()
{
    return false;
}

int FingertrackingAdministration::getCurrentBodyindex()
{
    return ui->tableWidget_fingertracking->currentRow();
}

bool FingertrackingAdministration::is_fingertracking_available() const
{
    if (!link().protocolAtLeast(0, 17))
        return false;
    if (link().protocolAtLeast(1, 22))
        return true;
    const auto available = link().text("fingertracking available");
    if (!available)
        link().log(tr("Error: Unable to get availability of hands"));
    return available == QLatin1String("yes");
}

void FingertrackingAdministration::checkActivateFingertracking()
{
    if (!m_available && is_fingertracking_available()) {
        registerBodyType(handsType);
        registerSpinBox(handsType, ui->spinBox_hands);
        setupTableWidgetData();
        registerTableWidget_tl(handsType, ui->tableWidget_targetlibrary);
        m_available = true;
    }
    if (!m_available) {
        ui->label_error->setText(
                tr("<b><font color=red>Fingertracking is not available!</font></b>"));
    }
}

void FingertrackingAdministration::setup_fingertracking_table()
{
    QTableWidget *table = ui->tableWidget_fingertracking;
    BodyTableFiller::setUp(
            table,
            {tr("ID"), tr("Active"), tr("Name"), tr("Calibration"), tr("Delete"), tr("Reset")},
            NameColumn);
    table->setItemDelegateForColumn(NameColumn, m_editDelegate);
}

void FingertrackingAdministration::setupTableWidgetData()
{
    registerTableWidget(handsType, ui->tableWidget_fingertracking,
                        {COLUMN_TYPE_ID, COLUMN_TYPE_ACTIVE, COLUMN_TYPE_NAME,
                         COLUMN_TYPE_CALIBRATED, COLUMN_TYPE_DELETE, COLUMN_TYPE_RESET},
                        QStringLiteral("H%1"));
}

void FingertrackingAdministration::set_table_column_size()
{
    BodyTableFiller::sizeColumns(ui->tableWidget_fingertracking, NameColumn);
}

void FingertrackingAdministration::update_fingertracking_table()
{
    if (m_available) {
        showLimit(ui->label_error, ui->spinBox_hands,
                  tr("<b><font color=red>Max. number of Hands is reached!</font></b>"));
    }
    set_table_column_size();
    emit selection_changed(current_btype, current_bid);
}

void FingertrackingAdministration::displayErrorMessage(bool unavailable)
{
    ui->contents->setVisible(!unavailable);
    if (unavailable) {
        ui->label_error->setText(
                tr("<b><font color=red>Fingertracking is not available!</font></b>"));
    }
}

void FingertrackingAdministration::updateView()
{
    update_fingertracking_table();
}

void FingertrackingAdministration::update_tab()
{
    refreshTargets();
    checkActivateFingertracking();
    displayErrorMessage(!m_available);
    refreshBodies();
}

int FingertrackingAdministration::morvek2_getMaxNumberOfBodies(const QString &type)
{
    constexpr int defaultMaximum = 4;
    if (type != handsType)
        return 0;
    return maximumOr(link().count("fingertracking max_number_of_hands"), defaultMaximum,
                     tr("Error: Unable to get max number of %1 hand bodies").arg(type));
}

bool FingertrackingAdministration::morvek2_setNumberOfBodies(const QString &type, int count)
{
    if (type != handsType)
        return false;
    const bool done = link().set("fingertracking number_of_hands %d", count);
    if (!done)
        link().log(tr("Error: Unable to set number of %1 hand bodies to %2").arg(type).arg(count));
    return done;
}

void FingertrackingAdministration::on_tableWidget_fingertracking_itemSelectionChanged()
{
    bodyRowChosen();
}

void FingertrackingAdministration::on_pushButton_calibration_clicked()
{
    requestBodyCalibration();
}

void FingertrackingAdministration::resizeEvent(QResizeEvent *event)
{
    BodyTypeAdministrationTab::resizeEvent(event);
    set_table_column_size();
}
