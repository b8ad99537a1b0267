#include "DialogOracle.h"

#include "BackendVersions.h"
#include "BodyTruth.h"
#include "WidgetText.h"

#include <QAbstractItemView>
#include <QApplication>
#include <QComboBox>
#include <QDoubleSpinBox>
#include <QTableView>

#include <array>

namespace {

/** A table of bodies: its object name, the bodies it shows and how it numbers them. */
struct BodyTable {
    const char *table;
    const char *bodyType;
    const char *idFormat;
};

const BodyTable bodyTables[] = {
        {"tableWidget_standard", "standard", "%1"},
        {"tableWidget_joywand", "joywand", "F%1"},
        {"tableWidget_head", "multiuserjoywand_head", "%1"},
        {"tableWidget_fingertracking", "fingertracking", "H%1"},
        {"tableWidget_mt", "measurementtool", "M%1"},
        {"tableWidget_ref", "measurementtool_reference", "MR%1"},
};

const QPair<const char *, const char *> countBoxes[] = {
        {"spinBox_standard_bodies", "standard"},
        {"spinBox_joywands", "joywand"},
        {"spinBox_hands", "fingertracking"},
        {"spinBox_mt", "measurementtool"},
        {"spinBox_mtref", "measurementtool_reference"},
};

const char *const axisNames[] = {"x", "-x", "y", "-y", "z", "-z"};

/** The visible widget with that object name below the dialog; null when there is none. */
const QWidget *shown(const QWidget *dialog, const char *name)
{
    const QWidgetList all = QApplication::allWidgets();
    for (const QWidget *widget : all) {
        if (widget->objectName() == QLatin1String(name) && widget->isVisible()
            && dialog->isAncestorOf(widget))
            return widget;
    }
    return nullptr;
}

void compare(QStringList *lines, const QString &place, const QString &found,
             const QString &expected)
{
    if (found != expected) {
        *lines << QStringLiteral("%1: shows \"%2\", the controller holds \"%3\"")
                          .arg(place, found, expected);
    }
}

void compareBodyRow(QStringList *lines, const ControllerState &state, const BodyTable &table,
                    const QAbstractItemModel *model, int row)
{
    const QString type = QLatin1String(table.bodyType);
    for (int column = 0; column < model->columnCount(); ++column) {
        const QString title = model->headerData(column, Qt::Horizontal).toString();
        const QString found = WidgetText::ofItem(model->index(row, column));
        const QString place = QStringLiteral("%1 row %2 %3")
                                      .arg(QLatin1String(table.table))
                                      .arg(row + 1)
                                      .arg(title);
        QString expected;
        if (title == QLatin1String("ID"))
            compare(lines, place, found, QString::fromLatin1(table.idFormat).arg(row + 1));
        else if (BodyTruth::cell(state, type, row, title, &expected))
            compare(lines, place, found, expected);
    }
}

void compareBodyTables(QStringList *lines, const ControllerState &state, const QWidget *dialog)
{
    for (const BodyTable &table : bodyTables) {
        const auto *view = qobject_cast<const QTableView *>(shown(dialog, table.table));
        if (!view)
            continue;
        const int bodies = state.bodyTypes.value(QLatin1String(table.bodyType)).bodies.size();
        compare(lines, QStringLiteral("%1 rows").arg(QLatin1String(table.table)),
                QString::number(view->model()->rowCount()), QString::number(bodies));
        for (int row = 0; row < qMin(bodies, view->model()->rowCount()); ++row)
            compareBodyRow(lines, state, table, view->model(), row);
    }
    for (const auto &box : countBoxes) {
        if (const QWidget *widget = shown(dialog, box.first)) {
            compare(lines, QLatin1String(box.first), WidgetText::of(widget),
                    QString::number(
                            state.bodyTypes.value(QLatin1String(box.second)).bodies.size()));
        }
    }
}

bool isOlderThan(const ControllerState &state, int minor)
{
    VersionInfo protocol;
    protocol.fromString(state.protocol);
    return protocol < VersionInfo(1, minor, -1);
}

bool isAssigned(const ControllerState &state, const TargetState &target)
{
    for (const BodyTypeState &type : state.bodyTypes) {
        for (const BodyState &body : type.bodies) {
            if (body.target == target.shortName)
                return true;
        }
    }
    return false;
}

const TargetState *targetNamed(const ControllerState &state, const QString &shortName)
{
    for (const TargetState &target : state.targets) {
        if (target.shortName == shortName)
            return &target;
    }
    return nullptr;
}

void compareTargets(QStringList *lines, const ControllerState &state, const QWidget *dialog)
{
    const auto *view = qobject_cast<const QTableView *>(shown(dialog, "tableWidget_targetlibrary"));
    for (int row = 0; view && row < view->model()->rowCount(); ++row) {
        const QAbstractItemModel *model = view->model();
        // The heading row has no identifier.
        if (model->index(row, 0).data().toString().isEmpty())
            continue;
        const QString place = QStringLiteral("tableWidget_targetlibrary row %1").arg(row + 1);
        const QString shortName = model->index(row, 1).data().toString();
        const TargetState *target = targetNamed(state, shortName);
        compare(lines, place + QStringLiteral(" Name"), model->index(row, 2).data().toString(),
                target ? target->longName : QStringLiteral("(no such target)"));
        const QString used = model->index(row, 3).data().toString();
        const bool mayBeCustom = target && target->custom && used == QLatin1String("custom");
        // Older controllers do not answer which target a body has, so that the target which it
        // frees is unknown.
        const bool mayBeFreed = isOlderThan(state, 11) && used == QLatin1String("yes");
        if (target && !mayBeCustom && !mayBeFreed) {
            compare(lines, place + QStringLiteral(" Used"), used,
                    isAssigned(state, *target) ? QStringLiteral("yes") : QString());
        }
    }
}

QString axisName(const ControllerState &state)
{
    for (int axis = 0; axis < 6; ++axis) {
        std::array<double, 3> unit{{0.0, 0.0, 0.0}};
        unit[std::size_t(axis / 2)] = axis % 2 == 0 ? 1.0 : -1.0;
        if (state.axis5dofCentral == unit)
            return QLatin1String(axisNames[axis]);
    }
    return QString();
}

void compareSingleMarkers(QStringList *lines, const ControllerState &state, const QWidget *dialog)
{
    if (const QWidget *box = shown(dialog, "checkBox_force3d"))
        compare(lines, box->objectName(), WidgetText::of(box),
                WidgetText::ofCheck(state.calculateMarker));
    if (const QWidget *box = shown(dialog, "checkBox_autoReStart"))
        compare(lines, box->objectName(), WidgetText::of(box),
                WidgetText::ofCheck(state.autoRestart));
    // Older controllers do not answer the axis.
    const QWidget *axis = shown(dialog, "comboBox_5dofAxis");
    if (axis && !isOlderThan(state, 12) && !axisName(state).isEmpty())
        compare(lines, axis->objectName(), WidgetText::of(axis), axisName(state));
}

/** The body with a name such as "standard b08"; null when there is none. */
const BodyState *bodyNamed(const ControllerState &state, const QString &name)
{
    const auto type = state.bodyTypes.constFind(name.section(QLatin1Char(' '), 0, 0));
    const int index = name.section(QLatin1Char('b'), -1).toInt() - 1;
    return type != state.bodyTypes.constEnd() && index >= 0 && index < type->bodies.size()
                   ? &type->bodies.at(index)
                   : nullptr;
}

void compareFilter(QStringList *lines, const ControllerState &state, const QWidget *dialog)
{
    const auto *choice = qobject_cast<const QComboBox *>(shown(dialog, "comboBox_body"));
    const BodyState *body = choice ? bodyNamed(state, choice->currentData().toString()) : nullptr;
    if (!body)
        return;
    if (const QWidget *box = shown(dialog, "checkBox_active"))
        compare(lines, box->objectName(), WidgetText::of(box),
                WidgetText::ofCheck(body->filterEnabled));
    const auto *strength =
            qobject_cast<const QDoubleSpinBox *>(shown(dialog, "doubleSpinBox_strength"));
    if (strength) {
        compare(lines, strength->objectName(), QString::number(strength->value(), 'f', 2),
                QString::number(body->filterStrength, 'f', 2));
    }
    if (const QWidget *box = shown(dialog, "spinBox_prediction")) {
        compare(lines, box->objectName(), WidgetText::of(box),
                QString::number(BodyTruth::wholeMilliseconds(body->filterPrediction)));
    }
    const QWidget *modes = shown(dialog, "comboBox_mode");
    for (const FilterModeState &mode : state.filterModes) {
        if (modes && mode.id == body->filterMode)
            compare(lines, modes->objectName(), WidgetText::of(modes), mode.description);
    }
    const auto *presets = qobject_cast<const QComboBox *>(shown(dialog, "comboBox_preset"));
    for (const FilterPresetState &preset : state.filterPresets) {
        // Older controllers do not answer which presets a body with a sensor can have; the dialog
        // then offers two.
        const bool mayBeMissing = presets && isOlderThan(state, 21) && presets->currentIndex() < 0
                                  && presets->findData(preset.id) < 0;
        if (presets && !mayBeMissing && preset.id == body->filterPreset)
            compare(lines, presets->objectName(), WidgetText::of(presets), preset.description);
    }
}

/** Fixed rotations of the bodies whose kind of target has them. */
void compareAngles(QStringList *lines, const ControllerState &state, const QWidget *dialog)
{
    const auto *view = qobject_cast<const QTableView *>(shown(dialog, "tableWidget"));
    if (!view || view->model()->headerData(2, Qt::Horizontal).toString() != QLatin1String("rx"))
        return;
    const QVector<BodyState> bodies = state.bodyTypes.value(QStringLiteral("standard")).bodies;
    for (int row = 0; row < qMin(bodies.size(), view->model()->rowCount()); ++row) {
        const BodyState &body = bodies.at(row);
        const bool usable = body.calibrated
                            && (body.targetType == QLatin1String("tt_std")
                                || body.targetType == QLatin1String("tt_2x5dof_cyl"));
        for (std::size_t axis = 0; usable && axis < body.fixedAngles.size(); ++axis) {
            const QModelIndex cell = view->model()->index(row, int(axis) + 2);
            const FixedAngleState &angle = body.fixedAngles.at(axis);
            const QString place =
                    QStringLiteral("tableWidget row %1 column %2").arg(row + 1).arg(int(axis) + 3);
            compare(lines, place, cell.data().toString(), QString::number(angle.degrees, 'f', 2));
            compare(lines, place,
                    WidgetText::ofCheck(cell.data(Qt::CheckStateRole).toInt() == Qt::Checked),
                    WidgetText::ofCheck(angle.enabled));
        }
    }
}

} // namespace

QStringList DialogOracle::differences(const ControllerState &state, const QWidget *dialog)
{
    QStringList lines;
    if (!dialog)
        return lines;
    compareBodyTables(&lines, state, dialog);
    compareTargets(&lines, state, dialog);
    compareSingleMarkers(&lines, state, dialog);
    compareFilter(&lines, state, dialog);
    compareAngles(&lines, state, dialog);
    return lines;
}
