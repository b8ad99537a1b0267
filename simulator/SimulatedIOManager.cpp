#include "SimulatedIOManager.h"

#include "CommandTally.h"
#include "FaultEngine.h"
#include "MessageReceiver.h"
#include "SimulatedController.h"

#include <QElapsedTimer>
#include <QRegularExpression>

#include <cmath>
#include <cstdarg>
#include <cstdio>
#include <cstring>

namespace {

using Operation = TranscriptEntry::Operation;
using Effect = FaultRule::Effect;

constexpr int longestAnswerBytes = 199;
constexpr int overlongAnswerBytes = 3999;

/** The line that printf makes, in the locale of the process. */
HOSTINTERFACE_PRINTF(1, 0) QByteArray formatted(const char *format, va_list arguments)
{
    va_list again;
    va_copy(again, arguments);
    const int size = std::vsnprintf(nullptr, 0, format, arguments);
    QByteArray line(qMax(0, size), '\0');
    if (size > 0)
        std::vsnprintf(line.data(), size_t(size) + 1, format, again);
    va_end(again);
    return line;
}

// A macro, because a va_list cannot leave the function that has the variable arguments.
#define LINE_OF(format)                                                                            \
    va_list arguments;                                                                             \
    va_start(arguments, format);                                                                   \
    const QByteArray line = formatted(format, arguments);                                          \
    va_end(arguments)

/** The answer, cut to the bytes that fit without splitting a character. */
QByteArray cut(const QByteArray &answer)
{
    int size = qMin(answer.size(), longestAnswerBytes);
    while (size > 0 && size < answer.size() && (uchar(answer.at(size)) & 0xC0) == 0x80)
        --size;
    return answer.left(size);
}

/** The line with half of its last number; unchanged when the last word is not a number. */
QByteArray halved(const QByteArray &line)
{
    static const QRegularExpression lastNumber(
            QStringLiteral("^(.* )(-?\\d+)(?:\\.(\\d+))?([^\\d]*)$"));
    const QRegularExpressionMatch match = lastNumber.match(QString::fromUtf8(line));
    if (!match.hasMatch())
        return line;
    const int decimals = match.capturedLength(3);
    QString number = match.captured(2);
    if (decimals > 0)
        number += QLatin1Char('.') + match.captured(3);
    const QString half = decimals > 0 ? QString::number(number.toDouble() / 2, 'f', decimals)
                                      : QString::number(number.toLongLong() / 2);
    return (match.captured(1) + half + match.captured(4)).toUtf8();
}

bool contains(const QVector<FaultRule> &rules, Effect effect)
{
    for (const FaultRule &rule : rules) {
        if (rule.effect == effect)
            return true;
    }
    return false;
}

/** Replaces *answer when the effect of the rule concerns answers. */
bool disturb(const FaultRule &rule, Operation operation, QByteArray *answer)
{
    const bool isText = operation == Operation::GetString || operation == Operation::Command;
    switch (rule.effect) {
    case Effect::EmptyAnswer:
        answer->clear();
        return true;
    case Effect::WrongType:
        *answer = isText ? "4711" : "text";
        return true;
    case Effect::Garbled:
        *answer = "\xff\xfe\x80 \xc3";
        return true;
    case Effect::LongAnswer:
        *answer = QByteArray(longestAnswerBytes, 'x');
        return true;
    case Effect::OverlongAnswer:
        *answer = QByteArray(overlongAnswerBytes, 'x');
        return true;
    case Effect::Answer:
        *answer = cut(rule.text.toUtf8());
        return true;
    default:
        return false;
    }
}

CommandAccess accessOf(Operation operation)
{
    if (operation == Operation::Command)
        return CommandAccess::Action;
    return operation == Operation::Set ? CommandAccess::Set : CommandAccess::Get;
}

/** The controller's reply, or a refusal when a rule keeps the line from the controller. */
CommandReply askController(SimulatedController *controller, const TranscriptEntry &entry,
                           const QVector<FaultRule> &rules)
{
    CommandReply refused;
    refused.answer = "morvek2 err \"refused\"";
    if (contains(rules, Effect::Refuse))
        return refused;
    const bool clamped = contains(rules, Effect::Clamp);
    return controller->execute(accessOf(entry.operation),
                               clamped ? halved(entry.line) : entry.line);
}

void copyOut(char *out, const TranscriptEntry &entry)
{
    if (entry.result == SimulatedIOManager::Ok && out)
        std::memcpy(out, entry.answer.constData(), size_t(entry.answer.size()) + 1);
}

QByteArray bytes(const char *text)
{
    return QByteArray(text ? text : "");
}

} // namespace

