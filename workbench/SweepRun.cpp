#include "SweepRun.h"

#include "FaultEngine.h"
#include "LineChecks.h"
#include "MainWindow.h"
#include "MessageLogDock.h"
#include "ScriptBox.h"
#include "UserInput.h"
#include "WidgetFinder.h"
#include "WorkbenchSession.h"

#include <QAbstractButton>
#include <QMessageBox>
#include <QPushButton>
#include <QTabWidget>
#include <QTimer>

namespace {

constexpr int mostBoxesOfAStep = 8;
constexpr int mostWindows = 12;

/** True for lines that only check or record an undisturbed run. */
bool isStatement(const Script::Line &line)
{
    static const QStringList words = {QStringLiteral("expect"), QStringLiteral("oracle"),
                                      QStringLiteral("sound"), QStringLiteral("mark"),
                                      QStringLiteral("screenshot")};
    return words.contains(line.words.first());
}

/** True for lines that enter something into the window in front. */
bool isInput(const Script::Line &line)
{
    static const QStringList words = {
            QStringLiteral("cell"),  QStringLiteral("check"),       QStringLiteral("choose"),
            QStringLiteral("click"), QStringLiteral("doubleclick"), QStringLiteral("key"),
            QStringLiteral("page"),  QStringLiteral("select"),      QStringLiteral("spin"),
            QStringLiteral("text"),  QStringLiteral("type")};
    return words.contains(line.words.first());
}

/** Class of the window in front; empty when no dialog is open. */
QString windowInFront()
{
    const QWidget *modal = WidgetFinder::modalWindow();
    return modal ? QString::fromLatin1(modal->metaObject()->className()) : QString();
}

/** The button that ends a running search; null when it is not shown or disabled. */
QAbstractButton *stopButton(const QWidget *window)
{
    const QList<QAbstractButton *> buttons =
            window ? window->findChildren<QAbstractButton *>(QStringLiteral("pushButton_stop"))
                   : QList<QAbstractButton *>();
    for (QAbstractButton *button : buttons) {
        if (button->isVisible() && button->isEnabled())
            return button;
    }
    return nullptr;
}

const QTabWidget *pagesOf(const QWidget *window)
{
    return window ? window->findChild<const QTabWidget *>() : nullptr;
}

} // namespace

SweepRun::SweepRun(const Script &script, const ScriptContext &context, bool isDisturbed,
                   qint64 firstOperation)
    : LineRunner(context),
      m_script(script),
      m_isDisturbed(isDisturbed),
      m_wasChangeable(context.session->state().configChangeable),
      m_stepStart(firstOperation)
{
    m_steps.append(SweepStep());
    m_inspection = {{QStringLiteral("menu"), QStringLiteral("Body administration")},
                    {QStringLiteral("click"), QStringLiteral("pushButton_exit")},
                    {QStringLiteral("menu"), QStringLiteral("Single markers")},
                    {QStringLiteral("expect"), QStringLiteral("no-difference")},
                    {QStringLiteral("click"), QStringLiteral("pushButton_cancel")},
                    {QStringLiteral("expect"), QStringLiteral("no-window")}};
}

int SweepRun::operationCount() const
{
    int count = 0;
    for (const SweepStep &step : m_steps)
        count += step.operations.size();
    return count;
}

void SweepRun::beginStep(const Script::Line &line)
{
    SweepStep step;
    step.line = line;
    step.window = windowInFront();
    m_steps.append(step);
}

bool SweepRun::isLeftOut(const Script::Line &line) const
{
    if (!m_isDisturbed)
        return false;
    if (isStatement(line))
        return true;
    for (const SweepStep &step : m_undisturbed) {
        if (step.line.number == line.number)
            return isInput(line) && step.window != windowInFront();
    }
    return false;
}

void SweepRun::endStep()
{
    const SimulatedIOManager *io = context().session->io();
    const QVector<TranscriptEntry> &all = io->transcript();
    SweepStep &step = m_steps.last();
    for (int i = int(all.size() - (io->operationCount() - m_stepStart)); i < all.size(); ++i) {
        if (all.at(i).operation != TranscriptEntry::Operation::Message)
            step.operations.append(all.at(i));
    }
    m_stepStart = io->operationCount();
    const QStringList log = context().window->messageLog()->lines();
    step.log += log.mid(m_logStart);
    m_logStart = log.size();
}

QString SweepRun::checkOutcome()
{
    if (m_phase == Phase::Script)
        endStep();
    if (!m_isDisturbed && m_phase == Phase::Script)
        return LineChecks::afterLine(context());
    return QString();
}

