#include "ActionChooser.h"

#include "FaultEngine.h"
#include "ScriptBox.h"
#include "WidgetFinder.h"
#include "WidgetText.h"
#include "WorkbenchSession.h"

#include <QAbstractButton>
#include <QAbstractSpinBox>
#include <QAction>
#include <QComboBox>
#include <QLineEdit>
#include <QMessageBox>
#include <QTabWidget>
#include <QTableView>

#include <algorithm>

namespace {

const QStringList keys = {"Escape", "Return", "Tab",   "Space", "Delete", "F2", "F8", "Up",
                          "Down",   "Left",   "Right", "Home",  "End",    "F1", "A",  "1"};
const QStringList texts = {
        "Hat",  "",         "two words", QString::fromUtf8("M\xc3\xbctze"),
        "%n%s", "<b>x</b>", "'x'",       "a very long name that goes on and on and on"};
const QStringList protocols = {"1.24", "1.21", "1.12", "1.11", "1.4", "0.17"};
const QStringList effects = {"fail",          "empty",         "garbled",        "long",
                             "over-long",     "refuse",        "lock",           "wrong-type",
                             "report-failed", "answer \"-7\"", "answer \"none\""};

/** The dialog's widgets that a script can name and that take input, in a stable order. */
QVector<QWidget *> usableWidgets(const QWidget *dialog)
{
    QVector<QWidget *> usable;
    for (QWidget *widget : dialog->findChildren<QWidget *>()) {
        const bool isInput =
                qobject_cast<QAbstractButton *>(widget) || qobject_cast<QComboBox *>(widget)
                || qobject_cast<QAbstractSpinBox *>(widget) || qobject_cast<QLineEdit *>(widget)
                || qobject_cast<QTabWidget *>(widget) || qobject_cast<QTableView *>(widget);
        const bool isNamed = !widget->objectName().isEmpty()
                             && !widget->objectName().startsWith(QLatin1String("qt_"));
        if (isInput && isNamed && widget->isVisible() && widget->isEnabled())
            usable << widget;
    }
    std::stable_sort(usable.begin(), usable.end(), [](const QWidget *left, const QWidget *right) {
        return left->objectName() < right->objectName();
    });
    return usable;
}

/** True for dialogs other than the body administration, whose edits may wait for their OK. */
bool keepsEdits(const QWidget *dialog)
{
    return dialog && !dialog->inherits("BodyAdministrationDlg") && !dialog->inherits("QMessageBox");
}

} // namespace

ActionChooser::ActionChooser(WorkbenchSession *session, quint32 seed)
    : m_session(session), m_random(seed)
{
}

QVector<QStringList> ActionChooser::withoutOracle(const QStringList &line)
{
    QVector<QStringList> lines;
    if (m_comparing)
        lines << QStringList{"oracle", "off"};
    m_comparing = false;
    return lines << line;
}

QVector<QStringList> ActionChooser::choose()
{
    constexpr int oneIn = 8;
    QWidget *modal = WidgetFinder::modalWindow();
    if (below(oneIn) == 0)
        return withoutOracle(elsewhere());
    if (const auto *box = qobject_cast<const QMessageBox *>(modal))
        return {atBox(box)};
    if (modal) {
        const QStringList line = inDialog(modal);
        return keepsEdits(modal) ? withoutOracle(line) : QVector<QStringList>{line};
    }
    QVector<QStringList> lines;
    const FaultEngine *faults = m_session->io()->faults();
    const bool isQuiet = faults->rules().isEmpty() && !faults->linkDead();
    if (isQuiet && !m_comparing) {
        m_comparing = true;
        lines << QStringList{"oracle", "on"};
    }
    return lines << openSomething();
}

QStringList ActionChooser::openSomething()
{
    QStringList entries;
    for (const _GuiElement *element : m_session->module()->elements())
        entries << WidgetText::withoutMnemonic(element->menu_entry->text());
    return entries.isEmpty() ? QStringList{"key", "F8"} : QStringList{"menu", pick(entries)};
}

QStringList ActionChooser::atBox(const QMessageBox *box)
{
    QStringList buttons;
    for (const QAbstractButton *button : box->buttons())
        buttons << WidgetText::withoutMnemonic(button->text());
    return {"answer", box->windowTitle(), ScriptBox::textOf(box), pick(buttons)};
}

QStringList ActionChooser::inDialog(const QWidget *dialog)
{
    constexpr int oneIn = 12;
    const QVector<QWidget *> widgets = usableWidgets(dialog);
    if (widgets.isEmpty() || below(oneIn) == 0)
        return {"key", pick(keys)};
    QWidget *widget = widgets.at(below(widgets.size()));
    if (below(oneIn) == 0)
        return {"key", pick(keys), widget->objectName()};
    return on(widget);
}

