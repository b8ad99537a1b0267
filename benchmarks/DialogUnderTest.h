#pragma once

#include "BackendVersions.h"
#include "MemoryLink.h"
#include "ModuleInterface.h"
#include "SimulatedController.h"
#include "SimulatedIOManager.h"

#include <QModelIndex>
#include <QPluginLoader>
#include <QWidget>

#include <functional>

class QTableWidget;

/**
 * The body administration as a host has it: the plug-in, a controller with so many standard bodies,
 * and the dialog opened by its menu entry. What is done with it runs inside open().
 */
class DialogUnderTest {
public:
    /** `targets` of the library are of standard bodies and seen by the controller. */
    DialogUnderTest(int bodies, int targets);
    ~DialogUnderTest();

    /** Opens the dialog, lets `work` use it, closes it. */
    void open(const std::function<void()> &work);

    /** The whole page is read and shown again, as after another module's dialog. */
    void refresh();
    /** Types a name into the first row of the body table. */
    void rename(const QString &name);
    /** Clicks the check mark that switches the first body on and off. */
    void toggle();
    /** Starts a search and answers its timer, which then no longer fires on its own. */
    QObject *startSearch();
    /** Changes the description of each `every`th body behind the module's back. */
    void changeBodies(int every, const QString &text);

    QWidget *window() const { return m_element->content; }
    QTableWidget *bodies() const;
    MemoryLink &link() { return m_link; }

    /** An everyday controller with so many bodies, all calibrated and active. */
    static ControllerState stateWith(int bodies, int targets);
    /** Lets everything that is queued happen: layouts, paints, posted calls. */
    static void settle();

private:
    /** The cell of the first row in that column of the body table. */
    QModelIndex cellBelow(const QString &header) const;

    SimulatedController m_controller;
    SimulatedIOManager m_io;
    MemoryLink m_link;
    BackendVersions m_versions;
    QWidget m_mainWindow;
    QPluginLoader m_loader;
    ModuleInterface *m_module = nullptr;
    _GuiElement *m_element = nullptr;
};
