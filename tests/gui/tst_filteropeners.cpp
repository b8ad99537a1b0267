#include "administrationfixture.h"
#include "filterdialogtest.h"

/** The places from which the filter dialog opens, and what they show when it has closed. */
class tst_FilterOpeners : public AdministrationFixture {
    Q_OBJECT

private slots:
    void wholeVisit_data();
    void wholeVisit();
    void showsTheControllersValues_data();
    void showsTheControllersValues();
    void hybridShowsItsStrength_data();
    void hybridShowsItsStrength();

private:
    static void addOpeners();
    struct Opener;
    /** The row of addOpeners() for the running test. */
    static Opener fetched();
    /**
     * Opens the filter of the opener's body, calls `user`, and returns what the row shows
     * afterwards.
     */
    QString summaryAfter(TestHost &host, const Opener &opener,
                         const std::function<void(FilterWidgets)> &user);
};

struct tst_FilterOpeners::Opener {
    QByteArray form;
    QByteArray table;
    int column; ///< the column that shows the filter
    int row;
    QString body;   ///< the body in the words of commands
    QByteArray way; ///< "dialog" or "page" for the button there, "cell" for the column
};

namespace {

const char *const buttonName = "pushButton_filter";

/**
 * Opens the filter as a user does. The dialog and its page each have a button with the same name.
 */
void openFilter(QWidget *window, QWidget *page, QTableWidget *bodies, const QByteArray &way,
                int row, int column)
{
    if (way == "cell") {
        Drive::clickCell(bodies, row, column);
        return;
    }
    Drive::clickCell(bodies, row, 0);
    QWidget *holder = way == "page" ? page : window;
    auto *button = holder->findChild<QPushButton *>(QLatin1String(buttonName),
                                                    way == "page" ? Qt::FindChildrenRecursively
                                                                  : Qt::FindDirectChildrenOnly);
    QVERIFY(button);
    QVERIFY(button->isEnabled());
    QTest::mouseClick(button, Qt::LeftButton);
}

} // namespace

void tst_FilterOpeners::addOpeners()
{
    QTest::addColumn<QByteArray>("form");
    QTest::addColumn<QByteArray>("table");
    QTest::addColumn<int>("column");
    QTest::addColumn<int>("row");
    QTest::addColumn<QString>("body");
    QTest::addColumn<QByteArray>("way");
    QTest::addColumn<QString>("protocol");
    for (const char *protocol : {"1.12", "1.20", "1.21", "1.24"}) {
        for (const char *way : {"dialog", "page", "cell"}) {
            QTest::addRow("standard, %s, %s", way, protocol)
                    << QByteArray(standardPage) << QByteArray("tableWidget_standard") << 7 << 2
                    << "standard b03" << QByteArray(way) << protocol;
            QTest::addRow("joywand, %s, %s", way, protocol)
                    << QByteArray(joywandPage) << QByteArray("tableWidget_joywand") << 6 << 1
                    << "joywand b02" << QByteArray(way) << protocol;
        }
    }
}

tst_FilterOpeners::Opener tst_FilterOpeners::fetched()
{
    const auto bytes = [](const char *name) {
        return *static_cast<QByteArray *>(QTest::qData(name, qMetaTypeId<QByteArray>()));
    };
    const auto number = [](const char *name) {
        return *static_cast<int *>(QTest::qData(name, qMetaTypeId<int>()));
    };
    return {bytes("form"),
            bytes("table"),
            number("column"),
            number("row"),
            *static_cast<QString *>(QTest::qData("body", qMetaTypeId<QString>())),
            bytes("way")};
}

QString tst_FilterOpeners::summaryAfter(TestHost &host, const Opener &opener,
                                        const std::function<void(FilterWidgets)> &user)
{
    QString summary;
    BodyAdministrationDlg dialog(&host.io, &host.mainWindow, &host.versions);
    open(&dialog, [&](QWidget *window) {
        goTo(window, opener.form);
        QTableWidget *bodies = table(window, opener.table);
        robot().expectDialog(QStringLiteral("FilterDialog"), [&](QWidget *shown) {
            QVERIFY(QTest::qWaitForWindowActive(shown));
            user(FilterWidgets(shown));
        });
        openFilter(window, page(window, opener.form), bodies, opener.way, opener.row,
                   opener.column);
        Drive::settle();
        QCOMPARE(bodies->currentRow(), opener.row);
        summary = Drive::cell(bodies, opener.row, opener.column);
    });
    return summary;
}

