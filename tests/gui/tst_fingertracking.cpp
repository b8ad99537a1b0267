#include "administrationfixture.h"

namespace {

const QString handsNotAvailable =
        QStringLiteral("<b><font color=red>Fingertracking is not available!</font></b>");
const QString limitReached =
        QStringLiteral("<b><font color=red>Max. number of Hands is reached!</font></b>");
const QString availableQuery = QStringLiteral("fingertracking available");

} // namespace

/** The page of the tracked hands. */
class tst_Fingertracking : public AdministrationFixture {
    Q_OBJECT

private slots:
    void opensWithTheExactQueries();
    void showsHands();
    void availability_data();
    void availability();
    void becomesAvailableLater();
    void limitText();
    void changesCount_data();
    void changesCount();
    void unreadableMaximum();
    void assignsTarget_data();
    void assignsTarget();
    void movesTargetToOtherHand();
    void keepsSelections();
    void neverOffersAdjustment();

private:
    enum HandColumn { Id, Active, Name, Calibration, Delete, Reset };

    static QTableWidget *hands(QWidget *shown)
    {
        return table(shown, "tableWidget_fingertracking");
    }
    static QTableWidget *targets(QWidget *shown)
    {
        return table(shown, "tableWidget_targetlibrary");
    }
};

void tst_Fingertracking::opensWithTheExactQueries()
{
    ControllerState state = studio();
    state.bodyTypes[QStringLiteral("fingertracking")].bodies.resize(1);
    TestHost host(state);
    BodyAdministrationDlg dialog(&host.io, &host.mainWindow, &host.versions);
    open(&dialog, [&host](QWidget *window) {
        host.clear();
        goTo(window, handsPage);
        const QStringList expected{"targetlib target_status_calibrated t18",
                                   "targetlib target_status_calibrated t19",
                                   "targetlib target_status_calibrated t20",
                                   "status active",
                                   customCheck,
                                   "targetlib target_status_calibrated_custom t18",
                                   "targetlib target_status_calibrated_custom t19",
                                   "targetlib target_status_calibrated_custom t20",
                                   "fingertracking max_number_of_hands",
                                   "body number_of_bodies fingertracking",
                                   "body desc fingertracking b01",
                                   "body targetlib_name fingertracking b01",
                                   "body active fingertracking b01",
                                   "body calibrated fingertracking b01",
                                   "body recalibrated fingertracking b01",
                                   "body inertial_sensor fingertracking b01",
                                   "tracking reference",
                                   "inertial available",
                                   "inertial warmup"};
        QCOMPARE(host.lines().join(QLatin1Char('\n')), expected.join(QLatin1Char('\n')));
    });
    QCOMPARE(host.log(), QStringList());
}

void tst_Fingertracking::showsHands()
{
    TestHost host;
    openAt(host, handsPage, [](QWidget *shown) {
        QStringList headers;
        for (int column = 0; column < hands(shown)->columnCount(); ++column)
            headers.append(hands(shown)->horizontalHeaderItem(column)->text());
        QCOMPARE(headers, (QStringList{"ID", "Active", "Name", "Calibration", "Delete", "Reset"}));
        QCOMPARE(Drive::row(hands(shown), 0),
                 (QStringList{"H1", "", "Left hand", "Target Library", "", ""}));
        QCOMPARE(Drive::row(hands(shown), 1),
                 (QStringList{"H2", "", "Right hand", "not calibrated", "", ""}));
        QCOMPARE(Drive::column(targets(shown), 1), (QStringList{"HN01", "HN02", "HN03"}));
        QCOMPARE(Drive::column(targets(shown), 3), (QStringList{"yes", "", ""}));
        QCOMPARE(label(shown, "label_error"), QString());
    });
}

// Availability

void tst_Fingertracking::availability_data()
{
    QTest::addColumn<QString>("protocol");
    QTest::addColumn<QString>("effect");
    QTest::addColumn<bool>("asked");
    QTest::addColumn<bool>("available");
    QTest::newRow("0.17, yes") << "0.17"
                               << "answer \"yes\"" << true << true;
    QTest::newRow("0.17, no") << "0.17"
                              << "answer \"no\"" << true << false;
    QTest::newRow("1.21, yes") << "1.21"
                               << "answer \"yes\"" << true << true;
    QTest::newRow("1.21, Yes") << "1.21"
                               << "answer \"Yes\"" << true << false;
    QTest::newRow("1.21, unreadable") << "1.21"
                                      << "fail" << true << false;
    QTest::newRow("1.22, never asked") << "1.22"
                                       << "answer \"no\"" << false << true;
}

