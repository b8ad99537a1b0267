#include "targets/targettablefiller.h"

#include "support/columnsizingpause.h"
#include "targetlibrary.h"
#include "targets/target.h"

#include <QHeaderView>
#include <QTableWidget>

#include <algorithm>

namespace {

/** The item of a cell, made when it is not there yet. */
QTableWidgetItem *itemAt(QTableWidget *table, int row, int column)
{
    QTableWidgetItem *item = table->item(row, column);
    if (!item) {
        item = new QTableWidgetItem;
        table->setItem(row, column, item);
    }
    return item;
}

void setCell(QTableWidget *table, int row, int column, const QString &text, bool bold,
             Qt::ItemFlags flags)
{
    QTableWidgetItem *item = itemAt(table, row, column);
    if (item->text() != text)
        item->setText(text);
    if (item->flags() != flags)
        item->setFlags(flags);
    if (item->font().bold() != bold) {
        QFont font = item->font();
        font.setBold(bold);
        item->setFont(font);
    }
}

void setIcon(QTableWidgetItem *item, const QIcon &icon)
{
    if (item->icon().cacheKey() != icon.cacheKey())
        item->setIcon(icon);
}

int rowOf(const QTableWidget *table, const QString &targetId)
{
    for (int row = 0; !targetId.isEmpty() && row < table->rowCount(); ++row) {
        if (TargetTableFiller::targetId(table, row) == targetId)
            return row;
    }
    return -1;
}

} // namespace

QString TargetTableFiller::foundTargets()
{
    return tr("- Found Targets -");
}

QString TargetTableFiller::usedText()
{
    return QStringLiteral("yes");
}

void TargetTableFiller::setUp(QTableWidget *table)
{
    table->setColumnCount(ColumnCount);
    table->setRowCount(0);
    table->setHorizontalHeaderLabels({tr("ID"), tr("Short Name"), tr("Name"), tr("Used")});
    table->setColumnHidden(IdColumn, true);
    QHeaderView *header = table->horizontalHeader();
    header->setSectionsClickable(false);
    header->setSectionResizeMode(IdColumn, QHeaderView::ResizeToContents);
    header->setSectionResizeMode(ShortNameColumn, QHeaderView::ResizeToContents);
    header->setSectionResizeMode(NameColumn, QHeaderView::Stretch);
    header->setSectionResizeMode(UsedColumn, QHeaderView::ResizeToContents);
    table->verticalHeader()->setVisible(false);
    table->setSelectionMode(QAbstractItemView::SingleSelection);
    table->setSelectionBehavior(QAbstractItemView::SelectRows);
    table->setEditTriggers(QAbstractItemView::NoEditTriggers);
    table->setTabKeyNavigation(false);
}

QVector<const Target *> TargetTableFiller::inCategory(const QString &category) const
{
    const bool found = category == foundTargets();
    QVector<const Target *> listed;
    for (const Target *target : m_library.targets()) {
        const bool belongs =
                found ? target->isTracked() : m_library.getGroupFromTid(target->id()) == category;
        if (belongs && m_library.isOfType(*target, m_type))
            listed.append(target);
    }
    return listed;
}

QVector<const Target *> TargetTableFiller::all() const
{
    QVector<const Target *> listed;
    for (const Target *target : m_library.targets()) {
        if (m_library.isOfType(*target, m_type))
            listed.append(target);
    }
    std::stable_partition(listed.begin(), listed.end(),
                          [](const Target *target) { return target->isTracked(); });
    return listed;
}

void TargetTableFiller::fill(QTableWidget *table, const QVector<const Target *> &targets,
                             bool heading) const
{
    const QString currentId = targetId(table, table->currentRow());
    const ColumnSizingPause pause(table->horizontalHeader());
    const bool hasHeading =
            heading && std::any_of(targets.begin(), targets.end(), [](const Target *target) {
                return target->isTracked();
            });
    const int first = hasHeading ? 1 : 0;
    table->clearSpans();
    table->setRowCount(targets.size() + first);
    if (hasHeading)
        fillHeading(table, 0);
    for (int i = 0; i < targets.size(); ++i)
        fillRow(table, i + first, *targets.at(i));
    const int row = rowOf(table, currentId);
    if (row != table->currentRow())
        table->setCurrentCell(row, ShortNameColumn);
}

void TargetTableFiller::refreshMarks(QTableWidget *table) const
{
    const ColumnSizingPause pause(table->horizontalHeader());
    for (int row = 0; row < table->rowCount(); ++row) {
        if (const Target *target = m_library.target(targetId(table, row)))
            fillRow(table, row, *target);
    }
}

QString TargetTableFiller::targetId(const QTableWidget *table, int row)
{
    const QTableWidgetItem *item = table->item(row, IdColumn);
    return item ? item->text() : QString();
}

QString TargetTableFiller::shortName(const QTableWidget *table, int row)
{
    const QTableWidgetItem *item = table->item(row, ShortNameColumn);
    return item ? item->text() : QString();
}

QString TargetTableFiller::used(const Target &target) const
{
    if (m_customTargets.contains(target.id()))
        return QStringLiteral("custom");
    return target.isCalibrated() ? usedText() : QString();
}

void TargetTableFiller::fillRow(QTableWidget *table, int row, const Target &target) const
{
    constexpr Qt::ItemFlags selectable = Qt::ItemIsSelectable | Qt::ItemIsEnabled;
    const bool found = target.isTracked();
    setCell(table, row, IdColumn, target.id(), false, selectable);
    setCell(table, row, ShortNameColumn, target.shortName(), found, selectable);
    setCell(table, row, NameColumn, target.longName(), false, selectable);
    setCell(table, row, UsedColumn, used(target), false, selectable);
    setIcon(table->item(row, ShortNameColumn), found ? m_foundIcon : QIcon());
}

void TargetTableFiller::fillHeading(QTableWidget *table, int row) const
{
    for (int column = 0; column < ColumnCount; ++column) {
        setCell(table, row, column, column == ShortNameColumn ? foundTargets() : QString(), true,
                Qt::NoItemFlags);
    }
    setIcon(table->item(row, ShortNameColumn), QIcon());
    table->setSpan(row, ShortNameColumn, 1, ColumnCount - ShortNameColumn);
}
