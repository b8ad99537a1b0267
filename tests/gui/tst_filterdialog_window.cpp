#include "filterdialogtest.h"

#include <QPointer>
#include <QTextBrowser>

/** The widgets of the filter dialog: their texts, their limits, and when each is enabled. */
class tst_FilterDialogWindow : public FilterDialogTest {
    Q_OBJECT

private slots:
    void enablingRules_data();
    void enablingRules();
    void predictionLimits_data();
    void predictionLimits();
    void strengthLimits();
    void predictionIsTruncated_data();
    void predictionIsTruncated();
    void presetOutsideTheList();
    void modeOutsideTheList();
    void texts_data();
    void texts();
    void iconOfTheParent();
    void helpPage();
    void deletedWhileOpen();
};

void tst_FilterDialogWindow::enablingRules_data()
{
    QTest::addColumn<QString>("preset");
    QTest::addColumn<bool>("active");
    QTest::addColumn<bool>("strengthEnabled");
    QTest::addColumn<bool>("strengthShown");
    QTest::addColumn<bool>("othersEnabled"); // prediction and mode
    QTest::newRow("fixed") << "preset6d_default" << true << false << true << false;
    QTest::newRow("custom") << "preset6d_custom" << true << true << true << true;
    QTest::newRow("custom off") << "preset6d_custom" << false << false << true << false;
    QTest::newRow("another custom") << "preset6d_my_custom_2" << true << true << true << true;
    QTest::newRow("hybrid") << "preset6d_hybrid" << true << false << false << false;
    QTest::newRow("hybrid custom") << "preset6d_hybrid_custom" << true << false << false << true;
    QTest::newRow("hybrid custom off")
            << "preset6d_hybrid_custom" << false << false << false << false;
    QTest::newRow("foreign family") << "filter_custom" << true << false << true << false;
    QTest::newRow("no underscore") << "preset6d_1custom" << true << false << true << false;
    QTest::newRow("other case") << "preset6d_Custom" << true << false << true << false;
}

void tst_FilterDialogWindow::enablingRules()
{
    QFETCH(QString, preset);
    QFETCH(bool, active);
    QFETCH(bool, strengthEnabled);
    QFETCH(bool, strengthShown);
    QFETCH(bool, othersEnabled);
    ControllerState state = smallState();
    state.filterPresets = {FilterDialogTest::preset(qPrintable(preset), "The one", 0.5, 0.033,
                                                    "adaptive_slow", true)};
    for (BodyState &each : state.bodyTypes["standard"].bodies)
        each.filterPreset = preset;
    state.bodyTypes["joywand"].bodies.clear();
    standardBody(state, 0).filterEnabled = active;
    TestHost host(state);
    visit(host, standard, 0, [&](const FilterWidgets &w) {
        QCOMPARE(w.preset->currentText(), QString("The one"));
        QCOMPARE(w.preset->isEnabled(), active);
        QCOMPARE(w.strength->isEnabled(), strengthEnabled);
        QCOMPARE(w.strength->isVisible(), strengthShown);
        QCOMPARE(w.labelStrength->isVisible(), strengthShown);
        QCOMPARE(w.prediction->isEnabled(), othersEnabled);
        QVERIFY(w.prediction->isVisible());
        QCOMPARE(w.prediction->value(), 20);
        QCOMPARE(w.mode->isEnabled(), othersEnabled);
        QCOMPARE(w.mode->currentText(), QString("Adaptive fast"));
    });
}

void tst_FilterDialogWindow::predictionLimits_data()
{
    QTest::addColumn<double>("minimumSeconds");
    QTest::addColumn<double>("maximumSeconds");
    QTest::addColumn<int>("minimumMs");
    QTest::addColumn<int>("maximumMs");
    QTest::newRow("nothing to 66.5 ms") << 0.0 << 0.0665 << 0 << 66;
    QTest::newRow("usual") << -0.066 << 0.066 << -66 << 66;
    QTest::newRow("toward zero") << -0.0305 << 0.0309 << -30 << 30;
    QTest::newRow("decimal") << -0.029 << 0.057 << -29 << 57;
}

void tst_FilterDialogWindow::predictionLimits()
{
    QFETCH(double, minimumSeconds);
    QFETCH(double, maximumSeconds);
    ControllerState state = smallState();
    state.predictionMin = minimumSeconds;
    state.predictionMax = maximumSeconds;
    TestHost host(state);
    visit(host, standard, 0, [&](const FilterWidgets &w) {
        QTEST(w.prediction->minimum(), "minimumMs");
        QTEST(w.prediction->maximum(), "maximumMs");
    });
}

void tst_FilterDialogWindow::strengthLimits()
{
    ControllerState state = smallState();
    state.strengthMin = 0.2;
    state.strengthMax = 0.8;
    TestHost host(state);
    visit(host, standard, 0, [&](const FilterWidgets &w) {
        QCOMPARE(w.strength->minimum(), 0.2);
        QCOMPARE(w.strength->maximum(), 0.8);
        QCOMPARE(w.strength->singleStep(), 0.01);
    });
}

void tst_FilterDialogWindow::predictionIsTruncated_data()
{
    QTest::addColumn<double>("seconds");
    QTest::addColumn<QString>("shown");
    QTest::newRow("half") << 0.0125 << "12";
    QTest::newRow("negative half") << -0.0125 << "-12";
    QTest::newRow("no binary loss") << 0.029 << "29";
    QTest::newRow("nothing") << 0.0 << "0";
    QTest::newRow("below one") << 0.0009 << "0";
}

void tst_FilterDialogWindow::predictionIsTruncated()
{
    QFETCH(double, seconds);
    ControllerState state = smallState();
    standardBody(state, 0).filterPrediction = seconds;
    TestHost host(state);
    visit(host, standard, 0, [&](const FilterWidgets &w) {
        const QString text = w.prediction->text();
        QTEST(text, "shown");
    });
}

