#include "BodyTypeAdministrationTab.h"
#include "administrationfixture.h"

#include <QComboBox>

/** Deleting bodies: every question, command and failure. */
class tst_BodyDeletion : public AdministrationFixture {
    Q_OBJECT

private slots:
    void deletes_data();
    void deletes();
    void deleteFailure_data();
    void deleteFailure();
    void keysPressDeleteCell_data();
    void keysPressDeleteCell();
    void deletedTargetIsFree();
    void deletingUncalibratedBody();
    void declinedDeleteWritesNothing();
    void bodyDroppedInDeleteQuestion();
    void dialogDeletedInDelete_data();
    void dialogDeletedInDelete();
};

void tst_BodyDeletion::deletes_data()
{
    QTest::addColumn<QString>("protocol");
    QTest::addColumn<int>("row");
    QTest::addColumn<QString>("asked");
    QTest::addColumn<QStringList>("writes");
    const QString plain = QStringLiteral("Delete geometry of Standard body 0%1?");
    const QString filter = QStringLiteral("body filter6d_preset standard b0%1 preset6d_default");
    const QString markers = QStringLiteral("body number_of_marker standard b0%1 0");
    const QString name = QStringLiteral("body desc standard b0%1 \"\"");
    QTest::newRow("library, 1.24") << "1.24" << 1 << plain.arg(2)
                                   << QStringList{filter.arg(2), markers.arg(2), name.arg(2)};
    QTest::newRow("library, 1.20") << "1.20" << 1 << plain.arg(2)
                                   << QStringList{filter.arg(2), markers.arg(2), name.arg(2)};
    QTest::newRow("library, 1.12") << "1.12" << 1 << plain.arg(2)
                                   << QStringList{filter.arg(2), markers.arg(2), name.arg(2)};
    QTest::newRow("library, 1.11")
            << "1.11" << 1 << plain.arg(2) << QStringList{markers.arg(2), name.arg(2)};
    QTest::newRow("custom") << "1.24" << 0 << plain.arg(1)
                            << QStringList{filter.arg(1), markers.arg(1), name.arg(1)};
    QTest::newRow("sensor") << "1.21" << 3
                            << "Delete assignment of sensor vendorone mini 'A7' and \n"
                               "delete geometry of Standard body 04?"
                            << QStringList{filter.arg(4), "body inertial_sensor standard b04 none",
                                           markers.arg(4), name.arg(4)};
    QTest::newRow("sensor unknown to 1.11")
            << "1.11" << 3 << plain.arg(4) << QStringList{markers.arg(4), name.arg(4)};
    QTest::newRow("reference") << "1.24" << 2
                               << "Delete geometry of Standard body 03?\nIf yes, the assignment as "
                                  "reference to other bodies will be deleted."
                               << QStringList{"tracking reference none", filter.arg(3),
                                              markers.arg(3), name.arg(3)};
    QTest::newRow("reference unknown to 1.23")
            << "1.23" << 2 << plain.arg(3)
            << QStringList{filter.arg(3), markers.arg(3), name.arg(3)};
}

void tst_BodyDeletion::deletes()
{
    QFETCH(QString, protocol);
    QFETCH(int, row);
    QFETCH(QString, asked);
    QFETCH(QStringList, writes);
    TestHost host(studio(protocol));
    open(host, [&](QWidget *, QTableWidget *bodies) {
        robot().expectBox(boxTitle, named(host, row, asked), QMessageBox::Yes);
        press(bodies, row, DeleteColumn);
        QCOMPARE(host.writes(), writes + QStringList{customCheck});
        QCOMPARE(host.queries().contains(
                         QStringLiteral("body filter6d_preset_available standard b0%1 "
                                        "preset6d_default")
                                 .arg(row + 1)),
                 protocol != QLatin1String("1.20") && protocol != QLatin1String("1.12")
                         && protocol != QLatin1String("1.11"));
        QCOMPARE(Drive::cell(bodies, row, CalibrationColumn), QStringLiteral("not calibrated"));
        QCOMPARE(Drive::cell(bodies, row, NameColumn), QString());
        QVERIFY(!isLive(bodies, row, DeleteColumn));
    });
    QCOMPARE(body(host, row).calibrated, false);
    QCOMPARE(body(host, row).description, QString());
    QCOMPARE(host.log(), QStringList());
}

