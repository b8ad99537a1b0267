#include "administrationfixture.h"
#include "filterdialog.h"
#include "fingertrackingadministration.h"
#include "targetlibrary.h"

#include <QCheckBox>
#include <QComboBox>
#include <QRegularExpression>

/**
 * Every difference in the body administration and the filter dialog that depends on the
 * controller's protocol: at the last version without it and at the first version with it. The
 * dialogs for names and fixed angles have such tests of their own.
 */
class tst_ProtocolGates : public AdministrationFixture {
    Q_OBJECT

private slots:
    void gates_data();
    void gates();

private:
    /**
     * Carries the action out and returns what can be seen of it: lines sent or logged, or texts
     * shown.
     */
    using Act = QStringList (tst_ProtocolGates::*)(TestHost &);
    struct Gate {
        const char *name;
        const char *last;  ///< protocol without it
        const char *first; ///< protocol with it
        Act act;
        const char *pattern; ///< selects the lines or texts that matter
        QStringList without;
        QStringList with;
    };
    static QVector<Gate> allGates();
    static QVector<Gate> readingGates();
    static QVector<Gate> writingGates();
    static QVector<Gate> pageGates();
    static QVector<Gate> filterGates();

    QStringList construct(TestHost &host);
    QStringList openStandard(TestHost &host);
    QStringList openJoywands(TestHost &host);
    QStringList showTitles(TestHost &host);
    QStringList constructHandsPage(TestHost &host);
    QStringList switchOn(TestHost &host);
    QStringList rename(TestHost &host);
    QStringList mark(TestHost &host);
    QStringList moveUp(TestHost &host);
    QStringList removeCap(TestHost &host);
    QStringList removeRig(TestHost &host);
    QStringList resetHelmet(TestHost &host);
    QStringList changeConfiguration(TestHost &host);
    QStringList failFilterQuery(TestHost &host);
    QStringList openFilter(TestHost &host);
    QStringList chooseOtherBodyInFilter(TestHost &host);

    QStringList linesOf(TestHost &host, const Acts &acts);
    /** Opens the filter of a body, or of all bodies for -1. */
    QStringList visitFilter(TestHost &host, int index, const std::function<void(QWidget *)> &user);
};

// What is done

QStringList tst_ProtocolGates::construct(TestHost &host)
{
    const BodyAdministrationDlg dialog(&host.io, &host.mainWindow, &host.versions);
    return host.lines();
}

QStringList tst_ProtocolGates::linesOf(TestHost &host, const Acts &acts)
{
    QStringList lines;
    open(host, [&](QWidget *window, QTableWidget *bodies) {
        acts(window, bodies);
        Drive::settle();
        lines = host.lines();
    });
    return lines;
}

QStringList tst_ProtocolGates::openStandard(TestHost &host)
{
    BodyAdministrationDlg dialog(&host.io, &host.mainWindow, &host.versions);
    host.clear();
    open(&dialog, [](QWidget *) {});
    return host.lines();
}

QStringList tst_ProtocolGates::openJoywands(TestHost &host)
{
    host.edit([](ControllerState &state) { state.multiUserAvailable = true; });
    return linesOf(host, [](QWidget *window, QTableWidget *) { goTo(window, joywandPage); });
}

QStringList tst_ProtocolGates::showTitles(TestHost &host)
{
    BodyAdministrationDlg dialog(&host.io, &host.mainWindow, &host.versions);
    return titles(&dialog);
}

QStringList tst_ProtocolGates::constructHandsPage(TestHost &host)
{
    Targetlibrary library(&host.io, &host.versions);
    host.clear();
    FingertrackingAdministration page(&host.io, &host.mainWindow, &host.versions, {}, &library);
    QStringList seen = host.lines();
    seen.append(page.isAvailable() ? "available" : "not available");
    return seen;
}

QStringList tst_ProtocolGates::switchOn(TestHost &host)
{
    return linesOf(host, [](QWidget *, QTableWidget *bodies) { toggle(bodies, 1, ActiveColumn); });
}

QStringList tst_ProtocolGates::rename(TestHost &host)
{
    return linesOf(host, [](QWidget *, QTableWidget *bodies) {
        // Below the required version the cell opens no editor.
        if (bodies->item(0, NameColumn)->flags().testFlag(Qt::ItemIsEditable))
            Drive::typeIntoCell(bodies, 0, NameColumn, QStringLiteral("Helmet two"));
        else
            Drive::doubleClickCell(bodies, 0, NameColumn);
        Drive::settle();
    });
}

