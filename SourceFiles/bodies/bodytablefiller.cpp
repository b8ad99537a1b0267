#include "bodies/bodytablefiller.h"

#include "bodies/bodyregistry.h"
#include "controllerlink.h"
#include "hostcall.h"
#include "support/columnsizingpause.h"

#include <QCoreApplication>
#include <QLabel>
#include <QLocale>
#include <QPointer>
#include <QSignalBlocker>
#include <QSpinBox>
#include <QTableWidget>

namespace {

constexpr Qt::ItemFlags shown = Qt::ItemIsSelectable | Qt::ItemIsEnabled;

/** The icon's pixmap in the disabled mode, in the first size that `sizes` offers. */
QIcon disabled(const QIcon &icon, const QIcon &sizes)
{
    const QList<QSize> available = sizes.availableSizes();
    return available.isEmpty() ? QIcon() : QIcon(icon.pixmap(available.first(), QIcon::Disabled));
}

/** The words of records that the table translates. Records and commands keep the English words. */
const char *const words[] = {
        QT_TRANSLATE_NOOP("BodyTypeAdministrationTab", "not calibrated"),
        QT_TRANSLATE_NOOP("BodyTypeAdministrationTab", "Full"),
        QT_TRANSLATE_NOOP("BodyTypeAdministrationTab", "Optical"),
        QT_TRANSLATE_NOOP("BodyTypeAdministrationTab", "Custom"),
        QT_TRANSLATE_NOOP("BodyTypeAdministrationTab", "Custom, re-calibrated"),
        QT_TRANSLATE_NOOP("BodyTypeAdministrationTab", "Target Library"),
        QT_TRANSLATE_NOOP("BodyTypeAdministrationTab", "Target Library, re-calibrated"),
        QT_TRANSLATE_NOOP("BodyTypeAdministrationTab", "not active"),
};

/** Shows `text`; begins `pause` when the text may make a column wider. */
void showText(QTableWidgetItem *item, const QString &text, ColumnSizingPause *pause)
{
    if (item->text() == text)
        return;
    pause->begin(item->column());
    item->setText(text);
}

void showFlags(QTableWidgetItem *item, Qt::ItemFlags flags, ColumnSizingPause *pause)
{
    if (item->flags() == flags)
        return;
    pause->begin(item->column());
    item->setFlags(flags);
}

void showIcon(QTableWidgetItem *item, const QIcon &icon, ColumnSizingPause *pause)
{
    if (item->icon().cacheKey() == icon.cacheKey())
        return;
    pause->begin(item->column());
    item->setIcon(icon);
}

/**
 * Shows a check box or none; setting or clearing its mark does not change the width of the cell.
 */
void showCheck(QTableWidgetItem *item, std::optional<Qt::CheckState> state,
               ColumnSizingPause *pause)
{
    const QVariant shownState = item->data(Qt::CheckStateRole);
    if (shownState.isValid() != state.has_value())
        pause->begin(item->column());
    else if (!state || shownState.toInt() == *state)
        return;
    item->setData(Qt::CheckStateRole, state ? QVariant(int(*state)) : QVariant());
}

/** Sets the text that a screen reader says for a cell; it does not change the width of the cell. */
void showAccessibleText(QTableWidgetItem *item, const QString &text)
{
    if (item->data(Qt::AccessibleTextRole).toString() != text)
        item->setData(Qt::AccessibleTextRole, text);
}

/** Copies what a tab put into a separate item to the item of the table. */
void apply(QTableWidgetItem *item, const QTableWidgetItem &wanted, ColumnSizingPause *pause)
{
    showFlags(item, wanted.flags(), pause);
    showText(item, wanted.text(), pause);
    const QVariant state = wanted.data(Qt::CheckStateRole);
    showCheck(item,
              state.isValid() ? std::make_optional(Qt::CheckState(state.toInt())) : std::nullopt,
              pause);
    showAccessibleText(item, wanted.data(Qt::AccessibleTextRole).toString());
    showIcon(item, wanted.icon(), pause);
}

} // namespace

BodyTableFiller::Words::Words()
    : active(tr("Active")),
      reference(tr("Reference")),
      //: What a screen reader says of a check box: %1 is its column, %2 the body's name or number
      ofBody(tr("%1, %2")),
      erase(tr("Delete")),
      reset(tr("Reset"))
{
    for (const char *word : words)
        ofRecords.append({QLatin1String(word), tr(word)});
}

QString BodyTableFiller::Words::shown(const QString &text) const
{
    for (const auto &word : ofRecords) {
        if (text == word.first)
            return word.second;
    }
    return text;
}

