#include "FaultEngine.h"
#include "TrackingDlg.h"
#include "administrationfixture.h"
#include "bodysettingsdlg.h"
#include "filterdialog.h"
#include "fixedangledlg.h"
#include "linkobserver.h"
#include "messageline.h"
#include "waiting.h"

#include <QAccessible>
#include <QComboBox>
#include <QDoubleSpinBox>
#include <QSizeGrip>

/** The text of the line at the bottom of each dialog, and when it is shown. */
class tst_MessageLine : public AdministrationFixture {
    Q_OBJECT

private slots:
    void isHiddenWhileThereIsNothingToSay_data();
    void isHiddenWhileThereIsNothingToSay();
    void repeatsWhatFailedOnOpening_data();
    void repeatsWhatFailedOnOpening();
    void repeatsARefusedRename();
    void vanishesWithTheNextActionThatSucceeds();
    void staysWhenOneStepOfAnActionFailed();
    void isNotClearedByARefresh();
    void keepsTheLastTenInItsToolTip();
    void isAnAlertForScreenReaders();
    void saysWhyTheDialogStaysOpen_data();
    void saysWhyTheDialogStaysOpen();
    void saysThatTheConfigurationIsLocked_data();
    void saysThatTheConfigurationIsLocked();
    void forgetsWhenTheDialogCloses();
    void saysNothingOfWhatFailedBehindAClosedDialog();
    void showsMarkupLetterByLetter();
    void movesNoButton();
    void aLinkOutlivesItsObserver();
    void aDialogMayGoWhileItsLinkAsks();

private:
    using Open = std::function<void(TestHost &, const std::function<void(QWidget *)> &)>;
    static MessageLine *line(QWidget *window)
    {
        return Drive::find<MessageLine>(window, "messageLine");
    }
    void openDialog(const QString &kind, TestHost &host,
                    const std::function<void(QWidget *)> &drive);
};

void tst_MessageLine::openDialog(const QString &kind, TestHost &host,
                                 const std::function<void(QWidget *)> &drive)
{
    QWidget *const parent = &host.mainWindow;
    robot().expectDialog(kind, drive);
    if (kind == QLatin1String("BodyAdministrationDlg"))
        BodyAdministrationDlg(&host.io, parent, &host.versions).update_and_exec();
    else if (kind == QLatin1String("FilterDialog"))
        FilterDialog(&host.io, parent, &host.versions).update_and_exec(0, 0);
    else if (kind == QLatin1String("TrackingDlg"))
        TrackingDlg(&host.io, parent, &host.versions, QStringLiteral("v3.0.6")).update_and_exec();
    else if (kind == QLatin1String("FixedAngleDlg"))
        FixedAngleDlg(&host.io, parent, &host.versions).update_and_exec();
    else if (kind == QLatin1String("BodySettingsDlg"))
        BodySettingsDlg(&host.io, parent, &host.versions, QString()).update_and_exec();
    robot().verify();
}

void tst_MessageLine::isHiddenWhileThereIsNothingToSay_data()
{
    QTest::addColumn<QString>("dialog");
    for (const char *dialog : {"BodyAdministrationDlg", "FilterDialog", "TrackingDlg",
                               "FixedAngleDlg", "BodySettingsDlg"})
        QTest::newRow(dialog) << QString::fromLatin1(dialog);
}

void tst_MessageLine::isHiddenWhileThereIsNothingToSay()
{
    QFETCH(QString, dialog);
    TestHost host;
    openDialog(dialog, host, [](QWidget *window) {
        QVERIFY(!line(window)->isVisible());
        QCOMPARE(line(window)->text(), QString());
        for (const QWidget *other : window->findChildren<QWidget *>()) {
            if (other->isVisible() && other->window() == window
                && !qobject_cast<const QSizeGrip *>(other)) {
                QVERIFY(other->mapTo(window, QPoint()).y()
                        < line(window)->mapTo(window, QPoint(0, 1)).y());
            }
        }
    });
}

