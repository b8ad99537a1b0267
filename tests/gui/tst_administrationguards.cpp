#include "UserInput.h"
#include "administrationfixture.h"

#include <QComboBox>
#include <QImage>

namespace {

const QString allocation = QStringLiteral("morvek2 body calibrate_from_targetlib ");

QImage windowIconImage(const QIcon &icon)
{
    return icon.pixmap(32, 32).toImage();
}

} // namespace

/** Changes by the controller or another client during an action must not lead to wrong actions. */
class tst_AdministrationGuards : public AdministrationFixture {
    Q_OBJECT

private slots:
    void forbiddenSignsReachNoCommand_data();
    void forbiddenSignsReachNoCommand();
    void lockArrivesWhileOpen();
    void unnamedTargetTakesNobodysTarget_data();
    void unnamedTargetTakesNobodysTarget();
    void uncountedHoldersAreNotAsked_data();
    void uncountedHoldersAreNotAsked();
    void rowGoneBeforeItsAction_data();
    void rowGoneBeforeItsAction();
    void headsHiddenBeforeTheCountChanges();
    void garbledReferenceOfToolShowsNone_data();
    void garbledReferenceOfToolShowsNone();
    void dialogDeletedWhileReferenceFailureIsShown();

private:
    /** A button of the dialog; its pages have buttons of the same names. */
    static QPushButton *ownButton(QWidget *window, const char *name)
    {
        return window->findChild<QPushButton *>(QString::fromLatin1(name),
                                                Qt::FindDirectChildrenOnly);
    }
    /** Chooses the category, then the target of that identifier. */
    static void pickTarget(QWidget *shown, const QString &category, const QString &targetId);
};

void tst_AdministrationGuards::pickTarget(QWidget *shown, const QString &category,
                                          const QString &targetId)
{
    Drive::choose(Drive::find<QComboBox>(shown, "comboBox_filter"), category);
    QTableWidget *targets = table(shown, "tableWidget_targetlibrary");
    const int row = Drive::column(targets, 0).indexOf(targetId);
    QVERIFY2(row >= 0, qPrintable(targetId));
    press(targets, row, 1);
}

// Names

void tst_AdministrationGuards::forbiddenSignsReachNoCommand_data()
{
    QTest::addColumn<QByteArray>("form");
    QTest::addColumn<QByteArray>("bodyTable");
    QTest::addColumn<int>("column");
    QTest::addColumn<QString>("type");
    const auto row = [](const char *form, const char *bodyTable, int column, const char *type) {
        QTest::newRow(type) << QByteArray(form) << QByteArray(bodyTable) << column
                            << QString::fromLatin1(type);
    };
    row(standardPage, "tableWidget_standard", 3, "standard");
    row(joywandPage, "tableWidget_joywand", 2, "joywand");
    row(handsPage, "tableWidget_fingertracking", 2, "fingertracking");
    row(toolsPage, "tableWidget_ref", 2, "measurementtool_reference");
}

void tst_AdministrationGuards::forbiddenSignsReachNoCommand()
{
    QFETCH(QByteArray, form);
    QFETCH(QByteArray, bodyTable);
    QFETCH(int, column);
    QFETCH(QString, type);
    TestHost host;
    openAt(host, form, [&](QWidget *shown) {
        host.clear();
        Drive::typeIntoCell(table(shown, bodyTable), 0, column, QStringLiteral("A\"b%s\\'<&>e\t"));
        QCOMPARE(changes(host), QStringList{QStringLiteral("body desc %1 b01 \"Abse\"").arg(type)});
    });
}

// The lock

void tst_AdministrationGuards::lockArrivesWhileOpen()
{
    TestHost host;
    QPixmap picture(32, 32);
    picture.fill(Qt::darkGreen);
    host.mainWindow.setWindowIcon(picture);
    BodyAdministrationDlg dialog(&host.io, &host.mainWindow, &host.versions);
    announceModules(host);
    open(&dialog, [&](QWidget *window) {
        press(bodies(window), 3, IdColumn);
        for (const bool locked : {false, true, false}) {
            host.edit([=](ControllerState &state) { state.configChangeable = !locked; });
            configurationChanged(host);
            for (const char *button : actionButtons)
                QVERIFY2(ownButton(window, button)->isEnabled() != locked, button);
            const QIcon expected =
                    locked ? QIcon(QStringLiteral(":/lock.png")) : host.mainWindow.windowIcon();
            QCOMPARE(windowIconImage(window->windowIcon()), windowIconImage(expected));
        }
    });
}

