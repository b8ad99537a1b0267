#include "angletablewidget.h"
#include "dialogtest.h"
#include "fixedangledlg.h"
#include "settingstable.h"

#include <functional>

/** Fixed angles that could not be read are not written. */
class tst_FixedAngleDlgUnread : public DialogTest {
    Q_OBJECT

private slots:
    void oneBadAnswerOverwritesNothing_data();
    void oneBadAnswerOverwritesNothing();
    void rowFilledInPartIsNotWritten_data();
    void rowFilledInPartIsNotWritten();
    void rowFilledWholeIsWritten();
    void refusedAndUnreadRowsAreNamed();
    void greyRowKeepsItsAngles();

private:
    enum Column { Id, Name, Rx, Ry, Rz };

    /** Two bodies whose angles must not be overwritten by zeros. */
    static ControllerState twoBodies()
    {
        ControllerState state = TestHost::scenario(QStringLiteral("studio"));
        state.trackingReference.clear();
        QVector<BodyState> bodies(2);
        bodies[0].description = QStringLiteral("Head");
        bodies[1].description = QStringLiteral("Chair");
        for (BodyState &body : bodies) {
            body.calibrated = true;
            body.markers = 5;
            body.fixedAngles = {{{true, 5.0}, {false, -2.5}, {true, 20.0}}};
        }
        state.bodyTypes[QStringLiteral("standard")].bodies = bodies;
        return state;
    }

    static QString written(int body)
    {
        return QStringLiteral("standard fixed_angle b%1 yes 5.000000 no -2.500000 yes 20.000000")
                .arg(body, 2, 10, QLatin1Char('0'));
    }

    int open(TestHost *host, const std::function<void(QWidget *)> &drive)
    {
        FixedAngleDlg dialog(&host->io, &host->mainWindow, &host->versions);
        robot().expectDialog(QStringLiteral("FixedAngleDlg"), drive);
        const int result = dialog.update_and_exec();
        robot().verify();
        return result;
    }

    /** Expects the box about rows of which only a part is known. */
    void expectUnread(const QString &bodies)
    {
        robot().expectBox(QStringLiteral("Fixed Angle"),
                          QStringLiteral("The fixed angles of %1 could not be read. Set all three "
                                         "angles and boxes to write them.")
                                  .arg(bodies),
                          QMessageBox::Ok);
    }
};

void tst_FixedAngleDlgUnread::oneBadAnswerOverwritesNothing_data()
{
    QTest::addColumn<QString>("rule");
    QTest::newRow("angles fail") << "get standard fixed_angle b01 fail";
    QTest::newRow("angles empty") << "get standard fixed_angle b01 empty";
    QTest::newRow("angles garbled") << "get standard fixed_angle b01 garbled";
    QTest::newRow("too few angles") << "get standard fixed_angle b01 answer \"yes 5 no -2.5 yes\"";
    QTest::newRow("too many angles")
            << "get standard fixed_angle b01 answer \"yes 5 no -2.5 yes 20 no\"";
    QTest::newRow("no number") << "get standard fixed_angle b01 answer \"yes 5 no -2,5 yes 20\"";
    QTest::newRow("infinite") << "get standard fixed_angle b01 answer \"yes 5 no inf yes 20\"";
    QTest::newRow("no flag") << "get standard fixed_angle b01 answer \"yes 5 NO -2.5 yes 20\"";
    QTest::newRow("calibration fails") << "get body calibrated standard b01 fail";
    QTest::newRow("calibration empty") << "get body calibrated standard b01 empty";
    QTest::newRow("calibration garbled") << "get body calibrated standard b01 garbled";
    QTest::newRow("target type fails") << "get body target_type standard b01 fail";
}

void tst_FixedAngleDlgUnread::oneBadAnswerOverwritesNothing()
{
    QFETCH(QString, rule);
    TestHost host(twoBodies());
    host.fault(rule);
    const int result = open(&host, [](QWidget *shown) { Drive::click(shown, "pushButton_ok"); });
    QCOMPARE(result, int(QDialog::Accepted));
    QCOMPARE(host.writes(), QStringList{written(2)});
}

void tst_FixedAngleDlgUnread::rowFilledInPartIsNotWritten_data()
{
    QTest::addColumn<bool>("byBox");
    QTest::newRow("an angle typed") << false;
    QTest::newRow("a box ticked") << true;
}

void tst_FixedAngleDlgUnread::rowFilledInPartIsNotWritten()
{
    QFETCH(bool, byBox);
    TestHost host(twoBodies());
    host.fault(QStringLiteral("get standard fixed_angle b01 fail"));
    open(&host, [=](QWidget *shown) {
        if (byBox)
            Drive::toggleCell(tableOf(shown), 0, Ry);
        else
            Drive::typeIntoCell(tableOf(shown), 0, Ry, QStringLiteral("4"));
        expectUnread(QStringLiteral("b01 Head"));
        Drive::click(shown, "pushButton_ok");
        QVERIFY(shown->isVisible());
        Drive::click(shown, "pushButton_cancel");
    });
    QCOMPARE(host.writes(), QStringList{written(2)});
}

void tst_FixedAngleDlgUnread::rowFilledWholeIsWritten()
{
    TestHost host(twoBodies());
    host.fault(QStringLiteral("get standard fixed_angle b01 fail"));
    const int result = open(&host, [](QWidget *shown) {
        QTableWidget *table = tableOf(shown);
        Drive::typeIntoCell(table, 0, Rx, QStringLiteral("1.5"));
        // Entering the number that is already shown also sets the angle.
        Drive::typeIntoCell(table, 0, Ry, QStringLiteral("0.00"));
        Drive::typeIntoCell(table, 0, Rz, QStringLiteral("-3"));
        for (const int column : {Rx, Ry, Rz})
            Drive::toggleCell(table, 0, column);
        Drive::toggleCell(table, 0, Ry);
        Drive::click(shown, "pushButton_ok");
    });
    QCOMPARE(result, int(QDialog::Accepted));
    QCOMPARE(host.writes(),
             (QStringList{"standard fixed_angle b01 yes 1.500000 no 0.000000 yes -3.000000",
                          written(2)}));
}

void tst_FixedAngleDlgUnread::refusedAndUnreadRowsAreNamed()
{
    TestHost host(twoBodies());
    host.fault(QStringLiteral("get standard fixed_angle b01 fail"));
    host.fault(QStringLiteral("set standard fixed_angle b02* refuse"));
    open(&host, [this](QWidget *shown) {
        Drive::toggleCell(tableOf(shown), 0, Rx);
        robot().expectBox(QStringLiteral("Fixed Angle"),
                          QStringLiteral("The controller refused the fixed angles of b02 Chair.\n"
                                         "The fixed angles of b01 Head could not be read. Set all "
                                         "three angles and boxes to write them."),
                          QMessageBox::Ok);
        Drive::click(shown, "pushButton_ok");
        Drive::click(shown, "pushButton_cancel");
    });
}

void tst_FixedAngleDlgUnread::greyRowKeepsItsAngles()
{
    ControllerState state = twoBodies();
    state.bodyTypes[QStringLiteral("standard")].bodies[0].calibrated = false;
    TestHost host(state);
    open(&host, [](QWidget *shown) {
        QCOMPARE(Drive::row(tableOf(shown), 0), (QStringList{"1", "Head", "0.0", "0.0", "0.0"}));
        Drive::click(shown, "pushButton_ok");
    });
    QCOMPARE(host.writes(), (QStringList{written(1), written(2)}));
}

TRACKING_TEST_MAIN(tst_FixedAngleDlgUnread)
#include "tst_fixedangledlg_unread.moc"