BodyTableIcons::BodyTableIcons(const QIcon &okIcon, const QIcon &notCalibratedIcon,
                               const QIcon &noHandEyeIcon, const QIcon &crossIcon,
                               const QIcon &resetIcon)
    : ok(okIcon),
      notCalibrated(disabled(notCalibratedIcon, okIcon)),
      noHandEye(noHandEyeIcon),
      cross(crossIcon),
      crossDisabled(disabled(crossIcon, crossIcon)),
      reset(resetIcon),
      resetDisabled(disabled(resetIcon, resetIcon))
{
}

BodyTableFiller::Allowed BodyTableFiller::Allowed::by(const ControllerLink &link)
{
    return {link.protocolAtLeast(0, 16), link.protocolAtLeast(1, 11), link.protocolAtLeast(1, 24)};
}

void BodyTableFiller::setUp(QTableWidget *table, const BodyColumns &columns)
{
    table->setColumnCount(columns.size());
    table->setRowCount(0);
    table->setHorizontalHeaderLabels(columns.headers());
    table->horizontalHeader()->setSectionsClickable(false);
    table->horizontalHeader()->setStretchLastSection(true);
    table->verticalHeader()->setVisible(false);
    table->setSelectionMode(QAbstractItemView::SingleSelection);
    table->setSelectionBehavior(QAbstractItemView::SelectRows);
    for (int column = 0; column < columns.size(); ++column)
        table->setColumnHidden(column, columns.at(column).hidden);
}

void BodyTableFiller::sizeColumns(QTableWidget *table, const BodyColumns &columns)
{
    QHeaderView *header = table->horizontalHeader();
    header->setStretchLastSection(false);
    for (int column = 0; column < columns.size(); ++column) {
        header->setSectionResizeMode(column, columns.at(column).stretched
                                                     ? QHeaderView::Stretch
                                                     : QHeaderView::ResizeToContents);
    }
}

void BodyTableFiller::showFilterColumn(const AdminBodyType &record)
{
    const int column = record.columnOf(COLUMN_TYPE_FILTER);
    if (record.tableWidget && column >= 0)
        record.tableWidget->setColumnHidden(column, !record.filter6dAvailable);
}

void BodyTableFiller::showCount(const AdminBodyType &record)
{
    QSpinBox *spinBox = record.spinBox;
    const int count = record.bodies.size();
    const QSignalBlocker silent(spinBox);
    // A count that was not read must not look like "no bodies".
    const QString unread = record.isCountRead ? QString() : QStringLiteral("-");
    if (spinBox->specialValueText() != unread)
        spinBox->setSpecialValueText(unread);
    // A limit that could not be read must not reduce the number that the box shows.
    const int maximum = qMax(record.limit.value_or(spinBox->maximum()), count);
    if (spinBox->minimum() != 0 || spinBox->maximum() != maximum)
        spinBox->setRange(0, maximum);
    // Setting a value draws the box and discards what the operator is typing into it.
    QLocale locale = spinBox->locale();
    locale.setNumberOptions(QLocale::OmitGroupSeparator);
    if (spinBox->value() != count
        || spinBox->text() != (count == 0 && !unread.isEmpty() ? unread : locale.toString(count)))
        spinBox->setValue(count);
}

void BodyTableFiller::showLimit(QLabel *label, const QSpinBox *spinBox, const QString &text)
{
    label->setText(spinBox->value() >= spinBox->maximum() ? text : QString());
}

void BodyTableFiller::restoreRow(QTableWidget *table, int row, int column)
{
    const int existing = qMin(row, table->rowCount() - 1);
    if (existing != table->currentRow())
        table->setCurrentCell(existing, column < 0 ? qMax(0, table->currentColumn()) : column);
}

void BodyTableFiller::fill(const QString &type, const CustomCell &custom) const
{
    const QPointer<QTableWidget> table = m_registry.type(type).tableWidget;
    const QVector<COLUMN_TYPE> kinds = m_registry.type(type).tableWidgetColumns;
    const int rows = m_registry.type(type).bodies.size();
    ColumnSizingPause pause(table->horizontalHeader());
    if (table->rowCount() != rows)
        pause.begin();
    table->setRowCount(rows);
    for (int row = 0; row < table->rowCount(); ++row) {
        for (int column = 0; column < kinds.size(); ++column) {
            const COLUMN_TYPE kind = kinds.at(column);
            // The custom cell may have run the host's code, which may have changed records and
            // table.
            const AdminBodyType &record = m_registry.type(type);
            if (!record.isValidIndex(row))
                return;
            if (kind != COLUMN_TYPE_CUSTOM) {
                put(table, row, column, &pause,
                    [&](QTableWidgetItem *item) { show(item, kind, record, row, &pause); });
                continue;
            }
            QTableWidgetItem wanted;
            wanted.setFlags(shown);
            custom(type, row, column, &wanted);
            if (!table || HostCall::isKept(table))
                return;
            put(table, row, column, &pause,
                [&](QTableWidgetItem *item) { apply(item, wanted, &pause); });
        }
    }
}

