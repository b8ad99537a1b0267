#pragma once

#include <QString>
#include <QStringList>

#include <functional>

class PlayStage;

/** Random driving, as the program offers it. */
namespace Exploration {

/** What a search for trouble is asked for. */
struct Request {
    quint32 firstSeed = 1;
    quint32 lastSeed = 1;
    int steps = 300;
    QString scenario;
    QString plugin;     ///< empty: the built one
    int timeoutS = 120; ///< for one line
};

/** "7" or "1-20"; false with *problem when it is neither. */
bool readSeeds(const QString &text, Request *request, QString *problem);

/**
 * Drives in this process; answers an exit status. The lines of the seed that is driven are in
 * `file`, its number in the first line of the standard output that follows.
 *
 * @param watch is called with each line before it is carried out
 */
int drive(const Request &request, PlayStage *stage, const QString &file,
          const std::function<void(const QString &)> &watch);

/**
 * Has a second process drive, which may crash or hang. A failure is shrunk to the fewest lines that
 * still lead to it, and printed as a script with its seed.
 */
int search(const Request &request);

} // namespace Exploration
