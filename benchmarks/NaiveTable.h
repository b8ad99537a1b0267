#pragma once

#include "MemoryLink.h"

#include <QTableWidget>

/**
 * A table that is filled as in a first draft: each refresh sends every query, gives every cell a
 * new item, and then measures the columns.
 */
class NaiveTable {
public:
    NaiveTable(MemoryLink *link, const QVector<MemoryLink::Line> &lines, int rows, int columns);

    void refresh();

private:
    MemoryLink *m_link;
    QVector<MemoryLink::Line> m_lines;
    QTableWidget m_table;
};
