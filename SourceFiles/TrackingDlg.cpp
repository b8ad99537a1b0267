#include "TrackingDlg.h"

#include "configurationwatch.h"
#include "fixedangledlg.h"
#include "linkobserver.h"
#include "scopedflag.h"
#include "settings/fixedangles.h"
#include "settings/markersettings.h"
#include "settings/trackingpreferences.h"
#include "settings/trackingpulse.h"
#include "support/configurationquestion.h"
#include "waiting.h"
#include "wheelguard.h"

#include <QDomElement>
#include <QLayout>
#include <QPointer>

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
      m_link(iom, beVers, m_observer),
      m_configuration(new ConfigurationWatch(iom, this))
{
    setupUi(this);
    connectComboText(comboBox_5dofAxis, this,
                     &TrackingDlg::on_comboBox_5dofAxis_currentIndexChanged);
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
    m_link.close();
}

int TrackingDlg::update_and_exec()
{
    // Reading again would discard the user's unsaved changes.
    if (isVisible()) {
        raise();
        activateWindow();
        return Rejected;
    }
    // A host may trigger the menu entry while the dialog waits for an answer.
    if (m_busy || !readController())
        return Rejected;
    m_changed = false;
    return exec();
}

/** False when the dialog was deleted meanwhile. */
bool TrackingDlg::readController()
{
    const QPointer<TrackingDlg> self(this);
    const Waiting waiting(m_observer, Waiting::For::Refresh, tr("Reading the settings ..."));
    const ScopedFlag reading(this, &m_busy, true);
    const ScopedFlag filling(this, &bUserAction, false);
    m_configuration->restart();
    m_markerSet = false;
    m_restartSet = false;
    m_axisSet = false;
    for (const auto step : {&TrackingDlg::applyConfigLock, &TrackingDlg::displayFixedAngleButton,
                            &TrackingDlg::forceAutoRestart, &TrackingDlg::readMarkerCalculation,
                            &TrackingDlg::readAutoRestart, &TrackingDlg::readAxis,
                            &TrackingDlg::enableInertialControls}) {
        (this->*step)();
        if (!self)
            return false;
    }
    return true;
}

