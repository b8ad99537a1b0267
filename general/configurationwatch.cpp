#include "configurationwatch.h"

#include <QPointer>
#include <QVector>

namespace {

/** Every watch of the process. Watches of different hosts differ in their IOManager. */
QVector<QPointer<ConfigurationWatch>> &watches()
{
    static QVector<QPointer<ConfigurationWatch>> all;
    return all;
}

} // namespace

ConfigurationWatch::ConfigurationWatch(IOManager *iom, QObject *parent)
    : QObject(parent), m_iom(iom)
{
    watches().append(this);
}

ConfigurationWatch::~ConfigurationWatch()
{
    watches().removeAll(this);
}

void ConfigurationWatch::announce(IOManager *iom)
{
    // A copy, because the slots that react may open or close dialogs.
    const auto all = watches();
    for (const QPointer<ConfigurationWatch> &watch : all) {
        if (!watch || watch->m_iom != iom)
            continue;
        watch->m_changed = true;
        emit watch->changed();
    }
}
