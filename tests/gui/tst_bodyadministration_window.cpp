#include "administrationfixture.h"

#include <QScreen>
#include <QScrollArea>
#include <QScrollBar>
#include <QSplitter>
#include <QStyle>

namespace {

/** Acts when a window is shown, before its layouts adapt to the filled contents. */
class ShowWatch : public QObject {
public:
    ShowWatch(QWidget *window, const std::function<void()> &act) : m_act(act)
    {
        window->installEventFilter(this);
    }

protected:
    bool eventFilter(QObject *watched, QEvent *event) override
    {
        if (event->type() == QEvent::Show)
            m_act();
        return QObject::eventFilter(watched, event);
    }

private:
    std::function<void()> m_act;
};

} // namespace

/** The window of the body administration: its size, its scrolling, and its keys. */
class tst_BodyAdministrationWindow : public AdministrationFixture {
    Q_OBJECT

private slots:
    void opensWithinTheScreen();
    void wantsRoomForTheFilledTablesWhenItOpens();
    void opensWithReadableNames();
    void keepsTheSizeThatTheUserGave();
    void fitsASmallScreen_data();
    void fitsASmallScreen();
    void pagesOfTheTabWidgetAreTheTabs();
    void bodiesAndTargetsShareTheWidth_data();
    void bodiesAndTargetsShareTheWidth();
    void accessKeyOfTheFilterIsHeard_data();
    void accessKeyOfTheFilterIsHeard();
    void enterPressesTheFocusedButton_data();
    void enterPressesTheFocusedButton();
    void enterInAFieldPressesNothing();
    void noButtonWearsTheDefaultFrame();
    void tabGoesFromTheTabBarThroughThePageToTheButtons_data();
    void tabGoesFromTheTabBarThroughThePageToTheButtons();

private:
    static void pagesColumn()
    {
        QTest::addColumn<QByteArray>("form");
        QTest::newRow("standard") << QByteArray(standardPage);
        QTest::newRow("joywand") << QByteArray(joywandPage);
        QTest::newRow("hands") << QByteArray(handsPage);
        QTest::newRow("tools") << QByteArray(toolsPage);
    }
    static bool isInside(QWidget *window, QWidget *widget)
    {
        const QRect place(widget->mapTo(window, QPoint()), widget->size());
        return widget->isVisible() && window->rect().contains(place);
    }
};

void tst_BodyAdministrationWindow::opensWithinTheScreen()
{
    TestHost host(studio());
    openAt(host, standardPage, [&](QWidget *page) {
        const QSize screen = page->window()->screen()->availableSize();
        QVERIFY(page->window()->width() <= screen.width());
        QVERIFY(page->window()->height() <= screen.height());
        QVERIFY(isInside(page->window(), Drive::find<QWidget>(page->window(), "pushButton_exit")));
    });
}

void tst_BodyAdministrationWindow::wantsRoomForTheFilledTablesWhenItOpens()
{
    TestHost host(TestHost::scenario(QStringLiteral("full")));
    BodyAdministrationDlg dialog(&host.io, &host.mainWindow, &host.versions);
    QSize wanted;
    const ShowWatch watch(&dialog, [&] { wanted = dialog.sizeHint(); });
    open(&dialog, [&](QWidget *window) {
        Drive::settle();
        auto *area = Drive::find<QScrollArea>(page(window), "pageArea");
        const int beside = window->width() - area->width();
        const int needed = area->widget()->minimumSizeHint().width() + beside;
        QVERIFY2(wanted.width() >= needed,
                 qPrintable(QStringLiteral("%1 of %2").arg(wanted.width()).arg(needed)));
    });
}

void tst_BodyAdministrationWindow::opensWithReadableNames()
{
    TestHost host(studio());
    openAt(host, standardPage, [&](QWidget *page) {
        Drive::settle();
        const QTableWidget *bodies = table(page, "tableWidget_standard");
        const int readable = bodies->fontMetrics().horizontalAdvance("Left arm of actor");
        QVERIFY2(bodies->columnWidth(3) >= readable,
                 qPrintable(QString::number(bodies->columnWidth(3))));
    });
}

void tst_BodyAdministrationWindow::keepsTheSizeThatTheUserGave()
{
    TestHost host(studio());
    BodyAdministrationDlg dialog(&host.io, &host.mainWindow, &host.versions);
    open(&dialog, [](QWidget *window) { window->resize(710, 555); });
    open(&dialog, [](QWidget *window) { QCOMPARE(window->size(), QSize(710, 555)); });
}

void tst_BodyAdministrationWindow::fitsASmallScreen_data()
{
    QTest::addColumn<QByteArray>("form");
    QTest::addColumn<QSize>("size");
    for (const char *form : {standardPage, joywandPage, handsPage, toolsPage}) {
        QTest::addRow("%s, 1024x768", form) << QByteArray(form) << QSize(1024, 700);
        QTest::addRow("%s, 1920x1080 at 200 %%", form) << QByteArray(form) << QSize(960, 500);
    }
}

