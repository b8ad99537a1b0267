#include "pluginhost.h"

#include <QAction>
#include <QApplication>
#include <QComboBox>
#include <QCoreApplication>
#include <QDialog>
#include <QJsonArray>
#include <QJsonObject>
#include <QPixmapCache>
#include <QPointer>
#include <QPushButton>
#include <QTest>
#include <QTimer>

#include <malloc.h>

#if defined(__SANITIZE_ADDRESS__)
extern "C" size_t __sanitizer_get_current_allocated_bytes(); // the compiler ships no header for it
#endif

namespace {

/** Memory that the process has allocated and not freed. */
qint64 allocatedBytes()
{
#if defined(__SANITIZE_ADDRESS__)
    return qint64(__sanitizer_get_current_allocated_bytes());
#else
    return qint64(mallinfo2().uordblks);
#endif
}

QStringList *warnings = nullptr;
QtMessageHandler previousHandler = nullptr;

void noteWarning(QtMsgType type, const QMessageLogContext &context, const QString &text)
{
    // The offscreen platform writes this for every dialog.
    const bool ofPlatform = text.contains(QLatin1String("propagateSizeHints"));
    if (type != QtDebugMsg && type != QtInfoMsg && warnings && !ofPlatform)
        warnings->append(text);
    previousHandler(type, context, text);
}

QStringList lines(const SimulatedIOManager &io)
{
    QStringList all;
    for (const TranscriptEntry &entry : io.transcript())
        all << entry.line;
    return all;
}

} // namespace

/** The plug-in as a host sees it: a file, its metadata and one interface. */
class tst_plugin : public QObject {
    Q_OBJECT

private slots:
    void init();
    void cleanup();

    void metadataNamesTheModule();
    void instanceAnswersItsMetaCasts();
    void nameAndVersionNeedNoHostObjects();
    void menuEntriesCarryTheirTexts_data();
    void menuEntriesCarryTheirTexts();
    void secondCallReturnsTheSameEntries();
    void entriesOpenTheirDialogs();
    void slotsNamedAfterBoxesAreSlots();
    void chosenAxisIsWrittenOnce();
    void chosenCategoryIsReadOnce();
    void parametersOfAnotherKindAreStoredAsNothing_data();
    void parametersOfAnotherKindAreStoredAsNothing();
    void keyInOtherLettersIsIgnored_data();
    void keyInOtherLettersIsIgnored();
    void laterParametersDoNotReachTheDialogs();
    void mainWindowMayComeAsQObject();
    void shutDownBeforeTheEntriesDoesNothing();
    void aboutToExitWithdrawsTheReceiver();
    void exitDeletesTheDialogsAndKeepsTheActions();
    void parentMayBeDeletedBeforeTheShutDown();
    void unloadingWithoutExitLeavesTheDialogsToTheirParent();
    void loadUseUnloadTwice();
    void loadingAgainAndAgainKeepsNoMemory();
    void exitAndUnloadAroundAnOperation();

private:
    QStringList m_warnings;
};

void tst_plugin::init()
{
    m_warnings.clear();
    warnings = &m_warnings;
    previousHandler = qInstallMessageHandler(noteWarning);
}

void tst_plugin::cleanup()
{
    qInstallMessageHandler(previousHandler);
    warnings = nullptr;
    QCOMPARE(m_warnings, QStringList());
}

void tst_plugin::metadataNamesTheModule()
{
    const QJsonObject metadata = QPluginLoader(QStringLiteral(TRACKING_PLUGIN_FILE)).metaData();
    QCOMPARE(metadata.value(QStringLiteral("IID")).toString(),
             QStringLiteral(HOST_VENDOR_PREFIX ".Morvek2.TrackingSettingsModule"));
    QCOMPARE(metadata.value(QStringLiteral("className")).toString(),
             QStringLiteral("TrackingSettingBodyAdminModule"));
    QVERIFY(metadata.value(QStringLiteral("MetaData")).isObject()
            || metadata.value(QStringLiteral("MetaData")).isUndefined());
    QVERIFY(metadata.value(QStringLiteral("MetaData")).toObject().isEmpty());
}

void tst_plugin::instanceAnswersItsMetaCasts()
{
    PluginHost host;
    QObject *instance = host.loader.instance();
    QVERIFY2(instance, qPrintable(host.loader.errorString()));
    QVERIFY(!instance->parent());
    QCOMPARE(instance, host.loader.instance());

    ModuleInterface *module = host.module();
    QVERIFY(module);
    QCOMPARE(instance->qt_metacast("TrackingSettingBodyAdminModule"),
             static_cast<void *>(instance));
    QCOMPARE(instance->qt_metacast("ModuleInterface"), static_cast<void *>(module));
    QCOMPARE(instance->qt_metacast(HOST_VENDOR_PREFIX ".morvek2.gui.Module/0.2.0"),
             static_cast<void *>(module));
    QVERIFY(!instance->qt_metacast(HOST_VENDOR_PREFIX ".morvek2.gui.Module/0.1.0"));
}

