#include "dialogtest.h"
#include "targetlibrary.h"
#include "targets/target.h"
#include "targets/targetassignment.h"

namespace {

/** A host, its library and the assignment that uses both, with an empty transcript. */
class Bench {
public:
    explicit Bench(const ControllerState &state = TestHost::scenario(QStringLiteral("studio")))
        : host(state),
          library(&host.io, &host.versions),
          assignment(ControllerLink(&host.io, &host.versions), &library)
    {
        host.clear();
    }

    TestHost host;
    Targetlibrary library;
    TargetAssignment assignment;
};

QStringList namesAsked(const QVector<int> &numbers)
{
    QStringList lines;
    for (int number : numbers) {
        lines << QStringLiteral("body targetlib_name standard b%1")
                         .arg(number, 2, 10, QLatin1Char('0'));
    }
    return lines;
}

} // namespace

/** Assigning library targets to bodies and reading their states. */
class tst_TargetAssignment : public DialogTest {
    Q_OBJECT

private slots:
    void assigns_data();
    void assigns();
    void freesTheHolder();
    void leavesTheReceiverAlone();
    void freesEveryHolder();
    void freesNothing_data();
    void freesNothing();
    void goesOnAfterFailures_data();
    void goesOnAfterFailures();
    void tellsTheTargetOfABody_data();
    void tellsTheTargetOfABody();
    void refreshesUse_data();
    void refreshesUse();
    void refreshesOnlyKnownTargets();
    void refreshesTracking_data();
    void refreshesTracking();
    void readsCustomCalibrations();
    void readsCustomStates_data();
    void readsCustomStates();
    void waitsWhileACalibrationRuns_data();
    void waitsWhileACalibrationRuns();
};

void tst_TargetAssignment::assigns_data()
{
    QTest::addColumn<QString>("effect");
    QTest::addColumn<bool>("assigned");
    QTest::newRow("accepted") << "delay 0" << true;
    QTest::newRow("failed") << "fail" << false;
    QTest::newRow("refused") << "refuse" << false;
    QTest::newRow("trailing blank") << "answer \"morvek2 ok \"" << false;
    QTest::newRow("garbled") << "garbled" << false;
}

void tst_TargetAssignment::assigns()
{
    QFETCH(QString, effect);
    QFETCH(bool, assigned);
    Bench bench;
    bench.host.fault(QStringLiteral("morvek2 body* ") + effect);
    QCOMPARE(bench.assignment.assign("t01", "standard", 7), assigned);
    QCOMPARE(bench.host.lines(),
             QStringList{"morvek2 body calibrate_from_targetlib standard b08 t01"});
    QCOMPARE(bench.host.log(),
             assigned ? QStringList()
                      : QStringList{"Error: Unable to calibrate body from target library"});
    if (assigned)
        QCOMPARE(bench.host.state().bodyTypes["standard"].bodies[7].target, QString("CR01"));
}

void tst_TargetAssignment::freesTheHolder()
{
    Bench bench;
    // Body 2 holds the target, and body 1 will receive it.
    bench.assignment.freeElsewhere("GL01", "standard", 0, 8);
    QStringList lines = namesAsked({2, 3, 4, 5, 6, 7, 8});
    lines.insert(1, "body number_of_marker standard b02 0");
    lines.insert(2, "body desc standard b02 \"\"");
    QCOMPARE(bench.host.lines(), lines);
    QCOMPARE(bench.host.log(), QStringList());
    const BodyState &freed = bench.host.state().bodyTypes["standard"].bodies[1];
    QVERIFY(!freed.calibrated);
    QCOMPARE(freed.description, QString());
    QCOMPARE(freed.target, QString());
    QVERIFY(bench.assignment.assign("t06", "standard", 0));
}

void tst_TargetAssignment::leavesTheReceiverAlone()
{
    Bench bench;
    bench.assignment.freeElsewhere("GL01", "standard", 1, 8);
    QCOMPARE(bench.host.lines(), namesAsked({1, 3, 4, 5, 6, 7, 8}));
    QCOMPARE(bench.host.state().bodyTypes["standard"].bodies[1].description,
             QStringLiteral("Glasses round"));
}

void tst_TargetAssignment::freesEveryHolder()
{
    Bench bench;
    bench.host.fault(QStringLiteral("body targetlib_name* answer \"GL01\""));
    bench.assignment.freeElsewhere("GL01", "standard", 1, 3);
    QCOMPARE(bench.host.writes(),
             QStringList({"body number_of_marker standard b01 0", "body desc standard b01 \"\"",
                          "body number_of_marker standard b03 0", "body desc standard b03 \"\""}));
}

void tst_TargetAssignment::freesNothing_data()
{
    QTest::addColumn<QString>("target");
    QTest::addColumn<QString>("answer");
    QTest::newRow("nobody holds it") << "CR01"
                                     << "GL01";
    QTest::newRow("a target named none") << "none"
                                         << "none";
    QTest::newRow("a target without name") << ""
                                           << "";
    QTest::newRow("name in other letters") << "GL01"
                                           << "gl01";
    QTest::newRow("name goes on") << "GL01"
                                  << "GL012";
    QTest::newRow("identifier is no name") << "GL01"
                                           << "t06";
}

