#include "filterdialogtest.h"
#include "trackingfixture.h"

#include <QWheelEvent>

/** Turning the wheel above a box without the focus changes nothing, in every settings dialog. */
class tst_WheelGuard : public FilterDialogTest {
    Q_OBJECT

private slots:
    void filterDialogWithoutFocus_data();
    void filterDialogWithoutFocus();
    void filterDialogWithFocus();
    void trackingSettingsWithoutFocus();
    void wheelReachesTheAreaAround();

private:
    /** Turns the wheel as the window system does, which may give the box the focus. */
    static void turnWheel(QWidget *box)
    {
        const QPointF point = box->rect().center();
        QWheelEvent event(point, box->mapToGlobal(point.toPoint()), QPoint(), QPoint(0, -120),
                          Qt::NoButton, Qt::NoModifier, Qt::NoScrollPhase, false);
        QSpontaneKeyEvent::setSpontaneous(&event);
        qApp->notify(box, &event);
        Drive::settle();
    }
};

void tst_WheelGuard::filterDialogWithoutFocus_data()
{
    QTest::addColumn<QString>("box");
    for (const char *box : {"comboBox_body", "comboBox_preset", "doubleSpinBox_strength",
                            "spinBox_prediction", "comboBox_mode"})
        QTest::newRow(box) << box;
}

void tst_WheelGuard::filterDialogWithoutFocus()
{
    QFETCH(QString, box);
    ControllerState state = smallState();
    std::swap(state.filterPresets[0], state.filterPresets[1]);
    TestHost host(state);
    visit(host, standard, allBodies, [&](const FilterWidgets &w) {
        w.active->setFocus();
        auto *target = Drive::find<QWidget>(w.dialog, qPrintable(box));
        QVERIFY(target->isEnabled());
        host.clear();
        turnWheel(target);
        QVERIFY(w.active->hasFocus());
        QCOMPARE(w.body->currentIndex(), 0);
        QCOMPARE(w.preset->currentText(), QString("Custom"));
        QCOMPARE(w.strength->text(), QString("0.42"));
        QCOMPARE(w.prediction->text(), QString("20"));
        QCOMPARE(w.mode->currentText(), QString("Adaptive fast"));
        QCOMPARE(host.lines(), QStringList());
    });
    QCOMPARE(host.writes(), QStringList());
}

void tst_WheelGuard::filterDialogWithFocus()
{
    ControllerState state = smallState();
    std::swap(state.filterPresets[0], state.filterPresets[1]);
    TestHost host(state);
    visit(host, standard, 0, [&](const FilterWidgets &w) {
        w.preset->setFocus();
        turnWheel(w.preset);
        QCOMPARE(w.preset->currentText(), QString("Default"));
    });
    QCOMPARE(host.writes(), QStringList{"body filter6d_preset standard b01 preset6d_default"});
}

void tst_WheelGuard::trackingSettingsWithoutFocus()
{
    TestHost host;
    TrackingDlg dialog(&host.io, &host.mainWindow, &host.versions, "v3.0.6");
    robot().expectDialog("TrackingDlg", [&](QWidget *window) {
        auto *axis = Drive::find<QComboBox>(window, "comboBox_5dofAxis");
        const int before = axis->currentIndex();
        QVERIFY(axis->isEnabled());
        Drive::find<QWidget>(window, "pushButton_ok")->setFocus();
        turnWheel(axis);
        QCOMPARE(axis->currentIndex(), before);
        QVERIFY(!axis->hasFocus());
        host.clear();
        Drive::click(window, "pushButton_ok");
    });
    dialog.update_and_exec();
    QCOMPARE(host.writes(), QStringList());
}

void tst_WheelGuard::wheelReachesTheAreaAround()
{
    TestHost host(smallState());
    visit(host, standard, 0, [&](const FilterWidgets &w) {
        struct Counter : QObject {
            bool eventFilter(QObject *, QEvent *event) override
            {
                turns += event->type() == QEvent::Wheel ? 1 : 0;
                return false;
            }
            int turns = 0;
        } counter;
        w.active->setFocus();
        w.dialog->installEventFilter(&counter);
        turnWheel(w.preset);
        QCOMPARE(counter.turns, 1);
    });
}

TRACKING_TEST_MAIN(tst_WheelGuard)
#include "tst_wheelguard.moc"
