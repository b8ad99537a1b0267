#include "FaultEngine.h"
#include "ScenarioFile.h"
#include "SimulatedController.h"
#include "SimulatedIOManager.h"
#include "listener.h"
#include "testprogram.h"

#include <QSignalSpy>
#include <QTest>

#include <clocale>
#include <cstring>
#include <memory>

namespace {

using Operation = TranscriptEntry::Operation;

struct FaultRow {
    const char *name;
    const char *rule;
    int result;
    const char *answer; ///< the answer that arrives; null for none
};

} // namespace

class tst_SimulatedIOManager : public QObject {
    Q_OBJECT

private slots:
    void initTestCase();
    void init();

    void operations();
    void printfFormatsTheLine();
    void formatsFollowTheProcessLocale();
    void conversionsAreStrict_data();
    void conversionsAreStrict();
    void failureLeavesTheOutputAlone();
    void unknownCommandFails();
    void refusedActionIsAnswered();
    void nullArgumentsAreHarmless();

    void textFaults_data();
    void textFaults();
    void numberFaults_data();
    void numberFaults();
    void setFaults_data();
    void setFaults();
    void clamping_data();
    void clamping();
    void actionFaults_data();
    void actionFaults();
    void answersStayWithinTheirRoom();
    void overlongAnswerBreaksOut();
    void deadLinkComesBack();
    void delaysPass();
    void answerReplacesARefusal();

    void transcriptKeepsEverything();
    void lockComesBeforeTheOperation();
    void transcriptHasALimit();
    void sameRunsGiveSameTranscripts();
    void durationOnlyWhenMeasured();
    void messagesReachTheirChannel();
    void receiversMayLeaveWhileTheyListen();

private:
    QByteArray text(const char *line, int expectedResult = SimulatedIOManager::Ok);
    void fault(const char *rule);

    ControllerState m_studio;
    std::unique_ptr<SimulatedController> m_controller;
    std::unique_ptr<SimulatedIOManager> m_io;
};

void tst_SimulatedIOManager::initTestCase()
{
    Scenario scenario;
    QString error;
    const QString path = QStringLiteral(TRACKING_SCENARIO_DIR "/studio.json");
    QVERIFY2(ScenarioFile::load(path, &scenario, &error), qPrintable(error));
    m_studio = scenario.state;
}

void tst_SimulatedIOManager::init()
{
    m_io.reset();
    m_controller = std::make_unique<SimulatedController>(m_studio);
    m_io = std::make_unique<SimulatedIOManager>(m_controller.get());
}

QByteArray tst_SimulatedIOManager::text(const char *line, int expectedResult)
{
    char out[5000] = "untouched";
    const int result = m_io->get_string(out, "%s", line);
    if (result != expectedResult)
        return "result " + QByteArray::number(result);
    return out;
}

void tst_SimulatedIOManager::fault(const char *rule)
{
    QString error;
    if (!m_io->faults()->add(QString::fromUtf8(rule), &error))
        QTest::qFail(qPrintable(error), __FILE__, __LINE__);
}

void tst_SimulatedIOManager::operations()
{
    char answer[200];
    QCOMPARE(m_io->get_string(answer, "body desc %s b%02d", "standard", 1), 0);
    QCOMPARE(answer, "Cap");
    int count = -1;
    QCOMPARE(m_io->get_int(&count, "body number_of_bodies %s", "standard"), 0);
    QCOMPARE(count, 8);
    double strength = -1;
    QCOMPARE(m_io->get_double(&strength, "body filter6d_strength %s", "standard b01"), 0);
    QCOMPARE(strength, 0.42);
    bool isActive = true;
    QCOMPARE(m_io->get_bool(&isActive, "body active standard b08"), 0);
    QCOMPARE(isActive, false);
    QCOMPARE(m_io->get_bool(&isActive, "body active standard b01"), 0);
    QCOMPARE(isActive, true);
    QCOMPARE(m_io->set("body desc %s b%.2d \"%s\"", "standard", 1, "Hat"), 0);
    QCOMPARE(text("body desc standard b01"), QByteArray("Hat"));
    QCOMPARE(m_io->send_command(answer, "morvek2 cal targetlib start"), 0);
    QCOMPARE(answer, "morvek2 ok");
}

