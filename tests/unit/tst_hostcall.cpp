#include "dialogtest.h"
#include "hostcall.h"

#include <QDialog>
#include <QLabel>
#include <QPointer>

#include <memory>

/** What becomes of the widgets of a window that is deleted inside a call of the host. */
class tst_HostCall : public DialogTest {
    Q_OBJECT

private slots:
    void widgetsOutliveTheirWindow();
    void onlyTheOutermostCallDeletes();
    void nothingIsKeptOutsideOfCalls();
};

void tst_HostCall::widgetsOutliveTheirWindow()
{
    auto window = std::make_unique<QWidget>();
    const QPointer<QLabel> label = new QLabel(window.get());
    const QPointer<QDialog> subDialog = new QDialog(window.get());
    {
        const HostCall call;
        QVERIFY(!HostCall::isKept(label));
        HostCall::keepWidgetsOf(window.get());
        window.reset();
        QVERIFY(label);
        QVERIFY(HostCall::isKept(label));
        QVERIFY(!subDialog);
        // The library is not unloaded inside a call, so that nothing needs to go yet.
        HostCall::deleteKept();
        QVERIFY(label);
    }
    QVERIFY(label);
    HostCall::deleteKept();
    QVERIFY(!label);
}

void tst_HostCall::onlyTheOutermostCallDeletes()
{
    auto window = std::make_unique<QWidget>();
    const QPointer<QLabel> label = new QLabel(window.get());
    {
        const HostCall outer;
        {
            const HostCall inner;
            HostCall::keepWidgetsOf(window.get());
            window.reset();
        }
        QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
        QVERIFY(label);
    }
    QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
    QVERIFY(!label);
    // What is gone already is not deleted again.
    const HostCall later;
    QVERIFY(HostCall::isUnderWay());
}

void tst_HostCall::nothingIsKeptOutsideOfCalls()
{
    auto window = std::make_unique<QWidget>();
    const QPointer<QLabel> label = new QLabel(window.get());
    HostCall::keepWidgetsOf(window.get());
    QVERIFY(!HostCall::isKept(label));
    window.reset();
    QVERIFY(!label);
    QVERIFY(!HostCall::isUnderWay());
}

TRACKING_TEST_MAIN(tst_HostCall)
#include "tst_hostcall.moc"
