#include "bodies/bodyregistry.h"
#include "bodies/bodytablefiller.h"
#include "bodies/bodytableinput.h"
#include "bodytypes.h"
#include "dialogtest.h"

#include <QIcon>
#include <QKeyEvent>
#include <QSignalSpy>
#include <QSpinBox>
#include <QTableWidget>

#include <functional>

namespace {

/**
 * A table of three calibrated bodies and a box with their number, with the input handling of a tab.
 */
class Bench {
public:
    Bench() : input(registry)
    {
        AdminBodyType record;
        record.bodies.resize(3);
        for (AdminBody &body : record.bodies)
            body.calibrated = true;
        record.tableWidget = &table;
        record.spinBox = &spinBox;
        record.tableWidgetColumns = columns.kinds();
        record.tableWidgetColumnIdFormat = QStringLiteral("%1");
        registry.insert(standard, record);
        BodyTableFiller::setUp(&table, columns);
        input.watchTable(standard);
        input.watchSpinBox(&spinBox);
        const auto in = &input;
        QObject::connect(&table, &QTableWidget::cellClicked, in,
                         [this](int row, int column) { input.cellClicked(&table, row, column); });
        QObject::connect(&table, &QTableWidget::itemChanged, in,
                         [this](QTableWidgetItem *item) { input.itemChanged(item); });
        QObject::connect(&table, &QTableWidget::currentItemChanged, in,
                         [this](QTableWidgetItem *item) { input.currentItemChanged(item); });
        QObject::connect(&spinBox, QOverload<int>::of(&QSpinBox::valueChanged), in,
                         [this] { input.spinBoxChanged(&spinBox); });
        fill();
        table.resize(500, 200);
        table.show();
        spinBox.show();
    }

    void fill()
    {
        const FillGuard filling = input.startFilling();
        const QIcon none;
        const BodyTableIcons icons(none, none, none, none, none);
        BodyTableFiller(icons, false, registry, {})
                .fill(standard, [](const QString &, int, int, QTableWidgetItem *) {});
    }

    const BodyColumns columns{{COLUMN_TYPE_ID, QStringLiteral("ID")},
                              {COLUMN_TYPE_ACTIVE, QStringLiteral("Active")},
                              {COLUMN_TYPE_DELETE, QStringLiteral("Delete")}};
    BodyRegistry registry;
    QTableWidget table;
    QSpinBox spinBox;
    BodyTableInput input;
};

/** The arguments of each emission, joined by blanks. */
QStringList heard(const QSignalSpy &spy)
{
    QStringList lines;
    for (const QVariantList &arguments : spy) {
        QStringList words;
        for (const QVariant &argument : arguments)
            words.append(argument.toString());
        lines.append(words.join(QLatin1Char(' ')));
    }
    return lines;
}

} // namespace

Q_DECLARE_METATYPE(std::function<void(Bench &)>)

/** Gestures on a body table, delivered one at a time. */
class tst_BodyTableInput : public DialogTest {
    Q_OBJECT

private slots:
    void deliversAfterTheEvent();
    void dropsWhatArrivesDuringAGesture();
    void ignoresFilling();
    void announcesACurrentBodyOnce();
    void dropsWhatNoLongerHoldsAtItsDelivery_data();
    void dropsWhatNoLongerHoldsAtItsDelivery();
    void ignoresWidgetsThatAreNotWatched_data();
    void ignoresWidgetsThatAreNotWatched();
    void ignoresKeysWithoutACell_data();
    void ignoresKeysWithoutACell();
    void escapeDiscardsATypedCount_data();
    void escapeDiscardsATypedCount();
    void leavesTypesWithoutWidgetsAlone();
    void doubleClickEditsOnlyNames();

private:
    using Change = std::function<void(Bench &)>;

    /** Every gesture that a table and a box can make. */
    static void gesture(Bench &bench);
};

void tst_BodyTableInput::deliversAfterTheEvent()
{
    Bench bench;
    QSignalSpy pressed(&bench.input, &BodyTableInput::deletePressed);
    QSignalSpy counted(&bench.input, &BodyTableInput::countEntered);
    bench.input.cellClicked(&bench.table, 1, 2);
    bench.spinBox.setValue(5);
    QCOMPARE(pressed.count(), 0);
    QCOMPARE(counted.count(), 0);
    Drive::settle();
    QCOMPARE(heard(pressed), QStringList({"standard 1"}));
    QCOMPARE(heard(counted), QStringList({"standard 5"}));
}

