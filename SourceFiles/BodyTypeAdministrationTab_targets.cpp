// The target table of a tab, the assignment of its targets and the search for them.

#include "BodyTypeAdministrationTab.h"
#include "bodynumber.h"
#include "support/timerpause.h"
#include "support/userquestion.h"
#include "targetlibrary.h"
#include "targets/target.h"

#include <QComboBox>
#include <QSignalBlocker>
#include <QTableWidget>
#include <QTimer>

using UserQuestion::Answer;

void BodyTypeAdministrationTab::setTabWidgets(const TabWidgets &widgets)
{
    m_search.setWidgets(widgets);
}

TargetTableFiller BodyTypeAdministrationTab::targetTableFiller(const QString &type) const
{
    return TargetTableFiller(*targetlib, type, m_customTargets, icon_ok);
}

QVector<const Target *> BodyTypeAdministrationTab::listedTargets(const TargetTableFiller &filler,
                                                                 const QString &group) const
{
    return group.isNull() ? filler.all() : filler.inCategory(group);
}

QString BodyTypeAdministrationTab::currentGroup() const
{
    const QComboBox *category = tabWidgets().category;
    if (!category)
        return {};
    // The category of the targets without a group has an empty name, which is not "no category".
    const QString group = category->currentText();
    return group.isNull() ? QStringLiteral("") : group;
}

void BodyTypeAdministrationTab::setup_tableWidget_targetlibrary(QTableWidget *table)
{
    TargetTableFiller::setUp(table);
}

void BodyTypeAdministrationTab::update_tableWidget_targetlibrary(QTableWidget *table,
                                                                 const QString &type,
                                                                 const QString &group)
{
    const TargetTableFiller filler = targetTableFiller(type);
    const QVector<const Target *> targets = listedTargets(filler, group);
    QStringList ids;
    for (const Target *target : targets)
        ids.append(target->id());
    m_assignment.readCustom(ids, &m_customTargets);
    filler.fill(table, targets, group.isNull());
}

// Assignment

bool BodyTypeAdministrationTab::pushButtonSelectClicked(const QString &type,
                                                        QTableWidget *bodyTable,
                                                        QTableWidget *tlTable)
{
    const int index = bodyTable->currentRow();
    const int targetRow = tlTable->currentRow();
    const QString targetId = TargetTableFiller::targetId(tlTable, targetRow);
    if (index < 0 || targetId.isEmpty())
        return false;
    deleteTargetInDifferentSlotIfExists(TargetTableFiller::shortName(tlTable, targetRow), type,
                                        bodyTable);
    if (!m_assignment.assign(targetId, type, index)) {
        // Freeing it elsewhere may have succeeded.
        updateTlCalibratedOfTarget(targetId);
        return false;
    }
    QStringList ids;
    for (int row = 0; row < tlTable->rowCount(); ++row)
        ids.append(TargetTableFiller::targetId(tlTable, row));
    updateTlCalibratedOfTargets(ids);
    return true;
}

void BodyTypeAdministrationTab::pushButtonDeSelectClicked(const QString &type,
                                                          QTableWidget *bodyTable)
{
    if (bodyTable->currentRow() >= 0)
        deleteBodyAndUpdateTlCalibratedOfTarget(type, bodyTable->currentRow());
}

