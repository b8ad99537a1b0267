#pragma once

#include <QStringList>

struct ControllerState;
class QWidget;

/**
 * Compares what a dialog shows with the controller's state. It finds widgets only by their object
 * names and the titles of their columns.
 */
namespace DialogOracle {

/**
 * One line for each difference, "widget: shows ..., the controller holds ...".
 *
 * @param dialog the open dialog; null and unknown dialogs have no differences
 */
QStringList differences(const ControllerState &state, const QWidget *dialog);

} // namespace DialogOracle
