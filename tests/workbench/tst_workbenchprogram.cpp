#include "Recording.h"
#include "ScenarioLocator.h"
#include "filecontents.h"
#include "outcome.h"
#include "testprogram.h"

#include <QDir>
#include <QFile>
#include <QProcess>
#include <QTemporaryDir>
#include <QtTest>

#include <memory>

/** Runs the workbench as a program. */
class tst_WorkbenchProgram : public QObject {
    Q_OBJECT

private slots:
    void init();
    void helpAndVersion();
    void unusableInput_data();
    void unusableInput();
    void noDisplay();
    void deadDisplay();
    void tour();
    void tourIsTheSameTwice();
    void walks_data();
    void walks();
    void demonstrations_data();
    void demonstrations();
    void pluginBesideTheCaller();
    void failingScript();
    void scriptThatHangs();
    void faultsFromTheCommandLine();
    void recordAndReplay();
    void recordings_data();
    void recordings();
    void replayThatDiffers();
    void transcriptDiff();
    void preferencesOfTheUserAreLeftAlone();

private:
    Outcome run(const QStringList &arguments, bool offscreen = true) const;
    /** Writes a file into the test's folder and returns its path. */
    QString write(const QString &name, const QByteArray &text) const;
    QByteArray read(const QString &file) const;

    /** The folder with the results of the tour, which is played once for all tests. */
    QDir playedTour();

    std::unique_ptr<QTemporaryDir> m_dir;
    std::unique_ptr<QTemporaryDir> m_tourDir;
    Outcome m_tour;
};

namespace {

const char *const renameScript = "menu \"Body administration\"\n"
                                 "type tableWidget_standard 1 Name Hat\n"
                                 "click pushButton_exit\n";

} // namespace

void tst_WorkbenchProgram::init()
{
    m_dir = std::make_unique<QTemporaryDir>();
}

Outcome tst_WorkbenchProgram::run(const QStringList &arguments, bool offscreen) const
{
    QProcess process;
    QProcessEnvironment environment = QProcessEnvironment::systemEnvironment();
    environment.remove(QStringLiteral("DISPLAY"));
    environment.remove(QStringLiteral("WAYLAND_DISPLAY"));
    environment.remove(QStringLiteral("QT_QPA_PLATFORM"));
    if (offscreen)
        environment.insert(QStringLiteral("QT_QPA_PLATFORM"), QStringLiteral("offscreen"));
    environment.insert(QStringLiteral("HOME"), m_dir->path());
    process.setProcessEnvironment(environment);
    process.setWorkingDirectory(m_dir->path());
    process.start(QStringLiteral(WORKBENCH_PROGRAM), arguments);
    return outcomeOf(process);
}

QString tst_WorkbenchProgram::write(const QString &name, const QByteArray &text) const
{
    QFile file(m_dir->filePath(name));
    return file.open(QIODevice::WriteOnly) && file.write(text) == text.size() ? file.fileName()
                                                                              : QString();
}

QByteArray tst_WorkbenchProgram::read(const QString &file) const
{
    return contents(QDir(m_dir->path()).filePath(file));
}

void tst_WorkbenchProgram::helpAndVersion()
{
    const Outcome help = run({"--help"}, false);
    QCOMPARE(help.status, 0);
    QVERIFY(help.out.startsWith(QStringLiteral("Usage: workbench")));
    QCOMPARE(help.err, QString());
    const Outcome version = run({"--version"}, false);
    QCOMPARE(version.status, 0);
    QVERIFY(QRegularExpression(QStringLiteral("^workbench \\d+\\.\\d+\\.\\d+\n$"))
                    .match(version.out)
                    .hasMatch());
}

