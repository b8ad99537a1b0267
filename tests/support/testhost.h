#pragma once

#include "BackendVersions.h"
#include "SimulatedController.h"
#include "SimulatedIOManager.h"

#include <QStringList>
#include <QWidget>

#include <functional>

/**
 * A host for one test: a new simulated controller, its IOManager, the versions and a main window. A
 * command that the simulated controller does not know fails the running test.
 */
class TestHost {
public:
    explicit TestHost(const ControllerState &state = scenario(QStringLiteral("studio")));
    ~TestHost();

    /** The state in scenarios/NAME.json; ends the test program when the file cannot be used. */
    static ControllerState scenario(const QString &name);

    const ControllerState &state() const { return controller.state(); }
    /** Changes the controller's state without a command of the module. */
    void edit(const std::function<void(ControllerState &)> &change);

    /** The sets and actions since clear(), in order. */
    QStringList writes() const;
    /** The queries since clear(), in order. */
    QStringList queries() const;
    /** The sets, actions and queries since clear(), in order. */
    QStringList lines() const;
    /** The lines of the message log since clear(), in order. */
    QStringList log() const;
    /** The messages on other channels since clear(), each "channel|sender|text". */
    QStringList requests() const;
    void clear();

    /** Adds a fault rule; a rule that does not parse fails the test. */
    void fault(const QString &rule);

    SimulatedController controller;
    SimulatedIOManager io;
    BackendVersions versions;
    QWidget mainWindow;
};

/** The typical system in scenarios/studio.json, with a protocol. */
ControllerState studio(const QString &protocol = QStringLiteral("1.24"));
/** The typical system with a change. */
ControllerState studio(const std::function<void(ControllerState &)> &change);
/**
 * The typical system with only two standard bodies: "Head", which is calibrated, and "Left hand",
 * which is neither calibrated nor active. No angle is fixed; 3DOF markers and the automatic restart
 * are off.
 */
ControllerState twoBodies(const QString &protocol = QStringLiteral("1.24"));