QStringList tst_ProtocolGates::mark(TestHost &host)
{
    return linesOf(host,
                   [](QWidget *, QTableWidget *bodies) { toggle(bodies, 1, ReferenceColumn); });
}

QStringList tst_ProtocolGates::moveUp(TestHost &host)
{
    return linesOf(host, [](QWidget *window, QTableWidget *bodies) {
        press(bodies, 1, IdColumn);
        Drive::click(page(window), "pushButton_up");
    });
}

QStringList tst_ProtocolGates::removeCap(TestHost &host)
{
    return linesOf(host, [&](QWidget *, QTableWidget *bodies) {
        const bool hasName = host.state().protocol != QLatin1String("0.15");
        robot().expectBox(boxTitle,
                          QStringLiteral("Delete geometry of Standard body 01?")
                                  + (hasName ? QStringLiteral("\nCap") : QString()),
                          Box::Yes);
        press(bodies, 0, DeleteColumn);
    });
}

QStringList tst_ProtocolGates::removeRig(TestHost &host)
{
    const bool isSensorKnown = host.versions.prot >= VersionInfo(1, 12, -1);
    return linesOf(host, [&](QWidget *, QTableWidget *bodies) {
        robot().expectBox(boxTitle,
                          isSensorKnown
                                  ? QStringLiteral("Delete assignment of sensor vendorone mini "
                                                   "'A7' and \ndelete geometry of Standard body "
                                                   "04?\nCamera rig")
                                  : QStringLiteral("Delete geometry of Standard body 04?\n"
                                                   "Camera rig"),
                          Box::Yes);
        press(bodies, 3, DeleteColumn);
    });
}

QStringList tst_ProtocolGates::resetHelmet(TestHost &host)
{
    const bool isStorageKnown = host.versions.prot >= VersionInfo(1, 21, -1);
    return linesOf(host, [&](QWidget *, QTableWidget *bodies) {
        robot().expectBox(boxTitle,
                          isStorageKnown ? QStringLiteral("Reset Standard body 07\n"
                                                          "to sensor stored values?\nHelmet")
                                         : QStringLiteral("Reset Standard body 07?\n"
                                                          "Hand eye calibration will be "
                                                          "deleted!\nHelmet"),
                          Box::No);
        press(bodies, 6, ResetColumn);
    });
}

QStringList tst_ProtocolGates::changeConfiguration(TestHost &host)
{
    const BodyAdministrationDlg dialog(&host.io, &host.mainWindow, &host.versions);
    host.edit([](ControllerState &state) { state.standardFilter = false; });
    host.clear();
    configurationChanged(host);
    return host.lines();
}

QStringList tst_ProtocolGates::failFilterQuery(TestHost &host)
{
    host.fault(QStringLiteral("get filter6d* fail"));
    const FilterDialog dialog(&host.io, &host.mainWindow, &host.versions);
    return host.log();
}

QStringList tst_ProtocolGates::visitFilter(TestHost &host, int index,
                                           const std::function<void(QWidget *)> &user)
{
    FilterDialog dialog(&host.io, &host.mainWindow, &host.versions);
    host.clear();
    robot().expectDialog(QStringLiteral("FilterDialog"), user);
    dialog.update_and_exec(0, index);
    robot().verify();
    return host.lines();
}

QStringList tst_ProtocolGates::openFilter(TestHost &host)
{
    return visitFilter(host, 0, [](QWidget *) {});
}

QStringList tst_ProtocolGates::chooseOtherBodyInFilter(TestHost &host)
{
    // Such an old controller is possible only when it changes while the dialog is open.
    const VersionInfo protocol = host.versions.prot;
    host.versions.prot = VersionInfo(1, 24, 0);
    host.edit([](ControllerState &state) { state.protocol = QStringLiteral("1.24"); });
    return visitFilter(host, -1, [&](QWidget *shown) {
        host.versions.prot = protocol;
        host.clear();
        auto *body = Drive::find<QComboBox>(shown, "comboBox_body");
        Drive::choose(body, body->itemText(1));
    });
}

