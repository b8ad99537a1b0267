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

/** Lists every operation of the module. The list can be filtered by typing and exported as text. */
class TranscriptDock : public QDockWidget {
    Q_OBJECT

public:
    explicit TranscriptDock(SimulatedIOManager *io, QWidget *parent = nullptr);

    ~TranscriptDock() override;

    /**
     * Sets the name of the file that keeps the rows which the limit drops here; empty: there is
     * none.
     */
    void setRecordingFile(const QString &file);
    /** Writes all operations that the IOManager has recorded; the dock shows the result, too. */
    bool exportTo(const QString &file);

private:
    void buildLayout();
    void connectWidgets();
    void chooseExportFile();
    /** Shows the operations recorded since the last call. */
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
