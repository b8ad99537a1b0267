#pragma once

#include "MessageReceiver.h"

#include <QObject>
#include <QPointer>

class SimulatedController;
class SimulatedIOManager;
class SubstituteDialog;

/**
 * Stands in for another module of the frontend: takes requests on its channel, shows them in a
 * small dialog, applies a believable result to the simulated controller and answers "reopen" when
 * closed.
 *
 * Owned by the session, registered on its channel from construction to destruction.
 */
class SubstituteModule : public QObject, public MessageReceiver {
    Q_OBJECT

public:
    /** What the module does with a body. */
    enum class Work { Calibrate, CalibrateHybrid, Adjust };

    SubstituteModule(Work work, SimulatedController *controller, SimulatedIOManager *io,
                     QObject *parent = nullptr);
    ~SubstituteModule() override;

    /** Tells all modules that this one is present, where such an announcement exists. */
    void announce();
    QByteArray channel() const;

    int transmit_message(int kind, const char *sender, const char *text) override;

    /** The open dialog; null when no request is being worked on. */
    SubstituteDialog *dialog() const;
    /** Closes the dialog without an answer to anybody; for shutting down. */
    void dismiss();

private:
    void reopen();

    Work m_work;
    SimulatedController *m_controller;
    SimulatedIOManager *m_io;
    QPointer<SubstituteDialog> m_dialog;
};
