#pragma once

#include "controllerlink.h"

#include <QString>

struct AdminBody;
struct AdminBodyType;

/**
 * Reads body types and bodies from the controller into their records. A plain value without
 * widgets. Every failed query is logged, its field keeps its value or gets its default, and reading
 * goes on. Indexes are zero-based.
 */
class BodyReader {
public:
    explicit BodyReader(const ControllerLink &link) : m_link(link) {}

    /** Reads the description of the type and whether it offers the 6DOF filter. */
    void readType(AdminBodyType &record, const QString &type) const;
    /** Number of bodies of the type; 0 when it cannot be read. */
    int readCount(const QString &type) const;
    /** Re-reads every field of one body. */
    void readBody(AdminBodyType &record, const QString &type, int index) const;
    /** Re-builds the summary of one body's 6DOF filter. */
    void readFilterSummary(AdminBodyType &record, const QString &type, int index) const;

    /** True when the controller has inertial sensors and their warm-up does not run. */
    bool isWarmupRuleMet() const;

private:
    void readCalibration(AdminBody &body, const QString &type, int index) const;
    void readSensor(AdminBody &body, const QString &type, int index) const;
    bool isReference(int index) const;
    void log(const QString &line, const QString &type, int index) const;

    ControllerLink m_link;
};
