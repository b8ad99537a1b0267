#include "TrackingDlg.h"
#include "administrationfixture.h"
#include "bodysettingsdlg.h"

#include <QFileInfo>
#include <QTranslator>

/**
 * The message log is the same in every language, because the support searches it for known lines.
 */
class tst_LogLines : public AdministrationFixture {
    Q_OBJECT

private slots:
    void sameLinesInEveryLanguage_data();
    void sameLinesInEveryLanguage();

private:
    /** The log lines of a walk through all dialogs while `rule` is in force. */
    QStringList play(const QString &rule);
    void playBodyAdministration(TestHost *host);
    void playTrackingSettings(TestHost *host);
    void playBodyNames(TestHost *host);
};

void tst_LogLines::playBodyAdministration(TestHost *host)
{
    BodyAdministrationDlg dialog(&host->io, &host->mainWindow, &host->versions);
    open(&dialog, [this](QWidget *window) {
        Drive::holdTimers(window);
        for (const char *form : {joywandPage, handsPage, toolsPage, standardPage})
            goTo(window, form);
        QWidget *standard = page(window, standardPage);
        auto *filter = Drive::find<QPushButton>(standard, "pushButton_filter");
        if (!filter->isEnabled())
            return;
        robot().expectDialog("FilterDialog", [](QWidget *) {});
        QTest::mouseClick(filter, Qt::LeftButton);
    });
}

void tst_LogLines::playTrackingSettings(TestHost *host)
{
    TrackingDlg dialog(&host->io, &host->mainWindow, &host->versions, "v3.0.6");
    robot().expectDialog("TrackingDlg", [this](QWidget *window) {
        auto *markers = Drive::find<QWidget>(window, "checkBox_force3d");
        markers->setFocus();
        QTest::keyClick(markers, Qt::Key_Space);
        auto *advanced = Drive::find<QPushButton>(window, "pushButton_advanced");
        if (advanced->isVisible()) {
            robot().expectDialog("FixedAngleDlg", [](QWidget *) {});
            QTest::mouseClick(advanced, Qt::LeftButton);
        }
        Drive::click(window, "pushButton_ok");
    });
    dialog.update_and_exec();
}

void tst_LogLines::playBodyNames(TestHost *host)
{
    BodySettingsDlg dialog(&host->io, &host->mainWindow, &host->versions, "v3.0.6");
    robot().expectDialog("BodySettingsDlg",
                         [](QWidget *window) { Drive::click(window, "pushButton_ok"); });
    dialog.update_and_exec();
}

QStringList tst_LogLines::play(const QString &rule)
{
    ControllerState state = studio();
    state.bodyTypes["standard"].bodies[0].fixedAngles[0].enabled = true;
    TestHost host(state);
    host.fault(rule);
    playBodyAdministration(&host);
    playTrackingSettings(&host);
    playBodyNames(&host);
    return host.log();
}

void tst_LogLines::sameLinesInEveryLanguage_data()
{
    QTest::addColumn<QString>("rule");
    for (const char *rule :
         {"* fail", "set * fail", "get body desc* fail", "get body calibrated* fail",
          "get body filter6d* fail", "get filter6d* fail", "get standard* fail",
          "get inertial* fail", "get joywand* fail", "get measurementtool* fail",
          "get fingertracking* fail", "get tracking* fail", "get body target_type* fail"})
        QTest::newRow(rule) << rule;
}

void tst_LogLines::sameLinesInEveryLanguage()
{
    QFETCH(QString, rule);
    const QStringList english = play(rule);
    QVERIFY(!english.isEmpty());
    QTranslator german;
    const QString folder =
            QFileInfo(QCoreApplication::applicationDirPath()).path() + "/plugins/translations";
    QVERIFY(german.load("trackingsettings_de", folder));
    QVERIFY(QCoreApplication::installTranslator(&german));
    const QStringList found = play(rule);
    QVERIFY(QCoreApplication::removeTranslator(&german));
    QCOMPARE(found, english);
}

TRACKING_TEST_MAIN(tst_LogLines)
#include "tst_loglines.moc"
