#include "filterdialog.h"

#include "ui_filterdialog.h"

#include "bodynumber.h"
#include "filterhelp.h"
#include "filterreader.h"
#include "linkobserver.h"
#include "waiting.h"
#include "wheelguard.h"

#include <QScopedValueRollback>

namespace {

constexpr int standardType = 0;
constexpr int joywandType = 1;
constexpr double millisecondsPerSecond = 1000.0;

/** The controller's word for a body type; empty for a type without filter. */
QString typeWord(int bodyType)
{
    if (bodyType == standardType)
        return QStringLiteral("standard");
    return bodyType == joywandType ? QStringLiteral("joywand") : QString();
}

int indexOf(const QComboBox *box, const std::optional<QString> &id)
{
    return id ? box->findData(*id, Qt::UserRole, Qt::MatchExactly | Qt::MatchCaseSensitive) : -1;
}

} // namespace

FilterDialog::FilterDialog(IOManager *iom, QWidget *parent, BackendVersions *beVers)
    : QDialog(parent),
      ui(std::make_unique<Ui::FilterDialog>()),
      iom(iom),
      beVers(beVers),
      m_observer(new LinkObserver(this))
{
    const Waiting waiting(m_observer, Waiting::For::Refresh, tr("Reading the filter ..."));
    ui->setupUi(this);
    WheelGuard::protect(this);
    ui->messageLine->follow(m_observer);
    if (parent)
        setWindowIcon(parent->windowIcon());
    setup_combobox_preset_info();
    setup_spinBox_strength();
    setup_spinBox_prediction();
    setup_comboBox_mode();
}

FilterDialog::~FilterDialog()
{
    qDeleteAll(listPresets);
}

int FilterDialog::update_and_exec(int bodyType, int bodyIndex)
{
    prepare(bodyType, bodyIndex);
    return exec();
}

void FilterDialog::prepare(int bodyType, int bodyIndex)
{
    const Waiting waiting(m_observer, Waiting::For::Refresh, tr("Reading the filter ..."));
    bUserAction = false;
    const QString type = typeWord(bodyType);
    const bool available = !type.isEmpty() && reader().isAvailable(type);
    bIsConfigLocked = getConfigLocked();
    if (!available || bIsConfigLocked) {
        clearBodies();
        enableDialog(false, bodyType);
        return;
    }
    enableDialog(true, standardType);
    update_comboBox_body(bodyType, bodyIndex);
    update_checkbox_active();
    updateFilterValues();
    bUserAction = true;
}

void FilterDialog::clearBodies()
{
    // A dialog that opens for the first time shows no body yet, so there is nothing to clear.
    if (ui->comboBox_body->count() == 0)
        return;
    mapIsTargetInertial.clear();
    ui->comboBox_body->clear();
    update_checkbox_active();
    updateFilterValues();
}

bool FilterDialog::getConfigLocked() const
{
    return link().isConfigLocked();
}

void FilterDialog::enableDialog(bool enable, int bodyType)
{
    QWidget *const editing[] = {ui->label_body,
                                ui->comboBox_body,
                                ui->checkBox_active,
                                ui->label_preset,
                                ui->comboBox_preset,
                                ui->label_strength,
                                ui->doubleSpinBox_strength,
                                ui->label_prediction,
                                ui->spinBox_prediction,
                                ui->label_mode,
                                ui->comboBox_mode};
    for (QWidget *widget : editing)
        widget->setEnabled(enable);
    if (enable) {
        ui->label_error->clear();
        return;
    }
    if (bIsConfigLocked)
        return;
    QString reason;
    if (bodyType == standardType)
        reason = tr("<b><font color=red>6DOF filter for standard bodies not available</font></b>");
    else if (bodyType == joywandType)
        reason = tr("<b><font color=red>6DOF filter for joywands not available</font></b>");
    else
        reason = tr("<b><font color=red>6DOF filter not available</font></b>");
    ui->label_error->setText(reason);
}

