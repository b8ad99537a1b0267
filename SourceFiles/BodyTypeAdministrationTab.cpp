#include "BodyTypeAdministrationTab.h"

#include "hostcall.h"
#include "support/modulerequests.h"
#include "support/steps.h"
#include "support/timerpause.h"
#include "targetlibrary.h"
#include "targets/target.h"
#include "waiting.h"

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
      TargetOperations(this, link(), library),
      iom(manager),
      beVers(versions),
      m_module_version(moduleVersion)
{
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
    connect(this, &Tab::selection_changed, this, &Tab::applyPageRules);
}

BodyTypeAdministrationTab::~BodyTypeAdministrationTab()
{
    HostCall::keepWidgetsOf(this);
}

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
    runForEach(this, bodytypes.names(), [this](const QString &type) {
        runSteps(this,
                 {[&] { updateBodyTypeInfo(type); }, [&] { updateNumberOfInertialSensors(type); },
                  [&] { updateTableWidget(type); }});
    });
}

void BodyTypeAdministrationTab::updateBodyTypeInfo(const QString &type)
{
    runSteps(this, {[&] { reader().readBodies(bodytypes, type); },
                    [&] { updateBodyTypeSpinBox(type, false); }});
}

void BodyTypeAdministrationTab::updateBodyTypeSpinBox(const QString &type, bool readMaximum)
{
    if (!bodytypes.type(type).spinBox || (readMaximum && !readLimit(type)))
        return;
    BodyTableFiller::showCount(bodytypes.type(type));
    m_search.setUsable(bodytypes.type(type).spinBox, bodytypes.type(type).isCountRead);
}

bool BodyTypeAdministrationTab::readLimit(const QString &type)
{
    int limit = 0;
    return runSteps(this, {[&] { limit = morvek2_getMaxNumberOfBodies(type); },
                           [&] { bodytypes.setLimit(type, limit); }});
}

void BodyTypeAdministrationTab::updateTableWidget(const QString &type)
{
    const QPointer<QWidget> self(this);
    const bool warmupRuleMet = reader().isWarmupRuleMet();
    if (!self || !bodytypes.type(type).tableWidget)
        return;
    const FillGuard filling = m_input.startFilling();
    const BodyTableFiller filler(m_tableIcons, warmupRuleMet, bodytypes,
                                 BodyTableFiller::Allowed::by(link()));
    filler.fill(type, [this](const QString &cellType, int row, int column, QTableWidgetItem *item) {
        updateTableWidgetCell(cellType, row, column, item);
    });
}

void BodyTypeAdministrationTab::readMissing(bool isLibraryNew)
{
    const ControllerLink host = link();
    for (const QString &type : readMissingOfTypes())
        BodyTableFiller::showFilterColumn(bodytypes.type(type));
    if (!host.isClosed() && isLibraryNew && tabWidgets().category)
        m_targets.renewCategories();
}

void BodyTypeAdministrationTab::refreshBody(const QString &type, int index)
{
    runSteps(this, {[&] { updateBodyInfo(type, index); }, [&] { updateTableWidget(type); },
                    [&] { updateView(); }});
}

void BodyTypeAdministrationTab::update_tab()
{
    const auto readCounts = [this](const QString &type) { updateBodyTypeSpinBox(type, true); };
    runSteps(this, {[&] { runForEach(this, bodytypes.names(), readCounts); },
                    [&] { updateBodyTypesInfo(); }, [&] { limitCurrentBody(current_btype); },
                    [&] { updateView(); }});
}

void BodyTypeAdministrationTab::limitCurrentBody(const QString &type)
{
    if (current_btype == type)
        current_bid = qMin(current_bid, getNumberOfBodies(type) - 1);
}

void BodyTypeAdministrationTab::refreshTargets()
{
    const TabWidgets &widgets = tabWidgets();
    const QPointer<QTableWidget> targets = widgets.targetTable;
    const QPointer<QWidget> self(this);
    selectionTableLeft = qMax(0, widgets.bodyTable->currentRow());
    update_tableWidget_targetlibrary(targets, widgets.type, m_targets.category());
    if (self && targets)
        selectionTableRight = targets->currentRow();
}

