#include "FaultEngine.h"
#include "testprogram.h"

#include <QSignalSpy>
#include <QTest>

Q_DECLARE_METATYPE(TranscriptEntry::Operation)

namespace {

using Operation = TranscriptEntry::Operation;

} // namespace

/** The calls on which a rule fires. */
class tst_FaultEngine : public QObject {
    Q_OBJECT

private slots:
    void triggers_data();
    void triggers();
    void operationsOfAnyKindCount();
    void everyEffectWithEveryTrigger_data();
    void everyEffectWithEveryTrigger();
    void patterns_data();
    void patterns();
    void timeWindow();
    void randomRepeats();
    void disabledRulesRest();
    void rulesFireInOrder();
    void otherOperationsDoNotCount();
    void deadLinkFiresNothing();
    void badRuleIsNotAdded();
    void indexesOutOfRangeDoNothing();
    void changesAreTold();

private:
    /** One character for each call: x where the first rule fired, otherwise a dot. */
    static QString pattern(FaultEngine *engine, int calls);
};

QString tst_FaultEngine::pattern(FaultEngine *engine, int calls)
{
    QString fired;
    for (int i = 0; i < calls; ++i) {
        const bool isFired =
                !engine->fire(Operation::GetString, "body desc standard b01", 0).isEmpty();
        fired += QLatin1Char(isFired ? 'x' : '.');
    }
    return fired;
}

void tst_FaultEngine::triggers_data()
{
    QTest::addColumn<QString>("rule");
    QTest::addColumn<QString>("fired");
    QTest::newRow("always by default") << "body* fail"
                                       << "xxxxxx";
    QTest::newRow("always") << "body* always fail"
                            << "xxxxxx";
    QTest::newRow("first call") << "body* call 1 fail"
                                << "x.....";
    QTest::newRow("third call") << "body* call 3 fail"
                                << "..x...";
    QTest::newRow("every call") << "body* every 1 fail"
                                << "xxxxxx";
    QTest::newRow("every second") << "body* every 2 fail"
                                  << ".x.x.x";
    QTest::newRow("at") << "body* at 3 fail"
                        << "..x...";
    QTest::newRow("from") << "body* from 3 fail"
                          << "..xxxx";
    QTest::newRow("never") << "body* random 0 fail"
                           << "......";
    QTest::newRow("surely") << "body* random 1 fail"
                            << "xxxxxx";
}

void tst_FaultEngine::triggers()
{
    QFETCH(QString, rule);
    QFETCH(QString, fired);
    FaultEngine engine;
    QVERIFY(engine.add(rule));
    QCOMPARE(pattern(&engine, 6), fired);
    QCOMPARE(engine.rules().first().calls, 6);
    QCOMPARE(engine.rules().first().fired, fired.count(QLatin1Char('x')));
}

void tst_FaultEngine::operationsOfAnyKindCount()
{
    FaultEngine engine;
    QVERIFY(engine.add(QStringLiteral("set body* at 4 refuse")));
    QVERIFY(engine.add(QStringLiteral("body active* from 4 fail")));
    QCOMPARE(engine.fire(Operation::GetString, "status active", 0).size(), 0);
    QCOMPARE(engine.fire(Operation::Message, "standard|x|1|y", 0).size(), 0);
    QCOMPARE(engine.fire(Operation::Set, "body active standard b01 no", 0).size(), 0);
    engine.setLinkDead(true);
    QCOMPARE(engine.fire(Operation::GetString, "status active", 0).size(), 0);
    engine.setLinkDead(false);
    QCOMPARE(engine.fire(Operation::Set, "body active standard b01 no", 0).size(), 2);
    QCOMPARE(engine.fire(Operation::Set, "body active standard b01 no", 0).size(), 1);
}

