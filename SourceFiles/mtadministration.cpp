#include "mtadministration.h"

#include "ui_mtadministration.h"

#include "bodynumber.h"
#include "editdelegate.h"
#include "support/steps.h"
#include "support/userquestion.h"
#include "targetlibrary.h"

#include <QHeaderView>
#include <QTableWidgetItem>

#include <utility>

using UserQuestion::Answer;

namespace {

const QString toolType = QStringLiteral("measurementtool");
const QString referenceType = QStringLiteral("measurementtool_reference");
const QString referenceIdFormat = QStringLiteral("MR%1");

} // namespace

MtAdministration::MtAdministration(IOManager *manager, QWidget *parent, BackendVersions *versions,
                                   const QString &moduleVersion, Targetlibrary *library)
    : BodyTypeAdministrationTab(manager, parent, versions, moduleVersion, library),
      ui(std::make_unique<Ui::MtAdministrationClass>()),
      m_editDelegate(new EditDelegate(this))
{
    ui->setupUi(this);
    connectComboText(ui->comboBox_filter, this,
                     &MtAdministration::on_comboBox_filter_currentIndexChanged);
    setWhatsThis(tr("Administration of Measurement Tools"));
    TabWidgets widgets = commonTabWidgets(*ui);
    widgets.type = referenceType;
    widgets.bodyTable = ui->tableWidget_ref;
    widgets.category = ui->comboBox_filter;
    widgets.searchControls = {ui->spinBox_mtref, ui->comboBox_filter};
    widgets.editControls = {ui->spinBox_mt, ui->spinBox_mtref};
    setTabWidgets(widgets);
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
    m_toolColumns = {{COLUMN_TYPE_ID, tr("ID")},
                     {COLUMN_TYPE_ACTIVE, tr("Active")},
                     {COLUMN_TYPE_CUSTOM, tr("Reference ID")},
                     {COLUMN_TYPE_CALIBRATED, tr("Calibration"), false, true},
                     {COLUMN_TYPE_DELETE, tr("Delete")},
                     {COLUMN_TYPE_RESET, tr("Reset")}};
    BodyTableFiller::setUp(ui->tableWidget_mt, m_toolColumns);
}

void MtAdministration::setup_ref_table()
{
    m_referenceColumns = {{COLUMN_TYPE_ID, tr("ID")},
                          {COLUMN_TYPE_ACTIVE, tr("Active")},
                          {COLUMN_TYPE_NAME, tr("Name"), false, true},
                          {COLUMN_TYPE_CALIBRATED, tr("Calibration")},
                          {COLUMN_TYPE_DELETE, tr("Delete")},
                          {COLUMN_TYPE_RESET, tr("Reset"), true}};
    BodyTableFiller::setUp(ui->tableWidget_ref, m_referenceColumns);
    ui->tableWidget_ref->setItemDelegateForColumn(m_referenceColumns.ofKind(COLUMN_TYPE_NAME),
                                                  m_editDelegate);
}

void MtAdministration::setupTableWidgetData()
{
    registerTableWidget(toolType, ui->tableWidget_mt, m_toolColumns.kinds(), QStringLiteral("M%1"));
    registerTableWidget(referenceType, ui->tableWidget_ref, m_referenceColumns.kinds(),
                        referenceIdFormat);
}

bool MtAdministration::is_mt_available() const
{
    if (!link().protocolAtLeast(1, 4))
        return false;
    const ControllerLink host = link();
    const auto available = host.text("measurementtool available");
    if (!available)
        host.log(QStringLiteral("Error: Unable to get availability of measurement tools"));
    return available == QLatin1String("yes");
}

void MtAdministration::checkActivateMeasurementtool()
{
    if (m_activated)
        return;
    const QPointer<QWidget> self(this);
    const bool available = is_mt_available();
    if (!self)
        return;
    if (!available) {
        displayErrorMessage(true);
        return;
    }
    m_activated = true;
    if (!runSteps(this, {[&] { registerBodyType(toolType); },
                         [&] { registerSpinBox(toolType, ui->spinBox_mt); },
                         [&] { registerBodyType(referenceType); }}))
        return;
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
    return reader().readMaximum(bodytypes, type);
}

bool MtAdministration::morvek2_setNumberOfBodies(const QString &type, int count)
{
    return commands().setCount(type, count);
}

// Refreshing the page

void MtAdministration::update_mt_table()
{
    if (!m_activated)
        return;
    BodyTableFiller::showLimit(
            ui->label_error, ui->spinBox_mt,
            tr("<b><font color=red>Max. number of Measurement Tools is reached!</font></b>"));
}

void MtAdministration::update_ref_table()
{
    BodyTableFiller::showLimit(
            ui->label_error_ref, ui->spinBox_mtref,
            tr("<b><font color=red>Max. number of Measurement references is reached!"
               "</font></b>"));
}

void MtAdministration::set_table_column_size()
{
    for (const auto &[table, columns] :
         {std::make_pair(ui->tableWidget_mt, &m_toolColumns),
          std::make_pair(ui->tableWidget_ref, &m_referenceColumns)}) {
        if (table->horizontalHeader()->stretchLastSection())
            BodyTableFiller::sizeColumns(table, *columns);
    }
}

void MtAdministration::updateView()
{
    set_table_column_size();
    update_mt_table();
    update_ref_table();
}

