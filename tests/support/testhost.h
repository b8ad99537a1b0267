#pragma once

#include "BackendVersions.h"
#include "SimulatedController.h"
#include "SimulatedIOManager.h"

#include <QStringList>
#include <QWidget>

#include <functional>

/**
 * A host of a test's own: a fresh simulated controller, its IOManager, the versions and a main
 * window. A command that the simulated controller does not know fails the running test.
 */
class TestHost {
public:
    explicit TestHost(const ControllerState &state = scenario(QStringLiteral("studio")));
    ~TestHost();

    /** The state described by scenarios/NAME.json; aborts the test program when it is unusable. */
    static ControllerState scenario(const QString &name);

    const ControllerState &state() const { return controller.state(); }
    /** Changes one thing behind the module's back. */
    void edit(const std::function<void(ControllerState &)> &change);

    /** Sets and actions sent since clear(), in order: what the module changed. */
    QStringList writes() const;
    /** Queries sent since clear(), in order. */
    QStringList queries() const;
    /** Sets, actions and queries sent since clear(), in order. */
    QStringList lines() const;
    /** Lines sent to the message log since clear(), in order. */
    QStringList log() const;
    /** Messages on other channels since clear(), each "channel|sender|text". */
    QStringList requests() const;
    void clear();

    /** Adds a fault rule; a rule that does not parse fails the test. */
    void fault(const QString &rule);

    SimulatedController controller;
    SimulatedIOManager io;
    BackendVersions versions;
    QWidget mainWindow;
};

/** The everyday system of scenarios/studio.json, at a protocol. */
ControllerState studio(const QString &protocol = QStringLiteral("1.24"));
/** The everyday system with one thing changed. */
ControllerState studio(const std::function<void(ControllerState &)> &change);
/**
 * The everyday system with two standard bodies only: "Head", calibrated, and "Left hand", neither
 * calibrated nor active; nothing is fixed, marked or restarted.
 */
ControllerState twoBodies(const QString &protocol = QStringLiteral("1.24"));
