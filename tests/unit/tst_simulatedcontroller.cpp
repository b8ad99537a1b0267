#include "ScenarioFile.h"
#include "SimulatedController.h"
#include "bodytypes.h"
#include "testprogram.h"

#include <QSignalSpy>
#include <QTest>

/** The effects of commands on the rest of the controller. */
class tst_SimulatedController : public QObject {
    Q_OBJECT

private slots:
    void initTestCase();
    void init();

    void writeIsSeenByTheNextRead_data();
    void writeIsSeenByTheNextRead();
    void refusals_data();
    void refusals();
    void refusalKeepsStateAndSendsNoSignal();
    void longAnswersKeepToTheName();

    void countAddsAndDropsBodies();
    void droppingTheReferenceEndsIt();
    void droppingAReferenceFreesItsTools();
    void joywandCountCarriesHeads();
    void joywandCountLeavesHeadsWhenOff();

    void zeroMarkersFreeTheTarget();
    void calibrationFromTheLibrary();
    void calibrationKeepsAName();
    void calibrationResetsARecalibratedBody();
    void rigidTargetsServeAsReferences();

    void switchExchangesEverything();
    void switchMovesTheReference();
    void switchOfReferencesMovesTheirTools();

    void presetBringsItsValues();
    void inertialBodiesHaveTheirPresets();

    void sensorCanMove();
    void sensorDefaultRestores();

    void customMarksFollowTheBodies();
    void handsOfNewControllersNeedNoQuestion();

    void searchFindsOneAfterAnother();
    void searchFollowsTheVolume();
    void searchStops();
    void searchForgetsTheLastOne();

    void setStateIsSeen();

private:
    QByteArray get(const char *line);
    bool set(const char *line);
    bool act(const char *line);
    BodyState body(int number, const QString &type = standard);
    void edit(const std::function<void(ControllerState &)> &change);

    ControllerState m_studio;
    std::unique_ptr<SimulatedController> m_controller;
};

void tst_SimulatedController::initTestCase()
{
    Scenario scenario;
    QString error;
    const QString path = QStringLiteral(TRACKING_SCENARIO_DIR "/studio.json");
    QVERIFY2(ScenarioFile::load(path, &scenario, &error), qPrintable(error));
    m_studio = scenario.state;
}

void tst_SimulatedController::init()
{
    m_controller = std::make_unique<SimulatedController>(m_studio);
}

QByteArray tst_SimulatedController::get(const char *line)
{
    const CommandReply reply = m_controller->execute(CommandAccess::Get, line);
    return reply.ok ? reply.answer : "refused: " + reply.reason.toUtf8();
}

bool tst_SimulatedController::set(const char *line)
{
    return m_controller->execute(CommandAccess::Set, line).ok;
}

bool tst_SimulatedController::act(const char *line)
{
    return m_controller->execute(CommandAccess::Action, line).answer == "morvek2 ok";
}

BodyState tst_SimulatedController::body(int number, const QString &type)
{
    return m_controller->state().bodyTypes.value(type).bodies.value(number - 1);
}

void tst_SimulatedController::edit(const std::function<void(ControllerState &)> &change)
{
    ControllerState state = m_controller->state();
    change(state);
    m_controller->setState(state);
}

