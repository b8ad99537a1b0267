#include "administrationfixture.h"

#include <QHeaderView>
#include <QIcon>

#include <clocale>

namespace {

QImage imageOf(const QIcon &icon, QIcon::Mode mode = QIcon::Normal)
{
    return icon.pixmap(QSize(16, 16), mode).toImage();
}

QStringList mentioning(const QStringList &lines, const QString &part)
{
    return lines.filter(part);
}

} // namespace

/** What is read from the controller, and how the table of bodies shows it. */
class tst_BodyTable : public AdministrationFixture {
    Q_OBJECT

private slots:
    void showsEveryBody();
    void showsCheckBoxesOfUsableBodies();
    void showsLampsOfCalibrations();
    void marksLiveButtonCells_data();
    void marksLiveButtonCells();
    void zeroBodiesAskForNone();
    void readsBodyInOrder();
    void asksOnlyWhatProtocolKnows_data();
    void asksOnlyWhatProtocolKnows();
    void failedQueryIsLoggedAndReadingGoesOn_data();
    void failedQueryIsLoggedAndReadingGoesOn();
    void referenceAnswerMarksOneStandardBody_data();
    void referenceAnswerMarksOneStandardBody();
    void filterSummary_data();
    void filterSummary();
    void germanDesktopChangesNothing();
    void lastColumnStretchesUntilTheFirstFilling();
};

void tst_BodyTable::showsEveryBody()
{
    TestHost host;
    open(host, [&](QWidget *, QTableWidget *bodies) {
        QCOMPARE(bodies->rowCount(), 8);
        QCOMPARE(Drive::row(bodies, 0),
                 (QStringList{"1", "", "", "Cap", "", "", "Custom", "20ms/Adaptive fast", "", ""}));
        QCOMPARE(Drive::row(bodies, 1),
                 (QStringList{"2", "", "", "Glasses round", "", "", "Target Library, re-calibrated",
                              "not active", "", ""}));
        QCOMPARE(Drive::row(bodies, 2), (QStringList{"3", "", "", "Room frame", "", "",
                                                     "Target Library", "Default", "", ""}));
        QCOMPARE(Drive::row(bodies, 3).mid(0, 7),
                 (QStringList{"4", "", "", "Camera rig", "Mini motion sensor", "A7", "Full"}));
        QCOMPARE(Drive::row(bodies, 4), (QStringList{"5", "", "", "Pointer", "Mini motion sensor",
                                                     "B12", "Optical", "Default", "", ""}));
        QCOMPARE(Drive::cell(bodies, 5, CalibrationColumn),
                 QStringLiteral("Custom, re-calibrated"));
        QCOMPARE(Drive::row(bodies, 7),
                 (QStringList{"8", "", "", "", "", "", "not calibrated", "", "", ""}));
    });
    QCOMPARE(host.log(), QStringList());
}

void tst_BodyTable::showsCheckBoxesOfUsableBodies()
{
    TestHost host(studio([](ControllerState &state) {
        state.bodyTypes["standard"].bodies[1].active = false;     // calibrated only
        state.bodyTypes["standard"].bodies[5].calibrated = false; // active only
    }));
    open(host, [&](QWidget *, QTableWidget *bodies) {
        for (int row = 0; row < 8; ++row) {
            const bool usable = row != 7;
            for (const int column : {ActiveColumn, ReferenceColumn}) {
                const QTableWidgetItem *item = bodies->item(row, column);
                QCOMPARE(item->flags().testFlag(Qt::ItemIsUserCheckable), usable);
                QCOMPARE(item->data(Qt::CheckStateRole).isValid(), usable);
            }
            const bool active = usable && row != 1;
            QCOMPARE(bodies->item(row, ActiveColumn)->checkState() == Qt::Checked, active);
            QCOMPARE(bodies->item(row, ReferenceColumn)->checkState() == Qt::Checked, row == 2);
        }
    });
}

