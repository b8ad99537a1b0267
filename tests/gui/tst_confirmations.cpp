#include "administrationfixture.h"
#include "interruption.h"

#include <QComboBox>
#include <QLineEdit>
#include <QSignalSpy>

namespace {

const QString changedLine =
        QStringLiteral("Error: The bodies have changed meanwhile. Nothing was sent.");
constexpr int deleteColumn = 8;
constexpr int resetColumn = 9;

/** A question of the body administration and the actions that lead to it. */
struct Question {
    const char *form;
    std::function<void(QWidget *page)> ask;
    QString title;
    QString text;
    QMessageBox::StandardButton accept = QMessageBox::Yes;
};

using Change = std::function<void(ControllerState &)>;

std::function<void(QWidget *)> clicking(const char *name, int row, int column)
{
    return [=](QWidget *page) {
        Drive::clickCell(Drive::find<QTableWidget>(page, name), row, column);
    };
}

std::function<void(QWidget *)> toggling(const char *name, int row, int column)
{
    return [=](QWidget *page) {
        Drive::toggleCell(Drive::find<QTableWidget>(page, name), row, column);
    };
}

/** Presses select for a body and a target of the page. */
std::function<void(QWidget *)> assigning(const char *name, int row, const QString &category,
                                         int target)
{
    return [=](QWidget *page) {
        Drive::clickCell(Drive::find<QTableWidget>(page, name), row, 0);
        Drive::choose(Drive::find<QComboBox>(page, "comboBox_filter"), category);
        Drive::clickCell(Drive::find<QTableWidget>(page, "tableWidget_targetlibrary"), target, 1);
        Drive::click(page, "pushButton_select");
        Drive::settle();
    };
}

} // namespace

Q_DECLARE_METATYPE(Question)
Q_DECLARE_METATYPE(Change)

/**
 * Only the action that the operator confirmed is carried out, and typed text applies only to its
 * own body.
 */
class tst_Confirmations : public AdministrationFixture {
    Q_OBJECT

private slots:
    void anotherConfigurationVoidsTheAnswer_data();
    void anotherConfigurationVoidsTheAnswer();
    void aLockVoidsTheAnswer_data();
    void aLockVoidsTheAnswer();
    void anotherClientsChangeVoidsTheAnswer_data();
    void anotherClientsChangeVoidsTheAnswer();
    void unchangedAnswerCounts_data();
    void unchangedAnswerCounts();
    void lockDropsWhatIsTyped_data();
    void lockDropsWhatIsTyped();
    void anotherConfigurationDropsTheOpenEditor();
    void clicksBehindASlowQueryOpenOneWindow_data();
    void clicksBehindASlowQueryOpenOneWindow();
    void clickAfterAKeyAnnouncesTheBody();
    void leavingThePageTakesOverAName_data() { addWaysToLeave(); }
    void leavingThePageTakesOverAName();
    void leavingThePageTakesOverACount_data() { addWaysToLeave(); }
    void leavingThePageTakesOverACount();
    void escapeDiscardsAName();
    void escapeDiscardsACount();

private:
    static void addQuestions();
    static void addWaysToLeave();
    static void leave(QWidget *window, QWidget *editor, const QString &way);
    static void activateOther(QWidget *window);
    void ask(TestHost &host, const Question &question, const std::function<void()> &meanwhile);
};

