#pragma once

#include "TranscriptEntry.h"

#include <QDockWidget>
#include <QTimer>
#include <QVector>

class QLineEdit;
class QLabel;
class QPushButton;
class QTableView;
class SimulatedIOManager;
class TranscriptFilter;
class TranscriptModel;

/** Lists every operation the module asked for; filterable while typing, exportable as text. */
class TranscriptDock : public QDockWidget {
    Q_OBJECT

public:
    explicit TranscriptDock(SimulatedIOManager *io, QWidget *parent = nullptr);

    ~TranscriptDock() override;

    /** Names the file that has the rows which the limit drops here; empty: there is none. */
    void setRecordingFile(const QString &file);
    /** Writes what the IOManager recorded so far; the result is shown in the dock too. */
    bool exportTo(const QString &file);

private:
    void buildLayout();
    void connectWidgets();
    void chooseExportFile();
    /** Shows what was recorded since the last time. */
    void takePending();
    void showCount();

    SimulatedIOManager *m_io;
    TranscriptModel *m_model;
    TranscriptFilter *m_filter;
    QTableView *m_view;
    QLineEdit *m_filterEdit;
    QPushButton *m_clear;
    QPushButton *m_export;
    QLabel *m_status;
    QVector<TranscriptEntry> m_pending; ///< recorded, but not shown yet
    QTimer m_pendingTimer;
    QString m_recordingFile;
    bool m_followsEnd = true;
};
