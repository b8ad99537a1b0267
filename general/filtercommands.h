#pragma once

#include "controllerlink.h"

#include <QString>

/**
 * Writes the 6DOF filter of a body, which is given by its identifier, for example "standard b03".
 *
 * A value without widgets. A refused write puts one line into the message log.
 */
class FilterCommands {
public:
    explicit FilterCommands(const ControllerLink &link) : m_link(link) {}

    void setEnabled(const QString &body, bool on) const;
    void setPreset(const QString &body, const QString &preset) const;
    void setStrength(const QString &body, double strength) const;
    void setPredictionMs(const QString &body, int predictionMs) const;
    void setMode(const QString &body, const QString &mode) const;

private:
    ControllerLink m_link;
};
