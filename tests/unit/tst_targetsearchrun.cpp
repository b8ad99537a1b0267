#include "dialogtest.h"
#include "targetlibrary.h"
#include "targets/targetsearchrun.h"

#include <algorithm>

namespace {

using Step = TargetSearchRun::Step;

const char *const unavailable = "Error: Unable to start target library calibration. Calibration "
                                "type is not available";
const char *const alreadyActive = "Error: Unable to start target library calibration. Calibration "
                                  "is already active.";
const char *const failedToStart = "Error: Unable to start target library calibration";
const char *const started = "target library calibration started";

} // namespace

Q_DECLARE_METATYPE(Step)

/** The search for library targets, as the controller runs it. */
class tst_TargetSearchRun : public DialogTest {
    Q_OBJECT

private slots:
    void asksWhetherItCanStart_data();
    void asksWhetherItCanStart();
    void starts_data();
    void starts();
    void failsToStart_data();
    void failsToStart();
    void polls_data();
    void polls();
    void readsProgress_data();
    void readsProgress();
    void runsToItsEnd();
    void runsAgainAfterItsEnd();
    void cancels_data();
    void cancels();
    void countsTracked_data();
    void countsTracked();
    void countsNothingInAnEmptyLibrary();
};

void tst_TargetSearchRun::asksWhetherItCanStart_data()
{
    QTest::addColumn<QStringList>("rules");
    QTest::addColumn<bool>("can");
    QTest::addColumn<QStringList>("log");
    QTest::addColumn<int>("queries");
    const auto row = [](const char *name, const QString &rule, const char *line, int queries) {
        QTest::newRow(name) << QStringList{rule} << !line
                            << (line ? QStringList{line} : QStringList()) << queries;
    };
    QTest::newRow("idle") << QStringList() << true << QStringList() << 2;
    row("not available", "cal available targetlib answer \"no\"", unavailable, 1);
    row("availability fails", "cal available targetlib fail", unavailable, 1);
    row("availability is not exactly yes", "cal available targetlib answer \"yes \"", unavailable,
        1);
    row("availability in capitals", "cal available targetlib answer \"YES\"", unavailable, 1);
    row("availability is empty", "cal available targetlib empty", unavailable, 1);
    row("state fails", "status active fail", failedToStart, 2);
    row("state is none", "status active answer \"none\"", nullptr, 2);
    row("state is err", "status active answer \"err\"", nullptr, 2);
    row("another calibration", "status active answer \"room\"", alreadyActive, 2);
    row("state begins with none", "status active answer \"none yet\"", alreadyActive, 2);
    row("state begins with err", "status active answer \"error\"", alreadyActive, 2);
    row("state is empty", "status active empty", alreadyActive, 2);
}

void tst_TargetSearchRun::asksWhetherItCanStart()
{
    QFETCH(QStringList, rules);
    QFETCH(int, queries);
    TestHost host;
    for (const QString &rule : rules)
        host.fault(rule);
    const TargetSearchRun run(ControllerLink(&host.io, &host.versions));
    QTEST(run.canStart(), "can");
    QTEST(host.log(), "log");
    QCOMPARE(host.lines(),
             QStringList({"cal available targetlib", "status active"}).mid(0, queries));
    QVERIFY(!run.isRunning());
}

void tst_TargetSearchRun::starts_data()
{
    QTest::addColumn<QStringList>("inUse");
    QTest::addColumn<QStringList>("log");
    QTest::newRow("nothing in use") << QStringList() << QStringList{started};
    QTest::newRow("two in use, in their order")
            << QStringList({"GL01", "CR03"})
            << QStringList({started, "GL01 already calibrated", "CR03 already calibrated"});
    QTest::newRow("place marker in a name")
            << QStringList{"%1"} << QStringList({started, "%1 already calibrated"});
}

void tst_TargetSearchRun::starts()
{
    QFETCH(QStringList, inUse);
    TestHost host;
    TargetSearchRun run(ControllerLink(&host.io, &host.versions));
    QVERIFY(run.start(inUse));
    QVERIFY(run.isRunning());
    QVERIFY(host.state().search.active);
    QCOMPARE(host.lines(), QStringList{"morvek2 cal targetlib start"});
    QTEST(host.log(), "log");
}

void tst_TargetSearchRun::failsToStart_data()
{
    QTest::addColumn<QString>("effect");
    QTest::newRow("failed") << "fail";
    QTest::newRow("refused") << "refuse";
    QTest::newRow("trailing blank") << "answer \"morvek2 ok \"";
    QTest::newRow("further letters") << "answer \"morvek2 okay\"";
    QTest::newRow("error") << "answer \"morvek2 err\"";
    QTest::newRow("empty") << "empty";
    QTest::newRow("garbled") << "garbled";
}

