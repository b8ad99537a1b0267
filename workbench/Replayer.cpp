#include "Replayer.h"

#include "Recording.h"
#include "SimulatedIOManager.h"

#include <algorithm>

namespace {

QString describe(const TranscriptEntry &entry)
{
    return QStringLiteral("%1 %2").arg(TranscriptEntry::operationName(entry.operation),
                                       QString::fromUtf8(entry.line));
}

} // namespace

Replayer::Replayer(SimulatedIOManager *io, const QVector<TranscriptEntry> &recording,
                   QObject *parent)
    : QObject(parent), m_io(io)
{
    std::copy_if(recording.cbegin(), recording.cend(), std::back_inserter(m_recording),
                 [](const TranscriptEntry &entry) {
                     return entry.operation != TranscriptEntry::Operation::Message;
                 });
    m_io->setResponder([this](TranscriptEntry *entry) { answer(entry); });
}

Replayer::~Replayer()
{
    m_io->setResponder({});
}

void Replayer::answer(TranscriptEntry *entry)
{
    const bool agrees = m_difference.isEmpty() && m_next < m_recording.size()
                        && m_recording.at(m_next).operation == entry->operation
                        && m_recording.at(m_next).line == entry->line;
    if (agrees) {
        const TranscriptEntry &recorded = m_recording.at(m_next++);
        entry->answer = recorded.answer;
        entry->result = recorded.result;
        entry->virtualMs = recorded.virtualMs;
        return;
    }
    entry->result = SimulatedIOManager::Failed;
    if (!m_difference.isEmpty())
        return;
    m_difference = QStringLiteral("the replay differs at operation %1\n").arg(m_next + 1);
    for (int i = qMax(0, m_next - Recording::contextLines); i < m_next; ++i)
        m_difference += QStringLiteral("  %1\n").arg(describe(m_recording.at(i)));
    m_difference += QStringLiteral("- %1\n").arg(
            m_next < m_recording.size() ? describe(m_recording.at(m_next))
                                        : QStringLiteral("(end of the recording)"));
    m_difference += QStringLiteral("+ %1\n").arg(describe(*entry));
    emit differed();
}
