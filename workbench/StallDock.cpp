#include "StallDock.h"

#include "StallMeter.h"
#include "WorkbenchTime.h"

#include <QHeaderView>
#include <QLabel>
#include <QSlider>
#include <QTableWidget>
#include <QVBoxLayout>

namespace {

constexpr int latencyStepMs = 10;

} // namespace

StallDock::StallDock(StallMeter *meter, QWidget *parent)
    : QDockWidget(tr("Stalls"), parent),
      m_meter(meter),
      m_latency(new QSlider(Qt::Horizontal)),
      m_latencyText(new QLabel),
      m_worst(new QTableWidget(0, 4))
{
    setObjectName(QStringLiteral("dock_stalls"));
    m_latency->setObjectName(QStringLiteral("slider_latency"));
    m_latency->setRange(0, StallMeter::longestLatencyMs);
    m_latency->setPageStep(latencyStepMs);
    m_latencyText->setObjectName(QStringLiteral("label_latency"));
    m_worst->setObjectName(QStringLiteral("tableWidget_stalls"));
    m_worst->setHorizontalHeaderLabels(
            {tr("Dialog"), tr("Held"), tr("Operations"), tr("First command")});
    m_worst->setEditTriggers(QAbstractItemView::NoEditTriggers);
    m_worst->verticalHeader()->hide();
    m_worst->horizontalHeader()->setStretchLastSection(true);
    auto *content = new QWidget;
    auto *layout = new QVBoxLayout(content);
    layout->addWidget(m_latencyText);
    layout->addWidget(m_latency);
    layout->addWidget(new QLabel(tr("Longest time the dialogs could not react:")));
    layout->addWidget(m_worst);
    setWidget(content);
    connect(m_latency, &QSlider::valueChanged, m_meter, &StallMeter::setLatencyMs);
    connect(m_meter, &StallMeter::latencyChanged, this, &StallDock::showLatency);
    connect(m_meter, &StallMeter::worstChanged, this, &StallDock::refresh);
    showLatency(m_meter->latencyMs());
    refresh();
}

void StallDock::showLatency(int latencyMs)
{
    m_latency->setValue(latencyMs);
    m_latencyText->setText(tr("Each operation takes %1 ms.").arg(latencyMs));
}

void StallDock::refresh()
{
    const WorkbenchTime own;
    const QMap<QString, StallMeter::Stall> &worst = m_meter->worst();
    m_worst->setRowCount(worst.size());
    int row = 0;
    for (auto it = worst.cbegin(); it != worst.cend(); ++it, ++row) {
        const QString dialog = it.key().isEmpty() ? tr("main window") : it.key();
        const QStringList texts = {dialog, tr("%1 ms").arg(it->heldMs),
                                   QString::number(it->operations), it->firstCommand};
        for (int column = 0; column < texts.size(); ++column)
            m_worst->setItem(row, column, new QTableWidgetItem(texts.at(column)));
    }
}
