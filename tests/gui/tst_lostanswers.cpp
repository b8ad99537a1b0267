#include "FaultEngine.h"
#include "administrationfixture.h"

#include <QComboBox>

namespace {

const QString countQuery = QStringLiteral("body number_of_bodies standard");

} // namespace

/** Answers that are lost, empty or garbled: what is shown, logged and not sent after them. */
class tst_LostAnswers : public AdministrationFixture {
    Q_OBJECT

private slots:
    void unreadCountIsNoZero();
    void countOfALostReadBack_data();
    void countOfALostReadBack();
    void wrongCountLeavesNoTrace();
    void countAboveTheLimitIsUnread();
    void silentBodiesEndTheReading();
    void lostReferenceKeepsTheMark();
    void blankNameIsNone_data();
    void blankNameIsNone();
    void failedQueryHasItsLine_data();
    void failedQueryHasItsLine();
    void lostProgressIsLoggedOnce();
    void lostTrackedStatesAreLoggedOnce_data();
    void lostTrackedStatesAreLoggedOnce();
    void lostCustomStatesAreLoggedOnce_data();
    void lostCustomStatesAreLoggedOnce();
    void gatesDisableCells_data();
    void gatesDisableCells();
    void oldControllerSaysThatItCannotMove();
    void missingTargetsAreReadAtTheNextOpening_data();
    void missingTargetsAreReadAtTheNextOpening();
    void missingFilterIsReadAtTheNextOpening();
    void whatWasReadIsNotAskedAgain();

private:
    /** Lets the operation fail at two polls in a row, and once more after a poll that succeeds. */
    static void pollTwiceInVain(TestHost &host, QWidget *window, const QString &operation,
                                const QStringList &lines)
    {
        QWidget *standard = page(window);
        Drive::holdTimers(standard);
        standard->findChild<QTimer *>(QStringLiteral("timerCheckForTracked_tl"))->start(603);
        QVERIFY(Drive::tick(standard, "timerCheckForTracked_tl"));
        for (int failure = 0; failure < 2; ++failure) {
            host.fault(operation + QStringLiteral(" always fail"));
            host.clear();
            QVERIFY(Drive::tick(standard, "timerCheckForTracked_tl"));
            QCOMPARE(host.log(), lines);
            host.clear();
            QVERIFY(Drive::tick(standard, "timerCheckForTracked_tl"));
            QCOMPARE(host.log(), QStringList());
            QVERIFY(!host.queries().isEmpty());
            host.io.faults()->clear();
            QVERIFY(Drive::tick(standard, "timerCheckForTracked_tl"));
        }
    }
    static QSpinBox *countBox(QWidget *window)
    {
        return Drive::find<QSpinBox>(window, "spinBox_standard_bodies");
    }
    void openAgain(TestHost &host, BodyAdministrationDlg *dialog, const Acts &drive)
    {
        open(dialog, [&](QWidget *window) {
            Drive::settle();
            drive(window, bodies(window));
        });
        Q_UNUSED(host)
    }
};

void tst_LostAnswers::unreadCountIsNoZero()
{
    TestHost host;
    host.fault(QStringLiteral("get %1 always fail").arg(countQuery));
    BodyAdministrationDlg dialog(&host.io, &host.mainWindow, &host.versions);
    openAgain(host, &dialog, [&](QWidget *window, QTableWidget *bodies) {
        QCOMPARE(bodies->rowCount(), 0);
        QVERIFY(!countBox(window)->isEnabled());
        QCOMPARE(countBox(window)->text(), QStringLiteral("-"));
        QTest::keyClick(countBox(window), Qt::Key_Up);
        Drive::settle();
    });
    QCOMPARE(changes(host), QStringList());
    host.io.faults()->clear();
    openAgain(host, &dialog, [&](QWidget *window, QTableWidget *bodies) {
        QCOMPARE(bodies->rowCount(), host.state().bodyTypes["standard"].bodies.size());
        QVERIFY(countBox(window)->isEnabled());
        QCOMPARE(countBox(window)->value(), bodies->rowCount());
    });
}

void tst_LostAnswers::countOfALostReadBack_data()
{
    QTest::addColumn<QString>("fault");
    QTest::addColumn<int>("change");
    QTest::newRow("accepted") << QString() << 1;
    QTest::newRow("refused") << "set standard number_of_bodies* always refuse" << 0;
}

