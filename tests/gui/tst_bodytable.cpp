#include <clocale>

#include <QIcon>
#include <QLineEdit>

#include "StandardPageTest.h"

namespace {

const QString customCheck = QStringLiteral("morvek2 targetlib check_custom_calibration");

QImage imageOf(const QIcon &icon, QIcon::Mode mode = QIcon::Normal)
{
    return icon.pixmap(QSize(16, 16), mode).toImage();
}

QStringList mentioning(const QStringList &lines, const QString &part)
{
    return lines.filter(part);
}

} // namespace

/** The table of bodies: what it shows and what editing it tells the controller. */
class tst_BodyTable : public StandardPageTest {
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

    void checkBoxSwitchesBodyOnce();
    void clickBesideCheckBoxSendsNothing();
    void spaceKeySwitchesBodyOnce();
    void refusedActivenessShowsController();
    void oldProtocolWritesNoActiveness();

    void nameKeepsEveryAllowedCharacter();
    void renamingReadsBodyAgain();
    void typingWithoutDoubleClickWritesNothing();
    void escapeWritesNothingAlsoLater();
    void unchangedNameIsNotWritten();
    void refusedRenameShowsController();
    void doubleClickElsewhereEditsNothing();

    void typedCountAppliesOnce();
    void arrowKeysChangeCount();
    void enterInAFieldPressesNoButton();
    void droppingLastReferenceAsks();
    void droppingOtherReferenceDoesNotAsk();
    void refusedCountShowsController();
    void clampedCountShowsController();
    void dialogDeletedInCountQuestion();

    void referenceMovesToAnotherBody();
    void referenceIsCleared();
    void failedReferenceShowsController_data();
    void failedReferenceShowsController();
    void inactiveBodyCannotBeReference();
    void inactiveBodyBoxSurvivesDeletion();
    void oldProtocolWritesNoReference();

