#include <QDir>
#include <QFile>
#include <QJsonObject>
#include <QPluginLoader>
#include <QProcess>
#include <QTest>

namespace {

const char prefix[] = "com.example.other";

bool run(const QStringList &arguments, QByteArray *output)
{
    QProcess process;
    process.setProcessChannelMode(QProcess::MergedChannels);
    process.start(QStringLiteral(CMAKE_PROGRAM), arguments);
    const bool finished = process.waitForFinished(840000);
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
        text.replace("gui.Module/0.2.0", "gui.Module/0.2.7");
        QFile out(folder + '/' + header);
        // An unchanged header keeps its time, so that a second run builds nothing.
        if (out.open(QIODevice::ReadOnly) && out.readAll() == text)
            continue;
        out.close();
        QVERIFY(out.open(QIODevice::WriteOnly));
        QCOMPARE(out.write(text), text.size());
    }
}

} // namespace

/** The module built for another host: that vendor's prefix and that host's own headers. */
class tst_vendorprefix : public QObject {
    Q_OBJECT

private slots:
    void pluginCarriesTheOtherHostsIdentifiers();
};

void tst_vendorprefix::pluginCarriesTheOtherHostsIdentifiers()
{
    const QString folder = QStringLiteral(WORK_FOLDER);
    const QString build = folder + QStringLiteral("/build");
    makeOtherHost(folder + QStringLiteral("/host"));
    if (QTest::currentTestFailed())
        return;

    QByteArray output;
    QVERIFY2(run({QStringLiteral("-S"), QStringLiteral(SOURCE_FOLDER), QStringLiteral("-B"), build,
                  QStringLiteral("-G"), QStringLiteral(GENERATOR),
                  QStringLiteral("-DTRACKING_WORKBENCH=OFF"),
                  QStringLiteral("-DCMAKE_CXX_FLAGS_RELEASE=-O0"),
                  QStringLiteral("-DCMAKE_BUILD_TYPE=Release"),
                  QStringLiteral("-DHOST_VENDOR_PREFIX=%1").arg(QLatin1String(prefix)),
                  QStringLiteral("-DHOST_INTERFACE_DIR=%1/host").arg(folder)},
                 &output),
             output.constData());
    QVERIFY2(run({QStringLiteral("--build"), build, QStringLiteral("--target"),
                  QStringLiteral("TrackingSettings")},
                 &output),
             output.constData());

    QPluginLoader loader(build + QStringLiteral("/plugins/libTrackingSettings.so"));
    QCOMPARE(loader.metaData().value(QStringLiteral("IID")).toString(),
             QLatin1String(prefix) + QStringLiteral(".Morvek2.TrackingSettingsModule"));
    QObject *instance = loader.instance();
    QVERIFY2(instance, qPrintable(loader.errorString()));
    const QByteArray otherIid = QByteArray(prefix) + ".morvek2.gui.Module/0.2.7";
    QVERIFY(instance->qt_metacast(otherIid.constData()));
    QVERIFY(!instance->qt_metacast(HOST_VENDOR_PREFIX ".morvek2.gui.Module/0.2.0"));
    QVERIFY(loader.unload());
}

QTEST_MAIN(tst_vendorprefix)
#include "tst_vendorprefix.moc"
