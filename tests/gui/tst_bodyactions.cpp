#include "BodyTypeAdministrationTab.h"
#include "administrationfixture.h"
#include "bodies/bodyquestions.h"
#include "bodies/bodyregistry.h"

namespace {

const QString handEyeA7 = QStringLiteral("inertial sensor_handeye vendorone mini 'A7' none");
const QString defaultC3 = QStringLiteral("morvek2 set inertial sensor_default vendortwo core 'C3'");

} // namespace

/** Resetting and moving bodies: every question, command and failure. */
class tst_BodyActions : public AdministrationFixture {
    Q_OBJECT

private slots:
    void resets_data();
    void resets();
    void declinedResetReadsNothing();
    void resetFailure_data();
    void resetFailure();
    void sensorQueriesOfReset_data();
    void sensorQueriesOfReset();
    void dialogDeletedInReset_data();
    void dialogDeletedInReset();
    void bodyDroppedInResetQuestion();
    void unknownReset();

    void movesBody_data();
    void movesBody();
    void failedMove();
    void oldProtocolMovesNothing();
    void dialogDeletedInMove();
    void operationsRefuseBodiesThatAreNotThere();
    void finishedDeletionShowsNoFailure();
};

// Reset

void tst_BodyActions::resets_data()
{
    QTest::addColumn<QString>("protocol");
    QTest::addColumn<int>("row");
    QTest::addColumn<bool>("warmup");
    QTest::addColumn<QString>("asked");
    QTest::addColumn<QStringList>("writes");
    const QString toLibrary =
            QStringLiteral("Reset Standard body 02\nto Target-Library geometry?\nGlasses round");
    const QStringList library{"morvek2 body calibrate_from_targetlib standard b02 GL01"};
    QTest::newRow("library, 1.11") << "1.11" << 1 << false << toLibrary << library;
    QTest::newRow("library, 1.24") << "1.24" << 1 << true << toLibrary << library;
    QTest::newRow("library comes before sensor")
            << "1.24" << 4 << false
            << "Reset Standard body 05\nto Target-Library geometry?\nPointer"
            << QStringList{"morvek2 body calibrate_from_targetlib standard b05 PL02"};
    const QString losesHandEye = QStringLiteral(
            "Reset Standard body 04?\nHand eye calibration will be deleted!\nCamera rig");
    QTest::newRow("hand-eye") << "1.24" << 3 << false << losesHandEye << QStringList{handEyeA7};
    QTest::newRow("hand-eye, 1.20")
            << "1.20" << 3 << false << losesHandEye << QStringList{handEyeA7};
    QTest::newRow("storage") << "1.21" << 6 << false
                             << "Reset Standard body 07\nto sensor stored values?\nHelmet"
                             << QStringList{defaultC3};
    QTest::newRow("storage unknown to 1.20")
            << "1.20" << 6 << false
            << "Reset Standard body 07?\nHand eye calibration will be deleted!\nHelmet"
            << QStringList{"inertial sensor_handeye vendortwo core 'C3' none"};
}

void tst_BodyActions::resets()
{
    QFETCH(QString, protocol);
    QFETCH(int, row);
    QFETCH(bool, warmup);
    QFETCH(QString, asked);
    QFETCH(QStringList, writes);
    TestHost host(studio([&](ControllerState &state) {
        state.protocol = protocol;
        state.inertialWarmup = warmup;
    }));
    open(host, [&](QWidget *, QTableWidget *bodies) {
        robot().expectBox(boxTitle, asked, QMessageBox::Yes);
        press(bodies, row, ResetColumn);
        QCOMPARE(host.writes(), writes);
        const QString reRead = QStringLiteral("body calibrated standard b%1")
                                       .arg(row + 1, 2, 10, QLatin1Char('0'));
        QCOMPARE(host.lines().count(reRead), 1);
        QVERIFY(host.lines().indexOf(writes.last()) < host.lines().indexOf(reRead));
    });
    QCOMPARE(host.log(), QStringList());
}

