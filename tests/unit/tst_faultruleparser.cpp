#include "FaultRuleParser.h"
#include "testprogram.h"

#include <QTest>

namespace {

using Effect = FaultRule::Effect;
using Trigger = FaultRule::Trigger;
using Operation = TranscriptEntry::Operation;

FaultRule parsed(const QString &text)
{
    FaultRule rule;
    QString error;
    if (!FaultRuleParser::parse(text, &rule, &error))
        QTest::qFail(qPrintable(error), __FILE__, __LINE__);
    return rule;
}

} // namespace

Q_DECLARE_METATYPE(FaultRule::Effect)
Q_DECLARE_METATYPE(FaultRule::Trigger)

class tst_FaultRuleParser : public QObject {
    Q_OBJECT

private slots:
    void effects_data();
    void effects();
    void triggers_data();
    void triggers();
    void patterns_data();
    void patterns();
    void answerTexts_data();
    void answerTexts();
    void errors_data();
    void errors();
    void concerns_data();
    void concerns();
    void wrongRuleLeavesTheOldOne();
};

void tst_FaultRuleParser::effects_data()
{
    QTest::addColumn<QString>("word");
    QTest::addColumn<FaultRule::Effect>("effect");
    QTest::addColumn<int>("number");
    QTest::newRow("fail") << "fail" << Effect::Fail << 0;
    QTest::newRow("delay") << "delay 200" << Effect::Delay << 200;
    QTest::newRow("empty") << "empty" << Effect::EmptyAnswer << 0;
    QTest::newRow("wrong-type") << "wrong-type" << Effect::WrongType << 0;
    QTest::newRow("garbled") << "garbled" << Effect::Garbled << 0;
    QTest::newRow("long") << "long" << Effect::LongAnswer << 0;
    QTest::newRow("over-long") << "over-long" << Effect::OverlongAnswer << 0;
    QTest::newRow("answer") << "answer \"abc\"" << Effect::Answer << 0;
    QTest::newRow("refuse") << "refuse" << Effect::Refuse << 0;
    QTest::newRow("clamp") << "clamp" << Effect::Clamp << 0;
    QTest::newRow("report-failed") << "report-failed" << Effect::ReportFailed << 0;
    QTest::newRow("lock") << "lock" << Effect::Lock << 0;
    QTest::newRow("link-dead") << "link-dead" << Effect::LinkDead << 0;
}

void tst_FaultRuleParser::effects()
{
    QFETCH(QString, word);
    QFETCH(FaultRule::Effect, effect);
    QFETCH(int, number);
    const QString source = QStringLiteral("body* ") + word;
    const FaultRule rule = parsed(source);
    QCOMPARE(rule.effect, effect);
    QCOMPARE(rule.number, number);
    QCOMPARE(rule.trigger, Trigger::Always);
    QCOMPARE(rule.pattern, QStringLiteral("body*"));
    QCOMPARE(rule.source, source);
    QCOMPARE(FaultRuleParser::effectName(effect), word.section(QLatin1Char(' '), 0, 0));
    QVERIFY(rule.enabled);
    QCOMPARE(rule.calls, 0);
    QCOMPARE(rule.fired, 0);
}

void tst_FaultRuleParser::triggers_data()
{
    QTest::addColumn<QString>("text");
    QTest::addColumn<FaultRule::Trigger>("trigger");
    QTest::addColumn<int>("k");
    QTest::addColumn<qint64>("from");
    QTest::addColumn<qint64>("to");
    QTest::addColumn<double>("probability");
    QTest::addColumn<quint32>("seed");
    const auto row = [](const char *text, Trigger trigger, int k, qint64 from, qint64 to,
                        double probability, quint32 seed) {
        QTest::newRow(text) << text << trigger << k << from << to << probability << seed;
    };
    row("always", Trigger::Always, 1, 0, 0, 0.0, 1);
    row("call 3", Trigger::KthCall, 3, 0, 0, 0.0, 1);
    row("every 2", Trigger::EveryNth, 2, 0, 0, 0.0, 1);
    row("at 12", Trigger::At, 12, 0, 0, 0.0, 1);
    row("from 12", Trigger::From, 12, 0, 0, 0.0, 1);
    row("between 1000 2000", Trigger::TimeWindow, 1, 1000, 2000, 0.0, 1);
    row("random 0.25", Trigger::Random, 1, 0, 0, 0.25, 1);
    row("random 1 seed 7", Trigger::Random, 1, 0, 0, 1.0, 7);
}

