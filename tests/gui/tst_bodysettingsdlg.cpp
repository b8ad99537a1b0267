#include "BackendVersions.h"
#include "bodysettingsdlg.h"
#include "dialogtest.h"
#include "settingstable.h"

#include <QHeaderView>
#include <QLineEdit>
#include <QPushButton>

#include <functional>
#include <memory>

namespace {

QString nameOf(const TestHost &host, int body)
{
    return host.state().bodyTypes[QStringLiteral("standard")].bodies.at(body).description;
}

} // namespace

class tst_bodysettingsdlg : public DialogTest {
    Q_OBJECT

private slots:
    void opening();
    void openingReadsAgain();
    void form();
    void okWritesEveryName();
    void everyAllowedSignArrives();
    void emptyName();
    void cancelSendsNothing();
    void forbiddenSignIsRefused();
    void workedByKeyboardAlone();
    void keysOfTheButtons();
    void oldControllerByKeyboard();
    void versionGate_data();
    void versionGate();
    void advancedGate_data();
    void advancedGate();
    void advancedCanBeHidden();
    void advancedOpensTheFixedAngles();
    void failedQuery_data();
    void failedQuery();
    void unreadNameIsNotOverwritten();
    void unreadNameIsWrittenOnceEntered();
    void nameThatWasNotReadWholeIsNotWritten_data();
    void nameThatWasNotReadWholeIsNotWritten();
    void blanksAreAnEmptyName();
    void refusedName();
    void nullHostObjects();
    void deletedWhileOpen();
    void visibleDialogIsOnlyRaised();
    void openedAThousandTimes();

private:
    enum Column { Id, Name, State };

    const QString moduleVersion = QStringLiteral("v3.0.6");

    int open(BodySettingsDlg *dialog, const std::function<void(QWidget *)> &drive)
    {
        robot().expectDialog(QStringLiteral("BodySettingsDlg"), drive);
        const int result = dialog->update_and_exec();
        robot().verify();
        return result;
    }
};

void tst_bodysettingsdlg::opening()
{
    TestHost host(twoBodies());
    BodySettingsDlg dialog(&host.io, &host.mainWindow, &host.versions, moduleVersion);
    QCOMPARE(host.lines(), QStringList());
    open(&dialog, [&](QWidget *shown) {
        QCOMPARE(Drive::row(tableOf(shown), 0), (QStringList{"1", "Head", "calibrated"}));
        QCOMPARE(Drive::row(tableOf(shown), 1), (QStringList{"2", "Left hand", "not calibrated"}));
        QCOMPARE(dialog.get_current_body_names(), (QStringList{"Head", "Left hand"}));
        Drive::click(shown, "pushButton_cancel");
    });
    QCOMPARE(host.lines(), (QStringList{"body number_of_bodies standard", "body desc standard b01",
                                        "body calibrated standard b01", "body desc standard b02",
                                        "body calibrated standard b02"}));
    QCOMPARE(host.log(), QStringList());
}

void tst_bodysettingsdlg::openingReadsAgain()
{
    TestHost host(twoBodies());
    BodySettingsDlg dialog(&host.io, &host.mainWindow, &host.versions, moduleVersion);
    open(&dialog, [](QWidget *shown) {
        Drive::typeIntoCell(tableOf(shown), 0, Name, QStringLiteral("Discarded"));
        Drive::click(shown, "pushButton_cancel");
    });
    host.edit([](ControllerState &state) {
        state.bodyTypes[QStringLiteral("standard")].bodies.resize(1);
    });
    open(&dialog, [](QWidget *shown) {
        QCOMPARE(tableOf(shown)->rowCount(), 1);
        QCOMPARE(Drive::cell(tableOf(shown), 0, Name), QStringLiteral("Head"));
        Drive::click(shown, "pushButton_cancel");
    });
}

