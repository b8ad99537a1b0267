#include "ScriptItem.h"

#include "Suggestion.h"
#include "WidgetFinder.h"

#include <QAbstractItemView>

namespace {

int columnOf(const QAbstractItemModel *model, const QString &column)
{
    for (int i = 0; i < model->columnCount(); ++i) {
        if (model->headerData(i, Qt::Horizontal).toString() == column)
            return i;
    }
    bool isNumber = false;
    const int number = column.toInt(&isNumber);
    return isNumber ? number : -1;
}

/**
 * The row with that number, from 1, or the first row that has a cell with that text; -1 when there
 * is none.
 */
int rowOf(const QAbstractItemModel *model, const QString &row)
{
    bool isNumber = false;
    const int number = row.toInt(&isNumber);
    if (isNumber)
        return number - 1;
    for (int i = 0; i < model->rowCount(); ++i) {
        for (int column = 0; column < model->columnCount(); ++column) {
            if (model->index(i, column).data().toString() == row)
                return i;
        }
    }
    return -1;
}

QStringList titlesOf(const QAbstractItemModel *model)
{
    QStringList titles;
    for (int i = 0; i < model->columnCount(); ++i)
        titles << model->headerData(i, Qt::Horizontal).toString();
    return titles;
}

} // namespace

ScriptItem ScriptItem::find(const QString &table, const QString &row, const QString &column,
                            bool mustBeUsable, QString *problem)
{
    ScriptItem item;
    QWidget *widget = mustBeUsable ? WidgetFinder::usable(table, problem)
                                   : WidgetFinder::visible(table, problem);
    if (!widget)
        return item;
    item.view = qobject_cast<QAbstractItemView *>(widget);
    if (!item.view) {
        *problem = QStringLiteral("expected a table \"%1\", found a %2")
                           .arg(table, QString::fromLatin1(widget->metaObject()->className()));
        return item;
    }
    const QAbstractItemModel *model = item.view->model();
    item.index = model->index(rowOf(model, row), columnOf(model, column));
    if (!item.index.isValid()) {
        *problem = QStringLiteral("expected row %1, column \"%2\" in \"%3\", found %4 rows and %5 "
                                  "columns")
                           .arg(row, column, table)
                           .arg(model->rowCount())
                           .arg(model->columnCount());
        if (columnOf(model, column) < 0)
            *problem += Suggestion::forWord(column, titlesOf(model));
    }
    return item;
}
