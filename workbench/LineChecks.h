#pragma once

#include <QByteArray>
#include <QString>

struct ScriptContext;
struct TranscriptEntry;

/** What must hold after each line of a script, whatever the line was. */
namespace LineChecks {

/**
 * What the script asked for with "oracle on" and "sound on" and does not hold; "expected ...,
 * found ...", or an empty text.
 */
QString afterLine(const ScriptContext &context);
/**
 * What is wrong with how an operation was asked: a command that no controller knows, a line with
 * control characters or with no number where one belongs. Empty when it is well-formed.
 */
QString malformation(const TranscriptEntry &entry);

} // namespace LineChecks
