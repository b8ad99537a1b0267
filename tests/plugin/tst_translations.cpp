#include "pluginhost.h"

#include <QAction>
#include <QApplication>
#include <QFileInfo>
#include <QRegularExpression>
#include <QTest>
#include <QTranslator>
#include <QXmlStreamReader>

namespace {

/** The placeholders of a text, sorted, and whether it has an access key. */
QStringList marks(const QString &text)
{
    QStringList found;
    static const QRegularExpression placeholder(QStringLiteral("%[0-9]"));
    auto match = placeholder.globalMatch(text);
    while (match.hasNext())
        found << match.next().captured();
    found.sort();
    static const QRegularExpression accessKey(QStringLiteral("&[A-Za-z0-9]"));
    const bool isMarkup = text.startsWith('<') && !text.startsWith(QLatin1String("<<"));
    if (!isMarkup && accessKey.match(text).hasMatch())
        found << QStringLiteral("access key");
    return found;
}

} // namespace

/** The German texts: complete, well formed, and shown when a host has installed them. */
class tst_translations : public QObject {
    Q_OBJECT

private slots:
    void everyTextIsTranslatedWithItsMarks();
    void nothingTranslatesToItselfButNamesAndUnits();
    void noLogLineIsTranslated();
    void pluginSpeaksGermanInAGermanHost();

private:
    using Pair = QPair<QString, QString>;
    /** Source and translation of every message of the file. */
    QVector<Pair> messages();
};

QVector<tst_translations::Pair> tst_translations::messages()
{
    QFile file(QStringLiteral(SOURCE_FOLDER "/translations/trackingsettings_de.ts"));
    QVector<Pair> pairs;
    if (!file.open(QIODevice::ReadOnly))
        return pairs;
    QXmlStreamReader xml(&file);
    QString source;
    while (!xml.atEnd()) {
        if (xml.readNext() != QXmlStreamReader::StartElement)
            continue;
        if (xml.name() == QLatin1String("source"))
            source = xml.readElementText();
        else if (xml.name() == QLatin1String("translation")) {
            const bool finished = !xml.attributes().hasAttribute(QStringLiteral("type"));
            const QString text = xml.readElementText();
            pairs.append({source, finished ? text : QString()});
        }
    }
    return xml.hasError() ? QVector<Pair>() : pairs;
}

void tst_translations::everyTextIsTranslatedWithItsMarks()
{
    const QVector<Pair> pairs = messages();
    QVERIFY(pairs.size() > 290);
    for (const Pair &pair : pairs) {
        QVERIFY2(!pair.second.isEmpty(), qPrintable(pair.first));
        QVERIFY2(marks(pair.second) == marks(pair.first),
                 qPrintable(pair.first + QStringLiteral(" -> ") + pair.second));
    }
}

void tst_translations::nothingTranslatesToItselfButNamesAndUnits()
{
    const QStringList named = {"MORVEK3",  "&Tracking",       "&Standard",
                               "&Joywand", "F&ingertracking", "Filter"};
    const QStringList international = {"ID",
                                       "Name",
                                       "OK",
                                       "rx",
                                       "ry",
                                       "rz",
                                       "Hz",
                                       "F8",
                                       "Alt+C",
                                       "%1, %2",
                                       "x = %1 mm, y = %2 mm, z = %3 mm"};
    const QStringList allowed = named + international;
    QStringList found;
    for (const Pair &pair : messages()) {
        if (pair.first != pair.second)
            continue;
        QVERIFY2(allowed.contains(pair.first), qPrintable(pair.first));
        found.append(pair.first);
    }
    for (const QString &text : allowed)
        QVERIFY2(found.contains(text), qPrintable(text));
}

void tst_translations::noLogLineIsTranslated()
{
    for (const Pair &pair : messages()) {
        QVERIFY2(!pair.first.startsWith(QLatin1String("Error")), qPrintable(pair.first));
        QVERIFY2(!pair.first.startsWith(QLatin1String("TrackingSettings:")),
                 qPrintable(pair.first));
    }
}

void tst_translations::pluginSpeaksGermanInAGermanHost()
{
    PluginHost host;
    const QString folder = QFileInfo(QStringLiteral(TRACKING_PLUGIN_FILE)).path();
    QTranslator german;
    QVERIFY(german.load(QLocale(QLocale::German, QLocale::Germany),
                        QStringLiteral("trackingsettings"), QStringLiteral("_"),
                        folder + QStringLiteral("/translations")));
    QVERIFY(QCoreApplication::installTranslator(&german));

    const QList<_GuiElement *> elements = host.start();
    QCOMPARE(elements.size(), 2);
    QCOMPARE(host.module()->get_module_name(), QStringLiteral("Einstellungen Tracking"));
    QCOMPARE(host.module()->get_module_version(), QStringLiteral("v3.0.6"));
    QCOMPARE(elements.at(0)->menu_name, QStringLiteral("&Tracking"));
    QCOMPARE(elements.at(0)->menu_entry->text(), QStringLiteral("&Einzelmarker"));
    QCOMPARE(elements.at(1)->menu_entry->text(), QString::fromUtf8("&Körperverwaltung"));
    QCOMPARE(elements.at(1)->menu_entry->shortcut(), QKeySequence(Qt::Key_F8));
    QCOMPARE(host.openAndClose(elements.at(0)), QStringLiteral("Einzelmarker"));
    QCOMPARE(host.openAndClose(elements.at(1)), QString::fromUtf8("Körperverwaltung"));
    QVERIFY(host.shutDown());
    QVERIFY(QCoreApplication::removeTranslator(&german));
}

QTEST_MAIN(tst_translations)
#include "tst_translations.moc"
