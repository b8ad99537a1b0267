#include "mtadministration.h"

#include "ui_mtadministration.h"

#include "bodynumber.h"
#include "editdelegate.h"
#include "support/userquestion.h"
#include "targetlibrary.h"

#include <QTableWidgetItem>

using UserQuestion::Answer;

namespace {

const QString toolType = QStringLiteral("measurementtool");
const QString referenceType = QStringLiteral("measurementtool_reference");
const QString referenceIdFormat = QStringLiteral("MR%1");

enum ToolColumn {
    ToolIdColumn,
    ToolActiveColumn,
    ToolReferenceColumn,
    ToolCalibrationColumn,
    ToolDeleteColumn,
    ToolResetColumn
};

enum ReferenceColumn {
    ReferenceIdColumn,
    ReferenceActiveColumn,
    ReferenceNameColumn,
    ReferenceCalibrationColumn,
    ReferenceDeleteColumn,
    ReferenceResetColumn
};

void restoreRow(QTableWidget *table, int row)
{
    const int existing = qMin(row, table->rowCount() - 1);
    if (existing >= 0 && existing != table->currentRow())
        table->setCurrentCell(existing, qMax(0, table->currentColumn()));
}

} // namespace

MtAdministration::MtAdministration(IOManager *manager, QWidget *parent, BackendVersions *versions,
                                   const QString &moduleVersion, Targetlibrary *library)
    : BodyTypeAdministrationTab(manager, parent, versions, moduleVersion, library),
      ui(std::make_unique<Ui::MtAdministrationClass>()),
      m_editDelegate(new EditDelegate(this))
{
    ui->setupUi(this);
    setWhatsThis(tr("Administration of Measurement Tools"));
    setTabWidgets({referenceType,
                   ui->tableWidget_ref,
                   ui->tableWidget_targetlibrary,
                   ui->pushButton_select,
                   ui->pushButton_deselect,
                   ui->pushButton_start,
                   ui->pushButton_stop,
                   ui->progressBar,
                   ui->label_targetlibrary,
                   ui->comboBox_filter,
                   {ui->spinBox_mtref, ui->comboBox_filter},
                   {ui->spinBox_mt, ui->spinBox_mtref}});
    setup_mt_table();
    setup_ref_table();
    setup_tableWidget_targetlibrary(ui->tableWidget_targetlibrary);
    update_comboBox_filter();
    checkActivateMeasurementtool();
}

MtAdministration::~MtAdministration() = default;

QString MtAdministration::getTabTitle()
{
    return tr("&Measurement Tool");
}

bool MtAdministration::isAvailable()
{
    return true;
}

bool MtAdministration::is_bodyadjustment_possible()
{
    return m_activated && BodyTypeAdministrationTab::is_bodyadjustment_possible();
}

int MtAdministration::getCurrentBodyindex()
{
    return current_bid;
}

// Set-up and availability

void MtAdministration::setup_mt_table()
{
    BodyTableFiller::setUp(ui->tableWidget_mt,
                           {tr("ID"), tr("Active"), tr("Reference ID"), tr("Calibration"),
                            tr("Delete"), tr("Reset")},
                           ToolCalibrationColumn);
}

void MtAdministration::setup_ref_table()
{
    BodyTableFiller::setUp(
            ui->tableWidget_ref,
            {tr("ID"), tr("Active"), tr("Name"), tr("Calibration"), tr("Delete"), tr("Reset")},
            ReferenceNameColumn);
    ui->tableWidget_ref->setColumnHidden(ReferenceResetColumn, true);
    ui->tableWidget_ref->setItemDelegateForColumn(ReferenceNameColumn, m_editDelegate);
}

void MtAdministration::setupTableWidgetData()
{
    registerTableWidget(toolType, ui->tableWidget_mt,
                        {COLUMN_TYPE_ID, COLUMN_TYPE_ACTIVE, COLUMN_TYPE_CUSTOM,
                         COLUMN_TYPE_CALIBRATED, COLUMN_TYPE_DELETE, COLUMN_TYPE_RESET},
                        QStringLiteral("M%1"));
    registerTableWidget(referenceType, ui->tableWidget_ref,
                        {COLUMN_TYPE_ID, COLUMN_TYPE_ACTIVE, COLUMN_TYPE_NAME,
                         COLUMN_TYPE_CALIBRATED, COLUMN_TYPE_DELETE, COLUMN_TYPE_RESET},
                        referenceIdFormat);
}