void tst_BodyDeletion::deleteFailure_data()
{
    QTest::addColumn<int>("row");
    QTest::addColumn<QString>("fault");
    QTest::addColumn<QString>("detail");
    QTest::addColumn<int>("sent");
    QTest::addColumn<QStringList>("log");
    QTest::newRow("filter") << 3 << "set body filter6d_preset* refuse"
                            << "filter6d" << 1 << QStringList();
    QTest::newRow("sensor") << 3 << "set body inertial_sensor* refuse"
                            << "sensor" << 2 << QStringList();
    QTest::newRow("markers") << 3 << "set body number_of_marker* refuse"
                             << "markers" << 3 << QStringList();
    QTest::newRow("description") << 3 << "set body desc* refuse"
                                 << "description" << 4 << QStringList();
    const QString availability = QStringLiteral("body filter6d_preset_available standard b04* ");
    QTest::newRow("availability unknown")
            << 3 << availability + "fail"
            << "" << 3 << QStringList{"Error: Unable to get info preset available"};
    QTest::newRow("preset not available") << 3 << availability + "answer \"no\""
                                          << "" << 3 << QStringList();
    QTest::newRow("reference unknown")
            << 2 << "get tracking reference call 1 fail"
            << "" << 3 << QStringList{"Unable to information of reference body"};
    QTest::newRow("reference stays") << 2 << "set tracking reference none refuse"
                                     << "" << 4 << QStringList{"Unable to reset reference body"};
    QTest::newRow("reference gone meanwhile")
            << 2 << "get tracking reference call 1 answer \"none\""
            << "" << 3 << QStringList();
    QTest::newRow("library name unknown")
            << 0 << "get body targetlib_name standard b01 call 1 fail"
            << "" << 3 << QStringList{"Unable to get info targetlib ID of body"};
}

void tst_BodyDeletion::deleteFailure()
{
    QFETCH(int, row);
    QFETCH(QString, fault);
    QFETCH(QString, detail);
    QFETCH(int, sent);
    QFETCH(QStringList, log);
    const QString label = QStringLiteral("Standard body 0%1").arg(row + 1);
    TestHost host;
    open(host, [&](QWidget *, QTableWidget *bodies) {
        host.fault(fault);
        QString asked = QStringLiteral("Delete geometry of %1?").arg(label);
        if (row == 3) {
            asked = QStringLiteral("Delete assignment of sensor vendorone mini 'A7' and \n"
                                   "delete geometry of %1?")
                            .arg(label);
        } else if (row == 2) {
            asked += QStringLiteral("\nIf yes, the assignment as reference to other bodies will "
                                    "be deleted.");
        }
        robot().expectBox(boxTitle, named(host, row, asked), QMessageBox::Yes);
        if (!detail.isEmpty()) {
            robot().expectBox(warning,
                              named(host, row,
                                    QStringLiteral("Unable to reset %1 of %2\nDelete %2 failed")
                                            .arg(detail, label)),
                              QMessageBox::Ok);
        }
        press(bodies, row, DeleteColumn);
        QCOMPARE(host.writes().size(), sent + 1);
        QCOMPARE(host.writes().last(), customCheck);
        QCOMPARE(host.log(), log);
        const BodyState left = body(host, row);
        QCOMPARE(Drive::cell(bodies, row, NameColumn), left.description);
        QCOMPARE(Drive::cell(bodies, row, CalibrationColumn) == QLatin1String("not calibrated"),
                 !left.calibrated);
        QCOMPARE(Drive::cell(bodies, row, DeviceIdColumn).isEmpty(), left.sensor.isEmpty());
    });
}

void tst_BodyDeletion::keysPressDeleteCell_data()
{
    QTest::addColumn<int>("key");
    QTest::newRow("Return") << int(Qt::Key_Return);
    QTest::newRow("Enter") << int(Qt::Key_Enter);
    QTest::newRow("Space") << int(Qt::Key_Space);
}

void tst_BodyDeletion::keysPressDeleteCell()
{
    QFETCH(int, key);
    TestHost host;
    open(host, [&](QWidget *, QTableWidget *bodies) {
        bodies->setFocus();
        bodies->setCurrentCell(5, DeleteColumn);
        host.clear();
        robot().expectBox(boxTitle, QStringLiteral("Delete geometry of Standard body 06?\nCrate"),
                          QMessageBox::Yes);
        QTest::keyClick(bodies, Qt::Key(key));
        Drive::settle();
        QCOMPARE(host.writes().count(QStringLiteral("body number_of_marker standard b06 0")), 1);
        // A click on a cell that is shown disabled does nothing.
        bodies->setCurrentCell(7, DeleteColumn);
        host.clear();
        QTest::keyClick(bodies, Qt::Key(key));
        Drive::settle();
        QCOMPARE(host.writes(), QStringList());
    });
    QVERIFY(!host.state().bodyTypes["standard"].bodies[5].calibrated);
}

