#pragma once

#include "controllerlink.h"
#include "filterreader.h"
#include "limitedvalue.h"
#include "presetinfo.h"

#include <QDialog>
#include <QDoubleSpinBox>
#include <QList>
#include <QMap>
#include <QSpinBox>
#include <QString>

#include <memory>
#include <optional>

class LinkObserver;

namespace Ui {
class FilterDialog;
}

/**
 * Shows and sets the 6DOF filter of standard bodies or Joywand devices: on or off, preset,
 * strength, prediction and mode.
 *
 * Every change goes to the controller at once, and leaving the dialog restores nothing. The window
 * that opens the dialog makes it and deletes it afterwards; the host may delete it at any time. A
 * failed query or write puts one line into the message log, and the dialog goes on. When another
 * configuration becomes active while the dialog is open, the dialog reads its body again.
 */
class FilterDialog final : public QDialog {
    Q_OBJECT

public:
    /**
     * Reads presets, modes and limits. `iom` and `beVers` belong to the host and outlive the
     * dialog.
     */
    FilterDialog(IOManager *iom, QWidget *parent, BackendVersions *beVers);
    ~FilterDialog() override;

    /**
     * Reads the filter of the bodies and runs the dialog modally.
     *
     * @param bodyType  0 for standard bodies, 1 for Joywand devices; other types are not available
     * @param bodyIndex zero-based index of the only body to show; negative for all calibrated
     *   bodies of the type
     * @return the result of exec()
     */
    int update_and_exec(int bodyType, int bodyIndex);

    /** Enables or disables all editing widgets. A reason other than the lock is shown. */
    void enableDialog(bool enable, int bodyType);
    /** True when the controller answers that its configuration cannot be changed. */
    bool getConfigLocked() const;

    /**
     * Lists the bodies; the parameters are those of update_and_exec(). The first body becomes
     * current.
     */
    void update_comboBox_body(int bodyType, int bodyIndex);
    /** Reads whether the current body's filter is on. */
    void update_checkbox_active();
    /** Hides the check box for a body with a sensor, because its filter cannot be switched off. */
    void activate_checkbox_active(const QString &body);

    /** Reads the strength limits. */
    void setup_spinBox_strength();
    /** Reads the prediction limits, shown in whole milliseconds. */
    void setup_spinBox_prediction();
    /** Reads the current body's strength; shows 0 when it cannot be read. */
    void update_doubleSpinBox_strength();
    /**
     * Enables the strength for a custom preset only, and hides it for a hybrid preset, which has
     * none.
     */
    void activate_controls_strength();
    /** Reads the current body's prediction; shows 0 when it cannot be read. */
    void update_spinBox_prediction();

    /** Reads the presets that the controller offers; leaves out those that cannot be read. */
    void setup_combobox_preset_info();
    /** Lists the presets that `body` may use, out of those read by the constructor. */
    void fill_list_combobox_preset(const QString &body);
    /** Lists the presets for `body` with a controller that cannot answer which ones it may use. */
    void update_combobox_preset_list_01(const QString &body);
    /** Lists the presets that the controller offers for `body`. */
    void update_combobox_preset_list_02(const QString &body);
    /** Lists the presets of the current body and selects the body's preset. */
    void update_combobox_preset();

    /** Lists the modes that the controller offers; leaves out those that cannot be read. */
    void setup_comboBox_mode();
    /** Lists the modes that the controller offers for `body`. */
    void update_comboBox_mode_list_02(const QString &body);
    /** Lists the modes of the current body and selects the body's mode. */
    void update_comboBox_mode();

    /** Sends an unsent edit of a spin box, then closes the dialog. */
    void done(int result) override;

private slots:
    void on_comboBox_body_currentIndexChanged(int index);
    void on_checkBox_active_stateChanged(int state);
    void on_comboBox_preset_currentIndexChanged(int index);
    void on_doubleSpinBox_strength_editingFinished();
    void on_spinBox_prediction_editingFinished();
    void on_comboBox_mode_currentIndexChanged(int index);
    void on_pushButton_help_clicked();
    void on_pushButton_exit_clicked();

private:
    void readAgain();
    bool readFilter(const QString &preferredBody);
    bool isUserAction() const { return bUserAction && !m_outdated; }
    void clearBodies();
    void updateBody();
    void updatePresetValues();
    static QString shownName(const QString &type, const FilterReader::Body &body);
    void updateFilterValues();
    ControllerLink link() const { return m_link; }
    FilterReader reader() const;
    QString currentBody() const;
    QString currentPreset() const;
    bool isOwnPresetActive() const;

    std::unique_ptr<Ui::FilterDialog> ui;
    LinkObserver *m_observer;
    ControllerLink m_link;
    bool bUserAction = false; ///< false while the dialog fills its own widgets
    QMap<QString, bool> mapIsTargetInertial;
    QList<PresetInfo *> listPresets; ///< owned
    bool bIsConfigLocked = false;

    std::optional<LimitedValue<QDoubleSpinBox>> m_strength; ///< made with the form
    std::optional<LimitedValue<QSpinBox>> m_predictionMs;

    int m_bodyType = -1; ///< the parameters of update_and_exec()
    int m_bodyIndex = -1;
    /// true when another configuration has become active since the last reading
    bool m_outdated = false;
};
