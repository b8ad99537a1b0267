#include "administrationfixture.h"

namespace {

enum ToolColumn { ToolId, ToolActive, ToolReference, ToolCalibration, ToolDelete, ToolReset };
enum RefColumn { RefId, RefActive, RefName, RefCalibration, RefDelete, RefReset };

const QString toolsNotAvailable =
        QStringLiteral("<b><font color=red>Measurement Tool is not available!</font></b>");
const QString longQuestion = QStringLiteral(
        "Delete Measurement Tool reference body %1?\n"
        "If yes, the assignment to the Measurement Tool will be deleted.\nContinue?");
const QString shortQuestion =
        QStringLiteral("Delete Measurement Tool reference body %1?\nContinue?");
const QString deactivateQuestion =
        QStringLiteral("After deactivating the reference,\n"
                       "the corresponding Measurement Tool will not be tracked.\nContinue?");
const QStringList clearFirst{"body number_of_marker measurementtool_reference b01 0",
                             "body desc measurementtool_reference b01 \"\"",
                             "measurementtool reference_of_tool b01 none",
                             "measurementtool reference_of_tool b02 none"};

/** Four tools, two of them on the first reference; four references, two of them in use. */
ControllerState fullState()
{
    return TestHost::scenario(QStringLiteral("full"));
}

} // namespace

/** The page of the measurement tools and their references. */
class tst_MtAdministration : public AdministrationFixture {
    Q_OBJECT

private slots:
    void opensWithTheExactQueries();
    void showsToolsAndReferences();
    void showsReferenceOfTool_data();
    void showsReferenceOfTool();
    void isUnavailable_data();
    void isUnavailable();
    void becomesAvailableLater();
    void formSaysThatToolsAreMissing();
    void changesCounts_data();
    void changesCounts();
    void reportsCountFailures_data();
    void reportsCountFailures();
    void limitTexts();
    void deactivatesReference_data();
    void deactivatesReference();
    void deletesReference_data();
    void deletesReference();
    void deletingReferenceFails_data();
    void deletingReferenceFails();
    void deletesTool();

private:
    static QTableWidget *tools(QWidget *shown) { return table(shown, "tableWidget_mt"); }
    static QTableWidget *references(QWidget *shown) { return table(shown, "tableWidget_ref"); }
};

void tst_MtAdministration::opensWithTheExactQueries()
{
    ControllerState state = studio();
    bodies(state, "measurementtool").resize(1);
    bodies(state, "measurementtool_reference").resize(1);
    TestHost host(state);
    BodyAdministrationDlg dialog(&host.io, &host.mainWindow, &host.versions);
    open(&dialog, [&host](QWidget *window) {
        host.clear();
        goTo(window, toolsPage);
        const auto body = [](const QString &type) {
            QStringList lines;
            for (const char *word : {"desc", "targetlib_name", "active", "calibrated",
                                     "recalibrated", "inertial_sensor"})
                lines.append(QStringLiteral("body %1 %2 b01").arg(QLatin1String(word), type));
            return lines;
        };
        const QStringList reference = QStringList{"tracking reference"};
        const QStringList warmup{"inertial available", "inertial warmup"};
        const QStringList expected =
                QStringList{"status active", customCheck, "measurementtool max_number_of_tools",
                            "measurementtool max_number_of_references",
                            "body number_of_bodies measurementtool"}
                + body(QStringLiteral("measurementtool")) + reference + warmup
                + QStringList{"measurementtool reference_of_tool b01",
                              "body number_of_bodies measurementtool_reference"}
                + body(QStringLiteral("measurementtool_reference")) + reference + warmup;
        QCOMPARE(host.lines().join(QLatin1Char('\n')), expected.join(QLatin1Char('\n')));
    });
    QCOMPARE(host.log(), QStringList());
}

