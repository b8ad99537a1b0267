#include "ControllerPanelDock.h"
#include "FaultEngine.h"
#include "FaultPanelDock.h"
#include "SecondClientPanel.h"
#include "SnapshotDock.h"
#include "SnapshotHistory.h"
#include "StallDock.h"
#include "StallMeter.h"
#include "WorkbenchSession.h"
#include "WorkbenchTime.h"
#include "bodytypes.h"
#include "dialogtest.h"
#include "filecontents.h"

#include <QCheckBox>
#include <QComboBox>
#include <QLabel>
#include <QLineEdit>
#include <QListWidget>
#include <QPlainTextEdit>
#include <QPushButton>
#include <QSignalSpy>
#include <QSlider>
#include <QSpinBox>
#include <QTableWidget>

#include <memory>

class tst_WorkbenchPanels : public QObject {
    Q_OBJECT

private slots:
    void init();
    void targetsGoIntoTheVolume();
    void panelFollowsTheController();
    void panelWaitsForTheEndOfASearchTick();
    void panelLocksAndMeasures();
    void clientRenames();
    void clientDeletes();
    void clientChangesTheCount();
    void clientLocks();
    void clientSwitchesTheConfiguration();
    void clientRestarts();
    void clientMeetsItsLimits();
    void faultIsAddedSwitchedAndRemoved();
    void faultThatDoesNotParse();
    void linkDies();
    void historySteps();
    void snapshotsStepAndCompare();
    void snapshotFilesRestoreByteForByte();
    void snapshotFileUnusable();
    void latencyHoldsTheCaller();
    void ownTimeIsBookedToNobody();

private:
    const ControllerState &state() const { return m_session->state(); }

    std::unique_ptr<WorkbenchSession> m_session;
};

namespace {

QString textOf(QWidget *root, const char *label)
{
    return Drive::find<QLabel>(root, label)->text();
}

void enter(QWidget *root, const char *editor, const QString &text)
{
    auto *edit = Drive::find<QLineEdit>(root, editor);
    edit->selectAll();
    QTest::keyClicks(edit, text);
}

void setNumber(QWidget *root, const char *box, int value)
{
    Drive::find<QSpinBox>(root, box)->setValue(value);
}

void toggleListItem(QListWidget *list, int row)
{
    list->setCurrentRow(row);
    QTest::keyClick(list, Qt::Key_Space);
}

} // namespace

void tst_WorkbenchPanels::init()
{
    Scenario scenario;
    scenario.name = QStringLiteral("studio");
    scenario.state = TestHost::scenario(scenario.name);
    m_session = std::make_unique<WorkbenchSession>(scenario);
}

void tst_WorkbenchPanels::targetsGoIntoTheVolume()
{
    ControllerPanelDock panel(m_session.get());
    panel.show();
    auto *list = Drive::find<QListWidget>(&panel, "listWidget_targets");
    QCOMPARE(list->count(), state().targets.size());
    QVERIFY(list->item(1)->text().startsWith(QStringLiteral("t02  CR02  Cross medium")));
    QCOMPARE(list->item(1)->checkState(), Qt::Unchecked);
    toggleListItem(list, 1);
    QVERIFY(state().targets.at(1).inVolume);
    toggleListItem(list, 1);
    QVERIFY(!state().targets.at(1).inVolume);
}

void tst_WorkbenchPanels::panelFollowsTheController()
{
    ControllerPanelDock panel(m_session.get());
    auto *list = Drive::find<QListWidget>(&panel, "listWidget_targets");
    m_session->edit([](ControllerState &changed) {
        changed.targets[1].inVolume = true;
        changed.targets[2].tracked = true;
        changed.targets.resize(5);
        changed.protocol = QStringLiteral("1.12");
        changed.search.active = true;
        changed.search.elapsedTicks = 3;
    });
    QTRY_COMPARE(list->count(), 5);
    QCOMPARE(list->item(1)->checkState(), Qt::Checked);
    QVERIFY(list->item(2)->text().endsWith(QStringLiteral(", tracked")));
    QCOMPARE(textOf(&panel, "label_versions"),
             QStringLiteral("STUDIO4, protocol 1.12, system 3.1.0"));
    QVERIFY(textOf(&panel, "label_search").startsWith(QStringLiteral("running, step 3 of ")));
    // The versions that modules read change, too.
    QCOMPARE(m_session->versions()->protocol().toString(), QStringLiteral("1.12"));
}

