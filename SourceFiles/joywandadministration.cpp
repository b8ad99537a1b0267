#include "joywandadministration.h"

#include "ui_joywandadministration.h"

#include "editdelegate.h"
#include "targetlibrary.h"

#include <QHeaderView>
#include <QPointer>
#include <QResizeEvent>
#include <QTableWidgetItem>

namespace {

const QString joywandType = QStringLiteral("joywand");
const QString headType = QStringLiteral("multiuserjoywand_head");
const QString noDevice = QStringLiteral("none");

} // namespace

JoywandAdministration::JoywandAdministration(IOManager *manager, QWidget *parent,
                                             BackendVersions *versions,
                                             const QString &moduleVersion, Targetlibrary *library)
    : BodyTypeAdministrationTab(manager, parent, versions, moduleVersion, library),
      ui(std::make_unique<Ui::JoywandAdministrationClass>()),
      m_editDelegate(new EditDelegate(this))
{
    ui->setupUi(this);
    // A button of the dialog has the same text and access key, and an access key of two buttons
    // presses neither.
    ui->pushButton_filter->setShortcut(QKeySequence());
    setWhatsThis(tr("Administration of Joywands"));
    TabWidgets widgets = commonTabWidgets(*ui);
    widgets.type = joywandType;
    widgets.bodyTable = ui->tableWidget_joywand;
    widgets.filter = ui->pushButton_filter;
    widgets.calibration = ui->pushButton_calibration;
    widgets.editControls = {ui->spinBox_joywands, ui->pushButton_filter,
                            ui->pushButton_calibration};
    widgets.searchControls = widgets.editControls;
    setTabWidgets(widgets);
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
    m_columns = {{COLUMN_TYPE_ID, tr("ID")},
                 {COLUMN_TYPE_ACTIVE, tr("Active")},
                 {COLUMN_TYPE_NAME, tr("Name"), false, true},
                 {COLUMN_TYPE_CUSTOM, tr("Model")},
                 {COLUMN_TYPE_CUSTOM, tr("Serial")},
                 {COLUMN_TYPE_CALIBRATED, tr("Calibration")},
                 {COLUMN_TYPE_FILTER, tr("Filter"), !m_filterAvailable},
                 {COLUMN_TYPE_DELETE, tr("Delete")},
                 {COLUMN_TYPE_RESET, tr("Reset")}};
    BodyTableFiller::setUp(ui->tableWidget_joywand, m_columns);
    ui->tableWidget_joywand->setItemDelegateForColumn(m_columns.ofKind(COLUMN_TYPE_NAME),
                                                      m_editDelegate);
    registerTableWidget(joywandType, ui->tableWidget_joywand, m_columns.kinds(),
                        QStringLiteral("F%1"));
}

void JoywandAdministration::setup_header_table()
{
    const QPointer<QWidget> self(this);
    registerBodyType(headType);
    if (!self)
        return;
    m_headColumns = {{COLUMN_TYPE_ID, tr("ID")},
                     {COLUMN_TYPE_CALIBRATED, tr("Calibration"), false, true},
                     {COLUMN_TYPE_DELETE, tr("Delete")},
                     {COLUMN_TYPE_RESET, tr("Reset"), true}};
    BodyTableFiller::setUp(ui->tableWidget_head, m_headColumns);
    registerTableWidget(headType, ui->tableWidget_head, m_headColumns.kinds(),
                        QStringLiteral("%1"));
}

void JoywandAdministration::set_table_column_size()
{
    BodyTableFiller::sizeColumns(ui->tableWidget_joywand, m_columns);
    if (ui->tableWidget_head->rowCount() > 0)
        BodyTableFiller::sizeColumns(ui->tableWidget_head, m_headColumns);
}