// Assignment

void tst_AdministrationGuards::unnamedTargetTakesNobodysTarget_data()
{
    QTest::addColumn<QByteArray>("form");
    QTest::addColumn<QByteArray>("bodyTable");
    QTest::addColumn<QString>("category");
    QTest::addColumn<int>("target");
    QTest::addColumn<QString>("sent");
    QTest::newRow("standard body") << QByteArray(standardPage) << QByteArray("tableWidget_standard")
                                   << "Cross Target" << 1 << "standard b01 t02";
    QTest::newRow("reference") << QByteArray(toolsPage) << QByteArray("tableWidget_ref")
                               << "Tool Reference" << 21 << "measurementtool_reference b01 t22";
}

void tst_AdministrationGuards::unnamedTargetTakesNobodysTarget()
{
    QFETCH(QByteArray, form);
    QFETCH(QByteArray, bodyTable);
    QFETCH(QString, category);
    QFETCH(int, target);
    QFETCH(QString, sent);
    TestHost host(studio([&](ControllerState &state) {
        state.targets[target].shortName.clear();
        for (BodyTypeState &type : state.bodyTypes) {
            for (BodyState &body : type.bodies)
                body.description.clear();
        }
    }));
    // No body holds a target, and the controller's answer is empty.
    host.fault(QStringLiteral("get body targetlib_name* empty"));
    openAt(host, form, [&](QWidget *shown) {
        press(table(shown, bodyTable), 0, 0);
        pickTarget(shown, category, QStringLiteral("t%1").arg(target + 1, 2, 10, QChar('0')));
        host.clear();
        Drive::click(shown, "pushButton_select");
        Drive::settle();
        QCOMPARE(changes(host), QStringList{allocation + sent});
    });
    QCOMPARE(robot().boxes(), QStringList());
}

void tst_AdministrationGuards::uncountedHoldersAreNotAsked_data()
{
    QTest::addColumn<QByteArray>("form");
    QTest::addColumn<QByteArray>("bodyTable");
    QTest::addColumn<QString>("category");
    QTest::addColumn<QString>("target");
    QTest::addColumn<QString>("count");
    QTest::addColumn<QString>("holder");
    QTest::addColumn<QString>("sent");
    QTest::newRow("references") << QByteArray(standardPage) << QByteArray("tableWidget_standard")
                                << "Cross Target"
                                << "t05"
                                << "measurementtool number_of_references"
                                << "body targetlib_name measurementtool_reference"
                                << "standard b01 t05";
    QTest::newRow("standard bodies")
            << QByteArray(toolsPage) << QByteArray("tableWidget_ref") << "Tool Reference"
            << "t22"
            << "standard number_of_bodies"
            << "body targetlib_name standard"
            << "measurementtool_reference b01 t22";
}

void tst_AdministrationGuards::uncountedHoldersAreNotAsked()
{
    QFETCH(QByteArray, form);
    QFETCH(QByteArray, bodyTable);
    QFETCH(QString, category);
    QFETCH(QString, target);
    QFETCH(QString, count);
    QFETCH(QString, holder);
    QFETCH(QString, sent);
    TestHost host(studio([](ControllerState &state) {
        state.bodyTypes["standard"].bodies[0].target = QStringLiteral("TR02");
        state.bodyTypes["standard"].bodies[0].description.clear();
        state.bodyTypes["measurementtool_reference"].bodies[0].description.clear();
    }));
    openAt(host, form, [&](QWidget *shown) {
        press(table(shown, bodyTable), 0, 0);
        pickTarget(shown, category, target);
        host.fault(QStringLiteral("get %1 fail").arg(count));
        host.clear();
        Drive::click(shown, "pushButton_select");
        Drive::settle();
        QCOMPARE(host.lines().value(0), count);
        const QStringList asked =
                host.lines().mid(0, host.lines().indexOf(allocation + sent)).filter(holder);
        QCOMPARE(asked, QStringList());
        QCOMPARE(changes(host), QStringList{allocation + sent});
    });
    QCOMPARE(robot().boxes(), QStringList());
}

// Rows that go

