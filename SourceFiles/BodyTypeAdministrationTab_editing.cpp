// What the user changes in the body tables: counts, names, marks, reset, delete and switch.

#include "BodyTypeAdministrationTab.h"
#include "bodies/bodycommands.h"
#include "bodynumber.h"
#include "filterdialog.h"
#include "support/userquestion.h"

#include <QKeyEvent>
#include <QSpinBox>
#include <QTableWidget>

using UserQuestion::Answer;

// Clicks and edits

void BodyTypeAdministrationTab::ON_tableWidget_cellClicked(int row, int column)
{
    auto *table = qobject_cast<QTableWidget *>(sender());
    const QString type = typeOfTable(table);
    if (type.isEmpty() || !table->isVisible())
        return;
    // The press that made another cell current has told it already.
    const bool told = m_isCurrentCellTold && current_btype == type && current_bid == row;
    m_isCurrentCellTold = false;
    current_btype = type;
    current_bid = row;
    if (!told)
        emit selection_changed(type, row);
    saveSelectionOfMtTables();
    const QTableWidgetItem *item = table->item(row, column);
    if (item && item->flags().testFlag(Qt::ItemIsEnabled))
        actOnCellLater(type, row, column);
}

void BodyTypeAdministrationTab::actOnCellLater(const QString &type, int row, int column)
{
    // The boxes and dialogs that a cell opens must not run inside the table's own mouse and key
    // handling: the table may be gone when they close.
    QMetaObject::invokeMethod(
            this, [this, type, row, column] { actOnCell(type, row, column); },
            Qt::QueuedConnection);
}

void BodyTypeAdministrationTab::actOnCell(const QString &type, int row, int column)
{
    const AdminBodyType *known = record(type);
    if (!known || !known->isValidIndex(row) || column >= known->tableWidgetColumns.size())
        return;
    const QTableWidgetItem *item = known->tableWidget->item(row, column);
    const bool live = item && item->data(BodyTableFiller::liveRole).toInt() == 1;
    const QPointer<QWidget> self(this);
    switch (known->tableWidgetColumns.at(column)) {
    case COLUMN_TYPE_FILTER:
        filterCellClicked(type, row);
        break;
    case COLUMN_TYPE_DELETE:
        if (!live)
            break;
        deleteBodyAndUpdateTlCalibratedOfTarget(type, row);
        if (self)
            update_tab();
        break;
    case COLUMN_TYPE_RESET:
        if (live)
            resetBody(type, row);
        break;
    default:
        break;
    }
}

void BodyTypeAdministrationTab::actOnCheckBox(const QString &type, int row, int column)
{
    const AdminBodyType *known = record(type);
    if (!known || !known->isValidIndex(row))
        return;
    const QTableWidgetItem *item = known->tableWidget->item(row, column);
    if (!item || !item->flags().testFlag(Qt::ItemIsUserCheckable))
        return;
    const bool checked = item->checkState() == Qt::Checked;
    const bool activeColumn = known->tableWidgetColumns.at(column) == COLUMN_TYPE_ACTIVE;
    // Toggled twice before this ran: there is nothing to tell the controller.
    if (checked == (activeColumn ? isBodyActive(type, row) : getBodyIsReference(type, row)))
        return;
    // A click comes here twice, and its second call would find the first one's question still open.
    if (m_isActingOnCheckBox)
        return;
    m_isActingOnCheckBox = true;
    const QPointer<QWidget> self(this);
    if (activeColumn)
        setBodyActive(type, row, checked);
    else
        setBodyReference(type, row, checked);
    if (!self)
        return;
    m_isActingOnCheckBox = false;
    emit selection_changed(type, row);
}

void BodyTypeAdministrationTab::filterCellClicked(const QString &type, int row)
{
    if (!getBodyTypeFilter6dAvailable(type) || !isBodyCalibrated(type, row))
        return;
    const QPointer<QWidget> self(this);
    openFilterDialog(type == QLatin1String("standard") ? 0 : 1, row);
    if (!self)
        return;
    updateBodyFilter6dPreset(type, row);
    updateTableWidget(type);
}