void tst_BodyActions::declinedResetReadsNothing()
{
    TestHost host;
    open(host, [&](QWidget *, QTableWidget *bodies) {
        bodies->setCurrentCell(1, IdColumn);
        host.clear();
        robot().expectBox(boxTitle,
                          "Reset Standard body 02\nto Target-Library geometry?\nGlasses round",
                          QMessageBox::No);
        press(bodies, 1, ResetColumn);
        QCOMPARE(host.lines(), QStringList());
        robot().expectBox(
                boxTitle,
                "Reset Standard body 04?\nHand eye calibration will be deleted!\nCamera rig",
                QMessageBox::No);
        press(bodies, 3, ResetColumn);
        QCOMPARE(host.writes(), QStringList());
    });
}

void tst_BodyActions::resetFailure_data()
{
    QTest::addColumn<int>("row");
    QTest::addColumn<bool>("warmup");
    QTest::addColumn<QStringList>("faults");
    QTest::addColumn<QString>("asked");
    QTest::addColumn<QStringList>("writes");
    QTest::addColumn<QStringList>("log");
    QTest::addColumn<bool>("shown");
    const QStringList library{"morvek2 body calibrate_from_targetlib standard b02 GL01"};
    const QStringList libraryLog{"Error: Unable to reset body from target library"};
    const QString toLibrary =
            QStringLiteral("Reset Standard body 02\nto Target-Library geometry?\nGlasses round");
    const QString libraryFault = QStringLiteral("command morvek2 body calibrate* ");
    for (const QString &effect :
         {QStringLiteral("fail"), QStringLiteral("refuse"), QStringLiteral("empty"),
          QStringLiteral("answer \"morvek2 ok \"")}) {
        QTest::addRow("library: %s", qPrintable(effect))
                << 1 << false << QStringList{libraryFault + effect} << toLibrary << library
                << libraryLog << true;
    }
    const QString stored =
            QStringLiteral("Reset Standard body 07\nto sensor stored values?\nHelmet");
    QTest::newRow("storage") << 6 << false << QStringList{"command morvek2 set inertial* refuse"}
                             << stored << QStringList{defaultC3}
                             << QStringList{"Error: Unable to reset body to sensor stored values"}
                             << true;
    QTest::newRow("storage, sensors still warming up elsewhere")
            << 6 << true << QStringList{"command morvek2 set inertial* refuse"} << stored
            << QStringList{"inertial warmup no", defaultC3, "inertial warmup yes"}
            << QStringList{"Error: Unable to reset body to sensor stored values"} << true;
    const QString losesHandEye = QStringLiteral(
            "Reset Standard body 04?\nHand eye calibration will be deleted!\nCamera rig");
    QTest::newRow("hand-eye") << 3 << true << QStringList{"set inertial sensor_handeye* refuse"}
                              << losesHandEye
                              << QStringList{"inertial warmup no", handEyeA7, "inertial warmup yes"}
                              << QStringList{"Unable to reset sensor hand eye calibration"} << true;
    QTest::newRow("warm-up unknown at the reset")
            << 3 << false << QStringList{"inertial warmup fail"} << losesHandEye
            << QStringList{handEyeA7}
            << QStringList{"Could not get warmup status",
                           "Error: Unable to get warmup status of inertial sensors"}
            << false;
    QTest::newRow("warm-up does not stop")
            << 3 << true << QStringList{"set inertial warmup no refuse"} << losesHandEye
            << QStringList{"inertial warmup no", handEyeA7, "inertial warmup yes"}
            << QStringList{"Could not stop warmup of sensors"} << false;
    QTest::newRow("warm-up does not start again")
            << 3 << true << QStringList{"set inertial warmup yes refuse"} << losesHandEye
            << QStringList{"inertial warmup no", handEyeA7, "inertial warmup yes"}
            << QStringList{"Could not start warmup of sensors"} << false;
}