void FilterDialog::update_comboBox_body(int bodyType, int bodyIndex)
{
    const QScopedValueRollback<bool> filling(bUserAction, false);
    mapIsTargetInertial.clear();
    ui->comboBox_body->clear();
    const QString type = typeWord(bodyType);
    if (type.isEmpty())
        return;
    if (bodyIndex >= 0) {
        addBody(type, bodyIndex);
        return;
    }
    const int count = reader().countOf(type);
    for (int index = 0; index < count; ++index) {
        if (reader().isCalibrated(identifier(type, index)))
            addBody(type, index);
    }
}

QString FilterDialog::identifier(const QString &type, int index)
{
    return QStringLiteral("%1 b%2").arg(type, bodyNumber(index));
}

void FilterDialog::addBody(const QString &type, int index)
{
    const QString body = identifier(type, index);
    if (type == QLatin1String("joywand")) {
        mapIsTargetInertial.insert(body, false);
        ui->comboBox_body->addItem(tr("Joywand body %1").arg(bodyNumber(index)), body);
        return;
    }
    mapIsTargetInertial.insert(body, reader().hasSensor(body));
    const QString description = reader().description(body);
    QString shown = tr("standard body %1").arg(bodyNumber(index));
    if (!description.isEmpty())
        shown += QStringLiteral(" (%1)").arg(description);
    ui->comboBox_body->addItem(shown, body);
}

void FilterDialog::update_checkbox_active()
{
    const QScopedValueRollback<bool> filling(bUserAction, false);
    const QString body = currentBody();
    if (body.isEmpty()) {
        ui->checkBox_active->setChecked(false);
        return;
    }
    ui->checkBox_active->setChecked(reader().isEnabled(body));
    activate_checkbox_active(body);
}

void FilterDialog::activate_checkbox_active(const QString &body)
{
    const bool canHaveSensor = link().protocolAtLeast(1, 12);
    ui->checkBox_active->setVisible(!canHaveSensor || !reader().hasSensor(body));
}

void FilterDialog::updateFilterValues()
{
    update_combobox_preset();
    update_doubleSpinBox_strength();
    update_spinBox_prediction();
    update_comboBox_mode();
}

void FilterDialog::setup_spinBox_strength()
{
    const auto limits = reader().strengthLimits();
    m_strengthMin = limits.lowest;
    m_strengthMax = limits.highest;
    ui->doubleSpinBox_strength->setRange(m_strengthMin, m_strengthMax);
}

void FilterDialog::setup_spinBox_prediction()
{
    const auto limits = reader().predictionLimits();
    m_predictionMinMs = limits.lowest;
    m_predictionMaxMs = limits.highest;
    ui->spinBox_prediction->setRange(m_predictionMinMs, m_predictionMaxMs);
}

void FilterDialog::update_doubleSpinBox_strength()
{
    const QString body = currentBody();
    showStrength(body.isEmpty() ? std::nullopt : reader().strength(body));
    activate_controls_strength();
}

void FilterDialog::showStrength(std::optional<double> strength)
{
    const QScopedValueRollback<bool> filling(bUserAction, false);
    // The limits may leave out the 0 that stands for an unknown value.
    ui->doubleSpinBox_strength->setRange(strength ? m_strengthMin : qMin(m_strengthMin, 0.0),
                                         strength ? m_strengthMax : qMax(m_strengthMax, 0.0));
    ui->doubleSpinBox_strength->setValue(strength.value_or(0.0));
    m_knownStrength = ui->doubleSpinBox_strength->value();
}

void FilterDialog::activate_controls_strength()
{
    const bool hybrid = currentPreset().contains(QLatin1String("hybrid"));
    ui->doubleSpinBox_strength->setEnabled(isOwnPresetActive() && !hybrid);
    ui->label_strength->setVisible(!hybrid);
    ui->doubleSpinBox_strength->setVisible(!hybrid);
}

void FilterDialog::update_spinBox_prediction()
{
    const QString body = currentBody();
    showPrediction(body.isEmpty() ? std::nullopt : reader().predictionMs(body));
    ui->spinBox_prediction->setEnabled(isOwnPresetActive());
}

