#include "administrationfixture.h"

#include <QComboBox>

namespace {

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

/** The facts about a standard body that the page reads. */
struct Slot {
    QString sensor;     ///< empty: none
    QStringList filter; ///< queries of the filter; %1 is the body's number
};

/** The bodies of the studio as a controller with that protocol answers them. */
QVector<Slot> studioSlots(const QString &protocol)
{
    if (minorOf(protocol) < 12)
        return QVector<Slot>(8);
    const QStringList off{"body filter6d_enabled standard b%1"};
    const QStringList on = off + QStringList{"body filter6d_preset standard b%1"};
    const QStringList byDefault = on + QStringList{"filter6d preset_desc preset6d_default"};
    const QStringList own = on
                            + QStringList{"body filter6d_prediction standard b%1",
                                          "body filter6d_mode standard b%1"};
    return {{"", own + QStringList{"filter6d mode_desc adaptive_fast"}},
            {"", off},
            {"", byDefault},
            {"vendorone mini 'A7'", own
                                            + QStringList{"filter6d mode_desc hybrid_target",
                                                          "body filter6d_strength standard b%1"}},
            {"vendorone mini 'B12'", byDefault},
            {"", byDefault},
            {"vendortwo core 'C3'", on + QStringList{"filter6d preset_desc preset6d_hybrid"}},
            {"", {}}};
}

QStringList readingOfBody(const QString &protocol, int row, const Slot &slot)
{
    QStringList lines{"body desc standard b%1", "body targetlib_name standard b%1",
                      "body active standard b%1", "body calibrated standard b%1",
                      "body recalibrated standard b%1"};
    if (minorOf(protocol) >= 12)
        lines.append("body inertial_sensor standard b%1");
    if (!slot.sensor.isEmpty())
        lines.append("inertial sensor_handeye " + slot.sensor);
    lines += slot.filter;
    if (minorOf(protocol) >= 24)
        lines.append("tracking reference");
    return ofBody(lines, row);
}

/** The additional queries for filling the table. */
QStringList fillingOfTable(const QString &protocol, const QVector<Slot> &bodies)
{
    QStringList lines;
    if (minorOf(protocol) >= 12)
        lines += QStringList{"inertial available", "inertial warmup"};
    for (const Slot &body : bodies) {
        if (!body.sensor.isEmpty())
            lines.append("inertial sensor_model_desc " + body.sensor.section(' ', 0, 1));
    }
    return lines;
}

/**
 * The queries of the buttons for a new current body. They are sent once, although a click follows.
 */
QStringList asksForButtons(const QString &sensor, int row)
{
    if (sensor.isEmpty())
        return {};
    return ofBody({"inertial available", "body inertial_sensor standard b%1",
                   "inertial sensor_present " + sensor},
                  row);
}

/** The lines of a refresh of the page while these targets are listed. */
QStringList refreshOfPage(const QString &protocol, const QVector<Slot> &bodies, int current,
                          const QStringList &targets)
{
    QStringList lines{"status active", "morvek2 targetlib check_custom_calibration"};
    for (const QString &target : targets)
        lines.append("targetlib target_status_calibrated_custom " + target);
    lines += QStringList{"standard max_number_of_bodies", "body number_of_bodies standard"};
    for (int row = 0; row < bodies.size(); ++row)
        lines += readingOfBody(protocol, row, bodies.at(row));
    return lines + fillingOfTable(protocol, bodies)
           + asksForButtons(bodies.at(current).sensor, current);
}

/** The lines when one body is read again. */
QStringList refreshOfBody(const QString &protocol, const QVector<Slot> &bodies, int row)
{
    return readingOfBody(protocol, row, bodies.at(row)) + fillingOfTable(protocol, bodies)
           + asksForButtons(bodies.at(row).sensor, row);
}

/** The lines of deleting a calibrated body, before it is read again. */
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

/**
 * The complete transcript of each action on a standard body, for every protocol version that
 * changes it.
 */
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
    void moves_data();
    void moves();

private:
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
            robot().expectBox(warning, asked, QMessageBox::Ok);
        Drive::click(page(window), "pushButton_select");
        Drive::settle();
        const QStringList sent = host.lines();
        QVector<Slot> known = studioSlots(protocol);
        if (row == 7)
            known[row].filter = known.at(5).filter;
        const QStringList listed{"t01", "t02", "t03", "t04", "t05"};
        QStringList expected = holdersAsked(row);
        expected += ofBody({"morvek2 body calibrate_from_targetlib standard b%1 t02"}, row);
        for (const QString &target : listed)
            expected.append("targetlib target_status_calibrated " + target);
        QCOMPARE(sent, expected + refreshOfPage(protocol, known, row, listed));
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
        robot().expectBox(boxTitle, named(host, row, asked), QMessageBox::Yes);
        if (byButton) {
            // The button depends on the text of the model column.
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
        QVector<Slot> left = studioSlots(protocol);
        left[row] = Slot();
        expected += refreshOfBody(protocol, left, row);
        if (!target.isEmpty())
            expected.append(QStringLiteral("targetlib target_status_calibrated ") + target);
        QCOMPARE(sent, expected + refreshOfPage(protocol, left, row, {}));
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
        // Older controllers answer no sensors, so that there is nothing to reset.
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
    open(host, [&](QWidget *, QTableWidget *bodies) {
        press(bodies, row, IdColumn);
        host.clear();
        robot().expectBox(boxTitle, named(host, row, asked), QMessageBox::Yes);
        press(bodies, row, ResetColumn);
        const QStringList sent = host.lines();
        QCOMPARE(sent, asksForButtons(sensor, row) + lines
                               + refreshOfBody(protocol, studioSlots(protocol), row));
    });
    QCOMPARE(host.log(), QStringList());
}

void tst_ActionTranscripts::moves_data()
{
    QTest::addColumn<QString>("protocol");
    QTest::addColumn<int>("row");
    QTest::addColumn<int>("offset");
    for (const QString &protocol : protocols) {
        QTest::addRow("up, %s", qPrintable(protocol)) << protocol << 3 << -1;
        QTest::addRow("down, %s", qPrintable(protocol)) << protocol << 0 << 1;
    }
}

void tst_ActionTranscripts::moves()
{
    QFETCH(QString, protocol);
    QFETCH(int, row);
    QFETCH(int, offset);
    TestHost host(studio(protocol));
    open(host, [&](QWidget *window, QTableWidget *bodies) {
        press(bodies, row, IdColumn);
        host.clear();
        Drive::click(page(window), offset < 0 ? "pushButton_up" : "pushButton_down");
        Drive::settle();
        const int other = row + offset;
        QVector<Slot> moved = studioSlots(protocol);
        std::swap(moved[row], moved[other]);
        QStringList expected{QStringLiteral("morvek2 body switch standard b0%1 standard b0%2")
                                     .arg(row + 1)
                                     .arg(other + 1)};
        const QStringList filling = fillingOfTable(protocol, moved);
        const QStringList asked = asksForButtons(moved.at(other).sensor, other);
        expected += readingOfBody(protocol, row, moved.at(row));
        expected += readingOfBody(protocol, other, moved.at(other)) + filling;
        // The selection moves with the body, and then everything is read again.
        expected += asked + QStringList{"body number_of_bodies standard"};
        for (int i = 0; i < moved.size(); ++i)
            expected += readingOfBody(protocol, i, moved.at(i));
        expected += filling + asked + asked;
        QCOMPARE(host.lines(), expected);
    });
    QCOMPARE(host.log(), QStringList());
}

TRACKING_TEST_MAIN(tst_ActionTranscripts)
#include "tst_actiontranscripts.moc"
