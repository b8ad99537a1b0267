// Prints the durations of typical operations in the body administration, as ratios to the bare
// sequence of the same queries, which runs alternately with each operation.

#include "Counters.h"
#include "Report.h"
#include "Rows.h"

#include <QApplication>
#include <QCommandLineParser>

#include <algorithm>
#include <cstdlib>

namespace {

void printTable(int rounds)
{
    constexpr int listedTargets = 200;
    constexpr int recordedOperations = 1000000;
    auto *style = new CountingStyle;
    QApplication::setStyle(style);
    Report::head();
    for (const int bodies : {4, 20, 50, 500, 2000})
        Rows::refresh(bodies, rounds);
    for (const int bodies : {50, 500})
        Rows::counts(style, bodies);
    Rows::rename(20, 2000, rounds);
    Rows::changed(500, rounds);
    Rows::searchTick(style, listedTargets, rounds);
    Rows::hybridQuestions();
    Rows::roundTrips(100);
    Rows::transcript(recordedOperations);
}

} // namespace

int main(int argc, char *argv[])
{
    QApplication application(argc, argv);
    QCommandLineParser parser;
    parser.setApplicationDescription(
            QStringLiteral("Prints how long the body administration takes."));
    parser.addHelpOption();
    const QCommandLineOption roundsOption(QStringLiteral("rounds"),
                                          QStringLiteral("How often each piece runs."),
                                          QStringLiteral("N"), QStringLiteral("50"));
    const QCommandLineOption repeatOption(
            QStringLiteral("repeat"),
            QStringLiteral("Only does one thing, for a profiler: refresh, rename, toggle, changed, "
                           "tick or questions."),
            QStringLiteral("WHAT"));
    const QCommandLineOption bodiesOption(
            QStringLiteral("bodies"),
            QStringLiteral("With --repeat: how many bodies, or targets of a tick."),
            QStringLiteral("N"), QStringLiteral("500"));
    parser.addOptions({roundsOption, repeatOption, bodiesOption});
    parser.process(application);
    const int rounds = parser.value(roundsOption).toInt();
    if (!parser.isSet(repeatOption)) {
        printTable(std::max(5, rounds));
        return EXIT_SUCCESS;
    }
    const int bodies = parser.value(bodiesOption).toInt();
    return Rows::repeat(parser.value(repeatOption), bodies, rounds) ? EXIT_SUCCESS : EXIT_FAILURE;
}
