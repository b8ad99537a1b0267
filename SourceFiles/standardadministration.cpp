#include "standardadministration.h"

#include "ui_standardadministration.h"

#include "editdelegate.h"
#include "support/steps.h"
#include "support/userquestion.h"
#include "targetlibrary.h"
#include "targets/target.h"
#include "waiting.h"

#include <QHeaderView>
#include <QResizeEvent>
#include <QTableWidgetItem>

using UserQuestion::Answer;

namespace {

const QString standardType = QStringLiteral("standard");

} // namespace

StandardAdministration::StandardAdministration(IOManager *manager, QWidget *parentWidget,
                                               BackendVersions *versions,
                                               const QString &moduleVersion, Targetlibrary *library)
    : BodyTypeAdministrationTab(manager, parentWidget, versions, moduleVersion, library),
      ui(std::make_unique<Ui_StandardAdministrationClass>()),
      parent(parentWidget),
      editDelegate(new EditDelegate(this))
{
    ui->setupUi(this);
    // A button of the dialog has the same text and access key, and an access key of two buttons
    // presses neither.
    ui->pushButton_filter->setShortcut(QKeySequence());
    connectComboText(ui->comboBox_filter, this,
                     &StandardAdministration::on_comboBox_filter_currentIndexChanged);
    setWhatsThis(tr("Administration of standard bodies"));
    TabWidgets widgets = commonTabWidgets(*ui);
    widgets.type = standardType;
    widgets.bodyTable = ui->tableWidget_standard;
    widgets.filter = ui->pushButton_filter;
    widgets.calibration = ui->pushButton_customCalibration;
    widgets.category = ui->comboBox_filter;
    widgets.editControls = {ui->spinBox_standard_bodies, ui->pushButton_filter,
                            ui->pushButton_customCalibration};
    widgets.searchControls = widgets.editControls + QVector<QWidget *>{ui->comboBox_filter};
    setTabWidgets(widgets);
    registerBodyType(standardType);
    registerSpinBox(standardType, ui->spinBox_standard_bodies);
    registerComboBox(standardType, ui->comboBox_filter);
    m_is_6dof_filter_available = getBodyTypeFilter6dAvailable(standardType);
    setup_standard_table();
    setup_tableWidget_targetlibrary(ui->tableWidget_targetlibrary);
    registerTableWidget_tl(standardType, ui->tableWidget_targetlibrary);
    selectedRowTl = ui->tableWidget_targetlibrary->currentRow();
    update_comboBox_filter();
    numTracked_tl = 0;
}

StandardAdministration::~StandardAdministration() = default;

QString StandardAdministration::getTabTitle()
{
    return tr("&Standard");
}

bool StandardAdministration::isAvailable()
{
    return true;
}

int StandardAdministration::getCurrentBodyindex()
{
    return ui->tableWidget_standard->currentRow();
}

void StandardAdministration::setup_standard_table()
{
    m_columns = {{COLUMN_TYPE_ID, tr("ID")},
                 {COLUMN_TYPE_ACTIVE, tr("Active")},
                 {COLUMN_TYPE_REFERENCE, tr("Reference")},
                 {COLUMN_TYPE_NAME, tr("Name"), false, true},
                 {COLUMN_TYPE_CUSTOM, tr("Model")},
                 {COLUMN_TYPE_CUSTOM, tr("Device ID")},
                 {COLUMN_TYPE_CALIBRATED, tr("Calibration")},
                 {COLUMN_TYPE_FILTER, tr("Filter"), !m_is_6dof_filter_available},
                 {COLUMN_TYPE_DELETE, tr("Delete")},
                 {COLUMN_TYPE_RESET, tr("Reset")}};
    BodyTableFiller::setUp(ui->tableWidget_standard, m_columns);
    ui->tableWidget_standard->setItemDelegateForColumn(m_columns.ofKind(COLUMN_TYPE_NAME),
                                                       editDelegate);
    registerTableWidget(standardType, ui->tableWidget_standard, m_columns.kinds(),
                        QStringLiteral("%1"));
}

void StandardAdministration::set_table_column_size()
{
    BodyTableFiller::sizeColumns(ui->tableWidget_standard, m_columns);
}

void StandardAdministration::update_standard_table()
{
    const bool noSensor = getNumberOfInertialSensors(standardType) == 0;
    ui->tableWidget_standard->setColumnHidden(m_columns.titled(tr("Model")), noSensor);
    ui->tableWidget_standard->setColumnHidden(m_columns.titled(tr("Device ID")), noSensor);
    if (ui->tableWidget_standard->horizontalHeader()->stretchLastSection())
        set_table_column_size();
    update_label_error();
    emit selection_changed(current_btype, current_bid);
}

void StandardAdministration::update_label_error()
{
    BodyTableFiller::showLimit(
            ui->label_error, ui->spinBox_standard_bodies,
            tr("<b><font color=red>Max. number of bodies is reached!</font></b>"));
}

void StandardAdministration::updateView()
{
    runSteps(this, {[&] { update_standard_table(); }, [&] { update_up_button(); },
                    [&] { update_down_button(); }});
}

void StandardAdministration::update_tab()
{
    m_refresh.run(this, {[&] { refreshTargets(); }, [&] { refreshBodies(); }});
}

void StandardAdministration::setConfigLockedStatus(bool locked)
{
    runSteps(this, {[&] { BodyTypeAdministrationTab::setConfigLockedStatus(locked); },
                    [&] { update_up_button(); }, [&] { update_down_button(); }});
}

