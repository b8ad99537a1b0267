#pragma once

#include <QObject>
#include <QVector>

class QTimer;

/**
 * Holds slow timers, so that scripts and tests run the same each time: held timers fire on tick()
 * or fire() and not by the clock. Meant for the polling timers of dialogs; timers of less than half
 * a second are not held.
 */
class TimerHold : public QObject {
    Q_OBJECT

public:
    explicit TimerHold(QObject *parent = nullptr);
    ~TimerHold() override;

    /** Also holds the timers below this object, until the object is deleted. */
    void watch(QObject *root);
    /**
     * Lets one interval pass: every running held timer fires once, the shortest interval first.
     *
     * @return the intervals of the fired timers, in ms
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
