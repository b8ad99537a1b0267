#include "bodies/adminbodytype.h"
#include "bodies/bodyreader.h"
#include "bodies/bodyregistry.h"
#include "dialogtest.h"

namespace {

/**
 * A record with `count` bodies whose fields all have old values, so that a test sees which were
 * kept.
 */
AdminBodyType oldRecord(int count, bool filterAvailable = true)
{
    AdminBody body;
    body.desc = QStringLiteral("old");
    body.active = true;
    body.calibrated = true;
    body.recalibrated = true;
    body.has_handeye = true;
    body.tlibName = QStringLiteral("OLD1");
    body.inertialSensor = QStringLiteral("old sensor");
    body.calibrationStatus = QStringLiteral("old status");
    body.filter6dPreset = QStringLiteral("old filter");
    body.isReference = true;
    AdminBodyType record;
    record.bodies.fill(body, count);
    record.filter6dAvailable = filterAvailable;
    return record;
}

/** All fields of a body in their order; flags as their names or "-". */
QString described(const AdminBody &body)
{
    const auto flag = [](bool set, const char *name) {
        return set ? QString::fromLatin1(name) : QStringLiteral("-");
    };
    return QStringList({body.desc, flag(body.active, "active"), flag(body.calibrated, "calibrated"),
                        flag(body.recalibrated, "recalibrated"), flag(body.has_handeye, "handeye"),
                        body.tlibName, body.inertialSensor, body.calibrationStatus,
                        body.filter6dPreset, flag(body.isReference, "reference")})
            .join(QLatin1Char('|'));
}

/** Reads one body into a record with old values and describes the result. */
QString readOver(TestHost &host, const QString &type, int index, bool filterAvailable = true)
{
    AdminBodyType record = oldRecord(8, filterAvailable);
    host.clear();
    BodyReader(ControllerLink(&host.io, &host.versions)).readBody(record, type, index);
    return described(record.bodies.at(index));
}

QStringList forBody(const QStringList &lines, const QString &body)
{
    QStringList filled;
    for (QString line : lines)
        filled << line.replace(QLatin1String("BODY"), body);
    return filled;
}

} // namespace

/** Reading body types and bodies from the controller. */
class tst_BodyReader : public DialogTest {
    Q_OBJECT

private slots:
    void readsTypes_data();
    void readsTypes();
    void reportsUnreadableTypes_data();
    void reportsUnreadableTypes();
    void readsCounts_data();
    void readsCounts();
    void asksWhatTheProtocolKnows_data();
    void asksWhatTheProtocolKnows();
    void readsBodies_data();
    void readsBodies();
    void goesOnAfterFailures_data();
    void goesOnAfterFailures();
    void answersNothingWhenTheLinkIsDead();
    void tellsHowABodyWasCalibrated_data();
    void tellsHowABodyWasCalibrated();
    void findsReference_data();
    void findsReference();
    void readsReferenceOnlyForStandardBodies();
    void ignoresUnknownBodies_data();
    void ignoresUnknownBodies();
    void numbersBodies();
    void knowsTheWarmupRule_data();
    void knowsTheWarmupRule();
    void knowsWhetherASensorIsPresent_data();
    void knowsWhetherASensorIsPresent();
};

void tst_BodyReader::readsTypes_data()
{
    QTest::addColumn<QString>("protocol");
    QTest::addColumn<QString>("type");
    QTest::addColumn<QStringList>("queries");
    QTest::addColumn<QString>("description");
    QTest::addColumn<bool>("filter");
    const QString desc = QStringLiteral("body type_desc standard");
    const QString filter = QStringLiteral("filter6d available standard");
    QTest::newRow("0.2") << "0.2"
                         << "standard" << QStringList() << "" << false;
    QTest::newRow("0.3") << "0.3"
                         << "standard" << QStringList{desc} << "Standard body" << false;
    QTest::newRow("1.11") << "1.11"
                          << "standard" << QStringList{desc} << "Standard body" << false;
    QTest::newRow("1.12") << "1.12"
                          << "standard" << QStringList({desc, filter}) << "Standard body" << true;
    QTest::newRow("1.24, no filter")
            << "1.24"
            << "fingertracking"
            << QStringList({"body type_desc fingertracking", "filter6d available fingertracking"})
            << "Hand" << false;
}

