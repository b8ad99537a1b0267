#include "bodies/adminbodytype.h"
#include "bodies/bodycommands.h"
#include "bodies/bodyreader.h"
#include "bodies/bodyregistry.h"
#include "dialogtest.h"

namespace {

using DeleteStep = BodyCommands::DeleteStep;
using SensorReset = BodyCommands::SensorReset;

const char *const plainSensor = "vendorone mini 'B12'";
const char *const calibratedSensor = "vendorone mini 'A7'";
const char *const storingSensor = "vendortwo core 'C3'";

/** The bodies of a type as the module reads them. */
AdminBodyType known(TestHost &host, const QString &type)
{
    const BodyReader reader(ControllerLink(&host.io, &host.versions));
    BodyRegistry registry;
    reader.readType(registry[type], type);
    reader.readBodies(registry, type);
    host.clear();
    return registry.type(type);
}

const SensorState *sensor(const TestHost &host, const char *name)
{
    for (const SensorState &one : host.state().sensors) {
        if (one.name == QLatin1String(name))
            return &one;
    }
    return nullptr;
}

} // namespace

Q_DECLARE_METATYPE(DeleteStep)

/** Resetting, deleting and switching bodies, command by command. */
class tst_BodyCommands : public DialogTest {
    Q_OBJECT

private slots:
    void resetsToLibrary_data();
    void resetsToLibrary();
    void asksHowASensorResets_data();
    void asksHowASensorResets();
    void resetsSensors_data();
    void resetsSensors();
    void clearsBodies_data();
    void clearsBodies();
    void stopsClearingAtTheFirstFailure_data();
    void stopsClearingAtTheFirstFailure();
    void leavesFilterWithoutDefaultPreset_data();
    void leavesFilterWithoutDefaultPreset();
    void switchesBodies();
    void reportsRefusedSwitch_data();
    void reportsRefusedSwitch();
    void sendsNothingForWhatItDoesNotKnow();
    void clearsTheReferenceOnlyWhenThereIsOne_data();
    void clearsTheReferenceOnlyWhenThereIsOne();
};

void tst_BodyCommands::resetsToLibrary_data()
{
    QTest::addColumn<QString>("effect");
    QTest::addColumn<bool>("done");
    QTest::newRow("accepted") << "delay 0" << true;
    QTest::newRow("failed") << "fail" << false;
    QTest::newRow("refused") << "refuse" << false;
    QTest::newRow("trailing blank") << "answer \"morvek2 ok \"" << false;
}

void tst_BodyCommands::resetsToLibrary()
{
    QFETCH(QString, effect);
    QFETCH(bool, done);
    TestHost host(studio());
    host.fault(QStringLiteral("morvek2 body calibrate_from_targetlib* ") + effect);
    const BodyCommands commands(ControllerLink(&host.io, &host.versions));
    QCOMPARE(commands.resetToLibrary("standard", 1, "GL01"), done);
    QCOMPARE(host.lines(), QStringList{"morvek2 body calibrate_from_targetlib standard b02 GL01"});
    QCOMPARE(host.log(),
             done ? QStringList() : QStringList{"Error: Unable to reset body from target library"});
    if (done)
        QVERIFY(!host.state().bodyTypes["standard"].bodies[1].recalibrated);
}