void tst_WorkbenchPanels::panelWaitsForTheEndOfASearchTick()
{
    m_session->edit([](ControllerState &changed) {
        changed.search.active = true;
        changed.search.durationTicks = 100;
        changed.targets[1].inVolume = true;
    });
    ControllerPanelDock panel(m_session.get());
    panel.show();
    auto *list = Drive::find<QListWidget>(&panel, "listWidget_targets");
    const QString before = textOf(&panel, "label_search");
    const QSignalSpy changes(list->model(), &QAbstractItemModel::dataChanged);
    char answer[200];
    for (int i = 0; i < 50; ++i)
        m_session->io()->get_string(answer, "status step_active");
    QCOMPARE(textOf(&panel, "label_search"), before);
    QTRY_COMPARE(textOf(&panel, "label_search"), QStringLiteral("running, step 50 of 100"));
    // Only the item of the found target changes.
    QVERIFY(changes.count() >= 1 && changes.count() < state().targets.size());
}

void tst_WorkbenchPanels::panelLocksAndMeasures()
{
    ControllerPanelDock panel(m_session.get());
    panel.show();
    Drive::click(&panel, "checkBox_locked");
    QVERIFY(!state().configChangeable);
    Drive::click(&panel, "checkBox_measurement");
    QVERIFY(m_session->isMeasurementRunning());
    m_session->setMeasurementRunning(false);
    QVERIFY(!Drive::find<QCheckBox>(&panel, "checkBox_measurement")->isChecked());
}

void tst_WorkbenchPanels::clientRenames()
{
    SecondClientPanel panel(m_session.get());
    panel.show();
    setNumber(&panel, "spinBox_clientBody", 2);
    enter(&panel, "lineEdit_clientName", QStringLiteral("Renamed"));
    Drive::click(&panel, "pushButton_clientRename");
    QCOMPARE(state().bodyTypes[standard].bodies[1].description, QStringLiteral("Renamed"));
    QCOMPARE(textOf(&panel, "label_clientResult"),
             QStringLiteral("Body 2 is named \"Renamed\" now."));
    QVERIFY(m_session->io()->transcript().isEmpty());
}

void tst_WorkbenchPanels::clientDeletes()
{
    SecondClientPanel panel(m_session.get());
    panel.show();
    setNumber(&panel, "spinBox_clientBody", 3);
    Drive::click(&panel, "pushButton_clientDelete");
    const BodyState &body = m_session->state().bodyTypes.constFind(standard)->bodies.at(2);
    QVERIFY(!body.calibrated);
    QVERIFY(!body.active);
    QCOMPARE(body.target, QString());
    QCOMPARE(body.description, QString());
}

void tst_WorkbenchPanels::clientChangesTheCount()
{
    SecondClientPanel panel(m_session.get());
    panel.show();
    Drive::choose(Drive::find<QComboBox>(&panel, "comboBox_clientType"), QStringLiteral("joywand"));
    QCOMPARE(Drive::find<QSpinBox>(&panel, "spinBox_clientCount")->value(), 2);
    setNumber(&panel, "spinBox_clientCount", 4);
    Drive::click(&panel, "pushButton_clientCount");
    QCOMPARE(state().bodyTypes[QStringLiteral("joywand")].bodies.size(), 4);
    // A new slot has the values that it gets from the command for the count.
    QVERIFY(state().bodyTypes[QStringLiteral("joywand")].bodies[3].active);
    QVERIFY(!state().bodyTypes[QStringLiteral("joywand")].bodies[3].calibrated);
    QCOMPARE(state().bodyTypes[QStringLiteral("joywand")].bodies[0].description,
             QStringLiteral("Joywand red"));
}

