#pragma once

#include "TranscriptEntry.h"

#include <QByteArray>
#include <QString>
#include <QVector>

/** Writes transcripts as text. */
namespace TranscriptText {

/** One line without line break: virtual time, operation, command, answer, result, dialog. */
QString line(const TranscriptEntry &entry);
/** All entries, one line each, UTF-8. */
QByteArray document(const QVector<TranscriptEntry> &entries);
/** Writes the document atomically; false with *error naming the file. */
bool save(const QString &file, const QVector<TranscriptEntry> &entries, QString *error);
/** The answer as text a person can read, with what is no valid text escaped. */
QString printable(const QByteArray &bytes);

} // namespace TranscriptText
