#include "bodies/bodyregistry.h"
#include "bodytypes.h"
#include "dialogtest.h"

#include <QSpinBox>
#include <QTableWidget>

/** What a tab knows of its types, and of types and bodies that it does not have. */
class tst_BodyRegistry : public DialogTest {
    Q_OBJECT

private slots:
    void unknownTypesReadAsDefaults();
    void missingBodiesReadAsDefaults();
    void widgetsLeadToTheirType();
    void typeIsLabelledByItsDescription();
};

void tst_BodyRegistry::unknownTypesReadAsDefaults()
{
    BodyRegistry registry;
    QCOMPARE(registry.find(standard), static_cast<AdminBodyType *>(nullptr));
    registry.setLimit(standard, 7);
    registry.countSensors(standard);
    registry.remove(standard);
    QVERIFY(!registry.contains(standard));
    QVERIFY(!registry.type(standard).limit);
    QCOMPARE(registry.calibratedBodies(standard), 0);
    registry.insert(standard, AdminBodyType());
    registry.setLimit(standard, 7);
    QCOMPARE(registry.type(standard).limit.value_or(-1), 7);
}

void tst_BodyRegistry::missingBodiesReadAsDefaults()
{
    BodyRegistry registry;
    AdminBodyType record;
    record.bodies.resize(1);
    record.bodies[0].calibrated = true;
    for (const int index : {-1, 0, 1})
        record.setBodyIsReference(index, true);
    QVERIFY(record.getBodyIsReference(0));
    registry.insert(standard, record);
    for (const int index : {-1, 1}) {
        QVERIFY(!registry.hasBody(standard, index));
        QVERIFY(!registry.body(standard, index).calibrated);
        QVERIFY(!registry.type(standard).getBodyIsReference(index));
    }
    QVERIFY(registry.body(standard, 0).isReference);
}

void tst_BodyRegistry::widgetsLeadToTheirType()
{
    BodyRegistry registry;
    QTableWidget table;
    QTableWidget otherTable;
    QSpinBox box;
    QSpinBox otherBox;
    registry[QStringLiteral("bare")] = AdminBodyType();
    registry[standard].tableWidget = &table;
    registry[standard].spinBox = &box;
    QCOMPARE(registry.typeOfTable(&table), standard);
    QCOMPARE(registry.typeOfSpinBox(&box), standard);
    // A type without widgets is not that of a widget that does not exist.
    for (const QObject *unknown :
         {static_cast<QObject *>(nullptr), static_cast<QObject *>(&otherTable),
          static_cast<QObject *>(&otherBox)}) {
        QCOMPARE(registry.typeOfTable(unknown), QString());
        QCOMPARE(registry.typeOfSpinBox(unknown), QString());
    }
}

void tst_BodyRegistry::typeIsLabelledByItsDescription()
{
    BodyRegistry registry;
    QCOMPARE(registry.label(standard), standard);
    registry[standard].typedesc = QStringLiteral("Standard body");
    QCOMPARE(registry.label(standard), QStringLiteral("Standard body"));
}

TRACKING_TEST_MAIN(tst_BodyRegistry)
#include "tst_bodyregistry.moc"
