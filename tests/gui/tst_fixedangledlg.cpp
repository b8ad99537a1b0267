#include "BackendVersions.h"
#include "angletablewidget.h"
#include "dialogtest.h"
#include "fixedangledlg.h"
#include "helpdialog.h"
#include "settingstable.h"

#include <QHeaderView>
#include <QLineEdit>
#include <QPushButton>
#include <QScopeGuard>
#include <QSignalSpy>
#include <QTextBrowser>

#include <clocale>
#include <functional>
#include <memory>

namespace {

/** Three standard bodies: one with fixed angles, a cylindrical one, and one that allows none. */
ControllerState threeBodies(const QString &protocol = QStringLiteral("1.24"))
{
    ControllerState state = TestHost::scenario(QStringLiteral("studio"));
    state.protocol = protocol;
    state.trackingReference.clear();
    QVector<BodyState> bodies(3);
    const QStringList names{QStringLiteral("Head"), QStringLiteral("Chair"),
                            QStringLiteral("Left hand")};
    for (int i = 0; i < bodies.size(); ++i) {
        bodies[i].description = names.at(i);
        bodies[i].calibrated = true;
        bodies[i].markers = 5;
    }
    bodies[0].fixedAngles = {{{true, 5.0}, {false, -2.5}, {true, 20.0}}};
    bodies[1].targetType = QStringLiteral("tt_2x5dof_cyl");
    bodies[2].targetType = QStringLiteral("tt_5dof");
    state.bodyTypes[QStringLiteral("standard")].bodies = bodies;
    return state;
}

Qt::CheckState check(QTableWidget *table, int row, int column)
{
    return table->item(row, column)->checkState();
}

const QStringList unchangedWrites{
        QStringLiteral("standard fixed_angle b01 yes 5.000000 no -2.500000 yes 20.000000"),
        QStringLiteral("standard fixed_angle b02 no 0.000000 no 0.000000 no 0.000000"),
        QStringLiteral("standard fixed_angle b03 no 0.000000 no 0.000000 no 0.000000")};

} // namespace

class tst_fixedangledlg : public DialogTest {
    Q_OBJECT

private slots:
    void openingReadsEveryBody();
    void oldControllerShowsAnEmptyTable_data();
    void oldControllerShowsAnEmptyTable();
    void tableLayout();
    void greyBody_data();
    void greyBody();
    void fillingChangesNoValue();
    void typedAngle_data();
    void typedAngle();
    void tickingSwitchesAnAngleOn();
    void workedByKeyboardAlone();
    void keysOfTheButtons();
    void numbersAndNamesCannotBeEdited();
    void okWritesEveryRow();
    void cancelSendsNothing();
    void invalidData_data();
    void invalidData();
    void refusedWrite();
    void deletedBehindTheWarning();
    void failedQuery_data();
    void failedQuery();
    void answersThatAreNoAngles_data();
    void answersThatAreNoAngles();
    void help();
    void helpDeletedWithItsDialog();
    void nullHostObjects();
    void recordsBelongToTheCaller();
    void openedAThousandTimes();

private:
    enum Column { Id, Name, Rx, Ry, Rz };

    int open(TestHost *host, const std::function<void(QWidget *)> &drive)
    {
        FixedAngleDlg dialog(&host->io, &host->mainWindow, &host->versions);
        robot().expectDialog(QStringLiteral("FixedAngleDlg"), drive);
        const int result = dialog.update_and_exec();
        robot().verify();
        return result;
    }
};

