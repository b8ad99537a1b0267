#include "administrationfixture.h"

#include <QComboBox>

namespace {

const QString bends =
        QStringLiteral("%1 can bend\ntherefore a re-calibration is strongly recommended!\n\n"
                       "(To avoid any changes of the geometry,\n"
                       "mount the target to the device prior to re-calibration)");

} // namespace

/** Assigning a library target to a standard body, and freeing it. */
class tst_Assignment : public AdministrationFixture {
    Q_OBJECT

private slots:
    void assignsToUnnamedBody();
    void asksBeforeOverwriting();
    void trackedStatesRestDuringTheQuestion();
    void freesTargetOfAnotherBody();
    void assigningOwnTargetAgainKeepsName();
    void failedFreeing_data();
    void failedFreeing();
    void failedAssignment_data();
    void failedAssignment();
    void selectNeedsBothRows();
    void warnsOfBendingTargets_data();
    void warnsOfBendingTargets();
    void asksForMeasurementToolReference();
    void declinedMeasurementToolReference();
    void measurementToolFailure_data();
    void measurementToolFailure();
    void dialogDeletedInAssignment_data();
    void dialogDeletedInAssignment();

    void deselects();
    void declinedDeselect();
    void deselectButtonFollowsSelection();
    void failedDeselect();
    void dialogDeletedInDeselect();

private:
    /** Makes the category and a target of it current, as a user does. */
    void pick(QWidget *window, const QString &category, int row)
    {
        Drive::choose(Drive::find<QComboBox>(page(window), "comboBox_filter"), category);
        press(targets(window), row, 1);
    }
    void select(QWidget *window)
    {
        Drive::click(page(window), "pushButton_select");
        Drive::settle();
    }
};

// Assigning

void tst_Assignment::assignsToUnnamedBody()
{
    TestHost host;
    open(host, [&](QWidget *window, QTableWidget *bodies) {
        press(bodies, 7, IdColumn);
        pick(window, QStringLiteral("Cross Target"), 1);
        host.clear();
        select(window);
        QCOMPARE(host.writes(),
                 (QStringList{"morvek2 body calibrate_from_targetlib standard b08 t02",
                              customCheck}));
        QCOMPARE(
                host.queries().mid(0, 11),
                (QStringList{"measurementtool number_of_references",
                             "body targetlib_name measurementtool_reference b01",
                             "body targetlib_name measurementtool_reference b02",
                             "body targetlib_name measurementtool_reference b03",
                             "body targetlib_name standard b01", "body targetlib_name standard b02",
                             "body targetlib_name standard b03", "body targetlib_name standard b04",
                             "body targetlib_name standard b05", "body targetlib_name standard b06",
                             "body targetlib_name standard b07"}));
        QCOMPARE(Drive::cell(bodies, 7, CalibrationColumn), QStringLiteral("Target Library"));
        QCOMPARE(Drive::row(targets(window), 1),
                 (QStringList{"t02", "CR02", "Cross medium", "yes"}));
        QCOMPARE(bodies->currentRow(), 7);
        QCOMPARE(targets(window)->currentRow(), 1);
    });
    QCOMPARE(body(host, 7).target, QStringLiteral("CR02"));
    QCOMPARE(host.log(), QStringList());
}

void tst_Assignment::asksBeforeOverwriting()
{
    TestHost host;
    open(host, [&](QWidget *window, QTableWidget *bodies) {
        press(bodies, 0, IdColumn);
        pick(window, QStringLiteral("Cross Target"), 1);
        host.clear();
        robot().expectBox(warning, "Overwrite body calibration data of Cap?", QMessageBox::Cancel);
        select(window);
        QCOMPARE(host.lines(), QStringList());
        robot().expectBox(warning, "Overwrite body calibration data of Cap?", QMessageBox::Ok);
        select(window);
        QCOMPARE(host.writes(),
                 (QStringList{"morvek2 body calibrate_from_targetlib standard b01 t02",
                              customCheck}));
        QCOMPARE(Drive::cell(bodies, 0, CalibrationColumn), QStringLiteral("Target Library"));
    });
}