void JoywandAdministration::update_joywand_table()
{
    BodyTableFiller::showLimit(
            ui->label_error, ui->spinBox_joywands,
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
    m_refresh.run(this, {[&] { refreshTargets(); }, [&] { check_multiuser_header(); },
                         [&] { refreshBodies(); }});
}

// Devices

QString JoywandAdministration::deviceText(int index)
{
    // Two columns of a row show parts of the same answer.
    if (m_deviceIndex != index) {
        const ControllerLink host = link();
        const QString device = reader().readDevice(index);
        if (host.isClosed())
            return noDevice;
        m_deviceIndex = index;
        m_deviceText = device;
    }
    return m_deviceText;
}

void JoywandAdministration::updateTableWidgetCell(const QString &type, int index, int column,
                                                  QTableWidgetItem *item)
{
    const bool isModel = column == m_columns.titled(tr("Model"));
    if (type != joywandType || (!isModel && column != m_columns.titled(tr("Serial"))))
        return;
    const QPointer<QWidget> self(this);
    const QString device = deviceText(index);
    if (!self)
        return;
    if (isModel) {
        item->setText(device == noDevice
                              ? tr("none")
                              : reader().readDeviceModel(device).value_or(tr("unknown")));
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
    return reader().readMaximum(bodytypes, type);
}

bool JoywandAdministration::morvek2_setNumberOfBodies(const QString &type, int count)
{
    return type == joywandType && commands().setCount(type, count);
}

void JoywandAdministration::ON_spinBox_joywands_valueChanged(int count)
{
    // There are as many head targets as devices.
    if (m_headTableShown && !isRetired() && ui->spinBox_joywands->isVisible())
        setNumberOfBodies(headType, count);
}

void JoywandAdministration::ON_activeConfigurationChanged()
{
    switchGlobalFilterOn(joywandType);
}

// Multi-user mode

bool JoywandAdministration::is_multiuser_enabled() const
{
    const ControllerLink host = link();
    if (!host.protocolAtLeast(0, 13))
        return false;
    const auto available = host.text("joywand multiuser_available");
    if (!available)
        host.log(
                QStringLiteral("Error: Unable to get info whether multiuser joywand is available"));
    if (!available || *available == QLatin1String("no"))
        return false;
    if (host.protocolAtLeast(0, 14)) {
        const auto withHead = host.text("joywand multiuser_with_head_available");
        if (!withHead)
            host.log(QStringLiteral(
                    "Error: Unable to get info multiuser joywand with head available"));
        if (!withHead || *withHead == QLatin1String("no"))
            return false;
    }
    const auto enabled = host.text("joywand multiuser");
    if (!enabled)
        host.log(
                QStringLiteral("Error: Unable to get info whether multiuser joywand is activated"));
    return enabled && *enabled != QLatin1String("no");
}

bool JoywandAdministration::is_header_enabled() const
{
    const ControllerLink host = link();
    if (!is_multiuser_enabled())
        return false;
    const auto withHead = host.text("joywand multiuser_with_head");
    if (!withHead) {
        host.log(QStringLiteral(
                "Error: Unable to get info whether multiuser joywand with head is activated"));
    }
    return withHead && *withHead != QLatin1String("no");
}

void JoywandAdministration::check_multiuser_header()
{
    const QPointer<QWidget> self(this);
    const bool shown = is_header_enabled();
    if (!self)
        return;
    m_headTableShown = shown;
    ui->label_head->setVisible(m_headTableShown);
    ui->tableWidget_head->setVisible(m_headTableShown);
    if (m_headTableShown && !isBodyTypeRegistered(headType))
        setup_header_table();
}

// Slots of the form

void JoywandAdministration::on_tableWidget_joywand_itemSelectionChanged()
{
    rowChosen();
}

void JoywandAdministration::on_pushButton_calibration_clicked()
{
    requestBodyCalibration();
}

void JoywandAdministration::on_pushButton_filter_clicked()
{
    perform([this] {
        if (openFilterDialog(1, getCurrentBodyindex()))
            update_tab();
    });
}

void JoywandAdministration::resizeEvent(QResizeEvent *event)
{
    BodyTypeAdministrationTab::resizeEvent(event);
    // The columns are sized for the first time when the first rows exist.
    if (!ui->tableWidget_joywand->horizontalHeader()->stretchLastSection())
        set_table_column_size();
}
