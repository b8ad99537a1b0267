#include "TrackingDlg.h"
#include "dialogtest.h"
#include "settings/trackingpreferences.h"

#include <QCheckBox>
#include <QDir>
#include <QDomDocument>
#include <QFile>
#include <QPushButton>
#include <QTextCodec>

#include <csignal>
#include <functional>
#include <sys/resource.h>
#include <sys/stat.h>
#include <unistd.h>

/**
 * The preferences file of the tracking settings dialog, in a home folder that belongs to the test.
 */
class tst_preferences : public DialogTest {
    Q_OBJECT

private slots:
    void location();
    void noFileIsNoFailure();
    void written_data();
    void written();
    void writtenAsUtf8InEveryLocale();
    void read_data();
    void read();
    void malformed();
    void otherRoot();
    void unreadable();
    void directoryCannotBeCreated();
    void fileCannotBeWritten();
    void oldFileStaysWholeWhenWritingFails();
    void fileIsWrittenInAFolderThatTakesNoNewFile();
    void nothingIsLeftBesideTheFile();
    void roundTrip_data();
    void roundTrip();
    void unknownElementsAreDropped();
    void buttonOnceShownStays();
    void eachVersionHasItsOwnFile();

private:
    const QString moduleVersion = QStringLiteral("v3.0.6");

    QString folder() const
    {
        return home() + QStringLiteral("/.QOR/MORVEK3/modules/trackingsettings/v3.0.6/config");
    }
    QString fileName() const
    {
        return folder() + QStringLiteral("/trackingsettings-preferences.xml");
    }
    void put(const QByteArray &content) const
    {
        QVERIFY(QDir().mkpath(folder()));
        QFile file(fileName());
        QVERIFY(file.open(QIODevice::WriteOnly));
        file.write(content);
    }
    QByteArray content() const
    {
        QFile file(fileName());
        return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray("no file");
    }
    /** A studio without fixed angles, so that only the preference shows the button. */
    static ControllerState plainStudio()
    {
        ControllerState state = TestHost::scenario(QStringLiteral("studio"));
        for (BodyState &body : state.bodyTypes[QStringLiteral("standard")].bodies)
            body.fixedAngles = {};
        return state;
    }
    /** What a dialog shows during one opening. */
    struct Shown {
        bool restart = false;
        bool advanced = false;
    };
    Shown openOnce(TestHost *host)
    {
        Shown seen;
        TrackingDlg dialog(&host->io, &host->mainWindow, &host->versions, moduleVersion);
        robot().expectDialog(QStringLiteral("TrackingDlg"), [&](QWidget *shown) {
            seen.restart = Drive::find<QCheckBox>(shown, "checkBox_autoReStart")->isVisible();
            seen.advanced = Drive::find<QPushButton>(shown, "pushButton_advanced")->isVisible();
            Drive::click(shown, "pushButton_cancel");
        });
        dialog.update_and_exec();
        robot().verify();
        return seen;
    }
};

namespace {

const QByteArray head = "<?xml version=\"1.0\" encoding=\"UTF-8\"?>\n";

QByteArray fileOf(const QByteArray &fixedAngle, const QByteArray &hide)
{
    return head + "<MORVEK>\n    <FIXED_ANGLE" + fixedAngle
           + "/>\n    <AUTO_RESTART_MEA_AFTER_SYNC_LOST HIDE=\"" + hide + "\"/>\n</MORVEK>\n";
}

/** While the object exists, no file of this process can grow, as on a full disk. */
class FullDisk {
public:
    FullDisk() : m_signal(std::signal(SIGXFSZ, SIG_IGN))
    {
        getrlimit(RLIMIT_FSIZE, &m_before);
        rlimit none = m_before;
        none.rlim_cur = 0;
        setrlimit(RLIMIT_FSIZE, &none);
    }
    ~FullDisk()
    {
        setrlimit(RLIMIT_FSIZE, &m_before);
        std::signal(SIGXFSZ, m_signal);
    }

private:
    void (*m_signal)(int);
    rlimit m_before{};
};

/**
 * While the object exists, this process cannot make files in the folder, but can write existing
 * ones.
 */
class ReadOnlyFolder {
public:
    explicit ReadOnlyFolder(const QString &folder) : m_folder(folder.toLocal8Bit())
    {
        chmod(m_folder.constData(), 0555);
        // Access rights do not stop the superuser.
        if (m_isSuperuser && seteuid(nobody) != 0)
            qFatal("the superuser cannot become somebody else");
    }
    ~ReadOnlyFolder()
    {
        if (m_isSuperuser && seteuid(0) != 0)
            qFatal("the superuser does not come back");
        chmod(m_folder.constData(), 0755);
    }

private:
    static constexpr uid_t nobody = 65534;
    QByteArray m_folder;
    bool m_isSuperuser = geteuid() == 0;
};

} // namespace