void TrackingDlg::applyConfigLock()
{
    const QPointer<TrackingDlg> self(this);
    const bool locked = is_config_locked();
    if (!self)
        return;
    m_is_config_locked = locked;
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

/** A user to whom the choice is not offered always works with automatic restart. */
void TrackingDlg::forceAutoRestart()
{
    if (m_show_auto_restart_mea_sync)
        return;
    const QPointer<TrackingDlg> self(this);
    if (knowsAutoRestart() && !m_is_config_locked)
        MarkerSettings(m_link).setAutoRestart(true);
    if (self)
        checkBox_autoReStart->hide();
}

void TrackingDlg::readMarkerCalculation()
{
    const QPointer<TrackingDlg> self(this);
    const auto calculated = MarkerSettings(m_link).isMarkerCalculated();
    if (!self)
        return;
    m_markerKnown = calculated.has_value();
    bCalculate3DofMarker = calculated.value_or(false);
    checkBox_force3d->setChecked(bCalculate3DofMarker);
}

void TrackingDlg::readAutoRestart()
{
    if (!knowsAutoRestart()) {
        checkBox_autoReStart->setEnabled(false);
        return;
    }
    checkBox_autoReStart->setEnabled(!m_is_config_locked);
    const QPointer<TrackingDlg> self(this);
    const auto restarts = MarkerSettings(m_link).restartsAutomatically();
    if (!self)
        return;
    m_restartKnown = restarts.has_value();
    bAutoRestart = restarts.value_or(false);
    checkBox_autoReStart->setChecked(bAutoRestart);
}

void TrackingDlg::readAxis()
{
    const QPointer<TrackingDlg> self(this);
    const bool known = knowsCentralAxis();
    if (known)
        update_comboBox_5dofAxis();
    if (!self)
        return;
    const bool editable = known && !m_is_config_locked;
    label_setAxis5dof->setEnabled(editable);
    comboBox_5dofAxis->setEnabled(editable);
}

bool TrackingDlg::is_config_locked() const
{
    const ControllerLink link = m_link;
    return link.isConfigLocked();
}

void TrackingDlg::saveSettings()
{
    const QPointer<TrackingDlg> self(this);
    const MarkerSettings settings(m_link);
    if (m_markerKnown || m_markerSet)
        settings.setMarkerCalculation(checkBox_force3d->isChecked());
    if (self && knowsAutoRestart() && (m_restartKnown || m_restartSet))
        settings.setAutoRestart(checkBox_autoReStart->isChecked());
    if (self && (m_axisKnown || m_axisSet))
        save5DofAxisCentralSettings();
}

void TrackingDlg::writeOldSettings()
{
    const QPointer<TrackingDlg> self(this);
    const MarkerSettings settings(m_link);
    if (m_markerKnown || m_markerSet)
        settings.setMarkerCalculation(bCalculate3DofMarker);
    if (self && knowsAutoRestart() && (m_restartKnown || m_restartSet))
        settings.setAutoRestart(bAutoRestart);
}

void TrackingDlg::setup_comboBox_5dofAxis()
{
    for (const MarkerSettings::NamedAxis &axis : MarkerSettings::namedAxes())
        comboBox_5dofAxis->addItem(QLatin1String(axis.name));
    comboBox_5dofAxis->setCurrentIndex(-1);
}

void TrackingDlg::update_comboBox_5dofAxis()
{
    if (!knowsCentralAxis())
        return;
    const QPointer<TrackingDlg> self(this);
    const auto axis = MarkerSettings(m_link).centralAxis();
    if (!self)
        return;
    m_axisKnown = axis && axis->isWhole;
    if (!axis) {
        comboBox_5dofAxis->setCurrentIndex(-1);
        label_display5dof->clear();
        return;
    }
    const auto &named = MarkerSettings::namedAxes();
    for (int i = 0; i < int(named.size()); ++i) {
        if (named[i].vector == axis->vector) {
            comboBox_5dofAxis->setCurrentIndex(i);
            label_display5dof->clear();
            return;
        }
    }
    const auto fixed = [&axis](int i) { return QString::number(axis->vector[i], 'f', 3); };
    label_display5dof->setText(
            tr("x = %1 mm, y = %2 mm, z = %3 mm").arg(fixed(0), fixed(1), fixed(2)));
}

void TrackingDlg::save5DofAxisCentralSettings()
{
    for (const MarkerSettings::NamedAxis &axis : MarkerSettings::namedAxes()) {
        if (comboBox_5dofAxis->currentText() != QLatin1String(axis.name))
            continue;
        MarkerSettings(m_link).setCentralAxis(axis.vector);
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
    const MarkerSettings settings(m_link);
    bAutoRestart = settings.restartsAutomatically().value_or(false);
    if (!bAutoRestart)
        settings.setAutoRestart(true);
}

bool TrackingDlg::any_body_fixed_angle() const
{
    return knowsFixedAngles() && FixedAngles(m_link, this).isAnyFixed();
}

void TrackingDlg::displayFixedAngleButton()
{
    const QPointer<TrackingDlg> self(this);
    const bool shown = m_xml_fixed_angle || any_body_fixed_angle();
    if (!self)
        return;
    m_fixed_angle = shown;
    show_fixed_angle_button(shown);
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
    // Code that deletes this dialog meanwhile also deletes its child.
    const QPointer<FixedAngleDlg> dialog = new FixedAngleDlg(iom, this, beVers);
    dialog->update_and_exec();
    delete dialog.data();
}

void TrackingDlg::on_pushButton_ok_clicked()
{
    // A host may run its event loop inside an operation, in which another click must not start a
    // second OK.
    if (m_busy)
        return;
    const QPointer<TrackingDlg> self(this);
    const ScopedFlag writing(this, &m_busy, true);
    const bool writes = m_changed || m_bTrackingPulseSettingsHasChanged;
    if (writes && !mayStillWrite(m_configuration, this))
        return;
    {
        const Waiting waiting(m_observer, Waiting::For::Action, tr("Writing the settings ..."));
        if (m_changed)
            saveSettings();
        if (self && m_bTrackingPulseSettingsHasChanged)
            sendInertialSettingsToAtc();
    }
    if (self)
        accept();
}

void TrackingDlg::on_pushButton_cancel_clicked()
{
    if (m_busy)
        return;
    const QPointer<TrackingDlg> self(this);
    const ScopedFlag writing(this, &m_busy, true);
    // The values read belong to a configuration that is no longer active.
    if (m_changed && !m_configuration->hasChanged())
        writeOldSettings();
    if (self)
        reject();
}

void TrackingDlg::on_checkBox_force3d_stateChanged(int)
{
    m_markerSet = isVisible();
    markChanged();
}

void TrackingDlg::on_checkBox_autoReStart_stateChanged(int)
{
    m_restartSet = isVisible();
    markChanged();
}

void TrackingDlg::on_comboBox_5dofAxis_currentIndexChanged(const QString &)
{
    m_axisSet = isVisible();
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
    const ScopedFlag filling(this, &bUserAction, false);
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
    const ScopedFlag filling(this, &bUserAction, false);
    doubleSpinBox_frequency->setRange(lowestHz, highestHz);
    doubleSpinBox_frequency->setValue(frequencyHz);
}

void TrackingDlg::update_comboBox_inertialSensor()
{
    if (!knowsCentralAxis())
        return;
    const ScopedFlag filling(this, &bUserAction, false);
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
