#include "bodies/bodyreader.h"

#include "bodies/bodyregistry.h"
#include "bodynumber.h"
#include "filterreader.h"

#include <QStringList>

namespace {

/** The text that shows the user how a body was calibrated. */
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

/** The queries of the largest numbers of bodies, which are worded by type. */
struct Maximum {
    QLatin1String type;
    const char *query;
    int defaultCount; ///< when it cannot be read
};

const Maximum maxima[] = {
        {QLatin1String("standard"), "standard max_number_of_bodies", 4},
        {QLatin1String("joywand"), "joywand max_number_of_devices", 20},
        {QLatin1String("multiuserjoywand_head"), "joywand max_number_of_devices", 20},
        {QLatin1String("measurementtool"), "measurementtool max_number_of_tools", 4},
        {QLatin1String("measurementtool_reference"), "measurementtool max_number_of_references", 4},
        {QLatin1String("fingertracking"), "fingertracking max_number_of_hands", 4},
};

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

void BodyReader::readBodies(BodyRegistry &registry, const QString &type, int first) const
{
    if (!registry.contains(type))
        return;
    const int count = readCount(type);
    if (AdminBodyType *record = registry.find(type))
        record->bodies.resize(count);
    for (int index = first; registry.hasBody(type, index); ++index) {
        m_link.progress(index + 1, count);
        readBody(*registry.find(type), type, index);
    }
    registry.countSensors(type);
}

void BodyReader::readBody(AdminBodyType &record, const QString &type, int index) const
{
    if (!record.isValidIndex(index))
        return;
    // A copy: the host may run its event loop in any query, and bodies may be dropped meanwhile.
    AdminBody body = record.bodies.at(index);
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
    if (record.filter6dAvailable)
        readFilter(body, type, index);
    // Only standard bodies carry the mark, yet the question belongs to reading a body of any type.
    const bool named = m_link.protocolAtLeast(1, 24) && isReference(index);
    body.isReference = named && type == QLatin1String("standard");
    if (record.isValidIndex(index))
        record.bodies[index] = body;
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
    AdminBody body = record.bodies.at(index);
    readFilter(body, type, index);
    if (record.isValidIndex(index))
        record.bodies[index].filter6dPreset = body.filter6dPreset;
}

void BodyReader::readFilter(AdminBody &body, const QString &type, int index) const
{
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

bool BodyReader::isSensorPresent(const QString &type, int index) const
{
    if (index < 0 || type.isEmpty())
        return false;
    const auto available = m_link.flag("inertial available");
    if (!available)
        m_link.log(QStringLiteral("Error: Unable to get availability of inertial sensors"));
    if (!available.value_or(false))
        return false;
    const auto sensor = m_link.text("body inertial_sensor %s b%02d",
                                    ControllerLink::argument(type).constData(), index + 1);
    if (!sensor) {
        log(QStringLiteral("Error: Unable to get inertial sensor of body %1 b%2"), type, index);
        return false;
    }
    if (*sensor == QLatin1String("none"))
        return false;
    const auto present = m_link.flag("inertial sensor_present %s",
                                     ControllerLink::argument(*sensor).constData());
    if (!present) {
        m_link.log(
                QStringLiteral("Error: Unable to get presence of inertial sensor %1").arg(*sensor));
    }
    return present.value_or(false);
}

bool BodyReader::isGlobalFilterOff(const QString &type) const
{
    const bool standard = type == QLatin1String("standard");
    const auto state = m_link.text("%s", standard ? "standard filter_bodies" : "joywand filter");
    if (!state) {
        m_link.log(QStringLiteral("Error: Unable to get global filter6d status of %1 bodies")
                           .arg(standard ? QStringLiteral("standard") : QStringLiteral("Joywand")));
    }
    return state == QLatin1String("no");
}

int BodyReader::readMaximum(const QString &type) const
{
    const bool hands = type == QLatin1String("fingertracking");
    const QString error =
            hands ? QStringLiteral("Error: Unable to get max number of %1 hand bodies")
                  : QStringLiteral("Error: Unable to get max number of %1 bodies");
    constexpr int usualDefault = 4;
    for (const Maximum &maximum : maxima) {
        if (type != maximum.type)
            continue;
        const auto read = m_link.count("%s", maximum.query);
        if (!read)
            m_link.log(error.arg(type));
        return read.value_or(maximum.defaultCount);
    }
    m_link.log(error.arg(type));
    return usualDefault;
}

int BodyReader::readHolderCount(const QString &type) const
{
    const bool standard = type == QLatin1String("standard");
    return m_link
            .count("%s",
                   standard ? "standard number_of_bodies" : "measurementtool number_of_references")
            .value_or(0);
}

std::optional<QString> BodyReader::readTargetName(const QString &type, int index) const
{
    return m_link.text("body targetlib_name %s b%02d", ControllerLink::argument(type).constData(),
                       index + 1);
}

QString BodyReader::readSensorModel(const QString &sensor) const
{
    const QString key = sensor.section(QLatin1Char(' '), 0, 1);
    const auto model =
            m_link.text("inertial sensor_model_desc %s", ControllerLink::argument(key).constData());
    return ControllerLink::withoutDoubleQuotes(model.value_or(QString()));
}

std::optional<int> BodyReader::readReferenceOfTool(int index) const
{
    const auto reference = m_link.text("measurementtool reference_of_tool b%2.2d", index + 1);
    if (!reference) {
        m_link.log(QStringLiteral("Error: Unable to get reference of measurement tool M%1")
                           .arg(index + 1));
        return std::nullopt;
    }
    bool isNumber = false;
    const int number = reference->mid(1).toInt(&isNumber);
    if (*reference == QLatin1String("none") || !isNumber)
        return std::nullopt;
    return number;
}

QString BodyReader::readDevice(int index) const
{
    const auto answer = m_link.text("joywand device b%2.2d", index + 1);
    if (!answer) {
        m_link.log(QStringLiteral("Error: Unable to get device of joywand b%1")
                           .arg(bodyNumber(index)));
    }
    return answer.value_or(QStringLiteral("none"));
}

std::optional<QString> BodyReader::readDeviceModel(const QString &device) const
{
    if (!m_link.protocolAtLeast(1, 3))
        return std::nullopt;
    const QString key = device.section(QLatin1Char(' '), 1, 2);
    const auto model =
            m_link.text("qorwpan device_model_desc %s", ControllerLink::argument(key).constData());
    if (model)
        return ControllerLink::withoutDoubleQuotes(*model);
    // Word 1 is in both places: a habit of the log that its readers know.
    const QString vendor = device.section(QLatin1Char(' '), 1, 1);
    m_link.log(QStringLiteral("Error: Unable to get model description of vendor %1 model %2")
                       .arg(vendor, vendor));
    return std::nullopt;
}