void tst_preferences::location()
{
    QCOMPARE(TrackingPreferences::folderOf(moduleVersion), folder());
    QCOMPARE(TrackingPreferences(folder()).fileName(), fileName());
}

void tst_preferences::noFileIsNoFailure()
{
    TestHost host(plainStudio());
    const Shown seen = openOnce(&host);
    QVERIFY(!seen.restart);
    QVERIFY(!seen.advanced);
    QCOMPARE(host.log(), QStringList());
    QCOMPARE(content(), fileOf("", "true"));
}

void tst_preferences::written_data()
{
    QTest::addColumn<bool>("visible");
    QTest::addColumn<bool>("shown");
    QTest::addColumn<QByteArray>("expected");
    QTest::newRow("none") << false << false << fileOf("", "true");
    QTest::newRow("fixed angle") << true << false << fileOf(" VISIBLE=\"true\"", "true");
    QTest::newRow("restart") << false << true << fileOf("", "false");
    QTest::newRow("both") << true << true << fileOf(" VISIBLE=\"true\"", "false");
}

void tst_preferences::written()
{
    QFETCH(bool, visible);
    QFETCH(bool, shown);
    QFETCH(QByteArray, expected);
    QString problem;
    QVERIFY(TrackingPreferences(folder()).save(visible, shown, &problem));
    QCOMPARE(problem, QString());
    QCOMPARE(content(), expected);
}

void tst_preferences::writtenAsUtf8InEveryLocale()
{
    // Otherwise the stream would use the codec of the locale and name it in the file.
    QTextCodec *const before = QTextCodec::codecForLocale();
    QTextCodec::setCodecForLocale(QTextCodec::codecForName("ISO-8859-1"));
    QString problem;
    const bool saved = TrackingPreferences(folder()).save(true, true, &problem);
    QTextCodec::setCodecForLocale(before);
    QVERIFY2(saved, qPrintable(problem));
    QCOMPARE(content(), fileOf(" VISIBLE=\"true\"", "false"));
}

void tst_preferences::read_data()
{
    QTest::addColumn<QByteArray>("children");
    QTest::addColumn<bool>("restart");
    QTest::addColumn<bool>("advanced");
    const QByteArray hidden = "<AUTO_RESTART_MEA_AFTER_SYNC_LOST HIDE=\"true\"/>";
    const QByteArray shown = "<AUTO_RESTART_MEA_AFTER_SYNC_LOST HIDE=\"false\"/>";
    const QByteArray angle = "<FIXED_ANGLE VISIBLE=\"true\"/>";
    QTest::newRow("empty root") << QByteArray() << false << false;
    QTest::newRow("both") << angle + shown << true << true;
    QTest::newRow("other order") << shown + angle << true << true;
    QTest::newRow("attributes missing")
            << QByteArray("<FIXED_ANGLE/><AUTO_RESTART_MEA_AFTER_SYNC_LOST/>") << false << false;
    QTest::newRow("false") << QByteArray("<FIXED_ANGLE VISIBLE=\"false\"/>") + hidden << false
                           << false;
    QTest::newRow("other words") << QByteArray(
            "<FIXED_ANGLE VISIBLE=\"TRUE\"/>"
            "<AUTO_RESTART_MEA_AFTER_SYNC_LOST HIDE=\"perhaps\"/>")
                                 << true << false;
    QTest::newRow("tags in another case")
            << QByteArray("<fixed_angle VISIBLE=\"true\"/>"
                          "<auto_restart_mea_after_sync_lost HIDE=\"false\"/>")
            << false << false;
    QTest::newRow("unknown elements")
            << "<COLOUR VALUE=\"red\"/>" + angle + "<SOUND/>" + shown << true << true;
    QTest::newRow("the later one counts")
            << angle + shown + "<FIXED_ANGLE/>" + hidden << false << false;
    QTest::newRow("a comment takes the button back") << angle + "<!-- note -->" << false << false;
    QTest::newRow("a comment before it does not") << "<!-- note -->" + angle << false << true;
    QTest::newRow("only children of the root count")
            << "<GROUP>" + angle + "</GROUP>" << false << false;
}

