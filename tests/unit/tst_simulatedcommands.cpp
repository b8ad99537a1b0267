#include "CommandReference.h"
#include "CommandTable.h"
#include "ScenarioFile.h"
#include "SimulatedController.h"
#include "testprogram.h"

#include <QDirIterator>
#include <QFile>
#include <QHash>
#include <QRegularExpression>
#include <QSet>
#include <QTest>

namespace {

using Access = CommandAccess;

struct Row {
    Access access;
    const char *line;
    const char *answer;
};

/** At least one line for every entry of the table, and the answer of the studio. */
const Row rows[] = {
        {Access::Get, "body number_of_bodies standard", "8"},
        {Access::Get, "body type_desc joywand", "\"Joywand\""},
        {Access::Get, "body desc standard b02", "Glasses round"},
        {Access::Get, "body desc standard b08", ""},
        {Access::Set, "body desc standard b01 \"Blue cap\"", ""},
        {Access::Set, "body desc standard b01 \"\"", ""},
        {Access::Set, "body desc standard b01 Blue  cap", ""},
        {Access::Set, "body desc standard b01 ", ""},
        {Access::Get, "body active standard b08", "no"},
        {Access::Set, "body active standard b01 no", ""},
        {Access::Get, "body calibrated standard b01", "yes"},
        {Access::Get, "body recalibrated standard b02", "yes"},
        {Access::Get, "body targetlib_name standard b02", "GL01"},
        {Access::Get, "body targetlib_name standard b01", "none"},
        {Access::Get, "body target_type standard b02", "tt_5dof"},
        {Access::Set, "body number_of_marker standard b01 0", ""},
        {Access::Get, "body inertial_sensor standard b04", "vendorone mini 'A7'"},
        {Access::Get, "body inertial_sensor standard b01", "none"},
        {Access::Set, "body inertial_sensor standard b04 none", ""},
        {Access::Get, "body filter6d_enabled standard b02", "no"},
        {Access::Set, "body filter6d_enabled standard b02 yes", ""},
        {Access::Get, "body filter6d_preset standard b01", "preset6d_custom"},
        {Access::Set, "body filter6d_preset standard b01 preset6d_default", ""},
        {Access::Get, "body filter6d_preset_available standard b01 preset6d_low_pred", "yes"},
        {Access::Get, "body filter6d_strength standard b01", "0.420000"},
        {Access::Set, "body filter6d_strength standard b01 0.600000", ""},
        {Access::Get, "body filter6d_prediction standard b01", "0.020000"},
        {Access::Set, "body filter6d_prediction standard b01 -0.010000", ""},
        {Access::Get, "body filter6d_mode standard b01", "adaptive_fast"},
        {Access::Set, "body filter6d_mode standard b01 reference_target", ""},
        {Access::Get, "body filter6d_mode_available standard b01 hybrid_target", "no"},
        {Access::Get, "standard number_of_bodies", "8"},
        {Access::Set, "standard number_of_bodies 9", ""},
        {Access::Get, "standard max_number_of_bodies", "20"},
        {Access::Get, "standard filter_bodies", "yes"},
        {Access::Set, "standard filter_bodies yes", ""},
        {Access::Get, "standard calculate_marker", "no"},
        {Access::Set, "standard calculate_marker yes", ""},
        {Access::Get, "standard fixed_angle b06", "yes 5.000 no 0.000 no -2.500"},
        {Access::Set, "standard fixed_angle b06 yes 20.000000 no 0.000000 yes -20.000000", ""},
        {Access::Get, "joywand number_of_devices", "2"},
        {Access::Set, "joywand number_of_devices 3", ""},
        {Access::Get, "joywand max_number_of_devices", "6"},
        {Access::Get, "joywand filter", "yes"},
        {Access::Set, "joywand filter yes", ""},
        {Access::Get, "joywand device b01", "wand vendorone grip 417"},
        {Access::Get, "joywand multiuser_available", "no"},
        {Access::Get, "joywand multiuser_with_head_available", "no"},
        {Access::Get, "joywand multiuser", "no"},
        {Access::Get, "joywand multiuser_with_head", "no"},
        {Access::Get, "measurementtool available", "yes"},
        {Access::Get, "measurementtool max_number_of_tools", "4"},
        {Access::Get, "measurementtool max_number_of_references", "6"},
        {Access::Set, "measurementtool number_of_tools 1", ""},
        {Access::Get, "measurementtool number_of_references", "3"},
        {Access::Set, "measurementtool number_of_references 2", ""},
        {Access::Get, "measurementtool reference_of_tool b02", "b03"},
        {Access::Set, "measurementtool reference_of_tool b02 none", ""},
        {Access::Get, "fingertracking available", "yes"},
        {Access::Get, "fingertracking max_number_of_hands", "4"},
        {Access::Set, "fingertracking number_of_hands 1", ""},
        {Access::Get, "targetlib number_of_targets", "24"},
        {Access::Get, "targetlib target_name t06", "'GL01' \"Glasses round\""},
        {Access::Get, "targetlib target_bodytype t15", "'joywand'"},
        {Access::Get, "targetlib target_status_calibrated t06", "standard b02"},
        {Access::Get, "targetlib target_status_calibrated t07", "none"},
        {Access::Get, "targetlib target_status_calibrated_custom t06", "no"},
        {Access::Get, "targetlib target_status_tracked t06", "no"},
        {Access::Get, "targetlib number_of_groups", "4"},
        {Access::Get, "targetlib group_name g03", "HMD Target"},
        {Access::Get, "targetlib number_of_group_members g03", "3"},
        {Access::Get, "targetlib group_member g03 m02", "\"t11\""},
        {Access::Get, "filter6d available standard", "yes"},
        {Access::Get, "filter6d available fingertracking", "no"},
        {Access::Get, "filter6d limit strength_min", "0.010000"},
        {Access::Get, "filter6d limit strength_max", "0.990000"},
        {Access::Get, "filter6d limit prediction_min", "-0.066000"},
        {Access::Get, "filter6d limit prediction_max", "0.066000"},
        {Access::Get, "filter6d number_of_presets", "7"},
        {Access::Get, "filter6d preset_id t05", "preset6d_custom"},
        {Access::Get, "filter6d preset_desc preset6d_hybrid", "\"Hybrid\""},
        {Access::Get, "filter6d number_of_modes", "4"},
        {Access::Get, "filter6d mode_id t02", "adaptive_slow"},
        {Access::Get, "filter6d mode_desc adaptive_slow", "\"Adaptive slow\""},
        {Access::Get, "inertial available", "yes"},
        {Access::Get, "inertial warmup", "no"},
        {Access::Set, "inertial warmup yes", ""},
        {Access::Get, "inertial frequency", "100.000000"},
        {Access::Get, "inertial number_of_sensors", "3"},
        {Access::Get, "inertial sensor d03", "vendortwo core 'C3'"},
        {Access::Get, "inertial body_of_sensor vendortwo core 'C3'", "standard b07"},
        {Access::Get, "inertial sensor_model_desc vendorone mini", "\"Mini motion sensor\""},
        {Access::Get, "inertial sensor_model_desc vendortwo core 'C3'", "\"Core motion sensor\""},
        {Access::Get, "inertial sensor_present vendorone mini 'A7'", "yes"},
        {Access::Get, "inertial sensor_has_storage vendortwo core 'C3'", "yes"},
        {Access::Get, "inertial sensor_handeye vendorone mini 'A7'", "1.00 0.00 0.00 0.00"},
        {Access::Get, "inertial sensor_handeye vendorone mini 'B12'", "none"},
        {Access::Set, "inertial sensor_handeye vendorone mini 'A7' none", ""},
        {Access::Get, "tracking reference", "standard b03"},
        {Access::Set, "tracking reference none", ""},
        {Access::Set, " tracking reference none", ""},
        {Access::Set, "tracking reference standard b01", ""},
        {Access::Get, "tracking auto_restart", "yes"},
        {Access::Set, "tracking auto_restart no", ""},
        {Access::Get, "tracking axis_5dof_central", "0.000 0.000 1.000"},
        {Access::Set, "tracking axis_5dof_central 0.000 -1.000 0.000", ""},
        {Access::Get, "tracking pulse", "synchronous_cameras"},
        {Access::Set, "tracking pulse synchronous_cameras", ""},
        {Access::Set, "tracking pulse frequency 120.000000", ""},
        {Access::Set, "tracking pulse inertial_sensor vendorone mini 'A7'", ""},
        {Access::Get, "synccard output_frequency", "60.000000"},
        {Access::Get, "qorwpan device_model_desc vendorone grip", "\"Grip four\""},
        {Access::Get, "config is_changeable", "yes"},
        {Access::Get, "cal available targetlib", "yes"},
        {Access::Get, "status active", "none"},
        {Access::Get, "status step_active", "none"},
        {Access::Get, "status progress", "0.000"},
        {Access::Action, "morvek2 cal targetlib start", "morvek2 ok"},
        {Access::Action, "morvek2 cal targetlib stop", "morvek2 ok"},
        {Access::Action, "morvek2 body calibrate_from_targetlib standard b01 t07", "morvek2 ok"},
        {Access::Action, "morvek2 body calibrate_from_targetlib standard b01 GL02", "morvek2 ok"},
        {Access::Action, "morvek2 body switch standard b01 standard b02", "morvek2 ok"},
        {Access::Action, "morvek2 targetlib check_custom_calibration", "morvek2 ok"},
        {Access::Action, "morvek2 set inertial sensor_default vendortwo core 'C3'", "morvek2 ok"},
};

struct UnknownRow {
    const char *name;
    Access access;
    const char *line;
};

const UnknownRow unknownCommands[] = {
        {"a read where only a write exists", Access::Get, "body number_of_marker standard b01"},
        {"a write where only a read exists", Access::Set, "standard max_number_of_bodies 3"},
        {"an action sent as a write", Access::Set, "morvek2 cal targetlib start"},
        {"body number of one digit", Access::Get, "body desc standard b1"},
        {"body number with a needless zero", Access::Get, "body desc standard b001"},
        {"body number without letter", Access::Get, "body desc standard 01"},
        {"two blanks", Access::Get, "body  desc standard b01"},
        {"trailing blank", Access::Get, "tracking reference "},
        {"a word too many", Access::Get, "tracking reference none"},
        {"a word too few", Access::Get, "body desc standard"},
        {"description without a value", Access::Set, "body desc standard b01"},
        {"upper case", Access::Get, "Tracking reference"},
        {"sensor left out", Access::Get, "inertial sensor_handeye"},
        {"nothing", Access::Get, ""},
};

} // namespace

