#include "bodies/bodytablefiller.h"

#include "bodies/bodyregistry.h"
#include "controllerlink.h"
#include "hostcall.h"
#include "support/columnsizingpause.h"

#include <QCoreApplication>
#include <QLabel>
#include <QPointer>
#include <QSignalBlocker>
#include <QSpinBox>
#include <QTableWidget>

namespace {

constexpr Qt::ItemFlags shown = Qt::ItemIsSelectable | Qt::ItemIsEnabled;

/** The icon's pixmap in the disabled mode, at the first size that `sizes` offers. */
QIcon disabled(const QIcon &icon, const QIcon &sizes)
{
    const QList<QSize> available = sizes.availableSizes();
    return available.isEmpty() ? QIcon() : QIcon(icon.pixmap(available.first(), QIcon::Disabled));
}

/** The words of records that the table shows; records and commands keep the English ones. */
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

/** `text` in the operator's language when it is one of our words, else as the controller gave it.
 */
QString inWords(const QString &text)
{
    for (const char *word : words) {
        if (text == QLatin1String(word))
            return QCoreApplication::translate("BodyTypeAdministrationTab", word);
    }
    return text;
}

/** Puts into `item` what differs in `wanted`. */
void apply(QTableWidgetItem *item, const QTableWidgetItem &wanted, ColumnSizingPause *pause)
{
    if (item->flags() != wanted.flags()) {
        pause->begin();
        item->setFlags(wanted.flags());
    }
    for (const int role : {int(Qt::DisplayRole), int(Qt::CheckStateRole),
                           int(Qt::AccessibleTextRole), BodyTableFiller::liveRole}) {
        if (item->data(role) == wanted.data(role))
            continue;
        pause->begin();
        item->setData(role, wanted.data(role));
    }
    if (item->icon().cacheKey() != wanted.icon().cacheKey()) {
        pause->begin();
        item->setIcon(wanted.icon());
    }
}

} // namespace

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
    // An unread count must not read as "no bodies".
    const QString unread = record.isCountRead ? QString() : QStringLiteral("-");
    if (spinBox->specialValueText() != unread)
        spinBox->setSpecialValueText(unread);
    // A limit that could not be read must not make the box show fewer bodies than there are.
    const int maximum = qMax(record.limit.value_or(spinBox->maximum()), count);
    if (spinBox->minimum() != 0 || spinBox->maximum() != maximum)
        spinBox->setRange(0, maximum);
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
    const AdminBodyType &record = m_registry.type(type);
    const QPointer<QTableWidget> table = record.tableWidget;
    const QVector<COLUMN_TYPE> kinds = record.tableWidgetColumns;
    const int rows = record.bodies.size();
    ColumnSizingPause pause(table->horizontalHeader());
    if (table->rowCount() != rows)
        pause.begin();
    table->setRowCount(rows);
    for (int row = 0; row < table->rowCount(); ++row) {
        for (int column = 0; column < kinds.size(); ++column) {
            // A custom cell may have let the host change the records, and fill the table again.
            if (!m_registry.hasBody(type, row))
                return;
            const COLUMN_TYPE kind = kinds.at(column);
            QTableWidgetItem wanted = cell(kind, m_registry.type(type), row);
            if (kind == COLUMN_TYPE_CUSTOM)
                custom(type, row, column, &wanted);
            if (!table || HostCall::isKept(table))
                return;
            put(table, row, column, wanted, &pause);
        }
    }
}

void BodyTableFiller::put(QTableWidget *table, int row, int column, const QTableWidgetItem &wanted,
                          ColumnSizingPause *pause)
{
    if (QTableWidgetItem *item = table->item(row, column)) {
        apply(item, wanted, pause);
    } else if (row < table->rowCount()) {
        pause->begin();
        table->setItem(row, column, new QTableWidgetItem(wanted));
    }
}

QTableWidgetItem BodyTableFiller::cell(COLUMN_TYPE kind, const AdminBodyType &record, int row) const
{
    const AdminBody &body = record.bodies.at(row);
    QTableWidgetItem item;
    item.setFlags(shown);
    switch (kind) {
    case COLUMN_TYPE_ID:
        item.setText(record.tableWidgetColumnIdFormat.arg(row + 1));
        break;
    case COLUMN_TYPE_ACTIVE:
        return checkCell(body, body.active, m_allowed.activity,
                         cellName(tr("Active"), record, row));
    case COLUMN_TYPE_REFERENCE:
        return checkCell(body, body.isReference, m_allowed.reference,
                         cellName(tr("Reference"), record, row));
    case COLUMN_TYPE_NAME:
        item.setFlags(m_allowed.names && !m_registry.isLocked() ? shown | Qt::ItemIsEditable
                                                                : shown);
        item.setText(body.desc);
        break;
    case COLUMN_TYPE_CALIBRATED:
        return calibrationCell(body);
    case COLUMN_TYPE_FILTER:
        item.setText(inWords(body.filter6dPreset));
        break;
    case COLUMN_TYPE_DELETE:
        return buttonCell(body.calibrated || !body.inertialSensor.isEmpty(), m_icons.cross,
                          m_icons.crossDisabled, tr("Delete"));
    case COLUMN_TYPE_RESET:
        return buttonCell((body.recalibrated && !body.tlibName.isEmpty())
                                  || (!body.inertialSensor.isEmpty() && m_warmupRuleMet),
                          m_icons.reset, m_icons.resetDisabled, tr("Reset"));
    case COLUMN_TYPE_CUSTOM:
        break;
    }
    return item;
}

QString BodyTableFiller::cellName(const QString &column, const AdminBodyType &record, int row)
{
    const QString &name = record.bodies.at(row).desc;
    //: What a screen reader says of a check box: %1 is its column, %2 the body's name or number
    return tr("%1, %2").arg(column,
                            name.isEmpty() ? record.tableWidgetColumnIdFormat.arg(row + 1) : name);
}

QTableWidgetItem BodyTableFiller::checkCell(const AdminBody &body, bool checked, bool checkable,
                                            const QString &accessibleText) const
{
    QTableWidgetItem item;
    item.setFlags(shown);
    if (!body.calibrated && !body.active)
        return item;
    if (checkable && !m_registry.isLocked())
        item.setFlags(shown | Qt::ItemIsUserCheckable);
    item.setCheckState(checked ? Qt::Checked : Qt::Unchecked);
    item.setData(Qt::AccessibleTextRole, accessibleText);
    return item;
}

QTableWidgetItem BodyTableFiller::calibrationCell(const AdminBody &body) const
{
    QTableWidgetItem item;
    item.setFlags(Qt::ItemIsEnabled);
    item.setText(inWords(body.calibrationStatus));
    if (!body.calibrated)
        item.setIcon(m_icons.notCalibrated);
    else if (!body.inertialSensor.isEmpty() && !body.has_handeye)
        item.setIcon(m_icons.noHandEye);
    else
        item.setIcon(m_icons.ok);
    return item;
}

QTableWidgetItem BodyTableFiller::buttonCell(bool live, const QIcon &icon,
                                             const QIcon &disabledIcon,
                                             const QString &accessibleText) const
{
    const bool acts = live && !m_registry.isLocked();
    QTableWidgetItem item;
    item.setFlags(shown);
    item.setIcon(acts ? icon : disabledIcon);
    item.setData(liveRole, acts ? 1 : 0);
    item.setData(Qt::AccessibleTextRole, accessibleText);
    return item;
}
