#pragma once

#include "SnapshotHistory.h"

#include <QDockWidget>

class QLabel;
class QPlainTextEdit;
class QPushButton;
class WorkbenchSession;

/** Takes, compares, saves and restores snapshots of the simulated controller. */
class SnapshotDock : public QDockWidget {
    Q_OBJECT

public:
    explicit SnapshotDock(WorkbenchSession *session, QWidget *parent = nullptr);

    /** Writes the controller's present state; the dock shows the result. */
    bool saveTo(const QString &file);
    /**
     * Reads the state from a file. A file that cannot be used changes nothing, and the dock says
     * why.
     */
    bool loadFrom(const QString &file);

private:
    QPushButton *addButton(const QString &text, const QString &name, void (SnapshotDock::*slot)());
    void take();
    void compare();
    void stepBack();
    void stepForward();
    void chooseSaveFile();
    void chooseLoadFile();
    void showHistory();

    WorkbenchSession *m_session;
    SnapshotHistory m_history;
    QPushButton *m_back = nullptr;
    QPushButton *m_forward = nullptr;
    QLabel *m_status;
    QPlainTextEdit *m_differences;
};
