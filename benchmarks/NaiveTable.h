#pragma once

#include "MemoryLink.h"

#include <QTableWidget>

/**
 * A table filled cell by cell as a first draft would: with each refresh every question is asked,
 * every cell gets a new item, and at the end the columns are measured.
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
