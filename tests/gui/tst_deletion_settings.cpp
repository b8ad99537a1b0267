#include "deletionsweep.h"
#include "filterdialogtest.h"
#include "interruption.h"

namespace {

constexpr const char *filter = "FilterDialog";

} // namespace

/** A host that deletes its window inside any operation of the filter or a settings dialog. */
class tst_DeletionSettings : public DeletionSweep {
    Q_OBJECT

private slots:
    void ofTheFilter_data();
    void ofTheFilter();
    void ofTheSettings_data();
    void ofTheSettings();
    void widgetsOutliveInsideAnOperationOnly();

private:
    using User = std::function<void(const FilterWidgets &)>;

    static Deed::Act with(const User &user)
    {
        return [user](QWidget *window, TestHost &) { user(FilterWidgets(window)); };
    }
    /** Gives the box the focus and replaces its text by typing. */
    static void type(QAbstractSpinBox *box, const QString &text)
    {
        box->setFocus(Qt::TabFocusReason);
        UserInput::replaceText(box, text);
    }
    /** Clicks as a mouse does, which also gives the widget the focus. */
    static void clickWithFocus(QWidget *widget)
    {
        const QPointer<QWidget> guard(widget);
        QTest::mousePress(widget, Qt::LeftButton);
        if (guard)
            QTest::mouseRelease(widget, Qt::LeftButton);
    }
    static Deed::Act press(const char *button)
    {
        return [button](QWidget *window, TestHost &) { Drive::click(window, button); };
    }
};

void tst_DeletionSettings::ofTheFilter_data()
{
    QTest::addColumn<Deed>("deed");
    const auto add = [](const char *name, const User &user, const char *opens = "") {
        Deed deed{filter, with(user)};
        deed.opens = opens;
        QTest::newRow(name) << deed;
    };
    QTest::newRow("opening") << Deed{filter};
    Deed old{filter};
    old.protocol = "1.20";
    QTest::newRow("opening of an old one") << old;
    add("body",
        [](const FilterWidgets &w) { Drive::choose(w.body, "standard body 02 (Glasses round)"); });
    add("check box", [](const FilterWidgets &w) { UserInput::click(w.active); });
    add("check box by key", [](const FilterWidgets &w) {
        w.active->setFocus();
        UserInput::pressKey(w.active, Qt::Key_Space);
    });
    add("preset", [](const FilterWidgets &w) { Drive::choose(w.preset, w.preset->itemText(0)); });
    add("preset by the mouse", [](const FilterWidgets &w) {
        w.preset->showPopup();
        UserInput::clickItem(w.preset->view(), w.preset->model()->index(0, 0));
    });
    add("preset by key", [](const FilterWidgets &w) {
        w.preset->setFocus();
        UserInput::pressKey(w.preset, Qt::Key_Up);
    });
    add("mode", [](const FilterWidgets &w) { Drive::choose(w.mode, w.mode->itemText(1)); });
    add("strength and Enter", [](const FilterWidgets &w) {
        type(w.strength, "0.67");
        UserInput::pressKey(w.strength, Qt::Key_Return);
    });
    add("strength and Tab", [](const FilterWidgets &w) {
        type(w.strength, "0.67");
        UserInput::pressKey(w.strength, Qt::Key_Tab);
    });
    add("strength and the next box", [](const FilterWidgets &w) {
        type(w.strength, "0.67");
        clickWithFocus(w.prediction);
    });
    add("strength and the check box", [](const FilterWidgets &w) {
        type(w.strength, "0.67");
        clickWithFocus(w.active);
    });
    add("strength and Exit", [](const FilterWidgets &w) {
        type(w.strength, "0.67");
        clickWithFocus(Drive::find<QPushButton>(w.dialog, "pushButton_exit"));
    });
    add("strength and Escape", [](const FilterWidgets &w) { type(w.strength, "0.67"); });
    add("prediction and Enter", [](const FilterWidgets &w) {
        type(w.prediction, "45");
        UserInput::pressKey(w.prediction, Qt::Key_Return);
    });
    add(
            "prediction and Help",
            [](const FilterWidgets &w) {
                type(w.prediction, "45");
                clickWithFocus(Drive::find<QPushButton>(w.dialog, "pushButton_help"));
            },
            "FilterHelp");
    add("an arrow of the prediction", [](const FilterWidgets &w) {
        w.prediction->setFocus();
        UserInput::pressKey(w.prediction, Qt::Key_Up);
        UserInput::pressKey(w.prediction, Qt::Key_Tab);
    });
}

void tst_DeletionSettings::ofTheFilter()
{
    QFETCH(Deed, deed);
    sweep(deed);
}

void tst_DeletionSettings::ofTheSettings_data()
{
    QTest::addColumn<Deed>("deed");
    for (const char *name : {"TrackingDlg", "FixedAngleDlg", "BodySettingsDlg"}) {
        QTest::addRow("opening of %s", name) << Deed{name};
        QTest::addRow("OK of %s", name)
                << Deed{name, press("pushButton_ok"), [](QWidget *window, TestHost &) {
                            if (auto *markers = window->findChild<QCheckBox *>("checkBox_force3d"))
                                markers->click();
                        }};
    }
    QTest::newRow("cancel of TrackingDlg")
            << Deed{"TrackingDlg", press("pushButton_cancel"),
                    [](QWidget *window, TestHost &) { Drive::click(window, "checkBox_force3d"); }};
    Deed angles{"BodySettingsDlg", press("pushButton_special")};
    angles.opens = "FixedAngleDlg";
    QTest::newRow("fixed angles of the names") << angles;
}

void tst_DeletionSettings::ofTheSettings()
{
    QFETCH(Deed, deed);
    sweep(deed);
}

void tst_DeletionSettings::widgetsOutliveInsideAnOperationOnly()
{
    for (const bool isInside : {true, false}) {
        TestHost host;
        auto *window = new QWidget;
        auto *dialog = new FilterDialog(&host.io, window, &host.versions);
        const QPointer<QWidget> preset = Drive::find<QWidget>(dialog, "comboBox_preset");
        bool outlived = false;
        const Interruption deletion(host.io, Interruption::atFirst("filter6d available standard"),
                                    [&] {
                                        delete window;
                                        outlived = preset && !preset->isVisible();
                                    });
        if (isInside)
            dialog->update_and_exec(0, -1);
        else
            delete window;
        QCOMPARE(outlived, isInside);
        QCOMPARE(!preset.isNull(), isInside);
        QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
        QVERIFY(!preset);
    }
}

TRACKING_TEST_MAIN(tst_DeletionSettings)
#include "tst_deletion_settings.moc"
