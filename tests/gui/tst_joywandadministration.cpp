#include "administrationfixture.h"

namespace {

const QString multiUserQuestions[] = {QStringLiteral("joywand multiuser_available"),
                                      QStringLiteral("joywand multiuser_with_head_available"),
                                      QStringLiteral("joywand multiuser"),
                                      QStringLiteral("joywand multiuser_with_head")};

/** A studio with one Joywand and one target for it. */
ControllerState oneJoywand(const QString &protocol = QStringLiteral("1.24"))
{
    ControllerState state = TestHost::scenario(QStringLiteral("studio"));
    state.protocol = protocol;
    state.bodyTypes[QStringLiteral("joywand")].bodies.resize(1);
    const TargetState target = state.targets.at(14);
    state.targets = {target};
    for (BodyTypeState &type : state.bodyTypes) {
        for (BodyState &body : type.bodies) {
            if (body.target != target.shortName)
                body.target.clear();
        }
    }
    return state;
}

ControllerState multiUser()
{
    return TestHost::scenario(QStringLiteral("multiuser"));
}

} // namespace

/** The page of the Joywands. */
class tst_JoywandAdministration : public AdministrationFixture {
    Q_OBJECT

private slots:
    void opensWithTheExactQueries();
    void showsDevices();
    void showsDeviceText_data();
    void showsDeviceText();
    void unreadableModel();
    void oldControllerNamesNoModel();
    void filterColumnFollowsAvailability_data();
    void filterColumnFollowsAvailability();
    void changesCount();
    void reportsCountFailures_data();
    void reportsCountFailures();
    void limitText();
    void headTableFollowsSettings_data();
    void headTableFollowsSettings();
    void headTableFollowsSettingsWhileHidden();
    void multiUserQuestionFails_data();
    void multiUserQuestionFails();
    void oldControllerIsNotAskedForHeads();
    void asManyHeadsAsJoywands();
    void deletesHead();
    void assignsTarget_data();
    void assignsTarget();
    void assignsNothingWithoutTarget();
    void deselects();
    void switchesGlobalFilterOn_data();
    void switchesGlobalFilterOn();

private:
    enum JoywandColumn { Id, Active, Name, Model, Serial, Calibration, Filter, Delete, Reset };

    static QTableWidget *joywands(QWidget *shown) { return table(shown, "tableWidget_joywand"); }
    static QTableWidget *heads(QWidget *shown) { return table(shown, "tableWidget_head"); }
};

void tst_JoywandAdministration::opensWithTheExactQueries()
{
    TestHost host(oneJoywand());
    BodyAdministrationDlg dialog(&host.io, &host.mainWindow, &host.versions);
    open(&dialog, [&host](QWidget *window) {
        host.clear();
        goTo(window, joywandPage);
        const QStringList expected{"targetlib target_status_calibrated t01",
                                   "status active",
                                   customCheck,
                                   "targetlib target_status_calibrated_custom t01",
                                   "joywand multiuser_available",
                                   "joywand max_number_of_devices",
                                   "body number_of_bodies joywand",
                                   "body desc joywand b01",
                                   "body targetlib_name joywand b01",
                                   "body active joywand b01",
                                   "body calibrated joywand b01",
                                   "body recalibrated joywand b01",
                                   "body inertial_sensor joywand b01",
                                   "body filter6d_enabled joywand b01",
                                   "body filter6d_preset joywand b01",
                                   "filter6d preset_desc preset6d_default",
                                   "tracking reference",
                                   "inertial available",
                                   "inertial warmup",
                                   "joywand device b01",
                                   "qorwpan device_model_desc vendorone grip"};
        QCOMPARE(host.lines().join(QLatin1Char('\n')), expected.join(QLatin1Char('\n')));
    });
    QCOMPARE(host.log(), QStringList());
}

// Devices