void tst_plugin::nameAndVersionNeedNoHostObjects()
{
    PluginHost host;
    QVERIFY(host.module());
    QCOMPARE(host.module()->get_module_name(), QStringLiteral("GUI Settings Tracking"));
    QCOMPARE(host.module()->get_module_version(), QStringLiteral("v3.0.6"));
}

void tst_plugin::menuEntriesCarryTheirTexts_data()
{
    QTest::addColumn<int>("index");
    QTest::addColumn<QString>("text");
    QTest::addColumn<QString>("tip");
    QTest::addColumn<QString>("shortcut");
    QTest::addColumn<int>("order");
    QTest::addColumn<QByteArray>("dialogClass");

    QTest::newRow("tracking settings")
            << 0 << "&Single markers"
            << "Change settings of the 6DOF standard bodies and the 3DOF markers and body "
               "administration"
            << "" << 20 << QByteArray("TrackingDlg");
    QTest::newRow("body administration") << 1 << "&Body administration"
                                         << "Settings of all bodies"
                                         << "F8" << 25 << QByteArray("BodyAdministrationDlg");
}

void tst_plugin::menuEntriesCarryTheirTexts()
{
    QFETCH(int, index);
    QFETCH(QString, text);
    QFETCH(QString, tip);
    QFETCH(QString, shortcut);
    QFETCH(int, order);
    QFETCH(QByteArray, dialogClass);

    PluginHost host;
    const QList<_GuiElement *> elements = host.start();
    QCOMPARE(elements.size(), 2);
    const _GuiElement *element = elements.at(index);
    QCOMPARE(element->menu_name, QStringLiteral("&Tracking"));
    QCOMPARE(element->menu_order_number, 300);
    QCOMPARE(element->menu_entry_order_number, order);
    QCOMPARE(element->action_active_during_measurement, 0);
    QCOMPARE(element->menu_entry->text(), text);
    QCOMPARE(element->menu_entry->statusTip(), tip);
    QCOMPARE(element->menu_entry->whatsThis(), tip);
    QCOMPARE(element->menu_entry->shortcut().toString(), shortcut);
    QCOMPARE(element->menu_entry->parent(), host.loader.instance());
    QCOMPARE(QByteArray(element->content->metaObject()->className()), dialogClass);
    QCOMPARE(element->content->parentWidget(), &host.mainWindow);
    QVERIFY(!element->content->isVisible());
}

void tst_plugin::secondCallReturnsTheSameEntries()
{
    PluginHost host;
    const QList<_GuiElement *> first = host.start();
    const QList<_GuiElement> before = {*first.at(0), *first.at(1)};
    const int children = host.loader.instance()->children().size();
    const int dialogs = host.mainWindow.findChildren<QDialog *>().size();

    const QList<_GuiElement *> second = host.module()->get_gui_elements();
    QCOMPARE(second, first);
    for (int i = 0; i < 2; ++i) {
        QCOMPARE(second.at(i)->menu_entry, before.at(i).menu_entry);
        QCOMPARE(second.at(i)->content, before.at(i).content);
    }
    QCOMPARE(host.loader.instance()->children().size(), children);
    QCOMPARE(host.mainWindow.findChildren<QDialog *>().size(), dialogs);
}

void tst_plugin::entriesOpenTheirDialogs()
{
    PluginHost host;
    const QList<_GuiElement *> elements = host.start();
    host.io->clearTranscript();
    QCOMPARE(host.openAndClose(elements.at(0)), QStringLiteral("Single Markers"));
    QVERIFY(!elements.at(0)->content->isVisible());
    QVERIFY(lines(*host.io).contains(QStringLiteral("tracking axis_5dof_central")));

    host.io->clearTranscript();
    QCOMPARE(host.openAndClose(elements.at(1)), QStringLiteral("Body Administration"));
    QVERIFY(!elements.at(1)->content->isVisible());
    QVERIFY(lines(*host.io).contains(QStringLiteral("body desc standard b01")));
    QCOMPARE(host.controller->unknownCommands(), QStringList());
}

