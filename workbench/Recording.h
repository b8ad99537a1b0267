#pragma once

#include "TranscriptEntry.h"

#include <QByteArray>
#include <QString>
#include <QVector>

/** Transcripts as files: one JSON object a line, so that what was written before a crash is whole.
 */
namespace Recording {

/** Operations that are shown before a difference. */
constexpr int contextLines = 3;

/** One line without line break. Answers that are no valid text are kept byte for byte. */
QByteArray toLine(const TranscriptEntry &entry);
/** False with *problem "expected ..., found ..." when the line is no recorded operation. */
bool fromLine(const QByteArray &line, TranscriptEntry *entry, QString *problem);
/** False with *error naming file and line. */
bool load(const QString &file, QVector<TranscriptEntry> *entries, QString *error);
/**
 * Compares what was asked and answered; times and durations do not count.
 *
 * @return readable lines around the first difference; empty when there is none
 */
QString difference(const QVector<TranscriptEntry> &left, const QVector<TranscriptEntry> &right);

} // namespace Recording