void tst_WorkbenchProgram::unusableInput_data()
{
    QTest::addColumn<QStringList>("arguments");
    QTest::addColumn<QString>("message");

    const QStringList script = {"--headless", "--script", "empty.script"};
    QTest::newRow("option") << QStringList{"--bogus"}
                            << "workbench: --bogus: expected an option; --help lists them";
    QTest::newRow("scenario name") << script + QStringList{"--scenario", "nowhere"}
                                   << "workbench: --scenario: expected a file or one of ";
    QTest::newRow("scenario syntax")
            << script + QStringList{"--scenario", "syntax.json"} << "workbench: syntax.json";
    QTest::newRow("scenario value") << script + QStringList{"--scenario", "value.json"}
                                    << "workbench: value.json: state.protocol: expected ";
    QTest::newRow("fault") << script + QStringList{"--fault", "* explode"}
                           << "workbench: --fault \"* explode\": column ";
    QTest::newRow("plug-in missing") << script + QStringList{"--plugin", "nothing.so"}
                                     << "workbench: nothing.so: the plug-in file does not exist";
    QTest::newRow("plug-in is a text") << script + QStringList{"--plugin", "empty.script"}
                                       << "workbench: empty.script: expected a Qt plug-in";
    QTest::newRow("plug-in is another module")
            << script + QStringList{"--plugin", OTHER_MODULE_PLUGIN}
            << "workbench: " OTHER_MODULE_PLUGIN ": expected the plug-in identifier \"";
    QTest::newRow("plug-in has another interface")
            << script + QStringList{"--plugin", OTHER_INTERFACE_PLUGIN}
            << "workbench: " OTHER_INTERFACE_PLUGIN ": expected the interface \"";
    QTest::newRow("script missing") << QStringList{"--script", "nothing.script"}
                                    << "workbench: nothing.script: the script cannot be read: ";
    QTest::newRow("script wrong") << QStringList{"--script", "wrong.script"}
                                  << "workbench: wrong.script:1: expected an action or an "
                                     "expectation, found \"jump\"";
    QTest::newRow("demonstration") << QStringList{"--demo", "nothing", "--headless"}
                                   << "workbench: --demo: expected one of full-library, ";
    QTest::newRow("recording folder") << script + QStringList{"--record", "no/folder/r"}
                                      << "workbench: --record no/folder/r: ";
    QTest::newRow("recording missing") << script + QStringList{"--replay", "nothing"}
                                       << "workbench: nothing: the recording cannot be read: ";
    QTest::newRow("recordings missing") << QStringList{"transcript-diff", "a", "b"}
                                        << "workbench: a: the recording cannot be read: ";
    QTest::newRow("language") << QStringList{"--headless", "--script", "foreign.script"}
                              << "workbench: language xx: expected the translation ";
    QTest::newRow("tour folder") << QStringList{"--tour", "empty.script/tour"}
                                 << "workbench: empty.script/tour: the folder cannot be created";
}

void tst_WorkbenchProgram::unusableInput()
{
    QFETCH(QStringList, arguments);
    QFETCH(QString, message);
    write(QStringLiteral("empty.script"), "# nothing to do\n");
    write(QStringLiteral("wrong.script"), "jump\n");
    write(QStringLiteral("foreign.script"), "language xx\n");
    write(QStringLiteral("syntax.json"), "{\n  \"state\": {,}\n}\n");
    write(QStringLiteral("value.json"), "{\"state\": {\"protocol\": 7}}\n");
    const Outcome outcome = run(arguments);
    QVERIFY2(outcome.err.startsWith(message), qPrintable(outcome.err));
    QCOMPARE(outcome.status, 2);
}

void tst_WorkbenchProgram::noDisplay()
{
    const Outcome outcome = run({}, false);
    QCOMPARE(outcome.status, 2);
    QVERIFY(outcome.err.startsWith(QStringLiteral("workbench: there is no display.")));
    QVERIFY(outcome.err.contains(QStringLiteral("--tour")));
    QVERIFY(outcome.err.contains(QStringLiteral("--headless")));
}

void tst_WorkbenchProgram::deadDisplay()
{
    qputenv("DISPLAY", ":7654");
    QProcess process;
    QProcessEnvironment environment = QProcessEnvironment::systemEnvironment();
    environment.remove(QStringLiteral("QT_QPA_PLATFORM"));
    environment.remove(QStringLiteral("WAYLAND_DISPLAY"));
    process.setProcessEnvironment(environment);
    process.start(QStringLiteral(WORKBENCH_PROGRAM), QStringList());
    QVERIFY(process.waitForFinished(patienceMs));
    qunsetenv("DISPLAY");
    QCOMPARE(process.exitStatus(), QProcess::NormalExit);
    QCOMPARE(process.exitCode(), 2);
    QVERIFY(process.readAllStandardError().startsWith("workbench: there is no display."));
}

