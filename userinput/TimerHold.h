#pragma once

#include <QObject>
#include <QVector>

class QTimer;

/**
 * Keeps slow timers from firing with the clock, so that scripts and tests run the same each time:
 * they fire when tick() or fire() says so. Meant for the polling timers of dialogs; timers of less
 * than half a second stay alive.
 */
class TimerHold : public QObject {
    Q_OBJECT

public:
    explicit TimerHold(QObject *parent = nullptr);
    ~TimerHold() override;

    /** Holds the timers below this object too; forgotten when it is deleted. */
    void watch(QObject *root);
    /**
     * Lets one interval pass: every running held timer fires once, the shortest interval first.
     *
     * @return the intervals in ms of the timers that fired
     */
    QVector<int> tick();
    /**
     * Lets one interval of one timer pass.
     *
     * @return false when the timer is not running or not held; nothing fires then
     */
    bool fire(QTimer *timer);

    bool eventFilter(QObject *watched, QEvent *event) override;

private:
    bool isHeld(const QTimer *timer) const;
    void collect(QObject *root, QVector<QTimer *> *timers) const;

    QVector<QObject *> m_roots;
    bool m_firing = false;
};