void tst_BodyTableInput::dropsWhatArrivesDuringAGesture()
{
    Bench bench;
    QSignalSpy pressed(&bench.input, &BodyTableInput::deletePressed);
    QSignalSpy toggled(&bench.input, &BodyTableInput::activeToggled);
    // The question of the first press: two more gestures arrive while it is shown.
    const auto question = [&] {
        bench.input.cellClicked(&bench.table, 2, 2);
        Drive::toggleCell(&bench.table, 0, 1);
        Drive::settle();
    };
    connect(&bench.input, &BodyTableInput::deletePressed, &bench.input, question);
    bench.input.cellClicked(&bench.table, 0, 2);
    bench.input.cellClicked(&bench.table, 1, 2);
    Drive::settle();
    QCOMPARE(heard(pressed), QStringList({"standard 0"}));
    QCOMPARE(toggled.count(), 0);
    // After the first gesture has ended, the next one is delivered.
    bench.input.disconnect(&bench.input);
    bench.fill();
    Drive::toggleCell(&bench.table, 1, 1);
    Drive::settle();
    QCOMPARE(heard(toggled), QStringList({"standard 1 true"}));
}

void tst_BodyTableInput::ignoresFilling()
{
    Bench bench;
    QSignalSpy toggled(&bench.input, &BodyTableInput::activeToggled);
    bench.registry[standard].bodies[0].active = true;
    bench.fill();
    Drive::settle();
    QCOMPARE(bench.table.item(0, 1)->checkState(), Qt::Checked);
    QCOMPARE(toggled.count(), 0);
}

void tst_BodyTableInput::announcesACurrentBodyOnce()
{
    Bench bench;
    QSignalSpy changed(&bench.input, &BodyTableInput::currentBodyChanged);
    Drive::clickCell(&bench.table, 1, 0);
    QCOMPARE(heard(changed), QStringList({"standard 1"}));
    // A click on the current body announces it again, because the operator is about to act on it.
    Drive::clickCell(&bench.table, 1, 0);
    QCOMPARE(heard(changed), QStringList({"standard 1", "standard 1"}));
}

// What is left out

void tst_BodyTableInput::dropsWhatNoLongerHoldsAtItsDelivery_data()
{
    QTest::addColumn<Change>("gesture");
    QTest::addColumn<Change>("meanwhile");
    const Change press = [](Bench &bench) { bench.input.cellClicked(&bench.table, 2, 2); };
    const Change check = [](Bench &bench) {
        QTableWidgetItem *box = bench.table.item(2, 1);
        box->setCheckState(box->checkState() == Qt::Checked ? Qt::Unchecked : Qt::Checked);
    };
    const Change count = [](Bench &bench) { bench.spinBox.setValue(5); };
    const Change shorten = [](Bench &bench) { bench.registry[standard].bodies.resize(2); };
    const Change forget = [](Bench &bench) { bench.registry.remove(standard); };
    const Change lock = [](Bench &bench) {
        bench.registry.setLocked(true);
        bench.fill();
    };
    QTest::newRow("press, the body is gone") << press << shorten;
    QTest::newRow("press, the cell is gone")
            << press << Change([](Bench &bench) { delete bench.table.takeItem(2, 2); });
    QTest::newRow("press, the cell is dead now") << press << lock;
    QTest::newRow("press, the host left")
            << press << Change([](Bench &bench) { bench.input.retire(); });
    QTest::newRow("press, another configuration")
            << press << Change([](Bench &bench) { bench.registry.beginGeneration(); });
    QTest::newRow("check mark, the body is gone") << check << shorten;
    QTest::newRow("check mark, the cell is gone")
            << check << Change([](Bench &bench) { delete bench.table.takeItem(2, 1); });
    QTest::newRow("check mark, no check box any more") << check << lock;
    QTest::newRow("check mark, taken back") << check << check;
    QTest::newRow("count, the type is gone") << count << forget;
    QTest::newRow("count, locked") << count << lock;
}

void tst_BodyTableInput::dropsWhatNoLongerHoldsAtItsDelivery()
{
    QFETCH(Change, gesture);
    QFETCH(Change, meanwhile);
    for (const bool disturbed : {false, true}) {
        Bench bench;
        QStringList done;
        const auto note = [&](const char *what) {
            return [&done, what] { done.append(QString::fromLatin1(what)); };
        };
        connect(&bench.input, &BodyTableInput::deletePressed, &bench.input, note("delete"));
        connect(&bench.input, &BodyTableInput::activeToggled, &bench.input, note("toggle"));
        connect(&bench.input, &BodyTableInput::countEntered, &bench.input, note("count"));
        gesture(bench);
        if (disturbed)
            meanwhile(bench);
        QCOMPARE(done, QStringList());
        Drive::settle();
        QCOMPARE(done.size(), disturbed ? 0 : 1);
    }
}

void tst_BodyTableInput::ignoresWidgetsThatAreNotWatched_data()
{
    QTest::addColumn<Change>("change");
    QTest::newRow("type removed") << Change([](Bench &bench) { bench.registry.remove(standard); });
    QTest::newRow("hidden") << Change([](Bench &bench) {
        bench.table.hide();
        bench.spinBox.hide();
    });
    QTest::newRow("column of no kind") << Change([](Bench &bench) {
        bench.registry[standard].tableWidgetColumns.clear();
        bench.spinBox.hide();
    });
}

