#include "StallMeter.h"

#include "SimulatedIOManager.h"
#include "WorkbenchTime.h"

#include <QThread>

namespace {

constexpr int beatMs = 20;

} // namespace

StallMeter::StallMeter(SimulatedIOManager *io, QObject *parent) : QObject(parent)
{
    connect(io, &SimulatedIOManager::recorded, this, &StallMeter::count);
    connect(&m_heartbeat, &QTimer::timeout, this, &StallMeter::beat);
    m_heartbeat.setTimerType(Qt::PreciseTimer);
}

void StallMeter::start()
{
    m_sinceBeat.start();
    m_ownNs = WorkbenchTime::spentNs();
    m_heartbeat.start(beatMs);
}

void StallMeter::setLatencyMs(int latencyMs)
{
    const int bounded = qBound(0, latencyMs, longestLatencyMs);
    if (bounded == m_latencyMs)
        return;
    m_latencyMs = bounded;
    emit latencyChanged(bounded);
}

void StallMeter::count(const TranscriptEntry &entry)
{
    if (entry.operation == TranscriptEntry::Operation::Message)
        return;
    // The caller waits for its answer on this thread, as it does with a slow controller.
    if (m_latencyMs > 0)
        QThread::msleep(ulong(m_latencyMs));
    if (m_current.operations == 0) {
        m_current.firstCommand = QString::fromUtf8(entry.line);
        m_current.dialog = entry.dialog;
    }
    ++m_current.operations;
}

void StallMeter::beat()
{
    const qint64 ownNs = WorkbenchTime::spentNs();
    const qint64 ownMs = (ownNs - m_ownNs) / 1000000;
    m_ownNs = ownNs;
    m_current.heldMs = qMax<qint64>(0, m_sinceBeat.restart() - beatMs - ownMs);
    // Without an operation there is no sign that a dialog was working.
    if (m_current.operations > 0 && m_current.heldMs > m_worst.value(m_current.dialog).heldMs) {
        m_worst[m_current.dialog] = m_current;
        emit worstChanged();
    }
    m_current = Stall();
}