void tst_MtAdministration::showsToolsAndReferences()
{
    TestHost host(fullState());
    openAt(host, toolsPage, [](QWidget *shown) {
        QCOMPARE(Drive::row(tools(shown), 0), (QStringList{"M1", "", "MR1", "Custom", "", ""}));
        QCOMPARE(Drive::column(tools(shown), ToolId), (QStringList{"M1", "M2", "M3", "M4"}));
        QCOMPARE(Drive::column(tools(shown), ToolReference),
                 (QStringList{"MR1", "MR1", "MR3", ""}));
        QCOMPARE(Drive::column(references(shown), RefId),
                 (QStringList{"MR1", "MR2", "MR3", "MR4"}));
        QCOMPARE(Drive::row(references(shown), 1),
                 (QStringList{"MR2", "", "Wall frame", "Target Library", "", ""}));
        QVERIFY(references(shown)->isColumnHidden(RefReset));
        QCOMPARE(shown->whatsThis(), QStringLiteral("Administration of Measurement Tools"));
        QCOMPARE(tools(shown)->whatsThis(), QStringLiteral("Available Measurement Tools"));
        QCOMPARE(references(shown)->whatsThis(),
                 QStringLiteral("Available Measurement Tool references"));
    });
}

void tst_MtAdministration::showsReferenceOfTool_data()
{
    QTest::addColumn<QString>("effect");
    QTest::addColumn<QString>("text");
    QTest::addColumn<QStringList>("log");
    QTest::newRow("third") << "answer \"b03\""
                           << "MR3" << QStringList();
    QTest::newRow("two digits") << "answer \"b12\""
                                << "MR12" << QStringList();
    QTest::newRow("none") << "answer \"none\""
                          << "" << QStringList();
    QTest::newRow("unreadable") << "fail"
                                << ""
                                << QStringList{
                                           "Error: Unable to get reference of measurement tool M1"};
}

void tst_MtAdministration::showsReferenceOfTool()
{
    QFETCH(QString, effect);
    QFETCH(QString, text);
    QFETCH(QStringList, log);
    TestHost host(fullState());
    host.fault(QStringLiteral("get measurementtool reference_of_tool b01 ") + effect);
    openAt(host, toolsPage, [&text](QWidget *shown) {
        QCOMPARE(Drive::cell(tools(shown), 0, ToolReference), text);
    });
    QCOMPARE(host.log(), log);
}

// Availability

void tst_MtAdministration::isUnavailable_data()
{
    QTest::addColumn<QString>("protocol");
    QTest::addColumn<QString>("fault");
    QTest::addColumn<bool>("asked");
    QTest::newRow("protocol 1.3") << "1.3"
                                  << "" << false;
    QTest::newRow("answers no") << "1.4"
                                << "get measurementtool available answer \"no\"" << true;
    QTest::newRow("answers Yes") << "1.24"
                                 << "get measurementtool available answer \"Yes\"" << true;
    QTest::newRow("unreadable") << "1.24"
                                << "get measurementtool available fail" << true;
}

void tst_MtAdministration::isUnavailable()
{
    QFETCH(QString, protocol);
    QFETCH(QString, fault);
    QFETCH(bool, asked);
    TestHost host(studio(protocol));
    if (!fault.isEmpty())
        host.fault(fault);
    BodyAdministrationDlg dialog(&host.io, &host.mainWindow, &host.versions);
    open(&dialog, [](QWidget *window) {
        goTo(window, toolsPage);
        QWidget *shown = page(window, toolsPage);
        QCOMPARE(label(shown, "label_error"), toolsNotAvailable);
        QVERIFY(isVisible(shown, "label_error"));
        for (const char *name :
             {"tableWidget_mt", "tableWidget_ref", "spinBox_mt", "spinBox_mtref",
              "tableWidget_targetlibrary", "pushButton_start", "label_error_ref"})
            QVERIFY2(!isVisible(shown, name), name);
        for (const char *name :
             {"pushButton_filter", "pushButton_hybridCalibration", "pushButton_body_adjustment"})
            QVERIFY2(!isEnabled(window, name), name);
    });
    QCOMPARE(host.queries().contains(QStringLiteral("measurementtool available")), asked);
    QCOMPARE(host.queries().filter(QRegularExpression("^body .* measurementtool")), QStringList());
    // The query is sent when the page is made and when it is shown.
    const QString line = QStringLiteral("Error: Unable to get availability of measurement tools");
    QCOMPARE(host.log(),
             fault.endsWith(QLatin1String("fail")) ? QStringList({line, line}) : QStringList());
}

