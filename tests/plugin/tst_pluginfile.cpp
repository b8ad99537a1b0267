#include <QDir>
#include <QFile>
#include <QImage>
#include <QPluginLoader>
#include <QProcess>
#include <QRegularExpression>
#include <QTest>

namespace {

/** File name and size in pixels of every picture at the root of the module's resources. */
const QMap<QString, QSize> pictures = {
        {QStringLiteral("19.png"), {64, 64}},
        {QStringLiteral("24.png"), {64, 64}},
        {QStringLiteral("48.png"), {64, 64}},
        {QStringLiteral("118.png"), {64, 64}},
        {QStringLiteral("lock.png"), {48, 48}},
        {QStringLiteral("datadisplay.png"), {528, 200}},
        {QStringLiteral("bodytable.png"), {528, 200}},
        {QStringLiteral("red.png"), {32, 32}},
        {QStringLiteral("green.png"), {32, 32}},
};

QStringList rootFiles()
{
    return QDir(QStringLiteral(":/")).entryList({QStringLiteral("*.png")}, QDir::Files);
}

} // namespace

/** The plug-in as a file: its exported functions and its pictures. */
class tst_pluginfile : public QObject {
    Q_OBJECT

private slots:
    void exportsNothingButThePluginFunctions();
    void picturesComeAndGoWithThePlugin();
    void picturesHaveTheirSizes_data();
    void picturesHaveTheirSizes();
    void picturesShowSomething_data();
    void picturesShowSomething();
};

void tst_pluginfile::exportsNothingButThePluginFunctions()
{
    QProcess nm;
    nm.start(QStringLiteral(NM_PROGRAM), {QStringLiteral("-D"), QStringLiteral("--defined-only"),
                                          QStringLiteral(TRACKING_PLUGIN_FILE)});
    QVERIFY(nm.waitForFinished());
    QCOMPARE(nm.exitCode(), 0);
    QStringList names;
    const QStringList lines =
            QString::fromLatin1(nm.readAllStandardOutput()).split('\n', Qt::SkipEmptyParts);
    for (const QString &line : lines)
        names << line.section(' ', -1);
    names.sort();
    // Qt 6 adds "_v2" to the second name.
    names.replaceInStrings(QRegularExpression(QStringLiteral("_v[0-9]+$")), QString());
    QCOMPARE(names, QStringList({QStringLiteral("qt_plugin_instance"),
                                 QStringLiteral("qt_plugin_query_metadata")}));
}

void tst_pluginfile::picturesComeAndGoWithThePlugin()
{
    QCOMPARE(rootFiles(), QStringList());
    QPluginLoader loader(QStringLiteral(TRACKING_PLUGIN_FILE));
    loader.setLoadHints(QLibrary::LoadHints()); // by default Qt keeps a library mapped
    QVERIFY2(loader.load(), qPrintable(loader.errorString()));
    QStringList expected = pictures.keys();
    QStringList found = rootFiles();
    expected.sort();
    found.sort();
    QCOMPARE(found, expected);
    QVERIFY(!QFile::exists(QStringLiteral(":/yellow.png")));
    QVERIFY(loader.unload());
    QCOMPARE(rootFiles(), QStringList());
}

void tst_pluginfile::picturesHaveTheirSizes_data()
{
    QTest::addColumn<QString>("file");
    QTest::addColumn<QSize>("size");
    for (auto it = pictures.cbegin(); it != pictures.cend(); ++it)
        QTest::newRow(qPrintable(it.key())) << it.key() << it.value();
}

void tst_pluginfile::picturesHaveTheirSizes()
{
    QFETCH(QString, file);
    QFETCH(QSize, size);
    QPluginLoader loader(QStringLiteral(TRACKING_PLUGIN_FILE));
    QVERIFY(loader.load());
    QImage image;
    QVERIFY(image.load(QStringLiteral(":/") + file, "PNG"));
    QCOMPARE(image.size(), size);
    QVERIFY(loader.unload());
}

void tst_pluginfile::picturesShowSomething_data()
{
    QTest::addColumn<QString>("file");
    QTest::addColumn<QString>("channel");
    QTest::newRow("red lamp") << "red.png"
                              << "red";
    QTest::newRow("green lamp") << "green.png"
                                << "green";
    QTest::newRow("cross") << "118.png"
                           << "red";
    QTest::newRow("up") << "19.png"
                        << "blue";
    QTest::newRow("down") << "24.png"
                          << "blue";
}

void tst_pluginfile::picturesShowSomething()
{
    QFETCH(QString, file);
    QFETCH(QString, channel);
    QPluginLoader loader(QStringLiteral(TRACKING_PLUGIN_FILE));
    QVERIFY(loader.load());
    const QImage image(QStringLiteral(":/") + file);
    QVERIFY(!image.isNull());
    // The corner is transparent, so that the icon fits any background; the middle shows the
    // meaning.
    QCOMPARE(image.pixelColor(0, 0).alpha(), 0);
    const QColor middle = image.pixelColor(image.width() / 2, image.height() / 2);
    QCOMPARE(middle.alpha(), 255);
    const int strongest = qMax(middle.red(), qMax(middle.green(), middle.blue()));
    const int value = channel == QLatin1String("red")     ? middle.red()
                      : channel == QLatin1String("green") ? middle.green()
                                                          : middle.blue();
    QCOMPARE(value, strongest);
    QVERIFY(loader.unload());
}

QTEST_MAIN(tst_pluginfile)
#include "tst_pluginfile.moc"
