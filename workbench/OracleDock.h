#pragma once

#include <QDockWidget>

class QCheckBox;
class QPlainTextEdit;
class WorkbenchSession;

/** Lists where the open dialog shows something else than the controller holds. */
class OracleDock : public QDockWidget {
    Q_OBJECT

public:
    explicit OracleDock(WorkbenchSession *session, QWidget *parent = nullptr);

private:
    void compare();

    WorkbenchSession *m_session;
    QCheckBox *m_always;
    QPlainTextEdit *m_differences;
    bool m_isDue = false;
};