void tst_Assignment::trackedStatesRestDuringTheQuestion()
{
    TestHost host;
    open(host, [&](QWidget *window, QTableWidget *bodies) {
        Drive::holdTimers(page(window));
        auto *timer = page(window)->findChild<QTimer *>("timerCheckForTracked_tl");
        press(bodies, 0, IdColumn);
        pick(window, QStringLiteral("Cross Target"), 1);
        timer->start(603);
        robot().expectBox(warning, "Overwrite body calibration data of Cap?", QMessageBox::Cancel,
                          [timer] { QVERIFY(!timer->isActive()); });
        select(window);
        QVERIFY(timer->isActive());
    });
}

void tst_Assignment::freesTargetOfAnotherBody()
{
    TestHost host;
    open(host, [&](QWidget *window, QTableWidget *bodies) {
        press(bodies, 7, IdColumn);
        pick(window, QStringLiteral("Cross Target"), 2); // held by body 3
        host.clear();
        select(window);
        QCOMPARE(host.writes(),
                 (QStringList{"body number_of_marker standard b03 0", "body desc standard b03 \"\"",
                              "morvek2 body calibrate_from_targetlib standard b08 t03",
                              customCheck}));
        QCOMPARE(Drive::cell(bodies, 2, CalibrationColumn), QStringLiteral("not calibrated"));
        QCOMPARE(Drive::cell(bodies, 2, NameColumn), QString());
        QCOMPARE(Drive::cell(bodies, 7, CalibrationColumn), QStringLiteral("Target Library"));
        QCOMPARE(Drive::cell(targets(window), 2, 3), QStringLiteral("yes"));
    });
    QCOMPARE(body(host, 7).target, QStringLiteral("CR03"));
    QCOMPARE(body(host, 2).target, QString());
    QCOMPARE(host.log(), QStringList());
}

void tst_Assignment::assigningOwnTargetAgainKeepsName()
{
    TestHost host;
    open(host, [&](QWidget *window, QTableWidget *bodies) {
        press(bodies, 2, IdColumn);
        pick(window, QStringLiteral("Cross Target"), 2);
        host.clear();
        robot().expectBox(warning, "Overwrite body calibration data of Room frame?",
                          QMessageBox::Ok);
        select(window);
        QCOMPARE(host.writes(),
                 (QStringList{"morvek2 body calibrate_from_targetlib standard b03 t03",
                              customCheck}));
        QCOMPARE(Drive::cell(bodies, 2, NameColumn), QStringLiteral("Room frame"));
    });
}

void tst_Assignment::failedFreeing_data()
{
    QTest::addColumn<QString>("fault");
    QTest::addColumn<QStringList>("log");
    QTest::addColumn<QStringList>("writes");
    const QStringList writes{"body number_of_marker standard b03 0", "body desc standard b03 \"\"",
                             "morvek2 body calibrate_from_targetlib standard b08 t03", customCheck};
    const QString refused = QStringLiteral("Error: Unable to calibrate body from target library");
    QTest::newRow("markers") << "set body number_of_marker* refuse"
                             << QStringList{"Unable to reset markers of target standard 03",
                                            refused}
                             << writes;
    QTest::newRow("name") << "set body desc* refuse"
                          << QStringList{"Unable to reset description of target standard standard"}
                          << writes;
    QTest::newRow("who holds it") << "body targetlib_name standard b03 call 1 fail"
                                  << QStringList{"Unable to get info targetlib ID of body", refused}
                                  << QStringList(writes.mid(2));
}

void tst_Assignment::failedFreeing()
{
    QFETCH(QString, fault);
    QFETCH(QStringList, log);
    QFETCH(QStringList, writes);
    TestHost host;
    open(host, [&](QWidget *window, QTableWidget *bodies) {
        press(bodies, 7, IdColumn);
        pick(window, QStringLiteral("Cross Target"), 2);
        host.clear();
        host.fault(fault);
        select(window);
        QCOMPARE(host.log(), log);
        QCOMPARE(host.writes(), writes);
        for (const int row : {2, 7}) {
            QCOMPARE(Drive::cell(bodies, row, NameColumn), body(host, row).description);
            QCOMPARE(Drive::cell(bodies, row, CalibrationColumn) == QLatin1String("not calibrated"),
                     !body(host, row).calibrated);
        }
    });
}

void tst_Assignment::failedAssignment_data()
{
    QTest::addColumn<QString>("effect");
    for (const char *effect : {"refuse", "fail", "empty", "garbled", "answer \"morvek2 ok \""})
        QTest::newRow(effect) << effect;
}

