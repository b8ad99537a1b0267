#include "bodies/bodyrecords.h"
#include "bodytypes.h"
#include "dialogtest.h"

#include <QTableWidget>

namespace {

/** The records of a tab. */
class Records : public BodyRecords {
public:
    explicit Records(const ControllerLink &link) : BodyRecords(link) {}
    ControllerLink ownLink() const { return link(); }
    void addBody() { bodytypes[standard].bodies.append(AdminBody()); }
    const AdminBodyType &record() const { return bodytypes.type(standard); }
};

} // namespace

/** The registration of a type, and the end of the records' link. */
class tst_BodyRecords : public DialogTest {
    Q_OBJECT

private slots:
    void targetTableMayComeFirst();
    void registeringAgainForgetsTheBodies();
    void linkEndsWithTheRecords();
    void unknownTypesAreNotAskedFor();
};

void tst_BodyRecords::targetTableMayComeFirst()
{
    TestHost host;
    QTableWidget targets;
    for (const bool tableFirst : {false, true}) {
        Records records(ControllerLink(&host.io, &host.versions));
        if (tableFirst)
            records.registerTableWidget_tl(standard, &targets);
        records.registerBodyType(standard);
        if (!tableFirst)
            records.registerTableWidget_tl(standard, &targets);
        QCOMPARE(records.record().tableWidget_tl, &targets);
        QCOMPARE(records.record().typedesc, QStringLiteral("Standard body"));
    }
}

void tst_BodyRecords::registeringAgainForgetsTheBodies()
{
    TestHost host;
    Records records(ControllerLink(&host.io, &host.versions));
    records.registerBodyType(standard);
    records.addBody();
    QCOMPARE(records.getNumberOfBodies(standard), 1);
    records.registerBodyType(standard);
    QCOMPARE(records.getNumberOfBodies(standard), 0);
}

void tst_BodyRecords::linkEndsWithTheRecords()
{
    TestHost host;
    auto records = std::make_unique<Records>(ControllerLink(&host.io, &host.versions));
    const ControllerLink link = records->ownLink();
    QVERIFY(link.set("inertial warmup yes"));
    QVERIFY(!link.isClosed());
    records.reset();
    host.clear();
    QVERIFY(link.isClosed());
    QVERIFY(!link.set("inertial warmup yes"));
    QVERIFY(!link.command("morvek2 cal targetlib stop"));
    QCOMPARE(link.text("status active").has_value(), false);
    link.log(QStringLiteral("too late"));
    QCOMPARE(host.lines(), QStringList());
    QCOMPARE(host.log(), QStringList());
}

void tst_BodyRecords::unknownTypesAreNotAskedFor()
{
    TestHost host;
    Records records(ControllerLink(&host.io, &host.versions));
    host.clear();
    records.updateBodyInfo(standard, 0);
    records.updateBodyFilter6dPreset(standard, 0);
    records.updateNumberOfInertialSensors(standard);
    records.unregisterBodyType(standard);
    QVERIFY(!records.is_hybridbodycalibration_available(standard, -1));
    QVERIFY(!records.isBodyTypeRegistered(standard));
    QCOMPARE(records.readMissingOfTypes(), QStringList());
    QCOMPARE(host.lines(), QStringList());
    QCOMPARE(host.log(), QStringList());
}

TRACKING_TEST_MAIN(tst_BodyRecords)
#include "tst_bodyrecords.moc"
