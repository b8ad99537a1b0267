#include <QDir>
#include <QFile>
#include <QJsonObject>
#include <QPluginLoader>
#include <QProcess>
#include <QTemporaryDir>
#include <QTest>

namespace {

const char ownPrefix[] = HOST_VENDOR_PREFIX;
const char ownVersion[] = "0.2.0";
const char otherVersion[] = "0.2.7";

bool run(const QStringList &arguments, QByteArray *output)
{
    QProcess process;
    process.setProcessChannelMode(QProcess::MergedChannels);
    process.start(QStringLiteral(CMAKE_PROGRAM), arguments);
    const bool finished = process.waitForFinished(240000);
    *output = process.readAll();
    return finished && process.exitStatus() == QProcess::NormalExit && process.exitCode() == 0;
}

/** Copies the host's headers and gives the module interface another version. */
void makeOtherHost(const QString &folder)
{
    QVERIFY(QDir().mkpath(folder));
    const QDir original(QStringLiteral(HOST_INTERFACE_FOLDER));
    const QStringList headers = original.entryList({QStringLiteral("*.h")}, QDir::Files);
    QVERIFY(headers.contains(QStringLiteral("ModuleInterface.h")));
    for (const QString &header : headers) {
        QFile in(original.filePath(header));
        QVERIFY(in.open(QIODevice::ReadOnly));
        QByteArray text = in.readAll();
        text.replace(QByteArray("gui.Module/") + ownVersion,
                     QByteArray("gui.Module/") + otherVersion);
        QFile out(folder + '/' + header);
        QVERIFY(out.open(QIODevice::WriteOnly));
        QCOMPARE(out.write(text), text.size());
    }
}

} // namespace

/**
 * Builds the plug-in for other hosts, in one build folder that is configured again for each. Only
 * the root object is compiled; the rest is linked from the build of this test.
 */
class tst_vendorprefix : public QObject {
    Q_OBJECT

private slots:
    void initTestCase();
    void pluginFollowsTheHostItIsConfiguredFor_data();
    void pluginFollowsTheHostItIsConfiguredFor();
    void mistakeEndsTheConfigurationWithASentence_data();
    void mistakeEndsTheConfigurationWithASentence();

private:
    bool configure(const QStringList &settings, QByteArray *output);
    QString otherHost() const { return m_folder.filePath(QStringLiteral("host")); }

    QTemporaryDir m_folder;
};

void tst_vendorprefix::initTestCase()
{
    QVERIFY(m_folder.isValid());
    makeOtherHost(otherHost());
}

bool tst_vendorprefix::configure(const QStringList &settings, QByteArray *output)
{
    return run(QStringList{QStringLiteral("-S"), QStringLiteral(SOURCE_FOLDER),
                           QStringLiteral("-B"), m_folder.filePath(QStringLiteral("build")),
                           QStringLiteral("-G"), QStringLiteral(GENERATOR),
                           QStringLiteral("-DCMAKE_CXX_COMPILER=" CXX_COMPILER),
                           QStringLiteral("-DTRACKING_QT_MAJOR=") + QT_MAJOR,
                           QStringLiteral("-DTRACKING_WORKBENCH=OFF"),
                           QStringLiteral("-DTRACKING_MODULE_BUILD=" MODULE_BUILD),
                           QStringLiteral("-DTRACKING_SANITIZE=" SANITIZE)}
                       + settings,
               output);
}

void tst_vendorprefix::pluginFollowsTheHostItIsConfiguredFor_data()
{
    QTest::addColumn<QByteArray>("prefix");
    QTest::addColumn<bool>("hasOwnHeaders");

    QTest::newRow("first") << QByteArray("com.example.other") << false;
    QTest::newRow("another vendor") << QByteArray("com.example.third") << false;
    QTest::newRow("other headers") << QByteArray("com.example.third") << true;
    QTest::newRow("both others") << QByteArray("com.example.other") << false;
}

void tst_vendorprefix::pluginFollowsTheHostItIsConfiguredFor()
{
    QFETCH(QByteArray, prefix);
    QFETCH(bool, hasOwnHeaders);

    QByteArray output;
    const QString headers = hasOwnHeaders ? QStringLiteral(HOST_INTERFACE_FOLDER) : otherHost();
    QVERIFY2(configure({QStringLiteral("-DHOST_VENDOR_PREFIX=") + prefix,
                        QStringLiteral("-DHOST_INTERFACE_DIR=") + headers},
                       &output),
             output.constData());
    const QString build = m_folder.filePath(QStringLiteral("build"));
    QVERIFY2(run({QStringLiteral("--build"), build, QStringLiteral("--target"),
                  QStringLiteral("TrackingSettings")},
                 &output),
             output.constData());

    QPluginLoader loader(build + QStringLiteral("/plugins/libTrackingSettings.so"));
    loader.setLoadHints(QLibrary::LoadHints()); // by default Qt keeps a library mapped
    QCOMPARE(loader.metaData().value(QStringLiteral("IID")).toString(),
             QString(prefix + ".Morvek2.TrackingSettingsModule"));
    QObject *instance = loader.instance();
    QVERIFY2(instance, qPrintable(loader.errorString()));
    const QByteArray version = hasOwnHeaders ? ownVersion : otherVersion;
    QVERIFY(instance->qt_metacast(prefix + ".morvek2.gui.Module/" + version));
    QVERIFY(!instance->qt_metacast(QByteArray(ownPrefix) + ".morvek2.gui.Module/" + version));
    QVERIFY(loader.unload());
}

void tst_vendorprefix::mistakeEndsTheConfigurationWithASentence_data()
{
    QTest::addColumn<QString>("setting");
    QTest::addColumn<QByteArray>("sentence");

    const QByteArray name("but a reverse-domain name");
    QTest::newRow("empty prefix") << "HOST_VENDOR_PREFIX=" << name;
    QTest::newRow("one word") << "HOST_VENDOR_PREFIX=example" << name;
    QTest::newRow("empty part") << "HOST_VENDOR_PREFIX=org..example" << name;
    QTest::newRow("blank") << "HOST_VENDOR_PREFIX=org.exam ple" << name;
    QTest::newRow("quote sign") << "HOST_VENDOR_PREFIX=org.\"example" << name;
    QTest::newRow("dot at the end") << "HOST_VENDOR_PREFIX=org.example." << name;
    QTest::newRow("folder without headers")
            << "HOST_INTERFACE_DIR=/usr" << QByteArray("that folder has no BackendVersions.h");
    QTest::newRow("no folder") << "HOST_INTERFACE_DIR=/no/such/folder"
                               << QByteArray("that folder has no BackendVersions.h");
    QTest::newRow("no module libraries") << "TRACKING_MODULE_BUILD=/no/such/folder"
                                         << QByteArray("but that folder has no built module");
}

void tst_vendorprefix::mistakeEndsTheConfigurationWithASentence()
{
    QFETCH(QString, setting);
    QFETCH(QByteArray, sentence);

    QByteArray output;
    QVERIFY(!configure({QStringLiteral("-D") + setting}, &output));
    // CMake wraps the lines of its messages.
    QVERIFY2(output.simplified().contains(sentence), output.constData());
    QByteArray repaired;
    QVERIFY2(configure({QStringLiteral("-DHOST_VENDOR_PREFIX=org.example"),
                        QStringLiteral("-DHOST_INTERFACE_DIR=") + otherHost()},
                       &repaired),
             repaired.constData());
}

QTEST_MAIN(tst_vendorprefix)
#include "tst_vendorprefix.moc"
