#pragma once

#include "IOManager.h"
#include "TranscriptEntry.h"

#include <QObject>
#include <QPair>
#include <QVector>

#include <functional>
#include <memory>

// A host's own interface header may not define how compilers check formats.
#ifndef HOSTINTERFACE_PRINTF
#define HOSTINTERFACE_PRINTF(formatIndex, firstArgument)
#endif

class CommandTally;
class FaultEngine;
class SimulatedController;

/**
 * The substitute host's IOManager for a SimulatedController. It formats the line as a host does,
 * applies faults, converts the answer, records a transcript and delivers channel messages.
 *
 * Owned by the workbench or a test. The controller outlives it. Answers are cut to the 199 bytes
 * plus NUL for which callers must have room, unless a fault produces more.
 */
class SimulatedIOManager : public QObject, public IOManager {
    Q_OBJECT

public:
    /** The return value of an operation. */
    enum Result {
        Ok = 0,
        Failed,       ///< the link is dead or a fault made the operation fail
        Refused,      ///< the controller refused a query or a set
        Unknown,      ///< the controller does not know the command
        NotConverted, ///< the answer does not have the required type
    };

    /** The controller must not be null; it is not owned. */
    explicit SimulatedIOManager(SimulatedController *controller, QObject *parent = nullptr);
    ~SimulatedIOManager() override;

    int send_command(char *answer, const char *command) override;
    int get_string(char *out, const char *format, ...) override HOSTINTERFACE_PRINTF(3, 4);
    int get_int(int *out, const char *format, ...) override HOSTINTERFACE_PRINTF(3, 4);
    int get_double(double *out, const char *format, ...) override HOSTINTERFACE_PRINTF(3, 4);
    int get_bool(bool *out, const char *format, ...) override HOSTINTERFACE_PRINTF(3, 4);
    int set(const char *format, ...) override HOSTINTERFACE_PRINTF(2, 3);
    void send_message(const char *channel, const char *sender, int kind, const char *text) override;
    void register_receiver(const char *channel, MessageReceiver *receiver) override;
    void unregister_receiver(const char *channel, MessageReceiver *receiver) override;

    /** The rules that disturb commands; owned by this object, never null. */
    FaultEngine *faults() const { return m_faults; }

    /** The operations so far, oldest first, without those that the limit has dropped. */
    const QVector<TranscriptEntry> &transcript() const { return m_transcript; }
    void clearTranscript(); ///< keeps operationCount() and the virtual time
    /**
     * Limits the transcript to `limit` entries, at least 8. When the limit is reached, the oldest
     * eighth is dropped at once, so that the cost of an operation does not grow. 0, the default,
     * means no limit.
     */
    void setTranscriptLimit(int limit);
    int transcriptLimit() const { return m_transcriptLimit; } ///< 0 when there is no limit
    /**
     * Number of operations since the beginning, including those that are no longer in the
     * transcript.
     */
    qint64 operationCount() const { return m_gone + m_transcript.size(); }

    /** Virtual time in ms, beginning with 0; advance() and delay faults increase it. */
    qint64 virtualTime() const { return m_virtualMs; }
    /// increases the virtual time by `ms`, at least 0
    void advance(qint64 ms) { m_virtualMs += ms; }

    /**
     * Lets `responder` give each operation its answer and result, without the controller and the
     * faults. An empty function restores the controller.
     */
    void setResponder(std::function<void(TranscriptEntry *)> responder);

    /** Sets the function that names the open dialog for the transcript and the tally. */
    void setDialogProbe(std::function<QString()> probe);
    /** Sets the file of the script that is played, for the tally; see CommandTally. */
    void setScript(const QString &file);
    /**
     * Switches the recording of real durations. It is off by default, so that transcripts are
     * identical byte for byte.
     */
    void setMeasuring(bool on) { m_measuring = on; }

    /** Number of receivers registered on a channel. */
    int receiverCount(const char *channel) const;

signals:
    /** An operation was carried out or a message was sent. */
    void recorded(const TranscriptEntry &entry);
    /** A message was sent on a channel, with or without a receiver. */
    void messageSent(const QString &channel, const QString &sender, int kind, const QString &text);

private:
    TranscriptEntry perform(TranscriptEntry::Operation operation, const QByteArray &line);
    void carryOut(TranscriptEntry *entry);
    QString openDialog() const;
    void record(TranscriptEntry *entry);
    void dropOldest();

    SimulatedController *m_controller;
    FaultEngine *m_faults;
    std::unique_ptr<CommandTally> m_tally; ///< null unless the environment asks for one
    QVector<QPair<QByteArray, MessageReceiver *>> m_receivers; ///< in the order of registration
    QVector<TranscriptEntry> m_transcript;
    int m_transcriptLimit = 0;
    qint64 m_gone = 0; ///< entries that were cleared or dropped from the transcript
    std::function<QString()> m_dialogProbe;
    std::function<void(TranscriptEntry *)> m_responder;
    qint64 m_virtualMs = 0;
    bool m_measuring = false;
};
