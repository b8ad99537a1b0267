#pragma once

#include <QObject>
#include <QPointer>
#include <QString>

#include <functional>
#include <optional>

class LinkObserver;
class QWidget;

/**
 * Marks work that queries or writes the controller, and shows the operator when it takes long:
 * after 300 ms a wait cursor is shown, and the observer emits what the operator waits for.
 *
 * The object is on the stack around the work. Inside another object of the same dialog it only
 * changes the text. The time is checked when an operation has ended; no event loop runs. The cursor
 * and the text disappear before any other window opens, and do not return while that window is
 * open. The dialog may be deleted meanwhile. Without an observer nothing happens.
 */
class Waiting final : public QObject {
    Q_OBJECT

public:
    enum class For {
        Refresh, ///< the dialog reads again what it shows
        Action   ///< the operator requested a change
    };

    /** `text` is translated and says what the work does, for example "Reading bodies ...". */
    Waiting(LinkObserver *observer, For purpose, const QString &text);
    ~Waiting() override;

    /**
     * The purpose of the present work in the observer's dialog; nothing when no work is going on.
     */
    static std::optional<For> purposeIn(const LinkObserver *observer);

    /**
     * Replaces the clock, in ms, which must never run backwards; an empty function restores the
     * real one.
     */
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
    Waiting *const m_outer; ///< the enclosing object of the same observer; outlives this one
    const QPointer<QWidget> m_modalWindow;

    // Only the outermost object measures the time.
    QString m_text;
    int m_done = 0;
    int m_total = 0;
    qint64 m_startMs = 0;
    qint64 m_shownMs = 0; ///< time at which the text was shown last
    bool m_isShown = false;
    bool m_isTextNew = false; ///< the text has changed since then

    QString m_outerText; ///< shown again when this object ends
};
