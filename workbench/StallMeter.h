#pragma once

#include <QElapsedTimer>
#include <QMap>
#include <QObject>
#include <QTimer>

class SimulatedIOManager;
struct TranscriptEntry;

/**
 * Measures how long the GUI thread was busy between two returns to the event loop, and with which
 * operations. It can give each operation a duration, as over a slow link. Owned by the program.
 */
class StallMeter : public QObject {
    Q_OBJECT

public:
    /** A time in which the event loop did not run. */
    struct Stall {
        qint64 heldMs = 0;
        int operations = 0;   ///< number of operations in that time
        QString firstCommand; ///< empty when there was no operation
        QString dialog;       ///< class of the open dialog; empty for the main window
    };

    explicit StallMeter(SimulatedIOManager *io, QObject *parent = nullptr);

    /** Begins to measure. */
    void start();
    static constexpr int longestLatencyMs = 500;
    /** Real duration of each operation, 0 to longestLatencyMs. */
    void setLatencyMs(int latencyMs);
    int latencyMs() const { return m_latencyMs; }
    /**
     * The longest stall of each dialog so far, without the time that the workbench itself used and
     * without times that had no operation.
     */
    const QMap<QString, Stall> &worst() const { return m_worst; }

signals:
    void latencyChanged(int latencyMs);
    /** A dialog has a new longest stall. */
    void worstChanged();

private:
    void beat();
    void count(const TranscriptEntry &entry);

    QTimer m_heartbeat;
    QElapsedTimer m_sinceBeat;
    Stall m_current;
    QMap<QString, Stall> m_worst;
    int m_latencyMs = 0;
    qint64 m_ownNs = 0; ///< time that the workbench itself had used at the last beat
};
