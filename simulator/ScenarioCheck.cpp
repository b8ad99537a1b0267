#include "ScenarioCheck.h"

#include "BodyTypeWords.h"
#include "ControllerRules.h"
#include "FaultRuleParser.h"

#include <QSet>

namespace {

/** Walks through a state and stores the first conflict. */
class ConflictFinder {
public:
    explicit ConflictFinder(const ControllerState &state) : m_state(state) {}

    QString find()
    {
        checkLibrary();
        checkFilter();
        checkSensors();
        for (auto it = m_state.bodyTypes.cbegin(); it != m_state.bodyTypes.cend(); ++it)
            checkType(it.key(), it.value());
        checkTrackingReference();
        checkPulse();
        return m_conflict;
    }

private:
    void require(bool holds, const QString &path, const QString &expected, const QString &found)
    {
        if (!holds && m_conflict.isEmpty()) {
            m_conflict = QStringLiteral("state.%1: expected %2, found \"%3\"")
                                 .arg(path, expected, found);
        }
    }

    void checkLibrary()
    {
        QSet<QString> groups;
        for (int i = 0; i < m_state.targetGroups.size(); ++i) {
            const QString &group = m_state.targetGroups.at(i);
            require(!group.isEmpty() && !groups.contains(group),
                    QStringLiteral("targetGroups[%1]").arg(i),
                    QStringLiteral("a name that no other group has"), group);
            groups << group;
        }
        const QStringList words = ControllerRules::bodyTypeWords();
        for (int i = 0; i < m_state.targets.size(); ++i) {
            const TargetState &target = m_state.targets.at(i);
            const QString path = QStringLiteral("targets[%1].").arg(i);
            require(target.bodyType.isEmpty() || words.contains(target.bodyType),
                    path + QStringLiteral("bodyType"),
                    QStringLiteral("one of ") + words.join(QStringLiteral(", ")), target.bodyType);
            require(target.group.isEmpty() || groups.contains(target.group),
                    path + QStringLiteral("group"), QStringLiteral("a name from targetGroups"),
                    target.group);
        }
    }

    void checkFilter()
    {
        QSet<QString> ids;
        for (int i = 0; i < m_state.filterPresets.size(); ++i) {
            const FilterPresetState &preset = m_state.filterPresets.at(i);
            const QString path = QStringLiteral("filterPresets[%1].").arg(i);
            require(!ids.contains(preset.id), path + QStringLiteral("id"),
                    QStringLiteral("an identifier that no other preset has"), preset.id);
            require(ControllerRules::mode(m_state, preset.mode) != nullptr,
                    path + QStringLiteral("mode"), QStringLiteral("an id from filterModes"),
                    preset.mode);
            ids << preset.id;
        }
        require(m_state.strengthMin <= m_state.strengthMax, QStringLiteral("strengthMin"),
                QStringLiteral("at most strengthMax"), QString::number(m_state.strengthMin));
        require(m_state.predictionMin <= m_state.predictionMax, QStringLiteral("predictionMin"),
                QStringLiteral("at most predictionMax"), QString::number(m_state.predictionMin));
    }

    void checkSensors()
    {
        for (int i = 0; i < m_state.sensors.size(); ++i) {
            const QString &name = m_state.sensors.at(i).name;
            require(!m_sensors.contains(name), QStringLiteral("sensors[%1].name").arg(i),
                    QStringLiteral("a name that no other sensor has"), name);
            m_sensors << name;
        }
    }

    void checkType(const QString &word, const BodyTypeState &type)
    {
        const QStringList words = ControllerRules::bodyTypeWords();
        const QString path = QStringLiteral("bodyTypes.") + word;
        require(words.contains(word), path,
                QStringLiteral("one of ") + words.join(QStringLiteral(", ")), word);
        require(type.bodies.size() <= type.maximum, path + QStringLiteral(".bodies"),
                QStringLiteral("at most %1 bodies").arg(type.maximum),
                QString::number(type.bodies.size()));
        for (int i = 0; i < type.bodies.size(); ++i) {
            const QString bodyPath = path + QStringLiteral(".bodies[%1].").arg(i);
            checkCalibration(bodyPath, type.bodies.at(i));
            checkHoldings(bodyPath, type.bodies.at(i));
            if (type.filterAvailable)
                checkBodyFilter(bodyPath, type.bodies.at(i));
        }
    }