void tst_MtAdministration::becomesAvailableLater()
{
    ControllerState state = studio();
    state.measurementToolAvailable = false;
    TestHost host(state);
    BodyAdministrationDlg dialog(&host.io, &host.mainWindow, &host.versions);
    open(&dialog, [](QWidget *window) {
        goTo(window, toolsPage);
        QCOMPARE(label(page(window, toolsPage), "label_error"), toolsNotAvailable);
    });
    host.edit([](ControllerState &changed) { changed.measurementToolAvailable = true; });
    open(&dialog, [&host](QWidget *window) {
        QWidget *shown = page(window, toolsPage);
        QVERIFY(isVisible(shown, "tableWidget_mt"));
        QCOMPARE(label(shown, "label_error"), QString());
        QCOMPARE(tools(shown)->rowCount(), 2);
        // The availability is not queried again when the tools are available.
        host.clear();
        goTo(window, standardPage);
        goTo(window, toolsPage);
        QVERIFY(!host.queries().contains(QStringLiteral("measurementtool available")));
    });
}

void tst_MtAdministration::formSaysThatToolsAreMissing()
{
    TestHost host;
    BodyAdministrationDlg dialog(&host.io, &host.mainWindow, &host.versions);
    QCOMPARE(label(page(&dialog, toolsPage), "label_error"),
             QStringLiteral("Measurement Tool is not available!"));
    open(&dialog, [](QWidget *window) {
        goTo(window, toolsPage);
        QCOMPARE(label(page(window, toolsPage), "label_error"), QString());
    });
}

// Counts

void tst_MtAdministration::changesCounts_data()
{
    QTest::addColumn<QByteArray>("spinBox");
    QTest::addColumn<QString>("command");
    QTest::addColumn<QString>("type");
    QTest::newRow("tools") << QByteArray("spinBox_mt") << "measurementtool number_of_tools 4"
                           << "measurementtool";
    QTest::newRow("references") << QByteArray("spinBox_mtref")
                                << "measurementtool number_of_references 4"
                                << "measurementtool_reference";
}

void tst_MtAdministration::changesCounts()
{
    QFETCH(QByteArray, spinBox);
    QFETCH(QString, command);
    QFETCH(QString, type);
    TestHost host;
    openAt(host, toolsPage, [&](QWidget *shown) {
        host.clear();
        Drive::typeNumber(Drive::find<QSpinBox>(shown, spinBox), QStringLiteral("4"));
        QCOMPARE(changes(host), QStringList{command});
    });
    QCOMPARE(host.state().bodyTypes[type].bodies.size(), 4);
}

void tst_MtAdministration::reportsCountFailures_data()
{
    QTest::addColumn<QString>("fault");
    QTest::addColumn<QByteArray>("spinBox");
    QTest::addColumn<int>("maximum");
    QTest::addColumn<QString>("line");
    QTest::newRow("maximum of tools")
            << "get measurementtool max_number_of_tools fail" << QByteArray("spinBox_mt") << 4
            << "Error: Unable to get max number of measurementtool bodies";
    QTest::newRow("maximum of references")
            << "get measurementtool max_number_of_references fail" << QByteArray("spinBox_mtref")
            << 4 << "Error: Unable to get max number of measurementtool_reference bodies";
    QTest::newRow("number of tools")
            << "set measurementtool number_of_tools* refuse" << QByteArray("spinBox_mt") << 4
            << "Error: Unable to set number of measurementtool bodies to 1";
    QTest::newRow("number of references")
            << "set measurementtool number_of_references* refuse" << QByteArray("spinBox_mtref")
            << 6 << "Error: Unable to set number of measurementtool_reference bodies to 1";
}

void tst_MtAdministration::reportsCountFailures()
{
    QFETCH(QString, fault);
    QFETCH(QByteArray, spinBox);
    QFETCH(int, maximum);
    QFETCH(QString, line);
    TestHost host;
    host.fault(fault);
    openAt(host, toolsPage, [&](QWidget *shown) {
        auto *count = Drive::find<QSpinBox>(shown, spinBox);
        QCOMPARE(count->maximum(), maximum);
        const bool reads = fault.startsWith(QLatin1String("get"));
        const int before = count->value();
        Drive::typeNumber(count, QStringLiteral("1"));
        QCOMPARE(count->value(), reads ? 1 : before);
    });
    QCOMPARE(host.log(), QStringList{line});
}

