#include "ControllerRules.h"

#include "BackendVersions.h"
#include "BodyTypeWords.h"

#include <algorithm>

using namespace BodyTypeWords;

namespace {

/** Calls `change` for each text in the state that names a body of the type by its number. */
template <typename Change>
void forEachMention(ControllerState &state, const QString &type, Change change)
{
    const QString prefix = type + QLatin1Char(' ');
    if (state.trackingReference.startsWith(prefix)) {
        QString word = state.trackingReference.mid(prefix.size());
        change(word);
        state.trackingReference = word.isEmpty() ? QString() : prefix + word;
    }
    if (type == referenceWord && state.bodyTypes.contains(toolWord)) {
        for (BodyState &tool : state.bodyTypes[toolWord].bodies) {
            if (!tool.reference.isEmpty())
                change(tool.reference);
        }
    }
}

/** Gives a new body its preset with the values of the preset. */
void setInitialFilter(const ControllerState &state, BodyState *body)
{
    const FilterPresetState *initial = ControllerRules::preset(state, BodyState().filterPreset);
    if (!initial)
        return;
    body->filterPreset = initial->id;
    body->filterStrength = initial->strength;
    body->filterPrediction = initial->prediction;
    body->filterMode = initial->mode;
}

bool isRigidTarget(const QString &type)
{
    return type == standardWord || type.startsWith(QLatin1String("mea"));
}

} // namespace

namespace ControllerRules {

QStringList bodyTypeWords()
{
    return {standardWord, joywandWord, headWord, handWord, toolWord, referenceWord};
}

QString numberedWord(char prefix, int number)
{
    return QLatin1Char(prefix) + QStringLiteral("%1").arg(number, 2, 10, QLatin1Char('0'));
}

int numberOf(const QString &word)
{
    bool ok = false;
    const int number = word.mid(1).toInt(&ok);
    return ok && !word.isEmpty() && word.at(0).isLetter() ? number : 0;
}

bool isTypeAvailable(const ControllerState &state, const VersionInfo &protocol, const QString &type)
{
    if (!state.bodyTypes.contains(type))
        return false;
    if (type.startsWith(toolWord))
        return state.measurementToolAvailable;
    // Newer controllers always offer hands, and their state does not decide it.
    if (type == QLatin1String("fingertracking"))
        return state.fingertrackingAvailable || protocol >= VersionInfo(1, 22, -1);
    return true;
}

BodyState *body(ControllerState &state, const QString &type, int number)
{
    const auto it = state.bodyTypes.find(type);
    if (it == state.bodyTypes.end() || number < 1 || number > it->bodies.size())
        return nullptr;
    return &it->bodies[number - 1];
}

QString bodyWith(const ControllerState &state, QString BodyState::*field, const QString &value)
{
    for (auto it = state.bodyTypes.cbegin(); it != state.bodyTypes.cend(); ++it) {
        for (int i = 0; i < it->bodies.size(); ++i) {
            if (it->bodies.at(i).*field == value)
                return it.key() + QLatin1Char(' ') + numberedWord('b', i + 1);
        }
    }
    return {};
}

int targetIndex(const ControllerState &state, const QString &idOrShortName)
{
    for (int i = 0; i < state.targets.size(); ++i) {
        if (state.targets.at(i).shortName == idOrShortName)
            return i;
    }
    const int number = numberOf(idOrShortName);
    const bool isIdentifier = number >= 1 && number <= state.targets.size()
                              && idOrShortName == numberedWord('t', number);
    return isIdentifier ? number - 1 : -1;
}

bool targetFits(const QString &targetType, const QString &bodyType)
{
    // A rigid target can serve as a standard body or as the reference of a measurement tool.
    return !targetType.isEmpty()
           && (targetType == bodyType || (isRigidTarget(targetType) && isRigidTarget(bodyType)));
}

SensorState *sensor(ControllerState &state, const QString &name)
{
    const auto it = std::find_if(state.sensors.begin(), state.sensors.end(),
                                 [&](const SensorState &one) { return one.name == name; });
    return it == state.sensors.end() ? nullptr : &*it;
}

const FilterPresetState *preset(const ControllerState &state, const QString &id)
{
    const auto it = std::find_if(state.filterPresets.cbegin(), state.filterPresets.cend(),
                                 [&](const FilterPresetState &one) { return one.id == id; });
    return it == state.filterPresets.cend() ? nullptr : &*it;
}

const FilterModeState *mode(const ControllerState &state, const QString &id)
{
    const auto it = std::find_if(state.filterModes.cbegin(), state.filterModes.cend(),
                                 [&](const FilterModeState &one) { return one.id == id; });
    return it == state.filterModes.cend() ? nullptr : &*it;
}

void setBodyCount(ControllerState &state, const QString &type, int count)
{
    QVector<BodyState> &bodies = state.bodyTypes[type].bodies;
    const int before = bodies.size();
    bodies.resize(count);
    for (int i = before; i < count; ++i)
        setInitialFilter(state, &bodies[i]);
    forEachMention(state, type, [count](QString &word) {
        if (numberOf(word) > count)
            word.clear();
    });
    if (type == joywandWord && state.multiUser && state.multiUserWithHead
        && state.bodyTypes.contains(headWord))
        setBodyCount(state, headWord, qMin(count, state.bodyTypes.value(headWord).maximum));
}

bool rename(BodyState &body, const QString &description, QString *refusal)
{
    constexpr int longestBytes = 180;
    if (description.contains(QLatin1Char('"')))
        *refusal = QStringLiteral("a description cannot hold a quote sign");
    else if (description.toUtf8().size() > longestBytes)
        *refusal = QStringLiteral("the description is too long");
    else
        body.description = description;
    return body.description == description;
}

void clearGeometry(ControllerState &state, const QString &type, int number)
{
    BodyState *cleared = body(state, type, number);
    if (!cleared)
        return;
    cleared->calibrated = false;
    cleared->recalibrated = false;
    cleared->target.clear();
    cleared->markers = 0;
    if (state.trackingReference == type + QLatin1Char(' ') + numberedWord('b', number))
        state.trackingReference.clear();
}

void deleteBody(ControllerState &state, const QString &type, int number)
{
    BodyState *deleted = body(state, type, number);
    if (!deleted)
        return;
    clearGeometry(state, type, number);
    BodyState slot;
    slot.active = false;
    slot.targetType = deleted->targetType;
    slot.fixedAngles = deleted->fixedAngles;
    setInitialFilter(state, &slot);
    *deleted = slot;
    if (type == referenceWord) {
        forEachMention(state, type, [number](QString &word) {
            if (numberOf(word) == number)
                word.clear();
        });
    }
}

void switchBodies(ControllerState &state, const QString &type, int number, int other)
{
    QVector<BodyState> &bodies = state.bodyTypes[type].bodies;
    std::swap(bodies[number - 1], bodies[other - 1]);
    forEachMention(state, type, [number, other](QString &word) {
        if (numberOf(word) == number)
            word = numberedWord('b', other);
        else if (numberOf(word) == other)
            word = numberedWord('b', number);
    });
}

void calibrate(BodyState &body)
{
    constexpr int usualMarkers = 4;
    body.recalibrated = !body.target.isEmpty();
    body.calibrated = true;
    body.active = true;
    body.markers = body.markers > 0 ? body.markers : usualMarkers;
}

void activateConfiguration(ControllerState &state)
{
    state.standardFilter = false;
    state.joywandFilter = false;
}

void restart(ControllerState &state, const QString &protocol)
{
    state.protocol = protocol;
    state.search.active = false;
    state.search.elapsedTicks = 0;
}

} // namespace ControllerRules
