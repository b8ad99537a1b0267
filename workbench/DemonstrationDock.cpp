#include "DemonstrationDock.h"

#include "ScriptRunner.h"
#include "TimerHold.h"
#include "WidgetFinder.h"
#include "WorkbenchSession.h"

#include <QLabel>
#include <QPushButton>
#include <QVBoxLayout>

DemonstrationDock::DemonstrationDock(const Script &script, const ScriptContext &context,
                                     QWidget *parent)
    : QDockWidget(tr("Demonstration"), parent),
      m_script(script),
      m_context(context),
      m_play(new QPushButton(tr("&Play and check"))),
      m_outcome(new QLabel)
{
    setObjectName(QStringLiteral("dock_demonstration"));
    m_play->setObjectName(QStringLiteral("pushButton_playDemonstration"));
    m_outcome->setObjectName(QStringLiteral("label_demonstrationOutcome"));
    m_outcome->setWordWrap(true);
    auto *telling = new QLabel(script.telling.join(QStringLiteral("\n\n")));
    telling->setObjectName(QStringLiteral("label_demonstration"));
    telling->setWordWrap(true);
    auto *content = new QWidget;
    auto *layout = new QVBoxLayout(content);
    layout->addWidget(telling);
    layout->addWidget(m_play);
    layout->addWidget(m_outcome);
    layout->addStretch();
    setWidget(content);
    connect(m_play, &QPushButton::clicked, this, &DemonstrationDock::play);
}

DemonstrationDock::~DemonstrationDock() = default;

void DemonstrationDock::play()
{
    if (WidgetFinder::modalWindow()) {
        m_outcome->setText(tr("Close the open dialog first."));
        return;
    }
    m_play->setEnabled(false);
    m_outcome->setText(tr("playing"));
    m_timers = std::make_unique<TimerHold>();
    for (const _GuiElement *element : m_context.session->module()->elements())
        m_timers->watch(element->content);
    m_context.timers = m_timers.get();
    m_runner = std::make_unique<ScriptRunner>(m_script, m_context);
    // The last line may still wait for its dialog, so that the outcome is shown one round later.
    connect(m_runner.get(), &ScriptRunner::finished, this, &DemonstrationDock::showOutcome,
            Qt::QueuedConnection);
    m_runner->start();
}

void DemonstrationDock::showOutcome()
{
    m_timers.reset();
    const QString failure = m_runner->failure();
    m_outcome->setText(failure.isEmpty() ? tr("Played; every check was met.") : failure);
    m_play->setEnabled(m_context.session->module()->isLoaded());
}