void tst_BodyReader::readsTypes()
{
    QFETCH(QString, protocol);
    QFETCH(QString, type);
    TestHost host(studio(protocol));
    AdminBodyType record;
    BodyReader(ControllerLink(&host.io, &host.versions)).readType(record, type);
    QTEST(host.lines(), "queries");
    QTEST(record.typedesc, "description");
    QTEST(record.filter6dAvailable, "filter");
    QCOMPARE(host.log(), QStringList());
}

void tst_BodyReader::reportsUnreadableTypes_data()
{
    QTest::addColumn<QString>("rule");
    QTest::addColumn<QStringList>("log");
    QTest::addColumn<QString>("description");
    QTest::addColumn<bool>("filter");
    QTest::newRow("description")
            << "body type_desc* fail"
            << QStringList{"Error: Unable to get description of bodytype standard"} << "" << true;
    QTest::newRow("filter") << "filter6d available* fail"
                            << QStringList{"Error: Unable to get availability of filter6d for "
                                           "bodytype standard"}
                            << "Standard body" << false;
    QTest::newRow("both") << "* fail"
                          << QStringList({"Error: Unable to get description of bodytype standard",
                                          "Error: Unable to get availability of filter6d for "
                                          "bodytype standard"})
                          << "" << false;
    QTest::newRow("filter not exactly yes")
            << "filter6d available* answer \"yes \"" << QStringList() << "Standard body" << false;
    QTest::newRow("quotes in the description")
            << "body type_desc* answer \"\\\"A \\\"B\\\"\"" << QStringList() << "A B" << true;
}

void tst_BodyReader::reportsUnreadableTypes()
{
    QFETCH(QString, rule);
    TestHost host(studio());
    host.fault(rule);
    AdminBodyType record;
    BodyReader(ControllerLink(&host.io, &host.versions)).readType(record, "standard");
    QTEST(host.log(), "log");
    QTEST(record.typedesc, "description");
    QTEST(record.filter6dAvailable, "filter");
}

void tst_BodyReader::readsCounts_data()
{
    QTest::addColumn<QString>("type");
    QTest::addColumn<QString>("effect");
    QTest::addColumn<int>("count");
    QTest::addColumn<QStringList>("log");
    const QStringList failed{"Error: Unable to get number of standard bodies"};
    QTest::newRow("standard") << "standard"
                              << "delay 0" << 8 << QStringList();
    QTest::newRow("references") << "measurementtool_reference"
                                << "delay 0" << 3 << QStringList();
    QTest::newRow("none") << "standard"
                          << "answer \"0\"" << 0 << QStringList();
    QTest::newRow("negative") << "standard"
                              << "answer \"-4\"" << 0 << failed;
    QTest::newRow("absurd") << "standard"
                            << "answer \"2147483647\"" << 0 << failed;
    QTest::newRow("failed") << "standard"
                            << "fail" << 0 << failed;
    QTest::newRow("no number") << "standard"
                               << "wrong-type" << 0 << failed;
    QTest::newRow("garbled") << "standard"
                             << "garbled" << 0 << failed;
}

void tst_BodyReader::readsCounts()
{
    QFETCH(QString, type);
    QFETCH(QString, effect);
    TestHost host(studio());
    host.fault(QStringLiteral("body number_of_bodies* ") + effect);
    BodyRegistry registry;
    registry.insert(type, AdminBodyType());
    // When `first` is beyond the last body, only the count is read.
    BodyReader(ControllerLink(&host.io, &host.versions)).readBodies(registry, type, 10000);
    QTEST(registry.type(type).bodies.size(), "count");
    QCOMPARE(host.lines(), QStringList{"body number_of_bodies " + type});
    QTEST(host.log(), "log");
}

