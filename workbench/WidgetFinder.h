#pragma once

#include <QString>

class QWidget;

/** Finds widgets that a user can see and reach, by object name. */
namespace WidgetFinder {

/** The modal window, which is the only one that takes input; null when there is none. */
QWidget *modalWindow();
/** The name of a window in messages: its title or class name, and the text of a message box. */
QString describe(const QWidget *window);
/** True when a modal window blocks the input of the widget. */
bool isBlocked(const QWidget *widget);
/**
 * The visible widget with that object name, preferably in the modal window; null with *problem
 * "expected ..., found ..." when there is none.
 */
QWidget *visible(const QString &objectName, QString *problem);
/** Like visible(), but the widget must be enabled and not blocked. */
QWidget *usable(const QString &objectName, QString *problem);

} // namespace WidgetFinder