void tst_LostAnswers::countOfALostReadBack()
{
    QFETCH(QString, fault);
    QFETCH(int, change);
    TestHost host;
    const int before = host.state().bodyTypes["standard"].bodies.size();
    open(host, [&](QWidget *window, QTableWidget *bodies) {
        if (!fault.isEmpty())
            host.fault(fault);
        host.fault(QStringLiteral("get %1 always fail").arg(countQuery));
        countBox(window)->setFocus();
        QTest::keyClick(countBox(window), Qt::Key_Up);
        Drive::settle();
        QCOMPARE(bodies->rowCount(), before + change);
        QCOMPARE(countBox(window)->value(), before + change);
        QVERIFY(countBox(window)->isEnabled());
        QTest::keyClick(countBox(window), Qt::Key_Up);
        Drive::settle();
        QCOMPARE(host.writes().filter(QStringLiteral("number_of_bodies")).last(),
                 QStringLiteral("standard number_of_bodies %1").arg(before + change + 1));
    });
}

void tst_LostAnswers::wrongCountLeavesNoTrace()
{
    TestHost host;
    const int real = host.state().bodyTypes["standard"].bodies.size();
    BodyAdministrationDlg dialog(&host.io, &host.mainWindow, &host.versions);
    int maximum = 0;
    openAgain(host, &dialog,
              [&](QWidget *window, QTableWidget *) { maximum = countBox(window)->maximum(); });
    // Without a limit, the dialog cannot recognise the count as wrong.
    host.fault(QStringLiteral("get standard max_number_of_bodies always fail"));
    host.fault(QStringLiteral("get %1 always answer \"9999\"").arg(countQuery));
    host.clear();
    openAgain(host, &dialog, [&](QWidget *, QTableWidget *bodies) {
        QCOMPARE(bodies->rowCount(), real);
        QVERIFY(host.lines().size() < 1000);
        QVERIFY(host.log().contains("Error: Unable to get further standard bodies"));
    });
    host.io.faults()->clear();
    openAgain(host, &dialog, [&](QWidget *window, QTableWidget *bodies) {
        QCOMPARE(bodies->rowCount(), real);
        QCOMPARE(countBox(window)->maximum(), maximum);
        QCOMPARE(countBox(window)->value(), real);
        QCOMPARE(label(page(window), "label_error"), QString());
    });
}

void tst_LostAnswers::countAboveTheLimitIsUnread()
{
    TestHost host;
    host.fault(QStringLiteral("get %1 always answer \"9999\"").arg(countQuery));
    BodyAdministrationDlg dialog(&host.io, &host.mainWindow, &host.versions);
    openAgain(host, &dialog, [&](QWidget *window, QTableWidget *bodies) {
        QCOMPARE(bodies->rowCount(), 0);
        QVERIFY(!countBox(window)->isEnabled());
    });
    QVERIFY(host.log().contains("Error: Unable to get number of standard bodies"));
}

void tst_LostAnswers::silentBodiesEndTheReading()
{
    ControllerState state = TestHost::scenario(QStringLiteral("crowded"));
    TestHost host(state);
    const int count = state.bodyTypes["standard"].bodies.size();
    QVERIFY(count > 20);
    BodyAdministrationDlg dialog(&host.io, &host.mainWindow, &host.versions);
    for (const char *query : {"desc", "targetlib_name", "active", "calibrated", "recalibrated"})
        host.fault(QStringLiteral("get body %1 standard* always fail").arg(query));
    host.clear();
    openAgain(host, &dialog, [&](QWidget *, QTableWidget *) {
        QVERIFY(!host.lines().contains("body desc standard b09"));
        QVERIFY(host.lines().contains("body desc standard b08"));
        QCOMPARE(host.log().count("Error: Unable to get further standard bodies"), 1);
    });
    host.io.faults()->clear();
    openAgain(host, &dialog,
              [&](QWidget *, QTableWidget *bodies) { QCOMPARE(bodies->rowCount(), count); });
}