void FilterDialog::showPrediction(std::optional<int> predictionMs)
{
    const QScopedValueRollback<bool> filling(bUserAction, false);
    // The limits may leave out the 0 that stands for an unknown value.
    ui->spinBox_prediction->setRange(predictionMs ? m_predictionMinMs : qMin(m_predictionMinMs, 0),
                                     predictionMs ? m_predictionMaxMs : qMax(m_predictionMaxMs, 0));
    ui->spinBox_prediction->setValue(predictionMs.value_or(0));
    m_knownPredictionMs = ui->spinBox_prediction->value();
}

void FilterDialog::setup_combobox_preset_info()
{
    const auto presets = reader().presets();
    for (const FilterReader::Choice &preset : presets) {
        const bool forInertial = preset.id == QLatin1String("preset6d_default")
                                 || preset.id == QLatin1String("preset6d_med_pred");
        listPresets.append(new PresetInfo{preset.id, preset.description, forInertial});
    }
}

void FilterDialog::fill_list_combobox_preset(const QString &body)
{
    const QScopedValueRollback<bool> filling(bUserAction, false);
    ui->comboBox_preset->clear();
    const bool inertial = mapIsTargetInertial.value(body, false);
    for (const PresetInfo *preset : qAsConst(listPresets)) {
        if (!inertial || preset->bIsAvailableForInertial)
            ui->comboBox_preset->addItem(preset->sPresetDesc, preset->sPresetId);
    }
}

void FilterDialog::update_combobox_preset_list_01(const QString &body)
{
    fill_list_combobox_preset(body);
}

void FilterDialog::update_combobox_preset_list_02(const QString &body)
{
    const QScopedValueRollback<bool> filling(bUserAction, false);
    ui->comboBox_preset->clear();
    const auto presets = reader().presetsOf(body);
    for (const FilterReader::Choice &preset : presets)
        ui->comboBox_preset->addItem(preset.description, preset.id);
}

void FilterDialog::update_combobox_preset()
{
    const QScopedValueRollback<bool> filling(bUserAction, false);
    const QString body = currentBody();
    std::optional<QString> preset;
    if (!body.isEmpty()) {
        if (link().protocolAtLeast(1, 21))
            update_combobox_preset_list_02(body);
        else
            update_combobox_preset_list_01(body);
        preset = reader().preset(body);
    }
    ui->comboBox_preset->setCurrentIndex(indexOf(ui->comboBox_preset, preset));
    ui->comboBox_preset->setEnabled(ui->checkBox_active->isChecked());
}

void FilterDialog::setup_comboBox_mode()
{
    showModes(reader().modes());
    ui->comboBox_mode->setCurrentIndex(-1);
}

void FilterDialog::update_comboBox_mode_list_02(const QString &body)
{
    showModes(reader().modesOf(body));
}

void FilterDialog::showModes(const QVector<FilterReader::Choice> &modes)
{
    const QScopedValueRollback<bool> filling(bUserAction, false);
    ui->comboBox_mode->clear();
    for (const FilterReader::Choice &mode : modes)
        ui->comboBox_mode->addItem(mode.description, mode.id);
}

void FilterDialog::update_comboBox_mode()
{
    const QScopedValueRollback<bool> filling(bUserAction, false);
    const QString body = currentBody();
    std::optional<QString> mode;
    if (!body.isEmpty()) {
        if (link().protocolAtLeast(1, 21))
            update_comboBox_mode_list_02(body);
        mode = reader().mode(body);
    }
    ui->comboBox_mode->setCurrentIndex(indexOf(ui->comboBox_mode, mode));
    ui->comboBox_mode->setEnabled(isOwnPresetActive());
}

void FilterDialog::done(int result)
{
    if (bUserAction) {
        const Waiting waiting(m_observer, Waiting::For::Action, tr("Writing the filter ..."));
        // Closing by key or button need not take the focus away first.
        ui->doubleSpinBox_strength->interpretText();
        on_doubleSpinBox_strength_editingFinished();
        ui->spinBox_prediction->interpretText();
        on_spinBox_prediction_editingFinished();
    }
    QDialog::done(result);
}

