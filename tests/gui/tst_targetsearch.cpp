#include "FaultEngine.h"
#include "administrationfixture.h"
#include "interruption.h"

#include <QComboBox>
#include <QProgressBar>
#include <QTimer>

namespace {

/** A page of the dialog and two of its targets. */
struct SearchPage {
    QByteArray form;
    QByteArray bodyTable;
    QString type; ///< type word of the bodies that can hold the targets
    QStringList targets;
    bool hasCategories = false;
    QList<QByteArray> searchControls; ///< disabled while a search runs
};

const QString noneFound = QStringLiteral("No targets could be identified in library");
const QString twoFound = QStringLiteral("2 targets could be identified in library");

QVector<SearchPage> searchPages()
{
    return {{"StandardAdministrationClass",
             "tableWidget_standard",
             QStringLiteral("standard"),
             {QStringLiteral("CR03"), QStringLiteral("PL02")},
             true,
             {"spinBox_standard_bodies", "pushButton_filter", "pushButton_customCalibration",
              "comboBox_filter"}},
            {"JoywandAdministrationClass",
             "tableWidget_joywand",
             QStringLiteral("joywand"),
             {QStringLiteral("JW01"), QStringLiteral("JW02")},
             false,
             {"spinBox_joywands", "pushButton_filter", "pushButton_calibration"}},
            {"FingertrackingAdministrationClass",
             "tableWidget_fingertracking",
             QStringLiteral("fingertracking"),
             {QStringLiteral("HN01"), QStringLiteral("HN02")},
             false,
             {"spinBox_hands", "pushButton_calibration"}},
            {"MtAdministrationClass",
             "tableWidget_ref",
             QStringLiteral("measurementtool_reference"),
             {QStringLiteral("TR01"), QStringLiteral("TR03")},
             true,
             {"spinBox_mtref", "comboBox_filter"}}};
}

/**
 * A state in which each page's targets are assigned, these targets are in the volume, and a search
 * takes four polls.
 */
ControllerState searchState(const QStringList &inVolume)
{
    ControllerState state = TestHost::scenario(QStringLiteral("studio"));
    state.search.durationTicks = 4;
    for (TargetState &target : state.targets)
        target.inVolume = inVolume.contains(target.shortName);
    const auto hold = [&state](const char *type, int index, const char *target) {
        BodyState &body = state.bodyTypes[QString::fromLatin1(type)].bodies[index];
        body.calibrated = true;
        body.active = true;
        body.markers = 5;
        body.target = QString::fromLatin1(target);
    };
    hold("joywand", 1, "JW02");
    hold("fingertracking", 1, "HN02");
    return state;
}

} // namespace

Q_DECLARE_METATYPE(SearchPage)

/** The search for library targets, which is the same on each page. */
class tst_TargetSearch : public AdministrationFixture {
    Q_OBJECT

private slots:
    void initTestCase_data();
    void startsWithTheExactCommands();
    void endsByItself();
    void endsWithBoxAndRefreshes_data();
    void endsWithBoxAndRefreshes();
    void isStopped();
    void namesUsedTargetsInTableOrder();
    void controlsRestDuringSearch();
    void doesNotStart_data();
    void doesNotStart();
    void startsWhenActivityReadsErr();
    void failedStartLeavesStopButton_data();
    void failedStartLeavesStopButton();
    void showsProgress_data();
    void showsProgress();
    void unreadableProgressKeepsBar();
    void unreadableStepAborts();
    void pollsOneAtATime();
    void goesOnBehindOtherPage();
    void goesOnWhileConfigurationIsLocked();
    void emptyLibraryFindsNothing();
    void keepsIntervals();

private:
    void run(TestHost &host, const std::function<void(QWidget *)> &drive);
    void runInWindow(TestHost &host, const std::function<void(QWidget *, QWidget *)> &drive);
    static SearchPage current();
    static bool poll(QWidget *shown) { return Drive::tick(shown, "timerDoMea_tl"); }
    static bool track(QWidget *shown) { return Drive::tick(shown, "timerCheckForTracked_tl"); }
    static int bar(QWidget *shown)
    {
        return Drive::find<QProgressBar>(shown, "progressBar")->value();
    }
    static QString result(QWidget *shown) { return label(shown, "label_targetlibrary"); }
    static void compareButtons(QWidget *shown, bool start, bool stop);
    static void compareControls(QWidget *shown, bool enabled);
    /** Checks that the heading above the found targets is not a target. */
    static void compareHeading(QWidget *shown);
};

