#include "administrationfixture.h"
#include "standardadministration.h"
#include "targetlibrary.h"

#include <QComboBox>
#include <QHeaderView>
#include <QProgressBar>

namespace {

const QString deactivation = QStringLiteral("After deactivating the reference target,\n"
                                            "all targets will not be tracked.\nContinue?");

void announceConfiguration(TestHost &host)
{
    host.io.send_message("GlobalEvent", "ConfigurationModule", 1, "ActiveConfigurationChanged");
    Drive::settle();
}

} // namespace

/** The special features of the page of the standard bodies. */
class tst_StandardAdministration : public AdministrationFixture {
    Q_OBJECT

private slots:
    void titleAndExplanations();
    void bodyTableIsSetUp();
    void startsWithFirstBody();
    void openingAsksInOrder();

    void sensorColumnsNeedOneSensor_data();
    void sensorColumnsNeedOneSensor();
    void sensorTexts();
    void filterColumnNeedsFilter();
    void filterButtonFollowsBody();
    void filterButtonOpensFilterDialog();
    void customCalibrationAsksModule();

    void fullTabShowsLimit();
    void unreadableLimitFallsBackToFour();

    void moveButtonsFollowSelection();
    void listsCategories();
    void categoryRefreshesItsTargets();

    void deactivatingReferenceAsks();
    void dialogDeletedInDeactivation();
    void activatingReferenceDoesNotAsk();

    void newConfigurationSwitchesFilterOn_data();
    void newConfigurationSwitchesFilterOn();
    void newConfigurationIsShown();
    void lockComesAndGoes();
};

void tst_StandardAdministration::titleAndExplanations()
{
    TestHost host;
    Targetlibrary library(&host.io, &host.versions, nullptr);
    StandardAdministration tab(&host.io, nullptr, &host.versions, QStringLiteral("1"), &library);
    QCOMPARE(tab.getTabTitle(), QStringLiteral("&Standard"));
    QCOMPARE(tab.whatsThis(), QStringLiteral("Administration of standard bodies"));
    QVERIFY(tab.isAvailable());
    const struct {
        const char *widget;
        const char *text;
        const char *whatsThis;
    } expected[] = {
            {"label_numBodies", "&number of bodies", ""},
            {"spinBox_standard_bodies", nullptr, "Adjust number of standard bodies"},
            {"label_error", "", ""},
            {"pushButton_up", "", "Move the selected body one position up"},
            {"pushButton_down", "", "Move the selected body one position down"},
            {"tableWidget_standard", nullptr, "Available standard bodies"},
            {"pushButton_filter", "Fi&lter", "Open filter dialog"},
            {"pushButton_customCalibration", "&Custom calibration", "Open custom body calibration"},
            {"pushButton_select", "<< S&elect",
             "Assing target from target library to selected body"},
            {"pushButton_deselect", ">> &Deselect", "Remove target from selected body"},
            {"label_filter", "c&ategory", ""},
            {"comboBox_filter", nullptr, "Filter target groups"},
            {"tableWidget_targetlibrary", nullptr, "Available targets from target library"},
            {"label_targetlibrary", "found targets: 0; already calibrated: 0", "Result of search"},
            {"progressBar", nullptr, "Progress of search"},
            {"pushButton_start", "S&tart search", "Serach for targets in the tracking volume"},
            {"pushButton_stop", "Sto&p", "Stop search"},
    };
    for (const auto &one : expected) {
        const auto *widget = Drive::find<QWidget>(&tab, one.widget);
        QCOMPARE(widget->whatsThis(), QString::fromLatin1(one.whatsThis));
        if (one.text)
            QCOMPARE(widget->property("text").toString(), QString::fromLatin1(one.text));
    }
    QVERIFY(!Drive::find<QPushButton>(&tab, "pushButton_up")->icon().isNull());
    QVERIFY(!Drive::find<QPushButton>(&tab, "pushButton_down")->icon().isNull());
    QCOMPARE(Drive::find<QLabel>(&tab, "label_filter")->maximumWidth(), 100);
    QCOMPARE(Drive::find<QTableWidget>(&tab, "tableWidget_standard")->minimumWidth(), 700);
    QCOMPARE(host.writes(), QStringList());
}

