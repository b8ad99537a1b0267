#pragma once

#include "printfformat.h"

#include <QByteArray>
#include <QPointer>
#include <QString>

#include <memory>
#include <optional>

class BackendVersions;
class IOManager;
class LinkObserver;
class MessageReceiver;

/**
 * The module's only way to the controller, its message log and the other modules.
 *
 * A small value that refers to the host's two objects, which outlive it. Either may be null: then
 * every read and write fails, the protocol counts as the oldest and no message is sent. The
 * observer of the dialog, if there is one, emits what the link does.
 *
 * The owner closes the link before it is deleted, which a host may cause while an operation runs.
 * After that no copy sends anything, and the operation counts as failed.
 *
 * Formats are checked at compile time. Numbers are formatted in the C locale, and text is sent as
 * UTF-8. A line with a line break or an unpaired double quote is refused and never reaches the
 * controller. Text from the user has to pass through argument(), so that a NUL leads to a refused
 * line, too.
 */
class ControllerLink {
public:
    /** Every parameter may be null. The observer may be deleted at any time. */
    ControllerLink(IOManager *iom, const BackendVersions *versions,
                   LinkObserver *observer = nullptr);

    /** Makes this link and every copy of it behave as if there were no host objects. */
    void close() const;
    /**
     * True when this link, or one of which it is a copy, was closed, so that the owner may be
     * deleted.
     */
    bool isClosed() const;

    /**
     * The answer as text, with a replacement character for each line break and control character;
     * nothing when the query failed.
     */
    std::optional<QString> text(const char *format, ...) const PRINTF_FORMAT(2, 3);
    /** Like text(), for a name or an identifier: a blank answer becomes "none". */
    std::optional<QString> name(const char *format, ...) const PRINTF_FORMAT(2, 3);
    /** The answer as a whole number; nothing when the query failed. */
    std::optional<int> integer(const char *format, ...) const PRINTF_FORMAT(2, 3);
    /**
     * A number of things, 0 to 9999. Any other answer counts as a failed query, because a garbled
     * answer must not make a window build millions of rows.
     */
    std::optional<int> count(const char *format, ...) const PRINTF_FORMAT(2, 3);
    /** The answer as a finite number; nothing when the query failed. */
    std::optional<double> real(const char *format, ...) const PRINTF_FORMAT(2, 3);
    /** The answer as yes or no; nothing when the query failed. */
    std::optional<bool> flag(const char *format, ...) const PRINTF_FORMAT(2, 3);

    /** Sets a parameter; false when the controller refused it. */
    bool set(const char *format, ...) const PRINTF_FORMAT(2, 3);
    /** Sends an action command; true only when the answer is exactly "morvek2 ok". */
    bool command(const char *format, ...) const PRINTF_FORMAT(2, 3);

    /** Writes one line into the host's message log. */
    void log(const QString &line) const;
    /** Shows the operator one line in the dialog without a line in the log. */
    void notice(const QString &line) const;
    /**
     * Sends a request of the body administration to the module that receives messages on `channel`.
     */
    void post(const char *channel, const QString &request) const;

    /** Reports to the observer that number `done` of `total` things is being read. */
    void progress(int done, int total) const;

    /**
     * Registers `receiver` for the messages of `channel`; the caller has to unregister it again.
     */
    void registerReceiver(const char *channel, MessageReceiver *receiver) const;
    /** Unregisters `receiver` from `channel`; does nothing when it is not registered. */
    void unregisterReceiver(const char *channel, MessageReceiver *receiver) const;

    /** True when the connected protocol is at least major.minor, with any patch level. */
    bool protocolAtLeast(int major, int minor) const;
    /** True when the controller is the compact all-in-one system. */
    bool isPocketUnit() const;
    /** True when the configuration cannot be changed (queried from protocol 1.9 on). */
    bool isConfigLocked() const;

    /** `text` in the form that goes into a command line for "%s". */
    static QByteArray argument(const QString &text);
    /** `text` without any double quote, as descriptions are shown. */
    static QString withoutDoubleQuotes(QString text);
    /**
     * Seconds as whole milliseconds, truncated toward zero after rounding off binary errors: 0.029
     * is 29.
     */
    static int wholeMilliseconds(double seconds);

private:
    /** What all copies of a link share. */
    struct Host {
        IOManager *iom = nullptr;
        bool closed = false;
    };
    class Operation;

    std::optional<QString> askText(const char *line) const;
    std::optional<int> askInteger(const char *line) const;

    std::shared_ptr<Host> m_host;
    const BackendVersions *m_versions;
    QPointer<LinkObserver> m_observer;
};
