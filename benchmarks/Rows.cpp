#include "Rows.h"

#include "Bench.h"
#include "Counters.h"
#include "DialogUnderTest.h"
#include "NaiveTable.h"
#include "Report.h"

#include <QTableWidget>

#include <algorithm>

namespace {

constexpr int roundTripUs = 1000;

/** Number of rounds for an operation on that many bodies; large numbers need fewer rounds. */
int roundsFor(int rounds, int bodies)
{
    return std::max(5, bodies > 100 ? rounds / 5 : rounds);
}

QString sized(const char *what, int bodies)
{
    return QStringLiteral("%1, %2 bodies").arg(QLatin1String(what)).arg(bodies);
}

/** The queries of an unchanged refresh. */
QVector<MemoryLink::Line> questionsOf(DialogUnderTest *dialog)
{
    dialog->refresh();
    dialog->link().note();
    dialog->refresh();
    return dialog->link().takeLines();
}

/** Polls the search once and handles the events that follow. */
void tick(QObject *timer)
{
    QMetaObject::invokeMethod(timer, "timeout");
    DialogUnderTest::settle();
}

} // namespace

void Rows::refresh(int bodies, int rounds)
{
    DialogUnderTest dialog(bodies, 0);
    dialog.open([&] {
        const QVector<MemoryLink::Line> lines = questionsOf(&dialog);
        const auto ask = [&] { dialog.link().ask(lines); };
        const QVector<Sample> samples =
                measureInterleaved({[&] { dialog.refresh(); }, ask}, roundsFor(rounds, bodies));
        // The naive table has its own run, because so much work evicts the other pieces from the
        // processor's caches.
        NaiveTable naive(&dialog.link(), lines, bodies, dialog.bodies()->columnCount());
        const QVector<Sample> naiveSamples =
                measureInterleaved({[&] { naive.refresh(); }, ask}, roundsFor(rounds, bodies) / 2);
        const QString reach = bodies == 50 || bodies == 500 ? QStringLiteral("4.50") : QString();
        Report::ratio(sized("unchanged refresh / F", bodies), samples.at(0), samples.at(1), reach);
        Report::ratio(sized("naive table / F", bodies), naiveSamples.at(0), naiveSamples.at(1));
        Report::row(sized("F, microseconds a question", bodies),
                    QString::number(samples.at(1).minimum / lines.size(), 'f', 3),
                    QString::number(samples.at(1).median / lines.size(), 'f', 3), {});
    });
}

void Rows::counts(CountingStyle *style, int bodies)
{
    const QString none = QStringLiteral("0");
    DialogUnderTest dialog(bodies, 0);
    dialog.open([&] {
        dialog.refresh();
        PaintCounter paints(dialog.window());
        style->itemSizeHints = 0;
        dialog.refresh();
        Report::count(sized("size hints of an unchanged refresh", bodies), style->itemSizeHints,
                      none);
        Report::count(sized("paints outside the tables, unchanged refresh", bodies),
                      paints.outsideTables, none);
        dialog.toggle();
        style->itemSizeHints = 0;
        dialog.toggle();
        Report::count(sized("size hints of a toggle", bodies), style->itemSizeHints, none);
        dialog.rename(QStringLiteral("Hat"));
        style->itemSizeHints = 0;
        dialog.rename(QStringLiteral("Helmet"));
        Report::count(sized("size hints of a rename", bodies), style->itemSizeHints, none);
    });
}

void Rows::rename(int few, int many, int rounds)
{
    // Two modal dialogs cannot be used alternately, so that they run one after the other with equal
    // rounds.
    const auto renameAmong = [rounds](int bodies) {
        DialogUnderTest dialog(bodies, 0);
        Sample sample;
        int number = 0;
        dialog.open([&] {
            sample = measureInterleaved(
                             {[&] { dialog.rename(QStringLiteral("Cap %1").arg(++number % 10)); }},
                             std::max(5, rounds / 2))
                             .first();
        });
        return sample;
    };
    Report::ratio(QStringLiteral("rename at %1 / at %2 bodies").arg(many).arg(few),
                  renameAmong(many), renameAmong(few), QStringLiteral("4.00"));
}

void Rows::changed(int bodies, int rounds)
{
    DialogUnderTest dialog(bodies, 0);
    dialog.open([&] {
        const QVector<MemoryLink::Line> lines = questionsOf(&dialog);
        int number = 0;
        const QVector<Sample> samples = measureInterleaved(
                {[&] { dialog.changeBodies(10, QStringLiteral("Cap %1").arg(++number)); },
                 // This stores the answers again, so that the next piece does not measure the
                 // simulator.
                 [&] { dialog.link().ask(lines); }, [&] { dialog.refresh(); },
                 [&] { dialog.link().ask(lines); }},
                roundsFor(rounds, bodies));
        Report::ratio(sized("10 % changed / F", bodies), samples.at(2), samples.at(3),
                      QStringLiteral("5.00"));
    });
}

