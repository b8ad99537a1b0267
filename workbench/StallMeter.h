#pragma once

#include <QElapsedTimer>
#include <QMap>
#include <QObject>
#include <QTimer>

class SimulatedIOManager;
struct TranscriptEntry;

/**
 * Measures how long the GUI thread was held between two returns to the event loop, and which
 * operations held it. Each operation can be made to take a time of its own, as over a slow link.
 * Owned by the program.
 */
class StallMeter : public QObject {
    Q_OBJECT

public:
    /** One time in which the event loop did not run. */
    struct Stall {
        qint64 heldMs = 0;
        int operations = 0;   ///< asked meanwhile
        QString firstCommand; ///< empty when the module asked nothing
        QString dialog;       ///< class of the dialog that was open; empty for the main window
    };

    explicit StallMeter(SimulatedIOManager *io, QObject *parent = nullptr);

    /** Begins to measure. */
    void start();
    static constexpr int longestLatencyMs = 500;
    /** Real time that each operation takes, 0 to longestLatencyMs. */
    void setLatencyMs(int latencyMs);
    int latencyMs() const { return m_latencyMs; }
    /**
     * The longest stall of each dialog so far; without what the workbench did for itself and
     * without times in which nothing was asked.
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
    qint64 m_ownNs = 0; ///< what the workbench had spent on itself at the last beat
};