void BodyTypeAdministrationTab::openFilterDialog(int filterBodyType, int index)
{
    const QPointer<FilterDialog> dialog = new FilterDialog(iom, this, beVers);
    dialog->update_and_exec(filterBodyType, index);
    delete dialog;
}

void BodyTypeAdministrationTab::ON_tableWidget_cellDoubleClicked(int row, int column)
{
    auto *table = qobject_cast<QTableWidget *>(sender());
    AdminBodyType *known = recordOf(typeOfTable(table));
    if (!known || !table->isVisible())
        return;
    if (column == known->columnOf(COLUMN_TYPE_NAME)) {
        known->tableWidgetColumnNameStartEdit = true;
    } else if (QTableWidgetItem *item = table->item(row, column)) {
        item->setFlags(item->flags() & ~Qt::ItemIsEditable);
    }
}

void BodyTypeAdministrationTab::ON_tableWidget_itemChanged(QTableWidgetItem *item)
{
    if (m_filling > 0 || !item->tableWidget()->isVisible())
        return;
    const QString type = typeOfTable(item->tableWidget());
    AdminBodyType *known = recordOf(type);
    if (!known || item->column() >= known->tableWidgetColumns.size())
        return;
    const int row = item->row();
    const int column = item->column();
    const COLUMN_TYPE kind = known->tableWidgetColumns.at(column);
    if (kind == COLUMN_TYPE_NAME && known->tableWidgetColumnNameStartEdit) {
        known->tableWidgetColumnNameStartEdit = false;
        setBodyDescription(type, row, item->text());
        updateTableWidget(type);
        updateView();
    } else if (kind == COLUMN_TYPE_ACTIVE || kind == COLUMN_TYPE_REFERENCE) {
        // Mouse and space bar both come here and a click beside the check box does not. Queued for
        // the reason that actOnCellLater() gives.
        QMetaObject::invokeMethod(
                this, [this, type, row, column] { actOnCheckBox(type, row, column); },
                Qt::QueuedConnection);
    }
}

void BodyTypeAdministrationTab::ON_tableWidget_currentItemChanged(QTableWidgetItem *current,
                                                                  QTableWidgetItem *)
{
    if (!current || !current->tableWidget() || !current->tableWidget()->isVisible())
        return;
    const QString type = typeOfTable(current->tableWidget());
    if (type.isEmpty())
        return;
    current_btype = type;
    current_bid = current->row();
    m_isCurrentCellTold = true;
    emit selection_changed(type, current->row());
}

bool BodyTypeAdministrationTab::eventFilter(QObject *watched, QEvent *event)
{
    const auto *spinBox = qobject_cast<QSpinBox *>(watched);
    if (spinBox && event->type() == QEvent::Wheel && !spinBox->hasFocus()) {
        event->ignore();
        return true;
    }
    const QString type = event->type() == QEvent::KeyPress ? typeOfTable(watched) : QString();
    if (type.isEmpty())
        return QWidget::eventFilter(watched, event);
    const int key = static_cast<QKeyEvent *>(event)->key();
    auto *table = static_cast<QTableWidget *>(watched);
    const QTableWidgetItem *item = table->currentItem();
    const bool presses = key == Qt::Key_Return || key == Qt::Key_Enter || key == Qt::Key_Space;
    if (!presses || !item || item->flags().testFlag(Qt::ItemIsUserCheckable))
        return QWidget::eventFilter(watched, event);
    // The keyboard presses the button cells as a click does.
    actOnCellLater(type, item->row(), item->column());
    return true;
}

// Body count