void tst_Assignment::failedAssignment()
{
    QFETCH(QString, effect);
    TestHost host;
    open(host, [&](QWidget *window, QTableWidget *bodies) {
        press(bodies, 7, IdColumn);
        pick(window, QStringLiteral("HMD Target"), 1);
        host.fault(QStringLiteral("command morvek2 body calibrate* ") + effect);
        host.clear();
        select(window);
        // There is no warning about bending either, because the assignment failed.
        QCOMPARE(host.log(), QStringList{"Error: Unable to calibrate body from target library"});
        QCOMPARE(host.writes().size(), 2);
        const bool calibrated = body(host, 7).calibrated;
        QCOMPARE(Drive::cell(bodies, 7, CalibrationColumn),
                 QString(calibrated ? "Target Library" : "not calibrated"));
        // There is no other query; the used mark changes with the next refresh of the marks.
        QCOMPARE(host.queries().filter(QStringLiteral("targetlib target_status_calibrated t")),
                 QStringList());
        QCOMPARE(Drive::cell(targets(window), 1, 3), QString());
    });
}

void tst_Assignment::selectNeedsBothRows()
{
    TestHost host;
    open(host, [&](QWidget *window, QTableWidget *bodies) {
        auto *select = Drive::find<QPushButton>(page(window), "pushButton_select");
        QVERIFY(!select->isEnabled());
        press(bodies, 7, IdColumn);
        QVERIFY(!select->isEnabled());
        Drive::choose(Drive::find<QComboBox>(page(window), "comboBox_filter"),
                      QStringLiteral("Cross Target"));
        QVERIFY(!select->isEnabled());
        host.clear();
        QVERIFY(QMetaObject::invokeMethod(page(window), "on_pushButton_select_clicked"));
        QCOMPARE(host.lines(), QStringList());
        press(targets(window), 0, 1);
        QVERIFY(select->isEnabled());
        bodies->setCurrentCell(-1, -1);
        QVERIFY(!select->isEnabled());
        host.clear();
        QVERIFY(QMetaObject::invokeMethod(page(window), "on_pushButton_select_clicked"));
        QVERIFY(QMetaObject::invokeMethod(page(window), "on_pushButton_deselect_clicked"));
        QCOMPARE(host.lines(), QStringList());
    });
}

void tst_Assignment::warnsOfBendingTargets_data()
{
    QTest::addColumn<QString>("group");
    QTest::addColumn<bool>("warned");
    QTest::newRow("HMD") << "HMD Target" << true;
    QTest::newRow("glasses") << "Glasses Target" << true;
    QTest::newRow("letter case") << "HMD target" << false;
    QTest::newRow("longer") << "HMD Target 2" << false;
}

void tst_Assignment::warnsOfBendingTargets()
{
    QFETCH(QString, group);
    QFETCH(bool, warned);
    TestHost host(studio([&](ControllerState &state) {
        if (!state.targetGroups.contains(group))
            state.targetGroups.append(group);
        for (TargetState &target : state.targets) {
            if (target.shortName == QLatin1String("CR02"))
                target.group = group;
        }
    }));
    open(host, [&](QWidget *window, QTableWidget *bodies) {
        press(bodies, 7, IdColumn);
        pick(window, group, 0);
        if (warned) {
            robot().expectBox(warning, bends.arg("Cross medium"), QMessageBox::Ok, [&] {
                QCOMPARE(Drive::cell(bodies, 7, CalibrationColumn),
                         QStringLiteral("Target Library"));
            });
        }
        select(window);
        QCOMPARE(body(host, 7).target, QStringLiteral("CR02"));
    });
}

// Targets of measurement tool references

namespace {

const QString referenceQuestion =
        QStringLiteral("This target is already calibrated as Measurement Tool Reference MR3.\n"
                       "Delete the Measurement Tool Reference MR3?");

} // namespace