void tst_TargetSearch::initTestCase_data()
{
    QTest::addColumn<SearchPage>("searchPage");
    for (const SearchPage &one : searchPages())
        QTest::newRow(qPrintable(one.type)) << one;
}

SearchPage tst_TargetSearch::current()
{
    QFETCH_GLOBAL(SearchPage, searchPage);
    return searchPage;
}

void tst_TargetSearch::runInWindow(TestHost &host,
                                   const std::function<void(QWidget *, QWidget *)> &drive)
{
    const SearchPage searchPage = current();
    BodyAdministrationDlg dialog(&host.io, &host.mainWindow, &host.versions);
    open(&dialog, [&](QWidget *window) {
        goTo(window, searchPage.form);
        QWidget *shown = page(window, searchPage.form);
        Drive::holdTimers(shown);
        Drive::clickCell(table(shown, searchPage.bodyTable), 0, 0);
        host.clear();
        drive(window, shown);
        // A search that still runs would keep the dialog open.
        host.edit([](ControllerState &state) { state.search.active = false; });
    });
}

void tst_TargetSearch::run(TestHost &host, const std::function<void(QWidget *)> &drive)
{
    runInWindow(host, [&drive](QWidget *, QWidget *shown) { drive(shown); });
}

void tst_TargetSearch::compareButtons(QWidget *shown, bool start, bool stop)
{
    QCOMPARE(isEnabled(shown, "pushButton_start"), start);
    QCOMPARE(isEnabled(shown, "pushButton_stop"), stop);
}

void tst_TargetSearch::compareControls(QWidget *shown, bool enabled)
{
    for (const QByteArray &control : current().searchControls)
        QVERIFY2(isEnabled(shown, control) == enabled, control);
}

void tst_TargetSearch::compareHeading(QWidget *shown)
{
    QTableWidget *targets = table(shown, "tableWidget_targetlibrary");
    QCOMPARE(Drive::column(targets, 1).mid(0, 3), QStringList{foundTargets} + current().targets);
    Drive::clickCell(targets, 0, 1);
    QVERIFY(!isEnabled(shown, "pushButton_select"));
    Drive::clickCell(targets, 1, 1);
    QVERIFY(isEnabled(shown, "pushButton_select"));
}

// Start, end, stop

void tst_TargetSearch::startsWithTheExactCommands()
{
    TestHost host(searchState(current().targets));
    run(host, [&host](QWidget *shown) {
        Drive::click(shown, "pushButton_start");
        QCOMPARE(host.lines(), (QStringList{QStringLiteral("cal available targetlib"),
                                            QStringLiteral("status active"),
                                            QStringLiteral("morvek2 cal targetlib start")}));
        QCOMPARE(host.log().first(), QStringLiteral("target library calibration started"));
        QVERIFY(host.state().search.active);
        QCOMPARE(bar(shown), 0);
        compareButtons(shown, false, true);
        QVERIFY(!track(shown));
        host.clear();
        QVERIFY(poll(shown));
        QCOMPARE(host.queries().mid(0, 2), (QStringList{QStringLiteral("status step_active"),
                                                        QStringLiteral("status progress")}));
        QCOMPARE(host.writes().filter(QStringLiteral("cal targetlib")), QStringList());
    });
}

