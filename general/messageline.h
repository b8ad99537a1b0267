#pragma once

#include <QLabel>
#include <QPointer>
#include <QString>
#include <QStringList>

class LinkObserver;

/**
 * The line at the bottom of a dialog that repeats what went wrong last, says that the configuration
 * is locked, and what the operator waits for. Hidden, with its place kept, while there is nothing
 * to say.
 *
 * Follows the observer of the dialog's links, so that no dialog writes into it. A failure stays
 * until an action of the operator succeeds or the dialog closes; the tool tip holds the last ten. A
 * line is drawn at once, without an event loop.
 */
class MessageLine final : public QLabel {
    Q_OBJECT

public:
    explicit MessageLine(QWidget *parent = nullptr);
    ~MessageLine() override;

    /** Repeats from now on what happens on the links of `observer`; once, in its dialog. */
    void follow(LinkObserver *observer);

    QSize sizeHint() const override;
    QSize minimumSizeHint() const override;

protected:
    void paintEvent(QPaintEvent *event) override;
    bool eventFilter(QObject *watched, QEvent *event) override;

private:
    void lineLogged(const QString &line);
    void writeAccepted();
    void lockRead(bool locked);
    void waitingFor(const QString &text);
    void workEnded();
    void remember(const QString &failure);
    void forget();
    void display();
    QPixmap icon() const;
    int iconSide() const;

    QPointer<LinkObserver> m_observer;
    QString m_failure; ///< as shown
    QString m_waiting;
    QStringList m_history; ///< with their time, the newest first
    bool m_isLocked = false;
    bool m_hasFailed = false;   ///< in the work under way
    bool m_hasAccepted = false; ///< in the work under way
};
