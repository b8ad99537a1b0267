#pragma once

#include "IOManager.h"
#include "SimulatedIOManager.h"

#include <QByteArray>
#include <QHash>
#include <QVector>

/**
 * The fastest possible IOManager: a query that was answered before is answered from memory, in some
 * tenths of a microsecond. A write goes to the simulated controller and discards the stored
 * answers. With it a measurement shows the module's own work. Refers to the controller's link.
 */
class MemoryLink : public IOManager {
public:
    /** One operation, in a form that can be repeated. */
    struct Line {
        TranscriptEntry::Operation operation = TranscriptEntry::Operation::GetString;
        QByteArray text;
    };

    explicit MemoryLink(SimulatedIOManager *io) : m_io(io) {}

    int send_command(char *answer, const char *command) override;
    int get_string(char *out, const char *format, ...) override HOSTINTERFACE_PRINTF(3, 4);
    int get_int(int *out, const char *format, ...) override HOSTINTERFACE_PRINTF(3, 4);
    int get_double(double *out, const char *format, ...) override HOSTINTERFACE_PRINTF(3, 4);
    int get_bool(bool *out, const char *format, ...) override HOSTINTERFACE_PRINTF(3, 4);
    int set(const char *format, ...) override HOSTINTERFACE_PRINTF(2, 3);
    void send_message(const char *channel, const char *sender, int kind, const char *text) override;
    void register_receiver(const char *channel, MessageReceiver *receiver) override;
    void unregister_receiver(const char *channel, MessageReceiver *receiver) override;

    /** Discards all stored answers, because the controller was changed. */
    void forget();
    /** Begins to note the lines. */
    void note();
    /** Returns the noted lines and ends the noting. */
    QVector<Line> takeLines();
    /** Repeats those queries and does nothing else. For reads only. */
    void ask(const QVector<Line> &lines);
    /** Sets the least duration of a read; 0 for no delay. */
    void setRoundTripUs(int us) { m_roundTripUs = us; }

private:
    struct Answer {
        int result = 0;
        QByteArray text;
        int integer = 0;
        double real = 0;
        bool flag = false;
    };
    const Answer &answerTo(TranscriptEntry::Operation operation, const char *line);
    Answer fetch(TranscriptEntry::Operation operation, const char *line);
    int read(TranscriptEntry::Operation operation, const char *line, Answer *answer);

    SimulatedIOManager *m_io;
    QHash<QByteArray, Answer> m_answers; ///< by operation and line
    QVector<Line> m_lines;
    bool m_isNoting = false;
    int m_roundTripUs = 0;
};