void tst_plugin::slotsNamedAfterBoxesAreSlots()
{
    PluginHost host;
    const QList<_GuiElement *> elements = host.start();
    // With Qt 6 the slots are connected by hand, since boxes have no such signal there.
    const int expected = QT_VERSION_MAJOR == 5 ? 1 : 0;
    const auto count = [](const QObject *receiver, const char *slot) {
        return receiver->metaObject()->indexOfSlot(slot) >= 0 ? 1 : 0;
    };
    QCOMPARE(count(elements.at(0)->content, "on_comboBox_5dofAxis_currentIndexChanged(QString)"),
             expected);
    for (const char *tab : {"StandardAdministrationClass", "MtAdministrationClass"}) {
        const QWidget *page = elements.at(1)->content->findChild<QWidget *>(QLatin1String(tab));
        QVERIFY2(page, tab);
        QCOMPARE(count(page, "on_comboBox_filter_currentIndexChanged(QString)"), expected);
    }
}

void tst_plugin::chosenAxisIsWrittenOnce()
{
    PluginHost host;
    const QList<_GuiElement *> elements = host.start();
    host.use(elements.at(0), [&host](QWidget *dialog) {
        QTest::keyClick(dialog->findChild<QComboBox *>(QStringLiteral("comboBox_5dofAxis")),
                        Qt::Key_Home);
        host.io->clearTranscript();
        QTest::mouseClick(dialog->findChild<QPushButton *>(QStringLiteral("pushButton_ok")),
                          Qt::LeftButton);
    });
    QCOMPARE(lines(*host.io).filter(QStringLiteral("axis_5dof_central")),
             QStringList(QStringLiteral("tracking axis_5dof_central 1.000 0.000 0.000")));
}

void tst_plugin::chosenCategoryIsReadOnce()
{
    PluginHost host;
    const QList<_GuiElement *> elements = host.start();
    QString category;
    QStringList asked;
    host.use(elements.at(1), [&](QWidget *dialog) {
        auto *box = dialog->findChild<QComboBox *>(QStringLiteral("comboBox_filter"));
        host.io->clearTranscript();
        QTest::keyClick(box, Qt::Key_End);
        category = box->currentText();
        asked = lines(*host.io);
    });
    QCOMPARE(category, QStringLiteral("Tool Reference"));
    const QString used = QStringLiteral("targetlib target_status_calibrated t%1");
    QCOMPARE(asked.filter(QStringLiteral("target_status_calibrated t")),
             QStringList({used.arg(21), used.arg(22), used.arg(23), used.arg(24)}));
}

void tst_plugin::parametersOfAnotherKindAreStoredAsNothing_data()
{
    QTest::addColumn<QString>("key");
    QTest::addColumn<bool>("asWidget");
    QTest::addColumn<bool>("hasParent");

    QTest::newRow("given") << "ModuleParent" << true << true;
    QTest::newRow("lower case key") << "moduleparent" << true << false;
    QTest::newRow("unknown key") << "Parent" << true << false;
    QTest::newRow("no widget") << "ModuleParent" << false << false;
}

void tst_plugin::parametersOfAnotherKindAreStoredAsNothing()
{
    QFETCH(QString, key);
    QFETCH(bool, asWidget);
    QFETCH(bool, hasParent);

    PluginHost host;
    QObject noWidget;
    ModuleInterface *module = host.module();
    QVERIFY(module);
    // First the right key with the right object; the row may replace it below.
    module->set_param(QStringLiteral("CommandManager"),
                      QVariant::fromValue(static_cast<IOManager *>(host.io.get())));
    module->set_param(QStringLiteral("BackendVersions"), QVariant::fromValue(&host.versions));
    module->set_param(key, asWidget ? QVariant::fromValue(&host.mainWindow)
                                    : QVariant::fromValue(&noWidget));
    const QList<_GuiElement *> elements = module->get_gui_elements();
    QCOMPARE(elements.size(), 2);
    for (const _GuiElement *element : elements)
        QCOMPARE(element->content->parentWidget(), hasParent ? &host.mainWindow : nullptr);
}

void tst_plugin::keyInOtherLettersIsIgnored_data()
{
    QTest::addColumn<QString>("key");
    QTest::addColumn<bool>("heard");

    QTest::newRow("exact") << "CommandManager" << true;
    QTest::newRow("lower case") << "commandmanager" << false;
    QTest::newRow("upper case") << "COMMANDMANAGER" << false;
    QTest::newRow("trailing blank") << "CommandManager " << false;
}

