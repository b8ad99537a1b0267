#pragma once

#include <QString>
#include <QStringList>
#include <QWidget>
#include <QtTest>

class QComboBox;
class QTableWidget;

/**
 * User input on cells, and on widgets that are found by their object name. The test fails when a
 * widget or cell does not exist, or when a user could not operate it.
 */
namespace Drive {

/** The descendant with that object name; if there is none, the test program ends. */
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
/** Opens the list and chooses the entry with that text, as a user does. */
void choose(QComboBox *box, const QString &text);
/** Types a number into a spin box and presses Enter. */
void typeNumber(QWidget *spinBox, const QString &number);
/** Delivers queued calls: of a committed editor, or of a key or click that acts after its event. */
void settle();
QString cell(const QTableWidget *table, int row, int column);
QStringList row(const QTableWidget *table, int row);
QStringList column(const QTableWidget *table, int column);

/** Holds the polling timers below `root`, so that only tick() fires them. */
void holdTimers(QObject *root);
/** Fires the running timer with that object name once; false when it is not active. */
bool tick(QObject *root, const char *timerName);

} // namespace Drive
