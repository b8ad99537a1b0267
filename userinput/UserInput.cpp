#include "UserInput.h"

#include "qtportability.h"

#include <QAbstractItemView>
#include <QApplication>
#include <QCheckBox>
#include <QComboBox>
#include <QKeyEvent>
#include <QLineEdit>
#include <QMouseEvent>
#include <QPointer>
#include <QRadioButton>
#include <QStyle>
#include <QStyleOptionViewItem>
#include <QTabBar>

namespace {

void sendMouse(QWidget *widget, QEvent::Type type, const QPoint &position)
{
    const Qt::MouseButtons held =
            type == QEvent::MouseButtonRelease ? Qt::NoButton : Qt::LeftButton;
    QMouseEvent event(type, position, widget->mapToGlobal(position), Qt::LeftButton, held,
                      Qt::NoModifier);
    QApplication::sendEvent(widget, &event);
}

/** Clicks; the press may already delete the widget. */
void clickAt(QWidget *widget, const QPoint &position)
{
    const QPointer<QWidget> guard(widget);
    sendMouse(widget, QEvent::MouseButtonPress, position);
    if (guard)
        sendMouse(widget, QEvent::MouseButtonRelease, position);
}

void sendKey(QWidget *widget, int key, Qt::KeyboardModifiers modifiers, const QString &text)
{
    const QPointer<QWidget> guard(widget);
    QKeyEvent override(QEvent::ShortcutOverride, key, modifiers, text);
    QApplication::sendEvent(widget, &override);
    if (!guard)
        return;
    QKeyEvent press(QEvent::KeyPress, key, modifiers, text);
    QApplication::sendEvent(widget, &press);
    if (!guard)
        return;
    QKeyEvent release(QEvent::KeyRelease, key, modifiers, text);
    QApplication::sendEvent(widget, &release);
}

QPoint indicatorCenter(QAbstractItemView *view, const QModelIndex &index)
{
    QStyleOptionViewItem option;
    option.initFrom(view);
    option.rect = view->visualRect(index);
    option.features = QStyleOptionViewItem::HasCheckIndicator;
    option.decorationSize = view->iconSize();
    option.text = index.data().toString();
    if (!option.text.isEmpty())
        option.features |= QStyleOptionViewItem::HasDisplay;
    return view->style()
            ->subElementRect(QStyle::SE_ItemViewItemCheckIndicator, &option, view)
            .center();
}

} // namespace

void UserInput::click(QWidget *widget)
{
    QPoint position = widget->rect().center();
    const auto isMarked = qobject_cast<QCheckBox *>(widget) || qobject_cast<QRadioButton *>(widget);
    if (isMarked)
        position.setX(widget->style()->pixelMetric(QStyle::PM_IndicatorWidth) / 2);
    clickAt(widget, position);
}

void UserInput::pressKey(QWidget *window, const QKeySequence &keys)
{
    QWidget *receiver = window->focusWidget() ? window->focusWidget() : window;
    const int code = FIRST_KEY_CODE(keys);
    const int key = code & ~int(Qt::KeyboardModifierMask);
    const bool isPrintable = key >= Qt::Key_Space && key <= Qt::Key_AsciiTilde;
    sendKey(receiver, key, Qt::KeyboardModifiers(code & int(Qt::KeyboardModifierMask)),
            isPrintable ? QString(QChar(key)) : QString());
}

void UserInput::typeText(QWidget *widget, const QString &text)
{
    const QPointer<QWidget> guard(widget);
    for (const QChar character : text) {
        if (guard)
            sendKey(widget, 0, Qt::NoModifier, QString(character));
    }
}

void UserInput::replaceText(QWidget *editor, const QString &text)
{
    editor->setFocus();
    sendKey(editor, Qt::Key_A, Qt::ControlModifier, QString());
    sendKey(editor, Qt::Key_Delete, Qt::NoModifier, QString());
    typeText(editor, text);
}

void UserInput::clickItem(QAbstractItemView *view, const QModelIndex &index)
{
    view->scrollTo(index);
    clickAt(view->viewport(), view->visualRect(index).center());
}

void UserInput::doubleClickItem(QAbstractItemView *view, const QModelIndex &index)
{
    view->scrollTo(index);
    const QPoint position = view->visualRect(index).center();
    const QPointer<QWidget> viewport(view->viewport());
    clickAt(viewport, position);
    if (viewport)
        sendMouse(viewport, QEvent::MouseButtonDblClick, position);
    if (viewport)
        sendMouse(viewport, QEvent::MouseButtonRelease, position);
}

void UserInput::toggleItem(QAbstractItemView *view, const QModelIndex &index)
{
    view->scrollTo(index);
    clickAt(view->viewport(), indicatorCenter(view, index));
}

QWidget *UserInput::itemEditor(QAbstractItemView *view)
{
    for (QObject *child : view->viewport()->children()) {
        auto *editor = qobject_cast<QLineEdit *>(child);
        if (editor && editor->isVisible())
            return editor;
    }
    return nullptr;
}

void UserInput::clickTab(QTabBar *bar, int index)
{
    clickAt(bar, bar->tabRect(index).center());
}

void UserInput::chooseEntry(QComboBox *box, int index)
{
    box->setFocus();
    box->showPopup();
    QAbstractItemView *view = box->view();
    view->setCurrentIndex(box->model()->index(index, box->modelColumn(), box->rootModelIndex()));
    sendKey(view, Qt::Key_Return, Qt::NoModifier, QStringLiteral("\r"));
}
