#include "filterreader.h"

#include "bodynumber.h"

namespace {

QString identifier(const QString &type, int index)
{
    return QStringLiteral("%1 b%2").arg(type, bodyNumber(index));
}

} // namespace

FilterReader::FilterReader(const ControllerLink &link, const QObject *asker)
    : m_link(link), m_asker(asker), m_hasAsker(asker != nullptr)
{
}

bool FilterReader::isCustomPreset(const QString &preset)
{
    return preset.contains(QLatin1String("preset6d_")) && preset.contains(QLatin1String("_custom"));
}

template <typename Answer>
std::optional<Answer> FilterReader::answered(std::optional<Answer> answer,
                                             const QString &errorLine) const
{
    if (!answer && m_link.protocolAtLeast(1, 12))
        m_link.log(errorLine);
    return answer;
}

void FilterReader::log(const QString &line, const QString &type, int index) const
{
    m_link.log(line.arg(type, bodyNumber(index)));
}

// What the controller offers

bool FilterReader::isAvailable(const QString &type) const
{
    if (!m_link.protocolAtLeast(1, 12))
        return false;
    const auto answer = answered(
            m_link.text("filter6d available %s", ControllerLink::argument(type).constData()),
            QStringLiteral("Error: Unable to get availability of filter6d for bodytype %1")
                    .arg(type));
    return answer == QLatin1String("yes");
}

/** The queries for a list and its entries, and the log lines of their failures. */
struct FilterReader::ListQueries {
    std::optional<int> (*count)(const ControllerLink &link);
    std::optional<QString> (*id)(const ControllerLink &link, int number);
    std::optional<QString> (*available)(const ControllerLink &link, const char *body,
                                        const char *id);
    std::optional<QString> (*description)(const ControllerLink &link, const char *id);
    QString countError;
    QString idError;
    QString availableError;
    QString descriptionError;

    static const ListQueries &ofPresets();
    static const ListQueries &ofModes();
};

const FilterReader::ListQueries &FilterReader::ListQueries::ofPresets()
{
    static const ListQueries queries = {
            [](const ControllerLink &link) { return link.count("filter6d number_of_presets"); },
            [](const ControllerLink &link, int number) {
                return link.name("filter6d preset_id t%02d", number);
            },
            [](const ControllerLink &link, const char *body, const char *id) {
                return link.text("body filter6d_preset_available %s %s", body, id);
            },
            [](const ControllerLink &link, const char *id) {
                return link.text("filter6d preset_desc %s", id);
            },
            QStringLiteral("Error: Unable to get number of filter 6d presets"),
            QStringLiteral("Error: Unable to get filter 6d preset id"),
            QStringLiteral("Error: Unable to get filter 6d preset id available"),
            QStringLiteral("Error: Unable to get filter 6d preset description")};
    return queries;
}

const FilterReader::ListQueries &FilterReader::ListQueries::ofModes()
{
    static const ListQueries queries = {
            [](const ControllerLink &link) { return link.count("filter6d number_of_modes"); },
            [](const ControllerLink &link, int number) {
                return link.name("filter6d mode_id t%02d", number);
            },
            [](const ControllerLink &link, const char *body, const char *id) {
                return link.text("body filter6d_mode_available %s %s", body, id);
            },
            [](const ControllerLink &link, const char *id) {
                return link.text("filter6d mode_desc %s", id);
            },
            QStringLiteral("Error: Unable to get number of filter 6d modes"),
            QStringLiteral("Error: Unable to get filter 6d mode id"),
            QStringLiteral("Error: Unable to get filter 6d mode id available"),
            QStringLiteral("Error: Unable to get filter 6d mode description")};
    return queries;
}

QVector<FilterReader::Choice> FilterReader::presets() const
{
    return choices(ListQueries::ofPresets(), QString());
}

QVector<FilterReader::Choice> FilterReader::presetsOf(const QString &body) const
{
    return choices(ListQueries::ofPresets(), body);
}

QVector<FilterReader::Choice> FilterReader::modes() const
{
    return choices(ListQueries::ofModes(), QString());
}

QVector<FilterReader::Choice> FilterReader::modesOf(const QString &body) const
{
    return choices(ListQueries::ofModes(), body);
}