void tst_WorkbenchPanels::clientLocks()
{
    SecondClientPanel panel(m_session.get());
    panel.show();
    Drive::click(&panel, "pushButton_clientLock");
    QVERIFY(!state().configChangeable);
    Drive::click(&panel, "pushButton_clientLock");
    QVERIFY(state().configChangeable);
}

void tst_WorkbenchPanels::clientSwitchesTheConfiguration()
{
    SecondClientPanel panel(m_session.get());
    panel.show();
    Drive::click(&panel, "pushButton_clientConfiguration");
    QVERIFY(!state().standardFilter);
    QVERIFY(!state().joywandFilter);
    QCOMPARE(m_session->io()->transcript().size(), 1);
    QCOMPARE(m_session->io()->transcript().first().line,
             QByteArray("GlobalEvent|ConfigurationModule|1|ActiveConfigurationChanged"));
}

void tst_WorkbenchPanels::clientRestarts()
{
    m_session->edit([](ControllerState &changed) { changed.search.active = true; });
    SecondClientPanel panel(m_session.get());
    panel.show();
    enter(&panel, "lineEdit_clientProtocol", QStringLiteral("1.11"));
    Drive::click(&panel, "pushButton_clientRestart");
    QCOMPARE(state().protocol, QStringLiteral("1.11"));
    QVERIFY(!state().search.active);
    QCOMPARE(m_session->versions()->prot.toString(), QStringLiteral("1.11"));
}

void tst_WorkbenchPanels::clientMeetsItsLimits()
{
    SecondClientPanel panel(m_session.get());
    panel.show();
    const QJsonObject before = ScenarioFile::toJson(state());
    setNumber(&panel, "spinBox_clientBody", 9);
    Drive::click(&panel, "pushButton_clientRename");
    QCOMPARE(textOf(&panel, "label_clientResult"),
             QStringLiteral("The controller has no body 9 of the type standard."));
    setNumber(&panel, "spinBox_clientCount", 21);
    Drive::click(&panel, "pushButton_clientCount");
    QCOMPARE(textOf(&panel, "label_clientResult"),
             QStringLiteral("The controller takes at most 20 bodies of the type standard."));
    enter(&panel, "lineEdit_clientProtocol", QStringLiteral("new"));
    Drive::click(&panel, "pushButton_clientRestart");
    QCOMPARE(textOf(&panel, "label_clientResult"),
             QStringLiteral("Expected a version such as 1.24, found \"new\"."));
    QCOMPARE(ScenarioFile::toJson(state()), before);
}

void tst_WorkbenchPanels::faultIsAddedSwitchedAndRemoved()
{
    FaultEngine *faults = m_session->io()->faults();
    FaultPanelDock panel(faults);
    panel.show();
    enter(&panel, "lineEdit_faultRule", QStringLiteral("status active fail"));
    Drive::click(&panel, "pushButton_faultAdd");
    auto *table = Drive::find<QTableWidget>(&panel, "tableWidget_faults");
    QCOMPARE(Drive::row(table, 0), QStringList({"status active fail", "fired 0 times"}));
    QVERIFY(Drive::find<QLineEdit>(&panel, "lineEdit_faultRule")->text().isEmpty());
    char answer[200];
    QVERIFY(m_session->io()->get_string(answer, "status active") != 0);
    QCOMPARE(Drive::cell(table, 0, 1), QStringLiteral("fired once"));
    Drive::toggleCell(table, 0, 0);
    QVERIFY(!faults->rules().first().enabled);
    QCOMPARE(m_session->io()->get_string(answer, "status active"), 0);
    QCOMPARE(Drive::cell(table, 0, 1), QStringLiteral("fired once"));
    Drive::clickCell(table, 0, 1);
    Drive::click(&panel, "pushButton_faultRemove");
    QVERIFY(faults->rules().isEmpty());
    QCOMPARE(table->rowCount(), 0);
}

