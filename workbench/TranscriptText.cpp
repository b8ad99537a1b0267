#include "TranscriptText.h"

#include <QSaveFile>

QString TranscriptText::printable(const QByteArray &bytes)
{
    const QString text = QString::fromUtf8(bytes);
    const bool isText = text.toUtf8() == bytes;
    QString result;
    const QString source = isText ? text : QString::fromLatin1(bytes);
    for (const QChar character : source) {
        if (character.isPrint() && (isText || character.unicode() < 0x80))
            result += character;
        else
            result += QStringLiteral("\\x%1").arg(character.unicode(), 2, 16, QLatin1Char('0'));
    }
    return result;
}

QString TranscriptText::line(const TranscriptEntry &entry)
{
    QString text = QStringLiteral("%1 %2 %3")
                           .arg(entry.virtualMs, 8)
                           .arg(TranscriptEntry::operationName(entry.operation), -10)
                           .arg(printable(entry.line));
    if (entry.operation != TranscriptEntry::Operation::Message) {
        text += QStringLiteral(" -> %1").arg(entry.result);
        if (entry.operation != TranscriptEntry::Operation::Set && entry.result == 0)
            text += QStringLiteral(" \"%1\"").arg(printable(entry.answer));
    }
    if (!entry.dialog.isEmpty())
        text += QStringLiteral(" @%1").arg(entry.dialog);
    return text;
}

QByteArray TranscriptText::document(const QVector<TranscriptEntry> &entries)
{
    QByteArray bytes;
    for (const TranscriptEntry &entry : entries)
        bytes += line(entry).toUtf8() + '\n';
    return bytes;
}

bool TranscriptText::save(const QString &file, const QVector<TranscriptEntry> &entries,
                          QString *error)
{
    QSaveFile output(file);
    const bool saved = output.open(QIODevice::WriteOnly) && output.write(document(entries)) >= 0
                       && output.commit();
    if (!saved)
        *error = QStringLiteral("%1: the transcript cannot be written: %2")
                         .arg(file, output.errorString());
    return saved;
}