/** The presets or modes in the controller's order; all of them when `body` is empty. */
QVector<FilterReader::Choice> FilterReader::choices(const ListQueries &list,
                                                    const QString &body) const
{
    const auto count = answered(list.count(m_link), list.countError);
    QVector<Choice> found;
    for (int number = 1; isWanted() && number <= count.value_or(0); ++number) {
        if (const auto entry = choice(list, number, body))
            found.append(*entry);
    }
    return found;
}

std::optional<FilterReader::Choice> FilterReader::choice(const ListQueries &list, int number,
                                                         const QString &body) const
{
    const auto id = answered(list.id(m_link, number), list.idError);
    if (!id || *id == QLatin1String("none"))
        return std::nullopt;
    if (!body.isEmpty() && !isOffered(list, *id, body))
        return std::nullopt;
    const QByteArray word = ControllerLink::argument(*id);
    const auto description =
            answered(list.description(m_link, word.constData()), list.descriptionError);
    if (!description)
        return std::nullopt;
    return Choice{*id, ControllerLink::withoutDoubleQuotes(*description)};
}

bool FilterReader::isOffered(const ListQueries &list, const QString &id, const QString &body) const
{
    const auto answer = answered(list.available(m_link, ControllerLink::argument(body).constData(),
                                                ControllerLink::argument(id).constData()),
                                 list.availableError);
    return answer == QLatin1String("yes");
}

FilterReader::Limits<double> FilterReader::strengthLimits() const
{
    const auto lowest =
            answered(m_link.real("filter6d limit strength_min"),
                     QStringLiteral("Error: Unable to get minimum of filter 6d strength"));
    const auto highest =
            answered(m_link.real("filter6d limit strength_max"),
                     QStringLiteral("Error: Unable to get maximum of filter 6d strength"));
    return {lowest.value_or(0.0), highest.value_or(0.0)};
}

FilterReader::Limits<int> FilterReader::predictionLimits() const
{
    const auto lowest =
            answered(m_link.real("filter6d limit prediction_min"),
                     QStringLiteral("Error: Unable to get minimum of filter 6d prediction"));
    const auto highest =
            answered(m_link.real("filter6d limit prediction_max"),
                     QStringLiteral("Error: Unable to get maximum of filter 6d prediction"));
    return {ControllerLink::wholeMilliseconds(lowest.value_or(0.0)),
            ControllerLink::wholeMilliseconds(highest.value_or(0.0))};
}

// Bodies that have a filter

QVector<FilterReader::Body> FilterReader::bodies(const QString &type, int index) const
{
    if (index >= 0)
        return {bodyAt(type, index)};
    QVector<Body> found;
    const int count = countOf(type);
    for (int each = 0; isWanted() && each < count; ++each) {
        if (isCalibrated(identifier(type, each)))
            found.append(bodyAt(type, each));
    }
    return found;
}

FilterReader::Body FilterReader::bodyAt(const QString &type, int index) const
{
    Body body;
    body.identifier = identifier(type, index);
    body.index = index;
    if (type == QLatin1String("standard")) {
        body.hasSensor = hasSensor(body.identifier);
        body.description = description(body.identifier);
    }
    return body;
}

int FilterReader::countOf(const QString &type) const
{
    const auto count =
            type == QLatin1String("joywand")
                    ? answered(m_link.count("joywand number_of_devices"),
                               QStringLiteral("Error: Unable to get number of Joywand devices"))
                    : answered(m_link.count("body number_of_bodies standard"),
                               QStringLiteral("Error: Unable to get number of standard bodies"));
    return count.value_or(0);
}

bool FilterReader::isCalibrated(const QString &body) const
{
    const auto answer =
            answered(m_link.text("body calibrated %s", ControllerLink::argument(body).constData()),
                     QStringLiteral("Error: Unable to get calibration state of body %1").arg(body));
    return answer == QLatin1String("yes");
}

bool FilterReader::hasSensor(const QString &body) const
{
    const auto sensor = answered(
            m_link.name("body inertial_sensor %s", ControllerLink::argument(body).constData()),
            QStringLiteral("Error: Unable to get inertial sensor of body %1").arg(body));
    return sensor && *sensor != QLatin1String("none");
}

QString FilterReader::description(const QString &body) const
{
    const auto answer =
            answered(m_link.text("body desc %s", ControllerLink::argument(body).constData()),
                     QStringLiteral("Error: Unable to get description of body %1").arg(body));
    return answer.value_or(QString());
}

// The filter of a body

