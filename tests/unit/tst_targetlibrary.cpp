#include "dialogtest.h"
#include "targetlibrary.h"
#include "targets/target.h"

#include <QPointer>

namespace {

TargetState makeTarget(const QString &shortName, const QString &longName,
                       const QString &bodyType = QStringLiteral("standard"),
                       const QString &group = QString())
{
    TargetState target;
    target.shortName = shortName;
    target.longName = longName;
    target.bodyType = bodyType;
    target.group = group;
    return target;
}

/** Three targets, two of them in groups, the second one used by a body. */
ControllerState smallLibrary()
{
    ControllerState state = TestHost::scenario(QStringLiteral("studio"));
    state.targetGroups = QStringList({"Cross Target", "Glasses Target"});
    state.targets = {makeTarget("CR01", "Cross small", "standard", "Cross Target"),
                     makeTarget("GL01", "Glasses round", "standard", "Glasses Target"),
                     makeTarget("JW02", "Joywand fork", "joywand")};
    return state;
}

/** One line for each target, with everything that the library holds of it. */
QStringList described(const Targetlibrary &library)
{
    QStringList lines;
    for (const Target *target : library.targets()) {
        lines << QStringList({target->id(), target->shortName(), target->longName(),
                              target->bodyType(), target->group(),
                              target->isCalibrated() ? "used" : "free",
                              target->isTracked() ? "tracked" : "unseen"})
                         .join(QLatin1Char('|'));
    }
    return lines;
}

const char *const cross = "t01|CR01|Cross small|standard|Cross Target|free|unseen";
const char *const glasses = "t02|GL01|Glasses round|standard|Glasses Target|used|unseen";
const char *const joywand = "t03|JW02|Joywand fork|joywand||free|unseen";

} // namespace

/** The catalogue of the controller's targets. */
class tst_Targetlibrary : public DialogTest {
    Q_OBJECT

private slots:
    void asksInOrder();
    void readsEveryTarget();
    void keepsWhatItRead();
    void readsNames_data();
    void readsNames();
    void readsBodyTypes_data();
    void readsBodyTypes();
    void usedUnlessNone_data();
    void usedUnlessNone();
    void goesOnAfterFailures_data();
    void goesOnAfterFailures();
    void emptyCatalogue_data();
    void emptyCatalogue();
    void numbersBeyondTwoDigits();
    void firstOfEqualShortNames();
    void looksUpExactly();
    void laterGroupWins();
    void ignoresMembersThatAreNoTargets();
    void knowsTheTypeOfTargets_data();
    void knowsTheTypeOfTargets();
    void worksWithoutHost();
    void ownsItsTargets();
};

void tst_Targetlibrary::asksInOrder()
{
    TestHost host(smallLibrary());
    const Targetlibrary library(&host.io, &host.versions);
    QCOMPARE(host.lines(),
             QStringList({"targetlib number_of_targets", "targetlib target_name t01",
                          "targetlib target_status_calibrated t01", "targetlib target_bodytype t01",
                          "targetlib target_name t02", "targetlib target_status_calibrated t02",
                          "targetlib target_bodytype t02", "targetlib target_name t03",
                          "targetlib target_status_calibrated t03", "targetlib target_bodytype t03",
                          "targetlib number_of_groups", "targetlib group_name g01",
                          "targetlib number_of_group_members g01", "targetlib group_member g01 m01",
                          "targetlib group_name g02", "targetlib number_of_group_members g02",
                          "targetlib group_member g02 m01"}));
    QCOMPARE(host.log(), QStringList());
}

void tst_Targetlibrary::readsEveryTarget()
{
    TestHost host(smallLibrary());
    const Targetlibrary library(&host.io, &host.versions);
    QCOMPARE(described(library), QStringList({cross, glasses, joywand}));
    QCOMPARE(library.getGroupFromTid("t02"), QStringLiteral("Glasses Target"));
    QCOMPARE(library.getGroupFromTid("t03"), QString());
}

void tst_Targetlibrary::keepsWhatItRead()
{
    TestHost host(smallLibrary());
    const Targetlibrary library(&host.io, &host.versions);
    host.clear();
    host.edit([](ControllerState &state) { state.targets.clear(); });
    QCOMPARE(library.getLongNameFromTid("t01"), QStringLiteral("Cross small"));
    QCOMPARE(library.getTidFromShortname("GL01"), QStringLiteral("t02"));
    QCOMPARE(library.getGroupFromTid("t01"), QStringLiteral("Cross Target"));
    QCOMPARE(host.lines(), QStringList());
    const Targetlibrary again(&host.io, &host.versions);
    QCOMPARE(described(again), QStringList());
}

