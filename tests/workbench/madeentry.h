#pragma once

#include "TranscriptEntry.h"

/** An operation in the form of a transcript. */
inline TranscriptEntry entry(TranscriptEntry::Operation operation, const QByteArray &line,
                             const QByteArray &answer = {}, int result = 0)
{
    TranscriptEntry made;
    made.operation = operation;
    made.line = line;
    made.answer = answer;
    made.result = result;
    return made;
}
