#include "ControllerPanelDock.h"

#include "WorkbenchSession.h"
#include "WorkbenchTime.h"

#include <QCheckBox>
#include <QFormLayout>
#include <QLabel>
#include <QListWidget>
#include <QSignalBlocker>
#include <QVBoxLayout>

ControllerPanelDock::ControllerPanelDock(WorkbenchSession *session, QWidget *parent)
    : QDockWidget(tr("Controller"), parent),
      m_session(session),
      m_versions(new QLabel),
      m_search(new QLabel),
      m_locked(new QCheckBox(tr("configuration &locked"))),
      m_measurement(new QCheckBox(tr("&measurement running"))),
      m_targets(new QListWidget)
{
    setObjectName(QStringLiteral("dock_controller"));
    m_versions->setObjectName(QStringLiteral("label_versions"));
    m_search->setObjectName(QStringLiteral("label_search"));
    m_locked->setObjectName(QStringLiteral("checkBox_locked"));
    m_measurement->setObjectName(QStringLiteral("checkBox_measurement"));
    m_targets->setObjectName(QStringLiteral("listWidget_targets"));

    auto *form = new QFormLayout;
    form->addRow(tr("Controller:"), m_versions);
    form->addRow(tr("Search:"), m_search);
    auto *content = new QWidget;
    auto *layout = new QVBoxLayout(content);
    layout->addLayout(form);
    layout->addWidget(m_locked, 0, Qt::AlignLeft);
    layout->addWidget(m_measurement, 0, Qt::AlignLeft);
    layout->addWidget(new QLabel(tr("Library targets; a check mark puts one in the volume:")));
    layout->addWidget(m_targets);
    setWidget(content);

    connect(m_locked, &QCheckBox::clicked, this, [this](bool locked) {
        m_session->edit([locked](ControllerState &state) { state.configChangeable = !locked; });
    });
    connect(m_measurement, &QCheckBox::clicked, m_session,
            &WorkbenchSession::setMeasurementRunning);
    connect(m_session, &WorkbenchSession::measurementRunningChanged, m_measurement,
            &QCheckBox::setChecked);
    connect(m_targets, &QListWidget::itemChanged, this, &ControllerPanelDock::targetChanged);
    // One refresh serves all changes until the event loop runs, even the many queries of a search.
    m_refreshTimer.setSingleShot(true);
    connect(&m_refreshTimer, &QTimer::timeout, this, &ControllerPanelDock::refresh);
    connect(m_session->controller(), &SimulatedController::stateChanged, this, [this] {
        if (!m_refreshTimer.isActive())
            m_refreshTimer.start(0);
    });
    refresh();
}

void ControllerPanelDock::refresh()
{
    const WorkbenchTime own;
    const ControllerState &state = m_session->state();
    m_versions->setText(
            tr("%1, protocol %2, system %3").arg(state.model, state.protocol, state.systemVersion));
    m_search->setText(state.search.active ? tr("running, step %1 of %2")
                                                    .arg(state.search.elapsedTicks)
                                                    .arg(state.search.durationTicks)
                                          : tr("not running"));
    m_locked->setChecked(!state.configChangeable);
    refreshTargets();
}

QString ControllerPanelDock::targetText(int index) const
{
    const TargetState &target = m_session->state().targets.at(index);
    QString text = QStringLiteral("t%1  %2  %3")
                           .arg(index + 1, 2, 10, QLatin1Char('0'))
                           .arg(target.shortName, target.longName);
    if (!target.bodyType.isEmpty())
        text += QStringLiteral(" (%1)").arg(target.bodyType);
    return target.tracked ? tr("%1, tracked").arg(text) : text;
}

void ControllerPanelDock::refreshTargets()
{
    const QSignalBlocker blocker(m_targets);
    const QVector<TargetState> &targets = m_session->state().targets;
    while (m_targets->count() > targets.size())
        delete m_targets->takeItem(m_targets->count() - 1);
    while (m_targets->count() < targets.size())
        m_targets->addItem(QString());
    for (int i = 0; i < targets.size(); ++i) {
        QListWidgetItem *item = m_targets->item(i);
        const Qt::CheckState check = targets.at(i).inVolume ? Qt::Checked : Qt::Unchecked;
        const QString text = targetText(i);
        // A full library is long, so that only differing items are changed.
        if (item->text() != text)
            item->setText(text);
        if (item->data(Qt::CheckStateRole).isNull() || item->checkState() != check)
            item->setCheckState(check);
    }
    m_targets->viewport()->update();
}

void ControllerPanelDock::targetChanged(QListWidgetItem *item)
{
    const int index = m_targets->row(item);
    const bool inVolume = item->checkState() == Qt::Checked;
    m_session->edit([index, inVolume](ControllerState &state) {
        if (index >= 0 && index < state.targets.size())
            state.targets[index].inVolume = inVolume;
    });
}
