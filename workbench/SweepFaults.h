#pragma once

#include <QString>
#include <QStringList>
#include <QVector>

struct TranscriptEntry;

/** One way in which a sweep disturbs an operation. */
struct SweepFault {
    QString name;
    QString rule; ///< fault rule with %1 for the number of the operation

    /** False when the fault cannot disturb this kind of operation. */
    bool concerns(const TranscriptEntry &entry) const;
};

namespace SweepFaults {

const QVector<SweepFault> &all();
QStringList names();
/** Reads the names of faults, separated by commas; "all" means every fault. False with *problem. */
bool parse(const QString &list, QVector<SweepFault> *faults, QString *problem);

} // namespace SweepFaults