void tst_SimulatedIOManager::printfFormatsTheLine()
{
    m_io->set("standard fixed_angle b%.2d %s %f %s %f %s %f", 1, "yes", 12.5, "no", 0.0, "no",
              -3.25);
    QCOMPARE(m_io->transcript().last().line,
             QByteArray("standard fixed_angle b01 yes 12.500000 no 0.000000 no -3.250000"));
    QCOMPARE(m_io->transcript().last().result, 0);
    QCOMPARE(m_io->set("%s", "body desc standard b01 100%d"), 0);
    QCOMPARE(text("body desc standard b01"), QByteArray("100%d"));
}

void tst_SimulatedIOManager::formatsFollowTheProcessLocale()
{
    const QByteArray before = std::setlocale(LC_NUMERIC, nullptr);
    if (!std::setlocale(LC_NUMERIC, "de_DE.UTF-8") && !std::setlocale(LC_NUMERIC, "de_DE.utf8"))
        QSKIP("This system has no locale with a decimal comma");
    const int result = m_io->set("tracking axis_5dof_central %.3f %.3f %.3f", 0.0, 1.0, 0.0);
    double frequency = 0.0;
    const int read = m_io->get_double(&frequency, "synccard output_frequency");
    std::setlocale(LC_NUMERIC, before.constData());
    QCOMPARE(m_io->transcript().first().line,
             QByteArray("tracking axis_5dof_central 0,000 1,000 0,000"));
    QCOMPARE(result, int(SimulatedIOManager::Refused));
    QCOMPARE(read, 0);
    QCOMPARE(frequency, 60.0);
}

void tst_SimulatedIOManager::conversionsAreStrict_data()
{
    QTest::addColumn<QByteArray>("answer");
    QTest::addColumn<bool>("isInt");
    QTest::addColumn<bool>("isDouble");
    QTest::addColumn<bool>("isBool");
    const auto row = [](const char *answer, bool isInt, bool isDouble, bool isBool) {
        QTest::addRow("[%s]", answer) << QByteArray(answer) << isInt << isDouble << isBool;
    };
    row("12", true, true, false);
    row("-3", true, true, false);
    row("1.5", false, true, false);
    row("1,5", false, false, false);
    row("12x", false, false, false);
    row("", false, false, false);
    row("inf", false, false, false);
    row("nan", false, false, false);
    row("99999999999", false, true, false);
    row("yes", false, false, true);
    row("no", false, false, true);
    row("Yes", false, false, false);
    row("yes ", false, false, false);
}

void tst_SimulatedIOManager::conversionsAreStrict()
{
    QFETCH(QByteArray, answer);
    QFETCH(bool, isInt);
    QFETCH(bool, isDouble);
    QFETCH(bool, isBool);
    fault("* answer \"" + answer + '"');
    int number = -7;
    double real = -7.0;
    bool flag = false;
    const int wrong = SimulatedIOManager::NotConverted;
    QCOMPARE(m_io->get_int(&number, "targetlib number_of_targets"), isInt ? 0 : wrong);
    QCOMPARE(number == -7, !isInt);
    QCOMPARE(m_io->get_double(&real, "synccard output_frequency"), isDouble ? 0 : wrong);
    QCOMPARE(real == -7.0, !isDouble);
    QCOMPARE(m_io->get_bool(&flag, "inertial available"), isBool ? 0 : wrong);
    QCOMPARE(flag, answer == "yes");
}

void tst_SimulatedIOManager::failureLeavesTheOutputAlone()
{
    char out[200] = "untouched";
    QCOMPARE(m_io->get_string(out, "body desc standard b99"), int(SimulatedIOManager::Refused));
    QCOMPARE(out, "untouched");
    fault("* fail");
    QCOMPARE(m_io->get_string(out, "body desc standard b01"), int(SimulatedIOManager::Failed));
    QCOMPARE(m_io->send_command(out, "morvek2 cal targetlib start"),
             int(SimulatedIOManager::Failed));
    QCOMPARE(out, "untouched");
    QVERIFY(!m_controller->state().search.active);
}

void tst_SimulatedIOManager::unknownCommandFails()
{
    char out[200] = "untouched";
    QCOMPARE(m_io->get_string(out, "body colour standard b01"), int(SimulatedIOManager::Unknown));
    QCOMPARE(m_io->set("body colour standard b01 red"), int(SimulatedIOManager::Unknown));
    QCOMPARE(m_io->send_command(out, "morvek2 paint"), int(SimulatedIOManager::Unknown));
    QCOMPARE(out, "untouched");
    QCOMPARE(m_controller->unknownCommands(),
             QStringList({QStringLiteral("body colour standard b01"),
                          QStringLiteral("body colour standard b01 red"),
                          QStringLiteral("morvek2 paint")}));
}