bool MtAdministration::is_mt_available() const
{
    if (!link().protocolAtLeast(1, 4))
        return false;
    const auto available = link().text("measurementtool available");
    if (!available)
        link().log(tr("Error: Unable to get availability of measurement tools"));
    return available == QLatin1String("yes");
}

void MtAdministration::checkActivateMeasurementtool()
{
    if (m_activated)
        return;
    if (!is_mt_available()) {
        displayErrorMessage(true);
        return;
    }
    m_activated = true;
    registerBodyType(toolType);
    registerSpinBox(toolType, ui->spinBox_mt);
    registerBodyType(referenceType);
    registerSpinBox(referenceType, ui->spinBox_mtref);
    setupTableWidgetData();
    registerTableWidget_tl(toolType, ui->tableWidget_targetlibrary);
}

void MtAdministration::displayErrorMessage(bool unavailable)
{
    ui->contents->setVisible(!unavailable);
    ui->label_error->setText(
            unavailable ? tr("<b><font color=red>Measurement Tool is not available!</font></b>")
                        : QString());
}

int MtAdministration::morvek2_getMaxNumberOfBodies(const QString &type)
{
    constexpr int defaultMaximum = 4;
    std::optional<int> maximum;
    if (type == toolType)
        maximum = link().count("measurementtool max_number_of_tools");
    else if (type == referenceType)
        maximum = link().count("measurementtool max_number_of_references");
    return maximumOr(maximum, defaultMaximum,
                     tr("Error: Unable to get max number of %1 bodies").arg(type));
}

bool MtAdministration::morvek2_setNumberOfBodies(const QString &type, int count)
{
    const bool done = type == toolType
                              ? link().set("measurementtool number_of_tools %d", count)
                              : link().set("measurementtool number_of_references %d", count);
    if (!done)
        link().log(tr("Error: Unable to set number of %1 bodies to %2").arg(type).arg(count));
    return done;
}

// Refreshing the page

void MtAdministration::update_mt_table()
{
    if (!m_activated)
        return;
    showLimit(ui->label_error, ui->spinBox_mt,
              tr("<b><font color=red>Max. number of Measurement Tools is reached!</font></b>"));
}

void MtAdministration::update_ref_table()
{
    showLimit(ui->label_error_ref, ui->spinBox_mtref,
              tr("<b><font color=red>Max. number of Measurement references is reached!"
                 "</font></b>"));
}

void MtAdministration::updateView()
{
    update_mt_table();
    update_ref_table();
}

void MtAdministration::update_tab()
{
    if (!m_activated) {
        checkActivateMeasurementtool();
        displayErrorMessage(!m_activated);
    }
    saveSelectionOfMtTables();
    update_tableWidget_targetlibrary(ui->tableWidget_targetlibrary, toolType, currentGroup());
    if (!isBodyTypeRegistered(current_btype) || current_bid < 0) {
        current_btype = toolType;
        current_bid = 0;
    }
    BodyTypeAdministrationTab::update_tab();
    restoreSelectionOfMtTables();
    resetSearchWidgets();
    emit selection_changed(current_btype, current_bid);
}

void MtAdministration::saveSelectionOfMtTables()
{
    m_toolRow = ui->tableWidget_mt->currentRow();
    m_referenceRow = ui->tableWidget_ref->currentRow();
}

void MtAdministration::restoreSelectionOfMtTables()
{
    // Restoring a selection is no choice of a current body.
    const QString type = current_btype;
    const int index = current_bid;
    restoreRow(ui->tableWidget_mt, qMax(0, m_toolRow));
    restoreRow(ui->tableWidget_ref, qMax(0, m_referenceRow));
    current_btype = type;
    current_bid = index;
}

void MtAdministration::updateTableWidgetCell(const QString &type, int index, int column,
                                             QTableWidgetItem *item)
{
    if (type != toolType || column != ToolReferenceColumn)
        return;
    const auto reference = link().text("measurementtool reference_of_tool b%2.2d", index + 1);
    if (!reference) {
        link().log(tr("Error: Unable to get reference of measurement tool M%1").arg(index + 1));
        return;
    }
    bool isNumber = false;
    const int number = reference->mid(1).toInt(&isNumber);
    if (*reference != QLatin1String("none") && isNumber)
        item->setText(referenceIdFormat.arg(number));
}

// Activeness, deleting, assignment

QVector<int> MtAdministration::toolsOfReference(int reference) const
{
    const QString id = referenceIdFormat.arg(reference + 1);
    QVector<int> tools;
    for (int row = 0; row < ui->tableWidget_mt->rowCount(); ++row) {
        const QTableWidgetItem *item = ui->tableWidget_mt->item(row, ToolReferenceColumn);
        if (item && item->text() == id)
            tools.append(row);
    }
    return tools;
}