void StandardAdministration::updateTableWidgetCell(const QString &type, int index, int column,
                                                   QTableWidgetItem *item)
{
    const QString sensor = getBodyInertialSensor(type, index);
    if (type != standardType || sensor.isEmpty())
        return;
    if (column == m_columns.titled(tr("Model")))
        item->setText(reader().readSensorModel(sensor));
    else if (column == m_columns.titled(tr("Device ID")))
        item->setText(sensor.section(QLatin1Char(' '), 2, 2).remove(QLatin1Char('\'')));
}

int StandardAdministration::morvek2_getMaxNumberOfBodies(const QString &type)
{
    return type == standardType ? reader().readMaximum(bodytypes, type) : 0;
}

bool StandardAdministration::morvek2_setNumberOfBodies(const QString &type, int count)
{
    return type == standardType && commands().setCount(type, count);
}

void StandardAdministration::ON_activeConfigurationChanged()
{
    switchGlobalFilterOn(standardType);
}

// Moving bodies

int StandardAdministration::selectedRow() const
{
    const QList<QTableWidgetItem *> selected = ui->tableWidget_standard->selectedItems();
    return selected.isEmpty() ? -1 : selected.first()->row();
}

void StandardAdministration::moveBody(int offset)
{
    const Waiting waiting(observer(), Waiting::For::Action, tr("Changing bodies ..."));
    const int row = selectedRow();
    const int target = row + offset;
    const QPointer<QWidget> self(this);
    const bool moved = switchBody(standardType, row, target);
    if (!self || !moved)
        return;
    runSteps(this, {[&] { ui->tableWidget_standard->selectRow(target); },
                    [&] {
                        current_bid = target;
                        updateBodyTypesInfo();
                    },
                    [&] { update_standard_table(); },
                    [&] { emit selection_changed(current_btype, current_bid); }});
}

void StandardAdministration::on_pushButton_up_clicked()
{
    perform([this] { moveBody(-1); });
}

void StandardAdministration::on_pushButton_down_clicked()
{
    perform([this] { moveBody(1); });
}

void StandardAdministration::update_up_button()
{
    ui->pushButton_up->setEnabled(!m_is_config_locked && selectedRow() > 0);
}

void StandardAdministration::update_down_button()
{
    const int row = selectedRow();
    ui->pushButton_down->setEnabled(!m_is_config_locked && row >= 0
                                    && row < ui->tableWidget_standard->rowCount() - 1);
}

void StandardAdministration::on_tableWidget_standard_itemSelectionChanged()
{
    update_up_button();
    update_down_button();
    rowChosen();
}

// Categories

void StandardAdministration::on_comboBox_filter_currentIndexChanged(const QString &group)
{
    categoryChosen(group);
}

// Activeness and assignment

int StandardAdministration::getReferenceId() const
{
    const QTableWidget *table = ui->tableWidget_standard;
    for (int row = 0; row < table->rowCount(); ++row) {
        const QTableWidgetItem *item = table->item(row, m_columns.ofKind(COLUMN_TYPE_REFERENCE));
        if (item && item->checkState() == Qt::Checked)
            return row;
    }
    return -1;
}

void StandardAdministration::setBodyActive(const QString &type, int index, bool active)
{
    const bool disablesReference = !active && type == standardType && index == getReferenceId();
    if (disablesReference) {
        const Answer answer = questions().confirm(
                type, index,
                tr("After deactivating the reference target,\nall targets will not be tracked."),
                tr("Continue?"));
        if (answer == Answer::Gone)
            return;
        if (answer == Answer::Declined) {
            runSteps(this, {[&] { updateTableWidget(standardType); }, [&] { updateView(); }});
            return;
        }
    }
    const QPointer<QWidget> self(this);
    BodyTypeAdministrationTab::setBodyActive(type, index, active);
    if (self && (active || type == standardType))
        update_label_error();
}

bool StandardAdministration::mayAssignTarget(const QString &targetShortName)
{
    return deleteCalibrationMeatoolReferenceIfNeeded(targetShortName);
}

void StandardAdministration::targetAssigned(const QString &targetId)
{
    warnforRecalibrationIfGlassesTarget(targetId);
}

bool StandardAdministration::deleteCalibrationMeatoolReferenceIfNeeded(const QString &shortName)
{
    return assignmentFlow().takeFromOtherType(
            QStringLiteral("measurementtool_reference"), shortName,
            tr("This target is already calibrated as Measurement Tool Reference MR%1."),
            tr("Delete the Measurement Tool Reference MR%1?"));
}

void StandardAdministration::warnforRecalibrationIfGlassesTarget(const QString &targetId)
{
    const QString group = targetlib->getGroupFromTid(targetId);
    if (group != QLatin1String("Glasses Target") && group != QLatin1String("HMD Target"))
        return;
    UserQuestion::warning(this, tr("Warning"),
                          tr("%1 can bend\ntherefore a re-calibration is strongly recommended!")
                                          .arg(targetlib->getLongNameFromTid(targetId))
                                  + tr("\n\n(To avoid any changes of the geometry,\n"
                                       "mount the target to the device prior to re-calibration)"));
}

void StandardAdministration::on_pushButton_customCalibration_clicked()
{
    requestBodyCalibration();
}

void StandardAdministration::on_pushButton_filter_clicked()
{
    perform([this] {
        if (openFilterDialog(0, getCurrentBodyindex()))
            update_tab();
    });
}

void StandardAdministration::resizeEvent(QResizeEvent *event)
{
    BodyTypeAdministrationTab::resizeEvent(event);
}