void tst_BodyTable::showsLampsOfCalibrations()
{
    TestHost host;
    open(host, [&](QWidget *, QTableWidget *bodies) {
        const auto lamp = [&](int row) {
            return imageOf(bodies->item(row, CalibrationColumn)->icon());
        };
        const QImage green = imageOf(QIcon(QStringLiteral(":/green.png")));
        QVERIFY(!green.isNull());
        QCOMPARE(lamp(0), green);
        QCOMPARE(lamp(3), green);
        QCOMPARE(lamp(4), imageOf(QIcon(QStringLiteral(":/yellow.png"))));
        QVERIFY(lamp(4) != green);
        QVERIFY(lamp(7) != green);
        QVERIFY(!lamp(7).isNull());
        QCOMPARE(bodies->item(0, CalibrationColumn)->flags(), Qt::ItemFlags(Qt::ItemIsEnabled));
    });
}

void tst_BodyTable::marksLiveButtonCells_data()
{
    QTest::addColumn<QString>("fault");
    QTest::addColumn<bool>("warmup");
    QTest::addColumn<QString>("protocol");
    QTest::addColumn<QString>("liveResets");
    QTest::newRow("ready") << "" << false << "1.24"
                           << "01011010";
    QTest::newRow("warming up") << "" << true << "1.24"
                                << "01000000";
    QTest::newRow("warm-up unknown") << "inertial warmup fail" << false << "1.24"
                                     << "01000000";
    QTest::newRow("sensors unknown") << "inertial available fail" << false << "1.24"
                                     << "01000000";
    QTest::newRow("no sensors") << "inertial available answer \"no\"" << false << "1.24"
                                << "01000000";
    QTest::newRow("protocol 1.11") << "" << false << "1.11"
                                   << "01000000";
}

void tst_BodyTable::marksLiveButtonCells()
{
    QFETCH(QString, fault);
    QFETCH(bool, warmup);
    QFETCH(QString, protocol);
    QFETCH(QString, liveResets);
    TestHost host(studio([&](ControllerState &state) {
        state.inertialWarmup = warmup;
        state.protocol = protocol;
        state.bodyTypes["standard"].bodies[5].calibrated = false;
    }));
    if (!fault.isEmpty())
        host.fault(fault);
    open(host, [&](QWidget *, QTableWidget *bodies) {
        QString resets;
        QString deletes;
        for (int row = 0; row < bodies->rowCount(); ++row) {
            resets += isLive(bodies, row, ResetColumn) ? '1' : '0';
            deletes += isLive(bodies, row, DeleteColumn) ? '1' : '0';
        }
        QCOMPARE(resets, liveResets);
        QCOMPARE(deletes, QStringLiteral("11111010"));
        QVERIFY(imageOf(bodies->item(7, DeleteColumn)->icon())
                != imageOf(bodies->item(0, DeleteColumn)->icon()));
        host.clear();
        press(bodies, 7, DeleteColumn);
        press(bodies, 0, ResetColumn);
        QCOMPARE(host.writes(), QStringList());
    });
}

void tst_BodyTable::zeroBodiesAskForNone()
{
    TestHost host(studio([](ControllerState &state) {
        state.bodyTypes["standard"].bodies.clear();
        state.trackingReference.clear();
    }));
    BodyAdministrationDlg dialog(&host.io, &host.mainWindow, &host.versions);
    robot().expectDialog(QStringLiteral("BodyAdministrationDlg"), [&](QWidget *window) {
        QCOMPARE(bodies(window)->rowCount(), 0);
        QCOMPARE(Drive::find<QSpinBox>(window, "spinBox_standard_bodies")->value(), 0);
        QVERIFY(!Drive::find<QPushButton>(page(window), "pushButton_up")->isEnabled());
        QVERIFY(!Drive::find<QPushButton>(page(window), "pushButton_down")->isEnabled());
    });
    dialog.update_and_exec();
    QCOMPARE(mentioning(host.queries(), QStringLiteral("standard b")), QStringList());
    QCOMPARE(host.log(), QStringList());
}

