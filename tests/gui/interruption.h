#pragma once

#include "SimulatedIOManager.h"

#include <QObject>

#include <functional>

/**
 * A host that acts inside the operations of its IOManager: it runs its event loop, deletes the
 * dialog, or delivers a message. It acts after the controller has carried the operation out and
 * before the operation returns. Operations inside the action are not interrupted.
 */
class Interruption : public QObject {
public:
    using Choice = std::function<bool(const TranscriptEntry &)>;

    /** Calls `act` inside each operation that `where` selects. */
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

    /** The number of interruptions. */
    int times() const { return m_times; }

    static bool isWrite(const TranscriptEntry &entry)
    {
        return entry.operation == TranscriptEntry::Operation::Set
               || entry.operation == TranscriptEntry::Operation::Command;
    }
    /** Selects every operation. */
    static Choice everywhere()
    {
        return [](const TranscriptEntry &) { return true; };
    }
    /** Selects the write with that zero-based number. */
    static Choice atWrite(int number)
    {
        return [number, count = 0](const TranscriptEntry &entry) mutable {
            return isWrite(entry) && count++ == number;
        };
    }
    /** Selects the first operation with exactly that line. */
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
