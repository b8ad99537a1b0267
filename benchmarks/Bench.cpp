#include "Bench.h"

#include <algorithm>
#include <ctime>

double processorUs()
{
    timespec time{};
    clock_gettime(CLOCK_THREAD_CPUTIME_ID, &time);
    return double(time.tv_sec) * 1e6 + double(time.tv_nsec) / 1e3;
}

QVector<Sample> measureInterleaved(const QVector<std::function<void()>> &pieces, int rounds)
{
    QVector<QVector<double>> times(pieces.size());
    for (int round = -1; round < rounds; ++round) {
        for (int i = 0; i < pieces.size(); ++i) {
            const double startUs = processorUs();
            pieces.at(i)();
            if (round >= 0)
                times[i].append(processorUs() - startUs);
        }
    }
    QVector<Sample> samples;
    for (QVector<double> &measured : times) {
        std::sort(measured.begin(), measured.end());
        samples.append({measured.first(), measured.at(measured.size() / 2)});
    }
    return samples;
}