void BodyTypeAdministrationTab::ON_spinBox_valueChanged(int)
{
    auto *spinBox = qobject_cast<QSpinBox *>(sender());
    if (!spinBox || !spinBox->isVisible())
        return;
    const QStringList types = bodytypes.keys();
    for (const QString &type : types) {
        if (record(type)->spinBox != spinBox)
            continue;
        // A box may be asked, and the spin box must not be deleted in its own key handling.
        QMetaObject::invokeMethod(
                this, [this, type] { countChosen(type); }, Qt::QueuedConnection);
    }
}

void BodyTypeAdministrationTab::countChosen(const QString &type)
{
    const AdminBodyType *known = record(type);
    // While a question about one step stands, a further step must not ask it again.
    if (m_isCountBeingChosen || !known || !known->spinBox)
        return;
    m_isCountBeingChosen = true;
    const QPointer<QWidget> self(this);
    setNumberOfBodies(type, known->spinBox->value());
    if (!self)
        return;
    m_isCountBeingChosen = false;
    updateCalStatusTablewidgetTl(type);
}

void BodyTypeAdministrationTab::setNumberOfBodies(const QString &type, int count)
{
    if (!isBodyTypeRegistered(type) || count == getNumberOfBodies(type))
        return;
    const int asked = getNumberOfBodies(type);
    const QPointer<QWidget> self(this);
    checkForReferenceDisabeledAndResetIfNec(count, asked, type);
    // The records may have been read anew while the question stood.
    if (!self || count == asked || count == getNumberOfBodies(type))
        return;
    const int oldCount = getNumberOfBodies(type);
    morvek2_setNumberOfBodies(type, count);
    AdminBodyType *known = recordOf(type);
    known->bodies.resize(m_reader.readCount(type));
    updateBodyTypeSpinBox(type, false);
    for (int index = oldCount; index < known->bodies.size(); ++index)
        updateBodyInfo(type, index);
    if (current_btype == type)
        current_bid = qMin(current_bid, known->bodies.size() - 1);
    emit selection_changed(current_btype, current_bid);
    updateNumberOfInertialSensors(type);
    updateTableWidget(type);
    updateView();
}

void BodyTypeAdministrationTab::checkForReferenceDisabeledAndResetIfNec(int &newCount, int oldCount,
                                                                        const QString &type)
{
    // Only the last body is examined, also when several are dropped at once.
    if (type != QLatin1String("standard") || newCount >= oldCount
        || !getBodyIsReference(type, oldCount - 1))
        return;
    const Answer answer = UserQuestion::yesNo(
            this, tr("MORVEK3"),
            tr("Decreasing the number of standard bodies will disable the reference!\n\n"
               "Continue?"));
    if (answer != Answer::Declined)
        return;
    newCount = oldCount;
    updateBodyTypeSpinBox(type, false);
}

// Activeness, names and the reference

void BodyTypeAdministrationTab::setBodyActive(const QString &type, int index, bool active)
{
    if (!bodyOf(type, index))
        return;
    if (m_link.protocolAtLeast(1, 11))
        morvek2_setBodyActive(type, index, active);
    updateBodyInfo(type, index);
    updateTableWidget(type);
}

void BodyTypeAdministrationTab::setBodyDescription(const QString &type, int index,
                                                   const QString &text)
{
    if (m_link.protocolAtLeast(0, 16))
        morvek2_setBodyDescription(type, index, text);
    updateBodyInfo(type, index);
}

void BodyTypeAdministrationTab::setBodyReference(const QString &type, int index, bool reference)
{
    if (reference && !isBodyActive(type, index)) {
        const bool alive =
                UserQuestion::warning(this, tr("Warning"),
                                      tr("A de-activated body cannot be set as reference.\n"
                                         "Please activate this body before."));
        if (alive)
            updateTableWidget(type);
        return;
    }
    if (m_link.protocolAtLeast(1, 24))
        morvek2_setBodyIsReference(type, index, reference);
    // Another body loses the mark, so one body read anew would not do.
    for (int other = 0; other < getNumberOfBodies(type); ++other)
        updateBodyInfo(type, other);
    updateTableWidget(type);
}

