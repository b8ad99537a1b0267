#include "filtercommands.h"

void FilterCommands::setEnabled(const QString &body, bool on) const
{
    if (!m_link.set("body filter6d_enabled %s %s", ControllerLink::argument(body).constData(),
                    on ? "yes" : "no")) {
        m_link.log(QStringLiteral("Error: Unable to activate/deactivate filter 6d for body %1")
                           .arg(body));
    }
}

void FilterCommands::setPreset(const QString &body, const QString &preset) const
{
    if (!m_link.set("body filter6d_preset %s %s", ControllerLink::argument(body).constData(),
                    ControllerLink::argument(preset).constData()))
        m_link.log(QStringLiteral("Error: Unable to set filter 6d preset for body %1").arg(body));
}

void FilterCommands::setStrength(const QString &body, double strength) const
{
    if (!m_link.set("body filter6d_strength %s %f", ControllerLink::argument(body).constData(),
                    strength))
        m_link.log(QStringLiteral("Error: Unable to set filter 6d strength for body %1").arg(body));
}

void FilterCommands::setPredictionMs(const QString &body, int predictionMs) const
{
    constexpr double millisecondsPerSecond = 1000.0;
    if (!m_link.set("body filter6d_prediction %s %f", ControllerLink::argument(body).constData(),
                    predictionMs / millisecondsPerSecond)) {
        m_link.log(
                QStringLiteral("Error: Unable to set filter 6d prediction for body %1").arg(body));
    }
}

void FilterCommands::setMode(const QString &body, const QString &mode) const
{
    if (!m_link.set("body filter6d_mode %s %s", ControllerLink::argument(body).constData(),
                    ControllerLink::argument(mode).constData()))
        m_link.log(QStringLiteral("Error: Unable to set filter 6d mode for body %1").arg(body));
}
