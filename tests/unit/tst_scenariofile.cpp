#include "ControllerRules.h"
#include "ScenarioFile.h"
#include "testprogram.h"

#include <QDir>
#include <QFile>
#include <QJsonArray>
#include <QJsonDocument>
#include <QTemporaryDir>
#include <QTest>

namespace {

QString scenarioFolder()
{
    return QStringLiteral(TRACKING_SCENARIO_DIR);
}

ControllerState shipped(const char *name)
{
    Scenario scenario;
    QString error;
    const QString path = scenarioFolder() + QStringLiteral("/%1.json").arg(QLatin1String(name));
    if (!ScenarioFile::load(path, &scenario, &error))
        QTest::qFail(qPrintable(error), __FILE__, __LINE__);
    return scenario.state;
}

QByteArray contentOf(const QString &path)
{
    QFile file(path);
    return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray("unreadable");
}

/** A small correct scenario into which a test can put one mistake. */
QByteArray withState(const QByteArray &state)
{
    return "{\"state\": {" + state + "}}";
}

QByteArray withBody(const QByteArray &body)
{
    return withState("\"sensors\": [{\"name\": \"vendorone mini 'A7'\"}],"
                     "\"targets\": [{\"shortName\": \"CR01\"}],"
                     "\"filterModes\": [{\"id\": \"slow\"}],"
                     "\"filterPresets\": [{\"id\": \"preset6d_default\", \"mode\": \"slow\"}],"
                     "\"bodyTypes\": {\"standard\": {\"maximum\": 4, \"filterAvailable\": true,"
                     "\"bodies\": [{}, {"
                     + body + "}]}}");
}

} // namespace

class tst_ScenarioFile : public QObject {
    Q_OBJECT

private slots:
    void shippedScenariosLoad_data();
    void shippedScenariosLoad();
    void shippedScenariosHoldWhatTheyPromise();
    void emptyStateIsTheDefault();
    void bodiesTakeFilterValuesFromTheirPreset();
    void errors_data();
    void errors();
    void nothingIsTakenFromAWrongFile();
    void unreadableFile();
    void savedFileGivesTheSameBytes();
    void saveReplacesWholly();
    void unwritableFolder();
    void differencesAreReadable();
    void everyMemberSurvives();
};

void tst_ScenarioFile::shippedScenariosLoad_data()
{
    QTest::addColumn<QString>("path");
    const QDir folder(scenarioFolder());
    const QStringList names = folder.entryList({QStringLiteral("*.json")});
    QVERIFY(names.size() >= 8);
    for (const QString &name : names)
        QTest::newRow(qPrintable(name)) << folder.filePath(name);
}

void tst_ScenarioFile::shippedScenariosLoad()
{
    QFETCH(QString, path);
    Scenario scenario;
    QString error;
    QVERIFY2(ScenarioFile::load(path, &scenario, &error), qPrintable(error));
    QVERIFY(!scenario.name.isEmpty());
    QVERIFY(!scenario.description.isEmpty());

    const QByteArray json = QJsonDocument(QJsonObject{{QStringLiteral("state"),
                                                       ScenarioFile::toJson(scenario.state)}})
                                    .toJson();
    Scenario again;
    QVERIFY2(ScenarioFile::parse(json, QStringLiteral("again"), &again, &error), qPrintable(error));
    QCOMPARE(ScenarioFile::differences(scenario.state, again.state), QStringList());
}

