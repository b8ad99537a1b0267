#include "bodies/bodyregistry.h"
#include "bodies/bodytablefiller.h"
#include "bodytypes.h"
#include "dialogtest.h"

#include <QIcon>
#include <QTableWidget>

#include <functional>
#include <memory>

namespace {

/** A table of two bodies whose second column a tab fills itself. */
class CustomBench {
public:
    CustomBench() : table(std::make_unique<QTableWidget>())
    {
        registry[standard].bodies.resize(2);
        registry[standard].tableWidget = table.get();
        registry[standard].tableWidgetColumns = columns.kinds();
        registry[standard].tableWidgetColumnIdFormat = QStringLiteral("S%1");
        BodyTableFiller::setUp(table.get(), columns);
        BodyTableFiller::sizeColumns(table.get(), columns);
    }

    void fill(const std::function<void(int, QTableWidgetItem *)> &custom)
    {
        const QIcon none;
        const BodyTableIcons icons(none, none, none, none, none);
        BodyTableFiller(icons, false, registry, {})
                .fill(standard, [&](const QString &, int row, int, QTableWidgetItem *item) {
                    custom(row, item);
                });
    }

    const BodyColumns columns{{COLUMN_TYPE_ID, QStringLiteral("ID")},
                              {COLUMN_TYPE_CUSTOM, QStringLiteral("Own")},
                              {COLUMN_TYPE_CALIBRATED, QStringLiteral("Calibration")}};
    BodyRegistry registry;
    std::unique_ptr<QTableWidget> table;
};

} // namespace

/** The cells of a body table that a tab fills itself, perhaps by asking the controller. */
class tst_CustomCells : public DialogTest {
    Q_OBJECT

private slots:
    void showWhatTheTabPuts();
    void tableMayGoMeanwhile();
    void bodiesMayGoMeanwhile();
    void rowsMayGoMeanwhile();
    void shortTableKeepsItsLastRow();
};

void tst_CustomCells::showWhatTheTabPuts()
{
    CustomBench bench;
    for (const Qt::CheckState state : {Qt::Checked, Qt::Unchecked, Qt::Unchecked}) {
        bench.fill([state](int row, QTableWidgetItem *item) {
            item->setText(QString::number(row * 10));
            item->setCheckState(state);
        });
        QCOMPARE(Drive::column(bench.table.get(), 1), QStringList({"0", "10"}));
        QCOMPARE(bench.table->item(1, 1)->checkState(), state);
    }
    bench.fill([](int, QTableWidgetItem *) {});
    QVERIFY(!bench.table->item(1, 1)->data(Qt::CheckStateRole).isValid());
    QCOMPARE(Drive::column(bench.table.get(), 0), QStringList({"S1", "S2"}));
    // A column of the kind that shows filters is not there, so that none is shown.
    BodyTableFiller::showFilterColumn(bench.registry.type(standard));
    for (int column = 0; column < bench.columns.size(); ++column)
        QVERIFY(!bench.table->isColumnHidden(column));
}

void tst_CustomCells::tableMayGoMeanwhile()
{
    CustomBench bench;
    int asked = 0;
    bench.fill([&](int, QTableWidgetItem *) {
        ++asked;
        bench.table.reset();
    });
    QCOMPARE(asked, 1);
    // The registered table is null, as after the removal of the table.
    bench.registry[standard].tableWidget = nullptr;
    BodyTableFiller::showFilterColumn(bench.registry.type(standard));
}

void tst_CustomCells::bodiesMayGoMeanwhile()
{
    CustomBench bench;
    bench.fill([&](int, QTableWidgetItem *) { bench.registry.remove(standard); });
    QCOMPARE(Drive::cell(bench.table.get(), 0, 0), QStringLiteral("S1"));
    QVERIFY(!bench.table->item(0, 2));
    QVERIFY(!bench.table->item(1, 0));
}

void tst_CustomCells::rowsMayGoMeanwhile()
{
    CustomBench bench;
    bench.fill([&](int row, QTableWidgetItem *) {
        if (row == 1)
            bench.table->setRowCount(1);
    });
    QCOMPARE(bench.table->rowCount(), 1);
    QVERIFY(bench.table->item(0, 2));
}

void tst_CustomCells::shortTableKeepsItsLastRow()
{
    CustomBench bench;
    bench.fill([](int, QTableWidgetItem *) {});
    BodyTableFiller::restoreRow(bench.table.get(), 7);
    QCOMPARE(bench.table->currentRow(), 1);
    QCOMPARE(bench.table->currentColumn(), 0);
    BodyTableFiller::restoreRow(bench.table.get(), 0, 2);
    QCOMPARE(bench.table->currentRow(), 0);
    QCOMPARE(bench.table->currentColumn(), 2);
}

TRACKING_TEST_MAIN(tst_CustomCells)
#include "tst_customcells.moc"
