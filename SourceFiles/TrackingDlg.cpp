#include "TrackingDlg.h"

#include "fixedangledlg.h"
#include "linkobserver.h"
#include "settings/trackingpreferences.h"
#include "settings/trackingpulse.h"
#include "waiting.h"
#include "wheelguard.h"

#include <QDomElement>
#include <QLayout>
#include <QPointer>
#include <QScopedValueRollback>

#include <cmath>

namespace {

struct NamedAxis {
    const char *name;
    std::array<double, 3> vector;
};

/** The axes in the order of the list. */
const std::array<NamedAxis, 6> &namedAxes()
{
    static const std::array<NamedAxis, 6> axes{{{"x", {1.0, 0.0, 0.0}},
                                                {"-x", {-1.0, 0.0, 0.0}},
                                                {"y", {0.0, 1.0, 0.0}},
                                                {"-y", {0.0, -1.0, 0.0}},
                                                {"z", {0.0, 0.0, 1.0}},
                                                {"-z", {0.0, 0.0, -1.0}}}};
    return axes;
}

const char *yesOrNo(bool on)
{
    return on ? "yes" : "no";
}

} // namespace

TrackingDlg::TrackingDlg(IOManager *iom, QWidget *parent, BackendVersions *beVers,
                         QString moduleVersion)
    : QDialog(parent),
      iom(iom),
      beVers(beVers),
      m_parent(parent),
      sConfigDir(TrackingPreferences::folderOf(moduleVersion)),
      m_module_version(std::move(moduleVersion)),
      m_icon_lock(QStringLiteral(":/lock.png")),
      m_observer(new LinkObserver(this)),
      m_link(iom, beVers, m_observer)
{
    setupUi(this);
    WheelGuard::protect(this);
    messageLine->follow(m_observer);
    layout()->setSizeConstraint(QLayout::SetFixedSize);
    loadSettingsFromXml();
    const bool isPocketunit = m_link.isPocketUnit();
    enable_pocketunit_widget(isPocketunit);
    if (isPocketunit)
        check_pocketunit_default_settings();
    setup_comboBox_5dofAxis();
}

TrackingDlg::~TrackingDlg()
{
    saveSettingsToXml();
}

int TrackingDlg::update_and_exec()
{
    // Reading again would take the user's unsaved changes away.
    if (isVisible()) {
        raise();
        activateWindow();
        return Rejected;
    }
    {
        const Waiting waiting(m_observer, Waiting::For::Refresh, tr("Reading the settings ..."));
        const QScopedValueRollback<bool> filling(bUserAction, false);
        applyConfigLock();
        displayFixedAngleButton();
        forceAutoRestart();
        readMarkerCalculation();
        readAutoRestart();
        readAxis();
        enableInertialControls();
    }
    m_changed = false;
    return exec();
}

void TrackingDlg::applyConfigLock()
{
    m_is_config_locked = is_config_locked();
    const bool open = !m_is_config_locked;
    setWindowIcon(open ? (m_parent ? m_parent->windowIcon() : QIcon()) : m_icon_lock);
    checkBox_force3d->setEnabled(open);
    pushButton_ok->setEnabled(open);
    pushButton_advanced->setEnabled(open);
    if (!open) {
        checkBox_autoReStart->setEnabled(false);
        label_setAxis5dof->setEnabled(false);
        comboBox_5dofAxis->setEnabled(false);
    }
}

/** A user who is not offered the choice always works with automatic restart. */
void TrackingDlg::forceAutoRestart()
{
    if (m_show_auto_restart_mea_sync)
        return;
    if (knowsAutoRestart() && !m_is_config_locked)
        writeAutoRestart(true);
    checkBox_autoReStart->hide();
}

void TrackingDlg::readMarkerCalculation()
{
    const auto answer = m_link.text("standard calculate_marker");
    if (!answer)
        m_link.log(QStringLiteral("Error: Unable to get the calculation of 3DOF markers"));
    bCalculate3DofMarker = answer == QLatin1String("yes");
    checkBox_force3d->setChecked(bCalculate3DofMarker);
}

