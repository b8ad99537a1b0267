#pragma once

#include "MenuBuilder.h"

#include <QMainWindow>

class MessageLogDock;
class QAction;
class QLabel;
class QMenu;
class ToolWindow;
class WorkbenchSession;

/**
 * The substitute host's main window: the menu bar with the module's entries, the message log and
 * the host's own actions. It is the parent of the module's dialogs. Owned by main() or a test; the
 * session outlives it.
 */
class MainWindow : public QMainWindow {
    Q_OBJECT

public:
    explicit MainWindow(WorkbenchSession *session, QWidget *parent = nullptr);
    ~MainWindow() override;

    MessageLogDock *messageLog() const { return m_messageLog; }
    /** The window with the controller's panels. It has no parent, so that no dialog blocks it. */
    ToolWindow *toolWindow() const { return m_toolWindow.get(); }

protected:
    void closeEvent(QCloseEvent *event) override;

private:
    void buildHostMenu();
    void adoptModule();
    void releaseModule();
    void showState();

    WorkbenchSession *m_session;
    MessageLogDock *m_messageLog;
    std::unique_ptr<ToolWindow> m_toolWindow;
    MenuBuilder m_menuBuilder;
    QMenu *m_hostMenu = nullptr;
    QAction *m_measurementAction = nullptr;
    QLabel *m_summary;
};
