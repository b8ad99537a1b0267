#pragma once

#include <QFile>
#include <QObject>

class SimulatedIOManager;
struct TranscriptEntry;

/** Writes every operation to a file at once, and flushes each line. Owned by the program. */
class Recorder : public QObject {
    Q_OBJECT

public:
    explicit Recorder(SimulatedIOManager *io, QObject *parent = nullptr);

    /**
     * Starts recording, beginning with the operations so far; false with *error naming the file.
     */
    bool start(const QString &file, QString *error);

private:
    void write(const TranscriptEntry &entry);

    SimulatedIOManager *m_io;
    QFile m_file;
};
