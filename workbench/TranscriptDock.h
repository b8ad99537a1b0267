#pragma once

#include <QDockWidget>

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

    /** Writes what the IOManager recorded so far; the result is shown in the dock too. */
    bool exportTo(const QString &file);

private:
    void buildLayout();
    void connectWidgets();
    void chooseExportFile();
    void showCount();

    SimulatedIOManager *m_io;
    TranscriptModel *m_model;
    TranscriptFilter *m_filter;
    QTableView *m_view;
    QLineEdit *m_filterEdit;
    QPushButton *m_clear;
    QPushButton *m_export;
    QLabel *m_status;
    bool m_followsEnd = true;
};
