#include "dialogtest.h"
#include "filecontents.h"
#include "outcome.h"

#include <QFile>
#include <QProcess>
#include <QTemporaryDir>

/** Sweeps, random driving and their options, with the workbench as a process. */
class tst_Sweeps : public QObject {
    Q_OBJECT

private slots:
    void oneOperation();
    void scriptThatFailsUndisturbed();
    void sameSeedSameLines();
    void seedsThatAreNone();
    void resultsForBuildServers();
    void scenarioInFull();
    void scenarioThatIsNone();

private:
    Outcome run(const QStringList &arguments) const;
    QString file(const QString &name) const { return m_dir.filePath(name); }
    QByteArray read(const QString &name) const;
    QString write(const QString &name, const QByteArray &text) const;

    QTemporaryDir m_dir;
};

namespace {

const QString sweeps = QStringLiteral(TRACKING_SOURCE_DIR "/tests/workbench/sweeps/");

} // namespace

Outcome tst_Sweeps::run(const QStringList &arguments) const
{
    QProcess process;
    process.start(QStringLiteral(WORKBENCH_PROGRAM), QStringList{"--headless"} + arguments);
    return outcomeOf(process);
}

QByteArray tst_Sweeps::read(const QString &name) const
{
    return contents(file(name));
}

QString tst_Sweeps::write(const QString &name, const QByteArray &text) const
{
    QFile output(file(name));
    return output.open(QIODevice::WriteOnly) && output.write(text) == text.size() ? file(name)
                                                                                  : QString();
}

void tst_Sweeps::oneOperation()
{
    const Outcome outcome = run({"--sweep", sweeps + "pages.script", "--from", "40", "--to", "40",
                                 "--faults", "fail,empty,dead", "--junit", file("j.xml")});
    QVERIFY2(outcome.status == 0, qPrintable(outcome.out + outcome.err));
    QVERIFY2(outcome.out.contains(QStringLiteral(" 3 disturbed runs, 0 violations")),
             qPrintable(outcome.out));
    QVERIFY(read("j.xml").contains("tests=\"3\" failures=\"0\" skipped=\"0\""));
}

void tst_Sweeps::scriptThatFailsUndisturbed()
{
    const QString script = write("bad.script", "menu \"Body administration\"\nexpect no-window\n");
    const Outcome outcome = run({"--sweep", script});
    QCOMPARE(outcome.status, 2);
    QVERIFY2(outcome.err.startsWith(
                     QStringLiteral("workbench: --sweep: expected the script to succeed "
                                    "undisturbed: ")
                     + script + QStringLiteral(":2: expected no open window, ")),
             qPrintable(outcome.err));
}

void tst_Sweeps::sameSeedSameLines()
{
    for (const char *name : {"a.script", "b.script"}) {
        const Outcome outcome =
                run({"--explore", "7", "--steps", "60", "--explore-into", file(name)});
        QVERIFY2(outcome.status == 0, qPrintable(outcome.err));
    }
    QVERIFY(read("a.script").count('\n') > 60);
    QCOMPARE(read("a.script"), read("b.script"));
}

void tst_Sweeps::seedsThatAreNone()
{
    for (const char *seeds : {"x", "5-3", "1-", "-2"}) {
        const Outcome outcome = run({"--explore", seeds});
        QCOMPARE(outcome.status, 2);
        QVERIFY2(outcome.err.startsWith(QStringLiteral("workbench: --explore: expected a seed ")),
                 qPrintable(outcome.err));
    }
}

void tst_Sweeps::resultsForBuildServers()
{
    const QString script = write("s.script", "menu \"Body administration\"\n"
                                             "expect text spinBox_standard_bodies 7\n"
                                             "click pushButton_exit\n");
    const Outcome outcome = run({"--script", script, "--junit", file("s.xml")});
    QCOMPARE(outcome.status, 1);
    const QByteArray xml = read("s.xml");
    QVERIFY2(xml.contains("tests=\"3\" failures=\"1\" skipped=\"1\""), xml.constData());
    QVERIFY2(xml.contains("name=\"line 2: expect text spinBox_standard_bodies 7\""),
             xml.constData());
    QVERIFY2(xml.contains("s.script:2: expected spinBox_standard_bodies &quot;7&quot;"),
             xml.constData());
    const Outcome unwritable = run({"--script", script, "--junit", "/no/such/folder/s.xml"});
    QCOMPARE(unwritable.status, 2);
    QVERIFY2(unwritable.err.contains(QStringLiteral("--junit /no/such/folder/s.xml: ")),
             qPrintable(unwritable.err));
}

void tst_Sweeps::scenarioInFull()
{
    const QString given = write("own.json", "{\"name\": \"Own\", \"state\": {\"model\": \"M\"}}");
    QProcess process;
    process.start(QStringLiteral(WORKBENCH_PROGRAM), {"--scenario-check", given});
    QVERIFY(process.waitForFinished(patienceMs));
    QCOMPARE(process.exitCode(), 0);
    const QByteArray full = process.readAllStandardOutput();
    QVERIFY2(full.contains("\"configChangeable\": true"), full.constData());
    // The output is a scenario, and printing that scenario gives the same output.
    process.start(QStringLiteral(WORKBENCH_PROGRAM),
                  {"--scenario-check", write("full.json", full)});
    QVERIFY(process.waitForFinished(patienceMs));
    QCOMPARE(process.readAllStandardOutput(), full);
}

void tst_Sweeps::scenarioThatIsNone()
{
    const QString given = write("bad.json", "{\"state\": {\"trackingReference\": \"here\"}}");
    QProcess process;
    process.start(QStringLiteral(WORKBENCH_PROGRAM), {"--scenario-check", given});
    QVERIFY(process.waitForFinished(patienceMs));
    QCOMPARE(process.exitCode(), 2);
    const QString error = QString::fromUtf8(process.readAllStandardError());
    QVERIFY2(error.contains(QStringLiteral("bad.json: state.trackingReference: expected ")),
             qPrintable(error));
}

TRACKING_TEST_MAIN(tst_Sweeps)
#include "tst_sweeps.moc"
