#pragma once

/**
 * Receives the short text messages of one or more channels.
 *
 * Owned by whoever registers it with IOManager::register_receiver(); it must be unregistered before
 * it is deleted. The host calls it on the GUI thread only.
 */
class MessageReceiver {
public:
    virtual ~MessageReceiver();

    /**
     * Takes one message of a channel this receiver is registered on.
     *
     * @param kind   the kind the sender gave; 1 for log lines and requests
     * @param sender NUL-terminated name of the sending module
     * @param text   NUL-terminated message text, UTF-8
     * @return 0 when the message was taken or is of no interest
     */
    virtual int transmit_message(int kind, const char *sender, const char *text) = 0;
};

inline MessageReceiver::~MessageReceiver() = default;
