#pragma once

#include "controllerlink.h"

#include <QPointer>
#include <QString>
#include <QVector>

#include <optional>

/**
 * Reads the controller's 6DOF filter: what the controller offers, and what is set for a body.
 *
 * A value without widgets. A failed query puts one line into the message log, except with
 * controllers from before the filter, which do not know the queries. A body is given by its
 * identifier, for example "standard b03".
 */
class FilterReader {
public:
    /** A preset or a mode as an entry of a list. */
    struct Choice {
        QString id;          ///< the controller's identifier
        QString description; ///< the text that the user reads
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
        int index = 0;          ///< zero-based
        bool hasSensor = false; ///< carries an inertial sensor; false when that cannot be read
        QString description;    ///< empty when it cannot be read
    };

    /** Reading a list stops when `asker`, if there is one, is deleted meanwhile. */
    explicit FilterReader(const ControllerLink &link, const QObject *asker = nullptr);

    /** True for a preset whose strength, prediction and mode the user sets. */
    static bool isCustomPreset(const QString &preset);

    /**
     * True when the controller offers the filter for bodies of `type`; queried from protocol 1.12
     * on.
     */
    bool isAvailable(const QString &type) const;
    /** The presets that the controller offers; leaves out those that cannot be read. */
    QVector<Choice> presets() const;
    /**
     * The presets that the controller offers for `body`; controllers answer this from protocol 1.21
     * on.
     */
    QVector<Choice> presetsOf(const QString &body) const;
    /** Like presets(), for modes. */
    QVector<Choice> modes() const;
    /** Like presetsOf(), for modes. */
    QVector<Choice> modesOf(const QString &body) const;
    Limits<double> strengthLimits() const;
    /** In whole milliseconds. */
    Limits<int> predictionLimits() const;

    /**
     * The standard bodies or Joywand devices: the one at the zero-based `index`, or all calibrated
     * ones when `index` is negative. For a device neither sensor nor description is read.
     */
    QVector<Body> bodies(const QString &type, int index) const;
    /** True when the body carries an inertial sensor; false when that cannot be read. */
    bool hasSensor(const QString &body) const;

    /** True when the body's filter is on; false when that cannot be read. */
    bool isEnabled(const QString &body) const;
    /** Each is nothing when it cannot be read. */
    std::optional<QString> preset(const QString &body) const;
    std::optional<double> strength(const QString &body) const;
    std::optional<int> predictionMs(const QString &body) const;
    std::optional<QString> mode(const QString &body) const;

    /**
     * The filter of a body in a few words, as the body tables show it; nothing when a query failed.
     * `index` is zero-based.
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

    /** Returns `answer` unchanged; logs `errorLine` when there is none. */
    template <typename Answer>
    std::optional<Answer> answered(std::optional<Answer> answer, const QString &errorLine) const;

    ControllerLink m_link;
    QPointer<const QObject> m_asker;
    bool m_hasAsker;
};
