#include "FaultPanelDock.h"

#include "FaultEngine.h"
#include "WorkbenchTime.h"

#include <QCheckBox>
#include <QHBoxLayout>
#include <QHeaderView>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QSignalBlocker>
#include <QTableWidget>
#include <QVBoxLayout>

namespace {

enum RuleColumn { RuleText, RuleFired, RuleColumnCount };

QTableWidgetItem *itemAt(QTableWidget *table, int row, int column)
{
    if (!table->item(row, column))
        table->setItem(row, column, new QTableWidgetItem);
    return table->item(row, column);
}

} // namespace

FaultPanelDock::FaultPanelDock(FaultEngine *faults, QWidget *parent)
    : QDockWidget(tr("Faults"), parent),
      m_faults(faults),
      m_rule(new QLineEdit),
      m_error(new QLabel),
      m_rules(new QTableWidget(0, RuleColumnCount)),
      m_linkDead(new QCheckBox(tr("&link dead: every operation fails")))
{
    setObjectName(QStringLiteral("dock_faults"));
    m_rule->setObjectName(QStringLiteral("lineEdit_faultRule"));
    m_rule->setPlaceholderText(QStringLiteral("set body active* every 2 refuse"));
    m_error->setObjectName(QStringLiteral("label_faultError"));
    m_error->setWordWrap(true);
    m_rules->setObjectName(QStringLiteral("tableWidget_faults"));
    m_rules->setHorizontalHeaderLabels({tr("Rule"), tr("Fired")});
    m_rules->horizontalHeader()->setSectionResizeMode(RuleText, QHeaderView::Stretch);
    m_rules->horizontalHeader()->setSectionResizeMode(RuleFired, QHeaderView::ResizeToContents);
    m_rules->verticalHeader()->hide();
    m_rules->setSelectionBehavior(QAbstractItemView::SelectRows);
    m_rules->setSelectionMode(QAbstractItemView::SingleSelection);
    m_rules->setEditTriggers(QAbstractItemView::NoEditTriggers);
    m_linkDead->setObjectName(QStringLiteral("checkBox_linkDead"));
    auto *addButton = new QPushButton(tr("&Add"));
    addButton->setObjectName(QStringLiteral("pushButton_faultAdd"));
    auto *removeButton = new QPushButton(tr("Re&move"));
    removeButton->setObjectName(QStringLiteral("pushButton_faultRemove"));

    auto *top = new QHBoxLayout;
    top->addWidget(m_rule);
    top->addWidget(addButton);
    top->addWidget(removeButton);
    auto *content = new QWidget;
    auto *layout = new QVBoxLayout(content);
    layout->addLayout(top);
    layout->addWidget(m_error);
    layout->addWidget(m_rules);
    layout->addWidget(m_linkDead, 0, Qt::AlignLeft);
    setWidget(content);

    connect(addButton, &QPushButton::clicked, this, &FaultPanelDock::addRule);
    connect(m_rule, &QLineEdit::returnPressed, this, &FaultPanelDock::addRule);
    connect(removeButton, &QPushButton::clicked, this, &FaultPanelDock::removeRule);
    connect(m_rules, &QTableWidget::itemChanged, this, &FaultPanelDock::itemChanged);
    connect(m_linkDead, &QCheckBox::clicked, m_faults, &FaultEngine::setLinkDead);
    connect(m_faults, &FaultEngine::changed, this, &FaultPanelDock::refresh);
    refresh();
}

void FaultPanelDock::addRule()
{
    QString error;
    const bool added = m_faults->add(m_rule->text(), &error);
    m_error->setText(added ? QString() : error);
    if (added)
        m_rule->clear();
}

void FaultPanelDock::removeRule()
{
    if (m_rules->currentRow() >= 0)
        m_faults->remove(m_rules->currentRow());
}

void FaultPanelDock::refresh()
{
    const WorkbenchTime own;
    const QSignalBlocker blocker(m_rules);
    m_rules->setRowCount(m_faults->rules().size());
    for (int row = 0; row < m_rules->rowCount(); ++row) {
        const FaultRule &rule = m_faults->rules().at(row);
        QTableWidgetItem *text = itemAt(m_rules, row, RuleText);
        text->setText(rule.source);
        text->setCheckState(rule.enabled ? Qt::Checked : Qt::Unchecked);
        itemAt(m_rules, row, RuleFired)
                ->setText(rule.fired == 1 ? tr("fired once")
                                          : tr("fired %1 times").arg(rule.fired));
    }
    m_linkDead->setChecked(m_faults->linkDead());
    m_rules->viewport()->update();
}

void FaultPanelDock::itemChanged(QTableWidgetItem *item)
{
    if (item->column() == RuleText)
        m_faults->setEnabled(item->row(), item->checkState() == Qt::Checked);
}
