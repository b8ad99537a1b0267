#include "controllerlink.h"

#include "BackendVersions.h"
#include "IOManager.h"
#include "hostcall.h"
#include "linkobserver.h"

#include <QVarLengthArray>

#include <array>
#include <cmath>
#include <cstdarg>
#include <cstdio>
#include <cstring>

namespace {

constexpr int messageKind = 1;

/** A buffer for an answer, far larger than the 200 bytes that the host promises not to exceed. */
using AnswerBuffer = std::array<char, 8192>;

/**
 * The zeroed part of an answer buffer. It is larger than what the host promises to use, so that an
 * answer ends even without a NUL.
 */
constexpr int zeroedBytes = 256;

/** True for a character that would break a line of the message log or of a label. */
bool isControl(QChar sign)
{
    return sign.category() == QChar::Other_Control || sign.category() == QChar::Separator_Line
           || sign.category() == QChar::Separator_Paragraph;
}

/** True for most characters of most answers; they need no lookup in the tables of Unicode. */
bool isPrintableAscii(QChar sign)
{
    return sign >= QLatin1Char(' ') && sign <= QLatin1Char('~');
}

/** Makes sure that the buffer ends with a NUL, whatever the host writes into it. */
void terminate(AnswerBuffer *buffer)
{
    std::memset(buffer->data(), 0, zeroedBytes);
    buffer->back() = '\0';
}

QString decode(AnswerBuffer &buffer)
{
    buffer.back() = '\0';
    QString answer = QString::fromUtf8(buffer.data());
    for (QChar &sign : answer) {
        if (!isPrintableAscii(sign) && isControl(sign))
            sign = QChar::ReplacementCharacter;
    }
    return answer;
}

/** True when the format has only texts and whole numbers, which look the same in every locale. */
bool isLocaleFree(const char *format)
{
    for (format = std::strchr(format, '%'); format; format = std::strchr(format, '%')) {
        do {
            ++format;
        } while ((*format >= '0' && *format <= '9') || *format == '.');
        if (*format != 's' && *format != 'd')
            return false;
    }
    return true;
}

/**
 * False for a line with a line break, which would end the line, or with an unpaired quote, after
 * which the rest would have another meaning.
 */
bool maySend(const char *line)
{
    bool isInQuotes = false;
    for (line = std::strpbrk(line, "\n\r\""); line; line = std::strpbrk(line + 1, "\n\r\"")) {
        if (*line != '"')
            return false;
        isInQuotes = !isInQuotes;
    }
    return !isInQuotes;
}

/** A command line on the stack; empty when it must not be sent. */
class CommandLine {
public:
    PRINTF_FORMAT(2, 0) CommandLine(const char *format, va_list arguments)
    {
        if (isLocaleFree(format)) {
            print(format, arguments);
        } else {
            const QByteArray line = QString::vasprintf(format, arguments).toUtf8();
            m_line.append(line.constData(), line.size() + 1);
        }
        if (!maySend(m_line.constData()))
            m_line[0] = '\0';
    }
    const char *data() const { return m_line.constData(); }

private:
    PRINTF_FORMAT(2, 0) void print(const char *format, va_list arguments)
    {
        va_list again;
        va_copy(again, arguments);
        m_line.resize(m_line.capacity());
        const int length = std::vsnprintf(m_line.data(), size_t(m_line.size()), format, arguments);
        if (length >= m_line.size()) {
            m_line.resize(length + 1);
            std::vsnprintf(m_line.data(), size_t(m_line.size()), format, again);
        }
        va_end(again);
    }

    QVarLengthArray<char, 256> m_line;
};

} // namespace

// A macro, because a va_list cannot leave the function that has the variable arguments.
#define LINE_OF(format)                                                                            \
    va_list arguments;                                                                             \
    va_start(arguments, format);                                                                   \
    const CommandLine commandLine(format, arguments);                                              \
    va_end(arguments);                                                                             \
    const char *const line = commandLine.data()

/**
 * One query or write. It keeps what it needs of the link, because a host may delete the link's
 * owner meanwhile, and reports its end to the observer.
 */
class ControllerLink::Operation {
public:
    explicit Operation(const ControllerLink &link)
        : m_host(link.m_host), m_observer(link.m_observer)
    {
    }
    ~Operation()
    {
        if (m_observer)
            emit m_observer->operationDone();
    }
    Operation(const Operation &) = delete;
    Operation &operator=(const Operation &) = delete;

    /** Calls `call` for a line that may be sent; true when the host reports no failure. */
    template <typename Call>
    bool succeeds(const char *line, const Call &call) const
    {
        return m_host->iom && *line != '\0' && call(m_host->iom) == 0 && !m_host->closed;
    }
    /** The result of a write. */
    bool accepted(bool done) const
    {
        if (done && m_observer)
            emit m_observer->writeAccepted();
        return done;
    }

private:
    const HostCall m_call; ///< destroyed last, after the observer was notified
    const std::shared_ptr<const Host> m_host;
    const QPointer<LinkObserver> m_observer;
};

ControllerLink::ControllerLink(IOManager *iom, const BackendVersions *versions,
                               LinkObserver *observer)
    : m_host(std::make_shared<Host>()), m_versions(versions), m_observer(observer)
{
    m_host->iom = iom;
}

void ControllerLink::close() const
{
    m_host->iom = nullptr;
    m_host->closed = true;
}

bool ControllerLink::isClosed() const
{
    return m_host->closed;
}

