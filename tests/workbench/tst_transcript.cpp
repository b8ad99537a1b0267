#include "TranscriptDock.h"
#include "TranscriptFilter.h"
#include "TranscriptModel.h"
#include "TranscriptText.h"
#include "dialogtest.h"

#include <QAbstractItemModelTester>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
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
    void dockClears();
    void exportIsWhatWasRecorded();
    void exportFailureIsExplained();
    void lines_data();
    void lines();
};

namespace {

TranscriptEntry entry(Operation operation, const QByteArray &line, const QByteArray &answer = {},
                      int result = 0)
{
    TranscriptEntry made;
    made.operation = operation;
    made.line = line;
    made.answer = answer;
    made.result = result;
    return made;
}

QString cell(const QAbstractItemModel &model, int row, int column)
{
    return model.index(row, column).data().toString();
}

QByteArray contents(const QString &file)
{
    QFile input(file);
    return input.open(QIODevice::ReadOnly) ? input.readAll() : QByteArray();
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
    TranscriptFilter filter;
    filter.setSourceModel(&model);
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
    QCOMPARE(view->model()->rowCount(), 2);
    QTest::keyClicks(Drive::find<QLineEdit>(&dock, "lineEdit_transcriptFilter"), "set ha");
    QCOMPARE(view->model()->rowCount(), 1);
    QCOMPARE(cell(*view->model(), 0, TranscriptModel::Command),
             QStringLiteral("body desc standard b01 \"Hat\""));
    QCOMPARE(Drive::find<QLabel>(&dock, "label_transcriptStatus")->text(),
             QStringLiteral("1 of 2 operations"));
    // What comes later is filtered too.
    host.io.set("body desc standard b01 \"%s\"", "Harp");
    QCOMPARE(view->model()->rowCount(), 2);
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
