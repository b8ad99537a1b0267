#include "BodyTypeAdministrationTab.h"
#include "administrationfixture.h"
#include "fingertrackingadministration.h"
#include "joywandadministration.h"
#include "mtadministration.h"
#include "standardadministration.h"
#include "targetlibrary.h"

#include <memory>

namespace {

const QString foreignType = QStringLiteral("glove");

} // namespace

/** The operations of a page that other code calls by their names, for what the page lacks. */
class tst_NamedOperations : public AdministrationFixture {
    Q_OBJECT

private slots:
    void foreignTypeHasNoNumber_data();
    void foreignTypeHasNoNumber();
    void cellsOfOthersStayEmpty_data();
    void cellsOfOthersStayEmpty();
    void missingBodyIsLeftAlone_data();
    void missingBodyIsLeftAlone();
    void oldControllerIsSentNothing_data();
    void oldControllerIsSentNothing();
    void lockedPageSwitchesNoFilterOn_data();
    void lockedPageSwitchesNoFilterOn();
    void knowsItsCurrentBody_data();
    void knowsItsCurrentBody();
    void buttonsWithoutABodyRequestNothing_data();
    void buttonsWithoutABodyRequestNothing();

private:
    using Page = std::unique_ptr<BodyTypeAdministrationTab>;

    static void addPages();
    static Page make(const QByteArray &form, TestHost &host, Targetlibrary &library);
};

void tst_NamedOperations::addPages()
{
    QTest::addColumn<QByteArray>("form");
    QTest::addColumn<QString>("type");
    QTest::newRow("standard") << QByteArray(standardPage) << "standard";
    QTest::newRow("joywand") << QByteArray(joywandPage) << "joywand";
    QTest::newRow("hands") << QByteArray(handsPage) << "fingertracking";
    QTest::newRow("tools") << QByteArray(toolsPage) << "measurementtool";
}

tst_NamedOperations::Page tst_NamedOperations::make(const QByteArray &form, TestHost &host,
                                                    Targetlibrary &library)
{
    const auto made = [&](BodyTypeAdministrationTab *page) {
        page->updateBodyTypesInfo();
        host.clear();
        return Page(page);
    };
    IOManager *io = &host.io;
    if (form == standardPage)
        return made(new StandardAdministration(io, nullptr, &host.versions, {}, &library));
    if (form == joywandPage)
        return made(new JoywandAdministration(io, nullptr, &host.versions, {}, &library));
    if (form == handsPage)
        return made(new FingertrackingAdministration(io, nullptr, &host.versions, {}, &library));
    return made(new MtAdministration(io, nullptr, &host.versions, {}, &library));
}

void tst_NamedOperations::foreignTypeHasNoNumber_data()
{
    addPages();
}

void tst_NamedOperations::foreignTypeHasNoNumber()
{
    QFETCH(QByteArray, form);
    TestHost host;
    Targetlibrary library(&host.io, &host.versions);
    const Page page = make(form, host, library);
    QVERIFY(!page->morvek2_setNumberOfBodies(foreignType, 2));
    page->setNumberOfBodies(foreignType, 2);
    QCOMPARE(host.log(), QStringList());
    // Two pages know one type only; the others report that they could not ask.
    const bool reports = form == joywandPage || form == toolsPage;
    QCOMPARE(page->morvek2_getMaxNumberOfBodies(foreignType), reports ? 4 : 0);
    QCOMPARE(host.log(), reports ? QStringList{"Error: Unable to get max number of glove bodies"}
                                 : QStringList());
    QCOMPARE(host.lines(), QStringList());
}

void tst_NamedOperations::cellsOfOthersStayEmpty_data()
{
    addPages();
}

void tst_NamedOperations::cellsOfOthersStayEmpty()
{
    QFETCH(QByteArray, form);
    QFETCH(QString, type);
    TestHost host;
    Targetlibrary library(&host.io, &host.versions);
    const Page page = make(form, host, library);
    constexpr int columns = 10;
    for (int column = 0; column < columns; ++column) {
        QTableWidgetItem item;
        page->updateTableWidgetCell(foreignType, 0, column, &item);
        QCOMPARE(item.text(), QString());
    }
    QCOMPARE(host.lines(), QStringList());
    // The first and the last columns of every page are filled from the records.
    constexpr int bodyWithSensor = 3;
    for (const int column : {0, 1, columns}) {
        QTableWidgetItem item;
        page->updateTableWidgetCell(type, bodyWithSensor, column, &item);
        QCOMPARE(item.text(), QString());
    }
    QCOMPARE(host.lines(), QStringList());
}