void tst_BodyReader::asksWhatTheProtocolKnows_data()
{
    QTest::addColumn<QString>("protocol");
    QTest::addColumn<QStringList>("queries");
    QTest::addColumn<QString>("body");
    const QStringList before11({"body desc standard b02", "body calibrated standard b02"});
    const QStringList from11({"body desc standard b02", "body targetlib_name standard b02",
                              "body active standard b02", "body calibrated standard b02",
                              "body recalibrated standard b02"});
    const QStringList from12 = from11
                               + QStringList({"body inertial_sensor standard b02",
                                              "body filter6d_enabled standard b02"});
    const QString name = QStringLiteral("Glasses round");
    const QString custom = QStringLiteral("|-|calibrated|-|-|||Custom|old filter|-");
    const QString library = QStringLiteral(
            "|active|calibrated|recalibrated|-|GL01||Target Library, re-calibrated|");
    QTest::newRow("0.2") << "0.2" << QStringList() << "|-|-|-|-|||not calibrated|old filter|-";
    QTest::newRow("0.3") << "0.3" << QStringList{"body calibrated standard b02"} << custom;
    QTest::newRow("0.15") << "0.15" << QStringList{"body calibrated standard b02"} << custom;
    QTest::newRow("0.16") << "0.16" << before11 << name + custom;
    QTest::newRow("1.10") << "1.10" << before11 << name + custom;
    QTest::newRow("1.11") << "1.11" << from11 << name + library + "old filter|-";
    QTest::newRow("1.12") << "1.12" << from12 << name + library + "not active|-";
    QTest::newRow("1.20") << "1.20" << from12 << name + library + "not active|-";
    QTest::newRow("1.21") << "1.21" << from12 << name + library + "not active|-";
    QTest::newRow("1.23") << "1.23" << from12 << name + library + "not active|-";
    QTest::newRow("1.24") << "1.24" << from12 + QStringList{"tracking reference"}
                          << name + library + "not active|-";
}

void tst_BodyReader::asksWhatTheProtocolKnows()
{
    QFETCH(QString, protocol);
    TestHost host(studio(protocol));
    const bool knowsFilter = host.versions.prot >= VersionInfo(1, 12, -1);
    QTEST(readOver(host, "standard", 1, knowsFilter), "body");
    QTEST(host.lines(), "queries");
    QCOMPARE(host.log(), QStringList());
}