void tst_TargetSearch::endsByItself()
{
    TestHost host(searchState(current().targets));
    run(host, [&](QWidget *shown) {
        QTableWidget *targets = table(shown, "tableWidget_targetlibrary");
        Drive::click(shown, "pushButton_start");
        const QStringList results{QStringLiteral("found targets: 0, already calibrated: 0"),
                                  QStringLiteral("found targets: 1, already calibrated: 1"),
                                  QStringLiteral("found targets: 1, already calibrated: 1")};
        for (int i = 0; i < results.size(); ++i) {
            QVERIFY(poll(shown));
            QCOMPARE(bar(shown), 25 * (i + 1));
            QCOMPARE(result(shown), results.at(i));
        }
        const QStringList names = Drive::column(targets, 1);
        QVERIFY(names.contains(current().targets.at(0)));
        QCOMPARE(names.contains(current().targets.at(1)), !current().hasCategories);
        host.clear();
        robot().expectBox(boxTitle, twoFound, Box::Ok, [&] {
            // The box with the result opens before the page is ready for the next search.
            QCOMPARE(bar(shown), 100);
            QCOMPARE(result(shown), QString());
            QVERIFY(!isEnabled(shown, "pushButton_start"));
            QVERIFY(!track(shown));
        });
        QVERIFY(poll(shown));
        QCOMPARE(host.log(), QStringList{QStringLiteral("target library calibration stopped")});
        QCOMPARE(host.writes(), QStringList());
        QCOMPARE(host.queries().first(), QStringLiteral("status step_active"));
        QVERIFY(!host.queries().contains(QStringLiteral("status progress")));
        compareButtons(shown, true, false);
        compareControls(shown, true);
        QVERIFY(!poll(shown));
        QVERIFY(track(shown));
        QCOMPARE(result(shown), QString());
        const QStringList found = Drive::column(targets, 1);
        for (const QString &target : current().targets)
            QVERIFY2(found.contains(target), qPrintable(target));
        if (!current().hasCategories)
            compareHeading(shown);
    });
}

void tst_TargetSearch::endsWithBoxAndRefreshes_data()
{
    QTest::addColumn<int>("targetsInVolume");
    QTest::addColumn<QString>("text");
    QTest::newRow("none") << 0 << noneFound;
    QTest::newRow("one") << 1 << "One target could be identified in library";
    QTest::newRow("two") << 2 << twoFound;
}

void tst_TargetSearch::endsWithBoxAndRefreshes()
{
    QFETCH(int, targetsInVolume);
    QFETCH(QString, text);
    ControllerState state = searchState(current().targets);
    state.search.durationTicks = 1;
    const QStringList wanted = current().targets.mid(0, targetsInVolume);
    for (TargetState &target : state.targets)
        target.inVolume = wanted.contains(target.shortName);
    TestHost host(state);
    run(host, [&](QWidget *shown) {
        Drive::click(shown, "pushButton_start");
        robot().expectBox(boxTitle, text, Box::Ok);
        QVERIFY(poll(shown));
        // Between searches the page shows what the cameras see.
        host.edit([](ControllerState &changed) {
            for (TargetState &target : changed.targets)
                target.tracked = false;
        });
        QVERIFY(track(shown));
        QTableWidget *targets = table(shown, "tableWidget_targetlibrary");
        if (current().hasCategories)
            QCOMPARE(targets->rowCount(), 0);
        else
            QVERIFY(!Drive::column(targets, 1).contains(foundTargets));
    });
}

void tst_TargetSearch::isStopped()
{
    TestHost host(searchState(current().targets));
    run(host, [&](QWidget *shown) {
        Drive::click(shown, "pushButton_start");
        QVERIFY(poll(shown));
        QVERIFY(poll(shown));
        host.clear();
        robot().expectBox(boxTitle, QStringLiteral("One target could be identified in library"),
                          Box::Ok, [&] {
                              compareButtons(shown, true, false);
                              QVERIFY(!track(shown));
                          });
        Drive::click(shown, "pushButton_stop");
        QCOMPARE(host.lines(), QStringList{QStringLiteral("morvek2 cal targetlib stop")});
        QCOMPARE(host.log(), QStringList{QStringLiteral("target library calibration cancelled")});
        QVERIFY(!host.state().search.active);
        QCOMPARE(bar(shown), 0);
        QCOMPARE(result(shown), QString());
        compareControls(shown, true);
        QVERIFY(!poll(shown));
        QVERIFY(track(shown));
    });
}