void tst_preferences::read()
{
    QFETCH(QByteArray, children);
    QFETCH(bool, restart);
    QFETCH(bool, advanced);
    put(head + "<MORVEK>" + children + "</MORVEK>");
    TestHost host(plainStudio());
    const Shown seen = openOnce(&host);
    QCOMPARE(seen.restart, restart);
    QCOMPARE(seen.advanced, advanced);
    QCOMPARE(host.log(), QStringList());
}

void tst_preferences::malformed()
{
    put(head + "<MORVEK>\n  <FIXED_ANGLE VISIBLE=\"true\">\n</MORVEK>\n");
    TestHost host(plainStudio());
    const Shown seen = openOnce(&host);
    QVERIFY(!seen.restart);
    QVERIFY(!seen.advanced);

    QDomDocument parsed;
    QString message;
    int line = 0;
    int column = 0;
    QVERIFY(!parsed.setContent(head + "<MORVEK>\n  <FIXED_ANGLE VISIBLE=\"true\">\n</MORVEK>\n",
                               &message, &line, &column));
    QCOMPARE(line, 4);
    QCOMPARE(host.log(),
             QStringList{QStringLiteral("Error: Loading tracking settings preferences while "
                                        "parsing %1 (Line %2, Column %3) :\n%4. Using built-in "
                                        "values")
                                 .arg(fileName(), QString::number(line), QString::number(column),
                                      message)});
}

void tst_preferences::otherRoot()
{
    put(head + "<PREFERENCES><FIXED_ANGLE VISIBLE=\"true\"/></PREFERENCES>");
    TestHost host(plainStudio());
    const Shown seen = openOnce(&host);
    QVERIFY(!seen.restart);
    QVERIFY(!seen.advanced);
    QCOMPARE(host.log(),
             QStringList{QStringLiteral(
                                 "Error: Loading tracking settings preferences while parsing %1 : "
                                 "The file doesn't look like a valid preferences file. Using "
                                 "built-in values")
                                 .arg(fileName())});
}

void tst_preferences::unreadable()
{
    // A folder with the file's name cannot be read as a file by any user.
    QVERIFY(QDir().mkpath(fileName()));
    TestHost host(plainStudio());
    const Shown seen = openOnce(&host);
    QVERIFY(!seen.restart);
    QVERIFY(!seen.advanced);
    QCOMPARE(host.log().value(0),
             QStringLiteral("Error: Loading tracking settings preferences. File %1 cannot be "
                            "opened for reading. Using built-in values")
                     .arg(fileName()));
}

void tst_preferences::directoryCannotBeCreated()
{
    QFile obstacle(home() + QStringLiteral("/.QOR"));
    QVERIFY(obstacle.open(QIODevice::WriteOnly));
    obstacle.close();
    TestHost host(plainStudio());
    openOnce(&host);
    QCOMPARE(host.log(), QStringList{QStringLiteral("Error: Writing tracking preferences. "
                                                    "Directory %1 doesn't exist and cannot be "
                                                    "created")
                                             .arg(folder())});
    QVERIFY(!QFile::exists(fileName()));
}

void tst_preferences::fileCannotBeWritten()
{
    QVERIFY(QDir().mkpath(fileName()));
    QString problem;
    QVERIFY(!TrackingPreferences(folder()).save(true, true, &problem));
    QCOMPARE(problem,
             QStringLiteral("Error: Writing tracking preferences. File %1 cannot be opened for "
                            "writing")
                     .arg(fileName()));
}