class tst_SimulatedCommands : public QObject {
    Q_OBJECT

private slots:
    void initTestCase();
    void everyEntryHasARow();
    void answers_data() { allRows(); }
    void answers();
    void olderProtocolRefuses_data() { allRows(); }
    void olderProtocolRefuses();
    void lockedConfigurationRefusesChanges_data() { allRows(); }
    void lockedConfigurationRefusesChanges();
    void unknownLines_data();
    void unknownLines();
    void referencePageIsCurrent();
    void usersSendTheCommand();

private:
    void allRows();
    /** The studio after everything that the row requires. */
    ControllerState stateFor(const QByteArray &line) const;

    ControllerState m_studio;
};

void tst_SimulatedCommands::initTestCase()
{
    Scenario scenario;
    QString error;
    const QString path = QStringLiteral(TRACKING_SCENARIO_DIR "/studio.json");
    QVERIFY2(ScenarioFile::load(path, &scenario, &error), qPrintable(error));
    m_studio = scenario.state;
}

void tst_SimulatedCommands::allRows()
{
    QTest::addColumn<Access>("access");
    QTest::addColumn<QByteArray>("line");
    QTest::addColumn<QByteArray>("answer");
    for (const Row &row : rows)
        QTest::addRow("%d %s", int(row.access), row.line)
                << row.access << QByteArray(row.line) << QByteArray(row.answer);
}