bool FilterReader::isEnabled(const QString &body) const
{
    const auto answer = answered(
            m_link.text("body filter6d_enabled %s", ControllerLink::argument(body).constData()),
            QStringLiteral("Error: Unable to get filter 6d state for body %1").arg(body));
    return answer == QLatin1String("yes");
}

std::optional<QString> FilterReader::preset(const QString &body) const
{
    return answered(
            m_link.text("body filter6d_preset %s", ControllerLink::argument(body).constData()),
            QStringLiteral("Error: Unable to get filter 6d preset for body %1").arg(body));
}

std::optional<double> FilterReader::strength(const QString &body) const
{
    return answered(
            m_link.real("body filter6d_strength %s", ControllerLink::argument(body).constData()),
            QStringLiteral("Error: Unable to get filter 6d strength for body %1").arg(body));
}

std::optional<int> FilterReader::predictionMs(const QString &body) const
{
    const auto seconds = answered(
            m_link.real("body filter6d_prediction %s", ControllerLink::argument(body).constData()),
            QStringLiteral("Error: Unable to get filter 6d prediction for body %1").arg(body));
    if (!seconds)
        return std::nullopt;
    return ControllerLink::wholeMilliseconds(*seconds);
}

std::optional<QString> FilterReader::mode(const QString &body) const
{
    return answered(
            m_link.text("body filter6d_mode %s", ControllerLink::argument(body).constData()),
            QStringLiteral("Error: Unable to get filter 6d mode for body %1").arg(body));
}

// The summary for the body tables; its failures have log lines of their own

std::optional<QString> FilterReader::summary(const QString &type, int index) const
{
    const QByteArray word = ControllerLink::argument(type);
    const int number = index + 1;
    const auto enabled = m_link.text("body filter6d_enabled %s b%.2d", word.constData(), number);
    if (!enabled) {
        log(QStringLiteral("Error: Unable to get filter6d state of body %1 b%2"), type, index);
        return std::nullopt;
    }
    if (*enabled != QLatin1String("yes"))
        return QStringLiteral("not active");
    const auto preset = m_link.name("body filter6d_preset %s b%.2d", word.constData(), number);
    if (!preset || *preset == QLatin1String("none")) {
        log(QStringLiteral("Error: Unable to get filter6d preset of body %1 b%2"), type, index);
        return std::nullopt;
    }
    return isCustomPreset(*preset) ? customSummary(type, index) : presetSummary(*preset);
}

std::optional<QString> FilterReader::presetSummary(const QString &preset) const
{
    const auto description =
            m_link.text("filter6d preset_desc %s", ControllerLink::argument(preset).constData());
    if (!description) {
        m_link.log(QStringLiteral("Error: Unable to get description of filter6d preset %1")
                           .arg(preset));
        return std::nullopt;
    }
    return ControllerLink::withoutDoubleQuotes(*description);
}

std::optional<QString> FilterReader::customSummary(const QString &type, int index) const
{
    const QByteArray word = ControllerLink::argument(type);
    const int number = index + 1;
    const auto prediction =
            m_link.real("body filter6d_prediction %s b%.2d", word.constData(), number);
    if (!prediction)
        log(QStringLiteral("Error: Unable to get filter6d prediction of body %1 b%2"), type, index);
    const auto mode = m_link.name("body filter6d_mode %s b%.2d", word.constData(), number);
    const bool hasMode = mode && *mode != QLatin1String("none");
    if (!hasMode)
        log(QStringLiteral("Error: Unable to get filter6d mode of body %1 b%2"), type, index);
    if (!prediction || !hasMode)
        return std::nullopt;
    const auto description =
            m_link.text("filter6d mode_desc %s", ControllerLink::argument(*mode).constData());
    if (!description) {
        m_link.log(
                QStringLiteral("Error: Unable to get description of filter6d mode %1").arg(*mode));
        return std::nullopt;
    }
    const QString milliseconds = QString::number(ControllerLink::wholeMilliseconds(*prediction));
    const QString name = ControllerLink::withoutDoubleQuotes(*description);
    if (!mode->contains(QLatin1String("hybrid")))
        return QStringLiteral("%1ms/%2").arg(milliseconds, name);
    const auto strength = m_link.real("body filter6d_strength %s b%.2d", word.constData(), number);
    if (!strength)
        log(QStringLiteral("Error: Unable to get filter6d strength of body %1 b%2"), type, index);
    return QStringLiteral("%1/%2ms/%3")
            .arg(QString::number(strength.value_or(0.0), 'f', 2), milliseconds, name);
}