void tst_SimulatedIOManager::refusedActionIsAnswered()
{
    char out[200] = "untouched";
    QCOMPARE(m_io->send_command(out, "morvek2 cal targetlib stop"), 0);
    QCOMPARE(out, "morvek2 err \"no search is running\"");
}

void tst_SimulatedIOManager::nullArgumentsAreHarmless()
{
    QCOMPARE(m_io->send_command(nullptr, "morvek2 cal targetlib start"), 0);
    QVERIFY(m_io->send_command(nullptr, nullptr) != 0);
    QCOMPARE(m_io->get_int(nullptr, "targetlib number_of_targets"), 0);
    m_io->send_message(nullptr, nullptr, 1, nullptr);
    QCOMPARE(m_io->transcript().last().line, QByteArray("||1|"));
    m_io->register_receiver("GlobalEvent", nullptr);
    QCOMPARE(m_io->receiverCount("GlobalEvent"), 0);
}

void tst_SimulatedIOManager::textFaults_data()
{
    QTest::addColumn<QByteArray>("rule");
    QTest::addColumn<int>("result");
    QTest::addColumn<QByteArray>("answer");
    const auto row = [](const char *rule, int result, const QByteArray &answer) {
        QTest::newRow(rule) << QByteArray(rule) << result << answer;
    };
    row("body desc* fail", SimulatedIOManager::Failed, "untouched");
    row("body desc* report-failed", SimulatedIOManager::Failed, "untouched");
    row("body desc* empty", 0, "");
    row("body desc* wrong-type", 0, "4711");
    row("body desc* garbled", 0, "\xff\xfe\x80 \xc3");
    row("body desc* long", 0, QByteArray(199, 'x'));
    row("body desc* over-long", 0, QByteArray(3999, 'x'));
    row("body desc* answer \"a \\\"b\\\"\"", 0, "a \"b\"");
    row("body desc* link-dead", SimulatedIOManager::Failed, "untouched");
    row("body desc* delay 10", 0, "Cap");
    row("body desc* refuse", 0, "Cap");
    row("set body desc* fail", 0, "Cap");
    row("body active* fail", 0, "Cap");
    row("body desc* call 2 fail", 0, "Cap");
}

void tst_SimulatedIOManager::textFaults()
{
    QFETCH(QByteArray, rule);
    QFETCH(int, result);
    QFETCH(QByteArray, answer);
    fault(rule);
    QCOMPARE(text("body desc standard b01", result), answer);
    QCOMPARE(m_io->transcript().last().result, result);
    QCOMPARE(m_io->transcript().last().answer, result == 0 ? answer : QByteArray());
}

void tst_SimulatedIOManager::numberFaults_data()
{
    QTest::addColumn<QByteArray>("rule");
    QTest::addColumn<int>("result");
    QTest::newRow("fail") << QByteArray("* fail") << int(SimulatedIOManager::Failed);
    for (const char *effect : {"empty", "wrong-type", "garbled", "long", "over-long"}) {
        QTest::newRow(effect) << QByteArray("* ") + effect << int(SimulatedIOManager::NotConverted);
    }
}

void tst_SimulatedIOManager::numberFaults()
{
    QFETCH(QByteArray, rule);
    QFETCH(int, result);
    fault(rule);
    int number = -7;
    double real = -7.0;
    bool flag = true;
    QCOMPARE(m_io->get_int(&number, "targetlib number_of_targets"), result);
    QCOMPARE(m_io->get_double(&real, "synccard output_frequency"), result);
    QCOMPARE(m_io->get_bool(&flag, "inertial warmup"), result);
    QCOMPARE(number, -7);
    QCOMPARE(real, -7.0);
    QCOMPARE(flag, true);
}

void tst_SimulatedIOManager::setFaults_data()
{
    QTest::addColumn<QByteArray>("rule");
    QTest::addColumn<int>("result");
    QTest::addColumn<bool>("isCarriedOut");
    const auto row = [](const char *rule, int result, bool isCarriedOut) {
        QTest::newRow(rule) << QByteArray(rule) << result << isCarriedOut;
    };
    row("set body desc* fail", SimulatedIOManager::Failed, false);
    row("set body desc* refuse", SimulatedIOManager::Refused, false);
    row("set body desc* report-failed", SimulatedIOManager::Failed, true);
    row("set body desc* link-dead", SimulatedIOManager::Failed, false);
    row("set body desc* clamp", 0, true);
    row("set body desc* delay 7", 0, true);
    row("body desc* empty", 0, true);
    row("get body desc* fail", 0, true);
}

