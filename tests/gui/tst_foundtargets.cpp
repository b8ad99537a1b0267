#include "administrationfixture.h"

#include <QComboBox>

/** The rows of the targets that the cameras see, and the selection. */
class tst_FoundTargets : public AdministrationFixture {
    Q_OBJECT

private slots:
    void foundOnesComeFirst();
    void selectionFollowsItsTarget();
    void selectionGoesWithItsTarget();

private:
    static QTableWidget *listed(QWidget *shown)
    {
        return table(shown, "tableWidget_targetlibrary");
    }
    /** Ends a search at once, so that the page shows what the cameras see. */
    void follow(QWidget *shown);
    /** Lets the cameras see exactly these targets, and lets the page show it. */
    static void see(TestHost &host, QWidget *shown, const QStringList &shortNames);
    static QVector<int> spans(const QTableWidget *targets);
};

void tst_FoundTargets::follow(QWidget *shown)
{
    Drive::holdTimers(shown);
    Drive::click(shown, "pushButton_start");
    robot().expectBox(boxTitle, QStringLiteral("No targets could be identified in library"),
                      Box::Ok);
    Drive::click(shown, "pushButton_stop");
}

void tst_FoundTargets::see(TestHost &host, QWidget *shown, const QStringList &shortNames)
{
    host.edit([&](ControllerState &state) {
        for (TargetState &target : state.targets)
            target.tracked = shortNames.contains(target.shortName);
    });
    QVERIFY(Drive::tick(shown, "timerCheckForTracked_tl"));
}

/** The number of columns that the cell of the short name spans in each row. */
QVector<int> tst_FoundTargets::spans(const QTableWidget *targets)
{
    QVector<int> columns;
    for (int row = 0; row < targets->rowCount(); ++row)
        columns.append(targets->columnSpan(row, 1));
    return columns;
}

void tst_FoundTargets::foundOnesComeFirst()
{
    TestHost host;
    openAt(host, joywandPage, [&](QWidget *shown) {
        const QTableWidget *targets = listed(shown);
        follow(shown);
        see(host, shown, {"JW03", "JW02"});
        QCOMPARE(Drive::column(targets, 1), (QStringList{foundTargets, "JW02", "JW03", "JW01"}));
        QCOMPARE(Drive::column(targets, 0), (QStringList{"", "t16", "t17", "t15"}));
        QCOMPARE(spans(targets), (QVector<int>{3, 1, 1, 1}));
        const QVector<bool> bold{true, true, true, false};
        for (int row = 0; row < bold.size(); ++row) {
            QCOMPARE(targets->item(row, 1)->font().bold(), bold.at(row));
            QCOMPARE(targets->item(row, 1)->icon().isNull(), row == 0 || row == 3);
        }
        QCOMPARE(targets->item(0, 1)->flags(), Qt::ItemFlags(Qt::NoItemFlags));
        see(host, shown, {"JW03"});
        QCOMPARE(Drive::column(targets, 1), (QStringList{foundTargets, "JW03", "JW01", "JW02"}));
        QCOMPARE(spans(targets), (QVector<int>{3, 1, 1, 1}));
        see(host, shown, {});
        QCOMPARE(Drive::column(targets, 1), (QStringList{"JW01", "JW02", "JW03"}));
        QCOMPARE(spans(targets), (QVector<int>{1, 1, 1}));
        for (int row = 0; row < 3; ++row) {
            QVERIFY(!targets->item(row, 1)->font().bold());
            QVERIFY(targets->item(row, 1)->icon().isNull());
            QVERIFY(targets->item(row, 1)->flags().testFlag(Qt::ItemIsSelectable));
        }
    });
}

void tst_FoundTargets::selectionFollowsItsTarget()
{
    TestHost host;
    openAt(host, joywandPage, [&](QWidget *shown) {
        QTableWidget *targets = listed(shown);
        follow(shown);
        press(targets, 2, 1);
        const auto selected = [&] { return Drive::cell(targets, targets->currentRow(), 1); };
        QCOMPARE(selected(), QStringLiteral("JW03"));
        see(host, shown, {"JW02", "JW03"});
        QCOMPARE(targets->currentRow(), 2);
        QCOMPARE(selected(), QStringLiteral("JW03"));
        see(host, shown, {"JW03"});
        QCOMPARE(targets->currentRow(), 1);
        QCOMPARE(selected(), QStringLiteral("JW03"));
        see(host, shown, {"JW01"});
        QCOMPARE(targets->currentRow(), 3);
        QCOMPARE(selected(), QStringLiteral("JW03"));
        QVERIFY(isEnabled(shown, "pushButton_select"));
    });
}

void tst_FoundTargets::selectionGoesWithItsTarget()
{
    TestHost host;
    openAt(host, standardPage, [&](QWidget *shown) {
        QTableWidget *targets = listed(shown);
        press(table(shown, "tableWidget_standard"), 0, IdColumn);
        follow(shown);
        see(host, shown, {"CR02", "GL01"});
        QCOMPARE(Drive::column(targets, 1), (QStringList{"CR02", "GL01"}));
        QCOMPARE(spans(targets), (QVector<int>{1, 1}));
        press(targets, 0, 1);
        QVERIFY(isEnabled(shown, "pushButton_select"));
        see(host, shown, {"GL01"});
        QCOMPARE(Drive::column(targets, 1), QStringList{"GL01"});
        QCOMPARE(targets->currentRow(), -1);
        QVERIFY(!isEnabled(shown, "pushButton_select"));
    });
}

TRACKING_TEST_MAIN(tst_FoundTargets)
#include "tst_foundtargets.moc"
