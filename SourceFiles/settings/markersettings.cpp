#include "settings/markersettings.h"

#include <QStringList>

#include <cmath>

namespace {

const char *yesOrNo(bool on)
{
    return on ? "yes" : "no";
}

std::optional<bool> yesOrNo(const std::optional<QString> &answer)
{
    if (answer == QLatin1String("yes"))
        return true;
    return answer == QLatin1String("no") ? std::optional<bool>(false) : std::nullopt;
}

} // namespace

const std::array<MarkerSettings::NamedAxis, 6> &MarkerSettings::namedAxes()
{
    static const std::array<NamedAxis, 6> axes{{{"x", {1.0, 0.0, 0.0}},
                                                {"-x", {-1.0, 0.0, 0.0}},
                                                {"y", {0.0, 1.0, 0.0}},
                                                {"-y", {0.0, -1.0, 0.0}},
                                                {"z", {0.0, 0.0, 1.0}},
                                                {"-z", {0.0, 0.0, -1.0}}}};
    return axes;
}

std::optional<bool> MarkerSettings::isMarkerCalculated() const
{
    const auto answer = m_link.text("standard calculate_marker");
    if (!answer)
        m_link.log(QStringLiteral("Error: Unable to get the calculation of 3DOF markers"));
    return yesOrNo(answer);
}

std::optional<bool> MarkerSettings::restartsAutomatically() const
{
    const auto answer = m_link.text("tracking auto_restart");
    if (!answer)
        m_link.log(QStringLiteral("Error: Unable to get the automatic restart of the measurement"));
    return yesOrNo(answer);
}

std::optional<MarkerSettings::CentralAxis> MarkerSettings::centralAxis() const
{
    const auto answer = m_link.text("tracking axis_5dof_central");
    if (!answer) {
        m_link.log(QStringLiteral("Error: Unable to get values of the 5DOF central axis"));
        return std::nullopt;
    }
    const QStringList fields = answer->split(QLatin1Char(' '));
    CentralAxis axis;
    axis.isWhole = true;
    for (int i = 0; i < int(axis.vector.size()); ++i) {
        bool isNumber = false;
        const double number = fields.value(i).toUtf8().toDouble(&isNumber);
        isNumber = isNumber && std::isfinite(number);
        axis.vector[i] = isNumber ? number : 0.0;
        axis.isWhole = axis.isWhole && isNumber;
    }
    return axis;
}

void MarkerSettings::setMarkerCalculation(bool on) const
{
    if (!m_link.set("standard calculate_marker %s", yesOrNo(on)))
        m_link.log(QStringLiteral("Error: Unable to set the calculation of 3DOF markers"));
}

void MarkerSettings::setAutoRestart(bool on) const
{
    if (!m_link.set("tracking auto_restart %s", yesOrNo(on)))
        m_link.log(QStringLiteral("Error: Unable to set the automatic restart of the measurement"));
}

void MarkerSettings::setCentralAxis(const Vector &vector) const
{
    const auto &[x, y, z] = vector;
    if (!m_link.set("tracking axis_5dof_central %.3f %.3f %.3f", x, y, z))
        m_link.log(QStringLiteral("Error: Unable to set values of the 5DOF central axis"));
}