void tst_BodyAdministrationWindow::fitsASmallScreen()
{
    QFETCH(QByteArray, form);
    QFETCH(QSize, size);
    TestHost host(TestHost::scenario(QStringLiteral("full")));
    openAt(host, form, [&](QWidget *page) {
        QWidget *const window = page->window();
        window->resize(size);
        Drive::settle();
        QCOMPARE(window->size(), size);
        for (const char *button : {"pushButton_filter", "pushButton_exit"})
            QVERIFY(isInside(window, Drive::find<QWidget>(pages(window)->parentWidget(), button)));
        // Widgets keep their size; those that do not fit can be reached by scrolling.
        auto *area = Drive::find<QScrollArea>(page, "pageArea");
        auto *stop = Drive::find<QWidget>(page, "pushButton_stop");
        area->ensureWidgetVisible(stop);
        QVERIFY(area->viewport()->rect().contains(
                QRect(stop->mapTo(area->viewport(), QPoint()), stop->size())));
    });
}

void tst_BodyAdministrationWindow::pagesOfTheTabWidgetAreTheTabs()
{
    TestHost host(studio());
    openAt(host, standardPage, [&](QWidget *page) {
        const QTabWidget *shown = pages(page->window());
        for (int i = 0; i < shown->count(); ++i)
            QVERIFY(qobject_cast<BodyTypeAdministrationTab *>(shown->widget(i)));
    });
}

void tst_BodyAdministrationWindow::bodiesAndTargetsShareTheWidth_data()
{
    pagesColumn();
}

void tst_BodyAdministrationWindow::bodiesAndTargetsShareTheWidth()
{
    QFETCH(QByteArray, form);
    TestHost host(studio());
    BodyAdministrationDlg dialog(&host.io, &host.mainWindow, &host.versions);
    QList<int> chosen;
    open(&dialog, [&](QWidget *window) {
        window->resize(2400, 700);
        goTo(window, form);
        Drive::settle();
        auto *splitter = Drive::find<QSplitter>(page(window, form), "splitter");
        const QList<int> before = splitter->sizes();
        QSplitterHandle *handle = splitter->handle(1);
        const QPoint from = handle->rect().center();
        const QPoint to = from - QPoint(60, 0);
        QTest::mousePress(handle, Qt::LeftButton, Qt::NoModifier, from);
        QMouseEvent move(QEvent::MouseMove, to, handle->mapToGlobal(to), Qt::NoButton,
                         Qt::LeftButton, Qt::NoModifier);
        QCoreApplication::sendEvent(handle, &move);
        QTest::mouseRelease(handle, Qt::LeftButton, Qt::NoModifier, to);
        chosen = splitter->sizes();
        QVERIFY(chosen.at(1) > before.at(1));
    });
    open(&dialog, [&](QWidget *window) {
        goTo(window, form);
        QCOMPARE(Drive::find<QSplitter>(page(window, form), "splitter")->sizes(), chosen);
    });
}

// Keys

void tst_BodyAdministrationWindow::accessKeyOfTheFilterIsHeard_data()
{
    QTest::addColumn<QByteArray>("form");
    QTest::addColumn<QByteArray>("bodies");
    QTest::newRow("standard") << QByteArray(standardPage) << QByteArray("tableWidget_standard");
    QTest::newRow("joywand") << QByteArray(joywandPage) << QByteArray("tableWidget_joywand");
}

void tst_BodyAdministrationWindow::accessKeyOfTheFilterIsHeard()
{
    QFETCH(QByteArray, form);
    QFETCH(QByteArray, bodies);
    TestHost host(studio());
    openAt(host, form, [&](QWidget *page) {
        auto *filter = Drive::find<QPushButton>(page, "pushButton_filter");
        QCOMPARE(filter->text(), QStringLiteral("Fi&lter"));
        Drive::clickCell(table(page, bodies), 0, 0);
        bool opened = false;
        robot().expectDialog(QStringLiteral("FilterDialog"), [&](QWidget *) { opened = true; });
        QApplication::setActiveWindow(page->window());
        QTest::keyClick(page->window(), Qt::Key_L, Qt::AltModifier);
        // A button that its access key presses is shown pressed for a moment first.
        QTRY_VERIFY(opened);
    });
}

