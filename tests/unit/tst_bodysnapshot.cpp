#include "bodies/bodysnapshot.h"
#include "bodytypes.h"
#include "testprogram.h"

#include <QtTest>

#include <functional>

namespace {

/** Two standard bodies. The first one has a name, a target, a sensor and the reference mark. */
BodyRegistry twoRecords()
{
    AdminBodyType record;
    record.bodies.resize(2);
    record.bodies[0].desc = QStringLiteral("Cap");
    record.bodies[0].tlibName = QStringLiteral("GL01");
    record.bodies[0].inertialSensor = QStringLiteral("vendorone mini 'A7'");
    record.bodies[0].isReference = true;
    BodyRegistry registry;
    registry.insert(standard, record);
    return registry;
}

using Change = std::function<void(BodyRegistry &)>;

AdminBody &first(BodyRegistry &registry)
{
    return registry[standard].bodies[0];
}

} // namespace

Q_DECLARE_METATYPE(Change)

/** The body of a question, compared with the records afterwards. */
class tst_BodySnapshot : public QObject {
    Q_OBJECT

private slots:
    void noticesChanges_data();
    void noticesChanges();
    void isNeverCurrentForNoBody();
};

void tst_BodySnapshot::noticesChanges_data()
{
    QTest::addColumn<Change>("change");
    QTest::addColumn<bool>("current");
    QTest::newRow("nothing") << Change([](BodyRegistry &) {}) << true;
    QTest::newRow("another body") << Change([](BodyRegistry &r) {
        r[standard].bodies[1].desc = QStringLiteral("Crate");
    }) << true;
    QTest::newRow("name") << Change([](BodyRegistry &r) { first(r).desc.clear(); }) << false;
    QTest::newRow("target") << Change([](BodyRegistry &r) { first(r).tlibName.clear(); }) << false;
    QTest::newRow("sensor") << Change([](BodyRegistry &r) { first(r).inertialSensor.clear(); })
                            << false;
    QTest::newRow("reference") << Change([](BodyRegistry &r) { first(r).isReference = false; })
                               << false;
    QTest::newRow("fewer bodies") << Change([](BodyRegistry &r) { r[standard].bodies.resize(1); })
                                  << false;
    QTest::newRow("more bodies") << Change([](BodyRegistry &r) { r[standard].bodies.resize(3); })
                                 << false;
    QTest::newRow("no bodies") << Change([](BodyRegistry &r) { r[standard].bodies.clear(); })
                               << false;
    QTest::newRow("type gone") << Change([](BodyRegistry &r) { r.remove(standard); }) << false;
    QTest::newRow("another configuration")
            << Change([](BodyRegistry &r) { r.beginGeneration(); }) << false;
    QTest::newRow("locked") << Change([](BodyRegistry &r) { r.setLocked(true); }) << false;
}

void tst_BodySnapshot::noticesChanges()
{
    QFETCH(Change, change);
    BodyRegistry registry = twoRecords();
    const BodySnapshot snapshot(registry, standard, 0);
    change(registry);
    QTEST(snapshot.isCurrent(registry), "current");
}

void tst_BodySnapshot::isNeverCurrentForNoBody()
{
    const BodyRegistry registry = twoRecords();
    QVERIFY(!BodySnapshot().isCurrent(registry));
    QVERIFY(!BodySnapshot(registry, standard, -1).isCurrent(registry));
    QVERIFY(!BodySnapshot(registry, standard, 2).isCurrent(registry));
}

TRACKING_TEST_GUILESS_MAIN(tst_BodySnapshot)
#include "tst_bodysnapshot.moc"