void tst_bodysettingsdlg::form()
{
    TestHost host(twoBodies());
    BodySettingsDlg dialog(&host.io, &host.mainWindow, &host.versions, moduleVersion);
    open(&dialog, [](QWidget *shown) {
        QCOMPARE(shown->windowTitle(), QStringLiteral("Body Settings"));
        QTableWidget *table = tableOf(shown);
        QStringList labels;
        for (int column = 0; column < table->columnCount(); ++column)
            labels.append(table->horizontalHeaderItem(column)->text());
        QCOMPARE(labels, (QStringList{"ID", "Name", "State"}));
        QVERIFY(!table->horizontalHeader()->sectionsClickable());
        QVERIFY(table->horizontalHeader()->stretchLastSection());
        QCOMPARE(table->item(0, Id)->flags(), Qt::ItemFlags(Qt::ItemIsEnabled));
        QCOMPARE(table->item(0, State)->flags(), Qt::ItemFlags(Qt::ItemIsEnabled));
        const auto *advanced = Drive::find<QPushButton>(shown, "pushButton_special");
        QCOMPARE(advanced->text(), QStringLiteral("&Advanced"));
        QCOMPARE(advanced->toolTip(), QStringLiteral("Open fixed angles dialogue"));
        QCOMPARE(advanced->shortcut(), QKeySequence(QStringLiteral("Alt+A")));
        QCOMPARE(table->horizontalHeader()->length(), table->viewport()->width());
        QVERIFY(table->columnWidth(Name) > table->viewport()->width() / 3);
        for (const QSize &size : {QSize(700, 500), QSize(400, 300)}) {
            shown->resize(size);
            Drive::settle();
            QCOMPARE(table->horizontalHeader()->length(), table->viewport()->width());
        }
        Drive::click(shown, "pushButton_cancel");
    });
}

void tst_bodysettingsdlg::okWritesEveryName()
{
    TestHost host(twoBodies());
    BodySettingsDlg dialog(&host.io, &host.mainWindow, &host.versions, moduleVersion);
    const int result = open(&dialog, [](QWidget *shown) {
        Drive::typeIntoCell(tableOf(shown), 0, Name, QStringLiteral("Cap"));
        Drive::click(shown, "pushButton_ok");
    });
    QCOMPARE(result, int(QDialog::Accepted));
    QCOMPARE(host.writes(),
             (QStringList{"body desc standard b01 Cap", "body desc standard b02 Left hand"}));
    QCOMPARE(nameOf(host, 0), QStringLiteral("Cap"));
    QCOMPARE(nameOf(host, 1), QStringLiteral("Left hand"));
}

void tst_bodysettingsdlg::everyAllowedSignArrives()
{
    const QString name = QStringLiteral("0189 AZaz _-+=.,;:/");
    TestHost host(twoBodies());
    BodySettingsDlg dialog(&host.io, &host.mainWindow, &host.versions, moduleVersion);
    open(&dialog, [&](QWidget *shown) {
        Drive::typeIntoCell(tableOf(shown), 0, Name, name);
        QCOMPARE(Drive::cell(tableOf(shown), 0, Name), name);
        Drive::click(shown, "pushButton_ok");
    });
    QCOMPARE(host.writes().value(0), QStringLiteral("body desc standard b01 ") + name);
    QCOMPARE(nameOf(host, 0), name);
}

void tst_bodysettingsdlg::emptyName()
{
    TestHost host(twoBodies());
    BodySettingsDlg dialog(&host.io, &host.mainWindow, &host.versions, moduleVersion);
    open(&dialog, [](QWidget *shown) {
        Drive::typeIntoCell(tableOf(shown), 0, Name, QString());
        Drive::click(shown, "pushButton_ok");
    });
    QCOMPARE(host.writes().value(0), QStringLiteral("body desc standard b01 \"\""));
    QCOMPARE(nameOf(host, 0), QString());
}

void tst_bodysettingsdlg::cancelSendsNothing()
{
    TestHost host(twoBodies());
    BodySettingsDlg dialog(&host.io, &host.mainWindow, &host.versions, moduleVersion);
    const int result = open(&dialog, [](QWidget *shown) {
        Drive::typeIntoCell(tableOf(shown), 0, Name, QStringLiteral("Cap"));
        Drive::click(shown, "pushButton_cancel");
    });
    QCOMPARE(result, int(QDialog::Rejected));
    QCOMPARE(host.writes(), QStringList());
}

