#include "SnapshotDock.h"

#include "WorkbenchSession.h"
#include "WorkbenchTime.h"

#include <QFileDialog>
#include <QGridLayout>
#include <QLabel>
#include <QPlainTextEdit>
#include <QPushButton>
#include <QVBoxLayout>

SnapshotDock::SnapshotDock(WorkbenchSession *session, QWidget *parent)
    : QDockWidget(tr("Snapshots"), parent),
      m_session(session),
      m_status(new QLabel),
      m_differences(new QPlainTextEdit)
{
    setObjectName(QStringLiteral("dock_snapshots"));
    m_status->setObjectName(QStringLiteral("label_snapshotStatus"));
    m_status->setWordWrap(true);
    m_differences->setObjectName(QStringLiteral("plainTextEdit_differences"));
    m_differences->setReadOnly(true);
    m_differences->setPlaceholderText(tr("What changed since the snapshot"));

    auto *buttons = new QGridLayout;
    buttons->addWidget(
            addButton(tr("&Take"), QStringLiteral("pushButton_snapshotTake"), &SnapshotDock::take),
            0, 0);
    buttons->addWidget(addButton(tr("Co&mpare"), QStringLiteral("pushButton_snapshotCompare"),
                                 &SnapshotDock::compare),
                       0, 1);
    m_back = addButton(tr("Step &back"), QStringLiteral("pushButton_snapshotBack"),
                       &SnapshotDock::stepBack);
    m_forward = addButton(tr("Step &forward"), QStringLiteral("pushButton_snapshotForward"),
                          &SnapshotDock::stepForward);
    buttons->addWidget(m_back, 1, 0);
    buttons->addWidget(m_forward, 1, 1);
    buttons->addWidget(addButton(tr("&Save..."), QStringLiteral("pushButton_snapshotSave"),
                                 &SnapshotDock::chooseSaveFile),
                       2, 0);
    buttons->addWidget(addButton(tr("&Load..."), QStringLiteral("pushButton_snapshotLoad"),
                                 &SnapshotDock::chooseLoadFile),
                       2, 1);
    auto *content = new QWidget;
    auto *layout = new QVBoxLayout(content);
    layout->addLayout(buttons);
    layout->addWidget(m_status);
    layout->addWidget(m_differences);
    setWidget(content);
    m_history.take(m_session->state());
    showHistory();
}

QPushButton *SnapshotDock::addButton(const QString &text, const QString &name,
                                     void (SnapshotDock::*slot)())
{
    auto *button = new QPushButton(text);
    button->setObjectName(name);
    connect(button, &QPushButton::clicked, this, slot);
    return button;
}

void SnapshotDock::showHistory()
{
    m_back->setEnabled(m_history.canStepBack());
    m_forward->setEnabled(m_history.canStepForward());
    m_status->setText(tr("Snapshot %1 of %2").arg(m_history.current() + 1).arg(m_history.size()));
}

void SnapshotDock::take()
{
    const WorkbenchTime own;
    const bool isNew = m_history.take(m_session->state());
    showHistory();
    if (!isNew)
        m_status->setText(tr("Nothing changed since snapshot %1.").arg(m_history.current() + 1));
}

void SnapshotDock::compare()
{
    const WorkbenchTime own;
    const QStringList changes = m_history.changesSince(m_session->state());
    m_differences->setPlainText(changes.isEmpty() ? tr("nothing")
                                                  : changes.join(QLatin1Char('\n')));
}

void SnapshotDock::stepBack()
{
    // Without a snapshot of the present state it would be lost for stepping forward again.
    m_history.take(m_session->state());
    if (m_history.canStepBack())
        m_session->controller()->setState(m_history.stepBack());
    showHistory();
}

void SnapshotDock::stepForward()
{
    if (m_history.canStepForward())
        m_session->controller()->setState(m_history.stepForward());
    showHistory();
}

bool SnapshotDock::saveTo(const QString &file)
{
    Scenario scenario;
    scenario.name = m_session->scenarioName();
    scenario.state = m_session->state();
    QString error;
    const bool saved = ScenarioFile::save(file, scenario, &error);
    m_status->setText(saved ? tr("Saved to %1").arg(file) : error);
    return saved;
}

bool SnapshotDock::loadFrom(const QString &file)
{
    Scenario scenario;
    QString error;
    const bool loaded = ScenarioFile::load(file, &scenario, &error);
    if (loaded) {
        m_history.take(m_session->state());
        m_session->controller()->setState(scenario.state);
        m_history.take(scenario.state);
        showHistory();
    }
    m_status->setText(loaded ? tr("Loaded from %1").arg(file) : error);
    return loaded;
}

void SnapshotDock::chooseSaveFile()
{
    const QString file = QFileDialog::getSaveFileName(this, tr("Save controller"), QString(),
                                                      tr("Controllers (*.json)"));
    if (!file.isEmpty())
        saveTo(file);
}

void SnapshotDock::chooseLoadFile()
{
    const QString file = QFileDialog::getOpenFileName(this, tr("Load controller"), QString(),
                                                      tr("Controllers (*.json)"));
    if (!file.isEmpty())
        loadFrom(file);
}