void BodyTypeAdministrationTab::refreshBodies()
{
    current_btype = mainBodyType();
    current_bid = selectionTableLeft;
    runSteps(this, {[&] { BodyTypeAdministrationTab::update_tab(); },
                    [&] { setSelectionOfTables(tabWidgets().bodyTable, tabWidgets().targetTable); },
                    [&] { resetSearchWidgets(); }});
}

void BodyTypeAdministrationTab::setSelectionOfTables(QTableWidget *bodyTable, QTableWidget *tlTable)
{
    const QPointer<QWidget> self(this);
    BodyTableFiller::restoreRow(bodyTable, selectionTableLeft);
    if (self)
        BodyTableFiller::restoreRow(tlTable, selectionTableRight,
                                    TargetTableFiller::ShortNameColumn);
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
    runSteps(this, {[&] { setBodyDescription(type, index, name); },
                    [&] { updateTableWidget(type); }, [&] { updateView(); }});
}

void BodyTypeAdministrationTab::takeCount(const QString &type, int count)
{
    runSteps(this, {[&] { setNumberOfBodies(type, count); },
                    [&] { updateCalStatusTablewidgetTl(type); }});
}

void BodyTypeAdministrationTab::editFilter(const QString &type, int index)
{
    if (!getBodyTypeFilter6dAvailable(type) || !isBodyCalibrated(type, index))
        return;
    if (!openFilterDialog(type == QLatin1String("standard") ? 0 : 1, index))
        return;
    runSteps(this,
             {[&] { updateBodyFilter6dPreset(type, index); }, [&] { updateTableWidget(type); }});
}

void BodyTypeAdministrationTab::deleteAndRefresh(const QString &type, int index)
{
    runSteps(this, {[&] { deleteBodyAndUpdateTlCalibratedOfTarget(type, index); },
                    [&] { update_tab(); }});
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
    if (self && count != asked)
        changeCount(type, asked, count);
}

void BodyTypeAdministrationTab::changeCount(const QString &type, int asked, int count)
{
    int accepted = asked;
    runSteps(this, {[&] { accepted = morvek2_setNumberOfBodies(type, count) ? count : asked; },
                    [&] { reader().readBodies(bodytypes, type, asked, accepted); },
                    [&] { updateBodyTypeSpinBox(type, false); },
                    [&] {
                        limitCurrentBody(type);
                        emit selection_changed(current_btype, current_bid);
                    },
                    [&] { updateTableWidget(type); }, [&] { updateView(); }});
}

void BodyTypeAdministrationTab::checkForReferenceDisabeledAndResetIfNec(int &newCount, int oldCount,
                                                                        const QString &type)
{
    // Only the last body is examined, even when several are dropped at once.
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
    runSteps(this, {[&] {
                        if (link().protocolAtLeast(1, 11))
                            morvek2_setBodyActive(type, index, active);
                    },
                    [&] { updateBodyInfo(type, index); }, [&] { updateTableWidget(type); }});
}

void BodyTypeAdministrationTab::setBodyDescription(const QString &type, int index,
                                                   const QString &text)
{
    const QPointer<QWidget> self(this);
    if (link().protocolAtLeast(0, 16))
        morvek2_setBodyDescription(type, index, text);
    if (self)
        updateBodyInfo(type, index);
}

void BodyTypeAdministrationTab::setBodyReference(const QString &type, int index, bool reference)
{
    const bool refused = reference && !isBodyActive(type, index);
    const QPointer<QWidget> self(this);
    if (refused && !m_questions.showInactiveReference(type, index))
        return;
    if (!refused && link().protocolAtLeast(1, 24))
        morvek2_setBodyIsReference(type, index, reference);
    // Another body loses the mark, so that it is not enough to read one body again.
    for (int other = 0; self && !refused && other < getNumberOfBodies(type); ++other)
        updateBodyInfo(type, other);
    if (self)
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
    return runSteps(this,
                    {[&] { updateBodyInfo(type, index); }, [&] { refreshBody(type, otherIndex); }});
}

