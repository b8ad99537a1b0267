#include "BodyTypeAdministrationTab.h"
#include "administrationfixture.h"

#include <QComboBox>

namespace {

const QString question = QStringLiteral("MORVEK3");
const QString standard = QStringLiteral("standard");
const QStringList protocols{"1.11", "1.12", "1.20", "1.21", "1.24"};

/** The second number of the version: 21 of "1.21". */
int minorOf(const QString &protocol)
{
    return protocol.section(QLatin1Char('.'), 1).toInt();
}

/** The lines with each %1 replaced by the two digits of the body's number. */
QStringList ofBody(const QStringList &lines, int row)
{
    QStringList numbered;
    for (const QString &line : lines) {
        QString copy = line;
        numbered.append(copy.replace(QLatin1String("%1"),
                                     QStringLiteral("%1").arg(row + 1, 2, 10, QLatin1Char('0'))));
    }
    return numbered;
}

/** What deleting a calibrated body sends before it is read again. */
QStringList clearing(const QString &protocol, int row, bool withSensor)
{
    QStringList lines;
    if (minorOf(protocol) >= 21)
        lines.append("body filter6d_preset_available standard b%1 preset6d_default");
    if (minorOf(protocol) >= 12)
        lines.append("body filter6d_preset standard b%1 preset6d_default");
    if (minorOf(protocol) >= 12 && withSensor)
        lines.append("body inertial_sensor standard b%1 none");
    lines.append("body number_of_marker standard b%1 0");
    lines.append("body desc standard b%1 \"\"");
    return ofBody(lines, row);
}

} // namespace

/** The whole transcript of each action on a standard body, from every version that changes it. */
class tst_ActionTranscripts : public AdministrationFixture {
    Q_OBJECT

private slots:
    void assigns_data();
    void assigns();
    void deselects_data();
    void deselects();
    void deletes_data();
    void deletes();
    void resets_data();
    void resets();

private:
    static BodyTypeAdministrationTab *tab(QWidget *window)
    {
        return qobject_cast<BodyTypeAdministrationTab *>(page(window));
    }
    static QStringList linesOf(TestHost &host, const std::function<void()> &act)
    {
        host.clear();
        act();
        return host.lines();
    }
    /** What the page sends when it is refreshed in the state it is in. */
    static QStringList refreshOfPage(TestHost &host, QWidget *window)
    {
        return linesOf(host, [&] { tab(window)->update_tab(); });
    }
    /** What the page sends to read one body again. */
    static QStringList refreshOfBody(TestHost &host, QWidget *window, int row)
    {
        return linesOf(host, [&] {
            tab(window)->updateBodyInfo(standard, row);
            tab(window)->updateTableWidget(standard);
            tab(window)->updateView();
        });
    }
    /** What making another cell of a row current asks: once, although a click follows. */
    static QStringList asksForButtons(const QString &sensor, int row)
    {
        if (sensor.isEmpty())
            return {};
        return ofBody({"inertial available", "body inertial_sensor standard b%1",
                       "inertial sensor_present " + sensor},
                      row);
    }
    static QStringList holdersAsked(int receiver)
    {
        QStringList lines{"measurementtool number_of_references"};
        for (int number = 1; number <= 3; ++number) {
            lines.append(QStringLiteral("body targetlib_name measurementtool_reference b0%1")
                                 .arg(number));
        }
        for (int row = 0; row < 8; ++row) {
            if (row != receiver)
                lines.append(QStringLiteral("body targetlib_name standard b0%1").arg(row + 1));
        }
        return lines;
    }
    void deleteOrDeselect(bool byButton);
    void addDeletions();
};

void tst_ActionTranscripts::assigns_data()
{
    QTest::addColumn<QString>("protocol");
    QTest::addColumn<int>("row");
    QTest::addColumn<QString>("asked");
    const QString overwrite = QStringLiteral("Overwrite body calibration data of %1?");
    for (const QString &protocol : protocols) {
        const auto add = [&](const char *what, int row, const QString &name) {
            QTest::addRow("%s, %s", what, qPrintable(protocol))
                    << protocol << row << (name.isEmpty() ? QString() : overwrite.arg(name));
        };
        add("unnamed", 7, {});
        add("custom", 0, QStringLiteral("Cap"));
        add("library name", 1, QStringLiteral("Glasses round"));
        add("reference", 2, QStringLiteral("Room frame"));
        add("sensor", 3, QStringLiteral("Camera rig"));
        add("library name and sensor", 4, QStringLiteral("Pointer"));
        add("sensor with storage", 6, QStringLiteral("Helmet"));
    }
}