void tst_TargetSearch::namesUsedTargetsInTableOrder()
{
    TestHost host(searchState(current().targets));
    run(host, [&](QWidget *shown) {
        Drive::click(shown, "pushButton_start");
        for (int i = 0; i < 3; ++i)
            QVERIFY(poll(shown));
        robot().expectBox(boxTitle, twoFound, Box::Ok);
        QVERIFY(poll(shown));
        QVERIFY(track(shown));
        host.clear();
        Drive::click(shown, "pushButton_start");
        QStringList expected{QStringLiteral("target library calibration started")};
        for (const QString &target : current().targets)
            expected.append(target + QStringLiteral(" already calibrated"));
        QCOMPARE(host.log(), expected);
    });
}

void tst_TargetSearch::controlsRestDuringSearch()
{
    TestHost host(searchState(current().targets));
    run(host, [&](QWidget *shown) {
        QTableWidget *targets = table(shown, "tableWidget_targetlibrary");
        if (current().hasCategories) {
            auto *category = Drive::find<QComboBox>(shown, "comboBox_filter");
            Drive::choose(category, category->itemText(1));
        }
        Drive::clickCell(targets, 0, 1);
        QVERIFY(isEnabled(shown, "pushButton_select"));
        Drive::click(shown, "pushButton_start");
        compareControls(shown, false);
        QVERIFY(!isEnabled(shown, "pushButton_select"));
        QVERIFY(!isEnabled(shown, "pushButton_deselect"));
        if (current().hasCategories) {
            QCOMPARE(Drive::find<QComboBox>(shown, "comboBox_filter")->currentText(), foundTargets);
        }
        if (current().type.startsWith(QLatin1String("mea")))
            QVERIFY(isEnabled(shown, "spinBox_mt"));
        // Choosing a row during the search enables nothing.
        Drive::clickCell(table(shown, current().bodyTable), 1, 0);
        QVERIFY(!isEnabled(shown, "pushButton_select"));
        QVERIFY(!isEnabled(shown, "pushButton_deselect"));
        robot().expectBox(boxTitle, noneFound, Box::Ok);
        Drive::click(shown, "pushButton_stop");
        compareControls(shown, true);
    });
}

// Failures

void tst_TargetSearch::doesNotStart_data()
{
    QTest::addColumn<QString>("fault");
    QTest::addColumn<QStringList>("queries");
    QTest::addColumn<QString>("line");
    const QString failed = QStringLiteral("Error: Unable to start target library calibration");
    const QString unavailable = failed + QStringLiteral(". Calibration type is not available");
    const QString active = failed + QStringLiteral(". Calibration is already active.");
    const QStringList one{QStringLiteral("cal available targetlib")};
    const QStringList two = one + QStringList{QStringLiteral("status active")};
    QTest::newRow("not available")
            << "get cal available targetlib answer \"no\"" << one << unavailable;
    QTest::newRow("availability in capitals")
            << "get cal available targetlib answer \"Yes\"" << one << unavailable;
    QTest::newRow("availability unreadable")
            << "get cal available targetlib fail" << one << unavailable;
    QTest::newRow("activity unreadable") << "get status active fail" << two << failed;
    QTest::newRow("other step") << "get status active answer \"room\"" << two << active;
    QTest::newRow("none with blank") << "get status active answer \"none \"" << two << active;
    QTest::newRow("empty activity") << "get status active empty" << two << active;
}

void tst_TargetSearch::doesNotStart()
{
    QFETCH(QString, fault);
    QFETCH(QStringList, queries);
    QFETCH(QString, line);
    TestHost host(searchState(current().targets));
    run(host, [&](QWidget *shown) {
        host.fault(fault);
        Drive::click(shown, "pushButton_start");
        QCOMPARE(host.lines(), queries);
        QCOMPARE(host.log(), QStringList{line});
        compareButtons(shown, true, false);
        compareControls(shown, true);
        QVERIFY(!poll(shown));
        host.io.faults()->clear();
    });
}

