#pragma once

#include "IOManager.h"

#include <QByteArray>
#include <QList>

#include <cstdarg>

/**
 * Answers every operation with the next line of a text. A line that begins with "!" makes the
 * operation fail, and so does the end of the text. A command line that no host could send ends the
 * process.
 */
class AnsweringManager final : public IOManager {
public:
    explicit AnsweringManager(const QByteArray &answers) : m_answers(answers.split('\n')) {}

    int send_command(char *answer, const char *command) override;
    int get_string(char *out, const char *format, ...) override HOSTINTERFACE_PRINTF(3, 4);
    int get_int(int *out, const char *format, ...) override HOSTINTERFACE_PRINTF(3, 4);
    int get_double(double *out, const char *format, ...) override HOSTINTERFACE_PRINTF(3, 4);
    int get_bool(bool *out, const char *format, ...) override HOSTINTERFACE_PRINTF(3, 4);
    int set(const char *format, ...) override HOSTINTERFACE_PRINTF(2, 3);
    void send_message(const char *, const char *, int, const char *) override {}
    void register_receiver(const char *, MessageReceiver *) override {}
    void unregister_receiver(const char *, MessageReceiver *) override {}

private:
    /**
     * Checks the line of the operation; false when the operation fails, otherwise *answer gets its
     * answer.
     */
    bool next(const char *format, va_list arguments, QByteArray *answer) HOSTINTERFACE_PRINTF(2, 0);
    bool nextFor(const QByteArray &line, QByteArray *answer);

    QList<QByteArray> m_answers;
    int m_next = 0;
};