void tst_ActionTranscripts::assigns()
{
    QFETCH(QString, protocol);
    QFETCH(int, row);
    QFETCH(QString, asked);
    TestHost host(studio(protocol));
    open(host, [&](QWidget *window, QTableWidget *bodies) {
        press(bodies, row, IdColumn);
        Drive::choose(Drive::find<QComboBox>(page(window), "comboBox_filter"), "Cross Target");
        press(targets(window), 1, 1);
        host.clear();
        if (!asked.isEmpty())
            robot().expectBox(QStringLiteral("Warning"), asked, QMessageBox::Ok);
        Drive::click(page(window), "pushButton_select");
        Drive::settle();
        const QStringList sent = host.lines();
        QStringList expected = holdersAsked(row);
        expected += ofBody({"morvek2 body calibrate_from_targetlib standard b%1 t02"}, row);
        for (const char *target : {"t01", "t02", "t03", "t04", "t05"})
            expected.append(QStringLiteral("targetlib target_status_calibrated ") + target);
        QCOMPARE(sent, expected + refreshOfPage(host, window));
    });
    QCOMPARE(body(host, row).target, QStringLiteral("CR02"));
    QCOMPARE(host.log(), QStringList());
}

void tst_ActionTranscripts::addDeletions()
{
    QTest::addColumn<QString>("protocol");
    QTest::addColumn<int>("row");
    QTest::addColumn<QString>("sensor");
    QTest::addColumn<QString>("target");
    for (const QString &protocol : protocols) {
        const auto add = [&](const char *what, int row, const QString &sensor,
                             const QString &target) {
            QTest::addRow("%s, %s", what, qPrintable(protocol))
                    << protocol << row << sensor << target;
        };
        add("custom", 0, {}, {});
        add("library name", 1, {}, "t06");
        add("reference", 2, {}, "t03");
        add("sensor", 3, "vendorone mini 'A7'", {});
        add("library name and sensor", 4, "vendorone mini 'B12'", "t14");
        add("sensor with storage", 6, "vendortwo core 'C3'", {});
    }
}

void tst_ActionTranscripts::deleteOrDeselect(bool byButton)
{
    QFETCH(QString, protocol);
    QFETCH(int, row);
    QFETCH(QString, sensor);
    QFETCH(QString, target);
    TestHost host(studio(protocol));
    const bool sensorKnown = !sensor.isEmpty() && minorOf(protocol) >= 12;
    const bool isReference = row == 2 && minorOf(protocol) >= 24;
    QString asked = QStringLiteral("Delete geometry of Standard body 0%1?").arg(row + 1);
    if (isReference) {
        asked += QStringLiteral("\nIf yes, the assignment as reference to other bodies will be "
                                "deleted.");
    } else if (sensorKnown) {
        asked = QStringLiteral("Delete assignment of sensor %1 and \n"
                               "delete geometry of Standard body 0%2?")
                        .arg(sensor)
                        .arg(row + 1);
    }
    open(host, [&](QWidget *window, QTableWidget *bodies) {
        press(bodies, row, IdColumn);
        host.clear();
        robot().expectBox(question, named(host, row, asked), QMessageBox::Yes);
        if (byButton) {
            // The button follows the text of the model column.
            auto *deselect = Drive::find<QPushButton>(page(window), "pushButton_deselect");
            QCOMPARE(deselect->isEnabled(), sensorKnown);
            if (sensorKnown)
                Drive::click(page(window), "pushButton_deselect");
            else
                QVERIFY(QMetaObject::invokeMethod(page(window), "on_pushButton_deselect_clicked"));
            Drive::settle();
        } else {
            press(bodies, row, DeleteColumn);
        }
        const QStringList sent = host.lines();
        QStringList expected =
                byButton ? QStringList() : asksForButtons(sensorKnown ? sensor : QString(), row);
        expected += ofBody({"body targetlib_name standard b%1"}, row);
        if (isReference)
            expected += QStringList{"tracking reference", "tracking reference none"};
        expected += clearing(protocol, row, sensorKnown);
        expected += refreshOfBody(host, window, row);
        if (!target.isEmpty())
            expected.append(QStringLiteral("targetlib target_status_calibrated ") + target);
        QCOMPARE(sent, expected + refreshOfPage(host, window));
    });
    QVERIFY(!body(host, row).calibrated);
    QCOMPARE(body(host, row).target, QString());
    QCOMPARE(host.log(), QStringList());
}

