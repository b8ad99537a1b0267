#include "TimerHold.h"

#include <QCoreApplication>
#include <QPointer>
#include <QTimer>
#include <QTimerEvent>

#include <algorithm>

namespace {

constexpr int shortestHeldMs = 500;

} // namespace

TimerHold::TimerHold(QObject *parent) : QObject(parent)
{
    QCoreApplication::instance()->installEventFilter(this);
}

TimerHold::~TimerHold() = default;

void TimerHold::watch(QObject *root)
{
    m_roots.append(root);
    connect(root, &QObject::destroyed, this, [this](QObject *gone) { m_roots.removeAll(gone); });
}

bool TimerHold::isHeld(const QTimer *timer) const
{
    if (timer->interval() < shortestHeldMs)
        return false;
    for (const QObject *object = timer; object; object = object->parent()) {
        if (m_roots.contains(const_cast<QObject *>(object)))
            return true;
    }
    return false;
}

void TimerHold::collect(QObject *root, QVector<QTimer *> *timers) const
{
    for (QObject *child : root->children()) {
        auto *timer = qobject_cast<QTimer *>(child);
        if (timer && timer->isActive() && isHeld(timer) && !timers->contains(timer))
            timers->append(timer);
        collect(child, timers);
    }
}

QVector<int> TimerHold::tick()
{
    QVector<QTimer *> running;
    for (QObject *root : qAsConst(m_roots))
        collect(root, &running);
    std::stable_sort(running.begin(), running.end(), [](const QTimer *left, const QTimer *right) {
        return left->interval() < right->interval();
    });
    QVector<QPointer<QTimer>> due;
    for (QTimer *timer : qAsConst(running))
        due.append(timer);
    QVector<int> fired;
    for (const QPointer<QTimer> &timer : qAsConst(due)) {
        // The slots of one timer may stop or delete the next one.
        const int intervalMs = timer ? timer->interval() : 0;
        if (timer && fire(timer))
            fired.append(intervalMs);
    }
    return fired;
}

bool TimerHold::fire(QTimer *timer)
{
    if (!timer->isActive() || !isHeld(timer))
        return false;
    QTimerEvent event(timer->timerId());
    m_firing = true;
    QCoreApplication::sendEvent(timer, &event);
    return true;
}

bool TimerHold::eventFilter(QObject *watched, QEvent *event)
{
    if (event->type() != QEvent::Timer)
        return false;
    const auto *timer = qobject_cast<const QTimer *>(watched);
    if (!timer || static_cast<QTimerEvent *>(event)->timerId() != timer->timerId())
        return false;
    if (m_firing) {
        // Only the event that tick() sent is let through; its slots may run an event loop of their
        // own.
        m_firing = false;
        return false;
    }
    return isHeld(timer);
}