void BodyTypeAdministrationTab::deleteTargetInDifferentSlotIfExists(const QString &target,
                                                                    const QString &type,
                                                                    QTableWidget *bodyTable)
{
    m_assignment.freeElsewhere(target, type, bodyTable->currentRow(), getNumberOfBodies(type));
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

void BodyTypeAdministrationTab::updateTlCalibratedOfTarget(const QString &targetId)
{
    m_assignment.refreshUsed(targetId);
}

void BodyTypeAdministrationTab::updateTlCalibratedOfTargets(const QStringList &targetIds)
{
    m_assignment.refreshUsed(targetIds);
}

void BodyTypeAdministrationTab::updateCalStatusTablewidgetTl(const QString &type)
{
    const AdminBodyType *known = record(type);
    QTableWidget *table =
            known && known->tableWidget_tl ? known->tableWidget_tl : tabWidgets().targetTable;
    if (!table)
        return;
    const TargetTableFiller filler = targetTableFiller(type);
    for (const Target *target : listedTargets(filler, currentGroup()))
        updateTlCalibratedOfTarget(target->id());
    filler.refreshMarks(table);
}

bool BodyTypeAdministrationTab::takeTargetFromOthers(const QString &shortName,
                                                     const OtherHolders &others)
{
    for (int number = 1; number <= others.count; ++number) {
        if (others.targetOfBody(number) != shortName)
            continue;
        const Answer answer = UserQuestion::okCancel(this, tr("Warning"), others.text.arg(number),
                                                     others.question.arg(number));
        if (answer != Answer::Accepted || !isChoiceUnchanged())
            return false;
        others.clearBody(number);
        return true;
    }
    return true;
}

bool BodyTypeAdministrationTab::overwriteBodyCalibration(const QString &name)
{
    return name.isEmpty()
           || UserQuestion::okCancel(this, tr("Warning"),
                                     tr("Overwrite body calibration data of %1?").arg(name))
                      == Answer::Accepted;
}

BodyTypeAdministrationTab::AssignmentChoice BodyTypeAdministrationTab::currentChoice() const
{
    const TabWidgets &widgets = tabWidgets();
    const int bodyRow = widgets.bodyTable->currentRow();
    return {bodyRow, getBodyDescription(widgets.type, bodyRow),
            TargetTableFiller::targetId(widgets.targetTable, widgets.targetTable->currentRow())};
}

bool BodyTypeAdministrationTab::isChoiceUnchanged() const
{
    const AssignmentChoice now = currentChoice();
    return !m_is_config_locked && now.bodyRow == m_choice.bodyRow
           && now.bodyName == m_choice.bodyName && now.targetId == m_choice.targetId;
}

void BodyTypeAdministrationTab::on_pushButton_select_clicked()
{
    const TabWidgets widgets = tabWidgets();
    m_choice = currentChoice();
    if (m_choice.bodyRow < 0 || m_choice.targetId.isEmpty())
        return;
    selectionTableLeft = m_choice.bodyRow;
    selectionTableRight = widgets.targetTable->currentRow();
    const QString targetId = m_choice.targetId;
    const QString shortName =
            TargetTableFiller::shortName(widgets.targetTable, selectionTableRight);
    // The list of targets must not change under the questions that follow.
    const TimerPause pause(timerCheckForTracked_tl);
    const QPointer<QWidget> self(this);
    if (!overwriteBodyCalibration(m_choice.bodyName) || !self || !isChoiceUnchanged())
        return;
    if (!mayAssignTarget(shortName) || !self)
        return;
    const bool assigned =
            isChoiceUnchanged()
            && pushButtonSelectClicked(widgets.type, widgets.bodyTable, widgets.targetTable);
    update_tab();
    if (assigned)
        targetAssigned(targetId);
}

void BodyTypeAdministrationTab::on_pushButton_deselect_clicked()
{
    const TabWidgets widgets = tabWidgets();
    if (widgets.bodyTable->currentRow() < 0)
        return;
    const QPointer<QWidget> self(this);
    pushButtonDeSelectClicked(widgets.type, widgets.bodyTable);
    if (self)
        update_tab();
}

void BodyTypeAdministrationTab::requestBodyCalibration()
{
    const TabWidgets widgets = tabWidgets();
    const int row = widgets.bodyTable->currentRow();
    if (row < 0)
        return;
    window()->hide();
    m_link.post("BodyCalModule",
                QStringLiteral("OpenBodyCalDialog %1 b%2").arg(widgets.type, bodyNumber(row)));
}

void BodyTypeAdministrationTab::switchGlobalFilterOn(const GlobalFilter &filter)
{
    if (!m_link.protocolAtLeast(1, 12) || m_is_config_locked)
        return;
    const auto state = m_link.text("%s", filter.query);
    if (!state)
        m_link.log(filter.queryError);
    else if (*state == QLatin1String("no") && !m_link.set("%s", filter.switchOn))
        m_link.log(filter.switchError);
}

// Categories

void BodyTypeAdministrationTab::fillCategories(QComboBox *box) const
{
    QStringList groups;
    for (const Target *target : targetTableFiller(mainBodyType()).all()) {
        const QString group = targetlib->getGroupFromTid(target->id());
        if (!groups.contains(group))
            groups.append(group);
    }
    groups.sort(Qt::CaseSensitive);
    groups.prepend(TargetTableFiller::foundTargets());
    const QSignalBlocker silent(box);
    box->insertItems(0, groups);
    box->setCurrentIndex(0);
}

void BodyTypeAdministrationTab::selectCategory(const QString &group)
{
    QComboBox *box = tabWidgets().category;
    const int index = box->findText(group, Qt::MatchExactly | Qt::MatchCaseSensitive);
    if (index != box->currentIndex())
        box->setCurrentIndex(index);
}

void BodyTypeAdministrationTab::categoryChosen(const QString &group)
{
    for (const Target *target : targetlib->targets()) {
        if (targetlib->getGroupFromTid(target->id()) == group)
            updateTlCalibratedOfTarget(target->id());
    }
    if (group == TargetTableFiller::foundTargets()) {
        for (const Target *target : targetTableFiller(mainBodyType()).inCategory(group))
            updateTlCalibratedOfTarget(target->id());
    }
    update_tableWidget_targetlibrary(tabWidgets().targetTable, mainBodyType(), currentGroup());
    activate_pushButton_select();
    activate_pushButton_deselect();
}

// Refreshing the page

void BodyTypeAdministrationTab::refreshTargets()
{
    const TabWidgets &widgets = tabWidgets();
    selectionTableLeft = qMax(0, widgets.bodyTable->currentRow());
    update_tableWidget_targetlibrary(widgets.targetTable, widgets.type, currentGroup());
    selectionTableRight = widgets.targetTable->currentRow();
}

void BodyTypeAdministrationTab::refreshBodies()
{
    const TabWidgets widgets = tabWidgets();
    current_btype = widgets.type;
    current_bid = selectionTableLeft;
    BodyTypeAdministrationTab::update_tab();
    setSelectionOfTables(widgets.bodyTable, widgets.targetTable);
    resetSearchWidgets();
}

void BodyTypeAdministrationTab::resetSearchWidgets()
{
    m_search.reset();
    activate_pushButton_select();
    activate_pushButton_deselect();
}

void BodyTypeAdministrationTab::setSelectionOfTables(QTableWidget *bodyTable, QTableWidget *tlTable)
{
    const int bodyRow = qMin(selectionTableLeft, bodyTable->rowCount() - 1);
    if (bodyRow != bodyTable->currentRow())
        bodyTable->setCurrentCell(bodyRow, qMax(0, bodyTable->currentColumn()));
    const int targetRow = qMin(selectionTableRight, tlTable->rowCount() - 1);
    if (targetRow != tlTable->currentRow())
        tlTable->setCurrentCell(targetRow, TargetTableFiller::ShortNameColumn);
}

// Search run

void BodyTypeAdministrationTab::on_pushButton_start_clicked()
{
    if (tabWidgets().category)
        selectCategory(TargetTableFiller::foundTargets());
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
    switch (m_search.poll()) {
    case TargetSearchRun::Step::Searching:
        updateTrackedAndAcceptStatus_tl();
        break;
    case TargetSearchRun::Step::Ended:
        runEnded();
        break;
    case TargetSearchRun::Step::Aborted:
        m_search.showIdle();
        m_search.startTracking();
        break;
    }
}

void BodyTypeAdministrationTab::runEnded()
{
    numTracked_tl = getTrackedTargets();
    const QPointer<QWidget> self(this);
    showMessageFoundTargets_tl(numTracked_tl);
    if (!self)
        return;
    m_search.showIdle();
    m_search.startTracking();
}

void BodyTypeAdministrationTab::updateTrackedAndAcceptStatus_tl()
{
    const TabWidgets &widgets = tabWidgets();
    int alreadyUsed = 0;
    if (widgets.category
        && widgets.category->currentText().startsWith(TargetTableFiller::foundTargets())) {
        updateTlTrackedStatus(widgets.type);
        update_tableWidget_targetlibrary(widgets.targetTable, widgets.type,
                                         TargetTableFiller::foundTargets());
    }
    do_updateTrackedAndAcceptStatus_tl(widgets.targetTable, numTracked_tl, alreadyUsed);
    m_search.showCounts(numTracked_tl, alreadyUsed);
}

void BodyTypeAdministrationTab::updateTlTrackedStatus(const QString &type)
{
    for (Target *target : targetlib->targets()) {
        if (targetlib->isOfType(*target, type))
            refreshTracked(target);
    }
}

void BodyTypeAdministrationTab::refreshTracked(Target *target)
{
    const bool wasTracked = target->isTracked();
    m_assignment.refreshTracked(target);
    // What is known of a target that was not listed may be old.
    if (!wasTracked && target->isTracked())
        updateTlCalibratedOfTarget(target->id());
}

void BodyTypeAdministrationTab::do_updateTrackedAndAcceptStatus_tl(QTableWidget *table,
                                                                   int &numTracked,
                                                                   int &numCalibrated)
{
    const QString type = mainBodyType();
    const QString group = currentGroup();
    const TargetTableFiller filler = targetTableFiller(type);
    // The category of the found targets was listed from states that were read just before.
    const bool statesKnown = group == TargetTableFiller::foundTargets();
    numTracked = 0;
    numCalibrated = 0;
    for (int row = 0; row < table->rowCount(); ++row) {
        Target *target = targetlib->target(TargetTableFiller::targetId(table, row));
        if (!target)
            continue;
        if (!statesKnown)
            refreshTracked(target);
        numTracked += target->isTracked() ? 1 : 0;
        numCalibrated += target->isTracked() && target->isCalibrated() ? 1 : 0;
    }
    // Without a category filter the found targets move to the top as they are found.
    if (group.isNull())
        filler.fill(table, filler.all(), true);
    else
        filler.refreshMarks(table);
}

int BodyTypeAdministrationTab::getTrackedTargets()
{
    return m_search.countTracked(*targetlib);
}

void BodyTypeAdministrationTab::showMessageFoundTargets_tl(int count)
{
    QString text = tr("%1 targets could be identified in library").arg(count);
    if (count == 0)
        text = tr("No targets could be identified in library");
    else if (count == 1)
        text = tr("One target could be identified in library");
    UserQuestion::information(this, tr("MORVEK3"), text);
}

void BodyTypeAdministrationTab::stopAllTimer()
{
    m_search.stopTimers();
}

void BodyTypeAdministrationTab::activate_pushButton_start()
{
    m_search.applyStartRule();
}

void BodyTypeAdministrationTab::activate_pushButton_stop()
{
    m_search.applyDeselectRule();
}

void BodyTypeAdministrationTab::activate_pushButton_select()
{
    m_search.applySelectRule();
}

void BodyTypeAdministrationTab::activate_pushButton_deselect()
{
    m_search.applyDeselectRule();
}

void BodyTypeAdministrationTab::enableControls(bool enable)
{
    m_search.setControlsEnabled(enable);
}

void BodyTypeAdministrationTab::on_tableWidget_targetlibrary_itemSelectionChanged()
{
    activate_pushButton_select();
    activate_pushButton_deselect();
}
