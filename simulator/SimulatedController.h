#pragma once

#include "BackendVersions.h"
#include "ControllerState.h"

#include <QByteArray>
#include <QMetaType>
#include <QObject>
#include <QStringList>

/** The kind of a command. */
enum class CommandAccess { Get, Set, Action };

/** The result of a command line. */
struct CommandReply {
    bool ok = false;      ///< the command was understood and carried out
    bool unknown = false; ///< true when no entry of the command table matches the line
    QByteArray answer;    ///< text of the answer; "morvek2 ok" for a successful action, and
                          ///< "morvek2 err" with the reason for a refused one
    QString reason;       ///< why it was refused; empty otherwise
};

/**
 * A simulated tracking controller, which holds a ControllerState and answers every command from it.
 *
 * The next read returns what was written, and a write has the side effects that a controller has.
 * Time is virtual: a search advances with each query of its state, and no operation waits. The
 * object is used on one thread and owned by its creator (the workbench or a test).
 */
class SimulatedController : public QObject {
    Q_OBJECT

public:
    /** Begins with a copy of the state. */
    explicit SimulatedController(const ControllerState &state, QObject *parent = nullptr);
    ~SimulatedController() override;

    /** Carries out one line, which has no line break. */
    CommandReply execute(CommandAccess access, const QByteArray &line);

    /** The present state; the reference shows every later change. */
    const ControllerState &state() const { return m_state; }
    /** Replaces the state without a command, and emits stateChanged(). */
    void setState(const ControllerState &state);

    /** Lines that matched no entry of the command table, oldest first. */
    QStringList unknownCommands() const { return m_unknownCommands; }

signals:
    void stateChanged(); ///< emitted after a change by a command or by setState()

private:
    /** The protocol that the state names; parsed again only when its text has changed. */
    const VersionInfo &protocolVersion();

    ControllerState m_state;
    QString m_protocolText;
    VersionInfo m_protocol;
    QStringList m_unknownCommands;
};

Q_DECLARE_METATYPE(CommandAccess)