QDir tst_WorkbenchProgram::playedTour()
{
    if (!m_tourDir) {
        m_tourDir = std::make_unique<QTemporaryDir>();
        m_tour = run({"--tour", m_tourDir->path()}, false);
    }
    return QDir(m_tourDir->path());
}

void tst_WorkbenchProgram::tour()
{
    const QDir out = playedTour();
    QCOMPARE(m_tour.err, QString());
    QCOMPARE(m_tour.status, 0);
    const QStringList pictures = out.entryList({QStringLiteral("*.png")}, QDir::Files, QDir::Name);
    QVERIFY2(pictures.size() >= 10, qPrintable(pictures.join(QLatin1Char(' '))));
    for (const QString &picture : pictures) {
        const QImage image(out.filePath(picture));
        QVERIFY2(image.width() > 100 && image.height() > 50, qPrintable(picture));
    }
    const QByteArray transcript = read(out.filePath(QStringLiteral("transcript.txt")));
    QVERIFY(transcript.contains("set        body desc standard b01 \"Left arm\" -> 0"));
    QVERIFY(transcript.contains("set        body active standard b02 no -> 0"));
    QVERIFY(transcript.contains("set        tracking axis_5dof_central 0.000 1.000 0.000 -> 0"));
    const QByteArray stalls = read(out.filePath(QStringLiteral("stalls.txt")));
    QVERIFY2(stalls.contains(" operations, ") && stalls.contains("menu Body administration"),
             stalls.constData());
    const QImage dark(out.filePath(QStringLiteral("dark-1-standard.png")));
    QVERIFY(qGray(dark.pixel(3, 3)) < 128);
    const QImage light(out.filePath(QStringLiteral("01-body-administration.png")));
    QVERIFY(qGray(light.pixel(3, 3)) > 128);
    QCOMPARE(light.size(), dark.size());
    const QImage small(out.filePath(QStringLiteral("small-1-standard.png")));
    QVERIFY(small.width() <= 1024 && small.height() <= 768);
    QVERIFY(light.width() > small.width());
    QVERIFY(out.exists(QStringLiteral("german-01-body-administration.png")));
}

void tst_WorkbenchProgram::tourIsTheSameTwice()
{
    const QDir out = playedTour();
    QCOMPARE(m_tour.status, 0);
    QCOMPARE(run({"--tour", "second"}).status, 0);
    const QStringList transcripts = out.entryList({QStringLiteral("transcript*.txt")}, QDir::Files);
    QVERIFY2(transcripts.size() >= 3, qPrintable(transcripts.join(QLatin1Char(' '))));
    for (const QString &transcript : transcripts) {
        const QByteArray first = read(out.filePath(transcript));
        QVERIFY(!first.isEmpty());
        QCOMPARE(first, read(QStringLiteral("second/") + transcript));
    }
}

void tst_WorkbenchProgram::walks_data()
{
    QTest::addColumn<QString>("scenario");
    QTest::addColumn<QString>("walk");
    QTest::newRow("an operator's morning") << "studio"
                                           << "morning";
    const QDir folder(QStringLiteral(TRACKING_SCENARIO_DIR));
    const QStringList files = folder.entryList({QStringLiteral("*.json")}, QDir::Files);
    QVERIFY(!files.isEmpty());
    for (const QString &file : files) {
        const QString name = QFileInfo(file).completeBaseName();
        QTest::newRow(qPrintable(name)) << name << name;
    }
}

/** Every shipped scenario has a walk, in which the dialogs never contradict the controller. */
void tst_WorkbenchProgram::walks()
{
    QFETCH(QString, scenario);
    QFETCH(QString, walk);
    const QString script =
            QStringLiteral(TRACKING_SOURCE_DIR "/tests/workbench/walks/%1.script").arg(walk);
    const Outcome outcome = run({"--script", script, "--scenario", scenario}, false);
    QCOMPARE(outcome.err, QString());
    QCOMPARE(outcome.status, 0);
}