void tst_BodyCommands::asksHowASensorResets_data()
{
    QTest::addColumn<QString>("protocol");
    QTest::addColumn<QString>("sensor");
    QTest::addColumn<QStringList>("rules");
    QTest::addColumn<QStringList>("queries");
    QTest::addColumn<bool>("hasStorage");
    QTest::addColumn<bool>("hasHandEye");
    QTest::addColumn<QStringList>("log");
    const auto storage = [](const char *name) {
        return QStringLiteral("inertial sensor_has_storage ") + QLatin1String(name);
    };
    const auto handEye = [](const char *name) {
        return QStringLiteral("inertial sensor_handeye ") + QLatin1String(name);
    };
    const QStringList both({storage(calibratedSensor), handEye(calibratedSensor)});
    const QStringList none;
    const QString handEyeLine =
            QStringLiteral("Unable to get info about hand eye calibration from sensor");
    const QString storageLine = QStringLiteral("Unable to get storage info from sensor");
    QTest::newRow("stores values") << "1.21" << storingSensor << none
                                   << QStringList{storage(storingSensor)} << true << false << none;
    QTest::newRow("before storages are known")
            << "1.20" << storingSensor << none << QStringList{handEye(storingSensor)} << false
            << true << none;
    QTest::newRow("hand-eye calibration")
            << "1.24" << calibratedSensor << none << both << false << true << none;
    QTest::newRow("neither") << "1.24" << plainSensor << none
                             << QStringList({storage(plainSensor), handEye(plainSensor)}) << false
                             << false << none;
    QTest::newRow("storage fails")
            << "1.24" << calibratedSensor << QStringList{"inertial sensor_has_storage* fail"}
            << both << false << true << QStringList{storageLine};
    QTest::newRow("storage is no flag")
            << "1.24" << calibratedSensor << QStringList{"inertial sensor_has_storage* wrong-type"}
            << both << false << true << QStringList{storageLine};
    QTest::newRow("hand-eye fails")
            << "1.24" << calibratedSensor << QStringList{"inertial sensor_handeye* fail"} << both
            << false << false << QStringList{handEyeLine};
    QTest::newRow("both fail") << "1.24" << calibratedSensor << QStringList{"inertial* fail"}
                               << both << false << false << QStringList({storageLine, handEyeLine});
}

void tst_BodyCommands::asksHowASensorResets()
{
    QFETCH(QString, protocol);
    QFETCH(QString, sensor);
    QFETCH(QStringList, rules);
    TestHost host(studio(protocol));
    for (const QString &rule : rules)
        host.fault(rule);
    const SensorReset reset =
            BodyCommands(ControllerLink(&host.io, &host.versions)).sensorReset(sensor);
    QTEST(reset.hasStorage, "hasStorage");
    QTEST(reset.hasHandEye, "hasHandEye");
    QTEST(host.lines(), "queries");
    QTEST(host.log(), "log");
}

void tst_BodyCommands::resetsSensors_data()
{
    QTest::addColumn<QString>("sensor");
    QTest::addColumn<bool>("hasStorage");
    QTest::addColumn<bool>("hasHandEye");
    QTest::addColumn<bool>("warmup");
    QTest::addColumn<QStringList>("rules");
    QTest::addColumn<QStringList>("lines");
    QTest::addColumn<QStringList>("log");
    QTest::addColumn<bool>("done");
    const QStringList none;
    const QString ask = QStringLiteral("inertial warmup");
    const QString pause = QStringLiteral("inertial warmup no");
    const QString resume = QStringLiteral("inertial warmup yes");
    const QString restore =
            QStringLiteral("morvek2 set inertial sensor_default ") + QLatin1String(storingSensor);
    const QString clear =
            QStringLiteral("inertial sensor_handeye %1 none").arg(QLatin1String(calibratedSensor));
    const QString notRestored =
            QStringLiteral("Error: Unable to reset body to sensor stored values");
    const QString notCleared = QStringLiteral("Unable to reset sensor hand eye calibration");
    const auto storing = [&](const char *name, bool warmup, const QStringList &rules,
                             const QStringList &lines, const QStringList &log, bool done) {
        QTest::newRow(name) << storingSensor << true << false << warmup << rules << lines << log
                            << done;
    };
    const auto clearing = [&](const char *name, bool warmup, const QStringList &rules,
                              const QStringList &lines, const QStringList &log, bool done) {
        QTest::newRow(name) << calibratedSensor << false << true << warmup << rules << lines << log
                            << done;
    };
    storing("stored values", false, none, {ask, restore}, none, true);
    storing("stored values, warm-up", true, none, {ask, pause, restore, resume}, none, true);
    storing("stored values fail, warm-up goes on", true, {"morvek2 set* fail"},
            {ask, pause, restore, resume}, {notRestored}, false);
    storing("stored values answered inexactly", false, {"morvek2 set* answer \"morvek2 ok.\""},
            {ask, restore}, {notRestored}, false);
    clearing("hand-eye", false, none, {ask, clear}, none, true);
    clearing("hand-eye, warm-up", true, none, {ask, pause, clear, resume}, none, true);
    clearing("hand-eye fails, warm-up goes on", true, {"inertial sensor_handeye* refuse"},
             {ask, pause, clear, resume}, {notCleared}, false);
    clearing("warm-up cannot be read", true, {"get inertial warmup fail"}, {ask, clear},
             {"Could not get warmup status"}, true);
    clearing("warm-up cannot be stopped", true, {"inertial warmup no refuse"},
             {ask, pause, clear, resume}, {"Could not stop warmup of sensors"}, true);
    clearing("warm-up cannot be started", true, {"inertial warmup yes refuse"},
             {ask, pause, clear, resume}, {"Could not start warmup of sensors"}, true);
    clearing("warm-up not exactly yes", true, {"get inertial warmup answer \"yes \""}, {ask, clear},
             none, true);
    clearing("everything fails", true, {"set * refuse"}, {ask, pause, clear, resume},
             {"Could not stop warmup of sensors", notCleared, "Could not start warmup of sensors"},
             false);
    QTest::newRow("nothing to reset") << plainSensor << false << false << true << none
                                      << QStringList({ask, pause, resume}) << none << true;
}

