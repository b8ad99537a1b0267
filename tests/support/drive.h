#pragma once

#include <QString>
#include <QStringList>
#include <QWidget>
#include <QtTest>

class QComboBox;
class QTableWidget;

/**
 * User input on widgets found by object name and on cells. A widget or cell that is missing, or
 * that a user could not work, fails the test.
 */
namespace Drive {

/** The descendant of that object name; a missing one ends the test program. */
template <typename Widget>
Widget *find(QWidget *root, const char *objectName)
{
    auto *widget = root->findChild<Widget *>(QString::fromLatin1(objectName));
    if (!widget)
        qFatal("no widget %s", objectName);
    return widget;
}

void click(QWidget *root, const char *objectName);
void clickCell(QTableWidget *table, int row, int column);
/** Clicks the check box indicator of a cell. */
void toggleCell(QTableWidget *table, int row, int column);
void doubleClickCell(QTableWidget *table, int row, int column);
/** Double-clicks the cell, replaces its text by typing, presses Enter. */
void typeIntoCell(QTableWidget *table, int row, int column, const QString &text);
/** Opens the list and picks the entry of that text, as a user does. */
void choose(QComboBox *box, const QString &text);
/** Puts a number into a spin box by typing and pressing Enter. */
void typeNumber(QWidget *spinBox, const QString &number);
/** Delivers what is queued: a committed editor, a key or click that acts after its event. */
void settle();
QString cell(const QTableWidget *table, int row, int column);
QStringList row(const QTableWidget *table, int row);
QStringList column(const QTableWidget *table, int column);

/** Holds the polling timers below `root`: from now on tick() lets one interval of one pass. */
void holdTimers(QObject *root);
/** Fires the running timer of that object name once; false when it is not active. */
bool tick(QObject *root, const char *timerName);

} // namespace Drive