void tst_Confirmations::addQuestions()
{
    QTest::addColumn<Question>("question");
    const auto standard = "tableWidget_standard";
    const auto references = "tableWidget_ref";
    QTest::newRow("delete") << Question{standardPage, clicking(standard, 1, deleteColumn), boxTitle,
                                        "Delete geometry of Standard body 02?\nGlasses round"};
    QTest::newRow("deselect") << Question{standardPage,
                                          [](QWidget *page) {
                                              QTableWidget *bodies =
                                                      table(page, "tableWidget_standard");
                                              Drive::clickCell(bodies, 3, 0);
                                              Drive::click(page, "pushButton_deselect");
                                              Drive::settle();
                                          },
                                          boxTitle,
                                          "Delete assignment of sensor vendorone mini 'A7' and \n"
                                          "delete geometry of Standard body 04?\nCamera rig"};
    QTest::newRow("deactivate the reference")
            << Question{standardPage, toggling(standard, 2, 1), boxTitle,
                        "After deactivating the reference target,\n"
                        "all targets will not be tracked.\nContinue?"};
    QTest::newRow("reset to library")
            << Question{standardPage, clicking(standard, 1, resetColumn), boxTitle,
                        "Reset Standard body 02\nto Target-Library geometry?\nGlasses round"};
    QTest::newRow("drop the reference") << Question{
            standardPage,
            [](QWidget *page) {
                Drive::typeNumber(Drive::find<QSpinBox>(page, "spinBox_standard_bodies"),
                                  QStringLiteral("2"));
            },
            boxTitle,
            "Decreasing the number of standard bodies will disable the "
            "reference!\n\nContinue?\nRoom frame"};
    QTest::newRow("overwrite") << Question{
            standardPage, assigning(standard, 0, QStringLiteral("Cross Target"), 1), warning,
            "Overwrite body calibration data of Cap?", Box::Ok};
    QTest::newRow("take from a tool reference") << Question{
            standardPage, assigning(standard, 7, QStringLiteral("Cross Target"), 4), warning,
            "This target is already calibrated as Measurement Tool Reference MR3.\n"
            "Delete the Measurement Tool Reference MR3?",
            Box::Ok};
    QTest::newRow("delete a tool reference")
            << Question{toolsPage, clicking(references, 0, 4), boxTitle,
                        "Delete Measurement Tool reference body 01?\nIf yes, the assignment to the "
                        "Measurement Tool will be deleted.\nContinue?"};
    QTest::newRow("deactivate a tool reference")
            << Question{toolsPage, toggling(references, 0, 1), boxTitle,
                        "After deactivating the reference,\nthe corresponding Measurement Tool "
                        "will not be tracked.\nContinue?"};
}

void tst_Confirmations::ask(TestHost &host, const Question &question,
                            const std::function<void()> &meanwhile)
{
    openAt(host, question.form, [&](QWidget *page) {
        if (question.text.startsWith(QLatin1String("Decreasing"))) {
            host.edit([](ControllerState &state) { state.bodyTypes["standard"].bodies.resize(3); });
            configurationChanged(host);
        }
        host.clear();
        robot().expectBox(question.title, question.text, question.accept, meanwhile);
        question.ask(page);
        robot().verify();
        Drive::settle();
    });
}

void tst_Confirmations::anotherConfigurationVoidsTheAnswer_data()
{
    addQuestions();
}

void tst_Confirmations::anotherConfigurationVoidsTheAnswer()
{
    QFETCH(Question, question);
    TestHost host;
    // Its bodies read the same, so that only the message shows that the configuration is another
    // one.
    ask(host, question, [&] { configurationChanged(host); });
    QCOMPARE(changes(host), QStringList());
    QCOMPARE(host.log(), QStringList(changedLine));
}

void tst_Confirmations::aLockVoidsTheAnswer_data()
{
    addQuestions();
}

void tst_Confirmations::aLockVoidsTheAnswer()
{
    QFETCH(Question, question);
    TestHost host;
    ask(host, question, [&] {
        host.edit([](ControllerState &state) { state.configChangeable = false; });
        configurationChanged(host);
    });
    QCOMPARE(changes(host), QStringList());
    QCOMPARE(host.log(), QStringList(changedLine));
}