void tst_BodyReader::readsBodies_data()
{
    QTest::addColumn<QString>("type");
    QTest::addColumn<int>("index");
    QTest::addColumn<QStringList>("queries");
    QTest::addColumn<QString>("body");
    const QStringList common({"body desc BODY", "body targetlib_name BODY", "body active BODY",
                              "body calibrated BODY", "body recalibrated BODY",
                              "body inertial_sensor BODY"});
    const QStringList custom({"body filter6d_enabled BODY", "body filter6d_preset BODY",
                              "body filter6d_prediction BODY", "body filter6d_mode BODY"});
    const QStringList reference{"tracking reference"};
    QTest::newRow("custom preset")
            << "standard" << 0
            << forBody(common + custom + QStringList{"filter6d mode_desc adaptive_fast"}
                               + reference,
                       "standard b01")
            << "Cap|active|calibrated|-|-|||Custom|20ms/Adaptive fast|-";
    QTest::newRow("custom hybrid preset, hand-eye calibration")
            << "standard" << 3
            << forBody(common + QStringList{"inertial sensor_handeye vendorone mini 'A7'"} + custom
                               + QStringList({"filter6d mode_desc hybrid_target",
                                              "body filter6d_strength BODY"})
                               + reference,
                       "standard b04")
            << "Camera rig|active|calibrated|-|handeye||vendorone mini 'A7'|Full|0.50/12ms/Hybrid "
               "target|-";
    QTest::newRow("other preset, no hand-eye calibration")
            << "standard" << 4
            << forBody(common
                               + QStringList({"inertial sensor_handeye vendorone mini 'B12'",
                                              "body filter6d_enabled BODY",
                                              "body filter6d_preset BODY",
                                              "filter6d preset_desc preset6d_default"})
                               + reference,
                       "standard b05")
            << "Pointer|active|calibrated|-|-|PL02|vendorone mini 'B12'|Optical|Default|-";
    QTest::newRow("tracking reference")
            << "standard" << 2
            << forBody(common
                               + QStringList({"body filter6d_enabled BODY",
                                              "body filter6d_preset BODY",
                                              "filter6d preset_desc preset6d_default"})
                               + reference,
                       "standard b03")
            << "Room frame|active|calibrated|-|-|CR03||Target Library|Default|reference";
    QTest::newRow("not calibrated")
            << "standard" << 7 << forBody(common + reference, "standard b08")
            << "|-|-|-|-|||not calibrated|old filter|-";
    QTest::newRow("hand, a type without filter")
            << "fingertracking" << 0 << forBody(common + reference, "fingertracking b01")
            << "Left hand|active|calibrated|-|-|HN01||Target Library|old filter|-";
}

void tst_BodyReader::readsBodies()
{
    QFETCH(QString, type);
    QFETCH(int, index);
    TestHost host(studio());
    QTEST(readOver(host, type, index, type == QLatin1String("standard")), "body");
    QTEST(host.lines(), "queries");
    QCOMPARE(host.log(), QStringList());
}

void tst_BodyReader::goesOnAfterFailures_data()
{
    QTest::addColumn<QString>("failing");
    QTest::addColumn<QString>("line");
    QTest::addColumn<QString>("body");
    QTest::addColumn<int>("queriesLeft");
    // Body 4 carries a sensor with a hand-eye calibration and has a hybrid custom preset.
    constexpr int all = 14;
    const QString tail = QStringLiteral("|0.50/12ms/Hybrid target|-");
    const QString sensor = QStringLiteral("vendorone mini 'A7'");
    QTest::newRow("description") << "body desc*"
                                 << "Error: Unable to get description of body standard b04 "
                                 << "old|active|calibrated|-|handeye||" + sensor + "|Full" + tail
                                 << all;
    QTest::newRow("target library name")
            << "body targetlib_name*"
            << "Error: Unable to get targetlib name of body standard b04"
            << "Camera rig|active|calibrated|-|handeye|OLD1|" + sensor + "|Full" + tail << all;
    QTest::newRow("activeness") << "body active*"
                                << "Error: Unable to get activeness of body standard b04"
                                << "Camera rig|active|calibrated|-|handeye||" + sensor + "|Full"
                                           + tail
                                << all;
    QTest::newRow("calibration state")
            << "body calibrated*"
            << "Error: Unable to get calibration state of body standard b04"
            << "Camera rig|active|calibrated|-|handeye||" + sensor + "|Full" + tail << all;
    QTest::newRow("recalibrated state")
            << "body recalibrated*"
            << "Error: Unable to get recalibrated state of body standard b04"
            << "Camera rig|active|calibrated|recalibrated|handeye||" + sensor + "|Full" + tail
            << all;
    QTest::newRow("inertial sensor")
            << "body inertial_sensor*"
            << "Error: Unable to get inertial sensor of body standard b04"
            << "Camera rig|active|calibrated|-|-|||Custom" + tail << all - 1;
    QTest::newRow("hand-eye calibration")
            << "inertial sensor_handeye*"
            << "Error: Unable to get handeye status of sensor vendorone mini 'A7'"
            << "Camera rig|active|calibrated|-|-||" + sensor + "|Optical" + tail << all;
    QTest::newRow("filter state") << "body filter6d_enabled*"
                                  << "Error: Unable to get filter6d state of body standard b04"
                                  << "Camera rig|active|calibrated|-|handeye||" + sensor
                                             + "|Full|old filter|-"
                                  << all - 5;
    QTest::newRow("reference") << "tracking reference"
                               << "Error: Unable to info body reference"
                               << "Camera rig|active|calibrated|-|handeye||" + sensor
                                          + "|Full|0.50/12ms/Hybrid target|reference"
                               << all;
}

