#pragma once

#include "controllerlink.h"

#include <QString>

#include <optional>

struct AdminBody;
struct AdminBodyType;
class BodyRegistry;

/**
 * Sends every query about body types and bodies. A plain value without widgets. A failed query is
 * logged unless the function's comment says otherwise; its field keeps its value or gets its
 * default, and reading goes on. A body is read into a copy, which is stored only if the record
 * still has a body with its index. A host may close the link inside any query; after that no record
 * is touched. Indexes are zero-based.
 */
class BodyReader {
public:
    explicit BodyReader(const ControllerLink &link) : m_link(link) {}

    /** Reads the description of the type and whether it offers the 6DOF filter. */
    void readType(AdminBodyType &record, const QString &type) const;
    /** Reads again what readType() could not read; true when more is known than before. */
    bool readMissing(AdminBodyType &record, const QString &type) const;
    /**
     * Reads the count of the type and its bodies, beginning with the zero-based index `first`. A
     * count above the limit that the controller gave counts as unreadable. A count that cannot be
     * read becomes `accepted`, or 0. Reading ends after eight bodies in a row of which nothing can
     * be read.
     */
    void readBodies(BodyRegistry &registry, const QString &type, int first = 0,
                    std::optional<int> accepted = std::nullopt) const;
    /** Reads every field of one body again; false when every query about it failed. */
    bool readBody(AdminBodyType &record, const QString &type, int index) const;
    /** Builds the summary of one body's 6DOF filter again. */
    void readFilterSummary(AdminBodyType &record, const QString &type, int index) const;

    /** True when the controller has inertial sensors and they are not warming up. */
    bool isWarmupRuleMet() const;
    /** True when the body's inertial sensor is present; false when the query fails. */
    bool isSensorPresent(const QString &type, int index) const;
    /** True when the 6DOF filter of all standard bodies or all Joywand devices is switched off. */
    bool isGlobalFilterOff(const QString &type) const;
    /**
     * Reads the largest number of bodies of the type into its record and returns it; a default on
     * failure.
     */
    int readMaximum(BodyRegistry &registry, const QString &type) const;

    /** Number of standard bodies or of tool references; 0 when it cannot be read. */
    int readHolderCount(const QString &type) const;
    /**
     * Short name of the body's target, or "none"; nothing, and no log line, when it cannot be read.
     */
    std::optional<QString> readTargetName(const QString &type, int index) const;
    /**
     * The same as readTargetName(), for a body that readHolderCount() counted; a failure is logged.
     */
    std::optional<QString> readHolder(const QString &type, int index) const;

    // The following queries are for columns that only one tab has.

    /**
     * Readable model name of an inertial sensor; empty, without a log line, when it cannot be read.
     */
    QString readSensorModel(const QString &sensor) const;
    /**
     * One-based number of the reference against which a tool is measured; nothing when there is
     * none.
     */
    std::optional<int> readReferenceOfTool(int index) const;
    /** The controller's words for a Joywand device, or "none". */
    QString readDevice(int index) const;
    /** Readable model name of a device that readDevice() returned; nothing when it is unknown. */
    std::optional<QString> readDeviceModel(const QString &device) const;

private:
    std::optional<int> readCount(const BodyRegistry &registry, const QString &type) const;
    int readSweep(BodyRegistry &registry, const QString &type, int first) const;
    /** `word` is the type as it is written in a command line. */
    bool readCalibration(AdminBody &body, const QString &type, const QByteArray &word,
                         int index) const;
    void readSensor(AdminBody &body, const QString &type, const QByteArray &word, int index) const;
    void readFilter(AdminBody &body, const QString &type, int index) const;
    std::optional<bool> isReference(int index) const;
    void log(const QString &line, const QString &type, int index) const;

    ControllerLink m_link;
};