void tst_bodysettingsdlg::forbiddenSignIsRefused()
{
    TestHost host(twoBodies());
    BodySettingsDlg dialog(&host.io, &host.mainWindow, &host.versions, moduleVersion);
    open(&dialog, [](QWidget *shown) {
        Drive::typeIntoCell(tableOf(shown), 0, Name, QStringLiteral("Ca\"p"));
        QCOMPARE(Drive::cell(tableOf(shown), 0, Name), QStringLiteral("Cap"));
        Drive::click(shown, "pushButton_cancel");
    });
}

void tst_bodysettingsdlg::workedByKeyboardAlone()
{
    TestHost host(twoBodies());
    BodySettingsDlg dialog(&host.io, &host.mainWindow, &host.versions, moduleVersion);
    const int result = open(&dialog, [](QWidget *shown) {
        QApplication::setActiveWindow(shown);
        QTableWidget *table = tableOf(shown);
        QCOMPARE(shown->focusWidget(), table);
        QTest::keyClick(table, Qt::Key_Down);
        QTest::keyClick(table, Qt::Key_F2);
        auto *editor = table->viewport()->findChild<QLineEdit *>();
        QVERIFY(editor);
        QTest::keyClicks(editor, QStringLiteral("Boot"));
        QTest::keyClick(editor, Qt::Key_Return);
        Drive::settle();
        QVERIFY(shown->isVisible());
        table->setFocus();
        QTest::keyClick(table, Qt::Key_Tab);
        QCOMPARE(shown->focusWidget()->objectName(), QStringLiteral("pushButton_special"));
        QTest::keyClick(shown->focusWidget(), Qt::Key_Tab);
        QCOMPARE(shown->focusWidget()->objectName(), QStringLiteral("pushButton_ok"));
        QTest::keyClick(shown->focusWidget(), Qt::Key_Space);
    });
    QCOMPARE(result, int(QDialog::Accepted));
    QCOMPARE(nameOf(host, 1), QStringLiteral("Boot"));
}

void tst_bodysettingsdlg::keysOfTheButtons()
{
    TestHost host(twoBodies());
    BodySettingsDlg dialog(&host.io, &host.mainWindow, &host.versions, moduleVersion);
    bool anglesShown = false;
    const int accepted = open(&dialog, [&](QWidget *shown) {
        QApplication::setActiveWindow(shown);
        robot().expectDialog(QStringLiteral("FixedAngleDlg"), [&](QWidget *angles) {
            anglesShown = true;
            QTest::keyClick(angles, Qt::Key_Escape);
        });
        QTest::keyClick(shown, Qt::Key_A, Qt::AltModifier);
        // A key holds a button down for a moment before the button acts.
        QTRY_VERIFY(anglesShown);
        // Enter on a name that is not being edited presses the default button.
        QTest::keyClick(tableOf(shown), Qt::Key_Return);
    });
    QCOMPARE(accepted, int(QDialog::Accepted));
    QCOMPARE(host.writes(),
             (QStringList{"body desc standard b01 Head", "body desc standard b02 Left hand"}));
    host.clear();
    const int rejected = open(&dialog, [](QWidget *shown) {
        QTest::keyClick(tableOf(shown), Qt::Key_Escape);
        QVERIFY(!shown->isVisible());
    });
    QCOMPARE(rejected, int(QDialog::Rejected));
    QCOMPARE(host.writes(), QStringList());
}

void tst_bodysettingsdlg::oldControllerByKeyboard()
{
    TestHost host(twoBodies(QStringLiteral("1.15")));
    BodySettingsDlg dialog(&host.io, &host.mainWindow, &host.versions, moduleVersion);
    const int result = open(&dialog, [](QWidget *shown) {
        QApplication::setActiveWindow(shown);
        // The table and OK are disabled, so that neither may have or get the focus.
        const auto focused = [shown] {
            const QWidget *widget = shown->focusWidget();
            return widget ? widget->objectName() : QString();
        };
        QCOMPARE(focused(), QStringLiteral("pushButton_special"));
        QTest::keyClick(shown->focusWidget(), Qt::Key_Tab);
        QCOMPARE(focused(), QStringLiteral("pushButton_cancel"));
        QTest::keyClick(shown->focusWidget(), Qt::Key_Space);
        QVERIFY(!shown->isVisible());
    });
    QCOMPARE(result, int(QDialog::Rejected));
    QCOMPARE(host.writes(), QStringList());
}

