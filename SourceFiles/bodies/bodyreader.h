#pragma once

#include "controllerlink.h"

#include <QString>

#include <optional>

struct AdminBody;
struct AdminBodyType;
class BodyRegistry;

/**
 * Every read of body types and bodies. A plain value without widgets. A failed query is logged
 * unless its comment says otherwise, its field keeps its value or gets its default, and reading
 * goes on. A body is read into a copy, which is stored only if the record still has a body of its
 * index; once the link is closed, which a host may bring about in any query, no record is touched.
 * Indexes are zero-based.
 */
class BodyReader {
public:
    explicit BodyReader(const ControllerLink &link) : m_link(link) {}

    /** Reads the description of the type and whether it offers the 6DOF filter. */
    void readType(AdminBodyType &record, const QString &type) const;
    /** Reads again what readType() could not read; true when something is known now that was not.
     */
    bool readMissing(AdminBodyType &record, const QString &type) const;
    /**
     * Reads the count of the type and, from the zero-based `first` on, its bodies. A count above
     * the limit that the controller gave counts as unreadable. A count that cannot be read becomes
     * `accepted`, or 0. After eight bodies in a row of which nothing can be read, reading ends.
     */
    void readBodies(BodyRegistry &registry, const QString &type, int first = 0,
                    std::optional<int> accepted = std::nullopt) const;
    /** Re-reads every field of one body; false when every question about it failed. */
    bool readBody(AdminBodyType &record, const QString &type, int index) const;
    /** Re-builds the summary of one body's 6DOF filter. */
    void readFilterSummary(AdminBodyType &record, const QString &type, int index) const;

    /** True when the controller has inertial sensors and their warm-up does not run. */
    bool isWarmupRuleMet() const;
    /** True when the body's inertial sensor is present; false when the query fails. */
    bool isSensorPresent(const QString &type, int index) const;
    /** True when the 6DOF filter of all standard bodies or joywand devices is switched off. */
    bool isGlobalFilterOff(const QString &type) const;
    /** Largest number of bodies of the type, put into its record too; else a default. */
    int readMaximum(BodyRegistry &registry, const QString &type) const;

    /** Number of standard bodies or of tool references; 0 when it cannot be read. */
    int readHolderCount(const QString &type) const;
    /** Short name of the body's target, or "none"; nothing, unlogged, when it cannot be read. */
    std::optional<QString> readTargetName(const QString &type, int index) const;
    /** As readTargetName(), of a body that readHolderCount() counted; a failure is logged. */
    std::optional<QString> readHolder(const QString &type, int index) const;

    // What the columns of single tabs show.

    /** Model of an inertial sensor for people; empty, unlogged, when it cannot be read. */
    QString readSensorModel(const QString &sensor) const;
    /** One-based number of the reference that a tool is measured against; nothing when none. */
    std::optional<int> readReferenceOfTool(int index) const;
    /** The controller's words for a joywand device, or "none". */
    QString readDevice(int index) const;
    /** Model of a device, given by readDevice(), for people; nothing when it is unknown. */
    std::optional<QString> readDeviceModel(const QString &device) const;

private:
    std::optional<int> readCount(const BodyRegistry &registry, const QString &type) const;
    int readSweep(BodyRegistry &registry, const QString &type, int first) const;
    /** `word` is the type as it goes into a command line. */
    bool readCalibration(AdminBody &body, const QString &type, const QByteArray &word,
                         int index) const;
    void readSensor(AdminBody &body, const QString &type, const QByteArray &word, int index) const;
    void readFilter(AdminBody &body, const QString &type, int index) const;
    std::optional<bool> isReference(int index) const;
    void log(const QString &line, const QString &type, int index) const;

    ControllerLink m_link;
};
