#pragma once

class BackendVersions;
class IOManager;
class QWidget;

/**
 * Runs the 6DOF filter dialog over `parent`. False when the parent was deleted meanwhile.
 *
 * @param bodyType  0 for standard bodies, 1 for Joywand devices
 * @param bodyIndex zero-based index of the only body to show; negative for all calibrated bodies of
 *   the type
 */
bool runFilterDialog(QWidget *parent, IOManager *iom, BackendVersions *versions, int bodyType,
                     int bodyIndex);
