#include "bodies/bodyrecords.h"

#include <algorithm>

void BodyRecords::registerBodyType(const QString &type)
{
    const ControllerLink host = link();
    AdminBodyType fresh;
    reader().readType(fresh, type);
    if (host.isClosed())
        return;
    // Its table of targets may have been registered before.
    fresh.tableWidget_tl = bodytypes.type(type).tableWidget_tl;
    bodytypes.insert(type, fresh);
}

QStringList BodyRecords::readMissingOfTypes()
{
    QStringList types = bodytypes.names();
    const auto nothingNew = [this](const QString &type) {
        AdminBodyType *record = bodytypes.find(type);
        return !record || !m_reader.readMissing(*record, type);
    };
    types.erase(std::remove_if(types.begin(), types.end(), nothingNew), types.end());
    return types;
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
