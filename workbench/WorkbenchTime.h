#pragma once

#include <QtGlobal>

/**
 * Measures what the workbench does for itself while it lives: filling its panels, comparing,
 * recording. The module is not to blame for that time. Lives on the stack; inner ones do not count
 * twice. The interface's thread only.
 */
class WorkbenchTime {
public:
    WorkbenchTime();
    ~WorkbenchTime();
    WorkbenchTime(const WorkbenchTime &) = delete;
    WorkbenchTime &operator=(const WorkbenchTime &) = delete;

    /** All that was measured so far, in ns. */
    static qint64 spentNs();

private:
    qint64 m_startNs;
};
