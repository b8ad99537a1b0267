#pragma once

#include <QVector>

#include <functional>

/** Real time of what is measured, in microseconds. */
struct Sample {
    double minimum = 0;
    double median = 0;
};

/**
 * Runs the pieces in turn, `rounds` times each, so that whatever else the machine does meets all of
 * them alike. A first round is not counted.
 */
QVector<Sample> measureInterleaved(const QVector<std::function<void()>> &pieces, int rounds);