ControllerState tst_SimulatedCommands::stateFor(const QByteArray &line) const
{
    ControllerState state = m_studio;
    state.search.active = line.endsWith("targetlib stop");
    return state;
}

void tst_SimulatedCommands::everyEntryHasARow()
{
    QSet<const CommandEntry *> covered;
    for (const Row &row : rows)
        covered << CommandTable::instance().find(row.access, row.line).entry;
    for (const CommandEntry &entry : CommandTable::instance().entries()) {
        QVERIFY2(covered.contains(&entry), entry.pattern);
        QVERIFY2(*entry.meaning && *entry.usedBy, entry.pattern);
    }
}

void tst_SimulatedCommands::answers()
{
    QFETCH(Access, access);
    QFETCH(QByteArray, line);
    QFETCH(QByteArray, answer);
    SimulatedController controller(stateFor(line));
    const CommandReply reply = controller.execute(access, line);
    QVERIFY2(reply.ok, qPrintable(reply.reason));
    QCOMPARE(reply.answer, answer);
    QCOMPARE(controller.unknownCommands(), QStringList());
}

void tst_SimulatedCommands::olderProtocolRefuses()
{
    QFETCH(Access, access);
    QFETCH(QByteArray, line);
    const CommandEntry *entry = CommandTable::instance().find(access, line).entry;
    QVERIFY(entry);
    ControllerState state = stateFor(line);

    state.protocol = QStringLiteral("%1.%2").arg(entry->major).arg(entry->minor - 1);
    SimulatedController older(state);
    const CommandReply refused = older.execute(access, line);
    QVERIFY(!refused.ok);
    QVERIFY(!refused.unknown);
    QCOMPARE(refused.reason, QStringLiteral("the protocol is too old"));
    QCOMPARE(older.unknownCommands(), QStringList());
    QCOMPARE(ScenarioFile::differences(state, older.state()), QStringList());

    state.protocol = QStringLiteral("%1.%2").arg(entry->major).arg(entry->minor);
    SimulatedController sameAge(state);
    QVERIFY(sameAge.execute(access, line).ok);
}

