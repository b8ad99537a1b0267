#include "bodies/bodyrecords.h"

void BodyRecords::registerBodyType(const QString &type)
{
    const ControllerLink host = link();
    AdminBodyType fresh;
    reader().readType(fresh, type);
    if (host.isClosed())
        return;
    // The type's table of targets may have been registered before the type.
    fresh.tableWidget_tl = bodytypes.type(type).tableWidget_tl;
    bodytypes.insert(type, fresh);
}

QStringList BodyRecords::readMissingOfTypes()
{
    QStringList found;
    const ControllerLink host = link();
    const QStringList types = bodytypes.names();
    for (const QString &type : types) {
        AdminBodyType read = bodytypes.type(type);
        const bool isMoreKnown = reader().readMissing(read, type);
        if (host.isClosed())
            return {};
        AdminBodyType *record = isMoreKnown ? bodytypes.find(type) : nullptr;
        if (!record)
            continue;
        record->typedesc = read.typedesc;
        record->isDescriptionMissing = read.isDescriptionMissing;
        record->filter6dAvailable = read.filter6dAvailable;
        record->isFilterMissing = read.isFilterMissing;
        found.append(type);
    }
    return found;
}

void BodyRecords::updateBodyInfo(const QString &type, int index)
{
    if (AdminBodyType *record = bodytypes.find(type))
        reader().readBody(*record, type, index);
}

void BodyRecords::updateBodyFilter6dPreset(const QString &type, int index)
{
    if (AdminBodyType *record = bodytypes.find(type))
        reader().readFilterSummary(*record, type, index);
}
