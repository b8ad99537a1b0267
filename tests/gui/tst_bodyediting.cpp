#include "administrationfixture.h"

#include <QLineEdit>

/**
 * What editing the table of bodies sends to the controller, and what the table shows afterwards.
 */
class tst_BodyEditing : public AdministrationFixture {
    Q_OBJECT

private slots:
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
    void quickStepsAreOneCommand();
    void quickStepsAskOnce();
    void wheelChangesCountOnlyWithFocus();
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

// Activeness

void tst_BodyEditing::checkBoxSwitchesBodyOnce()
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

void tst_BodyEditing::clickBesideCheckBoxSendsNothing()
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

void tst_BodyEditing::spaceKeySwitchesBodyOnce()
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

void tst_BodyEditing::refusedActivenessShowsController()
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

void tst_BodyEditing::oldProtocolWritesNoActiveness()
{
    TestHost host(studio(QStringLiteral("1.10")));
    open(host, [&](QWidget *, QTableWidget *bodies) {
        QCOMPARE(bodies->item(1, ActiveColumn)->checkState(), Qt::Unchecked);
        toggle(bodies, 1, ActiveColumn);
        QCOMPARE(host.writes(), QStringList());
        QCOMPARE(host.log(), QStringList());
        QCOMPARE(bodies->item(1, ActiveColumn)->checkState(), Qt::Unchecked);
    });
}

// Names

void tst_BodyEditing::nameKeepsEveryAllowedCharacter()
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

void tst_BodyEditing::renamingReadsBodyAgain()
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

void tst_BodyEditing::typingWithoutDoubleClickWritesNothing()
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

void tst_BodyEditing::escapeWritesNothingAlsoLater()
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
        // A change that the program makes outside a fill does not count as the user's either.
        bodies->item(0, NameColumn)->setText(QStringLiteral("program"));
        QCOMPARE(host.writes(), QStringList{"body active standard b01 no"});
    });
}

void tst_BodyEditing::unchangedNameIsNotWritten()
{
    TestHost host;
    open(host, [&](QWidget *, QTableWidget *bodies) {
        Drive::typeIntoCell(bodies, 0, NameColumn, QStringLiteral("Cap"));
        QCOMPARE(host.writes(), QStringList());
    });
}

void tst_BodyEditing::refusedRenameShowsController()
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

void tst_BodyEditing::doubleClickElsewhereEditsNothing()
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

void tst_BodyEditing::typedCountAppliesOnce()
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

void tst_BodyEditing::quickStepsAreOneCommand()
{
    TestHost host;
    open(host, [&](QWidget *window, QTableWidget *bodies) {
        auto *count = Drive::find<QSpinBox>(window, "spinBox_standard_bodies");
        count->setFocus();
        host.clear();
        QTest::keyClick(count, Qt::Key_Down);
        QTest::keyClick(count, Qt::Key_Down);
        Drive::settle();
        QCOMPARE(host.writes(), QStringList{"standard number_of_bodies 6"});
        QCOMPARE(bodies->rowCount(), 6);
    });
}

void tst_BodyEditing::quickStepsAskOnce()
{
    TestHost host;
    host.edit([](ControllerState &state) { state.trackingReference = "standard b08"; });
    open(host, [&](QWidget *window, QTableWidget *bodies) {
        auto *count = Drive::find<QSpinBox>(window, "spinBox_standard_bodies");
        count->setFocus();
        robot().expectBox(boxTitle,
                          QStringLiteral("Decreasing the number of standard bodies will disable "
                                         "the reference!\n\nContinue?"),
                          QMessageBox::Yes);
        host.clear();
        QTest::keyClick(count, Qt::Key_Down);
        QTest::keyClick(count, Qt::Key_Down);
        Drive::settle();
        QCOMPARE(host.writes(), QStringList{"standard number_of_bodies 6"});
        QCOMPARE(bodies->rowCount(), 6);
        QCOMPARE(count->value(), 6);
    });
}

void tst_BodyEditing::wheelChangesCountOnlyWithFocus()
{
    TestHost host;
    open(host, [&](QWidget *window, QTableWidget *bodies) {
        auto *count = Drive::find<QSpinBox>(window, "spinBox_standard_bodies");
        const auto turnWheelDown = [count] {
            const QPointF point = count->rect().center();
            QWheelEvent event(point, count->mapToGlobal(point.toPoint()), QPoint(), QPoint(0, -120),
                              Qt::NoButton, Qt::NoModifier, Qt::NoScrollPhase, false);
            QCoreApplication::sendEvent(count, &event);
            Drive::settle();
        };
        bodies->setFocus();
        host.clear();
        turnWheelDown();
        QCOMPARE(host.writes(), QStringList());
        QCOMPARE(count->value(), 8);
        count->setFocus();
        turnWheelDown();
        QCOMPARE(host.writes(), QStringList{"standard number_of_bodies 7"});
    });
}

void tst_BodyEditing::arrowKeysChangeCount()
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