void tst_Assignment::asksForMeasurementToolReference()
{
    TestHost host;
    open(host, [&](QWidget *window, QTableWidget *bodies) {
        press(bodies, 7, IdColumn);
        pick(window, QStringLiteral("Cross Target"), 4); // held by reference 3
        host.clear();
        robot().expectBox(warning, referenceQuestion, QMessageBox::Ok);
        select(window);
        QCOMPARE(host.writes(),
                 (QStringList{"body number_of_marker measurementtool_reference b03 0",
                              "body desc measurementtool_reference b03 \"\"",
                              "morvek2 body calibrate_from_targetlib standard b08 t05",
                              customCheck}));
        QCOMPARE(Drive::cell(bodies, 7, CalibrationColumn), QStringLiteral("Target Library"));
    });
    QVERIFY(!host.state().bodyTypes["measurementtool_reference"].bodies[2].calibrated);
    QCOMPARE(host.log(), QStringList());
}

void tst_Assignment::declinedMeasurementToolReference()
{
    TestHost host;
    open(host, [&](QWidget *window, QTableWidget *bodies) {
        press(bodies, 7, IdColumn);
        pick(window, QStringLiteral("Cross Target"), 4);
        host.clear();
        robot().expectBox(warning, referenceQuestion, QMessageBox::Cancel);
        select(window);
        QCOMPARE(host.writes(), QStringList());
    });
    QVERIFY(host.state().bodyTypes["measurementtool_reference"].bodies[2].calibrated);
    QVERIFY(!body(host, 7).calibrated);
}

void tst_Assignment::measurementToolFailure_data()
{
    QTest::addColumn<QString>("fault");
    QTest::addColumn<bool>("asked");
    QTest::addColumn<QStringList>("log");
    const QString refused = QStringLiteral("Error: Unable to calibrate body from target library");
    QTest::newRow("count") << "measurementtool number_of_references fail" << false
                           << QStringList{"Error: Unable to get number of "
                                          "measurementtool_reference bodies",
                                          refused};
    QTest::newRow("another reference unreadable")
            << "body targetlib_name measurementtool_reference b01 fail" << true
            << QStringList{"Error: Unable to get targetlib name of body "
                           "measurementtool_reference b01"};
    QTest::newRow("the reference unreadable")
            << "body targetlib_name measurementtool_reference b03 fail" << false
            << QStringList{"Error: Unable to get targetlib name of body "
                           "measurementtool_reference b03",
                           refused};
    QTest::newRow("markers")
            << "set body number_of_marker measurementtool_reference* refuse" << true
            << QStringList{"Error: Unable to reset markers of Measurement Tool Reference MR3",
                           refused};
    QTest::newRow("name")
            << "set body desc measurementtool_reference* refuse" << true
            << QStringList{"Error: Unable to reset description of Measurement Tool Reference MR3"};
}

void tst_Assignment::measurementToolFailure()
{
    QFETCH(QString, fault);
    QFETCH(bool, asked);
    QFETCH(QStringList, log);
    TestHost host;
    open(host, [&](QWidget *window, QTableWidget *bodies) {
        press(bodies, 7, IdColumn);
        pick(window, QStringLiteral("Cross Target"), 4);
        host.clear();
        host.fault(fault);
        if (asked)
            robot().expectBox(warning, referenceQuestion, QMessageBox::Ok);
        select(window);
        QCOMPARE(host.log(), log);
        QCOMPARE(Drive::cell(bodies, 7, CalibrationColumn),
                 QString(log.contains("Error: Unable to calibrate body from target library")
                                 ? "not calibrated"
                                 : "Target Library"));
    });
}

void tst_Assignment::dialogDeletedInAssignment_data()
{
    QTest::addColumn<int>("box");
    QTest::newRow("overwrite") << 0;
    QTest::newRow("measurement tool reference") << 1;
    QTest::newRow("bending") << 2;
}

void tst_Assignment::dialogDeletedInAssignment()
{
    QFETCH(int, box);
    TestHost host;
    openDeletable(host, [&](QWidget *window, QTableWidget *bodies) {
        press(bodies, box == 0 ? 0 : 7, IdColumn);
        if (box == 2)
            pick(window, QStringLiteral("HMD Target"), 0);
        else
            pick(window, QStringLiteral("Cross Target"), 4);
        host.clear();
        const QString texts[] = {"Overwrite body calibration data of Cap?", referenceQuestion,
                                 bends.arg("Headset front")};
        robot().expectBox(warning, texts[box], QMessageBox::Ok, deletion());
        Drive::click(page(window), "pushButton_select");
    });
    QCOMPARE(host.writes().size(), box == 2 ? 2 : 0);
}