void tst_BodyReader::goesOnAfterFailures()
{
    QFETCH(QString, failing);
    QFETCH(QString, line);
    QFETCH(int, queriesLeft);
    TestHost host(studio());
    host.fault(failing + QStringLiteral(" fail"));
    QTEST(readOver(host, "standard", 3), "body");
    QCOMPARE(host.log(), QStringList{line});
    QCOMPARE(host.lines().size(), queriesLeft);
    QCOMPARE(host.lines().last(), QStringLiteral("tracking reference"));
}

void tst_BodyReader::answersNothingWhenTheLinkIsDead()
{
    TestHost host(studio());
    host.fault(QStringLiteral("* link-dead"));
    QCOMPARE(readOver(host, "standard", 2),
             QStringLiteral("old|active|calibrated|recalibrated|-|OLD1||"
                            "Target Library, re-calibrated|old filter|reference"));
    QCOMPARE(host.log(),
             QStringList({"Error: Unable to get description of body standard b03 ",
                          "Error: Unable to get targetlib name of body standard b03",
                          "Error: Unable to get activeness of body standard b03",
                          "Error: Unable to get calibration state of body standard b03",
                          "Error: Unable to get recalibrated state of body standard b03",
                          "Error: Unable to get inertial sensor of body standard b03",
                          "Error: Unable to get filter6d state of body standard b03",
                          "Error: Unable to info body reference"}));
}

void tst_BodyReader::tellsHowABodyWasCalibrated_data()
{
    QTest::addColumn<bool>("calibrated");
    QTest::addColumn<bool>("recalibrated");
    QTest::addColumn<QString>("target");
    QTest::addColumn<QString>("sensor");
    QTest::addColumn<QString>("status");
    const QString withHandEye = QStringLiteral("vendorone mini 'A7'");
    const QString without = QStringLiteral("vendorone mini 'B12'");
    QTest::newRow("not") << false << false << ""
                         << ""
                         << "not calibrated";
    QTest::newRow("not, whatever else")
            << false << true << "CR01" << withHandEye << "not calibrated";
    QTest::newRow("custom") << true << false << ""
                            << ""
                            << "Custom";
    QTest::newRow("custom again") << true << true << ""
                                  << ""
                                  << "Custom, re-calibrated";
    QTest::newRow("library") << true << false << "CR01"
                             << ""
                             << "Target Library";
    QTest::newRow("library again") << true << true << "CR01"
                                   << ""
                                   << "Target Library, re-calibrated";
    QTest::newRow("optical") << true << false << "" << without << "Optical";
    QTest::newRow("optical from library, again") << true << true << "CR01" << without << "Optical";
    QTest::newRow("full") << true << false << "" << withHandEye << "Full";
    QTest::newRow("full from library, again") << true << true << "CR01" << withHandEye << "Full";
}

void tst_BodyReader::tellsHowABodyWasCalibrated()
{
    QFETCH(bool, calibrated);
    QFETCH(bool, recalibrated);
    QFETCH(QString, target);
    QFETCH(QString, sensor);
    ControllerState state = studio();
    BodyState &body = state.bodyTypes["standard"].bodies[0];
    body.calibrated = calibrated;
    body.recalibrated = recalibrated;
    body.target = target;
    body.sensor = sensor;
    TestHost host(state);
    AdminBodyType record = oldRecord(8, false);
    BodyReader(ControllerLink(&host.io, &host.versions)).readBody(record, "standard", 0);
    QTEST(record.bodies.at(0).calibrationStatus, "status");
}