void tst_MtAdministration::limitTexts()
{
    TestHost host;
    openAt(host, toolsPage, [](QWidget *shown) {
        const QString toolLimit = QStringLiteral(
                "<b><font color=red>Max. number of Measurement Tools is reached!</font></b>");
        const QString referenceLimit = QStringLiteral(
                "<b><font color=red>Max. number of Measurement references is reached!</font></b>");
        QCOMPARE(label(shown, "label_error"), QString());
        QCOMPARE(label(shown, "label_error_ref"), QString());
        Drive::typeNumber(Drive::find<QSpinBox>(shown, "spinBox_mt"), QStringLiteral("4"));
        QCOMPARE(label(shown, "label_error"), toolLimit);
        QCOMPARE(label(shown, "label_error_ref"), QString());
        Drive::typeNumber(Drive::find<QSpinBox>(shown, "spinBox_mtref"), QStringLiteral("6"));
        QCOMPARE(label(shown, "label_error"), toolLimit);
        QCOMPARE(label(shown, "label_error_ref"), referenceLimit);
        Drive::typeNumber(Drive::find<QSpinBox>(shown, "spinBox_mt"), QStringLiteral("3"));
        QCOMPARE(label(shown, "label_error"), QString());
        QCOMPARE(label(shown, "label_error_ref"), referenceLimit);
    });
}

// Activeness

void tst_MtAdministration::deactivatesReference_data()
{
    QTest::addColumn<int>("row");
    QTest::addColumn<bool>("calibrated");
    QTest::addColumn<bool>("used");
    QTest::addColumn<bool>("active");
    QTest::addColumn<int>("answer");
    QTest::addColumn<QStringList>("written");
    const auto line = [](const char *text) {
        return QStringList{QStringLiteral("body active measurementtool_reference ")
                           + QLatin1String(text)};
    };
    const int none = 0;
    QTest::newRow("used, yes") << 0 << true << true << true << int(Box::Yes) << line("b01 no");
    QTest::newRow("used, no") << 0 << true << true << true << int(Box::No) << QStringList();
    QTest::newRow("not used") << 2 << true << false << true << none << line("b03 no");
    QTest::newRow("not calibrated") << 0 << false << true << true << none << line("b01 no");
    QTest::newRow("activated") << 0 << true << true << false << none << line("b01 yes");
}

void tst_MtAdministration::deactivatesReference()
{
    QFETCH(int, row);
    QFETCH(bool, calibrated);
    QFETCH(bool, used);
    QFETCH(bool, active);
    QFETCH(int, answer);
    QFETCH(QStringList, written);
    ControllerState state = fullState();
    BodyState &reference = bodies(state, "measurementtool_reference")[row];
    reference.calibrated = calibrated;
    reference.active = active;
    if (!used) {
        for (BodyState &tool : bodies(state, "measurementtool"))
            tool.reference = QStringLiteral("b01");
    }
    TestHost host(state);
    openAt(host, toolsPage, [&](QWidget *shown) {
        host.clear();
        if (answer != 0)
            robot().expectBox(boxTitle, deactivateQuestion, Box::StandardButton(answer));
        Drive::toggleCell(references(shown), row, RefActive);
        QCOMPARE(changes(host), written);
        const BodyState &now =
                host.state().bodyTypes[QStringLiteral("measurementtool_reference")].bodies[row];
        QCOMPARE(now.active, written.isEmpty() ? active : !active);
        const QTableWidgetItem *item = references(shown)->item(row, RefActive);
        if (now.active || now.calibrated)
            QCOMPARE(item->checkState() == Qt::Checked, now.active);
    });
    QCOMPARE(host.log(), QStringList());
}

// Deleting

void tst_MtAdministration::deletesReference_data()
{
    QTest::addColumn<int>("row");
    QTest::addColumn<QString>("text");
    QTest::addColumn<int>("answer");
    QTest::addColumn<QStringList>("written");
    QTest::newRow("two tools, yes") << 0 << longQuestion.arg("01") << int(Box::Yes) << clearFirst;
    QTest::newRow("two tools, no") << 0 << longQuestion.arg("01") << int(Box::No) << QStringList();
    QTest::newRow("one tool") << 2 << longQuestion.arg("03") << int(Box::Yes)
                              << QStringList{
                                         "body number_of_marker measurementtool_reference b03 0",
                                         "body desc measurementtool_reference b03 \"\"",
                                         "measurementtool reference_of_tool b03 none"};
    QTest::newRow("no tool") << 1 << shortQuestion.arg("02") << int(Box::Yes)
                             << QStringList{"body number_of_marker measurementtool_reference b02 0",
                                            "body desc measurementtool_reference b02 \"\""};
}

