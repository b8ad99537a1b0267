#include "administrationfixture.h"
#include "linkobserver.h"
#include "messageline.h"
#include "waiting.h"

namespace {

/** Counts how often a widget is drawn with each text. */
class DrawnTexts : public QObject {
public:
    explicit DrawnTexts(QLabel *label) : m_label(label) { label->installEventFilter(this); }
    const QStringList &texts() const { return m_texts; }

protected:
    bool eventFilter(QObject *watched, QEvent *event) override
    {
        if (event->type() == QEvent::Paint && watched == m_label)
            m_texts.append(m_label->text());
        return QObject::eventFilter(watched, event);
    }

private:
    QLabel *m_label;
    QStringList m_texts;
};

bool isWaitCursorShown()
{
    const QCursor *cursor = QGuiApplication::overrideCursor();
    return cursor && cursor->shape() == Qt::WaitCursor;
}

} // namespace

/** What the operator sees when the controller answers slowly. */
class tst_Waiting : public AdministrationFixture {
    Q_OBJECT

private slots:
    void init();
    void cleanup();
    void showsNothingBefore300Ms();
    void showsTheCursorFrom300MsOn();
    void countsBodiesWhileAPageIsRead();
    void drawsTheCountFourTimesASecondAtMost();
    void handlesNoEventMeanwhile();
    void isGoneBeforeADialogOpens();
    void showsNothingWhileAQuestionIsOpen();
    void countsAgainFromTheEndOfAQuestion();
    void innerWorkGivesTheText();
    void sameTextIsDrawnOnce();
    void sendsNothingItself();

private:
    /** Makes the virtual time of `host` the clock of every Waiting. */
    static void useClockOf(TestHost &host)
    {
        Waiting::setClock([&host] { return host.io.virtualTime(); });
    }
    static ControllerState fiftyBodies()
    {
        ControllerState state = studio();
        QVector<BodyState> &bodies = state.bodyTypes[QStringLiteral("standard")].bodies;
        state.bodyTypes[QStringLiteral("standard")].maximum = 50;
        BodyState slot;
        slot.filterPreset = bodies.first().filterPreset;
        slot.filterMode = bodies.first().filterMode;
        while (bodies.size() < 50)
            bodies.append(slot);
        return state;
    }
};

void tst_Waiting::init()
{
    AdministrationFixture::init();
    Waiting::setClock([] { return 0; });
}

void tst_Waiting::cleanup()
{
    Waiting::setClock({});
    QVERIFY(!QGuiApplication::overrideCursor());
    AdministrationFixture::cleanup();
}

void tst_Waiting::showsNothingBefore300Ms()
{
    TestHost host;
    useClockOf(host);
    host.fault(QStringLiteral("* delay 99"));
    LinkObserver observer(nullptr);
    const ControllerLink link(&host.io, &host.versions, &observer);
    const Waiting waiting(&observer, Waiting::For::Refresh, QStringLiteral("Reading ..."));
    for (int i = 0; i < 3; ++i)
        link.text("tracking reference");
    QCOMPARE(host.io.virtualTime(), qint64(297));
    QVERIFY(!QGuiApplication::overrideCursor());
}

void tst_Waiting::showsTheCursorFrom300MsOn()
{
    TestHost host;
    useClockOf(host);
    host.fault(QStringLiteral("* delay 100"));
    LinkObserver observer(nullptr);
    QStringList texts;
    connect(&observer, &LinkObserver::waitingFor, this,
            [&](const QString &text) { texts << text; });
    {
        const ControllerLink link(&host.io, &host.versions, &observer);
        const Waiting waiting(&observer, Waiting::For::Refresh, QStringLiteral("Reading ..."));
        for (int i = 0; i < 3; ++i)
            link.text("tracking reference");
        QVERIFY(isWaitCursorShown());
        QCOMPARE(texts, QStringList("Reading ..."));
    }
    QVERIFY(!QGuiApplication::overrideCursor());
    QCOMPARE(texts, QStringList({"Reading ...", ""}));
}

void tst_Waiting::countsBodiesWhileAPageIsRead()
{
    TestHost host(fiftyBodies());
    useClockOf(host);
    openAt(host, joywandPage, [&](QWidget *page) {
        host.fault(QStringLiteral("* delay 50"));
        QVERIFY(QTest::qWaitForWindowExposed(page->window()));
        auto *line = Drive::find<QLabel>(page->window(), "messageLine");
        const DrawnTexts drawn(line);
        goTo(page->window(), standardPage);
        QVERIFY(drawn.texts().contains(QStringLiteral("Reading bodies ..., 12 of 50")));
        QVERIFY(drawn.texts().contains(QStringLiteral("Reading bodies ..., 50 of 50")));
        QVERIFY(!line->isVisible());
        QVERIFY(!QGuiApplication::overrideCursor());
    });
}

void tst_Waiting::drawsTheCountFourTimesASecondAtMost()
{
    TestHost host(fiftyBodies());
    useClockOf(host);
    openAt(host, joywandPage, [&](QWidget *page) {
        host.fault(QStringLiteral("* delay 5"));
        QVERIFY(QTest::qWaitForWindowExposed(page->window()));
        const DrawnTexts drawn(Drive::find<QLabel>(page->window(), "messageLine"));
        const qint64 startMs = host.io.virtualTime();
        goTo(page->window(), standardPage);
        const int texts = QSet<QString>(drawn.texts().begin(), drawn.texts().end()).size();
        QVERIFY(texts >= 5);
        // One more text has no count, and one more has the last count, which is always shown.
        QVERIFY2(texts <= (host.io.virtualTime() - startMs) / 250 + 2,
                 qPrintable(QString::number(texts)));
        QVERIFY(drawn.texts().contains(QStringLiteral("Reading bodies ..., 50 of 50")));
    });
}

