#include "TrackingDlg.h"
#include "administrationfixture.h"
#include "bodysettingsdlg.h"
#include "filterdialogtest.h"
#include "fixedangledlg.h"

#include <QApplication>

/** Another configuration becomes active while a settings dialog is open. */
class tst_ConfigurationChange : public AdministrationFixture {
    Q_OBJECT

private slots:
    void filterDialogReadsItsBodyAgain();
    void filterDialogKeepsTheBodyChosen();
    void filterDialogForgetsTheEdit();
    void filterDialogFollowsTheLock();
    void filterDialogBelongsToItsHost();
    void okAsksBeforeItWrites_data();
    void okAsksBeforeItWrites();
    void nextOpeningAsksNothing();
    void trackingSettingsWithoutChangeAskNothing();
    void cancelRestoresNothingOfTheOldConfiguration();
    void fixedAnglesOfTheTrackingSettingsAsk();
    void deletedBehindTheQuestion();

private:
    const QString question = QStringLiteral("The active configuration has changed. Write anyway?");

    /** Opens the filter dialog of the page's current body and lets `user` act in it. */
    void openFilter(TestHost &host, const std::function<void(FilterWidgets)> &user)
    {
        openAt(host, standardPage, [&](QWidget *page) {
            Drive::clickCell(table(page, "tableWidget_standard"), 0, 1);
            robot().expectDialog("FilterDialog",
                                 [&](QWidget *shown) { user(FilterWidgets(shown)); });
            Drive::click(page, "pushButton_filter");
        });
    }

    /** Activates another configuration, which has another filter for the first body. */
    static void activateOther(TestHost &host)
    {
        host.edit([](ControllerState &state) {
            BodyState &body = state.bodyTypes["standard"].bodies[0];
            body.description = "Other";
            body.filterStrength = 0.77;
        });
        configurationChanged(host);
    }

    /** Opens the dialog with that name, changes a value in it, and calls `user` to close it. */
    void openSettings(TestHost &host, const QString &name,
                      const std::function<void(QWidget *)> &user);
};

void tst_ConfigurationChange::filterDialogReadsItsBodyAgain()
{
    TestHost host;
    openFilter(host, [&](const FilterWidgets &w) {
        host.clear();
        activateOther(host);
        QCOMPARE(w.body->currentText(), QString("standard body 01 (Other)"));
        QCOMPARE(w.strength->text(), QString("0.77"));
        QCOMPARE(host.queries().count("body filter6d_strength standard b01"), 1);
        QCOMPARE(changes(host), QStringList());
    });
}

void tst_ConfigurationChange::filterDialogKeepsTheBodyChosen()
{
    TestHost host;
    BodyAdministrationDlg administration(&host.io, &host.mainWindow, &host.versions);
    FilterDialog dialog(&host.io, &host.mainWindow, &host.versions);
    robot().expectDialog("FilterDialog", [&](QWidget *shown) {
        const FilterWidgets w(shown);
        w.body->setCurrentIndex(1);
        const QString chosen = w.body->currentData().toString();
        QVERIFY(chosen != QLatin1String("standard b01"));
        activateOther(host);
        QCOMPARE(w.body->currentData().toString(), chosen);
        QCOMPARE(w.body->itemText(0), QString("standard body 01 (Other)"));
    });
    dialog.update_and_exec(0, -1);
    QCOMPARE(host.writes(), QStringList());
}

void tst_ConfigurationChange::filterDialogForgetsTheEdit()
{
    TestHost host;
    openFilter(host, [&](const FilterWidgets &w) {
        w.strength->setFocus();
        QTest::keyClick(w.strength, Qt::Key_A, Qt::ControlModifier);
        QTest::keyClicks(w.strength, "0.12");
        activateOther(host);
        QTest::keyClick(w.strength, Qt::Key_Return);
        QCOMPARE(w.strength->text(), QString("0.77"));
    });
    QCOMPARE(changes(host), QStringList());
}

void tst_ConfigurationChange::filterDialogFollowsTheLock()
{
    TestHost host;
    openFilter(host, [&](const FilterWidgets &w) {
        host.edit([](ControllerState &state) { state.configChangeable = false; });
        configurationChanged(host);
        QVERIFY(!w.preset->isEnabled());
        QVERIFY(!w.active->isEnabled());
        QCOMPARE(w.body->count(), 0);
        host.edit([](ControllerState &state) { state.configChangeable = true; });
        configurationChanged(host);
        QVERIFY(w.active->isEnabled());
        QCOMPARE(w.body->count(), 1);
    });
}

void tst_ConfigurationChange::filterDialogBelongsToItsHost()
{
    TestHost other;
    BodyAdministrationDlg administration(&other.io, &other.mainWindow, &other.versions);
    TestHost host;
    openFilter(host, [&](const FilterWidgets &) {
        host.clear();
        configurationChanged(other);
        QCOMPARE(host.lines(), QStringList());
    });
}

void tst_ConfigurationChange::openSettings(TestHost &host, const QString &name,
                                           const std::function<void(QWidget *)> &user)
{
    robot().expectDialog(name, user);
    if (name == QLatin1String("TrackingDlg")) {
        TrackingDlg(&host.io, &host.mainWindow, &host.versions, "v3.0.6").update_and_exec();
    } else if (name == QLatin1String("FixedAngleDlg")) {
        FixedAngleDlg(&host.io, &host.mainWindow, &host.versions).update_and_exec();
    } else {
        BodySettingsDlg(&host.io, &host.mainWindow, &host.versions, "v3.0.6").update_and_exec();
    }
    robot().verify();
}

