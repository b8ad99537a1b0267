#include "bodyadminmessagereceiver.h"
#include "dialogtest.h"

#include <QPointer>

namespace {

/** The receiver on the module's two channels; it records the names of the emitted signals. */
class Station {
public:
    Station() : receiver(&owner, &host.io)
    {
        const auto note = [this](const char *name) {
            return [this, name] { heard << QString::fromLatin1(name); };
        };
        using Receiver = BodyAdminMessageReceiver;
        QObject::connect(&receiver, &Receiver::dialogReopen, note("reopen"));
        QObject::connect(&receiver, &Receiver::BodyCalAvailable, note("calibration"));
        QObject::connect(&receiver, &Receiver::BodyAdjustmentAvailable, note("adjustment"));
        QObject::connect(&receiver, &Receiver::activeConfigurationChanged, note("configuration"));
        host.io.register_receiver("GlobalEvent", &receiver);
        host.io.register_receiver("BodyAdministrationModule", &receiver);
    }

    TestHost host;
    QObject owner;
    BodyAdminMessageReceiver receiver;
    QStringList heard;
};

} // namespace

/** The signals for messages of other modules. */
class tst_Receiver : public DialogTest {
    Q_OBJECT

private slots:
    void understandsMessages_data();
    void understandsMessages();
    void ignoresTheKind_data();
    void ignoresTheKind();
    void survivesNullPointers();
    void listensUntilUnregistered();
    void asksTheControllerNothing();
    void isDeletedWithItsParent();
};

void tst_Receiver::understandsMessages_data()
{
    QTest::addColumn<QByteArray>("sender");
    QTest::addColumn<QByteArray>("text");
    QTest::addColumn<QString>("signal");
    const auto row = [](const char *name, const char *sender, const char *text,
                        const char *signal) {
        QTest::newRow(name) << QByteArray(sender) << QByteArray(text)
                            << QString::fromLatin1(signal);
    };
    row("reopen", "BodyCalModule", "reopen", "reopen");
    row("reopen from anybody", "", "reopen", "reopen");
    row("reopen and a blank", "BodyCalModule", "reopen ", "");
    row("blank and reopen", "BodyCalModule", " reopen", "");
    row("reopen with a capital", "BodyCalModule", "Reopen", "");
    row("reopen and more", "BodyCalModule", "reopen now", "");
    row("part of reopen", "BodyCalModule", "reope", "");
    row("calibration", "BodyCalModule", "bodycalibration available", "calibration");
    row("calibration from anybody", "Whoever", "bodycalibration available", "calibration");
    row("calibration goes on", "BodyCalModule", "bodycalibration available since 1.2",
        "calibration");
    row("calibration goes on without blank", "BodyCalModule", "bodycalibration availableX",
        "calibration");
    row("calibration with a capital", "BodyCalModule", "Bodycalibration available", "");
    row("calibration cut off", "BodyCalModule", "bodycalibration availabl", "");
    row("calibration not at the start", "BodyCalModule", " bodycalibration available", "");
    row("adjustment", "BodyAdjustmentModule", "bodyadjustment available", "adjustment");
    row("adjustment goes on", "BodyAdjustmentModule", "bodyadjustment available|1", "adjustment");
    row("adjustment with a capital", "BodyAdjustmentModule", "bodyadjustment Available", "");
    row("configuration", "ConfigurationModule", "ActiveConfigurationChanged", "configuration");
    row("configuration from another", "BodyCalModule", "ActiveConfigurationChanged", "");
    row("configuration from nobody", "", "ActiveConfigurationChanged", "");
    row("configuration, sender in small letters", "configurationmodule",
        "ActiveConfigurationChanged", "");
    row("configuration, sender goes on", "ConfigurationModule2", "ActiveConfigurationChanged", "");
    row("configuration, text goes on", "ConfigurationModule", "ActiveConfigurationChanged ", "");
    row("configuration in small letters", "ConfigurationModule", "activeConfigurationChanged", "");
    row("empty", "BodyCalModule", "", "");
    row("something else", "ConfigurationModule", "hello", "");
}

void tst_Receiver::understandsMessages()
{
    QFETCH(QByteArray, sender);
    QFETCH(QByteArray, text);
    QFETCH(QString, signal);
    for (const char *channel : {"GlobalEvent", "BodyAdministrationModule"}) {
        Station station;
        station.host.io.send_message(channel, sender.constData(), 1, text.constData());
        QCOMPARE(station.heard, signal.isEmpty() ? QStringList() : QStringList{signal});
        QCOMPARE(station.receiver.transmit_message(1, sender.constData(), text.constData()), 0);
    }
}

void tst_Receiver::ignoresTheKind_data()
{
    QTest::addColumn<int>("kind");
    QTest::newRow("request") << 1;
    QTest::newRow("zero") << 0;
    QTest::newRow("negative") << -5;
    QTest::newRow("large") << 4711;
}

void tst_Receiver::ignoresTheKind()
{
    QFETCH(int, kind);
    Station station;
    station.host.io.send_message("GlobalEvent", "ConfigurationModule", kind,
                                 "ActiveConfigurationChanged");
    station.host.io.send_message("BodyAdministrationModule", "BodyCalModule", kind, "reopen");
    QCOMPARE(station.heard, QStringList({"configuration", "reopen"}));
}

void tst_Receiver::survivesNullPointers()
{
    Station station;
    QCOMPARE(station.receiver.transmit_message(1, nullptr, nullptr), 0);
    QCOMPARE(station.receiver.transmit_message(1, "ConfigurationModule", nullptr), 0);
    QCOMPARE(station.receiver.transmit_message(1, nullptr, "ActiveConfigurationChanged"), 0);
    QCOMPARE(station.heard, QStringList());
    QCOMPARE(station.receiver.transmit_message(1, nullptr, "reopen"), 0);
    QCOMPARE(station.heard, QStringList{"reopen"});
}

void tst_Receiver::listensUntilUnregistered()
{
    Station station;
    station.host.io.send_message("BodyCalModule", "Whoever", 1, "reopen");
    QCOMPARE(station.heard, QStringList());
    station.host.io.unregister_receiver("GlobalEvent", &station.receiver);
    station.host.io.send_message("GlobalEvent", "BodyCalModule", 1, "bodycalibration available");
    QCOMPARE(station.heard, QStringList());
    station.host.io.send_message("BodyAdministrationModule", "BodyCalModule", 1, "reopen");
    QCOMPARE(station.heard, QStringList{"reopen"});
    station.host.io.unregister_receiver("BodyAdministrationModule", &station.receiver);
    station.host.io.send_message("BodyAdministrationModule", "BodyCalModule", 1, "reopen");
    QCOMPARE(station.heard, QStringList{"reopen"});
}

void tst_Receiver::asksTheControllerNothing()
{
    Station station;
    station.host.io.send_message("GlobalEvent", "BodyCalModule", 1, "bodycalibration available");
    station.host.io.send_message("GlobalEvent", "ConfigurationModule", 1,
                                 "ActiveConfigurationChanged");
    QCOMPARE(station.host.lines(), QStringList());
    QCOMPARE(station.host.log(), QStringList());
}

void tst_Receiver::isDeletedWithItsParent()
{
    auto owner = std::make_unique<QObject>();
    const QPointer<BodyAdminMessageReceiver> receiver(
            new BodyAdminMessageReceiver(owner.get(), nullptr));
    QCOMPARE(receiver->parent(), owner.get());
    owner.reset();
    QVERIFY(receiver.isNull());
}

TRACKING_TEST_MAIN(tst_Receiver)
#include "tst_receiver.moc"