void BodyTypeAdministrationTab::switchGlobalFilterOn(const QString &type)
{
    const BodyCommands commands = this->commands();
    if (link().protocolAtLeast(1, 12) && !m_is_config_locked && reader().isGlobalFilterOff(type))
        commands.switchGlobalFilterOn(type);
}

// Targets and their assignment

void BodyTypeAdministrationTab::assignTarget()
{
    const Waiting waiting(observer(), Waiting::For::Action, tr("Changing bodies ..."));
    if (!m_flow.choose(tabWidgets()))
        return;
    const AssignmentFlow::Choice choice = m_flow.choice();
    selectionTableLeft = choice.body.index();
    selectionTableRight = choice.targetRow;
    // The list of targets must not change while the following questions are open.
    const TimerPause pause(timerCheckForTracked_tl);
    if (!overwriteBodyCalibration(choice.body.name()) || !m_flow.isChoiceUnchanged()
        || !mayAssignTarget(choice.targetShortName))
        return;
    bool assigned = m_flow.isChoiceUnchanged();
    runSteps(this, {[&] {
                        assigned =
                                assigned
                                && pushButtonSelectClicked(mainBodyType(), tabWidgets().bodyTable,
                                                           tabWidgets().targetTable);
                    },
                    [&] { update_tab(); },
                    [&] {
                        if (assigned)
                            targetAssigned(choice.targetId);
                    }});
}

void BodyTypeAdministrationTab::releaseTarget()
{
    const Waiting waiting(observer(), Waiting::For::Action, tr("Changing bodies ..."));
    if (tabWidgets().bodyTable->currentRow() < 0)
        return;
    runSteps(this, {[&] { pushButtonDeSelectClicked(mainBodyType(), tabWidgets().bodyTable); },
                    [&] { update_tab(); }});
}

void BodyTypeAdministrationTab::deleteBodyAndUpdateTlCalibratedOfTarget(const QString &type,
                                                                        int index)
{
    const BodySnapshot seen(bodytypes, type, index);
    const QPointer<QWidget> self(this);
    const QString held = assignment().targetOfBody(type, index);
    if (!self || !seen.isCurrent(bodytypes))
        return;
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
    const Waiting waiting(observer(), Waiting::For::Refresh, tr("Reading targets ..."));
    runSteps(this, {[&] { m_targets.refreshUsedInCategory(group); },
                    [&] {
                        update_tableWidget_targetlibrary(tabWidgets().targetTable, mainBodyType(),
                                                         m_targets.category());
                    },
                    [&] { rowChosen(); }});
}

// Button rules

bool BodyTypeAdministrationTab::is_filter6d_possible()
{
    const QString type = bodytypes.names().value(0);
    return !m_is_config_locked && getBodyTypeFilter6dAvailable(type)
           && getNumberOfCalibratedBodies(type) > 0 && isBodyCalibrated(type, current_bid);
}

void BodyTypeAdministrationTab::applyPageRules()
{
    m_search.applyPageRules(is_filter6d_possible());
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
    if (changed)
        m_input.discard();
    applyPageRules();
    const auto refill = [this](const QString &type) { updateTableWidget(type); };
    if (changed && isVisible() && runForEach(this, bodytypes.names(), refill))
        updateView();
}

void BodyTypeAdministrationTab::retire()
{
    stopAllTimer();
    for (QTimer *timer : {timerDoMea_tl, timerCheckForTracked_tl})
        timer->disconnect(this);
    m_input.retire();
}

void BodyTypeAdministrationTab::abandon()
{
    retire();
    m_input.discard();
    disconnect();
    m_input.disconnectWidgets(this);
    m_search.disconnectWidgets(this);
    link().close();
}

void BodyTypeAdministrationTab::ON_tableWidget_cellClicked(int row, int column)
{
    runSteps(this, {[&] { m_input.cellClicked(sender(), row, column); },
                    [&] { saveSelectionOfMtTables(); }});
}
