#include "trackingfixture.h"

#include <QComboBox>

/** Single-marker settings that could not be read are not written unless the user sets them. */
class tst_TrackingDlgUnread : public TrackingFixture {
    Q_OBJECT

private slots:
    void okSendsOnlyWhatIsKnown_data();
    void okSendsOnlyWhatIsKnown();
    void okSendsWhatTheUserHasSet_data();
    void okSendsWhatTheUserHasSet();
    void cancelSendsOnlyWhatIsKnown_data();
    void cancelSendsOnlyWhatIsKnown();
    void hiddenRestartIsNotSwitchedOff();
    void restartAloneIsWritten();
    void garbledAxisIsNotReplacedByAnEarlierOne();

private:
    const QString marker = QStringLiteral("standard calculate_marker");
    const QString restart = QStringLiteral("tracking auto_restart");
    const QString axis = QStringLiteral("tracking axis_5dof_central");

    static ControllerState allOn()
    {
        ControllerState state = twoBodies();
        state.calculateMarker = true;
        state.autoRestart = true;
        state.axis5dofCentral = {{0.0, 0.0, 1.0}};
        return state;
    }

    static void chooseAxis(QWidget *shown, const char *name)
    {
        Drive::choose(Drive::find<QComboBox>(shown, "comboBox_5dofAxis"), name);
    }
};

void tst_TrackingDlgUnread::okSendsOnlyWhatIsKnown_data()
{
    QTest::addColumn<QString>("rule");
    QTest::addColumn<bool>("touchesMarker"); // false: touches the restart
    QTest::addColumn<QStringList>("writes");
    const QString axisLine = axis + " 0.000 0.000 1.000";
    for (const char *effect : {"fail", "empty", "garbled", "answer \"maybe\""}) {
        QTest::addRow("marker %s", effect) << "get " + marker + ' ' + effect << false
                                           << QStringList{restart + " no", axisLine};
        QTest::addRow("restart %s", effect)
                << "get " + restart + ' ' + effect << true << QStringList{marker + " no", axisLine};
    }
    for (const char *effect : {"fail", "empty", "garbled", "answer \"0 0\""}) {
        QTest::addRow("axis %s", effect) << "get " + axis + ' ' + effect << true
                                         << QStringList{marker + " no", restart + " yes"};
    }
}

void tst_TrackingDlgUnread::okSendsOnlyWhatIsKnown()
{
    QFETCH(QString, rule);
    QFETCH(bool, touchesMarker);
    QFETCH(QStringList, writes);
    writePreferences(showAutoRestart);
    TestHost host(allOn());
    host.fault(rule);
    TrackingDlg dialog(&host.io, &host.mainWindow, &host.versions, moduleVersion);
    open(&dialog, [=](QWidget *shown) {
        toggle(shown, touchesMarker ? "checkBox_force3d" : "checkBox_autoReStart");
        Drive::click(shown, "pushButton_ok");
    });
    QCOMPARE(host.writes(), writes);
}

void tst_TrackingDlgUnread::okSendsWhatTheUserHasSet_data()
{
    QTest::addColumn<QString>("query");
    QTest::addColumn<QStringList>("writes");
    const QString axisLine = axis + " 0.000 0.000 1.000";
    QTest::newRow("marker") << marker << QStringList{marker + " yes", restart + " yes", axisLine};
    QTest::newRow("restart") << restart << QStringList{marker + " yes", restart + " yes", axisLine};
    QTest::newRow("axis") << axis
                          << QStringList{marker + " yes", restart + " yes",
                                         axis + " 0.000 -1.000 0.000"};
}

void tst_TrackingDlgUnread::okSendsWhatTheUserHasSet()
{
    QFETCH(QString, query);
    QFETCH(QStringList, writes);
    writePreferences(showAutoRestart);
    TestHost host(allOn());
    host.fault("get " + query + " fail");
    TrackingDlg dialog(&host.io, &host.mainWindow, &host.versions, moduleVersion);
    open(&dialog, [=](QWidget *shown) {
        if (query == marker)
            toggle(shown, "checkBox_force3d");
        else if (query == restart)
            toggle(shown, "checkBox_autoReStart");
        else
            chooseAxis(shown, "-y");
        Drive::click(shown, "pushButton_ok");
    });
    QCOMPARE(host.writes(), writes);
}

void tst_TrackingDlgUnread::cancelSendsOnlyWhatIsKnown_data()
{
    QTest::addColumn<QString>("query");
    QTest::addColumn<QStringList>("writes");
    QTest::newRow("marker") << marker << QStringList{restart + " yes"};
    QTest::newRow("restart") << restart << QStringList{marker + " yes"};
}

void tst_TrackingDlgUnread::cancelSendsOnlyWhatIsKnown()
{
    QFETCH(QString, query);
    QFETCH(QStringList, writes);
    writePreferences(showAutoRestart);
    TestHost host(allOn());
    host.fault("get " + query + " fail");
    TrackingDlg dialog(&host.io, &host.mainWindow, &host.versions, moduleVersion);
    open(&dialog, [](QWidget *shown) {
        chooseAxis(shown, "-y");
        Drive::click(shown, "pushButton_cancel");
    });
    QCOMPARE(host.writes(), writes);
}

void tst_TrackingDlgUnread::hiddenRestartIsNotSwitchedOff()
{
    TestHost host(allOn());
    host.fault("get " + restart + " fail");
    TrackingDlg dialog(&host.io, &host.mainWindow, &host.versions, moduleVersion);
    open(&dialog, [](QWidget *shown) {
        toggle(shown, "checkBox_force3d");
        Drive::click(shown, "pushButton_ok");
    });
    QVERIFY(host.state().autoRestart);
    QCOMPARE(host.writes().filter(restart), QStringList{restart + " yes"});
}

void tst_TrackingDlgUnread::restartAloneIsWritten()
{
    writePreferences(showAutoRestart);
    TestHost host(allOn());
    TrackingDlg dialog(&host.io, &host.mainWindow, &host.versions, moduleVersion);
    open(&dialog, [](QWidget *shown) {
        toggle(shown, "checkBox_autoReStart");
        Drive::click(shown, "pushButton_ok");
    });
    QCOMPARE(host.writes(),
             (QStringList{marker + " yes", restart + " no", axis + " 0.000 0.000 1.000"}));
    QVERIFY(!host.state().autoRestart);
}

void tst_TrackingDlgUnread::garbledAxisIsNotReplacedByAnEarlierOne()
{
    TestHost host(allOn());
    TrackingDlg dialog(&host.io, &host.mainWindow, &host.versions, moduleVersion);
    openAndCancel(&dialog);
    host.fault("get " + axis + " answer \"up\"");
    host.clear();
    open(&dialog, [](QWidget *shown) {
        // The list keeps its entry, which is not the controller's axis.
        QCOMPARE(Drive::find<QComboBox>(shown, "comboBox_5dofAxis")->currentText(), QString("z"));
        toggle(shown, "checkBox_force3d");
        Drive::click(shown, "pushButton_ok");
    });
    QCOMPARE(host.writes().filter(axis), QStringList());
}

TRACKING_TEST_MAIN(tst_TrackingDlgUnread)
#include "tst_trackingdlg_unread.moc"
