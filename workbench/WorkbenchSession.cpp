#include "WorkbenchSession.h"

#include "ControllerRules.h"
#include "FaultEngine.h"
#include "SubstituteModule.h"

WorkbenchSession::WorkbenchSession(const Scenario &scenario, QObject *parent)
    : QObject(parent),
      m_scenarioName(scenario.name),
      m_controller(scenario.state),
      m_io(&m_controller)
{
    readVersions();
    // Versions and model follow every change of the controller, such as a loaded snapshot.
    connect(&m_controller, &SimulatedController::stateChanged, this,
            &WorkbenchSession::readVersions);
    for (const auto work :
         {SubstituteModule::Work::Calibrate, SubstituteModule::Work::CalibrateHybrid,
          SubstituteModule::Work::Adjust})
        m_substitutes.push_back(std::make_unique<SubstituteModule>(work, &m_controller, &m_io));
}

WorkbenchSession::~WorkbenchSession()
{
    unloadModule();
}

void WorkbenchSession::readVersions()
{
    m_versions.sysPt.fromString(state().systemVersion);
    m_versions.sysCt.fromString(state().controllerVersion);
    m_versions.prot.fromString(state().protocol);
    m_versions.mod = state().model;
}

bool WorkbenchSession::addFault(const QString &rule, QString *error)
{
    return m_io.faults()->add(rule, error);
}

bool WorkbenchSession::loadModule(const QString &file, QWidget *moduleParent, QString *error)
{
    unloadModule();
    if (!m_module.load(file, &m_io, &m_versions, moduleParent, error))
        return false;
    for (const auto &substitute : m_substitutes)
        substitute->announce();
    emit moduleLoaded();
    return true;
}

void WorkbenchSession::unloadModule()
{
    if (!m_module.isLoaded())
        return;
    for (const auto &substitute : m_substitutes)
        substitute->dismiss();
    emit moduleUnloading();
    m_module.shutDown();
}

void WorkbenchSession::edit(const std::function<void(ControllerState &)> &change)
{
    ControllerState changed = state();
    change(changed);
    m_controller.setState(changed);
}

void WorkbenchSession::announceConfiguration()
{
    m_io.send_message("GlobalEvent", "ConfigurationModule", 1, "ActiveConfigurationChanged");
}

bool WorkbenchSession::restartWithProtocol(const QString &protocol)
{
    VersionInfo parsed;
    bool valid = false;
    parsed.fromString(protocol, &valid);
    if (!valid)
        return false;
    edit([&](ControllerState &changed) { ControllerRules::restart(changed, protocol); });
    return true;
}

void WorkbenchSession::setMeasurementRunning(bool running)
{
    if (m_measurementRunning == running)
        return;
    m_measurementRunning = running;
    emit measurementRunningChanged(running);
}
