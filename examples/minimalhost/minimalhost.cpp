// The smallest host: it loads the plug-in, shows its menu entries, and answers its commands with
// the simulated controller. With --walk it opens each dialog for a moment and ends.

#include "BackendVersions.h"
#include "ModuleInterface.h"
#include "ScenarioFile.h"
#include "SimulatedController.h"
#include "SimulatedIOManager.h"

#include <QAction>
#include <QApplication>
#include <QMainWindow>
#include <QMenuBar>
#include <QPluginLoader>
#include <QTextStream>
#include <QTimer>

namespace {

/** Opens each dialog and closes it again without a change. */
void walk(const QList<_GuiElement *> &elements)
{
    for (const _GuiElement *element : elements) {
        QTimer::singleShot(0, element->content, &QWidget::close);
        element->menu_entry->trigger(); // returns when the dialog is closed
    }
}

/** Gives the module the host's objects, which have to outlive it. */
void introduce(ModuleInterface *module, IOManager *io, QWidget *window, BackendVersions *versions)
{
    module->set_param(QStringLiteral("CommandManager"), QVariant::fromValue<IOManager *>(io));
    module->set_param(QStringLiteral("ModuleParent"), QVariant::fromValue<QWidget *>(window));
    module->set_param(QStringLiteral("BackendVersions"), QVariant::fromValue(versions));
    module->set_param(QStringLiteral("ObserverMode"), false);
}

/** Inserts the module's actions into the menu that the module names. */
void showMenu(QMainWindow *window, const QList<_GuiElement *> &elements, QTextStream &out)
{
    QMenu *menu = window->menuBar()->addMenu(elements.first()->menu_name);
    for (const _GuiElement *element : elements) {
        menu->addAction(element->menu_entry);
        out << element->menu_name << " / " << element->menu_entry->text() << '\n';
    }
    window->show();
}

/** Shows the window until the user closes it, or walks through the dialogs. */
int run(const QList<_GuiElement *> &elements)
{
    if (!QCoreApplication::arguments().contains(QStringLiteral("--walk")))
        return QApplication::exec();
    walk(elements);
    return EXIT_SUCCESS;
}

} // namespace

int main(int argc, char *argv[])
{
    QApplication application(argc, argv);
    QTextStream out(stdout);

    // The host's side: a controller and its versions. Both outlive the module.
    Scenario scenario;
    QString error;
    if (!ScenarioFile::load(QStringLiteral(SCENARIO_FILE), &scenario, &error)) {
        out << error << '\n';
        return EXIT_FAILURE;
    }
    SimulatedController controller(scenario.state);
    SimulatedIOManager io(&controller);
    BackendVersions versions;
    versions.protocol().fromString(scenario.state.protocol);
    versions.atcModel() = scenario.state.model;
    QMainWindow window;

    // The module's side: load the plug-in, pass the host objects, then call for the menu entries.
    QPluginLoader loader(QStringLiteral(PLUGIN_FILE));
    auto *module = qobject_cast<ModuleInterface *>(loader.instance());
    if (!module) {
        out << PLUGIN_FILE << ": no module for this host. " << loader.errorString() << '\n';
        return EXIT_FAILURE;
    }
    introduce(module, &io, &window, &versions);
    out << module->get_module_name() << ' ' << module->get_module_version() << '\n';
    const QList<_GuiElement *> elements = module->get_gui_elements();
    showMenu(&window, elements, out);

    const int status = run(elements);
    out << io.transcript().size() << " commands answered\n";

    // The shutdown, in this order, while the host objects still exist.
    module->about_to_exit_module();
    module->exit_module();
    loader.unload();
    return status;
}