// What differs

QVector<tst_ProtocolGates::Gate> tst_ProtocolGates::readingGates()
{
    const Act construct = &tst_ProtocolGates::construct;
    const Act open = &tst_ProtocolGates::openStandard;
    return {
            {"description of a type",
             "0.2",
             "0.3",
             construct,
             "^body type_desc standard$",
             {},
             {"body type_desc standard"}},
            {"filter of a type",
             "1.11",
             "1.12",
             construct,
             "^filter6d available standard$",
             {},
             {"filter6d available standard"}},
            {"name",
             "0.15",
             "0.16",
             open,
             "^body desc standard b01$",
             {},
             {"body desc standard b01"}},
            {"library target",
             "1.10",
             "1.11",
             open,
             "^body targetlib_name standard b01$",
             {},
             {"body targetlib_name standard b01"}},
            {"activeness",
             "1.10",
             "1.11",
             open,
             "^body active standard b01$",
             {},
             {"body active standard b01"}},
            {"calibration",
             "0.2",
             "0.3",
             open,
             "^body calibrated standard b01$",
             {},
             {"body calibrated standard b01"}},
            {"re-calibration",
             "1.10",
             "1.11",
             open,
             "^body recalibrated standard b01$",
             {},
             {"body recalibrated standard b01"}},
            {"sensor",
             "1.11",
             "1.12",
             open,
             "^(body inertial_sensor|inertial sensor_h).*(04|A7)",
             {},
             {"body inertial_sensor standard b04", "inertial sensor_handeye vendorone mini 'A7'"}},
            {"filter of a body",
             "1.11",
             "1.12",
             open,
             "^body filter6d_preset standard b01$",
             {},
             {"body filter6d_preset standard b01"}},
            {"reference",
             "1.23",
             "1.24",
             open,
             "^tracking reference$",
             {},
             QVector<QString>(8, "tracking reference").toList()},
            {"lock",
             "1.8",
             "1.9",
             construct,
             "^config is_changeable$",
             {},
             {"config is_changeable"}},
            {"warm-up",
             "1.11",
             "1.12",
             open,
             "^inertial (available|warmup)$",
             {},
             {"inertial available", "inertial warmup"}},
    };
}

QVector<tst_ProtocolGates::Gate> tst_ProtocolGates::writingGates()
{
    using Self = tst_ProtocolGates;
    const char *const presetOf1 = "^body filter6d_preset.* standard b01 preset6d_default$";
    return {
            {"activeness is written",
             "1.10",
             "1.11",
             &Self::switchOn,
             "^body active .* (yes|no)$",
             {},
             {"body active standard b02 no"}},
            {"name is written",
             "0.15",
             "0.16",
             &Self::rename,
             "^body desc standard b.. \"",
             {},
             {"body desc standard b01 \"Helmet two\""}},
            {"reference is written",
             "1.23",
             "1.24",
             &Self::mark,
             "^tracking reference .",
             {},
             {"tracking reference standard b02"}},
            {"bodies are switched",
             "1.10",
             "1.11",
             &Self::moveUp,
             "^morvek2 ",
             {},
             {"morvek2 body switch standard b02 standard b01"}},
            {"deleting clears the name",
             "0.15",
             "0.16",
             &Self::removeCap,
             "^body (number_of_marker|desc) standard b01 .",
             {"body number_of_marker standard b01 0"},
             {"body number_of_marker standard b01 0", "body desc standard b01 \"\""}},
            {"deleting clears the filter",
             "1.11",
             "1.12",
             &Self::removeCap,
             presetOf1,
             {},
             {"body filter6d_preset standard b01 preset6d_default"}},
            {"deleting asks for the preset",
             "1.20",
             "1.21",
             &Self::removeCap,
             presetOf1,
             {"body filter6d_preset standard b01 preset6d_default"},
             {"body filter6d_preset_available standard b01 preset6d_default",
              "body filter6d_preset standard b01 preset6d_default"}},
            {"deleting frees the sensor",
             "1.11",
             "1.12",
             &Self::removeRig,
             "^body inertial_sensor .* none$",
             {},
             {"body inertial_sensor standard b04 none"}},
            {"reset asks for stored values",
             "1.20",
             "1.21",
             &Self::resetHelmet,
             "^inertial sensor_h.*C3'$",
             {"inertial sensor_handeye vendortwo core 'C3'"},
             {"inertial sensor_has_storage vendortwo core 'C3'"}},
            {"global filter is switched on",
             "1.11",
             "1.12",
             &Self::changeConfiguration,
             "^standard filter_bodies",
             {},
             {"standard filter_bodies", "standard filter_bodies yes"}},
    };
}