// Deselecting

void tst_Assignment::deselects()
{
    TestHost host;
    open(host, [&](QWidget *window, QTableWidget *bodies) {
        press(bodies, 4, IdColumn);
        pick(window, QString(), 1);
        QCOMPARE(Drive::cell(targets(window), 1, 3), QStringLiteral("yes"));
        host.clear();
        robot().expectBox(boxTitle,
                          "Delete assignment of sensor vendorone mini 'B12' and \n"
                          "delete geometry of Standard body 05?\nPointer",
                          QMessageBox::Yes);
        Drive::click(page(window), "pushButton_deselect");
        Drive::settle();
        QCOMPARE(host.lines().value(0), QStringLiteral("body targetlib_name standard b05"));
        QCOMPARE(host.writes(), (QStringList{"body filter6d_preset standard b05 preset6d_default",
                                             "body inertial_sensor standard b05 none",
                                             "body number_of_marker standard b05 0",
                                             "body desc standard b05 \"\"", customCheck}));
        QVERIFY(host.queries().contains(QStringLiteral("targetlib target_status_calibrated t14")));
        QCOMPARE(Drive::cell(targets(window), 1, 3), QString());
        QCOMPARE(Drive::cell(bodies, 4, CalibrationColumn), QStringLiteral("not calibrated"));
        QVERIFY(!Drive::find<QPushButton>(page(window), "pushButton_deselect")->isEnabled());
    });
    QCOMPARE(host.log(), QStringList());
}

void tst_Assignment::declinedDeselect()
{
    TestHost host;
    open(host, [&](QWidget *window, QTableWidget *bodies) {
        press(bodies, 4, IdColumn);
        host.clear();
        robot().expectBox(boxTitle,
                          "Delete assignment of sensor vendorone mini 'B12' and \n"
                          "delete geometry of Standard body 05?\nPointer",
                          QMessageBox::No);
        Drive::click(page(window), "pushButton_deselect");
        Drive::settle();
        QCOMPARE(host.writes(), QStringList{customCheck});
        QCOMPARE(Drive::cell(bodies, 4, CalibrationColumn), QStringLiteral("Optical"));
    });
}

void tst_Assignment::deselectButtonFollowsSelection()
{
    TestHost host;
    open(host, [&](QWidget *window, QTableWidget *bodies) {
        auto *deselect = Drive::find<QPushButton>(page(window), "pushButton_deselect");
        press(bodies, 4, IdColumn);
        QVERIFY(deselect->isEnabled());
        press(bodies, 7, IdColumn);
        QVERIFY(!deselect->isEnabled());
        bodies->setCurrentCell(-1, -1);
        QVERIFY(!deselect->isEnabled());
    });
}

void tst_Assignment::failedDeselect()
{
    TestHost host;
    open(host, [&](QWidget *window, QTableWidget *bodies) {
        press(bodies, 4, IdColumn);
        host.clear();
        host.fault(QStringLiteral("set body number_of_marker* refuse"));
        robot().expectBox(boxTitle,
                          "Delete assignment of sensor vendorone mini 'B12' and \n"
                          "delete geometry of Standard body 05?\nPointer",
                          QMessageBox::Yes);
        robot().expectBox(warning,
                          "Unable to reset markers of Standard body 05\n"
                          "Delete Standard body 05 failed\nPointer",
                          QMessageBox::Ok);
        Drive::click(page(window), "pushButton_deselect");
        Drive::settle();
        QCOMPARE(host.writes().size(), 4);
        QCOMPARE(Drive::row(bodies, 4).mid(3, 4),
                 (QStringList{"Pointer", "", "", "Target Library"}));
    });
}

void tst_Assignment::dialogDeletedInDeselect()
{
    TestHost host;
    openDeletable(host, [&](QWidget *window, QTableWidget *bodies) {
        press(bodies, 4, IdColumn);
        robot().expectBox(boxTitle,
                          "Delete assignment of sensor vendorone mini 'B12' and \n"
                          "delete geometry of Standard body 05?\nPointer",
                          QMessageBox::Yes, deletion());
        Drive::click(page(window), "pushButton_deselect");
    });
    QCOMPARE(host.writes(), QStringList());
}

TRACKING_TEST_MAIN(tst_Assignment)
#include "tst_assignment.moc"