void TrackingDlg::readAutoRestart()
{
    if (!knowsAutoRestart()) {
        checkBox_autoReStart->setEnabled(false);
        return;
    }
    checkBox_autoReStart->setEnabled(!m_is_config_locked);
    bAutoRestart = isAutoRestartOn();
    checkBox_autoReStart->setChecked(bAutoRestart);
}

bool TrackingDlg::isAutoRestartOn() const
{
    const auto answer = m_link.text("tracking auto_restart");
    if (!answer)
        m_link.log(QStringLiteral("Error: Unable to get the automatic restart of the measurement"));
    return answer == QLatin1String("yes");
}

void TrackingDlg::readAxis()
{
    const bool known = knowsCentralAxis();
    if (known)
        update_comboBox_5dofAxis();
    const bool editable = known && !m_is_config_locked;
    label_setAxis5dof->setEnabled(editable);
    comboBox_5dofAxis->setEnabled(editable);
}

bool TrackingDlg::is_config_locked() const
{
    return m_link.isConfigLocked();
}

void TrackingDlg::saveSettings()
{
    writeMarkerCalculation(checkBox_force3d->isChecked());
    if (knowsAutoRestart())
        writeAutoRestart(checkBox_autoReStart->isChecked());
    save5DofAxisCentralSettings();
}

void TrackingDlg::writeOldSettings()
{
    writeMarkerCalculation(bCalculate3DofMarker);
    if (knowsAutoRestart())
        writeAutoRestart(bAutoRestart);
}

void TrackingDlg::writeMarkerCalculation(bool on)
{
    if (!m_link.set("standard calculate_marker %s", yesOrNo(on)))
        m_link.log(QStringLiteral("Error: Unable to set the calculation of 3DOF markers"));
}

void TrackingDlg::writeAutoRestart(bool on)
{
    if (!m_link.set("tracking auto_restart %s", yesOrNo(on)))
        m_link.log(QStringLiteral("Error: Unable to set the automatic restart of the measurement"));
}

void TrackingDlg::setup_comboBox_5dofAxis()
{
    for (const NamedAxis &axis : namedAxes())
        comboBox_5dofAxis->addItem(QLatin1String(axis.name));
    comboBox_5dofAxis->setCurrentIndex(-1);
}

std::optional<TrackingDlg::Vector> TrackingDlg::centralAxis() const
{
    const auto answer = m_link.text("tracking axis_5dof_central");
    if (!answer)
        return std::nullopt;
    const QStringList fields = answer->split(QLatin1Char(' '));
    Vector vector{};
    for (int i = 0; i < int(vector.size()); ++i) {
        const double number = fields.value(i).toUtf8().toDouble();
        vector[i] = std::isfinite(number) ? number : 0.0;
    }
    return vector;
}

void TrackingDlg::update_comboBox_5dofAxis()
{
    if (!knowsCentralAxis())
        return;
    const auto vector = centralAxis();
    if (!vector) {
        m_link.log(QStringLiteral("Error: Unable to get values of the 5DOF central axis"));
        comboBox_5dofAxis->setCurrentIndex(-1);
        label_display5dof->clear();
        return;
    }
    for (int i = 0; i < int(namedAxes().size()); ++i) {
        if (namedAxes()[i].vector == *vector) {
            comboBox_5dofAxis->setCurrentIndex(i);
            label_display5dof->clear();
            return;
        }
    }
    const auto fixed = [](double number) { return QString::number(number, 'f', 3); };
    label_display5dof->setText(
            tr("x = %1 mm, y = %2 mm, z = %3 mm")
                    .arg(fixed((*vector)[0]), fixed((*vector)[1]), fixed((*vector)[2])));
}

void TrackingDlg::save5DofAxisCentralSettings()
{
    for (const NamedAxis &axis : namedAxes()) {
        if (comboBox_5dofAxis->currentText() != QLatin1String(axis.name))
            continue;
        const auto &[x, y, z] = axis.vector;
        if (!m_link.set("tracking axis_5dof_central %.3f %.3f %.3f", x, y, z))
            m_link.log(QStringLiteral("Error: Unable to set values of the 5DOF central axis"));
        return;
    }
}