void tst_FaultRuleParser::triggers()
{
    QFETCH(QString, text);
    QFETCH(FaultRule::Trigger, trigger);
    QFETCH(int, k);
    QFETCH(qint64, from);
    QFETCH(qint64, to);
    QFETCH(double, probability);
    QFETCH(quint32, seed);
    const FaultRule rule = parsed(QStringLiteral("body desc* %1 fail").arg(text));
    QCOMPARE(rule.trigger, trigger);
    QCOMPARE(rule.k, k);
    QCOMPARE(rule.fromMs, from);
    QCOMPARE(rule.toMs, to);
    QCOMPARE(rule.probability, probability);
    QCOMPARE(rule.seed, seed);
    QCOMPARE(rule.pattern, QStringLiteral("body desc*"));
}

void tst_FaultRuleParser::patterns_data()
{
    QTest::addColumn<QString>("rule");
    QTest::addColumn<QString>("pattern");
    QTest::newRow("one word") << "* fail"
                              << "*";
    QTest::newRow("whole line") << "body desc standard b01 fail"
                                << "body desc standard b01";
    QTest::newRow("with kind") << "set body active* every 2 refuse"
                               << "set body active*";
    QTest::newRow("blanks around") << "  body desc*   fail  "
                                   << "body desc*";
    QTest::newRow("two blanks inside") << "body desc standard b01 a  b fail"
                                       << "body desc standard b01 a  b";
    QTest::newRow("with quotes") << "set body desc standard b01 \"\" fail"
                                 << "set body desc standard b01 \"\"";
}

void tst_FaultRuleParser::patterns()
{
    QFETCH(QString, rule);
    QFETCH(QString, pattern);
    QCOMPARE(parsed(rule).pattern, pattern);
}

void tst_FaultRuleParser::answerTexts_data()
{
    QTest::addColumn<QString>("rule");
    QTest::addColumn<QString>("text");
    QTest::newRow("plain") << "status active answer \"err\""
                           << "err";
    QTest::newRow("empty") << "status active answer \"\""
                           << "";
    QTest::newRow("blanks kept") << "command * answer \" morvek2  ok \""
                                 << " morvek2  ok ";
    QTest::newRow("quote sign") << "* answer \"a \\\"b\\\" c\""
                                << "a \"b\" c";
    QTest::newRow("backslash") << "* answer \"a\\\\\""
                               << "a\\";
    QTest::newRow("effect words inside") << "* answer \"fail every 2\""
                                         << "fail every 2";
}

void tst_FaultRuleParser::answerTexts()
{
    QFETCH(QString, rule);
    QFETCH(QString, text);
    QCOMPARE(parsed(rule).text, text);
}

