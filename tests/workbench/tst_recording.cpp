#include "Recorder.h"
#include "Recording.h"
#include "Replayer.h"
#include "dialogtest.h"

#include <QSignalSpy>

using Operation = TranscriptEntry::Operation;

class tst_Recording : public QObject {
    Q_OBJECT

private slots:
    void roundTrip_data();
    void roundTrip();
    void unusableLines_data();
    void unusableLines();
    void recorderWritesAtOnce();
    void recorderNeedsAFile();
    void replayAnswersWithoutController();
    void replayKeepsFailures();
    void replayStopsAtTheFirstDifference();
    void replayEndsWithTheRecording();
    void differences();
};

namespace {

QVector<TranscriptEntry> recordedSession()
{
    TestHost host;
    char text[200];
    int number = 0;
    double real = 0.0;
    host.io.get_string(text, "body desc standard b%02d", 1);
    host.io.get_int(&number, "standard max_number_of_bodies");
    host.io.get_double(&real, "inertial frequency");
    host.io.send_message("standard", "MORVEK3", 1, "a line");
    host.io.set("body desc standard b%02d \"%s\"", 1, "Hat");
    host.fault(QStringLiteral("status active fail"));
    host.io.get_string(text, "status active");
    host.io.send_command(text, "morvek2 targetlib check_custom_calibration");
    return host.io.transcript();
}

} // namespace

void tst_Recording::roundTrip_data()
{
    QTest::addColumn<QByteArray>("answer");
    QTest::newRow("plain") << QByteArray("yes");
    QTest::newRow("empty") << QByteArray();
    QTest::newRow("quotes") << QByteArray("\"a\\b\"");
    QTest::newRow("umlaut") << QByteArray("\xc3\xbc");
    QTest::newRow("no valid text") << QByteArray("\xff\xfe\x80 \xc3");
    QTest::newRow("over-long") << QByteArray(3999, 'x');
}

void tst_Recording::roundTrip()
{
    QFETCH(QByteArray, answer);
    for (const Operation operation :
         {Operation::Command, Operation::GetString, Operation::GetInt, Operation::GetDouble,
          Operation::GetBool, Operation::Set, Operation::Message}) {
        TranscriptEntry entry;
        entry.operation = operation;
        entry.virtualMs = 123456;
        entry.line = "body desc standard b01 \"Hat\"";
        entry.answer = answer;
        entry.result = 3;
        entry.dialog = QStringLiteral("FilterDialog");
        TranscriptEntry read;
        QString problem;
        const QByteArray line = Recording::toLine(entry);
        QVERIFY(!line.contains('\n'));
        QVERIFY2(Recording::fromLine(line, &read, &problem), qPrintable(problem));
        QCOMPARE(int(read.operation), int(entry.operation));
        QCOMPARE(read.virtualMs, entry.virtualMs);
        QCOMPARE(read.line, entry.line);
        QCOMPARE(read.answer, entry.answer);
        QCOMPARE(read.result, entry.result);
        QCOMPARE(read.dialog, entry.dialog);
    }
}

void tst_Recording::unusableLines_data()
{
    QTest::addColumn<QByteArray>("line");
    QTest::addColumn<QString>("problem");
    QTest::newRow("no JSON") << QByteArray("hello") << ":2: expected a JSON object, found ";
    QTest::newRow("a list") << QByteArray("[1]") << ":2: expected a JSON object, found none";
    QTest::newRow("operation") << QByteArray(R"({"operation":"got","result":0})")
                               << ":2: operation: expected \"set\" or another operation, found "
                                  "\"got\"";
    QTest::newRow("result") << QByteArray(R"({"operation":"set","result":"0"})")
                            << ":2: result: expected a number, found none";
    QTest::newRow("endless time") << QByteArray(
            R"({"operation":"set","result":0,"timeMs":8888888888888888888888888888})")
                                  << ":2: timeMs: expected 0 to 1e+15, found 8.88889e+27";
}

void tst_Recording::unusableLines()
{
    QFETCH(QByteArray, line);
    QFETCH(QString, problem);
    QTemporaryDir dir;
    const QString name = dir.filePath(QStringLiteral("r.jsonl"));
    QFile file(name);
    QVERIFY(file.open(QIODevice::WriteOnly));
    file.write(R"({"operation":"set","line":"a b","result":0})"
               "\n"
               + line + '\n');
    file.close();
    QVector<TranscriptEntry> entries;
    QString error;
    QVERIFY(!Recording::load(name, &entries, &error));
    QVERIFY2(error.startsWith(name + problem), qPrintable(error));
}