void tst_MtAdministration::deletesReference()
{
    QFETCH(int, row);
    QFETCH(QString, text);
    QFETCH(int, answer);
    QFETCH(QStringList, written);
    TestHost host(fullState());
    openAt(host, toolsPage, [&](QWidget *shown) {
        const QString id = QStringLiteral("MR%1").arg(row + 1);
        host.clear();
        robot().expectBox(boxTitle, text, Box::StandardButton(answer));
        Drive::clickCell(references(shown), row, RefDelete);
        QCOMPARE(changes(host), written);
        const bool done = !written.isEmpty();
        QCOMPARE(Drive::cell(references(shown), row, RefCalibration),
                 done ? QStringLiteral("not calibrated") : QStringLiteral("Target Library"));
        QCOMPARE(Drive::column(tools(shown), ToolReference).contains(id), !done);
    });
    QCOMPARE(host.log(), QStringList());
    if (written == clearFirst) {
        const QVector<BodyState> now =
                host.state().bodyTypes[QStringLiteral("measurementtool")].bodies;
        QCOMPARE(now.at(0).reference, QString());
        QCOMPARE(now.at(1).reference, QString());
        QCOMPARE(now.at(2).reference, QStringLiteral("b03"));
    }
}

void tst_MtAdministration::deletingReferenceFails_data()
{
    QTest::addColumn<QString>("fault");
    QTest::addColumn<QString>("line");
    QTest::addColumn<int>("sent");
    QTest::newRow("markers") << "set body number_of_marker* refuse"
                             << "Error: Unable to reset markers of Measurement tool reference 01"
                             << 1;
    QTest::newRow("description") << "set body desc* refuse"
                                 << "Unable to reset description of Measurement tool reference 01"
                                 << 4;
    QTest::newRow("tool") << "set measurementtool reference_of_tool b01* refuse"
                          << "Error: Unable to set ref. body" << 4;
}

void tst_MtAdministration::deletingReferenceFails()
{
    QFETCH(QString, fault);
    QFETCH(QString, line);
    QFETCH(int, sent);
    TestHost host(fullState());
    openAt(host, toolsPage, [&](QWidget *shown) {
        host.fault(fault);
        host.clear();
        robot().expectBox(boxTitle, longQuestion.arg("01"), Box::Yes);
        robot().expectBox(warning, QStringLiteral("Delete body 01 failed\nTable frame"), Box::Ok);
        Drive::clickCell(references(shown), 0, RefDelete);
        QCOMPARE(changes(host), clearFirst.mid(0, sent));
        QCOMPARE(host.log(), QStringList{line});
        // The page shows the controller's present state.
        const BodyState &now =
                host.state().bodyTypes[QStringLiteral("measurementtool_reference")].bodies[0];
        QCOMPARE(Drive::cell(references(shown), 0, RefName), now.description);
        QCOMPARE(Drive::cell(references(shown), 0, RefCalibration)
                         == QLatin1String("not calibrated"),
                 !now.calibrated);
        for (int row = 0; row < 2; ++row) {
            const BodyState &tool =
                    host.state().bodyTypes[QStringLiteral("measurementtool")].bodies[row];
            QCOMPARE(Drive::cell(tools(shown), row, ToolReference),
                     tool.reference.isEmpty() ? QString() : QStringLiteral("MR1"));
        }
    });
}

void tst_MtAdministration::deletesTool()
{
    TestHost host(fullState());
    openAt(host, toolsPage, [&](QWidget *shown) {
        host.clear();
        robot().expectBox(boxTitle,
                          QStringLiteral("Delete geometry of Measurement tool 03?\nProbe bent"),
                          Box::Yes);
        Drive::clickCell(tools(shown), 2, ToolDelete);
        QCOMPARE(changes(host), (QStringList{"body number_of_marker measurementtool b03 0",
                                             "body desc measurementtool b03 \"\""}));
    });
}

TRACKING_TEST_MAIN(tst_MtAdministration)
#include "tst_mtadministration.moc"