void tst_WorkbenchProgram::demonstrations_data()
{
    QTest::addColumn<QString>("name");
    const QDir folder(QStringLiteral(TRACKING_SCENARIO_DIR "/demos"));
    const QStringList files = folder.entryList({QStringLiteral("*.script")}, QDir::Files);
    QCOMPARE(files.size(), 6);
    for (const QString &file : files) {
        const QString name = QFileInfo(file).completeBaseName();
        QTest::newRow(qPrintable(name)) << name;
    }
}

void tst_WorkbenchProgram::demonstrations()
{
    QFETCH(QString, name);
    const Outcome outcome = run({"--demo", name, "--headless"}, false);
    QCOMPARE(outcome.err, QString());
    QCOMPARE(outcome.status, 0);
    // A demonstration fails without its fault or with another one.
    const Outcome disturbed = run({"--demo", name, "--headless", "--fault", "set * fail"}, false);
    QCOMPARE(disturbed.status, 1);
    QVERIFY2(disturbed.err.contains(name + QStringLiteral(".script:")), qPrintable(disturbed.err));
}

void tst_WorkbenchProgram::pluginBesideTheCaller()
{
    write(QStringLiteral("s.script"), renameScript);
    const QDir caller(m_dir->path());
    const QString plugin = caller.relativeFilePath(QStringLiteral(MODULE_PLUGIN));
    const Outcome outcome = run({"--headless", "--script", "s.script", "--plugin", plugin});
    QCOMPARE(outcome.err, QString());
    QCOMPARE(outcome.status, 0);
}

void tst_WorkbenchProgram::failingScript()
{
    write(QStringLiteral("s.script"), "menu \"Single markers\"\n"
                                      "expect text comboBox_5dofAxis x\n"
                                      "click pushButton_cancel\n");
    const Outcome outcome = run({"--script", "s.script"}, false);
    QCOMPARE(outcome.err,
             QStringLiteral("workbench: s.script:2: expected comboBox_5dofAxis \"x\", found "
                            "\"z\"\n"));
    QCOMPARE(outcome.status, 1);
}

void tst_WorkbenchProgram::scriptThatHangs()
{
    write(QStringLiteral("slow.script"), "expect no-window\n"
                                         "menu \"Body administration\"\n"
                                         "click pushButton_exit\n");
    // Half a second for each of about ninety operations is far more than the line may take.
    const Outcome outcome = run({"--headless", "--script", "slow.script", "--latency", "500",
                                 "--timeout", "2", "--record", "slow.jsonl"});
    QCOMPARE(outcome.status, 1);
    QCOMPARE(outcome.err, QStringLiteral("workbench: slow.script:2: expected an end within 2 s, "
                                         "found it still busy\n"));
    // The operations until then are in the recording.
    QVERIFY(read(QStringLiteral("slow.jsonl")).endsWith("}\n"));
    QCOMPARE(run({"--headless", "--script", "slow.script", "--timeout", "60"}).status, 0);
}

void tst_WorkbenchProgram::faultsFromTheCommandLine()
{
    write(QStringLiteral("s.script"), "menu \"Body administration\"\n"
                                      "check tableWidget_standard 1 Active\n"
                                      "check tableWidget_standard 2 Active\n"
                                      "click pushButton_exit\n"
                                      "expect state bodyTypes.standard.bodies[0].active false\n"
                                      "expect state bodyTypes.standard.bodies[1].active true\n"
                                      "expect fired 1 1\n");
    const Outcome outcome =
            run({"--script", "s.script", "--fault", "set body active* every 2 refuse"});
    QCOMPARE(outcome.err, QString());
    QCOMPARE(outcome.status, 0);
}

