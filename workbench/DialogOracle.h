#pragma once

#include <QStringList>

struct ControllerState;
class QWidget;

/**
 * Compares what a dialog shows with what the controller holds. Knows the dialogs by the object
 * names of their widgets and the titles of their columns only.
 */
namespace DialogOracle {

/**
 * One line for each difference, "widget: shows ..., the controller holds ...".
 *
 * @param dialog the open dialog; null and unknown dialogs have no differences
 */
QStringList differences(const ControllerState &state, const QWidget *dialog);

} // namespace DialogOracle
