#include "TranscriptModel.h"

#include "TranscriptText.h"

#include <QColor>

TranscriptModel::TranscriptModel(QObject *parent) : QAbstractTableModel(parent) {}

void TranscriptModel::append(const QVector<TranscriptEntry> &entries)
{
    const int surplus = TranscriptEntry::surplus(m_entries.size() + entries.size(), m_limit);
    const int oldRows = qMin(surplus, m_entries.size());
    // Rows that the limit would drop at once are not inserted.
    const int skipped = surplus - oldRows;
    dropOldest(oldRows);
    m_dropped += skipped;
    if (skipped == entries.size())
        return;
    beginInsertRows(QModelIndex(), m_entries.size(),
                    m_entries.size() + entries.size() - skipped - 1);
    m_entries += skipped > 0 ? entries.mid(skipped) : entries;
    endInsertRows();
}

void TranscriptModel::dropOldest(int count)
{
    if (count == 0)
        return;
    beginRemoveRows(QModelIndex(), 0, count - 1);
    m_entries.erase(m_entries.begin(), m_entries.begin() + count);
    m_dropped += count;
    endRemoveRows();
}

void TranscriptModel::clear()
{
    beginResetModel();
    m_entries.clear();
    m_dropped = 0;
    endResetModel();
}

int TranscriptModel::rowCount(const QModelIndex &parent) const
{
    return parent.isValid() ? 0 : m_entries.size();
}

int TranscriptModel::columnCount(const QModelIndex &parent) const
{
    return parent.isValid() ? 0 : ColumnCount;
}

QVariant TranscriptModel::data(const QModelIndex &index, int role) const
{
    if (!index.isValid())
        return QVariant();
    const TranscriptEntry &entry = m_entries.at(index.row());
    if (role == Qt::ForegroundRole && entry.result != 0)
        return QColor(Qt::red);
    if (role == Qt::ToolTipRole && !entry.dialog.isEmpty())
        return tr("while %1 was open").arg(entry.dialog);
    return role == Qt::DisplayRole ? cellText(entry, index.column()) : QVariant();
}

QString TranscriptModel::cellText(const TranscriptEntry &entry, int column) const
{
    const bool isMessage = entry.operation == TranscriptEntry::Operation::Message;
    switch (column) {
    case Time:
        return QStringLiteral("%1").arg(entry.virtualMs / 1000.0, 0, 'f', 3);
    case Operation:
        return TranscriptEntry::operationName(entry.operation);
    case Command:
        return TranscriptText::printable(entry.line);
    case Answer:
        return TranscriptText::printable(entry.answer);
    case Result:
        return isMessage ? QString() : QString::number(entry.result);
    case Duration:
        return entry.durationUs > 0 ? tr("%1 ms").arg(entry.durationUs / 1000.0, 0, 'f', 2)
                                    : QString();
    default:
        return QString();
    }
}

QString TranscriptModel::rowText(int row) const
{
    QString text;
    for (int column = 0; column < ColumnCount; ++column) {
        text += cellText(m_entries.at(row), column);
        text += QLatin1Char('\n');
    }
    return text;
}

QVariant TranscriptModel::headerData(int section, Qt::Orientation orientation, int role) const
{
    if (orientation != Qt::Horizontal || role != Qt::DisplayRole)
        return QVariant();
    switch (section) {
    case Time:
        return tr("Time [s]");
    case Operation:
        return tr("Operation");
    case Command:
        return tr("Command");
    case Answer:
        return tr("Answer");
    case Result:
        return tr("Result");
    case Duration:
        return tr("Duration");
    default:
        return QVariant();
    }
}