void tst_Recording::recorderWritesAtOnce()
{
    TestHost host;
    char text[200];
    host.io.get_string(text, "status active");
    QTemporaryDir dir;
    const QString name = dir.filePath(QStringLiteral("r.jsonl"));
    QString error;
    Recorder recorder(&host.io);
    QVERIFY2(recorder.start(name, &error), qPrintable(error));
    host.io.set("body active standard b01 no");
    // The recorder still exists, because its output must not wait for its end.
    QVector<TranscriptEntry> entries;
    QVERIFY2(Recording::load(name, &entries, &error), qPrintable(error));
    QCOMPARE(entries.size(), 2);
    QCOMPARE(entries.at(0).line, QByteArray("status active"));
    QCOMPARE(entries.at(0).answer, QByteArray("none"));
    QCOMPARE(entries.at(1).line, QByteArray("body active standard b01 no"));
}

void tst_Recording::recorderNeedsAFile()
{
    TestHost host;
    Recorder recorder(&host.io);
    QString error;
    QVERIFY(!recorder.start(QStringLiteral("/no/such/folder/r.jsonl"), &error));
    QVERIFY2(error.startsWith(QStringLiteral("--record /no/such/folder/r.jsonl: ")),
             qPrintable(error));
}

void tst_Recording::replayAnswersWithoutController()
{
    const QVector<TranscriptEntry> recording = recordedSession();
    ControllerState other = TestHost::scenario(QStringLiteral("studio"));
    other.bodyTypes[QStringLiteral("standard")].bodies[0].description = QStringLiteral("Other");
    TestHost host(other);
    Replayer replayer(&host.io, recording);
    char text[200];
    int number = 0;
    double real = 0.0;
    QCOMPARE(host.io.get_string(text, "body desc standard b%02d", 1), 0);
    QCOMPARE(text, "Cap");
    QCOMPARE(host.io.get_int(&number, "standard max_number_of_bodies"), 0);
    QCOMPARE(number, 20);
    QCOMPARE(host.io.get_double(&real, "inertial frequency"), 0);
    QCOMPARE(real, 100.0);
    QCOMPARE(host.io.set("body desc standard b%02d \"%s\"", 1, "Hat"), 0);
    QCOMPARE(host.state().bodyTypes[QStringLiteral("standard")].bodies[0].description,
             QStringLiteral("Other"));
    QCOMPARE(replayer.remaining(), 2);
    QVERIFY(replayer.difference().isEmpty());
}

void tst_Recording::replayKeepsFailures()
{
    TranscriptEntry failed;
    failed.operation = Operation::GetString;
    failed.line = "status active";
    failed.result = 4;
    TestHost host;
    Replayer replayer(&host.io, {failed});
    char text[200] = "untouched";
    QCOMPARE(host.io.get_string(text, "status active"), 4);
    QCOMPARE(text, "untouched");
}

void tst_Recording::replayStopsAtTheFirstDifference()
{
    TestHost host;
    Replayer replayer(&host.io, recordedSession());
    QSignalSpy differed(&replayer, &Replayer::differed);
    char text[200];
    QCOMPARE(host.io.get_string(text, "body desc standard b%02d", 1), 0);
    QVERIFY(host.io.get_string(text, "body desc standard b%02d", 2) != 0);
    QCOMPARE(differed.count(), 1);
    QCOMPARE(replayer.difference(), QStringLiteral("the replay differs at operation 2\n"
                                                   "  get-string body desc standard b01\n"
                                                   "- get-int standard max_number_of_bodies\n"
                                                   "+ get-string body desc standard b02\n"));
    int number = 0;
    QVERIFY(host.io.get_int(&number, "standard max_number_of_bodies") != 0);
    QCOMPARE(differed.count(), 1);
}

void tst_Recording::replayEndsWithTheRecording()
{
    TestHost host;
    Replayer replayer(&host.io, {});
    char text[200];
    QVERIFY(host.io.get_string(text, "status active") != 0);
    QCOMPARE(replayer.difference(), QStringLiteral("the replay differs at operation 1\n"
                                                   "- (end of the recording)\n"
                                                   "+ get-string status active\n"));
}

void tst_Recording::differences()
{
    const QVector<TranscriptEntry> left = recordedSession();
    QVector<TranscriptEntry> right = left;
    for (TranscriptEntry &entry : right) {
        entry.virtualMs += 600;
        entry.durationUs = 7;
    }
    QCOMPARE(Recording::difference(left, right), QString());
    right[2].answer = "99";
    const QString text = Recording::difference(left, right);
    QVERIFY2(text.startsWith(QStringLiteral("first difference at operation 3\n")),
             qPrintable(text));
    QVERIFY2(text.contains(QStringLiteral("\n- ")) && text.contains(QStringLiteral("\"99\"")),
             qPrintable(text));
    right = left;
    right.removeLast();
    QVERIFY(Recording::difference(left, right).endsWith(QStringLiteral("+ (end)\n")));
}

TRACKING_TEST_MAIN(tst_Recording)
#include "tst_recording.moc"