void tst_TargetAssignment::freesNothing()
{
    QFETCH(QString, target);
    QFETCH(QString, answer);
    Bench bench;
    bench.host.fault(QStringLiteral("body targetlib_name* answer \"%1\"").arg(answer));
    bench.assignment.freeElsewhere(target, "standard", 0, 3);
    QCOMPARE(bench.host.lines(), namesAsked({2, 3}));
    QCOMPARE(bench.host.log(), QStringList());
}

void tst_TargetAssignment::goesOnAfterFailures_data()
{
    QTest::addColumn<QStringList>("rules");
    QTest::addColumn<QStringList>("log");
    QTest::addColumn<QStringList>("lines");
    const QString unreadable = QStringLiteral("Unable to get info targetlib ID of body");
    const QString markers = QStringLiteral("Unable to reset markers of target standard 02");
    // The second word is repeated on purpose.
    const QString name = QStringLiteral("Unable to reset description of target standard standard");
    QStringList all = namesAsked({1, 2, 3});
    all.insert(2, "body number_of_marker standard b02 0");
    all.insert(3, "body desc standard b02 \"\"");
    QTest::newRow("name of the holder") << QStringList{"body targetlib_name standard b02 fail"}
                                        << QStringList{unreadable} << namesAsked({1, 2, 3});
    QTest::newRow("name of a body before the holder")
            << QStringList{"body targetlib_name standard b01 fail"} << QStringList{unreadable}
            << all;
    QTest::newRow("markers") << QStringList{"set body number_of_marker* refuse"}
                             << QStringList{markers} << all;
    QTest::newRow("description") << QStringList{"set body desc* refuse"} << QStringList{name}
                                 << all;
    QTest::newRow("both writes") << QStringList{"set body* refuse"} << QStringList({markers, name})
                                 << all;
}

void tst_TargetAssignment::goesOnAfterFailures()
{
    QFETCH(QStringList, rules);
    Bench bench;
    for (const QString &rule : rules)
        bench.host.fault(rule);
    bench.assignment.freeElsewhere("GL01", "standard", 3, 3);
    QTEST(bench.host.lines(), "lines");
    QTEST(bench.host.log(), "log");
}

void tst_TargetAssignment::tellsTheTargetOfABody_data()
{
    QTest::addColumn<int>("index");
    QTest::addColumn<QString>("effect");
    QTest::addColumn<QString>("target");
    QTest::addColumn<QStringList>("log");
    QTest::newRow("held") << 1 << "delay 0"
                          << "GL01" << QStringList();
    QTest::newRow("none") << 0 << "delay 0"
                          << "none" << QStringList();
    QTest::newRow("failed") << 1 << "fail"
                            << "" << QStringList{"Unable to get info targetlib ID of body"};
}

void tst_TargetAssignment::tellsTheTargetOfABody()
{
    QFETCH(int, index);
    QFETCH(QString, effect);
    Bench bench;
    bench.host.fault(QStringLiteral("body targetlib_name* ") + effect);
    QTEST(bench.assignment.targetOfBody("standard", index), "target");
    QCOMPARE(bench.host.lines(), namesAsked({index + 1}));
    QTEST(bench.host.log(), "log");
}

void tst_TargetAssignment::refreshesUse_data()
{
    QTest::addColumn<QString>("effect");
    QTest::addColumn<bool>("before");
    QTest::addColumn<bool>("used");
    QTest::addColumn<QStringList>("log");
    const QStringList failed{"Error: Unable to get calibration state of target t01"};
    QTest::newRow("none") << "answer \"none\"" << true << false << QStringList();
    QTest::newRow("a body") << "answer \"standard b02\"" << false << true << QStringList();
    QTest::newRow("anything else") << "answer \"no\"" << false << true << QStringList();
    QTest::newRow("failed, was used") << "fail" << true << true << failed;
    QTest::newRow("failed, was free") << "fail" << false << false << failed;
}

void tst_TargetAssignment::refreshesUse()
{
    QFETCH(QString, effect);
    QFETCH(bool, before);
    Bench bench;
    bench.library.target("t01")->setCalibrated(before);
    bench.host.fault(QStringLiteral("targetlib target_status_calibrated t01 ") + effect);
    bench.assignment.refreshUsed(QStringLiteral("t01"));
    QTEST(bench.library.target("t01")->isCalibrated(), "used");
    QCOMPARE(bench.host.lines(), QStringList{"targetlib target_status_calibrated t01"});
    QTEST(bench.host.log(), "log");
}