SimulatedIOManager::SimulatedIOManager(SimulatedController *controller, QObject *parent)
    : QObject(parent),
      m_controller(controller),
      m_faults(new FaultEngine(this)),
      m_tally(CommandTally::wanted())
{
}

SimulatedIOManager::~SimulatedIOManager() = default;

int SimulatedIOManager::send_command(char *answer, const char *command)
{
    TranscriptEntry entry = perform(Operation::Command, bytes(command));
    copyOut(answer, entry);
    record(&entry);
    return entry.result;
}

int SimulatedIOManager::get_string(char *out, const char *format, ...)
{
    LINE_OF(format);
    TranscriptEntry entry = perform(Operation::GetString, line);
    copyOut(out, entry);
    record(&entry);
    return entry.result;
}

int SimulatedIOManager::get_int(int *out, const char *format, ...)
{
    LINE_OF(format);
    TranscriptEntry entry = perform(Operation::GetInt, line);
    bool ok = false;
    const int value = entry.answer.toInt(&ok);
    if (entry.result == Ok && !ok)
        entry.result = NotConverted;
    if (entry.result == Ok && out)
        *out = value;
    record(&entry);
    return entry.result;
}

int SimulatedIOManager::get_double(double *out, const char *format, ...)
{
    LINE_OF(format);
    TranscriptEntry entry = perform(Operation::GetDouble, line);
    bool ok = false;
    const double value = entry.answer.toDouble(&ok);
    if (entry.result == Ok && !(ok && std::isfinite(value)))
        entry.result = NotConverted;
    if (entry.result == Ok && out)
        *out = value;
    record(&entry);
    return entry.result;
}

int SimulatedIOManager::get_bool(bool *out, const char *format, ...)
{
    LINE_OF(format);
    TranscriptEntry entry = perform(Operation::GetBool, line);
    const bool isYes = entry.answer == "yes";
    if (entry.result == Ok && !isYes && entry.answer != "no")
        entry.result = NotConverted;
    if (entry.result == Ok && out)
        *out = isYes;
    record(&entry);
    return entry.result;
}

int SimulatedIOManager::set(const char *format, ...)
{
    LINE_OF(format);
    TranscriptEntry entry = perform(Operation::Set, line);
    record(&entry);
    return entry.result;
}

void SimulatedIOManager::send_message(const char *channel, const char *sender, int kind,
                                      const char *text)
{
    const QByteArray name = bytes(channel);
    TranscriptEntry entry;
    entry.virtualMs = m_virtualMs;
    entry.operation = Operation::Message;
    entry.line = name + '|' + bytes(sender) + '|' + QByteArray::number(kind) + '|' + bytes(text);
    record(&entry);
    emit messageSent(QString::fromUtf8(name), QString::fromUtf8(bytes(sender)), kind,
                     QString::fromUtf8(bytes(text)));
    // A copy, because a receiver may withdraw itself or others while it handles the message.
    const auto receivers = m_receivers;
    for (const auto &one : receivers) {
        if (one.first == name && m_receivers.contains(one))
            one.second->transmit_message(kind, bytes(sender).constData(), bytes(text).constData());
    }
}

void SimulatedIOManager::register_receiver(const char *channel, MessageReceiver *receiver)
{
    const auto entry = qMakePair(bytes(channel), receiver);
    if (receiver && !m_receivers.contains(entry))
        m_receivers << entry;
}

