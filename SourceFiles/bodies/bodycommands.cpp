#include "bodies/bodycommands.h"

#include "bodies/adminbodytype.h"
#include "bodynumber.h"

bool BodyCommands::logged(bool done, const QString &error) const
{
    if (!done && !error.isEmpty())
        m_link.log(error);
    return done;
}

bool BodyCommands::setActive(const QString &type, int index, bool active) const
{
    return logged(m_link.set("body active %s b%02d %s", ControllerLink::argument(type).constData(),
                             index + 1, active ? "yes" : "no"),
                  QStringLiteral("Error: Unable to set activeness of body %1 b%2")
                          .arg(type, bodyNumber(index)));
}

bool BodyCommands::setDescription(const QString &type, int index, const QString &text) const
{
    return logged(m_link.set("body desc %s b%02d \"%s\"",
                             ControllerLink::argument(type).constData(), index + 1,
                             ControllerLink::argument(text).constData()),
                  QStringLiteral("Error: Unable to set description of body %1 b%2")
                          .arg(type, bodyNumber(index)));
}

bool BodyCommands::setReference(const QString &type, int index) const
{
    const bool done = type == QLatin1String("standard")
                      && m_link.set("tracking reference %s b%02d",
                                    ControllerLink::argument(type).constData(), index + 1);
    return logged(done, QStringLiteral("Error: Unable to set body %1 b%2 as reference body")
                                .arg(type, bodyNumber(index)));
}

bool BodyCommands::clearReference() const
{
    const auto current = m_link.text("tracking reference");
    if (current == QLatin1String("none"))
        return true;
    // The leading blank is part of the command.
    return logged(current && m_link.set(" tracking reference none"),
                  QStringLiteral("Error: Unable to de-activate the reference body"));
}

void BodyCommands::resetReference() const
{
    const auto current = m_link.text("tracking reference");
    if (!current) {
        m_link.log(QStringLiteral("Unable to information of reference body"));
        return;
    }
    if (*current != QLatin1String("none"))
        logged(m_link.set("tracking reference none"),
               QStringLiteral("Unable to reset reference body"));
}

bool BodyCommands::setCount(const QString &type, int count) const
{
    const bool hands = type == QLatin1String("fingertracking");
    const QString error =
            hands ? QStringLiteral("Error: Unable to set number of %1 hand bodies to %2")
                  : QStringLiteral("Error: Unable to set number of %1 bodies to %2");
    bool done = false;
    if (type == QLatin1String("standard"))
        done = m_link.set("standard number_of_bodies %d", count);
    else if (type == QLatin1String("joywand"))
        done = m_link.set("joywand number_of_devices %d", count);
    else if (type == QLatin1String("measurementtool"))
        done = m_link.set("measurementtool number_of_tools %d", count);
    else if (type == QLatin1String("measurementtool_reference"))
        done = m_link.set("measurementtool number_of_references %d", count);
    else if (hands)
        done = m_link.set("fingertracking number_of_hands %d", count);
    else
        return false;
    return logged(done, error.arg(type).arg(count));
}

void BodyCommands::switchGlobalFilterOn(const QString &type) const
{
    if (type == QLatin1String("standard")) {
        logged(m_link.set("standard filter_bodies yes"),
               QStringLiteral("Error: Unable to set global filter6d status of standard bodies"));
    } else {
        logged(m_link.set("joywand filter yes"),
               QStringLiteral("Error: Unable to set global filter6d status of Joywand bodies"));
    }
}

bool BodyCommands::calibrate(const QString &type, int index, const QString &target,
                             const QString &error) const
{
    return logged(m_link.command("morvek2 body calibrate_from_targetlib %s b%.2d %s",
                                 ControllerLink::argument(type).constData(), index + 1,
                                 ControllerLink::argument(target).constData()),
                  error);
}

bool BodyCommands::calibrateFromTarget(const QString &type, int index, const QString &target) const
{
    return calibrate(type, index, target,
                     QStringLiteral("Error: Unable to calibrate body from target library"));
}

