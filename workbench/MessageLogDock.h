#pragma once

#include "MessageReceiver.h"

#include <QDockWidget>
#include <QStringList>

class QPlainTextEdit;
class SimulatedIOManager;

/** The host's message log: shows every line sent on the channel "standard". */
class MessageLogDock : public QDockWidget, public MessageReceiver {
    Q_OBJECT

public:
    explicit MessageLogDock(SimulatedIOManager *io, QWidget *parent = nullptr);
    ~MessageLogDock() override;

    int transmit_message(int kind, const char *sender, const char *text) override;

    /** The texts so far, without sender, oldest first. */
    QStringList lines() const { return m_lines; }
    void clear();

private:
    SimulatedIOManager *m_io;
    QPlainTextEdit *m_view;
    QStringList m_lines;
};