void tst_BodyReader::findsReference_data()
{
    QTest::addColumn<QString>("answer");
    QTest::addColumn<int>("reference");
    QTest::newRow("third") << "standard b03" << 2;
    QTest::newRow("several blanks") << "  standard   b03 " << 2;
    QTest::newRow("further words") << "standard b03 since yesterday" << 2;
    QTest::newRow("without leading zero") << "standard b3" << 2;
    QTest::newRow("first") << "standard b01" << 0;
    QTest::newRow("none") << "none" << -1;
    QTest::newRow("another type") << "joywand b03" << -1;
    QTest::newRow("capital") << "Standard b03" << -1;
    QTest::newRow("one word") << "standard" << -1;
    QTest::newRow("no number") << "standard bxx" << -1;
    QTest::newRow("letter only") << "standard b" << -1;
    QTest::newRow("hexadecimal") << "standard b0x3" << -1;
    QTest::newRow("beyond the last") << "standard b09" << -1;
    QTest::newRow("empty") << "" << -1;
}

void tst_BodyReader::findsReference()
{
    QFETCH(QString, answer);
    QFETCH(int, reference);
    TestHost host(studio());
    host.fault(QStringLiteral("tracking reference answer \"%1\"").arg(answer));
    AdminBodyType record = oldRecord(8, false);
    const BodyReader reader(ControllerLink(&host.io, &host.versions));
    for (int index = 0; index < 8; ++index) {
        reader.readBody(record, "standard", index);
        QCOMPARE(record.getBodyIsReference(index), index == reference);
    }
    QCOMPARE(host.log(), QStringList());
}

void tst_BodyReader::readsReferenceOnlyForStandardBodies()
{
    TestHost host(studio());
    for (const char *type : {"joywand", "measurementtool_reference", "fingertracking"}) {
        host.fault(QStringLiteral("tracking reference answer \"standard b01\""));
        const QString body = readOver(host, QString::fromLatin1(type), 0, false);
        QVERIFY2(body.endsWith(QLatin1String("|-")), qPrintable(body));
        QCOMPARE(host.lines().last(), QStringLiteral("tracking reference"));
    }
}

void tst_BodyReader::ignoresUnknownBodies_data()
{
    QTest::addColumn<int>("count");
    QTest::addColumn<int>("index");
    QTest::newRow("no bodies") << 0 << 0;
    QTest::newRow("negative") << 8 << -1;
    QTest::newRow("behind the last") << 8 << 8;
}

void tst_BodyReader::ignoresUnknownBodies()
{
    QFETCH(int, count);
    QFETCH(int, index);
    TestHost host(studio());
    AdminBodyType record = oldRecord(count);
    const BodyReader reader(ControllerLink(&host.io, &host.versions));
    reader.readBody(record, "standard", index);
    reader.readFilterSummary(record, "standard", index);
    QCOMPARE(record.bodies.size(), count);
    QCOMPARE(host.lines(), QStringList());
    QCOMPARE(host.log(), QStringList());
    record.setBodyIsReference(index, true);
    QVERIFY(!record.getBodyIsReference(index));
}

void tst_BodyReader::numbersBodies()
{
    ControllerState state = studio();
    state.bodyTypes["standard"].maximum = 200;
    state.bodyTypes["standard"].bodies.resize(120);
    TestHost host(state);
    AdminBodyType record = oldRecord(120, false);
    const BodyReader reader(ControllerLink(&host.io, &host.versions));
    reader.readBody(record, "standard", 11);
    QCOMPARE(host.queries().first(), QStringLiteral("body desc standard b12"));
    host.clear();
    host.fault(QStringLiteral("body active* fail"));
    reader.readBody(record, "standard", 119);
    QCOMPARE(host.queries().first(), QStringLiteral("body desc standard b120"));
    QCOMPARE(host.log(), QStringList{"Error: Unable to get activeness of body standard b120"});
}