void Rows::searchTick(CountingStyle *style, int targets, int rounds)
{
    DialogUnderTest dialog(8, targets);
    dialog.open([&] {
        QObject *timer = dialog.startSearch();
        tick(timer);
        dialog.link().note();
        PaintCounter paints(dialog.window());
        style->itemSizeHints = 0;
        tick(timer);
        const QVector<MemoryLink::Line> lines = dialog.link().takeLines();
        const QString size = QStringLiteral(", %1 targets").arg(targets);
        Report::count(QStringLiteral("size hints of a search tick") + size, style->itemSizeHints,
                      QStringLiteral("0"));
        Report::count(QStringLiteral("paints outside the tables, search tick") + size,
                      paints.outsideTables, QStringLiteral("0"));
        const QVector<Sample> samples = measureInterleaved(
                {[&] { tick(timer); }, [&] { dialog.link().ask(lines); }}, rounds);
        Report::ratio(QStringLiteral("search tick / F") + size, samples.at(0), samples.at(1),
                      QStringLiteral("9.00"));
    });
}

void Rows::hybridQuestions()
{
    DialogUnderTest dialog(8, 0);
    dialog.link().note();
    dialog.open([&] {
        int questions = 0;
        for (const MemoryLink::Line &line : dialog.link().takeLines())
            questions += line.text.startsWith("inertial sensor_present") ? 1 : 0;
        Report::count(QStringLiteral("hybrid questions, opening at a body with a sensor"),
                      questions, QStringLiteral("1"));
    });
}

void Rows::roundTrips(int bodies)
{
    DialogUnderTest dialog(bodies, 0);
    dialog.open([&] {
        const QVector<MemoryLink::Line> lines = questionsOf(&dialog);
        dialog.link().setRoundTripUs(roundTripUs);
        // The bare queries run alternately with it, because each query takes a little more than its
        // delay.
        const QVector<Sample> samples = measureInterleaved(
                {[&] { dialog.refresh(); }, [&] { dialog.link().ask(lines); }}, 5);
        dialog.link().setRoundTripUs(0);
        Report::ratio(sized("refresh at 1 ms a question / questions", bodies), samples.at(0),
                      samples.at(1), QStringLiteral("1.0050"), 4);
    });
}

void Rows::transcript(int recorded)
{
    SimulatedController controller(DialogUnderTest::stateWith(8, 0));
    SimulatedIOManager io(&controller);
    io.setTranscriptLimit(recorded);
    const auto ask = [&io](int times) {
        int count = 0;
        for (int i = 0; i < times; ++i)
            io.get_int(&count, "body number_of_bodies standard");
    };
    constexpr int operations = 1000;
    const Sample atFew = measureInterleaved({[&] { ask(operations); }}, 5).first();
    ask(recorded);
    const Sample atMany = measureInterleaved({[&] { ask(operations); }}, 5).first();
    Report::row(QStringLiteral("host, microseconds an operation, few recorded"),
                QString::number(atFew.minimum / operations, 'f', 2),
                QString::number(atFew.median / operations, 'f', 2), QStringLiteral("10.00"));
    Report::row(QStringLiteral("host, microseconds an operation, %1 recorded").arg(recorded),
                QString::number(atMany.minimum / operations, 'f', 2),
                QString::number(atMany.median / operations, 'f', 2), QStringLiteral("10.00"));
    Report::count(QStringLiteral("host, kept after %1 operations").arg(io.operationCount()),
                  io.transcript().size(), QString::number(recorded));
}

bool Rows::repeat(const QString &what, int bodies, int rounds)
{
    const bool ticks = what == QLatin1String("tick");
    const QStringList known{QStringLiteral("refresh"),   QStringLiteral("rename"),
                            QStringLiteral("toggle"),    QStringLiteral("changed"),
                            QStringLiteral("questions"), QStringLiteral("tick")};
    if (!known.contains(what))
        return false;
    DialogUnderTest dialog(ticks ? 8 : bodies, ticks ? bodies : 0);
    dialog.open([&] {
        QObject *timer = ticks ? dialog.startSearch() : nullptr;
        const QVector<MemoryLink::Line> lines =
                ticks ? QVector<MemoryLink::Line>() : questionsOf(&dialog);
        for (int round = 0; round < rounds; ++round) {
            const QString name = QStringLiteral("Cap %1").arg(round % 10);
            if (ticks)
                tick(timer);
            else if (what == QLatin1String("questions"))
                dialog.link().ask(lines);
            else if (what == QLatin1String("rename"))
                dialog.rename(name);
            else if (what == QLatin1String("toggle"))
                dialog.toggle();
            if (what == QLatin1String("changed"))
                dialog.changeBodies(10, name);
            if (what == QLatin1String("changed") || what == QLatin1String("refresh"))
                dialog.refresh();
        }
    });
    return true;
}
