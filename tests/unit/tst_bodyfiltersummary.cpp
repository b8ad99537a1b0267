#include "bodies/adminbodytype.h"
#include "bodies/bodyreader.h"
#include "dialogtest.h"

namespace {

/** Calibrated bodies with an old text as their summary, so that a test sees whether it was kept. */
AdminBodyType recordWithOldSummary(int count, bool filterAvailable = true)
{
    AdminBody body;
    body.calibrated = true;
    body.filter6dPreset = QStringLiteral("old filter");
    AdminBodyType record;
    record.bodies.fill(body, count);
    record.filter6dAvailable = filterAvailable;
    return record;
}

} // namespace

/** The text that sums up the 6DOF filter of a body. */
class tst_BodyFilterSummary : public DialogTest {
    Q_OBJECT

private slots:
    void summarizesFilters_data();
    void summarizesFilters();
    void keepsSummaryWhenItCannotBeRead_data();
    void keepsSummaryWhenItCannotBeRead();
    void blankAnswerIsNoPresetAndNoMode_data();
    void blankAnswerIsNoPresetAndNoMode();
    void asksForTheFilterOnlyWhereItExists_data();
    void asksForTheFilterOnlyWhereItExists();
};

void tst_BodyFilterSummary::summarizesFilters_data()
{
    QTest::addColumn<QStringList>("rules");
    QTest::addColumn<QString>("summary");
    const QString custom = QStringLiteral("body filter6d_preset* answer \"preset6d_custom\"");
    const QString prediction = QStringLiteral("body filter6d_prediction* answer \"%1\"");
    const QString strength = QStringLiteral("body filter6d_strength* answer \"%1\"");
    const QString mode = QStringLiteral("body filter6d_mode* answer \"hybrid_target\"");
    const QString described = QStringLiteral("filter6d mode_desc* answer \"\\\"%1\\\"\"");
    QTest::newRow("hybrid with quoted description") << QStringList(
            {prediction.arg("0.0125"), strength.arg("0.5"), mode, described.arg("Hybrid")})
                                                    << "0.50/12ms/Hybrid";
    QTest::newRow("hybrid word inside the mode")
            << QStringList({prediction.arg("0.05"), strength.arg("0.25"),
                            "body filter6d_mode* answer \"my_hybrid\"", described.arg("Mine")})
            << "0.25/50ms/Mine";
    QTest::newRow("no hybrid") << QStringList({prediction.arg("0.029")}) << "29ms/Adaptive fast";
    QTest::newRow("truncated") << QStringList({prediction.arg("0.0665")}) << "66ms/Adaptive fast";
    QTest::newRow("negative") << QStringList({prediction.arg("-0.029")}) << "-29ms/Adaptive fast";
    QTest::newRow("place markers in the description") << QStringList(
            {prediction.arg("0.02"), mode, strength.arg("0.5"), described.arg("%1 %2")})
                                                      << "0.50/20ms/%1 %2";
    QTest::newRow("not active") << QStringList{"body filter6d_enabled* answer \"no\""}
                                << "not active";
    QTest::newRow("not exactly yes")
            << QStringList{"body filter6d_enabled* answer \"Yes\""} << "not active";
    QTest::newRow("other preset") << QStringList(
            {"body filter6d_preset* answer \"preset6d_default\"",
             "filter6d preset_desc* answer \"\\\"Stan\\\"dard\\\"\""})
                                  << "Standard";
    QTest::newRow("custom without the preset word")
            << QStringList({"body filter6d_preset* answer \"my_custom\"",
                            "filter6d preset_desc* answer \"\\\"Mine\\\"\""})
            << "Mine";
    QTest::newRow("custom in the middle") << QStringList(
            {"body filter6d_preset* answer \"x_preset6d_a_custom_b\"", prediction.arg("0.01")})
                                          << "10ms/Adaptive fast";
    QTest::newRow("empty description")
            << QStringList({"body filter6d_preset* answer \"preset6d_default\"",
                            "filter6d preset_desc* answer \"\\\"\\\"\""})
            << "";
}

void tst_BodyFilterSummary::summarizesFilters()
{
    QFETCH(QStringList, rules);
    TestHost host(TestHost::scenario("studio"));
    for (const QString &rule : rules)
        host.fault(rule);
    AdminBodyType record = recordWithOldSummary(8);
    BodyReader(ControllerLink(&host.io, &host.versions)).readFilterSummary(record, "standard", 0);
    QTEST(record.bodies.at(0).filter6dPreset, "summary");
    QCOMPARE(host.log(), QStringList());
}