void tst_BodyDeletion::deletedTargetIsFree()
{
    TestHost host;
    open(host, [&](QWidget *window, QTableWidget *bodies) {
        Drive::choose(Drive::find<QComboBox>(page(window), "comboBox_filter"), "Cross Target");
        QTableWidget *table = targets(window);
        QCOMPARE(Drive::row(table, 2), (QStringList{"t03", "CR03", "Cross large", "yes"}));
        robot().expectBox(boxTitle,
                          "Delete geometry of Standard body 03?\nIf yes, the assignment as "
                          "reference to other bodies will be deleted.\nRoom frame",
                          QMessageBox::Yes);
        host.clear();
        press(bodies, 2, DeleteColumn);
        QCOMPARE(host.queries().count(QStringLiteral("targetlib target_status_calibrated t03")), 1);
        QCOMPARE(Drive::row(table, 2), (QStringList{"t03", "CR03", "Cross large", ""}));
    });
    QCOMPARE(body(host, 2).target, QString());
}

void tst_BodyDeletion::deletingUncalibratedBody()
{
    TestHost host;
    BodyAdministrationDlg dialog(&host.io, &host.mainWindow, &host.versions);
    robot().expectDialog(QStringLiteral("BodyAdministrationDlg"), [&](QWidget *window) {
        auto *tab = qobject_cast<BodyTypeAdministrationTab *>(page(window));
        QVERIFY(tab);
        host.clear();
        robot().expectBox(boxTitle, "Delete geometry of Standard body 08?", QMessageBox::Yes);
        QVERIFY(tab->deleteBody(QStringLiteral("standard"), 7));
        QCOMPARE(host.writes(), (QStringList{"body filter6d_preset standard b08 preset6d_default",
                                             "body desc standard b08 \"\""}));
    });
    dialog.update_and_exec();
}

void tst_BodyDeletion::declinedDeleteWritesNothing()
{
    TestHost host;
    open(host, [&](QWidget *, QTableWidget *bodies) {
        robot().expectBox(boxTitle,
                          "Delete geometry of Standard body 03?\nIf yes, the assignment as "
                          "reference to other bodies will be deleted.\nRoom frame",
                          QMessageBox::No);
        press(bodies, 2, DeleteColumn);
        QCOMPARE(host.writes(), QStringList{customCheck});
    });
    QCOMPARE(host.state().trackingReference, QStringLiteral("standard b03"));
}

void tst_BodyDeletion::bodyDroppedInDeleteQuestion()
{
    TestHost host;
    open(host, [&](QWidget *, QTableWidget *bodies) {
        robot().expectBox(boxTitle, "Delete geometry of Standard body 06?\nCrate", QMessageBox::Yes,
                          [&] {
                              host.edit([](ControllerState &state) {
                                  state.bodyTypes["standard"].bodies.resize(3);
                              });
                              host.io.send_message("GlobalEvent", "ConfigurationModule", 1,
                                                   "ActiveConfigurationChanged");
                              Drive::settle();
                              host.clear();
                          });
        press(bodies, 5, DeleteColumn);
        QCOMPARE(bodies->rowCount(), 3);
        QCOMPARE(host.writes(), QStringList{customCheck});
    });
}

void tst_BodyDeletion::dialogDeletedInDelete_data()
{
    QTest::addColumn<bool>("inFailure");
    QTest::newRow("question") << false;
    QTest::newRow("failure") << true;
}

void tst_BodyDeletion::dialogDeletedInDelete()
{
    QFETCH(bool, inFailure);
    TestHost host;
    host.fault(QStringLiteral("set body* refuse"));
    openDeletable(host, [&](QWidget *, QTableWidget *bodies) {
        const QString asked = QStringLiteral("Delete geometry of Standard body 01?\nCap");
        if (!inFailure) {
            robot().expectBox(boxTitle, asked, QMessageBox::Yes, deletion());
        } else {
            robot().expectBox(boxTitle, asked, QMessageBox::Yes);
            robot().expectBox(warning,
                              "Unable to reset filter6d of Standard body 01\n"
                              "Delete Standard body 01 failed\nCap",
                              QMessageBox::Ok, deletion());
        }
        press(bodies, 0, DeleteColumn);
    });
    QCOMPARE(host.writes().size(), inFailure ? 1 : 0);
}

TRACKING_TEST_MAIN(tst_BodyDeletion)
#include "tst_bodydeletion.moc"