void tst_JoywandAdministration::showsDevices()
{
    ControllerState state = TestHost::scenario(QStringLiteral("full"));
    TestHost host(state);
    openAt(host, joywandPage, [](QWidget *shown) {
        QTableWidget *bodies = joywands(shown);
        QStringList headers;
        for (int column = 0; column < bodies->columnCount(); ++column)
            headers.append(bodies->horizontalHeaderItem(column)->text());
        QCOMPARE(headers, (QStringList{"ID", "Active", "Name", "Model", "Serial", "Calibration",
                                       "Filter", "Delete", "Reset"}));
        QCOMPARE(Drive::row(bodies, 0), (QStringList{"F1", "", "Joywand red", "Grip four", "00417",
                                                     "Target Library", "Default", "", ""}));
        QCOMPARE(Drive::row(bodies, 1), (QStringList{"F2", "", "Joywand blue", "Stick radio",
                                                     "10293", "Custom", "Low prediction", "", ""}));
        QCOMPARE(Drive::row(bodies, 2).mid(0, 6),
                 (QStringList{"F3", "", "", "none", "", "not calibrated"}));
        QCOMPARE(shown->whatsThis(), QStringLiteral("Administration of Joywands"));
        QCOMPARE(bodies->whatsThis(), QStringLiteral("Available joywands"));
    });
    QCOMPARE(host.log(), QStringList());
}

void tst_JoywandAdministration::showsDeviceText_data()
{
    QTest::addColumn<QString>("effect");
    QTest::addColumn<QString>("model");
    QTest::addColumn<QString>("serial");
    QTest::addColumn<QStringList>("log");
    const QStringList none;
    QTest::newRow("no device") << "answer \"none\""
                               << "none"
                               << "" << none;
    QTest::newRow("three digits") << "answer \"wand vendorone grip 417\""
                                  << "Grip four"
                                  << "00417" << none;
    QTest::newRow("five digits") << "answer \"wand vendorone grip 54321\""
                                 << "Grip four"
                                 << "54321" << none;
    QTest::newRow("seven digits") << "answer \"wand vendorone grip 1234567\""
                                  << "Grip four"
                                  << "12345" << none;
    QTest::newRow("without serial") << "answer \"wand vendorone grip\""
                                    << "Grip four"
                                    << "00000" << none;
    QTest::newRow("unknown model")
            << "answer \"wand vendorone twig 12\""
            << "unknown"
            << "00012"
            << QStringList{"Error: Unable to get model description of vendor vendorone model "
                           "vendorone"};
    QTest::newRow("unreadable") << "fail"
                                << "none"
                                << "" << QStringList{"Error: Unable to get device of joywand b01"};
}

void tst_JoywandAdministration::showsDeviceText()
{
    QFETCH(QString, effect);
    QFETCH(QString, model);
    QFETCH(QString, serial);
    QFETCH(QStringList, log);
    TestHost host(oneJoywand());
    host.fault(QStringLiteral("get joywand device b01 ") + effect);
    openAt(host, joywandPage, [&](QWidget *shown) {
        QCOMPARE(Drive::cell(joywands(shown), 0, Model), model);
        QCOMPARE(Drive::cell(joywands(shown), 0, Serial), serial);
    });
    QCOMPARE(host.log(), log);
}

void tst_JoywandAdministration::unreadableModel()
{
    TestHost host(oneJoywand());
    host.fault(QStringLiteral("get qorwpan device_model_desc* fail"));
    openAt(host, joywandPage, [](QWidget *shown) {
        QCOMPARE(Drive::cell(joywands(shown), 0, Model), QStringLiteral("unknown"));
        QCOMPARE(Drive::cell(joywands(shown), 0, Serial), QStringLiteral("00417"));
    });
    QCOMPARE(host.log(), QStringList{"Error: Unable to get model description of vendor vendorone "
                                     "model vendorone"});
}

void tst_JoywandAdministration::oldControllerNamesNoModel()
{
    TestHost host(oneJoywand(QStringLiteral("1.2")));
    openAt(host, joywandPage, [](QWidget *shown) {
        QCOMPARE(Drive::cell(joywands(shown), 0, Model), QStringLiteral("unknown"));
        QCOMPARE(Drive::cell(joywands(shown), 0, Serial), QStringLiteral("00417"));
    });
    QCOMPARE(host.queries().filter(QStringLiteral("device_model_desc")), QStringList());
    QCOMPARE(host.log(), QStringList());
}

