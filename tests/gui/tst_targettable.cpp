#include "BodyTypeAdministrationTab.h"
#include "administrationfixture.h"
#include "standardadministration.h"
#include "targetlibrary.h"

#include <QComboBox>
#include <QHeaderView>

namespace {

/** A page that gives access to the target row that it remembers. */
class RememberingPage : public StandardAdministration {
public:
    using StandardAdministration::selectedRowTl;
    using StandardAdministration::StandardAdministration;
};

} // namespace

/** The target table of the standard bodies: set-up, categories, marks and failing queries. */
class tst_TargetTable : public AdministrationFixture {
    Q_OBJECT

private slots:
    void targetTableIsSetUp();
    void listsCategory_data();
    void listsCategory();
    void readsCustomCalibrationsWhileNoSearchRuns();
    void failedTargetQuery_data();
    void failedTargetQuery();
    void currentRowIsRemembered();
};

void tst_TargetTable::targetTableIsSetUp()
{
    TestHost host;
    open(host, [&](QWidget *window, QTableWidget *) {
        const QTableWidget *table = targets(window);
        QCOMPARE(table->columnCount(), 4);
        const QStringList headers{"ID", "Short Name", "Name", "Used"};
        for (int column = 0; column < 4; ++column)
            QCOMPARE(table->horizontalHeaderItem(column)->text(), headers.at(column));
        QVERIFY(table->isColumnHidden(0));
        const QHeaderView *header = table->horizontalHeader();
        QVERIFY(!header->sectionsClickable());
        QCOMPARE(header->sectionResizeMode(1), QHeaderView::ResizeToContents);
        QCOMPARE(header->sectionResizeMode(2), QHeaderView::Stretch);
        QCOMPARE(header->sectionResizeMode(3), QHeaderView::ResizeToContents);
        QVERIFY(!table->verticalHeader()->isVisible());
        QCOMPARE(table->selectionMode(), QAbstractItemView::SingleSelection);
        QCOMPARE(table->selectionBehavior(), QAbstractItemView::SelectRows);
        QCOMPARE(table->editTriggers(),
                 QAbstractItemView::EditTriggers(QAbstractItemView::NoEditTriggers));
        QCOMPARE(table->rowCount(), 0);
    });
}

void tst_TargetTable::listsCategory_data()
{
    QTest::addColumn<QString>("category");
    QTest::addColumn<QStringList>("ids");
    QTest::addColumn<QStringList>("used");
    QTest::newRow("crosses") << "Cross Target" << QStringList{"t01", "t02", "t03", "t04", "t05"}
                             << QStringList{"", "", "yes", "", "yes"};
    QTest::newRow("glasses") << "Glasses Target" << QStringList{"t06", "t07", "t08", "t09"}
                             << QStringList{"custom", "", "", ""};
    QTest::newRow("without a group") << "" << QStringList{"t13", "t14"} << QStringList{"", "yes"};
    QTest::newRow("found") << foundTargets << QStringList{"t02", "t06"}
                           << QStringList{"", "custom"};
}

void tst_TargetTable::listsCategory()
{
    QFETCH(QString, category);
    QFETCH(QStringList, ids);
    QFETCH(QStringList, used);
    TestHost host;
    open(host, [&](QWidget *window, QTableWidget *) {
        auto *tab = qobject_cast<BodyTypeAdministrationTab *>(page(window));
        auto *categories = Drive::find<QComboBox>(page(window), "comboBox_filter");
        host.edit([](ControllerState &state) {
            state.targets[1].tracked = true;
            state.targets[5].tracked = true;
            state.targets[20].tracked = true; // of another type
        });
        tab->updateTlTrackedStatus(QStringLiteral("standard"));
        host.clear();
        Drive::choose(categories, QStringLiteral("HMD Target"));
        Drive::choose(categories, category);
        QCOMPARE(Drive::column(targets(window), 0), ids);
        QCOMPARE(Drive::column(targets(window), 3), used);
        QCOMPARE(host.writes(), (QStringList{customCheck, customCheck}));
    });
    QCOMPARE(host.log(), QStringList());
}

