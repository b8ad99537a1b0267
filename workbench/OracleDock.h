#pragma once

#include <QDockWidget>

class QCheckBox;
class QPlainTextEdit;
class WorkbenchSession;

/** Lists the differences between the open dialog and the controller's state. */
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
