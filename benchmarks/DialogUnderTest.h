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
 * The body administration in a host: the plug-in, a controller with a number of standard bodies,
 * and the dialog, opened by its menu entry. The dialog can be used only inside open().
 */
class DialogUnderTest {
public:
    /**
     * `targets` is the number of library targets; all are for standard bodies and seen by the
     * controller.
     */
    DialogUnderTest(int bodies, int targets);
    ~DialogUnderTest();

    /** Opens the dialog, calls `work`, and closes the dialog. */
    void open(const std::function<void()> &work);

    /** Reads and shows the whole page again, as after another module's dialog. */
    void refresh();
    /** Types a name into the first row of the body table. */
    void rename(const QString &name);
    /** Clicks the check mark that switches the first body on and off. */
    void toggle();
    /**
     * Starts a search and returns its timer, whose interval is a day, so that only the caller fires
     * it.
     */
    QObject *startSearch();
    /** Changes the description of each `every`th body in the controller, without the module. */
    void changeBodies(int every, const QString &text);

    QWidget *window() const { return m_element->content; }
    QTableWidget *bodies() const;
    MemoryLink &link() { return m_link; }

    /** A typical controller with that number of bodies, all calibrated and active. */
    static ControllerState stateWith(int bodies, int targets);
    /** Handles everything that is queued: layouts, paints and posted calls. */
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
