#include "bodies/bodyregistry.h"
#include "bodies/bodytablefiller.h"
#include "bodies/bodytableinput.h"
#include "bodytypes.h"
#include "dialogtest.h"

#include <QIcon>
#include <QSignalSpy>
#include <QSpinBox>
#include <QTableWidget>

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

/** Gestures on a body table, delivered one at a time. */
class tst_BodyTableInput : public DialogTest {
    Q_OBJECT

private slots:
    void deliversAfterTheEvent();
    void dropsWhatArrivesDuringAGesture();
    void ignoresFilling();
    void announcesACurrentBodyOnce();
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

TRACKING_TEST_MAIN(tst_BodyTableInput)
#include "tst_bodytableinput.moc"