void tst_WorkbenchPanels::faultThatDoesNotParse()
{
    FaultPanelDock panel(m_session->io()->faults());
    panel.show();
    enter(&panel, "lineEdit_faultRule", QStringLiteral("status active explode"));
    QTest::keyClick(Drive::find<QLineEdit>(&panel, "lineEdit_faultRule"), Qt::Key_Return);
    QVERIFY2(textOf(&panel, "label_faultError")
                     .startsWith(QStringLiteral("column 22: expected an effect ")),
             qPrintable(textOf(&panel, "label_faultError")));
    QVERIFY(m_session->io()->faults()->rules().isEmpty());
    QCOMPARE(Drive::find<QLineEdit>(&panel, "lineEdit_faultRule")->text(),
             QStringLiteral("status active explode"));
    enter(&panel, "lineEdit_faultRule", QStringLiteral("status active fail"));
    Drive::click(&panel, "pushButton_faultAdd");
    QVERIFY(textOf(&panel, "label_faultError").isEmpty());
}

void tst_WorkbenchPanels::linkDies()
{
    FaultPanelDock panel(m_session->io()->faults());
    panel.show();
    char answer[200];
    Drive::click(&panel, "checkBox_linkDead");
    QVERIFY(m_session->io()->get_string(answer, "status active") != 0);
    Drive::click(&panel, "checkBox_linkDead");
    QCOMPARE(m_session->io()->get_string(answer, "status active"), 0);
}

void tst_WorkbenchPanels::historySteps()
{
    SnapshotHistory history;
    QCOMPARE(history.current(), -1);
    ControllerState first = state();
    ControllerState second = first;
    second.model = QStringLiteral("SECOND");
    ControllerState third = first;
    third.model = QStringLiteral("THIRD");
    QVERIFY(history.take(first));
    QVERIFY(!history.take(first));
    QVERIFY(history.take(second));
    QVERIFY(!history.canStepForward());
    QCOMPARE(history.stepBack().model, first.model);
    QVERIFY(!history.canStepBack());
    QCOMPARE(history.stepForward().model, second.model);
    history.stepBack();
    QVERIFY(history.take(third));
    QCOMPARE(history.size(), 2);
    QVERIFY(!history.canStepForward());
    QCOMPARE(history.changesSince(first), QStringList{"model: \"THIRD\" -> \"STUDIO4\""});
}

void tst_WorkbenchPanels::snapshotsStepAndCompare()
{
    SnapshotDock dock(m_session.get());
    dock.show();
    const QJsonObject before = ScenarioFile::toJson(state());
    m_session->edit([](ControllerState &changed) { changed.calculateMarker = true; });
    const QJsonObject after = ScenarioFile::toJson(state());
    Drive::click(&dock, "pushButton_snapshotCompare");
    const QString changes =
            Drive::find<QPlainTextEdit>(&dock, "plainTextEdit_differences")->toPlainText();
    QVERIFY2(changes.startsWith(QStringLiteral("calculateMarker: ")), qPrintable(changes));
    Drive::click(&dock, "pushButton_snapshotTake");
    QCOMPARE(textOf(&dock, "label_snapshotStatus"), QStringLiteral("Snapshot 2 of 2"));
    Drive::click(&dock, "pushButton_snapshotTake");
    QCOMPARE(textOf(&dock, "label_snapshotStatus"),
             QStringLiteral("Nothing changed since snapshot 2."));
    Drive::click(&dock, "pushButton_snapshotBack");
    QCOMPARE(ScenarioFile::toJson(state()), before);
    QVERIFY(!Drive::find<QPushButton>(&dock, "pushButton_snapshotBack")->isEnabled());
    Drive::click(&dock, "pushButton_snapshotForward");
    QCOMPARE(ScenarioFile::toJson(state()), after);
}

void tst_WorkbenchPanels::snapshotFilesRestoreByteForByte()
{
    SnapshotDock dock(m_session.get());
    QTemporaryDir dir;
    const QString first = dir.filePath(QStringLiteral("first.json"));
    const QString second = dir.filePath(QStringLiteral("second.json"));
    QVERIFY(dock.saveTo(first));
    m_session->edit([](ControllerState &changed) {
        changed.bodyTypes[standard].bodies.clear();
        changed.trackingReference.clear();
    });
    QVERIFY(dock.loadFrom(first));
    QCOMPARE(state().bodyTypes[standard].bodies.size(), 8);
    QVERIFY(dock.saveTo(second));
    QVERIFY(!contents(first).isEmpty());
    QCOMPARE(contents(first), contents(second));
    // The state before the loading is one step back.
    dock.show();
    Drive::click(&dock, "pushButton_snapshotBack");
    QCOMPARE(state().bodyTypes[standard].bodies.size(), 0);
}