void tst_SimulatedController::writeIsSeenByTheNextRead_data()
{
    QTest::addColumn<QByteArray>("write");
    QTest::addColumn<QByteArray>("read");
    QTest::addColumn<QByteArray>("answer");
    const auto row = [](const char *write, const char *read, const char *answer) {
        QTest::newRow(write) << QByteArray(write) << QByteArray(read) << QByteArray(answer);
    };
    row("body desc standard b01 \"Blue cap\"", "body desc standard b01", "Blue cap");
    row("body desc standard b01 \"\"", "body desc standard b01", "");
    row("body desc standard b01 ", "body desc standard b01", "");
    row("body desc standard b01 a  b=c/d", "body desc standard b01", "a  b=c/d");
    row("body desc standard b01 \"aZ09_-+=.,;:/ \"", "body desc standard b01", "aZ09_-+=.,;:/ ");
    row("body desc standard b01 \"M\xc3\xbctze\"", "body desc standard b01", "M\xc3\xbctze");
    row("body active standard b01 no", "body active standard b01", "no");
    row("body number_of_marker standard b01 0", "body calibrated standard b01", "no");
    row("body inertial_sensor standard b04 none", "body inertial_sensor standard b04", "none");
    row("body filter6d_enabled standard b02 yes", "body filter6d_enabled standard b02", "yes");
    row("body filter6d_strength standard b01 0.25", "body filter6d_strength standard b01",
        "0.250000");
    row("body filter6d_strength standard b01 0.990000", "body filter6d_strength standard b01",
        "0.990000");
    row("body filter6d_prediction standard b01 0.0125", "body filter6d_prediction standard b01",
        "0.012500");
    row("body filter6d_mode standard b01 adaptive_slow", "body filter6d_mode standard b01",
        "adaptive_slow");
    row("standard filter_bodies no", "standard filter_bodies", "no");
    row("standard calculate_marker yes", "standard calculate_marker", "yes");
    row("standard fixed_angle b01 yes -20.0 no 3.5 yes 20.000000", "standard fixed_angle b01",
        "yes -20.000 no 3.500 yes 20.000");
    row("joywand filter no", "joywand filter", "no");
    row("measurementtool number_of_references 4", "measurementtool number_of_references", "4");
    row("measurementtool reference_of_tool b01 none", "measurementtool reference_of_tool b01",
        "none");
    row("measurementtool reference_of_tool b01 b02", "measurementtool reference_of_tool b01",
        "b02");
    row("fingertracking number_of_hands 4", "body number_of_bodies fingertracking", "4");
    row("measurementtool number_of_tools 0", "body number_of_bodies measurementtool", "0");
    row("inertial warmup yes", "inertial warmup", "yes");
    row("inertial sensor_handeye vendorone mini 'A7' none",
        "inertial sensor_handeye vendorone mini 'A7'", "none");
    row("tracking reference standard b01", "tracking reference", "standard b01");
    row("tracking reference none", "tracking reference", "none");
    row("tracking auto_restart no", "tracking auto_restart", "no");
    row("tracking axis_5dof_central 0.000 1.000 0.000", "tracking axis_5dof_central",
        "0.000 1.000 0.000");
    row("tracking pulse frequency 120.500000", "tracking pulse", "frequency 120.500");
    row("tracking pulse inertial_sensor vendortwo core 'C3'", "tracking pulse",
        "inertial_sensor vendortwo core 'C3'");
}

void tst_SimulatedController::writeIsSeenByTheNextRead()
{
    QFETCH(QByteArray, write);
    QFETCH(QByteArray, read);
    QFETCH(QByteArray, answer);
    QVERIFY(get(read) != answer || answer.isEmpty());
    QSignalSpy changes(m_controller.get(), &SimulatedController::stateChanged);
    QVERIFY(set(write));
    QCOMPARE(changes.count(), 1);
    QCOMPARE(get(read), answer);
    QCOMPARE(changes.count(), 1);
}

