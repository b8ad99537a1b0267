#pragma once

class CountingStyle;
class QString;

/** One function a row, or a few rows, of the table; README.md says what each means. */
namespace Rows {

/** A refresh that finds nothing new, and the same by a naive table. */
void refresh(int bodies, int rounds);
/** Size hints and paints of a refresh, a check mark and a name. */
void counts(CountingStyle *style, int bodies);
void rename(int few, int many, int rounds);
/** A refresh after every tenth body was renamed. */
void changed(int bodies, int rounds);
/** A poll of a running search that finds nothing new. */
void searchTick(CountingStyle *style, int targets, int rounds);
void hybridQuestions();
/** A refresh over a link that takes a millisecond a question. */
void roundTrips(int bodies);
/** One operation of the substitute host's IOManager with a long transcript. */
void transcript(int recorded);

/** Does one thing `rounds` times and prints nothing, for a profiler; false when it has no name. */
bool repeat(const QString &what, int bodies, int rounds);

} // namespace Rows
