#include "TranscriptDock.h"
#include "TranscriptFilter.h"
#include "TranscriptModel.h"
#include "TranscriptText.h"
#include "dialogtest.h"
#include "filecontents.h"
#include "madeentry.h"

#include <QAbstractItemModelTester>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QSignalSpy>
#include <QTableView>

using Operation = TranscriptEntry::Operation;

class tst_Transcript : public QObject {
    Q_OBJECT

private slots:
    void modelShowsEveryColumn();
    void modelMarksFailures();
    void filter_data();
    void filter();
    void dockFiltersWhileTyping();
    void newRowsAreLookedAtOnce();
    void longTranscriptIsFilteredInParts();
    void limitDropsTheOldest_data();
    void limitDropsTheOldest();
    void dockTakesRowsInBatches();
    void dockSaysWhatWasDropped();
    void dockClears();
    void exportIsWhatWasRecorded();
    void exportFailureIsExplained();
    void lines_data();
    void lines();
};

namespace {

QString cell(const QAbstractItemModel &model, int row, int column)
{
    return model.index(row, column).data().toString();
}

} // namespace

void tst_Transcript::modelShowsEveryColumn()
{
    TranscriptModel model;
    QAbstractItemModelTester tester(&model);
    TranscriptEntry first = entry(Operation::GetString, "body desc standard b01", "Cap");
    first.virtualMs = 1234;
    first.durationUs = 2500;
    first.dialog = QStringLiteral("BodyAdministrationDlg");
    model.append(first);
    QCOMPARE(model.rowCount(), 1);
    QCOMPARE(cell(model, 0, TranscriptModel::Time), QStringLiteral("1.234"));
    QCOMPARE(cell(model, 0, TranscriptModel::Operation), QStringLiteral("get-string"));
    QCOMPARE(cell(model, 0, TranscriptModel::Command), QStringLiteral("body desc standard b01"));
    QCOMPARE(cell(model, 0, TranscriptModel::Answer), QStringLiteral("Cap"));
    QCOMPARE(cell(model, 0, TranscriptModel::Result), QStringLiteral("0"));
    QCOMPARE(cell(model, 0, TranscriptModel::Duration), QStringLiteral("2.50 ms"));
    QCOMPARE(model.index(0, 0).data(Qt::ToolTipRole).toString(),
             QStringLiteral("while BodyAdministrationDlg was open"));
    QStringList titles;
    for (int column = 0; column < model.columnCount(); ++column)
        titles << model.headerData(column, Qt::Horizontal).toString();
    QCOMPARE(titles,
             QStringList({"Time [s]", "Operation", "Command", "Answer", "Result", "Duration"}));
    model.clear();
    QCOMPARE(model.rowCount(), 0);
}

void tst_Transcript::modelMarksFailures()
{
    TranscriptModel model;
    model.append(entry(Operation::Set, "body active standard b01 no", {}, 2));
    model.append(entry(Operation::Set, "body active standard b01 no"));
    QCOMPARE(model.index(0, 0).data(Qt::ForegroundRole).value<QColor>(), QColor(Qt::red));
    QVERIFY(!model.index(1, 0).data(Qt::ForegroundRole).isValid());
}

void tst_Transcript::filter_data()
{
    QTest::addColumn<QString>("words");
    QTest::addColumn<QStringList>("commands");

    const QString name = QStringLiteral("body desc standard b01");
    const QString active = QStringLiteral("set-like body active standard b02 no");
    const QString status = QStringLiteral("status active");
    QTest::newRow("nothing typed") << "" << QStringList{name, active, status};
    QTest::newRow("one word") << "standard" << QStringList{name, active};
    QTest::newRow("two words in any order") << "b02 body" << QStringList{active};
    QTest::newRow("case does not count") << "STATUS" << QStringList{status};
    QTest::newRow("the answer counts") << "cap" << QStringList{name};
    QTest::newRow("the operation counts") << "get-int" << QStringList{status};
    QTest::newRow("no match") << "joywand" << QStringList{};
    QTest::newRow("blanks alone") << "   " << QStringList{name, active, status};
}

void tst_Transcript::filter()
{
    QFETCH(QString, words);
    QFETCH(QStringList, commands);
    TranscriptModel model;
    model.append(entry(Operation::GetString, "body desc standard b01", "Cap"));
    model.append(entry(Operation::Set, "set-like body active standard b02 no"));
    model.append(entry(Operation::GetInt, "status active", "4"));
    TranscriptFilter filter(&model);
    QAbstractItemModelTester tester(&filter);
    filter.setWords(words);
    QStringList shown;
    for (int row = 0; row < filter.rowCount(); ++row)
        shown << cell(filter, row, TranscriptModel::Command);
    QCOMPARE(shown, commands);
}

