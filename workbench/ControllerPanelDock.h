#pragma once

#include <QDockWidget>
#include <QTimer>

class QCheckBox;
class QLabel;
class QLineEdit;
class QListWidget;
class QListWidgetItem;
class WorkbenchSession;

/**
 * Shows the simulated controller: versions, lock, measurement, and its library targets. Each target
 * has a check box that puts it into the tracking volume. The dock follows the controller's state.
 */
class ControllerPanelDock : public QDockWidget {
    Q_OBJECT

public:
    explicit ControllerPanelDock(WorkbenchSession *session, QWidget *parent = nullptr);

private:
    void refresh();
    void refreshTargets();
    void targetChanged(QListWidgetItem *item);
    QString targetText(int index) const;

    WorkbenchSession *m_session;
    QLabel *m_versions;
    QLabel *m_search;
    QCheckBox *m_locked;
    QCheckBox *m_measurement;
    QListWidget *m_targets;
    QTimer m_refreshTimer;
};