void tst_TargetSearchRun::failsToStart()
{
    QFETCH(QString, effect);
    TestHost host;
    host.fault(QStringLiteral("morvek2 cal targetlib start ") + effect);
    TargetSearchRun run(ControllerLink(&host.io, &host.versions));
    QVERIFY(!run.start({"GL01"}));
    QVERIFY(!run.isRunning());
    QCOMPARE(host.lines(), QStringList{"morvek2 cal targetlib start"});
    QCOMPARE(host.log(), QStringList{failedToStart});
}

void tst_TargetSearchRun::polls_data()
{
    QTest::addColumn<QString>("effect");
    QTest::addColumn<Step>("step");
    QTest::addColumn<QStringList>("log");
    const QStringList ended{"target library calibration stopped"};
    QTest::newRow("cal") << "answer \"cal\"" << Step::Searching << QStringList();
    QTest::newRow("goes on after cal") << "answer \"calXYZ\"" << Step::Searching << QStringList();
    QTest::newRow("none") << "answer \"none\"" << Step::Ended << ended;
    QTest::newRow("two letters") << "answer \"ca\"" << Step::Ended << ended;
    QTest::newRow("capital") << "answer \"Cal\"" << Step::Ended << ended;
    QTest::newRow("blank first") << "answer \" cal\"" << Step::Ended << ended;
    QTest::newRow("empty") << "empty" << Step::Ended << ended;
    QTest::newRow("failed") << "fail" << Step::Aborted
                            << QStringList{"Error during target library calibration. Calibration "
                                           "aborted"};
}

void tst_TargetSearchRun::polls()
{
    QFETCH(QString, effect);
    QFETCH(Step, step);
    TestHost host;
    TargetSearchRun run(ControllerLink(&host.io, &host.versions));
    QVERIFY(run.start({}));
    host.clear();
    host.fault(QStringLiteral("status step_active ") + effect);
    const TargetSearchRun::Poll result = run.poll();
    const bool searching = step == Step::Searching;
    QVERIFY(result.step == step);
    QCOMPARE(result.percent.has_value(), searching);
    QCOMPARE(run.isRunning(), searching);
    QCOMPARE(host.lines(),
             QStringList({"status step_active", "status progress"}).mid(0, searching ? 2 : 1));
    QTEST(host.log(), "log");
}

void tst_TargetSearchRun::readsProgress_data()
{
    QTest::addColumn<QString>("effect");
    QTest::addColumn<int>("percent"); // -1 for none
    QTest::newRow("begin") << "answer \"0.0\"" << 0;
    QTest::newRow("truncated") << "answer \"0.999\"" << 99;
    QTest::newRow("nearly one") << "answer \"0.999999995\"" << 99;
    QTest::newRow("below one") << "answer \"0.0099\"" << 0;
    QTest::newRow("decimal value") << "answer \"0.29\"" << 29;
    QTest::newRow("half") << "answer \"0.5\"" << 50;
    QTest::newRow("end") << "answer \"1.0\"" << 100;
    QTest::newRow("beyond the end") << "answer \"1e30\"" << 100;
    QTest::newRow("negative") << "answer \"-0.5\"" << 0;
    QTest::newRow("failed") << "fail" << -1;
    QTest::newRow("no number") << "wrong-type" << -1;
    QTest::newRow("decimal comma") << "answer \"0,5\"" << -1;
}

void tst_TargetSearchRun::readsProgress()
{
    QFETCH(QString, effect);
    TestHost host;
    TargetSearchRun run(ControllerLink(&host.io, &host.versions));
    QVERIFY(run.start({}));
    host.clear();
    host.fault(QStringLiteral("status progress ") + effect);
    const TargetSearchRun::Poll result = run.poll();
    QVERIFY(result.step == Step::Searching);
    QTEST(result.percent.value_or(-1), "percent");
    QVERIFY(run.isRunning());
    const QString lost = "Error: Unable to get progress of target library calibration";
    QCOMPARE(host.log(), result.percent ? QStringList() : QStringList(lost));
}

void tst_TargetSearchRun::runsToItsEnd()
{
    ControllerState state = TestHost::scenario(QStringLiteral("studio"));
    state.search.durationTicks = 4;
    TestHost host(state);
    TargetSearchRun run(ControllerLink(&host.io, &host.versions));
    QVERIFY(run.canStart());
    QVERIFY(run.start({"GL01"}));
    QVERIFY(!run.canStart());
    QVector<int> percents;
    TargetSearchRun::Poll result = run.poll();
    for (; result.step == Step::Searching && percents.size() < 10; result = run.poll())
        percents << result.percent.value_or(-1);
    QVERIFY(result.step == Step::Ended);
    QVERIFY(!run.isRunning());
    QVERIFY(!host.state().search.active);
    QVERIFY2(percents.size() >= 3, "the search ended at once");
    QVERIFY(std::is_sorted(percents.cbegin(), percents.cend()));
    QCOMPARE(host.log(), QStringList({started, "GL01 already calibrated", alreadyActive,
                                      "target library calibration stopped"}));
    const Targetlibrary library(&host.io, &host.versions);
    QVERIFY(run.countTracked(library, "standard") > 0);
}

