#include "WorkbenchTime.h"

#include <QElapsedTimer>

namespace {

qint64 nowNs()
{
    static const QElapsedTimer clock = [] {
        QElapsedTimer started;
        started.start();
        return started;
    }();
    return clock.nsecsElapsed();
}

int depth = 0;
qint64 totalNs = 0;

} // namespace

WorkbenchTime::WorkbenchTime() : m_startNs(depth++ == 0 ? nowNs() : 0) {}

WorkbenchTime::~WorkbenchTime()
{
    if (--depth == 0)
        totalNs += nowNs() - m_startNs;
}

qint64 WorkbenchTime::spentNs()
{
    return totalNs;
}