void tst_MessageLine::repeatsWhatFailedOnOpening_data()
{
    QTest::addColumn<QString>("dialog");
    QTest::addColumn<QString>("fault");
    QTest::addColumn<QString>("said");
    QTest::newRow("body administration") << "BodyAdministrationDlg"
                                         << "get standard max_number_of_bodies fail"
                                         << "Unable to get max number of standard bodies";
    QTest::newRow("filter") << "FilterDialog"
                            << "get body filter6d_mode * fail"
                            << "Unable to get filter 6d mode for body standard b01";
    QTest::newRow("tracking settings") << "TrackingDlg"
                                       << "get standard calculate_marker fail"
                                       << "Unable to get the calculation of 3DOF markers";
    QTest::newRow("fixed angles") << "FixedAngleDlg"
                                  << "get body target_type* fail"
                                  << "Unable to check target type";
    QTest::newRow("names") << "BodySettingsDlg"
                           << "get body desc* fail"
                           << "Unable to get name of standard body";
}

void tst_MessageLine::repeatsWhatFailedOnOpening()
{
    QFETCH(QString, dialog);
    QFETCH(QString, fault);
    QFETCH(QString, said);
    TestHost host;
    host.fault(fault);
    openDialog(dialog, host, [&](QWidget *window) {
        QVERIFY(line(window)->isVisible());
        QCOMPARE(line(window)->text(), said);
        QCOMPARE(line(window)->accessibleName(), said);
        QVERIFY(host.log().contains(QStringLiteral("Error: ") + said));
    });
}

void tst_MessageLine::repeatsARefusedRename()
{
    TestHost host(studio());
    openAt(host, standardPage, [&](QWidget *page) {
        host.fault(QStringLiteral("set body desc* refuse"));
        host.clear();
        Drive::typeIntoCell(table(page, "tableWidget_standard"), 0, NameColumn, "Visor");
        QCOMPARE(line(page->window())->text(),
                 QStringLiteral("Unable to set description of body standard b01"));
        QVERIFY(line(page->window())->isVisible());
        QCOMPARE(host.log(), QStringList("Error: Unable to set description of body standard b01"));
    });
}

void tst_MessageLine::vanishesWithTheNextActionThatSucceeds()
{
    TestHost host(studio());
    openAt(host, standardPage, [&](QWidget *page) {
        host.fault(QStringLiteral("set body desc* call 1 refuse"));
        QTableWidget *bodies = table(page, "tableWidget_standard");
        Drive::typeIntoCell(bodies, 0, NameColumn, "Visor");
        QVERIFY(line(page->window())->isVisible());
        // A change of the current body does not count as an action.
        Drive::clickCell(bodies, 1, 0);
        QVERIFY(line(page->window())->isVisible());
        Drive::typeIntoCell(bodies, 0, NameColumn, "Visor");
        QVERIFY(!line(page->window())->isVisible());
        QCOMPARE(line(page->window())->text(), QString());
    });
}

void tst_MessageLine::staysWhenOneStepOfAnActionFailed()
{
    TestHost host;
    host.fault(QStringLiteral("set body desc standard b01* refuse"));
    openDialog(QStringLiteral("BodySettingsDlg"), host, [&](QWidget *window) {
        static_cast<BodySettingsDlg *>(window)->saveBodySettings();
        QVERIFY(host.writes().size() > 1);
        QCOMPARE(line(window)->text(), QStringLiteral("Unable to set name of standard body"));
    });
}

void tst_MessageLine::isNotClearedByARefresh()
{
    TestHost host(studio());
    openAt(host, standardPage, [&](QWidget *page) {
        host.fault(QStringLiteral("set body desc* refuse"));
        Drive::typeIntoCell(table(page, "tableWidget_standard"), 0, NameColumn, "Visor");
        goTo(page->window(), joywandPage);
        goTo(page->window(), standardPage);
        // A refresh lets the controller check for custom calibrations, which it accepts.
        QVERIFY(host.writes().contains(customCheck));
        QVERIFY(line(page->window())->isVisible());
    });
}