void tst_bodysettingsdlg::versionGate_data()
{
    QTest::addColumn<QString>("protocol");
    QTest::addColumn<bool>("editable");
    QTest::newRow("1.15") << "1.15" << false;
    QTest::newRow("1.16") << "1.16" << true;
    QTest::newRow("2.0") << "2.0" << true;
}

void tst_bodysettingsdlg::versionGate()
{
    QFETCH(QString, protocol);
    QFETCH(bool, editable);
    TestHost host(twoBodies(protocol));
    BodySettingsDlg dialog(&host.io, &host.mainWindow, &host.versions, moduleVersion);
    const int result = open(&dialog, [=](QWidget *shown) {
        QTableWidget *table = tableOf(shown);
        QCOMPARE(table->isEnabled(), editable);
        QCOMPARE(Drive::find<QPushButton>(shown, "pushButton_ok")->isEnabled(), editable);
        QCOMPARE(bool(table->item(0, Name)->flags() & Qt::ItemIsEditable), editable);
        QCOMPARE(Drive::cell(table, 0, Name), QStringLiteral("Head"));
        Drive::click(shown, "pushButton_cancel");
    });
    QCOMPARE(result, int(QDialog::Rejected));
}

void tst_bodysettingsdlg::advancedGate_data()
{
    QTest::addColumn<QString>("protocol");
    QTest::addColumn<bool>("enabled");
    QTest::newRow("1.5") << "1.5" << false;
    QTest::newRow("1.6") << "1.6" << true;
}

void tst_bodysettingsdlg::advancedGate()
{
    QFETCH(QString, protocol);
    QFETCH(bool, enabled);
    TestHost host(twoBodies(protocol));
    BodySettingsDlg dialog(&host.io, &host.mainWindow, &host.versions, moduleVersion);
    open(&dialog, [=](QWidget *shown) {
        const auto *advanced = Drive::find<QPushButton>(shown, "pushButton_special");
        QVERIFY(advanced->isVisible());
        QCOMPARE(advanced->isEnabled(), enabled);
        Drive::click(shown, "pushButton_cancel");
    });
    QCOMPARE(host.log(),
             enabled ? QStringList()
                     : QStringList{QStringLiteral("TrackingSettings: Old version of Controller")});
}

void tst_bodysettingsdlg::advancedCanBeHidden()
{
    TestHost host(twoBodies());
    BodySettingsDlg dialog(&host.io, &host.mainWindow, &host.versions, moduleVersion);
    dialog.show_fixed_angle_button(false);
    open(&dialog, [](QWidget *shown) {
        QVERIFY(!Drive::find<QPushButton>(shown, "pushButton_special")->isVisible());
        Drive::click(shown, "pushButton_cancel");
    });
}

void tst_bodysettingsdlg::advancedOpensTheFixedAngles()
{
    TestHost host(twoBodies());
    BodySettingsDlg dialog(&host.io, &host.mainWindow, &host.versions, moduleVersion);
    open(&dialog, [this](QWidget *shown) {
        robot().expectDialog(QStringLiteral("FixedAngleDlg"), [shown](QWidget *angles) {
            QCOMPARE(angles->parentWidget(), shown);
            Drive::click(angles, "pushButton_ok");
        });
        Drive::click(shown, "pushButton_special");
        QVERIFY(shown->findChildren<QDialog *>().isEmpty());
        QVERIFY(shown->isVisible());
        Drive::click(shown, "pushButton_cancel");
    });
    QCOMPARE(host.writes(),
             (QStringList{"standard fixed_angle b01 no 0.000000 no 0.000000 no 0.000000",
                          "standard fixed_angle b02 no 0.000000 no 0.000000 no 0.000000"}));
}