void tst_SimulatedIOManager::setFaults()
{
    QFETCH(QByteArray, rule);
    QFETCH(int, result);
    QFETCH(bool, isCarriedOut);
    fault(rule);
    QCOMPARE(m_io->set("body desc standard b01 \"Hat\""), result);
    const QString name = isCarriedOut ? QStringLiteral("Hat") : QStringLiteral("Cap");
    QCOMPARE(m_controller->state()
                     .bodyTypes.value(QStringLiteral("standard"))
                     .bodies.first()
                     .description,
             name);
    QCOMPARE(m_io->transcript().last().answer, QByteArray());
}

void tst_SimulatedIOManager::clamping_data()
{
    QTest::addColumn<QByteArray>("write");
    QTest::addColumn<QByteArray>("read");
    QTest::addColumn<QByteArray>("answer");
    const auto row = [](const char *write, const char *read, const char *answer) {
        QTest::newRow(write) << QByteArray(write) << QByteArray(read) << QByteArray(answer);
    };
    row("body filter6d_strength standard b01 0.800000", "body filter6d_strength standard b01",
        "0.400000");
    row("standard number_of_bodies 12", "standard number_of_bodies", "6");
    row("standard fixed_angle b01 yes 3.0 no 4.0 no -10.0", "standard fixed_angle b01",
        "yes 3.000 no 4.000 no -5.000");
    row("body active standard b01 no", "body active standard b01", "no");
    row("body desc standard b01 \"Hat\"", "body desc standard b01", "Hat");
}

void tst_SimulatedIOManager::clamping()
{
    QFETCH(QByteArray, write);
    QFETCH(QByteArray, read);
    QFETCH(QByteArray, answer);
    fault("* clamp");
    QCOMPARE(m_io->set("%s", write.constData()), 0);
    QCOMPARE(m_io->transcript().last().line, write);
    QCOMPARE(text(read), answer);
}

void tst_SimulatedIOManager::actionFaults_data()
{
    QTest::addColumn<QByteArray>("rule");
    QTest::addColumn<int>("result");
    QTest::addColumn<QByteArray>("answer");
    QTest::addColumn<bool>("isCarriedOut");
    const auto row = [](const char *rule, int result, const char *answer, bool isCarriedOut) {
        QTest::newRow(rule) << QByteArray(rule) << result << QByteArray(answer) << isCarriedOut;
    };
    const int failed = SimulatedIOManager::Failed;
    row("command morvek2 cal* fail", failed, "untouched", false);
    row("command morvek2 cal* refuse", 0, "morvek2 err \"refused\"", false);
    row("command morvek2 cal* report-failed", failed, "untouched", true);
    row("morvek2 cal* answer \"morvek2 ok \"", 0, "morvek2 ok ", true);
    row("morvek2 cal* empty", 0, "", true);
    row("morvek2 cal* wrong-type", 0, "4711", true);
    row("set morvek2 cal* fail", 0, "morvek2 ok", true);
    row("morvek2 cal* link-dead", failed, "untouched", false);
}

void tst_SimulatedIOManager::actionFaults()
{
    QFETCH(QByteArray, rule);
    QFETCH(int, result);
    QFETCH(QByteArray, answer);
    QFETCH(bool, isCarriedOut);
    fault(rule);
    char out[200] = "untouched";
    QCOMPARE(m_io->send_command(out, "morvek2 cal targetlib start"), result);
    QCOMPARE(QByteArray(out), answer);
    QCOMPARE(m_controller->state().search.active, isCarriedOut);
}

void tst_SimulatedIOManager::answersStayWithinTheirRoom()
{
    ControllerState state = m_studio;
    const QString umlauts(120, QChar(0xFC));
    state.bodyTypes[QStringLiteral("standard")].bodies[0].description = QLatin1Char('x') + umlauts;
    state.bodyTypes[QStringLiteral("standard")].bodies[1].description = umlauts;
    m_controller->setState(state);
    QCOMPARE(text("body desc standard b01").size(), 199);
    QCOMPARE(text("body desc standard b02"), umlauts.left(99).toUtf8());
    fault("* answer \"" + QByteArray(300, 'y') + '"');
    QCOMPARE(text("body desc standard b01"), QByteArray(199, 'y'));
}

