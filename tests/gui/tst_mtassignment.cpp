#include "administrationfixture.h"

#include <QComboBox>

namespace {

constexpr int idColumn = 0;

} // namespace

/** Assignments on the page of the measurement tools, and the selection afterwards. */
class tst_MtAssignment : public AdministrationFixture {
    Q_OBJECT

private slots:
    void assignsTarget_data();
    void assignsTarget();
    void takesTargetFromStandardBody_data();
    void takesTargetFromStandardBody();
    void unreadableHolderIsLogged_data();
    void unreadableHolderIsLogged();
    void listsTargetsOfCategory();
    void keepsSelectionsAcrossRefills();
    void keepsSelectionsWithinShrunkTables();

private:
    static QTableWidget *tools(QWidget *shown) { return table(shown, "tableWidget_mt"); }
    static QTableWidget *references(QWidget *shown) { return table(shown, "tableWidget_ref"); }
    static QTableWidget *targets(QWidget *shown)
    {
        return table(shown, "tableWidget_targetlibrary");
    }
    static void pickTarget(QWidget *shown, const QString &shortName);
};

void tst_MtAssignment::pickTarget(QWidget *shown, const QString &shortName)
{
    Drive::choose(Drive::find<QComboBox>(shown, "comboBox_filter"),
                  QStringLiteral("Tool Reference"));
    const int row = Drive::column(targets(shown), 1).indexOf(shortName);
    QVERIFY2(row >= 0, qPrintable(shortName));
    Drive::clickCell(targets(shown), row, 1);
}

// Assignment

void tst_MtAssignment::assignsTarget_data()
{
    QTest::addColumn<int>("answer");
    QTest::addColumn<QString>("target");
    QTest::addColumn<QStringList>("written");
    QTest::newRow("agreed")
            << int(Box::Ok) << "TR02"
            << QStringList{"morvek2 body calibrate_from_targetlib measurementtool_reference b02 "
                           "t22"};
    QTest::newRow("declined") << int(Box::Cancel) << "TR02" << QStringList();
    QTest::newRow("held by another reference")
            << int(Box::Ok) << "TR01"
            << QStringList{"body number_of_marker measurementtool_reference b01 0",
                           "body desc measurementtool_reference b01 \"\"",
                           "morvek2 body calibrate_from_targetlib measurementtool_reference b02 "
                           "t21"};
}

void tst_MtAssignment::assignsTarget()
{
    QFETCH(int, answer);
    QFETCH(QString, target);
    QFETCH(QStringList, written);
    TestHost host;
    openAt(host, toolsPage, [&](QWidget *shown) {
        // The current tool does not matter here.
        Drive::clickCell(tools(shown), 0, idColumn);
        Drive::clickCell(references(shown), 1, idColumn);
        pickTarget(shown, target);
        host.clear();
        robot().expectBox(warning, QStringLiteral("Overwrite body calibration data of Wall frame?"),
                          Box::StandardButton(answer));
        Drive::click(shown, "pushButton_select");
        QCOMPARE(changes(host), written);
        QCOMPARE(references(shown)->currentRow(), 1);
    });
    QCOMPARE(host.state().bodyTypes[QStringLiteral("measurementtool_reference")].bodies[1].target,
             written.isEmpty() ? QStringLiteral("TR03") : target);
    QCOMPARE(host.log(), QStringList());
}

void tst_MtAssignment::takesTargetFromStandardBody_data()
{
    QTest::addColumn<int>("answer");
    QTest::addColumn<QString>("refused");
    QTest::addColumn<QString>("line");
    QTest::newRow("OK") << int(Box::Ok) << ""
                        << "";
    QTest::newRow("Cancel") << int(Box::Cancel) << ""
                            << "";
    QTest::newRow("filter refused") << int(Box::Ok) << "body filter6d_preset standard*"
                                    << "Error: Unable to reset filter6d of standard target ID 6";
    QTest::newRow("description refused")
            << int(Box::Ok) << "body desc standard*"
            << "Error: Unable to reset description of standard target ID 6";
}

