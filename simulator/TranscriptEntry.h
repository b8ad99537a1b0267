#pragma once

#include <QByteArray>
#include <QString>

/** One operation of a client on the host's IOManager. */
struct TranscriptEntry {
    /** The function of the IOManager. */
    enum class Operation { Command, GetString, GetInt, GetDouble, GetBool, Set, Message };

    qint64 virtualMs = 0;                       ///< virtual time at the call
    Operation operation = Operation::GetString; ///< which function of the IOManager
    QByteArray line;       ///< the command line; for a message "channel|sender|kind|text"
    QByteArray answer;     ///< the answer that the client got; empty for Set and Message
    int result = 0;        ///< the return value of the operation
    qint64 durationUs = 0; ///< real duration of the call in microseconds; 0 when not measured
    QString dialog;        ///< object name of the dialog that was open

    /** True for a read: GetString, GetInt, GetDouble or GetBool. */
    bool isGet() const
    {
        return operation != Operation::Command && operation != Operation::Set
               && operation != Operation::Message;
    }
    /** "command", "get-string", "get-int", "get-double", "get-bool", "set" or "message". */
    static QString operationName(Operation operation);

    static constexpr int fewestKept = 8; ///< smallest limit of a transcript
    /**
     * How many of the oldest of `count` entries are dropped when a transcript keeps at most
     * `limit`: the surplus and an eighth of the limit. 0 while the limit is not exceeded, or when
     * it is 0.
     */
    static int surplus(int count, int limit);
};

// Dropping the oldest entries then moves the others as one block.
Q_DECLARE_TYPEINFO(TranscriptEntry, Q_MOVABLE_TYPE);