void tst_BodyTable::readsBodyInOrder()
{
    TestHost host;
    open(host, [&](QWidget *, QTableWidget *bodies) {
        toggle(bodies, 3, ActiveColumn);
        const QStringList lines = host.lines();
        const int write = lines.indexOf(QStringLiteral("body active standard b04 no"));
        QCOMPARE(lines.mid(write, 16),
                 (QStringList{
                         "body active standard b04 no", "body desc standard b04",
                         "body targetlib_name standard b04", "body active standard b04",
                         "body calibrated standard b04", "body recalibrated standard b04",
                         "body inertial_sensor standard b04",
                         "inertial sensor_handeye vendorone mini 'A7'",
                         "body filter6d_enabled standard b04", "body filter6d_preset standard b04",
                         "body filter6d_prediction standard b04", "body filter6d_mode standard b04",
                         "filter6d mode_desc hybrid_target", "body filter6d_strength standard b04",
                         "tracking reference", "inertial available"}));
    });
}

void tst_BodyTable::asksOnlyWhatProtocolKnows_data()
{
    QTest::addColumn<QString>("protocol");
    QTest::addColumn<QStringList>("queries");
    QTest::newRow("0.2") << "0.2" << QStringList();
    QTest::newRow("0.3") << "0.3" << QStringList{"body calibrated standard b04"};
    QTest::newRow("0.15") << "0.15" << QStringList{"body calibrated standard b04"};
    const QStringList named{"body desc standard b04", "body calibrated standard b04"};
    QTest::newRow("0.16") << "0.16" << named;
    QTest::newRow("1.10") << "1.10" << named;
    const QStringList library{"body desc standard b04", "body targetlib_name standard b04",
                              "body active standard b04", "body calibrated standard b04",
                              "body recalibrated standard b04"};
    QTest::newRow("1.11") << "1.11" << library;
    QTest::newRow("1.12") << "1.12"
                          << library + QStringList{"body inertial_sensor standard b04",
                                                   "body filter6d_enabled standard b04",
                                                   "body filter6d_preset standard b04",
                                                   "body filter6d_prediction standard b04",
                                                   "body filter6d_mode standard b04",
                                                   "body filter6d_strength standard b04"};
}

void tst_BodyTable::asksOnlyWhatProtocolKnows()
{
    QFETCH(QString, protocol);
    QFETCH(QStringList, queries);
    TestHost host(studio(protocol));
    BodyAdministrationDlg dialog(&host.io, &host.mainWindow, &host.versions);
    robot().expectDialog(QStringLiteral("BodyAdministrationDlg"), [](QWidget *) {});
    dialog.update_and_exec();
    QCOMPARE(mentioning(host.queries(), QStringLiteral(" standard b04")), queries);
    QVERIFY(!host.queries().contains(QStringLiteral("tracking reference")));
    QCOMPARE(host.log(), QStringList());
}

