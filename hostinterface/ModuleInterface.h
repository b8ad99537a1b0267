#pragma once

#include <QList>
#include <QString>
#include <QVariant>
#include <QtPlugin>

class QAction;
class QWidget;

/** The host vendor's reverse-domain prefix; the build sets it for every program of one vendor. */
#ifndef HOST_VENDOR_PREFIX
#define HOST_VENDOR_PREFIX "org.example"
#endif

#define MODULE_INTERFACE_IID HOST_VENDOR_PREFIX ".morvek2.gui.Module/0.2.0"

/** One menu entry that a module offers to the host. Owned by the module. */
struct _GuiElement {
    QAction *menu_entry = nullptr;   ///< action to insert into the menu; its parent is the module
    int menu_entry_order_number = 0; ///< order of the entry inside its menu
    QString menu_name;               ///< translated title of the menu that receives the entry
    int menu_order_number = 0;       ///< order of that menu in the menu bar
    QWidget *content = nullptr;      ///< the dialog that the entry opens; owned by the module
    int action_active_during_measurement = 0; ///< 0: disabled while a measurement runs
};

/**
 * What a frontend module offers to the host.
 *
 * Calling order: name and version at any time; set_param() for "CommandManager" (IOManager *),
 * "ModuleParent" (QWidget *), "BackendVersions" (BackendVersions *) and "ObserverMode" (bool); then
 * get_gui_elements(), which may be called again and returns the same entries; at shutdown
 * about_to_exit_module(), exit_module(), and the instance is destroyed. GUI thread only.
 */
class ModuleInterface {
public:
    virtual ~ModuleInterface();
    /** The host is about to shut down: release everything registered with the host. */
    virtual void about_to_exit_module() = 0;
    /** Destroy what the module created. */
    virtual void exit_module() = 0;
    virtual QString get_module_name() const = 0;    ///< for the host's list of modules
    virtual QString get_module_version() const = 0; ///< "v" and three numbers
    /** Creates the menu entries and their dialogs at the first call; the host must not delete them.
     */
    virtual QList<_GuiElement *> get_gui_elements() = 0;
    /** Stores one parameter; unknown keys and unconvertible values are no error. */
    virtual void set_param(QString key, QVariant value) = 0;
};

inline ModuleInterface::~ModuleInterface() = default;

Q_DECLARE_INTERFACE(ModuleInterface, MODULE_INTERFACE_IID)
