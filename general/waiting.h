#pragma once

#include <QObject>
#include <QPointer>
#include <QString>

#include <functional>
#include <optional>

class LinkObserver;
class QWidget;

/**
 * Marks a piece of work that queries or writes the controller, and lets the operator see it when it
 * takes long: from 300 ms on a wait cursor is shown, and the observer emits what is waited for.
 *
 * Lives on the stack around the work; within another one of the same dialog it only gives the text.
 * It is checked when an operation comes back, and runs no event loop. What it shows is gone before
 * any other window opens and does not return while that window is open. The dialog may be deleted
 * meanwhile; without an observer nothing happens.
 */
class Waiting final : public QObject {
    Q_OBJECT

public:
    enum class For {
        Refresh, ///< what is shown is read again
        Action   ///< the operator asked for a change
    };

    /** `text` is translated and says what is done, for example "Reading bodies ...". */
    Waiting(LinkObserver *observer, For purpose, const QString &text);
    ~Waiting() override;

    /** The purpose of the work that is under way in the observer's dialog; nothing when none is. */
    static std::optional<For> purposeIn(const LinkObserver *observer);

    /** Milliseconds that never run backwards; an empty function gives the real ones back. */
    static void setClock(std::function<qint64()> clock);

protected:
    bool eventFilter(QObject *watched, QEvent *event) override;

private:
    static Waiting *innermost(const LinkObserver *observer);
    Waiting &root();
    QString shownText() const;
    void operationDone();
    void progressed(int done, int total);
    void restart();
    void setShown(bool shown);

    const QPointer<LinkObserver> m_observer;
    const For m_purpose;
    Waiting *const m_outer; ///< of the same observer; outlives this
    const QPointer<QWidget> m_modalWindow;

    // The outermost one measures for all.
    QString m_text;
    int m_done = 0;
    int m_total = 0;
    qint64 m_startMs = 0;
    qint64 m_shownMs = 0; ///< when the text was shown last
    bool m_isShown = false;
    bool m_isTextNew = false; ///< the text has changed since then

    QString m_outerText; ///< shown again when this one ends
};