void tst_FaultEngine::everyEffectWithEveryTrigger_data()
{
    QTest::addColumn<QString>("rule");
    QTest::addColumn<Operation>("operation");
    QTest::addColumn<QString>("fired");
    const QVector<QPair<QString, Operation>> effects = {
            {"fail", Operation::GetString},      {"delay 20", Operation::GetString},
            {"empty", Operation::GetString},     {"wrong-type", Operation::GetString},
            {"garbled", Operation::GetString},   {"long", Operation::GetString},
            {"over-long", Operation::GetString}, {"answer \"no\"", Operation::GetString},
            {"refuse", Operation::Set},          {"clamp", Operation::Set},
            {"report-failed", Operation::Set},   {"lock", Operation::Set},
            {"link-dead", Operation::Set}};
    // Calls are 100 ms apart.
    const QVector<QPair<QString, QString>> triggers = {{"", "xxxxxx"},
                                                       {"call 3 ", "..x..."},
                                                       {"every 2 ", ".x.x.x"},
                                                       {"at 3 ", "..x..."},
                                                       {"from 3 ", "..xxxx"},
                                                       {"between 100 300 ", ".xx..."},
                                                       {"random 1 seed 7 ", "xxxxxx"}};
    for (const auto &effect : effects) {
        for (const auto &trigger : triggers) {
            const QString rule = "body* " + trigger.first + effect.first;
            QTest::newRow(qPrintable(rule)) << rule << effect.second << trigger.second;
        }
    }
}

void tst_FaultEngine::everyEffectWithEveryTrigger()
{
    QFETCH(QString, rule);
    QFETCH(Operation, operation);
    QFETCH(QString, fired);
    FaultEngine engine;
    QString error;
    QVERIFY2(engine.add(rule, &error), qPrintable(error));
    QString seen;
    for (int call = 0; call < fired.size(); ++call) {
        const auto now = engine.fire(operation, "body filter6d_strength standard b01", call * 100);
        seen += QLatin1Char(now.isEmpty() ? '.' : 'x');
        for (const auto &effect : now)
            QCOMPARE(effect.effect, engine.rules().first().effect);
    }
    QCOMPARE(seen, fired);
    QCOMPARE(engine.rules().first().fired, fired.count(QLatin1Char('x')));
}

void tst_FaultEngine::patterns_data()
{
    QTest::addColumn<QString>("pattern");
    QTest::addColumn<QByteArray>("line");
    QTest::addColumn<bool>("matches");
    const auto row = [](const char *pattern, const char *line, bool matches) {
        QTest::addRow("%s on %s", pattern, line) << pattern << QByteArray(line) << matches;
    };
    row("*", "status active", true);
    row("status active", "status active", true);
    row("status active", "status activeness", false);
    row("status active", "status", false);
    row("status a*", "status active", true);
    row("status active*", "status active", true);
    row("get status*", "status active", true);
    row("get *", "status active", true);
    row("Status*", "status active", false);
    row("tus*", "status active", false);
    row("tracking reference none", " tracking reference none", true);
}

void tst_FaultEngine::patterns()
{
    QFETCH(QString, pattern);
    QFETCH(QByteArray, line);
    FaultEngine engine;
    QVERIFY(engine.add(pattern + QStringLiteral(" fail")));
    QTEST(!engine.fire(Operation::GetString, line, 0).isEmpty(), "matches");
}

void tst_FaultEngine::timeWindow()
{
    FaultEngine engine;
    QVERIFY(engine.add(QStringLiteral("* between 1000 2000 delay 5")));
    for (qint64 ms : {0, 999, 2000, 5000})
        QVERIFY(engine.fire(Operation::Set, "inertial warmup no", ms).isEmpty());
    for (qint64 ms : {1000, 1999})
        QCOMPARE(engine.fire(Operation::Set, "inertial warmup no", ms).size(), 1);
    QCOMPARE(engine.rules().first().calls, 6);
    QCOMPARE(engine.rules().first().fired, 2);
}

void tst_FaultEngine::randomRepeats()
{
    const auto run = [](const char *rule) {
        FaultEngine engine;
        engine.add(QString::fromLatin1(rule));
        return pattern(&engine, 400);
    };
    const QString first = run("body* random 0.25 seed 7 fail");
    QCOMPARE(run("body* random 0.25 seed 7 fail"), first);
    QVERIFY(run("body* random 0.25 seed 8 fail") != first);
    const int fired = first.count(QLatin1Char('x'));
    QVERIFY2(fired > 60 && fired < 140, qPrintable(QString::number(fired)));
}