void tst_TargetSearchRun::runsAgainAfterItsEnd()
{
    TestHost host;
    TargetSearchRun run(ControllerLink(&host.io, &host.versions));
    QVERIFY(run.start({}));
    host.fault(QStringLiteral("status step_active call 1 fail"));
    QVERIFY(run.poll().step == Step::Aborted);
    run.cancel();
    QVERIFY(run.canStart());
    QVERIFY(run.start({}));
    QVERIFY(run.poll().step == Step::Searching);
    QVERIFY(run.isRunning());
}

void tst_TargetSearchRun::cancels_data()
{
    QTest::addColumn<QString>("effect");
    QTest::newRow("accepted") << "delay 0";
    QTest::newRow("refused") << "refuse";
    QTest::newRow("failed") << "fail";
    QTest::newRow("another answer") << "answer \"whatever\"";
}

void tst_TargetSearchRun::cancels()
{
    QFETCH(QString, effect);
    TestHost host;
    host.fault(QStringLiteral("morvek2 cal targetlib stop ") + effect);
    TargetSearchRun run(ControllerLink(&host.io, &host.versions));
    QVERIFY(run.start({}));
    host.clear();
    run.cancel();
    QVERIFY(!run.isRunning());
    QCOMPARE(host.lines(), QStringList{"morvek2 cal targetlib stop"});
    QCOMPARE(host.log(), QStringList{"target library calibration cancelled"});
}

void tst_TargetSearchRun::countsTracked_data()
{
    QTest::addColumn<QString>("type");
    QTest::addColumn<QString>("rule");
    QTest::addColumn<int>("count");
    QTest::addColumn<QStringList>("asked");
    const QStringList joywands({"t15", "t16", "t17"});
    QTest::newRow("all") << "joywand"
                         << "targetlib target_status_tracked* answer \"yes\"" << 3 << joywands;
    QTest::newRow("none") << "joywand"
                          << "targetlib target_status_tracked* answer \"no\"" << 0 << joywands;
    QTest::newRow("exactly yes") << "joywand"
                                 << "targetlib target_status_tracked* answer \"yes!\"" << 0
                                 << joywands;
    QTest::newRow("one fails") << "joywand"
                               << "targetlib target_status_tracked t16 fail" << 0 << joywands;
    QTest::newRow("only one") << "joywand"
                              << "targetlib target_status_tracked t17 answer \"yes\"" << 1
                              << joywands;
    QTest::newRow("tools and references") << "measurementtool"
                                          << "targetlib target_status_tracked* answer \"yes\"" << 4
                                          << QStringList({"t21", "t22", "t23", "t24"});
    QTest::newRow("unknown type") << "nothing"
                                  << "* delay 0" << 0 << QStringList();
}

void tst_TargetSearchRun::countsTracked()
{
    QFETCH(QString, type);
    QFETCH(QString, rule);
    QFETCH(QStringList, asked);
    TestHost host;
    const Targetlibrary library(&host.io, &host.versions);
    host.clear();
    host.fault(rule);
    const TargetSearchRun run(ControllerLink(&host.io, &host.versions));
    QTEST(run.countTracked(library, type), "count");
    QStringList lines;
    for (const QString &tid : qAsConst(asked))
        lines << "targetlib target_status_tracked " + tid;
    QCOMPARE(host.lines(), lines);
    const QString lost = QStringLiteral("Error: Unable to get tracked state of target t16");
    QCOMPARE(host.log(), rule.endsWith(QLatin1String("fail")) ? QStringList(lost) : QStringList());
}

void tst_TargetSearchRun::countsNothingInAnEmptyLibrary()
{
    TestHost host;
    host.fault(QStringLiteral("targetlib number_of_targets answer \"0\""));
    const Targetlibrary library(&host.io, &host.versions);
    host.clear();
    const TargetSearchRun run(ControllerLink(&host.io, &host.versions));
    QCOMPARE(run.countTracked(library, "standard"), 0);
    QCOMPARE(host.lines(), QStringList());
}

TRACKING_TEST_MAIN(tst_TargetSearchRun)
#include "tst_targetsearchrun.moc"
