#pragma once

#include <QString>
#include <QStringList>

/** Suggestions for misspelled words. */
namespace Suggestion {

/**
 * `; did you mean "X"?` with the candidate that is most similar to the word; empty when none is
 * similar.
 */
QString forWord(const QString &word, const QStringList &candidates);

} // namespace Suggestion