void tst_ScenarioFile::shippedScenariosHoldWhatTheyPromise()
{
    const QString standard = QStringLiteral("standard");
    const ControllerState studio = shipped("studio");
    QCOMPARE(studio.bodyTypes.value(standard).bodies.size(), 8);
    QCOMPARE(studio.targets.size(), 24);
    QCOMPARE(studio.targetGroups.size(), 4);
    QCOMPARE(studio.sensors.size(), 3);
    QCOMPARE(studio.protocol, QStringLiteral("1.24"));
    QVERIFY(studio.targetGroups.contains(QStringLiteral("Glasses Target")));
    QVERIFY(studio.targetGroups.contains(QStringLiteral("HMD Target")));
    QVERIFY(!studio.model.startsWith(QStringLiteral("POCKETUNIT")));
    QCOMPARE(shipped("legacy").protocol, QStringLiteral("0.12"));
    QVERIFY(shipped("pocketunit").model.startsWith(QStringLiteral("POCKETUNIT")));
    QCOMPARE(shipped("pocketunit").systemVersion, QStringLiteral("2.9.3"));
    QVERIFY(!shipped("locked").configChangeable);
    QVERIFY(shipped("multiuser").multiUserWithHead);
    const ControllerState crowded = shipped("crowded");
    QCOMPARE(crowded.bodyTypes.value(standard).bodies.size(), 200);
    QCOMPARE(crowded.targets.size(), 300);
    QCOMPARE(crowded.targetGroups.size(), 20);
    const ControllerState bare = shipped("bare");
    QVERIFY(bare.targets.isEmpty());
    for (const BodyTypeState &type : bare.bodyTypes)
        QVERIFY(type.bodies.isEmpty());
    const ControllerState full = shipped("full");
    QCOMPARE(full.bodyTypes.size(), ControllerRules::bodyTypeWords().size());
    for (const BodyTypeState &type : full.bodyTypes)
        QVERIFY(!type.bodies.isEmpty());
}

void tst_ScenarioFile::emptyStateIsTheDefault()
{
    Scenario scenario;
    QString error;
    QVERIFY2(ScenarioFile::parse("{}", QStringLiteral("x"), &scenario, &error), qPrintable(error));
    QCOMPARE(ScenarioFile::differences(ControllerState(), scenario.state), QStringList());
    QVERIFY(scenario.faults.isEmpty());
}

void tst_ScenarioFile::bodiesTakeFilterValuesFromTheirPreset()
{
    const QByteArray json = withState(
            "\"filterModes\": [{\"id\": \"slow\"}, {\"id\": \"fast\"}],"
            "\"filterPresets\": [{\"id\": \"preset6d_default\", \"strength\": 0.25,"
            "\"prediction\": 0.01, \"mode\": \"slow\"}],"
            "\"bodyTypes\": {\"standard\": {\"maximum\": 4, \"bodies\": [{},"
            "{\"filterStrength\": 0.75, \"filterPrediction\": 0.02, \"filterMode\": \"fast\"}]}}");
    Scenario scenario;
    QString error;
    QVERIFY2(ScenarioFile::parse(json, QStringLiteral("x"), &scenario, &error), qPrintable(error));
    const auto bodies = scenario.state.bodyTypes.value(QStringLiteral("standard")).bodies;
    QCOMPARE(bodies.at(0).filterStrength, 0.25);
    QCOMPARE(bodies.at(0).filterPrediction, 0.01);
    QCOMPARE(bodies.at(0).filterMode, QStringLiteral("slow"));
    QCOMPARE(bodies.at(1).filterStrength, 0.75);
    QCOMPARE(bodies.at(1).filterPrediction, 0.02);
    QCOMPARE(bodies.at(1).filterMode, QStringLiteral("fast"));
}