void tst_SimulatedController::refusals_data()
{
    QTest::addColumn<CommandAccess>("access");
    QTest::addColumn<QByteArray>("line");
    const auto row = [](CommandAccess access, const char *line) {
        QTest::newRow(line) << access << QByteArray(line);
    };
    const CommandAccess g = CommandAccess::Get;
    const CommandAccess s = CommandAccess::Set;
    const CommandAccess a = CommandAccess::Action;
    row(g, "body number_of_bodies sofa");
    row(g, "body number_of_bodies multiuserjoywand_head");
    row(g, "body desc standard b09");
    row(g, "body desc standard b00");
    row(g, "body type_desc sofa");
    row(s, "body desc standard b01 \"a\"b\"");
    row(s, "body active standard b01 maybe");
    row(s, "body active standard b08 yes");
    row(s, "body number_of_marker standard b01 4");
    row(s, "body inertial_sensor standard b01 vendorone mini 'Z9'");
    row(s, "body inertial_sensor standard b01 vendorone mini 'A7'");
    row(g, "body filter6d_preset fingertracking b01");
    row(s, "body filter6d_enabled standard b01 on");
    row(s, "body filter6d_enabled standard b04 no");
    row(s, "body filter6d_preset standard b01 preset6d_unknown");
    row(s, "body filter6d_preset standard b01 preset6d_hybrid");
    row(s, "body filter6d_preset standard b04 preset6d_low_pred");
    row(s, "body filter6d_strength standard b03 0.6");
    row(s, "body filter6d_strength standard b01 1.0");
    row(s, "body filter6d_strength standard b01 0,5");
    row(s, "body filter6d_strength standard b01 nan");
    row(s, "body filter6d_prediction standard b01 0.0671");
    row(s, "body filter6d_prediction standard b03 0.01");
    row(s, "body filter6d_mode standard b03 adaptive_fast");
    row(s, "body filter6d_mode standard b01 hybrid_target");
    row(s, "standard number_of_bodies 21");
    row(s, "standard number_of_bodies -1");
    row(s, "standard number_of_bodies many");
    row(s, "standard filter_bodies on");
    row(g, "standard fixed_angle b09");
    row(s, "standard fixed_angle b01 yes 20.01 no 0 no 0");
    row(s, "standard fixed_angle b01 no 0 no -20.5 no 0");
    row(s, "standard fixed_angle b01 no 0 no 0 no 1,5");
    row(s, "standard fixed_angle b01 on 0 no 0 no 0");
    row(s, "standard fixed_angle b02 yes 1 no 0 no 0");
    row(g, "joywand device b03");
    row(g, "measurementtool reference_of_tool b03");
    row(s, "measurementtool reference_of_tool b01 b07");
    row(g, "targetlib target_name t25");
    row(g, "targetlib target_name t00");
    row(g, "targetlib group_name g05");
    row(g, "targetlib group_member g03 m04");
    row(g, "targetlib number_of_group_members g09");
    row(g, "filter6d preset_id t08");
    row(g, "filter6d preset_desc preset6d_unknown");
    row(g, "filter6d mode_id t05");
    row(g, "filter6d mode_desc unknown");
    row(g, "inertial sensor d04");
    row(g, "inertial sensor_present vendorone mini 'Z9'");
    row(g, "inertial sensor_has_storage vendorone mini");
    row(g, "inertial sensor_model_desc vendorone grand");
    row(g, "inertial body_of_sensor vendorone");
    row(s, "inertial warmup on");
    row(s, "inertial sensor_handeye vendorone mini 'Z9' none");
    row(s, "tracking reference standard b08");
    row(s, "tracking reference joywand b01");
    row(s, "tracking axis_5dof_central 0.000 0.000 0.000");
    row(s, "tracking axis_5dof_central 0,000 1,000 0,000");
    row(s, "tracking pulse frequency 0.0");
    row(s, "tracking pulse inertial_sensor vendorone mini 'Z9'");
    row(g, "qorwpan device_model_desc vendorone stick");
    row(a, "morvek2 cal targetlib stop");
    row(a, "morvek2 body calibrate_from_targetlib standard b01 t25");
    row(a, "morvek2 body calibrate_from_targetlib standard b09 t07");
    row(a, "morvek2 body calibrate_from_targetlib standard b01 t15");
    row(a, "morvek2 body calibrate_from_targetlib standard b01 GL01");
    row(a, "morvek2 body switch standard b01 standard b09");
    row(a, "morvek2 body switch standard b01 joywand b01");
    row(a, "morvek2 set inertial sensor_default vendorone mini 'A7'");
    row(a, "morvek2 set inertial sensor_default vendorone mini 'Z9'");
}

void tst_SimulatedController::refusals()
{
    QFETCH(CommandAccess, access);
    QFETCH(QByteArray, line);
    QSignalSpy changes(m_controller.get(), &SimulatedController::stateChanged);
    const CommandReply reply = m_controller->execute(access, line);
    QVERIFY(!reply.ok);
    QVERIFY(!reply.unknown);
    QVERIFY(!reply.reason.isEmpty());
    if (access == CommandAccess::Action)
        QCOMPARE(reply.answer, "morvek2 err \"" + reply.reason.toUtf8() + '"');
    QCOMPARE(changes.count(), 0);
    QCOMPARE(ScenarioFile::differences(m_studio, m_controller->state()), QStringList());
}

