#pragma once

#include "IOManager.h"
#include "TranscriptEntry.h"

#include <QObject>
#include <QPair>
#include <QVector>

#include <functional>

// A host's own interface header may not say how compilers check formats.
#ifndef HOSTINTERFACE_PRINTF
#define HOSTINTERFACE_PRINTF(formatIndex, firstArgument)
#endif

class FaultEngine;
class SimulatedController;

/**
 * The substitute host's IOManager over a SimulatedController: formats the line as a host does,
 * applies faults, converts the answer, records a transcript and delivers channel messages.
 *
 * Owned by the workbench or a test; refers to the controller, which outlives it. Answers are cut to
 * the 199 bytes plus NUL that callers must have room for, unless a fault says otherwise.
 */
class SimulatedIOManager : public QObject, public IOManager {
    Q_OBJECT

public:
    /** What an operation returns. */
    enum Result {
        Ok = 0,
        Failed,       ///< the link is dead or a fault let the operation fail
        Refused,      ///< the controller refused a query or a set
        Unknown,      ///< the controller does not know the command
        NotConverted, ///< the answer is not of the type asked for
    };

    /** The controller answers; not null, and not owned. */
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

    /** What was asked so far, oldest first; without what the limit let go. */
    const QVector<TranscriptEntry> &transcript() const { return m_transcript; }
    void clearTranscript(); ///< operationCount() and the virtual time go on
    /**
     * The transcript never has more than `limit` entries, 8 at least; the oldest go, an eighth at
     * once so that an operation costs the same however many there are. 0, the default: no limit.
     */
    void setTranscriptLimit(int limit);
    int transcriptLimit() const { return m_transcriptLimit; } ///< 0: none
    /** Operations since the beginning, those that are not in the transcript any more included. */
    qint64 operationCount() const { return m_gone + m_transcript.size(); }

    /** Virtual time in ms, starting at 0; moved by advance() and by delay faults. */
    qint64 virtualTime() const { return m_virtualMs; }
    void advance(qint64 ms) { m_virtualMs += ms; } ///< moves virtual time by 0 ms or more

    /**
     * From now on the responder gives each operation its answer and result, and neither the
     * controller nor a fault has part in it; an empty function gives the controller back its say.
     */
    void setResponder(std::function<void(TranscriptEntry *)> responder);

    /** Names the dialog that is open, for the transcript. */
    void setDialogProbe(std::function<QString()> probe);
    /** Real duration is recorded only when asked for, so that transcripts compare byte for byte. */
    void setMeasuring(bool on) { m_measuring = on; }

    /** Number of receivers registered on a channel. */
    int receiverCount(const char *channel) const;

signals:
    /** An operation was carried out or a message sent. */
    void recorded(const TranscriptEntry &entry);
    /** A message was sent on any channel, whether or not somebody listens. */
    void messageSent(const QString &channel, const QString &sender, int kind, const QString &text);

private:
    TranscriptEntry perform(TranscriptEntry::Operation operation, const QByteArray &line);
    void carryOut(TranscriptEntry *entry);
    void record(TranscriptEntry *entry);
    void dropOldest();

    SimulatedController *m_controller;
    FaultEngine *m_faults;
    QVector<QPair<QByteArray, MessageReceiver *>> m_receivers; ///< in the order of registration
    QVector<TranscriptEntry> m_transcript;
    int m_transcriptLimit = 0;
    qint64 m_gone = 0; ///< entries that were cleared or dropped from the transcript
    std::function<QString()> m_dialogProbe;
    std::function<void(TranscriptEntry *)> m_responder;
    qint64 m_virtualMs = 0;
    bool m_measuring = false;
};
