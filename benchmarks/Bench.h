#pragma once

#include <QVector>

#include <functional>

/** Processor time that this thread has used so far: what other programs do does not count. */
double processorUs();

/** Processor time of what is measured, in microseconds. */
struct Sample {
    double minimum = 0;
    double median = 0;
};

/**
 * Runs the pieces in turn, `rounds` times each, so that whatever slows the machine down meets all
 * of them alike. A first round is not counted.
 */
QVector<Sample> measureInterleaved(const QVector<std::function<void()>> &pieces, int rounds);