void tst_plugin::keyInOtherLettersIsIgnored()
{
    QFETCH(QString, key);
    QFETCH(bool, heard);

    PluginHost host;
    ModuleInterface *module = host.module();
    QVERIFY(module);
    module->set_param(key, QVariant::fromValue(static_cast<IOManager *>(host.io.get())));
    module->set_param(QStringLiteral("BackendVersions"), QVariant::fromValue(&host.versions));
    const QList<_GuiElement *> elements = module->get_gui_elements();
    QCOMPARE(elements.size(), 2);
    QCOMPARE(host.io->receiverCount("GlobalEvent"), heard ? 1 : 0);
    QCOMPARE(host.openAndClose(elements.at(1)), QStringLiteral("Body Administration"));
    QCOMPARE(lines(*host.io).isEmpty(), !heard);
}

void tst_plugin::laterParametersDoNotReachTheDialogs()
{
    PluginHost host;
    const QList<_GuiElement *> elements = host.start();
    QCOMPARE(host.io->receiverCount("GlobalEvent"), 1);

    host.module()->set_param(QStringLiteral("CommandManager"), QVariant());
    host.module()->set_param(QStringLiteral("ModuleParent"), QStringLiteral("no window"));
    host.module()->set_param(QStringLiteral("BackendVersions"), 17);
    host.module()->set_param(QStringLiteral("ObserverMode"), true);
    host.io->clearTranscript();
    host.openAndClose(elements.at(1));
    QVERIFY(lines(*host.io).contains(QStringLiteral("body desc standard b01")));
    QCOMPARE(elements.at(1)->content->parentWidget(), &host.mainWindow);
}

void tst_plugin::mainWindowMayComeAsQObject()
{
    PluginHost host;
    host.module()->set_param(QStringLiteral("CommandManager"),
                             QVariant::fromValue(static_cast<IOManager *>(host.io.get())));
    host.module()->set_param(QStringLiteral("BackendVersions"),
                             QVariant::fromValue(&host.versions));
    host.module()->set_param(QStringLiteral("ModuleParent"),
                             QVariant::fromValue(static_cast<QObject *>(&host.mainWindow)));
    QCOMPARE(host.module()->get_gui_elements().at(0)->content->parentWidget(), &host.mainWindow);
}

void tst_plugin::shutDownBeforeTheEntriesDoesNothing()
{
    PluginHost host;
    ModuleInterface *module = host.module();
    QVERIFY(module);
    module->about_to_exit_module();
    module->exit_module();
    QCOMPARE(host.io->transcript().size(), 0);
    QCOMPARE(host.start().size(), 2);
}

void tst_plugin::aboutToExitWithdrawsTheReceiver()
{
    PluginHost host;
    const QList<_GuiElement *> elements = host.start();
    for (const char *channel : {"GlobalEvent", "BodyAdministrationModule"})
        QCOMPARE(host.io->receiverCount(channel), 1);

    host.module()->about_to_exit_module();
    for (const char *channel : {"GlobalEvent", "BodyAdministrationModule"})
        QCOMPARE(host.io->receiverCount(channel), 0);
    QVERIFY(elements.at(1)->content);
}

void tst_plugin::exitDeletesTheDialogsAndKeepsTheActions()
{
    PluginHost host;
    const QList<_GuiElement *> elements = host.start();
    const QPointer<QWidget> tracking = elements.at(0)->content;
    const QPointer<QWidget> administration = elements.at(1)->content;
    const QPointer<QAction> action = elements.at(1)->menu_entry;

    host.module()->about_to_exit_module();
    host.module()->exit_module();
    QVERIFY(!tracking);
    QVERIFY(!administration);
    QVERIFY(!elements.at(0)->content);
    QVERIFY(!elements.at(1)->content);
    QVERIFY(action);
    action->trigger(); // opens nothing now
    host.module()->exit_module();

    QVERIFY(host.loader.unload());
    QVERIFY(!action);
}

void tst_plugin::parentMayBeDeletedBeforeTheShutDown()
{
    PluginHost host;
    ModuleInterface *module = host.module();
    auto window = std::make_unique<QWidget>();
    module->set_param(QStringLiteral("CommandManager"),
                      QVariant::fromValue(static_cast<IOManager *>(host.io.get())));
    module->set_param(QStringLiteral("BackendVersions"), QVariant::fromValue(&host.versions));
    module->set_param(QStringLiteral("ModuleParent"), QVariant::fromValue(window.get()));
    const QList<_GuiElement *> elements = module->get_gui_elements();
    QCOMPARE(host.io->receiverCount("GlobalEvent"), 1);

    window.reset();
    QVERIFY(!elements.at(0)->content);
    QVERIFY(!elements.at(1)->content);
    QCOMPARE(host.io->receiverCount("GlobalEvent"), 0);
    QCOMPARE(host.io->receiverCount("BodyAdministrationModule"), 0);
    elements.at(1)->menu_entry->trigger(); // opens nothing now
    module->about_to_exit_module();
    module->exit_module();
    QVERIFY(host.loader.unload());
}