void tst_preferences::oldFileStaysWholeWhenWritingFails()
{
    const QByteArray old = fileOf(" VISIBLE=\"true\"", "false");
    put(old);
    QString problem;
    bool saved = true;
    {
        const FullDisk full;
        saved = TrackingPreferences(folder()).save(false, false, &problem);
    }
    QVERIFY(!saved);
    QCOMPARE(problem,
             QStringLiteral("Error: Unable to write the tracking preferences file ") + fileName());
    QCOMPARE(content(), old);
    QCOMPARE(QDir(folder()).entryList(QDir::AllEntries | QDir::Hidden | QDir::NoDotAndDotDot),
             QStringList{QStringLiteral("trackingsettings-preferences.xml")});
}

void tst_preferences::fileIsWrittenInAFolderThatTakesNoNewFile()
{
    const QByteArray old = fileOf(" VISIBLE=\"true\"", "false");
    put(old);
    QVERIFY(QFile::setPermissions(fileName(), QFile::Permissions(0x6666)));
    QString problem;
    bool saved = false;
    {
        // Otherwise only the user of the test can enter the folders above.
        chmod(home().toLocal8Bit().constData(), 0755);
        const ReadOnlyFolder readOnly(folder());
        QVERIFY(!QFile(folder() + QStringLiteral("/other")).open(QIODevice::WriteOnly));
        saved = TrackingPreferences(folder()).save(false, true, &problem);
    }
    QVERIFY2(saved, qPrintable(problem));
    QCOMPARE(problem, QString());
    QCOMPARE(content(), fileOf("", "false"));
}

void tst_preferences::nothingIsLeftBesideTheFile()
{
    QString problem;
    QVERIFY(TrackingPreferences(folder()).save(true, true, &problem));
    QVERIFY(TrackingPreferences(folder()).save(false, false, &problem));
    QCOMPARE(QDir(folder()).entryList(QDir::AllEntries | QDir::Hidden | QDir::NoDotAndDotDot),
             QStringList{QStringLiteral("trackingsettings-preferences.xml")});
    QCOMPARE(content(), fileOf("", "true"));
}

void tst_preferences::roundTrip_data()
{
    written_data();
}

void tst_preferences::roundTrip()
{
    QFETCH(bool, visible);
    QFETCH(bool, shown);
    QFETCH(QByteArray, expected);
    put(expected);
    TestHost host(plainStudio());
    const Shown seen = openOnce(&host);
    QCOMPARE(seen.advanced, visible);
    QCOMPARE(seen.restart, shown);
    QCOMPARE(content(), expected);
    QCOMPARE(host.log(), QStringList());
}

void tst_preferences::unknownElementsAreDropped()
{
    put(head + "<MORVEK><COLOUR VALUE=\"red\"/><FIXED_ANGLE VISIBLE=\"true\"/></MORVEK>");
    TestHost host(plainStudio());
    openOnce(&host);
    QCOMPARE(content(), fileOf(" VISIBLE=\"true\"", "true"));
}

void tst_preferences::buttonOnceShownStays()
{
    ControllerState state = plainStudio();
    state.bodyTypes[QStringLiteral("standard")].bodies[0].fixedAngles[0].enabled = true;
    TestHost host(state);
    QVERIFY(openOnce(&host).advanced);
    host.edit([](ControllerState &changed) {
        changed.bodyTypes[QStringLiteral("standard")].bodies[0].fixedAngles[0].enabled = false;
    });
    QVERIFY(openOnce(&host).advanced);
    QCOMPARE(content(), fileOf(" VISIBLE=\"true\"", "true"));
}

void tst_preferences::eachVersionHasItsOwnFile()
{
    put(fileOf(" VISIBLE=\"true\"", "false"));
    TestHost host(plainStudio());
    {
        TrackingDlg dialog(&host.io, &host.mainWindow, &host.versions, QStringLiteral("v9.9.9"));
        QVERIFY(!Drive::find<QCheckBox>(&dialog, "checkBox_autoReStart")->isVisibleTo(&dialog));
    }
    QVERIFY(QFile::exists(
            TrackingPreferences(TrackingPreferences::folderOf(QStringLiteral("v9.9.9")))
                    .fileName()));
    QCOMPARE(content(), fileOf(" VISIBLE=\"true\"", "false"));
}

TRACKING_TEST_MAIN(tst_preferences)
#include "tst_preferences.moc"
