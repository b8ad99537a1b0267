#include "bodyadministrationdialog.h"

#include <QPushButton>
#include <QTableWidget>

#include "DialogTest.h"

/** The body administration dialog as an operator works with it. */
class tst_BodyAdministration : public DialogTest {
    Q_OBJECT

private slots:
    void renamesBodyByDoubleClick();
    void fillingSendsNoWrite();
};

void tst_BodyAdministration::renamesBodyByDoubleClick()
{
    TestHost host;
    BodyAdministrationDlg dialog(&host.io, &host.mainWindow, &host.versions);
    robot().expectDialog(QStringLiteral("BodyAdministrationDlg"), [&host](QWidget *window) {
        auto *table = Drive::find<QTableWidget>(window, "tableWidget_standard");
        host.clear();
        Drive::typeIntoCell(table, 1, 3, QStringLiteral("left_hand"));
        QCOMPARE(host.writes(), QStringList{"body desc standard b02 \"left_hand\""});
        QCOMPARE(Drive::cell(table, 1, 3), QStringLiteral("left_hand"));
        Drive::click(window, "pushButton_exit");
    });
    dialog.update_and_exec();
    QCOMPARE(host.state().bodyTypes["standard"].bodies[1].description, QStringLiteral("left_hand"));
    QCOMPARE(host.log(), QStringList());
}

void tst_BodyAdministration::fillingSendsNoWrite()
{
    TestHost host;
    BodyAdministrationDlg dialog(&host.io, &host.mainWindow, &host.versions);
    robot().expectDialog(QStringLiteral("BodyAdministrationDlg"), [](QWidget *) {});
    dialog.update_and_exec();
    QCOMPARE(host.writes(), QStringList{"morvek2 targetlib check_custom_calibration"});
}

TRACKING_TEST_MAIN(tst_BodyAdministration)
#include "tst_bodyadministration.moc"
