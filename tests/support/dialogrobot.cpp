#include "dialogrobot.h"

#include <QAbstractButton>
#include <QApplication>
#include <QDialog>
#include <QPushButton>
#include <QtTest>

namespace {

void fail(const QString &message)
{
    QTest::qFail(qPrintable(message), __FILE__, __LINE__);
}

QString textOf(const QMessageBox *box)
{
    return box->informativeText().isEmpty()
                   ? box->text()
                   : box->text() + QLatin1Char('\n') + box->informativeText();
}

/** True when Enter declines the question, because Enter may be meant for a field. */
bool declinesByDefault(const QMessageBox *box)
{
    const QMessageBox::StandardButton preset = box->standardButton(box->defaultButton());
    return preset == QMessageBox::No || preset == QMessageBox::Cancel;
}

} // namespace

QString DialogRobot::Expectation::described() const
{
    return isBox ? QStringLiteral("box \"%1\" \"%2\"").arg(name, text)
                 : QStringLiteral("dialog %1").arg(name);
}

DialogRobot::DialogRobot(QObject *parent) : QObject(parent)
{
    // This only ends a test that hangs; no test waits for it.
    constexpr int patienceMs = 60000;
    m_watchdog.setInterval(patienceMs);
    m_watchdog.setSingleShot(true);
    connect(&m_watchdog, &QTimer::timeout, this, &DialogRobot::giveUp);
    qApp->installEventFilter(this);
}

DialogRobot::~DialogRobot() = default;

void DialogRobot::expectBox(const QString &title, const QString &text,
                            QMessageBox::StandardButton answer)
{
    expectBox(title, text, answer, {});
}

void DialogRobot::expectBox(const QString &title, const QString &text,
                            QMessageBox::StandardButton answer, std::function<void()> meanwhile)
{
    Expectation expectation;
    expectation.isBox = true;
    expectation.name = title;
    expectation.text = text;
    expectation.answer = answer;
    expectation.meanwhile = std::move(meanwhile);
    m_expected.enqueue(expectation);
}

void DialogRobot::expectDialog(const QString &name, std::function<void(QWidget *)> drive)
{
    Expectation expectation;
    expectation.name = name;
    expectation.drive = std::move(drive);
    m_expected.enqueue(expectation);
}

void DialogRobot::verify()
{
    while (!m_expected.isEmpty())
        fail(QStringLiteral("never came: ") + m_expected.dequeue().described());
}

bool DialogRobot::eventFilter(QObject *watched, QEvent *event)
{
    if (event->type() == QEvent::Show) {
        auto *dialog = qobject_cast<QDialog *>(watched);
        if (dialog && dialog->isModal()) {
            m_watchdog.start();
            // Queued, so that the event loop of exec() delivers the call after it has shown the
            // window.
            const QPointer<QDialog> window(dialog);
            QMetaObject::invokeMethod(
                    this,
                    [this, window] {
                        if (window && window->isVisible())
                            serve(window);
                    },
                    Qt::QueuedConnection);
        }
    }
    return QObject::eventFilter(watched, event);
}

void DialogRobot::serve(QDialog *window)
{
    if (auto *box = qobject_cast<QMessageBox *>(window))
        serveBox(box);
    else
        serveDialog(window);
    m_watchdog.stop();
}

void DialogRobot::serveBox(QMessageBox *box)
{
    const QString text = textOf(box);
    m_boxes.append(box->windowTitle() + QLatin1Char('|') + text);
    const bool expected = !m_expected.isEmpty() && m_expected.head().isBox
                          && m_expected.head().name == box->windowTitle()
                          && m_expected.head().text == text;
    if (box->buttons().size() > 1 && !declinesByDefault(box))
        fail(QStringLiteral("the default button of \"%1\" does not decline").arg(text));
    QAbstractButton *button = nullptr;
    const QPointer<QMessageBox> guard(box);
    if (expected) {
        const Expectation expectation = m_expected.dequeue();
        if (expectation.meanwhile)
            expectation.meanwhile();
        if (!guard)
            return;
        button = box->button(expectation.answer);
        if (!button)
            fail(QStringLiteral("no such button: ") + expectation.described());
    } else {
        const QString wanted =
                m_expected.isEmpty() ? QStringLiteral("nothing") : m_expected.head().described();
        fail(QStringLiteral("box \"%1\" \"%2\" came, expected %3")
                     .arg(box->windowTitle(), text, wanted));
    }
    if (button)
        QTest::mouseClick(button, Qt::LeftButton);
    else
        box->reject();
}

void DialogRobot::serveDialog(QDialog *dialog)
{
    const QString className = QString::fromLatin1(dialog->metaObject()->className());
    const bool expected = !m_expected.isEmpty() && !m_expected.head().isBox
                          && (m_expected.head().name == className
                              || m_expected.head().name == dialog->objectName());
    const QPointer<QDialog> guard(dialog);
    if (expected) {
        const Expectation expectation = m_expected.dequeue();
        expectation.drive(dialog);
    } else {
        const QString wanted =
                m_expected.isEmpty() ? QStringLiteral("nothing") : m_expected.head().described();
        fail(QStringLiteral("dialog %1 came, expected %2").arg(className, wanted));
    }
    if (!guard || !guard->isVisible())
        return;
    QTest::keyClick(guard, Qt::Key_Escape);
    if (guard && guard->isVisible()) {
        fail(QStringLiteral("dialog %1 does not close").arg(className));
        guard->setVisible(false);
    }
}

void DialogRobot::giveUp()
{
    fail(QStringLiteral("nothing happens in front of a modal window"));
    while (QWidget *window = QApplication::activeModalWidget())
        window->setVisible(false);
}
