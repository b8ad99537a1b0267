#include "controllerlink.h"
#include "dialogtest.h"
#include "listener.h"
#include "versioninfo.h"

#include <QProcess>

#include <clocale>

namespace {

/** Switches to a locale with a decimal comma; makes one in `folder` if none is installed. */
bool useCommaLocale(const QString &folder)
{
    const char *name = "de_DE.UTF-8";
    if (!std::setlocale(LC_ALL, name)) {
        QProcess::execute(QStringLiteral("localedef"),
                          {"-i", "de_DE", "-f", "UTF-8",
                           folder + QLatin1Char('/') + QString::fromLatin1(name)});
        qputenv("LOCPATH", folder.toLocal8Bit());
        std::setlocale(LC_ALL, name);
        qunsetenv("LOCPATH");
    }
    return qstrcmp(std::localeconv()->decimal_point, ",") == 0;
}

} // namespace

/** The module's only way to the controller, byte by byte. */
class tst_ControllerLink : public DialogTest {
    Q_OBJECT

private slots:
    void formatsNumbersWithPointInEveryLocale_data();
    void formatsNumbersWithPointInEveryLocale();
    void formatsBodyNumbers_data();
    void formatsBodyNumbers();
    void carriesTextUnchanged_data();
    void carriesTextUnchanged();
    void sendsLongLinesWhole();
    void refusesLinesThatWouldBreak_data();
    void refusesLinesThatWouldBreak();
    void readsLongAnswers_data();
    void readsLongAnswers();
    void readsAnswersOfTheTypeAskedFor();
    void replacesControlSignsInAnswers_data();
    void replacesControlSignsInAnswers();
    void takesABlankAnswerForNoName_data();
    void takesABlankAnswerForNoName();
    void countsOnlyWhatCanBe_data();
    void countsOnlyWhatCanBe();
    void failsOnDisturbedAnswers_data();
    void failsOnDisturbedAnswers();
    void acceptsActionsOnlyOnTheExactAnswer_data();
    void acceptsActionsOnlyOnTheExactAnswer();
    void setFollowsTheController();
    void gatesFeatures_data();
    void gatesFeatures();
    void knowsThePocketUnit_data();
    void knowsThePocketUnit();
    void readsTheConfigurationLock_data();
    void readsTheConfigurationLock();
    void logsAndPosts();
    void deliversOnlyToRegisteredReceivers();
    void survivesMissingHostObjects();
    void truncatesMilliseconds_data();
    void truncatesMilliseconds();
    void removesDoubleQuotes();
};

void tst_ControllerLink::formatsNumbersWithPointInEveryLocale_data()
{
    QTest::addColumn<bool>("changeLibrary");
    QTest::newRow("default locale of the toolkit") << false;
    QTest::newRow("locale of the C library") << true;
}

void tst_ControllerLink::formatsNumbersWithPointInEveryLocale()
{
    QFETCH(bool, changeLibrary);
    QLocale::setDefault(QLocale(QLocale::German, QLocale::Germany));
    QCOMPARE(QLocale().toString(1.5), QStringLiteral("1,5"));
    if (changeLibrary && !useCommaLocale(home()))
        QSKIP("no locale with a decimal comma can be had on this machine");
    TestHost host;
    const ControllerLink link(&host.io, &host.versions);
    QVERIFY(link.set("tracking axis_5dof_central %.3f %.3f %.3f", 1.5, -0.25, 1000.125));
    QCOMPARE(host.writes(), QStringList{"tracking axis_5dof_central 1.500 -0.250 1000.125"});
    QCOMPARE(host.state().axis5dofCentral[2], 1000.125);
    host.edit([](ControllerState &state) {
        state.bodyTypes["standard"].bodies[0].filterStrength = 0.42;
    });
    const auto strength = link.real("body filter6d_strength standard b%02d", 1);
    QVERIFY(strength.has_value());
    QCOMPARE(*strength, 0.42);
    host.clear();
    QVERIFY(!link.command("morvek2 body calibrate_from_targetlib standard b%02d %.1f", 1, 2.5));
    QCOMPARE(host.writes(), QStringList{"morvek2 body calibrate_from_targetlib standard b01 2.5"});
}

void tst_ControllerLink::formatsBodyNumbers_data()
{
    QTest::addColumn<int>("index");
    QTest::addColumn<QString>("word");
    QTest::newRow("first") << 0 << "b01";
    QTest::newRow("twelfth") << 11 << "b12";
    QTest::newRow("two digits are a minimum") << 99 << "b100";
}

