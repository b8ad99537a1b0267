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
 * A small value that refers to the host's two objects, which outlive it; either may be null, then
 * every read and write fails, the protocol counts as the oldest and no message is sent. What it
 * does is emitted by the observer of its dialog, if there is one. Its owner closes it before it is
 * deleted, which a host may do while an operation runs: from then on no copy sends anything, and
 * the operation counts as failed. Formats are checked at compile time. Numbers are formatted in the
 * C locale, text travels as UTF-8. A line that holds a line break or an unpaired double quote is
 * refused and never reaches the controller; pass text from the user through argument(), which turns
 * a NUL, too, into a refused line.
 */
class ControllerLink {
public:
    /** Any may be null; the observer may be deleted at any time. */
    ControllerLink(IOManager *iom, const BackendVersions *versions,
                   LinkObserver *observer = nullptr);

    /** From now on this and every copy of it is as one without host objects. */
    void close() const;
    /** True once it, or what it was copied from, was closed: the owner may be gone. */
    bool isClosed() const;

    /**
     * The answer as text, with a replacement sign for each line break and control sign; nothing
     * when the query failed.
     */
    std::optional<QString> text(const char *format, ...) const PRINTF_FORMAT(2, 3);
    /** As text(), where a name or identifier is expected: a blank answer is "none" then. */
    std::optional<QString> name(const char *format, ...) const PRINTF_FORMAT(2, 3);
    /** The answer as a whole number; nothing when the query failed. */
    std::optional<int> integer(const char *format, ...) const PRINTF_FORMAT(2, 3);
    /**
     * A number of things, 0 to 9999. Any other answer counts as a failed query: a
     * disturbed answer must not make a window build millions of rows.
     */
    std::optional<int> count(const char *format, ...) const PRINTF_FORMAT(2, 3);
    /** The answer as a finite number; nothing when the query failed. */
    std::optional<double> real(const char *format, ...) const PRINTF_FORMAT(2, 3);
    /** The answer as yes or no; nothing when the query failed. */
    std::optional<bool> flag(const char *format, ...) const PRINTF_FORMAT(2, 3);

    /** Sets a parameter; false when it was refused. */
    bool set(const char *format, ...) const PRINTF_FORMAT(2, 3);
    /** Sends an action command; true only on the exact answer "morvek2 ok". */
    bool command(const char *format, ...) const PRINTF_FORMAT(2, 3);

    /** Puts one line into the host's message log. */
    void log(const QString &line) const;
    /** Says one line to the operator in the dialog alone, where a log line would be too much. */
    void notice(const QString &line) const;
    /** Sends a request of the body administration to the module that listens on `channel`. */
    void post(const char *channel, const QString &request) const;

    /** Lets the observer know that of `total` things number `done` is being read. */
    void progress(int done, int total) const;

    /** From now on `receiver` gets the messages of `channel`; it has to be withdrawn again. */
    void registerReceiver(const char *channel, MessageReceiver *receiver) const;
    /** Withdraws `receiver` from `channel`; nothing when it is not registered. */
    void unregisterReceiver(const char *channel, MessageReceiver *receiver) const;

    /** True when the connected protocol is at least major.minor, with any patch level. */
    bool protocolAtLeast(int major, int minor) const;
    /** True when the controller is the compact all-in-one system. */
    bool isPocketUnit() const;
    /** True when the configuration cannot be changed (queried from protocol 1.9 on). */
    bool isConfigLocked() const;

    /** `text` as it goes into a command line for "%s". */
    static QByteArray argument(const QString &text);
    /** `text` without any double quote, as descriptions are shown. */
    static QString withoutDoubleQuotes(QString text);
    /** Seconds as whole milliseconds, truncated toward zero from the decimal value: 0.029 is 29. */
    static int wholeMilliseconds(double seconds);

private:
    /** What all copies have in common. */
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