void tst_SimulatedCommands::lockedConfigurationRefusesChanges()
{
    QFETCH(Access, access);
    QFETCH(QByteArray, line);
    const CommandEntry *entry = CommandTable::instance().find(access, line).entry;
    QVERIFY(entry);
    ControllerState state = stateFor(line);
    state.configChangeable = false;
    SimulatedController controller(state);
    const CommandReply reply = controller.execute(access, line);
    const bool isRuntime = line.startsWith("morvek2 cal") || line.startsWith("inertial warmup")
                           || line.endsWith("check_custom_calibration");
    const bool changes = access != Access::Get && !isRuntime;
    QCOMPARE(reply.ok, !changes);
    if (changes) {
        QCOMPARE(reply.reason, QStringLiteral("the configuration is locked"));
        QCOMPARE(ScenarioFile::differences(state, controller.state()), QStringList());
    }
}

void tst_SimulatedCommands::unknownLines_data()
{
    QTest::addColumn<Access>("access");
    QTest::addColumn<QByteArray>("line");
    for (const UnknownRow &row : unknownCommands)
        QTest::newRow(row.name) << row.access << QByteArray(row.line);
}

void tst_SimulatedCommands::unknownLines()
{
    QFETCH(Access, access);
    QFETCH(QByteArray, line);
    SimulatedController controller(m_studio);
    const CommandReply reply = controller.execute(access, line);
    QVERIFY(!reply.ok);
    QVERIFY(reply.unknown);
    QCOMPARE(controller.unknownCommands(), QStringList{QString::fromUtf8(line)});
    QCOMPARE(ScenarioFile::differences(m_studio, controller.state()), QStringList());
}

void tst_SimulatedCommands::referencePageIsCurrent()
{
    QFile page(QStringLiteral(TRACKING_SOURCE_DIR "/docs/commands.md"));
    QVERIFY2(page.open(QIODevice::ReadOnly), "docs/commands.md is missing");
    QCOMPARE(QString::fromUtf8(page.readAll()), commandsMarkdown());
}

/** The source files of a class of the module; their names are spellings of the class's name. */
static QByteArray sourcesOf(const QString &className)
{
    QByteArray sources;
    const QString root = QStringLiteral(TRACKING_SOURCE_DIR);
    for (const char *folder : {"/SourceFiles", "/general"}) {
        QDirIterator files(root + QLatin1String(folder), {QStringLiteral("*.cpp")}, QDir::Files,
                           QDirIterator::Subdirectories);
        while (files.hasNext()) {
            const QFileInfo file(files.next());
            QFile source(file.filePath());
            QFile header(file.path() + QLatin1Char('/')
                         + file.baseName().section(QLatin1Char('_'), 0, 0) + QStringLiteral(".h"));
            if (!header.open(QIODevice::ReadOnly) || !source.open(QIODevice::ReadOnly))
                continue;
            const QString declared = QString::fromUtf8(header.readAll());
            if (declared.contains(
                        QRegularExpression(QStringLiteral("^class %1\\b[^;]*\\{").arg(className),
                                           QRegularExpression::MultilineOption)))
                sources += source.readAll();
        }
    }
    return sources;
}

void tst_SimulatedCommands::usersSendTheCommand()
{
    QHash<QString, QByteArray> sources;
    for (const CommandEntry &entry : CommandTable::instance().entries()) {
        const QByteArray pattern(entry.pattern);
        const int words = pattern.startsWith("morvek2 ") ? 3 : 2;
        const QByteArray beginning = pattern.split(' ').mid(0, words).join(' ');
        for (const QString &user : QString::fromLatin1(entry.usedBy).split(QStringLiteral(", "))) {
            if (!sources.contains(user))
                sources.insert(user, sourcesOf(user));
            QVERIFY2(sources.value(user).contains(beginning),
                     qPrintable(QStringLiteral("%1 does not use %2")
                                        .arg(user, QString::fromLatin1(entry.pattern))));
        }
    }
}

TRACKING_TEST_GUILESS_MAIN(tst_SimulatedCommands)
#include "tst_simulatedcommands.moc"
