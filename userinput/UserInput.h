#pragma once

#include <QKeySequence>
#include <QString>

class QAbstractItemView;
class QComboBox;
class QModelIndex;
class QTabBar;
class QWidget;

/**
 * Mouse and keyboard input on widgets, as a user makes it. The functions return when the widget has
 * handled the input, which may be long after a dialog was opened and closed by it.
 */
namespace UserInput {

/** Clicks where the widget reacts: the indicator of a check box, else the middle. */
void click(QWidget *widget);
/** Presses the first key of the sequence on the widget that has the focus in `window`. */
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
/** Opens the list and picks the entry. */
void chooseEntry(QComboBox *box, int index);

} // namespace UserInput
