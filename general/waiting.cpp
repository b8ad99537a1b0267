#include "waiting.h"

#include "linkobserver.h"

#include <QApplication>
#include <QElapsedTimer>
#include <QEvent>
#include <QVector>
#include <QWidget>

#include <utility>

namespace {

constexpr qint64 patienceMs = 300;
/**
 * A person cannot read a count that changes faster, and drawing it takes longer than many queries.
 */
constexpr qint64 betweenCountsMs = 250;

std::function<qint64()> &clockInUse()
{
    static std::function<qint64()> clock;
    return clock;
}

qint64 nowMs()
{
    static const QElapsedTimer sinceFirstUse = [] {
        QElapsedTimer timer;
        timer.start();
        return timer;
    }();
    return clockInUse() ? clockInUse()() : sinceFirstUse.elapsed();
}

/** All existing objects in the order in which they began; they end in the opposite order. */
QVector<Waiting *> &underWay()
{
    static QVector<Waiting *> waitings;
    return waitings;
}

} // namespace

Waiting::Waiting(LinkObserver *observer, For purpose, const QString &text)
    : m_observer(observer),
      m_purpose(purpose),
      m_outer(innermost(observer)),
      m_modalWindow(QApplication::activeModalWidget())
{
    underWay().append(this);
    if (!observer)
        return;
    if (m_outer) {
        Waiting &measuring = root();
        m_outerText = std::exchange(measuring.m_text, text);
        measuring.m_total = 0;
        measuring.m_isTextNew = true;
        return;
    }
    m_text = text;
    m_startMs = nowMs();
    connect(observer, &LinkObserver::operationDone, this, &Waiting::operationDone);
    connect(observer, &LinkObserver::progressed, this, &Waiting::progressed);
    qApp->installEventFilter(this);
    emit observer->workBegun();
}

Waiting::~Waiting()
{
    underWay().removeOne(this);
    if (m_outer) {
        root().m_text = m_outerText;
        root().m_total = 0;
        root().m_isTextNew = true;
        return;
    }
    setShown(false);
    if (m_observer)
        emit m_observer->workEnded();
}

Waiting *Waiting::innermost(const LinkObserver *observer)
{
    const QVector<Waiting *> &waitings = underWay();
    for (auto waiting = waitings.crbegin(); observer && waiting != waitings.crend(); ++waiting) {
        if ((*waiting)->m_observer == observer)
            return *waiting;
    }
    return nullptr;
}

Waiting &Waiting::root()
{
    Waiting *waiting = this;
    while (waiting->m_outer)
        waiting = waiting->m_outer;
    return *waiting;
}

std::optional<Waiting::For> Waiting::purposeIn(const LinkObserver *observer)
{
    const Waiting *waiting = innermost(observer);
    return waiting ? std::optional<For>(waiting->m_purpose) : std::nullopt;
}

void Waiting::setClock(std::function<qint64()> clock)
{
    clockInUse() = std::move(clock);
}

QString Waiting::shownText() const
{
    if (m_total <= 0)
        return m_text;
    //: %1 is what is done, for example "Reading bodies ..."; then how many of how many
    return tr("%1, %2 of %3").arg(m_text).arg(m_done).arg(m_total);
}

void Waiting::operationDone()
{
    // An operator who answers a question or works in another dialog does not wait.
    if (QApplication::activeModalWidget() != m_modalWindow)
        restart();
    else if ((!m_isShown || m_isTextNew) && nowMs() - m_startMs >= patienceMs)
        setShown(true);
}

void Waiting::progressed(int done, int total)
{
    m_done = done;
    m_total = total;
    if (m_isShown && (done == total || nowMs() - m_shownMs >= betweenCountsMs))
        setShown(true);
}

void Waiting::restart()
{
    setShown(false);
    m_startMs = nowMs();
}

void Waiting::setShown(bool shown)
{
    if (shown != m_isShown) {
        m_isShown = shown;
        if (shown)
            QGuiApplication::setOverrideCursor(Qt::WaitCursor);
        else
            QGuiApplication::restoreOverrideCursor();
    } else if (!shown) {
        return;
    }
    m_isTextNew = false;
    m_shownMs = nowMs();
    if (m_observer)
        emit m_observer->waitingFor(shown ? shownText() : QString());
}

bool Waiting::eventFilter(QObject *watched, QEvent *event)
{
    const bool opensOrCloses = event->type() == QEvent::Show || event->type() == QEvent::Hide;
    if (opensOrCloses && watched->isWidgetType() && static_cast<QWidget *>(watched)->isWindow())
        restart();
    return QObject::eventFilter(watched, event);
}
