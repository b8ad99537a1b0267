// Prints how long the body administration takes for what an operator does all day, as ratios of one
// interleaved run: beside each operation runs the bare sequence of the same questions.

#include "Bench.h"
#include "Counters.h"
#include "DialogUnderTest.h"

#include <QApplication>
#include <QCommandLineParser>
#include <QHeaderView>
#include <QTableWidget>
#include <QTextStream>

#include <algorithm>

namespace {

const QVector<int> bodyCounts = {4, 20, 50, 500, 2000};
constexpr int listedTargets = 200;
constexpr int roundTripUs = 1000;

QTextStream &out()
{
    static QTextStream stream(stdout);
    return stream;
}

void printRow(const QString &what, const QString &least, const QString &median)
{
    out() << QStringLiteral("%1 %2 %3\n").arg(what, -58).arg(least, 12).arg(median, 12);
    out().flush();
}

void printRatio(const QString &what, const Sample &sample, const Sample &unit)
{
    printRow(what, QString::number(sample.minimum / unit.minimum, 'f', 2),
             QString::number(sample.median / unit.median, 'f', 2));
}

void printCount(const QString &what, int count)
{
    printRow(what, QString::number(count), QString());
}

/** How many rounds an operation on so many bodies gets: the large ones take long enough. */
int roundsFor(int rounds, int bodies)
{
    return std::max(3, bodies > 100 ? rounds / 5 : rounds);
}

/** A table filled cell by cell as a first draft would: new items for every refresh. */
class NaiveTable {
public:
    NaiveTable(MemoryLink *link, const QVector<MemoryLink::Line> &lines, int rows, int columns)
        : m_link(link), m_lines(lines)
    {
        m_table.setRowCount(rows);
        m_table.setColumnCount(columns);
        m_table.horizontalHeader()->setSectionResizeMode(QHeaderView::ResizeToContents);
        m_table.show();
    }