bool BodyCommands::resetToLibrary(const QString &type, int index, const QString &target) const
{
    return calibrate(type, index, target,
                     QStringLiteral("Error: Unable to reset body from target library"));
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

// Clearing slots

bool BodyCommands::resetFilter(const QString &type, int index, FilterReset how) const
{
    const QByteArray word = ControllerLink::argument(type);
    if (how == FilterReset::IfOffered && m_link.protocolAtLeast(1, 21)) {
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

BodyCommands::DeleteStep BodyCommands::clearSlot(const QString &type, int index,
                                                 const Clearing &what) const
{
    const QByteArray word = ControllerLink::argument(type);
    const int number = index + 1;
    DeleteStep failed = DeleteStep::Done;
    const auto mayGoOn = [&](bool done, DeleteStep step, const QString &error) {
        if (!logged(done, error) && failed == DeleteStep::Done)
            failed = step;
        return failed == DeleteStep::Done || !what.stopsAtFailure;
    };
    if (what.filter != FilterReset::None
        && !mayGoOn(resetFilter(type, index, what.filter), DeleteStep::Filter, what.filterError))
        return failed;
    if (what.sensor
        && !mayGoOn(m_link.set("body inertial_sensor %s b%.2d none", word.constData(), number),
                    DeleteStep::Sensor, {}))
        return failed;
    if (what.markers
        && !mayGoOn(m_link.set("body number_of_marker %s b%.2d 0", word.constData(), number),
                    DeleteStep::Markers, what.markersError))
        return failed;
    if (what.description) {
        mayGoOn(m_link.set("body desc %s b%.2d \"\"", word.constData(), number),
                DeleteStep::Description, what.descriptionError);
    }
    return failed;
}

BodyCommands::DeleteStep BodyCommands::clearBody(const AdminBodyType &record, const QString &type,
                                                 int index) const
{
    const AdminBody body = record.bodies.at(index);
    const bool knowsFilter = m_link.protocolAtLeast(1, 12);
    Clearing what;
    if (knowsFilter && record.filter6dAvailable)
        what.filter = FilterReset::IfOffered;
    what.sensor = knowsFilter && !body.inertialSensor.isEmpty();
    what.markers = body.calibrated;
    what.description = m_link.protocolAtLeast(0, 16);
    what.stopsAtFailure = true;
    return clearSlot(type, index, what);
}

void BodyCommands::freeBody(const QString &type, int index) const
{
    Clearing what;
    what.markersError =
            QStringLiteral("Unable to reset markers of target %1 %2").arg(type, bodyNumber(index));
    // The line has the type in the place of the number, too. Readers of the log know it in this
    // form.
    what.descriptionError = QStringLiteral("Unable to reset description of target %1 %1").arg(type);
    clearSlot(type, index, what);
}

void BodyCommands::freeOtherHolder(const QString &type, int index) const
{
    const bool standard = type == QLatin1String("standard");
    const QString holder =
            standard ? QStringLiteral("standard target ID %1").arg(index + 1)
                     : QStringLiteral("Measurement Tool Reference MR%1").arg(index + 1);
    Clearing what;
    what.filter = standard ? FilterReset::Always : FilterReset::None;
    what.filterError = QStringLiteral("Error: Unable to reset filter6d of %1").arg(holder);
    what.markersError = QStringLiteral("Error: Unable to reset markers of %1").arg(holder);
    what.descriptionError = QStringLiteral("Error: Unable to reset description of %1").arg(holder);
    clearSlot(type, index, what);
}

bool BodyCommands::clearToolReference(const QString &label, int index,
                                      const QVector<int> &tools) const
{
    Clearing what;
    what.stopsAtFailure = true;
    what.markersError =
            QStringLiteral("Error: Unable to reset markers of %1 %2").arg(label, bodyNumber(index));
    what.descriptionError =
            QStringLiteral("Unable to reset description of %1 %2").arg(label, bodyNumber(index));
    const DeleteStep step = clearSlot(QStringLiteral("measurementtool_reference"), index, what);
    if (step == DeleteStep::Markers)
        return false;
    bool done = step == DeleteStep::Done;
    // The geometry has been cleared, so that no tool may refer to it, even if clearing the name
    // failed.
    for (int tool : tools) {
        done &= logged(m_link.set("measurementtool reference_of_tool b%2.2d none", tool + 1),
                       QStringLiteral("Error: Unable to set ref. body"));
    }
    return done;
}

bool BodyCommands::canSwitchBodies() const
{
    const bool can = m_link.protocolAtLeast(1, 11);
    if (!can) {
        m_link.notice(QString::fromLatin1(QT_TRANSLATE_NOOP(
                "MessageLine", "Unable to move bodies: this controller is too old for it")));
    }
    return can;
}

bool BodyCommands::switchBodies(const QString &type, int index, int otherIndex) const
{
    const QByteArray word = ControllerLink::argument(type);
    return logged(m_link.command("morvek2 body switch %s b%2.2d %s b%2.2d", word.constData(),
                                 index + 1, word.constData(), otherIndex + 1),
                  QStringLiteral("Error: Unable to switch bodies"));
}
