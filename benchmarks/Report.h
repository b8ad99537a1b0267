#pragma once

#include "Bench.h"

#include <QString>

/** The printed table, with one line for each row and the figure to reach. */
namespace Report {

void head();
/** Prints two texts and the figure to reach, which may be empty. */
void row(const QString &what, const QString &minimum, const QString &median, const QString &reach);
/** Prints the ratios of the minima and of the medians. */
void ratio(const QString &what, const Sample &sample, const Sample &unit, const QString &reach = {},
           int decimals = 2);
void count(const QString &what, int count, const QString &reach);

} // namespace Report
