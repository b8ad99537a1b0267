#include "bodies/bodytableinput.h"

#include "bodies/bodyregistry.h"
#include "bodies/bodytablefiller.h"
#include "linkobserver.h"
#include "waiting.h"

#include <QAbstractItemDelegate>
#include <QKeyEvent>
#include <QPointer>
#include <QSignalBlocker>
#include <QSpinBox>
#include <QTableWidget>

BodyTableInput::BodyTableInput(BodyRegistry &registry, LinkObserver *observer)
    : m_registry(registry), m_observer(observer)
{
}

BodyTableInput::~BodyTableInput() = default;

void BodyTableInput::watchTable(const QString &type)
{
    const AdminBodyType &record = m_registry.type(type);
    QTableWidget *table = record.tableWidget;
    // Only a double click begins to edit a name.
    table->setEditTriggers(QAbstractItemView::DoubleClicked);
    table->setTabKeyNavigation(false);
    table->installEventFilter(this);
    table->viewport()->installEventFilter(this);
    const int nameColumn = record.columnOf(COLUMN_TYPE_NAME);
    if (nameColumn < 0)
        return;
    QAbstractItemDelegate *delegate = table->itemDelegateForColumn(nameColumn);
    connect(delegate ? delegate : table->itemDelegate(), &QAbstractItemDelegate::closeEditor, this,
            [this, type] {
                if (AdminBodyType *edited = m_registry.find(type))
                    edited->tableWidgetColumnNameStartEdit = false;
            });
}

void BodyTableInput::watchSpinBox(QSpinBox *spinBox)
{
    // A count that is being typed must not drop bodies after every digit.
    spinBox->setKeyboardTracking(false);
    spinBox->installEventFilter(this);
}

void BodyTableInput::deliver(const std::function<void()> &gesture)
{
    if (m_isActing)
        return;
    QMetaObject::invokeMethod(
            this,
            [this, gesture, generation = m_registry.generation()] {
                // A gesture on the bodies of an earlier configuration is dropped.
                if (generation == m_registry.generation())
                    perform(gesture);
            },
            Qt::QueuedConnection);
}

void BodyTableInput::perform(const std::function<void()> &gesture)
{
    // When two gestures arrive before the first is delivered, the second may get here while the
    // question of the first is open.
    if (m_isActing || m_isRetired)
        return;
    const Waiting waiting(m_observer, Waiting::For::Action, tr("Changing bodies ..."));
    const QPointer<QObject> self(this);
    m_isActing = true;
    gesture();
    if (self)
        m_isActing = false;
}

void BodyTableInput::commit() const
{
    const QStringList types = m_registry.names();
    for (const QString &type : types) {
        const AdminBodyType &record = m_registry.type(type);
        if (record.tableWidget && record.tableWidgetColumnNameStartEdit)
            endName(record, true);
        if (record.spinBox)
            record.spinBox->interpretText();
    }
}

void BodyTableInput::discard() const
{
    const QStringList types = m_registry.names();
    for (const QString &type : types) {
        const AdminBodyType &record = m_registry.type(type);
        if (record.tableWidget && record.tableWidgetColumnNameStartEdit)
            endName(record, false);
        if (record.spinBox)
            BodyTableFiller::showCount(record);
    }
}

void BodyTableInput::disconnectWidgets(const QObject *listener) const
{
    const QStringList types = m_registry.names();
    for (const QString &type : types) {
        const AdminBodyType &record = m_registry.type(type);
        if (record.tableWidget)
            record.tableWidget->disconnect(listener);
        if (record.spinBox)
            record.spinBox->disconnect(listener);
    }
}

void BodyTableInput::endName(const AdminBodyType &record, bool take)
{
    const QTableWidget *table = record.tableWidget;
    const int column = record.columnOf(COLUMN_TYPE_NAME);
    QAbstractItemDelegate *delegate = table->itemDelegateForColumn(column);
    for (int row = 0; delegate && row < table->rowCount(); ++row) {
        QWidget *editor = table->cellWidget(row, column);
        if (editor && take)
            emit delegate->commitData(editor);
        if (editor)
            emit delegate->closeEditor(editor, take ? QAbstractItemDelegate::NoHint
                                                    : QAbstractItemDelegate::RevertModelCache);
    }
}

// Tables

void BodyTableInput::cellClicked(QObject *sender, int row, int column)
{
    auto *table = qobject_cast<QTableWidget *>(sender);
    const QString type = m_registry.typeOfTable(table);
    if (type.isEmpty() || !table->isVisible())
        return;
    // The press that made another cell current has already announced the body.
    m_isMouseDown = false;
    const bool announced = m_announced == std::make_pair(type, row);
    m_announced.reset();
    const QTableWidgetItem *item = table->item(row, column);
    if (item && item->flags().testFlag(Qt::ItemIsEnabled))
        deliver([this, type, row, column] { press(type, row, column); });
    if (!announced)
        emit currentBodyChanged(type, row);
}

void BodyTableInput::press(const QString &type, int row, int column)
{
    const AdminBodyType &record = m_registry.type(type);
    if (!record.isValidIndex(row) || column >= record.tableWidgetColumns.size())
        return;
    const QTableWidgetItem *item = record.tableWidget->item(row, column);
    const bool live = item && item->data(BodyTableFiller::liveRole).toInt() == 1;
    const COLUMN_TYPE kind = record.tableWidgetColumns.at(column);
    if (kind == COLUMN_TYPE_FILTER)
        emit filterPressed(type, row);
    else if (kind == COLUMN_TYPE_DELETE && live)
        emit deletePressed(type, row);
    else if (kind == COLUMN_TYPE_RESET && live)
        emit resetPressed(type, row);
}