void tst_TargetSearch::startsWhenActivityReadsErr()
{
    TestHost host(searchState(current().targets));
    run(host, [&](QWidget *shown) {
        host.fault(QStringLiteral("get status active answer \"err\""));
        Drive::click(shown, "pushButton_start");
        QVERIFY(host.state().search.active);
        compareButtons(shown, false, true);
        host.io.faults()->clear();
    });
}

void tst_TargetSearch::failedStartLeavesStopButton_data()
{
    QTest::addColumn<QString>("effect");
    QTest::newRow("trailing blank") << "answer \"morvek2 ok \"";
    QTest::newRow("refused") << "refuse";
    QTest::newRow("link failure") << "fail";
    QTest::newRow("empty answer") << "empty";
}

void tst_TargetSearch::failedStartLeavesStopButton()
{
    QFETCH(QString, effect);
    TestHost host(searchState(current().targets));
    run(host, [&](QWidget *shown) {
        host.fault(QStringLiteral("command morvek2 cal targetlib start ") + effect);
        Drive::click(shown, "pushButton_start");
        QCOMPARE(host.log(),
                 QStringList{QStringLiteral("Error: Unable to start target library calibration")});
        compareButtons(shown, true, true);
        compareControls(shown, false);
        QVERIFY(!poll(shown));
        QVERIFY(track(shown));
        host.io.faults()->clear();
        host.edit([](ControllerState &state) { state.search.active = false; });
        // The next start works.
        host.clear();
        Drive::click(shown, "pushButton_start");
        QCOMPARE(host.log().first(), QStringLiteral("target library calibration started"));
        QVERIFY(poll(shown));
    });
}

void tst_TargetSearch::showsProgress_data()
{
    QTest::addColumn<QString>("answer");
    QTest::addColumn<int>("value");
    QTest::addColumn<bool>("labelled");
    QTest::newRow("nothing yet") << "0.000" << 0 << false;
    QTest::newRow("below one") << "0.009" << 0 << false;
    QTest::newRow("one") << "0.010" << 1 << true;
    QTest::newRow("truncated") << "0.999" << 99 << true;
    QTest::newRow("complete") << "1.000" << 100 << false;
}

void tst_TargetSearch::showsProgress()
{
    QFETCH(QString, answer);
    QFETCH(int, value);
    QFETCH(bool, labelled);
    TestHost host(searchState(current().targets));
    run(host, [&](QWidget *shown) {
        host.fault(QStringLiteral("get status progress answer \"%1\"").arg(answer));
        Drive::click(shown, "pushButton_start");
        QVERIFY(poll(shown));
        QCOMPARE(bar(shown), value);
        QCOMPARE(result(shown),
                 labelled ? QStringLiteral("found targets: 0, already calibrated: 0") : QString());
    });
}

void tst_TargetSearch::unreadableProgressKeepsBar()
{
    TestHost host(searchState(current().targets));
    run(host, [&](QWidget *shown) {
        Drive::click(shown, "pushButton_start");
        QVERIFY(poll(shown));
        host.fault(QStringLiteral("get status progress fail"));
        host.clear();
        QVERIFY(poll(shown));
        QCOMPARE(bar(shown), 25);
        QCOMPARE(result(shown), QStringLiteral("found targets: 1, already calibrated: 1"));
        QVERIFY(!host.queries().filter(QStringLiteral("target_status_tracked")).isEmpty());
        QCOMPARE(host.log(),
                 QStringList("Error: Unable to get progress of target library calibration"));
        compareButtons(shown, false, true);
    });
}

void tst_TargetSearch::unreadableStepAborts()
{
    TestHost host(searchState(current().targets));
    run(host, [&](QWidget *shown) {
        Drive::click(shown, "pushButton_start");
        QVERIFY(poll(shown));
        host.fault(QStringLiteral("get status step_active fail"));
        host.clear();
        QVERIFY(poll(shown));
        QCOMPARE(host.lines(), QStringList{QStringLiteral("status step_active")});
        QCOMPARE(host.log(),
                 QStringList{QStringLiteral(
                         "Error during target library calibration. Calibration aborted")});
        compareButtons(shown, true, false);
        compareControls(shown, true);
        QVERIFY(!poll(shown));
        QVERIFY(track(shown));
    });
}

