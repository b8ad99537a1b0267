#include "joywandadministration.h"

#include "ui_joywandadministration.h"

#include "bodynumber.h"
#include "editdelegate.h"
#include "targetlibrary.h"

#include <QResizeEvent>
#include <QTableWidgetItem>

namespace {

const QString joywandType = QStringLiteral("joywand");
const QString headType = QStringLiteral("multiuserjoywand_head");
const QString noDevice = QStringLiteral("none");

enum JoywandColumn {
    IdColumn,
    ActiveColumn,
    NameColumn,
    ModelColumn,
    SerialColumn,
    CalibrationColumn,
    FilterColumn,
    DeleteColumn,
    ResetColumn
};

enum HeadColumn { HeadIdColumn, HeadCalibrationColumn, HeadDeleteColumn, HeadResetColumn };

} // namespace

JoywandAdministration::JoywandAdministration(IOManager *manager, QWidget *parent,
                                             BackendVersions *versions,
                                             const QString &moduleVersion, Targetlibrary *library)
    : BodyTypeAdministrationTab(manager, parent, versions, moduleVersion, library),
      ui(std::make_unique<Ui::JoywandAdministrationClass>()),
      m_editDelegate(new EditDelegate(this))
{
    ui->setupUi(this);
    setWhatsThis(tr("Administration of Joywands"));
    setTabWidgets({joywandType,
                   ui->tableWidget_joywand,
                   ui->tableWidget_targetlibrary,
                   ui->pushButton_select,
                   ui->pushButton_deselect,
                   ui->pushButton_start,
                   ui->pushButton_stop,
                   ui->progressBar,
                   ui->label_targetlibrary,
                   nullptr,
                   {ui->spinBox_joywands, ui->pushButton_filter, ui->pushButton_calibration},
                   {ui->spinBox_joywands, ui->pushButton_filter, ui->pushButton_calibration}});
    registerBodyType(joywandType);
    registerSpinBox(joywandType, ui->spinBox_joywands);
    // Queued like the count itself, so that the head targets are counted after the devices.
    connect(ui->spinBox_joywands, SIGNAL(valueChanged(int)), this,
            SLOT(ON_spinBox_joywands_valueChanged(int)), Qt::QueuedConnection);
    m_filterAvailable = getBodyTypeFilter6dAvailable(joywandType);
    setup_joywand_table();
    setup_tableWidget_targetlibrary(ui->tableWidget_targetlibrary);
    registerTableWidget_tl(joywandType, ui->tableWidget_targetlibrary);
    ui->label_head->setVisible(false);
    ui->tableWidget_head->setVisible(false);
}

JoywandAdministration::~JoywandAdministration() = default;

QString JoywandAdministration::getTabTitle()
{
    return tr("&Joywand");
}

bool JoywandAdministration::isAvailable()
{
    return true;
}

int JoywandAdministration::getCurrentBodyindex()
{
    return ui->tableWidget_joywand->currentRow();
}

void JoywandAdministration::setup_joywand_table()
{
    QTableWidget *table = ui->tableWidget_joywand;
    BodyTableFiller::setUp(table,
                           {tr("ID"), tr("Active"), tr("Name"), tr("Model"), tr("Serial"),
                            tr("Calibration"), tr("Filter"), tr("Delete"), tr("Reset")},
                           NameColumn);
    table->setItemDelegateForColumn(NameColumn, m_editDelegate);
    table->setColumnHidden(FilterColumn, !m_filterAvailable);
    registerTableWidget(joywandType, table,
                        {COLUMN_TYPE_ID, COLUMN_TYPE_ACTIVE, COLUMN_TYPE_NAME, COLUMN_TYPE_CUSTOM,
                         COLUMN_TYPE_CUSTOM, COLUMN_TYPE_CALIBRATED, COLUMN_TYPE_FILTER,
                         COLUMN_TYPE_DELETE, COLUMN_TYPE_RESET},
                        QStringLiteral("F%1"));
}

void JoywandAdministration::setup_header_table()
{
    registerBodyType(headType);
    QTableWidget *table = ui->tableWidget_head;
    BodyTableFiller::setUp(table, {tr("ID"), tr("Calibration"), tr("Delete"), tr("Reset")},
                           HeadCalibrationColumn);
    table->setColumnHidden(HeadResetColumn, true);
    registerTableWidget(
            headType, table,
            {COLUMN_TYPE_ID, COLUMN_TYPE_CALIBRATED, COLUMN_TYPE_DELETE, COLUMN_TYPE_RESET},
            QStringLiteral("%1"));
}

void JoywandAdministration::set_table_column_size()
{
    BodyTableFiller::sizeColumns(ui->tableWidget_joywand, NameColumn);
    if (ui->tableWidget_head->rowCount() > 0)
        BodyTableFiller::sizeColumns(ui->tableWidget_head, HeadCalibrationColumn);
}

void JoywandAdministration::update_joywand_table()
{
    showLimit(ui->label_error, ui->spinBox_joywands,
              tr("<b><font color=red>Max. number of joywands is reached!</font></b>"));
    set_table_column_size();
    emit selection_changed(current_btype, current_bid);
}

void JoywandAdministration::updateView()
{
    update_joywand_table();
}