namespace {

/** One row of errors(). */
void row(const char *name, const QByteArray &json, const char *error)
{
    QTest::newRow(name) << json << QString::fromUtf8(error);
}

/** Keys that occur twice in an object; a reader without a check would silently use one of them. */
void duplicateRows()
{
    const char *const twice = "expected the key once, found it twice";
    const auto duplicate = [twice](const char *name, const QByteArray &json, const char *path) {
        row(name, json, QByteArray("x.json: ").append(path).append(": ").append(twice));
    };
    duplicate("top level", "{\"name\": \"a\", \"state\": {}, \"name\": \"b\"}", "name");
    duplicate("in the state", withState("\"model\": \"A\", \"model\": \"A\""), "state.model");
    duplicate("a body type",
              withState("\"bodyTypes\": {\"standard\": {}, \"joywand\": {}, \"standard\": {}}"),
              "state.bodyTypes.standard");
    duplicate("of the second body", withBody("\"name\": \"Hat\", \"name\": \"Cap\""),
              "state.bodyTypes.standard.bodies[1].name");
    duplicate("spelt in two ways", withState("\"model\": \"A\", \"m\\u006fdel\": \"B\""),
              "state.model");
    duplicate("after a text with signs",
              withState("\"model\": \"{\\\"a\\\": [,}\", \"protocol\": \"1.2\","
                        " \"model\": \"B\""),
              "state.model");
}

/** Files that are not JSON, and unknown keys. */
void unknownRows()
{
    row("nothing", "", "x.json: line 1, column 1: illegal value");
    row("syntax", "{\n  \"state\": {\n    \"protocol\" \"1.24\"\n  }\n}",
        "x.json: line 3, column 16: missing name separator");
    row("array", "[]", "x.json: expected an object, found an array");
    row("unknown top key", "{\"stat\": {}}",
        "x.json: stat: expected one of the keys name, description, faults, state, "
        "found \"stat\"");
    row("unknown key of a target", withState("\"targets\": [{\"shortName\": \"A\", \"x\": 1}]"),
        "x.json: state.targets[0].x: expected one of the keys shortName, longName, bodyType, "
        "group, custom, inVolume, tracked, found \"x\"");
}

/** Values of another type or outside their range. */
void valueRows()
{
    row("state of another type", "{\"state\": 3}", "x.json: state: expected an object, found 3");
    row("flag of another type", withState("\"configChangeable\": \"no\""),
        "x.json: state.configChangeable: expected true or false, found \"no\"");
    row("null", withState("\"protocol\": null"),
        "x.json: state.protocol: expected a version such as \"1.24\" or \"3.1.0\", found null");
    row("version", withState("\"protocol\": \"new\""),
        "x.json: state.protocol: expected a version such as \"1.24\" or \"3.1.0\", "
        "found \"new\"");
    row("list of another type", withState("\"targets\": {}"),
        "x.json: state.targets: expected an array, found {}");
    row("element of another type", withState("\"targets\": [\"CR01\"]"),
        "x.json: state.targets[0]: expected an object, found \"CR01\"");
    row("text in a list", withState("\"targetGroups\": [\"A\", 2]"),
        "x.json: state.targetGroups[1]: expected a text, found 2");
    row("types of another type", withState("\"bodyTypes\": []"),
        "x.json: state.bodyTypes: expected an object, found []");
    row("range", withState("\"inertialFrequency\": 0"),
        "x.json: state.inertialFrequency: expected a number from 1 to 10000, found 0");
    row("whole number", withState("\"search\": {\"durationTicks\": 1.5}"),
        "x.json: state.search.durationTicks: expected a whole number from 1 to 100000, "
        "found 1.5");
    row("number of another type", withState("\"strengthMin\": \"0.1\""),
        "x.json: state.strengthMin: expected a number from 0 to 1, found \"0.1\"");
    row("axis of two", withState("\"axis5dofCentral\": [0, 1]"),
        "x.json: state.axis5dofCentral: expected 3 numbers, found [0,1]");
    row("axis of texts", withState("\"axis5dofCentral\": [0, \"1\", 0]"),
        "x.json: state.axis5dofCentral[1]: expected a number, found \"1\"");
}

/** Names that a command line cannot carry. */
void wordRows()
{
    row("short name missing", withState("\"targets\": [{}]"),
        "x.json: state.targets[0].shortName: expected a word without blanks and quotes, "
        "found nothing");
    row("short name with a blank", withState("\"targets\": [{\"shortName\": \"A B\"}]"),
        "x.json: state.targets[0].shortName: expected a word without blanks and quotes, "
        "found \"A B\"");
    row("sensor name", withState("\"sensors\": [{\"name\": \"vendorone mini A7\"}]"),
        "x.json: state.sensors[0].name: expected a sensor's vendor, model and 'device id', "
        "found \"vendorone mini A7\"");
    row("device word", withState("\"devices\": [{\"kind\": \"a wand\"}]"),
        "x.json: state.devices[0].kind: expected a word without blanks and quotes, or an empty "
        "text, found \"a wand\"");
    row("body type word", withState("\"bodyTypes\": {\"sofa\": {}}"),
        "x.json: state.bodyTypes.sofa: expected one of standard, joywand, "
        "multiuserjoywand_head, fingertracking, measurementtool, measurementtool_reference, "
        "found \"sofa\"");
}

/** Bodies that contradict themselves or the rest of the state. */
void bodyRows()
{
    row("more bodies than the maximum",
        withState("\"bodyTypes\": {\"standard\": {\"maximum\": 1, \"bodies\": [{}, {}]}}"),
        "x.json: state.bodyTypes.standard.bodies: expected at most 1 bodies, found \"2\"");
    row("description with a quote", withBody("\"description\": \"a\\\"b\""),
        "x.json: state.bodyTypes.standard.bodies[1].description: expected one line of at most "
        "180 bytes without double quotes, found \"a\\\"b\"");
    row("target that is not there", withBody("\"calibrated\": true, \"target\": \"CR09\""),
        "x.json: state.bodyTypes.standard.bodies[1].target: expected the short name of a target "
        "that no other body holds, found \"CR09\"");
    row("target by number", withBody("\"calibrated\": true, \"target\": \"t01\""),
        "x.json: state.bodyTypes.standard.bodies[1].target: expected the short name of a target "
        "that no other body holds, found \"t01\"");
    row("target without calibration", withBody("\"target\": \"CR01\""),
        "x.json: state.bodyTypes.standard.bodies[1].target: expected no target for a body that "
        "is not calibrated, found \"CR01\"");
    row("recalibrated without calibration", withBody("\"recalibrated\": true"),
        "x.json: state.bodyTypes.standard.bodies[1].recalibrated: expected false for a body "
        "that is not calibrated, found \"true\"");
    row("markers without calibration", withBody("\"markers\": 4"),
        "x.json: state.bodyTypes.standard.bodies[1].markers: expected 0 for a body that is not "
        "calibrated, found \"4\"");
    row("sensor that is not there", withBody("\"sensor\": \"vendorone mini 'Z9'\""),
        "x.json: state.bodyTypes.standard.bodies[1].sensor: expected the name of a sensor that "
        "no other body carries, found \"vendorone mini 'Z9'\"");
    row("preset that is not there", withBody("\"filterPreset\": \"preset6d_none\""),
        "x.json: state.bodyTypes.standard.bodies[1].filterPreset: expected an id from "
        "filterPresets, found \"preset6d_none\"");
    row("mode that is not there", withBody("\"filterMode\": \"quick\""),
        "x.json: state.bodyTypes.standard.bodies[1].filterMode: expected an id from "
        "filterModes, found \"quick\"");
    row("reference that is not there", withBody("\"reference\": \"b01\""),
        "x.json: state.bodyTypes.standard.bodies[1].reference: expected the number of a "
        "measurement tool reference, such as \"b01\", found \"b01\"");
    row("two fixed angles", withBody("\"fixedAngles\": [{}, {}]"),
        "x.json: state.bodyTypes.standard.bodies[1].fixedAngles: expected 3 elements, found 2");
    row("fixed angle out of range", withBody("\"fixedAngles\": [{}, {\"degrees\": 21}, {}]"),
        "x.json: state.bodyTypes.standard.bodies[1].fixedAngles[1].degrees: expected a number "
        "from -20 to 20, found 21");
}

/** Lists and settings that contradict each other, and faults. */
void referenceRows()
{
    row("group that is not there",
        withState("\"targets\": [{\"shortName\": \"A\", \"group\": \"G\"}]"),
        "x.json: state.targets[0].group: expected a name from targetGroups, found \"G\"");
    row("group twice", withState("\"targetGroups\": [\"G\", \"G\"]"),
        "x.json: state.targetGroups[1]: expected a name that no other group has, found \"G\"");
    row("target's type", withState("\"targets\": [{\"shortName\": \"A\", \"bodyType\": \"x\"}]"),
        "x.json: state.targets[0].bodyType: expected one of standard, joywand, "
        "multiuserjoywand_head, fingertracking, measurementtool, measurementtool_reference, "
        "found \"x\"");
    row("preset's mode", withState("\"filterPresets\": [{\"id\": \"p\", \"mode\": \"m\"}]"),
        "x.json: state.filterPresets[0].mode: expected an id from filterModes, found \"m\"");
    row("limits", withState("\"strengthMin\": 0.9, \"strengthMax\": 0.1"),
        "x.json: state.strengthMin: expected at most strengthMax, found \"0.9\"");
    row("sensor twice",
        withState("\"sensors\": [{\"name\": \"a b 'c'\"}, {\"name\": \"a b 'c'\"}]"),
        "x.json: state.sensors[1].name: expected a name that no other sensor has, "
        "found \"a b 'c'\"");
    row("reference body", withState("\"trackingReference\": \"standard b01\""),
        "x.json: state.trackingReference: expected type and number of a body, such as "
        "\"standard b03\", found \"standard b01\"");
    row("pulse", withState("\"trackingPulse\": \"frequency fast\""),
        "x.json: state.trackingPulse: expected synchronous_cameras, frequency with a number or "
        "inertial_sensor with a sensor's name, found \"frequency fast\"");
    row("fault", "{\"faults\": [\"* fail\", \"body* every x fail\"]}",
        "x.json: faults[1]: column 13: expected every how many calls (a whole number from 1), "
        "found \"x\"");
}

} // namespace

