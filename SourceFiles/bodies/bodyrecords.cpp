#include "bodies/bodyrecords.h"

void BodyRecords::registerBodyType(const QString &type)
{
    AdminBodyType fresh;
    m_reader.readType(fresh, type);
    bodytypes.insert(type, fresh);
}

void BodyRecords::updateBodyInfo(const QString &type, int index)
{
    if (AdminBodyType *record = bodytypes.find(type))
        m_reader.readBody(*record, type, index);
}

void BodyRecords::updateBodyFilter6dPreset(const QString &type, int index)
{
    if (AdminBodyType *record = bodytypes.find(type))
        m_reader.readFilterSummary(*record, type, index);
}
