#include "drive.h"

#include <QAbstractItemView>
#include <QComboBox>
#include <QLineEdit>
#include <QStyle>
#include <QTableWidget>
#include <QTimer>

namespace {

/** Keeps the timers it watches from firing unless one is let through. */
class TimerHold : public QObject {
public:
    explicit TimerHold(QObject *parent) : QObject(parent) {}

    bool eventFilter(QObject *, QEvent *event) override
    {
        return event->type() == QEvent::Timer && !m_letThrough;
    }

    void fire(QTimer *timer)
    {
        m_letThrough = true;
        QTimerEvent event(timer->timerId());
        QCoreApplication::sendEvent(timer, &event);
        m_letThrough = false;
    }

private:
    bool m_letThrough = false;
};

QPoint center(const QTableWidget *table, int row, int column)
{
    return table->visualItemRect(table->item(row, column)).center();
}

void bringIntoView(QTableWidget *table, int row, int column)
{
    if (!table->item(row, column))
        qFatal("no cell %d, %d in %s", row, column, qPrintable(table->objectName()));
    table->scrollToItem(table->item(row, column));
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
    QTest::mouseClick(widget, Qt::LeftButton);
}

void clickCell(QTableWidget *table, int row, int column)
{
    bringIntoView(table, row, column);
    QTest::mouseClick(table->viewport(), Qt::LeftButton, Qt::NoModifier,
                      center(table, row, column));
    settle();
}

void toggleCell(QTableWidget *table, int row, int column)
{
    bringIntoView(table, row, column);
    QStyleOptionViewItem option;
    option.initFrom(table);
    option.rect = table->visualItemRect(table->item(row, column));
    option.features = QStyleOptionViewItem::HasCheckIndicator;
    const QRect indicator =
            table->style()->subElementRect(QStyle::SE_ItemViewItemCheckIndicator, &option, table);
    QTest::mouseClick(table->viewport(), Qt::LeftButton, Qt::NoModifier, indicator.center());
    settle();
}

void doubleClickCell(QTableWidget *table, int row, int column)
{
    bringIntoView(table, row, column);
    const QPoint point = center(table, row, column);
    QTest::mouseClick(table->viewport(), Qt::LeftButton, Qt::NoModifier, point);
    QTest::mouseDClick(table->viewport(), Qt::LeftButton, Qt::NoModifier, point);
}

void typeIntoCell(QTableWidget *table, int row, int column, const QString &text)
{
    doubleClickCell(table, row, column);
    auto *editor = table->viewport()->findChild<QLineEdit *>();
    if (!editor) {
        QTest::qFail("the cell opens no editor", __FILE__, __LINE__);
        return;
    }
    editor->selectAll();
    QTest::keyClick(editor, Qt::Key_Delete);
    QTest::keyClicks(editor, text);
    QTest::keyClick(editor, Qt::Key_Return);
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
    box->showPopup();
    QAbstractItemView *list = box->view();
    list->setCurrentIndex(box->model()->index(row, box->modelColumn(), box->rootModelIndex()));
    QTest::keyClick(list, Qt::Key_Return);
}

void typeNumber(QWidget *spinBox, const QString &number)
{
    auto *edit = spinBox->findChild<QLineEdit *>();
    spinBox->setFocus();
    edit->selectAll();
    QTest::keyClicks(edit, number);
    QTest::keyClick(edit, Qt::Key_Return);
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
    hold->setObjectName(QStringLiteral("timerHold"));
    for (QTimer *timer : root->findChildren<QTimer *>()) {
        if (!timer->objectName().isEmpty())
            timer->installEventFilter(hold);
    }
}

bool tick(QObject *root, const char *timerName)
{
    auto *hold = static_cast<TimerHold *>(root->findChild<QObject *>(QStringLiteral("timerHold")));
    auto *timer = root->findChild<QTimer *>(QString::fromLatin1(timerName));
    if (!hold || !timer || !timer->isActive())
        return false;
    hold->fire(timer);
    return true;
}

} // namespace Drive
