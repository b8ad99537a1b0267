#include "bodies/bodyreader.h"

#include "bodies/bodyregistry.h"
#include "bodynumber.h"
#include "filterreader.h"

#include <QStringList>

namespace {

/** The text that says how a body was calibrated. */
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

/** The queries of the largest numbers of bodies; their wording depends on the type. */
struct Maximum {
    QLatin1String type;
    const char *query;
    int defaultCount; ///< used when the number cannot be read
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
    record.isDescriptionMissing = m_link.protocolAtLeast(0, 3);
    record.isFilterMissing = m_link.protocolAtLeast(1, 12);
    readMissing(record, type);
}

bool BodyReader::readMissing(AdminBodyType &record, const QString &type) const
{
    const QByteArray word = ControllerLink::argument(type);
    bool isMoreKnown = false;
    if (record.isDescriptionMissing) {
        if (const auto answer = m_link.text("body type_desc %s", word.constData())) {
            record.typedesc = ControllerLink::withoutDoubleQuotes(*answer);
            record.isDescriptionMissing = false;
            isMoreKnown = true;
        } else {
            m_link.log(QStringLiteral("Error: Unable to get description of bodytype %1").arg(type));
        }
    }
    if (record.isFilterMissing) {
        if (const auto answer = m_link.text("filter6d available %s", word.constData())) {
            record.filter6dAvailable = *answer == QLatin1String("yes");
            record.isFilterMissing = false;
            isMoreKnown = true;
        } else {
            m_link.log(
                    QStringLiteral("Error: Unable to get availability of filter6d for bodytype %1")
                            .arg(type));
        }
    }
    return isMoreKnown;
}

std::optional<int> BodyReader::readCount(const BodyRegistry &registry, const QString &type) const
{
    const auto count =
            m_link.count("body number_of_bodies %s", ControllerLink::argument(type).constData());
    if (m_link.isClosed())
        return std::nullopt;
    const AdminBodyType &record = registry.type(type);
    if (count && (!record.isLimitRead || *count <= *record.limit))
        return count;
    m_link.log(QStringLiteral("Error: Unable to get number of %1 bodies").arg(type));
    return std::nullopt;
}

void BodyReader::readBodies(BodyRegistry &registry, const QString &type, int first,
                            std::optional<int> accepted) const
{
    if (!registry.contains(type))
        return;
    const std::optional<int> read = readCount(registry, type);
    const std::optional<int> count = read ? read : accepted;
    if (m_link.isClosed())
        return;
    if (AdminBodyType *record = registry.find(type)) {
        const int known = qMin(record->bodies.size(), count.value_or(0));
        record->isCountRead = count.has_value();
        record->bodies.resize(count.value_or(0));
        const int answered = readSweep(registry, type, first);
        if (m_link.isClosed())
            return;
        record = registry.find(type);
        // Bodies without any answer do not exist; a garbled count added them.
        if (record && answered < record->bodies.size())
            record->bodies.resize(qMax(known, answered));
    }
    registry.countSensors(type);
}

int BodyReader::readSweep(BodyRegistry &registry, const QString &type, int first) const
{
    constexpr int patience = 8;
    int silent = 0;
    int index = first;
    for (; registry.hasBody(type, index) && silent < patience; ++index) {
        m_link.progress(index + 1, registry.type(type).bodies.size());
        silent = readBody(*registry.find(type), type, index) ? 0 : silent + 1;
        if (m_link.isClosed())
            return index;
    }
    if (silent < patience || !registry.hasBody(type, index))
        return index;
    m_link.log(QStringLiteral("Error: Unable to get further %1 bodies").arg(type));
    return index - patience;
}

bool BodyReader::readBody(AdminBodyType &record, const QString &type, int index) const
{
    if (!record.isValidIndex(index))
        return false;
    // A copy, because the host may run its event loop in any query and bodies may be dropped
    // meanwhile.
    AdminBody body = record.bodies.at(index);
    const bool hasFilter = record.filter6dAvailable;
    const QByteArray word = ControllerLink::argument(type);
    bool isAnswered = false;
    if (!m_link.protocolAtLeast(0, 16)) {
        body.desc.clear();
    } else if (const auto answer = m_link.text("body desc %s b%02d", word.constData(), index + 1)) {
        body.desc = *answer;
        isAnswered = true;
    } else {
        log(QStringLiteral("Error: Unable to get description of body %1 b%2 "), type, index);
    }
    isAnswered = readCalibration(body, type, word, index) || isAnswered;
    readSensor(body, type, word, index);
    body.calibrationStatus = calibrationText(body);
    if (hasFilter)
        readFilter(body, type, index);
    // Only standard bodies have the mark, but the query is part of reading a body of any type.
    if (!m_link.protocolAtLeast(1, 24))
        body.isReference = false;
    else if (const auto isNamed = isReference(index))
        body.isReference = *isNamed && type == QLatin1String("standard");
    if (!m_link.isClosed() && record.isValidIndex(index))
        record.bodies[index] = body;
    return isAnswered;
}

bool BodyReader::readCalibration(AdminBody &body, const QString &type, const QByteArray &word,
                                 int index) const
{
    const int number = index + 1;
    const bool knowsLibrary = m_link.protocolAtLeast(1, 11);
    const bool knowsCalibration = m_link.protocolAtLeast(0, 3);
    bool isAnswered = !knowsCalibration;
    // Stores whether the answer is "yes". A failed query is logged and leaves the flag unchanged.
    const auto take = [&](const std::optional<QString> &answer, bool *flag, const QString &error) {
        if (answer)
            *flag = *answer == QLatin1String("yes");
        else
            log(error, type, index);
        isAnswered = isAnswered || answer;
    };
    if (!knowsLibrary) {
        body.tlibName.clear();
        body.active = false;
        body.recalibrated = false;
    } else {
        const auto name = m_link.name("body targetlib_name %s b%02d", word.constData(), number);
        if (name)
            body.tlibName = *name == QLatin1String("none") ? QString() : *name;
        else
            log(QStringLiteral("Error: Unable to get targetlib name of body %1 b%2"), type, index);
        isAnswered = isAnswered || name;
        take(m_link.text("body active %s b%02d", word.constData(), number), &body.active,
             QStringLiteral("Error: Unable to get activeness of body %1 b%2"));
    }
    if (!knowsCalibration)
        body.calibrated = false;
    else
        take(m_link.text("body calibrated %s b%02d", word.constData(), number), &body.calibrated,
             QStringLiteral("Error: Unable to get calibration state of body %1 b%2"));
    if (knowsLibrary) {
        take(m_link.text("body recalibrated %s b%02d", word.constData(), number),
             &body.recalibrated,
             QStringLiteral("Error: Unable to get recalibrated state of body %1 b%2"));
    }
    return isAnswered;
}

void BodyReader::readSensor(AdminBody &body, const QString &type, const QByteArray &word,
                            int index) const
{
    body.has_handeye = false;
    body.inertialSensor.clear();
    if (!m_link.protocolAtLeast(1, 12))
        return;
    const auto sensor = m_link.name("body inertial_sensor %s b%02d", word.constData(), index + 1);
    if (!sensor) {
        log(QStringLiteral("Error: Unable to get inertial sensor of body %1 b%2"), type, index);
        return;
    }
    if (*sensor == QLatin1String("none"))
        return;
    body.inertialSensor = *sensor;
    const auto handEye = m_link.name("inertial sensor_handeye %s",
                                     ControllerLink::argument(*sensor).constData());
    if (!handEye) {
        m_link.log(QStringLiteral("Error: Unable to get handeye status of sensor %1").arg(*sensor));
        return;
    }
    body.has_handeye = *handEye != QLatin1String("none");
}

std::optional<bool> BodyReader::isReference(int index) const
{
    const auto answer = m_link.name("tracking reference");
    if (!answer) {
        m_link.log(QStringLiteral("Error: Unable to info body reference"));
        return std::nullopt;
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
    if (!m_link.isClosed() && record.isValidIndex(index))
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
    if (m_link.isClosed() || !available.value_or(false))
        return false;
    const auto sensor = m_link.name("body inertial_sensor %s b%02d",
                                    ControllerLink::argument(type).constData(), index + 1);
    if (!sensor && m_link.isClosed())
        return false; // the tab is deleted, and `type` with it
    if (!sensor)
        log(QStringLiteral("Error: Unable to get inertial sensor of body %1 b%2"), type, index);
    if (!sensor || *sensor == QLatin1String("none"))
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
    const auto state =
            standard ? m_link.text("standard filter_bodies") : m_link.text("joywand filter");
    if (!state && standard) {
        m_link.log(
                QStringLiteral("Error: Unable to get global filter6d status of standard bodies"));
    } else if (!state) {
        m_link.log(QStringLiteral("Error: Unable to get global filter6d status of Joywand bodies"));
    }
    return state == QLatin1String("no");
}

int BodyReader::readMaximum(BodyRegistry &registry, const QString &type) const
{
    const bool hands = type == QLatin1String("fingertracking");
    const QString error =
            hands ? QStringLiteral("Error: Unable to get max number of %1 hand bodies")
                  : QStringLiteral("Error: Unable to get max number of %1 bodies");
    constexpr int usualDefault = 4;
    std::optional<int> read;
    int limit = usualDefault;
    for (const Maximum &maximum : maxima) {
        if (type != maximum.type)
            continue;
        read = m_link.count("%s", maximum.query);
        limit = read.value_or(maximum.defaultCount);
    }
    if (!read)
        m_link.log(error.arg(type));
    AdminBodyType *record = m_link.isClosed() ? nullptr : registry.find(type);
    if (record)
        record->isLimitRead = read.has_value();
    return limit;
}

int BodyReader::readHolderCount(const QString &type) const
{
    const bool standard = type == QLatin1String("standard");
    const auto count = m_link.count("%s", standard ? "standard number_of_bodies"
                                                   : "measurementtool number_of_references");
    if (!count)
        m_link.log(QStringLiteral("Error: Unable to get number of %1 bodies").arg(type));
    return count.value_or(0);
}

std::optional<QString> BodyReader::readTargetName(const QString &type, int index) const
{
    return m_link.name("body targetlib_name %s b%02d", ControllerLink::argument(type).constData(),
                       index + 1);
}

std::optional<QString> BodyReader::readHolder(const QString &type, int index) const
{
    const auto name = readTargetName(type, index);
    if (!name)
        log(QStringLiteral("Error: Unable to get targetlib name of body %1 b%2"), type, index);
    return name;
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
    const auto answer = m_link.name("joywand device b%2.2d", index + 1);
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
    const QString key = device.section(QLatin1Char(' '), 1, 2).trimmed();
    std::optional<QString> model;
    // Without the words the query would name no device.
    if (!key.isEmpty()) {
        model = m_link.text("qorwpan device_model_desc %s",
                            ControllerLink::argument(key).constData());
    }
    if (model)
        return ControllerLink::withoutDoubleQuotes(*model);
    // The line has word 1 in the place of the model, too. Readers of the log know it in this form.
    const QString vendor = device.section(QLatin1Char(' '), 1, 1);
    m_link.log(QStringLiteral("Error: Unable to get model description of vendor %1 model %2")
                       .arg(vendor, vendor));
    return std::nullopt;
}