void tst_ControllerLink::formatsBodyNumbers()
{
    QFETCH(int, index);
    QFETCH(QString, word);
    TestHost host;
    const ControllerLink link(&host.io, &host.versions);
    link.text("body desc %s b%02d", "standard", index + 1);
    link.text("body desc %s b%.2d", "standard", index + 1);
    link.text("body desc %s b%2.2d", "standard", index + 1);
    const QString line = QStringLiteral("body desc standard ") + word;
    QCOMPARE(host.queries(), QStringList({line, line, line}));
}

void tst_ControllerLink::carriesTextUnchanged_data()
{
    QTest::addColumn<QString>("text");
    QTest::newRow("plain") << "Cap";
    QTest::newRow("empty") << QString();
    QTest::newRow("blanks") << "  two  words ";
    QTest::newRow("umlauts") << QString::fromUtf8("Gro\xc3\x9f\x65r K\xc3\xb6rper");
    QTest::newRow("beyond 16 bits") << QString::fromUtf8("\xf0\x9f\x8e\xaf");
    QTest::newRow("percent signs") << "100%s %n %d %";
    QTest::newRow("place markers") << "%1 %2";
    QTest::newRow("apostrophe and backslash") << "it's \\n";
}

void tst_ControllerLink::carriesTextUnchanged()
{
    QFETCH(QString, text);
    TestHost host;
    const ControllerLink link(&host.io, &host.versions);
    QVERIFY(link.set("body desc standard b01 \"%s\"", ControllerLink::argument(text).constData()));
    QCOMPARE(host.writes(), QStringList{"body desc standard b01 \"" + text + "\""});
    QCOMPARE(host.state().bodyTypes["standard"].bodies[0].description, text);
    const auto answer = link.text("body desc standard b01");
    QVERIFY(answer.has_value());
    QCOMPARE(*answer, text);
}

void tst_ControllerLink::sendsLongLinesWhole()
{
    const QString name(1000, QLatin1Char('x'));
    TestHost host;
    const ControllerLink link(&host.io, &host.versions);
    link.set("body desc standard b01 \"%s\"", ControllerLink::argument(name).constData());
    QCOMPARE(host.writes(), QStringList{"body desc standard b01 \"" + name + "\""});
}

void tst_ControllerLink::refusesLinesThatWouldBreak_data()
{
    QTest::addColumn<QString>("text");
    QTest::newRow("line feed") << "one\ntwo";
    QTest::newRow("carriage return") << "one\rtwo";
    QTest::newRow("line feed at the end") << "one\n";
    QTest::newRow("a second command") << "x\"\ntracking reference none";
    QTest::newRow("unpaired quote") << "say \"one";
    QTest::newRow("NUL") << QStringLiteral("one") + QChar(0) + QStringLiteral("two");
    QTest::newRow("NUL at the end") << QStringLiteral("one") + QChar(0);
}

void tst_ControllerLink::refusesLinesThatWouldBreak()
{
    QFETCH(QString, text);
    TestHost host;
    const ControllerLink link(&host.io, &host.versions);
    const QByteArray argument = ControllerLink::argument(text);
    const char *word = argument.constData();
    QVERIFY(!link.set("body desc standard b01 \"%s\"", word));
    QVERIFY(!link.command("morvek2 body calibrate_from_targetlib standard b01 %s", word));
    QVERIFY(!link.text("filter6d mode_desc %s", word));
    QVERIFY(!link.name("inertial body_of_sensor %s", word));
    QVERIFY(!link.integer("body number_of_bodies %s", word));
    QVERIFY(!link.count("body number_of_bodies %s", word));
    QVERIFY(!link.real("body filter6d_strength %s b01", word));
    QVERIFY(!link.flag("inertial sensor_present %s", word));
    QCOMPARE(host.lines(), QStringList());
    QCOMPARE(host.state().bodyTypes["standard"].bodies[0].description, QStringLiteral("Cap"));
}

void tst_ControllerLink::readsLongAnswers_data()
{
    QTest::addColumn<QString>("effect");
    QTest::addColumn<int>("length");
    QTest::newRow("as long as promised") << "long" << 199;
    QTest::newRow("longer than promised") << "over-long" << 3999;
}

