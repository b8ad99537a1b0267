#pragma once

#include "BackendVersions.h"
#include "ModuleInterface.h"
#include "SimulatedController.h"
#include "SimulatedIOManager.h"

#include <QList>
#include <QPluginLoader>
#include <QTemporaryDir>
#include <QWidget>

#include <functional>
#include <memory>

/**
 * A host that uses only the module's plug-in file and the host interface. The simulated controller
 * is that of the scenario studio, with protocol 1.24.
 */
class PluginHost {
public:
    PluginHost();
    /** Shuts the module down in the order that hosts have to keep. */
    ~PluginHost();

    /** The module of the loaded plug-in; null when there is none or its interface differs. */
    ModuleInterface *module();
    /** Passes all four parameters and returns the menu entries. */
    QList<_GuiElement *> start();
    /** Shuts the module down in order and unloads it; false when the library remains loaded. */
    bool shutDown();
    /**
     * Triggers a menu entry, and when its dialog is shown, stores its title and closes it by key.
     */
    QString openAndClose(_GuiElement *element);
    /**
     * Triggers a menu entry, calls `dialogUser` when its dialog is shown, and closes the dialog by
     * key.
     */
    void use(_GuiElement *element, const std::function<void(QWidget *)> &dialogUser);

    QTemporaryDir home; ///< the value of $HOME, so that no preferences of the user are touched
    QWidget mainWindow;
    std::unique_ptr<SimulatedController> controller;
    std::unique_ptr<SimulatedIOManager> io;
    BackendVersions versions;
    QPluginLoader loader;
};
