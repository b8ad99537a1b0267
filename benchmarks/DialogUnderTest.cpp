#include "DialogUnderTest.h"

#include "ScenarioFile.h"
#include "UserInput.h"

#include <QAction>
#include <QApplication>
#include <QDialog>
#include <QPushButton>
#include <QTableWidget>
#include <QTimer>

namespace {

const QString standard = QStringLiteral("standard");

QObject *child(QObject *parent, const char *name)
{
    auto *found = parent->findChild<QObject *>(QLatin1String(name));
    if (!found)
        qFatal("the dialog has no %s", name);
    return found;
}

} // namespace

ControllerState DialogUnderTest::stateWith(int bodies, int targets)
{
    Scenario scenario;
    QString error;
    if (!ScenarioFile::load(QStringLiteral(SCENARIO_FILE), &scenario, &error))
        qFatal("%s", qPrintable(error));
    ControllerState state = scenario.state;
    BodyTypeState &type = state.bodyTypes[standard];
    type.maximum = qMax(type.maximum, bodies);
    type.bodies.resize(bodies);
    for (int i = 0; i < bodies; ++i) {
        type.bodies[i].description = QStringLiteral("Body %1").arg(i + 1);
        type.bodies[i].calibrated = true;
        type.bodies[i].active = true;
        type.bodies[i].markers = 5;
        type.bodies[i].target.clear();
        type.bodies[i].sensor.clear();
    }
    // The first body, which is the current one, carries a sensor.
    if (bodies > 0 && !state.sensors.isEmpty())
        type.bodies[0].sensor = state.sensors.first().name;
    state.targets.clear();
    for (int i = 0; i < targets; ++i) {
        TargetState target;
        target.shortName = QStringLiteral("T%1").arg(i + 1, 3, 10, QLatin1Char('0'));
        target.longName = QStringLiteral("Target %1").arg(i + 1);
        target.bodyType = standard;
        target.inVolume = true;
        target.tracked = true;
        state.targets.append(target);
    }
    return state;
}

DialogUnderTest::DialogUnderTest(int bodies, int targets)
    : m_controller(stateWith(bodies, targets)),
      m_io(&m_controller),
      m_link(&m_io),
      m_loader(QStringLiteral(PLUGIN_FILE))
{
    m_versions.protocol() = VersionInfo(1, 24, 0);
    m_module = qobject_cast<ModuleInterface *>(m_loader.instance());
    if (!m_module)
        qFatal("%s", qPrintable(m_loader.errorString()));
    m_module->set_param(QStringLiteral("CommandManager"),
                        QVariant::fromValue<IOManager *>(&m_link));
    m_module->set_param(QStringLiteral("ModuleParent"), QVariant::fromValue(&m_mainWindow));
    m_module->set_param(QStringLiteral("BackendVersions"), QVariant::fromValue(&m_versions));
    m_element = m_module->get_gui_elements().last();
}

DialogUnderTest::~DialogUnderTest()
{
    m_module->about_to_exit_module();
    m_module->exit_module();
    m_loader.unload();
}

void DialogUnderTest::open(const std::function<void()> &work)
{
    QTimer::singleShot(0, window(), [this, work] {
        settle();
        work();
        // The exit button refuses to close while a search runs.
        qobject_cast<QDialog *>(window())->accept();
    });
    m_element->menu_entry->trigger();
}

void DialogUnderTest::refresh()
{
    m_link.send_message("BodyAdministrationModule", "AnyModule", 1, "reopen");
    settle();
}

void DialogUnderTest::rename(const QString &name)
{
    UserInput::doubleClickItem(bodies(), cellBelow(QStringLiteral("Name")));
    QWidget *editor = UserInput::itemEditor(bodies());
    UserInput::replaceText(editor, name);
    UserInput::pressKey(window(), Qt::Key_Return);
    settle();
}

void DialogUnderTest::toggle()
{
    UserInput::toggleItem(bodies(), cellBelow(QStringLiteral("Active")));
    settle();
}

QObject *DialogUnderTest::startSearch()
{
    auto *page = child(window(), "StandardAdministrationClass");
    for (QTimer *timer : window()->findChildren<QTimer *>())
        timer->setInterval(24 * 3600 * 1000);
    qobject_cast<QPushButton *>(child(page, "pushButton_start"))->click();
    settle();
    QObject *timer = child(page, "timerDoMea_tl");
    qobject_cast<QTimer *>(timer)->setInterval(24 * 3600 * 1000);
    return timer;
}

void DialogUnderTest::changeBodies(int every, const QString &text)
{
    ControllerState state = m_controller.state();
    QVector<BodyState> &all = state.bodyTypes[standard].bodies;
    for (int i = 0; i < all.size(); i += every)
        all[i].description = text;
    m_controller.setState(state);
    m_link.forget();
}

QModelIndex DialogUnderTest::cellBelow(const QString &header) const
{
    int column = 0;
    while (bodies()->horizontalHeaderItem(column)->text() != header)
        ++column;
    return bodies()->model()->index(0, column);
}

QTableWidget *DialogUnderTest::bodies() const
{
    return qobject_cast<QTableWidget *>(child(window(), "tableWidget_standard"));
}

void DialogUnderTest::settle()
{
    // The first pass handles posted events and timers that are due, the second one what these have
    // posted.
    for (int i = 0; i < 2; ++i)
        QCoreApplication::sendPostedEvents();
    QCoreApplication::processEvents();
    QCoreApplication::sendPostedEvents();
}
