#pragma once

class QWidget;

/**
 * Marks a query, a write or a message that the host carries out; exists exactly as long as the
 * call.
 *
 * The host may delete a window of the module inside the call, for example when it shuts down. The
 * call often comes from an event of one of the window's widgets, say of a combo box, and Qt
 * continues in that widget after the call. The widgets therefore have to outlive their window: its
 * destructor passes them to keepWidgetsOf(), and the event loop deletes them after the outermost
 * call. Outside of calls nothing is kept.
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
     * Inside a call, takes the widgets out of `window`, whose destructor runs. The widgets are
     * hidden, and their signals no longer reach the window. Sub-dialogs are not taken.
     */
    static void keepWidgetsOf(QWidget *window);
    /** True for a widget that outlived its window. */
    static bool isKept(const QWidget *widget);
    /** Deletes all kept widgets, because the library may be unloaded before the event loop runs. */
    static void deleteKept();
};