void tst_fixedangledlg::openingReadsEveryBody()
{
    TestHost host(threeBodies(QStringLiteral("1.6")));
    open(&host, [](QWidget *shown) {
        QTableWidget *table = tableOf(shown);
        QCOMPARE(table->rowCount(), 3);
        QCOMPARE(Drive::row(table, 0), (QStringList{"1", "Head", "5.00", "-2.50", "20.00"}));
        QCOMPARE(Drive::row(table, 1), (QStringList{"2", "Chair", "0.00", "0.00", "0.00"}));
        QCOMPARE(Drive::row(table, 2), (QStringList{"3", "Left hand", "0.0", "0.0", "0.0"}));
        QCOMPARE(check(table, 0, Rx), Qt::Checked);
        QCOMPARE(check(table, 0, Ry), Qt::Unchecked);
        QCOMPARE(check(table, 0, Rz), Qt::Checked);
        QCOMPARE(check(table, 1, Rx), Qt::Unchecked);
        Drive::click(shown, "pushButton_cancel");
    });
    QStringList lines{QStringLiteral("body number_of_bodies standard")};
    for (const QString &body :
         {QStringLiteral("b01"), QStringLiteral("b02"), QStringLiteral("b03")}) {
        lines << QStringLiteral("body desc standard ") + body
              << QStringLiteral("body calibrated standard ") + body
              << QStringLiteral("body target_type standard ") + body
              << QStringLiteral("standard fixed_angle ") + body;
    }
    QCOMPARE(host.lines(), lines);
    QCOMPARE(host.log(), QStringList());
}

void tst_fixedangledlg::oldControllerShowsAnEmptyTable_data()
{
    QTest::addColumn<QString>("protocol");
    QTest::addColumn<int>("rows");
    QTest::newRow("1.5") << "1.5" << 0;
    QTest::newRow("1.6") << "1.6" << 3;
}

void tst_fixedangledlg::oldControllerShowsAnEmptyTable()
{
    QFETCH(QString, protocol);
    QFETCH(int, rows);
    TestHost host(threeBodies(protocol));
    const int result = open(&host, [=](QWidget *shown) {
        QCOMPARE(tableOf(shown)->rowCount(), rows);
        QCOMPARE(tableOf(shown)->columnCount(), 5);
        Drive::click(shown, "pushButton_ok");
    });
    QCOMPARE(result, int(QDialog::Accepted));
    QCOMPARE(host.lines().isEmpty(), rows == 0);
    QCOMPARE(host.writes().size(), rows);
}

void tst_fixedangledlg::tableLayout()
{
    TestHost host(threeBodies());
    open(&host, [](QWidget *shown) {
        QTableWidget *table = tableOf(shown);
        QStringList labels;
        for (int column = 0; column < table->columnCount(); ++column)
            labels.append(table->horizontalHeaderItem(column)->text());
        QCOMPARE(labels, (QStringList{"ID", "Name", "rx", "ry", "rz"}));
        QVERIFY(!table->horizontalHeader()->sectionsClickable());
        QVERIFY(table->horizontalHeader()->stretchLastSection());
        QCOMPARE(table->horizontalHeader()->length(), table->viewport()->width());
        QVERIFY(table->columnWidth(Name) > table->viewport()->width() / 3);
        // The table adapts to the dialog, and all columns are visible.
        for (const QSize &size : {QSize(700, 500), QSize(480, 300)}) {
            shown->resize(size);
            Drive::settle();
            QCOMPARE(table->horizontalHeader()->length(), table->viewport()->width());
            QVERIFY(table->width() > shown->width() - 40);
        }
        Drive::click(shown, "pushButton_cancel");
    });
}

void tst_fixedangledlg::greyBody_data()
{
    QTest::addColumn<QString>("targetType");
    QTest::addColumn<bool>("calibrated");
    QTest::addColumn<bool>("grey");
    QTest::newRow("standard target") << "tt_std" << true << false;
    QTest::newRow("cylindrical target") << "tt_2x5dof_cyl" << true << false;
    QTest::newRow("5DOF target") << "tt_5dof" << true << true;
    QTest::newRow("longer word") << "tt_std2" << true << true;
    QTest::newRow("other case") << "TT_STD" << true << true;
    QTest::newRow("not calibrated") << "tt_std" << false << true;
}