void TrackingDlg::enable_pocketunit_widget(bool isPocketunit)
{
    setWindowTitle(tr("Single Markers"));
    checkBox_autoReStart->setVisible(!isPocketunit && m_show_auto_restart_mea_sync);
}

void TrackingDlg::check_pocketunit_default_settings()
{
    if (!knowsAutoRestart())
        return;
    bAutoRestart = isAutoRestartOn();
    if (!bAutoRestart && !m_link.set("tracking auto_restart yes"))
        m_link.log(QStringLiteral("Error: Unable to set the automatic restart of the measurement"));
}

bool TrackingDlg::any_body_fixed_angle() const
{
    if (!knowsFixedAngles())
        return false;
    const auto count = m_link.count("standard number_of_bodies");
    if (!count)
        m_link.log(QStringLiteral("Error: Unable to check number of standard bodies"));
    bool any = false;
    for (int number = 1; number <= count.value_or(0); ++number) {
        const auto answer = m_link.text("standard fixed_angle b%.2d", number);
        if (!answer)
            m_link.log(QStringLiteral("Error: Unable to check fixed angle of standard body"));
        const QStringList fields = answer.value_or(QString()).split(QLatin1Char(' '));
        for (const int flag : {0, 2, 4})
            any = any || fields.value(flag) == QLatin1String("yes");
    }
    return any;
}

void TrackingDlg::displayFixedAngleButton()
{
    m_fixed_angle = m_xml_fixed_angle || any_body_fixed_angle();
    show_fixed_angle_button(m_fixed_angle);
}

void TrackingDlg::show_fixed_angle_button(bool show)
{
    pushButton_advanced->setVisible(show);
    if (!show)
        return;
    if (!knowsFixedAngles())
        m_link.log(QStringLiteral("TrackingSettings: Old version of Zyrcam Controller"));
    pushButton_advanced->setEnabled(knowsFixedAngles() && !m_is_config_locked);
}

void TrackingDlg::on_pushButton_advanced_clicked()
{
    // Whoever deletes this dialog meanwhile deletes its child with it.
    const QPointer<FixedAngleDlg> dialog = new FixedAngleDlg(iom, this, beVers);
    dialog->update_and_exec();
    delete dialog.data();
}

void TrackingDlg::on_pushButton_ok_clicked()
{
    {
        const Waiting waiting(m_observer, Waiting::For::Action, tr("Writing the settings ..."));
        if (m_changed)
            saveSettings();
        if (m_bTrackingPulseSettingsHasChanged)
            sendInertialSettingsToAtc();
    }
    accept();
}

void TrackingDlg::on_pushButton_cancel_clicked()
{
    if (m_changed)
        writeOldSettings();
    reject();
}

void TrackingDlg::on_checkBox_force3d_stateChanged(int)
{
    markChanged();
}

void TrackingDlg::on_checkBox_autoReStart_stateChanged(int)
{
    markChanged();
}

void TrackingDlg::on_comboBox_5dofAxis_currentIndexChanged(const QString &)
{
    markChanged();
}

void TrackingDlg::markChanged()
{
    if (isVisible())
        m_changed = true;
}

void TrackingDlg::enableInertialControls()
{
    frame_trackingPulse->hide();
}

void TrackingDlg::activateInertialControls()
{
    const bool cameras = radioButton_cameraSynchronous->isChecked();
    const bool custom = radioButton_frequency->isChecked();
    const bool sensor = radioButton_inertialSensor->isChecked();
    doubleSpinBox_frequency->setEnabled(custom || (!cameras && !sensor));
    comboBox_inertialSensor->setEnabled(!cameras && !custom);
}

void TrackingDlg::update_radioButtonsInertial()
{
    if (!knowsPulse())
        return;
    const QScopedValueRollback<bool> filling(bUserAction, false);
    switch (TrackingPulse(m_link).source()) {
    case TrackingPulse::Source::Cameras:
        radioButton_cameraSynchronous->setChecked(true);
        break;
    case TrackingPulse::Source::InertialSensor:
        radioButton_inertialSensor->setChecked(true);
        break;
    case TrackingPulse::Source::Frequency:
        radioButton_frequency->setChecked(true);
        break;
    case TrackingPulse::Source::Unknown:
        break;
    }
}

