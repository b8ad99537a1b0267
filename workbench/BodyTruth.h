#pragma once

#include "ControllerState.h"

#include <QString>

/** What a table of bodies must show, derived from the controller's state alone. */
namespace BodyTruth {

/**
 * The text or check mark of a cell.
 *
 * @param column title of the column
 * @param text   "checked"/"unchecked" for a check box; otherwise the text of the cell
 * @return false when nothing can be said about this column, or a controller so old does not tell
 */
bool cell(const ControllerState &state, const QString &bodyType, int index, const QString &column,
          QString *text);

/** Whole milliseconds, cut off as decimal digits are: 0.029 s are 29 ms. */
int wholeMilliseconds(double seconds);

} // namespace BodyTruth
