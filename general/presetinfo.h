#pragma once

#include <QString>

/** One 6DOF filter preset that the controller offers. */
struct PresetInfo {
    QString sPresetId;                    ///< identifier as the controller names it
    QString sPresetDesc;                  ///< text shown to the user
    bool bIsAvailableForInertial = false; ///< a body with an inertial sensor may use it
};
