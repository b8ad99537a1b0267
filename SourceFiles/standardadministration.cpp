#include "standardadministration.h"

#include "ui_standardadministration.h"

#include "editdelegate.h"
#include "support/userquestion.h"
#include "targetlibrary.h"
#include "targets/target.h"

#include <QResizeEvent>
#include <QTableWidgetItem>

using UserQuestion::Answer;

namespace {

const QString standardType = QStringLiteral("standard");

enum StandardColumn {
    IdColumn,
    ActiveColumn,
    ReferenceColumn,
    NameColumn,
    ModelColumn,
    DeviceIdColumn,
    CalibrationColumn,
    FilterColumn,
    DeleteColumn,
    ResetColumn
};

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
    setWhatsThis(tr("Administration of standard bodies"));
    setTabWidgets({standardType,
                   ui->tableWidget_standard,
                   ui->tableWidget_targetlibrary,
                   ui->pushButton_select,
                   ui->pushButton_deselect,
                   ui->pushButton_start,
                   ui->pushButton_stop,
                   ui->progressBar,
                   ui->label_targetlibrary,
                   ui->comboBox_filter,
                   {ui->spinBox_standard_bodies, ui->pushButton_filter,
                    ui->pushButton_customCalibration, ui->comboBox_filter},
                   {ui->spinBox_standard_bodies, ui->pushButton_filter,
                    ui->pushButton_customCalibration}});
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
    QTableWidget *table = ui->tableWidget_standard;
    BodyTableFiller::setUp(table,
                           {tr("ID"), tr("Active"), tr("Reference"), tr("Name"), tr("Model"),
                            tr("Device ID"), tr("Calibration"), tr("Filter"), tr("Delete"),
                            tr("Reset")},
                           NameColumn);
    table->setItemDelegateForColumn(NameColumn, editDelegate);
    table->setColumnHidden(FilterColumn, !m_is_6dof_filter_available);
    registerTableWidget(standardType, table,
                        {COLUMN_TYPE_ID, COLUMN_TYPE_ACTIVE, COLUMN_TYPE_REFERENCE,
                         COLUMN_TYPE_NAME, COLUMN_TYPE_CUSTOM, COLUMN_TYPE_CUSTOM,
                         COLUMN_TYPE_CALIBRATED, COLUMN_TYPE_FILTER, COLUMN_TYPE_DELETE,
                         COLUMN_TYPE_RESET},
                        QStringLiteral("%1"));
}

void StandardAdministration::set_table_column_size()
{
    BodyTableFiller::sizeColumns(ui->tableWidget_standard, NameColumn);
}

void StandardAdministration::update_standard_table()
{
    const bool noSensor = getNumberOfInertialSensors(standardType) == 0;
    ui->tableWidget_standard->setColumnHidden(ModelColumn, noSensor);
    ui->tableWidget_standard->setColumnHidden(DeviceIdColumn, noSensor);
    update_label_error();
    emit selection_changed(current_btype, current_bid);
}

void StandardAdministration::update_label_error()
{
    showLimit(ui->label_error, ui->spinBox_standard_bodies,
              tr("<b><font color=red>Max. number of bodies is reached!</font></b>"));
}

void StandardAdministration::updateView()
{
    update_standard_table();
    update_up_button();
    update_down_button();
}

void StandardAdministration::update_tab()
{
    refreshTargets();
    refreshBodies();
    ui->pushButton_filter->setEnabled(is_filter6d_possible() && !isSearchRunning());
}

void StandardAdministration::setConfigLockedStatus(bool locked)
{
    BodyTypeAdministrationTab::setConfigLockedStatus(locked);
    update_up_button();
    update_down_button();
}

void StandardAdministration::updateTableWidgetCell(const QString &type, int index, int column,
                                                   QTableWidgetItem *item)
{
    if (type != standardType || (column != ModelColumn && column != DeviceIdColumn))
        return;
    const QString sensor = getBodyInertialSensor(type, index);
    if (sensor.isEmpty())
        return;
    if (column == DeviceIdColumn) {
        item->setText(sensor.section(QLatin1Char(' '), 2, 2).remove(QLatin1Char('\'')));
        return;
    }
    const QString key = sensor.section(QLatin1Char(' '), 0, 1);
    const auto model =
            link().text("inertial sensor_model_desc %s", ControllerLink::argument(key).constData());
    item->setText(ControllerLink::withoutDoubleQuotes(model.value_or(QString())));
}