bool BodyTypeAdministrationTab::morvek2_setBodyActive(const QString &type, int index, bool active)
{
    const bool done =
            m_link.set("body active %s b%02d %s", ControllerLink::argument(type).constData(),
                       index + 1, active ? "yes" : "no");
    if (!done) {
        m_link.log(
                tr("Error: Unable to set activeness of body %1 b%2").arg(type, bodyNumber(index)));
    }
    return done;
}

bool BodyTypeAdministrationTab::morvek2_setBodyDescription(const QString &type, int index,
                                                           const QString &text)
{
    const bool done =
            m_link.set("body desc %s b%02d \"%s\"", ControllerLink::argument(type).constData(),
                       index + 1, ControllerLink::argument(text).constData());
    if (!done) {
        m_link.log(
                tr("Error: Unable to set description of body %1 b%2").arg(type, bodyNumber(index)));
    }
    return done;
}

bool BodyTypeAdministrationTab::morvek2_setBodyIsReference(const QString &type, int index,
                                                           bool reference)
{
    if (reference) {
        const bool done = type == QLatin1String("standard")
                          && m_link.set("tracking reference %s b%02d",
                                        ControllerLink::argument(type).constData(), index + 1);
        if (!done) {
            m_link.log(tr("Error: Unable to set body %1 b%2 as reference body")
                               .arg(type, bodyNumber(index)));
        }
        return done;
    }
    const auto current = m_link.text("tracking reference");
    if (current == QLatin1String("none"))
        return true;
    // The leading blank belongs to the line.
    const bool done = current && m_link.set(" tracking reference none");
    if (!done)
        m_link.log(tr("Error: Unable to de-activate the reference body"));
    return done;
}

void BodyTypeAdministrationTab::resetReferenceTargetIfAny()
{
    const auto current = m_link.text("tracking reference");
    if (!current) {
        m_link.log(tr("Unable to information of reference body"));
        return;
    }
    if (*current != QLatin1String("none") && !m_link.set("tracking reference none"))
        m_link.log(tr("Unable to reset reference body"));
}

// Reset, delete and switch

bool BodyTypeAdministrationTab::resetBody(const QString &type, int index)
{
    if (!bodyOf(type, index))
        return false;
    const QString target = getBodyTargetlibName(type, index);
    if (!target.isEmpty())
        return resetToLibrary(type, index, target);
    const QString sensor = getBodyInertialSensor(type, index);
    if (!sensor.isEmpty())
        return resetSensor(type, index, sensor);
    UserQuestion::warning(this, tr("Warning"),
                          tr("Unknown reset of %1 %2!").arg(typeLabel(type), bodyNumber(index)));
    return false;
}

bool BodyTypeAdministrationTab::resetToLibrary(const QString &type, int index,
                                               const QString &target)
{
    const Answer answer = UserQuestion::yesNo(
            this, tr("MORVEK3"),
            tr("Reset %1 %2\nto Target-Library geometry?").arg(typeLabel(type), bodyNumber(index)));
    // The table may have been refreshed while the question stood.
    if (answer != Answer::Accepted || getBodyTargetlibName(type, index) != target)
        return false;
    const bool done = BodyCommands(m_link).resetToLibrary(type, index, target);
    if (!done
        && !UserQuestion::warning(
                this, tr("Warning"),
                tr("Reset of %1 %2 failed!").arg(typeLabel(type), bodyNumber(index))))
        return false;
    refreshBody(type, index);
    return done;
}