bool SweepRun::dismissBox(QMessageBox *box)
{
    SweepStep &step = m_steps.last();
    if (++step.boxes > mostBoxesOfAStep) {
        m_violations << QStringLiteral("expected an end of the boxes, found %1")
                                .arg(WidgetFinder::describe(box));
        box->hide();
        return true;
    }
    QAbstractButton *button = box->escapeButton() ? box->escapeButton() : box->defaultButton();
    if (!button && !box->buttons().isEmpty())
        button = box->buttons().first();
    if (button)
        UserInput::click(button);
    else
        box->reject();
    return true;
}

bool SweepRun::closeWindows()
{
    QWidget *modal = WidgetFinder::modalWindow();
    if (!modal)
        return false;
    if (++m_closed > mostWindows) {
        m_violations << QStringLiteral("expected the windows to close, found %1")
                                .arg(WidgetFinder::describe(modal));
        modal->hide();
    } else if (auto *box = qobject_cast<QMessageBox *>(modal)) {
        dismissBox(box);
    } else {
        UserInput::pressKey(modal, Qt::Key_Escape);
        // The key may have ended an edit, or closed the list of a combo box, and not the dialog.
        if (modal == WidgetFinder::modalWindow())
            modal->close();
        QAbstractButton *stop = stopButton(modal);
        // Stopping opens a box, which can be answered only from the event loop.
        if (stop && modal == WidgetFinder::modalWindow())
            QTimer::singleShot(0, stop, [stop] { UserInput::click(stop); });
    }
    return true;
}

bool SweepRun::clearTheWay()
{
    if (m_phase == Phase::Script && m_isDisturbed) {
        auto *box = qobject_cast<QMessageBox *>(WidgetFinder::modalWindow());
        if (!box)
            return false;
        const bool isAnswered = m_next < m_script.lines.size()
                                && ScriptBox::matches(box, m_script.lines.at(m_next).words);
        return !isAnswered && dismissBox(box);
    }
    if (m_phase != Phase::Closing)
        return false;
    if (closeWindows())
        return true;
    endDisturbance();
    m_phase = Phase::Inspection;
    return false;
}

void SweepRun::endDisturbance()
{
    WorkbenchSession *session = context().session;
    session->io()->faults()->clear();
    session->io()->faults()->setLinkDead(false);
    if (session->state().configChangeable != m_wasChangeable) {
        session->edit([this](ControllerState &state) { state.configChangeable = m_wasChangeable; });
    }
}

void SweepRun::stopSearchFirst()
{
    const bool isLeft = m_inspection.first() == QStringList{"menu", "Single markers"};
    if (!isLeft || !stopButton(WidgetFinder::modalWindow()))
        return;
    m_inspection = QVector<QStringList>{{"click", "pushButton_stop"},
                                        {"answer", "MORVEK3", ".*", "OK"},
                                        {"click", "pushButton_exit"}}
                   + m_inspection;
}

bool SweepRun::takeInspection(Script::Line *line)
{
    if (m_inspection.isEmpty())
        return false;
    stopSearchFirst();
    const QTabWidget *pages = pagesOf(WidgetFinder::modalWindow());
    if (pages && !m_knowsPages) {
        m_knowsPages = true;
        QVector<QStringList> visits{{QStringLiteral("expect"), QStringLiteral("no-difference")}};
        for (int i = pages->count() - 1; i >= 0; --i) {
            visits << QStringList{QStringLiteral("page"), pages->objectName(), pages->tabText(i)};
            visits << visits.first();
        }
        m_inspection = visits + m_inspection;
    }
    line->words = m_inspection.takeFirst();
    line->number = 0;
    return true;
}

bool SweepRun::takeLine(Script::Line *line)
{
    if (m_phase == Phase::Inspection)
        return takeInspection(line);
    while (m_next < m_script.lines.size() && isLeftOut(m_script.lines.at(m_next)))
        ++m_next;
    if (m_next < m_script.lines.size()) {
        *line = m_script.lines.at(m_next++);
        beginStep(*line);
        return true;
    }
    // A line without an effect, so that open windows are closed before the next line.
    m_phase = Phase::Closing;
    line->words = QStringList{QStringLiteral("mark")};
    return true;
}

QString SweepRun::judge(const Script::Line &line, const QString &problem)
{
    const bool isComparison = line.words.last() == QLatin1String("no-difference");
    if (m_phase != Phase::Script && isComparison && m_allowsDifferences)
        return QString();
    if (m_phase != Phase::Script) {
        m_violations << QStringLiteral("after the disturbance, %1: %2")
                                .arg(Script::joined(line.words), problem);
    } else if (!m_isDisturbed) {
        return QStringLiteral("%1: %2").arg(placeOf(line), problem);
    }
    return QString();
}

QString SweepRun::placeOf(const Script::Line &line) const
{
    return QStringLiteral("%1:%2").arg(m_script.name).arg(line.number);
}