void tst_BodyAdministrationWindow::enterPressesTheFocusedButton_data()
{
    QTest::addColumn<QByteArray>("button");
    QTest::addColumn<QByteArray>("form");
    QTest::addColumn<QStringList>("requests");
    const auto request = [](const char *module, const char *text) {
        return QStringList(QString::fromLatin1(module) + "|BodyAdministrationModule|" + text);
    };
    QTest::newRow("filter") << QByteArray("pushButton_filter") << QByteArray(standardPage)
                            << QStringList();
    QTest::newRow("calibration") << QByteArray("pushButton_calibration") << QByteArray(toolsPage)
                                 << request("BodyCalModule",
                                            "OpenBodyCalDialog measurementtool b01");
    QTest::newRow("adjustment") << QByteArray("pushButton_body_adjustment")
                                << QByteArray(standardPage)
                                << request("BodyAdjustmentModule",
                                           "OpenBodyAdjustmentDialog standard|1|calibrated");
    QTest::newRow("exit") << QByteArray("pushButton_exit") << QByteArray(standardPage)
                          << QStringList();
}

void tst_BodyAdministrationWindow::enterPressesTheFocusedButton()
{
    QFETCH(QByteArray, button);
    QFETCH(QByteArray, form);
    QFETCH(QStringList, requests);
    TestHost host(studio());
    BodyAdministrationDlg dialog(&host.io, &host.mainWindow, &host.versions);
    announceModules(host);
    open(&dialog, [&](QWidget *window) {
        goTo(window, form);
        Drive::clickCell(table(page(window, form),
                               form == toolsPage ? "tableWidget_mt" : "tableWidget_standard"),
                         0, 0);
        host.clear();
        bool opened = false;
        if (button == "pushButton_filter") {
            robot().expectDialog(QStringLiteral("FilterDialog"), [&](QWidget *) { opened = true; });
        }
        // The pages have buttons of these names as well.
        auto *pressed = window->findChild<QPushButton *>(button, Qt::FindDirectChildrenOnly);
        QVERIFY(pressed->isEnabled());
        pressed->setFocus();
        // A key that is held down presses once, not again and again.
        QKeyEvent repeated(QEvent::KeyPress, Qt::Key_Return, Qt::NoModifier, QString(), true);
        QApplication::sendEvent(pressed, &repeated);
        QVERIFY(window->isVisible() && !opened);
        QTest::keyClick(pressed, Qt::Key_Return);
        QCOMPARE(opened, button == "pushButton_filter");
        QCOMPARE(host.requests(), requests);
        QCOMPARE(window->isVisible(), button == "pushButton_filter");
        if (!window->isVisible() && button != "pushButton_exit") {
            announce(host, "reopen", "BodyCalModule");
        }
    });
}

void tst_BodyAdministrationWindow::enterInAFieldPressesNothing()
{
    TestHost host(studio());
    openAt(host, standardPage, [&](QWidget *page) {
        auto *count = Drive::find<QSpinBox>(page, "spinBox_standard_bodies");
        host.clear();
        count->setFocus();
        QTest::keyClick(count, Qt::Key_Return);
        QTest::keyClick(count, Qt::Key_Enter);
        Drive::settle();
        QVERIFY(page->window()->isVisible());
        QCOMPARE(changes(host), QStringList());
        QCOMPARE(host.requests(), QStringList());
    });
}

void tst_BodyAdministrationWindow::noButtonWearsTheDefaultFrame()
{
    TestHost host(studio());
    openAt(host, standardPage, [&](QWidget *page) {
        for (QPushButton *button : page->window()->findChildren<QPushButton *>()) {
            if (!button->isVisible())
                continue;
            button->setFocus();
            QVERIFY2(!button->isDefault(), qPrintable(button->objectName()));
        }
    });
}

void tst_BodyAdministrationWindow::tabGoesFromTheTabBarThroughThePageToTheButtons_data()
{
    pagesColumn();
}

void tst_BodyAdministrationWindow::tabGoesFromTheTabBarThroughThePageToTheButtons()
{
    QFETCH(QByteArray, form);
    TestHost host(TestHost::scenario(QStringLiteral("full")));
    openAt(host, form, [&](QWidget *page) {
        QWidget *const window = page->window();
        QApplication::setActiveWindow(window);
        pages(window)->tabBar()->setFocus();
        QStringList order;
        constexpr int farMoreThanThereAre = 60;
        for (int i = 0; i < farMoreThanThereAre; ++i) {
            QTest::keyClick(window->focusWidget(), Qt::Key_Tab);
            const QWidget *reached = window->focusWidget();
            if (reached == pages(window)->tabBar())
                break;
            order << (page->isAncestorOf(reached) ? QStringLiteral("page") : reached->objectName());
        }
        const int inPage = order.count(QStringLiteral("page"));
        QVERIFY(inPage >= 3);
        for (int i = 0; i < inPage; ++i)
            QCOMPARE(order.at(i), QStringLiteral("page"));
        QVERIFY(order.size() > inPage);
        QCOMPARE(order.last(), QStringLiteral("pushButton_exit"));
    });
}

TRACKING_TEST_MAIN(tst_BodyAdministrationWindow)
#include "tst_bodyadministration_window.moc"
