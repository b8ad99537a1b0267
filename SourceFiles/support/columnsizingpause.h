#pragma once

#include <QHeaderView>
#include <QVector>

/**
 * Suspends the columns of a table that size themselves to their contents, so that a fill measures
 * them once and not with every cell.
 */
class ColumnSizingPause {
public:
    explicit ColumnSizingPause(QHeaderView *header) : m_header(header)
    {
        for (int section = 0; section < header->count(); ++section) {
            if (header->sectionResizeMode(section) != QHeaderView::ResizeToContents)
                continue;
            m_sections.append(section);
            header->setSectionResizeMode(section, QHeaderView::Fixed);
        }
    }
    ~ColumnSizingPause()
    {
        for (int section : qAsConst(m_sections))
            m_header->setSectionResizeMode(section, QHeaderView::ResizeToContents);
    }
    ColumnSizingPause(const ColumnSizingPause &) = delete;
    ColumnSizingPause &operator=(const ColumnSizingPause &) = delete;

private:
    QHeaderView *m_header;
    QVector<int> m_sections;
};
