#include "messageline.h"

#include "linkobserver.h"
#include "plaintext.h"
#include "waiting.h"

#include <QAccessible>
#include <QAccessibleWidget>
#include <QCoreApplication>
#include <QEvent>
#include <QPainter>
#include <QStyle>
#include <QTime>

namespace {

constexpr int longestHistory = 10;
constexpr int gap = 4;

/** The message log also reports the progress of a search; only these beginnings mean a failure. */
bool isFailure(const QString &line)
{
    for (const char *beginning : {"Error", "Unable to", "Could not", "TrackingSettings:"}) {
        if (line.startsWith(QLatin1String(beginning)))
            return true;
    }
    return false;
}

/** The text of a log line for the operator, without the mark that readers of the log need. */
QString failureOf(const QString &line)
{
    static const QString mark = QStringLiteral("Error: ");
    const QString failure = line.startsWith(mark) ? line.mid(mark.size()) : line;
    // The log is always English; a line that the operator should understand has its own
    // translation.
    return QCoreApplication::translate("MessageLine", failure.toUtf8().constData());
}

/** Screen readers read an alert when it is shown, but ignore a label. */
QAccessibleInterface *alertOf(const QString &className, QObject *object)
{
    if (className != QLatin1String("MessageLine"))
        return nullptr;
    return new QAccessibleWidget(static_cast<QWidget *>(object), QAccessible::AlertMessage);
}

/**
 * The number of existing lines. When it is 0, the host may unload the module, and alertOf() with
 * it.
 */
int lineCount = 0;

} // namespace

MessageLine::MessageLine(QWidget *parent) : QLabel(parent)
{
    setTextFormat(Qt::PlainText);
    setWhatsThis(tr("What went wrong last, or what is waited for"));
    // A long line must not widen the dialog, and a new line must not move a button.
    QSizePolicy policy(QSizePolicy::Ignored, QSizePolicy::Fixed);
    policy.setRetainSizeWhenHidden(true);
    setSizePolicy(policy);
    hide();
    if (lineCount++ == 0)
        QAccessible::installFactory(alertOf);
}

MessageLine::~MessageLine()
{
    if (--lineCount == 0)
        QAccessible::removeFactory(alertOf);
}

void MessageLine::follow(LinkObserver *observer)
{
    m_observer = observer;
    window()->installEventFilter(this);
    connect(observer, &LinkObserver::lineLogged, this, &MessageLine::lineLogged);
    connect(observer, &LinkObserver::writeAccepted, this, &MessageLine::writeAccepted);
    connect(observer, &LinkObserver::lockRead, this, &MessageLine::lockRead);
    connect(observer, &LinkObserver::waitingFor, this, &MessageLine::waitingFor);
    connect(observer, &LinkObserver::workEnded, this, &MessageLine::workEnded);
    connect(observer, &LinkObserver::workBegun, this,
            [this] { m_hasFailed = m_hasAccepted = false; });
}

QSize MessageLine::sizeHint() const
{
    return minimumSizeHint();
}

QSize MessageLine::minimumSizeHint() const
{
    return {iconSide(), qMax(iconSide(), fontMetrics().height())};
}

void MessageLine::lineLogged(const QString &line)
{
    if (!isFailure(line))
        return;
    m_hasFailed = true;
    const QString failure = failureOf(line);
    remember(failure);
    // A failure behind a closed dialog is not the result of an action in the dialog.
    if (!window()->isVisible() && !Waiting::purposeIn(m_observer))
        return;
    m_failure = failure;
    display();
    QAccessibleEvent alert(this, QAccessible::Alert);
    QAccessible::updateAccessibility(&alert);
}

void MessageLine::writeAccepted()
{
    const auto purpose = Waiting::purposeIn(m_observer);
    if (purpose == Waiting::For::Action)
        m_hasAccepted = true;
    else if (!purpose)
        forget();
}

void MessageLine::workEnded()
{
    // A successful step does not make up for a failed one.
    if (m_hasAccepted && !m_hasFailed)
        forget();
}

void MessageLine::lockRead(bool locked)
{
    if (m_isLocked == locked)
        return;
    m_isLocked = locked;
    display();
}

void MessageLine::waitingFor(const QString &text)
{
    if (m_waiting == text)
        return;
    m_waiting = text;
    display();
    // No event is handled until the work is done, so that the line is drawn here. While the line is
    // hidden, the window behind it is drawn in its place.
    QWidget *const drawn = isVisible() ? static_cast<QWidget *>(this) : parentWidget();
    if (drawn && window()->isVisible())
        drawn->repaint(drawn == this ? rect() : geometry());
}

void MessageLine::remember(const QString &failure)
{
    m_history.prepend(QTime::currentTime().toString(QStringLiteral("HH:mm:ss  ")) + failure);
    while (m_history.size() > longestHistory)
        m_history.removeLast();
}

void MessageLine::forget()
{
    m_failure.clear();
    display();
}

void MessageLine::display()
{
    const QString said = !m_waiting.isEmpty()   ? m_waiting
                         : !m_failure.isEmpty() ? m_failure
                         : m_isLocked           ? tr("The configuration is locked")
                                                : QString();
    setText(said);
    setAccessibleName(said);
    setToolTip(PlainText::toolTip(m_history.join(QLatin1Char('\n'))));
    setVisible(!said.isEmpty());
}

int MessageLine::iconSide() const
{
    return style()->pixelMetric(QStyle::PM_SmallIconSize, nullptr, this);
}

QPixmap MessageLine::icon() const
{
    if (!m_waiting.isEmpty())
        return {};
    const QStyle::StandardPixmap kind =
            m_failure.isEmpty() ? QStyle::SP_MessageBoxInformation : QStyle::SP_MessageBoxWarning;
    return style()->standardIcon(kind, nullptr, this).pixmap(iconSide());
}

void MessageLine::paintEvent(QPaintEvent *)
{
    QPainter painter(this);
    QRect room = rect();
    const QPixmap picture = icon();
    if (!picture.isNull()) {
        const QRect place(room.topLeft(), QSize(iconSide(), room.height()));
        style()->drawItemPixmap(&painter, QStyle::visualRect(layoutDirection(), room, place),
                                Qt::AlignCenter, picture);
        room.setLeft(place.right() + gap);
        room = QStyle::visualRect(layoutDirection(), rect(), room);
    }
    const QString shown = fontMetrics().elidedText(text(), Qt::ElideRight, room.width());
    style()->drawItemText(&painter, room, int(Qt::AlignVCenter | Qt::AlignLeft), palette(),
                          isEnabled(), shown, foregroundRole());
}

bool MessageLine::eventFilter(QObject *watched, QEvent *event)
{
    if (event->type() == QEvent::Hide && !event->spontaneous() && watched == window()) {
        m_waiting.clear();
        forget();
    }
    return QLabel::eventFilter(watched, event);
}
