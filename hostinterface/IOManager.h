#pragma once

#include <QMetaType>

class MessageReceiver;

#if defined(__GNUC__)
#define HOSTINTERFACE_PRINTF(formatIndex, firstArgument)                                           \
    __attribute__((format(printf, formatIndex, firstArgument)))
#else
#define HOSTINTERFACE_PRINTF(formatIndex, firstArgument)
#endif

/**
 * The host's gateway to the tracking controller and to the other modules of the frontend.
 *
 * Owned by the host; it outlives every module. All calls are made on the GUI thread, are
 * synchronous and never overlap. Every operation that returns int answers 0 for success and any
 * other value for failure; after a failure the output argument is not to be used. Command lines are
 * single lines of blank-separated words, UTF-8 encoded; answers are single short lines. Numbers on
 * the wire use the C locale, whatever locale the process runs in.
 */
class IOManager {
public:
    virtual ~IOManager();

    /**
     * Sends one complete command line verbatim; used for the action commands.
     *
     * @param answer  receives the NUL-terminated answer line; must hold at least 200 bytes
     * @param command the complete line
     * @return 0 when the command was transmitted and answered, whatever the answer says
     */
    virtual int send_command(char *answer, const char *command) = 0;

    /** Asks for a text; `out` receives it NUL-terminated and must hold at least 200 bytes. */
    virtual int get_string(char *out, const char *format, ...) HOSTINTERFACE_PRINTF(3, 4) = 0;
    /** Asks for a signed 32-bit integer. */
    virtual int get_int(int *out, const char *format, ...) HOSTINTERFACE_PRINTF(3, 4) = 0;
    /** Asks for a decimal number. */
    virtual int get_double(double *out, const char *format, ...) HOSTINTERFACE_PRINTF(3, 4) = 0;
    /** Asks for "yes" (true) or "no" (false); exactly one bool is written. */
    virtual int get_bool(bool *out, const char *format, ...) HOSTINTERFACE_PRINTF(3, 4) = 0;

    /**
     * Sets a parameter: the formatted line holds the parameter's words followed by its new value.
     * @return 0 when the controller accepted the value
     */
    virtual int set(const char *format, ...) HOSTINTERFACE_PRINTF(2, 3) = 0;

    /**
     * Delivers `text` at once to every receiver registered on `channel`. The channel "standard" is
     * the host's message log. Delivery to nobody is no error.
     */
    virtual void send_message(const char *channel, const char *sender, int kind,
                              const char *text) = 0;
    /** From now on delivers the messages of `channel` to `receiver`; a second call changes nothing.
     */
    virtual void register_receiver(const char *channel, MessageReceiver *receiver) = 0;
    /** Stops delivering `channel` to `receiver`; does nothing when it was not registered. */
    virtual void unregister_receiver(const char *channel, MessageReceiver *receiver) = 0;
};

inline IOManager::~IOManager() = default;

Q_DECLARE_METATYPE(IOManager *)