QVector<tst_ProtocolGates::Gate> tst_ProtocolGates::pageGates()
{
    using Self = tst_ProtocolGates;
    const Act joywands = &Self::openJoywands;
    return {
            {"page of measurement tools",
             "1.2",
             "1.3",
             &Self::showTitles,
             "Measurement",
             {},
             {"&Measurement Tool"}},
            {"page of hands",
             "0.16",
             "0.17",
             &Self::showTitles,
             "ngertrack",
             {},
             {"F&ingertracking"}},
            {"measurement tools",
             "1.3",
             "1.4",
             &Self::construct,
             "^measurementtool available$",
             {},
             {"measurementtool available"}},
            {"hands",
             "0.16",
             "0.17",
             &Self::constructHandsPage,
             "available$",
             {"not available"},
             {"fingertracking available", "available"}},
            {"hands always",
             "1.21",
             "1.22",
             &Self::constructHandsPage,
             "^fingertracking available$|^(not )?available$",
             {"fingertracking available", "available"},
             {"available"}},
            {"model of a device",
             "1.2",
             "1.3",
             joywands,
             "^qorwpan .*grip",
             {},
             {"qorwpan device_model_desc vendorone grip"}},
            {"several users",
             "0.12",
             "0.13",
             joywands,
             "^joywand multiuser_available$",
             {},
             {"joywand multiuser_available"}},
            {"heads of several users",
             "0.13",
             "0.14",
             joywands,
             "^joywand multiuser_with_head_av",
             {},
             {"joywand multiuser_with_head_available"}},
    };
}

QVector<tst_ProtocolGates::Gate> tst_ProtocolGates::filterGates()
{
    using Self = tst_ProtocolGates;
    return {
            {"failed queries are news",
             "1.11",
             "1.12",
             &Self::failFilterQuery,
             "number of filter 6d presets",
             {},
             {"Error: Unable to get number of filter 6d presets"}},
            {"filter is asked for",
             "1.11",
             "1.12",
             &Self::openFilter,
             "^filter6d available",
             {},
             {"filter6d available standard"}},
            {"sensor hides the check box",
             "1.11",
             "1.12",
             &Self::chooseOtherBodyInFilter,
             "^body inertial_sensor",
             {},
             {"body inertial_sensor standard b02"}},
            {"presets of a body",
             "1.20",
             "1.21",
             &Self::openFilter,
             "preset_available .* preset6d_default$",
             {},
             {"body filter6d_preset_available standard b01 preset6d_default"}},
            {"modes of a body",
             "1.20",
             "1.21",
             &Self::openFilter,
             "mode_available .* adaptive_slow$",
             {},
             {"body filter6d_mode_available standard b01 adaptive_slow"}},
    };
}

QVector<tst_ProtocolGates::Gate> tst_ProtocolGates::allGates()
{
    return readingGates() + writingGates() + pageGates() + filterGates();
}

void tst_ProtocolGates::gates_data()
{
    QTest::addColumn<int>("gate");
    QTest::addColumn<bool>("open");
    const QVector<Gate> gates = allGates();
    for (int i = 0; i < gates.size(); ++i) {
        QTest::addRow("%s, %s", gates.at(i).name, gates.at(i).last) << i << false;
        QTest::addRow("%s, %s", gates.at(i).name, gates.at(i).first) << i << true;
    }
}

void tst_ProtocolGates::gates()
{
    QFETCH(int, gate);
    QFETCH(bool, open);
    const Gate tested = allGates().at(gate);
    TestHost host(studio(QString::fromLatin1(open ? tested.first : tested.last)));
    const QStringList seen = (this->*tested.act)(host);
    const QRegularExpression pattern(QString::fromLatin1(tested.pattern));
    QCOMPARE(seen.filter(pattern), open ? tested.with : tested.without);
}

TRACKING_TEST_MAIN(tst_ProtocolGates)
#include "tst_protocolgates.moc"