void tst_NamedOperations::missingBodyIsLeftAlone_data()
{
    addPages();
}

void tst_NamedOperations::missingBodyIsLeftAlone()
{
    QFETCH(QByteArray, form);
    QFETCH(QString, type);
    TestHost host;
    Targetlibrary library(&host.io, &host.versions);
    const Page page = make(form, host, library);
    QStringList types{type, foreignType};
    if (form == toolsPage)
        types.append(QStringLiteral("measurementtool_reference"));
    for (const QString &each : qAsConst(types)) {
        for (const int index : {-1, 99}) {
            page->setBodyActive(each, index, true);
            page->setBodyActive(each, index, false);
            QVERIFY(!page->resetBody(each, index));
            QVERIFY(!page->deleteBody(each, index));
            QVERIFY(!page->switchBody(each, index, 0));
            QVERIFY(!page->is_hybridbodycalibration_available(each, -1));
        }
    }
    QVERIFY(!page->switchBody(type, 0, 99));
    // Neither table has a current row.
    QTableWidget none;
    QVERIFY(!page->pushButtonSelectClicked(type, &none, &none));
    page->pushButtonDeSelectClicked(type, &none);
    QCOMPARE(host.lines(), QStringList());
    QCOMPARE(host.log(), QStringList());
    QCOMPARE(robot().boxes(), QStringList());
}

void tst_NamedOperations::oldControllerIsSentNothing_data()
{
    addPages();
}

void tst_NamedOperations::oldControllerIsSentNothing()
{
    QFETCH(QByteArray, form);
    QFETCH(QString, type);
    // It knows neither names nor activity nor the mark of the reference.
    TestHost host(studio(QStringLiteral("0.15")));
    Targetlibrary library(&host.io, &host.versions);
    const Page page = make(form, host, library);
    page->setBodyActive(type, 0, true);
    page->setBodyDescription(type, 0, QStringLiteral("Hat"));
    page->setBodyReference(type, 0, false);
    QVERIFY(!page->switchBody(type, 0, 1));
    QCOMPARE(host.writes(), QStringList());
}

void tst_NamedOperations::lockedPageSwitchesNoFilterOn_data()
{
    addPages();
}

void tst_NamedOperations::lockedPageSwitchesNoFilterOn()
{
    QFETCH(QByteArray, form);
    TestHost host;
    Targetlibrary library(&host.io, &host.versions);
    const Page page = make(form, host, library);
    page->setConfigLockedStatus(true);
    host.clear();
    page->ON_activeConfigurationChanged();
    QCOMPARE(host.lines(), QStringList());
}

void tst_NamedOperations::knowsItsCurrentBody_data()
{
    addPages();
}

void tst_NamedOperations::knowsItsCurrentBody()
{
    QFETCH(QByteArray, form);
    TestHost host;
    Targetlibrary library(&host.io, &host.versions);
    const Page page = make(form, host, library);
    QVERIFY(page->isAvailable());
    QCOMPARE(page->getCurrentBodyindex(), -1);
    page->update_tab();
    QCOMPARE(page->getCurrentBodyindex(), 0);
}

void tst_NamedOperations::buttonsWithoutABodyRequestNothing_data()
{
    QTest::addColumn<QByteArray>("button");
    for (const char *button :
         {"pushButton_calibration", "pushButton_hybridCalibration", "pushButton_body_adjustment"})
        QTest::newRow(button) << QByteArray(button);
}

void tst_NamedOperations::buttonsWithoutABodyRequestNothing()
{
    QFETCH(QByteArray, button);
    TestHost host;
    BodyAdministrationDlg dialog(&host.io, &host.mainWindow, &host.versions);
    // Shown by other means than its own opening, it has no current body yet.
    dialog.show();
    host.clear();
    auto *pressed = dialog.findChild<QPushButton *>(button, Qt::FindDirectChildrenOnly);
    QVERIFY(pressed);
    pressed->setEnabled(true);
    pressed->click();
    QVERIFY(dialog.isVisible());
    QCOMPARE(host.requests(), QStringList());
    QCOMPARE(host.lines(), QStringList());
}

TRACKING_TEST_MAIN(tst_NamedOperations)
#include "tst_namedoperations.moc"
