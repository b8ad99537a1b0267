#pragma once

#include <QString>
#include <QStringList>

#include <functional>

class PlayStage;

/** Random driving, as the program's option offers it. */
namespace Exploration {

/** The parameters of an exploration. */
struct Request {
    quint32 firstSeed = 1;
    quint32 lastSeed = 1;
    int steps = 300;
    QString scenario;
    QString plugin;     ///< empty: the built plug-in
    int timeoutS = 120; ///< limit for one line, in seconds
};

/** Reads "7" or "1-20"; false with *problem for any other text. */
bool readSeeds(const QString &text, Request *request, QString *problem);

/**
 * Drives the dialogs in this process and returns an exit status. Before each seed its number is
 * written to the standard output, and its lines are written to `file`.
 *
 * @param watch is called with each line before it is carried out
 */
int drive(const Request &request, PlayStage *stage, const QString &file,
          const std::function<void(const QString &)> &watch);

/**
 * Drives the dialogs in a second process, which may crash or hang. A failure is reduced to the
 * fewest lines that still lead to it, and printed as a script with its seed.
 */
int search(const Request &request);

} // namespace Exploration