void tst_ConfigurationChange::okAsksBeforeItWrites_data()
{
    QTest::addColumn<QString>("dialog");
    QTest::addColumn<QString>("title");
    QTest::addColumn<bool>("writesAnyway");
    for (const bool anyway : {false, true}) {
        const char *answer = anyway ? "Yes" : "No";
        QTest::addRow("tracking settings, %s", answer) << "TrackingDlg"
                                                       << "Single Markers" << anyway;
        QTest::addRow("fixed angles, %s", answer) << "FixedAngleDlg"
                                                  << "Fixed Angle" << anyway;
        QTest::addRow("names, %s", answer) << "BodySettingsDlg"
                                           << "Body Settings" << anyway;
    }
}

void tst_ConfigurationChange::okAsksBeforeItWrites()
{
    QFETCH(QString, dialog);
    QFETCH(QString, title);
    QFETCH(bool, writesAnyway);
    TestHost host;
    BodyAdministrationDlg administration(&host.io, &host.mainWindow, &host.versions);
    openSettings(host, dialog, [&](QWidget *shown) {
        if (auto *markers = shown->findChild<QCheckBox *>("checkBox_force3d"))
            markers->click();
        configurationChanged(host);
        host.clear();
        robot().expectBox(shown->windowTitle(), question, writesAnyway ? Box::Yes : Box::No, [] {
            auto *box = qobject_cast<QMessageBox *>(QApplication::activeModalWidget());
            QVERIFY(box);
            QCOMPARE(box->defaultButton(), box->button(Box::No));
            QCOMPARE(box->standardButtons(), Box::Yes | Box::No);
        });
        QCOMPARE(shown->windowTitle().contains(title.section(' ', 0, 0)), true);
        Drive::click(shown, "pushButton_ok");
        QCOMPARE(shown->isVisible(), !writesAnyway);
        QCOMPARE(host.writes().isEmpty(), !writesAnyway);
        if (!writesAnyway)
            QTest::keyClick(shown, Qt::Key_Escape);
    });
}

void tst_ConfigurationChange::nextOpeningAsksNothing()
{
    TestHost host;
    BodyAdministrationDlg administration(&host.io, &host.mainWindow, &host.versions);
    TrackingDlg dialog(&host.io, &host.mainWindow, &host.versions, "v3.0.6");
    robot().expectDialog("TrackingDlg", [&](QWidget *shown) {
        configurationChanged(host);
        QTest::keyClick(shown, Qt::Key_Escape);
    });
    dialog.update_and_exec();
    host.clear();
    robot().expectDialog("TrackingDlg", [&](QWidget *shown) {
        Drive::find<QCheckBox>(shown, "checkBox_force3d")->click();
        Drive::click(shown, "pushButton_ok");
    });
    dialog.update_and_exec();
    QVERIFY(host.writes().size() > 1);
}

void tst_ConfigurationChange::trackingSettingsWithoutChangeAskNothing()
{
    TestHost host;
    BodyAdministrationDlg administration(&host.io, &host.mainWindow, &host.versions);
    openSettings(host, "TrackingDlg", [&](QWidget *shown) {
        configurationChanged(host);
        host.clear();
        Drive::click(shown, "pushButton_ok");
        QVERIFY(!shown->isVisible());
    });
    QCOMPARE(host.writes(), QStringList());
}

void tst_ConfigurationChange::cancelRestoresNothingOfTheOldConfiguration()
{
    TestHost host;
    BodyAdministrationDlg administration(&host.io, &host.mainWindow, &host.versions);
    openSettings(host, "TrackingDlg", [&](QWidget *shown) {
        Drive::find<QCheckBox>(shown, "checkBox_force3d")->click();
        configurationChanged(host);
        host.clear();
        Drive::click(shown, "pushButton_cancel");
        QVERIFY(!shown->isVisible());
    });
    QCOMPARE(host.writes(), QStringList());
}

void tst_ConfigurationChange::fixedAnglesOfTheTrackingSettingsAsk()
{
    ControllerState state = studio();
    state.bodyTypes["standard"].bodies[0].fixedAngles[0].enabled = true;
    TestHost host(state);
    BodyAdministrationDlg administration(&host.io, &host.mainWindow, &host.versions);
    openSettings(host, "TrackingDlg", [&](QWidget *shown) {
        robot().expectDialog("FixedAngleDlg", [&](QWidget *angles) {
            configurationChanged(host);
            robot().expectBox(angles->windowTitle(), question, Box::No);
            Drive::click(angles, "pushButton_ok");
            Drive::click(angles, "pushButton_cancel");
        });
        Drive::click(shown, "pushButton_advanced");
        // Nothing was changed here, so that no question is needed.
        Drive::click(shown, "pushButton_ok");
    });
    QCOMPARE(host.writes().filter("fixed_angle"), QStringList());
}

void tst_ConfigurationChange::deletedBehindTheQuestion()
{
    TestHost host;
    BodyAdministrationDlg administration(&host.io, &host.mainWindow, &host.versions);
    auto dialog = std::make_unique<BodySettingsDlg>(&host.io, &host.mainWindow, &host.versions,
                                                    QStringLiteral("v3.0.6"));
    robot().expectDialog("BodySettingsDlg", [&](QWidget *shown) {
        configurationChanged(host);
        robot().expectBox(shown->windowTitle(), question, Box::Yes, [&] { dialog.reset(); });
        QTest::keyClick(Drive::find<QPushButton>(shown, "pushButton_ok"), Qt::Key_Space);
    });
    dialog.get()->update_and_exec();
    QVERIFY(!dialog);
    QCOMPARE(changes(host), QStringList());
}

TRACKING_TEST_MAIN(tst_ConfigurationChange)
#include "tst_configurationchange.moc"