// Around a running search

void tst_TargetSearch::pollsOneAtATime()
{
    TestHost host(searchState(current().targets));
    run(host, [&](QWidget *shown) {
        Drive::click(shown, "pushButton_start");
        host.clear();
        // A host that runs its event loop lets the timer fire inside a poll.
        const Interruption interruption(host.io, Interruption::atFirst("status step_active"),
                                        [shown] { poll(shown); });
        QVERIFY(poll(shown));
        QCOMPARE(interruption.times(), 1);
        QCOMPARE(host.queries().count(QStringLiteral("status step_active")), 1);
        QCOMPARE(bar(shown), 25);
    });
}

void tst_TargetSearch::goesOnBehindOtherPage()
{
    TestHost host(searchState(current().targets));
    runInWindow(host, [&](QWidget *window, QWidget *shown) {
        Drive::click(shown, "pushButton_start");
        QVERIFY(poll(shown));
        QTest::keyClick(window, Qt::Key_F8);
        QVERIFY(!shown->isVisible());
        QVERIFY(poll(shown));
        QCOMPARE(bar(shown), 50);
        goTo(window, current().form);
        // A return to the page does not affect its search.
        compareButtons(shown, false, true);
        compareControls(shown, false);
        QCOMPARE(bar(shown), 50);
        QVERIFY(poll(shown));
        QTest::keyClick(window, Qt::Key_F8);
        robot().expectBox(boxTitle, twoFound, Box::Ok);
        QVERIFY(poll(shown));
        compareButtons(shown, true, false);
    });
}

void tst_TargetSearch::goesOnWhileConfigurationIsLocked()
{
    TestHost host(searchState(current().targets));
    runInWindow(host, [&](QWidget *window, QWidget *shown) {
        Drive::click(shown, "pushButton_start");
        QVERIFY(poll(shown));
        host.edit([](ControllerState &state) { state.configChangeable = false; });
        configurationChanged(host);
        QVERIFY(!isEnabled(window, "pushButton_filter"));
        compareButtons(shown, false, true);
        QVERIFY(poll(shown));
        QVERIFY(poll(shown));
        robot().expectBox(boxTitle, twoFound, Box::Ok);
        QVERIFY(poll(shown));
        compareButtons(shown, true, false);
        QVERIFY(!isEnabled(shown, "pushButton_select"));
        QVERIFY(!isEnabled(shown, current().searchControls.first()));
        QCOMPARE(changes(host), QStringList{QStringLiteral("morvek2 cal targetlib start")});
    });
}

void tst_TargetSearch::emptyLibraryFindsNothing()
{
    ControllerState state = searchState(current().targets);
    state.targets.clear();
    for (BodyTypeState &type : state.bodyTypes) {
        for (BodyState &body : type.bodies)
            body.target.clear();
    }
    TestHost host(state);
    run(host, [&](QWidget *shown) {
        Drive::click(shown, "pushButton_start");
        for (int i = 0; i < 3; ++i)
            QVERIFY(poll(shown));
        robot().expectBox(boxTitle, noneFound, Box::Ok);
        QVERIFY(poll(shown));
        QCOMPARE(host.queries().filter(QStringLiteral("targetlib")),
                 QStringList{QStringLiteral("cal available targetlib")});
    });
}

void tst_TargetSearch::keepsIntervals()
{
    TestHost host(searchState(current().targets));
    run(host, [&](QWidget *shown) {
        Drive::click(shown, "pushButton_start");
        QCOMPARE(Drive::find<QTimer>(shown, "timerDoMea_tl")->interval(), 600);
        robot().expectBox(boxTitle, noneFound, Box::Ok);
        Drive::click(shown, "pushButton_stop");
        QCOMPARE(Drive::find<QTimer>(shown, "timerCheckForTracked_tl")->interval(), 603);
    });
}

TRACKING_TEST_MAIN(tst_TargetSearch)
#include "tst_targetsearch.moc"
