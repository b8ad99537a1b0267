#include "MemoryLink.h"

#include "Bench.h"

#include <array>
#include <cstdarg>
#include <cstdio>
#include <cstring>
#include <utility>

namespace {

using Operation = TranscriptEntry::Operation;

constexpr int longestAnswerBytes = 200;
using LineBuffer = std::array<char, 1024>;

} // namespace

// A macro, because a va_list cannot leave the function that has the variable arguments.
#define LINE_OF(format)                                                                            \
    LineBuffer line;                                                                               \
    va_list arguments;                                                                             \
    va_start(arguments, format);                                                                   \
    std::vsnprintf(line.data(), line.size(), format, arguments);                                   \
    va_end(arguments)

MemoryLink::Answer MemoryLink::fetch(Operation operation, const char *line)
{
    Answer answer;
    std::array<char, longestAnswerBytes> text{};
    switch (operation) {
    case Operation::GetInt:
        answer.result = m_io->get_int(&answer.integer, "%s", line);
        break;
    case Operation::GetDouble:
        answer.result = m_io->get_double(&answer.real, "%s", line);
        break;
    case Operation::GetBool:
        answer.result = m_io->get_bool(&answer.flag, "%s", line);
        break;
    default:
        answer.result = m_io->get_string(text.data(), "%s", line);
        answer.text = text.data();
    }
    m_io->clearTranscript();
    return answer;
}

const MemoryLink::Answer &MemoryLink::answerTo(Operation operation, const char *line)
{
    QByteArray key(1, char('0' + int(operation)));
    key += line;
    auto found = m_answers.find(key);
    if (found == m_answers.end())
        found = m_answers.insert(key, fetch(operation, line));
    return *found;
}

int MemoryLink::read(Operation operation, const char *line, Answer *answer)
{
    if (m_isNoting)
        m_lines.append({operation, line});
    if (m_roundTripUs > 0) {
        const double endUs = processorUs() + m_roundTripUs;
        while (processorUs() < endUs) {
        }
    }
    *answer = answerTo(operation, line);
    return answer->result;
}

int MemoryLink::get_string(char *out, const char *format, ...)
{
    LINE_OF(format);
    Answer answer;
    const int result = read(Operation::GetString, line.data(), &answer);
    std::memcpy(out, answer.text.constData(), size_t(answer.text.size()) + 1);
    return result;
}

int MemoryLink::get_int(int *out, const char *format, ...)
{
    LINE_OF(format);
    Answer answer;
    const int result = read(Operation::GetInt, line.data(), &answer);
    *out = answer.integer;
    return result;
}

int MemoryLink::get_double(double *out, const char *format, ...)
{
    LINE_OF(format);
    Answer answer;
    const int result = read(Operation::GetDouble, line.data(), &answer);
    *out = answer.real;
    return result;
}

int MemoryLink::get_bool(bool *out, const char *format, ...)
{
    LINE_OF(format);
    Answer answer;
    const int result = read(Operation::GetBool, line.data(), &answer);
    *out = answer.flag;
    return result;
}

int MemoryLink::set(const char *format, ...)
{
    LINE_OF(format);
    if (m_isNoting)
        m_lines.append({Operation::Set, line.data()});
    const int result = m_io->set("%s", line.data());
    forget();
    return result;
}

int MemoryLink::send_command(char *answer, const char *command)
{
    if (m_isNoting)
        m_lines.append({Operation::Command, command});
    const int result = m_io->send_command(answer, command);
    // The check for custom calibrations is a command, but it changes nothing.
    if (std::strstr(command, "check_custom_calibration") == nullptr)
        forget();
    return result;
}

void MemoryLink::send_message(const char *channel, const char *sender, int kind, const char *text)
{
    m_io->send_message(channel, sender, kind, text);
    m_io->clearTranscript();
}

void MemoryLink::register_receiver(const char *channel, MessageReceiver *receiver)
{
    m_io->register_receiver(channel, receiver);
}

void MemoryLink::unregister_receiver(const char *channel, MessageReceiver *receiver)
{
    m_io->unregister_receiver(channel, receiver);
}

void MemoryLink::forget()
{
    m_answers.clear();
    m_io->clearTranscript();
}

void MemoryLink::note()
{
    m_lines.clear();
    m_isNoting = true;
}

QVector<MemoryLink::Line> MemoryLink::takeLines()
{
    m_isNoting = false;
    return std::exchange(m_lines, {});
}

void MemoryLink::ask(const QVector<Line> &lines)
{
    std::array<char, longestAnswerBytes> text{};
    int integer = 0;
    double real = 0;
    bool flag = false;
    for (const Line &line : lines) {
        const char *words = line.text.constData();
        switch (line.operation) {
        case Operation::GetInt:
            get_int(&integer, "%s", words);
            break;
        case Operation::GetDouble:
            get_double(&real, "%s", words);
            break;
        case Operation::GetBool:
            get_bool(&flag, "%s", words);
            break;
        case Operation::GetString:
            get_string(text.data(), "%s", words);
            break;
        default:
            break;
        }
    }
}
