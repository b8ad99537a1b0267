#include "bodies/bodycommands.h"

#include "bodies/adminbodytype.h"

bool BodyCommands::resetToLibrary(const QString &type, int index, const QString &target) const
{
    const bool done = m_link.command("morvek2 body calibrate_from_targetlib %s b%2.2d %s",
                                     ControllerLink::argument(type).constData(), index + 1,
                                     ControllerLink::argument(target).constData());
    if (!done)
        m_link.log(QStringLiteral("Error: Unable to reset body from target library"));
    return done;
}

BodyCommands::SensorReset BodyCommands::sensorReset(const QString &sensor) const
{
    const QByteArray name = ControllerLink::argument(sensor);
    SensorReset reset;
    if (m_link.protocolAtLeast(1, 21)) {
        const auto storage = m_link.flag("inertial sensor_has_storage %s", name.constData());
        if (!storage)
            m_link.log(QStringLiteral("Unable to get storage info from sensor"));
        reset.hasStorage = storage.value_or(false);
    }
    if (!reset.hasStorage) {
        const auto handEye = m_link.text("inertial sensor_handeye %s", name.constData());
        if (!handEye)
            m_link.log(QStringLiteral("Unable to get info about hand eye calibration from sensor"));
        reset.hasHandEye = handEye && *handEye != QLatin1String("none");
    }
    return reset;
}

bool BodyCommands::pauseWarmup() const
{
    const auto warmup = m_link.text("inertial warmup");
    if (!warmup) {
        m_link.log(QStringLiteral("Could not get warmup status"));
        return false;
    }
    if (*warmup != QLatin1String("yes"))
        return false;
    if (!m_link.set("inertial warmup no"))
        m_link.log(QStringLiteral("Could not stop warmup of sensors"));
    return true;
}

bool BodyCommands::resetSensor(const QString &sensor, const SensorReset &reset) const
{
    const QByteArray name = ControllerLink::argument(sensor);
    const bool restartWarmup = pauseWarmup();
    bool done = true;
    if (reset.hasStorage) {
        done = m_link.command("morvek2 set inertial sensor_default %s", name.constData());
        if (!done)
            m_link.log(QStringLiteral("Error: Unable to reset body to sensor stored values"));
    } else if (reset.hasHandEye) {
        done = m_link.set("inertial sensor_handeye %s none", name.constData());
        if (!done)
            m_link.log(QStringLiteral("Unable to reset sensor hand eye calibration"));
    }
    if (restartWarmup && !m_link.set("inertial warmup yes"))
        m_link.log(QStringLiteral("Could not start warmup of sensors"));
    return done;
}

bool BodyCommands::resetFilter(const QString &type, int index) const
{
    const QByteArray word = ControllerLink::argument(type);
    if (m_link.protocolAtLeast(1, 21)) {
        const auto available =
                m_link.flag("body filter6d_preset_available %s b%.2d preset6d_default",
                            word.constData(), index + 1);
        if (!available)
            m_link.log(QStringLiteral("Error: Unable to get info preset available"));
        if (!available.value_or(false))
            return true;
    }
    return m_link.set("body filter6d_preset %s b%.2d preset6d_default", word.constData(),
                      index + 1);
}

BodyCommands::DeleteStep BodyCommands::clearBody(const AdminBodyType &record, const QString &type,
                                                 int index) const
{
    const AdminBody body = record.bodies.at(index);
    const QByteArray word = ControllerLink::argument(type);
    const bool knowsFilter = m_link.protocolAtLeast(1, 12);
    if (knowsFilter && record.filter6dAvailable && !resetFilter(type, index))
        return DeleteStep::Filter;
    if (knowsFilter && !body.inertialSensor.isEmpty()
        && !m_link.set("body inertial_sensor %s b%.2d none", word.constData(), index + 1))
        return DeleteStep::Sensor;
    if (body.calibrated
        && !m_link.set("body number_of_marker %s b%.2d 0", word.constData(), index + 1))
        return DeleteStep::Markers;
    if (m_link.protocolAtLeast(0, 16)
        && !m_link.set("body desc %s b%.2d \"\"", word.constData(), index + 1))
        return DeleteStep::Description;
    return DeleteStep::Done;
}

bool BodyCommands::switchBodies(const QString &type, int index, int otherIndex) const
{
    const QByteArray word = ControllerLink::argument(type);
    const bool done = m_link.command("morvek2 body switch %s b%2.2d %s b%2.2d", word.constData(),
                                     index + 1, word.constData(), otherIndex + 1);
    if (!done)
        m_link.log(QStringLiteral("Error: Unable to switch bodies"));
    return done;
}
