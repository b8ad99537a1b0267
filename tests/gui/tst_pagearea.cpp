#include "dialogtest.h"
#include "support/pagearea.h"

#include <QLabel>
#include <QSplitter>
#include <QVBoxLayout>

/** The room that the scrolling area of a page asks for. */
class tst_PageArea : public DialogTest {
    Q_OBJECT

private slots:
    void wantsWhatItsPageWants();
};

void tst_PageArea::wantsWhatItsPageWants()
{
    PageArea area;
    QVERIFY(area.sizeHint().isValid());
    auto *page = new QWidget;
    auto *layout = new QVBoxLayout(page);
    layout->addWidget(new QLabel(QStringLiteral("Bodies")));
    area.setWidget(page);
    QCOMPARE(area.sizeHint(), page->sizeHint());
    auto *splitter = new QSplitter;
    for (int i = 0; i < 3; ++i)
        splitter->addWidget(new QLabel(QStringLiteral("Targets")));
    layout->addWidget(splitter);
    layout->activate();
    QCOMPARE(area.sizeHint(), page->sizeHint() + QSize(2 * splitter->handleWidth(), 0));
}

TRACKING_TEST_MAIN(tst_PageArea)
#include "tst_pagearea.moc"
