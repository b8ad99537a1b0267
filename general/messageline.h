#pragma once

#include <QLabel>
#include <QPointer>
#include <QString>
#include <QStringList>

class LinkObserver;

/**
 * The line at the bottom of a dialog. It shows the last failure, the lock of the configuration, or
 * what the operator waits for. It is hidden while there is nothing to show, and its place stays
 * free.
 *
 * It follows the observer of the dialog's links, so that no dialog has to write into it. A failure
 * is shown until an action of the operator succeeds or the dialog closes; the tool tip shows the
 * last ten. The line is drawn at once, without an event loop.
 */
class MessageLine final : public QLabel {
    Q_OBJECT

public:
    explicit MessageLine(QWidget *parent = nullptr);
    ~MessageLine() override;

    /**
     * Begins to show what happens on the links of `observer`; called once, in the observer's
     * dialog.
     */
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
    QString m_failure; ///< as it is shown
    QString m_waiting;
    QStringList m_history; ///< the failures with their times, the newest first
    bool m_isLocked = false;
    bool m_hasFailed = false;   ///< during the present work
    bool m_hasAccepted = false; ///< during the present work
};
