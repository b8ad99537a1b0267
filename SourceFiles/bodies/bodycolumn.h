#pragma once

#include "bodies/adminbody.h"

#include <QString>
#include <QStringList>
#include <QVector>

/** One column of a body table. */
struct BodyColumn {
    COLUMN_TYPE kind;
    QString header;
    bool hidden = false;
    bool stretched = false; ///< takes the width that the other columns leave
};

/** The columns of a body table from left to right. A tab describes its columns only here. */
class BodyColumns : public QVector<BodyColumn> {
public:
    using QVector<BodyColumn>::QVector;

    QVector<COLUMN_TYPE> kinds() const
    {
        QVector<COLUMN_TYPE> kinds;
        for (const BodyColumn &column : *this)
            kinds.append(column.kind);
        return kinds;
    }

    QStringList headers() const
    {
        QStringList headers;
        for (const BodyColumn &column : *this)
            headers.append(column.header);
        return headers;
    }

    /** Zero-based column of that kind; -1 when there is none. */
    int ofKind(COLUMN_TYPE kind) const { return kinds().indexOf(kind); }
    /** Zero-based column with that header; -1 when there is none. */
    int titled(const QString &header) const { return headers().indexOf(header); }
};