void tst_fixedangledlg::greyBody()
{
    QFETCH(QString, targetType);
    QFETCH(bool, calibrated);
    QFETCH(bool, grey);
    TestHost host(threeBodies());
    host.edit([=](ControllerState &state) {
        BodyState &body = state.bodyTypes[QStringLiteral("standard")].bodies[0];
        body.targetType = targetType;
        body.calibrated = calibrated;
    });
    open(&host, [=](QWidget *shown) {
        QTableWidget *table = tableOf(shown);
        for (int column = Rx; column <= Rz; ++column) {
            const QTableWidgetItem *item = table->item(0, column);
            QCOMPARE(item->background().color() == QColor(Qt::lightGray), grey);
            QCOMPARE(bool(item->flags() & Qt::ItemIsEditable), !grey);
            QCOMPARE(bool(item->flags() & Qt::ItemIsUserCheckable), !grey);
            QVERIFY(item->flags() & Qt::ItemIsSelectable);
        }
        QCOMPARE(Drive::cell(table, 0, Rx), grey ? QStringLiteral("0.0") : QStringLiteral("5.00"));
        const Qt::CheckState before = check(table, 0, Rx);
        Drive::toggleCell(table, 0, Rx);
        QCOMPARE(check(table, 0, Rx) == before, grey);
        Drive::click(shown, "pushButton_cancel");
    });
}

void tst_fixedangledlg::fillingChangesNoValue()
{
    TestHost host(threeBodies());
    host.fault(QStringLiteral(
            "get standard fixed_angle b01 answer \"yes 25.5 no -90.126 yes 1.006\""));
    FixedAngleDlg dialog(&host.io, &host.mainWindow, &host.versions);
    QSignalSpy changed(tableOf(&dialog), &QTableWidget::cellChanged);
    robot().expectDialog(QStringLiteral("FixedAngleDlg"), [](QWidget *shown) {
        QCOMPARE(Drive::row(tableOf(shown), 0),
                 (QStringList{"1", "Head", "25.50", "-90.13", "1.01"}));
    });
    dialog.update_and_exec();
    robot().verify();
    QCOMPARE(changed.count(), 0);
    QCOMPARE(host.writes(), QStringList());
}

void tst_fixedangledlg::typedAngle_data()
{
    QTest::addColumn<QLocale>("locale");
    QTest::addColumn<QString>("typed");
    QTest::addColumn<QString>("shown");
    const QLocale english(QLocale::English, QLocale::UnitedStates);
    const QLocale german(QLocale::German, QLocale::Germany);
    for (const QLocale &locale : {english, german}) {
        const QByteArray name = locale.name().toLatin1() + ": ";
        const auto row = [&](const char *typed, const char *shown) {
            QTest::newRow((name + '"' + typed + '"').constData()) << locale << typed << shown;
        };
        row("25", "0.00");
        row("-20.0", "-20.00");
        row("20.0", "20.00");
        row("20.01", "0.00");
        row("-20.01", "0.00");
        row("12.345", "12.35");
        row("7", "7.00");
        row("abc", "0.00");
        row("", "0.00");
        row("1e1", "10.00");
        row("12,5", "0.00");
        row("nan", "0.00");
        row("inf", "0.00");
        row("3 4", "0.00");
    }
}

void tst_fixedangledlg::typedAngle()
{
    QFETCH(QLocale, locale);
    QFETCH(QString, typed);
    QFETCH(QString, shown);
    QLocale::setDefault(locale);
    // Some machines lack this locale of the C library; the call then changes nothing.
    const QByteArray before = std::setlocale(LC_NUMERIC, nullptr);
    const auto restore = qScopeGuard([&] { std::setlocale(LC_NUMERIC, before.constData()); });
    std::setlocale(LC_NUMERIC, (locale.name() + QStringLiteral(".UTF-8")).toLatin1().constData());
    TestHost host(threeBodies());
    const int result = open(&host, [=](QWidget *dialog) {
        Drive::typeIntoCell(tableOf(dialog), 0, Rx, typed);
        QCOMPARE(Drive::cell(tableOf(dialog), 0, Rx), shown);
        QCOMPARE(check(tableOf(dialog), 0, Rx), Qt::Checked);
        Drive::click(dialog, "pushButton_ok");
    });
    QCOMPARE(result, int(QDialog::Accepted));
    QStringList writes = unchangedWrites;
    writes[0].replace(QStringLiteral("yes 5.000000"),
                      QStringLiteral("yes ") + shown + QStringLiteral("0000"));
    QCOMPARE(host.writes(), writes);
    const auto &angles = host.state().bodyTypes[QStringLiteral("standard")].bodies[0].fixedAngles;
    QCOMPARE(angles[0].degrees, shown.toDouble());
}

