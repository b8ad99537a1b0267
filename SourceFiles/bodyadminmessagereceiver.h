#pragma once

#include "MessageReceiver.h"

#include <QObject>

class IOManager;

/**
 * Turns the messages of other modules into signals for the body administration dialog, which owns
 * it. Compares case-sensitively; whatever it does not know is ignored.
 */
class BodyAdminMessageReceiver : public QObject, public MessageReceiver {
    Q_OBJECT

public:
    /** The manager is taken for the sake of the host's other receivers; it is not used. */
    BodyAdminMessageReceiver(QObject *parent, IOManager *iom);
    ~BodyAdminMessageReceiver() override;

    /** Emits the signal that belongs to the message; always 0. */
    int transmit_message(int kind, const char *sender, const char *text) override;

signals:
    /** The calibration module is there. */
    void BodyCalAvailable();
    /** The adjustment module is there. */
    void BodyAdjustmentAvailable();
    /** The module that the dialog was hidden for has closed its own. */
    void dialogReopen();
    /** Another configuration was activated on the controller. */
    void activeConfigurationChanged();
};
