#pragma once

#include "ControllerState.h"

#include <QString>

/** What a table of bodies must show, derived only from the controller's state. */
namespace BodyTruth {

/**
 * The text or check mark of a cell.
 *
 * @param column title of the column
 * @param text   "checked"/"unchecked" for a check box; otherwise the text of the cell
 * @return false when the column has no expected text, or when the controller is too old to answer
 * its query
 */
bool cell(const ControllerState &state, const QString &bodyType, int index, const QString &column,
          QString *text);

/** Whole milliseconds, truncated as decimal digits are: 0.029 s are 29 ms. */
int wholeMilliseconds(double seconds);

} // namespace BodyTruth
