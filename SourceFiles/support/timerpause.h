#pragma once

#include <QPointer>
#include <QTimer>

/**
 * Stops a running timer until its own destruction, then starts it again. The timer may be deleted
 * meanwhile.
 */
class TimerPause {
public:
    explicit TimerPause(QTimer *timer) : m_timer(timer), m_wasActive(timer->isActive())
    {
        timer->stop();
    }
    ~TimerPause()
    {
        if (m_timer && m_wasActive)
            m_timer->start();
    }
    TimerPause(const TimerPause &) = delete;
    TimerPause &operator=(const TimerPause &) = delete;

private:
    QPointer<QTimer> m_timer;
    bool m_wasActive;
};