void tst_MessageLine::keepsTheLastTenInItsToolTip()
{
    QWidget window;
    auto *observer = new LinkObserver(&window);
    MessageLine shown(&window);
    shown.follow(observer);
    window.show();
    const ControllerLink link(nullptr, nullptr, observer);
    for (int i = 1; i <= 12; ++i)
        link.log(QStringLiteral("Error: Unable to do %1").arg(i, 2, 10, QLatin1Char('0')));
    const QStringList lines = shown.toolTip().split(QLatin1Char('\n'));
    QCOMPARE(lines.size(), 10);
    QVERIFY(lines.first().endsWith(QLatin1String("  Unable to do 12")));
    QVERIFY(lines.last().endsWith(QLatin1String("  Unable to do 03")));
    for (const QString &line : lines)
        QVERIFY(QTime::fromString(line.section(QLatin1Char(' '), 0, 0), "HH:mm:ss").isValid());
}

void tst_MessageLine::isAnAlertForScreenReaders()
{
    TestHost host(studio());
    openAt(host, standardPage, [&](QWidget *page) {
        host.fault(QStringLiteral("set body desc* refuse"));
        Drive::typeIntoCell(table(page, "tableWidget_standard"), 0, NameColumn, "Visor");
        const auto *accessible = QAccessible::queryAccessibleInterface(line(page->window()));
        QCOMPARE(accessible->role(), QAccessible::AlertMessage);
        QCOMPARE(accessible->text(QAccessible::Name),
                 QStringLiteral("Unable to set description of body standard b01"));
        QVERIFY(!accessible->state().invisible);
    });
}

void tst_MessageLine::saysWhyTheDialogStaysOpen_data()
{
    QTest::addColumn<bool>("byKey");
    QTest::newRow("exit") << false;
    QTest::newRow("escape") << true;
}

void tst_MessageLine::saysWhyTheDialogStaysOpen()
{
    QFETCH(bool, byKey);
    TestHost host(studio());
    const QString refusal = QStringLiteral("Unable to close dialog during calibration is running");
    openAt(host, standardPage, [&](QWidget *page) {
        Drive::click(page, "pushButton_start");
        Drive::settle();
        host.clear();
        if (byKey)
            QTest::keyClick(page->window(), Qt::Key_Escape);
        else
            Drive::click(page->window(), "pushButton_exit");
        QVERIFY(page->window()->isVisible());
        QCOMPARE(host.log(), QStringList(refusal));
        QVERIFY(line(page->window())->isVisible());
        QCOMPARE(line(page->window())->text(), refusal);
        robot().expectBox(boxTitle, QStringLiteral("No targets could be identified in library"),
                          Box::Ok);
        Drive::click(page, "pushButton_stop");
        QVERIFY(!line(page->window())->isVisible());
    });
}

void tst_MessageLine::saysThatTheConfigurationIsLocked_data()
{
    QTest::addColumn<QString>("dialog");
    for (const char *dialog : {"BodyAdministrationDlg", "FilterDialog", "TrackingDlg"})
        QTest::newRow(dialog) << QString::fromLatin1(dialog);
}

void tst_MessageLine::saysThatTheConfigurationIsLocked()
{
    QFETCH(QString, dialog);
    TestHost host(TestHost::scenario(QStringLiteral("locked")));
    openDialog(dialog, host, [&](QWidget *window) {
        QVERIFY(line(window)->isVisible());
        QCOMPARE(line(window)->text(), QStringLiteral("The configuration is locked"));
        if (dialog != QLatin1String("BodyAdministrationDlg"))
            return;
        host.edit([](ControllerState &state) { state.configChangeable = true; });
        configurationChanged(host);
        QVERIFY(!line(window)->isVisible());
    });
}