void tst_Targetlibrary::readsNames_data()
{
    QTest::addColumn<QString>("answer");
    QTest::addColumn<QString>("shortName");
    QTest::addColumn<QString>("longName");
    QTest::newRow("quoted") << "'CR01' \"Cross small\""
                            << "CR01"
                            << "Cross small";
    QTest::newRow("bare") << "CR01 Cross small"
                          << "CR01"
                          << "Cross small";
    QTest::newRow("no long name") << "'CR01'"
                                  << "CR01"
                                  << "";
    QTest::newRow("empty long name") << "'CR01' \"\""
                                     << "CR01"
                                     << "";
    QTest::newRow("apostrophes inside") << "'C'R'01' \"x\""
                                        << "CR01"
                                        << "x";
    QTest::newRow("apostrophe in the long name") << "'CR01' \"Bob's\""
                                                 << "CR01"
                                                 << "Bob's";
    QTest::newRow("quotes in the long name") << "'CR01' \"a\" \"b\""
                                             << "CR01"
                                             << "a b";
    QTest::newRow("two blanks") << "'CR01'  \"x\""
                                << "CR01"
                                << " x";
    QTest::newRow("blanks in the long name") << "'CR01' \"a  b \""
                                             << "CR01"
                                             << "a  b ";
    QTest::newRow("empty answer") << ""
                                  << ""
                                  << "";
}

void tst_Targetlibrary::readsNames()
{
    QFETCH(QString, answer);
    QFETCH(QString, shortName);
    QFETCH(QString, longName);
    QString written = answer;
    written.replace(QLatin1Char('"'), QLatin1String("\\\""));
    TestHost host(smallLibrary());
    host.fault(QStringLiteral("targetlib target_name t01 answer \"%1\"").arg(written));
    const Targetlibrary library(&host.io, &host.versions);
    const Target *target = library.target("t01");
    QVERIFY(target);
    QCOMPARE(target->shortName(), shortName);
    QCOMPARE(target->longName(), longName);
    QCOMPARE(library.getLongNameFromTid("t01"), longName);
}

void tst_Targetlibrary::readsBodyTypes_data()
{
    QTest::addColumn<QString>("answer");
    QTest::addColumn<QString>("bodyType");
    QTest::newRow("in apostrophes") << "'measurementtool'"
                                    << "measurementtool";
    QTest::newRow("bare") << "joywand"
                          << "joywand";
    QTest::newRow("none") << "none"
                          << "none";
    QTest::newRow("apostrophe inside") << "stan'dard"
                                       << "standard";
}

void tst_Targetlibrary::readsBodyTypes()
{
    QFETCH(QString, answer);
    TestHost host(smallLibrary());
    host.fault(QStringLiteral("targetlib target_bodytype t01 answer \"%1\"").arg(answer));
    const Targetlibrary library(&host.io, &host.versions);
    QTEST(library.target("t01")->bodyType(), "bodyType");
}

void tst_Targetlibrary::usedUnlessNone_data()
{
    QTest::addColumn<QString>("answer");
    QTest::addColumn<bool>("used");
    QTest::newRow("none") << "none" << false;
    QTest::newRow("a body") << "standard b03" << true;
    QTest::newRow("yes") << "yes" << true;
    QTest::newRow("no is not none") << "no" << true;
    QTest::newRow("none with a capital") << "None" << true;
    QTest::newRow("none and more") << "none " << true;
}

void tst_Targetlibrary::usedUnlessNone()
{
    QFETCH(QString, answer);
    TestHost host(smallLibrary());
    host.fault(QStringLiteral("targetlib target_status_calibrated t01 answer \"%1\"").arg(answer));
    const Targetlibrary library(&host.io, &host.versions);
    QTEST(library.target("t01")->isCalibrated(), "used");
}