void tst_StandardAdministration::bodyTableIsSetUp()
{
    TestHost host;
    open(host, [&](QWidget *, QTableWidget *bodies) {
        const QStringList headers{"ID",        "Active",      "Reference", "Name",   "Model",
                                  "Device ID", "Calibration", "Filter",    "Delete", "Reset"};
        QCOMPARE(bodies->columnCount(), headers.size());
        const QHeaderView *header = bodies->horizontalHeader();
        for (int column = 0; column < headers.size(); ++column) {
            QCOMPARE(bodies->horizontalHeaderItem(column)->text(), headers.at(column));
            QCOMPARE(header->sectionResizeMode(column),
                     column == NameColumn ? QHeaderView::Stretch : QHeaderView::ResizeToContents);
        }
        QVERIFY(!header->sectionsClickable());
        QVERIFY(!bodies->verticalHeader()->isVisible());
        QCOMPARE(bodies->selectionMode(), QAbstractItemView::SingleSelection);
        QCOMPARE(bodies->selectionBehavior(), QAbstractItemView::SelectRows);
    });
}

void tst_StandardAdministration::startsWithFirstBody()
{
    TestHost host;
    open(host, [&](QWidget *window, QTableWidget *bodies) {
        QCOMPARE(bodies->currentRow(), 0);
        QCOMPARE(Drive::find<QComboBox>(page(window), "comboBox_filter")->currentText(),
                 foundTargets);
        QCOMPARE(Drive::find<QLabel>(page(window), "label_targetlibrary")->text(), QString());
        QCOMPARE(Drive::find<QProgressBar>(page(window), "progressBar")->value(), 0);
        QVERIFY(!Drive::find<QPushButton>(page(window), "pushButton_stop")->isEnabled());
        QVERIFY(Drive::find<QPushButton>(page(window), "pushButton_start")->isEnabled());
        QCOMPARE(Drive::find<QLabel>(page(window), "label_error")->text(), QString());
    });
}

void tst_StandardAdministration::openingAsksInOrder()
{
    TestHost host(studio([](ControllerState &state) {
        state.bodyTypes["standard"].bodies = {BodyState()};
        state.trackingReference.clear();
    }));
    BodyAdministrationDlg dialog(&host.io, &host.mainWindow, &host.versions);
    host.clear();
    robot().expectDialog(QStringLiteral("BodyAdministrationDlg"), [&](QWidget *) {
        QStringList lines = host.lines();
        const int first = lines.indexOf(QStringLiteral("status active"));
        QVERIFY(first >= 0);
        QCOMPARE(lines.mid(first),
                 (QStringList{"status active", customCheck, "standard max_number_of_bodies",
                              "body number_of_bodies standard", "body desc standard b01",
                              "body targetlib_name standard b01", "body active standard b01",
                              "body calibrated standard b01", "body recalibrated standard b01",
                              "body inertial_sensor standard b01", "tracking reference",
                              "inertial available", "inertial warmup"}));
    });
    dialog.update_and_exec();
    QCOMPARE(host.writes(), QStringList{customCheck});
}

// Sensors and filter

void tst_StandardAdministration::sensorColumnsNeedOneSensor_data()
{
    QTest::addColumn<int>("bodiesWithSensor");
    QTest::newRow("none") << 0;
    QTest::newRow("one") << 1;
}

void tst_StandardAdministration::sensorColumnsNeedOneSensor()
{
    QFETCH(int, bodiesWithSensor);
    TestHost host(studio([&](ControllerState &state) {
        for (BodyState &body : state.bodyTypes["standard"].bodies)
            body.sensor.clear();
        if (bodiesWithSensor == 1)
            state.bodyTypes["standard"].bodies[7].sensor = QStringLiteral("vendorone mini 'A7'");
    }));
    open(host, [&](QWidget *, QTableWidget *bodies) {
        QCOMPARE(bodies->isColumnHidden(ModelColumn), bodiesWithSensor == 0);
        QCOMPARE(bodies->isColumnHidden(DeviceIdColumn), bodiesWithSensor == 0);
        if (bodiesWithSensor == 0)
            return;
        robot().expectBox(boxTitle,
                          "Delete assignment of sensor vendorone mini 'A7' and \n"
                          "delete geometry of Standard body 08?",
                          QMessageBox::Yes);
        press(bodies, 7, DeleteColumn);
        QVERIFY(bodies->isColumnHidden(ModelColumn));
        QVERIFY(bodies->isColumnHidden(DeviceIdColumn));
    });
}

