#include "Bench.h"

#include <QElapsedTimer>

#include <algorithm>

QVector<Sample> measureInterleaved(const QVector<std::function<void()>> &pieces, int rounds)
{
    QVector<QVector<double>> times(pieces.size());
    for (int round = -1; round < rounds; ++round) {
        for (int i = 0; i < pieces.size(); ++i) {
            QElapsedTimer clock;
            clock.start();
            pieces.at(i)();
            if (round >= 0)
                times[i].append(double(clock.nsecsElapsed()) / 1000.0);
        }
    }
    QVector<Sample> samples;
    for (QVector<double> &measured : times) {
        std::sort(measured.begin(), measured.end());
        samples.append({measured.first(), measured.at(measured.size() / 2)});
    }
    return samples;
}