void tst_MtAssignment::takesTargetFromStandardBody()
{
    QFETCH(int, answer);
    QFETCH(QString, refused);
    QFETCH(QString, line);
    ControllerState state = studio();
    bodies(state, "standard")[5].target = QStringLiteral("TR02");
    bodies(state, "measurementtool_reference")[1].description.clear();
    TestHost host(state);
    if (!refused.isEmpty())
        host.fault(QStringLiteral("set %1 refuse").arg(refused));
    openAt(host, toolsPage, [&](QWidget *shown) {
        Drive::clickCell(references(shown), 1, idColumn);
        pickTarget(shown, QStringLiteral("TR02"));
        host.clear();
        robot().expectBox(
                warning,
                QStringLiteral("This target is already calibrated as standard target ID 6.\n"
                               "Delete the standard target ID 6?"),
                Box::StandardButton(answer));
        Drive::click(shown, "pushButton_select");
        const QStringList written{
                "body filter6d_preset standard b06 preset6d_default",
                "body number_of_marker standard b06 0", "body desc standard b06 \"\"",
                "morvek2 body calibrate_from_targetlib measurementtool_reference b02 t22"};
        QCOMPARE(changes(host), answer == Box::Ok ? written : QStringList());
        const QStringList asked = host.queries();
        QVERIFY(asked.indexOf("standard number_of_bodies")
                < asked.indexOf("body targetlib_name standard b01"));
        // The search for a holder ends at the first match.
        QVERIFY(asked.contains("body targetlib_name standard b06"));
        QVERIFY(!asked.contains("body targetlib_name standard b07"));
    });
    QCOMPARE(host.log(), line.isEmpty() ? QStringList() : QStringList{line});
}

void tst_MtAssignment::unreadableHolderIsLogged_data()
{
    QTest::addColumn<QString>("query");
    QTest::addColumn<QString>("line");
    QTest::newRow("number of bodies") << "standard number_of_bodies"
                                      << "Error: Unable to get number of standard bodies";
    QTest::newRow("target of a body") << "body targetlib_name standard b01"
                                      << "Error: Unable to get targetlib name of body standard b01";
}

void tst_MtAssignment::unreadableHolderIsLogged()
{
    QFETCH(QString, query);
    QFETCH(QString, line);
    ControllerState state = studio();
    bodies(state, "measurementtool_reference")[1].description.clear();
    TestHost host(state);
    openAt(host, toolsPage, [&](QWidget *shown) {
        Drive::clickCell(references(shown), 1, idColumn);
        pickTarget(shown, QStringLiteral("TR02"));
        host.fault(QStringLiteral("get %1 always fail").arg(query));
        host.clear();
        Drive::click(shown, "pushButton_select");
        QCOMPARE(host.log(), QStringList(line));
        // A target without a known holder is assigned nevertheless.
        QCOMPARE(changes(host).size(), 1);
    });
}

void tst_MtAssignment::listsTargetsOfCategory()
{
    ControllerState state = studio();
    state.targets[20].tracked = true;
    TestHost host(state);
    openAt(host, toolsPage, [](QWidget *shown) {
        auto *category = Drive::find<QComboBox>(shown, "comboBox_filter");
        QCOMPARE(category->count(), 2);
        QCOMPARE(category->currentText(), foundTargets);
        QCOMPARE(targets(shown)->rowCount(), 0);
        Drive::choose(category, QStringLiteral("Tool Reference"));
        QCOMPARE(Drive::column(targets(shown), 1), (QStringList{"TR01", "TR02", "TR03", "TR04"}));
        QCOMPARE(Drive::column(targets(shown), 3), (QStringList{"yes", "", "yes", ""}));
    });
}

// Selections

void tst_MtAssignment::keepsSelectionsAcrossRefills()
{
    TestHost host;
    announceModules(host);
    BodyAdministrationDlg dialog(&host.io, &host.mainWindow, &host.versions);
    const auto rows = [](QWidget *shown) {
        return QPair<int, int>(tools(shown)->currentRow(), references(shown)->currentRow());
    };
    open(&dialog, [&](QWidget *window) {
        goTo(window, toolsPage);
        QWidget *shown = page(window, toolsPage);
        QCOMPARE(rows(shown), qMakePair(0, 0));
        Drive::clickCell(references(shown), 2, idColumn);
        Drive::clickCell(tools(shown), 1, idColumn);
        configurationChanged(host);
        QCOMPARE(rows(shown), qMakePair(1, 2));
        QTest::keyClick(window, Qt::Key_F8);
        goTo(window, toolsPage);
        QCOMPARE(rows(shown), qMakePair(1, 2));
    });
    open(&dialog, [&](QWidget *window) { QCOMPARE(rows(window), qMakePair(1, 2)); });
}

void tst_MtAssignment::keepsSelectionsWithinShrunkTables()
{
    TestHost host;
    openAt(host, toolsPage, [&host](QWidget *shown) {
        Drive::clickCell(references(shown), 2, idColumn);
        Drive::clickCell(tools(shown), 1, idColumn);
        host.edit([](ControllerState &state) {
            bodies(state, "measurementtool").resize(1);
            bodies(state, "measurementtool_reference").resize(2);
            bodies(state, "measurementtool")[0].reference = QStringLiteral("b01");
        });
        configurationChanged(host);
        QCOMPARE(tools(shown)->rowCount(), 1);
        QCOMPARE(tools(shown)->currentRow(), 0);
        QCOMPARE(references(shown)->currentRow(), 1);
    });
}

TRACKING_TEST_MAIN(tst_MtAssignment)
#include "tst_mtassignment.moc"
