#include "angletablewidget.h"

#include <QHeaderView>
#include <QSignalBlocker>

#include <cmath>

namespace {

enum Column { IdColumn, NameColumn, FirstAngleColumn, ColumnCount = FirstAngleColumn + 3 };

constexpr double smallestDegrees = -20.0;
constexpr double largestDegrees = 20.0;

/** On the item of the "ID" column: the angles of the row were never read. */
constexpr int unreadRole = Qt::UserRole;

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
    setRowCount(0);
    setColumnCount(ColumnCount);
    setHorizontalHeaderLabels({tr("ID"), tr("Name"), tr("rx"), tr("ry"), tr("rz")});
    horizontalHeader()->setSectionsClickable(false);
    horizontalHeader()->setStretchLastSection(true);
    verticalHeader()->hide();
    // Tab leaves the table, so that the buttons can be reached without a mouse.
    setTabKeyNavigation(false);
}

void AngleTableWidget::fill_in_table(const QList<FixedAngleBody *> &bodies)
{
    const QSignalBlocker filling(this);
    setRowCount(bodies.size());
    for (int row = 0; row < bodies.size(); ++row)
        fillRow(row, *bodies.at(row));
}

void AngleTableWidget::fillRow(int row, const FixedAngleBody &body)
{
    constexpr Qt::ItemFlags shown = Qt::ItemIsSelectable | Qt::ItemIsEnabled;
    auto *id = new QTableWidgetItem(QString::number(body.body_id));
    id->setData(unreadRole, !body.angles_known);
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
        }
        setItem(row, FirstAngleColumn + axis, angle);
    }
}

std::optional<FixedAngleBody> AngleTableWidget::body(int row) const
{
    const QTableWidgetItem *id = item(row, IdColumn);
    const QTableWidgetItem *name = item(row, NameColumn);
    if (!id || !name)
        return std::nullopt;
    FixedAngleBody body;
    body.body_id = id->text().toInt();
    body.body_des = name->text();
    body.angles_known = true;
    for (int axis = 0; axis < int(body.fixed_angle.size()); ++axis) {
        const QTableWidgetItem *angle = item(row, FirstAngleColumn + axis);
        const auto degrees = degreesOf(angle);
        if (!degrees)
            return std::nullopt;
        body.fixed_angle[axis] = *degrees;
        body.fixed_angle_enable[axis] = angle->checkState() == Qt::Checked;
    }
    return body;
}

bool AngleTableWidget::isUnread(int row) const
{
    const QTableWidgetItem *id = item(row, IdColumn);
    return id && id->data(unreadRole).toBool();
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
    if (!angle || column < FirstAngleColumn)
        return;
    const QSignalBlocker filling(this);
    const double degrees = degreesOf(angle).value_or(0.0);
    const bool allowed = degrees >= smallestDegrees && degrees <= largestDegrees;
    angle->setText(angleText(allowed ? degrees : 0.0));
    if (QTableWidgetItem *id = item(row, IdColumn))
        id->setData(unreadRole, false);
}
