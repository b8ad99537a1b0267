#pragma once

#include "ModuleInterface.h"

#include <QPluginLoader>
#include <QString>

class BackendVersions;
class IOManager;
class QWidget;

/**
 * Loads the module as a host does, and calls its functions in the host's order.
 *
 * Owned by the session; the module's host objects outlive it. The destructor shuts the module down
 * if shutDown() was not called.
 */
class ModuleLoader {
public:
    ModuleLoader();
    ~ModuleLoader();
    ModuleLoader(const ModuleLoader &) = delete;
    ModuleLoader &operator=(const ModuleLoader &) = delete;

    /** The built or installed plug-in, relative to the folder of the program. */
    static QString defaultFile();

    /**
     * Loads the file, checks that it is this host's module, sets its parameters and gets its menu
     * entries.
     *
     * @return false with *error naming the file and the mistake; nothing is loaded then
     */
    bool load(const QString &file, IOManager *io, BackendVersions *versions, QWidget *parent,
              QString *error);
    /**
     * Calls the module's two exit functions, then unloads it. Does nothing when no module is
     * loaded.
     */
    void shutDown();

    bool isLoaded() const { return m_module != nullptr; }
    QString name() const;
    QString version() const;
    const QList<_GuiElement *> &elements() const { return m_elements; }

private:
    /** What is wrong with the plug-in's metadata; empty when they are the module's. */
    QString metadataProblem() const;

    QPluginLoader m_loader;
    ModuleInterface *m_module = nullptr;
    QList<_GuiElement *> m_elements;
};
