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
 * Every change goes to the controller at once; leaving the dialog restores nothing. Made by the
 * window that opens it, which deletes it afterwards, and may be deleted at any time. A failed query
 * or write puts one line into the message log and the dialog goes on. When another configuration
 * becomes active while the dialog is open, it reads its body again.
 */
class FilterDialog final : public QDialog {
    Q_OBJECT

public:
    /** Reads presets, modes and limits. `iom` and `beVers` belong to the host and outlive this. */
    FilterDialog(IOManager *iom, QWidget *parent, BackendVersions *beVers);
    ~FilterDialog() override;

    /**
     * Reads the filter of the bodies and runs the dialog modally.
     *
     * @param bodyType  0 for standard bodies, 1 for Joywand devices; others are not available
     * @param bodyIndex zero-based body to show alone; negative for all calibrated bodies of the
     * type
     * @return the result of exec()
     */
    int update_and_exec(int bodyType, int bodyIndex);

    /** Enables or disables all editing widgets; the reason is shown unless the lock is the reason.
     */
    void enableDialog(bool enable, int bodyType);
    /** True when the controller says that its configuration cannot be changed. */
    bool getConfigLocked() const;

    /** Lists the bodies, as update_and_exec() takes them; the first one becomes current. */
    void update_comboBox_body(int bodyType, int bodyIndex);
    /** Reads whether the current body's filter is on. */
    void update_checkbox_active();
    /** Hides the check box for a body whose filter cannot be switched: one with a sensor. */
    void activate_checkbox_active(const QString &body);

    /** Reads the strength limits. */
    void setup_spinBox_strength();
    /** Reads the prediction limits, shown in whole milliseconds. */
    void setup_spinBox_prediction();
    /** Reads the current body's strength; 0 is shown when there is none to read. */
    void update_doubleSpinBox_strength();
    /** Lets the strength be edited for an own preset only; a hybrid preset has none to show. */
    void activate_controls_strength();
    /** Reads the current body's prediction; 0 is shown when there is none to read. */
    void update_spinBox_prediction();

    /** Reads the presets that the controller offers; the ones that cannot be read are left out. */
    void setup_combobox_preset_info();
    /** Lists the presets read at construction that `body` may use. */
    void fill_list_combobox_preset(const QString &body);
    /** Lists the presets for `body` on controllers that do not tell which ones it may use. */
    void update_combobox_preset_list_01(const QString &body);
    /** Lists the presets that the controller offers for `body`. */
    void update_combobox_preset_list_02(const QString &body);
    /** Lists the presets of the current body and selects the one it uses. */
    void update_combobox_preset();

    /** Lists the modes that the controller offers; the ones that cannot be read are left out. */
    void setup_comboBox_mode();
    /** Lists the modes that the controller offers for `body`. */
    void update_comboBox_mode_list_02(const QString &body);
    /** Lists the modes of the current body and selects the one it uses. */
    void update_comboBox_mode();

    /** Sends an edit that is still open in a spin box, then closes. */
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

    int m_bodyType = -1; ///< as update_and_exec() got them
    int m_bodyIndex = -1;
    bool m_outdated = false; ///< another configuration became active since the last reading
};