void tst_Fingertracking::availability()
{
    QFETCH(QString, protocol);
    QFETCH(QString, effect);
    QFETCH(bool, asked);
    QFETCH(bool, available);
    TestHost host(studio(protocol));
    host.fault(QStringLiteral("get %1 %2").arg(availableQuery, effect));
    openAt(host, handsPage, [available](QWidget *shown) {
        QCOMPARE(label(shown, "label_error"), available ? QString() : handsNotAvailable);
        QVERIFY(isVisible(shown, "label_error"));
        for (const char *name : {"tableWidget_fingertracking", "spinBox_hands",
                                 "tableWidget_targetlibrary", "pushButton_start"})
            QVERIFY2(isVisible(shown, name) == available, name);
    });
    QCOMPARE(host.queries().contains(availableQuery), asked);
    QCOMPARE(host.queries().contains(QStringLiteral("body number_of_bodies fingertracking")),
             available);
    // The query is sent when the page is made and when it is shown.
    const QString line = QStringLiteral("Error: Unable to get availability of hands");
    QCOMPARE(host.log(),
             effect == QLatin1String("fail") ? QStringList({line, line}) : QStringList());
}

void tst_Fingertracking::becomesAvailableLater()
{
    ControllerState state = studio(QStringLiteral("1.21"));
    state.fingertrackingAvailable = false;
    TestHost host(state);
    BodyAdministrationDlg dialog(&host.io, &host.mainWindow, &host.versions);
    open(&dialog, [](QWidget *window) {
        goTo(window, handsPage);
        QCOMPARE(label(page(window, handsPage), "label_error"), handsNotAvailable);
    });
    host.edit([](ControllerState &changed) { changed.fingertrackingAvailable = true; });
    open(&dialog, [&host](QWidget *window) {
        QWidget *shown = page(window, handsPage);
        QCOMPARE(hands(shown)->rowCount(), 2);
        QCOMPARE(label(shown, "label_error"), QString());
        host.clear();
        goTo(window, standardPage);
        goTo(window, handsPage);
        QVERIFY(!host.queries().contains(availableQuery));
    });
}

// Counts

void tst_Fingertracking::limitText()
{
    TestHost host(TestHost::scenario(QStringLiteral("full")));
    openAt(host, handsPage, [](QWidget *shown) {
        auto *count = Drive::find<QSpinBox>(shown, "spinBox_hands");
        QCOMPARE(label(shown, "label_error"), limitReached);
        Drive::typeNumber(count, QStringLiteral("1"));
        QCOMPARE(label(shown, "label_error"), QString());
        Drive::typeNumber(count, QStringLiteral("2"));
        QCOMPARE(label(shown, "label_error"), limitReached);
    });
}

void tst_Fingertracking::changesCount_data()
{
    QTest::addColumn<QString>("fault");
    QTest::addColumn<int>("number");
    QTest::addColumn<QStringList>("log");
    QTest::newRow("accepted") << "" << 3 << QStringList();
    QTest::newRow("refused")
            << "set fingertracking number_of_hands* refuse" << 2
            << QStringList{"Error: Unable to set number of fingertracking hand bodies to 3"};
}

void tst_Fingertracking::changesCount()
{
    QFETCH(QString, fault);
    QFETCH(int, number);
    QFETCH(QStringList, log);
    TestHost host;
    if (!fault.isEmpty())
        host.fault(fault);
    openAt(host, handsPage, [&](QWidget *shown) {
        host.clear();
        auto *count = Drive::find<QSpinBox>(shown, "spinBox_hands");
        Drive::typeNumber(count, QStringLiteral("3"));
        QCOMPARE(changes(host), QStringList{QStringLiteral("fingertracking number_of_hands 3")});
        QCOMPARE(count->value(), number);
        QCOMPARE(hands(shown)->rowCount(), number);
    });
    QCOMPARE(host.log(), log);
}

