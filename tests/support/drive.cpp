#include "drive.h"

#include "TimerHold.h"
#include "UserInput.h"

#include <QComboBox>
#include <QLineEdit>
#include <QTableWidget>
#include <QTimer>

namespace {

/** The index of a cell; if the cell does not exist, the test program ends. */
QModelIndex indexOf(const QTableWidget *table, int row, int column)
{
    if (!table->item(row, column))
        qFatal("no cell %d, %d in %s", row, column, qPrintable(table->objectName()));
    return table->model()->index(row, column);
}

} // namespace

namespace Drive {

void click(QWidget *root, const char *objectName)
{
    auto *widget = find<QWidget>(root, objectName);
    if (!widget->isEnabled() || !widget->isVisible()) {
        QTest::qFail(qPrintable(QStringLiteral("%1 cannot be clicked").arg(objectName)), __FILE__,
                     __LINE__);
        return;
    }
    UserInput::click(widget);
}

void clickCell(QTableWidget *table, int row, int column)
{
    UserInput::clickItem(table, indexOf(table, row, column));
    settle();
}

void toggleCell(QTableWidget *table, int row, int column)
{
    UserInput::toggleItem(table, indexOf(table, row, column));
    settle();
}

void doubleClickCell(QTableWidget *table, int row, int column)
{
    UserInput::doubleClickItem(table, indexOf(table, row, column));
}

void typeIntoCell(QTableWidget *table, int row, int column, const QString &text)
{
    doubleClickCell(table, row, column);
    QWidget *editor = UserInput::itemEditor(table);
    if (!editor) {
        QTest::qFail("the cell opens no editor", __FILE__, __LINE__);
        return;
    }
    UserInput::replaceText(editor, text);
    UserInput::pressKey(editor, Qt::Key_Return);
    settle();
}

void settle()
{
    QCoreApplication::sendPostedEvents();
    QCoreApplication::processEvents();
}

void choose(QComboBox *box, const QString &text)
{
    const int row = box->findText(text, Qt::MatchExactly | Qt::MatchCaseSensitive);
    if (row < 0) {
        QTest::qFail(qPrintable(QStringLiteral("no entry \"%1\"").arg(text)), __FILE__, __LINE__);
        return;
    }
    UserInput::chooseEntry(box, row);
}

void typeNumber(QWidget *spinBox, const QString &number)
{
    auto *edit = spinBox->findChild<QLineEdit *>();
    spinBox->setFocus();
    edit->selectAll();
    UserInput::typeText(edit, number);
    UserInput::pressKey(edit, Qt::Key_Return);
    settle();
}

QString cell(const QTableWidget *table, int row, int column)
{
    const QTableWidgetItem *item = table->item(row, column);
    return item ? item->text() : QString();
}

QStringList row(const QTableWidget *table, int row)
{
    QStringList texts;
    for (int column = 0; column < table->columnCount(); ++column)
        texts.append(cell(table, row, column));
    return texts;
}

QStringList column(const QTableWidget *table, int column)
{
    QStringList texts;
    for (int row = 0; row < table->rowCount(); ++row)
        texts.append(cell(table, row, column));
    return texts;
}

void holdTimers(QObject *root)
{
    auto *hold = new TimerHold(root);
    hold->watch(root);
}

bool tick(QObject *root, const char *timerName)
{
    auto *hold = root->findChild<TimerHold *>();
    auto *timer = root->findChild<QTimer *>(QString::fromLatin1(timerName));
    return hold && timer && hold->fire(timer);
}

} // namespace Drive
