#pragma once

#include "MessageReceiver.h"

#include <QObject>
#include <QPointer>

class SimulatedController;
class SimulatedIOManager;
class SubstituteDialog;

/**
 * A substitute for another module of the frontend. It receives requests on its channel, shows them
 * in a small dialog, gives the simulated controller a plausible result and sends "reopen" when the
 * dialog is closed.
 *
 * Owned by the session; registered on its channel from construction to destruction.
 */
class SubstituteModule : public QObject, public MessageReceiver {
    Q_OBJECT

public:
    /** The work of the module on a body. */
    enum class Work { Calibrate, CalibrateHybrid, Adjust };

    SubstituteModule(Work work, SimulatedController *controller, SimulatedIOManager *io,
                     QObject *parent = nullptr);
    ~SubstituteModule() override;

    /** Sends the message that the module is present, if such a message exists. */
    void announce();
    QByteArray channel() const;

    int transmit_message(int kind, const char *sender, const char *text) override;

    /** The open dialog; null when there is no request. */
    SubstituteDialog *dialog() const;
    /** Closes the dialog without sending "reopen"; used at the shutdown. */
    void dismiss();

private:
    void reopen();

    Work m_work;
    SimulatedController *m_controller;
    SimulatedIOManager *m_io;
    QPointer<SubstituteDialog> m_dialog;
};