void tst_SimulatedIOManager::overlongAnswerBreaksOut()
{
    fault("* over-long");
    char out[4001];
    std::memset(out, '#', sizeof out);
    QCOMPARE(m_io->get_string(out, "body desc standard b01"), 0);
    QCOMPARE(int(std::strlen(out)), 3999);
    QCOMPARE(out[4000], '#');
}

void tst_SimulatedIOManager::deadLinkComesBack()
{
    fault("status active call 2 link-dead");
    QCOMPARE(text("status active"), QByteArray("none"));
    QVERIFY(!m_io->faults()->linkDead());
    QCOMPARE(text("status active"), QByteArray("result 1"));
    QVERIFY(m_io->faults()->linkDead());
    QCOMPARE(text("body desc standard b01"), QByteArray("result 1"));
    QCOMPARE(m_io->set("body desc standard b01 \"Hat\""), int(SimulatedIOManager::Failed));
    Listener listener;
    m_io->register_receiver("GlobalEvent", &listener);
    m_io->send_message("GlobalEvent", "Host", 1, "still here");
    QCOMPARE(listener.heard.size(), 1);
    m_io->faults()->setLinkDead(false);
    QCOMPARE(text("body desc standard b01"), QByteArray("Cap"));
}

void tst_SimulatedIOManager::delaysPass()
{
    fault("body* delay 150");
    fault("* between 300 1000 fail");
    QCOMPARE(m_io->virtualTime(), qint64(0));
    text("body desc standard b01");
    text("status active");
    text("body desc standard b01");
    QCOMPARE(m_io->virtualTime(), qint64(300));
    QCOMPARE(m_io->transcript().at(1).virtualMs, qint64(150));
    QCOMPARE(text("status active"), QByteArray("result 1"));
    m_io->advance(700);
    QCOMPARE(text("status active"), QByteArray("none"));
}

void tst_SimulatedIOManager::answerReplacesARefusal()
{
    fault("body desc standard b99 answer \"Ghost\"");
    fault("body colour* answer \"red\"");
    QCOMPARE(text("body desc standard b99"), QByteArray("Ghost"));
    QCOMPARE(text("body colour standard b01"), QByteArray("result 3"));
}

void tst_SimulatedIOManager::transcriptKeepsEverything()
{
    QSignalSpy recorded(m_io.get(), &SimulatedIOManager::recorded);
    m_io->setDialogProbe([] { return QStringLiteral("FilterDialog"); });
    int number = 0;
    char answer[200];
    m_io->get_int(&number, "targetlib number_of_targets");
    m_io->set("inertial warmup yes");
    m_io->send_command(answer, "morvek2 cal targetlib start");
    m_io->send_message("standard", "MORVEK3", 1, "a line");
    text("body desc standard b99");
    const QVector<TranscriptEntry> &lines = m_io->transcript();
    QCOMPARE(lines.size(), 5);
    QCOMPARE(recorded.count(), 5);
    QStringList shown;
    for (const TranscriptEntry &one : lines) {
        QCOMPARE(one.dialog, QStringLiteral("FilterDialog"));
        shown << TranscriptEntry::operationName(one.operation) + QLatin1Char('|')
                         + QString::fromUtf8(one.line) + QLatin1Char('|')
                         + QString::fromUtf8(one.answer) + QLatin1Char('|')
                         + QString::number(one.result);
    }
    QCOMPARE(shown, QStringList({QStringLiteral("get-int|targetlib number_of_targets|24|0"),
                                 QStringLiteral("set|inertial warmup yes||0"),
                                 QStringLiteral("command|morvek2 cal targetlib start|morvek2 ok|0"),
                                 QStringLiteral("message|standard|MORVEK3|1|a line||0"),
                                 QStringLiteral("get-string|body desc standard b99||2")}));
    QVERIFY(lines.at(0).isGet());
    QVERIFY(!lines.at(1).isGet());
    QVERIFY(!lines.at(2).isGet());
    QVERIFY(!lines.at(3).isGet());
    m_io->clearTranscript();
    QVERIFY(m_io->transcript().isEmpty());
}

void tst_SimulatedIOManager::lockComesBeforeTheOperation()
{
    fault("* at 2 lock");
    QCOMPARE(m_io->set("body desc standard b01 \"%s\"", "Hat"), int(SimulatedIOManager::Ok));
    QCOMPARE(m_io->set("body desc standard b01 \"%s\"", "Cat"), int(SimulatedIOManager::Refused));
    bool changeable = true;
    QCOMPARE(m_io->get_bool(&changeable, "config is_changeable"), int(SimulatedIOManager::Ok));
    QVERIFY(!changeable);
}

