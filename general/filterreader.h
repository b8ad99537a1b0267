#pragma once

#include "controllerlink.h"

#include <QPointer>
#include <QString>
#include <QVector>

#include <optional>

/**
 * Reads the controller's 6DOF filter: what it offers, and what is set for a body.
 *
 * A value without widgets. A failed query puts one line into the message log, except on controllers
 * from before the filter: that they do not know the queries is no failure. A body is named by its
 * identifier, for example "standard b03".
 */
class FilterReader {
public:
    /** A preset or a mode, as a list offers it. */
    struct Choice {
        QString id;          ///< as the controller names it
        QString description; ///< what the user reads
    };
    /** The limits of a value; both 0 when they cannot be read. */
    template <typename Number>
    struct Limits {
        Number lowest = 0;
        Number highest = 0;
    };

    /** A body that has a filter. */
    struct Body {
        QString identifier;
        int index = 0;          ///< from zero
        bool hasSensor = false; ///< carries an inertial sensor; false when that cannot be read
        QString description;    ///< empty when it cannot be read
    };

    /** Lists are read no further when `asker`, if there is one, is deleted meanwhile. */
    explicit FilterReader(const ControllerLink &link, const QObject *asker = nullptr);

    /** True for a preset whose strength, prediction and mode the user sets. */
    static bool isCustomPreset(const QString &preset);

    /** True when the controller offers the filter for bodies of `type`; queried from 1.12 on. */
    bool isAvailable(const QString &type) const;
    /** The presets that the controller offers; the ones that cannot be read are left out. */
    QVector<Choice> presets() const;
    /** The presets that the controller offers for `body`, which it answers from 1.21 on. */
    QVector<Choice> presetsOf(const QString &body) const;
    /** As presets(), for modes. */
    QVector<Choice> modes() const;
    /** As presetsOf(), for modes. */
    QVector<Choice> modesOf(const QString &body) const;
    Limits<double> strengthLimits() const;
    /** In whole milliseconds. */
    Limits<int> predictionLimits() const;

    /**
     * The standard bodies or Joywand devices: the one at `index`, which counts from zero, or all
     * calibrated ones when it is negative. A device has neither sensor nor description here.
     */
    QVector<Body> bodies(const QString &type, int index) const;
    /** False when that cannot be read. */
    bool hasSensor(const QString &body) const;

    /** False when that cannot be read. */
    bool isEnabled(const QString &body) const;
    /** Each is nothing when it cannot be read. */
    std::optional<QString> preset(const QString &body) const;
    std::optional<double> strength(const QString &body) const;
    std::optional<int> predictionMs(const QString &body) const;
    std::optional<QString> mode(const QString &body) const;

    /**
     * The filter of a body in a few words, as the body tables show it; nothing when a query failed.
     * `index` counts from zero.
     */
    std::optional<QString> summary(const QString &type, int index) const;

private:
    struct ListQueries;

    bool isWanted() const { return !m_hasAsker || m_asker; }
    int countOf(const QString &type) const;
    Body bodyAt(const QString &type, int index) const;
    bool isCalibrated(const QString &body) const;
    QString description(const QString &body) const;
    QVector<Choice> choices(const ListQueries &list, const QString &body) const;
    std::optional<Choice> choice(const ListQueries &list, int number, const QString &body) const;
    bool isOffered(const ListQueries &list, const QString &id, const QString &body) const;
    std::optional<QString> presetSummary(const QString &preset) const;
    std::optional<QString> customSummary(const QString &type, int index) const;
    void log(const QString &line, const QString &type, int index) const;

    /** `answer` as it is; puts `errorLine` into the message log when there is none. */
    template <typename Answer>
    std::optional<Answer> answered(std::optional<Answer> answer, const QString &errorLine) const;

    ControllerLink m_link;
    QPointer<const QObject> m_asker;
    bool m_hasAsker;
};