void tst_BodyTable::failedQueryIsLoggedAndReadingGoesOn_data()
{
    QTest::addColumn<QString>("fault");
    QTest::addColumn<QStringList>("log");
    QTest::addColumn<int>("column");
    QTest::addColumn<QString>("shown");
    const auto bodyRow = [](const char *name, const char *command, const char *line, int column,
                            const char *shown) {
        QTest::newRow(name) << QStringLiteral("%1 standard b04 fail").arg(command)
                            << QStringList{line} << column << shown;
    };
    bodyRow("name", "body desc", "Error: Unable to get description of body standard b04 ",
            NameColumn, "");
    bodyRow("library name", "body targetlib_name",
            "Error: Unable to get targetlib name of body standard b04", CalibrationColumn, "Full");
    bodyRow("activeness", "body active", "Error: Unable to get activeness of body standard b04",
            NameColumn, "Camera rig");
    bodyRow("calibration", "body calibrated",
            "Error: Unable to get calibration state of body standard b04", CalibrationColumn,
            "not calibrated");
    bodyRow("re-calibration", "body recalibrated",
            "Error: Unable to get recalibrated state of body standard b04", CalibrationColumn,
            "Full");
    bodyRow("sensor", "body inertial_sensor",
            "Error: Unable to get inertial sensor of body standard b04", DeviceIdColumn, "");
    QTest::newRow("hand-eye")
            << "inertial sensor_handeye vendorone mini 'A7' fail"
            << QStringList{"Error: Unable to get handeye status of sensor vendorone mini 'A7'"}
            << int(CalibrationColumn) << "Optical";
    QTest::newRow("model") << "inertial sensor_model_desc vendorone mini fail" << QStringList()
                           << int(ModelColumn) << "";
    bodyRow("filter switch", "body filter6d_enabled",
            "Error: Unable to get filter6d state of body standard b04", FilterColumn, "");
    bodyRow("filter preset", "body filter6d_preset",
            "Error: Unable to get filter6d preset of body standard b04", FilterColumn, "");
    bodyRow("filter prediction", "body filter6d_prediction",
            "Error: Unable to get filter6d prediction of body standard b04", FilterColumn, "");
    bodyRow("filter mode", "body filter6d_mode",
            "Error: Unable to get filter6d mode of body standard b04", FilterColumn, "");
    bodyRow("filter strength", "body filter6d_strength",
            "Error: Unable to get filter6d strength of body standard b04", FilterColumn,
            "0.00/12ms/Hybrid target");
    QTest::newRow("reference") << "tracking reference call 4 fail"
                               << QStringList{"Error: Unable to info body reference"}
                               << int(CalibrationColumn) << "Full";
}

void tst_BodyTable::failedQueryIsLoggedAndReadingGoesOn()
{
    QFETCH(QString, fault);
    QFETCH(QStringList, log);
    QFETCH(int, column);
    QFETCH(QString, shown);
    TestHost host(studio([](ControllerState &state) {
        state.bodyTypes["standard"].bodies[3].filterPrediction = 0.0125;
    }));
    host.fault(fault);
    BodyAdministrationDlg dialog(&host.io, &host.mainWindow, &host.versions);
    robot().expectDialog(QStringLiteral("BodyAdministrationDlg"), [&](QWidget *window) {
        QCOMPARE(host.log(), log);
        QCOMPARE(Drive::cell(bodies(window), 3, column), shown);
        QCOMPARE(Drive::cell(bodies(window), 4, NameColumn), QStringLiteral("Pointer"));
    });
    dialog.update_and_exec();
}

void tst_BodyTable::referenceAnswerMarksOneStandardBody_data()
{
    QTest::addColumn<QString>("answer");
    QTest::addColumn<int>("row");
    QTest::newRow("third") << "standard b03" << 2;
    QTest::newRow("without a zero") << "standard b3" << 2;
    QTest::newRow("more blanks") << "standard   b05" << 4;
    QTest::newRow("none") << "none" << -1;
    QTest::newRow("another type") << "joywand b01" << -1;
    QTest::newRow("no number") << "standard" << -1;
    QTest::newRow("beyond the end") << "standard b12" << -1;
}

void tst_BodyTable::referenceAnswerMarksOneStandardBody()
{
    QFETCH(QString, answer);
    QFETCH(int, row);
    // The controller's values differ from every faulty answer, and every row has a check box.
    TestHost host(studio([](ControllerState &state) {
        state.trackingReference = QStringLiteral("standard b06");
        state.bodyTypes["standard"].bodies[7].active = true;
    }));
    host.fault(QStringLiteral("tracking reference answer \"%1\"").arg(answer));
    QVector<int> marked;
    int boxes = 0;
    open(host, [&](QWidget *, QTableWidget *bodies) {
        for (int i = 0; i < bodies->rowCount(); ++i) {
            const QTableWidgetItem *item = bodies->item(i, ReferenceColumn);
            boxes += item->data(Qt::CheckStateRole).isValid() ? 1 : 0;
            if (item->checkState() == Qt::Checked)
                marked.append(i);
        }
    });
    QCOMPARE(boxes, 8);
    QCOMPARE(marked, row < 0 ? QVector<int>() : QVector<int>{row});
}

