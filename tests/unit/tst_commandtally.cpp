#include "CommandTally.h"
#include "FaultEngine.h"
#include "SimulatedController.h"
#include "SimulatedIOManager.h"
#include "testprogram.h"

#include <QFile>
#include <QTemporaryDir>
#include <QTest>

#include <memory>

class tst_CommandTally : public QObject {
    Q_OBJECT

private slots:
    void init();
    void cleanup();
    void nothingWithoutTheVariable();
    void everyRowOnce();
    void whatIsThereStays();
    void dialogAndScript();
    void effectsOfFaults_data();
    void effectsOfFaults();
    void ruleThatDoesNotFire();
    void deadLink();
    void linesWithoutARow();

private:
    /** A host's connection to a controller with one body; it tallies until it is gone. */
    void connectHost();
    void ask(const char *line);
    void fault(const char *rule);
    QString file() const { return m_dir->filePath(QStringLiteral("tally.tsv")); }
    /** Ends the connection; the file's lines, sorted, with "|" for tabs. */
    QStringList rows();

    std::unique_ptr<QTemporaryDir> m_dir;
    std::unique_ptr<SimulatedController> m_controller;
    std::unique_ptr<SimulatedIOManager> m_io;
};

void tst_CommandTally::init()
{
    m_dir = std::make_unique<QTemporaryDir>();
    qputenv("TRACKING_COMMAND_TALLY", QFile::encodeName(file()));
    connectHost();
}

void tst_CommandTally::cleanup()
{
    m_io.reset();
    qunsetenv("TRACKING_COMMAND_TALLY");
}

void tst_CommandTally::connectHost()
{
    m_io.reset();
    ControllerState state;
    state.protocol = QStringLiteral("1.24");
    state.bodyTypes[QStringLiteral("standard")].bodies.resize(2);
    m_controller = std::make_unique<SimulatedController>(state);
    m_io = std::make_unique<SimulatedIOManager>(m_controller.get());
}

void tst_CommandTally::ask(const char *line)
{
    char answer[200] = "";
    m_io->get_string(answer, "%s", line);
}

void tst_CommandTally::fault(const char *rule)
{
    QString error;
    QVERIFY2(m_io->faults()->add(QString::fromUtf8(rule), &error), qPrintable(error));
}

QStringList tst_CommandTally::rows()
{
    m_io.reset();
    QFile tally(file());
    if (!tally.open(QIODevice::ReadOnly))
        return {};
    QString text = QString::fromUtf8(tally.readAll());
    QStringList lines = text.replace(QLatin1Char('\t'), QLatin1Char('|')).split(QLatin1Char('\n'));
    if (!lines.takeLast().isEmpty())
        return {QStringLiteral("the last line has no end")};
    lines.sort();
    return lines;
}

void tst_CommandTally::nothingWithoutTheVariable()
{
    for (const char *value : {"", static_cast<const char *>(nullptr)}) {
        if (value)
            qputenv("TRACKING_COMMAND_TALLY", value);
        else
            qunsetenv("TRACKING_COMMAND_TALLY");
        QVERIFY(!CommandTally::wanted());
        connectHost();
        m_io->setScript(QStringLiteral("morning.script"));
        ask("status active");
        QCOMPARE(rows(), QStringList());
        QVERIFY(!QFile::exists(file()));
    }
}

void tst_CommandTally::everyRowOnce()
{
    ask("body desc standard b01");
    ask("body desc standard b02");
    m_io->set("body desc standard b01 \"Left arm\"");
    m_io->set("body desc standard b01 \"Right arm\"");
    QVERIFY(!QFile::exists(file()));

    // Another connection of the same process adds what is new.
    connectHost();
    ask("body desc standard b01");
    char answer[200];
    m_io->send_command(answer, "morvek2 targetlib check_custom_calibration");
    bool isChangeable = false;
    m_io->get_bool(&isChangeable, "config is_changeable");
    QCOMPARE(rows(), (QStringList{"action|morvek2 targetlib check_custom_calibration|||",
                                  "get|body desc TYPE bNN|||", "get|config is_changeable|||",
                                  "set|body desc TYPE bNN TEXT|||"}));
}

void tst_CommandTally::whatIsThereStays()
{
    QFile tally(file());
    QVERIFY(tally.open(QIODevice::WriteOnly));
    QVERIFY(tally.write("from another process\n") > 0);
    tally.close();
    ask("status active");
    QCOMPARE(rows(), (QStringList{"from another process", "get|status active|||"}));
}

void tst_CommandTally::dialogAndScript()
{
    QString dialog;
    m_io->setDialogProbe([&dialog] { return dialog; });
    m_io->setScript(QString());
    ask("status active");
    m_io->setScript(QStringLiteral("/somewhere/walks/morning.script"));
    ask("status active");
    dialog = QStringLiteral("FilterDialog");
    ask("status active");
    QCOMPARE(rows(), (QStringList{"get|status active|FilterDialog||walks/morning",
                                  "get|status active|||", "get|status active|||walks/morning"}));
}

void tst_CommandTally::effectsOfFaults_data()
{
    QTest::addColumn<QByteArray>("rule");
    QTest::addColumn<QString>("effect");

    for (const char *effect :
         {"fail", "empty", "wrong-type", "garbled", "long", "report-failed", "lock", "link-dead"})
        QTest::newRow(effect) << QByteArray("get status* ") + effect << QString(effect);
    QTest::newRow("delay") << QByteArray("* delay 5") << "delay";
    QTest::newRow("answer") << QByteArray("* answer \"fail\"") << "answer";
    QTest::newRow("at an operation") << QByteArray("* at 1 empty") << "empty";
}

void tst_CommandTally::effectsOfFaults()
{
    QFETCH(QByteArray, rule);
    QFETCH(QString, effect);
    fault(rule.constData());
    ask("status active");
    QCOMPARE(rows(), QStringList{QStringLiteral("get|status active||%1|").arg(effect)});
}

void tst_CommandTally::ruleThatDoesNotFire()
{
    fault("get status active call 2 fail");
    fault("get status active call 2 delay 5");
    fault("get body desc* fail");
    ask("status active");
    QCOMPARE(rows(), QStringList{"get|status active|||"});

    connectHost();
    fault("get status active call 2 fail");
    fault("get status active call 2 delay 5");
    ask("status active");
    ask("status active");
    QCOMPARE(rows(), (QStringList{"get|status active||delay|", "get|status active||fail|",
                                  "get|status active|||"}));
}

void tst_CommandTally::deadLink()
{
    m_io->faults()->setLinkDead(true);
    ask("status active");
    m_io->faults()->setLinkDead(false);
    ask("config is_changeable");
    QCOMPARE(rows(), (QStringList{"get|config is_changeable|||", "get|status active||link-dead|"}));
}

void tst_CommandTally::linesWithoutARow()
{
    ask("status nothing");
    m_io->set("status active");
    m_io->send_message("standard", "test", 0, "status active");
    // A recording answers in the controller's place: neither it nor a fault is asked.
    m_io->setResponder([](TranscriptEntry *entry) { entry->answer = "yes"; });
    ask("status active");
    QCOMPARE(rows(), QStringList());
}

TRACKING_TEST_GUILESS_MAIN(tst_CommandTally)
#include "tst_commandtally.moc"
