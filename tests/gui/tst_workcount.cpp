#include "administrationfixture.h"

#include <QAbstractItemView>
#include <QProxyStyle>

/** Counts the size hints for which item views ask; each is a layout of a text. */
class CountingStyle : public QProxyStyle {
public:
    QSize sizeFromContents(ContentsType type, const QStyleOption *option, const QSize &size,
                           const QWidget *widget) const override
    {
        if (type == CT_ItemViewItem)
            ++sizeHints;
        return QProxyStyle::sizeFromContents(type, option, size, widget);
    }

    mutable int sizeHints = 0;
};

namespace {

/** Records which widgets of a window are drawn. */
class DrawnWidgets : public QObject {
public:
    explicit DrawnWidgets(QWidget *window)
    {
        for (QWidget *widget : window->findChildren<QWidget *>())
            widget->installEventFilter(this);
        window->installEventFilter(this);
    }

    /** Names of the drawn widgets except the tables' contents. */
    QStringList besideTables;
    int tableContents = 0;

protected:
    bool eventFilter(QObject *watched, QEvent *event) override
    {
        if (event->type() != QEvent::Paint)
            return QObject::eventFilter(watched, event);
        auto *view = qobject_cast<QAbstractItemView *>(watched->parent());
        if (view && view->viewport() == watched)
            ++tableContents;
        else
            besideTables.append(watched->objectName());
        return QObject::eventFilter(watched, event);
    }
};

ControllerState manyBodies()
{
    return studio([](ControllerState &state) {
        BodyTypeState &type = state.bodyTypes[QStringLiteral("standard")];
        type.maximum = 50;
        while (type.bodies.size() < 50) {
            type.bodies.append(type.bodies.first());
            type.bodies.last().description = QStringLiteral("Body %1").arg(type.bodies.size());
        }
    });
}

/** A search in which every second poll reads another percentage; two targets are seen. */
ControllerState slowSearch(const QString &inVolume, const QString &alsoInVolume)
{
    return studio([&](ControllerState &state) {
        state.search.durationTicks = 200;
        for (TargetState &target : state.targets) {
            target.inVolume = target.shortName == inVolume || target.shortName == alsoInVolume;
        }
    });
}

} // namespace

/** Work without a difference: size hints, drawn widgets, repeated queries. */
class tst_WorkCount : public AdministrationFixture {
    Q_OBJECT

private slots:
    void initTestCase();
    void unchangedRefreshMeasuresAndDrawsNothing();
    void unchangedRefreshAsksForEveryBodyOnce();
    void toggleMeasuresNothing();
    void renameMeasuresNothing();
    void changedNamesMeasureNothing();
    void widerContentIsMeasured();
    void searchTickWithNothingNewDrawsNothing_data();
    void searchTickWithNothingNewDrawsNothing();
    void openingAsksOnceForTheHybridSensor();

private:
    static void refresh(TestHost &host)
    {
        host.io.send_message("BodyAdministrationModule", "AnyModule", 1, "reopen");
        settle();
    }
    /** Handles the events that a change posts, and those that these post. */
    static void settle()
    {
        for (int i = 0; i < 3; ++i)
            Drive::settle();
    }

    CountingStyle *m_style = nullptr; ///< the application's
};

void tst_WorkCount::initTestCase()
{
    m_style = new CountingStyle;
    QApplication::setStyle(m_style);
}

void tst_WorkCount::unchangedRefreshMeasuresAndDrawsNothing()
{
    TestHost host(manyBodies());
    open(host, [&](QWidget *window, QTableWidget *bodies) {
        QVERIFY(QTest::qWaitForWindowExposed(window));
        Drive::clickCell(bodies, 3, IdColumn);
        refresh(host);
        const DrawnWidgets drawn(window);
        m_style->sizeHints = 0;
        refresh(host);
        QCOMPARE(m_style->sizeHints, 0);
        QCOMPARE(drawn.besideTables, QStringList());
        QCOMPARE(drawn.tableContents, 0);
        // This lets the counters count something.
        host.edit([](ControllerState &state) {
            state.bodyTypes[QStringLiteral("standard")].bodies.removeLast();
        });
        refresh(host);
        QVERIFY(m_style->sizeHints > 0);
        QVERIFY(drawn.besideTables.contains(QStringLiteral("spinBox_standard_bodies")));
        QVERIFY(drawn.tableContents > 0);
    });
}

void tst_WorkCount::unchangedRefreshAsksForEveryBodyOnce()
{
    TestHost host(manyBodies());
    open(host, [&](QWidget *, QTableWidget *) {
        refresh(host);
        const QStringList lines = host.lines();
        host.clear();
        refresh(host);
        QCOMPARE(host.lines(), lines);
        for (int number = 1; number <= 50; ++number) {
            const QString body = QStringLiteral(" standard b%1").arg(number, 2, 10, QChar('0'));
            const QStringList about = lines.filter(body);
            QVERIFY(about.size() >= 6);
            QVERIFY2(QSet<QString>(about.begin(), about.end()).size() == about.size(),
                     qPrintable(about.join('\n')));
        }
    });
}