void tst_ControllerLink::readsLongAnswers()
{
    QFETCH(QString, effect);
    QFETCH(int, length);
    TestHost host;
    const ControllerLink link(&host.io, &host.versions);
    host.fault(QStringLiteral("* ") + effect);
    const auto answer = link.text("body desc standard b01");
    QVERIFY(answer.has_value());
    QCOMPARE(*answer, QString(length, QLatin1Char('x')));
    QVERIFY(!link.integer("body number_of_bodies standard"));
    QVERIFY(!link.real("body filter6d_strength standard b01"));
    QVERIFY(!link.flag("inertial available"));
    QVERIFY(!link.command("morvek2 targetlib check_custom_calibration"));
}

void tst_ControllerLink::readsAnswersOfTheTypeAskedFor()
{
    TestHost host;
    const ControllerLink link(&host.io, &host.versions);
    QCOMPARE(link.text("body type_desc standard").value_or("failed"),
             QStringLiteral("\"Standard body\""));
    QCOMPARE(link.integer("body number_of_bodies standard").value_or(-1), 8);
    QCOMPARE(link.real("body filter6d_prediction standard b01").value_or(-1.0), 0.02);
    QCOMPARE(link.flag("inertial available").value_or(false), true);
    QCOMPARE(link.flag("inertial warmup").value_or(true), false);
    host.edit([](ControllerState &state) {
        state.bodyTypes["standard"].bodies[0].description.clear();
    });
    const auto empty = link.text("body desc standard b01");
    QVERIFY2(empty.has_value(), "an empty answer is an answer");
    QCOMPARE(*empty, QString());
}

void tst_ControllerLink::replacesControlSignsInAnswers_data()
{
    QTest::addColumn<QByteArray>("sign");
    QTest::newRow("line feed") << QByteArray("\n");
    QTest::newRow("carriage return") << QByteArray("\r");
    QTest::newRow("tabulator") << QByteArray("\t");
    QTest::newRow("escape") << QByteArray("\x1b");
    QTest::newRow("delete") << QByteArray("\x7f");
    QTest::newRow("next line") << QByteArray("\xc2\x85");
    QTest::newRow("line separator") << QByteArray("\xe2\x80\xa8");
    QTest::newRow("paragraph separator") << QByteArray("\xe2\x80\xa9");
}

void tst_ControllerLink::replacesControlSignsInAnswers()
{
    QFETCH(QByteArray, sign);
    TestHost host;
    const ControllerLink link(&host.io, &host.versions);
    const QString replacement(QChar::ReplacementCharacter);
    const auto answering = [&host](const QByteArray &answer) {
        host.io.setResponder([answer](TranscriptEntry *entry) { entry->answer = answer; });
    };
    answering("one" + sign + "two");
    const auto described = QStringLiteral("one") + replacement + QStringLiteral("two");
    QCOMPARE(link.text("body desc standard b01"), std::optional<QString>(described));
    QCOMPARE(link.name("body inertial_sensor standard b01"), std::optional<QString>(described));
    answering("yes" + sign);
    QVERIFY(link.text("inertial available") != QLatin1String("yes"));
    answering("morvek2 ok" + sign);
    QVERIFY(!link.command("morvek2 targetlib check_custom_calibration"));
}

void tst_ControllerLink::takesABlankAnswerForNoName_data()
{
    QTest::addColumn<QString>("rule");
    QTest::addColumn<QString>("name");
    QTest::newRow("empty") << "* empty"
                           << "none";
    QTest::newRow("blanks") << "* answer \"  \""
                            << "none";
    QTest::newRow("none") << "* answer \"none\""
                          << "none";
    QTest::newRow("name") << "* answer \"IMU 3\""
                          << "IMU 3";
    QTest::newRow("failed") << "* fail"
                            << "failed";
}

void tst_ControllerLink::takesABlankAnswerForNoName()
{
    QFETCH(QString, rule);
    TestHost host;
    const ControllerLink link(&host.io, &host.versions);
    host.fault(rule);
    QTEST(link.name("body inertial_sensor standard b%02d", 1).value_or("failed"), "name");
    QCOMPARE(host.queries(), QStringList{"body inertial_sensor standard b01"});
}