void tst_StandardAdministration::sensorTexts()
{
    TestHost host;
    BodyAdministrationDlg dialog(&host.io, &host.mainWindow, &host.versions);
    robot().expectDialog(QStringLiteral("BodyAdministrationDlg"), [&](QWidget *window) {
        QCOMPARE(Drive::column(bodies(window), ModelColumn),
                 (QStringList{"", "", "", "Mini motion sensor", "Mini motion sensor", "",
                              "Core motion sensor", ""}));
        QCOMPARE(Drive::column(bodies(window), DeviceIdColumn),
                 (QStringList{"", "", "", "A7", "B12", "", "C3", ""}));
        QVERIFY(host.queries().contains(
                QStringLiteral("inertial sensor_model_desc vendorone mini")));
        QVERIFY(host.queries().contains(
                QStringLiteral("inertial sensor_model_desc vendortwo core")));
    });
    dialog.update_and_exec();
}

void tst_StandardAdministration::filterColumnNeedsFilter()
{
    TestHost host(studio(
            [](ControllerState &state) { state.bodyTypes["standard"].filterAvailable = false; }));
    open(host, [&](QWidget *window, QTableWidget *bodies) {
        QVERIFY(bodies->isColumnHidden(FilterColumn));
        QVERIFY(!Drive::find<QPushButton>(page(window), "pushButton_filter")->isEnabled());
        robot().expectBox(boxTitle, "Delete geometry of Standard body 01?\nCap", QMessageBox::Yes);
        press(bodies, 0, DeleteColumn);
        QCOMPARE(host.writes(), (QStringList{"body number_of_marker standard b01 0",
                                             "body desc standard b01 \"\"", customCheck}));
    });
    QCOMPARE(host.log(), QStringList());
    TestHost withFilter;
    open(withFilter,
         [](QWidget *, QTableWidget *bodies) { QVERIFY(!bodies->isColumnHidden(FilterColumn)); });
}

void tst_StandardAdministration::filterButtonFollowsBody()
{
    TestHost host(studio([](ControllerState &state) {
        state.bodyTypes["standard"].bodies[0].calibrated = false;
    }));
    open(host, [&](QWidget *window, QTableWidget *) {
        QVERIFY(!Drive::find<QPushButton>(page(window), "pushButton_filter")->isEnabled());
    });
    TestHost calibrated;
    open(calibrated, [&](QWidget *window, QTableWidget *) {
        QVERIFY(Drive::find<QPushButton>(page(window), "pushButton_filter")->isEnabled());
    });
}

void tst_StandardAdministration::filterButtonOpensFilterDialog()
{
    TestHost host;
    open(host, [&](QWidget *window, QTableWidget *bodies) {
        press(bodies, 2, IdColumn);
        robot().expectDialog(QStringLiteral("FilterDialog"), [&](QWidget *) {
            host.edit([](ControllerState &state) {
                state.bodyTypes["standard"].bodies[2].filterEnabled = false;
            });
        });
        Drive::click(page(window), "pushButton_filter");
        QCOMPARE(Drive::cell(bodies, 2, FilterColumn), QStringLiteral("not active"));
        QCOMPARE(bodies->currentRow(), 2);
    });
    QCOMPARE(host.log(), QStringList());
}

void tst_StandardAdministration::customCalibrationAsksModule()
{
    TestHost host;
    open(host, [&](QWidget *window, QTableWidget *bodies) {
        bodies->setCurrentCell(-1, -1);
        host.clear();
        Drive::click(page(window), "pushButton_customCalibration");
        QCOMPARE(host.requests(), QStringList());
        QVERIFY(window->isVisible());
        bodies->setCurrentCell(0, IdColumn);
        Drive::click(page(window), "pushButton_customCalibration");
        QCOMPARE(host.requests(), QStringList{"BodyCalModule|BodyAdministrationModule|"
                                              "OpenBodyCalDialog standard b01"});
        QVERIFY(!window->isVisible());
    });
    QCOMPARE(host.writes(), QStringList());
}

// The limit

void tst_StandardAdministration::fullTabShowsLimit()
{
    TestHost host(studio([](ControllerState &state) { state.bodyTypes["standard"].maximum = 8; }));
    open(host, [&](QWidget *window, QTableWidget *bodies) {
        const auto *label = Drive::find<QLabel>(page(window), "label_error");
        const QString full =
                QStringLiteral("<b><font color=red>Max. number of bodies is reached!</font></b>");
        QCOMPARE(label->text(), full);
        auto *count = Drive::find<QSpinBox>(page(window), "spinBox_standard_bodies");
        Drive::typeNumber(count, QStringLiteral("7"));
        Drive::settle();
        QCOMPARE(label->text(), QString());
        QCOMPARE(bodies->rowCount(), 7);
        Drive::typeNumber(count, QStringLiteral("8"));
        Drive::settle();
        QCOMPARE(label->text(), full);
    });
}

