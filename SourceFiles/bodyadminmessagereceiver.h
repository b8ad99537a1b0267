#pragma once

#include "MessageReceiver.h"

#include <QObject>

class IOManager;

/**
 * Turns the messages of other modules into signals for the body administration dialog, which owns
 * the receiver. Comparisons are case-sensitive; unknown messages are ignored.
 */
class BodyAdminMessageReceiver : public QObject, public MessageReceiver {
    Q_OBJECT

public:
    /** The manager is a parameter because the host's other receivers have it; it is not used. */
    BodyAdminMessageReceiver(QObject *parent, IOManager *iom);
    ~BodyAdminMessageReceiver() override;

    /** Emits the signal that belongs to the message; always returns 0. */
    int transmit_message(int kind, const char *sender, const char *text) override;

signals:
    /** The calibration module is available. */
    void BodyCalAvailable();
    /** The adjustment module is available. */
    void BodyAdjustmentAvailable();
    /** The other module has closed the dialog for which the body administration was hidden. */
    void dialogReopen();
    /** Another configuration was activated on the controller. */
    void activeConfigurationChanged();
};