void tst_FilterDialogWindow::presetOutsideTheList()
{
    TestHost host(smallState());
    host.fault("body filter6d_preset standard b01 answer \"preset6d_gone_custom\"");
    visit(host, standard, 0, [&](const FilterWidgets &w) {
        QCOMPARE(w.preset->count(), 2);
        QCOMPARE(w.preset->currentIndex(), -1);
        QVERIFY(w.preset->isEnabled());
        QVERIFY(!w.strength->isEnabled());
        QVERIFY(!w.prediction->isEnabled());
        QVERIFY(!w.mode->isEnabled());
    });
    QCOMPARE(host.log(), QStringList());
}

void tst_FilterDialogWindow::modeOutsideTheList()
{
    TestHost host(smallState());
    host.fault("body filter6d_mode standard b01 answer \"ADAPTIVE_FAST\"");
    visit(host, standard, 0, [&](const FilterWidgets &w) {
        QCOMPARE(w.mode->count(), 2);
        QCOMPARE(w.mode->currentIndex(), -1);
        QVERIFY(w.mode->isEnabled());
    });
    QCOMPARE(host.log(), QStringList());
}

void tst_FilterDialogWindow::texts_data()
{
    QTest::addColumn<QString>("widget");
    QTest::addColumn<QByteArray>("property");
    QTest::addColumn<QString>("text");
    const QByteArray text = "text";
    const QByteArray help = "whatsThis";
    QTest::newRow("body") << "label_body" << text << "&body";
    QTest::newRow("body help") << "comboBox_body" << help
                               << "Select body to adjust the 6DOF filter";
    QTest::newRow("active") << "checkBox_active" << text << "&active";
    QTest::newRow("preset") << "label_preset" << text << "&preset";
    QTest::newRow("strength") << "label_strength" << text << "&strength";
    QTest::newRow("strength help") << "doubleSpinBox_strength" << help
                                   << "Adjust 6DOF filter strength. Min. = 0.01, max. = 0.99";
    QTest::newRow("prediction") << "label_prediction" << text << "pre&diction [ms]";
    QTest::newRow("mode") << "label_mode" << text << "&mode";
    QTest::newRow("mode help") << "comboBox_mode" << help << "Adjust 6DOF filter mode";
    QTest::newRow("error") << "label_error" << text << "";
    QTest::newRow("help") << "pushButton_help" << text << "&Help";
    QTest::newRow("exit") << "pushButton_exit" << text << "E&xit";
    QTest::newRow("exit help") << "pushButton_exit" << help << "Close dialog";
}

void tst_FilterDialogWindow::texts()
{
    QFETCH(QString, widget);
    QFETCH(QByteArray, property);
    TestHost host(smallState());
    FilterDialog dialog(&host.io, &host.mainWindow, &host.versions);
    QCOMPARE(dialog.windowTitle(), QString("Filter Settings"));
    QCOMPARE(dialog.whatsThis(), QString("6DOF filter settings"));
    const QString text =
            Drive::find<QWidget>(&dialog, qPrintable(widget))->property(property).toString();
    QTEST(text, "text");
    QVERIFY(Drive::find<QComboBox>(&dialog, "comboBox_preset")
                    ->whatsThis()
                    .contains("<p>A preset is a pre-definded set of strength, prediction and "
                              "mode.</p>"));
}

void tst_FilterDialogWindow::iconOfTheParent()
{
    TestHost host(smallState());
    const auto plain = [](QColor color) {
        QPixmap pixmap(16, 16);
        pixmap.fill(color);
        return QIcon(pixmap);
    };
    host.mainWindow.setWindowIcon(plain(Qt::red));
    const FilterDialog dialog(&host.io, &host.mainWindow, &host.versions);
    // A window that has no icon would show the new one.
    host.mainWindow.setWindowIcon(plain(Qt::blue));
    QCOMPARE(dialog.windowIcon().pixmap(16).toImage().pixelColor(8, 8), QColor(Qt::red));
}

void tst_FilterDialogWindow::helpPage()
{
    TestHost host(smallState());
    visit(host, standard, 0, [&](const FilterWidgets &w) {
        robot().expectDialog("FilterHelp", [&](QWidget *help) {
            QCOMPARE(help->windowTitle(), QString("Help Filter"));
            QCOMPARE(help->whatsThis(), QString("Help for filter settings"));
            QVERIFY(help->isModal());
            QVERIFY(!help->parentWidget());
            const QString page = Drive::find<QTextBrowser>(help, "textBrowser")->toPlainText();
            for (const char *word :
                 {"Strength", "Prediction", "Low values", "High values", "adaptive fast",
                  "adaptive slow", "reference target", "hybrid target"})
                QVERIFY2(page.contains(word), word);
            Drive::click(help, "pushButton_exit");
            QVERIFY(!help->isVisible());
        });
        const QStringList soFar = host.lines();
        Drive::click(w.dialog, "pushButton_help");
        QCOMPARE(host.lines(), soFar);
        QVERIFY(w.dialog->isVisible());
    });
}

void tst_FilterDialogWindow::deletedWhileOpen()
{
    TestHost host(smallState());
    QPointer<FilterDialog> dialog = new FilterDialog(&host.io, &host.mainWindow, &host.versions);
    robot().expectDialog("FilterDialog", [&](QWidget *) { delete dialog.data(); });
    QCOMPARE(dialog->update_and_exec(standard, 0), int(QDialog::Rejected));
    QVERIFY(!dialog);
    QCOMPARE(host.writes(), QStringList());
}

TRACKING_TEST_MAIN(tst_FilterDialogWindow)
#include "tst_filterdialog_window.moc"
