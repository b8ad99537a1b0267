#pragma once

#include "SweepRun.h"

#include <QStringList>
#include <QVector>

/** The rules that hold for every failure of a controller. */
namespace SweepChecks {

/**
 * Compares a disturbed run with the undisturbed one, line by line.
 *
 * @param transcript all operations of the disturbed run, including the inspection
 * @param disturbed number of the operation at which the disturbance begins, from 1
 * @return "line N: expected ..., found ..." for each violation
 */
QStringList violations(const QVector<SweepStep> &undisturbedSteps, QVector<SweepStep> steps,
                       QVector<TranscriptEntry> transcript, int disturbed);

} // namespace SweepChecks