void tst_BodyTable::filterSummary_data()
{
    QTest::addColumn<QString>("preset");
    QTest::addColumn<QString>("mode");
    QTest::addColumn<QString>("shown");
    QTest::newRow("custom hybrid") << "preset6d_hybrid_custom"
                                   << "hybrid_target"
                                   << "0.50/12ms/Hybrid target";
    QTest::newRow("custom") << "preset6d_custom"
                            << "adaptive_slow"
                            << "12ms/Adaptive slow";
    QTest::newRow("preset") << "preset6d_hybrid"
                            << "hybrid_target"
                            << "Hybrid";
}

void tst_BodyTable::filterSummary()
{
    QFETCH(QString, preset);
    QFETCH(QString, mode);
    QFETCH(QString, shown);
    TestHost host(studio([&](ControllerState &state) {
        BodyState &body = state.bodyTypes["standard"].bodies[3];
        body.filterPreset = preset;
        body.filterMode = mode;
        body.filterStrength = 0.5;
        body.filterPrediction = 0.0125;
    }));
    open(host, [&](QWidget *, QTableWidget *bodies) {
        QCOMPARE(Drive::cell(bodies, 3, FilterColumn), shown);
    });
}

void tst_BodyTable::germanDesktopChangesNothing()
{
    QLocale::setDefault(QLocale(QLocale::German, QLocale::Germany));
    std::setlocale(LC_ALL, "de_DE.UTF-8"); // has no effect when the machine lacks the locale
    TestHost host(studio([](ControllerState &state) {
        state.bodyTypes["standard"].bodies[3].filterPrediction = 0.0125;
        state.bodyTypes["standard"].bodies.resize(12);
        state.bodyTypes["standard"].bodies[11].description = QStringLiteral("Zwölf");
    }));
    open(host, [&](QWidget *window, QTableWidget *bodies) {
        QCOMPARE(Drive::cell(bodies, 3, FilterColumn), QStringLiteral("0.50/12ms/Hybrid target"));
        QCOMPARE(Drive::cell(bodies, 11, IdColumn), QStringLiteral("12"));
        QCOMPARE(Drive::cell(bodies, 11, NameColumn), QStringLiteral("Zwölf"));
        Drive::typeNumber(Drive::find<QSpinBox>(window, "spinBox_standard_bodies"), "13");
        Drive::settle();
        QCOMPARE(host.writes(), QStringList{"standard number_of_bodies 13"});
    });
}

void tst_BodyTable::lastColumnStretchesUntilTheFirstFilling()
{
    TestHost host;
    BodyAdministrationDlg dialog(&host.io, &host.mainWindow, &host.versions);
    const QStringList names{"tableWidget_standard", "tableWidget_joywand",
                            "tableWidget_fingertracking", "tableWidget_mt", "tableWidget_ref"};
    const auto stretches = [&dialog](const QString &name) {
        const auto *table = Drive::find<QTableWidget>(&dialog, name.toLatin1().constData());
        return table->horizontalHeader()->stretchLastSection();
    };
    for (const QString &name : names)
        QVERIFY2(stretches(name), qPrintable(name));
    robot().expectDialog(QStringLiteral("BodyAdministrationDlg"), [](QWidget *window) {
        for (int page = 0; page < 4; ++page)
            QTest::keyClick(window, Qt::Key_F8);
    });
    dialog.update_and_exec();
    for (const QString &name : names)
        QVERIFY2(!stretches(name), qPrintable(name));
}

TRACKING_TEST_MAIN(tst_BodyTable)
#include "tst_bodytable.moc"
