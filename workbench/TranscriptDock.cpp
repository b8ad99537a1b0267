#include "TranscriptDock.h"

#include "SimulatedIOManager.h"
#include "TranscriptFilter.h"
#include "TranscriptModel.h"
#include "TranscriptText.h"

#include <QFileDialog>
#include <QHBoxLayout>
#include <QHeaderView>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QScrollBar>
#include <QTableView>
#include <QVBoxLayout>

TranscriptDock::TranscriptDock(SimulatedIOManager *io, QWidget *parent)
    : QDockWidget(tr("Transcript"), parent),
      m_io(io),
      m_model(new TranscriptModel(this)),
      m_filter(new TranscriptFilter(this)),
      m_view(new QTableView),
      m_status(new QLabel)
{
    setObjectName(QStringLiteral("dock_transcript"));
    for (const TranscriptEntry &entry : io->transcript())
        m_model->append(entry);
    m_filter->setSourceModel(m_model);
    m_view->setObjectName(QStringLiteral("tableView_transcript"));
    m_view->setModel(m_filter);
    m_view->setSelectionBehavior(QAbstractItemView::SelectRows);
    m_view->setWordWrap(false);
    m_view->verticalHeader()->hide();
    m_view->verticalHeader()->setDefaultSectionSize(m_view->fontMetrics().height() + 4);
    m_view->horizontalHeader()->setSectionResizeMode(TranscriptModel::Command,
                                                     QHeaderView::Stretch);
    m_view->setColumnWidth(TranscriptModel::Result, m_view->fontMetrics().averageCharWidth() * 9);

    auto *filterEdit = new QLineEdit;
    filterEdit->setObjectName(QStringLiteral("lineEdit_transcriptFilter"));
    filterEdit->setPlaceholderText(tr("Filter: words that a row must hold"));
    auto *clearButton = new QPushButton(tr("C&lear"));
    clearButton->setObjectName(QStringLiteral("pushButton_clearTranscript"));
    auto *exportButton = new QPushButton(tr("E&xport..."));
    exportButton->setObjectName(QStringLiteral("pushButton_exportTranscript"));
    m_status->setObjectName(QStringLiteral("label_transcriptStatus"));

    auto *top = new QHBoxLayout;
    top->addWidget(filterEdit);
    top->addWidget(clearButton);
    top->addWidget(exportButton);
    auto *content = new QWidget;
    auto *layout = new QVBoxLayout(content);
    layout->addLayout(top);
    layout->addWidget(m_view);
    layout->addWidget(m_status);
    setWidget(content);

    connect(filterEdit, &QLineEdit::textChanged, this, [this](const QString &text) {
        m_filter->setWords(text);
        showCount();
    });
    connect(clearButton, &QPushButton::clicked, this, [this] {
        m_io->clearTranscript();
        m_model->clear();
        showCount();
    });
    connect(exportButton, &QPushButton::clicked, this, &TranscriptDock::chooseExportFile);
    connect(io, &SimulatedIOManager::recorded, this, [this](const TranscriptEntry &entry) {
        m_model->append(entry);
        showCount();
    });
    // The view lays out new rows later, so the end is followed when it moves.
    QScrollBar *bar = m_view->verticalScrollBar();
    connect(bar, &QScrollBar::rangeChanged, this, [this, bar](int, int maximum) {
        if (m_followsEnd)
            bar->setValue(maximum);
    });
    connect(bar, &QScrollBar::valueChanged, this,
            [this, bar](int value) { m_followsEnd = value == bar->maximum(); });
    showCount();
}

void TranscriptDock::showCount()
{
    m_status->setText(tr("%1 of %2 operations").arg(m_filter->rowCount()).arg(m_model->rowCount()));
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
