#pragma once

#include <QtGlobal>

/**
 * Measures the time that the workbench uses itself, such as for filling its panels, comparing and
 * recording, because that time does not count as the module's. The object is on the stack; nested
 * objects do not count twice. For the GUI thread only.
 */
class WorkbenchTime {
public:
    WorkbenchTime();
    ~WorkbenchTime();
    WorkbenchTime(const WorkbenchTime &) = delete;
    WorkbenchTime &operator=(const WorkbenchTime &) = delete;

    /** All time measured so far, in ns. */
    static qint64 spentNs();

private:
    qint64 m_startNs;
};