void tst_JoywandAdministration::filterColumnFollowsAvailability_data()
{
    QTest::addColumn<QString>("protocol");
    QTest::addColumn<bool>("available");
    QTest::addColumn<bool>("hidden");
    QTest::newRow("available") << "1.12" << true << false;
    QTest::newRow("not available") << "1.24" << false << true;
    QTest::newRow("too old") << "1.11" << true << true;
}

void tst_JoywandAdministration::filterColumnFollowsAvailability()
{
    QFETCH(QString, protocol);
    QFETCH(bool, available);
    QFETCH(bool, hidden);
    ControllerState state = oneJoywand(protocol);
    state.bodyTypes[QStringLiteral("joywand")].filterAvailable = available;
    TestHost host(state);
    openAt(host, joywandPage, [hidden](QWidget *shown) {
        QCOMPARE(joywands(shown)->isColumnHidden(Filter), hidden);
        Drive::clickCell(joywands(shown), 0, Id);
        QCOMPARE(isEnabled(shown, "pushButton_filter"), !hidden);
    });
}

// Counts

void tst_JoywandAdministration::changesCount()
{
    TestHost host;
    openAt(host, joywandPage, [&host](QWidget *shown) {
        host.clear();
        Drive::typeNumber(Drive::find<QSpinBox>(shown, "spinBox_joywands"), QStringLiteral("4"));
        QCOMPARE(changes(host), QStringList{QStringLiteral("joywand number_of_devices 4")});
        QCOMPARE(Drive::column(joywands(shown), Id), (QStringList{"F1", "F2", "F3", "F4"}));
    });
    QCOMPARE(host.state().bodyTypes[QStringLiteral("joywand")].bodies.size(), 4);
}

void tst_JoywandAdministration::reportsCountFailures_data()
{
    QTest::addColumn<QString>("fault");
    QTest::addColumn<QString>("line");
    QTest::addColumn<int>("maximum");
    QTest::addColumn<int>("shown");
    QTest::newRow("maximum") << "get joywand max_number_of_devices fail"
                             << "Error: Unable to get max number of joywand bodies" << 20 << 3;
    QTest::newRow("number") << "set joywand number_of_devices* refuse"
                            << "Error: Unable to set number of joywand bodies to 3" << 6 << 2;
}

void tst_JoywandAdministration::reportsCountFailures()
{
    QFETCH(QString, fault);
    QFETCH(QString, line);
    QFETCH(int, maximum);
    QFETCH(int, shown);
    TestHost host;
    host.fault(fault);
    openAt(host, joywandPage, [&](QWidget *form) {
        auto *count = Drive::find<QSpinBox>(form, "spinBox_joywands");
        QCOMPARE(count->maximum(), maximum);
        Drive::typeNumber(count, QStringLiteral("3"));
        QCOMPARE(count->value(), shown);
        QCOMPARE(joywands(form)->rowCount(), shown);
    });
    QCOMPARE(host.log(), QStringList{line});
}

void tst_JoywandAdministration::limitText()
{
    TestHost host;
    openAt(host, joywandPage, [](QWidget *shown) {
        auto *count = Drive::find<QSpinBox>(shown, "spinBox_joywands");
        QCOMPARE(label(shown, "label_error"), QString());
        Drive::typeNumber(count, QStringLiteral("6"));
        QCOMPARE(label(shown, "label_error"),
                 QStringLiteral("<b><font color=red>Max. number of joywands is reached!"
                                "</font></b>"));
        Drive::typeNumber(count, QStringLiteral("5"));
        QCOMPARE(label(shown, "label_error"), QString());
    });
}

// Several users

