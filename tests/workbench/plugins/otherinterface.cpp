#include "HostIdentity.h"

#include <QObject>
#include <QtPlugin>

/** A plug-in whose metadata are the module's, but which has no module interface. */
class TrackingSettingBodyAdminModule : public QObject {
    Q_OBJECT
    Q_PLUGIN_METADATA(IID HOST_VENDOR_PREFIX ".Morvek2.TrackingSettingsModule")
};

#include "otherinterface.moc"