void tst_BodyCommands::resetsSensors()
{
    QFETCH(QString, sensor);
    QFETCH(bool, hasStorage);
    QFETCH(bool, hasHandEye);
    QFETCH(bool, warmup);
    QFETCH(QStringList, rules);
    QFETCH(bool, done);
    ControllerState state = studio();
    state.inertialWarmup = warmup;
    TestHost host(state);
    for (const QString &rule : rules)
        host.fault(rule);
    SensorReset reset;
    reset.hasStorage = hasStorage;
    reset.hasHandEye = hasHandEye;
    const BodyCommands commands(ControllerLink(&host.io, &host.versions));
    QCOMPARE(commands.resetSensor(sensor, reset), done);
    QTEST(host.lines(), "lines");
    QTEST(host.log(), "log");
    if (rules.isEmpty())
        QCOMPARE(host.state().inertialWarmup, warmup);
    if (done && hasStorage)
        QCOMPARE(::sensor(host, storingSensor)->handEye, QStringLiteral("0.70 0.00 0.70 0.14"));
    if (done && hasHandEye)
        QCOMPARE(::sensor(host, calibratedSensor)->handEye, QString());
}

void tst_BodyCommands::clearsBodies_data()
{
    QTest::addColumn<QString>("protocol");
    QTest::addColumn<QString>("type");
    QTest::addColumn<int>("index");
    QTest::addColumn<QStringList>("lines");
    const auto ask = [](const char *body) {
        return QStringLiteral("body filter6d_preset_available %1 preset6d_default")
                .arg(QLatin1String(body));
    };
    const auto filter = [](const char *body) {
        return QStringLiteral("body filter6d_preset %1 preset6d_default").arg(QLatin1String(body));
    };
    const auto noSensor = [](const char *body) {
        return QStringLiteral("body inertial_sensor %1 none").arg(QLatin1String(body));
    };
    const auto markers = [](const char *body) {
        return QStringLiteral("body number_of_marker %1 0").arg(QLatin1String(body));
    };
    const auto name = [](const char *body) {
        return QStringLiteral("body desc %1 \"\"").arg(QLatin1String(body));
    };
    const char *const sensorBody = "standard b04";
    QTest::newRow("calibrated, with a sensor")
            << "1.24"
            << "standard" << 3
            << QStringList({ask(sensorBody), filter(sensorBody), noSensor(sensorBody),
                            markers(sensorBody), name(sensorBody)});
    QTest::newRow("1.21") << "1.21"
                          << "standard" << 3
                          << QStringList({ask(sensorBody), filter(sensorBody), noSensor(sensorBody),
                                          markers(sensorBody), name(sensorBody)});
    QTest::newRow("1.20 does not ask for the preset")
            << "1.20"
            << "standard" << 3
            << QStringList({filter(sensorBody), noSensor(sensorBody), markers(sensorBody),
                            name(sensorBody)});
    QTest::newRow("1.12") << "1.12"
                          << "standard" << 3
                          << QStringList({filter(sensorBody), noSensor(sensorBody),
                                          markers(sensorBody), name(sensorBody)});
    QTest::newRow("1.11 knows no filter and no sensor")
            << "1.11"
            << "standard" << 3 << QStringList({markers(sensorBody), name(sensorBody)});
    QTest::newRow("0.16") << "0.16"
                          << "standard" << 3
                          << QStringList({markers(sensorBody), name(sensorBody)});
    QTest::newRow("0.15 knows no names") << "0.15"
                                         << "standard" << 3 << QStringList{markers(sensorBody)};
    QTest::newRow("0.2 knows no calibration") << "0.2"
                                              << "standard" << 3 << QStringList();
    QTest::newRow("not calibrated, no sensor")
            << "1.24"
            << "standard" << 7
            << QStringList({ask("standard b08"), filter("standard b08"), name("standard b08")});
    QTest::newRow("a type without filter")
            << "1.24"
            << "fingertracking" << 0
            << QStringList({markers("fingertracking b01"), name("fingertracking b01")});
}

