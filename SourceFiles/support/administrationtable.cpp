#include "support/administrationtable.h"

#include "plaintext.h"

#include <QHeaderView>
#include <QHelpEvent>
#include <QPainter>
#include <QScrollBar>
#include <QStyledItemDelegate>
#include <QToolTip>

namespace {

constexpr int leastNameCharacters = 18;
constexpr int fewestRows = 8;
constexpr int mostRows = 20;
constexpr int focusWidth = 2;

/**
 * Draws an icon on a selected row in its own colours, because a tinted icon looks like a disabled
 * one.
 */
class PlainIconDelegate final : public QStyledItemDelegate {
public:
    using QStyledItemDelegate::QStyledItemDelegate;

protected:
    void initStyleOption(QStyleOptionViewItem *option, const QModelIndex &index) const override
    {
        QStyledItemDelegate::initStyleOption(option, index);
        if (option->icon.isNull())
            return;
        QIcon plain = option->icon;
        plain.addPixmap(plain.pixmap(option->decorationSize), QIcon::Selected);
        option->icon = plain;
    }
};

} // namespace

AdministrationTable::AdministrationTable(QWidget *parent) : QTableWidget(parent)
{
    setItemDelegate(new PlainIconDelegate(this));
    connect(horizontalHeader(), &QHeaderView::sectionResized, this,
            [this](int column) { columnResized(column); });
    connect(model(), &QAbstractItemModel::rowsInserted, this,
            &AdministrationTable::contentsChanged);
    connect(model(), &QAbstractItemModel::rowsRemoved, this, &AdministrationTable::contentsChanged);
}

AdministrationTable::~AdministrationTable() = default;

void AdministrationTable::setHint(const QString &hint)
{
    m_hint = hint;
    contentsChanged();
}

void AdministrationTable::contentsChanged()
{
    setAccessibleDescription(rowCount() == 0 ? m_hint : QString());
    viewport()->update();
    fitLater();
}

// Widths

void AdministrationTable::columnResized(int column)
{
    if (horizontalHeader()->sectionResizeMode(column) != QHeaderView::Stretch)
        fitLater();
}

void AdministrationTable::fitLater()
{
    if (m_isFitPending)
        return;
    m_isFitPending = true;
    // A fill changes many columns, and the layout needs to follow only once.
    QMetaObject::invokeMethod(this, &AdministrationTable::fit, Qt::QueuedConnection);
}

void AdministrationTable::fit()
{
    m_isFitPending = false;
    if (m_formWidth < 0)
        m_formWidth = minimumWidth();
    setMinimumWidth(qMax(m_formWidth, leastWidth()));
    updateGeometry();
}

int AdministrationTable::widthAroundColumns() const
{
    return 2 * frameWidth() + verticalScrollBar()->sizeHint().width();
}

int AdministrationTable::leastWidth() const
{
    const QHeaderView *header = horizontalHeader();
    const int leastName = fontMetrics().averageCharWidth() * leastNameCharacters;
    int width = widthAroundColumns();
    for (int column = 0; column < columnCount(); ++column) {
        if (header->isSectionHidden(column))
            continue;
        const bool named = header->sectionResizeMode(column) == QHeaderView::Stretch;
        width += named ? qMax(leastName, header->sectionSizeHint(column))
                       : header->sectionSize(column);
    }
    return width;
}

QSize AdministrationTable::sizeHint() const
{
    const QHeaderView *header = horizontalHeader();
    int width = widthAroundColumns();
    for (int column = 0; column < columnCount(); ++column) {
        if (!header->isSectionHidden(column))
            width += qMax(sizeHintForColumn(column), header->sectionSizeHint(column));
    }
    const int rows = qBound(fewestRows, rowCount(), mostRows);
    const int height = header->sizeHint().height() + rows * verticalHeader()->defaultSectionSize()
                       + 2 * frameWidth();
    return QSize(qMax(width, leastWidth()), height).expandedTo(minimumSize());
}

// What is drawn and said beyond the cells

void AdministrationTable::paintEvent(QPaintEvent *event)
{
    QTableWidget::paintEvent(event);
    if (rowCount() > 0) {
        paintCurrentCell();
        return;
    }
    QPainter painter(viewport());
    painter.setPen(palette().color(QPalette::Text));
    painter.drawText(viewport()->rect().adjusted(focusWidth, focusWidth, -focusWidth, -focusWidth),
                     int(Qt::AlignCenter) | Qt::TextWordWrap, m_hint);
}

void AdministrationTable::paintCurrentCell()
{
    const QModelIndex current = currentIndex();
    if (!hasFocus() || !current.isValid())
        return;
    const bool selected = selectionModel()->isSelected(current);
    QPainter painter(viewport());
    QPen pen(palette().color(selected ? QPalette::HighlightedText : QPalette::Highlight));
    pen.setWidth(focusWidth);
    pen.setJoinStyle(Qt::MiterJoin);
    painter.setPen(pen);
    painter.drawRect(visualRect(current).adjusted(1, 1, -focusWidth, -focusWidth));
}

bool AdministrationTable::viewportEvent(QEvent *event)
{
    if (event->type() == QEvent::ToolTip) {
        const auto *help = static_cast<QHelpEvent *>(event);
        if (showCutText(help->pos(), help->globalPos()))
            return true;
    }
    return QTableWidget::viewportEvent(event);
}

bool AdministrationTable::showCutText(const QPoint &position, const QPoint &globalPosition)
{
    const QModelIndex index = indexAt(position);
    const QString text = index.data(Qt::DisplayRole).toString();
    if (text.isEmpty() || !index.data(Qt::ToolTipRole).toString().isEmpty())
        return false;
    const QRect cell = visualRect(index);
    const int needed = sizeHintForIndex(index).width();
    if (needed <= cell.width() && viewport()->rect().contains(cell))
        return false;
    QToolTip::showText(globalPosition, PlainText::toolTip(text), viewport(), cell);
    return true;
}
