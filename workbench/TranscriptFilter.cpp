#include "TranscriptFilter.h"

#include "TranscriptModel.h"
#include "WorkbenchTime.h"

#include <algorithm>

namespace {

/** A part of this size takes a few milliseconds. */
constexpr int rowsOfAPart = 1000;

} // namespace

TranscriptFilter::TranscriptFilter(TranscriptModel *source, QObject *parent)
    : QAbstractTableModel(parent), m_source(source), m_end(source->rowCount())
{
    m_seen = m_end;
    m_next.setSingleShot(true);
    m_next.setInterval(0);
    connect(&m_next, &QTimer::timeout, this, &TranscriptFilter::lookOn);
    connect(source, &QAbstractItemModel::rowsInserted, this, &TranscriptFilter::takeInserted);
    connect(source, &QAbstractItemModel::rowsAboutToBeRemoved, this,
            [this](const QModelIndex &, int first, int last) { beginRemoval(last - first + 1); });
    connect(source, &QAbstractItemModel::rowsRemoved, this, &TranscriptFilter::endRemoval);
    connect(source, &QAbstractItemModel::modelReset, this, &TranscriptFilter::restart);
}

void TranscriptFilter::setWords(const QString &text)
{
    const QStringList words = text.split(QLatin1Char(' '), Qt::SkipEmptyParts);
    if (words == m_words)
        return;
    m_words = words;
    restart();
}

void TranscriptFilter::restart()
{
    beginResetModel();
    m_rows.clear();
    m_first = 0;
    m_end = m_source->rowCount();
    m_seen = m_words.isEmpty() ? m_end : 0;
    endResetModel();
    lookOn();
}

void TranscriptFilter::lookOn()
{
    const WorkbenchTime own;
    const qint64 end = qMin(m_end, m_seen + rowsOfAPart);
    QVector<qint64> found;
    for (; m_seen < end; ++m_seen) {
        if (accepts(int(m_seen - m_first)))
            found << m_seen;
    }
    insert(found);
    if (isBusy())
        m_next.start();
    else
        emit finished();
}

void TranscriptFilter::takeInserted()
{
    const int count = m_source->rowCount() - int(m_end - m_first);
    if (m_words.isEmpty()) {
        beginInsertRows(QModelIndex(), rowCount(), rowCount() + count - 1);
        m_end += count;
        m_seen = m_end;
        endInsertRows();
        return;
    }
    m_end += count;
    if (!m_next.isActive())
        lookOn();
}

void TranscriptFilter::beginRemoval(int count)
{
    m_newFirst = m_first + count;
    m_leaving = m_words.isEmpty() ? count
                                  : int(std::lower_bound(m_rows.cbegin(), m_rows.cend(), m_newFirst)
                                        - m_rows.cbegin());
    if (m_leaving > 0)
        beginRemoveRows(QModelIndex(), 0, m_leaving - 1);
}

void TranscriptFilter::endRemoval()
{
    m_first = m_newFirst;
    m_seen = qMax(m_seen, m_first);
    if (!m_words.isEmpty())
        m_rows.erase(m_rows.begin(), m_rows.begin() + m_leaving);
    if (m_leaving > 0)
        endRemoveRows();
}

bool TranscriptFilter::accepts(int sourceRow) const
{
    ++m_compared;
    const QString text = m_source->rowText(sourceRow);
    return std::all_of(m_words.cbegin(), m_words.cend(), [&text](const QString &word) {
        return text.contains(word, Qt::CaseInsensitive);
    });
}

void TranscriptFilter::insert(const QVector<qint64> &rows)
{
    if (rows.isEmpty())
        return;
    beginInsertRows(QModelIndex(), m_rows.size(), m_rows.size() + rows.size() - 1);
    m_rows += rows;
    endInsertRows();
}

int TranscriptFilter::rowCount(const QModelIndex &parent) const
{
    if (parent.isValid())
        return 0;
    return m_words.isEmpty() ? int(m_end - m_first) : m_rows.size();
}

int TranscriptFilter::columnCount(const QModelIndex &parent) const
{
    return m_source->columnCount(parent);
}

QVariant TranscriptFilter::data(const QModelIndex &index, int role) const
{
    if (!index.isValid())
        return QVariant();
    const int row = m_words.isEmpty() ? index.row() : int(m_rows.at(index.row()) - m_first);
    return m_source->index(row, index.column()).data(role);
}

QVariant TranscriptFilter::headerData(int section, Qt::Orientation orientation, int role) const
{
    return m_source->headerData(section, orientation, role);
}
