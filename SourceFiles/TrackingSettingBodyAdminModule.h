#pragma once

#include "BackendVersions.h"
#include "HostIdentity.h"
#include "IOManager.h"
#include "ModuleInterface.h"

#include <QList>
#include <QObject>
#include <QString>
#include <QVariant>
#include <QWidget>

/**
 * The plug-in's root object, through which the host uses this module.
 *
 * Qt's plug-in loader creates one instance in each process. The host calls it in the order that
 * ModuleInterface describes, and destroys it by unloading the plug-in. The object owns the two
 * dialogs (until exit_module()) and their menu actions (as its QObject children).
 */
class TrackingSettingBodyAdminModule : public QObject, public ModuleInterface {
    Q_OBJECT
    Q_PLUGIN_METADATA(IID HOST_VENDOR_PREFIX ".Morvek2.TrackingSettingsModule")
    Q_INTERFACES(ModuleInterface)

public:
    TrackingSettingBodyAdminModule();
    ~TrackingSettingBodyAdminModule() override;

    /**
     * Withdraws the body administration from the host's channels; does nothing before the dialogs
     * exist.
     */
    void about_to_exit_module() override;
    /** Deletes both dialogs and forgets the menu entries. The actions remain until destruction. */
    void exit_module() override;
    /** Translated name of the module. */
    QString get_module_name() const override;
    /** "v" and the three version numbers, without padding. */
    QString get_module_version() const override;
    /**
     * The two menu entries. The first call creates the dialogs with the host objects stored so far;
     * every later call returns the same entries.
     */
    QList<_GuiElement *> get_gui_elements() override;
    /**
     * Stores a host object: "CommandManager", "ModuleParent", "BackendVersions" or "ObserverMode",
     * case-sensitive. Another key is ignored; a value of another type is stored as null or false.
     */
    void set_param(QString key, QVariant value) override;

private:
    void createTrackingEntry();
    void createBodyAdminEntry();

    QWidget *mod_parent = nullptr;
    QList<_GuiElement *> gui_elements;
    _GuiElement gui_tracking;
    _GuiElement gui_body_admin;
    IOManager *iom = nullptr;
    BackendVersions *beVers = nullptr;
    bool bObserverMode = false; // set by the host; nothing in the module depends on it
};