QStringList ActionChooser::on(QWidget *widget)
{
    const QString name = widget->objectName();
    if (const auto *box = qobject_cast<const QComboBox *>(widget)) {
        if (box->count() > 0)
            return {"choose", name, box->itemText(below(box->count()))};
    } else if (qobject_cast<const QAbstractSpinBox *>(widget)) {
        return onNumber(widget);
    } else if (qobject_cast<const QLineEdit *>(widget)) {
        return {"text", name, pick(texts)};
    } else if (const auto *pages = qobject_cast<const QTabWidget *>(widget)) {
        if (pages->count() > 0)
            return {"page", name,
                    WidgetText::withoutMnemonic(pages->tabText(below(pages->count())))};
    } else if (const auto *view = qobject_cast<const QAbstractItemView *>(widget)) {
        return onTable(view);
    }
    return {"click", name};
}

QStringList ActionChooser::onNumber(const QWidget *box)
{
    constexpr int farthest = 3;
    const QVariant step = box->property("singleStep");
    const double by = step.toDouble() * (below(2 * farthest + 1) - farthest);
    const double value =
            qBound(box->property("minimum").toDouble(), box->property("value").toDouble() + by,
                   box->property("maximum").toDouble());
    return {"spin", box->objectName(), QString::number(value)};
}

QStringList ActionChooser::onTable(const QAbstractItemView *view)
{
    const QAbstractItemModel *model = view->model();
    if (model->rowCount() == 0)
        return {"key", "Down", view->objectName()};
    const int row = below(model->rowCount());
    QVector<int> columns;
    for (int column = 0; column < model->columnCount(); ++column) {
        const auto *table = qobject_cast<const QTableView *>(view);
        if (!table || !table->isColumnHidden(column))
            columns << column;
    }
    if (columns.isEmpty())
        return {"key", "Down", view->objectName()};
    const int column = columns.at(below(columns.size()));
    const Qt::ItemFlags flags = model->flags(model->index(row, column));
    const QStringList place = {view->objectName(), QString::number(row + 1)};
    const QStringList cell = place + QStringList{QString::number(column)};
    switch (below(4)) {
    case 0:
        return QStringList{"select"} + place;
    case 1:
        return QStringList{"doubleclick"} + cell;
    default:
        break;
    }
    if (flags.testFlag(Qt::ItemIsUserCheckable) && flags.testFlag(Qt::ItemIsEnabled))
        return QStringList{"check"} + cell;
    if (flags.testFlag(Qt::ItemIsEditable) && flags.testFlag(Qt::ItemIsEnabled))
        return QStringList{"type"} + cell + QStringList{pick(texts)};
    return QStringList{"cell"} + cell;
}

QStringList ActionChooser::elsewhere()
{
    switch (below(3)) {
    case 0:
        return bySecondClient();
    case 1:
        return byHost();
    default:
        return byLink();
    }
}

QStringList ActionChooser::bySecondClient()
{
    const ControllerState &state = m_session->state();
    const QString type = pick(state.bodyTypes.keys());
    const BodyTypeState bodies = state.bodyTypes.value(type);
    const int count = bodies.bodies.size();
    const QString body = QString::number(1 + below(count));
    switch (below(count > 0 ? 6 : 3)) {
    case 0:
        return {"count", type, QString::number(below(bodies.maximum + 1))};
    case 1:
        return {"set", "configChangeable", pick({"true", "true", "false"})};
    case 2:
        if (!state.targets.isEmpty()) {
            return {"volume", state.targets.at(below(state.targets.size())).shortName,
                    pick({"in", "out"})};
        }
        return {"set", "calculateMarker", pick({"true", "false"})};
    case 3:
        return {"delete", type, body};
    case 4:
        return {"rename", type, body, pick(texts)};
    default:
        return {"swap", type, body, QString::number(1 + below(count))};
    }
}

QStringList ActionChooser::byHost()
{
    constexpr int mostTicks = 3;
    switch (below(6)) {
    case 0:
        return {"configuration"};
    case 1:
        return {"restart", pick(protocols)};
    case 2:
        return {"measurement", pick({"on", "off", "off"})};
    case 3:
        return {"message", "GlobalEvent", "BodyCalModule", "bodycalibration available"};
    case 4:
        return {"message", "BodyAdministrationModule", "BodyCalModule", "reopen"};
    default:
        return {"tick", QString::number(1 + below(mostTicks))};
    }
}

QStringList ActionChooser::byLink()
{
    constexpr int farthest = 25;
    const FaultEngine *faults = m_session->io()->faults();
    if (faults->linkDead())
        return {"link", "back"};
    switch (below(5)) {
    case 0:
        return {"link", "dead"};
    case 1:
    case 2:
        // Disturbances end from time to time, so that the dialogs can be compared again.
        return {"no-faults"};
    default:
        return {"fault", QStringLiteral("* at %1 %2").arg(1 + below(farthest)).arg(pick(effects))};
    }
}
