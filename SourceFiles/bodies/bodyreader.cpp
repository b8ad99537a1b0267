#include "bodies/bodyreader.h"

#include "bodies/adminbodytype.h"
#include "bodynumber.h"
#include "filterreader.h"

#include <QStringList>

namespace {

/** The text that tells the user how a body was calibrated. */
QString calibrationText(const AdminBody &body)
{
    if (!body.calibrated)
        return QStringLiteral("not calibrated");
    if (!body.inertialSensor.isEmpty())
        return body.has_handeye ? QStringLiteral("Full") : QStringLiteral("Optical");
    const QString origin =
            body.tlibName.isEmpty() ? QStringLiteral("Custom") : QStringLiteral("Target Library");
    return body.recalibrated ? origin + QStringLiteral(", re-calibrated") : origin;
}

} // namespace

void BodyReader::log(const QString &line, const QString &type, int index) const
{
    m_link.log(line.arg(type, bodyNumber(index)));
}

void BodyReader::readType(AdminBodyType &record, const QString &type) const
{
    const QByteArray word = ControllerLink::argument(type);
    if (m_link.protocolAtLeast(0, 3)) {
        if (const auto answer = m_link.text("body type_desc %s", word.constData()))
            record.typedesc = ControllerLink::withoutDoubleQuotes(*answer);
        else
            m_link.log(QStringLiteral("Error: Unable to get description of bodytype %1").arg(type));
    }
    if (m_link.protocolAtLeast(1, 12)) {
        const auto answer = m_link.text("filter6d available %s", word.constData());
        record.filter6dAvailable = answer == QLatin1String("yes");
        if (!answer) {
            m_link.log(
                    QStringLiteral("Error: Unable to get availability of filter6d for bodytype %1")
                            .arg(type));
        }
    }
}

int BodyReader::readCount(const QString &type) const
{
    const auto count =
            m_link.count("body number_of_bodies %s", ControllerLink::argument(type).constData());
    if (!count)
        m_link.log(QStringLiteral("Error: Unable to get number of %1 bodies").arg(type));
    return count.value_or(0);
}

void BodyReader::readBody(AdminBodyType &record, const QString &type, int index) const
{
    if (!record.isValidIndex(index))
        return;
    AdminBody &body = record.bodies[index];
    const QByteArray word = ControllerLink::argument(type);
    if (!m_link.protocolAtLeast(0, 16)) {
        body.desc.clear();
    } else if (const auto answer = m_link.text("body desc %s b%02d", word.constData(), index + 1)) {
        body.desc = *answer;
    } else {
        log(QStringLiteral("Error: Unable to get description of body %1 b%2 "), type, index);
    }
    readCalibration(body, type, index);
    readSensor(body, type, index);
    body.calibrationStatus = calibrationText(body);
    readFilterSummary(record, type, index);
    // Only standard bodies carry the mark, yet the question belongs to reading a body of any type.
    const bool named = m_link.protocolAtLeast(1, 24) && isReference(index);
    body.isReference = named && type == QLatin1String("standard");
}

void BodyReader::readCalibration(AdminBody &body, const QString &type, int index) const
{
    const QByteArray word = ControllerLink::argument(type);
    const int number = index + 1;
    const bool knowsLibrary = m_link.protocolAtLeast(1, 11);
    if (!knowsLibrary) {
        body.tlibName.clear();
        body.active = false;
    } else {
        if (const auto name = m_link.text("body targetlib_name %s b%02d", word.constData(), number))
            body.tlibName = *name == QLatin1String("none") ? QString() : *name;
        else
            log(QStringLiteral("Error: Unable to get targetlib name of body %1 b%2"), type, index);
        if (const auto active = m_link.text("body active %s b%02d", word.constData(), number))
            body.active = *active == QLatin1String("yes");
        else
            log(QStringLiteral("Error: Unable to get activeness of body %1 b%2"), type, index);
    }
    if (!m_link.protocolAtLeast(0, 3)) {
        body.calibrated = false;
    } else if (const auto calibrated =
                       m_link.text("body calibrated %s b%02d", word.constData(), number)) {
        body.calibrated = *calibrated == QLatin1String("yes");
    } else {
        log(QStringLiteral("Error: Unable to get calibration state of body %1 b%2"), type, index);
    }
    if (!knowsLibrary) {
        body.recalibrated = false;
    } else if (const auto again =
                       m_link.text("body recalibrated %s b%02d", word.constData(), number)) {
        body.recalibrated = *again == QLatin1String("yes");
    } else {
        log(QStringLiteral("Error: Unable to get recalibrated state of body %1 b%2"), type, index);
    }
}

void BodyReader::readSensor(AdminBody &body, const QString &type, int index) const
{
    body.has_handeye = false;
    body.inertialSensor.clear();
    if (!m_link.protocolAtLeast(1, 12))
        return;
    const auto sensor = m_link.text("body inertial_sensor %s b%02d",
                                    ControllerLink::argument(type).constData(), index + 1);
    if (!sensor) {
        log(QStringLiteral("Error: Unable to get inertial sensor of body %1 b%2"), type, index);
        return;
    }
    if (*sensor == QLatin1String("none"))
        return;
    body.inertialSensor = *sensor;
    const auto handEye = m_link.text("inertial sensor_handeye %s",
                                     ControllerLink::argument(*sensor).constData());
    if (!handEye) {
        m_link.log(QStringLiteral("Error: Unable to get handeye status of sensor %1").arg(*sensor));
        return;
    }
    body.has_handeye = *handEye != QLatin1String("none");
}

bool BodyReader::isReference(int index) const
{
    const auto answer = m_link.text("tracking reference");
    if (!answer) {
        m_link.log(QStringLiteral("Error: Unable to info body reference"));
        return false;
    }
    if (*answer == QLatin1String("none"))
        return false;
    const QStringList parts = answer->split(QLatin1Char(' '), Qt::SkipEmptyParts);
    return parts.size() > 1 && parts.at(0) == QLatin1String("standard")
           && parts.at(1).mid(1).toInt() - 1 == index;
}

void BodyReader::readFilterSummary(AdminBodyType &record, const QString &type, int index) const
{
    if (!record.filter6dAvailable || !record.isValidIndex(index))
        return;
    AdminBody &body = record.bodies[index];
    if (!body.calibrated)
        return;
    if (const auto summary = FilterReader(m_link).summary(type, index))
        body.filter6dPreset = *summary;
}

bool BodyReader::isWarmupRuleMet() const
{
    if (!m_link.protocolAtLeast(1, 12))
        return false;
    const auto available = m_link.text("inertial available");
    if (!available)
        m_link.log(QStringLiteral("Error: Unable to get availability of inertial sensors"));
    if (available != QLatin1String("yes"))
        return false;
    const auto warmup = m_link.text("inertial warmup");
    if (!warmup)
        m_link.log(QStringLiteral("Error: Unable to get warmup status of inertial sensors"));
    return warmup && *warmup != QLatin1String("yes");
}
