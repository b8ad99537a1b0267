#pragma once

#include <QObject>
#include <QPointer>
#include <QStringList>

#include <functional>
#include <initializer_list>

/**
 * Runs steps that query or write the controller. A host may delete `owner` in any of them: the
 * remaining steps are then left out, and the result is false.
 */
inline bool runSteps(QObject *owner, std::initializer_list<std::function<void()>> steps)
{
    const QPointer<QObject> guard(owner);
    for (const std::function<void()> &step : steps) {
        if (!guard)
            return false;
        step();
    }
    return guard;
}

/** Runs a step for each name, in the given order and under the same rules as runSteps(). */
inline bool runForEach(QObject *owner, const QStringList &names,
                       const std::function<void(const QString &)> &step)
{
    const QPointer<QObject> guard(owner);
    for (const QString &name : names) {
        if (!guard)
            return false;
        step(name);
    }
    return guard;
}
