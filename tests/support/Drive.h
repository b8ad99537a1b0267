#pragma once

#include <QString>
#include <QStringList>

class QComboBox;
class QLabel;
class QPushButton;
class QTableWidget;
class QWidget;

/** Real user input on widgets found by object name. A widget that is missing fails the test. */
namespace Drive {

/** The visible or hidden descendant of that object name; fails the test when there is none. */
template <typename Widget>
Widget *find(QWidget *root, const char *objectName);

void click(QWidget *root, const char *objectName);
void clickCell(QTableWidget *table, int row, int column);
/** Clicks the check box indicator of a cell. */
void toggleCell(QTableWidget *table, int row, int column);
void doubleClickCell(QTableWidget *table, int row, int column);
/** Double-clicks the cell, replaces its text by typing, presses Enter. */
void typeIntoCell(QTableWidget *table, int row, int column, const QString &text);
/** Opens the list by keyboard and picks the entry of that text, as a user does. */
void choose(QComboBox *box, const QString &text);
QString cell(const QTableWidget *table, int row, int column);
QStringList row(const QTableWidget *table, int row);

/**
 * Stops the real timers of `root` from firing and makes them fire on demand: tick() lets one
 * interval of the named timer pass.
 */
void holdTimers(QObject *root);
/** Fires the running timer of that object name once; false when it is not active. */
bool tick(QObject *root, const char *timerName);

} // namespace Drive