void tst_ScenarioFile::errors_data()
{
    QTest::addColumn<QByteArray>("json");
    QTest::addColumn<QString>("error");
    duplicateRows();
    unknownRows();
    valueRows();
    wordRows();
    bodyRows();
    referenceRows();
}

void tst_ScenarioFile::errors()
{
    QFETCH(QByteArray, json);
    Scenario scenario;
    QString error;
    QVERIFY(!ScenarioFile::parse(json, QStringLiteral("x.json"), &scenario, &error));
    QTEST(error, "error");
}

void tst_ScenarioFile::nothingIsTakenFromAWrongFile()
{
    Scenario scenario;
    scenario.name = QStringLiteral("kept");
    QString error;
    const QByteArray json = "{\"name\": \"new\", \"state\": {\"protocol\": 1}}";
    QVERIFY(!ScenarioFile::parse(json, QStringLiteral("x"), &scenario, &error));
    QCOMPARE(scenario.name, QStringLiteral("kept"));
}

void tst_ScenarioFile::unreadableFile()
{
    Scenario scenario;
    QString error;
    QVERIFY(!ScenarioFile::load(QStringLiteral("/nowhere/at.json"), &scenario, &error));
    QVERIFY2(error.startsWith(QStringLiteral("/nowhere/at.json: cannot be read: ")),
             qPrintable(error));
}