void tst_fixedangledlg::tickingSwitchesAnAngleOn()
{
    TestHost host(threeBodies());
    open(&host, [](QWidget *shown) {
        Drive::toggleCell(tableOf(shown), 1, Rz);
        QCOMPARE(check(tableOf(shown), 1, Rz), Qt::Checked);
        QCOMPARE(Drive::cell(tableOf(shown), 1, Rz), QStringLiteral("0.00"));
        Drive::click(shown, "pushButton_ok");
    });
    QCOMPARE(host.writes().value(1),
             QStringLiteral("standard fixed_angle b02 no 0.000000 no 0.000000 yes 0.000000"));
    QVERIFY(host.state().bodyTypes[QStringLiteral("standard")].bodies[1].fixedAngles[2].enabled);
}

void tst_fixedangledlg::workedByKeyboardAlone()
{
    TestHost host(threeBodies());
    const int result = open(&host, [](QWidget *shown) {
        QApplication::setActiveWindow(shown);
        QTableWidget *table = tableOf(shown);
        QCOMPARE(shown->focusWidget(), table);
        table->setCurrentCell(0, Id);
        for (int column = Name; column <= Ry; ++column)
            QTest::keyClick(table, Qt::Key_Right);
        QCOMPARE(table->currentColumn(), int(Ry));
        QTest::keyClick(table, Qt::Key_Space);
        QTest::keyClick(table, Qt::Key_F2);
        auto *editor = table->viewport()->findChild<QLineEdit *>();
        QVERIFY(editor);
        editor->selectAll();
        QTest::keyClicks(editor, QStringLiteral("3.5"));
        QTest::keyClick(editor, Qt::Key_Return);
        Drive::settle();
        QVERIFY(shown->isVisible());
        table->setFocus();
        QTest::keyClick(table, Qt::Key_Tab);
        QCOMPARE(shown->focusWidget()->objectName(), QStringLiteral("pushButton_help"));
        QTest::keyClick(shown->focusWidget(), Qt::Key_Tab);
        QCOMPARE(shown->focusWidget()->objectName(), QStringLiteral("pushButton_ok"));
        QTest::keyClick(shown->focusWidget(), Qt::Key_Space);
    });
    QCOMPARE(result, int(QDialog::Accepted));
    QCOMPARE(host.writes().value(0),
             QStringLiteral("standard fixed_angle b01 yes 5.000000 yes 3.500000 yes 20.000000"));
}

void tst_fixedangledlg::keysOfTheButtons()
{
    TestHost host(threeBodies());
    int helpPages = 0;
    const int accepted = open(&host, [&](QWidget *shown) {
        for (const Qt::Key leaving : {Qt::Key_Escape, Qt::Key_Return}) {
            QApplication::setActiveWindow(shown);
            robot().expectDialog(QStringLiteral("HelpDialog"), [&](QWidget *page) {
                ++helpPages;
                QApplication::setActiveWindow(page);
                // The text has the focus, so that the arrow keys scroll at once.
                QVERIFY(qobject_cast<QTextBrowser *>(page->focusWidget()));
                QTest::keyClick(page->focusWidget(), leaving);
                QVERIFY(!page->isVisible());
            });
            const int before = helpPages;
            QTest::keyClick(shown, Qt::Key_H, Qt::AltModifier);
            // A key holds a button down for a moment before the button acts.
            QTRY_COMPARE(helpPages, before + 1);
        }
        QTest::keyClick(tableOf(shown), Qt::Key_Return);
        QVERIFY(!shown->isVisible());
    });
    QCOMPARE(helpPages, 2);
    QCOMPARE(accepted, int(QDialog::Accepted));
    QCOMPARE(host.writes(), unchangedWrites);
    host.clear();
    const int rejected = open(&host, [](QWidget *shown) {
        Drive::typeIntoCell(tableOf(shown), 0, Ry, QStringLiteral("7"));
        QTest::keyClick(tableOf(shown), Qt::Key_Escape);
        QVERIFY(!shown->isVisible());
    });
    QCOMPARE(rejected, int(QDialog::Rejected));
    QCOMPARE(host.writes(), QStringList());
}