void FilterDialog::on_comboBox_body_currentIndexChanged(int)
{
    if (!bUserAction)
        return;
    const Waiting waiting(m_observer, Waiting::For::Refresh, tr("Reading the filter ..."));
    update_checkbox_active();
    updateFilterValues();
}

void FilterDialog::on_checkBox_active_stateChanged(int state)
{
    if (!bUserAction)
        return;
    const QString body = currentBody();
    if (body.isEmpty()) {
        update_checkbox_active();
        return;
    }
    const Waiting waiting(m_observer, Waiting::For::Action, tr("Writing the filter ..."));
    if (!link().set("body filter6d_enabled %s %s", ControllerLink::argument(body).constData(),
                    state == Qt::Checked ? "yes" : "no"))
        link().log(QStringLiteral("Error: Unable to activate/deactivate filter 6d for body %1")
                           .arg(body));
    updateFilterValues();
}

void FilterDialog::on_comboBox_preset_currentIndexChanged(int index)
{
    const QString body = currentBody();
    if (!bUserAction || index < 0 || body.isEmpty())
        return;
    const QString preset = ui->comboBox_preset->itemData(index).toString();
    const Waiting waiting(m_observer, Waiting::For::Action, tr("Writing the filter ..."));
    if (!link().set("body filter6d_preset %s %s", ControllerLink::argument(body).constData(),
                    ControllerLink::argument(preset).constData()))
        link().log(QStringLiteral("Error: Unable to set filter 6d preset for body %1").arg(body));
    update_doubleSpinBox_strength();
    update_spinBox_prediction();
    update_comboBox_mode();
}

void FilterDialog::on_doubleSpinBox_strength_editingFinished()
{
    const QString body = currentBody();
    // Leaving the box, too, ends editing; what the controller knows already is not sent again.
    if (!bUserAction || body.isEmpty() || ui->doubleSpinBox_strength->value() == m_knownStrength)
        return;
    // An unknown value was shown beyond the limits; what is sent lies within them.
    showStrength(ui->doubleSpinBox_strength->value());
    if (!link().set("body filter6d_strength %s %f", ControllerLink::argument(body).constData(),
                    m_knownStrength))
        link().log(QStringLiteral("Error: Unable to set filter 6d strength for body %1").arg(body));
}

void FilterDialog::on_spinBox_prediction_editingFinished()
{
    const QString body = currentBody();
    if (!bUserAction || body.isEmpty() || ui->spinBox_prediction->value() == m_knownPredictionMs)
        return;
    showPrediction(ui->spinBox_prediction->value());
    if (!link().set("body filter6d_prediction %s %f", ControllerLink::argument(body).constData(),
                    m_knownPredictionMs / millisecondsPerSecond))
        link().log(
                QStringLiteral("Error: Unable to set filter 6d prediction for body %1").arg(body));
}

void FilterDialog::on_comboBox_mode_currentIndexChanged(int index)
{
    const QString body = currentBody();
    if (!bUserAction || index < 0 || body.isEmpty())
        return;
    const QString mode = ui->comboBox_mode->itemData(index).toString();
    if (!link().set("body filter6d_mode %s %s", ControllerLink::argument(body).constData(),
                    ControllerLink::argument(mode).constData()))
        link().log(QStringLiteral("Error: Unable to set filter 6d mode for body %1").arg(body));
}

void FilterDialog::on_pushButton_help_clicked()
{
    FilterHelp help;
    connect(this, &QObject::destroyed, &help, &QDialog::reject);
    help.exec();
}

void FilterDialog::on_pushButton_exit_clicked()
{
    close();
}

ControllerLink FilterDialog::link() const
{
    return ControllerLink(iom, beVers, m_observer);
}

FilterReader FilterDialog::reader() const
{
    return FilterReader(link());
}

QString FilterDialog::currentBody() const
{
    return ui->comboBox_body->currentData().toString();
}

QString FilterDialog::currentPreset() const
{
    return ui->comboBox_preset->currentData().toString();
}

bool FilterDialog::isOwnPresetActive() const
{
    return ui->checkBox_active->isChecked() && FilterReader::isCustomPreset(currentPreset());
}
