#include "settings/trackingpulse.h"

#include <cmath>

namespace {

constexpr double usualCameraHz = 60.0;
constexpr double lowestCameraHz = 10.0;
constexpr double usualSensorHz = 100.0;

const char *const camerasWord = "synchronous_cameras";
const char *const sensorWord = "inertial_sensor";
const char *const frequencyWord = "frequency";

} // namespace

TrackingPulse::TrackingPulse(const ControllerLink &link) : m_link(link) {}

TrackingPulse::Source TrackingPulse::sourceOf(const QString &answer)
{
    if (answer.startsWith(QLatin1String(camerasWord)))
        return Source::Cameras;
    if (answer.startsWith(QLatin1String(sensorWord)))
        return Source::InertialSensor;
    if (answer.startsWith(QLatin1String(frequencyWord)))
        return Source::Frequency;
    return Source::Unknown;
}

TrackingPulse::Source TrackingPulse::source() const
{
    const auto answer = m_link.text("tracking pulse");
    if (!answer) {
        m_link.log(QStringLiteral("Error: Unable to info of frequency type"));
        return Source::Unknown;
    }
    return sourceOf(*answer);
}

double TrackingPulse::frequencyHz() const
{
    const auto answer = m_link.text("tracking pulse");
    if (!answer)
        m_link.log(QStringLiteral("Error: Unable to info of tracking frequency type"));
    switch (sourceOf(answer.value_or(QLatin1String(camerasWord)))) {
    case Source::Cameras: {
        const auto measuredHz = m_link.real("synccard output_frequency");
        if (!measuredHz) {
            m_link.log(QStringLiteral("Error: Unable to get output frequency of the synccard"));
        }
        const double cameraHz = measuredHz.value_or(usualCameraHz);
        return cameraHz >= lowestCameraHz ? cameraHz : usualCameraHz;
    }
    case Source::InertialSensor: {
        const auto sensorHz = m_link.real("inertial frequency");
        if (!sensorHz)
            m_link.log(QStringLiteral("Error: Unable to get inertial frequency"));
        return sensorHz.value_or(usualSensorHz);
    }
    case Source::Frequency: {
        bool isNumber = false;
        const double customHz =
                answer->section(QLatin1Char(' '), 1, 1).toUtf8().toDouble(&isNumber);
        return isNumber && std::isfinite(customHz) ? customHz : usualSensorHz;
    }
    case Source::Unknown:
        break;
    }
    return usualCameraHz;
}

QVector<TrackingPulse::Sensor> TrackingPulse::sensors() const
{
    QVector<Sensor> found;
    const auto count = m_link.count("inertial number_of_sensors");
    if (!count)
        m_link.log(QStringLiteral("Error: Unable to get number of inertial sensors"));
    for (int number = 1; number <= count.value_or(0); ++number) {
        const auto identifier = m_link.name("inertial sensor d%02d", number);
        if (!identifier)
            m_link.log(QStringLiteral("Error: Unable to get serial number of inertial sensor"));
        if (!identifier || *identifier == QLatin1String("none"))
            continue;
        const QByteArray word = ControllerLink::argument(*identifier);
        const auto body = m_link.name("inertial body_of_sensor %s", word.constData());
        if (!body)
            m_link.log(QStringLiteral("Error: Unable to get body of sensor sensor"));
        if (body.value_or(QStringLiteral("none")) == QLatin1String("none"))
            continue;
        const auto description = m_link.text("inertial sensor_model_desc %s", word.constData());
        if (!description)
            m_link.log(QStringLiteral("Error: Unable to get vendor model of inertial sensor"));
        QString shown = ControllerLink::withoutDoubleQuotes(description.value_or(*identifier));
        found.append({*identifier, shown.remove(QLatin1Char('\''))});
    }
    return found;
}

bool TrackingPulse::followCameras() const
{
    const bool done = m_link.set("tracking pulse synchronous_cameras");
    if (!done)
        m_link.log(QStringLiteral("Error: Unable to set inertial tracking synchronous to cameras"));
    return done;
}

bool TrackingPulse::followSensor(const QString &identifier) const
{
    const QByteArray word = ControllerLink::argument(identifier);
    // Without a sensor the line would have another meaning.
    const bool done = !word.trimmed().isEmpty()
                      && m_link.set("tracking pulse inertial_sensor %s", word.constData());
    if (!done)
        m_link.log(QStringLiteral("Error: Unable to set inertial tracking to sensor"));
    return done;
}

bool TrackingPulse::setFrequency(double frequencyHz) const
{
    const bool done = m_link.set("tracking pulse frequency %f", frequencyHz);
    if (!done)
        m_link.log(QStringLiteral("Error: Unable to set inertial tracking frequency"));
    return done;
}