void tst_ScenarioFile::savedFileGivesTheSameBytes()
{
    QTemporaryDir folder;
    QString error;
    Scenario scenario;
    scenario.name = QStringLiteral("Snapshot");
    scenario.faults = QStringList{QStringLiteral("body desc* call 3 answer \"\\\"\"")};
    scenario.state = shipped("full");
    scenario.state.filterPresets[0].prediction = 0.1 + 0.2;
    const QString first = folder.filePath(QStringLiteral("first.json"));
    QVERIFY2(ScenarioFile::save(first, scenario, &error), qPrintable(error));
    Scenario loaded;
    QVERIFY2(ScenarioFile::load(first, &loaded, &error), qPrintable(error));
    QCOMPARE(loaded.faults, scenario.faults);
    QCOMPARE(ScenarioFile::differences(scenario.state, loaded.state), QStringList());
    const QString second = folder.filePath(QStringLiteral("second.json"));
    QVERIFY2(ScenarioFile::save(second, loaded, &error), qPrintable(error));
    QVERIFY(contentOf(first).size() > 1000);
    QCOMPARE(contentOf(second), contentOf(first));
}

void tst_ScenarioFile::saveReplacesWholly()
{
    QTemporaryDir folder;
    QString error;
    const QString path = folder.filePath(QStringLiteral("state.json"));
    QFile old(path);
    QVERIFY(old.open(QIODevice::WriteOnly));
    old.write(QByteArray(100000, '#'));
    old.close();
    QVERIFY2(ScenarioFile::save(path, Scenario(), &error), qPrintable(error));
    QVERIFY(!contentOf(path).contains('#'));
    QCOMPARE(QDir(folder.path()).entryList(QDir::Files), QStringList{QStringLiteral("state.json")});
    Scenario loaded;
    QVERIFY2(ScenarioFile::load(path, &loaded, &error), qPrintable(error));
    QCOMPARE(loaded.name, QStringLiteral("state"));
}