    void refresh()
    {
        m_link->ask(m_lines);
        for (int row = 0; row < m_table.rowCount(); ++row) {
            for (int column = 0; column < m_table.columnCount(); ++column) {
                m_table.setItem(row, column,
                                new QTableWidgetItem(QStringLiteral("%1/%2").arg(row).arg(column)));
            }
        }
        DialogUnderTest::settle();
    }

private:
    MemoryLink *m_link;
    QVector<MemoryLink::Line> m_lines;
    QTableWidget m_table;
};

void measureRefresh(int bodies, int rounds)
{
    DialogUnderTest dialog(bodies, 0);
    dialog.open([&] {
        dialog.refresh();
        dialog.link().takeLines();
        dialog.refresh();
        const QVector<MemoryLink::Line> lines = dialog.link().takeLines();
        NaiveTable naive(&dialog.link(), lines, bodies, dialog.bodies()->columnCount());
        const QVector<Sample> samples =
                measureInterleaved({[&] { dialog.refresh(); }, [&] { dialog.link().ask(lines); },
                                    [&] { naive.refresh(); }},
                                   roundsFor(rounds, bodies));
        const QString size = QStringLiteral(", %1 bodies").arg(bodies);
        printRatio(QStringLiteral("unchanged refresh / its questions") + size, samples.at(0),
                   samples.at(1));
        printRatio(QStringLiteral("naive table / its questions") + size, samples.at(2),
                   samples.at(1));
    });
}

void countRefresh(CountingStyle *style, int bodies)
{
    DialogUnderTest dialog(bodies, 0);
    dialog.open([&] {
        dialog.refresh();
        PaintCounter paints(dialog.window());
        style->itemSizeHints = 0;
        dialog.refresh();
        const QString size = QStringLiteral(", %1 bodies").arg(bodies);
        printCount(QStringLiteral("size hints of an unchanged refresh") + size,
                   style->itemSizeHints);
        printCount(QStringLiteral("paints outside the tables, unchanged refresh") + size,
                   paints.outsideTables);
        style->itemSizeHints = 0;
        dialog.rename(QStringLiteral("Helmet"));
        printCount(QStringLiteral("size hints of a rename") + size, style->itemSizeHints);
    });
}

void measureRename(int rounds)
{
    DialogUnderTest few(20, 0);
    DialogUnderTest many(2000, 0);
    Sample atFew;
    Sample atMany;
    // Two modal dialogs cannot be worked in turn: one after the other, with the same rounds.
    int number = 0;
    const auto renameIn = [&](DialogUnderTest *dialog, Sample *sample) {
        dialog->open([&, dialog, sample] {
            *sample = measureInterleaved(
                              {[&, dialog] {
                                  dialog->rename(QStringLiteral("Helmet %1").arg(++number % 10));
                              }},
                              std::max(3, rounds / 2))
                              .first();
        });
    };
    renameIn(&few, &atFew);
    renameIn(&many, &atMany);
    printRatio(QStringLiteral("rename at 2000 / at 20 bodies"), atMany, atFew);
}

void measureChanged(int bodies, int rounds)
{
    DialogUnderTest dialog(bodies, 0);
    dialog.open([&] {
        dialog.refresh();
        dialog.link().takeLines();
        dialog.refresh();
        const QVector<MemoryLink::Line> lines = dialog.link().takeLines();
        int number = 0;
        const QVector<Sample> samples = measureInterleaved(
                {[&] { dialog.changeBodies(10, QStringLiteral("Cap %1").arg(++number)); },
                 // Fills the memory again, so that the next piece measures no simulator.
                 [&] { dialog.link().ask(lines); }, [&] { dialog.refresh(); },
                 [&] { dialog.link().ask(lines); }},
                roundsFor(rounds, bodies));
        printRatio(QStringLiteral("10 % changed / its questions, %1 bodies").arg(bodies),
                   samples.at(2), samples.at(3));
    });
}

void measureSearchTick(CountingStyle *style, int rounds)
{
    DialogUnderTest dialog(8, listedTargets);
    dialog.open([&] {
        QObject *timer = dialog.startSearch();
        const auto tick = [&] {
            QMetaObject::invokeMethod(timer, "timeout");
            DialogUnderTest::settle();
        };
        tick();
        dialog.link().takeLines();
        PaintCounter paints(dialog.window());
        style->itemSizeHints = 0;
        tick();
        const QVector<MemoryLink::Line> lines = dialog.link().takeLines();
        printCount(QStringLiteral("paints outside the tables, search tick"), paints.outsideTables);
        const QVector<Sample> samples =
                measureInterleaved({tick, [&] { dialog.link().ask(lines); }}, rounds);
        printRatio(QStringLiteral("search tick / its questions, %1 targets").arg(listedTargets),
                   samples.at(0), samples.at(1));
    });
}

void countHybridQuestions()
{
    DialogUnderTest dialog(8, 0);
    dialog.link().takeLines();
    dialog.open([&] {
        int questions = 0;
        for (const MemoryLink::Line &line : dialog.link().takeLines())
            questions += line.text.startsWith("inertial sensor_present") ? 1 : 0;
        printCount(QStringLiteral("hybrid questions, opening at a body with a sensor"), questions);
    });
}

void measureRoundTrips(int bodies)
{
    DialogUnderTest dialog(bodies, 0);
    dialog.open([&] {
        dialog.refresh();
        dialog.link().takeLines();
        dialog.refresh();
        const int questions = dialog.link().takeLines().size();
        dialog.link().setRoundTripUs(roundTripUs);
        const Sample sample = measureInterleaved({[&] { dialog.refresh(); }}, 5).first();
        dialog.link().setRoundTripUs(0);
        const Sample bare = {double(questions) * roundTripUs, double(questions) * roundTripUs};
        printRow(QStringLiteral("refresh at 1 ms a question / questions x 1 ms, %1 bodies")
                         .arg(bodies),
                 QString::number(sample.minimum / bare.minimum, 'f', 4),
                 QString::number(sample.median / bare.median, 'f', 4));
    });
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
    parser.addOption(roundsOption);
    parser.process(application);
    const int rounds = std::max(3, parser.value(roundsOption).toInt());

    auto *style = new CountingStyle;
    QApplication::setStyle(style);
    printRow(QStringLiteral("what"), QStringLiteral("minimum"), QStringLiteral("median"));
    for (const int bodies : bodyCounts)
        measureRefresh(bodies, rounds);
    for (const int bodies : {50, 500})
        countRefresh(style, bodies);
    measureRename(rounds);
    measureChanged(500, rounds);
    measureSearchTick(style, rounds);
    countHybridQuestions();
    measureRoundTrips(100);
    return EXIT_SUCCESS;
}