template <typename ShowIn>
void BodyTableFiller::put(QTableWidget *table, int row, int column, ColumnSizingPause *pause,
                          const ShowIn &showIn)
{
    if (QTableWidgetItem *item = table->item(row, column)) {
        showIn(item);
    } else if (row < table->rowCount()) {
        pause->begin();
        auto *added = new QTableWidgetItem;
        showIn(added);
        table->setItem(row, column, added);
    }
}

void BodyTableFiller::show(QTableWidgetItem *item, COLUMN_TYPE kind, const AdminBodyType &record,
                           int row, ColumnSizingPause *pause) const
{
    const AdminBody &body = record.bodies.at(row);
    switch (kind) {
    case COLUMN_TYPE_ID:
        showFlags(item, shown, pause);
        showText(item, record.tableWidgetColumnIdFormat.arg(row + 1), pause);
        break;
    case COLUMN_TYPE_ACTIVE:
        showCheckCell(item, {body.active, m_allowed.activity, m_words.active}, record, row, pause);
        break;
    case COLUMN_TYPE_REFERENCE:
        showCheckCell(item, {body.isReference, m_allowed.reference, m_words.reference}, record, row,
                      pause);
        break;
    case COLUMN_TYPE_NAME:
        showFlags(item, nameFlags(), pause);
        showText(item, body.desc, pause);
        break;
    case COLUMN_TYPE_CALIBRATED:
        showFlags(item, Qt::ItemIsEnabled, pause);
        showText(item, m_words.shown(body.calibrationStatus), pause);
        showIcon(item, calibrationIcon(body), pause);
        break;
    case COLUMN_TYPE_FILTER:
        showFlags(item, shown, pause);
        showText(item, m_words.shown(body.filter6dPreset), pause);
        break;
    case COLUMN_TYPE_DELETE:
        showButtonCell(item, body.calibrated || !body.inertialSensor.isEmpty(), m_icons.cross,
                       m_icons.crossDisabled, pause);
        showAccessibleText(item, m_words.erase);
        break;
    case COLUMN_TYPE_RESET:
        showButtonCell(item, isResetLive(body), m_icons.reset, m_icons.resetDisabled, pause);
        showAccessibleText(item, m_words.reset);
        break;
    case COLUMN_TYPE_CUSTOM: // GCOVR_EXCL_LINE: fill() leaves these cells to the tab
        break;               // GCOVR_EXCL_LINE: as above
    }
}

Qt::ItemFlags BodyTableFiller::nameFlags() const
{
    return m_allowed.names && !m_registry.isLocked() ? shown | Qt::ItemIsEditable : shown;
}

bool BodyTableFiller::isResetLive(const AdminBody &body) const
{
    return (body.recalibrated && !body.tlibName.isEmpty())
           || (!body.inertialSensor.isEmpty() && m_warmupRuleMet);
}

void BodyTableFiller::showCheckCell(QTableWidgetItem *item, const CheckCell &cell,
                                    const AdminBodyType &record, int row,
                                    ColumnSizingPause *pause) const
{
    const AdminBody &body = record.bodies.at(row);
    const bool hasBox = body.calibrated || body.active;
    const bool isCheckable = hasBox && cell.checkable && !m_registry.isLocked();
    showFlags(item, isCheckable ? shown | Qt::ItemIsUserCheckable : shown, pause);
    if (!hasBox) {
        showCheck(item, std::nullopt, pause);
        showAccessibleText(item, QString());
        return;
    }
    showCheck(item, cell.checked ? Qt::Checked : Qt::Unchecked, pause);
    const QString name =
            body.desc.isEmpty() ? record.tableWidgetColumnIdFormat.arg(row + 1) : body.desc;
    showAccessibleText(item, m_words.ofBody.arg(cell.column, name));
}

const QIcon &BodyTableFiller::calibrationIcon(const AdminBody &body) const
{
    if (!body.calibrated)
        return m_icons.notCalibrated;
    return !body.inertialSensor.isEmpty() && !body.has_handeye ? m_icons.noHandEye : m_icons.ok;
}

void BodyTableFiller::showButtonCell(QTableWidgetItem *item, bool live, const QIcon &icon,
                                     const QIcon &disabledIcon, ColumnSizingPause *pause) const
{
    const bool acts = live && !m_registry.isLocked();
    showFlags(item, shown, pause);
    showIcon(item, acts ? icon : disabledIcon, pause);
    const QVariant mark = item->data(liveRole);
    if (mark.isValid() && mark.toInt() == (acts ? 1 : 0))
        return;
    pause->begin(item->column());
    item->setData(liveRole, acts ? 1 : 0);
}