void TrackingDlg::update_spinBox_frequency()
{
    if (!knowsPulse())
        return;
    constexpr double lowestHz = 10.0;
    constexpr double highestHz = 1000.0;
    const double frequencyHz = TrackingPulse(m_link).frequencyHz();
    const QScopedValueRollback<bool> filling(bUserAction, false);
    doubleSpinBox_frequency->setRange(lowestHz, highestHz);
    doubleSpinBox_frequency->setValue(frequencyHz);
}

void TrackingDlg::update_comboBox_inertialSensor()
{
    if (!knowsCentralAxis())
        return;
    const QScopedValueRollback<bool> filling(bUserAction, false);
    comboBox_inertialSensor->clear();
    const auto sensors = TrackingPulse(m_link).sensors();
    for (const TrackingPulse::Sensor &sensor : sensors)
        comboBox_inertialSensor->addItem(sensor.description, sensor.identifier);
    comboBox_inertialSensor->setEnabled(comboBox_inertialSensor->count() > 0);
}

void TrackingDlg::sendInertialSettingsToAtc()
{
    if (!knowsPulse()) {
        m_link.log(QStringLiteral("Error: Unable to set inertial tracking settings"));
        return;
    }
    const TrackingPulse pulse(m_link);
    if (radioButton_cameraSynchronous->isChecked())
        pulse.followCameras();
    else if (radioButton_inertialSensor->isChecked())
        pulse.followSensor(comboBox_inertialSensor->currentData().toString());
    else if (radioButton_frequency->isChecked())
        pulse.setFrequency(doubleSpinBox_frequency->value());
}

void TrackingDlg::on_radioButton_cameraSynchronous_toggled(bool)
{
    activateInertialControls();
    markPulseChanged();
}

void TrackingDlg::on_radioButton_frequency_toggled(bool)
{
    activateInertialControls();
    markPulseChanged();
}

void TrackingDlg::on_radioButton_inertialSensor_toggled(bool)
{
    activateInertialControls();
    markPulseChanged();
}

void TrackingDlg::on_doubleSpinBox_frequency_valueChanged(double)
{
    markPulseChanged();
}

void TrackingDlg::on_comboBox_inertialSensor_currentIndexChanged(int)
{
    markPulseChanged();
}

void TrackingDlg::markPulseChanged()
{
    if (bUserAction)
        m_bTrackingPulseSettingsHasChanged = true;
}

void TrackingDlg::loadSettingsFromXml()
{
    m_xml_fixed_angle = false;
    m_show_auto_restart_mea_sync = false;
    QString problem;
    const auto document = TrackingPreferences(sConfigDir).load(&problem);
    if (!problem.isEmpty())
        m_link.log(problem);
    if (!document)
        return;
    for (QDomNode child = document->documentElement().firstChild(); !child.isNull();
         child = child.nextSibling())
        readSettings(child.toElement());
}

void TrackingDlg::readSettings(const QDomElement &element)
{
    if (element.isNull()) {
        m_xml_fixed_angle = false;
    } else if (element.tagName() == QLatin1String("FIXED_ANGLE")) {
        m_xml_fixed_angle = element.attribute(QStringLiteral("VISIBLE"), QStringLiteral("false"))
                            == QLatin1String("true");
    } else if (element.tagName() == QLatin1String("AUTO_RESTART_MEA_AFTER_SYNC_LOST")) {
        m_show_auto_restart_mea_sync =
                element.attribute(QStringLiteral("HIDE"), QStringLiteral("true"))
                != QLatin1String("true");
    }
}

void TrackingDlg::saveSettingsToXml() const
{
    QString problem;
    if (!TrackingPreferences(sConfigDir)
                 .save(m_fixed_angle, m_show_auto_restart_mea_sync, &problem))
        m_link.log(problem);
}