void tst_fixedangledlg::numbersAndNamesCannotBeEdited()
{
    TestHost host(threeBodies());
    open(&host, [](QWidget *shown) {
        QTableWidget *table = tableOf(shown);
        for (const int column : {Id, Name}) {
            Drive::doubleClickCell(table, 0, column);
            QVERIFY(!table->viewport()->findChild<QLineEdit *>());
            QVERIFY(!(table->item(0, column)->flags() & Qt::ItemIsEditable));
            QTest::keyClick(table, Qt::Key_F2);
            QVERIFY(!table->viewport()->findChild<QLineEdit *>());
        }
        Drive::click(shown, "pushButton_cancel");
    });
}

void tst_fixedangledlg::okWritesEveryRow()
{
    TestHost host(threeBodies());
    QLocale::setDefault(QLocale(QLocale::German, QLocale::Germany));
    const int result = open(&host, [](QWidget *shown) { Drive::click(shown, "pushButton_ok"); });
    QCOMPARE(result, int(QDialog::Accepted));
    QCOMPARE(host.writes(), unchangedWrites);
}

void tst_fixedangledlg::cancelSendsNothing()
{
    TestHost host(threeBodies());
    const int result = open(&host, [](QWidget *shown) {
        Drive::typeIntoCell(tableOf(shown), 0, Ry, QStringLiteral("7"));
        Drive::toggleCell(tableOf(shown), 0, Ry);
        Drive::click(shown, "pushButton_cancel");
    });
    QCOMPARE(result, int(QDialog::Rejected));
    QCOMPARE(host.writes(), QStringList());
}

void tst_fixedangledlg::invalidData_data()
{
    QTest::addColumn<int>("row");
    QTest::addColumn<int>("column");
    QTest::newRow("first row") << 0 << int(Rx);
    QTest::newRow("last row, after valid ones") << 2 << int(Rz);
}

void tst_fixedangledlg::invalidData()
{
    QFETCH(int, row);
    QFETCH(int, column);
    TestHost host(threeBodies());
    open(&host, [=](QWidget *shown) {
        QTableWidget *table = tableOf(shown);
        {
            // This bypasses the check of the cells, which refuses such a text.
            const QSignalBlocker unchecked(table);
            table->item(row, column)->setText(QStringLiteral("about five"));
        }
        robot().expectBox(QStringLiteral("Fixed Angle"), QStringLiteral("There is invalid data."),
                          QMessageBox::Ok);
        Drive::click(shown, "pushButton_ok");
        QVERIFY(shown->isVisible());
        Drive::click(shown, "pushButton_cancel");
    });
    QCOMPARE(host.writes(), QStringList());
}

void tst_fixedangledlg::refusedWrite()
{
    TestHost host(threeBodies());
    host.fault(QStringLiteral("set standard fixed_angle b01* refuse"));
    open(&host, [this](QWidget *shown) {
        Drive::toggleCell(tableOf(shown), 1, Rx);
        robot().expectBox(QStringLiteral("Fixed Angle"),
                          QStringLiteral("The controller refused the fixed angles of b01 Head."),
                          QMessageBox::Ok);
        Drive::click(shown, "pushButton_ok");
        QVERIFY(shown->isVisible());
        Drive::click(shown, "pushButton_cancel");
    });
    QCOMPARE(host.log(),
             QStringList{QStringLiteral("Error: Unable to set fixed angle of standard body")});
    // The other rows were written nevertheless.
    QCOMPARE(host.writes().size(), 3);
    QVERIFY(host.state().bodyTypes[QStringLiteral("standard")].bodies[1].fixedAngles[0].enabled);
}