void tst_ControllerLink::countsOnlyWhatCanBe_data()
{
    QTest::addColumn<QString>("effect");
    QTest::addColumn<int>("count"); // -1 for a failed query
    QTest::newRow("none") << "answer \"0\"" << 0;
    QTest::newRow("some") << "answer \"20\"" << 20;
    QTest::newRow("most") << "answer \"9999\"" << 9999;
    QTest::newRow("too many") << "answer \"10000\"" << -1;
    QTest::newRow("largest integer") << "answer \"2147483647\"" << -1;
    QTest::newRow("negative") << "answer \"-7\"" << -1;
    QTest::newRow("no number") << "wrong-type" << -1;
    QTest::newRow("failed") << "fail" << -1;
}

void tst_ControllerLink::countsOnlyWhatCanBe()
{
    QFETCH(QString, effect);
    TestHost host;
    const ControllerLink link(&host.io, &host.versions);
    host.fault(QStringLiteral("body number_of_bodies* ") + effect);
    QTEST(link.count("body number_of_bodies %s", "standard").value_or(-1), "count");
    QCOMPARE(host.queries(), QStringList{"body number_of_bodies standard"});
}

void tst_ControllerLink::failsOnDisturbedAnswers_data()
{
    QTest::addColumn<QString>("effect");
    QTest::addColumn<bool>("textFails");
    QTest::newRow("failed") << "fail" << true;
    QTest::newRow("link dead") << "link-dead" << true;
    QTest::newRow("garbled") << "garbled" << false;
    QTest::newRow("of another type") << "wrong-type" << false;
    QTest::newRow("empty") << "empty" << false;
    QTest::newRow("not a number") << "answer \"nan\"" << false;
    QTest::newRow("decimal comma") << "answer \"0,5\"" << false;
    QTest::newRow("infinite") << "answer \"inf\"" << false;
}

void tst_ControllerLink::failsOnDisturbedAnswers()
{
    QFETCH(QString, effect);
    QFETCH(bool, textFails);
    TestHost host;
    const ControllerLink link(&host.io, &host.versions);
    host.fault(QStringLiteral("* ") + effect);
    QVERIFY(!link.integer("body number_of_bodies standard"));
    QVERIFY(!link.real("body filter6d_strength standard b01"));
    QVERIFY(!link.flag("inertial available"));
    QVERIFY(!link.command("morvek2 targetlib check_custom_calibration"));
    QCOMPARE(!link.text("body desc standard b01").has_value(), textFails);
    // The caller has to log the failure.
    QCOMPARE(host.log(), QStringList());
}

void tst_ControllerLink::acceptsActionsOnlyOnTheExactAnswer_data()
{
    QTest::addColumn<QString>("answer");
    QTest::addColumn<bool>("accepted");
    QTest::newRow("exact") << "morvek2 ok" << true;
    QTest::newRow("trailing blank") << "morvek2 ok " << false;
    QTest::newRow("further letters") << "morvek2 okay" << false;
    QTest::newRow("further word") << "morvek2 ok done" << false;
    QTest::newRow("leading blank") << " morvek2 ok" << false;
    QTest::newRow("capital letters") << "Morvek2 OK" << false;
    QTest::newRow("shortened") << "morvek2 o" << false;
    QTest::newRow("empty") << "" << false;
    QTest::newRow("error") << "morvek2 err" << false;
    QTest::newRow("byte order mark")
            << QChar(QChar::ByteOrderMark) + QStringLiteral("morvek2 ok") << false;
}

void tst_ControllerLink::acceptsActionsOnlyOnTheExactAnswer()
{
    QFETCH(QString, answer);
    QFETCH(bool, accepted);
    TestHost host;
    const ControllerLink link(&host.io, &host.versions);
    host.fault(QStringLiteral("morvek2 * answer \"%1\"").arg(answer));
    QCOMPARE(link.command("morvek2 targetlib %s", "check_custom_calibration"), accepted);
    QCOMPARE(host.writes(), QStringList{"morvek2 targetlib check_custom_calibration"});
}

void tst_ControllerLink::setFollowsTheController()
{
    TestHost host;
    const ControllerLink link(&host.io, &host.versions);
    QVERIFY(link.set("inertial warmup yes"));
    QVERIFY(host.state().inertialWarmup);
    host.fault(QStringLiteral("inertial warmup* refuse"));
    QVERIFY(!link.set("inertial warmup no"));
    QVERIFY(host.state().inertialWarmup);
    QCOMPARE(host.writes(), QStringList({"inertial warmup yes", "inertial warmup no"}));
}

