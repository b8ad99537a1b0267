#pragma once

#include <QObject>
#include <QPointer>

#include <functional>
#include <initializer_list>

/**
 * Runs steps that query or write the controller, for as long as `owner` lives: a host may delete it
 * in any of them. False when it did.
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
