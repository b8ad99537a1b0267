#include "pluginhost.h"

#include "ScenarioFile.h"

#include <QAction>
#include <QApplication>
#include <QPointer>
#include <QTest>
#include <QTimer>

PluginHost::PluginHost() : loader(QStringLiteral(TRACKING_PLUGIN_FILE))
{
    // Otherwise Qt would keep the library mapped; a host may really unload it.
    loader.setLoadHints(QLibrary::LoadHints());
    qputenv("HOME", home.path().toLocal8Bit());
    Scenario scenario;
    QString error;
    if (!ScenarioFile::load(QStringLiteral(SCENARIO_FOLDER "/studio.json"), &scenario, &error))
        qFatal("%s", qPrintable(error));
    controller = std::make_unique<SimulatedController>(scenario.state);
    io = std::make_unique<SimulatedIOManager>(controller.get());
    versions.prot = VersionInfo(1, 24, 0);
    versions.mod = scenario.state.model;
}

PluginHost::~PluginHost()
{
    if (loader.isLoaded())
        shutDown();
}

ModuleInterface *PluginHost::module()
{
    return qobject_cast<ModuleInterface *>(loader.instance());
}

QList<_GuiElement *> PluginHost::start()
{
    ModuleInterface *loaded = module();
    if (!loaded)
        return {};
    loaded->set_param(QStringLiteral("CommandManager"),
                      QVariant::fromValue(static_cast<IOManager *>(io.get())));
    loaded->set_param(QStringLiteral("ModuleParent"), QVariant::fromValue(&mainWindow));
    loaded->set_param(QStringLiteral("BackendVersions"), QVariant::fromValue(&versions));
    loaded->set_param(QStringLiteral("ObserverMode"), false);
    return loaded->get_gui_elements();
}

bool PluginHost::shutDown()
{
    if (ModuleInterface *loaded = module()) {
        loaded->about_to_exit_module();
        loaded->exit_module();
    }
    return loader.unload();
}

QString PluginHost::openAndClose(_GuiElement *element)
{
    QString title;
    use(element, [&title](QWidget *dialog) { title = dialog->windowTitle(); });
    return title;
}

void PluginHost::use(_GuiElement *element, const std::function<void(QWidget *)> &dialogUser)
{
    QTimer::singleShot(0, &mainWindow, [&dialogUser] {
        const QPointer<QWidget> dialog = QApplication::activeModalWidget();
        if (dialog)
            dialogUser(dialog);
        if (dialog && dialog->isVisible())
            QTest::keyClick(dialog, Qt::Key_Escape);
    });
    element->menu_entry->trigger();
}