void tst_TargetTable::readsCustomCalibrationsWhileNoSearchRuns()
{
    TestHost host;
    open(host, [&](QWidget *window, QTableWidget *) {
        auto *categories = Drive::find<QComboBox>(page(window), "comboBox_filter");
        host.clear();
        Drive::choose(categories, QStringLiteral("HMD Target"));
        QCOMPARE(host.lines(),
                 (QStringList{"targetlib target_status_calibrated t10",
                              "targetlib target_status_calibrated t11",
                              "targetlib target_status_calibrated t12", "status active",
                              customCheck, "targetlib target_status_calibrated_custom t10",
                              "targetlib target_status_calibrated_custom t11",
                              "targetlib target_status_calibrated_custom t12"}));
        host.edit([](ControllerState &state) { state.search.active = true; });
        host.clear();
        Drive::choose(categories, QStringLiteral("Cross Target"));
        QCOMPARE(host.writes(), QStringList());
        QCOMPARE(host.queries().filter(QStringLiteral("_custom")), QStringList());
        QCOMPARE(targets(window)->rowCount(), 5);
        host.edit([](ControllerState &state) { state.search.active = false; });
    });
}

void tst_TargetTable::failedTargetQuery_data()
{
    QTest::addColumn<QString>("fault");
    QTest::addColumn<QStringList>("log");
    QTest::addColumn<QStringList>("used");
    QTest::newRow("used state")
            << "targetlib target_status_calibrated t03 fail"
            << QStringList{"Error: Unable to get calibration state of target t03"}
            << QStringList{"", "", "yes", "", "yes"};
    QTest::newRow("custom state")
            << "targetlib target_status_calibrated_custom t03 fail"
            << QStringList{"Error: Unable to get custom calibration state of target t03"}
            << QStringList{"", "", "yes", "", "yes"};
    QTest::newRow("custom check")
            << "command morvek2 targetlib check* refuse"
            << QStringList{"Error: Unable to check custom calibrations of targets"}
            << QStringList{"", "", "yes", "", "yes"};
}

void tst_TargetTable::failedTargetQuery()
{
    QFETCH(QString, fault);
    QFETCH(QStringList, log);
    QFETCH(QStringList, used);
    TestHost host;
    open(host, [&](QWidget *window, QTableWidget *) {
        host.fault(fault);
        Drive::choose(Drive::find<QComboBox>(page(window), "comboBox_filter"),
                      QStringLiteral("Cross Target"));
        QCOMPARE(host.log(), log);
        QCOMPARE(Drive::column(targets(window), 3), used);
    });
}

void tst_TargetTable::currentRowIsRemembered()
{
    TestHost host;
    Targetlibrary library(&host.io, &host.versions, nullptr);
    RememberingPage page(&host.io, nullptr, &host.versions, QStringLiteral("1"), &library);
    page.show();
    Drive::holdTimers(&page);
    QCOMPARE(page.selectedRowTl, -1);
    Drive::choose(Drive::find<QComboBox>(&page, "comboBox_filter"), QStringLiteral("Cross Target"));
    QTableWidget *targets = table(&page, "tableWidget_targetlibrary");
    auto *tracked = page.findChild<QTimer *>(QStringLiteral("timerCheckForTracked_tl"));
    tracked->start(603);
    Drive::clickCell(targets, 2, 1);
    QVERIFY(Drive::tick(&page, "timerCheckForTracked_tl"));
    QCOMPARE(page.selectedRowTl, 2);
    Drive::clickCell(targets, 4, 1);
    QVERIFY(Drive::tick(&page, "timerCheckForTracked_tl"));
    QCOMPARE(page.selectedRowTl, 4);
}

TRACKING_TEST_MAIN(tst_TargetTable)
#include "tst_targettable.moc"