void tst_JoywandAdministration::headTableFollowsSettings_data()
{
    QTest::addColumn<bool>("available");
    QTest::addColumn<bool>("withHeadAvailable");
    QTest::addColumn<bool>("on");
    QTest::addColumn<bool>("withHead");
    QTest::addColumn<int>("asked");
    QTest::newRow("everything on") << true << true << true << true << 4;
    QTest::newRow("heads off") << true << true << true << false << 4;
    QTest::newRow("multi-user off") << true << true << false << true << 3;
    QTest::newRow("heads not possible") << true << false << true << true << 2;
    QTest::newRow("not possible") << false << true << true << true << 1;
}

void tst_JoywandAdministration::headTableFollowsSettings()
{
    QFETCH(bool, available);
    QFETCH(bool, withHeadAvailable);
    QFETCH(bool, on);
    QFETCH(bool, withHead);
    QFETCH(int, asked);
    ControllerState state = multiUser();
    state.multiUserAvailable = available;
    state.multiUserWithHeadAvailable = withHeadAvailable;
    state.multiUser = on;
    state.multiUserWithHead = withHead;
    TestHost host(state);
    const bool expected = asked == 4 && withHead;
    BodyAdministrationDlg dialog(&host.io, &host.mainWindow, &host.versions);
    open(&dialog, [&](QWidget *window) {
        host.clear();
        goTo(window, joywandPage);
        QStringList questions;
        for (int i = 0; i < asked; ++i)
            questions.append(multiUserQuestions[i]);
        QCOMPARE(host.queries().filter(QRegularExpression("^joywand multiuser")), questions);
        QWidget *shown = page(window, joywandPage);
        QCOMPARE(isVisible(shown, "label_head"), expected);
        QCOMPARE(isVisible(shown, "tableWidget_head"), expected);
        if (!expected)
            return;
        QCOMPARE(label(shown, "label_head"), QStringLiteral("MultiUser head target:"));
        QTableWidget *bodies = heads(shown);
        QCOMPARE(Drive::column(bodies, 0), (QStringList{"1", "2", "3"}));
        QCOMPARE(Drive::column(bodies, 1),
                 (QStringList{"Target Library", "Custom", "not calibrated"}));
        QVERIFY(bodies->isColumnHidden(3));
    });
    QCOMPARE(host.log(), QStringList());
}

void tst_JoywandAdministration::headTableFollowsSettingsWhileHidden()
{
    ControllerState state = multiUser();
    state.multiUserWithHead = false;
    TestHost host(state);
    BodyAdministrationDlg dialog(&host.io, &host.mainWindow, &host.versions);
    for (const bool withHead : {false, true, false, true}) {
        host.edit([withHead](ControllerState &changed) { changed.multiUserWithHead = withHead; });
        open(&dialog, [withHead](QWidget *window) {
            goTo(window, joywandPage);
            QWidget *shown = page(window, joywandPage);
            QCOMPARE(isVisible(shown, "label_head"), withHead);
            QCOMPARE(isVisible(shown, "tableWidget_head"), withHead);
            if (withHead)
                QCOMPARE(heads(shown)->rowCount(), 3);
        });
    }
}

void tst_JoywandAdministration::multiUserQuestionFails_data()
{
    QTest::addColumn<int>("failing");
    QTest::addColumn<QString>("line");
    QTest::newRow("available")
            << 0 << "Error: Unable to get info whether multiuser joywand is available";
    QTest::newRow("with head available")
            << 1 << "Error: Unable to get info multiuser joywand with head available";
    QTest::newRow("on") << 2 << "Error: Unable to get info whether multiuser joywand is activated";
    QTest::newRow("with head on")
            << 3 << "Error: Unable to get info whether multiuser joywand with head is activated";
}

