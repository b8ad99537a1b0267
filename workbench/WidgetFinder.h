#pragma once

#include <QString>

class QWidget;

/** Finds what a user can see and reach, by object name. */
namespace WidgetFinder {

/** The window a user is confined to: the modal one; null when there is none. */
QWidget *modalWindow();
/** Title, or class name, and the text of a message box: how a window is named in messages. */
QString describe(const QWidget *window);
/** A window whose input is held back by a modal one. */
bool isBlocked(const QWidget *widget);
/**
 * The visible widget of that object name, in the modal window before others; null with *problem
 * "expected ..., found ..." when there is none.
 */
QWidget *visible(const QString &objectName, QString *problem);
/** As visible(), but the widget must take input: not blocked, and enabled. */
QWidget *usable(const QString &objectName, QString *problem);

} // namespace WidgetFinder