void tst_BodyCommands::clearsBodies()
{
    QFETCH(QString, protocol);
    QFETCH(QString, type);
    QFETCH(int, index);
    QFETCH(QStringList, lines);
    TestHost host(studio(protocol));
    const AdminBodyType record = known(host, type);
    const BodyCommands commands(ControllerLink(&host.io, &host.versions));
    QVERIFY(commands.clearBody(record, type, index) == DeleteStep::Done);
    QCOMPARE(host.lines(), lines);
    QCOMPARE(host.log(), QStringList());
    const BodyState &body = host.state().bodyTypes[type].bodies[index];
    if (host.versions.prot >= VersionInfo(0, 16, -1)) {
        QCOMPARE(body.description, QString());
        QVERIFY(!body.calibrated);
    }
    if (host.versions.prot >= VersionInfo(1, 12, -1))
        QCOMPARE(body.sensor, QString());
}

void tst_BodyCommands::stopsClearingAtTheFirstFailure_data()
{
    QTest::addColumn<QString>("rule");
    QTest::addColumn<DeleteStep>("step");
    QTest::addColumn<int>("writes");
    QTest::newRow("filter") << "set body filter6d_preset* refuse" << DeleteStep::Filter << 1;
    QTest::newRow("sensor") << "set body inertial_sensor* refuse" << DeleteStep::Sensor << 2;
    QTest::newRow("markers") << "set body number_of_marker* refuse" << DeleteStep::Markers << 3;
    QTest::newRow("description") << "set body desc* refuse" << DeleteStep::Description << 4;
    QTest::newRow("description, failed") << "set body desc* fail" << DeleteStep::Description << 4;
    QTest::newRow("everything") << "set * refuse" << DeleteStep::Filter << 1;
}

void tst_BodyCommands::stopsClearingAtTheFirstFailure()
{
    QFETCH(QString, rule);
    QFETCH(DeleteStep, step);
    QFETCH(int, writes);
    TestHost host(studio());
    const AdminBodyType record = known(host, "standard");
    host.fault(rule);
    const BodyCommands commands(ControllerLink(&host.io, &host.versions));
    QVERIFY(commands.clearBody(record, "standard", 3) == step);
    QCOMPARE(host.writes(),
             QStringList({"body filter6d_preset standard b04 preset6d_default",
                          "body inertial_sensor standard b04 none",
                          "body number_of_marker standard b04 0", "body desc standard b04 \"\""})
                     .mid(0, writes));
    // The tab shows the failure in a box, so that there is no log line.
    QCOMPARE(host.log(), QStringList());
    QCOMPARE(host.state().bodyTypes["standard"].bodies[3].description,
             QStringLiteral("Camera rig"));
}

void tst_BodyCommands::leavesFilterWithoutDefaultPreset_data()
{
    QTest::addColumn<QString>("effect");
    QTest::addColumn<QStringList>("log");
    QTest::newRow("not available") << "answer \"no\"" << QStringList();
    QTest::newRow("cannot be read")
            << "fail" << QStringList{"Error: Unable to get info preset available"};
    QTest::newRow("is no flag") << "wrong-type"
                                << QStringList{"Error: Unable to get info preset available"};
}

