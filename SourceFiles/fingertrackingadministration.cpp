#include "fingertrackingadministration.h"

#include "ui_fingertrackingadministration.h"

#include "editdelegate.h"
#include "targetlibrary.h"

#include <QHeaderView>
#include <QPointer>
#include <QResizeEvent>

namespace {

const QString handsType = QStringLiteral("fingertracking");

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
    TabWidgets widgets = commonTabWidgets(*ui);
    widgets.type = handsType;
    widgets.bodyTable = ui->tableWidget_fingertracking;
    widgets.calibration = ui->pushButton_calibration;
    widgets.editControls = {ui->spinBox_hands, ui->pushButton_calibration};
    widgets.searchControls = widgets.editControls;
    setTabWidgets(widgets);
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
    const ControllerLink host = link();
    const auto available = host.text("fingertracking available");
    if (!available)
        host.log(QStringLiteral("Error: Unable to get availability of hands"));
    return available == QLatin1String("yes");
}

void FingertrackingAdministration::checkActivateFingertracking()
{
    const QPointer<QWidget> self(this);
    if (!m_available && is_fingertracking_available() && self) {
        registerBodyType(handsType);
        if (!self)
            return;
        registerSpinBox(handsType, ui->spinBox_hands);
        setupTableWidgetData();
        registerTableWidget_tl(handsType, ui->tableWidget_targetlibrary);
        m_available = true;
    }
    if (self && !m_available) {
        ui->label_error->setText(
                tr("<b><font color=red>Fingertracking is not available!</font></b>"));
    }
}

void FingertrackingAdministration::setup_fingertracking_table()
{
    m_columns = {{COLUMN_TYPE_ID, tr("ID")},
                 {COLUMN_TYPE_ACTIVE, tr("Active")},
                 {COLUMN_TYPE_NAME, tr("Name"), false, true},
                 {COLUMN_TYPE_CALIBRATED, tr("Calibration")},
                 {COLUMN_TYPE_DELETE, tr("Delete")},
                 {COLUMN_TYPE_RESET, tr("Reset")}};
    BodyTableFiller::setUp(ui->tableWidget_fingertracking, m_columns);
    ui->tableWidget_fingertracking->setItemDelegateForColumn(m_columns.ofKind(COLUMN_TYPE_NAME),
                                                             m_editDelegate);
}

void FingertrackingAdministration::setupTableWidgetData()
{
    registerTableWidget(handsType, ui->tableWidget_fingertracking, m_columns.kinds(),
                        QStringLiteral("H%1"));
}

void FingertrackingAdministration::set_table_column_size()
{
    BodyTableFiller::sizeColumns(ui->tableWidget_fingertracking, m_columns);
}

void FingertrackingAdministration::update_fingertracking_table()
{
    if (m_available) {
        BodyTableFiller::showLimit(
                ui->label_error, ui->spinBox_hands,
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
    m_refresh.run(this, {[&] { refreshTargets(); }, [&] { checkActivateFingertracking(); },
                         [&] { displayErrorMessage(!m_available); }, [&] { refreshBodies(); }});
}

int FingertrackingAdministration::morvek2_getMaxNumberOfBodies(const QString &type)
{
    return type == handsType ? reader().readMaximum(bodytypes, type) : 0;
}

bool FingertrackingAdministration::morvek2_setNumberOfBodies(const QString &type, int count)
{
    return type == handsType && commands().setCount(type, count);
}

void FingertrackingAdministration::on_tableWidget_fingertracking_itemSelectionChanged()
{
    rowChosen();
}

void FingertrackingAdministration::on_pushButton_calibration_clicked()
{
    requestBodyCalibration();
}

void FingertrackingAdministration::resizeEvent(QResizeEvent *event)
{
    BodyTypeAdministrationTab::resizeEvent(event);
    // The columns are sized for the first time when the first rows exist.
    if (!ui->tableWidget_fingertracking->horizontalHeader()->stretchLastSection())
        set_table_column_size();
}
