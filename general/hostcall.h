#pragma once

class QWidget;

/**
 * A query, a write or a message that the host carries out; lives for as long as that takes.
 *
 * The host may delete a window of the module meanwhile, for example when it shuts down. What led to
 * the call is often an event of one of the window's widgets, say of a combo box, and Qt goes on in
 * that widget once the call returns. So the widgets outlive their window: in its destructor it
 * hands them over with keepWidgetsOf(), and after the outermost call they are deleted by the event
 * loop. Outside of calls nothing is kept.
 */
class HostCall {
public:
    HostCall();
    ~HostCall();
    HostCall(const HostCall &) = delete;
    HostCall &operator=(const HostCall &) = delete;

    /** True inside a call. */
    static bool isUnderWay();
    /**
     * Inside a call, takes the widgets out of `window`, whose destructor runs: hidden, and without
     * a signal to the window. Its sub-dialogs stay with it.
     */
    static void keepWidgetsOf(QWidget *window);
    /** True for a widget that outlived its window. */
    static bool isKept(const QWidget *widget);
    /** Deletes what is still kept: the library may be unloaded before the event loop runs. */
    static void deleteKept();
};