void tst_TargetAssignment::refreshesOnlyKnownTargets()
{
    Bench bench;
    bench.host.fault(QStringLiteral("targetlib target_status_calibrated t06 fail"));
    bench.assignment.refreshUsed(QStringList({"t06", "", "t99", "none", "t02"}));
    QCOMPARE(bench.host.lines(), QStringList({"targetlib target_status_calibrated t06",
                                              "targetlib target_status_calibrated t02"}));
    QCOMPARE(bench.host.log(), QStringList{"Error: Unable to get calibration state of target t06"});
}

void tst_TargetAssignment::refreshesTracking_data()
{
    QTest::addColumn<QString>("effect");
    QTest::addColumn<bool>("before");
    QTest::addColumn<bool>("tracked");
    QTest::addColumn<QStringList>("log");
    QTest::newRow("yes") << "answer \"yes\"" << false << true << QStringList();
    QTest::newRow("begins with ye") << "answer \"yeah\"" << false << true << QStringList();
    QTest::newRow("y alone") << "answer \"y\"" << true << false << QStringList();
    QTest::newRow("capital") << "answer \"Yes\"" << true << false << QStringList();
    QTest::newRow("no") << "answer \"no\"" << true << false << QStringList();
    QTest::newRow("empty") << "empty" << true << false << QStringList();
    QTest::newRow("failed") << "fail" << true << false
                            << QStringList{"Error: Unable to get tracked state of target t01"};
}

void tst_TargetAssignment::refreshesTracking()
{
    QFETCH(QString, effect);
    QFETCH(bool, before);
    Bench bench;
    Target *target = bench.library.target("t01");
    target->setIsTracked(before);
    bench.host.fault(QStringLiteral("targetlib target_status_tracked t01 ") + effect);
    bench.assignment.refreshTracked(target);
    QTEST(target->isTracked(), "tracked");
    QCOMPARE(bench.host.lines(), QStringList{"targetlib target_status_tracked t01"});
    QTEST(bench.host.log(), "log");
}

void tst_TargetAssignment::readsCustomCalibrations()
{
    Bench bench;
    // Body 2 was calibrated again after it got the geometry of target 6.
    QSet<QString> custom{"t01", "t05"};
    QVERIFY(bench.assignment.readCustom({"t01", "t06", "t03"}, &custom));
    QCOMPARE(bench.host.lines(),
             QStringList({"status active", "morvek2 targetlib check_custom_calibration",
                          "targetlib target_status_calibrated_custom t01",
                          "targetlib target_status_calibrated_custom t06",
                          "targetlib target_status_calibrated_custom t03"}));
    // A target that is not in the list keeps its mark.
    QCOMPARE(custom, QSet<QString>({"t05", "t06"}));
    QCOMPARE(bench.host.log(), QStringList());
}

void tst_TargetAssignment::readsCustomStates_data()
{
    QTest::addColumn<QString>("rule");
    QTest::addColumn<bool>("custom");
    QTest::addColumn<QStringList>("log");
    const QString state = QStringLiteral("targetlib target_status_calibrated_custom* ");
    QTest::newRow("yes") << state + "answer \"yes\"" << true << QStringList();
    QTest::newRow("a body") << state + "answer \"standard b02\"" << true << QStringList();
    QTest::newRow("no") << state + "answer \"no\"" << false << QStringList();
    QTest::newRow("none") << state + "answer \"none\"" << false << QStringList();
    QTest::newRow("failed")
            << state + "fail" << false
            << QStringList{"Error: Unable to get custom calibration state of target t06"};
    QTest::newRow("check fails") << "morvek2 targetlib* fail" << false
                                 << QStringList{"Error: Unable to check custom calibrations of "
                                                "targets"};
}

void tst_TargetAssignment::readsCustomStates()
{
    QFETCH(QString, rule);
    Bench bench;
    bench.host.fault(rule);
    QSet<QString> custom{"t06"};
    QVERIFY(bench.assignment.readCustom({"t06"}, &custom));
    QTEST(custom.contains("t06"), "custom");
    QTEST(bench.host.log(), "log");
}

void tst_TargetAssignment::waitsWhileACalibrationRuns_data()
{
    QTest::addColumn<QString>("effect");
    QTest::newRow("search") << "answer \"targetlib\"";
    QTest::newRow("err is not none") << "answer \"err\"";
    QTest::newRow("failed") << "fail";
}

void tst_TargetAssignment::waitsWhileACalibrationRuns()
{
    QFETCH(QString, effect);
    Bench bench;
    bench.host.fault(QStringLiteral("status active ") + effect);
    QSet<QString> custom{"t05"};
    QVERIFY(!bench.assignment.readCustom({"t05", "t06"}, &custom));
    QCOMPARE(custom, QSet<QString>{"t05"});
    QCOMPARE(bench.host.lines(), QStringList{"status active"});
    const QString failed = "Error: Unable to get state of calibration";
    QCOMPARE(bench.host.log(), effect == "fail" ? QStringList(failed) : QStringList());
}

TRACKING_TEST_MAIN(tst_TargetAssignment)
#include "tst_targetassignment.moc"
