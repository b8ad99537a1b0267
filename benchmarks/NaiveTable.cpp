#include "NaiveTable.h"

#include "DialogUnderTest.h"

NaiveTable::NaiveTable(MemoryLink *link, const QVector<MemoryLink::Line> &lines, int rows,
                       int columns)
    : m_link(link), m_lines(lines), m_table(rows, columns)
{
    m_table.show();
}

void NaiveTable::refresh()
{
    m_link->ask(m_lines);
    for (int row = 0; row < m_table.rowCount(); ++row) {
        for (int column = 0; column < m_table.columnCount(); ++column) {
            m_table.setItem(row, column,
                            new QTableWidgetItem(QStringLiteral("%1/%2").arg(row).arg(column)));
        }
    }
    m_table.resizeColumnsToContents();
    DialogUnderTest::settle();
}
