#pragma once

#include <QByteArray>
#include <QString>

/** One operation that a client asked of the host. */
struct TranscriptEntry {
    /** The function of the IOManager that was called. */
    enum class Operation { Command, GetString, GetInt, GetDouble, GetBool, Set, Message };

    qint64 virtualMs = 0;                       ///< virtual time at the call
    Operation operation = Operation::GetString; ///< which function of the IOManager
    QByteArray line;       ///< the command line; for a message "channel|sender|kind|text"
    QByteArray answer;     ///< what the client got; empty for Set and Message
    int result = 0;        ///< what the operation returned
    qint64 durationUs = 0; ///< real time the call took; 0 when not measured
    QString dialog;        ///< object name of the dialog that was open

    /** A read: GetString, GetInt, GetDouble or GetBool. */
    bool isGet() const
    {
        return operation != Operation::Command && operation != Operation::Set
               && operation != Operation::Message;
    }
    /** "command", "get-string", "get-int", "get-double", "get-bool", "set" or "message". */
    static QString operationName(Operation operation);

    static constexpr int fewestKept = 8; ///< smallest limit of a transcript
    /**
     * How many of the oldest of `count` entries go when a transcript keeps at most `limit`: what is
     * too much and an eighth of the limit. 0 while the limit, which 0 switches off, holds.
     */
    static int surplus(int count, int limit);
};

// Dropping the oldest entries moves the others as a block.
Q_DECLARE_TYPEINFO(TranscriptEntry, Q_MOVABLE_TYPE);
