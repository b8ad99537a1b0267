#include "ModuleLoader.h"

#include "BackendVersions.h"
#include "IOManager.h"

#include <QCoreApplication>
#include <QDir>
#include <QFileInfo>
#include <QJsonObject>
#include <QWidget>

namespace {

const char pluginIid[] = HOST_VENDOR_PREFIX ".Morvek2.TrackingSettingsModule";
const char pluginClass[] = "TrackingSettingBodyAdminModule";

} // namespace

ModuleLoader::ModuleLoader() = default;

ModuleLoader::~ModuleLoader()
{
    shutDown();
}

QString ModuleLoader::defaultFile()
{
    const QDir programDir(QCoreApplication::applicationDirPath());
    const QString built =
            programDir.absoluteFilePath(QStringLiteral("../plugins/libTrackingSettings.so"));
    const QString installed = programDir.absoluteFilePath(
            QStringLiteral("../" WORKBENCH_PLUGIN_INSTALL_DIR "/libTrackingSettings.so"));
    return QDir::cleanPath(QFileInfo::exists(built) || !QFileInfo::exists(installed) ? built
                                                                                     : installed);
}

QString ModuleLoader::metadataProblem() const
{
    const QJsonObject metadata = m_loader.metaData();
    const QString iid = metadata.value(QStringLiteral("IID")).toString();
    if (iid.isEmpty())
        return QStringLiteral("expected a Qt plug-in");
    if (iid != QLatin1String(pluginIid)) {
        return QStringLiteral("expected the plug-in identifier \"%1\", found \"%2\"")
                .arg(QLatin1String(pluginIid), iid);
    }
    const QString className = metadata.value(QStringLiteral("className")).toString();
    if (className != QLatin1String(pluginClass)) {
        return QStringLiteral("expected the class \"%1\", found \"%2\"")
                .arg(QLatin1String(pluginClass), className);
    }
    return QString();
}

bool ModuleLoader::load(const QString &file, IOManager *io, BackendVersions *versions,
                        QWidget *parent, QString *error)
{
    shutDown();
    if (!QFileInfo(file).isFile()) {
        *error = QStringLiteral("%1: the plug-in file does not exist").arg(file);
        return false;
    }
    // Qt would search for a relative path in its own folders of plug-ins.
    m_loader.setFileName(QFileInfo(file).absoluteFilePath());
    const QString problem = metadataProblem();
    if (!problem.isEmpty()) {
        *error = QStringLiteral("%1: %2").arg(file, problem);
        return false;
    }
    QObject *instance = m_loader.instance();
    if (!instance) {
        *error = QStringLiteral("%1: the plug-in cannot be loaded: %2")
                         .arg(file, m_loader.errorString());
        return false;
    }
    m_module = qobject_cast<ModuleInterface *>(instance);
    if (!m_module) {
        m_loader.unload();
        *error = QStringLiteral("%1: expected the interface \"%2\"; the plug-in has another one")
                         .arg(file, QStringLiteral(MODULE_INTERFACE_IID));
        return false;
    }
    m_module->set_param(QStringLiteral("CommandManager"), QVariant::fromValue(io));
    m_module->set_param(QStringLiteral("ModuleParent"), QVariant::fromValue(parent));
    m_module->set_param(QStringLiteral("BackendVersions"), QVariant::fromValue(versions));
    m_module->set_param(QStringLiteral("ObserverMode"), false);
    m_elements = m_module->get_gui_elements();
    return true;
}

void ModuleLoader::shutDown()
{
    if (!m_module)
        return;
    m_module->about_to_exit_module();
    m_module->exit_module();
    m_elements.clear();
    m_module = nullptr;
    m_loader.unload();
}

QString ModuleLoader::name() const
{
    return m_module ? m_module->get_module_name() : QString();
}

QString ModuleLoader::version() const
{
    return m_module ? m_module->get_module_version() : QString();
}
