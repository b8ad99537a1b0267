#pragma once

#include <QSortFilterProxyModel>
#include <QStringList>

/** Shows the rows of a transcript that hold every typed word, in any column, in any case. */
class TranscriptFilter : public QSortFilterProxyModel {
    Q_OBJECT

public:
    explicit TranscriptFilter(QObject *parent = nullptr);

    /** Blank-separated words; an empty text shows everything. */
    void setWords(const QString &text);

protected:
    bool filterAcceptsRow(int sourceRow, const QModelIndex &sourceParent) const override;

private:
    QStringList m_words;
};