void tst_ScenarioFile::unwritableFolder()
{
    QString error;
    QVERIFY(!ScenarioFile::save(QStringLiteral("/nowhere/at.json"), Scenario(), &error));
    QVERIFY2(error.startsWith(QStringLiteral("/nowhere/at.json: cannot be written: ")),
             qPrintable(error));
}

void tst_ScenarioFile::differencesAreReadable()
{
    const ControllerState before = shipped("studio");
    ControllerState after = before;
    QCOMPARE(ScenarioFile::differences(before, after), QStringList());
    after.bodyTypes[QStringLiteral("standard")].bodies[1].description = QStringLiteral("New");
    after.autoRestart = false;
    after.targetGroups << QStringLiteral("More");
    after.bodyTypes.remove(QStringLiteral("fingertracking"));
    after.bodyTypes[QStringLiteral("joywand")].bodies.removeLast();
    const QStringList lines = ScenarioFile::differences(before, after);
    QVERIFY(lines.contains(QStringLiteral("autoRestart: true -> false")));
    QVERIFY(lines.contains(QStringLiteral(
            "bodyTypes.standard.bodies[1].description: \"Glasses round\" -> \"New\"")));
    QVERIFY(lines.contains(QStringLiteral("targetGroups[4]: nothing -> \"More\"")));
    QVERIFY(lines.filter(QStringLiteral("bodyTypes.fingertracking: {")).size() == 1);
    QVERIFY(lines.filter(QStringLiteral("bodyTypes.joywand.bodies[1]: {")).size() == 1);
    QCOMPARE(lines.size(), 5);
}

namespace {

/** The JSON value with every leaf changed to another value of its type. */
QJsonValue changed(const QJsonValue &value)
{
    if (value.isBool())
        return !value.toBool();
    if (value.isDouble())
        return value.toDouble() == 0.25 ? 0.5 : 0.25;
    if (value.isString())
        return value.toString() + QLatin1Char('x');
    return value;
}

} // namespace

void tst_ScenarioFile::everyMemberSurvives()
{
    // Plain members at the top of the state, each changed alone, must come back from the file.
    const QJsonObject base = ScenarioFile::toJson(shipped("studio"));
    int tried = 0;
    for (auto it = base.begin(); it != base.end(); ++it) {
        const QJsonValue other = changed(it.value());
        if (other == it.value())
            continue;
        QJsonObject state = base;
        state.insert(it.key(), other);
        Scenario scenario;
        QString error;
        const QByteArray json =
                QJsonDocument(QJsonObject{{QStringLiteral("state"), state}}).toJson();
        if (!ScenarioFile::parse(json, QStringLiteral("x"), &scenario, &error)) {
            QVERIFY2(error.contains(QStringLiteral("state.") + it.key()), qPrintable(error));
            continue;
        }
        ++tried;
        QCOMPARE(ScenarioFile::toJson(scenario.state), state);
    }
    QVERIFY2(tried >= 15, qPrintable(QString::number(tried)));
}

TRACKING_TEST_GUILESS_MAIN(tst_ScenarioFile)
#include "tst_scenariofile.moc"
