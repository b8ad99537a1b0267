#pragma once

#include <QKeySequence>
#include <QString>

class QAbstractItemView;
class QComboBox;
class QModelIndex;
class QTabBar;
class QWidget;

/**
 * Simulated mouse and keyboard input on widgets. A function returns when the widget has handled the
 * input. When the input opens a dialog, that is after the dialog was closed.
 */
namespace UserInput {

/** Clicks where the widget reacts: on the indicator of a check box, otherwise in the middle. */
void click(QWidget *widget);
/** Presses the first key of the sequence in the widget that has the focus in `window`. */
void pressKey(QWidget *window, const QKeySequence &keys);
/** Types the text into the widget, one key after the other. */
void typeText(QWidget *widget, const QString &text);
/** Replaces all text of an editor. */
void replaceText(QWidget *editor, const QString &text);
void clickItem(QAbstractItemView *view, const QModelIndex &index);
void doubleClickItem(QAbstractItemView *view, const QModelIndex &index);
/** Clicks the check box indicator of an item. */
void toggleItem(QAbstractItemView *view, const QModelIndex &index);
/** The line editor that is open inside the view; null when there is none. */
QWidget *itemEditor(QAbstractItemView *view);
void clickTab(QTabBar *bar, int index);
/** Opens the list and chooses the entry. */
void chooseEntry(QComboBox *box, int index);

} // namespace UserInput
