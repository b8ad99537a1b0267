#pragma once

#include <QVector>

#include <functional>

/**
 * Processor time that this thread has used so far, in microseconds; other programs do not count.
 */
double processorUs();

/** Processor time of a measured piece, in microseconds. */
struct Sample {
    double minimum = 0;
    double median = 0;
};

/**
 * Runs the pieces alternately, `rounds` times each, so that a slower machine affects all of them
 * alike. A first round is not counted.
 */
QVector<Sample> measureInterleaved(const QVector<std::function<void()>> &pieces, int rounds);
