#pragma once

#include "TranscriptEntry.h"

#include <QObject>
#include <QVector>

class SimulatedIOManager;

/**
 * Answers the module from a recording instead of the controller, as long as it asks the same in the
 * same order. From the first difference on every operation fails. Owned by the program or a test.
 */
class Replayer : public QObject {
    Q_OBJECT

public:
    /** Operations other than messages of `recording` are replayed. */
    Replayer(SimulatedIOManager *io, const QVector<TranscriptEntry> &recording,
             QObject *parent = nullptr);
    ~Replayer() override;

    /** What was recorded and what was asked instead; empty while they agree. */
    QString difference() const { return m_difference; }
    /** Recorded operations that nobody asked for yet. */
    int remaining() const { return m_recording.size() - m_next; }

signals:
    /** Sent once, during the operation that differs. */
    void differed();

private:
    void answer(TranscriptEntry *entry);

    SimulatedIOManager *m_io;
    QVector<TranscriptEntry> m_recording;
    int m_next = 0;
    QString m_difference;
};
