#pragma once

#include <QHeaderView>
#include <QPointer>
#include <QVector>

/**
 * Suspends the columns of a table that size themselves to their contents, from begin() until its
 * destruction, so that a fill measures them once and not after every cell. A fill that finds no
 * difference does not call begin(), and nothing is measured. The table may be deleted meanwhile.
 */
class ColumnSizingPause {
public:
    explicit ColumnSizingPause(QHeaderView *header) : m_header(header) {}
    ~ColumnSizingPause()
    {
        for (int section : qAsConst(m_sections)) {
            if (m_header)
                m_header->setSectionResizeMode(section, QHeaderView::ResizeToContents);
        }
    }
    ColumnSizingPause(const ColumnSizingPause &) = delete;
    ColumnSizingPause &operator=(const ColumnSizingPause &) = delete;

    /** Called before rows or cells are added or removed; only the first call has an effect. */
    void begin()
    {
        if (m_began)
            return;
        m_began = true;
        for (int section = 0; section < m_header->count(); ++section) {
            if (m_header->sectionResizeMode(section) != QHeaderView::ResizeToContents)
                continue;
            m_sections.append(section);
            m_header->setSectionResizeMode(section, QHeaderView::Fixed);
        }
    }
    /**
     * Called before a cell of that column changes; has no effect when the column has another width
     * rule.
     */
    void begin(int column)
    {
        if (!m_began && m_header->sectionResizeMode(column) == QHeaderView::ResizeToContents)
            begin();
    }

private:
    QPointer<QHeaderView> m_header;
    QVector<int> m_sections;
    bool m_began = false;
};