void tst_BodyActions::resetFailure()
{
    QFETCH(int, row);
    QFETCH(bool, warmup);
    QFETCH(QStringList, faults);
    QFETCH(QString, asked);
    QFETCH(QStringList, writes);
    QFETCH(QStringList, log);
    QFETCH(bool, shown);
    TestHost host;
    open(host, [&](QWidget *, QTableWidget *bodies) {
        // The cell was enabled when the table was filled, and since then the sensors warm up.
        host.edit([&](ControllerState &state) { state.inertialWarmup = warmup; });
        for (const QString &fault : faults)
            host.fault(fault);
        robot().expectBox(boxTitle, asked, QMessageBox::Yes);
        if (shown) {
            robot().expectBox(
                    warning,
                    named(host, row,
                          QStringLiteral("Reset of Standard body 0%1 failed!").arg(row + 1)),
                    QMessageBox::Ok);
        }
        host.clear();
        press(bodies, row, ResetColumn);
        QCOMPARE(host.writes(), writes);
        QCOMPARE(host.log(), log);
        QCOMPARE(host.lines().count(QStringLiteral("body desc standard b0%1").arg(row + 1)), 1);
        const bool lost = row == 3 && !shown;
        if (row == 3)
            QCOMPARE(Drive::cell(bodies, 3, CalibrationColumn), QString(lost ? "Optical" : "Full"));
    });
    const bool restarted = !faults.first().contains(QLatin1String("warmup yes"));
    QCOMPARE(host.state().inertialWarmup, warmup && restarted);
}

void tst_BodyActions::sensorQueriesOfReset_data()
{
    QTest::addColumn<QString>("fault");
    QTest::addColumn<QString>("asked");
    QTest::addColumn<QString>("log");
    QTest::addColumn<QString>("write");
    QTest::newRow("storage unreadable")
            << "inertial sensor_has_storage* fail"
            << "Reset Standard body 07?\nHand eye calibration will be deleted!\nHelmet"
            << "Unable to get storage info from sensor"
            << "inertial sensor_handeye vendortwo core 'C3' none";
    QTest::newRow("no storage, hand-eye unreadable")
            << "get inertial sensor_handeye vendorone mini 'A7' fail"
            << "Reset Standard body 04?\nCamera rig"
            << "Unable to get info about hand eye calibration from sensor"
            << "";
}

void tst_BodyActions::sensorQueriesOfReset()
{
    QFETCH(QString, fault);
    QFETCH(QString, asked);
    QFETCH(QString, log);
    QFETCH(QString, write);
    TestHost host;
    open(host, [&](QWidget *, QTableWidget *bodies) {
        host.fault(fault);
        robot().expectBox(boxTitle, asked, QMessageBox::Yes);
        press(bodies, write.isEmpty() ? 3 : 6, ResetColumn);
        QCOMPARE(host.log().value(0), log);
        QCOMPARE(host.writes(), write.isEmpty() ? QStringList() : QStringList{write});
    });
}

void tst_BodyActions::dialogDeletedInReset_data()
{
    QTest::addColumn<int>("row");
    QTest::addColumn<QString>("asked");
    QTest::addColumn<bool>("inFailure");
    const QString toLibrary =
            QStringLiteral("Reset Standard body 02\nto Target-Library geometry?\nGlasses round");
    const QString stored =
            QStringLiteral("Reset Standard body 07\nto sensor stored values?\nHelmet");
    QTest::newRow("library question") << 1 << toLibrary << false;
    QTest::newRow("library failure") << 1 << toLibrary << true;
    QTest::newRow("sensor question") << 6 << stored << false;
    QTest::newRow("sensor failure") << 6 << stored << true;
}

