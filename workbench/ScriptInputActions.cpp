#include "MainWindow.h"
#include "ScriptBox.h"
#include "ScriptFamilies.h"
#include "ScriptItem.h"
#include "UserInput.h"
#include "WidgetFinder.h"
#include "WidgetText.h"
#include "qtportability.h"

#include <QAbstractButton>
#include <QAbstractItemView>
#include <QAction>
#include <QApplication>
#include <QComboBox>
#include <QKeySequence>
#include <QMenu>
#include <QMenuBar>
#include <QMessageBox>
#include <QPointer>
#include <QSpinBox>
#include <QTabBar>
#include <QTabWidget>

namespace {

/**
 * The widget with that name, which must have the class and take input; null, with *problem,
 * otherwise.
 */
template <typename Widget>
Widget *usable(const QString &name, QString *problem)
{
    QWidget *widget = WidgetFinder::usable(name, problem);
    auto *wanted = qobject_cast<Widget *>(widget);
    if (widget && !wanted) {
        *problem = QStringLiteral("expected a %1 \"%2\", found a %3")
                           .arg(QString::fromLatin1(Widget::staticMetaObject.className()), name,
                                QString::fromLatin1(widget->metaObject()->className()));
    }
    return wanted;
}

QString openMenuEntry(ScriptContext &context, const QStringList &arguments)
{
    if (WidgetFinder::isBlocked(context.window)) {
        return QStringLiteral("expected the menu to take input, found it blocked by %1")
                .arg(WidgetFinder::describe(WidgetFinder::modalWindow()));
    }
    QStringList entries;
    for (const QAction *menu : context.window->menuBar()->actions()) {
        for (QAction *entry : menu->menu()->actions()) {
            if (WidgetText::withoutMnemonic(entry->text())
                != WidgetText::withoutMnemonic(arguments.first())) {
                entries << WidgetText::withoutMnemonic(entry->text());
                continue;
            }
            if (!entry->isEnabled()) {
                return QStringLiteral("expected the entry \"%1\" enabled, found it disabled")
                        .arg(arguments.first());
            }
            entry->trigger();
            return QString();
        }
    }
    return QStringLiteral("expected a menu entry \"%1\", found %2")
            .arg(arguments.first(), entries.join(QStringLiteral(", ")));
}

/** The main window's shortcut for the key, when no modal window takes it. */
QAction *shortcutOf(const MainWindow *window, const QKeySequence &keys)
{
    for (const QAction *menu : window->menuBar()->actions()) {
        for (QAction *entry : menu->menu()->actions()) {
            if (entry->shortcut() == keys && entry->isEnabled())
                return entry;
        }
    }
    return nullptr;
}

QString pressKey(ScriptContext &context, const QStringList &arguments)
{
    const QKeySequence keys(arguments.first());
    if (keys.isEmpty() || FIRST_KEY_CODE(keys) == Qt::Key_unknown)
        return QStringLiteral("expected a key such as F8, found \"%1\"").arg(arguments.first());
    if (arguments.size() > 1) {
        QString problem;
        QWidget *widget = WidgetFinder::usable(arguments.at(1), &problem);
        if (!widget)
            return problem;
        widget->setFocus();
        UserInput::pressKey(widget, keys);
        return QString();
    }
    QWidget *receiver = WidgetFinder::modalWindow();
    if (!receiver) {
        if (QAction *entry = shortcutOf(context.window, keys)) {
            entry->trigger();
            return QString();
        }
        receiver = QApplication::activeWindow() ? QApplication::activeWindow() : context.window;
    }
    UserInput::pressKey(receiver, keys);
    return QString();
}

QString click(ScriptContext &, const QStringList &arguments)
{
    QString problem;
    if (QWidget *widget = WidgetFinder::usable(arguments.first(), &problem))
        UserInput::click(widget);
    return problem;
}

QString choose(ScriptContext &, const QStringList &arguments)
{
    QString problem;
    auto *box = usable<QComboBox>(arguments.at(0), &problem);
    if (!box)
        return problem;
    const int index = box->findText(arguments.at(1));
    if (index < 0) {
        QStringList entries;
        for (int i = 0; i < box->count(); ++i)
            entries << box->itemText(i);
        return QStringLiteral("expected an entry \"%1\", found \"%2\"")
                .arg(arguments.at(1), entries.join(QStringLiteral("\", \"")));
    }
    UserInput::chooseEntry(box, index);
    return QString();
}

/** The value of a spin box of any kind, as a number. */
double valueOf(const QAbstractSpinBox *box)
{
    return box->property("value").toDouble();
}

QString spin(ScriptContext &, const QStringList &arguments)
{
    QString problem;
    QPointer<QAbstractSpinBox> box = usable<QAbstractSpinBox>(arguments.at(0), &problem);
    if (!box)
        return problem;
    constexpr double tolerance = 1e-9; // sums of decimal steps are not exact
    bool isNumber = false;
    const double wanted = arguments.at(1).toDouble(&isNumber);
    if (!isNumber)
        return QStringLiteral("expected a number, found \"%1\"").arg(arguments.at(1));
    box->setFocus();
    const bool upwards = valueOf(box) < wanted;
    double before = 0.0;
    // The loop ends when the value is reached or passed, or when it does not change: at a limit, or
    // when a refusal restores it.
    do {
        before = valueOf(box);
        if (upwards ? before >= wanted - tolerance : before <= wanted + tolerance)
            break;
        UserInput::pressKey(box, upwards ? Qt::Key_Up : Qt::Key_Down);
    } while (box && valueOf(box) != before);
    return QString();
}

QString enterText(ScriptContext &, const QStringList &arguments)
{
    QString problem;
    if (QWidget *editor = WidgetFinder::usable(arguments.at(0), &problem))
        UserInput::replaceText(editor, arguments.at(1));
    return problem;
}

QString clickCell(ScriptContext &, const QStringList &arguments)
{
    QString problem;
    const ScriptItem item =
            ScriptItem::find(arguments.at(0), arguments.at(1),
                             arguments.value(2, QStringLiteral("0")), true, &problem);
    if (problem.isEmpty())
        UserInput::clickItem(item.view, item.index);
    return problem;
}

QString doubleClickCell(ScriptContext &, const QStringList &arguments)
{
    QString problem;
    const ScriptItem item =
            ScriptItem::find(arguments.at(0), arguments.at(1), arguments.at(2), true, &problem);
    if (problem.isEmpty())
        UserInput::doubleClickItem(item.view, item.index);
    return problem;
}

/** Selects a row by its first visible cell that does nothing when it is clicked. */
QString selectRow(ScriptContext &, const QStringList &arguments)
{
    QString problem;
    ScriptItem item =
            ScriptItem::find(arguments.at(0), arguments.at(1), QStringLiteral("0"), true, &problem);
    if (!problem.isEmpty())
        return problem;
    while (item.view->visualRect(item.index).isEmpty()
           && item.index.sibling(item.index.row(), item.index.column() + 1).isValid())
        item.index = item.index.sibling(item.index.row(), item.index.column() + 1);
    UserInput::clickItem(item.view, item.index);
    return QString();
}

QString typeIntoCell(ScriptContext &, const QStringList &arguments)
{
    QString problem;
    const ScriptItem item =
            ScriptItem::find(arguments.at(0), arguments.at(1), arguments.at(2), true, &problem);
    if (!problem.isEmpty())
        return problem;
    UserInput::doubleClickItem(item.view, item.index);
    QWidget *editor = UserInput::itemEditor(item.view);
    if (!editor)
        return QStringLiteral("expected the cell to be editable, found no editor in it");
    UserInput::replaceText(editor, arguments.at(3));
    UserInput::pressKey(editor, Qt::Key_Return);
    return QString();
}

QString toggleCell(ScriptContext &, const QStringList &arguments)
{
    QString problem;
    const ScriptItem item =
            ScriptItem::find(arguments.at(0), arguments.at(1), arguments.at(2), true, &problem);
    if (!problem.isEmpty())
        return problem;
    if (!item.index.flags().testFlag(Qt::ItemIsUserCheckable))
        return QStringLiteral("expected a check box in the cell, found none");
    UserInput::toggleItem(item.view, item.index);
    return QString();
}

QString showPage(ScriptContext &, const QStringList &arguments)
{
    QString problem;
    const auto *tabs = usable<QTabWidget>(arguments.at(0), &problem);
    if (!tabs)
        return problem;
    QStringList titles;
    for (int i = 0; i < tabs->count(); ++i) {
        titles << WidgetText::withoutMnemonic(tabs->tabText(i));
        if (titles.last() != WidgetText::withoutMnemonic(arguments.at(1)))
            continue;
        UserInput::clickTab(tabs->tabBar(), i);
        return QString();
    }
    return QStringLiteral("expected a page \"%1\", found %2")
            .arg(arguments.at(1), titles.join(QStringLiteral(", ")));
}

QString answerBox(ScriptContext &, const QStringList &arguments)
{
    auto *box = qobject_cast<QMessageBox *>(WidgetFinder::modalWindow());
    if (!box) {
        return QStringLiteral("expected a box \"%1: %2\", found %3")
                .arg(arguments.at(0), arguments.at(1),
                     WidgetFinder::describe(WidgetFinder::modalWindow()));
    }
    const QString text = ScriptBox::textOf(box);
    if (!ScriptBox::matches(box->windowTitle(), arguments.at(0))
        || !ScriptBox::matches(text, arguments.at(1))) {
        return QStringLiteral("expected a box \"%1: %2\", found \"%3: %4\"")
                .arg(arguments.at(0), arguments.at(1), box->windowTitle(), text);
    }
    QStringList buttons;
    for (QAbstractButton *button : box->buttons()) {
        buttons << WidgetText::withoutMnemonic(button->text());
        if (buttons.last() != arguments.at(2))
            continue;
        UserInput::click(button);
        return QString();
    }
    return QStringLiteral("expected a button \"%1\", found %2")
            .arg(arguments.at(2), buttons.join(QStringLiteral(", ")));
}

/** Reads a size into *size; returns what is wrong with the arguments. */
QString readSize(const QStringList &arguments, QSize *size)
{
    bool isWidth = false;
    bool isHeight = false;
    *size = QSize(arguments.at(0).toInt(&isWidth), arguments.at(1).toInt(&isHeight));
    if (isWidth && isHeight && !size->isEmpty())
        return QString();
    return QStringLiteral("expected a width and a height in pixels, found %1 %2")
            .arg(arguments.at(0), arguments.at(1));
}

QWidget *openWindow(const ScriptContext &context)
{
    QWidget *modal = WidgetFinder::modalWindow();
    return modal ? modal : context.window;
}

QString resizeWindow(ScriptContext &context, const QStringList &arguments)
{
    QSize size;
    const QString problem = readSize(arguments, &size);
    if (problem.isEmpty())
        openWindow(context)->resize(size);
    return problem;
}

/** Gives a window the size with which it opens on a screen that has this room for it. */
QString fitWindow(ScriptContext &context, const QStringList &arguments)
{
    QSize room;
    const QString problem = readSize(arguments, &room);
    QWidget *window = openWindow(context);
    if (problem.isEmpty())
        window->resize(window->sizeHint().boundedTo(room));
    return problem;
}

} // namespace

QVector<ScriptCommand> ScriptCommands::inputActions()
{
    return {
            {"menu", 1, 1, "ENTRY", openMenuEntry},
            {"key", 1, 2, "KEY [WIDGET]", pressKey},
            {"click", 1, 1, "WIDGET", click},
            {"choose", 2, 2, "COMBOBOX ENTRY", choose},
            {"spin", 2, 2, "SPINBOX VALUE", spin},
            {"text", 2, 2, "EDITOR TEXT", enterText},
            {"select", 2, 2, "TABLE ROW", selectRow},
            {"cell", 3, 3, "TABLE ROW COLUMN", clickCell},
            {"doubleclick", 3, 3, "TABLE ROW COLUMN", doubleClickCell},
            {"type", 4, 4, "TABLE ROW COLUMN TEXT", typeIntoCell},
            {"check", 3, 3, "TABLE ROW COLUMN", toggleCell},
            {"page", 2, 2, "TABWIDGET TITLE", showPage},
            {"resize", 2, 2, "WIDTH HEIGHT", resizeWindow},
            {"fit", 2, 2, "WIDTH HEIGHT", fitWindow},
            {"answer", 3, 3, "TITLE TEXT BUTTON", answerBox},
    };
}
