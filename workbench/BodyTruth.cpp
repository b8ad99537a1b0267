#include "BodyTruth.h"

#include "BackendVersions.h"

#include <QVector>

#include <functional>

namespace {

using Reader = std::function<bool(const ControllerState &, const QString &, int, QString *)>;

const BodyState &bodyAt(const ControllerState &state, const QString &type, int index)
{
    return state.bodyTypes.constFind(type)->bodies.at(index);
}

QString checkText(bool checked)
{
    return checked ? QStringLiteral("checked") : QStringLiteral("unchecked");
}

const SensorState *sensorOf(const ControllerState &state, const BodyState &body)
{
    for (const SensorState &sensor : state.sensors) {
        if (!body.sensor.isEmpty() && sensor.name == body.sensor)
            return &sensor;
    }
    return nullptr;
}

bool active(const ControllerState &state, const QString &type, int index, QString *text)
{
    const BodyState &body = bodyAt(state, type, index);
    *text = body.active || body.calibrated ? checkText(body.active) : QString();
    return true;
}

bool reference(const ControllerState &state, const QString &type, int index, QString *text)
{
    const BodyState &body = bodyAt(state, type, index);
    const QString name = QStringLiteral("%1 b%2").arg(type).arg(index + 1, 2, 10, QLatin1Char('0'));
    *text = body.active || body.calibrated ? checkText(state.trackingReference == name) : QString();
    return true;
}

bool calibration(const ControllerState &state, const QString &type, int index, QString *text)
{
    const BodyState &body = bodyAt(state, type, index);
    if (!body.calibrated) {
        *text = QStringLiteral("not calibrated");
    } else if (const SensorState *sensor = sensorOf(state, body)) {
        *text = sensor->handEye.isEmpty() ? QStringLiteral("Optical") : QStringLiteral("Full");
    } else {
        *text = body.target.isEmpty() ? QStringLiteral("Custom") : QStringLiteral("Target Library");
        if (body.recalibrated)
            *text += QStringLiteral(", re-calibrated");
    }
    return true;
}

QString modeDescription(const ControllerState &state, const QString &id)
{
    for (const FilterModeState &mode : state.filterModes) {
        if (mode.id == id)
            return mode.description;
    }
    return QString();
}

bool filter(const ControllerState &state, const QString &type, int index, QString *text)
{
    const BodyState &body = bodyAt(state, type, index);
    if (!body.calibrated)
        return false;
    if (!body.filterEnabled) {
        *text = QStringLiteral("not active");
        return true;
    }
    if (!body.filterPreset.contains(QLatin1String("_custom"))) {
        for (const FilterPresetState &preset : state.filterPresets) {
            if (preset.id == body.filterPreset) {
                *text = preset.description;
                return true;
            }
        }
        return false;
    }
    const int ms = BodyTruth::wholeMilliseconds(body.filterPrediction);
    const QString mode = modeDescription(state, body.filterMode);
    *text = body.filterMode.contains(QLatin1String("hybrid"))
                    ? QStringLiteral("%1/%2ms/%3")
                              .arg(body.filterStrength, 0, 'f', 2)
                              .arg(ms)
                              .arg(mode)
                    : QStringLiteral("%1ms/%2").arg(ms).arg(mode);
    return true;
}

bool deviceId(const ControllerState &state, const QString &type, int index, QString *text)
{
    *text = bodyAt(state, type, index).sensor.section(QLatin1Char(' '), 2, 2);
    text->remove(QLatin1Char('\''));
    return type == QLatin1String("standard");
}

/** Standard bodies carry a sensor, and Joywands are devices; both have a readable model name. */
bool model(const ControllerState &state, const QString &type, int index, QString *text)
{
    if (type == QLatin1String("standard")) {
        const SensorState *sensor = sensorOf(state, bodyAt(state, type, index));
        *text = sensor ? sensor->modelDescription : QString();
        return true;
    }
    const DeviceState device = state.devices.value(index);
    *text = device.kind.isEmpty() ? QStringLiteral("none") : device.modelDescription;
    return type == QLatin1String("joywand");
}

bool serial(const ControllerState &state, const QString &type, int index, QString *text)
{
    constexpr int digits = 5;
    const DeviceState device = state.devices.value(index);
    *text = device.kind.isEmpty() ? QString()
                                  : device.serial.rightJustified(digits, QLatin1Char('0'), true);
    return type == QLatin1String("joywand");
}

bool name(const ControllerState &state, const QString &type, int index, QString *text)
{
    *text = bodyAt(state, type, index).description;
    return true;
}

bool toolReference(const ControllerState &state, const QString &type, int index, QString *text)
{
    const QString reference = bodyAt(state, type, index).reference;
    *text = reference.isEmpty() ? QString() : QStringLiteral("MR%1").arg(reference.mid(1).toInt());
    return !reference.isEmpty();
}

/** A column, and the protocol version from which the controller answers the column's query. */
struct Column {
    const char *title;
    VersionInfo since;
    Reader read;
};

const QVector<Column> &columns()
{
    static const QVector<Column> all = {
            {"Active", {1, 11, -1}, active},
            {"Reference", {1, 24, -1}, reference},
            {"Reference ID", {1, 4, -1}, toolReference},
            {"Name", {0, 16, -1}, name},
            {"Device ID", {1, 12, -1}, deviceId},
            {"Model", {1, 12, -1}, model},
            {"Serial", {0, 1, -1}, serial},
            {"Calibration", {1, 12, -1}, calibration},
            {"Filter", {1, 12, -1}, filter},
    };
    return all;
}

} // namespace

bool BodyTruth::cell(const ControllerState &state, const QString &bodyType, int index,
                     const QString &column, QString *text)
{
    VersionInfo protocol;
    protocol.fromString(state.protocol);
    for (const Column &known : columns()) {
        if (column == QLatin1String(known.title))
            return protocol >= known.since && known.read(state, bodyType, index, text);
    }
    return false;
}

int BodyTruth::wholeMilliseconds(double seconds)
{
    // The correction for binary rounding is far below a microsecond.
    return int(seconds * 1000.0 + (seconds < 0 ? -1e-6 : 1e-6));
}
