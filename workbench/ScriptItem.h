#pragma once

#include <QModelIndex>
#include <QString>

class QAbstractItemView;

/**
 * A cell of a visible table as a script names it: the table, the row by its number from 1 or by the
 * text of one of its cells, and the column by its title or its number from 0.
 */
struct ScriptItem {
    QAbstractItemView *view = nullptr;
    QModelIndex index;

    /** Finds the cell; an invalid index, with *problem, when there is none. */
    static ScriptItem find(const QString &table, const QString &row, const QString &column,
                           bool mustBeUsable, QString *problem);
};