void tst_StandardAdministration::unreadableLimitFallsBackToFour()
{
    TestHost host(studio([](ControllerState &state) {
        state.bodyTypes["standard"].bodies.resize(2);
        state.trackingReference.clear();
    }));
    host.fault(QStringLiteral("standard max_number_of_bodies fail"));
    BodyAdministrationDlg dialog(&host.io, &host.mainWindow, &host.versions);
    robot().expectDialog(QStringLiteral("BodyAdministrationDlg"), [&](QWidget *window) {
        QCOMPARE(Drive::find<QSpinBox>(page(window), "spinBox_standard_bodies")->maximum(), 4);
        QCOMPARE(host.log(), QStringList{"Error: Unable to get max number of standard bodies"});
    });
    dialog.update_and_exec();
}

// Moving and categories

void tst_StandardAdministration::moveButtonsFollowSelection()
{
    TestHost host;
    open(host, [&](QWidget *window, QTableWidget *bodies) {
        const auto *up = Drive::find<QPushButton>(page(window), "pushButton_up");
        const auto *down = Drive::find<QPushButton>(page(window), "pushButton_down");
        for (int row = 0; row < 8; ++row) {
            press(bodies, row, IdColumn);
            QCOMPARE(up->isEnabled(), row != 0);
            QCOMPARE(down->isEnabled(), row != 7);
        }
        bodies->clearSelection();
        QVERIFY(!up->isEnabled());
        QVERIFY(!down->isEnabled());
        QCOMPARE(host.writes(), QStringList());
    });
}

void tst_StandardAdministration::listsCategories()
{
    TestHost host(studio([](ControllerState &state) {
        state.targetGroups.append(QStringLiteral("aerials"));
        state.targets[0].group = QStringLiteral("aerials");
    }));
    open(host, [&](QWidget *window, QTableWidget *) {
        const auto *categories = Drive::find<QComboBox>(page(window), "comboBox_filter");
        QStringList names;
        for (int i = 0; i < categories->count(); ++i)
            names.append(categories->itemText(i));
        // Capital letters come first, and groups with targets of other types are missing.
        QCOMPARE(names, (QStringList{foundTargets, "", "Cross Target", "Glasses Target",
                                     "HMD Target", "aerials"}));
    });
}

void tst_StandardAdministration::categoryRefreshesItsTargets()
{
    TestHost host;
    open(host, [&](QWidget *window, QTableWidget *) {
        auto *categories = Drive::find<QComboBox>(page(window), "comboBox_filter");
        Drive::choose(categories, QStringLiteral("HMD Target"));
        QCOMPARE(Drive::cell(targets(window), 0, 3), QString());
        host.edit([](ControllerState &state) {
            state.bodyTypes["standard"].bodies[7].calibrated = true;
            state.bodyTypes["standard"].bodies[7].target = QStringLiteral("HM01");
        });
        Drive::choose(categories, QStringLiteral("Cross Target"));
        Drive::choose(categories, QStringLiteral("HMD Target"));
        QCOMPARE(Drive::cell(targets(window), 0, 3), QStringLiteral("yes"));
        const auto *select = Drive::find<QPushButton>(page(window), "pushButton_select");
        press(targets(window), 0, 1);
        QVERIFY(select->isEnabled());
        Drive::choose(categories, foundTargets);
        QVERIFY(!select->isEnabled());
    });
}

// The reference

void tst_StandardAdministration::deactivatingReferenceAsks()
{
    TestHost host;
    open(host, [&](QWidget *, QTableWidget *bodies) {
        robot().expectBox(boxTitle, deactivation, QMessageBox::No);
        toggle(bodies, 2, ActiveColumn);
        QCOMPARE(host.writes(), QStringList());
        QCOMPARE(bodies->item(2, ActiveColumn)->checkState(), Qt::Checked);
        QVERIFY(body(host, 2).active);
        robot().expectBox(boxTitle, deactivation, QMessageBox::Yes);
        bodies->setFocus();
        bodies->setCurrentCell(2, ActiveColumn);
        QTest::keyClick(bodies, Qt::Key_Space);
        Drive::settle();
        QCOMPARE(host.writes(), QStringList{"body active standard b03 no"});
        QCOMPARE(bodies->item(2, ActiveColumn)->checkState(), Qt::Unchecked);
    });
    QCOMPARE(robot().boxes().size(), 2);
}

void tst_StandardAdministration::dialogDeletedInDeactivation()
{
    TestHost host;
    openDeletable(host, [&](QWidget *, QTableWidget *bodies) {
        robot().expectBox(boxTitle, deactivation, QMessageBox::Yes, deletion());
        toggle(bodies, 2, ActiveColumn);
    });
    QCOMPARE(host.writes(), QStringList());
}