void tst_ControllerLink::gatesFeatures_data()
{
    QTest::addColumn<VersionInfo>("protocol");
    QTest::addColumn<int>("major");
    QTest::addColumn<int>("minor");
    QTest::addColumn<bool>("passes");
    const auto row = [](const char *name, VersionInfo protocol, bool passes) {
        QTest::newRow(name) << protocol << 1 << 9 << passes;
    };
    row("1.9 without a patch level", {1, 9, -1}, true);
    row("1.9 patch 0", {1, 9, 0}, true);
    row("1.9 patch 3", {1, 9, 3}, true);
    row("1.9 patch -2", {1, 9, -2}, false);
    row("1.10 is newer than 1.9", {1, 10, -1}, true);
    row("1.10 patch -2", {1, 10, -2}, true);
    row("0.99", {0, 99, 99}, false);
    row("2.0", {2, 0, -1}, true);
    row("1.8", {1, 8, 99}, false);
    const int gates[][2] = {{0, 3},  {0, 13}, {0, 14}, {0, 16}, {0, 17}, {1, 3}, {1, 6},
                            {1, 11}, {1, 12}, {1, 16}, {1, 20}, {1, 21}, {1, 24}};
    for (const auto &gate : gates) {
        const QByteArray name = QByteArray::number(gate[0]) + '.' + QByteArray::number(gate[1]);
        QTest::newRow(name + " itself")
                << VersionInfo(gate[0], gate[1], -1) << gate[0] << gate[1] << true;
        QTest::newRow("one below " + name)
                << VersionInfo(gate[0], gate[1] - 1, 9) << gate[0] << gate[1] << false;
    }
}

void tst_ControllerLink::gatesFeatures()
{
    QFETCH(VersionInfo, protocol);
    QFETCH(int, major);
    QFETCH(int, minor);
    BackendVersions versions;
    versions.prot = protocol;
    // Only the protocol version decides.
    versions.sysPt = VersionInfo(9, 9, 9);
    versions.sysCt = VersionInfo(9, 9, 9);
    QTEST(ControllerLink(nullptr, &versions).protocolAtLeast(major, minor), "passes");
}

void tst_ControllerLink::knowsThePocketUnit_data()
{
    QTest::addColumn<QString>("model");
    QTest::addColumn<bool>("expected");
    QTest::newRow("exact") << "POCKETUNIT" << true;
    QTest::newRow("with a number") << "POCKETUNIT2" << true;
    QTest::newRow("small letters") << "pocketunit" << false;
    QTest::newRow("in the middle") << "MY POCKETUNIT" << false;
    QTest::newRow("another model") << "STUDIO4" << false;
    QTest::newRow("empty") << QString() << false;
}

void tst_ControllerLink::knowsThePocketUnit()
{
    QFETCH(QString, model);
    BackendVersions versions;
    versions.mod = model;
    QTEST(ControllerLink(nullptr, &versions).isPocketUnit(), "expected");
}

void tst_ControllerLink::readsTheConfigurationLock_data()
{
    QTest::addColumn<QString>("protocol");
    QTest::addColumn<QString>("rule");
    QTest::addColumn<bool>("locked");
    QTest::addColumn<int>("queries");
    QTest::newRow("older protocol is not asked") << "1.8"
                                                 << "* answer \"no\"" << false << 0;
    QTest::newRow("no") << "1.9"
                        << "* answer \"no\"" << true << 1;
    QTest::newRow("yes") << "1.9"
                         << "* answer \"yes\"" << false << 1;
    QTest::newRow("another text") << "1.24"
                                  << "* answer \"not now\"" << false << 1;
    QTest::newRow("failed") << "1.24"
                            << "* fail" << false << 1;
}

void tst_ControllerLink::readsTheConfigurationLock()
{
    QFETCH(QString, protocol);
    QFETCH(QString, rule);
    QFETCH(int, queries);
    ControllerState state = TestHost::scenario(QStringLiteral("studio"));
    state.protocol = protocol;
    TestHost host(state);
    host.fault(rule);
    QTEST(ControllerLink(&host.io, &host.versions).isConfigLocked(), "locked");
    QCOMPARE(host.queries().count(QStringLiteral("config is_changeable")), queries);
    QCOMPARE(host.lines().size(), queries);
    const QString failed = "Error: Unable to get lock state of the configuration";
    const bool isLost = queries > 0 && rule.endsWith(QStringLiteral(" fail"));
    QCOMPARE(host.log(), isLost ? QStringList(failed) : QStringList());
}

