#include "administrationfixture.h"

#include <QAbstractButton>

/** The texts and the keys of the body administration and its pages. */
class tst_BodyAdministrationTexts : public AdministrationFixture {
    Q_OBJECT

private slots:
    void showsTexts_data();
    void showsTexts();
    void namesItself();
    void f8WorksFromEveryTable();
    void calibrationHasKey();
};

void tst_BodyAdministrationTexts::showsTexts_data()
{
    QTest::addColumn<QByteArray>("form");
    QTest::addColumn<QByteArray>("widget");
    QTest::addColumn<QString>("text");
    QTest::addColumn<QString>("whatsThis");
    const auto row = [](const char *form, const char *widget, const char *text,
                        const char *whatsThis) {
        QTest::addRow("%s %s", form, widget)
                << QByteArray(form) << QByteArray(widget) << QString::fromLatin1(text)
                << QString::fromLatin1(whatsThis);
    };
    const char *dialog = "BodyAdministrationDlg";
    row(dialog, "pushButton_filter", "Fi&lter", "Adjust 6DOF filter for bodies");
    row(dialog, "pushButton_calibration", "&Custom Calibration", "Calibrate the selected body");
    row(dialog, "pushButton_hybridCalibration", "&Hybrid Body Calibration",
        "Calibrate the selected hybrid body");
    row(dialog, "pushButton_body_adjustment", "&Body Adjustment",
        "Adjust the coordinate system of the selected body");
    row(dialog, "pushButton_exit", "E&xit", "Save changes and close dialog");

    row(joywandPage, "label_numJoywands", "&number of joywands", "");
    row(joywandPage, "spinBox_joywands", "", "Adjust number of joywands");
    row(joywandPage, "label_error", "", "");
    row(joywandPage, "tableWidget_joywand", "", "Available joywands");
    row(joywandPage, "pushButton_filter", "Fi&lter", "Open filter dialog");
    row(joywandPage, "pushButton_calibration", "&Custom calibration",
        "Open custom body calibration");
    row(joywandPage, "pushButton_select", "<< S&elect",
        "Assign joywand target to selected joywand");
    row(joywandPage, "pushButton_deselect", ">> &Deselect",
        "Remove joywand target from selected joywand");
    row(joywandPage, "tableWidget_targetlibrary", "",
        "Available joywand targets from target library");
    row(joywandPage, "label_targetlibrary", "found targets: 0; already calibrated: 0",
        "Result of search");
    row(joywandPage, "progressBar", "", "Progress of search");
    row(joywandPage, "pushButton_start", "S&tart search",
        "Start search for joywand targets in tracking volume");
    row(joywandPage, "pushButton_stop", "Sto&p", "Stop search");
    row(joywandPage, "label_head", "MultiUser head target:", "");
    row(joywandPage, "tableWidget_head", "", "Available joywand MultiUser head targets");

    row(toolsPage, "spinBox_mt", "", "Adjust number of Measurement Tools");
    row(toolsPage, "spinBox_mtref", "", "Adjust number of Measurement Tool references");
    row(toolsPage, "label_numMt", "&number of Measurement Tools", "");
    row(toolsPage, "label_numMtref", "number of &references", "");
    row(toolsPage, "pushButton_select", "<< S&elect",
        "Assign target from targetlibrary to selected Measurement Tool reference");
    row(toolsPage, "pushButton_deselect", ">> &Deselect",
        "Remove target from selected Measurement Tool reference");
    row(toolsPage, "label_filter", "c&ategory", "");
    row(toolsPage, "comboBox_filter", "", "Filter target groups");
    row(toolsPage, "tableWidget_targetlibrary", "", "Available targets from target library");
    row(toolsPage, "label_targetlibrary", "found targets: 0; already calibrated: 0",
        "Result of search");
    row(toolsPage, "progressBar", "", "Progress of search");
    row(toolsPage, "pushButton_start", "S&tart search", "Search targets in the tracking volume");
    row(toolsPage, "pushButton_stop", "Sto&p", "Stop search");
}

void tst_BodyAdministrationTexts::showsTexts()
{
    QFETCH(QByteArray, form);
    QFETCH(QByteArray, widget);
    QFETCH(QString, text);
    QFETCH(QString, whatsThis);
    TestHost host;
    BodyAdministrationDlg dialog(&host.io, &host.mainWindow, &host.versions);
    // The texts of the form, before the first page is read.
    QWidget *root = form == "BodyAdministrationDlg" ? &dialog : page(&dialog, form);
    auto *shown = Drive::find<QWidget>(root, widget);
    QCOMPARE(shown->whatsThis(), whatsThis);
    if (auto *button = qobject_cast<QAbstractButton *>(shown))
        QCOMPARE(button->text(), text);
    else if (auto *label = qobject_cast<QLabel *>(shown))
        QCOMPARE(label->text(), text);
    else
        QVERIFY(text.isEmpty());
}

void tst_BodyAdministrationTexts::namesItself()
{
    TestHost host;
    BodyAdministrationDlg dialog(&host.io, &host.mainWindow, &host.versions);
    QCOMPARE(dialog.windowTitle(), QStringLiteral("Body Administration"));
    QCOMPARE(dialog.whatsThis(), QStringLiteral("Body administration"));
}

void tst_BodyAdministrationTexts::f8WorksFromEveryTable()
{
    TestHost host;
    BodyAdministrationDlg dialog(&host.io, &host.mainWindow, &host.versions);
    open(&dialog, [](QWidget *window) {
        const char *tables[] = {"tableWidget_standard", "tableWidget_joywand",
                                "tableWidget_fingertracking", "tableWidget_mt"};
        for (int i = 0; i < 4; ++i) {
            Drive::clickCell(table(window, tables[i]), 0, 0);
            QTest::keyClick(table(window, tables[i]), Qt::Key_F8);
            QCOMPARE(pages(window)->currentIndex(), (i + 1) % 4);
        }
        QVERIFY(window->isVisible());
    });
}

void tst_BodyAdministrationTexts::calibrationHasKey()
{
    TestHost host;
    BodyAdministrationDlg dialog(&host.io, &host.mainWindow, &host.versions);
    announceModules(host);
    open(&dialog, [](QWidget *window) {
        goTo(window, toolsPage);
        Drive::clickCell(table(window, "tableWidget_mt"), 0, 0);
        auto *button = Drive::find<QAbstractButton>(window, "pushButton_calibration");
        QCOMPARE(button->shortcut(), QKeySequence(Qt::ALT + Qt::Key_C));
        QVERIFY(!button->isDown());
        QApplication::setActiveWindow(window);
        QTest::keyClick(window, Qt::Key_C, Qt::AltModifier);
        // A key holds a button down for a moment before the button acts.
        QVERIFY(button->isDown());
    });
}

TRACKING_TEST_MAIN(tst_BodyAdministrationTexts)
#include "tst_bodyadministration_texts.moc"