void tst_WorkbenchProgram::recordAndReplay()
{
    write(QStringLiteral("s.script"), renameScript);
    QCOMPARE(run({"--script", "s.script", "--record", "a.jsonl"}).status, 0);
    QVector<TranscriptEntry> entries;
    QString error;
    QVERIFY2(Recording::load(m_dir->filePath(QStringLiteral("a.jsonl")), &entries, &error),
             qPrintable(error));
    QVERIFY(entries.size() > 50);
    const auto renamed = std::find_if(entries.cbegin(), entries.cend(), [](const auto &entry) {
        return entry.line == "body desc standard b01 \"Hat\"";
    });
    QVERIFY(renamed != entries.cend());
    QCOMPARE(renamed->dialog, QStringLiteral("BodyAdministrationDlg"));
    // The recording answers, regardless of the controller.
    const Outcome replayed =
            run({"--script", "s.script", "--replay", "a.jsonl", "--record", "b.jsonl"});
    QCOMPARE(replayed.err, QString());
    QCOMPARE(replayed.status, 0);
    QCOMPARE(read(QStringLiteral("a.jsonl")), read(QStringLiteral("b.jsonl")));
}

void tst_WorkbenchProgram::recordings_data()
{
    QTest::addColumn<QString>("stem");
    const QDir folder(QStringLiteral(TRACKING_SOURCE_DIR "/tests/workbench/recordings"));
    const QStringList files = folder.entryList({QStringLiteral("*.jsonl")}, QDir::Files);
    QVERIFY(!files.isEmpty());
    for (const QString &file : files) {
        const QString stem = QFileInfo(file).completeBaseName();
        QTest::newRow(qPrintable(stem)) << folder.filePath(stem);
    }
}

/** The module sends the operations that were recorded with the session. */
void tst_WorkbenchProgram::recordings()
{
    QFETCH(QString, stem);
    const Outcome outcome = run({"--script", stem + QStringLiteral(".script"), "--replay",
                                 stem + QStringLiteral(".jsonl")});
    QCOMPARE(outcome.err, QString());
    QCOMPARE(outcome.status, 0);
}

void tst_WorkbenchProgram::replayThatDiffers()
{
    write(QStringLiteral("s.script"), renameScript);
    QCOMPARE(run({"--script", "s.script", "--record", "a.jsonl"}).status, 0);
    write(QStringLiteral("s.script"), QByteArray(renameScript).replace("Hat", "Cat"));
    const Outcome outcome = run({"--script", "s.script", "--replay", "a.jsonl"});
    QCOMPARE(outcome.status, 1);
    QVERIFY2(outcome.err.contains(QStringLiteral("- set body desc standard b01 \"Hat\"\n"
                                                 "+ set body desc standard b01 \"Cat\"\n")),
             qPrintable(outcome.err));
}

void tst_WorkbenchProgram::transcriptDiff()
{
    write(QStringLiteral("s.script"), renameScript);
    QCOMPARE(run({"--script", "s.script", "--record", "a.jsonl"}).status, 0);
    QCOMPARE(
            run({"--script", "s.script", "--record", "b.jsonl", "--fault", "set body desc* refuse"})
                    .status,
            0);
    const Outcome same = run({"transcript-diff", "a.jsonl", "a.jsonl"}, false);
    QCOMPARE(same.status, 0);
    QCOMPARE(same.out, QString());
    const Outcome differs = run({"transcript-diff", "a.jsonl", "b.jsonl"}, false);
    QCOMPARE(differs.status, 1);
    QVERIFY2(differs.out.startsWith(QStringLiteral("first difference at operation ")),
             qPrintable(differs.out));
    QVERIFY2(differs.out.contains(QStringLiteral("set        body desc standard b01 \"Hat\" -> 2")),
             qPrintable(differs.out));
}

void tst_WorkbenchProgram::preferencesOfTheUserAreLeftAlone()
{
    write(QStringLiteral("s.script"), "menu \"Single markers\"\nclick pushButton_ok\n");
    QCOMPARE(run({"--script", "s.script"}).status, 0);
    QVERIFY(!QFile::exists(m_dir->filePath(QStringLiteral(".QOR"))));
}

TRACKING_TEST_GUILESS_MAIN(tst_WorkbenchProgram)
#include "tst_workbenchprogram.moc"
