#pragma once

#include "IOManager.h"
#include "MessageReceiver.h"

#include <QStringList>

/** Keeps the messages it receives, and can withdraw itself while one is delivered. */
class Listener : public MessageReceiver {
public:
    int transmit_message(int kind, const char *sender, const char *text) override
    {
        heard << QStringLiteral("%1|%2|%3")
                         .arg(kind)
                         .arg(QString::fromUtf8(sender), QString::fromUtf8(text));
        if (leaves)
            leaves->unregister_receiver("GlobalEvent", this);
        return 0;
    }

    QStringList heard;
    IOManager *leaves = nullptr;
};
