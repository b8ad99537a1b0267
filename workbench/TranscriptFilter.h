#pragma once

#include <QAbstractTableModel>
#include <QStringList>
#include <QTimer>
#include <QVector>

class TranscriptModel;

/**
 * Shows the rows of a transcript that hold every typed word, in any column, in any case.
 *
 * It keeps the numbers of the accepted rows, so that a new row costs the same however many there
 * are. Long transcripts are looked through from the event loop, in parts, so that typing goes on.
 */
class TranscriptFilter : public QAbstractTableModel {
    Q_OBJECT

public:
    /** @param source the transcript; outlives the filter */
    explicit TranscriptFilter(TranscriptModel *source, QObject *parent = nullptr);

    /** Blank-separated words; an empty text shows everything. */
    void setWords(const QString &text);
    /** Rows are left that were not looked at yet. */
    bool isBusy() const { return m_seen < m_end; }
    /** How many rows were compared with words so far: what filtering costs. */
    qint64 comparedRows() const { return m_compared; }

    int rowCount(const QModelIndex &parent = QModelIndex()) const override;
    int columnCount(const QModelIndex &parent = QModelIndex()) const override;
    QVariant data(const QModelIndex &index, int role = Qt::DisplayRole) const override;
    QVariant headerData(int section, Qt::Orientation orientation,
                        int role = Qt::DisplayRole) const override;

signals:
    /** The last row was looked at. */
    void finished();

private:
    void restart();
    /** Looks at the next part of the rows that were not looked at yet. */
    void lookOn();
    void takeInserted();
    /** Before and after the source drops its first `count` rows. */
    void beginRemoval(int count);
    void endRemoval();
    bool accepts(int sourceRow) const;
    void insert(const QVector<qint64> &rows);

    // Rows are counted from the first one ever, so that dropped rows leave the numbers as they are.
    TranscriptModel *m_source;
    QStringList m_words;
    QVector<qint64> m_rows; ///< accepted rows; unused without words, which accepts all
    qint64 m_first = 0;     ///< number of the source's row 0
    qint64 m_seen = 0;      ///< rows before this one were looked at
    qint64 m_end = 0;       ///< number after the source's last row
    qint64 m_newFirst = 0;  ///< what m_first will be when the removal is done
    int m_leaving = 0;      ///< accepted rows that the removal takes along
    mutable qint64 m_compared = 0;
    QTimer m_next;
};
