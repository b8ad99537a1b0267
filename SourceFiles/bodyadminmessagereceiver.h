#pragma once

#include <QObject>

#include "MessageReceiver.h"

class IOManager;

/**
 * Turns the messages of other modules into signals for the body administration dialog, which owns
 * it. Compares case-sensitively; whatever it does not know is ignored.
 */
class BodyAdminMessageReceiver : public QObject, public MessageReceiver {
    Q_OBJECT

public:
    BodyAdminMessageReceiver(QObject *parent, IOManager *iom);
    ~BodyAdminMessageReceiver() override;

    int transmit_message(int kind, const char *sender, const char *text) override;

signals:
    void BodyCalAvailable();
    void BodyAdjustmentAvailable();
    /** The module that the dialog was hidden for has closed its own. */
    void dialogReopen();
    void activeConfigurationChanged();
};