void tst_bodysettingsdlg::failedQuery_data()
{
    QTest::addColumn<QString>("query");
    QTest::addColumn<QString>("log");
    QTest::addColumn<QStringList>("row");
    QTest::newRow("number") << "body number_of_bodies standard"
                            << "Error: Unable to get number of standard bodies"
                            << QStringList{"", "", ""};
    QTest::newRow("name") << "body desc standard b01"
                          << "Error: Unable to get name of standard body"
                          << QStringList{"1", "", "calibrated"};
    QTest::newRow("calibration") << "body calibrated standard b01"
                                 << "Error: Unable to get the calibration status of standard body"
                                 << QStringList{"1", "Head", "not calibrated"};
}

void tst_bodysettingsdlg::failedQuery()
{
    QFETCH(QString, query);
    QFETCH(QString, log);
    QFETCH(QStringList, row);
    TestHost host(twoBodies());
    host.fault(QStringLiteral("get %1 fail").arg(query));
    BodySettingsDlg dialog(&host.io, &host.mainWindow, &host.versions, moduleVersion);
    open(&dialog, [=](QWidget *shown) {
        QCOMPARE(Drive::row(tableOf(shown), 0), row);
        Drive::click(shown, "pushButton_cancel");
    });
    QCOMPARE(host.log(), QStringList{log});
    QCOMPARE(host.queries().size(), query.endsWith(QLatin1String("b01")) ? 5 : 1);
}

void tst_bodysettingsdlg::unreadNameIsNotOverwritten()
{
    TestHost host(twoBodies());
    host.fault(QStringLiteral("get body desc* fail"));
    BodySettingsDlg dialog(&host.io, &host.mainWindow, &host.versions, moduleVersion);
    open(&dialog, [](QWidget *shown) {
        Drive::typeIntoCell(tableOf(shown), 1, Name, QStringLiteral("Boot"));
        Drive::click(shown, "pushButton_ok");
    });
    QCOMPARE(host.writes(), QStringList{QStringLiteral("body desc standard b02 Boot")});
    QCOMPARE(nameOf(host, 0), QStringLiteral("Head"));
}

void tst_bodysettingsdlg::unreadNameIsWrittenOnceEntered()
{
    TestHost host(twoBodies());
    host.fault(QStringLiteral("get body desc standard b01 fail"));
    BodySettingsDlg dialog(&host.io, &host.mainWindow, &host.versions, moduleVersion);
    open(&dialog, [](QWidget *shown) {
        Drive::typeIntoCell(tableOf(shown), 0, Name, QStringLiteral("Hat"));
        Drive::click(shown, "pushButton_ok");
    });
    QCOMPARE(host.writes(),
             (QStringList{"body desc standard b01 Hat", "body desc standard b02 Left hand"}));
}

void tst_bodysettingsdlg::nameThatWasNotReadWholeIsNotWritten_data()
{
    QTest::addColumn<QByteArray>("answer");
    QTest::newRow("garbled") << QByteArray("He\xff\x64");
    QTest::newRow("control sign") << QByteArray("He\x1b[31m");
    QTest::newRow("line break") << QByteArray("He\nad");
    QTest::newRow("lone quote") << QByteArray("He\"ad");
}

void tst_bodysettingsdlg::nameThatWasNotReadWholeIsNotWritten()
{
    QFETCH(QByteArray, answer);
    TestHost host(twoBodies());
    host.edit([&answer](ControllerState &state) {
        state.bodyTypes[QStringLiteral("standard")].bodies[0].description =
                QString::fromUtf8(answer);
    });
    const QString before = nameOf(host, 0);
    BodySettingsDlg dialog(&host.io, &host.mainWindow, &host.versions, moduleVersion);
    open(&dialog, [](QWidget *shown) {
        const QString name = Drive::cell(tableOf(shown), 0, Name);
        QVERIFY(name.startsWith(QStringLiteral("He")));
        QVERIFY(!name.contains(QLatin1Char('\n')));
        Drive::click(shown, "pushButton_ok");
    });
    QCOMPARE(host.writes(), QStringList{"body desc standard b02 Left hand"});
    QCOMPARE(nameOf(host, 0), before);
    QCOMPARE(host.log(), QStringList());
}

