#include "LineChecks.h"
#include "SweepChecks.h"
#include "SweepFaults.h"
#include "dialogtest.h"
#include "madeentry.h"

using Operation = TranscriptEntry::Operation;

/** The violations that a sweep reports. */
class tst_SweepChecks : public QObject {
    Q_OBJECT

private slots:
    void init();
    void sameRunIsFine();
    void writeThatTheLineDoesNotHave();
    void writeThatIsLeftOutIsFine();
    void laterLinesMayWriteOtherValues();
    void laterLinesMayNotWriteOtherThings();
    void bodyWithoutANameIsOverwrittenUnasked();
    void failedOperationNeedsALogLine();
    void endOfASearchIsNotLookedAt();
    void boxTellsOfTheFailure();
    void lookingForTargetsIsNoWrite();
    void operationsHaveALimit();
    void statementsAreLeftOut();
    void malformed_data();
    void malformed();
    void nameIsAskedAboutAsItCame();
    void resetNamesTheTargetAsItCame();
    void faultsByName();
    void unknownFault();
    void everyRuleParses();

private:
    QStringList violations(int disturbed) const;

    QVector<SweepStep> m_undisturbed;
    QVector<SweepStep> m_steps;
};

namespace {

SweepStep step(int number, const QString &words, const QVector<TranscriptEntry> &operations)
{
    SweepStep made;
    made.line.number = number;
    made.line.words = words.split(QLatin1Char(' '));
    made.operations = operations;
    return made;
}

const TranscriptEntry query = entry(Operation::GetString, "body desc standard b01");
const TranscriptEntry write = entry(Operation::Set, "body desc standard b01 \"Hat\"");

} // namespace

void tst_SweepChecks::init()
{
    m_undisturbed = {step(0, QString(), {}), step(2, QStringLiteral("menu X"), {query, query}),
                     step(3, QStringLiteral("type t 1 Name Hat"), {write, query}),
                     step(5, QStringLiteral("click x"), {write, query})};
    m_steps = m_undisturbed;
}

QStringList tst_SweepChecks::violations(int disturbed) const
{
    QVector<TranscriptEntry> all;
    for (const SweepStep &one : m_steps)
        all += one.operations;
    return SweepChecks::violations(m_undisturbed, m_steps, all, disturbed);
}

void tst_SweepChecks::sameRunIsFine()
{
    for (int operation = 1; operation <= 6; ++operation)
        QCOMPARE(violations(operation), QStringList());
}

void tst_SweepChecks::writeThatTheLineDoesNotHave()
{
    m_steps[1].operations << write;
    QCOMPARE(violations(1), QStringList{"line 2: expected no other writes than undisturbed, found "
                                        "set body desc standard b01 \"Hat\""});
    // One more write is a violation, too.
    init();
    m_steps[2].operations << write;
    QCOMPARE(violations(3).size(), 1);
}

void tst_SweepChecks::writeThatIsLeftOutIsFine()
{
    m_steps[2].operations.removeFirst();
    QCOMPARE(violations(3), QStringList());
}

void tst_SweepChecks::laterLinesMayWriteOtherValues()
{
    m_steps[3].operations[0].line = "body desc standard b02 \"Cap\"";
    QCOMPARE(violations(1), QStringList());
    QCOMPARE(violations(5).size(), 1);
}

void tst_SweepChecks::laterLinesMayNotWriteOtherThings()
{
    m_steps[3].operations[0].line = "body active standard b01 no";
    QCOMPARE(violations(1), QStringList{"line 5: expected no other writes than undisturbed, found "
                                        "body active TYPE bNN VALUE"});
}

void tst_SweepChecks::bodyWithoutANameIsOverwrittenUnasked()
{
    const TranscriptEntry limit = entry(Operation::GetInt, "standard max_number_of_bodies");
    const TranscriptEntry calibration =
            entry(Operation::Command, "morvek2 body calibrate_from_targetlib standard b01 t01");
    m_undisturbed[1].operations[1] = limit;
    m_undisturbed << step(6, QStringLiteral("click select"), {query})
                  << step(7, QStringLiteral("answer Warning Overwrite OK"), {calibration});
    m_steps = m_undisturbed;
    m_steps[4].operations << calibration;
    m_steps[5].operations.clear();
    QCOMPARE(violations(1), QStringList());
    // The question has to open even when other operations fail.
    QCOMPARE(violations(2).size(), 1);
}

void tst_SweepChecks::failedOperationNeedsALogLine()
{
    m_steps[1].operations[1].result = 1;
    QCOMPARE(violations(2),
             QStringList{"line 2: expected a log line for the failed operation, found none"});
    m_undisturbed[1].log << QStringLiteral("a usual line");
    m_steps[1].log << QStringLiteral("a usual line");
    QCOMPARE(violations(2).size(), 1);
    m_steps[1].log << QStringLiteral("Error: no name");
    QCOMPARE(violations(2), QStringList());
}

void tst_SweepChecks::endOfASearchIsNotLookedAt()
{
    m_steps[3].operations[1] = entry(Operation::Command, "morvek2 cal targetlib stop");
    m_steps[3].operations[1].result = 1;
    m_undisturbed[3].operations[1].line = m_steps[3].operations[1].line;
    m_undisturbed[3].operations[1].operation = Operation::Command;
    QCOMPARE(violations(6), QStringList());
    m_steps[3].operations[1].line = "morvek2 cal targetlib start";
    m_undisturbed[3].operations[1].line = "morvek2 cal targetlib start";
    QCOMPARE(violations(6).size(), 1);
}