void tst_Confirmations::anotherClientsChangeVoidsTheAnswer_data()
{
    QTest::addColumn<Question>("question");
    QTest::addColumn<Change>("change");
    const auto body = [](int index, const std::function<void(BodyState &)> &change) {
        return Change(
                [=](ControllerState &state) { change(state.bodyTypes["standard"].bodies[index]); });
    };
    const Question deletion{standardPage, clicking("tableWidget_standard", 1, deleteColumn),
                            boxTitle, "Delete geometry of Standard body 02?\nGlasses round"};
    QTest::newRow("name") << deletion
                          << body(1, [](BodyState &b) { b.description = QStringLiteral("Mine"); });
    QTest::newRow("target") << deletion << body(1, [](BodyState &b) { b.target.clear(); });
    QTest::newRow("sensor") << deletion << body(1, [](BodyState &b) {
        b.sensor = QStringLiteral("vendortwo core 'C3'");
    });
    QTest::newRow("reference") << deletion << Change([](ControllerState &state) {
        state.trackingReference = QStringLiteral("standard b02");
    });
    QTest::newRow("number") << deletion << Change([](ControllerState &state) {
        state.bodyTypes["standard"].bodies.resize(5);
    });
    const Question reset{standardPage, clicking("tableWidget_standard", 3, resetColumn), boxTitle,
                         "Reset Standard body 04?\nHand eye calibration will be deleted!\n"
                         "Camera rig"};
    QTest::newRow("sensor of a reset") << reset << body(3, [](BodyState &b) { b.sensor.clear(); });
    const auto references = "tableWidget_ref";
    const Question toolDeletion{toolsPage, clicking(references, 0, 4), boxTitle,
                                "Delete Measurement Tool reference body 01?\nIf yes, the "
                                "assignment to the Measurement Tool will be deleted.\nContinue?"};
    const Question toolActivity{toolsPage, toggling(references, 0, 1), boxTitle,
                                "After deactivating the reference,\nthe corresponding Measurement "
                                "Tool will not be tracked.\nContinue?"};
    const auto tool = [](int index, const char *reference) {
        return Change([=](ControllerState &state) {
            state.bodyTypes["measurementtool"].bodies[index].reference =
                    QString::fromLatin1(reference);
        });
    };
    QTest::newRow("one tool more, delete") << toolDeletion << tool(1, "b01");
    QTest::newRow("no tool, delete") << toolDeletion << tool(0, "");
    QTest::newRow("one tool more, deactivate") << toolActivity << tool(1, "b01");
    QTest::newRow("no tool, deactivate") << toolActivity << tool(0, "");
}

void tst_Confirmations::anotherClientsChangeVoidsTheAnswer()
{
    QFETCH(Question, question);
    QFETCH(Change, change);
    TestHost host;
    const auto refresh = [&] {
        host.edit(change);
        host.io.send_message("BodyAdministrationModule", "Any", 1, "reopen");
        Drive::settle();
    };
    BodyAdministrationDlg dialog(&host.io, &host.mainWindow, &host.versions);
    open(&dialog, [&](QWidget *window) {
        goTo(window, question.form);
        host.clear();
        robot().expectBox(question.title, question.text, question.accept, refresh);
        question.ask(page(window, question.form));
        Drive::settle();
    });
    QCOMPARE(changes(host), QStringList());
    QCOMPARE(host.log(), QStringList(changedLine));
}

void tst_Confirmations::unchangedAnswerCounts_data()
{
    addQuestions();
}

void tst_Confirmations::unchangedAnswerCounts()
{
    QFETCH(Question, question);
    TestHost host;
    ask(host, question, {});
    QVERIFY(!changes(host).isEmpty());
    QCOMPARE(host.log(), QStringList());
}

void tst_Confirmations::lockDropsWhatIsTyped_data()
{
    QTest::addColumn<bool>("isName");
    QTest::newRow("name") << true;
    QTest::newRow("count") << false;
}

void tst_Confirmations::lockDropsWhatIsTyped()
{
    QFETCH(bool, isName);
    TestHost host;
    openAt(host, standardPage, [&](QWidget *page) {
        QTableWidget *bodies = table(page, "tableWidget_standard");
        auto *count = Drive::find<QSpinBox>(page, "spinBox_standard_bodies");
        if (isName) {
            Drive::doubleClickCell(bodies, 0, 3);
            QTest::keyClicks(bodies->viewport()->findChild<QLineEdit *>(), QStringLiteral("Half"));
        } else {
            count->setFocus();
            count->selectAll();
            QTest::keyClicks(count, QStringLiteral("2"));
        }
        host.edit([](ControllerState &state) { state.configChangeable = false; });
        host.clear();
        configurationChanged(host);
        QVERIFY(!bodies->viewport()->findChild<QLineEdit *>()
                || bodies->viewport()->findChild<QLineEdit *>()->isHidden());
        QCOMPARE(Drive::cell(bodies, 0, 3), QStringLiteral("Cap"));
        QCOMPARE(count->text(), QStringLiteral("8"));
    });
    QCOMPARE(changes(host), QStringList());
}