void tst_Targetlibrary::goesOnAfterFailures_data()
{
    QTest::addColumn<QString>("failing");
    QTest::addColumn<QStringList>("log");
    QTest::addColumn<QStringList>("targets");
    const QString crossUngrouped = "t01|CR01|Cross small|standard||free|unseen";
    const QString glassesUngrouped = "t02|GL01|Glasses round|standard||used|unseen";
    QTest::newRow("name of the first target")
            << "targetlib target_name t01" << QStringList{"Error: Unable to get target name"}
            << QStringList({glasses, joywand});
    QTest::newRow("name of every target")
            << "targetlib target_name*"
            << QStringList({"Error: Unable to get target name", "Error: Unable to get target name",
                            "Error: Unable to get target name"})
            << QStringList();
    QTest::newRow("calibration state")
            << "targetlib target_status_calibrated t02" << QStringList()
            << QStringList({cross, "t02|GL01|Glasses round|standard|Glasses Target|free|unseen",
                            joywand});
    QTest::newRow("body type") << "targetlib target_bodytype t03"
                               << QStringList{"Error: Unable to get body type"}
                               << QStringList({cross, glasses,
                                               "t03|JW02|Joywand fork|none||free|unseen"});
    QTest::newRow("number of groups") << "targetlib number_of_groups" << QStringList()
                                      << QStringList({crossUngrouped, glassesUngrouped, joywand});
    QTest::newRow("name of a group")
            << "targetlib group_name g01" << QStringList{"Error: Unable to get group name"}
            << QStringList({crossUngrouped, glasses, joywand});
    QTest::newRow("number of members") << "targetlib number_of_group_members g01" << QStringList()
                                       << QStringList({crossUngrouped, glasses, joywand});
    QTest::newRow("absurd number of members")
            << "targetlib number_of_group_members g01 answer \"2147483647\"" << QStringList()
            << QStringList({crossUngrouped, glasses, joywand});
    QTest::newRow("member") << "targetlib group_member g02 m01" << QStringList()
                            << QStringList({cross, glassesUngrouped, joywand});
}

void tst_Targetlibrary::goesOnAfterFailures()
{
    QFETCH(QString, failing);
    TestHost host(smallLibrary());
    host.fault(failing.contains(QLatin1String("answer")) ? failing : failing + " fail");
    const Targetlibrary library(&host.io, &host.versions);
    QTEST(described(library), "targets");
    QTEST(host.log(), "log");
}

void tst_Targetlibrary::emptyCatalogue_data()
{
    QTest::addColumn<QString>("effect");
    QTest::newRow("no targets") << "answer \"0\"";
    QTest::newRow("count fails") << "fail";
    QTest::newRow("count is no number") << "wrong-type";
    QTest::newRow("count is negative") << "answer \"-3\"";
    QTest::newRow("count is absurd") << "answer \"2147483647\"";
}

void tst_Targetlibrary::emptyCatalogue()
{
    QFETCH(QString, effect);
    TestHost host(smallLibrary());
    host.fault(QStringLiteral("targetlib number_of* ") + effect);
    const Targetlibrary library(&host.io, &host.versions);
    QCOMPARE(described(library), QStringList());
    QCOMPARE(library.target("t01"), nullptr);
    QCOMPARE(library.getLongNameFromTid("t01"), QString());
    QCOMPARE(library.getTidFromShortname("CR01"), QString());
    QCOMPARE(library.getGroupFromTid("t01"), QString());
    QCOMPARE(host.lines(),
             QStringList({"targetlib number_of_targets", "targetlib number_of_groups"}));
    QCOMPARE(host.log(), QStringList());
}

void tst_Targetlibrary::numbersBeyondTwoDigits()
{
    ControllerState state = smallLibrary();
    state.targets.clear();
    for (int number = 1; number <= 101; ++number)
        state.targets << makeTarget(QStringLiteral("N%1").arg(number), "Many");
    TestHost host(state);
    const Targetlibrary library(&host.io, &host.versions);
    QCOMPARE(library.targets().size(), 101);
    QCOMPARE(library.getTidFromShortname("N7"), QStringLiteral("t07"));
    QCOMPARE(library.getTidFromShortname("N99"), QStringLiteral("t99"));
    QCOMPARE(library.getTidFromShortname("N100"), QStringLiteral("t100"));
    QVERIFY(host.queries().contains("targetlib target_name t100"));
    QVERIFY(host.queries().contains("targetlib target_status_calibrated t100"));
    // Identifiers are ordered alphabetically.
    const QStringList ids = library.targets().keys();
    QCOMPARE(ids.indexOf("t100"), ids.indexOf("t10") + 1);
    QCOMPARE(ids.indexOf("t11"), ids.indexOf("t101") + 1);
}

