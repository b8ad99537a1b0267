#pragma once

#include "controllerlink.h"

#include <array>
#include <optional>

/**
 * Reads and writes the single-marker settings: calculation of 3DOF markers, automatic restart, and
 * the 5DOF central axis.
 *
 * A value without widgets; every failure is one line in the message log.
 */
class MarkerSettings {
public:
    using Vector = std::array<double, 3>;
    struct NamedAxis {
        const char *name;
        Vector vector;
    };
    /** The controller's axis. A field that is not a number counts as 0. */
    struct CentralAxis {
        Vector vector{};
        bool isWhole = false; ///< true when all three numbers could be read
    };

    explicit MarkerSettings(const ControllerLink &link) : m_link(link) {}

    /** The axes to choose from, in the order of the list. */
    static const std::array<NamedAxis, 6> &namedAxes();

    /** Nothing when the query failed or the answer is neither "yes" nor "no". */
    std::optional<bool> isMarkerCalculated() const;
    std::optional<bool> restartsAutomatically() const;
    /** Nothing when the query failed. */
    std::optional<CentralAxis> centralAxis() const;

    void setMarkerCalculation(bool on) const;
    void setAutoRestart(bool on) const;
    void setCentralAxis(const Vector &vector) const;

private:
    ControllerLink m_link;
};