    void checkCalibration(const QString &path, const BodyState &body)
    {
        require(body.calibrated || !body.recalibrated, path + QStringLiteral("recalibrated"),
                QStringLiteral("false for a body that is not calibrated"), QStringLiteral("true"));
        require(body.calibrated || body.target.isEmpty(), path + QStringLiteral("target"),
                QStringLiteral("no target for a body that is not calibrated"), body.target);
        require(body.calibrated || body.markers == 0, path + QStringLiteral("markers"),
                QStringLiteral("0 for a body that is not calibrated"),
                QString::number(body.markers));
    }

    void checkHoldings(const QString &path, const BodyState &body)
    {
        const int target = ControllerRules::targetIndex(m_state, body.target);
        const bool isShortName = target >= 0 && m_state.targets.at(target).shortName == body.target;
        require(body.target.isEmpty() || (isShortName && !m_heldTargets.contains(body.target)),
                path + QStringLiteral("target"),
                QStringLiteral("the short name of a target that no other body holds"), body.target);
        m_heldTargets << body.target;
        require(body.sensor.isEmpty()
                        || (m_sensors.contains(body.sensor)
                            && !m_carriedSensors.contains(body.sensor)),
                path + QStringLiteral("sensor"),
                QStringLiteral("the name of a sensor that no other body carries"), body.sensor);
        m_carriedSensors << body.sensor;
        require(body.reference.isEmpty() || exists(BodyTypeWords::referenceWord, body.reference),
                path + QStringLiteral("reference"),
                QStringLiteral("the number of a measurement tool reference, such as \"b01\""),
                body.reference);
    }

    void checkBodyFilter(const QString &path, const BodyState &body)
    {
        require(m_state.filterPresets.isEmpty()
                        || ControllerRules::preset(m_state, body.filterPreset),
                path + QStringLiteral("filterPreset"), QStringLiteral("an id from filterPresets"),
                body.filterPreset);
        require(body.filterMode.isEmpty() || ControllerRules::mode(m_state, body.filterMode),
                path + QStringLiteral("filterMode"), QStringLiteral("an id from filterModes"),
                body.filterMode);
    }

    bool exists(const QString &type, const QString &word) const
    {
        const int number = ControllerRules::numberOf(word);
        return number >= 1 && word == ControllerRules::numberedWord('b', number)
               && number <= m_state.bodyTypes.value(type).bodies.size();
    }

    void checkTrackingReference()
    {
        const QString &reference = m_state.trackingReference;
        const QString type = reference.section(QLatin1Char(' '), 0, 0);
        require(reference.isEmpty()
                        || (m_state.bodyTypes.contains(type)
                            && exists(type, reference.section(QLatin1Char(' '), 1))),
                QStringLiteral("trackingReference"),
                QStringLiteral("type and number of a body, such as \"standard b03\""), reference);
    }

    void checkPulse()
    {
        const QString &pulse = m_state.trackingPulse;
        const QString word = pulse.section(QLatin1Char(' '), 0, 0);
        const QString rest = pulse.section(QLatin1Char(' '), 1);
        bool isNumber = false;
        rest.toDouble(&isNumber);
        require((word == QLatin1String("synchronous_cameras") && rest.isEmpty())
                        || (word == QLatin1String("frequency") && isNumber)
                        || (word == QLatin1String("inertial_sensor") && m_sensors.contains(rest)),
                QStringLiteral("trackingPulse"),
                QStringLiteral("synchronous_cameras, frequency with a number or inertial_sensor "
                               "with a sensor's name"),
                pulse);
    }

    const ControllerState &m_state;
    QString m_conflict;
    QSet<QString> m_sensors;
    QSet<QString> m_heldTargets;
    QSet<QString> m_carriedSensors;
};

} // namespace

QString scenarioConflict(const Scenario &scenario)
{
    const QString conflict = ConflictFinder(scenario.state).find();
    if (!conflict.isEmpty())
        return conflict;
    for (int i = 0; i < scenario.faults.size(); ++i) {
        FaultRule rule;
        QString error;
        if (!FaultRuleParser::parse(scenario.faults.at(i), &rule, &error))
            return QStringLiteral("faults[%1]: %2").arg(i).arg(error);
    }
    return {};
}