void tst_SimulatedIOManager::transcriptHasALimit()
{
    m_io->setTranscriptLimit(16);
    for (int i = 0; i < 100; ++i) {
        m_io->set("number %d", i);
        QVERIFY(m_io->transcript().size() <= 16);
    }
    QVERIFY(m_io->transcript().size() >= 14);
    QCOMPARE(m_io->transcript().last().line, QByteArray("number 99"));
    QCOMPARE(m_io->operationCount(), qint64(100));
    m_io->clearTranscript();
    QCOMPARE(m_io->operationCount(), qint64(100));
    // A limit that is too small for a transcript is raised.
    m_io->setTranscriptLimit(1);
    QCOMPARE(m_io->transcriptLimit(), 8);
    m_io->setTranscriptLimit(0);
    for (int i = 0; i < 100; ++i)
        m_io->set("number %d", i);
    QCOMPARE(m_io->transcript().size(), 100);
}

void tst_SimulatedIOManager::sameRunsGiveSameTranscripts()
{
    const auto run = [this] {
        init();
        fault("body* random 0.5 seed 3 fail");
        QByteArray seen;
        for (int i = 1; i <= 8; ++i) {
            char out[200];
            m_io->get_string(out, "body desc standard b%02d", i);
        }
        for (const TranscriptEntry &one : m_io->transcript()) {
            seen += QByteArray::number(one.virtualMs) + one.line + one.answer
                    + QByteArray::number(one.result) + QByteArray::number(one.durationUs) + '\n';
        }
        return seen;
    };
    const QByteArray first = run();
    QVERIFY(first.contains("Cap") || first.contains("Crate"));
    QCOMPARE(run(), first);
}

void tst_SimulatedIOManager::durationOnlyWhenMeasured()
{
    text("status active");
    QCOMPARE(m_io->transcript().last().durationUs, qint64(0));
    m_io->setMeasuring(true);
    qint64 total = 0;
    for (int i = 0; i < 200; ++i) {
        text("status active");
        total += m_io->transcript().last().durationUs;
    }
    QVERIFY(total > 0);
}

void tst_SimulatedIOManager::messagesReachTheirChannel()
{
    QSignalSpy sent(m_io.get(), &SimulatedIOManager::messageSent);
    Listener one;
    Listener two;
    m_io->register_receiver("GlobalEvent", &one);
    m_io->register_receiver("GlobalEvent", &one);
    m_io->register_receiver("GlobalEvent", &two);
    m_io->register_receiver("BodyAdministrationModule", &two);
    QCOMPARE(m_io->receiverCount("GlobalEvent"), 2);
    m_io->send_message("GlobalEvent", "Host", 4, "M\xc3\xbctze");
    m_io->send_message("BodyAdministrationModule", "Host", 1, "reopen");
    m_io->send_message("Nowhere", "Host", 1, "lost");
    const QString hat = QStringLiteral("4|Host|M\u00fctze");
    QCOMPARE(one.heard, QStringList{hat});
    QCOMPARE(two.heard, QStringList({hat, QStringLiteral("1|Host|reopen")}));
    QCOMPARE(sent.count(), 3);
    QCOMPARE(sent.last().at(0).toString(), QStringLiteral("Nowhere"));
    QCOMPARE(sent.last().at(3).toString(), QStringLiteral("lost"));
    m_io->unregister_receiver("GlobalEvent", &two);
    m_io->unregister_receiver("GlobalEvent", &two);
    QCOMPARE(m_io->receiverCount("GlobalEvent"), 1);
    m_io->send_message("GlobalEvent", "Host", 1, "again");
    QCOMPARE(one.heard.size(), 2);
    QCOMPARE(two.heard.size(), 2);
}

void tst_SimulatedIOManager::receiversMayLeaveWhileTheyListen()
{
    Listener leaving;
    Listener staying;
    leaving.leaves = m_io.get();
    m_io->register_receiver("GlobalEvent", &leaving);
    m_io->register_receiver("GlobalEvent", &staying);
    m_io->send_message("GlobalEvent", "Host", 1, "one");
    m_io->send_message("GlobalEvent", "Host", 1, "two");
    QCOMPARE(leaving.heard.size(), 1);
    QCOMPARE(staying.heard.size(), 2);
}

TRACKING_TEST_GUILESS_MAIN(tst_SimulatedIOManager)
#include "tst_simulatediomanager.moc"
