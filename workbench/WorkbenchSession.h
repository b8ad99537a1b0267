#pragma once

#include "BackendVersions.h"
#include "ModuleLoader.h"
#include "ScenarioFile.h"
#include "SimulatedController.h"
#include "SimulatedIOManager.h"

#include <QObject>

#include <functional>
#include <memory>
#include <vector>

class SubstituteModule;

/**
 * The parts of a host besides its windows: the simulated controller, its IOManager, the versions,
 * the loaded module and the substitutes of the other modules. Owned by main() or a test.
 */
class WorkbenchSession : public QObject {
    Q_OBJECT

public:
    explicit WorkbenchSession(const Scenario &scenario, QObject *parent = nullptr);
    ~WorkbenchSession() override;

    /** Adds a fault rule; false with the place and the expectation when it does not parse. */
    bool addFault(const QString &rule, QString *error);

    /**
     * Loads the module, and lets the other modules announce themselves.
     *
     * @param moduleParent parent of the module's dialogs; outlives the module
     */
    bool loadModule(const QString &file, QWidget *moduleParent, QString *error);
    /** Shuts the module down in the host's order. */
    void unloadModule();

    SimulatedController *controller() { return &m_controller; }
    SimulatedIOManager *io() { return &m_io; }
    BackendVersions *versions() { return &m_versions; }
    ModuleLoader *module() { return &m_module; }
    const ControllerState &state() const { return m_controller.state(); }
    QString scenarioName() const { return m_scenarioName; }

    /** Changes the controller's state without a command of the module. */
    void edit(const std::function<void(ControllerState &)> &change);
    /** Sends the message that another configuration has become active. */
    void announceConfiguration();
    /**
     * Restarts the controller with another protocol version. False when the text is not a version.
     */
    bool restartWithProtocol(const QString &protocol);

    bool isMeasurementRunning() const { return m_measurementRunning; }
    void setMeasurementRunning(bool running);

signals:
    void measurementRunningChanged(bool running);
    void moduleLoaded();
    /** The module's entries and dialogs are about to be deleted. */
    void moduleUnloading();

private:
    void readVersions();

    QString m_scenarioName;
    SimulatedController m_controller;
    SimulatedIOManager m_io;
    BackendVersions m_versions;
    std::vector<std::unique_ptr<SubstituteModule>> m_substitutes;
    ModuleLoader m_module;
    bool m_measurementRunning = false;
};
