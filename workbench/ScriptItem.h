#pragma once

#include <QModelIndex>
#include <QString>

class QAbstractItemView;

/**
 * A cell of a visible table, named by a script: table, row from 1 or the text of one of its cells,
 * column title or number from 0.
 */
struct ScriptItem {
    QAbstractItemView *view = nullptr;
    QModelIndex index;

    /** Finds the cell; an invalid index with *problem when there is none. */
    static ScriptItem find(const QString &table, const QString &row, const QString &column,
                           bool mustBeUsable, QString *problem);
};