void tst_LostAnswers::lostReferenceKeepsTheMark()
{
    TestHost host;
    host.edit([](ControllerState &state) { state.trackingReference = "standard b01"; });
    open(host, [&](QWidget *window, QTableWidget *bodies) {
        QCOMPARE(bodies->item(0, ReferenceColumn)->checkState(), Qt::Checked);
        host.fault(QStringLiteral("get tracking reference always fail"));
        goTo(window, joywandPage);
        goTo(window, standardPage);
        QCOMPARE(bodies->item(0, ReferenceColumn)->checkState(), Qt::Checked);
        robot().expectBox(boxTitle,
                          "After deactivating the reference target,\n"
                          "all targets will not be tracked.\nContinue?",
                          QMessageBox::No);
        toggle(bodies, 0, ActiveColumn);
        QCOMPARE(changes(host), QStringList());
    });
}

void tst_LostAnswers::blankNameIsNone_data()
{
    QTest::addColumn<QString>("query");
    QTest::addColumn<QString>("absent");
    QTest::newRow("target") << "body targetlib_name standard*"
                            << "calibrate_from_targetlib";
    QTest::newRow("sensor") << "body inertial_sensor standard*"
                            << "inertial sensor_handeye";
    QTest::newRow("device") << "joywand device*"
                            << "qorwpan device_model_desc";
    QTest::newRow("preset") << "body filter6d_preset standard*"
                            << "filter6d preset_desc";
}

void tst_LostAnswers::blankNameIsNone()
{
    QFETCH(QString, query);
    QFETCH(QString, absent);
    for (const char *answer : {"", "  "}) {
        TestHost host;
        host.fault(QStringLiteral("get %1 always answer \"%2\"").arg(query, answer));
        BodyAdministrationDlg dialog(&host.io, &host.mainWindow, &host.versions);
        openAgain(host, &dialog, [&](QWidget *window, QTableWidget *) {
            if (query.startsWith("joywand"))
                goTo(window, joywandPage);
        });
        for (const QString &line : host.lines()) {
            QVERIFY2(!line.endsWith(' '), qPrintable(line));
            if (line.startsWith(absent))
                QVERIFY2(line.size() > absent.size() + 1, qPrintable(line));
        }
    }
}

void tst_LostAnswers::failedQueryHasItsLine_data()
{
    QTest::addColumn<QString>("query");
    QTest::addColumn<QString>("line");
    QTest::newRow("lock") << "config is_changeable"
                          << "Error: Unable to get lock state of the configuration";
    QTest::newRow("state of a calibration") << "status active"
                                            << "Error: Unable to get state of calibration";
    QTest::newRow("references")
            << "measurementtool number_of_references"
            << "Error: Unable to get number of measurementtool_reference bodies";
    QTest::newRow("target of a reference")
            << "body targetlib_name measurementtool_reference b01"
            << "Error: Unable to get targetlib name of body measurementtool_reference b01";
}

void tst_LostAnswers::failedQueryHasItsLine()
{
    QFETCH(QString, query);
    QFETCH(QString, line);
    TestHost host;
    host.edit([](ControllerState &state) {
        bodies(state, "measurementtool_reference").resize(1);
        bodies(state, "standard")[0].description.clear();
    });
    open(host, [&](QWidget *window, QTableWidget *bodies) {
        QComboBox *category = Drive::find<QComboBox>(page(window), "comboBox_filter");
        category->setCurrentIndex(1);
        QVERIFY(targets(window)->rowCount() > 0);
        Drive::clickCell(bodies, 0, IdColumn);
        Drive::clickCell(targets(window), 0, 1);
        Drive::settle();
        host.clear();
        host.fault(QStringLiteral("get %1 always fail").arg(query));
        if (query.startsWith("config"))
            configurationChanged(host);
        else
            Drive::click(page(window), "pushButton_select");
        Drive::settle();
        QVERIFY2(host.log().contains(line), qPrintable(host.log().join('\n')));
    });
}

void tst_LostAnswers::lostProgressIsLoggedOnce()
{
    TestHost host;
    open(host, [&](QWidget *window, QTableWidget *) {
        QWidget *standard = page(window);
        Drive::holdTimers(standard);
        Drive::click(standard, "pushButton_start");
        host.fault(QStringLiteral("get status progress always fail"));
        host.clear();
        for (int poll = 0; poll < 3; ++poll)
            QVERIFY(Drive::tick(standard, "timerDoMea_tl"));
        QCOMPARE(host.log(),
                 QStringList("Error: Unable to get progress of target library calibration"));
        robot().expectBox(boxTitle, "2 targets could be identified in library", QMessageBox::Ok);
        Drive::click(standard, "pushButton_stop");
    });
}

