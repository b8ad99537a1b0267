#include "TrackingDlg.h"
#include "bodysettingsdlg.h"
#include "filterdialogtest.h"
#include "fixedangledlg.h"

#include <QPushButton>

/** A host that runs its event loop, or shuts down, while a settings dialog waits for an answer. */
class tst_SpinningHost : public FilterDialogTest {
    Q_OBJECT

private slots:
    void okRunsOnce_data();
    void okRunsOnce();
    void cancelDuringOkIsIgnored_data();
    void cancelDuringOkIsIgnored();
    void openedAgainWhileReading();
    void deletedWhileWriting_data();
    void deletedWhileWriting();
    void deletedWhileReading_data();
    void deletedWhileReading();
    void filterDialogDeletedWhileReading_data();
    void filterDialogDeletedWhileReading();
    void filterDialogDeletedWhileClosing();
    void filterDialogOpenedForAnotherTypeWhileReading();

private:
    /** Runs `action` once, inside the first operation whose line begins with `beginning`. */
    void inside(TestHost *host, const QString &beginning, const std::function<void()> &action)
    {
        const auto done = std::make_shared<bool>(false);
        connect(&host->io, &SimulatedIOManager::recorded, this, [=](const TranscriptEntry &entry) {
            if (*done || entry.operation == TranscriptEntry::Operation::Message
                || !QString::fromUtf8(entry.line).startsWith(beginning))
                return;
            *done = true;
            action();
        });
    }

    static ControllerState state()
    {
        ControllerState found = smallState();
        found.bodyTypes["standard"].bodies[0].fixedAngles[0].enabled = true;
        return found;
    }

    static std::unique_ptr<QDialog> make(const QString &name, TestHost *host)
    {
        if (name == QLatin1String("TrackingDlg"))
            return std::make_unique<TrackingDlg>(&host->io, &host->mainWindow, &host->versions,
                                                 "v3.0.6");
        if (name == QLatin1String("FixedAngleDlg"))
            return std::make_unique<FixedAngleDlg>(&host->io, &host->mainWindow, &host->versions);
        return std::make_unique<BodySettingsDlg>(&host->io, &host->mainWindow, &host->versions,
                                                 "v3.0.6");
    }

    static int run(QDialog *dialog)
    {
        if (auto *tracking = qobject_cast<TrackingDlg *>(dialog))
            return tracking->update_and_exec();
        if (auto *angles = qobject_cast<FixedAngleDlg *>(dialog))
            return angles->update_and_exec();
        return qobject_cast<BodySettingsDlg *>(dialog)->update_and_exec();
    }

    /** Changes a value in dialogs whose OK writes nothing without a change. */
    static void touch(QWidget *shown)
    {
        if (auto *markers = shown->findChild<QCheckBox *>("checkBox_force3d"))
            markers->click();
    }
};

void tst_SpinningHost::okRunsOnce_data()
{
    QTest::addColumn<QString>("dialog");
    QTest::addColumn<QString>("write");
    QTest::newRow("tracking settings") << "TrackingDlg"
                                       << "standard calculate_marker ";
    QTest::newRow("fixed angles") << "FixedAngleDlg"
                                  << "standard fixed_angle b01 ";
    QTest::newRow("names") << "BodySettingsDlg"
                           << "body desc standard b01 ";
}

void tst_SpinningHost::okRunsOnce()
{
    QFETCH(QString, dialog);
    QFETCH(QString, write);
    TestHost host(state());
    const auto settings = make(dialog, &host);
    robot().expectDialog(dialog, [&](QWidget *shown) {
        touch(shown);
        host.clear();
        inside(&host, write, [shown] { Drive::click(shown, "pushButton_ok"); });
        Drive::click(shown, "pushButton_ok");
    });
    QCOMPARE(run(settings.get()), int(QDialog::Accepted));
    QStringList writes = host.writes();
    QVERIFY(writes.size() > 2);
    QVERIFY(writes.first().startsWith(write));
    QCOMPARE(writes.removeDuplicates(), 0);
}

void tst_SpinningHost::cancelDuringOkIsIgnored_data()
{
    okRunsOnce_data();
}

void tst_SpinningHost::cancelDuringOkIsIgnored()
{
    QFETCH(QString, dialog);
    QFETCH(QString, write);
    TestHost host(state());
    const auto settings = make(dialog, &host);
    robot().expectDialog(dialog, [&](QWidget *shown) {
        touch(shown);
        host.clear();
        inside(&host, write, [shown] { Drive::click(shown, "pushButton_cancel"); });
        Drive::click(shown, "pushButton_ok");
    });
    QCOMPARE(run(settings.get()), int(QDialog::Accepted));
    QCOMPARE(host.writes().filter(write.trimmed()).size(), 1);
}

void tst_SpinningHost::openedAgainWhileReading()
{
    for (const char *const word : {"TrackingDlg", "BodySettingsDlg"}) {
        const QString name = QString::fromLatin1(word);
        TestHost host(state());
        const auto dialog = make(name, &host);
        int inner = -1;
        inside(&host, name == "TrackingDlg" ? "config is_changeable" : "body desc standard b01",
               [&] { inner = run(dialog.get()); });
        robot().expectDialog(name, [](QWidget *) {});
        run(dialog.get());
        robot().verify();
        QCOMPARE(inner, int(QDialog::Rejected));
        QStringList queries = host.queries();
        QCOMPARE(queries.removeDuplicates(), 0);
    }
}