void tst_AdministrationGuards::rowGoneBeforeItsAction_data()
{
    QTest::addColumn<int>("column");
    QTest::newRow("active") << int(ActiveColumn);
    QTest::newRow("reference") << int(ReferenceColumn);
    QTest::newRow("filter") << int(FilterColumn);
    QTest::newRow("delete") << int(DeleteColumn);
    QTest::newRow("reset") << int(ResetColumn);
}

void tst_AdministrationGuards::rowGoneBeforeItsAction()
{
    QFETCH(int, column);
    TestHost host;
    open(host, [&](QWidget *window, QTableWidget *bodies) {
        const QModelIndex pressed = bodies->model()->index(4, column);
        if (column == ActiveColumn || column == ReferenceColumn)
            UserInput::toggleItem(bodies, pressed);
        else
            UserInput::clickItem(bodies, pressed);
        // The action of the press comes after this change.
        host.edit([](ControllerState &state) { state.bodyTypes["standard"].bodies.resize(3); });
        qobject_cast<BodyTypeAdministrationTab *>(page(window))->update_tab();
        QCOMPARE(bodies->rowCount(), 3);
        host.clear();
        Drive::settle();
        QCOMPARE(host.writes(), QStringList());
    });
    QCOMPARE(robot().boxes(), QStringList());
}

void tst_AdministrationGuards::headsHiddenBeforeTheCountChanges()
{
    TestHost host(TestHost::scenario(QStringLiteral("multiuser")));
    openAt(host, joywandPage, [&host](QWidget *shown) {
        QVERIFY(isVisible(shown, "tableWidget_head"));
        host.edit([](ControllerState &state) { state.multiUserWithHead = false; });
        configurationChanged(host);
        QVERIFY(!isVisible(shown, "tableWidget_head"));
        host.clear();
        Drive::typeNumber(Drive::find<QSpinBox>(shown, "spinBox_joywands"), QStringLiteral("2"));
        QCOMPARE(changes(host), QStringList{"joywand number_of_devices 2"});
        QCOMPARE(host.lines().filter(QStringLiteral("multiuserjoywand_head")), QStringList());
    });
}

// Garbage

void tst_AdministrationGuards::garbledReferenceOfToolShowsNone_data()
{
    QTest::addColumn<QString>("answer");
    QTest::addColumn<QString>("shown");
    QTest::newRow("as shown") << "MR0"
                              << "";
    QTest::newRow("letter") << "b"
                            << "";
    QTest::newRow("no number") << "bxx"
                               << "";
    QTest::newRow("half a number") << "b0x"
                                   << "";
    QTest::newRow("empty") << ""
                           << "";
    QTest::newRow("none") << "none"
                          << "";
    QTest::newRow("two digits") << "b12"
                                << "MR12";
}

void tst_AdministrationGuards::garbledReferenceOfToolShowsNone()
{
    QFETCH(QString, answer);
    QFETCH(QString, shown);
    TestHost host;
    host.fault(QStringLiteral("measurementtool reference_of_tool b01 answer \"%1\"").arg(answer));
    openAt(host, toolsPage, [&](QWidget *tools) {
        QCOMPARE(Drive::column(table(tools, "tableWidget_mt"), 2), (QStringList{shown, "MR3"}));
    });
}

// The dialog goes

void tst_AdministrationGuards::dialogDeletedWhileReferenceFailureIsShown()
{
    TestHost host;
    m_dialog = new BodyAdministrationDlg(&host.io, &host.mainWindow, &host.versions);
    open(m_dialog, [&](QWidget *window) {
        goTo(window, toolsPage);
        host.fault(QStringLiteral("set body number_of_marker* refuse"));
        host.clear();
        robot().expectBox(boxTitle,
                          QStringLiteral("Delete Measurement Tool reference body 01?\n"
                                         "If yes, the assignment to the Measurement Tool will be "
                                         "deleted.\nContinue?"),
                          Box::Yes);
        robot().expectBox(warning, QStringLiteral("Delete body 01 failed\nTable frame"), Box::Ok,
                          deletion());
        press(table(page(window, toolsPage), "tableWidget_ref"), 0, 4);
    });
    QVERIFY2(m_dialog.isNull(), "the dialog was not deleted while its box was shown");
    QCOMPARE(changes(host), QStringList{"body number_of_marker measurementtool_reference b01 0"});
}

TRACKING_TEST_MAIN(tst_AdministrationGuards)
#include "tst_administrationguards.moc"