void tst_fixedangledlg::deletedBehindTheWarning()
{
    TestHost host(threeBodies());
    host.fault(QStringLiteral("set standard fixed_angle* refuse"));
    auto dialog = std::make_unique<FixedAngleDlg>(&host.io, &host.mainWindow, &host.versions);
    robot().expectDialog(QStringLiteral("FixedAngleDlg"), [&](QWidget *shown) {
        robot().expectBox(QStringLiteral("Fixed Angle"),
                          QStringLiteral("The controller refused the fixed angles of b01 Head, "
                                         "b02 Chair, b03 Left hand."),
                          QMessageBox::Ok, [&] { dialog.reset(); });
        QTest::keyClick(Drive::find<QPushButton>(shown, "pushButton_ok"), Qt::Key_Space);
    });
    QCOMPARE(dialog.get()->update_and_exec(), int(QDialog::Rejected));
    robot().verify();
    QVERIFY(!dialog);
}

void tst_fixedangledlg::failedQuery_data()
{
    QTest::addColumn<QString>("query");
    QTest::addColumn<QString>("log");
    QTest::addColumn<QStringList>("row");
    QTest::newRow("number") << "body number_of_bodies standard"
                            << "Error: Unable to check number of standard bodies"
                            << QStringList{"", "", "", "", ""};
    QTest::newRow("name") << "body desc standard b01"
                          << "Error: Unable to check name of standard body"
                          << QStringList{"1", "", "5.00", "-2.50", "20.00"};
    QTest::newRow("calibration") << "body calibrated standard b01"
                                 << "Error: Unable to check the calibration status of standard body"
                                 << QStringList{"1", "Head", "0.0", "0.0", "0.0"};
    QTest::newRow("target type") << "body target_type standard b01"
                                 << "Error: Unable to check target type"
                                 << QStringList{"1", "Head", "0.0", "0.0", "0.0"};
    QTest::newRow("angles") << "standard fixed_angle b01"
                            << "Error: Unable to check fixed angle of standard body"
                            << QStringList{"1", "Head", "0.00", "0.00", "0.00"};
}

void tst_fixedangledlg::failedQuery()
{
    QFETCH(QString, query);
    QFETCH(QString, log);
    QFETCH(QStringList, row);
    TestHost host(threeBodies());
    host.fault(QStringLiteral("get %1 fail").arg(query));
    open(&host, [=](QWidget *shown) {
        QCOMPARE(Drive::row(tableOf(shown), 0), row);
        Drive::click(shown, "pushButton_cancel");
    });
    QCOMPARE(host.log(), QStringList{log});
    QCOMPARE(host.queries().size(), query.endsWith(QLatin1String("b01")) ? 13 : 1);
}

void tst_fixedangledlg::answersThatAreNoAngles_data()
{
    QTest::addColumn<QString>("answer");
    QTest::addColumn<QStringList>("angles");
    QTest::addColumn<bool>("rzOn");
    QTest::newRow("too few") << "yes 3.5" << QStringList{"3.50", "0.00", "0.00"} << false;
    QTest::newRow("no numbers") << "no a no b yes c" << QStringList{"0.00", "0.00", "0.00"} << true;
    QTest::newRow("flag in another case")
            << "no 1 no 2 Yes 3" << QStringList{"1.00", "2.00", "3.00"} << false;
    QTest::newRow("infinite") << "no inf no nan yes 3" << QStringList{"0.00", "0.00", "3.00"}
                              << true;
}

void tst_fixedangledlg::answersThatAreNoAngles()
{
    QFETCH(QString, answer);
    QFETCH(QStringList, angles);
    QFETCH(bool, rzOn);
    TestHost host(threeBodies());
    host.fault(QStringLiteral("get standard fixed_angle b01 answer \"%1\"").arg(answer));
    open(&host, [=](QWidget *shown) {
        QCOMPARE(Drive::row(tableOf(shown), 0).mid(Rx), angles);
        QCOMPARE(check(tableOf(shown), 0, Rz) == Qt::Checked, rzOn);
        Drive::click(shown, "pushButton_cancel");
    });
}