void tst_SimulatedController::refusalKeepsStateAndSendsNoSignal()
{
    edit([](ControllerState &state) { state.measurementToolAvailable = false; });
    QSignalSpy changes(m_controller.get(), &SimulatedController::stateChanged);
    QCOMPARE(get("measurementtool available"), QByteArray("no"));
    QVERIFY(get("body number_of_bodies measurementtool").startsWith("refused"));
    QVERIFY(get("body desc measurementtool_reference b01").startsWith("refused"));
    QVERIFY(get("measurementtool number_of_references").startsWith("refused"));
    QVERIFY(get("measurementtool reference_of_tool b01").startsWith("refused"));
    QVERIFY(!set("measurementtool number_of_tools 1"));
    QVERIFY(!set("measurementtool reference_of_tool b01 none"));
    QCOMPARE(changes.count(), 0);
}

void tst_SimulatedController::longAnswersKeepToTheName()
{
    const QByteArray longest(180, 'n');
    QVERIFY(set("body desc standard b01 \"" + longest + '"'));
    QCOMPARE(get("body desc standard b01"), longest);
    QVERIFY(!set("body desc standard b01 \"" + longest + "n\""));
    QCOMPARE(get("body desc standard b01"), longest);
}

void tst_SimulatedController::countAddsAndDropsBodies()
{
    QVERIFY(set("standard number_of_bodies 10"));
    QCOMPARE(get("body number_of_bodies standard"), QByteArray("10"));
    QCOMPARE(get("body desc standard b10"), QByteArray(""));
    QCOMPARE(get("body calibrated standard b10"), QByteArray("no"));
    QCOMPARE(get("body filter6d_mode standard b10"), QByteArray("adaptive_slow"));
    QCOMPARE(get("body desc standard b01"), QByteArray("Cap"));
    QVERIFY(set("standard number_of_bodies 1"));
    QVERIFY(get("body desc standard b02").startsWith("refused"));
    QCOMPARE(get("targetlib target_status_calibrated t06"), QByteArray("none"));
    QCOMPARE(get("inertial body_of_sensor vendorone mini 'A7'"), QByteArray("none"));
    QVERIFY(set("standard number_of_bodies 0"));
    QCOMPARE(get("standard number_of_bodies"), QByteArray("0"));
}

void tst_SimulatedController::droppingTheReferenceEndsIt()
{
    QVERIFY(set("standard number_of_bodies 3"));
    QCOMPARE(get("tracking reference"), QByteArray("standard b03"));
    QVERIFY(set("joywand number_of_devices 0"));
    QCOMPARE(get("tracking reference"), QByteArray("standard b03"));
    QVERIFY(set("standard number_of_bodies 2"));
    QCOMPARE(get("tracking reference"), QByteArray("none"));
}

void tst_SimulatedController::droppingAReferenceFreesItsTools()
{
    QVERIFY(set("measurementtool number_of_references 2"));
    QCOMPARE(get("measurementtool reference_of_tool b01"), QByteArray("b01"));
    QCOMPARE(get("measurementtool reference_of_tool b02"), QByteArray("none"));
}

void tst_SimulatedController::joywandCountCarriesHeads()
{
    edit([](ControllerState &state) {
        state.multiUser = true;
        state.multiUserWithHead = true;
        state.bodyTypes[QStringLiteral("multiuserjoywand_head")].maximum = 6;
    });
    QCOMPARE(get("body number_of_bodies multiuserjoywand_head"), QByteArray("0"));
    QVERIFY(set("joywand number_of_devices 3"));
    QCOMPARE(get("body number_of_bodies joywand"), QByteArray("3"));
    QCOMPARE(get("body number_of_bodies multiuserjoywand_head"), QByteArray("3"));
    QCOMPARE(get("joywand device b03"), QByteArray("none"));
}

void tst_SimulatedController::joywandCountLeavesHeadsWhenOff()
{
    edit([](ControllerState &state) {
        state.multiUser = true;
        state.bodyTypes[QStringLiteral("multiuserjoywand_head")].bodies.resize(2);
    });
    QVERIFY(set("joywand number_of_devices 3"));
    QCOMPARE(get("body number_of_bodies multiuserjoywand_head"), QByteArray("2"));
}

