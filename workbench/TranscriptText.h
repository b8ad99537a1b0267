#pragma once

#include "TranscriptEntry.h"

#include <QByteArray>
#include <QString>
#include <QVector>

/** Writes transcripts as text. */
namespace TranscriptText {

/** One line without line break: virtual time, operation, command, answer, result, dialog. */
QString line(const TranscriptEntry &entry);
/** All entries in UTF-8, each on a line. */
QByteArray document(const QVector<TranscriptEntry> &entries);
/** Writes the document atomically; false with *error naming the file. */
bool save(const QString &file, const QVector<TranscriptEntry> &entries, QString *error);
/** The answer as readable text; bytes that are not valid text are escaped. */
QString printable(const QByteArray &bytes);

} // namespace TranscriptText
