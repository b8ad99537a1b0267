#include "angletablewidget.h"

#include <QHeaderView>
#include <QSignalBlocker>
#include <QStyle>

#include <algorithm>
#include <cmath>

namespace {

constexpr double smallestDegrees = -20.0;
constexpr double largestDegrees = 20.0;

QString angleText(double degrees)
{
    return QString::asprintf("%1.2f", degrees);
}

std::optional<double> degreesOf(const QTableWidgetItem *item)
{
    bool isNumber = false;
    const double degrees = item ? item->text().toDouble(&isNumber) : 0.0;
    if (!isNumber || !std::isfinite(degrees))
        return std::nullopt;
    return degrees;
}

} // namespace

AngleTableWidget::AngleTableWidget(BackendVersions *, QObject *parent)
    : QTableWidget(qobject_cast<QWidget *>(parent))
{
    initial_table();
    connect(this, &QTableWidget::cellDoubleClicked, this, &AngleTableWidget::click_cell);
    connect(this, &QTableWidget::cellChanged, this, &AngleTableWidget::changed_cell);
}

void AngleTableWidget::initial_table()
{
    m_rows.clear();
    setRowCount(0);
    setColumnCount(ColumnCount);
    setHorizontalHeaderLabels({tr("ID"), tr("Name"), tr("rx"), tr("ry"), tr("rz")});
    horizontalHeader()->setSectionsClickable(false);
    horizontalHeader()->setStretchLastSection(true);
    verticalHeader()->hide();
    setWordWrap(false);
    // Tab leaves the table, so that the buttons can be reached without a mouse.
    setTabKeyNavigation(false);
}

void AngleTableWidget::fill_in_table(const QList<FixedAngleBody *> &bodies)
{
    const QSignalBlocker filling(this);
    m_rows.resize(bodies.size());
    setRowCount(bodies.size());
    for (int row = 0; row < bodies.size(); ++row)
        fillRow(row, *bodies.at(row));
}

void AngleTableWidget::fillRow(int row, const FixedAngleBody &body)
{
    constexpr Qt::ItemFlags shown = Qt::ItemIsSelectable | Qt::ItemIsEnabled;
    m_rows[row] = {body, body.fixed_angle_enable, {}, {}, {}};
    auto *id = new QTableWidgetItem(QString::number(body.body_id));
    id->setFlags(shown);
    setItem(row, IdColumn, id);
    auto *name = new QTableWidgetItem(body.body_des);
    name->setFlags(shown);
    setItem(row, NameColumn, name);
    for (int axis = 0; axis < int(body.fixed_angle.size()); ++axis) {
        auto *angle = new QTableWidgetItem(body.body_cali ? angleText(body.fixed_angle[axis])
                                                          : QStringLiteral("0.0"));
        angle->setCheckState(body.fixed_angle_enable[axis] ? Qt::Checked : Qt::Unchecked);
        if (body.body_cali) {
            angle->setFlags(shown | Qt::ItemIsEditable | Qt::ItemIsUserCheckable);
        } else {
            angle->setFlags(shown);
            angle->setBackground(Qt::lightGray);
            // On a dark desktop the default text colour cannot be read on light grey.
            angle->setForeground(Qt::black);
        }
        m_rows[row].shownTexts[axis] = angle->text();
        setItem(row, FirstAngleColumn + axis, angle);
    }
}

std::optional<FixedAngleBody> AngleTableWidget::body(int row) const
{
    if (row < 0 || row >= m_rows.size())
        return std::nullopt;
    FixedAngleBody body = m_rows.at(row).body;
    for (int axis = 0; axis < int(body.fixed_angle.size()); ++axis) {
        const QTableWidgetItem *angle = item(row, FirstAngleColumn + axis);
        const auto degrees = degreesOf(angle);
        if (!degrees)
            return std::nullopt;
        // A grey row shows "0.0" for every angle, and keeps the angles that were read.
        if (!body.body_cali)
            continue;
        body.fixed_angle[axis] = *degrees;
        body.fixed_angle_enable[axis] = angle->checkState() == Qt::Checked;
    }
    return body;
}

int AngleTableWidget::leastAngleWidth() const
{
    QStyleOptionViewItem option;
    option.initFrom(this);
    option.font = font();
    option.widget = this;
    option.features = QStyleOptionViewItem::HasCheckIndicator | QStyleOptionViewItem::HasDisplay;
    option.text = angleText(largestDegrees * -1.0);
    const int gridLine = 1;
    return style()->sizeFromContents(QStyle::CT_ItemViewItem, &option, QSize(), this).width()
           + gridLine;
}

bool AngleTableWidget::isUnread(int row) const
{
    const Row &known = m_rows.at(row);
    const auto isSet = [](bool set) { return set; };
    const bool allSet = std::all_of(known.angleSet.begin(), known.angleSet.end(), isSet)
                        && std::all_of(known.flagSet.begin(), known.flagSet.end(), isSet);
    return !known.body.angles_known && !allSet;
}

bool AngleTableWidget::isTouched(int row) const
{
    const Row &known = m_rows.at(row);
    const auto isSet = [](bool set) { return set; };
    return std::any_of(known.angleSet.begin(), known.angleSet.end(), isSet)
           || std::any_of(known.flagSet.begin(), known.flagSet.end(), isSet);
}

void AngleTableWidget::commitData(QWidget *editor)
{
    // Entering the number that is already shown also sets the angle, but changes no cell.
    const int axis = currentColumn() - FirstAngleColumn;
    if (axis >= 0 && currentRow() >= 0 && currentRow() < m_rows.size())
        m_rows[currentRow()].angleSet[axis] = true;
    QTableWidget::commitData(editor);
}

void AngleTableWidget::click_cell(int row, int column)
{
    QTableWidgetItem *clicked = item(row, column);
    if (!clicked || column >= FirstAngleColumn)
        return;
    const QSignalBlocker filling(this);
    clicked->setFlags(clicked->flags() & ~Qt::ItemIsEditable);
}

void AngleTableWidget::changed_cell(int row, int column)
{
    QTableWidgetItem *angle = item(row, column);
    if (!angle || column < FirstAngleColumn || row >= m_rows.size())
        return;
    const QSignalBlocker filling(this);
    const double degrees = degreesOf(angle).value_or(0.0);
    const bool allowed = degrees >= smallestDegrees && degrees <= largestDegrees;
    const int axis = column - FirstAngleColumn;
    Row &known = m_rows[row];
    const bool checked = angle->checkState() == Qt::Checked;
    known.flagSet[axis] = known.flagSet[axis] || checked != known.shownFlags[axis];
    known.angleSet[axis] = known.angleSet[axis] || angle->text() != known.shownTexts[axis];
    angle->setText(angleText(allowed ? degrees : 0.0));
    known.shownFlags[axis] = checked;
    known.shownTexts[axis] = angle->text();
}
