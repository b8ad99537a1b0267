#include <QObject>
#include <QtPlugin>

/** A plug-in for the same host that is another module. */
class TrackingSettingBodyAdminModule : public QObject {
    Q_OBJECT
    Q_PLUGIN_METADATA(IID "org.example.Morvek2.OtherModule")
};

#include "othermodule.moc"