    void filterCellOpensFilterDialog();
    void dialogDeletedInFilterDialog();
    void deadLinkKeepsWhatWasRead();
    void lockedConfigurationEditsNothing();
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
    TestHost host(studioOfProtocol(protocol));
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
    TestHost host;
    host.fault(QStringLiteral("tracking reference answer \"%1\"").arg(answer));
    open(host, [&](QWidget *, QTableWidget *bodies) {
        for (int i = 0; i < bodies->rowCount(); ++i) {
            QCOMPARE(bodies->item(i, ReferenceColumn)->checkState() == Qt::Checked, i == row);
        }
    });
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
    std::setlocale(LC_ALL, "de_DE.UTF-8"); // where the machine has it
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

// Activeness

void tst_BodyTable::checkBoxSwitchesBodyOnce()
{
    TestHost host;
    open(host, [&](QWidget *, QTableWidget *bodies) {
        toggle(bodies, 0, ActiveColumn);
        QCOMPARE(host.writes(), QStringList{"body active standard b01 no"});
        QCOMPARE(body(host, 0).active, false);
        QCOMPARE(bodies->item(0, ActiveColumn)->checkState(), Qt::Unchecked);
        host.clear();
        toggle(bodies, 0, ActiveColumn);
        QCOMPARE(host.writes(), QStringList{"body active standard b01 yes"});
        QCOMPARE(body(host, 0).active, true);
    });
    QCOMPARE(host.log(), QStringList());
}

void tst_BodyTable::clickBesideCheckBoxSendsNothing()
{
    TestHost host;
    open(host, [&](QWidget *, QTableWidget *bodies) {
        for (const int column : {ActiveColumn, ReferenceColumn}) {
            const QRect cell = bodies->visualItemRect(bodies->item(1, column));
            QTest::mouseClick(bodies->viewport(), Qt::LeftButton, Qt::NoModifier,
                              QPoint(cell.right() - 2, cell.center().y()));
            press(bodies, 7, column);
        }
        Drive::settle();
        QCOMPARE(bodies->currentRow(), 7);
        QCOMPARE(host.writes(), QStringList());
    });
}

void tst_BodyTable::spaceKeySwitchesBodyOnce()
{
    TestHost host;
    open(host, [&](QWidget *, QTableWidget *bodies) {
        bodies->setFocus();
        bodies->setCurrentCell(1, ActiveColumn);
        QTest::keyClick(bodies, Qt::Key_Space);
        Drive::settle();
        QCOMPARE(host.writes(), QStringList{"body active standard b02 no"});
        QCOMPARE(body(host, 1).active, false);
    });
}

void tst_BodyTable::refusedActivenessShowsController()
{
    TestHost host;
    host.fault(QStringLiteral("set body active* refuse"));
    open(host, [&](QWidget *, QTableWidget *bodies) {
        toggle(bodies, 1, ActiveColumn);
        QCOMPARE(host.writes(), QStringList{"body active standard b02 no"});
        QCOMPARE(host.log(), QStringList{"Error: Unable to set activeness of body standard b02"});
        QCOMPARE(bodies->item(1, ActiveColumn)->checkState(), Qt::Checked);
    });
}

void tst_BodyTable::oldProtocolWritesNoActiveness()
{
    TestHost host(studioOfProtocol(QStringLiteral("1.10")));
    open(host, [&](QWidget *, QTableWidget *bodies) {
        QCOMPARE(bodies->item(1, ActiveColumn)->checkState(), Qt::Unchecked);
        toggle(bodies, 1, ActiveColumn);
        QCOMPARE(host.writes(), QStringList());
        QCOMPARE(host.log(), QStringList());
        QCOMPARE(bodies->item(1, ActiveColumn)->checkState(), Qt::Unchecked);
    });
}

// Names

void tst_BodyTable::nameKeepsEveryAllowedCharacter()
{
    const QString name = QStringLiteral("Az09_-+=.,;:/ z");
    TestHost host;
    open(host, [&](QWidget *, QTableWidget *bodies) {
        Drive::typeIntoCell(bodies, 0, NameColumn, name);
        QCOMPARE(host.writes(), QStringList{"body desc standard b01 \"" + name + "\""});
        QCOMPARE(body(host, 0).description, name);
        QCOMPARE(Drive::cell(bodies, 0, NameColumn), name);
        host.clear();
        Drive::typeIntoCell(bodies, 0, NameColumn, QStringLiteral("a\"b%s"));
        QCOMPARE(host.writes(), QStringList{"body desc standard b01 \"abs\""});
    });
    QCOMPARE(host.log(), QStringList());
}

void tst_BodyTable::renamingReadsBodyAgain()
{
    TestHost host;
    open(host, [&](QWidget *, QTableWidget *bodies) {
        Drive::typeIntoCell(bodies, 0, NameColumn, QStringLiteral("Hat"));
        const QStringList lines = host.lines();
        const int write = lines.indexOf(QStringLiteral("body desc standard b01 \"Hat\""));
        QVERIFY(write >= 0);
        QCOMPARE(lines.value(write + 1), QStringLiteral("body desc standard b01"));
        QCOMPARE(lines.count(QStringLiteral("body desc standard b01")), 1);
        QCOMPARE(lines.count(QStringLiteral("body desc standard b02")), 0);
    });
}

void tst_BodyTable::typingWithoutDoubleClickWritesNothing()
{
    TestHost host;
    open(host, [&](QWidget *, QTableWidget *bodies) {
        bodies->setFocus();
        bodies->setCurrentCell(0, NameColumn);
        QTest::keyClick(bodies, Qt::Key_F2);
        QTest::keyClicks(bodies, QStringLiteral("abc"));
        QTest::keyClick(bodies, Qt::Key_Return);
        Drive::settle();
        QVERIFY(!bodies->viewport()->findChild<QLineEdit *>());
        QCOMPARE(host.writes(), QStringList());
        QCOMPARE(Drive::cell(bodies, 0, NameColumn), QStringLiteral("Cap"));
    });
}

void tst_BodyTable::escapeWritesNothingAlsoLater()
{
    TestHost host;
    open(host, [&](QWidget *, QTableWidget *bodies) {
        Drive::doubleClickCell(bodies, 0, NameColumn);
        auto *editor = bodies->viewport()->findChild<QLineEdit *>();
        QVERIFY(editor);
        QTest::keyClicks(editor, QStringLiteral("abc"));
        QTest::keyClick(editor, Qt::Key_Escape);
        Drive::settle();
        host.edit([](ControllerState &state) {
            state.bodyTypes["standard"].bodies[0].description = QStringLiteral("Elsewhere");
        });
        toggle(bodies, 0, ActiveColumn);
        QCOMPARE(Drive::cell(bodies, 0, NameColumn), QStringLiteral("Elsewhere"));
        QCOMPARE(host.writes(), QStringList{"body active standard b01 no"});
        // A change that the program makes outside a fill is none of the user's either.
        bodies->item(0, NameColumn)->setText(QStringLiteral("program"));
        QCOMPARE(host.writes(), QStringList{"body active standard b01 no"});
    });
}

void tst_BodyTable::unchangedNameIsNotWritten()
{
    TestHost host;
    open(host, [&](QWidget *, QTableWidget *bodies) {
        Drive::typeIntoCell(bodies, 0, NameColumn, QStringLiteral("Cap"));
        QCOMPARE(host.writes(), QStringList());
    });
}

void tst_BodyTable::refusedRenameShowsController()
{
    TestHost host;
    host.fault(QStringLiteral("set body desc standard b01* refuse"));
    open(host, [&](QWidget *, QTableWidget *bodies) {
        Drive::typeIntoCell(bodies, 0, NameColumn, QStringLiteral("Hat"));
        QCOMPARE(host.writes(), QStringList{"body desc standard b01 \"Hat\""});
        QCOMPARE(host.log(), QStringList{"Error: Unable to set description of body standard b01"});
        QCOMPARE(Drive::cell(bodies, 0, NameColumn), QStringLiteral("Cap"));
    });
}

void tst_BodyTable::doubleClickElsewhereEditsNothing()
{
    TestHost host;
    open(host, [&](QWidget *, QTableWidget *bodies) {
        for (const int column : {IdColumn, ModelColumn, CalibrationColumn})
            Drive::doubleClickCell(bodies, 3, column);
        Drive::settle();
        QVERIFY(!bodies->viewport()->findChild<QLineEdit *>());
        QVERIFY(!bodies->item(3, IdColumn)->flags().testFlag(Qt::ItemIsEditable));
        QCOMPARE(host.writes(), QStringList());
    });
}

// Count

void tst_BodyTable::typedCountAppliesOnce()
{
    TestHost host;
    open(host, [&](QWidget *window, QTableWidget *bodies) {
        auto *count = Drive::find<QSpinBox>(window, "spinBox_standard_bodies");
        QCOMPARE(count->maximum(), 20);
        Drive::typeNumber(count, QStringLiteral("12"));
        Drive::settle();
        QCOMPARE(host.writes(), QStringList{"standard number_of_bodies 12"});
        QVERIFY(host.queries().contains(QStringLiteral("body desc standard b12")));
        QVERIFY(!host.queries().contains(QStringLiteral("body desc standard b08")));
        QCOMPARE(bodies->rowCount(), 12);
        QCOMPARE(count->value(), 12);
        QVERIFY(window->isVisible());
        host.clear();
        Drive::typeNumber(count, QStringLiteral("12"));
        Drive::settle();
        QCOMPARE(host.writes(), QStringList());
        Drive::typeNumber(count, QStringLiteral("20"));
        Drive::settle();
        QCOMPARE(Drive::find<QLabel>(page(window), "label_error")->text(),
                 QStringLiteral("<b><font color=red>Max. number of bodies is reached!</font></b>"));
    });
    QCOMPARE(host.state().bodyTypes["standard"].bodies.size(), 20);
}

void tst_BodyTable::arrowKeysChangeCount()
{
    TestHost host;
    open(host, [&](QWidget *window, QTableWidget *bodies) {
        auto *count = Drive::find<QSpinBox>(window, "spinBox_standard_bodies");
        count->setFocus();
        QTest::keyClick(count, Qt::Key_Up);
        Drive::settle();
        QTest::keyClick(count, Qt::Key_Down);
        Drive::settle();
        QCOMPARE(host.writes(),
                 (QStringList{"standard number_of_bodies 9", "standard number_of_bodies 8"}));
        QCOMPARE(bodies->rowCount(), 8);
    });
}

void tst_BodyTable::enterInAFieldPressesNoButton()
{
    TestHost host;
    open(host, [&](QWidget *window, QTableWidget *bodies) {
        press(bodies, 3, IdColumn);
        Drive::typeNumber(Drive::find<QSpinBox>(window, "spinBox_standard_bodies"),
                          QStringLiteral("8"));
        for (const int key : {Qt::Key_Return, Qt::Key_Enter}) {
            QTest::keyClick(bodies, Qt::Key(key));
            QTest::keyClick(targets(window), Qt::Key(key));
        }
        Drive::settle();
        QCOMPARE(host.writes(), QStringList());
        QVERIFY(window->isVisible());
        auto *up = Drive::find<QPushButton>(page(window), "pushButton_up");
        up->setFocus();
        QTest::keyClick(up, Qt::Key_Return);
        Drive::settle();
        QCOMPARE(host.writes(), QStringList{"morvek2 body switch standard b04 standard b03"});
    });
}

namespace {

const QString countQuestion =
        QStringLiteral("Decreasing the number of standard bodies will disable the reference!\n\n"
                       "Continue?");

} // namespace

void tst_BodyTable::droppingLastReferenceAsks()
{
    TestHost host(studio([](ControllerState &state) {
        state.bodyTypes["standard"].bodies.resize(4);
        state.trackingReference = QStringLiteral("standard b04");
    }));
    open(host, [&](QWidget *window, QTableWidget *bodies) {
        auto *count = Drive::find<QSpinBox>(window, "spinBox_standard_bodies");
        robot().expectBox(QStringLiteral("MORVEK3"), countQuestion, QMessageBox::No);
        Drive::typeNumber(count, QStringLiteral("2"));
        Drive::settle();
        QCOMPARE(host.writes(), QStringList());
        QCOMPARE(count->value(), 4);
        QCOMPARE(bodies->rowCount(), 4);
        robot().expectBox(QStringLiteral("MORVEK3"), countQuestion, QMessageBox::Yes);
        Drive::typeNumber(count, QStringLiteral("2"));
        Drive::settle();
        QCOMPARE(host.writes(), QStringList{"standard number_of_bodies 2"});
        QCOMPARE(bodies->rowCount(), 2);
    });
    QCOMPARE(host.state().trackingReference, QString());
}

void tst_BodyTable::droppingOtherReferenceDoesNotAsk()
{
    TestHost host(studio([](ControllerState &state) {
        state.bodyTypes["standard"].bodies.resize(4);
        state.trackingReference = QStringLiteral("standard b03");
    }));
    open(host, [&](QWidget *window, QTableWidget *bodies) {
        Drive::typeNumber(Drive::find<QSpinBox>(window, "spinBox_standard_bodies"),
                          QStringLiteral("2"));
        Drive::settle();
        QCOMPARE(host.writes(), QStringList{"standard number_of_bodies 2"});
        QCOMPARE(bodies->rowCount(), 2);
    });
}

void tst_BodyTable::refusedCountShowsController()
{
    TestHost host;
    host.fault(QStringLiteral("set standard number_of_bodies* refuse"));
    open(host, [&](QWidget *window, QTableWidget *bodies) {
        auto *count = Drive::find<QSpinBox>(window, "spinBox_standard_bodies");
        Drive::typeNumber(count, QStringLiteral("12"));
        Drive::settle();
        QCOMPARE(host.writes(), QStringList{"standard number_of_bodies 12"});
        QCOMPARE(host.log(), QStringList{"Error: Unable to set number of standard bodies to 12"});
        QCOMPARE(count->value(), 8);
        QCOMPARE(bodies->rowCount(), 8);
    });
}

void tst_BodyTable::clampedCountShowsController()
{
    TestHost host;
    host.fault(QStringLiteral("set standard number_of_bodies* clamp"));
    open(host, [&](QWidget *window, QTableWidget *bodies) {
        auto *count = Drive::find<QSpinBox>(window, "spinBox_standard_bodies");
        press(bodies, 7, IdColumn);
        Drive::typeNumber(count, QStringLiteral("10"));
        Drive::settle();
        QCOMPARE(host.writes(), QStringList{"standard number_of_bodies 10"});
        QCOMPARE(count->value(), 5);
        QCOMPARE(bodies->rowCount(), 5);
        QVERIFY(bodies->currentRow() < 5);
        QVERIFY(!Drive::find<QPushButton>(page(window), "pushButton_down")->isEnabled());
    });
    QCOMPARE(host.log(), QStringList());
}

void tst_BodyTable::dialogDeletedInCountQuestion()
{
    TestHost host(studio([](ControllerState &state) {
        state.trackingReference = QStringLiteral("standard b08");
    }));
    openDeletable(host, [&](QWidget *window, QTableWidget *) {
        robot().expectBox(QStringLiteral("MORVEK3"), countQuestion, QMessageBox::Yes, deletion());
        Drive::typeNumber(Drive::find<QSpinBox>(window, "spinBox_standard_bodies"),
                          QStringLiteral("2"));
        Drive::settle();
    });
    QCOMPARE(host.writes(), QStringList());
}

// The reference

void tst_BodyTable::referenceMovesToAnotherBody()
{
    TestHost host;
    open(host, [&](QWidget *, QTableWidget *bodies) {
        toggle(bodies, 0, ReferenceColumn);
        QCOMPARE(host.writes(), QStringList{"tracking reference standard b01"});
        QCOMPARE(host.state().trackingReference, QStringLiteral("standard b01"));
        QCOMPARE(bodies->item(0, ReferenceColumn)->checkState(), Qt::Checked);
        QCOMPARE(bodies->item(2, ReferenceColumn)->checkState(), Qt::Unchecked);
    });
    QCOMPARE(host.log(), QStringList());
}

void tst_BodyTable::referenceIsCleared()
{
    TestHost host;
    open(host, [&](QWidget *, QTableWidget *bodies) {
        toggle(bodies, 2, ReferenceColumn);
        QCOMPARE(host.writes(), QStringList{" tracking reference none"});
        QCOMPARE(host.state().trackingReference, QString());
        QCOMPARE(bodies->item(2, ReferenceColumn)->checkState(), Qt::Unchecked);
    });
    QCOMPARE(host.log(), QStringList());
}

void tst_BodyTable::failedReferenceShowsController_data()
{
    QTest::addColumn<QString>("fault");
    QTest::addColumn<int>("row");
    QTest::addColumn<QString>("log");
    QTest::newRow("set") << "set tracking reference standard b01 refuse" << 0
                         << "Error: Unable to set body standard b01 as reference body";
    QTest::newRow("clear") << "set tracking reference none refuse" << 2
                           << "Error: Unable to de-activate the reference body";
}

void tst_BodyTable::failedReferenceShowsController()
{
    QFETCH(QString, fault);
    QFETCH(int, row);
    QFETCH(QString, log);
    TestHost host;
    host.fault(fault);
    open(host, [&](QWidget *, QTableWidget *bodies) {
        toggle(bodies, row, ReferenceColumn);
        QCOMPARE(host.writes().size(), 1);
        QCOMPARE(host.log(), QStringList{log});
        QCOMPARE(bodies->item(0, ReferenceColumn)->checkState(), Qt::Unchecked);
        QCOMPARE(bodies->item(2, ReferenceColumn)->checkState(), Qt::Checked);
    });
}

namespace {

const QString inactiveWarning = QStringLiteral("A de-activated body cannot be set as reference.\n"
                                               "Please activate this body before.");

} // namespace

void tst_BodyTable::inactiveBodyCannotBeReference()
{
    TestHost host(studio(
            [](ControllerState &state) { state.bodyTypes["standard"].bodies[0].active = false; }));
    open(host, [&](QWidget *, QTableWidget *bodies) {
        robot().expectBox(QStringLiteral("Warning"), inactiveWarning, QMessageBox::Ok);
        toggle(bodies, 0, ReferenceColumn);
        QCOMPARE(host.writes(), QStringList());
        QCOMPARE(bodies->item(0, ReferenceColumn)->checkState(), Qt::Unchecked);
    });
}

void tst_BodyTable::inactiveBodyBoxSurvivesDeletion()
{
    TestHost host(studio(
            [](ControllerState &state) { state.bodyTypes["standard"].bodies[0].active = false; }));
    openDeletable(host, [&](QWidget *, QTableWidget *bodies) {
        robot().expectBox(QStringLiteral("Warning"), inactiveWarning, QMessageBox::Ok, deletion());
        toggle(bodies, 0, ReferenceColumn);
    });
    QCOMPARE(host.writes(), QStringList());
}

void tst_BodyTable::oldProtocolWritesNoReference()
{
    TestHost host(studioOfProtocol(QStringLiteral("1.23")));
    open(host, [&](QWidget *, QTableWidget *bodies) {
        toggle(bodies, 0, ReferenceColumn);
        QCOMPARE(host.writes(), QStringList());
        QCOMPARE(host.log(), QStringList());
        QCOMPARE(bodies->item(0, ReferenceColumn)->checkState(), Qt::Unchecked);
    });
}

// Filter and lock

void tst_BodyTable::filterCellOpensFilterDialog()
{
    TestHost host;
    open(host, [&](QWidget *, QTableWidget *bodies) {
        robot().expectDialog(QStringLiteral("FilterDialog"), [&](QWidget *) {
            host.edit([](ControllerState &state) {
                state.bodyTypes["standard"].bodies[2].filterEnabled = false;
            });
        });
        press(bodies, 2, FilterColumn);
        QCOMPARE(Drive::cell(bodies, 2, FilterColumn), QStringLiteral("not active"));
        QCOMPARE(bodies->currentRow(), 2);
        press(bodies, 7, FilterColumn); // not calibrated: no dialog
        robot().expectDialog(QStringLiteral("FilterDialog"), [](QWidget *) {});
        bodies->setFocus();
        bodies->setCurrentCell(1, FilterColumn);
        QTest::keyClick(bodies, Qt::Key_Return);
        Drive::settle();
    });
}

void tst_BodyTable::dialogDeletedInFilterDialog()
{
    TestHost host;
    openDeletable(host, [&](QWidget *, QTableWidget *bodies) {
        robot().expectDialog(QStringLiteral("FilterDialog"),
                             [this](QWidget *) { delete m_dialog; });
        press(bodies, 2, FilterColumn);
    });
    QCOMPARE(host.writes(), QStringList());
}

void tst_BodyTable::deadLinkKeepsWhatWasRead()
{
    TestHost host;
    open(host, [&](QWidget *, QTableWidget *bodies) {
        const QStringList shown = Drive::row(bodies, 2);
        host.fault(QStringLiteral("set body active* link-dead"));
        toggle(bodies, 1, ActiveColumn);
        QCOMPARE(host.writes(), QStringList{"body active standard b02 no"});
        QCOMPARE(host.log().value(0),
                 QStringLiteral("Error: Unable to set activeness of body standard b02"));
        QCOMPARE(bodies->item(1, ActiveColumn)->checkState(), Qt::Checked);
        QCOMPARE(bodies->rowCount(), 8);
        QCOMPARE(Drive::row(bodies, 2), shown);
        for (const QString &line : host.log())
            QVERIFY2(line.startsWith(QLatin1String("Error: Unable to")), qPrintable(line));
    });
}

void tst_BodyTable::lockedConfigurationEditsNothing()
{
    TestHost host(TestHost::scenario(QStringLiteral("locked")));
    open(host, [&](QWidget *window, QTableWidget *bodies) {
        QVERIFY(!Drive::find<QSpinBox>(window, "spinBox_standard_bodies")->isEnabled());
        for (const char *name : {"pushButton_up", "pushButton_down", "pushButton_customCalibration",
                                 "pushButton_select", "pushButton_deselect"})
            QVERIFY2(!Drive::find<QPushButton>(page(window), name)->isEnabled(), name);
        toggle(bodies, 0, ActiveColumn);
        toggle(bodies, 0, ReferenceColumn);
        press(bodies, 0, DeleteColumn);
        press(bodies, 3, ResetColumn);
        Drive::doubleClickCell(bodies, 0, NameColumn);
        Drive::settle();
        QVERIFY(!bodies->viewport()->findChild<QLineEdit *>());
        QCOMPARE(host.writes(), QStringList());
        QCOMPARE(bodies->item(0, ActiveColumn)->checkState(), Qt::Checked);
    });
}

TRACKING_TEST_MAIN(tst_BodyTable)
#include "tst_bodytable.moc"