void tst_JoywandAdministration::multiUserQuestionFails()
{
    QFETCH(int, failing);
    QFETCH(QString, line);
    TestHost host(multiUser());
    BodyAdministrationDlg dialog(&host.io, &host.mainWindow, &host.versions);
    open(&dialog, [&](QWidget *window) {
        host.fault(QStringLiteral("get %1 fail").arg(multiUserQuestions[failing]));
        host.clear();
        goTo(window, joywandPage);
        QCOMPARE(host.log(), QStringList{line});
        QStringList asked = host.queries().filter(QRegularExpression("^joywand multiuser"));
        QCOMPARE(asked.size(), failing + 1);
        QVERIFY(!isVisible(page(window, joywandPage), "label_head"));
        QVERIFY(!isVisible(page(window, joywandPage), "tableWidget_head"));
        QCOMPARE(joywands(window)->rowCount(), 3);
    });
}

void tst_JoywandAdministration::oldControllerIsNotAskedForHeads()
{
    ControllerState state = multiUser();
    state.protocol = QStringLiteral("0.13");
    state.multiUserWithHeadAvailable = false;
    TestHost host(state);
    openAt(host, joywandPage,
           [](QWidget *shown) { QVERIFY(isVisible(shown, "tableWidget_head")); });
    QVERIFY(!host.queries().contains(multiUserQuestions[1]));
}

void tst_JoywandAdministration::asManyHeadsAsJoywands()
{
    TestHost host(multiUser());
    openAt(host, joywandPage, [&host](QWidget *shown) {
        auto *count = Drive::find<QSpinBox>(shown, "spinBox_joywands");
        for (const int number : {2, 3, 5}) {
            host.clear();
            Drive::typeNumber(count, QString::number(number));
            QCOMPARE(changes(host),
                     QStringList{QStringLiteral("joywand number_of_devices %1").arg(number)});
            QCOMPARE(joywands(shown)->rowCount(), number);
            QCOMPARE(heads(shown)->rowCount(), number);
        }
        QCOMPARE(Drive::column(heads(shown), 0), (QStringList{"1", "2", "3", "4", "5"}));
    });
}

void tst_JoywandAdministration::deletesHead()
{
    TestHost host(multiUser());
    openAt(host, joywandPage, [&](QWidget *shown) {
        host.clear();
        robot().expectBox(boxTitle,
                          QStringLiteral("Delete geometry of Multi-user head 02?\nHead two"),
                          Box::Yes);
        Drive::clickCell(heads(shown), 1, 2);
        QCOMPARE(changes(host), (QStringList{"body number_of_marker multiuserjoywand_head b02 0",
                                             "body desc multiuserjoywand_head b02 \"\""}));
        QCOMPARE(Drive::cell(heads(shown), 1, 1), QStringLiteral("not calibrated"));
    });
}

// Assignment

void tst_JoywandAdministration::assignsTarget_data()
{
    QTest::addColumn<int>("answer");
    QTest::addColumn<QString>("name");
    QTest::addColumn<QStringList>("written");
    const QStringList assigned{"morvek2 body calibrate_from_targetlib joywand b02 t16"};
    QTest::newRow("agreed") << int(Box::Ok) << "Joywand blue" << assigned;
    QTest::newRow("declined") << int(Box::Cancel) << "Joywand blue" << QStringList();
    QTest::newRow("no name, no question") << 0 << "" << assigned;
}

void tst_JoywandAdministration::assignsTarget()
{
    QFETCH(int, answer);
    QFETCH(QString, name);
    QFETCH(QStringList, written);
    ControllerState state = studio();
    state.bodyTypes[QStringLiteral("joywand")].bodies[1].description = name;
    TestHost host(state);
    openAt(host, joywandPage, [&](QWidget *shown) {
        QTableWidget *targets = table(shown, "tableWidget_targetlibrary");
        Drive::clickCell(joywands(shown), 1, Id);
        Drive::clickCell(targets, Drive::column(targets, 1).indexOf(QStringLiteral("JW02")), 1);
        host.clear();
        if (answer != 0) {
            robot().expectBox(warning,
                              QStringLiteral("Overwrite body calibration data of %1?").arg(name),
                              Box::StandardButton(answer));
        }
        Drive::click(shown, "pushButton_select");
        QCOMPARE(changes(host), written);
        QCOMPARE(joywands(shown)->currentRow(), 1);
        const bool done = !written.isEmpty();
        QCOMPARE(Drive::cell(joywands(shown), 1, Calibration),
                 done ? QStringLiteral("Target Library") : QStringLiteral("Custom"));
        QCOMPARE(Drive::column(targets, 3), (QStringList{"yes", done ? "yes" : "", ""}));
        QCOMPARE(Drive::cell(targets, targets->currentRow(), 1), QStringLiteral("JW02"));
    });
    QCOMPARE(host.log(), QStringList());
}