void tst_ControllerLink::logsAndPosts()
{
    TestHost host;
    const ControllerLink link(&host.io, &host.versions);
    Listener log;
    Listener module;
    host.io.register_receiver("standard", &log);
    host.io.register_receiver("BodyCalModule", &module);
    const QString line = QString::fromUtf8("Error: Unable to get 100%s of \xc3\x84");
    link.log(line);
    link.post("BodyCalModule", QStringLiteral("OpenBodyCalDialog standard b01"));
    QCOMPARE(log.heard, QStringList{"1|MORVEK3|" + line});
    QCOMPARE(module.heard,
             QStringList{"1|BodyAdministrationModule|OpenBodyCalDialog standard b01"});
    QCOMPARE(host.log(), QStringList{line});
}

void tst_ControllerLink::deliversOnlyToRegisteredReceivers()
{
    TestHost host;
    const ControllerLink link(&host.io, &host.versions);
    Listener listener;
    link.registerReceiver("GlobalEvent", &listener);
    host.io.send_message("GlobalEvent", "Somebody", 7, "first");
    link.unregisterReceiver("GlobalEvent", &listener);
    host.io.send_message("GlobalEvent", "Somebody", 7, "second");
    QCOMPARE(listener.heard, QStringList{"7|Somebody|first"});
    QCOMPARE(host.io.receiverCount("GlobalEvent"), 0);
}

void tst_ControllerLink::survivesMissingHostObjects()
{
    const ControllerLink link(nullptr, nullptr);
    Listener listener;
    QVERIFY(!link.text("tracking reference"));
    QVERIFY(!link.integer("body number_of_bodies %s", "standard"));
    QVERIFY(!link.real("status progress"));
    QVERIFY(!link.flag("inertial available"));
    QVERIFY(link.text("inertial available") != QLatin1String("yes"));
    QVERIFY(!link.set("inertial warmup %s", "no"));
    QVERIFY(!link.command("morvek2 cal targetlib stop"));
    QVERIFY(!link.protocolAtLeast(0, 0));
    QVERIFY(!link.isPocketUnit());
    QVERIFY(!link.isConfigLocked());
    link.log(QStringLiteral("lost"));
    link.post("BodyCalModule", QStringLiteral("lost"));
    link.registerReceiver("GlobalEvent", &listener);
    link.unregisterReceiver("GlobalEvent", &listener);
    QCOMPARE(listener.heard, QStringList());

    TestHost host;
    const ControllerLink withoutVersions(&host.io, nullptr);
    QVERIFY(!withoutVersions.isConfigLocked());
    QCOMPARE(host.lines(), QStringList());
    QVERIFY(withoutVersions.text("body desc standard b01").has_value());
}

void tst_ControllerLink::truncatesMilliseconds_data()
{
    QTest::addColumn<double>("seconds");
    QTest::addColumn<int>("milliseconds");
    QTest::newRow("zero") << 0.0 << 0;
    QTest::newRow("not the 28 of binary rounding") << 0.029 << 29;
    QTest::newRow("truncated") << 0.0665 << 66;
    QTest::newRow("half") << 0.0125 << 12;
    QTest::newRow("just below") << 0.0129999 << 12;
    QTest::newRow("below one") << 0.0009 << 0;
    QTest::newRow("whole second") << 1.0 << 1000;
    QTest::newRow("above a second, not the 1000 of binary rounding") << 1.001 << 1001;
    QTest::newRow("negative") << -0.029 << -29;
    QTest::newRow("negative, toward zero") << -0.0665 << -66;
    QTest::newRow("negative below one") << -0.0009 << 0;
    QTest::newRow("beyond any int") << 1e300 << 2000000000;
    QTest::newRow("below any int") << -1e300 << -2000000000;
}

void tst_ControllerLink::truncatesMilliseconds()
{
    QFETCH(double, seconds);
    QTEST(ControllerLink::wholeMilliseconds(seconds), "milliseconds");
    for (int ms = -66; ms <= 66; ++ms)
        QCOMPARE(ControllerLink::wholeMilliseconds(ms / 1000.0), ms);
}

void tst_ControllerLink::removesDoubleQuotes()
{
    QCOMPARE(ControllerLink::withoutDoubleQuotes(QStringLiteral("\"a\" 'b' \"\"c")),
             QStringLiteral("a 'b' c"));
    QCOMPARE(ControllerLink::withoutDoubleQuotes(QString()), QString());
}

TRACKING_TEST_MAIN(tst_ControllerLink)
#include "tst_controllerlink.moc"