void tst_Confirmations::anotherConfigurationDropsTheOpenEditor()
{
    TestHost host;
    openAt(host, standardPage, [&](QWidget *page) {
        QTableWidget *bodies = table(page, "tableWidget_standard");
        Drive::doubleClickCell(bodies, 0, 3);
        QTest::keyClicks(bodies->viewport()->findChild<QLineEdit *>(), QStringLiteral("Half"));
        host.clear();
        configurationChanged(host);
        QCOMPARE(Drive::cell(bodies, 0, 3), QStringLiteral("Cap"));
    });
    QCOMPARE(changes(host), QStringList());
}

// Gestures

void tst_Confirmations::clicksBehindASlowQueryOpenOneWindow_data()
{
    QTest::addColumn<QByteArray>("button");
    QTest::addColumn<QByteArray>("query");
    QTest::newRow("page's filter")
            << QByteArray("standard") << QByteArray("body filter6d_preset standard b01");
    QTest::newRow("dialog's filter")
            << QByteArray("dialog") << QByteArray("body filter6d_preset standard b01");
    QTest::newRow("filter cell") << QByteArray("cell")
                                 << QByteArray("body filter6d_preset standard b01");
    QTest::newRow("deselect") << QByteArray("deselect")
                              << QByteArray("body targetlib_name standard b04");
}

void tst_Confirmations::clicksBehindASlowQueryOpenOneWindow()
{
    QFETCH(QByteArray, button);
    QFETCH(QByteArray, query);
    TestHost host;
    BodyAdministrationDlg dialog(&host.io, &host.mainWindow, &host.versions);
    open(&dialog, [&](QWidget *window) {
        QWidget *standard = page(window, standardPage);
        QTableWidget *bodies = table(window, "tableWidget_standard");
        Drive::clickCell(bodies, button == "deselect" ? 3 : 0, 0);
        const auto press = [&] {
            if (button == "cell")
                Drive::clickCell(bodies, 0, 7);
            else if (button == "deselect")
                QTest::mouseClick(Drive::find<QWidget>(standard, "pushButton_deselect"),
                                  Qt::LeftButton);
            else
                QTest::mouseClick(Drive::find<QWidget>(button == "dialog" ? window : standard,
                                                       "pushButton_filter"),
                                  Qt::LeftButton);
            Drive::settle();
        };
        const Interruption second(host.io, Interruption::atFirst(query), press);
        if (button == "deselect")
            robot().expectBox(boxTitle,
                              QStringLiteral("Delete assignment of sensor vendorone mini 'A7' and "
                                             "\ndelete geometry of Standard body 04?\nCamera rig"),
                              Box::No);
        else
            robot().expectDialog(QStringLiteral("FilterDialog"), [](QWidget *) {});
        press();
        QCOMPARE(second.times(), 1);
    });
}

void tst_Confirmations::clickAfterAKeyAnnouncesTheBody()
{
    TestHost host;
    BodyAdministrationDlg dialog(&host.io, &host.mainWindow, &host.versions);
    open(&dialog, [&](QWidget *window) {
        QTableWidget *bodies = table(window, "tableWidget_standard");
        Drive::clickCell(bodies, 0, 0);
        QTest::keyClick(bodies, Qt::Key_Down);
        QCOMPARE(bodies->currentRow(), 1);
        QSignalSpy announced(qobject_cast<BodyTypeAdministrationTab *>(page(window, standardPage)),
                             &BodyTypeAdministrationTab::selection_changed);
        Drive::clickCell(bodies, 1, 0);
        QCOMPARE(announced.count(), 1);
        QCOMPARE(announced.first().at(1).toInt(), 1);
    });
}

// What is typed when the page is left

