#include "WorkbenchOptions.h"
#include "testprogram.h"

#include <QtTest>

class tst_WorkbenchOptions : public QObject {
    Q_OBJECT

private slots:
    void defaults();
    void everyOption();
    void searchForTrouble();
    void equalsSign();
    void faultsAddUp();
    void rejected_data();
    void rejected();
    void helpNamesEveryOption();
};

namespace {

bool parse(const QStringList &arguments, WorkbenchOptions *options, QString *error)
{
    *options = WorkbenchOptions();
    return WorkbenchOptions::parse(arguments, options, error);
}

} // namespace

void tst_WorkbenchOptions::defaults()
{
    WorkbenchOptions options;
    QString error;
    QVERIFY2(parse({}, &options, &error), qPrintable(error));
    QCOMPARE(options.scenario, QStringLiteral("studio"));
    QVERIFY(!options.scenarioGiven);
    QVERIFY(!options.isScripted());
    QCOMPARE(options.latencyMs, 0);
    QCOMPARE(options.timeoutS, 120);
    QVERIFY(options.pluginFile.isEmpty());
}

void tst_WorkbenchOptions::everyOption()
{
    WorkbenchOptions options;
    QString error;
    QVERIFY2(parse({"--scenario", "locked", "--plugin", "p.so", "--script", "s", "--headless",
                    "--latency", "500", "--timeout", "7", "--record", "r", "--replay", "q",
                    "--help", "--version"},
                   &options, &error),
             qPrintable(error));
    QCOMPARE(options.scenario, QStringLiteral("locked"));
    QVERIFY(options.scenarioGiven);
    QCOMPARE(options.pluginFile, QStringLiteral("p.so"));
    QCOMPARE(options.scriptFile, QStringLiteral("s"));
    QVERIFY(options.headless);
    QVERIFY(options.isScripted());
    QCOMPARE(options.latencyMs, 500);
    QCOMPARE(options.timeoutS, 7);
    QCOMPARE(options.recordFile, QStringLiteral("r"));
    QCOMPARE(options.replayFile, QStringLiteral("q"));
    QVERIFY(options.help);
    QVERIFY(options.version);

    QVERIFY(parse({"--tour", "d"}, &options, &error));
    QCOMPARE(options.tourDir, QStringLiteral("d"));
    QVERIFY(options.isScripted());
    QVERIFY(parse({"--demo", "slow-link"}, &options, &error));
    QCOMPARE(options.demo, QStringLiteral("slow-link"));
    QVERIFY(!options.isScripted());
    QVERIFY(parse({"transcript-diff", "a", "b"}, &options, &error));
    QCOMPARE(options.transcriptDiff, QStringList({"a", "b"}));
    QVERIFY(parse({"--transcript-diff", "a", "b"}, &options, &error));
    QCOMPARE(options.transcriptDiff, QStringList({"a", "b"}));
}

void tst_WorkbenchOptions::searchForTrouble()
{
    WorkbenchOptions options;
    QString error;
    QVERIFY2(parse({"--sweep", "s", "--every", "10", "--from", "3", "--to", "9", "--faults",
                    "turns,fail,empty", "--junit", "j.xml", "--transcript-limit", "500"},
                   &options, &error),
             qPrintable(error));
    QCOMPARE(options.sweepFile, QStringLiteral("s"));
    QVERIFY(options.isScripted());
    QCOMPARE(options.sweepPlan.every, 10);
    QCOMPARE(options.sweepPlan.from, 3);
    QCOMPARE(options.sweepPlan.to, 9);
    QVERIFY(options.sweepPlan.inTurns);
    QCOMPARE(options.sweepPlan.faults.size(), 2);
    QCOMPARE(options.junitFile, QStringLiteral("j.xml"));
    QCOMPARE(options.transcriptLimit, 500);
    QVERIFY(parse({"--explore", "1-20", "--steps", "7", "--explore-into", "x"}, &options, &error));
    QCOMPARE(options.explore, QStringLiteral("1-20"));
    QCOMPARE(options.steps, 7);
    QCOMPARE(options.exploreInto, QStringLiteral("x"));
    QVERIFY(options.isScripted());
    QVERIFY(parse({"--scenario-check", "f"}, &options, &error));
    QVERIFY(options.needsNoWindow());
    QVERIFY(parse({"-h"}, &options, &error));
    QVERIFY(options.help);
    QVERIFY(parse({"-v"}, &options, &error));
    QVERIFY(options.version);
    QVERIFY(!options.help);
}

void tst_WorkbenchOptions::equalsSign()
{
    WorkbenchOptions options;
    QString error;
    QVERIFY(parse({"--scenario=a=b"}, &options, &error));
    QCOMPARE(options.scenario, QStringLiteral("a=b"));
}