void tst_JoywandAdministration::assignsNothingWithoutTarget()
{
    TestHost host;
    openAt(host, joywandPage, [](QWidget *shown) {
        Drive::clickCell(joywands(shown), 0, Id);
        QVERIFY(!isEnabled(shown, "pushButton_select"));
        Drive::clickCell(table(shown, "tableWidget_targetlibrary"), 0, 1);
        QVERIFY(isEnabled(shown, "pushButton_select"));
    });
}

void tst_JoywandAdministration::deselects()
{
    TestHost host;
    openAt(host, joywandPage, [&](QWidget *shown) {
        Drive::clickCell(joywands(shown), 0, Id);
        QVERIFY(isEnabled(shown, "pushButton_deselect"));
        host.clear();
        robot().expectBox(boxTitle, QStringLiteral("Delete geometry of Joywand 01?\nJoywand red"),
                          Box::Yes);
        Drive::click(shown, "pushButton_deselect");
        QCOMPARE(changes(host), (QStringList{"body filter6d_preset joywand b01 preset6d_default",
                                             "body number_of_marker joywand b01 0",
                                             "body desc joywand b01 \"\""}));
        QCOMPARE(Drive::cell(joywands(shown), 0, Calibration), QStringLiteral("not calibrated"));
        QCOMPARE(Drive::column(table(shown, "tableWidget_targetlibrary"), 3),
                 (QStringList{"", "", ""}));
    });
}

// The global filter

void tst_JoywandAdministration::switchesGlobalFilterOn_data()
{
    QTest::addColumn<QString>("protocol");
    QTest::addColumn<bool>("on");
    QTest::addColumn<bool>("changeable");
    QTest::addColumn<QString>("fault");
    QTest::addColumn<QStringList>("expected");
    QTest::addColumn<QString>("line");
    const QStringList asked{"joywand filter"};
    const QStringList both{"joywand filter", "joywand filter yes"};
    QTest::newRow("off") << "1.12" << false << true << "" << both << "";
    QTest::newRow("on") << "1.12" << true << true << "" << asked << "";
    QTest::newRow("too old") << "1.11" << false << true << "" << QStringList() << "";
    QTest::newRow("locked") << "1.24" << false << false << "" << QStringList() << "";
    QTest::newRow("unreadable") << "1.24" << false << true << "get joywand filter fail" << asked
                                << "Error: Unable to get global filter6d status of Joywand bodies";
    QTest::newRow("refused") << "1.24" << false << true << "set joywand filter yes refuse" << both
                             << "Error: Unable to set global filter6d status of Joywand bodies";
}

void tst_JoywandAdministration::switchesGlobalFilterOn()
{
    QFETCH(QString, protocol);
    QFETCH(bool, on);
    QFETCH(bool, changeable);
    QFETCH(QString, fault);
    QFETCH(QStringList, expected);
    QFETCH(QString, line);
    ControllerState state = oneJoywand(protocol);
    state.joywandFilter = on;
    state.configChangeable = changeable;
    TestHost host(state);
    if (!fault.isEmpty())
        host.fault(fault);
    BodyAdministrationDlg dialog(&host.io, &host.mainWindow, &host.versions);
    host.clear();
    configurationChanged(host);
    QCOMPARE(host.lines().filter(QRegularExpression("^joywand")), expected);
    QCOMPARE(host.log(), line.isEmpty() ? QStringList() : QStringList{line});
}

TRACKING_TEST_MAIN(tst_JoywandAdministration)
#include "tst_joywandadministration.moc"
