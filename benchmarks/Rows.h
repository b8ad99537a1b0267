#pragma once

class CountingStyle;
class QString;

/** One function for one or a few rows of the table; README.md explains each row. */
namespace Rows {

/** A refresh that finds nothing new, and the same with a naive table. */
void refresh(int bodies, int rounds);
/** Size hints and paints of a refresh, a check mark and a name. */
void counts(CountingStyle *style, int bodies);
void rename(int few, int many, int rounds);
/** A refresh after every tenth body was renamed. */
void changed(int bodies, int rounds);
/** A poll of a running search that finds nothing new. */
void searchTick(CountingStyle *style, int targets, int rounds);
void hybridQuestions();
/** A refresh over a link on which each query takes a millisecond. */
void roundTrips(int bodies);
/** One operation of the substitute host's IOManager with a long transcript. */
void transcript(int recorded);

/**
 * Repeats one operation `rounds` times and prints nothing, for a profiler. False when the name is
 * unknown.
 */
bool repeat(const QString &what, int bodies, int rounds);

} // namespace Rows
