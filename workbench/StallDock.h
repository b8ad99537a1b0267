#pragma once

#include <QDockWidget>

class QLabel;
class QSlider;
class QTableWidget;
class StallMeter;

/** Shows the longest stall of each dialog, and sets the duration of each operation. */
class StallDock : public QDockWidget {
    Q_OBJECT

public:
    explicit StallDock(StallMeter *meter, QWidget *parent = nullptr);

private:
    void showLatency(int latencyMs);
    void refresh();

    StallMeter *m_meter;
    QSlider *m_latency;
    QLabel *m_latencyText;
    QTableWidget *m_worst;
};