void tst_Confirmations::leave(QWidget *window, QWidget *editor, const QString &way)
{
    if (way == QLatin1String("F8"))
        QTest::keyClick(editor, Qt::Key_F8);
    else if (way == QLatin1String("tab"))
        goTo(window, joywandPage);
    else if (way == QLatin1String("Ctrl+Tab"))
        QTest::keyClick(pages(window), Qt::Key_Tab, Qt::ControlModifier);
    else if (way == QLatin1String("Ctrl+Shift+Tab"))
        QTest::keyClick(pages(window), Qt::Key_Backtab, Qt::ControlModifier | Qt::ShiftModifier);
    else if (way == QLatin1String("Exit"))
        Drive::click(window, "pushButton_exit");
    else
        activateOther(window);
    Drive::settle();
    const bool isLeft = way != QLatin1String("Exit") && way != QLatin1String("another window");
    const int entered = way == QLatin1String("Ctrl+Shift+Tab") ? pages(window)->count() - 1 : 1;
    QCOMPARE(pages(window)->currentIndex(), isLeft ? entered : 0);
    QCOMPARE(window->isVisible(), way != QLatin1String("Exit"));
}

void tst_Confirmations::activateOther(QWidget *window)
{
    QWidget other;
    other.show();
    QApplication::setActiveWindow(&other);
    Drive::settle();
    QApplication::setActiveWindow(window);
}

void tst_Confirmations::addWaysToLeave()
{
    QTest::addColumn<QString>("way");
    for (const char *way : {"F8", "tab", "Ctrl+Tab", "Ctrl+Shift+Tab", "Exit", "another window"})
        QTest::newRow(way) << way;
}

void tst_Confirmations::leavingThePageTakesOverAName()
{
    QFETCH(QString, way);
    TestHost host;
    BodyAdministrationDlg dialog(&host.io, &host.mainWindow, &host.versions);
    open(&dialog, [&](QWidget *window) {
        QTableWidget *bodies = table(window, "tableWidget_standard");
        QApplication::setActiveWindow(window);
        Drive::doubleClickCell(bodies, 0, 3);
        auto *editor = bodies->viewport()->findChild<QLineEdit *>();
        editor->selectAll();
        QTest::keyClicks(editor, QStringLiteral("Hat"));
        host.clear();
        leave(window, editor, way);
    });
    Drive::settle();
    QCOMPARE(changes(host), QStringList{QStringLiteral("body desc standard b01 \"Hat\"")});
    QCOMPARE(host.state().bodyTypes["standard"].bodies.at(0).description, QStringLiteral("Hat"));
}

void tst_Confirmations::leavingThePageTakesOverACount()
{
    QFETCH(QString, way);
    TestHost host;
    BodyAdministrationDlg dialog(&host.io, &host.mainWindow, &host.versions);
    open(&dialog, [&](QWidget *window) {
        auto *count = Drive::find<QSpinBox>(window, "spinBox_standard_bodies");
        QApplication::setActiveWindow(window);
        count->setFocus();
        count->selectAll();
        QTest::keyClicks(count, QStringLiteral("9"));
        host.clear();
        leave(window, count, way);
    });
    Drive::settle();
    QCOMPARE(changes(host), QStringList{QStringLiteral("standard number_of_bodies 9")});
}

void tst_Confirmations::escapeDiscardsAName()
{
    TestHost host;
    openAt(host, standardPage, [&](QWidget *page) {
        QTableWidget *bodies = table(page, "tableWidget_standard");
        Drive::doubleClickCell(bodies, 0, 3);
        auto *editor = bodies->viewport()->findChild<QLineEdit *>();
        QTest::keyClicks(editor, QStringLiteral("Hat"));
        QTest::keyClick(editor, Qt::Key_Escape);
        Drive::settle();
        QVERIFY(page->isVisible());
        QCOMPARE(Drive::cell(bodies, 0, 3), QStringLiteral("Cap"));
    });
    QCOMPARE(changes(host), QStringList());
}

void tst_Confirmations::escapeDiscardsACount()
{
    TestHost host;
    openAt(host, standardPage, [&](QWidget *page) {
        auto *count = Drive::find<QSpinBox>(page, "spinBox_standard_bodies");
        count->setFocus();
        count->selectAll();
        QTest::keyClicks(count, QStringLiteral("2"));
        QTest::keyClick(count, Qt::Key_Escape);
        Drive::settle();
        QVERIFY(page->isVisible());
        QCOMPARE(count->text(), QStringLiteral("8"));
        QTest::keyClick(count, Qt::Key_Escape);
        QVERIFY(!page->isVisible());
    });
    QCOMPARE(changes(host), QStringList());
}

TRACKING_TEST_MAIN(tst_Confirmations)
#include "tst_confirmations.moc"