std::optional<QString> ControllerLink::askText(const char *line) const
{
    const Operation operation(*this);
    AnswerBuffer buffer;
    terminate(&buffer);
    const bool done = operation.succeeds(
            line, [&](IOManager *iom) { return iom->get_string(buffer.data(), "%s", line); });
    if (!done)
        return std::nullopt;
    return decode(buffer);
}

std::optional<int> ControllerLink::askInteger(const char *line) const
{
    const Operation operation(*this);
    int value = 0;
    const bool done = operation.succeeds(
            line, [&](IOManager *iom) { return iom->get_int(&value, "%s", line); });
    return done ? std::optional<int>(value) : std::nullopt;
}

std::optional<QString> ControllerLink::text(const char *format, ...) const
{
    LINE_OF(format);
    return askText(line);
}

std::optional<QString> ControllerLink::name(const char *format, ...) const
{
    LINE_OF(format);
    const auto answer = *line == '\0' ? std::nullopt : askText(line);
    return answer && answer->trimmed().isEmpty() ? QStringLiteral("none") : answer;
}

std::optional<int> ControllerLink::integer(const char *format, ...) const
{
    LINE_OF(format);
    return askInteger(line);
}

std::optional<int> ControllerLink::count(const char *format, ...) const
{
    constexpr int largest = 9999;
    LINE_OF(format);
    const auto value = *line == '\0' ? std::nullopt : askInteger(line);
    return value && *value >= 0 && *value <= largest ? value : std::nullopt;
}

std::optional<double> ControllerLink::real(const char *format, ...) const
{
    LINE_OF(format);
    const Operation operation(*this);
    double value = 0.0;
    const bool done = operation.succeeds(
            line, [&](IOManager *iom) { return iom->get_double(&value, "%s", line); });
    return done && std::isfinite(value) ? std::optional<double>(value) : std::nullopt;
}

std::optional<bool> ControllerLink::flag(const char *format, ...) const
{
    LINE_OF(format);
    const Operation operation(*this);
    bool value = false;
    const bool done = operation.succeeds(
            line, [&](IOManager *iom) { return iom->get_bool(&value, "%s", line); });
    return done ? std::optional<bool>(value) : std::nullopt;
}

bool ControllerLink::set(const char *format, ...) const
{
    LINE_OF(format);
    const Operation operation(*this);
    return operation.accepted(
            operation.succeeds(line, [&](IOManager *iom) { return iom->set("%s", line); }));
}

bool ControllerLink::command(const char *format, ...) const
{
    LINE_OF(format);
    const Operation operation(*this);
    AnswerBuffer buffer;
    terminate(&buffer);
    const bool done = operation.succeeds(
            line, [&](IOManager *iom) { return iom->send_command(buffer.data(), line); });
    if (!done)
        return false;
    buffer.back() = '\0';
    // The bytes are compared, because decoding them as text would accept a byte order mark.
    return operation.accepted(std::strcmp(buffer.data(), "morvek2 ok") == 0);
}

void ControllerLink::log(const QString &line) const
{
    const HostCall call;
    const QPointer<LinkObserver> observer = m_observer;
    if (m_host->iom)
        m_host->iom->send_message("standard", "MORVEK3", messageKind, line.toUtf8().constData());
    if (observer)
        emit observer->lineLogged(line);
}

void ControllerLink::notice(const QString &line) const
{
    if (m_observer)
        emit m_observer->lineLogged(line);
}

void ControllerLink::post(const char *channel, const QString &request) const
{
    const HostCall call;
    if (m_host->iom) {
        m_host->iom->send_message(channel, "BodyAdministrationModule", messageKind,
                                  request.toUtf8().constData());
    }
}

void ControllerLink::progress(int done, int total) const
{
    if (m_observer)
        emit m_observer->progressed(done, total);
}

void ControllerLink::registerReceiver(const char *channel, MessageReceiver *receiver) const
{
    if (m_host->iom)
        m_host->iom->register_receiver(channel, receiver);
}

void ControllerLink::unregisterReceiver(const char *channel, MessageReceiver *receiver) const
{
    if (m_host->iom)
        m_host->iom->unregister_receiver(channel, receiver);
}

bool ControllerLink::protocolAtLeast(int major, int minor) const
{
    return m_versions && m_versions->prot >= VersionInfo(major, minor, -1);
}

bool ControllerLink::isPocketUnit() const
{
    return m_versions && m_versions->mod.startsWith(QLatin1String("POCKETUNIT"));
}

bool ControllerLink::isConfigLocked() const
{
    const QPointer<LinkObserver> observer = m_observer;
    bool locked = false;
    if (protocolAtLeast(1, 9)) {
        const auto changeable = text("config is_changeable");
        if (!changeable)
            log(QStringLiteral("Error: Unable to get lock state of the configuration"));
        locked = changeable == QLatin1String("no");
    }
    if (observer)
        emit observer->lockRead(locked);
    return locked;
}

QByteArray ControllerLink::argument(const QString &text)
{
    return text.toUtf8().replace('\0', '\n');
}

QString ControllerLink::withoutDoubleQuotes(QString text)
{
    return text.remove(QLatin1Char('"'));
}

int ControllerLink::wholeMilliseconds(double seconds)
{
    constexpr double nanosecondsPerSecond = 1e9;
    constexpr qint64 nanosecondsPerMillisecond = 1000000;
    constexpr double longestSeconds = 2e6;
    const double bounded = qBound(-longestSeconds, seconds, longestSeconds);
    return int(qint64(std::llround(bounded * nanosecondsPerSecond)) / nanosecondsPerMillisecond);
}