void tst_LostAnswers::lostTrackedStatesAreLoggedOnce_data()
{
    QTest::addColumn<QString>("category");
    QTest::addColumn<QStringList>("ids");
    QTest::newRow("listed") << "Glasses Target" << QStringList{"t06", "t07", "t08", "t09"};
    QTest::newRow("found") << "- Found Targets -"
                           << QStringList{"t01", "t02", "t03", "t04", "t05", "t06", "t07",
                                          "t08", "t09", "t10", "t11", "t12", "t13", "t14"};
}

void tst_LostAnswers::lostTrackedStatesAreLoggedOnce()
{
    QFETCH(QString, category);
    QFETCH(QStringList, ids);
    QStringList lines;
    for (const QString &id : qAsConst(ids))
        lines << QStringLiteral("Error: Unable to get tracked state of target ") + id;
    TestHost host;
    open(host, [&](QWidget *window, QTableWidget *) {
        auto *box = Drive::find<QComboBox>(page(window), "comboBox_filter");
        Drive::choose(box, QStringLiteral("Cross Target"));
        Drive::choose(box, category);
        pollTwiceInVain(host, window, QStringLiteral("get targetlib target_status_tracked*"),
                        lines);
    });
}

void tst_LostAnswers::lostCustomStatesAreLoggedOnce_data()
{
    QTest::addColumn<QString>("operation");
    QTest::addColumn<QStringList>("lines");
    QTest::newRow("search") << "get status active"
                            << QStringList{"Error: Unable to get state of calibration"};
    QTest::newRow("check") << "command morvek2 targetlib check_custom_calibration"
                           << QStringList{"Error: Unable to check custom calibrations of targets"};
    const QString line = QStringLiteral("Error: Unable to get custom calibration state of target ");
    QTest::newRow("state") << "get targetlib target_status_calibrated_custom*"
                           << QStringList{line + "t02", line + "t06"};
}

void tst_LostAnswers::lostCustomStatesAreLoggedOnce()
{
    QFETCH(QString, operation);
    QFETCH(QStringList, lines);
    TestHost host;
    host.edit([](ControllerState &state) {
        state.targets[1].tracked = true;
        state.targets[5].tracked = true;
    });
    open(host, [&](QWidget *window, QTableWidget *) {
        pollTwiceInVain(host, window, operation, lines);
        // Every failure of a command by the operator is logged.
        host.fault(operation + QStringLiteral(" always fail"));
        auto *box = Drive::find<QComboBox>(page(window), "comboBox_filter");
        Drive::choose(box, QStringLiteral("Cross Target"));
        for (int time = 0; time < 2; ++time) {
            host.clear();
            Drive::choose(box, foundTargets);
            QCOMPARE(host.log(), lines);
            Drive::choose(box, QStringLiteral("Cross Target"));
        }
    });
}

void tst_LostAnswers::gatesDisableCells_data()
{
    QTest::addColumn<QString>("protocol");
    QTest::addColumn<int>("column");
    QTest::addColumn<bool>("editable");
    QTest::newRow("names, 0.15") << "0.15" << int(NameColumn) << false;
    QTest::newRow("names, 0.16") << "0.16" << int(NameColumn) << true;
    QTest::newRow("activity, 1.10") << "1.10" << int(ActiveColumn) << false;
    QTest::newRow("activity, 1.11") << "1.11" << int(ActiveColumn) << true;
    QTest::newRow("reference, 1.23") << "1.23" << int(ReferenceColumn) << false;
    QTest::newRow("reference, 1.24") << "1.24" << int(ReferenceColumn) << true;
}