void tst_SimulatedController::zeroMarkersFreeTheTarget()
{
    QVERIFY(set("body number_of_marker standard b02 0"));
    QVERIFY(!body(2).calibrated);
    QVERIFY(!body(2).recalibrated);
    QCOMPARE(body(2).markers, 0);
    QCOMPARE(body(2).description, QStringLiteral("Glasses round"));
    QCOMPARE(get("body targetlib_name standard b02"), QByteArray("none"));
    QCOMPARE(get("targetlib target_status_calibrated t06"), QByteArray("none"));
    QCOMPARE(get("tracking reference"), QByteArray("standard b03"));
    QVERIFY(set("body number_of_marker standard b03 0"));
    QCOMPARE(get("tracking reference"), QByteArray("none"));
}

void tst_SimulatedController::calibrationFromTheLibrary()
{
    QVERIFY(act("morvek2 body calibrate_from_targetlib standard b08 t10"));
    QVERIFY(body(8).calibrated);
    QVERIFY(body(8).active);
    QVERIFY(body(8).markers > 0);
    QCOMPARE(body(8).description, QStringLiteral("HM01"));
    QCOMPARE(get("body targetlib_name standard b08"), QByteArray("HM01"));
    QCOMPARE(get("targetlib target_status_calibrated t10"), QByteArray("standard b08"));
    QVERIFY(!act("morvek2 body calibrate_from_targetlib standard b01 t10"));
    QVERIFY(set("body number_of_marker standard b08 0"));
    QVERIFY(act("morvek2 body calibrate_from_targetlib standard b01 HM01"));
    QCOMPARE(get("targetlib target_status_calibrated t10"), QByteArray("standard b01"));
}

void tst_SimulatedController::calibrationKeepsAName()
{
    QVERIFY(act("morvek2 body calibrate_from_targetlib standard b01 t10"));
    QCOMPARE(get("body desc standard b01"), QByteArray("Cap"));
}

void tst_SimulatedController::calibrationResetsARecalibratedBody()
{
    QVERIFY(act("morvek2 body calibrate_from_targetlib standard b02 GL01"));
    QCOMPARE(get("body recalibrated standard b02"), QByteArray("no"));
    QCOMPARE(get("body calibrated standard b02"), QByteArray("yes"));
}

void tst_SimulatedController::rigidTargetsServeAsReferences()
{
    QVERIFY(act("morvek2 body calibrate_from_targetlib measurementtool_reference b01 t01"));
    QCOMPARE(get("targetlib target_status_calibrated t01"),
             QByteArray("measurementtool_reference b01"));
    QVERIFY(act("morvek2 body calibrate_from_targetlib standard b08 t22"));
    QVERIFY(!act("morvek2 body calibrate_from_targetlib fingertracking b02 t02"));
    QVERIFY(act("morvek2 body calibrate_from_targetlib fingertracking b02 t19"));
}

void tst_SimulatedController::switchExchangesEverything()
{
    QVERIFY(act("morvek2 body switch standard b02 standard b04"));
    QCOMPARE(get("body desc standard b02"), QByteArray("Camera rig"));
    QCOMPARE(get("body desc standard b04"), QByteArray("Glasses round"));
    QCOMPARE(get("body inertial_sensor standard b02"), QByteArray("vendorone mini 'A7'"));
    QCOMPARE(get("inertial body_of_sensor vendorone mini 'A7'"), QByteArray("standard b02"));
    QCOMPARE(get("targetlib target_status_calibrated t06"), QByteArray("standard b04"));
    QCOMPARE(get("body filter6d_preset standard b02"), QByteArray("preset6d_hybrid_custom"));
}

void tst_SimulatedController::switchMovesTheReference()
{
    QVERIFY(act("morvek2 body switch standard b03 standard b02"));
    QCOMPARE(get("tracking reference"), QByteArray("standard b02"));
    QVERIFY(act("morvek2 body switch standard b01 standard b02"));
    QCOMPARE(get("tracking reference"), QByteArray("standard b01"));
    QVERIFY(act("morvek2 body switch standard b05 standard b06"));
    QCOMPARE(get("tracking reference"), QByteArray("standard b01"));
}

void tst_SimulatedController::switchOfReferencesMovesTheirTools()
{
    QVERIFY(act("morvek2 body switch measurementtool_reference b01 measurementtool_reference b02"));
    QCOMPARE(get("measurementtool reference_of_tool b01"), QByteArray("b02"));
    QCOMPARE(get("measurementtool reference_of_tool b02"), QByteArray("b03"));
    QCOMPARE(get("tracking reference"), QByteArray("standard b03"));
}