void SimulatedIOManager::unregister_receiver(const char *channel, MessageReceiver *receiver)
{
    m_receivers.removeOne(qMakePair(bytes(channel), receiver));
}

void SimulatedIOManager::clearTranscript()
{
    m_gone += m_transcript.size();
    m_transcript.clear();
}

void SimulatedIOManager::setTranscriptLimit(int limit)
{
    m_transcriptLimit = limit > 0 ? qMax(limit, TranscriptEntry::fewestKept) : 0;
    dropOldest();
}

void SimulatedIOManager::dropOldest()
{
    const int surplus = TranscriptEntry::surplus(m_transcript.size(), m_transcriptLimit);
    m_transcript.erase(m_transcript.begin(), m_transcript.begin() + surplus);
    m_gone += surplus;
}

void SimulatedIOManager::setDialogProbe(std::function<QString()> probe)
{
    m_dialogProbe = std::move(probe);
}

void SimulatedIOManager::setScript(const QString &file)
{
    if (m_tally)
        m_tally->setScript(file);
}

void SimulatedIOManager::setResponder(std::function<void(TranscriptEntry *)> responder)
{
    m_responder = std::move(responder);
}

int SimulatedIOManager::receiverCount(const char *channel) const
{
    int count = 0;
    for (const auto &one : m_receivers)
        count += one.first == channel ? 1 : 0;
    return count;
}

TranscriptEntry SimulatedIOManager::perform(Operation operation, const QByteArray &line)
{
    QElapsedTimer timer;
    timer.start();
    TranscriptEntry entry;
    entry.virtualMs = m_virtualMs;
    entry.operation = operation;
    entry.line = line;
    if (m_responder)
        m_responder(&entry);
    else
        carryOut(&entry);
    if (m_measuring)
        entry.durationUs = timer.nsecsElapsed() / 1000;
    return entry;
}

void SimulatedIOManager::carryOut(TranscriptEntry *entry)
{
    const QVector<FaultRule> rules = m_faults->fire(entry->operation, entry->line, m_virtualMs);
    for (const FaultRule &rule : rules) {
        if (rule.effect == Effect::Delay)
            m_virtualMs += rule.number;
    }
    if (contains(rules, Effect::Lock) && m_controller->state().configChangeable) {
        ControllerState locked = m_controller->state();
        locked.configChangeable = false;
        m_controller->setState(locked);
    }
    if (contains(rules, Effect::LinkDead))
        m_faults->setLinkDead(true);
    if (m_tally) {
        m_tally->add(accessOf(entry->operation), entry->line, openDialog(), rules,
                     m_faults->linkDead());
    }
    if (m_faults->linkDead() || contains(rules, Effect::Fail)) {
        entry->result = Failed;
        return;
    }

    const bool isAction = entry->operation == Operation::Command;
    const CommandReply reply = askController(m_controller, *entry, rules);
    // A controller answers an action that it refuses, so that the operation itself succeeds.
    if (reply.unknown)
        entry->result = Unknown;
    else if (!reply.ok && !isAction)
        entry->result = Refused;

    QByteArray answer = cut(reply.answer);
    bool disturbed = false;
    for (const FaultRule &rule : rules)
        disturbed = disturb(rule, entry->operation, &answer) || disturbed;
    if (disturbed && entry->result == Refused)
        entry->result = Ok;
    if (contains(rules, Effect::ReportFailed))
        entry->result = Failed;
    if (entry->result == Ok)
        entry->answer = answer;
}

QString SimulatedIOManager::openDialog() const
{
    return m_dialogProbe ? m_dialogProbe() : QString();
}

void SimulatedIOManager::record(TranscriptEntry *entry)
{
    entry->dialog = openDialog();
    m_transcript << *entry;
    if (m_transcriptLimit > 0 && m_transcript.size() > m_transcriptLimit)
        dropOldest();
    emit recorded(*entry);
}