void MtAdministration::update_tab()
{
    m_refresh.run(this, {[&] { activateLate(); }, [&] { refreshToolTargets(); },
                         [&] { BodyTypeAdministrationTab::update_tab(); },
                         [&] { restoreSelectionOfMtTables(); }, [&] { resetSearchWidgets(); },
                         [&] { emit selection_changed(current_btype, current_bid); }});
}

void MtAdministration::activateLate()
{
    if (m_activated)
        return;
    runSteps(this,
             {[&] { checkActivateMeasurementtool(); }, [&] { displayErrorMessage(!m_activated); }});
}

void MtAdministration::refreshToolTargets()
{
    const QPointer<QWidget> self(this);
    saveSelectionOfMtTables();
    update_tableWidget_targetlibrary(ui->tableWidget_targetlibrary, toolType, currentGroup());
    if (self && (!isBodyTypeRegistered(current_btype) || current_bid < 0)) {
        current_btype = toolType;
        current_bid = 0;
    }
}

void MtAdministration::saveSelectionOfMtTables()
{
    m_toolRow = ui->tableWidget_mt->currentRow();
    m_referenceRow = ui->tableWidget_ref->currentRow();
}

void MtAdministration::restoreSelectionOfMtTables()
{
    // Restoring a selection must not change the current body.
    const QString type = current_btype;
    const int index = current_bid;
    runSteps(this,
             {[&] { BodyTableFiller::restoreRow(ui->tableWidget_mt, qMax(0, m_toolRow)); },
              [&] { BodyTableFiller::restoreRow(ui->tableWidget_ref, qMax(0, m_referenceRow)); },
              [&] {
                  current_btype = type;
                  current_bid = index;
              }});
}

void MtAdministration::updateTableWidgetCell(const QString &type, int index, int column,
                                             QTableWidgetItem *item)
{
    if (type != toolType || column != m_toolColumns.titled(tr("Reference ID")))
        return;
    if (const auto number = reader().readReferenceOfTool(index))
        item->setText(referenceIdFormat.arg(*number));
}

// Activeness, deleting, assignment

QVector<int> MtAdministration::toolsOfReference(int reference) const
{
    const QString id = referenceIdFormat.arg(reference + 1);
    const int column = m_toolColumns.titled(tr("Reference ID"));
    QVector<int> tools;
    for (int row = 0; row < ui->tableWidget_mt->rowCount(); ++row) {
        const QTableWidgetItem *item = ui->tableWidget_mt->item(row, column);
        if (item && item->text() == id)
            tools.append(row);
    }
    return tools;
}

void MtAdministration::setBodyActive(const QString &type, int index, bool active)
{
    const QVector<int> tools = toolsOfReference(index);
    if (!active && type == referenceType && isBodyCalibrated(type, index) && !tools.isEmpty()) {
        Answer answer =
                questions().confirm(type, index,
                                    tr("After deactivating the reference,\n"
                                       "the corresponding Measurement Tool will not be tracked."),
                                    tr("Continue?"));
        if (answer == Answer::Accepted && !areStillUsing(index, tools))
            answer = Answer::Declined;
        if (answer == Answer::Declined)
            updateTableWidget(referenceType);
        if (answer != Answer::Accepted)
            return;
    }
    BodyTypeAdministrationTab::setBodyActive(type, index, active);
}

bool MtAdministration::deleteBody(const QString &type, int index)
{
    if (type != referenceType)
        return BodyTypeAdministrationTab::deleteBody(type, index);
    if (!bodytypes.hasBody(type, index))
        return false;
    const QVector<int> tools = toolsOfReference(index);
    const QString question =
            tools.isEmpty() ? tr("Delete Measurement Tool reference body %1?")
                            : tr("Delete Measurement Tool reference body %1?\n"
                                 "If yes, the assignment to the Measurement Tool will be deleted.");
    if (questions().confirm(type, index, question.arg(bodyNumber(index)), tr("Continue?"))
                != Answer::Accepted
        || !areStillUsing(index, tools))
        return false;
    const QPointer<QWidget> self(this);
    const bool done = commands().clearToolReference(typeLabel(referenceType), index, tools);
    if (!self
        || (!done
            && !questions().showDeleteFailed(type, index,
                                             tr("Delete body %1 failed").arg(bodyNumber(index)))))
        return false;
    return runSteps(this, {[&] { updateBodyTypesInfo(); }, [&] { updateView(); }}) && done;
}

bool MtAdministration::areStillUsing(int reference, const QVector<int> &tools) const
{
    if (toolsOfReference(reference) == tools)
        return true;
    BodyQuestions::logChanged(link());
    return false;
}

bool MtAdministration::mayAssignTarget(const QString &targetShortName)
{
    return deleteCalibrationStandardTargetIfNeeded(targetShortName);
}

bool MtAdministration::deleteCalibrationStandardTargetIfNeeded(const QString &shortName)
{
    return assignmentFlow().takeFromOtherType(
            QStringLiteral("standard"), shortName,
            tr("This target is already calibrated as standard target ID %1."),
            tr("Delete the standard target ID %1?"));
}

// Categories and selection

void MtAdministration::on_comboBox_filter_currentIndexChanged(const QString &group)
{
    categoryChosen(group);
}

void MtAdministration::on_tableWidget_ref_itemSelectionChanged()
{
    rowChosen();
}
