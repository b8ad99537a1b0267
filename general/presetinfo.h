#pragma once

#include <QString>

/** One 6DOF filter preset that the controller offers. */
struct PresetInfo {
    QString sPresetId;                    ///< the controller's identifier
    QString sPresetDesc;                  ///< text shown to the user
    bool bIsAvailableForInertial = false; ///< a body with an inertial sensor may use the preset
};
