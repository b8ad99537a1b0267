#pragma once

#include <QString>
#include <QStringList>

/** Helps with words that were mistyped. */
namespace Suggestion {

/** `; did you mean "X"?` with the candidate that is nearest to the word; empty when none is near.
 */
QString forWord(const QString &word, const QStringList &candidates);

} // namespace Suggestion