void tst_MessageLine::forgetsWhenTheDialogCloses()
{
    TestHost host(studio());
    BodyAdministrationDlg dialog(&host.io, &host.mainWindow, &host.versions);
    host.fault(QStringLiteral("get standard max_number_of_bodies call 1 fail"));
    open(&dialog, [](QWidget *window) { QVERIFY(line(window)->isVisible()); });
    open(&dialog, [](QWidget *window) {
        QVERIFY(!line(window)->isVisible());
        QVERIFY(line(window)->toolTip().contains(QLatin1String("Unable to get max number")));
    });
}

void tst_MessageLine::saysNothingOfWhatFailedBehindAClosedDialog()
{
    TestHost host(studio());
    host.fault(QStringLiteral("get body desc_of_type* fail"));
    BodyAdministrationDlg dialog(&host.io, &host.mainWindow, &host.versions);
    host.io.faults()->clear();
    open(&dialog, [](QWidget *window) { QVERIFY(!line(window)->isVisible()); });
}

void tst_MessageLine::showsMarkupLetterByLetter()
{
    QWidget window;
    auto *observer = new LinkObserver(&window);
    MessageLine shown(&window);
    shown.follow(observer);
    window.show();
    ControllerLink(nullptr, nullptr, observer).log(QStringLiteral("Error: Unable to do <b>x</b>"));
    QCOMPARE(shown.text(), QStringLiteral("Unable to do <b>x</b>"));
    QCOMPARE(shown.textFormat(), Qt::PlainText);
    QVERIFY(shown.toolTip().contains(QLatin1String("&lt;b&gt;x&lt;/b&gt;")));
}

void tst_MessageLine::movesNoButton()
{
    TestHost host(studio());
    openAt(host, standardPage, [&](QWidget *page) {
        auto *exit = Drive::find<QPushButton>(page->window(), "pushButton_exit");
        const QRect before = exit->geometry();
        const QSize size = page->window()->size();
        host.fault(QStringLiteral("set body desc* refuse"));
        Drive::typeIntoCell(table(page, "tableWidget_standard"), 0, NameColumn, "Visor");
        QVERIFY(line(page->window())->isVisible());
        QCOMPARE(exit->geometry(), before);
        QCOMPARE(page->window()->size(), size);
    });
}

void tst_MessageLine::aLinkOutlivesItsObserver()
{
    TestHost host;
    auto *observer = new LinkObserver(nullptr);
    const ControllerLink link(&host.io, &host.versions, observer);
    const ControllerLink copy = link;
    const Waiting waiting(observer, Waiting::For::Action, QStringLiteral("Writing ..."));
    delete observer;
    QVERIFY(link.text("tracking reference"));
    copy.log(QStringLiteral("Error: Unable to go on"));
    copy.progress(1, 2);
    QVERIFY(copy.set("tracking auto_restart yes"));
    QCOMPARE(host.log(), QStringList("Error: Unable to go on"));
}

void tst_MessageLine::aDialogMayGoWhileItsLinkAsks()
{
    TestHost host;
    const QPointer<QWidget> window = new QWidget;
    auto *observer = new LinkObserver(window);
    auto *shown = new MessageLine(window);
    shown->follow(observer);
    window->show();
    host.io.setResponder([&](TranscriptEntry *entry) {
        delete window;
        entry->answer = "yes";
    });
    const auto link = std::make_unique<ControllerLink>(&host.io, &host.versions, observer);
    {
        const Waiting waiting(observer, Waiting::For::Refresh, QStringLiteral("Reading ..."));
        QCOMPARE(link->text("tracking reference"), QStringLiteral("yes"));
        QVERIFY(link->set("tracking auto_restart yes"));
    }
    QVERIFY(!window);
    QVERIFY(!QGuiApplication::overrideCursor());
}

TRACKING_TEST_MAIN(tst_MessageLine)
#include "tst_messageline.moc"
