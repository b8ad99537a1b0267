#include "TranscriptModel.h"

#include "TranscriptText.h"

#include <QColor>

TranscriptModel::TranscriptModel(QObject *parent) : QAbstractTableModel(parent) {}

void TranscriptModel::append(const TranscriptEntry &entry)
{
    beginInsertRows(QModelIndex(), m_entries.size(), m_entries.size());
    m_entries.append(entry);
    endInsertRows();
}

void TranscriptModel::clear()
{
    beginResetModel();
    m_entries.clear();
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
    const bool isMessage = entry.operation == TranscriptEntry::Operation::Message;
    if (role == Qt::ForegroundRole && entry.result != 0)
        return QColor(Qt::red);
    if (role == Qt::ToolTipRole && !entry.dialog.isEmpty())
        return tr("while %1 was open").arg(entry.dialog);
    if (role != Qt::DisplayRole)
        return QVariant();
    switch (index.column()) {
    case Time:
        return QStringLiteral("%1").arg(entry.virtualMs / 1000.0, 0, 'f', 3);
    case Operation:
        return TranscriptEntry::operationName(entry.operation);
    case Command:
        return TranscriptText::printable(entry.line);
    case Answer:
        return TranscriptText::printable(entry.answer);
    case Result:
        return isMessage ? QVariant() : QVariant(entry.result);
    case Duration:
        return entry.durationUs > 0 ? tr("%1 ms").arg(entry.durationUs / 1000.0, 0, 'f', 2)
                                    : QString();
    default:
        return QVariant();
    }
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
