#include "answeringmanager.h"

#include "fuzztargets.h"

#include <cstring>
#include <vector>

namespace {

constexpr int longestAnswer = 199;

void copy(char *out, const QByteArray &answer)
{
    const QByteArray fitting = answer.left(longestAnswer);
    std::memcpy(out, fitting.constData(), size_t(fitting.size()) + 1);
}

} // namespace

bool AnsweringManager::nextFor(const QByteArray &line, QByteArray *answer)
{
    FuzzTargets::expect(!line.trimmed().isEmpty(), "a command line holds a command");
    FuzzTargets::expect(!line.contains('\n') && !line.contains('\r'), "a command is one line");
    if (m_next >= m_answers.size())
        return false;
    *answer = m_answers.at(m_next++);
    return !answer->startsWith('!');
}

bool AnsweringManager::next(const char *format, va_list arguments, QByteArray *answer)
{
    va_list counting;
    va_copy(counting, arguments);
    const int length = std::vsnprintf(nullptr, 0, format, counting);
    va_end(counting);
    FuzzTargets::expect(length >= 0, "a format can be formatted");
    std::vector<char> line(size_t(length) + 1);
    std::vsnprintf(line.data(), line.size(), format, arguments);
    return nextFor(QByteArray(line.data(), length), answer);
}

int AnsweringManager::send_command(char *answer, const char *command)
{
    QByteArray text;
    if (!nextFor(command, &text))
        return 1;
    copy(answer, text);
    return 0;
}

int AnsweringManager::get_string(char *out, const char *format, ...)
{
    QByteArray text;
    va_list arguments;
    va_start(arguments, format);
    const bool answered = next(format, arguments, &text);
    va_end(arguments);
    if (!answered)
        return 1;
    copy(out, text);
    return 0;
}

int AnsweringManager::get_int(int *out, const char *format, ...)
{
    QByteArray text;
    va_list arguments;
    va_start(arguments, format);
    bool answered = next(format, arguments, &text);
    va_end(arguments);
    if (answered)
        *out = text.toInt(&answered);
    return answered ? 0 : 1;
}

int AnsweringManager::get_double(double *out, const char *format, ...)
{
    QByteArray text;
    va_list arguments;
    va_start(arguments, format);
    bool answered = next(format, arguments, &text);
    va_end(arguments);
    if (answered)
        *out = text.toDouble(&answered);
    return answered ? 0 : 1;
}

int AnsweringManager::get_bool(bool *out, const char *format, ...)
{
    QByteArray text;
    va_list arguments;
    va_start(arguments, format);
    const bool answered = next(format, arguments, &text) && (text == "yes" || text == "no");
    va_end(arguments);
    if (answered)
        *out = text == "yes";
    return answered ? 0 : 1;
}

int AnsweringManager::set(const char *format, ...)
{
    QByteArray text;
    va_list arguments;
    va_start(arguments, format);
    const bool accepted = next(format, arguments, &text);
    va_end(arguments);
    return accepted ? 0 : 1;
}
