#include "ModuleRequest.h"
#include "SubstituteDialog.h"
#include "SubstituteModule.h"
#include "bodytypes.h"
#include "dialogtest.h"

#include <QLabel>
#include <QPushButton>

using Work = SubstituteModule::Work;

class tst_SubstituteModule : public QObject {
    Q_OBJECT

private slots:
    void requests_data();
    void requests();
    void announcements();
    void showsTheRequest();
    void calibrates();
    void calibratesOverATarget();
    void calibratesHybrid();
    void adjusts();
    void cannotApply_data();
    void cannotApply();
    void reopensOnceWhenClosed();
    void reopensOnEscape();
    void anotherRequestReplacesTheFirst();
    void leavesItsChannel();
};

namespace {

const BodyState &body(const TestHost &host, int index)
{
    return host.controller.state().bodyTypes.constFind(standard)->bodies.at(index);
}

void request(TestHost &host, const char *channel, const char *text)
{
    host.io.send_message(channel, "BodyAdministrationModule", 1, text);
}

} // namespace

void tst_SubstituteModule::requests_data()
{
    QTest::addColumn<QString>("text");
    QTest::addColumn<QString>("bodyType");
    QTest::addColumn<int>("number");
    QTest::addColumn<QString>("status");

    QTest::newRow("numbered") << "Open standard b01"
                              << "standard" << 1 << "";
    QTest::newRow("three digits") << "Open standard b123"
                                  << "standard" << 123 << "";
    QTest::newRow("separated") << "Open joywand|2|calibrated"
                               << "joywand" << 2 << "calibrated";
    QTest::newRow("status with blanks") << "Open standard|4|Target Library, re-calibrated"
                                        << "standard" << 4 << "Target Library, re-calibrated";
    QTest::newRow("empty status") << "Open standard|4|"
                                  << "standard" << 4 << "";
    QTest::newRow("another verb") << "Close standard b01"
                                  << "" << 0 << "";
    QTest::newRow("verb goes on") << "Opened standard b01"
                                  << "" << 0 << "";
    QTest::newRow("one digit") << "Open standard b1"
                               << "" << 0 << "";
    QTest::newRow("body zero") << "Open standard b00"
                               << "standard" << 0 << "";
    QTest::newRow("nothing else") << "Open"
                                  << "" << 0 << "";
    QTest::newRow("two fields") << "Open standard|4"
                                << "" << 0 << "";
}

void tst_SubstituteModule::requests()
{
    QFETCH(QString, text);
    const ModuleRequest parsed = ModuleRequest::parse(text, QStringLiteral("Open"));
    QTEST(parsed.bodyType, "bodyType");
    QTEST(parsed.bodyNumber, "number");
    QTEST(parsed.status, "status");
    QCOMPARE(parsed.isValid(), parsed.bodyNumber > 0);
}

void tst_SubstituteModule::announcements()
{
    TestHost host;
    SubstituteModule calibration(Work::Calibrate, &host.controller, &host.io);
    SubstituteModule hybrid(Work::CalibrateHybrid, &host.controller, &host.io);
    SubstituteModule adjustment(Work::Adjust, &host.controller, &host.io);
    calibration.announce();
    hybrid.announce();
    adjustment.announce();
    QCOMPARE(host.requests(),
             QStringList({"GlobalEvent|BodyCalModule|bodycalibration available",
                          "GlobalEvent|BodyAdjustmentModule|bodyadjustment available"}));
}

void tst_SubstituteModule::showsTheRequest()
{
    TestHost host;
    SubstituteModule module(Work::Calibrate, &host.controller, &host.io);
    QVERIFY(!module.dialog());
    request(host, "BodyCalModule", "OpenBodyCalDialog standard b08");
    QVERIFY(module.dialog());
    QVERIFY(module.dialog()->isVisible());
    QVERIFY(!module.dialog()->isModal());
    QCOMPARE(module.dialog()->objectName(), QStringLiteral("substitute_BodyCalModule"));
    QCOMPARE(Drive::find<QLabel>(module.dialog(), "label_request")->text(),
             QStringLiteral("OpenBodyCalDialog standard b08"));
    QVERIFY(!body(host, 7).calibrated);
}

void tst_SubstituteModule::calibrates()
{
    TestHost host;
    SubstituteModule module(Work::Calibrate, &host.controller, &host.io);
    request(host, "BodyCalModule", "OpenBodyCalDialog standard b08");
    Drive::click(module.dialog(), "pushButton_apply");
    QVERIFY(body(host, 7).calibrated);
    QVERIFY(body(host, 7).active);
    QVERIFY(!body(host, 7).recalibrated);
    QVERIFY(body(host, 7).markers > 0);
    QCOMPARE(Drive::find<QLabel>(module.dialog(), "label_result")->text(),
             QStringLiteral("applied"));
}

void tst_SubstituteModule::calibratesOverATarget()
{
    TestHost host;
    SubstituteModule module(Work::Calibrate, &host.controller, &host.io);
    request(host, "BodyCalModule", "OpenBodyCalDialog standard b03");
    Drive::click(module.dialog(), "pushButton_apply");
    QVERIFY(body(host, 2).recalibrated);
    QCOMPARE(body(host, 2).target, QStringLiteral("CR03"));
}

