#pragma once

#include "BackendVersions.h"
#include "ControllerState.h"

#include <QByteArray>
#include <QString>
#include <QStringList>

/** What a command's handler did: an answer, an acceptance or a refusal with its reason. */
struct CommandOutcome {
    bool ok = false;   ///< true when the command was carried out
    QByteArray answer; ///< UTF-8; empty for a set
    QString reason;    ///< why it was refused; empty otherwise

    static CommandOutcome text(const QString &answer);   ///< the answer unchanged
    static CommandOutcome quoted(const QString &answer); ///< the answer in double quotes
    /** `answer`, or "none" when it is empty. */
    static CommandOutcome textOrNone(const QString &answer);
    static CommandOutcome number(int value);              ///< decimal
    static CommandOutcome real(double value);             ///< six digits after the point
    static CommandOutcome flag(bool value);               ///< "yes" or "no"
    static CommandOutcome done();                         ///< accepted, no answer
    static CommandOutcome refused(const QString &reason); ///< with a reason in English, for people
};

/**
 * A command while its handler carries it out: the state to work on, and the words in the places of
 * the pattern's placeholders, in their order.
 */
class CommandContext {
public:
    /** The state outlives the context. */
    CommandContext(ControllerState &controllerState, const QStringList &commandArguments,
                   const VersionInfo &protocolVersion);

    ControllerState &state;      ///< what the command reads and changes
    const QStringList arguments; ///< the words in the places of the placeholders, in order
    const VersionInfo protocol;  ///< the controller's protocol
    /// set by queries that change the state, such as those of a search
    bool stateChanged = false;

    /** Argument `index`; empty when there is none. */
    QString argument(int index) const { return arguments.value(index); }
    /** The one-based number of an argument such as "b03"; 0 when the argument has another form. */
    int numbered(int index) const;
    /** Body argument[first+1] of type argument[first]; null when it does not exist. */
    BodyState *body(int first = 0) const;
    /** "yes" or "no" at `index`; *ok is false for anything else. */
    bool flag(int index, bool *ok) const;
    /** A decimal number in the C locale at `index`; *ok is false for anything else. */
    double real(int index, bool *ok) const;
};