void tst_FaultRuleParser::errors_data()
{
    QTest::addColumn<QString>("rule");
    QTest::addColumn<QString>("error");
    const QString effects = QStringLiteral(
            "an effect (fail, delay, empty, wrong-type, garbled, long, over-long, answer, refuse, "
            "clamp, report-failed, lock, link-dead)");
    const auto row = [](const char *rule, const QString &error) {
        QTest::newRow(*rule ? rule : "nothing") << rule << error;
    };
    row("", QStringLiteral("column 1: expected a command pattern, found the end of the rule"));
    row("   ", QStringLiteral("column 4: expected a command pattern, found the end of the rule"));
    row("fail", QStringLiteral("column 1: expected a command pattern, found \"fail\""));
    row("body desc*", QStringLiteral("column 11: expected ") + effects
                              + QStringLiteral(", found the end of the rule"));
    row("body desc* every 2 explode",
        QStringLiteral("column 20: expected ") + effects + QStringLiteral(", found \"explode\""));
    row("body*desc fail",
        QStringLiteral("column 5: expected \"*\" only at the end of the pattern"));
    row("body desc* explode",
        QStringLiteral("column 12: expected ") + effects + QStringLiteral(", found \"explode\""));
    row("* every two fail", QStringLiteral("column 9: expected every how many calls (a whole "
                                           "number from 1), found \"two\""));
    row("* every 0 fail", QStringLiteral("column 9: expected every how many calls (a whole number "
                                         "from 1), found \"0\""));
    row("* call", QStringLiteral("column 7: expected which call (a whole number from 1), found "
                                 "the end of the rule"));
    row("* at all fail", QStringLiteral("column 6: expected which operation (a whole number from "
                                        "1), found \"all\""));
    row("* from 0 fail",
        QStringLiteral("column 8: expected from which operation on (a whole number "
                       "from 1), found \"0\""));
    row("* between 5 5 fail", QStringLiteral("column 13: expected the millisecond after the last "
                                             "(a whole number from 6), found \"5\""));
    row("* random 1.5 fail",
        QStringLiteral("column 10: expected a probability from 0 to 1, found \"1.5\""));
    row("* random 0.5 seed x fail",
        QStringLiteral("column 19: expected a seed (a whole number from 0), found \"x\""));
    row("* delay fast",
        QStringLiteral("column 9: expected milliseconds (a whole number from 0), found \"fast\""));
    row("* fail now", QStringLiteral("column 8: expected the end of the rule, found \"now\""));
    row("* answer abc",
        QStringLiteral("column 10: expected a text in double quotes, found \"abc\""));
    row("* answer \"abc", QStringLiteral("column 14: expected the text's closing double quote"));
    row("* answer \"abc\"d",
        QStringLiteral("column 15: expected the end of the rule after the text"));
    row("* answer \"abc\" d",
        QStringLiteral("column 16: expected the end of the rule, found \"d\""));
    row("get body* refuse", QStringLiteral("column 11: expected an effect that can disturb this "
                                           "kind of command, found \"refuse\""));
    row("set body* empty", QStringLiteral("column 11: expected an effect that can disturb this "
                                          "kind of command, found \"empty\""));
    row("command * clamp", QStringLiteral("column 11: expected an effect that can disturb this "
                                          "kind of command, found \"clamp\""));
}

void tst_FaultRuleParser::errors()
{
    QFETCH(QString, rule);
    FaultRule result;
    QString error;
    QVERIFY(!FaultRuleParser::parse(rule, &result, &error));
    QTEST(error, "error");
    QVERIFY(!FaultRuleParser::parse(rule, &result, nullptr));
}

void tst_FaultRuleParser::concerns_data()
{
    QTest::addColumn<QString>("rule");
    QTest::addColumn<bool>("reads");
    QTest::addColumn<bool>("sets");
    QTest::addColumn<bool>("actions");
    QTest::newRow("any") << "* fail" << true << true << true;
    QTest::newRow("reads") << "get * fail" << true << false << false;
    QTest::newRow("sets") << "set * fail" << false << true << false;
    QTest::newRow("actions") << "command * fail" << false << false << true;
    QTest::newRow("refuse") << "* refuse" << false << true << true;
    QTest::newRow("clamp") << "* clamp" << false << true << false;
    QTest::newRow("answer") << "* answer \"x\"" << true << false << true;
    QTest::newRow("empty") << "* empty" << true << false << true;
    QTest::newRow("report-failed") << "* report-failed" << true << true << true;
    QTest::newRow("link-dead") << "* link-dead" << true << true << true;
}

void tst_FaultRuleParser::concerns()
{
    QFETCH(QString, rule);
    QFETCH(bool, reads);
    const FaultRule result = parsed(rule);
    for (Operation one :
         {Operation::GetString, Operation::GetInt, Operation::GetDouble, Operation::GetBool})
        QCOMPARE(FaultRuleParser::concerns(result, one), reads);
    QTEST(FaultRuleParser::concerns(result, Operation::Set), "sets");
    QTEST(FaultRuleParser::concerns(result, Operation::Command), "actions");
    QVERIFY(!FaultRuleParser::concerns(result, Operation::Message));
}

void tst_FaultRuleParser::wrongRuleLeavesTheOldOne()
{
    FaultRule rule = parsed(QStringLiteral("body* fail"));
    QVERIFY(!FaultRuleParser::parse(QStringLiteral("status* explode"), &rule, nullptr));
    QCOMPARE(rule.pattern, QStringLiteral("body*"));
}

TRACKING_TEST_GUILESS_MAIN(tst_FaultRuleParser)
#include "tst_faultruleparser.moc"
