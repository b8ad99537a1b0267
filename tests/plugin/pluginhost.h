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
 * A host that knows nothing of the module but its plug-in file and the host interface. The
 * simulated controller is the studio scenario's, with protocol 1.24.
 */
class PluginHost {
public:
    PluginHost();
    /** Shuts the module down in the order a host has to keep. */
    ~PluginHost();

    /** The module of the loaded plug-in; null when there is none or its interface is another. */
    ModuleInterface *module();
    /** Passes all four parameters and asks for the menu entries. */
    QList<_GuiElement *> start();
    /** Runs the shut-down order and unloads; false when the library stays loaded. */
    bool shutDown();
    /** Triggers a menu entry and, once its dialog is shown, notes its title and closes it by key.
     */
    QString openAndClose(_GuiElement *element);
    /** Triggers a menu entry, has its dialog used once it is shown, and closes it by key. */
    void use(_GuiElement *element, const std::function<void(QWidget *)> &dialogUser);

    QTemporaryDir home; ///< what $HOME names, so that no preferences of the user are touched
    QWidget mainWindow;
    std::unique_ptr<SimulatedController> controller;
    std::unique_ptr<SimulatedIOManager> io;
    BackendVersions versions;
    QPluginLoader loader;
};
