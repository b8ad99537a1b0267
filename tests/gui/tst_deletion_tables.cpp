#include "deletionsweep.h"

#include <QComboBox>

/** A host that deletes its window inside any operation on bodies and targets. */
class tst_DeletionTables : public DeletionSweep {
    Q_OBJECT

private slots:
    void inTheTables_data();
    void inTheTables();
    void ofTargets_data();
    void ofTargets();
};

void tst_DeletionTables::inTheTables_data()
{
    QTest::addColumn<Deed>("deed");
    constexpr auto standard = "tableWidget_standard";
    QTest::newRow("row") << Deed{administration, cell(standard, 1, IdColumn)};
    QTest::newRow("row by key") << Deed{administration, [](QWidget *window, TestHost &) {
                                            bodies(window)->setFocus();
                                            UserInput::pressKey(bodies(window), Qt::Key_Down);
                                        }};
    QTest::newRow("active") << Deed{administration, mark(standard, 0, ActiveColumn)};
    QTest::newRow("reference") << Deed{administration, mark(standard, 0, ReferenceColumn)};
    QTest::newRow("name") << Deed{administration, [](QWidget *window, TestHost &) {
                                      const QPointer<QTableWidget> table = bodies(window);
                                      Drive::doubleClickCell(table, 0, NameColumn);
                                      QWidget *editor =
                                              table ? UserInput::itemEditor(table) : nullptr;
                                      if (!editor)
                                          return;
                                      UserInput::replaceText(editor, QStringLiteral("Hat"));
                                      UserInput::pressKey(editor, Qt::Key_Return);
                                  }};
    Deed deletion{administration, cell(standard, 0, DeleteColumn)};
    deletion.boxes = {
            {boxTitle, QStringLiteral("Delete assignment of sensor vendorone mini 'A7' and \n"
                                      "delete geometry of Standard body 01?\nGlasses round")}};
    QTest::newRow("delete") << deletion;
    deletion.act = press(standardPage, "pushButton_deselect");
    deletion.before = cell(standard, 0, IdColumn);
    QTest::newRow("deselect") << deletion;
    Deed reset{administration, cell(standard, 0, ResetColumn)};
    reset.boxes = {{boxTitle, QStringLiteral("Reset Standard body 01\nto Target-Library geometry?"
                                             "\nGlasses round")}};
    QTest::newRow("reset") << reset;
    QTest::newRow("move") << Deed{administration, press(standardPage, "pushButton_down")};
    Deed reference{administration, cell("tableWidget_ref", 0, 4), clickTab(toolsPage)};
    reference.boxes = {{boxTitle, QStringLiteral("Delete Measurement Tool reference body 01?\n"
                                                 "If yes, the assignment to the Measurement Tool "
                                                 "will be deleted.\nContinue?")}};
    QTest::newRow("delete a tool's reference") << onFourPages(reference);
    QTest::newRow("tool's row") << onFourPages(
            {administration, cell("tableWidget_mt", 0, 0), clickTab(toolsPage)});
    QTest::newRow("count of devices")
            << Deed{administration,
                    [](QWidget *window, TestHost &) {
                        Drive::typeNumber(Drive::find<QSpinBox>(window, "spinBox_joywands"),
                                          QStringLiteral("2"));
                    },
                    clickTab(joywandPage)};
}

void tst_DeletionTables::inTheTables()
{
    QFETCH(Deed, deed);
    sweep(deed);
}

void tst_DeletionTables::ofTargets_data()
{
    QTest::addColumn<Deed>("deed");
    Deed assign{administration, press(standardPage, "pushButton_select"),
                inTurn(category("Cross Target"), inTurn(cell("tableWidget_standard", 1, IdColumn),
                                                        [](QWidget *window, TestHost &) {
                                                            Drive::clickCell(targets(window), 1, 1);
                                                        }))};
    QTest::newRow("assignment") << assign;
    Deed start{administration, press(standardPage, "pushButton_start"), hold};
    start.isLeft = false;
    QTest::newRow("start of a search") << start;
    start.before = inTurn(category("Cross Target"), hold);
    QTest::newRow("start of a search from another category") << start;
    Deed poll{administration, tick("timerDoMea_tl"), searching()};
    poll.isLeft = false;
    QTest::newRow("poll of a search") << poll;
    Deed stop{administration, press(standardPage, "pushButton_stop"), searching()};
    stop.boxes = {{boxTitle, QStringLiteral("No targets could be identified in library")}};
    QTest::newRow("stop of a search") << stop;
    Deed end{administration, tick("timerDoMea_tl"), searching(1)};
    end.boxes = {{boxTitle, QStringLiteral("2 targets could be identified in library")}};
    QTest::newRow("end of a search") << end;
    const auto watchTracked = [](QWidget *window, TestHost &) {
        Drive::holdTimers(page(window));
        page(window)->findChild<QTimer *>("timerCheckForTracked_tl")->start(603);
    };
    QTest::newRow("tracked states")
            << Deed{administration, tick("timerCheckForTracked_tl"), watchTracked};
    QTest::newRow("tracked states of a category")
            << Deed{administration, tick("timerCheckForTracked_tl"),
                    inTurn(category("Cross Target"), watchTracked)};
}

void tst_DeletionTables::ofTargets()
{
    QFETCH(Deed, deed);
    sweep(deed);
}

TRACKING_TEST_MAIN(tst_DeletionTables)
#include "tst_deletion_tables.moc"
