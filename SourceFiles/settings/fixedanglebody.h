#pragma once

#include <QString>

#include <array>

/** A standard body with its fixed angles, as read for one opening of the dialog. */
struct FixedAngleBody {
    int body_id = 0; ///< one-based
    QString body_des;
    bool body_cali = false; ///< true when calibrated and of a target type that allows fixed angles
    std::array<bool, 3> fixed_angle_enable{}; ///< in the order rx, ry, rz
    std::array<double, 3> fixed_angle{};      ///< rx, ry, rz in degrees
    /// true when calibration, target type and all angles were read
    bool angles_known = false;
};
