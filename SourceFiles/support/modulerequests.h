#pragma once

#include "controllerlink.h"

#include <QString>

/**
 * The requests to other modules to open their dialog for a body. A request has no answer; the other
 * module sends "reopen" when it has closed its dialog. Indexes are zero-based.
 */
class ModuleRequests {
public:
    explicit ModuleRequests(const ControllerLink &link) : m_link(link) {}

    /** Requests the calibration of the body. */
    void calibrateBody(const QString &type, int index) const;
    /**
     * Requests the calibration of the body and its inertial sensor; `status` is the calibration
     * status as the table shows it.
     */
    void calibrateHybrid(const QString &type, int index, const QString &status) const;
    /** Requests the adjustment of the body's coordinate system. */
    void adjustBody(const QString &type, int index, bool calibrated) const;

private:
    ControllerLink m_link;
};
