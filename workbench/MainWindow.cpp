#include "MainWindow.h"

#include "MessageLogDock.h"
#include "ToolWindow.h"
#include "WorkbenchSession.h"
#include "WorkbenchTime.h"
#include "qtportability.h"

#include <QAction>
#include <QApplication>
#include <QCloseEvent>
#include <QLabel>
#include <QMenu>
#include <QMenuBar>
#include <QStatusBar>
#include <QStyle>

MainWindow::MainWindow(WorkbenchSession *session, QWidget *parent)
    : QMainWindow(parent),
      m_session(session),
      m_messageLog(new MessageLogDock(session->io(), this)),
      m_toolWindow(std::make_unique<ToolWindow>(session)),
      m_menuBuilder(menuBar()),
      m_summary(new QLabel(this))
{
    setObjectName(QStringLiteral("mainWindow"));
    setWindowTitle(tr("Tracking workbench"));
    setWindowIcon(style()->standardIcon(QStyle::SP_ComputerIcon));
    // The module's modal dialogs then block only this window, and the panels can be used.
    BEGIN_MODAL_GROUP(this);
    m_summary->setObjectName(QStringLiteral("label_summary"));
    m_summary->setAlignment(Qt::AlignCenter);
    m_summary->setMargin(12);
    setCentralWidget(m_summary);
    addDockWidget(Qt::BottomDockWidgetArea, m_messageLog);
    buildHostMenu();
    statusBar();
    resize(640, 420);

    connect(session, &WorkbenchSession::moduleLoaded, this, &MainWindow::adoptModule);
    connect(session, &WorkbenchSession::moduleUnloading, this, &MainWindow::releaseModule);
    connect(session, &WorkbenchSession::measurementRunningChanged, this, [this](bool running) {
        m_menuBuilder.setMeasurementRunning(running);
        m_measurementAction->setChecked(running);
    });
    connect(session->controller(), &SimulatedController::stateChanged, this,
            &MainWindow::showState);
    showState();
}

MainWindow::~MainWindow() = default;

void MainWindow::buildHostMenu()
{
    m_hostMenu = menuBar()->addMenu(tr("&Workbench"));
    QAction *configuration = m_hostMenu->addAction(tr("&Configuration changed"));
    configuration->setStatusTip(tr("Tell the modules that another configuration became active"));
    connect(configuration, &QAction::triggered, m_session,
            &WorkbenchSession::announceConfiguration);
    m_measurementAction = m_hostMenu->addAction(tr("&Measurement running"));
    m_measurementAction->setCheckable(true);
    m_measurementAction->setStatusTip(tr("Disable the entries that no measurement allows"));
    connect(m_measurementAction, &QAction::toggled, m_session,
            &WorkbenchSession::setMeasurementRunning);
    QAction *panels = m_hostMenu->addAction(tr("&Panels"));
    panels->setStatusTip(tr("Show the window with the controller, faults and transcript"));
    connect(panels, &QAction::triggered, this, [this] {
        m_toolWindow->show();
        m_toolWindow->raise();
        m_toolWindow->activateWindow();
    });
    m_hostMenu->addSeparator();
    QAction *quit = m_hostMenu->addAction(tr("&Quit"));
    quit->setShortcut(QKeySequence::Quit);
    connect(quit, &QAction::triggered, this, &QWidget::close);
}

void MainWindow::adoptModule()
{
    m_menuBuilder.build(m_session->module()->elements(), m_hostMenu);
    m_menuBuilder.setMeasurementRunning(m_session->isMeasurementRunning());
    showState();
}

void MainWindow::releaseModule()
{
    m_menuBuilder.clear();
}

void MainWindow::showState()
{
    const WorkbenchTime own;
    const ControllerState &state = m_session->state();
    const ModuleLoader *module = m_session->module();
    const QString moduleText = module->isLoaded()
                                       ? tr("%1 %2").arg(module->name(), module->version())
                                       : tr("no module loaded");
    m_summary->setText(
            tr("Module: %1\nScenario: %2\nController: %3, protocol %4\nConfiguration: %5")
                    .arg(moduleText, m_session->scenarioName(), state.model, state.protocol,
                         state.configChangeable ? tr("may be changed") : tr("locked")));
}

void MainWindow::closeEvent(QCloseEvent *event)
{
    m_toolWindow->close();
    QMainWindow::closeEvent(event);
    if (event->isAccepted())
        QApplication::quit();
}