void tst_Transcript::dockFiltersWhileTyping()
{
    TestHost host;
    TranscriptDock dock(&host.io);
    dock.show();
    host.io.set("body desc standard b01 \"%s\"", "Hat");
    char answer[200];
    host.io.get_string(answer, "body desc standard b%02d", 1);
    auto *view = Drive::find<QTableView>(&dock, "tableView_transcript");
    QTRY_COMPARE(view->model()->rowCount(), 2);
    QTest::keyClicks(Drive::find<QLineEdit>(&dock, "lineEdit_transcriptFilter"), "set ha");
    QCOMPARE(view->model()->rowCount(), 1);
    QCOMPARE(cell(*view->model(), 0, TranscriptModel::Command),
             QStringLiteral("body desc standard b01 \"Hat\""));
    QCOMPARE(Drive::find<QLabel>(&dock, "label_transcriptStatus")->text(),
             QStringLiteral("1 of 2 operations"));
    // Later rows are filtered, too.
    host.io.set("body desc standard b01 \"%s\"", "Harp");
    QTRY_COMPARE(view->model()->rowCount(), 2);
}

void tst_Transcript::newRowsAreLookedAtOnce()
{
    TranscriptModel model;
    TranscriptFilter filter(&model);
    filter.setWords(QStringLiteral("active"));
    for (int i = 0; i < 5000; ++i)
        model.append(entry(Operation::GetInt, i % 2 == 0 ? "status active" : "status progress"));
    // Each row costs one comparison, regardless of the number of rows.
    QCOMPARE(filter.comparedRows(), qint64(5000));
    QCOMPARE(filter.rowCount(), 2500);
    filter.setWords(QString());
    QCOMPARE(filter.rowCount(), 5000);
    QCOMPARE(filter.comparedRows(), qint64(5000));
}

void tst_Transcript::longTranscriptIsFilteredInParts()
{
    TranscriptModel model;
    model.append(QVector<TranscriptEntry>(5000, entry(Operation::GetInt, "status active", "4")));
    model.append(entry(Operation::GetInt, "status progress", "0"));
    TranscriptFilter filter(&model);
    QAbstractItemModelTester tester(&filter);
    const QSignalSpy finished(&filter, &TranscriptFilter::finished);
    qint64 most = 0;
    for (const char *typed : {"p", "pr", "progress"}) {
        const qint64 before = filter.comparedRows();
        filter.setWords(QLatin1String(typed));
        most = qMax(most, filter.comparedRows() - before);
        QVERIFY(filter.isBusy());
    }
    QVERIFY2(most <= 1000, qPrintable(QString::number(most)));
    // Rows that arrive meanwhile are compared later.
    model.append(entry(Operation::GetInt, "status progress", "1"));
    QTRY_VERIFY(!filter.isBusy());
    QCOMPARE(finished.count(), 1);
    QCOMPARE(filter.rowCount(), 2);
    QCOMPARE(cell(filter, 0, TranscriptModel::Answer), QStringLiteral("0"));
    QCOMPARE(cell(filter, 1, TranscriptModel::Answer), QStringLiteral("1"));
}

void tst_Transcript::limitDropsTheOldest_data()
{
    QTest::addColumn<QString>("words");
    QTest::addColumn<int>("batch");
    QTest::newRow("everything shown") << "" << 1;
    QTest::newRow("filtered") << "7" << 1;
    QTest::newRow("batches") << "" << 11;
    QTest::newRow("filtered batches") << "7" << 11;
    QTest::newRow("batches beyond the limit") << "" << 70;
    QTest::newRow("filtered batches beyond the limit") << "7" << 70;
}

void tst_Transcript::limitDropsTheOldest()
{
    QFETCH(QString, words);
    QFETCH(int, batch);
    TranscriptModel model;
    model.setLimit(32);
    TranscriptFilter filter(&model);
    QAbstractItemModelTester tester(&filter);
    filter.setWords(words);
    QSignalSpy removals(&model, &QAbstractItemModel::rowsRemoved);
    constexpr int total = 200;
    for (int i = 0; i < total; i += batch) {
        QVector<TranscriptEntry> entries;
        for (int k = i; k < qMin(total, i + batch); ++k)
            entries << entry(Operation::Set, "number " + QByteArray::number(k));
        model.append(entries);
        QVERIFY(model.rowCount() <= 32);
    }
    QVERIFY(model.rowCount() >= 28);
    QCOMPARE(model.droppedCount() + model.rowCount(), qint64(total));
    // An eighth is dropped at once, so that a row costs the same with and without the limit.
    QVERIFY2(removals.count() <= 1 + total / 4, qPrintable(QString::number(removals.count())));
    QStringList expected;
    for (int k = total - model.rowCount(); k < total; ++k) {
        const QString line = QStringLiteral("number %1").arg(k);
        if (line.contains(words))
            expected << line;
    }
    QStringList shown;
    for (int row = 0; row < filter.rowCount(); ++row)
        shown << cell(filter, row, TranscriptModel::Command);
    QCOMPARE(shown, expected);
}

