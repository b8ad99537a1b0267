#include "dialogtest.h"
#include "versioninfo.h"

/** Version triples, and the versions that a host reports of its controller. */
class tst_BackendVersions : public DialogTest {
    Q_OBJECT

private slots:
    void compares_data();
    void compares();
    void reads_data();
    void reads();
    void readsWithoutAskingForSuccess();
    void writes_data();
    void writes();
    void startsWithoutVersion();
    void givesReferences();
    void travelsAsPointer();
};

void tst_BackendVersions::compares_data()
{
    QTest::addColumn<VersionInfo>("left");
    QTest::addColumn<VersionInfo>("right");
    QTest::addColumn<int>("order"); // order of left relative to right
    QTest::newRow("equal") << VersionInfo(1, 9, 3) << VersionInfo(1, 9, 3) << 0;
    QTest::newRow("no patch levels") << VersionInfo(1, 9, -1) << VersionInfo(1, 9, -1) << 0;
    QTest::newRow("patch") << VersionInfo(1, 9, 4) << VersionInfo(1, 9, 3) << 1;
    QTest::newRow("patch 0 above none") << VersionInfo(1, 9, 0) << VersionInfo(1, 9, -1) << 1;
    QTest::newRow("patch -2 below none") << VersionInfo(1, 9, -2) << VersionInfo(1, 9, -1) << -1;
    QTest::newRow("minor is a number") << VersionInfo(1, 10, -1) << VersionInfo(1, 9, 9) << 1;
    QTest::newRow("minor before patch") << VersionInfo(1, 8, 99) << VersionInfo(1, 9, -1) << -1;
    QTest::newRow("major before minor") << VersionInfo(0, 99, 99) << VersionInfo(1, 0, -1) << -1;
    QTest::newRow("major") << VersionInfo(2, 0, -1) << VersionInfo(1, 24, 7) << 1;
    QTest::newRow("negative numbers") << VersionInfo(-2, 0, 0) << VersionInfo(-1, 0, 0) << -1;
}

void tst_BackendVersions::compares()
{
    QFETCH(VersionInfo, left);
    QFETCH(VersionInfo, right);
    QFETCH(int, order);
    QCOMPARE(left == right, order == 0);
    QCOMPARE(left != right, order != 0);
    QCOMPARE(left > right, order > 0);
    QCOMPARE(left >= right, order >= 0);
    QCOMPARE(left < right, order < 0);
    QCOMPARE(left <= right, order <= 0);
    QCOMPARE(right > left, order < 0);
    QCOMPARE(right >= left, order <= 0);
    QCOMPARE(right<left, order> 0);
    QCOMPARE(right <= left, order >= 0);
}

void tst_BackendVersions::reads_data()
{
    QTest::addColumn<QString>("text");
    QTest::addColumn<bool>("valid");
    QTest::addColumn<VersionInfo>("expected");
    const VersionInfo unchanged(7, 8, 9);
    QTest::newRow("two numbers") << "1.24" << true << VersionInfo(1, 24, -1);
    QTest::newRow("three numbers") << "3.1.0" << true << VersionInfo(3, 1, 0);
    QTest::newRow("leading zero") << "1.09" << true << VersionInfo(1, 9, -1);
    QTest::newRow("empty") << "" << false << unchanged;
    QTest::newRow("one number") << "1" << false << unchanged;
    QTest::newRow("four numbers") << "1.2.3.4" << false << unchanged;
    QTest::newRow("trailing point") << "1.2." << false << unchanged;
    QTest::newRow("letters") << "1.x" << false << unchanged;
    QTest::newRow("letters at the end") << "1.2.3b" << false << unchanged;
    QTest::newRow("negative") << "1.-2" << false << unchanged;
    QTest::newRow("beyond int") << "1.99999999999" << false << unchanged;
}

void tst_BackendVersions::reads()
{
    QFETCH(QString, text);
    QFETCH(bool, valid);
    QFETCH(VersionInfo, expected);
    VersionInfo version(7, 8, 9);
    bool ok = !valid;
    version.fromString(text, &ok);
    QCOMPARE(ok, valid);
    QCOMPARE(version.major(), expected.ma);
    QCOMPARE(version.minor(), expected.mi);
    QCOMPARE(version.patch(), expected.pa);
}

void tst_BackendVersions::readsWithoutAskingForSuccess()
{
    VersionInfo version;
    version.fromString(QStringLiteral("1.2.3"));
    QVERIFY(version == VersionInfo(1, 2, 3));
    version.fromString(QStringLiteral("nonsense"));
    QVERIFY(version == VersionInfo(1, 2, 3));
}

void tst_BackendVersions::writes_data()
{
    QTest::addColumn<VersionInfo>("version");
    QTest::addColumn<QString>("text");
    QTest::newRow("with patch") << VersionInfo(3, 1, 4) << "3.1.4";
    QTest::newRow("patch 0") << VersionInfo(1, 24, 0) << "1.24.0";
    QTest::newRow("no patch") << VersionInfo(1, 24, -1) << "1.24";
}

void tst_BackendVersions::writes()
{
    QFETCH(VersionInfo, version);
    QFETCH(QString, text);
    QCOMPARE(version.toString(), text);
    VersionInfo again;
    bool ok = false;
    again.fromString(text, &ok);
    QVERIFY(ok);
    QVERIFY(again == version);
}

void tst_BackendVersions::startsWithoutVersion()
{
    VersionInfo version;
    QVERIFY(version == VersionInfo(0, 0, -1));
    version.setVer(1, 24, 3);
    QCOMPARE(version.ma, 1);
    QCOMPARE(version.mi, 24);
    QCOMPARE(version.pa, 3);
    QCOMPARE(BackendVersions().mod, QString());
}

void tst_BackendVersions::givesReferences()
{
    BackendVersions versions;
    versions.systemPt() = VersionInfo(1, 2, 3);
    versions.protocol() = VersionInfo(4, 5, 6);
    versions.systemCt() = VersionInfo(7, 8, 9);
    versions.atcModel() = QStringLiteral("STUDIO4");
    QCOMPARE(versions.sysPt.toString(), QStringLiteral("1.2.3"));
    QCOMPARE(versions.prot.toString(), QStringLiteral("4.5.6"));
    QCOMPARE(versions.sysCt.toString(), QStringLiteral("7.8.9"));
    QCOMPARE(versions.mod, QStringLiteral("STUDIO4"));
    const BackendVersions &reading = versions;
    QCOMPARE(&reading.systemPt(), &versions.sysPt);
    QCOMPARE(&reading.protocol(), &versions.prot);
    QCOMPARE(&reading.systemCt(), &versions.sysCt);
    QCOMPARE(&reading.atcModel(), &versions.mod);
}

void tst_BackendVersions::travelsAsPointer()
{
    BackendVersions versions;
    const QVariant packed = QVariant::fromValue(&versions);
    QCOMPARE(packed.value<BackendVersions *>(), &versions);
    QCOMPARE(QByteArray(packed.typeName()), QByteArray("BackendVersions*"));
}

TRACKING_TEST_MAIN(tst_BackendVersions)
#include "tst_backendversions.moc"
