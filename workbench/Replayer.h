#pragma once

#include "TranscriptEntry.h"

#include <QObject>
#include <QVector>

class SimulatedIOManager;

/**
 * Answers the module from a recording instead of the controller, as long as the module sends the
 * same operations in the same order. Every operation after the first difference fails. Owned by the
 * program or a test.
 */
class Replayer : public QObject {
    Q_OBJECT

public:
    /** Replays the operations of `recording` other than messages. */
    Replayer(SimulatedIOManager *io, const QVector<TranscriptEntry> &recording,
             QObject *parent = nullptr);
    ~Replayer() override;

    /** The recorded operation and the one that came in its place; empty while they are equal. */
    QString difference() const { return m_difference; }
    /** Number of recorded operations that have not come yet. */
    int remaining() const { return m_recording.size() - m_next; }

signals:
    /** Emitted once, during the operation that differs. */
    void differed();

private:
    void answer(TranscriptEntry *entry);

    SimulatedIOManager *m_io;
    QVector<TranscriptEntry> m_recording;
    int m_next = 0;
    QString m_difference;
};