void tst_WorkCount::toggleMeasuresNothing()
{
    TestHost host(manyBodies());
    open(host, [&](QWidget *, QTableWidget *bodies) {
        press(bodies, 4, IdColumn);
        settle();
        m_style->sizeHints = 0;
        toggle(bodies, 4, ActiveColumn);
        settle();
        QCOMPARE(m_style->sizeHints, 0);
        QCOMPARE(host.writes(), QStringList("body active standard b05 no"));
        QCOMPARE(bodies->item(4, ActiveColumn)->checkState(), Qt::Unchecked);
    });
}

void tst_WorkCount::renameMeasuresNothing()
{
    TestHost host(manyBodies());
    open(host, [&](QWidget *, QTableWidget *bodies) {
        Drive::typeIntoCell(bodies, 4, NameColumn, QStringLiteral("Visor"));
        settle();
        m_style->sizeHints = 0;
        Drive::typeIntoCell(bodies, 4, NameColumn, QStringLiteral("A much longer name"));
        settle();
        QCOMPARE(m_style->sizeHints, 0);
        QCOMPARE(body(host, 4).description, QStringLiteral("A much longer name"));
        QCOMPARE(Drive::cell(bodies, 4, NameColumn), QStringLiteral("A much longer name"));
    });
}

void tst_WorkCount::changedNamesMeasureNothing()
{
    TestHost host(manyBodies());
    open(host, [&](QWidget *window, QTableWidget *bodies) {
        QVERIFY(QTest::qWaitForWindowExposed(window));
        refresh(host);
        host.edit([](ControllerState &state) {
            for (BodyState &body : state.bodyTypes[QStringLiteral("standard")].bodies)
                body.description = QStringLiteral("Changed by another client");
        });
        const DrawnWidgets drawn(window);
        m_style->sizeHints = 0;
        refresh(host);
        QCOMPARE(Drive::cell(bodies, 49, NameColumn), QStringLiteral("Changed by another client"));
        QCOMPARE(m_style->sizeHints, 0);
        QVERIFY(drawn.tableContents > 0);
    });
}

void tst_WorkCount::widerContentIsMeasured()
{
    TestHost host(manyBodies());
    open(host, [&](QWidget *window, QTableWidget *bodies) {
        QVERIFY(QTest::qWaitForWindowExposed(window));
        refresh(host);
        const int width = bodies->columnWidth(FilterColumn);
        host.edit([](ControllerState &state) {
            for (FilterModeState &mode : state.filterModes)
                mode.description = QStringLiteral("A description of no little length");
        });
        refresh(host);
        QVERIFY(bodies->columnWidth(FilterColumn) > width);
    });
}

void tst_WorkCount::searchTickWithNothingNewDrawsNothing_data()
{
    QTest::addColumn<QByteArray>("form");
    QTest::addColumn<QString>("first");
    QTest::addColumn<QString>("second");
    QTest::newRow("found targets") << QByteArray(standardPage) << "CR03"
                                   << "PL02";
    QTest::newRow("all targets below a heading") << QByteArray(joywandPage) << "JW01"
                                                 << "JW02";
}

void tst_WorkCount::searchTickWithNothingNewDrawsNothing()
{
    QFETCH(QByteArray, form);
    QFETCH(QString, first);
    QFETCH(QString, second);
    TestHost host(slowSearch(first, second));
    openAt(host, form.constData(), [&](QWidget *page) {
        QVERIFY(QTest::qWaitForWindowExposed(page->window()));
        Drive::holdTimers(page);
        Drive::click(page, "pushButton_start");
        const auto poll = [page] {
            const bool polled = Drive::tick(page, "timerDoMea_tl");
            settle();
            return polled;
        };
        while (!label(page, "label_targetlibrary").startsWith(QLatin1String("found targets: 1,")))
            QVERIFY(poll());
        QVERIFY(poll());
        const QString percent =
                Drive::find<QWidget>(page, "progressBar")->property("text").toString();
        DrawnWidgets drawn(page->window());
        m_style->sizeHints = 0;
        QVERIFY(poll());
        const bool isPercentNew =
                Drive::find<QWidget>(page, "progressBar")->property("text").toString() != percent;
        if (isPercentNew) {
            drawn.besideTables.clear();
            QVERIFY(poll());
        }
        QCOMPARE(m_style->sizeHints, 0);
        QCOMPARE(drawn.besideTables, QStringList());
        QCOMPARE(drawn.tableContents, 0);
        robot().expectBox(boxTitle, QStringLiteral("One target could be identified in library"),
                          Box::Ok);
        Drive::click(page, "pushButton_stop");
    });
}

void tst_WorkCount::openingAsksOnceForTheHybridSensor()
{
    TestHost host(studio([](ControllerState &state) {
        QVector<BodyState> &bodies = state.bodyTypes[QStringLiteral("standard")].bodies;
        bodies.swapItemsAt(0, 3);
    }));
    const QString question = QStringLiteral("inertial sensor_present vendorone mini 'A7'");
    BodyAdministrationDlg dialog(&host.io, &host.mainWindow, &host.versions);
    open(&dialog, [&](QWidget *window) {
        settle();
        QCOMPARE(host.queries().count(question), 1);
        QVERIFY(isEnabled(window, "pushButton_hybridCalibration"));
        host.clear();
        refresh(host);
        QCOMPARE(host.queries().count(question), 1);
        QVERIFY(isEnabled(window, "pushButton_hybridCalibration"));
    });
}

TRACKING_TEST_MAIN(tst_WorkCount)
#include "tst_workcount.moc"
