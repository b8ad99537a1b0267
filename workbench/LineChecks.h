#pragma once

#include <QByteArray>
#include <QString>

struct ScriptContext;
struct TranscriptEntry;

/** The rules that hold after each line of a script. */
namespace LineChecks {

/**
 * The first violation of the rules that the script switched on with "oracle on" and "sound on", as
 * "expected ..., found ..."; empty when there is none.
 */
QString afterLine(const ScriptContext &context);
/**
 * The mistake in the line of an operation: a command that no controller knows, a control character,
 * or a text in the place of a number. Empty when the line is well-formed.
 */
QString malformation(const TranscriptEntry &entry);
/** True for a query about a name as the answer gives it, or about its last word. */
bool repeats(const TranscriptEntry &query, const QString &answer);

} // namespace LineChecks
