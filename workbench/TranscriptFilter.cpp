#include "TranscriptFilter.h"

#include <algorithm>

TranscriptFilter::TranscriptFilter(QObject *parent) : QSortFilterProxyModel(parent) {}

void TranscriptFilter::setWords(const QString &text)
{
    m_words = text.split(QLatin1Char(' '), Qt::SkipEmptyParts);
    invalidateFilter();
}

bool TranscriptFilter::filterAcceptsRow(int sourceRow, const QModelIndex &sourceParent) const
{
    QString row;
    for (int column = 0; column < sourceModel()->columnCount(sourceParent); ++column) {
        row += sourceModel()->index(sourceRow, column, sourceParent).data().toString();
        row += QLatin1Char('\n');
    }
    return std::all_of(m_words.cbegin(), m_words.cend(), [&row](const QString &word) {
        return row.contains(word, Qt::CaseInsensitive);
    });
}