void tst_fixedangledlg::help()
{
    TestHost host(threeBodies());
    bool helpShown = false;
    open(&host, [&](QWidget *shown) {
        robot().expectDialog(QStringLiteral("HelpDialog"), [&](QWidget *page) {
            auto *text = Drive::find<QTextBrowser>(page, "textBrowser");
            const QString plain = text->toPlainText();
            QVERIFY(plain.contains(QStringLiteral("-20.0")));
            QVERIFY(plain.contains(QStringLiteral("20.0 degrees")));
            for (const char *topic : {"What a fixed angle does", "How to switch a fixed angle on",
                                      "Which angles are allowed", "Which bodies allow it",
                                      "Tick the box", "has to be calibrated"})
                QVERIFY2(plain.contains(QLatin1String(topic)), topic);
            for (const char *picture : {":/datadisplay.png", ":/bodytable.png"}) {
                QVERIFY(text->toHtml().contains(QLatin1String(picture)));
                QCOMPARE(QImage(QLatin1String(picture)).size(), QSize(528, 200));
            }
            helpShown = true;
            Drive::click(page, "pushButton_close");
        });
        Drive::click(shown, "pushButton_help");
        QVERIFY(helpShown);
        QVERIFY(shown->findChildren<HelpDialog *>().isEmpty());
        Drive::click(shown, "pushButton_cancel");
    });
    QCOMPARE(host.writes(), QStringList());
}

void tst_fixedangledlg::helpDeletedWithItsDialog()
{
    TestHost host(threeBodies());
    auto dialog = std::make_unique<FixedAngleDlg>(&host.io, &host.mainWindow, &host.versions);
    robot().expectDialog(QStringLiteral("FixedAngleDlg"), [&](QWidget *shown) {
        robot().expectDialog(QStringLiteral("HelpDialog"), [&](QWidget *) { dialog.reset(); });
        QTest::keyClick(Drive::find<QPushButton>(shown, "pushButton_help"), Qt::Key_Space);
    });
    dialog.get()->update_and_exec();
    robot().verify();
    QVERIFY(!dialog);
}

void tst_fixedangledlg::nullHostObjects()
{
    FixedAngleDlg dialog(nullptr, nullptr, nullptr);
    robot().expectDialog(QStringLiteral("FixedAngleDlg"), [](QWidget *shown) {
        QCOMPARE(tableOf(shown)->rowCount(), 0);
        Drive::click(shown, "pushButton_ok");
    });
    QCOMPARE(dialog.update_and_exec(), int(QDialog::Accepted));
    robot().verify();
}

void tst_fixedangledlg::recordsBelongToTheCaller()
{
    TestHost host(threeBodies());
    FixedAngleDlg dialog(&host.io, &host.mainWindow, &host.versions);
    QList<FixedAngleBody *> bodies;
    const auto release = qScopeGuard([&bodies] { qDeleteAll(bodies); });
    dialog.get_fixed_angle_info(bodies);
    QCOMPARE(bodies.size(), 3);
    QCOMPARE(bodies.at(0)->body_id, 1);
    QCOMPARE(bodies.at(0)->body_des, QStringLiteral("Head"));
    QVERIFY(bodies.at(0)->body_cali);
    QVERIFY(bodies.at(0)->fixed_angle_enable[0]);
    QCOMPARE(bodies.at(0)->fixed_angle[1], -2.5);
    QVERIFY(!bodies.at(2)->body_cali);
}

void tst_fixedangledlg::openedAThousandTimes()
{
    TestHost host(threeBodies());
    const int children = host.mainWindow.findChildren<QObject *>().size();
    for (int i = 0; i < 1000; ++i) {
        host.clear();
        open(&host, [](QWidget *shown) { Drive::click(shown, "pushButton_cancel"); });
    }
    QCOMPARE(host.mainWindow.findChildren<QObject *>().size(), children);
    QCOMPARE(host.lines().size(), 13);
}

TRACKING_TEST_MAIN(tst_fixedangledlg)
#include "tst_fixedangledlg.moc"