void tst_SimulatedController::presetBringsItsValues()
{
    QVERIFY(set("body filter6d_preset standard b01 preset6d_high_pred"));
    QCOMPARE(get("body filter6d_strength standard b01"), QByteArray("0.600000"));
    QCOMPARE(get("body filter6d_prediction standard b01"), QByteArray("0.050000"));
    QCOMPARE(get("body filter6d_mode standard b01"), QByteArray("adaptive_fast"));
    QVERIFY(!set("body filter6d_strength standard b01 0.7"));
    QVERIFY(set("body filter6d_preset standard b01 preset6d_custom"));
    QVERIFY(set("body filter6d_strength standard b01 0.7"));
}

void tst_SimulatedController::inertialBodiesHaveTheirPresets()
{
    QCOMPARE(get("body filter6d_preset_available standard b04 preset6d_hybrid"), QByteArray("yes"));
    QCOMPARE(get("body filter6d_preset_available standard b04 preset6d_custom"), QByteArray("no"));
    QCOMPARE(get("body filter6d_preset_available standard b01 preset6d_hybrid"), QByteArray("no"));
    QCOMPARE(get("body filter6d_preset_available standard b01 nonsense"), QByteArray("no"));
    QCOMPARE(get("body filter6d_mode_available standard b04 hybrid_target"), QByteArray("yes"));
    QCOMPARE(get("body filter6d_mode_available standard b04 reference_target"), QByteArray("no"));
    QVERIFY(set("body filter6d_prediction standard b04 0.03"));
    QVERIFY(set("body filter6d_preset standard b04 preset6d_med_pred"));
}

void tst_SimulatedController::sensorCanMove()
{
    QVERIFY(set("body inertial_sensor standard b04 none"));
    QCOMPARE(get("inertial body_of_sensor vendorone mini 'A7'"), QByteArray("none"));
    QVERIFY(set("body inertial_sensor standard b01 vendorone mini 'A7'"));
    QCOMPARE(get("inertial body_of_sensor vendorone mini 'A7'"), QByteArray("standard b01"));
    QVERIFY(set("body inertial_sensor standard b01 vendorone mini 'A7'"));
}

void tst_SimulatedController::sensorDefaultRestores()
{
    QVERIFY(set("inertial sensor_handeye vendortwo core 'C3' none"));
    QCOMPARE(get("inertial sensor_handeye vendortwo core 'C3'"), QByteArray("none"));
    QVERIFY(act("morvek2 set inertial sensor_default vendortwo core 'C3'"));
    QCOMPARE(get("inertial sensor_handeye vendortwo core 'C3'"), QByteArray("0.70 0.00 0.70 0.14"));
    edit([](ControllerState &state) { state.sensors[2].present = false; });
    QVERIFY(!act("morvek2 set inertial sensor_default vendortwo core 'C3'"));
}

void tst_SimulatedController::customMarksFollowTheBodies()
{
    edit([](ControllerState &state) { state.targets[1].custom = true; });
    QSignalSpy changes(m_controller.get(), &SimulatedController::stateChanged);
    QVERIFY(act("morvek2 targetlib check_custom_calibration"));
    QVERIFY(changes.count() > 0);
    QCOMPARE(get("targetlib target_status_calibrated_custom t06"), QByteArray("yes"));
    QCOMPARE(get("targetlib target_status_calibrated_custom t03"), QByteArray("no"));
    QCOMPARE(get("targetlib target_status_calibrated_custom t02"), QByteArray("yes"));
    QVERIFY(act("morvek2 body calibrate_from_targetlib standard b02 t06"));
    QCOMPARE(get("targetlib target_status_calibrated_custom t06"), QByteArray("no"));
}

void tst_SimulatedController::handsOfNewControllersNeedNoQuestion()
{
    edit([](ControllerState &state) { state.fingertrackingAvailable = false; });
    QCOMPARE(get("body number_of_bodies fingertracking"), QByteArray("2"));
    edit([](ControllerState &state) { state.protocol = QStringLiteral("1.21"); });
    QVERIFY(get("body number_of_bodies fingertracking").startsWith("refused"));
    QVERIFY(get("fingertracking max_number_of_hands").startsWith("refused"));
    QCOMPARE(get("fingertracking available"), QByteArray("no"));
}

