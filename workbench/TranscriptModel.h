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

    /** Sets the limit, beyond which the oldest rows are dropped; 0: no limit. */
    void setLimit(int limit) { m_limit = limit; }
    void append(const QVector<TranscriptEntry> &entries);
    void append(const TranscriptEntry &entry) { append(QVector<TranscriptEntry>{entry}); }
    void clear();
    const TranscriptEntry &entry(int row) const { return m_entries.at(row); }
    /** Number of rows that the limit has dropped since the model was cleared. */
    qint64 droppedCount() const { return m_dropped; }
    /** All texts of a row, each on a line, for the filter. */
    QString rowText(int row) const;

    int rowCount(const QModelIndex &parent = QModelIndex()) const override;
    int columnCount(const QModelIndex &parent = QModelIndex()) const override;
    QVariant data(const QModelIndex &index, int role = Qt::DisplayRole) const override;
    QVariant headerData(int section, Qt::Orientation orientation,
                        int role = Qt::DisplayRole) const override;

private:
    void dropOldest(int count);
    QString cellText(const TranscriptEntry &entry, int column) const;

    QVector<TranscriptEntry> m_entries;
    int m_limit = 0;
    qint64 m_dropped = 0;
};