void MtAdministration::setBodyActive(const QString &type, int index, bool active)
{
    const bool stopsTool = !active && type == referenceType && isBodyCalibrated(type, index)
                           && !toolsOfReference(index).isEmpty();
    if (stopsTool) {
        const Answer answer =
                UserQuestion::yesNo(this, tr("MORVEK3"),
                                    tr("After deactivating the reference,\n"
                                       "the corresponding Measurement Tool will not be tracked."),
                                    tr("Continue?"));
        if (answer == Answer::Declined)
            updateTableWidget(referenceType);
        if (answer != Answer::Accepted || index >= getNumberOfBodies(type))
            return;
    }
    BodyTypeAdministrationTab::setBodyActive(type, index, active);
}

bool MtAdministration::deleteBody(const QString &type, int index)
{
    if (type != referenceType)
        return BodyTypeAdministrationTab::deleteBody(type, index);
    if (index < 0 || index >= getNumberOfBodies(type))
        return false;
    const QVector<int> tools = toolsOfReference(index);
    const QString question =
            tools.isEmpty() ? tr("Delete Measurement Tool reference body %1?")
                            : tr("Delete Measurement Tool reference body %1?\n"
                                 "If yes, the assignment to the Measurement Tool will be deleted.");
    if (UserQuestion::yesNo(this, tr("MORVEK3"), question.arg(bodyNumber(index)), tr("Continue?"))
        != Answer::Accepted)
        return false;
    // What the tables show may have changed while the question stood.
    if (index >= getNumberOfBodies(type))
        return false;
    const bool done = clearReference(index, toolsOfReference(index));
    if (!done
        && !UserQuestion::warning(this, tr("Warning"),
                                  tr("Delete body %1 failed").arg(bodyNumber(index))))
        return false;
    updateBodyTypesInfo();
    updateView();
    return done;
}

bool MtAdministration::clearReference(int index, const QVector<int> &tools)
{
    const int number = index + 1;
    if (!link().set("body number_of_marker measurementtool_reference b%.2d 0", number)) {
        link().log(tr("Error: Unable to reset markers of %1 %2")
                           .arg(typeLabel(referenceType), bodyNumber(index)));
        return false;
    }
    bool done = true;
    if (!link().set("body desc %s b%.2d \"\"", ControllerLink::argument(referenceType).constData(),
                    number)) {
        link().log(tr("Unable to reset description of %1 %2")
                           .arg(typeLabel(referenceType), bodyNumber(index)));
        done = false;
    }
    // The geometry is gone, so no tool may go on referring to it, whatever became of the name.
    for (int tool : tools) {
        if (!link().set("measurementtool reference_of_tool b%2.2d none", tool + 1)) {
            link().log(tr("Error: Unable to set ref. body"));
            done = false;
        }
    }
    return done;
}

bool MtAdministration::mayAssignTarget(const QString &targetShortName)
{
    return deleteCalibrationStandardTargetIfNeeded(targetShortName);
}

bool MtAdministration::deleteCalibrationStandardTargetIfNeeded(const QString &shortName)
{
    if (shortName.isEmpty())
        return true;
    OtherHolders bodies;
    bodies.count = link().count("standard number_of_bodies").value_or(0);
    bodies.targetOfBody = [this](int number) {
        return link().text("body targetlib_name standard b%02d", number);
    };
    bodies.text = tr("This target is already calibrated as standard target ID %1.");
    bodies.question = tr("Delete the standard target ID %1?");
    bodies.clearBody = [this](int number) {
        if (!link().set("body filter6d_preset standard b%.2d preset6d_default", number))
            link().log(tr("Error: Unable to reset filter6d of standard target ID %1").arg(number));
        if (!link().set("body number_of_marker standard b%.2d 0", number))
            link().log(tr("Error: Unable to reset markers of standard target ID %1").arg(number));
        if (!link().set("body desc standard b%.2d \"\"", number)) {
            link().log(
                    tr("Error: Unable to reset description of standard target ID %1").arg(number));
        }
    };
    return takeTargetFromOthers(shortName, bodies);
}

// Categories and selection

void MtAdministration::update_comboBox_filter()
{
    fillCategories(ui->comboBox_filter);
}

void MtAdministration::set_comboBox_filter_to(const QString &group)
{
    selectCategory(group);
}

void MtAdministration::on_comboBox_filter_currentIndexChanged(const QString &group)
{
    categoryChosen(group);
}

void MtAdministration::on_tableWidget_ref_itemSelectionChanged()
{
    bodyRowChosen();
}
