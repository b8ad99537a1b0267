#pragma once

#include <QDockWidget>

class FaultEngine;
class QCheckBox;
class QLabel;
class QLineEdit;
class QTableWidget;
class QTableWidgetItem;

/**
 * Lists the fault rules with the number of times that each has fired; adds, switches and removes
 * rules.
 */
class FaultPanelDock : public QDockWidget {
    Q_OBJECT

public:
    explicit FaultPanelDock(FaultEngine *faults, QWidget *parent = nullptr);

private:
    void addRule();
    void removeRule();
    void refresh();
    void itemChanged(QTableWidgetItem *item);

    FaultEngine *m_faults;
    QLineEdit *m_rule;
    QLabel *m_error;
    QTableWidget *m_rules;
    QCheckBox *m_linkDead;
};
