#include "ToolWindow.h"

#include "ControllerPanelDock.h"
#include "DemonstrationDock.h"
#include "FaultPanelDock.h"
#include "OracleDock.h"
#include "SecondClientPanel.h"
#include "SnapshotDock.h"
#include "StallDock.h"
#include "StallMeter.h"
#include "TranscriptDock.h"
#include "WorkbenchSession.h"

#include <QApplication>
#include <QStyle>

ToolWindow::ToolWindow(WorkbenchSession *session)
    : m_transcript(new TranscriptDock(session->io(), this)),
      m_stalls(new StallMeter(session->io(), this))
{
    setObjectName(QStringLiteral("toolWindow"));
    setWindowTitle(tr("Simulated controller"));
    setWindowIcon(style()->standardIcon(QStyle::SP_DriveNetIcon));
    setDockOptions(AnimatedDocks | AllowNestedDocks | AllowTabbedDocks);
    auto *controller = new ControllerPanelDock(session, this);
    auto *faults = new FaultPanelDock(session->io()->faults(), this);
    auto *snapshots = new SnapshotDock(session, this);
    auto *client = new QDockWidget(tr("Second client"), this);
    client->setObjectName(QStringLiteral("dock_secondClient"));
    client->setWidget(new SecondClientPanel(session, client));
    addDockWidget(Qt::TopDockWidgetArea, controller);
    splitDockWidget(controller, client, Qt::Horizontal);
    addDockWidget(Qt::BottomDockWidgetArea, m_transcript);
    tabifyDockWidget(client, faults);
    tabifyDockWidget(client, snapshots);
    tabifyDockWidget(client, new OracleDock(session, this));
    tabifyDockWidget(client, new StallDock(m_stalls, this));
    client->raise();
    resize(1120, 760);
}

ToolWindow::~ToolWindow() = default;

void ToolWindow::showDemonstration(const Script &script, const ScriptContext &context)
{
    addDockWidget(Qt::TopDockWidgetArea, new DemonstrationDock(script, context, this));
}