void tst_BodyReader::knowsTheWarmupRule_data()
{
    QTest::addColumn<QString>("protocol");
    QTest::addColumn<QStringList>("rules");
    QTest::addColumn<bool>("met");
    QTest::addColumn<QStringList>("queries");
    const QString available = QStringLiteral("inertial available");
    const QString warmup = QStringLiteral("inertial warmup");
    QTest::newRow("no warm-up") << "1.12" << QStringList() << true
                                << QStringList({available, warmup});
    QTest::newRow("older protocol") << "1.11" << QStringList() << false << QStringList();
    QTest::newRow("warm-up runs") << "1.24" << QStringList{"inertial warmup answer \"yes\""}
                                  << false << QStringList({available, warmup});
    QTest::newRow("anything but yes") << "1.24" << QStringList{"inertial warmup answer \"err\""}
                                      << true << QStringList({available, warmup});
    QTest::newRow("no sensors") << "1.24" << QStringList{"inertial available answer \"no\""}
                                << false << QStringList{available};
    QTest::newRow("availability fails")
            << "1.24" << QStringList{"inertial available fail"} << false << QStringList{available};
    QTest::newRow("warm-up fails") << "1.24" << QStringList{"inertial warmup fail"} << false
                                   << QStringList({available, warmup});
}

void tst_BodyReader::knowsTheWarmupRule()
{
    QFETCH(QString, protocol);
    QFETCH(QStringList, rules);
    TestHost host(studio(protocol));
    for (const QString &rule : rules)
        host.fault(rule);
    QTEST(BodyReader(ControllerLink(&host.io, &host.versions)).isWarmupRuleMet(), "met");
    QTEST(host.lines(), "queries");
}

void tst_BodyReader::knowsWhetherASensorIsPresent_data()
{
    QTest::addColumn<QString>("fault");
    QTest::addColumn<QString>("type");
    QTest::addColumn<int>("index");
    QTest::addColumn<bool>("isPresent");
    QTest::addColumn<int>("queries");
    QTest::addColumn<QString>("log");
    const QString error = QStringLiteral("Error: Unable to get ");
    const auto row = [](const char *name, const char *fault, bool isPresent, int queries,
                        const QString &log) {
        QTest::newRow(name) << fault << "standard" << 3 << isPresent << queries << log;
    };
    row("present", "", true, 3, QString());
    row("no sensor", "get body inertial_sensor* empty", false, 2, QString());
    row("no sensors", "get inertial available answer \"no\"", false, 1, QString());
    row("availability unread", "get inertial available fail", false, 1,
        error + "availability of inertial sensors");
    row("sensor unread", "get body inertial_sensor* fail", false, 2,
        error + "inertial sensor of body standard b04");
    row("presence unread", "get inertial sensor_present* fail", false, 3,
        error + "presence of inertial sensor vendorone mini 'A7'");
    QTest::newRow("no index") << ""
                              << "standard" << -1 << false << 0 << QString();
    QTest::newRow("no type") << ""
                             << "" << 3 << false << 0 << QString();
}

void tst_BodyReader::knowsWhetherASensorIsPresent()
{
    QFETCH(QString, fault);
    QFETCH(QString, type);
    QFETCH(int, index);
    QFETCH(bool, isPresent);
    QFETCH(int, queries);
    QFETCH(QString, log);
    TestHost host(studio());
    if (!fault.isEmpty())
        host.fault(fault);
    const BodyReader reader(ControllerLink(&host.io, &host.versions));
    QCOMPARE(reader.isSensorPresent(type, index), isPresent);
    QCOMPARE(host.lines().size(), queries);
    QCOMPARE(host.log().join(QLatin1Char('|')), log);
}

TRACKING_TEST_MAIN(tst_BodyReader)
#include "tst_bodyreader.moc"
