#include "BodyTypeAdministrationTab.h"

#include "linkobserver.h"
#include "support/modulerequests.h"
#include "support/timerpause.h"
#include "targetlibrary.h"
#include "targets/target.h"

#include <QLabel>
#include <QPointer>
#include <QSpinBox>
#include <QTableWidget>
#include <QTimer>

using UserQuestion::Answer;
using Tab = BodyTypeAdministrationTab;

BodyTypeAdministrationTab::BodyTypeAdministrationTab(IOManager *manager, QWidget *parent,
                                                     BackendVersions *versions,
                                                     const QString &moduleVersion,
                                                     Targetlibrary *library)
    : QWidget(parent),
      BodyRecords(ControllerLink(manager, versions, LinkObserver::of(parent))),
      iom(manager),
      beVers(versions),
      m_module_version(moduleVersion),
      targetlib(library),
      timerDoMea_tl(new QTimer(this)),
      timerCheckForTracked_tl(new QTimer(this)),
      m_search(link(), timerDoMea_tl, timerCheckForTracked_tl)
{
    timerDoMea_tl->setObjectName(QStringLiteral("timerDoMea_tl"));
    timerCheckForTracked_tl->setObjectName(QStringLiteral("timerCheckForTracked_tl"));
    connect(timerDoMea_tl, &QTimer::timeout, this, &Tab::doMeasurement_tl);
    connect(timerCheckForTracked_tl, &QTimer::timeout, this, &Tab::updateTrackedAndAcceptStatus_tl);
    const BodyTableInput *input = &m_input;
    connect(input, &BodyTableInput::currentBodyChanged, this, &Tab::takeCurrentBody);
    connect(input, &BodyTableInput::activeToggled, this, &Tab::setBodyActive);
    connect(input, &BodyTableInput::referenceToggled, this, &Tab::setBodyReference);
    connect(input, &BodyTableInput::bodyActedOn, this, &Tab::selection_changed);
    connect(input, &BodyTableInput::nameEntered, this, &Tab::takeName);
    connect(input, &BodyTableInput::countEntered, this, &Tab::takeCount);
    connect(input, &BodyTableInput::filterPressed, this, &Tab::editFilter);
    connect(input, &BodyTableInput::deletePressed, this, &Tab::deleteAndRefresh);
    connect(input, &BodyTableInput::resetPressed, this, &Tab::resetBody);
}

BodyTypeAdministrationTab::~BodyTypeAdministrationTab() = default;

// Registration

void BodyTypeAdministrationTab::registerSpinBox(const QString &type, QSpinBox *spinBox)
{
    bodytypes[type].spinBox = spinBox;
    m_input.watchSpinBox(spinBox);
    connect(spinBox, SIGNAL(valueChanged(int)), this, SLOT(ON_spinBox_valueChanged(int)));
}

void BodyTypeAdministrationTab::registerTableWidget(const QString &type, QTableWidget *table,
                                                    const QVector<COLUMN_TYPE> &columns,
                                                    const QString &idFormat)
{
    AdminBodyType &record = bodytypes[type];
    record.tableWidget = table;
    record.tableWidgetColumns = columns;
    record.tableWidgetColumnIdFormat = idFormat;
    m_input.watchTable(type);
    connect(table, &QTableWidget::cellClicked, this, &Tab::ON_tableWidget_cellClicked);
    connect(table, &QTableWidget::cellDoubleClicked, this, &Tab::ON_tableWidget_cellDoubleClicked);
    connect(table, &QTableWidget::currentItemChanged, this,
            &Tab::ON_tableWidget_currentItemChanged);
    connect(table, &QTableWidget::itemChanged, this, &Tab::ON_tableWidget_itemChanged);
}

// Reading and showing

void BodyTypeAdministrationTab::updateBodyTypesInfo()
{
    const QStringList types = bodytypes.names();
    for (const QString &type : types) {
        updateBodyTypeInfo(type);
        updateNumberOfInertialSensors(type);
        updateTableWidget(type);
    }
}

void BodyTypeAdministrationTab::updateBodyTypeInfo(const QString &type)
{
    reader().readBodies(bodytypes, type);
    updateBodyTypeSpinBox(type, false);
}

void BodyTypeAdministrationTab::updateBodyTypeSpinBox(const QString &type, bool readMaximum)
{
    if (!bodytypes.type(type).spinBox)
        return;
    if (readMaximum)
        bodytypes.setLimit(type, morvek2_getMaxNumberOfBodies(type));
    BodyTableFiller::showCount(bodytypes.type(type));
    m_search.setUsable(bodytypes.type(type).spinBox, bodytypes.type(type).isCountRead);
}

