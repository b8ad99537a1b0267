#pragma once

#include "controllerlink.h"

#include <QString>

/**
 * The requests that hand a body to another module, which opens its dialog for it. Nobody answers; a
 * module that is done sends "reopen". Indexes are zero-based.
 */
class ModuleRequests {
public:
    explicit ModuleRequests(const ControllerLink &link) : m_link(link) {}

    /** The body is to be calibrated. */
    void calibrateBody(const QString &type, int index) const;
    /** The body and its inertial sensor are to be calibrated; `status` as its table shows it. */
    void calibrateHybrid(const QString &type, int index, const QString &status) const;
    /** The body's coordinate system is to be adjusted. */
    void adjustBody(const QString &type, int index, bool calibrated) const;

private:
    ControllerLink m_link;
};
