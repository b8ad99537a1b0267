#include "angletablewidget.h"
#include "dialogtest.h"

namespace {

/** A calibrated body whose angles were read. */
FixedAngleBody readBody(int number)
{
    FixedAngleBody body;
    body.body_id = number;
    body.body_des = QStringLiteral("Body");
    body.body_cali = true;
    body.fixed_angle = {1.0, 2.0, 3.0};
    body.angles_known = true;
    return body;
}

} // namespace

/** The table of fixed angles without its dialog: cells and rows that are not there. */
class tst_AngleTable : public DialogTest {
    Q_OBJECT

private slots:
    void missingRowsHaveNoBody();
    void missingCellsHaveNoAngle();
    void onlyAnglesAreRewritten();

private:
    enum Column { IdColumn, NameColumn, FirstAngle };

    static void fill(AngleTableWidget *table)
    {
        FixedAngleBody first = readBody(1);
        FixedAngleBody second = readBody(2);
        table->fill_in_table({&first, &second});
    }
};

void tst_AngleTable::missingRowsHaveNoBody()
{
    AngleTableWidget table(nullptr, nullptr);
    QVERIFY(!table.body(0));
    fill(&table);
    for (const int row : {-1, 2})
        QVERIFY(!table.body(row));
    QVERIFY(table.body(1));
    QCOMPARE(table.body(1)->body_id, 2);
    QVERIFY(!table.isTouched(1));
}

void tst_AngleTable::missingCellsHaveNoAngle()
{
    AngleTableWidget table(nullptr, nullptr);
    fill(&table);
    delete table.takeItem(0, FirstAngle);
    QVERIFY(!table.body(0));
    for (const auto gesture : {&AngleTableWidget::click_cell, &AngleTableWidget::changed_cell})
        (table.*gesture)(0, FirstAngle);
    QVERIFY(!table.isTouched(0));
    QVERIFY(table.body(1));
}

void tst_AngleTable::onlyAnglesAreRewritten()
{
    AngleTableWidget table(nullptr, nullptr);
    fill(&table);
    table.item(0, NameColumn)->setText(QStringLiteral("7"));
    QCOMPARE(Drive::cell(&table, 0, NameColumn), QStringLiteral("7"));
    QVERIFY(!table.isTouched(0));
    table.item(0, FirstAngle)->setText(QStringLiteral("7"));
    QCOMPARE(Drive::cell(&table, 0, FirstAngle), QStringLiteral("7.00"));
    QVERIFY(table.isTouched(0));
    // A row that was added to the table but not filled shows no body.
    table.setRowCount(3);
    table.setItem(2, FirstAngle, new QTableWidgetItem(QStringLiteral("7")));
    QCOMPARE(Drive::cell(&table, 2, FirstAngle), QStringLiteral("7"));
}

TRACKING_TEST_MAIN(tst_AngleTable)
#include "tst_angletable.moc"