void tst_WorkbenchOptions::faultsAddUp()
{
    WorkbenchOptions options;
    QString error;
    QVERIFY(parse({"--fault", "body* fail", "--fault", "* delay 5"}, &options, &error));
    QCOMPARE(options.faults, QStringList({"body* fail", "* delay 5"}));
}

/** Wrong options of sweeps and explorations. */
static void searchRows()
{
    QTest::newRow("every none") << QStringList{"--every", "0"}
                                << "--every: expected a whole number from 1, found \"0\"";
    QTest::newRow("unknown fault")
            << QStringList{"--faults", "bang"}
            << "--faults: expected all or some of " + SweepFaults::names().join(QLatin1Char(','))
                       + ", found \"bang\"";
    QTest::newRow("transcript limit")
            << QStringList{"--transcript-limit", "99"}
            << "--transcript-limit: expected a whole number of operations from 100 to 10000000, "
               "found \"99\"";
    QTest::newRow("lines of no search")
            << QStringList{"--explore-into", "f"} << "--explore-into: expected --explore beside it";
}

void tst_WorkbenchOptions::rejected_data()
{
    QTest::addColumn<QStringList>("arguments");
    QTest::addColumn<QString>("message");

    QTest::newRow("unknown") << QStringList{"--bogus"}
                             << "--bogus: expected an option; --help lists them";
    QTest::newRow("unknown letter")
            << QStringList{"-x"} << "-x: expected an option; --help lists them";
    QTest::newRow("long name with one dash")
            << QStringList{"-help"} << "-help: expected an option; --help lists them";
    QTest::newRow("no option") << QStringList{"studio"}
                               << "studio: expected an option; --help lists them";
    QTest::newRow("value missing") << QStringList{"--plugin"} << "--plugin: expected FILE";
    QTest::newRow("second value missing")
            << QStringList{"--transcript-diff", "a"} << "--transcript-diff: expected A B";
    QTest::newRow("value empty") << QStringList{"--tour", ""}
                                 << "--tour: expected a text that is not empty, found \"\"";
    QTest::newRow("value not wanted")
            << QStringList{"--headless=yes"} << "--headless: expected no value";
    QTest::newRow("latency no number")
            << QStringList{"--latency", "fast"}
            << "--latency: expected a whole number of ms from 0 to 500, found \"fast\"";
    QTest::newRow("latency too long")
            << QStringList{"--latency", "501"}
            << "--latency: expected a whole number of ms from 0 to 500, found \"501\"";
    QTest::newRow("latency negative")
            << QStringList{"--latency", "-1"}
            << "--latency: expected a whole number of ms from 0 to 500, found \"-1\"";
    QTest::newRow("timeout none") << QStringList{
            "--timeout",
            "0"} << "--timeout: expected a whole number of seconds from 1 to 3600, found \"0\"";
    QTest::newRow("timeout too long")
            << QStringList{"--timeout", "3601"}
            << "--timeout: expected a whole number of seconds from 1 to 3600, found \"3601\"";
    QTest::newRow("timeout no number")
            << QStringList{"--timeout", "long"}
            << "--timeout: expected a whole number of seconds from 1 to 3600, found \"long\"";
    QTest::newRow("headless alone") << QStringList{"--headless"}
                                    << "--headless: expected --script, --demo, --tour, --sweep or "
                                       "--explore beside it";
    QTest::newRow("two drivers") << QStringList{
            "--tour", "d", "--script",
            "s"} << "--tour, --script, --demo, --sweep, --explore: expected only one of them";
    searchRows();
}

void tst_WorkbenchOptions::rejected()
{
    QFETCH(QStringList, arguments);
    QFETCH(QString, message);
    WorkbenchOptions options;
    QString error;
    QVERIFY(!parse(arguments, &options, &error));
    QCOMPARE(error, message);
}

void tst_WorkbenchOptions::helpNamesEveryOption()
{
    const QString help = WorkbenchOptions::helpText();
    for (const char *option : {"--scenario NAME|FILE",
                               "--plugin FILE",
                               "--tour DIR",
                               "--script FILE",
                               "--demo NAME",
                               "--headless",
                               "--fault RULE",
                               "--latency MS",
                               "--timeout SECONDS",
                               "--record FILE",
                               "--replay FILE",
                               "--sweep SCRIPT",
                               "--every N",
                               "--from N",
                               "--to N",
                               "--faults LIST",
                               "--explore SEED",
                               "--steps N",
                               "--junit FILE",
                               "--scenario-check FILE",
                               "--transcript-limit N",
                               "--transcript-diff A B",
                               "--help",
                               "--version"})
        QVERIFY2(help.contains(QLatin1String(option)), option);
}

TRACKING_TEST_GUILESS_MAIN(tst_WorkbenchOptions)
#include "tst_workbenchoptions.moc"
