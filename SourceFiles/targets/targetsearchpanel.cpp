#include "targets/targetsearchpanel.h"

#include "targets/targettablefiller.h"

#include <QComboBox>
#include <QCoreApplication>
#include <QLabel>
#include <QPointer>
#include <QProgressBar>
#include <QPushButton>
#include <QTableWidget>
#include <QTimer>

TargetSearchPanel::TargetSearchPanel(const ControllerLink &link, QTimer *pollTimer,
                                     QTimer *trackedTimer)
    : m_run(link), m_pollTimer(pollTimer), m_trackedTimer(trackedTimer)
{
}

void TargetSearchPanel::setWidgets(const TabWidgets &widgets)
{
    m_widgets = widgets;
}

bool TargetSearchPanel::isSearching() const
{
    return !m_widgets.start->isEnabled();
}

bool TargetSearchPanel::isRunning() const
{
    return m_run.isRunning() && m_pollTimer->isActive();
}

void TargetSearchPanel::offerStop()
{
    m_widgets.stop->setEnabled(true);
}

void TargetSearchPanel::showRunning()
{
    m_widgets.start->setEnabled(false);
    m_widgets.stop->setEnabled(true);
}

void TargetSearchPanel::start()
{
    stopTimers();
    QStringList inUse;
    const QTableWidget *table = m_widgets.targetTable;
    for (int row = 0; row < table->rowCount(); ++row) {
        if (TargetTableFiller::isUsed(table, row))
            inUse.append(TargetTableFiller::shortName(table, row));
    }
    const QPointer<QTimer> guard(m_pollTimer);
    const bool started = m_run.start(inUse);
    if (!guard)
        return;
    if (started) {
        m_widgets.progressBar->setValue(0);
        m_pollTimer->start(pollIntervalMs);
    } else {
        // The stop button and the controls do not change here. Another start, a stop or a refresh
        // of the tab sets them.
        m_widgets.start->setEnabled(true);
        m_trackedTimer->start(trackedIntervalMs);
    }
}

TargetSearchRun::Step TargetSearchPanel::poll()
{
    const QPointer<QTimer> guard(m_pollTimer);
    const TargetSearchRun::Poll result = m_run.poll();
    if (!guard)
        return result.step;
    if (result.percent)
        m_widgets.progressBar->setValue(*result.percent);
    if (result.step == TargetSearchRun::Step::Searching)
        return result.step;
    m_pollTimer->stop();
    if (result.step == TargetSearchRun::Step::Ended) {
        m_widgets.progressBar->setValue(m_widgets.progressBar->maximum());
        m_trackedTimer->stop();
        showResult(QString());
    }
    return result.step;
}

void TargetSearchPanel::cancel()
{
    m_pollTimer->stop();
    m_widgets.progressBar->setValue(0);
    const QPointer<QTimer> guard(m_pollTimer);
    m_run.cancel();
    if (guard)
        showResult(QString());
}

void TargetSearchPanel::showIdle()
{
    m_widgets.start->setEnabled(true);
    m_widgets.stop->setEnabled(false);
    applySelectRule();
    applyDeselectRule();
    setControlsEnabled(true);
}

void TargetSearchPanel::startTracking()
{
    m_trackedTimer->start(trackedIntervalMs);
}

int TargetSearchPanel::countTracked(const Targetlibrary &library) const
{
    return m_run.countTracked(library, m_widgets.type);
}

void TargetSearchPanel::showCounts(int found, int alreadyUsed)
{
    const int progress = m_widgets.progressBar->value();
    if (progress <= 0 || progress >= m_widgets.progressBar->maximum())
        return;
    showResult(QCoreApplication::translate("BodyTypeAdministrationTab",
                                           "found targets: %1, already calibrated: %2")
                       .arg(found)
                       .arg(alreadyUsed));
}

void TargetSearchPanel::showResult(const QString &text)
{
    // Clearing a label lays out the whole dialog, even when the label is already empty.
    if (m_widgets.resultLabel->text() != text)
        m_widgets.resultLabel->setText(text);
}

void TargetSearchPanel::reset()
{
    if (isRunning())
        return;
    m_widgets.start->setEnabled(true);
    m_widgets.progressBar->setValue(0);
    m_widgets.stop->setEnabled(false);
    showResult(QString());
    setControlsEnabled(true);
}

void TargetSearchPanel::stopTimers()
{
    m_trackedTimer->stop();
    m_pollTimer->stop();
}

void TargetSearchPanel::disconnectWidgets(const QObject *listener) const
{
    m_widgets.bodyTable->disconnect(listener);
    m_widgets.targetTable->disconnect(listener);
    if (m_widgets.category)
        m_widgets.category->disconnect(listener);
}

void TargetSearchPanel::setControlsEnabled(bool enabled)
{
    m_controlsEnabled = enabled;
    applyControls();
}

void TargetSearchPanel::setConfigLocked(bool locked)
{
    m_locked = locked;
    applyControls();
    applySelectRule();
    applyDeselectRule();
}

void TargetSearchPanel::setUsable(QWidget *control, bool usable)
{
    if (usable == !m_unusable.contains(control))
        return;
    if (usable)
        m_unusable.remove(control);
    else
        m_unusable.insert(control);
    applyControls();
}

void TargetSearchPanel::applyControls()
{
    for (QWidget *control : qAsConst(m_widgets.searchControls))
        control->setEnabled(m_controlsEnabled);
    for (QWidget *control : qAsConst(m_widgets.editControls)) {
        const bool searchControl = m_widgets.searchControls.contains(control);
        control->setEnabled(!m_locked && (m_controlsEnabled || !searchControl)
                            && !m_unusable.contains(control));
    }
}

void TargetSearchPanel::applyPageRules(bool filterPossible)
{
    if (m_widgets.filter)
        m_widgets.filter->setEnabled(filterPossible && m_controlsEnabled
                                     && !m_unusable.contains(m_widgets.filter));
    if (m_widgets.calibration) {
        m_widgets.calibration->setEnabled(!m_locked && m_controlsEnabled
                                          && m_widgets.bodyTable->currentRow() >= 0);
    }
}

void TargetSearchPanel::applySelectRule()
{
    m_widgets.select->setEnabled(!m_locked && m_widgets.bodyTable->currentRow() >= 0
                                 && m_widgets.targetTable->currentRow() >= 0 && !isSearching());
}

void TargetSearchPanel::applyStartRule()
{
    m_widgets.select->setEnabled(!m_locked && m_widgets.targetTable->currentIndex().isValid()
                                 && !isSearching());
}

void TargetSearchPanel::applyDeselectRule()
{
    const QTableWidget *table = m_widgets.bodyTable;
    const QTableWidgetItem *item = table->item(table->currentRow(), deselectColumn);
    m_widgets.deselect->setEnabled(!m_locked && item && !item->text().isEmpty() && !isSearching());
}