void tst_StandardAdministration::activatingReferenceDoesNotAsk()
{
    TestHost host(studio(
            [](ControllerState &state) { state.bodyTypes["standard"].bodies[2].active = false; }));
    open(host, [&](QWidget *, QTableWidget *bodies) {
        toggle(bodies, 2, ActiveColumn);
        QCOMPARE(host.writes(), QStringList{"body active standard b03 yes"});
    });
}

// Another configuration

void tst_StandardAdministration::newConfigurationSwitchesFilterOn_data()
{
    QTest::addColumn<QString>("protocol");
    QTest::addColumn<bool>("locked");
    QTest::addColumn<QString>("fault");
    QTest::addColumn<bool>("filter");
    QTest::addColumn<QStringList>("writes");
    QTest::addColumn<QStringList>("log");
    const QStringList on{"standard filter_bodies yes"};
    const QStringList none;
    QTest::newRow("off") << "1.24" << false << "" << false << on << none;
    QTest::newRow("on") << "1.24" << false << "" << true << none << none;
    QTest::newRow("protocol 1.12") << "1.12" << false << "" << false << on << none;
    QTest::newRow("protocol 1.11") << "1.11" << false << "" << false << none << none;
    QTest::newRow("locked") << "1.24" << true << "" << false << none << none;
    QTest::newRow("neither") << "1.24" << false << "standard filter_bodies answer \"maybe\""
                             << false << none << none;
    QTest::newRow("unreadable")
            << "1.24" << false << "get standard filter_bodies fail" << false << none
            << QStringList{"Error: Unable to get global filter6d status of standard bodies"};
    QTest::newRow("refused")
            << "1.24" << false << "set standard filter_bodies* refuse" << false << on
            << QStringList{"Error: Unable to set global filter6d status of standard bodies"};
}

void tst_StandardAdministration::newConfigurationSwitchesFilterOn()
{
    QFETCH(QString, protocol);
    QFETCH(bool, locked);
    QFETCH(QString, fault);
    QFETCH(bool, filter);
    QFETCH(QStringList, writes);
    QFETCH(QStringList, log);
    TestHost host(studio([&](ControllerState &state) {
        state.protocol = protocol;
        state.configChangeable = !locked;
        state.standardFilter = filter;
    }));
    BodyAdministrationDlg dialog(&host.io, &host.mainWindow, &host.versions);
    QVERIFY(!host.writes().contains(QStringLiteral("standard filter_bodies yes")));
    if (!fault.isEmpty())
        host.fault(fault);
    host.clear();
    announceConfiguration(host);
    QCOMPARE(host.writes(), writes);
    QCOMPARE(host.log(), log);
    host.clear();
    host.io.send_message("GlobalEvent", "AnotherModule", 1, "ActiveConfigurationChanged");
    QCOMPARE(host.lines(), QStringList());
}

void tst_StandardAdministration::newConfigurationIsShown()
{
    TestHost host;
    open(host, [&](QWidget *, QTableWidget *bodies) {
        press(bodies, 7, IdColumn);
        host.edit([](ControllerState &state) {
            state.bodyTypes["standard"].bodies.resize(5);
            state.bodyTypes["standard"].bodies[0].description = QStringLiteral("Elsewhere");
        });
        announceConfiguration(host);
        QCOMPARE(bodies->rowCount(), 5);
        QCOMPARE(Drive::cell(bodies, 0, NameColumn), QStringLiteral("Elsewhere"));
        QCOMPARE(host.writes(), QStringList{customCheck});
    });
}

void tst_StandardAdministration::lockComesAndGoes()
{
    TestHost host;
    open(host, [&](QWidget *window, QTableWidget *bodies) {
        press(bodies, 4, IdColumn);
        const auto lock = [&](bool locked) {
            host.edit([&](ControllerState &state) { state.configChangeable = !locked; });
            announceConfiguration(host);
            for (const char *name :
                 {"spinBox_standard_bodies", "pushButton_up", "pushButton_down",
                  "pushButton_filter", "pushButton_customCalibration", "pushButton_deselect"}) {
                QVERIFY2(Drive::find<QWidget>(page(window), name)->isEnabled() != locked, name);
            }
            QCOMPARE(bodies->item(0, NameColumn)->flags().testFlag(Qt::ItemIsEditable), !locked);
            QCOMPARE(isLive(bodies, 0, DeleteColumn), !locked);
        };
        lock(true);
        lock(false);
    });
}

TRACKING_TEST_MAIN(tst_StandardAdministration)
#include "tst_standardadministration.moc"
