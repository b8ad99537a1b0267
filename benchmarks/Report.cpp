#include "Report.h"

#include <QTextStream>

void Report::head()
{
    row(QStringLiteral("what"), QStringLiteral("minimum"), QStringLiteral("median"),
        QStringLiteral("reach"));
}

void Report::row(const QString &what, const QString &minimum, const QString &median,
                 const QString &reach)
{
    QTextStream out(stdout);
    out << QStringLiteral("%1 %2 %3 %4\n")
                    .arg(what, -58)
                    .arg(minimum, 9)
                    .arg(median, 9)
                    .arg(reach, 7);
}

void Report::ratio(const QString &what, const Sample &sample, const Sample &unit,
                   const QString &reach, int decimals)
{
    row(what, QString::number(sample.minimum / unit.minimum, 'f', decimals),
        QString::number(sample.median / unit.median, 'f', decimals), reach);
}

void Report::count(const QString &what, int count, const QString &reach)
{
    row(what, QString::number(count), QString(), reach);
}
