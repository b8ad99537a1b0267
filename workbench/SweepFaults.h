#pragma once

#include <QString>
#include <QStringList>
#include <QVector>

struct TranscriptEntry;

/** One way in which a sweep disturbs an operation. */
struct SweepFault {
    QString name;
    QString rule; ///< fault rule with %1 for the number of the operation

    /** False when the fault cannot disturb such an operation. */
    bool concerns(const TranscriptEntry &entry) const;
};

namespace SweepFaults {

const QVector<SweepFault> &all();
QStringList names();
/** The named faults, separated by commas; "all" for every one. False with *problem. */
bool parse(const QString &list, QVector<SweepFault> *faults, QString *problem);

} // namespace SweepFaults