void tst_FilterOpeners::wholeVisit_data()
{
    addOpeners();
}

void tst_FilterOpeners::wholeVisit()
{
    QFETCH(QString, protocol);
    const Opener opener = fetched();
    TestHost host(studio(protocol));
    QStringList visit;
    const QString summary = summaryAfter(host, opener, [&](const FilterWidgets &w) {
        QVERIFY(host.queries().contains("body filter6d_preset " + opener.body));
        QCOMPARE(entries(w.body).size(), 1);
        QCOMPARE(w.body->currentData().toString(), opener.body);
        QCOMPARE(changes(host), QStringList());
        host.clear();
        Drive::choose(w.preset, "Custom");
        Drive::typeNumber(w.strength, "0.67");
        Drive::typeNumber(w.prediction, "15");
        Drive::choose(w.mode, "Reference target");
        Drive::click(w.dialog, "pushButton_exit");
        visit = host.lines();
    });
    QCOMPARE(summary, QStringLiteral("15ms/Reference target"));
    QCOMPARE(changes(host),
             (QStringList{"body filter6d_preset " + opener.body + " preset6d_custom",
                          "body filter6d_strength " + opener.body + " 0.670000",
                          "body filter6d_prediction " + opener.body + " 0.015000",
                          "body filter6d_mode " + opener.body + " reference_target"}));
    QCOMPARE(visit.removeDuplicates(), 0);
    // The part that shows the summary reads it once.
    QCOMPARE(host.queries().count("body filter6d_enabled " + opener.body), 1);
    QCOMPARE(host.log(), QStringList());
}

void tst_FilterOpeners::showsTheControllersValues_data()
{
    addOpeners();
}

void tst_FilterOpeners::showsTheControllersValues()
{
    QFETCH(QString, protocol);
    const Opener opener = fetched();
    TestHost clamping(studio(protocol));
    clamping.fault("set body filter6d_prediction* clamp");
    const QString clamped = summaryAfter(clamping, opener, [](const FilterWidgets &w) {
        Drive::choose(w.preset, "Custom");
        Drive::typeNumber(w.prediction, "44");
        QCOMPARE(w.prediction->text(), QString("44"));
    });
    QCOMPARE(clamped, QStringLiteral("22ms/Adaptive slow"));

    TestHost refusing(studio(protocol));
    refusing.fault("set body filter6d_preset* refuse");
    const QString before = opener.form == standardPage ? "Default" : "Low prediction";
    const QString refused = summaryAfter(refusing, opener, [](const FilterWidgets &w) {
        Drive::choose(w.preset, "High prediction");
        QCOMPARE(w.preset->currentText(), QString("High prediction"));
    });
    QCOMPARE(refused, before);
    QCOMPARE(refusing.log(),
             QStringList("Error: Unable to set filter 6d preset for body " + opener.body));

    TestHost switched(studio(protocol));
    const QString off = summaryAfter(switched, opener, [](const FilterWidgets &w) {
        QTest::keyClick(w.active, Qt::Key_Space);
    });
    QCOMPARE(off, QStringLiteral("not active"));
}

void tst_FilterOpeners::hybridShowsItsStrength_data()
{
    QTest::addColumn<QByteArray>("way");
    for (const char *way : {"dialog", "page", "cell"})
        QTest::newRow(way) << QByteArray(way);
}

void tst_FilterOpeners::hybridShowsItsStrength()
{
    QFETCH(QByteArray, way);
    constexpr int helmet = 6;
    const Opener opener{standardPage, "tableWidget_standard", 7, helmet, "standard b07", way};
    TestHost host;
    const QString summary = summaryAfter(host, opener, [](const FilterWidgets &w) {
        Drive::choose(w.preset, "Hybrid custom");
        QVERIFY(!w.strength->isVisible());
        Drive::typeNumber(w.prediction, "15");
    });
    QCOMPARE(summary, QStringLiteral("0.50/15ms/Hybrid target"));
    QCOMPARE(changes(host), (QStringList{"body filter6d_preset standard b07 preset6d_hybrid_custom",
                                         "body filter6d_prediction standard b07 0.015000"}));
}

TRACKING_TEST_MAIN(tst_FilterOpeners)
#include "tst_filteropeners.moc"