void tst_plugin::unloadingWithoutExitLeavesTheDialogsToTheirParent()
{
    PluginHost host;
    const QPointer<QWidget> dialog = host.start().at(0)->content;
    QObject *instance = host.loader.instance();
    host.module()->about_to_exit_module();
    delete instance; // as a host does that destroys the module itself
    QVERIFY(dialog);
    QCOMPARE(dialog->parentWidget(), &host.mainWindow);
    qDeleteAll(host.mainWindow.findChildren<QDialog *>(QString(), Qt::FindDirectChildrenOnly));
    QVERIFY(host.loader.instance());
}

void tst_plugin::loadUseUnloadTwice()
{
    PluginHost host;
    for (int round = 0; round < 2; ++round) {
        const QList<_GuiElement *> elements = host.start();
        QCOMPARE(elements.size(), 2);
        host.io->clearTranscript();
        QCOMPARE(host.openAndClose(elements.at(1)), QStringLiteral("Body Administration"));
        QVERIFY(!host.io->transcript().isEmpty());
        QCOMPARE(host.openAndClose(elements.at(0)), QStringLiteral("Single Markers"));
        QVERIFY(host.shutDown());
        QVERIFY(!host.loader.isLoaded());
        QCOMPARE(host.mainWindow.findChildren<QDialog *>().size(), 0);
        QCOMPARE(host.io->receiverCount("GlobalEvent"), 0);
        // Events that were posted to objects of the plug-in must not be delivered to unloaded code.
        QCoreApplication::processEvents();
    }
}

/** TRACKING_LOAD_CYCLES in the environment says how often; tests/campaigns/loadcycles.sh does. */
void tst_plugin::loadingAgainAndAgainKeepsNoMemory()
{
    // In the first rounds the toolkit fills its caches.
    constexpr int firstRounds = 5;
    // About 5 KB are the toolkit's: gestures of scroll areas that are gone, keys of cached pixmaps.
    constexpr qint64 mostBytesOfARound = 8 * 1024;
    const int rounds = qMax(20, qEnvironmentVariableIntValue("TRACKING_LOAD_CYCLES"));
    PluginHost host;
    qint64 before = 0;
    for (int round = 0; round < firstRounds + rounds; ++round) {
        if (round == firstRounds)
            before = allocatedBytes();
        const QList<_GuiElement *> elements = host.start();
        QCOMPARE(host.openAndClose(elements.at(1)), QStringLiteral("Body Administration"));
        QCOMPARE(host.openAndClose(elements.at(0)), QStringLiteral("Single Markers"));
        QVERIFY(host.shutDown());
        host.io->clearTranscript();
        QCoreApplication::processEvents();
        QPixmapCache::clear(); // it has a limit, which a thousand rounds reach
    }
    const qint64 growth = (allocatedBytes() - before) / rounds;
    qInfo("%d rounds, %lld bytes more after each", rounds, static_cast<long long>(growth));
    QVERIFY2(growth <= mostBytesOfARound, qPrintable(QString::number(growth)));
}

void tst_plugin::exitAndUnloadAroundAnOperation()
{
    PluginHost host;
    const QList<_GuiElement *> elements = host.start();
    bool hasLeft = false;
    QTimer::singleShot(0, &host.mainWindow, [&] {
        QWidget *dialog = QApplication::activeModalWidget();
        auto *page = dialog->findChild<QWidget *>(QStringLiteral("StandardAdministrationClass"));
        auto *category = page->findChild<QComboBox *>(QStringLiteral("comboBox_filter"));
        connect(host.io.get(), &SimulatedIOManager::recorded, &host.mainWindow, [&] {
            if (std::exchange(hasLeft, true))
                return;
            host.module()->about_to_exit_module();
            host.module()->exit_module();
            host.io->clearTranscript();
        });
        category->setFocus();
        QTest::keyClick(category, Qt::Key_Down);
    });
    elements.at(1)->menu_entry->trigger();
    QVERIFY(hasLeft);
    QVERIFY(!elements.at(1)->content);
    QCOMPARE(lines(*host.io), QStringList());
    // The combo box outlived the dialog until the end of its event, and has been deleted since.
    QVERIFY(host.loader.unload());
    QCoreApplication::processEvents();
}

QTEST_MAIN(tst_plugin)
#include "tst_plugin.moc"