void tst_BodyFilterSummary::keepsSummaryWhenItCannotBeRead_data()
{
    QTest::addColumn<int>("index");
    QTest::addColumn<QString>("failing");
    QTest::addColumn<QStringList>("log");
    QTest::addColumn<QString>("summary");
    QTest::newRow("state") << 3 << "body filter6d_enabled*"
                           << QStringList{"Error: Unable to get filter6d state of body standard "
                                          "b04"}
                           << "old filter";
    QTest::newRow("preset") << 3 << "body filter6d_preset*"
                            << QStringList{"Error: Unable to get filter6d preset of body standard "
                                           "b04"}
                            << "old filter";
    QTest::newRow("prediction") << 3 << "body filter6d_prediction*"
                                << QStringList{"Error: Unable to get filter6d prediction of body "
                                               "standard b04"}
                                << "old filter";
    QTest::newRow("mode") << 3 << "body filter6d_mode*"
                          << QStringList{"Error: Unable to get filter6d mode of body standard b04"}
                          << "old filter";
    QTest::newRow("description of the mode")
            << 3 << "filter6d mode_desc*"
            << QStringList{"Error: Unable to get description of filter6d mode hybrid_target"}
            << "old filter";
    QTest::newRow("strength counts as 0")
            << 3 << "body filter6d_strength*"
            << QStringList{"Error: Unable to get filter6d strength of body standard b04"}
            << "0.00/12ms/Hybrid target";
    QTest::newRow("description of the preset")
            << 4 << "filter6d preset_desc*"
            << QStringList{"Error: Unable to get description of filter6d preset preset6d_default"}
            << "old filter";
}

void tst_BodyFilterSummary::keepsSummaryWhenItCannotBeRead()
{
    QFETCH(int, index);
    QFETCH(QString, failing);
    TestHost host(TestHost::scenario("studio"));
    host.fault(failing + QStringLiteral(" fail"));
    AdminBodyType record = recordWithOldSummary(8);
    BodyReader(ControllerLink(&host.io, &host.versions))
            .readFilterSummary(record, "standard", index);
    QTEST(record.bodies.at(index).filter6dPreset, "summary");
    QTEST(host.log(), "log");
}

void tst_BodyFilterSummary::blankAnswerIsNoPresetAndNoMode_data()
{
    QTest::addColumn<QString>("blank");
    QTest::addColumn<QString>("log");
    QTest::newRow("preset") << "body filter6d_preset*"
                            << "Error: Unable to get filter6d preset of body standard b04";
    QTest::newRow("mode") << "body filter6d_mode*"
                          << "Error: Unable to get filter6d mode of body standard b04";
}

void tst_BodyFilterSummary::blankAnswerIsNoPresetAndNoMode()
{
    QFETCH(QString, blank);
    TestHost host(TestHost::scenario("studio"));
    host.fault(blank + QStringLiteral(" empty"));
    AdminBodyType record = recordWithOldSummary(8);
    BodyReader(ControllerLink(&host.io, &host.versions)).readFilterSummary(record, "standard", 3);
    QCOMPARE(record.bodies.at(3).filter6dPreset, QString("old filter"));
    QFETCH(QString, log);
    QCOMPARE(host.log(), QStringList{log});
    QCOMPARE(host.queries().filter("_desc"), QStringList());
}

void tst_BodyFilterSummary::asksForTheFilterOnlyWhereItExists_data()
{
    QTest::addColumn<bool>("available");
    QTest::addColumn<bool>("calibrated");
    QTest::newRow("type without filter") << false << true;
    QTest::newRow("body not calibrated") << true << false;
}

void tst_BodyFilterSummary::asksForTheFilterOnlyWhereItExists()
{
    QFETCH(bool, available);
    QFETCH(bool, calibrated);
    TestHost host(TestHost::scenario("studio"));
    AdminBodyType record = recordWithOldSummary(8, available);
    record.bodies[0].calibrated = calibrated;
    BodyReader(ControllerLink(&host.io, &host.versions)).readFilterSummary(record, "standard", 0);
    QCOMPARE(record.bodies.at(0).filter6dPreset, QStringLiteral("old filter"));
    QCOMPARE(host.lines(), QStringList());
}

TRACKING_TEST_MAIN(tst_BodyFilterSummary)
#include "tst_bodyfiltersummary.moc"
