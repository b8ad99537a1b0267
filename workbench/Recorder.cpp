#include "Recorder.h"

#include "Recording.h"
#include "SimulatedIOManager.h"
#include "WorkbenchTime.h"

Recorder::Recorder(SimulatedIOManager *io, QObject *parent) : QObject(parent), m_io(io) {}

bool Recorder::start(const QString &file, QString *error)
{
    m_file.setFileName(file);
    if (!m_file.open(QIODevice::WriteOnly | QIODevice::Truncate)) {
        *error = QStringLiteral("--record %1: %2").arg(file, m_file.errorString());
        return false;
    }
    for (const TranscriptEntry &entry : m_io->transcript())
        write(entry);
    connect(m_io, &SimulatedIOManager::recorded, this, &Recorder::write);
    return true;
}

void Recorder::write(const TranscriptEntry &entry)
{
    const WorkbenchTime own;
    m_file.write(Recording::toLine(entry) + '\n');
    m_file.flush();
}