void tst_SpinningHost::deletedWhileWriting_data()
{
    QTest::addColumn<QString>("dialog");
    QTest::addColumn<QString>("line");
    for (const char *line :
         {"standard calculate_marker ", "tracking auto_restart ", "tracking axis_5dof_central "})
        QTest::newRow(line) << "TrackingDlg" << line;
    for (const char *line : {"standard fixed_angle b01 ", "standard fixed_angle b02 "})
        QTest::newRow(line) << "FixedAngleDlg" << line;
    for (const char *line : {"body desc standard b01 ", "body desc standard b03 "})
        QTest::newRow(line) << "BodySettingsDlg" << line;
}

void tst_SpinningHost::deletedWhileWriting()
{
    QFETCH(QString, dialog);
    QFETCH(QString, line);
    TestHost host(state());
    host.fault("set " + line + "* report-failed");
    auto settings = make(dialog, &host);
    robot().expectDialog(dialog, [&](QWidget *shown) {
        touch(shown);
        host.clear();
        inside(&host, line, [&] { settings.reset(); });
        QTest::keyClick(Drive::find<QPushButton>(shown, "pushButton_ok"), Qt::Key_Space);
    });
    run(settings.get());
    QVERIFY(!settings);
    // Nothing is sent to the controller after the dialog was deleted.
    QVERIFY(host.lines().last().startsWith(line));
}

void tst_SpinningHost::deletedWhileReading_data()
{
    QTest::addColumn<QString>("dialog");
    QTest::addColumn<QString>("line");
    for (const char *line :
         {"config is_changeable", "standard number_of_bodies", "standard fixed_angle b02",
          "tracking auto_restart yes", "standard calculate_marker", "tracking auto_restart",
          "tracking axis_5dof_central"})
        QTest::newRow(line) << "TrackingDlg" << line;
    for (const char *line :
         {"body number_of_bodies standard", "standard fixed_angle b01", "standard fixed_angle b03"})
        QTest::addRow("angles, %s", line) << "FixedAngleDlg" << line;
    for (const char *line : {"body number_of_bodies standard", "body calibrated standard b01",
                             "body calibrated standard b03"})
        QTest::addRow("names, %s", line) << "BodySettingsDlg" << line;
}

void tst_SpinningHost::deletedWhileReading()
{
    QFETCH(QString, dialog);
    QFETCH(QString, line);
    TestHost host(state());
    auto settings = make(dialog, &host);
    inside(&host, line, [&] { settings.reset(); });
    QCOMPARE(run(settings.get()), int(QDialog::Rejected));
    QVERIFY(!settings);
    QVERIFY(host.lines().last().startsWith(line));
}

void tst_SpinningHost::filterDialogDeletedWhileReading_data()
{
    QTest::addColumn<QString>("line");
    for (const char *line :
         {"filter6d available", "config is_changeable", "body number_of_bodies", "body calibrated",
          "body inertial_sensor", "body desc", "body filter6d_enabled",
          "body filter6d_preset_available", "body filter6d_preset ", "body filter6d_strength",
          "body filter6d_prediction", "body filter6d_mode_available", "body filter6d_mode "})
        QTest::newRow(line) << line;
}

void tst_SpinningHost::filterDialogDeletedWhileReading()
{
    QFETCH(QString, line);
    TestHost host(state());
    auto dialog = std::make_unique<FilterDialog>(&host.io, &host.mainWindow, &host.versions);
    inside(&host, line, [&] { dialog.reset(); });
    QCOMPARE(dialog.get()->update_and_exec(standard, allBodies), int(QDialog::Rejected));
    QVERIFY(!dialog);
}

void tst_SpinningHost::filterDialogDeletedWhileClosing()
{
    TestHost host(state());
    const QString line = "body filter6d_strength standard b01 0.670000";
    host.fault("set " + line + " report-failed");
    auto dialog = std::make_unique<FilterDialog>(&host.io, &host.mainWindow, &host.versions);
    robot().expectDialog("FilterDialog", [&](QWidget *shown) {
        const FilterWidgets w(shown);
        inside(&host, line, [&] { dialog.reset(); });
        // Closing sends two unfinished edits; the second one comes too late.
        w.prediction->stepUp();
        type(w.strength, "0.67");
        w.dialog->close();
    });
    dialog.get()->update_and_exec(standard, 0);
    QVERIFY(!dialog);
    QCOMPARE(host.lines().last(), line);
}

void tst_SpinningHost::filterDialogOpenedForAnotherTypeWhileReading()
{
    TestHost host(state());
    FilterDialog dialog(&host.io, &host.mainWindow, &host.versions);
    constexpr int unknownType = 7;
    inside(&host, "config is_changeable", [&] { dialog.update_and_exec(unknownType, allBodies); });
    for (int shown = 0; shown < 2; ++shown) {
        robot().expectDialog("FilterDialog", [&](QWidget *shownDialog) {
            QCOMPARE(entries(FilterWidgets(shownDialog).body), QStringList());
        });
    }
    dialog.update_and_exec(standard, allBodies);
    robot().verify();
    QCOMPARE(host.writes(), QStringList());
}

TRACKING_TEST_MAIN(tst_SpinningHost)
#include "tst_spinninghost.moc"