void tst_bodysettingsdlg::blanksAreAnEmptyName()
{
    TestHost host(twoBodies());
    BodySettingsDlg dialog(&host.io, &host.mainWindow, &host.versions, moduleVersion);
    open(&dialog, [](QWidget *shown) {
        Drive::typeIntoCell(tableOf(shown), 0, Name, QStringLiteral("   "));
        Drive::click(shown, "pushButton_ok");
    });
    QCOMPARE(host.writes().value(0), QStringLiteral("body desc standard b01 \"\""));
    QCOMPARE(nameOf(host, 0), QString());
}

void tst_bodysettingsdlg::refusedName()
{
    TestHost host(twoBodies());
    host.fault(QStringLiteral("set body desc standard b01* refuse"));
    BodySettingsDlg dialog(&host.io, &host.mainWindow, &host.versions, moduleVersion);
    const int result = open(&dialog, [](QWidget *shown) { Drive::click(shown, "pushButton_ok"); });
    QCOMPARE(result, int(QDialog::Accepted));
    QCOMPARE(host.log(), QStringList{QStringLiteral("Error: Unable to set name of standard body")});
    QCOMPARE(host.writes().size(), 2);
}

void tst_bodysettingsdlg::nullHostObjects()
{
    BodySettingsDlg dialog(nullptr, nullptr, nullptr, moduleVersion);
    open(&dialog, [](QWidget *shown) {
        QCOMPARE(tableOf(shown)->rowCount(), 0);
        QVERIFY(!Drive::find<QPushButton>(shown, "pushButton_ok")->isEnabled());
        Drive::click(shown, "pushButton_cancel");
    });
    QCOMPARE(dialog.get_current_body_names(), QStringList());
}

void tst_bodysettingsdlg::deletedWhileOpen()
{
    TestHost host(twoBodies());
    auto dialog = std::make_unique<BodySettingsDlg>(&host.io, &host.mainWindow, &host.versions,
                                                    moduleVersion);
    robot().expectDialog(QStringLiteral("BodySettingsDlg"), [&](QWidget *shown) {
        robot().expectDialog(QStringLiteral("FixedAngleDlg"), [&](QWidget *) { dialog.reset(); });
        QTest::keyClick(Drive::find<QPushButton>(shown, "pushButton_special"), Qt::Key_Space);
    });
    dialog.get()->update_and_exec();
    robot().verify();
    QVERIFY(!dialog);
}

void tst_bodysettingsdlg::visibleDialogIsOnlyRaised()
{
    TestHost host(twoBodies());
    BodySettingsDlg dialog(&host.io, &host.mainWindow, &host.versions, moduleVersion);
    open(&dialog, [&](QWidget *shown) {
        tableOf(shown)->item(0, Name)->setText(QStringLiteral("Hat"));
        host.clear();
        QCOMPARE(dialog.update_and_exec(), int(QDialog::Rejected));
        QCOMPARE(host.lines(), QStringList());
        QCOMPARE(Drive::cell(tableOf(shown), 0, Name), QStringLiteral("Hat"));
        Drive::click(shown, "pushButton_ok");
    });
    QCOMPARE(host.state().bodyTypes["standard"].bodies[0].description, QStringLiteral("Hat"));
}

void tst_bodysettingsdlg::openedAThousandTimes()
{
    TestHost host(twoBodies());
    BodySettingsDlg dialog(&host.io, &host.mainWindow, &host.versions, moduleVersion);
    open(&dialog, [](QWidget *shown) { Drive::click(shown, "pushButton_cancel"); });
    const int children = dialog.findChildren<QObject *>().size();
    for (int i = 0; i < 1000; ++i) {
        host.clear();
        open(&dialog, [](QWidget *shown) { Drive::click(shown, "pushButton_cancel"); });
    }
    QCOMPARE(dialog.findChildren<QObject *>().size(), children);
    QCOMPARE(host.lines().size(), 5);
}

TRACKING_TEST_MAIN(tst_bodysettingsdlg)
#include "tst_bodysettingsdlg.moc"
