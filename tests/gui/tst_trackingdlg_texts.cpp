#include "trackingfixture.h"

#include <QComboBox>
#include <QDoubleSpinBox>
#include <QTextDocument>

/** The texts and tool tips of the tracking settings, and the frequency's range before it is read.
 */
class tst_TrackingDlgTexts : public TrackingFixture {
    Q_OBJECT

private slots:
    void showsTexts_data();
    void showsTexts();
    void frequencyStartsWithTheFormsRange();
};

void tst_TrackingDlgTexts::showsTexts_data()
{
    QTest::addColumn<QString>("text");
    QTest::addColumn<QString>("toolTip");
    const auto add = [](const char *widget, const char *text, const char *toolTip = "") {
        QTest::newRow(widget) << QString::fromLatin1(text) << QString::fromLatin1(toolTip);
    };
    add("checkBox_force3d", "&calculation of 3DOF markers",
        "Check calculation of 3DOF markers if needed");
    add("checkBox_autoReStart", "automatic &restart of measurement after loss of sync signal",
        "Check automatic restart of measurement after loss of sync signal if needed");
    add("label_setAxis5dof", "axis &5DOF central");
    add("label_display5dof", "");
    add("radioButton_cameraSynchronous", "&as QOR cameras (see Synccard settings)");
    add("radioButton_inertialSensor", "as &inertial sensor");
    add("radioButton_frequency", "custom &frequency (independent of cameras or sensors)");
    add("pushButton_advanced", "&Advanced");
    add("pushButton_ok", "OK", "Accept changes and close dialog");
    add("pushButton_cancel", "Cancel", "Discard changes and close dialog");
}

void tst_TrackingDlgTexts::showsTexts()
{
    QFETCH(QString, text);
    QFETCH(QString, toolTip);
    TestHost host(twoBodies());
    TrackingDlg dialog(&host.io, &host.mainWindow, &host.versions, moduleVersion);
    open(&dialog, [&](QWidget *shown) {
        const auto *widget = Drive::find<QWidget>(shown, QTest::currentDataTag());
        QCOMPARE(widget->property("text").toString(), text);
        QCOMPARE(widget->toolTip(), toolTip);
        QCOMPARE(Drive::find<QComboBox>(shown, "comboBox_5dofAxis")->toolTip(),
                 QStringLiteral("Define which axis of the room coordinate system is up for the "
                                "5DOF body"));
        Drive::click(shown, "pushButton_cancel");
    });
}

void tst_TrackingDlgTexts::frequencyStartsWithTheFormsRange()
{
    TestHost host(twoBodies());
    TrackingDlg dialog(&host.io, &host.mainWindow, &host.versions, moduleVersion);
    const auto *frequency = Drive::find<QDoubleSpinBox>(&dialog, "doubleSpinBox_frequency");
    QCOMPARE(frequency->suffix(), QStringLiteral("Hz"));
    QCOMPARE(frequency->decimals(), 0);
    QCOMPARE(frequency->minimum(), 1.0);
    QCOMPARE(frequency->maximum(), 1000.0);
    QCOMPARE(frequency->value(), 100.0);
    // The help on the three ways of setting the frequency.
    const QString help = Drive::find<QWidget>(&dialog, "frame_trackingPulse")->toolTip();
    QVERIFY(Qt::mightBeRichText(help));
    for (const char *way : {"cameras", "inertial sensor", "ustom frequency"})
        QVERIFY2(help.contains(QLatin1String(way)), way);
}

TRACKING_TEST_MAIN(tst_TrackingDlgTexts)
#include "tst_trackingdlg_texts.moc"
