#pragma once

#include "SimulatedIOManager.h"

#include <QObject>

#include <functional>

/**
 * A host that does something of its own inside the operations of its IOManager: runs its event
 * loop, deletes the dialog, delivers a message. Acts after the controller did what it was asked for
 * and before the operation returns; not inside itself.
 */
class Interruption : public QObject {
public:
    using Choice = std::function<bool(const TranscriptEntry &)>;

    /** Calls `act` inside each operation that `where` picks. */
    Interruption(SimulatedIOManager &io, const Choice &where, const std::function<void()> &act)
    {
        connect(&io, &SimulatedIOManager::recorded, this,
                [this, where, act](const TranscriptEntry &entry) {
                    if (m_isActing || entry.operation == TranscriptEntry::Operation::Message
                        || !where(entry))
                        return;
                    m_isActing = true;
                    ++m_times;
                    act();
                    m_isActing = false;
                });
    }

    /** How often it acted. */
    int times() const { return m_times; }

    static bool isWrite(const TranscriptEntry &entry)
    {
        return entry.operation == TranscriptEntry::Operation::Set
               || entry.operation == TranscriptEntry::Operation::Command;
    }
    /** Picks every operation. */
    static Choice everywhere()
    {
        return [](const TranscriptEntry &) { return true; };
    }
    /** Picks the write of that zero-based number. */
    static Choice atWrite(int number)
    {
        return [number, count = 0](const TranscriptEntry &entry) mutable {
            return isWrite(entry) && count++ == number;
        };
    }
    /** Picks the first operation of exactly that line. */
    static Choice atFirst(const QByteArray &line)
    {
        return [line, done = false](const TranscriptEntry &entry) mutable {
            if (done || entry.line != line)
                return false;
            done = true;
            return true;
        };
    }

private:
    int m_times = 0;
    bool m_isActing = false;
};