void tst_BodyActions::dialogDeletedInReset()
{
    QFETCH(int, row);
    QFETCH(QString, asked);
    QFETCH(bool, inFailure);
    TestHost host;
    host.fault(QStringLiteral("command morvek2 body* refuse"));
    host.fault(QStringLiteral("command morvek2 set* refuse"));
    openDeletable(host, [&](QWidget *, QTableWidget *bodies) {
        if (!inFailure) {
            robot().expectBox(boxTitle, asked, QMessageBox::Yes, deletion());
        } else {
            robot().expectBox(boxTitle, asked, QMessageBox::Yes);
            robot().expectBox(
                    warning,
                    named(host, row,
                          QStringLiteral("Reset of Standard body 0%1 failed!").arg(row + 1)),
                    QMessageBox::Ok, deletion());
        }
        press(bodies, row, ResetColumn);
    });
    QCOMPARE(host.writes().size(), inFailure ? 1 : 0);
}

void tst_BodyActions::bodyDroppedInResetQuestion()
{
    TestHost host;
    open(host, [&](QWidget *, QTableWidget *bodies) {
        robot().expectBox(boxTitle, "Reset Standard body 07\nto sensor stored values?\nHelmet",
                          QMessageBox::Yes, [&] {
                              host.edit([](ControllerState &state) {
                                  state.bodyTypes["standard"].bodies.resize(3);
                              });
                              host.io.send_message("GlobalEvent", "ConfigurationModule", 1,
                                                   "ActiveConfigurationChanged");
                              Drive::settle();
                              host.clear();
                          });
        press(bodies, 6, ResetColumn);
        QCOMPARE(bodies->rowCount(), 3);
        QCOMPARE(host.writes(), QStringList());
    });
}

void tst_BodyActions::unknownReset()
{
    TestHost host;
    BodyAdministrationDlg dialog(&host.io, &host.mainWindow, &host.versions);
    robot().expectDialog(QStringLiteral("BodyAdministrationDlg"), [&](QWidget *window) {
        auto *tab = qobject_cast<BodyTypeAdministrationTab *>(page(window));
        QVERIFY(tab);
        host.clear();
        robot().expectBox(warning, "Unknown reset of Standard body 01!\nCap", QMessageBox::Ok);
        QVERIFY(!tab->resetBody(QStringLiteral("standard"), 0));
        QCOMPARE(host.lines(), QStringList());
    });
    dialog.update_and_exec();
}

// Moving

void tst_BodyActions::movesBody_data()
{
    QTest::addColumn<QString>("protocol");
    QTest::addColumn<QString>("button");
    QTest::addColumn<int>("row");
    QTest::addColumn<int>("target");
    QTest::addColumn<QString>("command");
    QTest::newRow("up") << "1.24"
                        << "pushButton_up" << 2 << 1
                        << "morvek2 body switch standard b03 standard b02";
    QTest::newRow("down to the end")
            << "1.11"
            << "pushButton_down" << 6 << 7 << "morvek2 body switch standard b07 standard b08";
}

void tst_BodyActions::movesBody()
{
    QFETCH(QString, protocol);
    QFETCH(QString, button);
    QFETCH(int, row);
    QFETCH(int, target);
    QFETCH(QString, command);
    TestHost host(studio(protocol));
    const QString name = body(host, row).description;
    open(host, [&](QWidget *window, QTableWidget *bodies) {
        press(bodies, row, IdColumn);
        Drive::click(window, qPrintable(button));
        Drive::settle();
        QCOMPARE(host.writes(), QStringList{command});
        QCOMPARE(Drive::cell(bodies, target, NameColumn), name);
        QCOMPARE(bodies->currentRow(), target);
        QCOMPARE(bodies->selectedItems().value(0)->row(), target);
        auto *down = Drive::find<QPushButton>(window, "pushButton_down");
        QCOMPARE(down->isEnabled(), target != 7);
        if (protocol == QLatin1String("1.24"))
            QCOMPARE(bodies->item(target, ReferenceColumn)->checkState(), Qt::Checked);
    });
    QCOMPARE(body(host, target).description, name);
    QCOMPARE(host.log(), QStringList());
}