void BodyTypeAdministrationTab::updateTableWidget(const QString &type)
{
    const bool warmupRuleMet = reader().isWarmupRuleMet();
    if (!bodytypes.type(type).tableWidget)
        return;
    const FillGuard filling = m_input.startFilling();
    const BodyTableFiller filler(m_tableIcons, warmupRuleMet,
                                 BodyTableFiller::Allowed::by(link(), m_is_config_locked));
    filler.fill(type, bodytypes.type(type),
                [this](const QString &cellType, int row, int column, QTableWidgetItem *item) {
                    updateTableWidgetCell(cellType, row, column, item);
                });
}

void BodyTypeAdministrationTab::readMissing(bool isLibraryNew)
{
    for (const QString &type : readMissingOfTypes())
        BodyTableFiller::showFilterColumn(bodytypes.type(type));
    if (isLibraryNew && tabWidgets().category)
        m_targets.renewCategories();
}

void BodyTypeAdministrationTab::refreshBody(const QString &type, int index)
{
    updateBodyInfo(type, index);
    updateTableWidget(type);
    updateView();
}

void BodyTypeAdministrationTab::update_tab()
{
    const QStringList types = bodytypes.names();
    for (const QString &type : types)
        updateBodyTypeSpinBox(type, true);
    updateBodyTypesInfo();
    current_bid = qMin(current_bid, getNumberOfBodies(current_btype) - 1);
    updateView();
}

void BodyTypeAdministrationTab::refreshTargets()
{
    const TabWidgets &widgets = tabWidgets();
    selectionTableLeft = qMax(0, widgets.bodyTable->currentRow());
    update_tableWidget_targetlibrary(widgets.targetTable, widgets.type, m_targets.category());
    selectionTableRight = widgets.targetTable->currentRow();
}

void BodyTypeAdministrationTab::refreshBodies()
{
    current_btype = mainBodyType();
    current_bid = selectionTableLeft;
    BodyTypeAdministrationTab::update_tab();
    setSelectionOfTables(tabWidgets().bodyTable, tabWidgets().targetTable);
    resetSearchWidgets();
}

void BodyTypeAdministrationTab::setSelectionOfTables(QTableWidget *bodyTable, QTableWidget *tlTable)
{
    BodyTableFiller::restoreRow(bodyTable, selectionTableLeft);
    BodyTableFiller::restoreRow(tlTable, selectionTableRight, TargetTableFiller::ShortNameColumn);
}

void BodyTypeAdministrationTab::showLimit(QLabel *label, const QSpinBox *spinBox,
                                          const QString &text)
{
    label->setText(spinBox->value() >= spinBox->maximum() ? text : QString());
}

// What the operator wants

void BodyTypeAdministrationTab::takeCurrentBody(const QString &type, int index)
{
    current_btype = type;
    current_bid = index;
    emit selection_changed(type, index);
}

void BodyTypeAdministrationTab::takeName(const QString &type, int index, const QString &name)
{
    setBodyDescription(type, index, name);
    updateTableWidget(type);
    updateView();
}

void BodyTypeAdministrationTab::takeCount(const QString &type, int count)
{
    const QPointer<QWidget> self(this);
    setNumberOfBodies(type, count);
    if (self)
        updateCalStatusTablewidgetTl(type);
}

void BodyTypeAdministrationTab::editFilter(const QString &type, int index)
{
    if (!getBodyTypeFilter6dAvailable(type) || !isBodyCalibrated(type, index))
        return;
    if (!openFilterDialog(type == QLatin1String("standard") ? 0 : 1, index))
        return;
    updateBodyFilter6dPreset(type, index);
    updateTableWidget(type);
}

void BodyTypeAdministrationTab::deleteAndRefresh(const QString &type, int index)
{
    const QPointer<QWidget> self(this);
    deleteBodyAndUpdateTlCalibratedOfTarget(type, index);
    if (self)
        update_tab();
}

void BodyTypeAdministrationTab::requestBodyCalibration()
{
    const int row = tabWidgets().bodyTable->currentRow();
    if (row < 0)
        return;
    window()->hide();
    ModuleRequests(link()).calibrateBody(mainBodyType(), row);
}

// Changing bodies

