#pragma once

#include "ui_TrackingDialog.h"

#include "controllerlink.h"
#include "qtportability.h"

#include <QDialog>
#include <QIcon>

class BackendVersions;
class BodySettingsDlg;
class ConfigurationWatch;
class IOManager;
class LinkObserver;
class QDomElement;

/**
 * Single-marker settings: calculation of 3DOF markers, automatic restart, and the 5DOF central
 * axis.
 *
 * The dialog reads everything from the controller at each opening and writes it back on OK. Two
 * preferences decide which widgets it shows; it reads them when it is made and writes them when it
 * is destroyed. The plug-in object owns the dialog, and the host's objects outlive it.
 */
class TrackingDlg : public QDialog, private Ui::TrackingDialog {
    Q_OBJECT

public:
    /** `moduleVersion` selects the preferences file. */
    TrackingDlg(IOManager *iom, QWidget *parent, BackendVersions *beVers, QString moduleVersion);
    /** Writes the preferences file. */
    ~TrackingDlg() override;

    /** False below protocol 1.9 and when the query fails. */
    bool is_config_locked() const;

    /**
     * Writes the three single-marker settings. A refused one is logged, and the others are still
     * written.
     */
    void saveSettings();
    /** Writes back what was read at the opening, except the axis. */
    void writeOldSettings();
    /** Writes the chosen axis as a unit vector; writes nothing when no axis is selected. */
    void save5DofAxisCentralSettings();
    /** Fills in the axes to choose from. */
    void setup_comboBox_5dofAxis();
    /**
     * Selects the controller's axis. A vector that is none of the list is only shown in the label.
     * After a failure no axis is selected.
     */
    void update_comboBox_5dofAxis();

    /** Decides whether the automatic restart can be shown. */
    void enable_pocketunit_widget(bool isPocketunit);
    /** Switches automatic restart on, because a compact system always runs with it. */
    void check_pocketunit_default_settings();

    /** Shows or hides the button that opens the fixed angles. */
    void show_fixed_angle_button(bool show);
    /** True when any axis of any standard body is fixed; false when that cannot be read. */
    bool any_body_fixed_angle() const;
    /** Shows the button of the fixed angles when a preference or a body requires it. */
    void displayFixedAngleButton();

    /** Hides the tracking frequency. */
    void enableInertialControls();
    /** Enables the inputs of the chosen source of the tracking frequency. */
    void activateInertialControls();
    // Three reads for a program that shows the hidden section. The dialog does not call them.
    /** Reads the source of the tracking frequency; selects none when the source is unknown. */
    void update_radioButtonsInertial();
    /** Reads the tracking frequency, in Hz. */
    void update_spinBox_frequency();
    /** Lists the inertial sensors that bodies carry. */
    void update_comboBox_inertialSensor();
    /** Writes the source of the tracking frequency; a refused write is logged. */
    void sendInertialSettingsToAtc();

    /** Reads the preferences file. A file that cannot be used is logged, a missing file is not. */
    void loadSettingsFromXml();
    /** Writes the preferences file; a failure is logged. */
    void saveSettingsToXml() const;
    /** Applies one child of the preferences' root; ignores unknown elements. */
    void readSettings(const QDomElement &element);

public slots:
    /** Reads the controller and runs the dialog; only raises a dialog that is already visible. */
    int update_and_exec();

private slots:
    void on_checkBox_force3d_stateChanged(int state);
    void on_checkBox_autoReStart_stateChanged(int state);
    void on_radioButton_cameraSynchronous_toggled(bool checked);
    void on_radioButton_frequency_toggled(bool checked);
    void on_radioButton_inertialSensor_toggled(bool checked);
    void on_doubleSpinBox_frequency_valueChanged(double frequencyHz);
    void on_comboBox_inertialSensor_currentIndexChanged(int index);
    void on_pushButton_ok_clicked();
    void on_pushButton_cancel_clicked();
    void on_pushButton_advanced_clicked();

private:
    COMBO_TEXT_SLOT void on_comboBox_5dofAxis_currentIndexChanged(const QString &axis);
    bool readController();
    void applyConfigLock();
    void readMarkerCalculation();
    void readAutoRestart();
    void readAxis();
    void forceAutoRestart();
    void markChanged();
    void markPulseChanged();
    bool knowsAutoRestart() const { return m_link.protocolAtLeast(0, 14); }
    bool knowsCentralAxis() const { return m_link.protocolAtLeast(1, 12); }
    bool knowsFixedAngles() const { return m_link.protocolAtLeast(1, 6); }
    bool knowsPulse() const { return m_link.protocolAtLeast(1, 21); }

    IOManager *iom;
    BackendVersions *beVers;
    QWidget *m_parent;
    QString strProt;
    bool bCalculate3DofMarker = false; ///< as read at the opening
    bool bAutoStart = false;
    bool bAutoRestart = false; ///< as read at the opening
    bool m_show_auto_restart_mea_sync = false;
    QString sConfigDir;
    QString m_module_version;
    bool m_is_config_locked = false;
    QIcon m_icon_lock;
    bool m_changed = false;
    bool m_xml_fixed_angle = false;
    bool m_fixed_angle = false;
    BodySettingsDlg *m_body_setting_dialog = nullptr;
    bool bUserAction = true; ///< false while the dialog fills its own widgets
    bool m_bInertialAvailable = false;
    bool m_bTrackingPulseSettingsHasChanged = false;

    LinkObserver *m_observer;
    ControllerLink m_link;
    ConfigurationWatch *m_configuration; ///< changes since the last reading; owned as a child
    /// true while the dialog reads or carries out an OK or Cancel
    bool m_busy = false;
    // A value that could not be read at the opening is written only when the user has set it since.
    bool m_markerKnown = false;
    bool m_restartKnown = false;
    bool m_axisKnown = false;
    bool m_markerSet = false;
    bool m_restartSet = false;
    bool m_axisSet = false;
};
