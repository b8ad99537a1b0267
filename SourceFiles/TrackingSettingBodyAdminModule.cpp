#include "TrackingSettingBodyAdminModule.h"

#include "TrackingDlg.h"
#include "bodyadministrationdialog.h"
#include "hostcall.h"
#include "support/moduleversion.h"

#include <QAction>
#include <QKeySequence>

namespace {
constexpr int trackingMenuOrder = 300;
constexpr int trackingEntryOrder = 20;
constexpr int bodyAdminEntryOrder = 25;
} // namespace

TrackingSettingBodyAdminModule::TrackingSettingBodyAdminModule() = default;

TrackingSettingBodyAdminModule::~TrackingSettingBodyAdminModule()
{
    HostCall::deleteKept();
}

void TrackingSettingBodyAdminModule::about_to_exit_module()
{
    if (auto *dialog = qobject_cast<BodyAdministrationDlg *>(gui_body_admin.content))
        dialog->about_to_exit();
}

void TrackingSettingBodyAdminModule::exit_module()
{
    delete gui_tracking.content;
    gui_tracking.content = nullptr;
    delete gui_body_admin.content;
    gui_body_admin.content = nullptr;
    gui_elements.clear();
}

QString TrackingSettingBodyAdminModule::get_module_name() const
{
    return tr("GUI Settings Tracking");
}

QString TrackingSettingBodyAdminModule::get_module_version() const
{
    return moduleVersion();
}

QList<_GuiElement *> TrackingSettingBodyAdminModule::get_gui_elements()
{
    if (gui_elements.isEmpty()) {
        createTrackingEntry();
        createBodyAdminEntry();
    }
    return gui_elements;
}

void TrackingSettingBodyAdminModule::set_param(QString key, QVariant value)
{
    if (key == QLatin1String("CommandManager"))
        iom = value.value<IOManager *>();
    else if (key == QLatin1String("ModuleParent"))
        mod_parent = value.value<QWidget *>();
    else if (key == QLatin1String("BackendVersions"))
        beVers = value.value<BackendVersions *>();
    else if (key == QLatin1String("ObserverMode"))
        bObserverMode = value.toBool();
}

void TrackingSettingBodyAdminModule::createTrackingEntry()
{
    auto *dialog = new TrackingDlg(iom, mod_parent, beVers, get_module_version());
    gui_tracking.content = dialog;
    // The host may delete the parent window, and the dialog with it, before exit_module().
    connect(dialog, &QObject::destroyed, this, [this] { gui_tracking.content = nullptr; });
    gui_tracking.menu_name = tr("&Tracking");
    gui_tracking.menu_order_number = trackingMenuOrder;
    gui_tracking.menu_entry_order_number = trackingEntryOrder;
    gui_tracking.action_active_during_measurement = 0;

    auto *action = new QAction(tr("&Single markers"), this);
    const QString tip = tr("Change settings of the 6DOF standard bodies and the 3DOF markers and "
                           "body administration");
    action->setStatusTip(tip);
    action->setWhatsThis(tip);
    connect(action, &QAction::triggered, dialog, &TrackingDlg::update_and_exec);
    gui_tracking.menu_entry = action;
    gui_elements.append(&gui_tracking);
}

void TrackingSettingBodyAdminModule::createBodyAdminEntry()
{
    auto *dialog = new BodyAdministrationDlg(iom, mod_parent, beVers);
    gui_body_admin.content = dialog;
    connect(dialog, &QObject::destroyed, this, [this] { gui_body_admin.content = nullptr; });
    gui_body_admin.menu_name = tr("&Tracking");
    gui_body_admin.menu_order_number = trackingMenuOrder;
    gui_body_admin.menu_entry_order_number = bodyAdminEntryOrder;
    gui_body_admin.action_active_during_measurement = 0;

    auto *action = new QAction(tr("&Body administration"), this);
    //: Key that opens the body administration, as QKeySequence reads it.
    action->setShortcut(QKeySequence(tr("F8")));
    const QString tip = tr("Settings of all bodies");
    action->setStatusTip(tip);
    action->setWhatsThis(tip);
    connect(action, &QAction::triggered, dialog, &BodyAdministrationDlg::update_and_exec);
    gui_body_admin.menu_entry = action;
    gui_elements.append(&gui_body_admin);
}