bool BodyTypeAdministrationTab::resetSensor(const QString &type, int index, const QString &sensor)
{
    const BodyCommands commands(m_link);
    const BodyCommands::SensorReset reset = commands.sensorReset(sensor);
    const QString question = reset.hasStorage ? tr("Reset %1 %2\nto sensor stored values?")
                             : reset.hasHandEye
                                     ? tr("Reset %1 %2?\nHand eye calibration will be deleted!")
                                     : tr("Reset %1 %2?");
    const Answer answer = UserQuestion::yesNo(this, tr("MORVEK3"),
                                              question.arg(typeLabel(type), bodyNumber(index)));
    if (answer != Answer::Accepted || getBodyInertialSensor(type, index) != sensor)
        return false;
    const bool done = commands.resetSensor(sensor, reset);
    if (!done
        && !UserQuestion::warning(
                this, tr("Warning"),
                tr("Reset of %1 %2 failed!").arg(typeLabel(type), bodyNumber(index))))
        return false;
    refreshBody(type, index);
    return done;
}

bool BodyTypeAdministrationTab::confirmDelete(const QString &type, int index)
{
    const QString sensor = getBodyInertialSensor(type, index);
    const QString label = typeLabel(type);
    const QString number = bodyNumber(index);
    QString question;
    if (getBodyIsReference(type, index)) {
        question = tr("Delete geometry of %1 %2?\n"
                      "If yes, the assignment as reference to other bodies will be deleted.")
                           .arg(label, number);
    } else if (!sensor.isEmpty()) {
        question = tr("Delete assignment of sensor %1 and \ndelete geometry of %2 %3?")
                           .arg(sensor, label, number);
    } else {
        question = tr("Delete geometry of %1 %2?").arg(label, number);
    }
    return UserQuestion::yesNo(this, tr("MORVEK3"), question) == Answer::Accepted;
}

bool BodyTypeAdministrationTab::deleteBody(const QString &type, int index)
{
    if (!bodyOf(type, index) || !confirmDelete(type, index))
        return false;
    // The table may have been refreshed while the question stood.
    if (!bodyOf(type, index))
        return false;
    if (getBodyIsReference(type, index))
        resetReferenceTargetIfAny();
    const BodyCommands::DeleteStep step =
            BodyCommands(m_link).clearBody(*record(type), type, index);
    if (step != BodyCommands::DeleteStep::Done) {
        const QPointer<QWidget> self(this);
        showDeleteFailure(type, index, int(step));
        if (!self)
            return false;
    }
    refreshBody(type, index);
    return step == BodyCommands::DeleteStep::Done;
}

void BodyTypeAdministrationTab::showDeleteFailure(const QString &type, int index, int step)
{
    QString detail;
    switch (BodyCommands::DeleteStep(step)) {
    case BodyCommands::DeleteStep::Filter:
        detail = tr("Unable to reset filter6d of %1 %2");
        break;
    case BodyCommands::DeleteStep::Sensor:
        detail = tr("Unable to reset sensor of %1 %2");
        break;
    case BodyCommands::DeleteStep::Markers:
        detail = tr("Unable to reset markers of %1 %2");
        break;
    case BodyCommands::DeleteStep::Description:
        detail = tr("Unable to reset description of %1 %2");
        break;
    case BodyCommands::DeleteStep::Done:
        return;
    }
    const QString label = typeLabel(type);
    const QString number = bodyNumber(index);
    UserQuestion::warning(this, tr("Warning"),
                          detail.arg(label, number) + QLatin1Char('\n')
                                  + tr("Delete %1 %2 failed").arg(label, number));
}

bool BodyTypeAdministrationTab::switchBody(const QString &type, int index, int otherIndex)
{
    if (!bodyOf(type, index) || !bodyOf(type, otherIndex) || !m_link.protocolAtLeast(1, 11))
        return false;
    if (!BodyCommands(m_link).switchBodies(type, index, otherIndex)) {
        UserQuestion::warning(
                this, tr("Warning"),
                tr("Switching %1 %2 and %3 failed!")
                        .arg(typeLabel(type), bodyNumber(index), bodyNumber(otherIndex)));
        return false;
    }
    updateBodyInfo(type, index);
    updateBodyInfo(type, otherIndex);
    updateTableWidget(type);
    updateView();
    return true;
}