void tst_Waiting::handlesNoEventMeanwhile()
{
    TestHost host(fiftyBodies());
    useClockOf(host);
    openAt(host, joywandPage, [&](QWidget *page) {
        host.fault(QStringLiteral("* delay 50"));
        bool handled = false;
        QMetaObject::invokeMethod(
                page, [&handled] { handled = true; }, Qt::QueuedConnection);
        goTo(page->window(), standardPage);
        QVERIFY(host.io.virtualTime() > 1000);
        QVERIFY(!handled);
        Drive::settle();
        QVERIFY(handled);
    });
}

void tst_Waiting::isGoneBeforeADialogOpens()
{
    TestHost host(studio());
    useClockOf(host);
    openAt(host, standardPage, [&](QWidget *page) {
        Drive::clickCell(table(page, "tableWidget_standard"), 0, 0);
        host.fault(QStringLiteral("* delay 100"));
        bool waited = false;
        connect(&host.io, &SimulatedIOManager::recorded, page,
                [&waited] { waited = waited || isWaitCursorShown(); });
        robot().expectDialog(QStringLiteral("FilterDialog"), [&](QWidget *filter) {
            QVERIFY(waited);
            QVERIFY(!QGuiApplication::overrideCursor());
            QVERIFY(!Drive::find<QLabel>(filter, "messageLine")->isVisible());
        });
        Drive::click(page->window(), "pushButton_filter");
        Drive::settle();
    });
}

void tst_Waiting::showsNothingWhileAQuestionIsOpen()
{
    TestHost host;
    useClockOf(host);
    LinkObserver observer(nullptr);
    const ControllerLink link(&host.io, &host.versions, &observer);
    const Waiting waiting(&observer, Waiting::For::Action, QStringLiteral("Writing ..."));
    host.io.advance(1000);
    link.text("tracking reference");
    QVERIFY(isWaitCursorShown());
    QMessageBox box(QMessageBox::Question, QStringLiteral("MORVEK3"), QStringLiteral("Continue?"),
                    QMessageBox::Yes);
    robot().expectBox(QStringLiteral("MORVEK3"), QStringLiteral("Continue?"), QMessageBox::Yes,
                      [&] {
                          QVERIFY(!QGuiApplication::overrideCursor());
                          // A timer queries the controller while the question is open.
                          host.io.advance(1000);
                          link.text("tracking reference");
                          QVERIFY(!QGuiApplication::overrideCursor());
                      });
    box.exec();
}

void tst_Waiting::countsAgainFromTheEndOfAQuestion()
{
    TestHost host;
    useClockOf(host);
    LinkObserver observer(nullptr);
    const ControllerLink link(&host.io, &host.versions, &observer);
    const Waiting waiting(&observer, Waiting::For::Action, QStringLiteral("Writing ..."));
    QMessageBox box(QMessageBox::Question, QStringLiteral("MORVEK3"), QStringLiteral("Continue?"),
                    QMessageBox::Yes);
    robot().expectBox(QStringLiteral("MORVEK3"), QStringLiteral("Continue?"), QMessageBox::Yes,
                      [&] { host.io.advance(60000); });
    box.exec();
    link.text("tracking reference");
    QVERIFY(!QGuiApplication::overrideCursor());
    host.io.advance(300);
    link.text("tracking reference");
    QVERIFY(isWaitCursorShown());
}

void tst_Waiting::innerWorkGivesTheText()
{
    TestHost host;
    useClockOf(host);
    LinkObserver observer(nullptr);
    QStringList texts;
    connect(&observer, &LinkObserver::waitingFor, this,
            [&](const QString &text) { texts << text; });
    const ControllerLink link(&host.io, &host.versions, &observer);
    const Waiting outer(&observer, Waiting::For::Action, QStringLiteral("Writing ..."));
    host.io.advance(300);
    link.text("tracking reference");
    {
        const Waiting inner(&observer, Waiting::For::Refresh, QStringLiteral("Reading ..."));
        QVERIFY(Waiting::purposeIn(&observer) == Waiting::For::Refresh);
        link.text("tracking reference");
    }
    QVERIFY(Waiting::purposeIn(&observer) == Waiting::For::Action);
    QVERIFY(isWaitCursorShown());
    link.text("tracking reference");
    QCOMPARE(texts, QStringList({"Writing ...", "Reading ...", "Writing ..."}));
}

void tst_Waiting::sameTextIsDrawnOnce()
{
    QWidget window;
    auto *line = new MessageLine(&window);
    LinkObserver observer(nullptr);
    line->follow(&observer);
    window.show();
    QVERIFY(QTest::qWaitForWindowExposed(&window));
    const QString text = QStringLiteral("Reading ...");
    emit observer.waitingFor(text);
    const DrawnTexts drawn(line);
    emit observer.waitingFor(text);
    QCOMPARE(drawn.texts(), QStringList());
    emit observer.waitingFor(QStringLiteral("Writing ..."));
    QCOMPARE(drawn.texts(), QStringList("Writing ..."));
}

void tst_Waiting::sendsNothingItself()
{
    const auto linesWith = [this](int delayMs) {
        TestHost host(studio());
        useClockOf(host);
        openAt(host, standardPage, [&](QWidget *page) {
            host.fault(QStringLiteral("* delay %1").arg(delayMs));
            Drive::typeIntoCell(table(page, "tableWidget_standard"), 0, NameColumn, "Visor");
            goTo(page->window(), joywandPage);
        });
        return host.lines();
    };
    QCOMPARE(linesWith(500), linesWith(0));
}

TRACKING_TEST_MAIN(tst_Waiting)
#include "tst_waiting.moc"