void tst_BodyEditing::enterInAFieldPressesNoButton()
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

void tst_BodyEditing::droppingLastReferenceAsks()
{
    TestHost host(studio([](ControllerState &state) {
        state.bodyTypes["standard"].bodies.resize(4);
        state.trackingReference = QStringLiteral("standard b04");
    }));
    open(host, [&](QWidget *window, QTableWidget *bodies) {
        auto *count = Drive::find<QSpinBox>(window, "spinBox_standard_bodies");
        robot().expectBox(boxTitle, named(host, 3, countQuestion), QMessageBox::No);
        Drive::typeNumber(count, QStringLiteral("2"));
        Drive::settle();
        QCOMPARE(host.writes(), QStringList());
        QCOMPARE(count->value(), 4);
        QCOMPARE(bodies->rowCount(), 4);
        robot().expectBox(boxTitle, named(host, 3, countQuestion), QMessageBox::Yes);
        Drive::typeNumber(count, QStringLiteral("2"));
        Drive::settle();
        QCOMPARE(host.writes(), QStringList{"standard number_of_bodies 2"});
        QCOMPARE(bodies->rowCount(), 2);
    });
    QCOMPARE(host.state().trackingReference, QString());
}

void tst_BodyEditing::droppingOtherReferenceDoesNotAsk()
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

void tst_BodyEditing::refusedCountShowsController()
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

void tst_BodyEditing::clampedCountShowsController()
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

void tst_BodyEditing::dialogDeletedInCountQuestion()
{
    TestHost host(studio([](ControllerState &state) {
        state.trackingReference = QStringLiteral("standard b08");
    }));
    openDeletable(host, [&](QWidget *window, QTableWidget *) {
        robot().expectBox(boxTitle, countQuestion, QMessageBox::Yes, deletion());
        Drive::typeNumber(Drive::find<QSpinBox>(window, "spinBox_standard_bodies"),
                          QStringLiteral("2"));
        Drive::settle();
    });
    QCOMPARE(host.writes(), QStringList());
}

// The reference

void tst_BodyEditing::referenceMovesToAnotherBody()
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

void tst_BodyEditing::referenceIsCleared()
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

void tst_BodyEditing::failedReferenceShowsController_data()
{
    QTest::addColumn<QString>("fault");
    QTest::addColumn<int>("row");
    QTest::addColumn<QString>("log");
    QTest::newRow("set") << "set tracking reference standard b01 refuse" << 0
                         << "Error: Unable to set body standard b01 as reference body";
    QTest::newRow("clear") << "set tracking reference none refuse" << 2
                           << "Error: Unable to de-activate the reference body";
}

void tst_BodyEditing::failedReferenceShowsController()
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

void tst_BodyEditing::inactiveBodyCannotBeReference()
{
    TestHost host(studio(
            [](ControllerState &state) { state.bodyTypes["standard"].bodies[0].active = false; }));
    open(host, [&](QWidget *, QTableWidget *bodies) {
        robot().expectBox(warning, named(host, 0, inactiveWarning), QMessageBox::Ok);
        toggle(bodies, 0, ReferenceColumn);
        QCOMPARE(host.writes(), QStringList());
        QCOMPARE(bodies->item(0, ReferenceColumn)->checkState(), Qt::Unchecked);
    });
}

void tst_BodyEditing::inactiveBodyBoxSurvivesDeletion()
{
    TestHost host(studio(
            [](ControllerState &state) { state.bodyTypes["standard"].bodies[0].active = false; }));
    openDeletable(host, [&](QWidget *, QTableWidget *bodies) {
        robot().expectBox(warning, named(host, 0, inactiveWarning), QMessageBox::Ok, deletion());
        toggle(bodies, 0, ReferenceColumn);
    });
    QCOMPARE(host.writes(), QStringList());
}

void tst_BodyEditing::oldProtocolWritesNoReference()
{
    TestHost host(studio(QStringLiteral("1.23")));
    open(host, [&](QWidget *, QTableWidget *bodies) {
        toggle(bodies, 0, ReferenceColumn);
        QCOMPARE(host.writes(), QStringList());
        QCOMPARE(host.log(), QStringList());
        QCOMPARE(bodies->item(0, ReferenceColumn)->checkState(), Qt::Unchecked);
    });
}

// Filter and lock

void tst_BodyEditing::filterCellOpensFilterDialog()
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

void tst_BodyEditing::dialogDeletedInFilterDialog()
{
    TestHost host;
    openDeletable(host, [&](QWidget *, QTableWidget *bodies) {
        robot().expectDialog(QStringLiteral("FilterDialog"),
                             [this](QWidget *) { delete m_dialog; });
        press(bodies, 2, FilterColumn);
    });
    QCOMPARE(host.writes(), QStringList());
}

void tst_BodyEditing::deadLinkKeepsWhatWasRead()
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

void tst_BodyEditing::lockedConfigurationEditsNothing()
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

TRACKING_TEST_MAIN(tst_BodyEditing)
#include "tst_bodyediting.moc"