void tst_Transcript::dockTakesRowsInBatches()
{
    TestHost host;
    TranscriptDock dock(&host.io);
    dock.show();
    auto *model = Drive::find<QTableView>(&dock, "tableView_transcript")->model();
    const QSignalSpy inserted(model, &QAbstractItemModel::rowsInserted);
    char answer[200];
    for (int i = 0; i < 500; ++i)
        host.io.get_string(answer, "status active");
    QCOMPARE(model->rowCount(), 0);
    QTRY_COMPARE(model->rowCount(), 500);
    QCOMPARE(inserted.count(), 1);
}

void tst_Transcript::dockSaysWhatWasDropped()
{
    TestHost host;
    host.io.setTranscriptLimit(100);
    TranscriptDock dock(&host.io);
    dock.show();
    char answer[200];
    for (int i = 0; i < 150; ++i)
        host.io.get_string(answer, "status active");
    auto *status = Drive::find<QLabel>(&dock, "label_transcriptStatus");
    QTRY_VERIFY(status->text() != QStringLiteral("0 of 0 operations"));
    QCOMPARE(status->text(), QStringLiteral("88 of 88 operations; the 62 oldest were dropped"));
    dock.setRecordingFile(QStringLiteral("day.jsonl"));
    QCOMPARE(status->text(),
             QStringLiteral("88 of 88 operations; the 62 oldest are in day.jsonl only"));
    Drive::click(&dock, "pushButton_clearTranscript");
    QCOMPARE(status->text(), QStringLiteral("0 of 0 operations"));
}

void tst_Transcript::dockClears()
{
    TestHost host;
    TranscriptDock dock(&host.io);
    dock.show();
    char answer[200];
    host.io.get_string(answer, "status active");
    Drive::click(&dock, "pushButton_clearTranscript");
    QCOMPARE(Drive::find<QTableView>(&dock, "tableView_transcript")->model()->rowCount(), 0);
    QVERIFY(host.io.transcript().isEmpty());
}

void tst_Transcript::exportIsWhatWasRecorded()
{
    TestHost host;
    TranscriptDock dock(&host.io);
    char answer[200];
    host.io.get_string(answer, "body desc standard b%02d", 1);
    host.io.set("body active standard b%02d no", 1);
    QTemporaryDir dir;
    const QString file = dir.filePath(QStringLiteral("transcript.txt"));
    QVERIFY(dock.exportTo(file));
    QCOMPARE(contents(file), QByteArray("       0 get-string body desc standard b01 -> 0 \"Cap\"\n"
                                        "       0 set        body active standard b01 no -> 0\n"));
    QCOMPARE(Drive::find<QLabel>(&dock, "label_transcriptStatus")->text(),
             QStringLiteral("Transcript written to ") + file);
    QCOMPARE(QDir(dir.path()).entryList(QDir::Files), QStringList{"transcript.txt"});
}

void tst_Transcript::exportFailureIsExplained()
{
    TestHost host;
    TranscriptDock dock(&host.io);
    QVERIFY(!dock.exportTo(QStringLiteral("/no/such/folder/t.txt")));
    QVERIFY(Drive::find<QLabel>(&dock, "label_transcriptStatus")
                    ->text()
                    .startsWith(QStringLiteral(
                            "/no/such/folder/t.txt: the transcript cannot be written: ")));
}

void tst_Transcript::lines_data()
{
    QTest::addColumn<QByteArray>("answer");
    QTest::addColumn<QString>("shown");

    QTest::newRow("plain") << QByteArray("yes") << "yes";
    QTest::newRow("umlaut") << QByteArray("M\xc3\xbctze") << QString::fromUtf8("M\xc3\xbctze");
    QTest::newRow("line break") << QByteArray("a\nb") << "a\\x0ab";
    QTest::newRow("no valid text") << QByteArray("\xff\xfe!") << "\\xff\\xfe!";
    QTest::newRow("half a character") << QByteArray("a\xc3") << "a\\xc3";
}

void tst_Transcript::lines()
{
    QFETCH(QByteArray, answer);
    QFETCH(QString, shown);
    TranscriptEntry made = entry(Operation::GetString, "x y", answer);
    made.dialog = QStringLiteral("FilterDialog");
    QCOMPARE(TranscriptText::line(made),
             QStringLiteral("       0 get-string x y -> 0 \"%1\" @FilterDialog").arg(shown));
}

TRACKING_TEST_MAIN(tst_Transcript)
#include "tst_transcript.moc"