void tst_BodyActions::failedMove()
{
    TestHost host;
    host.fault(QStringLiteral("command morvek2 body switch* refuse"));
    open(host, [&](QWidget *window, QTableWidget *bodies) {
        press(bodies, 2, IdColumn);
        host.clear();
        robot().expectBox(warning,
                          "Switching Standard body 03 and 02 failed!\nRoom frame\nGlasses round",
                          QMessageBox::Ok);
        Drive::click(window, "pushButton_up");
        Drive::settle();
        QCOMPARE(host.lines(), QStringList{"morvek2 body switch standard b03 standard b02"});
        QCOMPARE(host.log(), QStringList{"Error: Unable to switch bodies"});
        QCOMPARE(bodies->currentRow(), 2);
        QCOMPARE(Drive::cell(bodies, 2, NameColumn), QStringLiteral("Room frame"));
    });
}

void tst_BodyActions::oldProtocolMovesNothing()
{
    TestHost host(studio(QStringLiteral("1.10")));
    open(host, [&](QWidget *window, QTableWidget *bodies) {
        press(bodies, 2, IdColumn);
        Drive::click(window, "pushButton_up");
        Drive::settle();
        QCOMPARE(host.writes(), QStringList());
        QCOMPARE(bodies->currentRow(), 2);
    });
}

void tst_BodyActions::dialogDeletedInMove()
{
    TestHost host;
    host.fault(QStringLiteral("command morvek2 body switch* refuse"));
    openDeletable(host, [&](QWidget *window, QTableWidget *bodies) {
        press(bodies, 2, IdColumn);
        robot().expectBox(warning,
                          "Switching Standard body 03 and 02 failed!\nRoom frame\nGlasses round",
                          QMessageBox::Ok, deletion());
        Drive::click(window, "pushButton_up");
    });
}

void tst_BodyActions::operationsRefuseBodiesThatAreNotThere()
{
    TestHost host;
    BodyAdministrationDlg dialog(&host.io, &host.mainWindow, &host.versions);
    robot().expectDialog(QStringLiteral("BodyAdministrationDlg"), [&](QWidget *window) {
        auto *tab = qobject_cast<BodyTypeAdministrationTab *>(page(window));
        QVERIFY(tab);
        host.clear();
        const QString standard = QStringLiteral("standard");
        for (const int index : {-1, 8}) {
            QVERIFY(!tab->resetBody(standard, index));
            QVERIFY(!tab->deleteBody(standard, index));
            QVERIFY(!tab->switchBody(standard, 0, index));
            QVERIFY(!tab->switchBody(standard, index, 0));
            QVERIFY(!tab->isBodyCalibrated(standard, index));
            QCOMPARE(tab->getBodyDescription(standard, index), QString());
        }
        QVERIFY(!tab->resetBody(QStringLiteral("joywand"), 0));
        QVERIFY(!tab->deleteBody(QStringLiteral("joywand"), 0));
        QVERIFY(!tab->switchBody(QStringLiteral("joywand"), 0, 1));
        QCOMPARE(tab->getNumberOfBodies(QStringLiteral("joywand")), 0);
        QCOMPARE(tab->getNumberOfInertialSensors(standard), 3);
        QCOMPARE(tab->getNumberOfCalibratedBodies(standard), 7);
        QCOMPARE(host.lines(), QStringList());
    });
    dialog.update_and_exec();
}

void tst_BodyActions::finishedDeletionShowsNoFailure()
{
    TestHost host;
    const BodyRegistry registry;
    const BodyQuestions questions(nullptr, ControllerLink(&host.io, &host.versions), registry);
    QVERIFY(questions.showDeleteFailed("standard", 0, BodyCommands::DeleteStep::Done));
    QCOMPARE(robot().boxes(), QStringList());
}

TRACKING_TEST_MAIN(tst_BodyActions)
#include "tst_bodyactions.moc"
