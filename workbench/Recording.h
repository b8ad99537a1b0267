#pragma once

#include "TranscriptEntry.h"

#include <QByteArray>
#include <QString>
#include <QVector>

/**
 * Transcripts as files with one JSON object on each line, so that all lines written before a crash
 * are complete.
 */
namespace Recording {

/** Number of operations shown before a difference. */
constexpr int contextLines = 3;

/** One line without line break. Answers that are not valid text are kept byte for byte. */
QByteArray toLine(const TranscriptEntry &entry);
/** False with *problem "expected ..., found ..." when the line is not a recorded operation. */
bool fromLine(const QByteArray &line, TranscriptEntry *entry, QString *problem);
/** False with *error naming file and line. */
bool load(const QString &file, QVector<TranscriptEntry> *entries, QString *error);
/**
 * Compares lines and answers; ignores times and durations.
 *
 * @return readable lines around the first difference; empty when there is none
 */
QString difference(const QVector<TranscriptEntry> &left, const QVector<TranscriptEntry> &right);

} // namespace Recording