void tst_BodyCommands::leavesFilterWithoutDefaultPreset()
{
    QFETCH(QString, effect);
    TestHost host(studio());
    const AdminBodyType record = known(host, "standard");
    host.fault(QStringLiteral("body filter6d_preset_available* ") + effect);
    const BodyCommands commands(ControllerLink(&host.io, &host.versions));
    QVERIFY(commands.clearBody(record, "standard", 0) == DeleteStep::Done);
    QCOMPARE(host.writes(),
             QStringList({"body number_of_marker standard b01 0", "body desc standard b01 \"\""}));
    QTEST(host.log(), "log");
    QCOMPARE(host.state().bodyTypes["standard"].bodies[0].filterPreset,
             QStringLiteral("preset6d_custom"));
}

void tst_BodyCommands::switchesBodies()
{
    TestHost host(studio());
    const BodyCommands commands(ControllerLink(&host.io, &host.versions));
    QVERIFY(commands.switchBodies("standard", 0, 5));
    QCOMPARE(host.lines(), QStringList{"morvek2 body switch standard b01 standard b06"});
    QCOMPARE(host.log(), QStringList());
    const QVector<BodyState> &bodies = host.state().bodyTypes["standard"].bodies;
    QCOMPARE(bodies[0].description, QStringLiteral("Crate"));
    QCOMPARE(bodies[5].description, QStringLiteral("Cap"));
}

void tst_BodyCommands::reportsRefusedSwitch_data()
{
    QTest::addColumn<QString>("effect");
    QTest::newRow("failed") << "fail";
    QTest::newRow("refused") << "refuse";
    QTest::newRow("trailing blank") << "answer \"morvek2 ok \"";
}

void tst_BodyCommands::reportsRefusedSwitch()
{
    QFETCH(QString, effect);
    TestHost host(studio());
    host.fault(QStringLiteral("morvek2 body switch* ") + effect);
    const BodyCommands commands(ControllerLink(&host.io, &host.versions));
    QVERIFY(!commands.switchBodies("joywand", 1, 0));
    QCOMPARE(host.lines(), QStringList{"morvek2 body switch joywand b02 joywand b01"});
    QCOMPARE(host.log(), QStringList{"Error: Unable to switch bodies"});
}

void tst_BodyCommands::sendsNothingForWhatItDoesNotKnow()
{
    TestHost host(studio());
    const BodyCommands commands(ControllerLink(&host.io, &host.versions));
    QVERIFY(!commands.setCount("glove", 2));
    QCOMPARE(host.log(), QStringList());
    QVERIFY(!commands.setReference("joywand", 0));
    QCOMPARE(host.log(), QStringList{"Error: Unable to set body joywand b01 as reference body"});
    QCOMPARE(host.lines(), QStringList());
}

void tst_BodyCommands::clearsTheReferenceOnlyWhenThereIsOne_data()
{
    QTest::addColumn<QString>("fault");
    QTest::addColumn<bool>("done");
    QTest::addColumn<QStringList>("writes");
    QTest::addColumn<QStringList>("log");
    const QStringList write{" tracking reference none"};
    const QStringList error{"Error: Unable to de-activate the reference body"};
    QTest::newRow("one") << "" << true << write << QStringList();
    QTest::newRow("none") << "get tracking reference answer \"none\"" << true << QStringList()
                          << QStringList();
    QTest::newRow("unknown") << "get tracking reference fail" << false << QStringList() << error;
    QTest::newRow("refused") << "set tracking reference* refuse" << false << write << error;
}

void tst_BodyCommands::clearsTheReferenceOnlyWhenThereIsOne()
{
    QFETCH(QString, fault);
    QFETCH(bool, done);
    QFETCH(QStringList, writes);
    QFETCH(QStringList, log);
    TestHost host(studio());
    if (!fault.isEmpty())
        host.fault(fault);
    QCOMPARE(BodyCommands(ControllerLink(&host.io, &host.versions)).clearReference(), done);
    QCOMPARE(host.queries(), QStringList{"tracking reference"});
    QCOMPARE(host.writes(), writes);
    QCOMPARE(host.log(), log);
}

TRACKING_TEST_MAIN(tst_BodyCommands)
#include "tst_bodycommands.moc"