void tst_ActionTranscripts::deselects_data()
{
    addDeletions();
}

void tst_ActionTranscripts::deselects()
{
    deleteOrDeselect(true);
}

void tst_ActionTranscripts::deletes_data()
{
    addDeletions();
}

void tst_ActionTranscripts::deletes()
{
    deleteOrDeselect(false);
}

void tst_ActionTranscripts::resets_data()
{
    QTest::addColumn<QString>("protocol");
    QTest::addColumn<int>("row");
    QTest::addColumn<QString>("asked");
    QTest::addColumn<QStringList>("lines");
    QTest::addColumn<QString>("sensor");
    const QString plain = QStringLiteral("Reset Standard body 0%1");
    const QString toLibrary = plain + QStringLiteral("\nto Target-Library geometry?");
    const QString losesHandEye = plain + QStringLiteral("?\nHand eye calibration will be deleted!");
    const QString stored = plain + QStringLiteral("\nto sensor stored values?");
    for (const QString &protocol : protocols) {
        const auto add = [&](const char *what, int row, const QString &asked,
                             const QStringList &lines, const QString &sensor) {
            QTest::addRow("%s, %s", what, qPrintable(protocol))
                    << protocol << row << asked.arg(row + 1) << ofBody(lines, row) << sensor;
        };
        add("library name", 1, toLibrary,
            {"morvek2 body calibrate_from_targetlib standard b%1 GL01"}, {});
        // Older controllers tell of no sensors, so that there is nothing to reset.
        if (minorOf(protocol) < 12)
            continue;
        add("library name and sensor", 4, toLibrary,
            {"morvek2 body calibrate_from_targetlib standard b%1 PL02"}, "vendorone mini 'B12'");
        const bool knowsStorage = minorOf(protocol) >= 21;
        const auto handEye = [&](const QString &sensor) {
            QStringList lines;
            if (knowsStorage)
                lines.append("inertial sensor_has_storage " + sensor);
            return lines
                   + QStringList{"inertial sensor_handeye " + sensor, "inertial warmup",
                                 "inertial sensor_handeye " + sensor + " none"};
        };
        add("hand-eye", 3, losesHandEye, handEye("vendorone mini 'A7'"), "vendorone mini 'A7'");
        const QString storing = QStringLiteral("vendortwo core 'C3'");
        add("storage", 6, knowsStorage ? stored : losesHandEye,
            knowsStorage ? QStringList{"inertial sensor_has_storage " + storing, "inertial warmup",
                                       "morvek2 set inertial sensor_default " + storing}
                         : handEye(storing),
            storing);
    }
}

void tst_ActionTranscripts::resets()
{
    QFETCH(QString, protocol);
    QFETCH(int, row);
    QFETCH(QString, asked);
    QFETCH(QStringList, lines);
    QFETCH(QString, sensor);
    TestHost host(studio(protocol));
    open(host, [&](QWidget *window, QTableWidget *bodies) {
        press(bodies, row, IdColumn);
        host.clear();
        robot().expectBox(question, named(host, row, asked), QMessageBox::Yes);
        press(bodies, row, ResetColumn);
        const QStringList sent = host.lines();
        QCOMPARE(sent, asksForButtons(sensor, row) + lines + refreshOfBody(host, window, row));
    });
    QCOMPARE(host.log(), QStringList());
}

TRACKING_TEST_MAIN(tst_ActionTranscripts)
#include "tst_actiontranscripts.moc"