void tst_LostAnswers::gatesDisableCells()
{
    QFETCH(QString, protocol);
    QFETCH(int, column);
    QFETCH(bool, editable);
    ControllerState state = TestHost::scenario(QStringLiteral("studio"));
    state.protocol = protocol;
    TestHost host(state);
    open(host, [&](QWidget *, QTableWidget *bodies) {
        const Qt::ItemFlags flags = bodies->item(0, column)->flags();
        const Qt::ItemFlag flag =
                column == NameColumn ? Qt::ItemIsEditable : Qt::ItemIsUserCheckable;
        QCOMPARE(flags.testFlag(flag), editable);
        QVERIFY(flags.testFlag(Qt::ItemIsEnabled));
    });
}

void tst_LostAnswers::oldControllerSaysThatItCannotMove()
{
    ControllerState state = TestHost::scenario(QStringLiteral("studio"));
    state.protocol = QStringLiteral("1.10");
    TestHost host(state);
    open(host, [&](QWidget *window, QTableWidget *bodies) {
        Drive::clickCell(bodies, 1, IdColumn);
        Drive::settle();
        host.clear();
        Drive::click(page(window), "pushButton_up");
        QCOMPARE(host.lines(), QStringList());
        QCOMPARE(host.log(), QStringList());
        QCOMPARE(label(window, "messageLine"),
                 QStringLiteral("Unable to move bodies: this controller is too old for it"));
    });
}

void tst_LostAnswers::missingTargetsAreReadAtTheNextOpening_data()
{
    QTest::addColumn<QString>("lost");
    QTest::addColumn<QString>("notAgain");
    QTest::newRow("target") << "targetlib target_name t01"
                            << "targetlib target_name t02";
    QTest::newRow("targets") << "targetlib number_of_targets"
                             << "targetlib number_of_groups";
    QTest::newRow("group") << "targetlib group_name g01"
                           << "targetlib group_name g02";
    QTest::newRow("groups") << "targetlib number_of_groups"
                            << "targetlib number_of_targets";
    QTest::newRow("members") << "targetlib number_of_group_members g01"
                             << "targetlib group_name g01";
    QTest::newRow("member") << "targetlib group_member g01 m01"
                            << "targetlib group_member g01 m02";
}

void tst_LostAnswers::missingTargetsAreReadAtTheNextOpening()
{
    QFETCH(QString, lost);
    QFETCH(QString, notAgain);
    TestHost host;
    host.fault(QStringLiteral("get %1 call 1 fail").arg(lost));
    BodyAdministrationDlg dialog(&host.io, &host.mainWindow, &host.versions);
    host.clear();
    openAgain(host, &dialog, [&](QWidget *window, QTableWidget *) {
        QCOMPARE(host.lines().count(lost), 1);
        QVERIFY(!host.lines().contains(notAgain));
        const QString group = host.state().targetGroups.value(0);
        Drive::choose(Drive::find<QComboBox>(page(window), "comboBox_filter"), group);
        QCOMPARE(Drive::column(targets(window), 1),
                 QStringList({"CR01", "CR02", "CR03", "CR04", "CR05"}));
    });
    host.clear();
    openAgain(host, &dialog,
              [&](QWidget *, QTableWidget *) { QVERIFY(!host.lines().contains(lost)); });
}

void tst_LostAnswers::missingFilterIsReadAtTheNextOpening()
{
    TestHost host;
    host.fault(QStringLiteral("get filter6d available standard call 1 fail"));
    host.fault(QStringLiteral("get body type_desc standard call 1 fail"));
    BodyAdministrationDlg dialog(&host.io, &host.mainWindow, &host.versions);
    host.clear();
    openAgain(host, &dialog, [&](QWidget *, QTableWidget *bodies) {
        QCOMPARE(host.lines().count("filter6d available standard"), 1);
        QCOMPARE(host.lines().count("body type_desc standard"), 1);
        QVERIFY(!host.lines().contains("filter6d available joywand"));
        QVERIFY(!bodies->isColumnHidden(FilterColumn));
    });
}

void tst_LostAnswers::whatWasReadIsNotAskedAgain()
{
    TestHost host;
    BodyAdministrationDlg dialog(&host.io, &host.mainWindow, &host.versions);
    host.clear();
    openAgain(host, &dialog, [&](QWidget *, QTableWidget *) {
        QCOMPARE(host.lines().filter("targetlib target_name"), QStringList());
        QCOMPARE(host.lines().filter("filter6d available"), QStringList());
    });
}

TRACKING_TEST_MAIN(tst_LostAnswers)
#include "tst_lostanswers.moc"