void BodyTypeAdministrationTab::setNumberOfBodies(const QString &type, int count)
{
    const int asked = getNumberOfBodies(type);
    if (!isBodyTypeRegistered(type) || count == asked)
        return;
    const QPointer<QWidget> self(this);
    checkForReferenceDisabeledAndResetIfNec(count, asked, type);
    if (!self || count == asked)
        return;
    const int accepted = morvek2_setNumberOfBodies(type, count) ? count : asked;
    reader().readBodies(bodytypes, type, asked, accepted);
    updateBodyTypeSpinBox(type, false);
    if (current_btype == type)
        current_bid = qMin(current_bid, getNumberOfBodies(type) - 1);
    emit selection_changed(current_btype, current_bid);
    updateTableWidget(type);
    updateView();
}

void BodyTypeAdministrationTab::checkForReferenceDisabeledAndResetIfNec(int &newCount, int oldCount,
                                                                        const QString &type)
{
    // Only the last body is examined, also when several are dropped at once.
    if (type != QLatin1String("standard") || newCount >= oldCount
        || !getBodyIsReference(type, oldCount - 1)
        || m_questions.confirmReferenceDropped(type, oldCount - 1) != Answer::Declined)
        return;
    newCount = oldCount;
    updateBodyTypeSpinBox(type, false);
}

void BodyTypeAdministrationTab::setBodyActive(const QString &type, int index, bool active)
{
    if (!bodytypes.hasBody(type, index))
        return;
    if (link().protocolAtLeast(1, 11))
        morvek2_setBodyActive(type, index, active);
    updateBodyInfo(type, index);
    updateTableWidget(type);
}

void BodyTypeAdministrationTab::setBodyDescription(const QString &type, int index,
                                                   const QString &text)
{
    if (link().protocolAtLeast(0, 16))
        morvek2_setBodyDescription(type, index, text);
    updateBodyInfo(type, index);
}

void BodyTypeAdministrationTab::setBodyReference(const QString &type, int index, bool reference)
{
    const bool refused = reference && !isBodyActive(type, index);
    if (refused && !m_questions.showInactiveReference())
        return;
    if (!refused && link().protocolAtLeast(1, 24))
        morvek2_setBodyIsReference(type, index, reference);
    // Another body loses the mark, so one body read again would not do.
    for (int other = 0; !refused && other < getNumberOfBodies(type); ++other)
        updateBodyInfo(type, other);
    updateTableWidget(type);
}

bool BodyTypeAdministrationTab::refreshAfter(const QString &type, int index,
                                             BodyActions::Outcome outcome)
{
    if (outcome != BodyActions::Outcome::Left)
        refreshBody(type, index);
    return outcome == BodyActions::Outcome::Done;
}

bool BodyTypeAdministrationTab::switchBody(const QString &type, int index, int otherIndex)
{
    if (m_actions.exchange(type, index, otherIndex) != BodyActions::Outcome::Done)
        return false;
    updateBodyInfo(type, index);
    refreshBody(type, otherIndex);
    return true;
}

void BodyTypeAdministrationTab::switchGlobalFilterOn(const QString &type)
{
    if (link().protocolAtLeast(1, 12) && !m_is_config_locked && reader().isGlobalFilterOff(type))
        commands().switchGlobalFilterOn(type);
}

// Targets and their assignment

void BodyTypeAdministrationTab::on_pushButton_select_clicked()
{
    if (!m_flow.choose(tabWidgets()))
        return;
    const AssignmentFlow::Choice choice = m_flow.choice();
    selectionTableLeft = choice.body.index();
    selectionTableRight = choice.targetRow;
    // The list of targets must not change under the questions that follow.
    const TimerPause pause(timerCheckForTracked_tl);
    if (!overwriteBodyCalibration(choice.body.name()) || !m_flow.isChoiceUnchanged()
        || !mayAssignTarget(choice.targetShortName))
        return;
    const bool assigned = m_flow.isChoiceUnchanged()
                          && pushButtonSelectClicked(mainBodyType(), tabWidgets().bodyTable,
                                                     tabWidgets().targetTable);
    update_tab();
    if (assigned)
        targetAssigned(choice.targetId);
}

void BodyTypeAdministrationTab::on_pushButton_deselect_clicked()
{
    if (tabWidgets().bodyTable->currentRow() < 0)
        return;
    const QPointer<QWidget> self(this);
    pushButtonDeSelectClicked(mainBodyType(), tabWidgets().bodyTable);
    if (self)
        update_tab();
}

