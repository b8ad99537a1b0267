#pragma once

#include <QAbstractTableModel>
#include <QStringList>
#include <QTimer>
#include <QVector>

class TranscriptModel;

/**
 * Shows the rows of a transcript that contain every typed word, in any column and in any case.
 *
 * It keeps the numbers of the accepted rows, so that the cost of a new row does not grow. The event
 * loop searches long transcripts in parts, so that the user can go on typing.
 */
class TranscriptFilter : public QAbstractTableModel {
    Q_OBJECT

public:
    /** @param source the transcript; outlives the filter */
    explicit TranscriptFilter(TranscriptModel *source, QObject *parent = nullptr);

    /** Sets the words, separated by blanks; an empty text shows every row. */
    void setWords(const QString &text);
    /** True while some rows have not been compared yet. */
    bool isBusy() const { return m_seen < m_end; }
    /** Number of rows compared with the words so far, which is the cost of filtering. */
    qint64 comparedRows() const { return m_compared; }

    int rowCount(const QModelIndex &parent = QModelIndex()) const override;
    int columnCount(const QModelIndex &parent = QModelIndex()) const override;
    QVariant data(const QModelIndex &index, int role = Qt::DisplayRole) const override;
    QVariant headerData(int section, Qt::Orientation orientation,
                        int role = Qt::DisplayRole) const override;

signals:
    /** The last row has been compared. */
    void finished();

private:
    void restart();
    /** Compares the next part of the remaining rows. */
    void lookOn();
    void takeInserted();
    /** Called before and after the source drops its first `count` rows. */
    void beginRemoval(int count);
    void endRemoval();
    bool accepts(int sourceRow) const;
    void insert(const QVector<qint64> &rows);

    // Row numbers count from the first row ever, so that dropped rows do not change them.
    TranscriptModel *m_source;
    QStringList m_words;
    QVector<qint64> m_rows; ///< accepted rows; unused without words, when all rows are accepted
    qint64 m_first = 0;     ///< number of the source's row 0
    qint64 m_seen = 0;      ///< the rows before this one have been compared
    qint64 m_end = 0;       ///< number after the source's last row
    qint64 m_newFirst = 0;  ///< value of m_first after the removal
    int m_leaving = 0;      ///< number of accepted rows that the removal drops
    mutable qint64 m_compared = 0;
    QTimer m_next;
};
