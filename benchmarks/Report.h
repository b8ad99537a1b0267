#pragma once

#include "Bench.h"

#include <QString>

/** The table that the program prints: one line a row, with what is to be reached. */
namespace Report {

void head();
/** Two texts and the figure to reach; empty: none is set. */
void row(const QString &what, const QString &minimum, const QString &median, const QString &reach);
/** The ratios of the minima and of the medians. */
void ratio(const QString &what, const Sample &sample, const Sample &unit, const QString &reach = {},
           int decimals = 2);
void count(const QString &what, int count, const QString &reach);

} // namespace Report