void tst_BodyTableInput::gesture(Bench &bench)
{
    const int column = bench.table.columnCount() - 1;
    bench.input.cellClicked(&bench.table, 1, column);
    bench.input.cellDoubleClicked(&bench.table, 1, column);
    bench.table.item(1, 1)->setCheckState(Qt::Checked);
    bench.spinBox.setValue(bench.spinBox.value() + 1);
}

void tst_BodyTableInput::ignoresWidgetsThatAreNotWatched()
{
    QFETCH(Change, change);
    Bench bench;
    change(bench);
    QSignalSpy pressed(&bench.input, &BodyTableInput::deletePressed);
    QSignalSpy toggled(&bench.input, &BodyTableInput::activeToggled);
    QSignalSpy counted(&bench.input, &BodyTableInput::countEntered);
    gesture(bench);
    bench.table.setCurrentCell(2, 0);
    bench.input.currentItemChanged(nullptr);
    Drive::settle();
    QCOMPARE(heard(pressed), QStringList());
    QCOMPARE(heard(toggled), QStringList());
    QCOMPARE(heard(counted), QStringList());
}

void tst_BodyTableInput::ignoresKeysWithoutACell_data()
{
    QTest::addColumn<Change>("change");
    QTest::addColumn<int>("presses");
    QTest::newRow("a button cell")
            << Change([](Bench &bench) { bench.table.setCurrentCell(1, 2); }) << 1;
    QTest::newRow("a check box") << Change([](Bench &bench) { bench.table.setCurrentCell(1, 1); })
                                 << 0;
    QTest::newRow("no cell") << Change([](Bench &bench) { bench.table.setCurrentItem(nullptr); })
                             << 0;
    QTest::newRow("type removed") << Change([](Bench &bench) {
        bench.table.setCurrentCell(1, 2);
        bench.registry.remove(standard);
    }) << 0;
}

void tst_BodyTableInput::ignoresKeysWithoutACell()
{
    QFETCH(Change, change);
    QFETCH(int, presses);
    Bench bench;
    change(bench);
    QSignalSpy pressed(&bench.input, &BodyTableInput::deletePressed);
    QTest::keyClick(&bench.table, Qt::Key_Return);
    Drive::settle();
    QCOMPARE(pressed.count(), presses);
}

void tst_BodyTableInput::escapeDiscardsATypedCount_data()
{
    QTest::addColumn<QString>("typed");
    QTest::addColumn<bool>("isTaken");
    QTest::newRow("another number") << "7" << true;
    QTest::newRow("nothing") << "" << true;
    QTest::newRow("the same number") << "3" << false;
}

void tst_BodyTableInput::escapeDiscardsATypedCount()
{
    QFETCH(QString, typed);
    QFETCH(bool, isTaken);
    Bench bench;
    bench.spinBox.setValue(3);
    Drive::settle();
    QSignalSpy counted(&bench.input, &BodyTableInput::countEntered);
    bench.spinBox.selectAll();
    QTest::keyClick(&bench.spinBox, Qt::Key_Delete);
    QTest::keyClicks(&bench.spinBox, typed);
    QKeyEvent escape(QEvent::KeyPress, Qt::Key_Escape, Qt::NoModifier);
    QCOMPARE(bench.input.eventFilter(&bench.spinBox, &escape), isTaken);
    QCOMPARE(bench.spinBox.text(), QStringLiteral("3"));
    Drive::settle();
    QCOMPARE(heard(counted), QStringList());
}

void tst_BodyTableInput::leavesTypesWithoutWidgetsAlone()
{
    Bench bench;
    bench.registry.insert(QStringLiteral("bare"), AdminBodyType());
    QSignalSpy counted(&bench.input, &BodyTableInput::countEntered);
    bench.registry[standard].tableWidgetColumnNameStartEdit = true;
    bench.registry[QStringLiteral("bare")].tableWidgetColumnNameStartEdit = true;
    bench.input.commit();
    bench.input.discard();
    Drive::settle();
    QCOMPARE(bench.spinBox.value(), 3);
    bench.input.disconnectWidgets(&bench.input);
    bench.spinBox.setValue(7);
    Drive::settle();
    QCOMPARE(heard(counted), QStringList());
}

void tst_BodyTableInput::doubleClickEditsOnlyNames()
{
    Bench bench;
    QTableWidgetItem *id = bench.table.item(1, 0);
    id->setFlags(id->flags() | Qt::ItemIsEditable);
    delete bench.table.takeItem(2, 0);
    bench.input.cellDoubleClicked(&bench.table, 1, 0);
    bench.input.cellDoubleClicked(&bench.table, 2, 0);
    QVERIFY(!id->flags().testFlag(Qt::ItemIsEditable));
    QVERIFY(!bench.registry.type(standard).tableWidgetColumnNameStartEdit);
}

TRACKING_TEST_MAIN(tst_BodyTableInput)
#include "tst_bodytableinput.moc"
