#include "TranscriptDock.h"

#include "SimulatedIOManager.h"
#include "TranscriptFilter.h"
#include "TranscriptModel.h"
#include "TranscriptText.h"
#include "WorkbenchTime.h"

#include <QFileDialog>
#include <QHBoxLayout>
#include <QHeaderView>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QScrollBar>
#include <QTableView>
#include <QVBoxLayout>

#include <utility>

namespace {

constexpr int rowsPerMs = 2000;

} // namespace

TranscriptDock::TranscriptDock(SimulatedIOManager *io, QWidget *parent)
    : QDockWidget(tr("Transcript"), parent),
      m_io(io),
      m_model(new TranscriptModel(this)),
      m_filter(new TranscriptFilter(m_model, this)),
      m_view(new QTableView),
      m_filterEdit(new QLineEdit),
      m_clear(new QPushButton(tr("C&lear"))),
      m_export(new QPushButton(tr("E&xport..."))),
      m_status(new QLabel)
{
    setObjectName(QStringLiteral("dock_transcript"));
    m_pendingTimer.setSingleShot(true);
    m_view->setObjectName(QStringLiteral("tableView_transcript"));
    m_view->setModel(m_filter);
    m_view->setSelectionBehavior(QAbstractItemView::SelectRows);
    m_view->setWordWrap(false);
    m_view->verticalHeader()->hide();
    m_view->verticalHeader()->setDefaultSectionSize(m_view->fontMetrics().height() + 4);
    m_view->horizontalHeader()->setSectionResizeMode(TranscriptModel::Command,
                                                     QHeaderView::Stretch);
    m_view->setColumnWidth(TranscriptModel::Result, m_view->fontMetrics().averageCharWidth() * 9);

    buildLayout();
    connectWidgets();
    m_pending = io->transcript();
    takePending();
}

TranscriptDock::~TranscriptDock()
{
    // The view's last scrolling, when its rows are removed, must not be followed.
    m_view->verticalScrollBar()->disconnect(this);
}

void TranscriptDock::buildLayout()
{
    m_filterEdit->setObjectName(QStringLiteral("lineEdit_transcriptFilter"));
    m_filterEdit->setPlaceholderText(tr("Filter: words that a row must hold"));
    m_clear->setObjectName(QStringLiteral("pushButton_clearTranscript"));
    m_export->setObjectName(QStringLiteral("pushButton_exportTranscript"));
    m_status->setObjectName(QStringLiteral("label_transcriptStatus"));

    auto *top = new QHBoxLayout;
    top->addWidget(m_filterEdit);
    top->addWidget(m_clear);
    top->addWidget(m_export);
    auto *content = new QWidget;
    auto *layout = new QVBoxLayout(content);
    layout->addLayout(top);
    layout->addWidget(m_view);
    layout->addWidget(m_status);
    setWidget(content);
}

void TranscriptDock::connectWidgets()
{
    connect(m_filterEdit, &QLineEdit::textChanged, this, [this](const QString &text) {
        m_filter->setWords(text);
        showCount();
    });
    connect(m_filter, &TranscriptFilter::finished, this, &TranscriptDock::showCount);
    connect(&m_pendingTimer, &QTimer::timeout, this, &TranscriptDock::takePending);
    connect(m_clear, &QPushButton::clicked, this, [this] {
        m_io->clearTranscript();
        m_pending.clear();
        m_model->clear();
        showCount();
    });
    connect(m_export, &QPushButton::clicked, this, &TranscriptDock::chooseExportFile);
    connect(m_io, &SimulatedIOManager::recorded, this, [this](const TranscriptEntry &entry) {
        m_pending << entry;
        // The layout of many rows takes long, so that the view may lag behind.
        if (!m_pendingTimer.isActive())
            m_pendingTimer.start(m_model->rowCount() / rowsPerMs);
    });
    // The view lays out new rows later, so that the scroll bar is followed when its end moves.
    QScrollBar *bar = m_view->verticalScrollBar();
    connect(bar, &QScrollBar::rangeChanged, this, [this, bar](int, int maximum) {
        if (m_followsEnd)
            bar->setValue(maximum);
    });
    connect(bar, &QScrollBar::valueChanged, this,
            [this, bar](int value) { m_followsEnd = value == bar->maximum(); });
}

void TranscriptDock::takePending()
{
    const WorkbenchTime own;
    const QVector<TranscriptEntry> pending = std::exchange(m_pending, {});
    m_model->setLimit(m_io->transcriptLimit());
    if (!pending.isEmpty())
        m_model->append(pending);
    showCount();
}

void TranscriptDock::setRecordingFile(const QString &file)
{
    m_recordingFile = file;
    showCount();
}

void TranscriptDock::showCount()
{
    QString text = tr("%1 of %2 operations").arg(m_filter->rowCount()).arg(m_model->rowCount());
    if (m_filter->isBusy())
        text += tr(", still looking");
    const qint64 dropped = m_model->droppedCount();
    if (dropped > 0 && m_recordingFile.isEmpty())
        text += tr("; the %1 oldest were dropped").arg(dropped);
    else if (dropped > 0)
        text += tr("; the %1 oldest are in %2 only").arg(dropped).arg(m_recordingFile);
    m_status->setText(text);
}

void TranscriptDock::chooseExportFile()
{
    const QString file = QFileDialog::getSaveFileName(this, tr("Export transcript"),
                                                      QStringLiteral("transcript.txt"),
                                                      tr("Text files (*.txt);;All files (*)"));
    if (!file.isEmpty())
        exportTo(file);
}

bool TranscriptDock::exportTo(const QString &file)
{
    QString error;
    const bool saved = TranscriptText::save(file, m_io->transcript(), &error);
    m_status->setText(saved ? tr("Transcript written to %1").arg(file) : error);
    return saved;
}