void BodyTypeAdministrationTab::pushButtonDeSelectClicked(const QString &type,
                                                          QTableWidget *bodyTable)
{
    if (bodyTable->currentRow() >= 0)
        deleteBodyAndUpdateTlCalibratedOfTarget(type, bodyTable->currentRow());
}

void BodyTypeAdministrationTab::deleteBodyAndUpdateTlCalibratedOfTarget(const QString &type,
                                                                        int index)
{
    const QString held = m_assignment.targetOfBody(type, index);
    const QPointer<QWidget> self(this);
    deleteBody(type, index);
    if (self && !held.isEmpty() && held != QLatin1String("none"))
        updateTlCalibratedOfTarget(targetlib->getTidFromShortname(held));
}

void BodyTypeAdministrationTab::updateCalStatusTablewidgetTl(const QString &type)
{
    QTableWidget *own = bodytypes.type(type).tableWidget_tl;
    if (QTableWidget *table = own ? own : tabWidgets().targetTable)
        m_targets.refreshUsed(table, type);
}

void BodyTypeAdministrationTab::categoryChosen(const QString &group)
{
    m_targets.refreshUsedInCategory(group);
    update_tableWidget_targetlibrary(tabWidgets().targetTable, mainBodyType(),
                                     m_targets.category());
    rowChosen();
}

// Search run

void BodyTypeAdministrationTab::on_pushButton_start_clicked()
{
    if (tabWidgets().category)
        set_comboBox_filter_to(TargetTableFiller::foundTargets());
    if (!m_search.canStart())
        return;
    m_search.showRunning();
    activate_pushButton_start();
    activate_pushButton_stop();
    enableControls(false);
    m_search.start();
}

void BodyTypeAdministrationTab::on_pushButton_stop_clicked()
{
    m_search.cancel();
    m_search.showIdle();
    const QPointer<QWidget> self(this);
    showMessageFoundTargets_tl(numTracked_tl);
    if (self)
        m_search.startTracking();
}

void BodyTypeAdministrationTab::doMeasurement_tl()
{
    const TargetSearchRun::Step step = m_search.poll();
    if (step == TargetSearchRun::Step::Searching)
        return updateTrackedAndAcceptStatus_tl();
    const QPointer<QWidget> self(this);
    if (step == TargetSearchRun::Step::Ended)
        showMessageFoundTargets_tl(numTracked_tl = getTrackedTargets());
    if (!self)
        return;
    m_search.showIdle();
    m_search.startTracking();
}

void BodyTypeAdministrationTab::updateTrackedAndAcceptStatus_tl()
{
    int alreadyUsed = 0;
    if (m_targets.showsFoundTargets()) {
        updateTlTrackedStatus(mainBodyType());
        update_tableWidget_targetlibrary(tabWidgets().targetTable, mainBodyType(),
                                         TargetTableFiller::foundTargets());
    }
    do_updateTrackedAndAcceptStatus_tl(tabWidgets().targetTable, numTracked_tl, alreadyUsed);
    m_search.showCounts(numTracked_tl, alreadyUsed);
}

// Button rules

bool BodyTypeAdministrationTab::is_filter6d_possible()
{
    const QString type = bodytypes.names().value(0);
    return !m_is_config_locked && getBodyTypeFilter6dAvailable(type)
           && getNumberOfCalibratedBodies(type) > 0 && isBodyCalibrated(type, current_bid);
}

bool BodyTypeAdministrationTab::is_hybridbodycalibration_possible()
{
    return !m_is_config_locked && isBodyActive(current_btype, current_bid)
           && isBodyCalibrated(current_btype, current_bid)
           && !getBodyInertialSensor(current_btype, current_bid).isEmpty()
           && is_hybridbodycalibration_available(current_btype, current_bid);
}

void BodyTypeAdministrationTab::setConfigLockedStatus(bool locked)
{
    const bool changed = locked != m_is_config_locked;
    m_is_config_locked = locked;
    bodytypes.setLocked(locked);
    m_search.setConfigLocked(locked);
    if (!changed || !isVisible())
        return;
    const QStringList types = bodytypes.names();
    for (const QString &type : types)
        updateTableWidget(type);
    updateView();
}

void BodyTypeAdministrationTab::ON_tableWidget_cellClicked(int row, int column)
{
    m_input.cellClicked(sender(), row, column);
    saveSelectionOfMtTables();
}