void tst_FaultEngine::disabledRulesRest()
{
    FaultEngine engine;
    QVERIFY(engine.add(QStringLiteral("body* call 2 fail")));
    engine.setEnabled(0, false);
    QCOMPARE(pattern(&engine, 3), QStringLiteral("..."));
    QCOMPARE(engine.rules().first().calls, 0);
    engine.setEnabled(0, true);
    QCOMPARE(pattern(&engine, 3), QStringLiteral(".x."));
}

void tst_FaultEngine::rulesFireInOrder()
{
    FaultEngine engine;
    QVERIFY(engine.add(QStringLiteral("* delay 10")));
    QVERIFY(engine.add(QStringLiteral("status* empty")));
    QVERIFY(engine.add(QStringLiteral("body* fail")));
    const QVector<FaultRule> fired = engine.fire(Operation::GetString, "status active", 0);
    QCOMPARE(fired.size(), 2);
    QCOMPARE(fired.at(0).effect, FaultRule::Effect::Delay);
    QCOMPARE(fired.at(1).effect, FaultRule::Effect::EmptyAnswer);
}

void tst_FaultEngine::otherOperationsDoNotCount()
{
    FaultEngine engine;
    QVERIFY(engine.add(QStringLiteral("set body active* every 2 refuse")));
    QVERIFY(engine.fire(Operation::GetString, "body active standard b01", 0).isEmpty());
    QVERIFY(engine.fire(Operation::Set, "body active standard b01 no", 0).isEmpty());
    QVERIFY(engine.fire(Operation::GetString, "body active standard b01", 0).isEmpty());
    QCOMPARE(engine.fire(Operation::Set, "body active standard b01 yes", 0).size(), 1);
    QVERIFY(engine.fire(Operation::Message, "body active", 0).isEmpty());
    QCOMPARE(engine.rules().first().calls, 2);
}

void tst_FaultEngine::deadLinkFiresNothing()
{
    FaultEngine engine;
    QVERIFY(engine.add(QStringLiteral("body* fail")));
    engine.setLinkDead(true);
    QCOMPARE(pattern(&engine, 2), QStringLiteral(".."));
    QCOMPARE(engine.rules().first().calls, 0);
    engine.setLinkDead(false);
    QCOMPARE(pattern(&engine, 2), QStringLiteral("xx"));
}

void tst_FaultEngine::badRuleIsNotAdded()
{
    FaultEngine engine;
    QString error;
    QVERIFY(!engine.add(QStringLiteral("body* explode"), &error));
    QVERIFY2(error.startsWith(QStringLiteral("column 7: expected an effect")), qPrintable(error));
    QVERIFY(engine.rules().isEmpty());
}

void tst_FaultEngine::indexesOutOfRangeDoNothing()
{
    FaultEngine engine;
    QVERIFY(engine.add(QStringLiteral("body* fail")));
    engine.remove(-1);
    engine.remove(1);
    engine.setEnabled(1, false);
    engine.setEnabled(-1, false);
    QCOMPARE(engine.rules().size(), 1);
    QVERIFY(engine.rules().first().enabled);
}

void tst_FaultEngine::changesAreTold()
{
    FaultEngine engine;
    QSignalSpy changes(&engine, &FaultEngine::changed);
    QVERIFY(engine.add(QStringLiteral("body* fail")));
    QCOMPARE(changes.count(), 1);
    pattern(&engine, 1);
    QCOMPARE(changes.count(), 2);
    engine.fire(Operation::GetString, "status active", 0);
    QCOMPARE(changes.count(), 2);
    engine.setEnabled(0, false);
    QCOMPARE(changes.count(), 3);
    engine.setEnabled(0, false);
    QCOMPARE(changes.count(), 3);
    engine.setLinkDead(true);
    QCOMPARE(changes.count(), 4);
    engine.remove(0);
    QCOMPARE(changes.count(), 5);
    engine.clear();
    QCOMPARE(changes.count(), 6);
}

TRACKING_TEST_GUILESS_MAIN(tst_FaultEngine)
#include "tst_faultengine.moc"