void tst_SubstituteModule::calibratesHybrid()
{
    TestHost host;
    SubstituteModule module(Work::CalibrateHybrid, &host.controller, &host.io);
    QVERIFY(host.state().sensors.at(1).handEye.isEmpty());
    request(host, "HybridBodyCalibration", "OpenHybridBodyCalibration standard|5|Optical");
    Drive::click(module.dialog(), "pushButton_apply");
    QVERIFY(!host.state().sensors.at(1).handEye.isEmpty());
}

void tst_SubstituteModule::adjusts()
{
    TestHost host;
    SubstituteModule module(Work::Adjust, &host.controller, &host.io);
    request(host, "BodyAdjustmentModule", "OpenBodyAdjustmentDialog standard|3|calibrated");
    Drive::click(module.dialog(), "pushButton_apply");
    QVERIFY(body(host, 2).recalibrated);
}

void tst_SubstituteModule::cannotApply_data()
{
    QTest::addColumn<int>("work");
    QTest::addColumn<QByteArray>("channel");
    QTest::addColumn<QByteArray>("text");
    QTest::addColumn<QString>("reason");

    QTest::newRow("not understood") << int(Work::Calibrate) << QByteArray("BodyCalModule")
                                    << QByteArray("OpenSesame") << "The request is not understood.";
    QTest::newRow("no such body") << int(Work::Calibrate) << QByteArray("BodyCalModule")
                                  << QByteArray("OpenBodyCalDialog standard b09")
                                  << "The controller has no such body.";
    QTest::newRow("no such type") << int(Work::Calibrate) << QByteArray("BodyCalModule")
                                  << QByteArray("OpenBodyCalDialog hat b01")
                                  << "The controller has no such body.";
    QTest::newRow("no sensor") << int(Work::CalibrateHybrid) << QByteArray("HybridBodyCalibration")
                               << QByteArray("OpenHybridBodyCalibration standard|1|Custom")
                               << "The body carries no inertial sensor.";
    QTest::newRow("not calibrated")
            << int(Work::Adjust) << QByteArray("BodyAdjustmentModule")
            << QByteArray("OpenBodyAdjustmentDialog standard|8|uncalibrated")
            << "The body is not calibrated.";
}

void tst_SubstituteModule::cannotApply()
{
    QFETCH(int, work);
    QFETCH(QByteArray, channel);
    QFETCH(QByteArray, text);
    QFETCH(QString, reason);
    TestHost host;
    SubstituteModule module(Work(work), &host.controller, &host.io);
    request(host, channel.constData(), text.constData());
    QCOMPARE(Drive::find<QLabel>(module.dialog(), "label_effect")->text(), reason);
    QVERIFY(!Drive::find<QPushButton>(module.dialog(), "pushButton_apply")->isEnabled());
}

void tst_SubstituteModule::reopensOnceWhenClosed()
{
    TestHost host;
    SubstituteModule module(Work::Calibrate, &host.controller, &host.io);
    request(host, "BodyCalModule", "OpenBodyCalDialog standard b08");
    host.clear();
    const QPointer<SubstituteDialog> dialog = module.dialog();
    Drive::click(dialog, "pushButton_close");
    QCOMPARE(host.requests(), QStringList("BodyAdministrationModule|BodyCalModule|reopen"));
    QTRY_VERIFY(!dialog);
    QVERIFY(!module.dialog());
    QVERIFY(!body(host, 7).calibrated);
}

void tst_SubstituteModule::reopensOnEscape()
{
    TestHost host;
    SubstituteModule module(Work::Adjust, &host.controller, &host.io);
    request(host, "BodyAdjustmentModule", "OpenBodyAdjustmentDialog standard|1|calibrated");
    host.clear();
    QTest::keyClick(module.dialog(), Qt::Key_Escape);
    QCOMPARE(host.requests(), QStringList("BodyAdministrationModule|BodyAdjustmentModule|reopen"));
}

void tst_SubstituteModule::anotherRequestReplacesTheFirst()
{
    TestHost host;
    SubstituteModule module(Work::Calibrate, &host.controller, &host.io);
    request(host, "BodyCalModule", "OpenBodyCalDialog standard b01");
    request(host, "BodyCalModule", "OpenBodyCalDialog standard b02");
    QCOMPARE(Drive::find<QLabel>(module.dialog(), "label_request")->text(),
             QStringLiteral("OpenBodyCalDialog standard b02"));
    QVERIFY(!host.requests().contains(
            QStringLiteral("BodyAdministrationModule|BodyCalModule|reopen")));
}

void tst_SubstituteModule::leavesItsChannel()
{
    TestHost host;
    {
        SubstituteModule module(Work::Calibrate, &host.controller, &host.io);
        QCOMPARE(host.io.receiverCount("BodyCalModule"), 1);
    }
    QCOMPARE(host.io.receiverCount("BodyCalModule"), 0);
}

TRACKING_TEST_MAIN(tst_SubstituteModule)
#include "tst_substitutemodule.moc"