void tst_Fingertracking::unreadableMaximum()
{
    TestHost host;
    host.fault(QStringLiteral("get fingertracking max_number_of_hands fail"));
    openAt(host, handsPage, [](QWidget *shown) { QCOMPARE(hands(shown)->rowCount(), 2); });
    QCOMPARE(host.log(),
             QStringList{"Error: Unable to get max number of fingertracking hand bodies"});
}

// Assignment

void tst_Fingertracking::assignsTarget_data()
{
    QTest::addColumn<QString>("name");
    QTest::addColumn<int>("answer");
    QTest::addColumn<bool>("done");
    QTest::newRow("no name") << "" << 0 << true;
    QTest::newRow("OK") << "Right hand" << int(Box::Ok) << true;
    QTest::newRow("Cancel") << "Right hand" << int(Box::Cancel) << false;
}

void tst_Fingertracking::assignsTarget()
{
    QFETCH(QString, name);
    QFETCH(int, answer);
    QFETCH(bool, done);
    ControllerState state = studio();
    state.bodyTypes[QStringLiteral("fingertracking")].bodies[1].description = name;
    TestHost host(state);
    openAt(host, handsPage, [&](QWidget *shown) {
        Drive::clickCell(hands(shown), 1, Id);
        Drive::clickCell(targets(shown), 2, 1);
        host.clear();
        if (answer != 0) {
            robot().expectBox(warning,
                              QStringLiteral("Overwrite body calibration data of %1?").arg(name),
                              Box::StandardButton(answer));
        }
        Drive::click(shown, "pushButton_select");
        const QStringList written{"morvek2 body calibrate_from_targetlib fingertracking b02 t20"};
        QCOMPARE(changes(host), done ? written : QStringList());
        QCOMPARE(Drive::column(targets(shown), 3), (QStringList{"yes", "", done ? "yes" : ""}));
        QCOMPARE(Drive::cell(hands(shown), 1, Calibration),
                 done ? QStringLiteral("Target Library") : QStringLiteral("not calibrated"));
    });
    QCOMPARE(host.log(), QStringList());
}

void tst_Fingertracking::movesTargetToOtherHand()
{
    TestHost host;
    openAt(host, handsPage, [&](QWidget *shown) {
        Drive::clickCell(hands(shown), 1, Id);
        Drive::clickCell(targets(shown), 0, 1);
        host.clear();
        robot().expectBox(warning, QStringLiteral("Overwrite body calibration data of Right hand?"),
                          Box::Ok);
        Drive::click(shown, "pushButton_select");
        QCOMPARE(changes(host),
                 (QStringList{"body number_of_marker fingertracking b01 0",
                              "body desc fingertracking b01 \"\"",
                              "morvek2 body calibrate_from_targetlib fingertracking b02 t18"}));
        QCOMPARE(Drive::column(hands(shown), Calibration),
                 (QStringList{"not calibrated", "Target Library"}));
        QCOMPARE(hands(shown)->currentRow(), 1);
        // The rule of the button reads a column that has no text here.
        QVERIFY(!isEnabled(shown, "pushButton_deselect"));
    });
}

void tst_Fingertracking::keepsSelections()
{
    TestHost host;
    openAt(host, handsPage, [&host](QWidget *shown) {
        Drive::clickCell(hands(shown), 1, Id);
        Drive::clickCell(targets(shown), 2, 1);
        configurationChanged(host);
        QCOMPARE(hands(shown)->currentRow(), 1);
        QCOMPARE(targets(shown)->currentRow(), 2);
        QVERIFY(isEnabled(shown, "pushButton_select"));
    });
}

void tst_Fingertracking::neverOffersAdjustment()
{
    TestHost host;
    BodyAdministrationDlg dialog(&host.io, &host.mainWindow, &host.versions);
    announceModules(host);
    open(&dialog, [](QWidget *window) {
        Drive::clickCell(table(window, "tableWidget_standard"), 0, 0);
        QVERIFY(isEnabled(window, "pushButton_body_adjustment"));
        goTo(window, handsPage);
        for (int row = 0; row < 2; ++row) {
            Drive::clickCell(hands(window), row, Id);
            QVERIFY(!isEnabled(window, "pushButton_body_adjustment"));
        }
    });
}

TRACKING_TEST_MAIN(tst_Fingertracking)
#include "tst_fingertracking.moc"
