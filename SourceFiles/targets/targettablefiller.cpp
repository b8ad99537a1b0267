#include "targets/targettablefiller.h"

#include "support/columnsizingpause.h"
#include "targetlibrary.h"
#include "targets/target.h"

#include <QHeaderView>
#include <QTableWidget>

#include <algorithm>

namespace {

/** Role for the untranslated word behind a "Used" cell. */
constexpr int usedRole = Qt::UserRole;
const char *const usedWord = QT_TRANSLATE_NOOP("BodyTypeAdministrationTab", "yes");
const char *const customWord = QT_TRANSLATE_NOOP("BodyTypeAdministrationTab", "custom");

/** The item of a cell; it is made when the cell has none. */
QTableWidgetItem *itemAt(QTableWidget *table, int row, int column, ColumnSizingPause &pause)
{
    QTableWidgetItem *item = table->item(row, column);
    if (!item) {
        pause.begin();
        item = new QTableWidgetItem;
        table->setItem(row, column, item);
    }
    return item;
}

void setCell(QTableWidget *table, int row, int column, const QString &text, bool bold,
             Qt::ItemFlags flags, ColumnSizingPause &pause)
{
    QTableWidgetItem *item = itemAt(table, row, column, pause);
    const QVariant font = item->data(Qt::FontRole);
    const bool boldDiffers = bold != (font.isValid() && font.value<QFont>().bold());
    if (item->text() != text || item->flags() != flags || boldDiffers)
        pause.begin(column);
    if (item->text() != text)
        item->setText(text);
    if (item->flags() != flags)
        item->setFlags(flags);
    if (boldDiffers) {
        QFont changed = item->font();
        changed.setBold(bold);
        item->setFont(changed);
    }
}

void setIcon(QTableWidgetItem *item, const QIcon &icon, ColumnSizingPause &pause)
{
    if (item->icon().cacheKey() == icon.cacheKey())
        return;
    pause.begin(item->column());
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

bool TargetTableFiller::isUsed(const QTableWidget *table, int row)
{
    const QTableWidgetItem *item = table->item(row, UsedColumn);
    return item && item->data(usedRole) == QLatin1String(usedWord);
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

QVector<const Target *> TargetTableFiller::inCategory(const QString &type,
                                                      const QString &category) const
{
    if (category.isNull())
        return all(type);
    const bool found = category == foundTargets();
    QVector<const Target *> listed;
    for (const Target *target : m_library.targets()) {
        const bool belongs =
                found ? target->isTracked() : m_library.getGroupFromTid(target->id()) == category;
        if (belongs && m_library.isOfType(*target, type))
            listed.append(target);
    }
    return listed;
}

QVector<const Target *> TargetTableFiller::all(const QString &type) const
{
    QVector<const Target *> listed;
    for (const Target *target : m_library.targets()) {
        if (m_library.isOfType(*target, type))
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
    ColumnSizingPause pause(table->horizontalHeader());
    const bool hasHeading =
            heading && std::any_of(targets.begin(), targets.end(), [](const Target *target) {
                return target->isTracked();
            });
    const int first = hasHeading ? 1 : 0;
    // Only the heading spans columns. Clearing spans that do not exist draws the whole table.
    if (!hasHeading && table->columnSpan(0, ShortNameColumn) > 1)
        table->clearSpans();
    if (table->rowCount() != targets.size() + first)
        pause.begin();
    table->setRowCount(targets.size() + first);
    if (hasHeading)
        fillHeading(table, 0, &pause);
    for (int i = 0; i < targets.size(); ++i)
        fillRow(table, i + first, *targets.at(i), &pause);
    const int row = rowOf(table, currentId);
    if (row != table->currentRow())
        table->setCurrentCell(row, ShortNameColumn);
}

void TargetTableFiller::refreshMarks(QTableWidget *table) const
{
    ColumnSizingPause pause(table->horizontalHeader());
    for (int row = 0; row < table->rowCount(); ++row) {
        if (const Target *target = m_library.target(targetId(table, row)))
            fillRow(table, row, *target, &pause);
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

const char *TargetTableFiller::used(const Target &target) const
{
    if (m_customTargets.contains(target.id()))
        return customWord;
    return target.isCalibrated() ? usedWord : "";
}

void TargetTableFiller::fillRow(QTableWidget *table, int row, const Target &target,
                                ColumnSizingPause *pause) const
{
    constexpr Qt::ItemFlags selectable = Qt::ItemIsSelectable | Qt::ItemIsEnabled;
    const bool found = target.isTracked();
    setCell(table, row, IdColumn, target.id(), false, selectable, *pause);
    setCell(table, row, ShortNameColumn, target.shortName(), found, selectable, *pause);
    setCell(table, row, NameColumn, target.longName(), false, selectable, *pause);
    const char *const word = used(target);
    setCell(table, row, UsedColumn, *word ? tr(word) : QString(), false, selectable, *pause);
    table->item(row, UsedColumn)->setData(usedRole, QLatin1String(word));
    setIcon(table->item(row, ShortNameColumn), found ? m_foundIcon : QIcon(), *pause);
}

void TargetTableFiller::fillHeading(QTableWidget *table, int row, ColumnSizingPause *pause) const
{
    for (int column = 0; column < ColumnCount; ++column) {
        setCell(table, row, column, column == ShortNameColumn ? foundTargets() : QString(), true,
                Qt::NoItemFlags, *pause);
    }
    table->item(row, UsedColumn)->setData(usedRole, QVariant());
    setIcon(table->item(row, ShortNameColumn), QIcon(), *pause);
    constexpr int spanned = ColumnCount - ShortNameColumn;
    if (table->columnSpan(row, ShortNameColumn) != spanned)
        table->setSpan(row, ShortNameColumn, 1, spanned);
}