int StandardAdministration::morvek2_getMaxNumberOfBodies(const QString &type)
{
    constexpr int defaultMaximum = 4;
    if (type != standardType)
        return 0;
    return maximumOr(link().count("standard max_number_of_bodies"), defaultMaximum,
                     tr("Error: Unable to get max number of %1 bodies").arg(type));
}

bool StandardAdministration::morvek2_setNumberOfBodies(const QString &type, int count)
{
    if (type != standardType)
        return false;
    const bool done = link().set("standard number_of_bodies %d", count);
    if (!done)
        link().log(tr("Error: Unable to set number of %1 bodies to %2").arg(type).arg(count));
    return done;
}

void StandardAdministration::ON_activeConfigurationChanged()
{
    switchGlobalFilterOn({"standard filter_bodies", "standard filter_bodies yes",
                          tr("Error: Unable to get global filter6d status of standard bodies"),
                          tr("Error: Unable to set global filter6d status of standard bodies")});
}

// Moving bodies

int StandardAdministration::selectedRow() const
{
    const QList<QTableWidgetItem *> selected = ui->tableWidget_standard->selectedItems();
    return selected.isEmpty() ? -1 : selected.first()->row();
}

void StandardAdministration::moveBody(int offset)
{
    const int row = selectedRow();
    const int target = row + offset;
    const QPointer<QWidget> self(this);
    const bool moved = switchBody(standardType, row, target);
    if (!self || !moved)
        return;
    ui->tableWidget_standard->selectRow(target);
    current_bid = target;
    updateBodyTypesInfo();
    update_standard_table();
    emit selection_changed(current_btype, current_bid);
}

void StandardAdministration::on_pushButton_up_clicked()
{
    moveBody(-1);
}

void StandardAdministration::on_pushButton_down_clicked()
{
    moveBody(1);
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
    bodyRowChosen();
}

// Categories

void StandardAdministration::update_comboBox_filter()
{
    fillCategories(ui->comboBox_filter);
}

void StandardAdministration::set_comboBox_filter_to(const QString &group)
{
    selectCategory(group);
}

void StandardAdministration::on_comboBox_filter_currentIndexChanged(const QString &group)
{
    categoryChosen(group);
}

// Activeness and assignment

int StandardAdministration::getReferenceId() const
{
    const QTableWidget *table = ui->tableWidget_standard;
    for (int row = 0; row < table->rowCount(); ++row) {
        const QTableWidgetItem *item = table->item(row, ReferenceColumn);
        if (item && item->checkState() == Qt::Checked)
            return row;
    }
    return -1;
}

void StandardAdministration::setBodyActive(const QString &type, int index, bool active)
{
    const bool disablesReference = !active && type == standardType && index == getReferenceId();
    if (disablesReference) {
        const Answer answer = UserQuestion::yesNo(
                this, tr("MORVEK3"),
                tr("After deactivating the reference target,\nall targets will not be tracked."),
                tr("Continue?"));
        if (answer == Answer::Gone)
            return;
        if (answer == Answer::Declined) {
            updateTableWidget(standardType);
            updateView();
            return;
        }
    }
    BodyTypeAdministrationTab::setBodyActive(type, index, active);
    if (active || type == standardType)
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
    if (shortName.isEmpty())
        return true;
    OtherHolders references;
    references.count = link().count("measurementtool number_of_references").value_or(0);
    references.targetOfBody = [this](int number) {
        return link().text("body targetlib_name measurementtool_reference b%02d", number);
    };
    references.text = tr("This target is already calibrated as Measurement Tool Reference MR%1.");
    references.question = tr("Delete the Measurement Tool Reference MR%1?");
    references.clearBody = [this](int number) {
        if (!link().set("body number_of_marker measurementtool_reference b%.2d 0", number)) {
            link().log(tr("Error: Unable to reset markers of Measurement Tool Reference MR%1")
                               .arg(number));
        }
        if (!link().set("body desc measurementtool_reference b%.2d \"\"", number)) {
            link().log(tr("Error: Unable to reset description of Measurement Tool Reference MR%1")
                               .arg(number));
        }
    };
    return takeTargetFromOthers(shortName, references);
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
    const QPointer<QWidget> self(this);
    openFilterDialog(0, ui->tableWidget_standard->currentRow());
    if (self)
        update_tab();
}

void StandardAdministration::resizeEvent(QResizeEvent *event)
{
    BodyTypeAdministrationTab::resizeEvent(event);
}