void tst_Targetlibrary::firstOfEqualShortNames()
{
    ControllerState state = smallLibrary();
    state.targets.clear();
    for (int number = 1; number <= 100; ++number)
        state.targets << makeTarget(number == 100 || number >= 11 ? "twin" : "other", "x");
    TestHost host(state);
    const Targetlibrary library(&host.io, &host.versions);
    // In alphabetical order "t100" comes before "t11".
    QCOMPARE(library.getTidFromShortname("twin"), QStringLiteral("t100"));
    QCOMPARE(library.getTidFromShortname("other"), QStringLiteral("t01"));
}

void tst_Targetlibrary::looksUpExactly()
{
    TestHost host(smallLibrary());
    const Targetlibrary library(&host.io, &host.versions);
    QCOMPARE(library.getTidFromShortname("CR01"), QStringLiteral("t01"));
    QCOMPARE(library.getTidFromShortname("cr01"), QString());
    QCOMPARE(library.getTidFromShortname("CR0"), QString());
    QCOMPARE(library.getTidFromShortname("CR01 "), QString());
    QCOMPARE(library.getTidFromShortname(QString()), QString());
    QCOMPARE(library.getLongNameFromTid("T01"), QString());
    QCOMPARE(library.getLongNameFromTid("t04"), QString());
    QCOMPARE(library.getGroupFromTid("t1"), QString());
}

void tst_Targetlibrary::laterGroupWins()
{
    TestHost host(smallLibrary());
    host.fault(QStringLiteral("targetlib group_member g02 m01 answer \"t01\""));
    const Targetlibrary library(&host.io, &host.versions);
    QCOMPARE(library.getGroupFromTid("t01"), QStringLiteral("Glasses Target"));
    QCOMPARE(library.target("t01")->group(), QStringLiteral("Glasses Target"));
    QCOMPARE(library.target("t02")->group(), QString());
}

void tst_Targetlibrary::ignoresMembersThatAreNoTargets()
{
    TestHost host(smallLibrary());
    host.fault(QStringLiteral("targetlib group_member g01 m01 answer \"t77\""));
    const Targetlibrary library(&host.io, &host.versions);
    QCOMPARE(library.targets().keys(), QStringList({"t01", "t02", "t03"}));
    QCOMPARE(library.getGroupFromTid("t77"), QStringLiteral("Cross Target"));
    QCOMPARE(library.target("t01")->group(), QString());
}

void tst_Targetlibrary::knowsTheTypeOfTargets_data()
{
    QTest::addColumn<QString>("targetType");
    QTest::addColumn<QString>("bodyType");
    QTest::addColumn<bool>("fits");
    QTest::newRow("same") << "standard"
                          << "standard" << true;
    QTest::newRow("other") << "standard"
                           << "joywand" << false;
    QTest::newRow("tool") << "measurementtool"
                          << "measurementtool" << true;
    QTest::newRow("reference for a tool") << "measurementtool_reference"
                                          << "measurementtool" << true;
    QTest::newRow("tool for a reference") << "measurementtool"
                                          << "measurementtool_reference" << true;
    QTest::newRow("short word for tools") << "mea"
                                          << "measurementtool" << true;
    QTest::newRow("not a tool") << "standard"
                                << "measurementtool" << false;
    QTest::newRow("tool on the standard page") << "measurementtool"
                                               << "standard" << false;
    QTest::newRow("none") << "none"
                          << "standard" << false;
}

void tst_Targetlibrary::knowsTheTypeOfTargets()
{
    QFETCH(QString, targetType);
    QFETCH(QString, bodyType);
    TestHost host(smallLibrary());
    const Targetlibrary library(&host.io, &host.versions);
    Target target;
    target.setBodyType(targetType);
    QTEST(library.isOfType(target, bodyType), "fits");
}

void tst_Targetlibrary::worksWithoutHost()
{
    const Targetlibrary library(nullptr, nullptr);
    QCOMPARE(library.targets().size(), 0);
    QCOMPARE(library.getTidFromShortname("CR01"), QString());
}

void tst_Targetlibrary::ownsItsTargets()
{
    TestHost host(smallLibrary());
    auto library = std::make_unique<Targetlibrary>(&host.io, &host.versions);
    const QPointer<Target> target(library->target("t01"));
    QCOMPARE(target->parent(), library.get());
    library.reset();
    QVERIFY(target.isNull());
}

TRACKING_TEST_MAIN(tst_Targetlibrary)
#include "tst_targetlibrary.moc"