void tst_WorkbenchPanels::snapshotFileUnusable()
{
    SnapshotDock dock(m_session.get());
    const QJsonObject before = ScenarioFile::toJson(state());
    QTemporaryDir dir;
    const QString name = dir.filePath(QStringLiteral("broken.json"));
    QFile file(name);
    QVERIFY(file.open(QIODevice::WriteOnly));
    file.write("{\"state\": {\"protocol\": 7}}");
    file.close();
    QVERIFY(!dock.loadFrom(name));
    QVERIFY2(textOf(&dock, "label_snapshotStatus").contains(QStringLiteral("protocol")),
             qPrintable(textOf(&dock, "label_snapshotStatus")));
    QCOMPARE(ScenarioFile::toJson(state()), before);
    QVERIFY(!dock.saveTo(QStringLiteral("/no/such/folder/s.json")));
}

void tst_WorkbenchPanels::latencyHoldsTheCaller()
{
    StallMeter meter(m_session->io());
    StallDock dock(&meter);
    dock.show();
    Drive::find<QSlider>(&dock, "slider_latency")->setValue(30);
    QCOMPARE(meter.latencyMs(), 30);
    QCOMPARE(textOf(&dock, "label_latency"), QStringLiteral("Each operation takes 30 ms."));
    meter.setLatencyMs(40);
    QCOMPARE(Drive::find<QSlider>(&dock, "slider_latency")->value(), 40);
    m_session->io()->setDialogProbe([] { return QStringLiteral("SlowDialog"); });
    meter.start();
    char answer[200];
    m_session->io()->get_string(answer, "status active");
    m_session->io()->get_string(answer, "status progress");
    QTRY_VERIFY(meter.worst().contains(QStringLiteral("SlowDialog")));
    const StallMeter::Stall worst = meter.worst().value(QStringLiteral("SlowDialog"));
    QCOMPARE(worst.operations, 2);
    QCOMPARE(worst.firstCommand, QStringLiteral("status active"));
    QVERIFY2(worst.heldMs >= 50, qPrintable(QString::number(worst.heldMs)));
    auto *table = Drive::find<QTableWidget>(&dock, "tableWidget_stalls");
    QVERIFY(!table->findItems(QStringLiteral("SlowDialog"), Qt::MatchExactly).isEmpty());
    meter.setLatencyMs(9999);
    QCOMPARE(meter.latencyMs(), 500);
}

void tst_WorkbenchPanels::ownTimeIsBookedToNobody()
{
    constexpr int busyMs = 80;
    StallMeter meter(m_session->io());
    QString dialog = QStringLiteral("BusyDialog");
    m_session->io()->setDialogProbe([&dialog] { return dialog; });
    connect(m_session->io(), &SimulatedIOManager::recorded, &meter, [&dialog] {
        if (dialog != QLatin1String("BusyDialog"))
            return;
        const WorkbenchTime own;
        const WorkbenchTime inner;
        QElapsedTimer busy;
        for (busy.start(); busy.elapsed() < busyMs;)
            ;
    });
    meter.start();
    char answer[200];
    m_session->io()->get_string(answer, "status active");
    dialog = QStringLiteral("SlowDialog");
    QCoreApplication::processEvents();
    meter.setLatencyMs(40);
    m_session->io()->get_string(answer, "status active");
    QTRY_VERIFY(meter.worst().contains(QStringLiteral("SlowDialog")));
    const qint64 held = meter.worst().value(QStringLiteral("BusyDialog")).heldMs;
    QVERIFY2(held < busyMs / 2, qPrintable(QString::number(held)));
}

TRACKING_TEST_MAIN(tst_WorkbenchPanels)
#include "tst_workbenchpanels.moc"