void tst_SimulatedController::searchFindsOneAfterAnother()
{
    edit([](ControllerState &state) { state.search.durationTicks = 4; });
    QVERIFY(act("morvek2 cal targetlib start"));
    QVERIFY(!act("morvek2 cal targetlib start"));
    QCOMPARE(get("status active"), QByteArray("targetlib"));
    QCOMPARE(get("status progress"), QByteArray("0.000"));
    const auto tracked = [this] {
        int count = 0;
        for (const TargetState &target : m_controller->state().targets)
            count += target.tracked ? 1 : 0;
        return count;
    };
    QCOMPARE(tracked(), 0);
    QSignalSpy changes(m_controller.get(), &SimulatedController::stateChanged);
    QVector<int> seen;
    for (int tick = 0; tick < 3; ++tick) {
        QVERIFY(get("status step_active").startsWith("cal"));
        seen << tracked();
    }
    QCOMPARE(seen, QVector<int>({1, 3, 5}));
    QCOMPARE(get("status progress"), QByteArray("0.750"));
    QCOMPARE(get("targetlib target_status_tracked t01"), QByteArray("yes"));
    QCOMPARE(get("status step_active"), QByteArray("none"));
    QCOMPARE(tracked(), 7);
    QCOMPARE(changes.count(), 4);
    QCOMPARE(get("status step_active"), QByteArray("none"));
    QCOMPARE(changes.count(), 4);
    QCOMPARE(get("status active"), QByteArray("none"));
    QCOMPARE(get("status progress"), QByteArray("1.000"));
    QCOMPARE(get("targetlib target_status_tracked t15"), QByteArray("yes"));
    QCOMPARE(get("targetlib target_status_tracked t02"), QByteArray("no"));
}

void tst_SimulatedController::searchFollowsTheVolume()
{
    edit([](ControllerState &state) {
        state.search.durationTicks = 3;
        for (TargetState &target : state.targets)
            target.inVolume = false;
    });
    QVERIFY(act("morvek2 cal targetlib start"));
    get("status step_active");
    edit([](ControllerState &state) { state.targets[4].inVolume = true; });
    get("status step_active");
    QCOMPARE(get("targetlib target_status_tracked t05"), QByteArray("no"));
    get("status step_active");
    QCOMPARE(get("targetlib target_status_tracked t05"), QByteArray("yes"));
}

void tst_SimulatedController::searchStops()
{
    QVERIFY(act("morvek2 cal targetlib start"));
    get("status step_active");
    QVERIFY(act("morvek2 cal targetlib stop"));
    QCOMPARE(get("status active"), QByteArray("none"));
    QCOMPARE(get("status step_active"), QByteArray("none"));
    edit([](ControllerState &state) { state.search.failsToStart = true; });
    QVERIFY(!act("morvek2 cal targetlib start"));
    QCOMPARE(get("cal available targetlib"), QByteArray("yes"));
    edit([](ControllerState &state) {
        state.search = {};
        state.search.available = false;
    });
    QCOMPARE(get("cal available targetlib"), QByteArray("no"));
    QVERIFY(!act("morvek2 cal targetlib start"));
}

void tst_SimulatedController::searchForgetsTheLastOne()
{
    edit([](ControllerState &state) { state.targets[1].tracked = true; });
    QCOMPARE(get("targetlib target_status_tracked t02"), QByteArray("yes"));
    QVERIFY(act("morvek2 cal targetlib start"));
    QCOMPARE(get("targetlib target_status_tracked t02"), QByteArray("no"));
}

void tst_SimulatedController::setStateIsSeen()
{
    QSignalSpy changes(m_controller.get(), &SimulatedController::stateChanged);
    edit([](ControllerState &state) {
        state.bodyTypes[standard].bodies[0].description = QStringLiteral("Behind your back");
    });
    QCOMPARE(changes.count(), 1);
    QCOMPARE(get("body desc standard b01"), QByteArray("Behind your back"));
}

TRACKING_TEST_GUILESS_MAIN(tst_SimulatedController)
#include "tst_simulatedcontroller.moc"