void tst_SweepChecks::boxTellsOfTheFailure()
{
    m_steps[2].operations[0].result = 2;
    QCOMPARE(violations(3).size(), 1);
    m_steps[2].boxes = 1;
    QCOMPARE(violations(3), QStringList());
}

void tst_SweepChecks::lookingForTargetsIsNoWrite()
{
    m_steps[1].operations << entry(Operation::Command,
                                   "morvek2 targetlib check_custom_calibration");
    QCOMPARE(violations(1), QStringList());
    m_steps[1].operations << entry(Operation::Command, "morvek2 cal targetlib stop");
    QCOMPARE(violations(1).size(), 1);
}

void tst_SweepChecks::operationsHaveALimit()
{
    m_steps[1].operations = QVector<TranscriptEntry>(500, query);
    QCOMPARE(violations(1), QStringList{"line 2: expected about 2 operations, found 500"});
}

void tst_SweepChecks::statementsAreLeftOut()
{
    m_undisturbed.insert(3, step(4, QStringLiteral("expect no-log"), {}));
    QCOMPARE(violations(1), QStringList());
}

void tst_SweepChecks::malformed_data()
{
    QTest::addColumn<QByteArray>("line");
    QTest::addColumn<QString>("found");
    QTest::newRow("well-formed") << QByteArray("body desc standard b01 \"nan %n\"") << "";
    QTest::newRow("line break") << QByteArray("body desc standard b01 \"a\nb\"")
                                << "a control character";
    QTest::newRow("no text") << QByteArray("body desc standard b01 \"\xff\"")
                             << "bytes that are no text";
    QTest::newRow("no number") << QByteArray("body filter6d_strength standard b01 nan")
                               << "no number";
    QTest::newRow("name") << QByteArray("inertial sensor_handeye nan none") << "";
    QTest::newRow("unknown") << QByteArray("body desc standard b1 \"x\"")
                             << "a command that the controller does not know";
}

void tst_SweepChecks::malformed()
{
    QFETCH(QByteArray, line);
    QFETCH(QString, found);
    const QString problem = LineChecks::malformation(entry(Operation::Set, line));
    QCOMPARE(problem.section(QStringLiteral("found "), 1).section(QLatin1Char(':'), 0, 0), found);
}

void tst_SweepChecks::nameIsAskedAboutAsItCame()
{
    m_steps[1].operations[0].answer = "a b";
    m_steps[1].operations[1].line = "filter6d mode_desc a b";
    QCOMPARE(violations(1), QStringList());
    m_steps[1].operations[1].line = "qorwpan device_model_desc b";
    QCOMPARE(violations(1), QStringList());
    m_steps[1].operations[1].line = "qorwpan device_model_desc c";
    QCOMPARE(violations(1).size(), 1);
    m_steps[1].operations[1].line = "filter6d mode_desc a b";
    // The disturbed second operation did not have this answer.
    QCOMPARE(violations(2).size(), 1);
    // A set to this answer is a violation, too.
    m_steps[1].operations[1].operation = Operation::Set;
    QVERIFY(violations(1).size() > 0);
}

void tst_SweepChecks::resetNamesTheTargetAsItCame()
{
    m_steps[1].operations[0].answer = "a 'b";
    m_undisturbed[2].operations[0] =
            entry(Operation::Command, "morvek2 body calibrate_from_targetlib standard b01 t01");
    m_steps[2].operations[0] =
            entry(Operation::Command, "morvek2 body calibrate_from_targetlib standard b01 a 'b");
    QCOMPARE(violations(1), QStringList());
    m_steps[1].operations[0].answer = "c 'd";
    QVERIFY(violations(1).size() > 0);
    // The body is no target, however often a query answers with its number.
    m_steps[2].operations[0].line = m_undisturbed[2].operations[0].line;
    m_steps[1].operations[0].answer = "standard b01";
    QCOMPARE(violations(1), QStringList());
}

void tst_SweepChecks::faultsByName()
{
    QVector<SweepFault> faults;
    QString problem;
    QVERIFY(SweepFaults::parse(QStringLiteral("fail, refuse"), &faults, &problem));
    QCOMPARE(faults.size(), 2);
    QVERIFY(faults.at(0).concerns(query));
    QVERIFY(!faults.at(1).concerns(query));
    QVERIFY(faults.at(1).concerns(write));
    QVERIFY(SweepFaults::parse(QStringLiteral("all"), &faults, &problem));
    QCOMPARE(faults.size(), SweepFaults::all().size());
}

void tst_SweepChecks::unknownFault()
{
    QVector<SweepFault> faults;
    QString problem;
    QVERIFY(!SweepFaults::parse(QStringLiteral("fail,refsue"), &faults, &problem));
    QVERIFY2(problem.endsWith(QStringLiteral("found \"refsue\"; did you mean \"refuse\"?")),
             qPrintable(problem));
}

void tst_SweepChecks::everyRuleParses()
{
    for (const SweepFault &fault : SweepFaults::all())
        QVERIFY2(fault.concerns(query) || fault.concerns(write), qPrintable(fault.name));
}

TRACKING_TEST_MAIN(tst_SweepChecks)
#include "tst_sweepchecks.moc"
