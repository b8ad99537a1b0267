#include "bodyadminmessagereceiver.h"

#include <QByteArray>

BodyAdminMessageReceiver::BodyAdminMessageReceiver(QObject *parent, IOManager *) : QObject(parent)
{
}

BodyAdminMessageReceiver::~BodyAdminMessageReceiver() = default;

int BodyAdminMessageReceiver::transmit_message(int, const char *sender, const char *text)
{
    const QByteArray message(text);
    if (message == "reopen")
        emit dialogReopen();
    else if (message.startsWith("bodycalibration available"))
        emit BodyCalAvailable();
    else if (message.startsWith("bodyadjustment available"))
        emit BodyAdjustmentAvailable();
    else if (qstrcmp(sender, "ConfigurationModule") == 0 && message == "ActiveConfigurationChanged")
        emit activeConfigurationChanged();
    return 0;
}
