#pragma once

#include "TranscriptEntry.h"

#include <QAbstractTableModel>
#include <QVector>

/** The transcript as a table that grows. Owned by the transcript dock. */
class TranscriptModel : public QAbstractTableModel {
    Q_OBJECT

public:
    enum Column { Time, Operation, Command, Answer, Result, Duration, ColumnCount };

    explicit TranscriptModel(QObject *parent = nullptr);

    void append(const TranscriptEntry &entry);
    void clear();
    const TranscriptEntry &entry(int row) const { return m_entries.at(row); }

    int rowCount(const QModelIndex &parent = QModelIndex()) const override;
    int columnCount(const QModelIndex &parent = QModelIndex()) const override;
    QVariant data(const QModelIndex &index, int role = Qt::DisplayRole) const override;
    QVariant headerData(int section, Qt::Orientation orientation,
                        int role = Qt::DisplayRole) const override;

private:
    QVector<TranscriptEntry> m_entries;
};
