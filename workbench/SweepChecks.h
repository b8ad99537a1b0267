#pragma once

#include "SweepRun.h"

#include <QStringList>
#include <QVector>

/** What must hold however a controller fails. */
namespace SweepChecks {

/**
 * Compares a disturbed run with the undisturbed one, line by line.
 *
 * @param transcript everything that was asked in the disturbed run, the inspection included
 * @param disturbed number of the operation at which the disturbance begins, from 1
 * @return "line N: expected ..., found ..." for each violation
 */
QStringList violations(const QVector<SweepStep> &undisturbedSteps, const QVector<SweepStep> &steps,
                       const QVector<TranscriptEntry> &transcript, int disturbed);

} // namespace SweepChecks
