#pragma once

#include "BackendVersions.h"
#include "ControllerState.h"

#include <QByteArray>
#include <QMetaType>
#include <QObject>
#include <QStringList>

/** How a command reaches the controller. */
enum class CommandAccess { Get, Set, Action };

/** What the controller did with a command line. */
struct CommandReply {
    bool ok = false;      ///< the command was understood and carried out
    bool unknown = false; ///< no entry of the command table matches the line
    QByteArray answer;    ///< text of the answer; "morvek2 ok" for a successful action, and
                          ///< "morvek2 err" with the reason for a refused one
    QString reason;       ///< why it was refused; empty otherwise
};

/**
 * A tracking controller one can believe: holds a ControllerState and answers every command from it.
 *
 * A write is seen by the next read and has the side effects a controller has. Time is virtual: a
 * search advances with each query of its state, nothing waits. Lives on one thread; owned by
 * whoever creates it (the workbench or a test).
 */
class SimulatedController : public QObject {
    Q_OBJECT

public:
    /** Begins with a copy of the state. */
    explicit SimulatedController(const ControllerState &state, QObject *parent = nullptr);
    ~SimulatedController() override;

    /** Carries out one line, without a line break. */
    CommandReply execute(CommandAccess access, const QByteArray &line);

    /** The state now; the reference shows every later change. */
    const ControllerState &state() const { return m_state; }
    /** Changes the state behind every client's back and emits stateChanged(). */
    void setState(const ControllerState &state);

    /** Lines that matched no entry of the command table, oldest first. */
    QStringList unknownCommands() const { return m_unknownCommands; }

signals:
    void stateChanged(); ///< by a command or by setState()

private:
    /** The protocol that the state names, read from its text only when that changed. */
    const VersionInfo &protocolVersion();

    ControllerState m_state;
    QString m_protocolText;
    VersionInfo m_protocol;
    QStringList m_unknownCommands;
};

Q_DECLARE_METATYPE(CommandAccess)