void BodyTableInput::cellDoubleClicked(QObject *sender, int row, int column)
{
    auto *table = qobject_cast<QTableWidget *>(sender);
    AdminBodyType *record = m_registry.find(m_registry.typeOfTable(table));
    if (!record || !table->isVisible())
        return;
    if (column == record->columnOf(COLUMN_TYPE_NAME)) {
        record->tableWidgetColumnNameStartEdit = true;
    } else if (QTableWidgetItem *item = table->item(row, column)) {
        item->setFlags(item->flags() & ~Qt::ItemIsEditable);
    }
}

void BodyTableInput::itemChanged(QTableWidgetItem *item)
{
    if (m_filling > 0 || !item->tableWidget()->isVisible())
        return;
    const QString type = m_registry.typeOfTable(item->tableWidget());
    AdminBodyType *record = m_registry.find(type);
    const int row = item->row();
    const int column = item->column();
    if (!record || column >= record->tableWidgetColumns.size())
        return;
    const COLUMN_TYPE kind = record->tableWidgetColumns.at(column);
    if (kind == COLUMN_TYPE_NAME && record->tableWidgetColumnNameStartEdit) {
        record->tableWidgetColumnNameStartEdit = false;
        deliver([this, type, row, name = item->text()] {
            if (!m_registry.isLocked())
                emit nameEntered(type, row, name);
        });
    } else if (kind == COLUMN_TYPE_ACTIVE || kind == COLUMN_TYPE_REFERENCE) {
        // Mouse and space key both change the item; a click beside the check box does not.
        deliver([this, type, row, column] { toggle(type, row, column); });
    }
}

void BodyTableInput::toggle(const QString &type, int row, int column)
{
    const AdminBodyType &record = m_registry.type(type);
    if (!record.isValidIndex(row))
        return;
    const QTableWidgetItem *item = record.tableWidget->item(row, column);
    if (!item || !item->flags().testFlag(Qt::ItemIsUserCheckable))
        return;
    const bool checked = item->checkState() == Qt::Checked;
    const bool isActive = record.tableWidgetColumns.at(column) == COLUMN_TYPE_ACTIVE;
    const AdminBody &body = record.bodies.at(row);
    // When a check box was toggled twice before the delivery, it reads as before, and the operator
    // wants no change.
    if (checked == (isActive ? body.active : body.isReference))
        return;
    const QPointer<QObject> self(this);
    if (isActive)
        emit activeToggled(type, row, checked);
    else
        emit referenceToggled(type, row, checked);
    if (self)
        emit bodyActedOn(type, row);
}

void BodyTableInput::currentItemChanged(QTableWidgetItem *current)
{
    if (!current || !current->tableWidget() || !current->tableWidget()->isVisible())
        return;
    const QString type = m_registry.typeOfTable(current->tableWidget());
    if (type.isEmpty())
        return;
    // A key or the program also makes a body current, but no click follows then.
    if (m_isMouseDown)
        m_announced = std::make_pair(type, current->row());
    emit currentBodyChanged(type, current->row());
}

// Numbers of bodies

void BodyTableInput::spinBoxChanged(QObject *sender)
{
    auto *spinBox = qobject_cast<QSpinBox *>(sender);
    const QString type = m_registry.typeOfSpinBox(spinBox);
    if (type.isEmpty() || !spinBox->isVisible())
        return;
    deliver([this, type] {
        const QSpinBox *box = m_registry.type(type).spinBox;
        if (box && !m_registry.isLocked())
            emit countEntered(type, box->value());
    });
}

// Keys

bool BodyTableInput::eventFilter(QObject *watched, QEvent *event)
{
    auto *spinBox = qobject_cast<QSpinBox *>(watched);
    if (spinBox && event->type() == QEvent::KeyPress
        && discardsCount(spinBox, static_cast<QKeyEvent *>(event)->key()))
        return true;
    if (event->type() == QEvent::MouseButtonPress || event->type() == QEvent::KeyPress) {
        m_isMouseDown = event->type() == QEvent::MouseButtonPress;
        m_announced.reset();
    }
    auto *table = qobject_cast<QTableWidget *>(watched);
    if (table && event->type() == QEvent::KeyPress
        && pressesCell(table, static_cast<QKeyEvent *>(event)->key()))
        return true;
    return QObject::eventFilter(watched, event);
}

bool BodyTableInput::pressesCell(QTableWidget *table, int key)
{
    const QString type = m_registry.typeOfTable(table);
    const QTableWidgetItem *item = table->currentItem();
    const bool presses = key == Qt::Key_Return || key == Qt::Key_Enter || key == Qt::Key_Space;
    if (!presses || type.isEmpty() || !item || item->flags().testFlag(Qt::ItemIsUserCheckable))
        return false;
    // A key presses a button cell as a click does.
    deliver([this, type, row = item->row(), column = item->column()] { press(type, row, column); });
    return true;
}

bool BodyTableInput::discardsCount(QSpinBox *spinBox, int key) const
{
    bool isNumber = false;
    const int typed = spinBox->locale().toInt(spinBox->cleanText(), &isNumber);
    if (key != Qt::Key_Escape || (isNumber && typed == spinBox->value()))
        return false;
    // The first Escape discards what was typed; the next Escape closes the dialog.
    const QSignalBlocker silent(spinBox);
    spinBox->setValue(spinBox->value());
    return true;
}
