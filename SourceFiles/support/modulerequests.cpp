#include "support/modulerequests.h"

#include "bodynumber.h"

void ModuleRequests::calibrateBody(const QString &type, int index) const
{
    m_link.post("BodyCalModule",
                QStringLiteral("OpenBodyCalDialog %1 b%2").arg(type, bodyNumber(index)));
}

void ModuleRequests::calibrateHybrid(const QString &type, int index, const QString &status) const
{
    m_link.post("HybridBodyCalibration", QStringLiteral("OpenHybridBodyCalibration %1|%2|%3")
                                                 .arg(type, QString::number(index + 1), status));
}

void ModuleRequests::adjustBody(const QString &type, int index, bool calibrated) const
{
    m_link.post("BodyAdjustmentModule", QStringLiteral("OpenBodyAdjustmentDialog %1|%2|%3")
                                                .arg(type, QString::number(index + 1),
                                                     calibrated ? QStringLiteral("calibrated")
                                                                : QStringLiteral("uncalibrated")));
}
