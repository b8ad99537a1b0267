#include "trackingfixture.h"

#include <QComboBox>
#include <QLabel>
#include <QLocale>

class tst_trackingdlgaxis : public TrackingFixture {
    Q_OBJECT

private slots:
    void axisIsRead_data();
    void axisIsRead();
    void axisIsWritten_data();
    void axisIsWritten();
    void otherVectorKeepsTheSelection();
};

void tst_trackingdlgaxis::axisIsRead_data()
{
    QTest::addColumn<QString>("answer");
    QTest::addColumn<int>("index");
    QTest::addColumn<QString>("label");
    const QString none;
    QTest::newRow("x") << "1.000 0.000 0.000" << 0 << none;
    QTest::newRow("-x") << "-1 0 0" << 1 << none;
    QTest::newRow("y") << "0 1 0" << 2 << none;
    QTest::newRow("-y") << "0 -1 0" << 3 << none;
    QTest::newRow("z") << "0 0 1" << 4 << none;
    QTest::newRow("-z") << "0 0 -1" << 5 << none;
    QTest::newRow("none of them") << "0.5 0 0" << -1 << "x = 0.500 mm, y = 0.000 mm, z = 0.000 mm";
    QTest::newRow("no numbers") << "a 1 b" << 2 << none;
    QTest::newRow("comma is no number")
            << "1,0 0 0" << -1 << "x = 0.000 mm, y = 0.000 mm, z = 0.000 mm";
    QTest::newRow("too few fields") << "1" << 0 << none;
    QTest::newRow("two blanks leave a field empty") << "1  0" << 0 << none;
    QTest::newRow("infinite") << "inf 0 nan" << -1 << "x = 0.000 mm, y = 0.000 mm, z = 0.000 mm";
}

void tst_trackingdlgaxis::axisIsRead()
{
    QFETCH(QString, answer);
    QFETCH(int, index);
    QFETCH(QString, label);
    TestHost host(twoBodies());
    host.fault(QStringLiteral("get tracking axis_5dof_central answer \"%1\"").arg(answer));
    TrackingDlg dialog(&host.io, &host.mainWindow, &host.versions, moduleVersion);
    open(&dialog, [=](QWidget *shown) {
        QCOMPARE(Drive::find<QComboBox>(shown, "comboBox_5dofAxis")->currentIndex(), index);
        QCOMPARE(Drive::find<QLabel>(shown, "label_display5dof")->text(), label);
        Drive::click(shown, "pushButton_ok");
    });
    QCOMPARE(host.writes(), QStringList{QStringLiteral("tracking auto_restart yes")});
}

void tst_trackingdlgaxis::axisIsWritten_data()
{
    QTest::addColumn<QLocale>("locale");
    QTest::addColumn<QString>("axis");
    QTest::addColumn<QString>("line");
    const QLocale german(QLocale::German, QLocale::Germany);
    QTest::newRow("x") << QLocale::c() << "x"
                       << "1.000 0.000 0.000";
    QTest::newRow("-x") << QLocale::c() << "-x"
                        << "-1.000 0.000 0.000";
    QTest::newRow("y") << QLocale::c() << "y"
                       << "0.000 1.000 0.000";
    QTest::newRow("-y") << QLocale::c() << "-y"
                        << "0.000 -1.000 0.000";
    QTest::newRow("-z") << QLocale::c() << "-z"
                        << "0.000 0.000 -1.000";
    QTest::newRow("y, German") << german << "y"
                               << "0.000 1.000 0.000";
}

void tst_trackingdlgaxis::axisIsWritten()
{
    QFETCH(QLocale, locale);
    QFETCH(QString, axis);
    QFETCH(QString, line);
    QLocale::setDefault(locale);
    TestHost host(twoBodies());
    TrackingDlg dialog(&host.io, &host.mainWindow, &host.versions, moduleVersion);
    open(&dialog, [=](QWidget *shown) {
        Drive::choose(Drive::find<QComboBox>(shown, "comboBox_5dofAxis"), axis);
        Drive::click(shown, "pushButton_ok");
    });
    QCOMPARE(host.writes().last(), QStringLiteral("tracking axis_5dof_central ") + line);
    QCOMPARE(host.writes().size(), 4);
}

void tst_trackingdlgaxis::otherVectorKeepsTheSelection()
{
    TestHost host(twoBodies());
    TrackingDlg dialog(&host.io, &host.mainWindow, &host.versions, moduleVersion);
    openAndCancel(&dialog);
    host.edit([](ControllerState &state) { state.axis5dofCentral = {{0.5, 0.0, 0.0}}; });
    open(&dialog, [](QWidget *shown) {
        QCOMPARE(Drive::find<QComboBox>(shown, "comboBox_5dofAxis")->currentText(),
                 QStringLiteral("z"));
        QCOMPARE(Drive::find<QLabel>(shown, "label_display5dof")->text(),
                 QStringLiteral("x = 0.500 mm, y = 0.000 mm, z = 0.000 mm"));
        Drive::click(shown, "pushButton_cancel");
    });
    host.edit([](ControllerState &state) { state.axis5dofCentral = {{1.0, 0.0, 0.0}}; });
    open(&dialog, [](QWidget *shown) {
        QCOMPARE(Drive::find<QLabel>(shown, "label_display5dof")->text(), QString());
        Drive::click(shown, "pushButton_cancel");
    });
}

TRACKING_TEST_MAIN(tst_trackingdlgaxis)
#include "tst_trackingdlgaxis.moc"