void JoywandAdministration::update_tab()
{
    refreshTargets();
    check_multiuser_header();
    refreshBodies();
    ui->pushButton_filter->setEnabled(is_filter6d_possible() && !isSearchRunning());
}

// Devices

QString JoywandAdministration::deviceText(int index)
{
    // Two columns of a row show parts of one answer.
    if (m_deviceIndex != index) {
        m_deviceIndex = index;
        const auto answer = link().text("joywand device b%2.2d", index + 1);
        if (!answer)
            link().log(tr("Error: Unable to get device of joywand b%1").arg(bodyNumber(index)));
        m_deviceText = answer.value_or(noDevice);
    }
    return m_deviceText;
}

QString JoywandAdministration::modelText(const QString &device) const
{
    const QString unknown = tr("unknown");
    if (!link().protocolAtLeast(1, 3))
        return unknown;
    const QString key = device.section(QLatin1Char(' '), 1, 2);
    const auto model =
            link().text("qorwpan device_model_desc %s", ControllerLink::argument(key).constData());
    if (model)
        return ControllerLink::withoutDoubleQuotes(*model);
    // Word 1 stands in both places: a habit of the log that its readers know.
    const QString vendor = device.section(QLatin1Char(' '), 1, 1);
    link().log(
            tr("Error: Unable to get model description of vendor %1 model %2").arg(vendor, vendor));
    return unknown;
}

void JoywandAdministration::updateTableWidgetCell(const QString &type, int index, int column,
                                                  QTableWidgetItem *item)
{
    if (type != joywandType || (column != ModelColumn && column != SerialColumn))
        return;
    const QString device = deviceText(index);
    if (column == ModelColumn) {
        item->setText(device == noDevice ? noDevice : modelText(device));
        return;
    }
    constexpr int serialLength = 5;
    m_deviceIndex = -1;
    if (device != noDevice) {
        const QString serial = device.section(QLatin1Char(' '), 3, 3);
        item->setText(serial.rightJustified(serialLength, QLatin1Char('0'), true));
    }
}

// Counts

int JoywandAdministration::morvek2_getMaxNumberOfBodies(const QString &type)
{
    constexpr int defaultMaximum = 20;
    return maximumOr(link().count("joywand max_number_of_devices"), defaultMaximum,
                     tr("Error: Unable to get max number of %1 bodies").arg(type));
}

bool JoywandAdministration::morvek2_setNumberOfBodies(const QString &type, int count)
{
    if (type != joywandType)
        return false;
    const bool done = link().set("joywand number_of_devices %d", count);
    if (!done)
        link().log(tr("Error: Unable to set number of %1 bodies to %2").arg(type).arg(count));
    return done;
}

void JoywandAdministration::ON_spinBox_joywands_valueChanged(int count)
{
    // As many head targets as devices.
    if (m_headTableShown && ui->spinBox_joywands->isVisible())
        setNumberOfBodies(headType, count);
}

void JoywandAdministration::ON_activeConfigurationChanged()
{
    switchGlobalFilterOn({"joywand filter", "joywand filter yes",
                          tr("Error: Unable to get global filter6d status of Joywand bodies"),
                          tr("Error: Unable to set global filter6d status of Joywand bodies")});
}

// Multi-user mode

bool JoywandAdministration::is_multiuser_enabled() const
{
    if (!link().protocolAtLeast(0, 13))
        return false;
    const auto available = link().text("joywand multiuser_available");
    if (!available)
        link().log(tr("Error: Unable to get info whether multiuser joywand is available"));
    if (!available || *available == QLatin1String("no"))
        return false;
    if (link().protocolAtLeast(0, 14)) {
        const auto withHead = link().text("joywand multiuser_with_head_available");
        if (!withHead)
            link().log(tr("Error: Unable to get info multiuser joywand with head available"));
        if (!withHead || *withHead == QLatin1String("no"))
            return false;
    }
    const auto enabled = link().text("joywand multiuser");
    if (!enabled)
        link().log(tr("Error: Unable to get info whether multiuser joywand is activated"));
    return enabled && *enabled != QLatin1String("no");
}

bool JoywandAdministration::is_header_enabled() const
{
    if (!is_multiuser_enabled())
        return false;
    const auto withHead = link().text("joywand multiuser_with_head");
    if (!withHead) {
        link().log(
                tr("Error: Unable to get info whether multiuser joywand with head is activated"));
    }
    return withHead && *withHead != QLatin1String("no");
}

void JoywandAdministration::check_multiuser_header()
{
    m_headTableShown = is_header_enabled();
    ui->label_head->setVisible(m_headTableShown);
    ui->tableWidget_head->setVisible(m_headTableShown);
    if (m_headTableShown && !isBodyTypeRegistered(headType))
        setup_header_table();
}

// Slots of the form

void JoywandAdministration::on_tableWidget_joywand_itemSelectionChanged()
{
    bodyRowChosen();
}

void JoywandAdministration::on_pushButton_calibration_clicked()
{
    requestBodyCalibration();
}

void JoywandAdministration::on_pushButton_filter_clicked()
{
    const QPointer<QWidget> self(this);
    openFilterDialog(1, ui->tableWidget_joywand->currentRow());
    if (self)
        update_tab();
}

void JoywandAdministration::resizeEvent(QResizeEvent *event)
{
    BodyTypeAdministrationTab::resizeEvent(event);
    set_table_column_size();
}
