#include "filterdialog.h"

#include "ui_filterdialog.h"

#include "bodynumber.h"
#include "configurationwatch.h"
#include "filtercommands.h"
#include "filterhelp.h"
#include "filterreader.h"
#include "hostcall.h"
#include "lateparent.h"
#include "linkobserver.h"
#include "plaintext.h"
#include "scopedflag.h"
#include "waiting.h"
#include "wheelguard.h"

#include <QPointer>

namespace {

constexpr int standardType = 0;
constexpr int joywandType = 1;

/** The controller's word for a body type; empty for a type without a filter. */
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

void showChoices(QComboBox *box, const QVector<FilterReader::Choice> &choices)
{
    box->clear();
    for (const FilterReader::Choice &choice : choices)
        box->addItem(choice.description, choice.id);
}

} // namespace

FilterDialog::FilterDialog(IOManager *iom, QWidget *parent, BackendVersions *beVers)
    : ui(std::make_unique<Ui::FilterDialog>()),
      m_observer(new LinkObserver(this)),
      m_link(iom, beVers, m_observer)
{
    const Waiting waiting(m_observer, Waiting::For::Refresh, tr("Reading the filter ..."));
    const LateParent late(parent, m_link);
    ui->setupUi(this);
    m_strength.emplace(ui->doubleSpinBox_strength);
    m_predictionMs.emplace(ui->spinBox_prediction);
    WheelGuard::protect(this);
    ui->messageLine->follow(m_observer);
    auto *watch = new ConfigurationWatch(iom, this);
    // The dialog shows values of the previous configuration, so that it must not send any of them.
    connect(watch, &ConfigurationWatch::changed, this, [this] { m_outdated = true; });
    // Queued, because the message may come while an operation waits for its answer.
    connect(watch, &ConfigurationWatch::changed, this, &FilterDialog::readAgain,
            Qt::QueuedConnection);
    setup_combobox_preset_info();
    setup_spinBox_strength();
    setup_spinBox_prediction();
    setup_comboBox_mode();
    late.adopt(this);
}

FilterDialog::~FilterDialog()
{
    m_link.close();
    HostCall::keepWidgetsOf(this);
    qDeleteAll(listPresets);
}

int FilterDialog::update_and_exec(int bodyType, int bodyIndex)
{
    m_bodyType = bodyType;
    m_bodyIndex = bodyIndex;
    // The host may have deleted the parent; a dialog without it is not shown.
    return readFilter(QString()) && !m_link.isClosed() ? exec() : int(Rejected);
}

void FilterDialog::readAgain()
{
    if (isVisible() && m_outdated)
        readFilter(currentBody());
}

bool FilterDialog::readFilter(const QString &preferredBody)
{
    const QPointer<FilterDialog> self(this);
    const Waiting waiting(m_observer, Waiting::For::Refresh, tr("Reading the filter ..."));
    bUserAction = false;
    m_outdated = false;
    const QString type = typeWord(m_bodyType);
    const bool available = !type.isEmpty() && reader().isAvailable(type);
    if (!self)
        return false;
    const bool locked = getConfigLocked();
    if (!self)
        return false;
    bIsConfigLocked = locked;
    if (!available || locked) {
        clearBodies();
        enableDialog(false, m_bodyType);
        return true;
    }
    enableDialog(true, standardType);
    update_comboBox_body(m_bodyType, m_bodyIndex);
    if (!self)
        return false;
    const int preferred = ui->comboBox_body->findData(preferredBody);
    if (preferred >= 0)
        ui->comboBox_body->setCurrentIndex(preferred);
    updateBody();
    if (!self)
        return false;
    bUserAction = true;
    return true;
}

void FilterDialog::clearBodies()
{
    // A dialog that opens for the first time shows no body, so that there is nothing to clear.
    if (ui->comboBox_body->count() == 0)
        return;
    mapIsTargetInertial.clear();
    ui->comboBox_body->clear();
    updateBody();
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
    const ScopedFlag filling(this, &bUserAction, false);
    mapIsTargetInertial.clear();
    ui->comboBox_body->clear();
    const QString type = typeWord(bodyType);
    if (type.isEmpty())
        return;
    const QPointer<FilterDialog> self(this);
    const auto bodies = reader().bodies(type, bodyIndex);
    if (!self)
        return;
    for (const FilterReader::Body &body : bodies) {
        mapIsTargetInertial.insert(body.identifier, body.hasSensor);
        const QString name = shownName(type, body);
        ui->comboBox_body->addItem(name, body.identifier);
        // The box cuts a long name, so that the tool tip shows it.
        ui->comboBox_body->setItemData(ui->comboBox_body->count() - 1, PlainText::toolTip(name),
                                       Qt::ToolTipRole);
    }
}

QString FilterDialog::shownName(const QString &type, const FilterReader::Body &body)
{
    const QString number = bodyNumber(body.index);
    if (type == QLatin1String("joywand"))
        return tr("Joywand body %1").arg(number);
    const QString name = tr("standard body %1").arg(number);
    return body.description.isEmpty() ? name
                                      : QStringLiteral("%1 (%2)").arg(name, body.description);
}

void FilterDialog::update_checkbox_active()
{
    const ScopedFlag filling(this, &bUserAction, false);
    const QString body = currentBody();
    if (body.isEmpty()) {
        ui->checkBox_active->setChecked(false);
        return;
    }
    const QPointer<FilterDialog> self(this);
    const bool enabled = reader().isEnabled(body);
    if (!self)
        return;
    ui->checkBox_active->setChecked(enabled);
    activate_checkbox_active(body);
}

void FilterDialog::activate_checkbox_active(const QString &body)
{
    const QPointer<FilterDialog> self(this);
    const bool switchable = !link().protocolAtLeast(1, 12) || !reader().hasSensor(body);
    if (self)
        ui->checkBox_active->setVisible(switchable);
}

void FilterDialog::updateBody()
{
    ui->comboBox_body->setToolTip(ui->comboBox_body->currentData(Qt::ToolTipRole).toString());
    const QPointer<FilterDialog> self(this);
    update_checkbox_active();
    if (self)
        updateFilterValues();
}

void FilterDialog::updateFilterValues()
{
    const QPointer<FilterDialog> self(this);
    update_combobox_preset();
    if (self)
        updatePresetValues();
}

void FilterDialog::updatePresetValues()
{
    const QPointer<FilterDialog> self(this);
    update_doubleSpinBox_strength();
    if (self)
        update_spinBox_prediction();
    if (self)
        update_comboBox_mode();
}

void FilterDialog::setup_spinBox_strength()
{
    const auto limits = reader().strengthLimits();
    m_strength->setLimits(limits.lowest, limits.highest);
}

void FilterDialog::setup_spinBox_prediction()
{
    const auto limits = reader().predictionLimits();
    m_predictionMs->setLimits(limits.lowest, limits.highest);
}

void FilterDialog::update_doubleSpinBox_strength()
{
    const QString body = currentBody();
    const QPointer<FilterDialog> self(this);
    const auto strength = body.isEmpty() ? std::nullopt : reader().strength(body);
    if (!self)
        return;
    m_strength->show(strength);
    activate_controls_strength();
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
    const QPointer<FilterDialog> self(this);
    const auto predictionMs = body.isEmpty() ? std::nullopt : reader().predictionMs(body);
    if (!self)
        return;
    m_predictionMs->show(predictionMs);
    ui->spinBox_prediction->setEnabled(isOwnPresetActive());
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
    const ScopedFlag filling(this, &bUserAction, false);
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
    const QPointer<FilterDialog> self(this);
    const ScopedFlag filling(this, &bUserAction, false);
    const auto presets = reader().presetsOf(body);
    if (self)
        showChoices(ui->comboBox_preset, presets);
}

void FilterDialog::update_combobox_preset()
{
    const ScopedFlag filling(this, &bUserAction, false);
    const QString body = currentBody();
    const QPointer<FilterDialog> self(this);
    std::optional<QString> preset;
    if (!body.isEmpty()) {
        if (link().protocolAtLeast(1, 21))
            update_combobox_preset_list_02(body);
        else
            update_combobox_preset_list_01(body);
        if (self)
            preset = reader().preset(body);
    }
    if (!self)
        return;
    ui->comboBox_preset->setCurrentIndex(indexOf(ui->comboBox_preset, preset));
    ui->comboBox_preset->setEnabled(ui->checkBox_active->isChecked());
}

void FilterDialog::setup_comboBox_mode()
{
    const ScopedFlag filling(this, &bUserAction, false);
    showChoices(ui->comboBox_mode, reader().modes());
    ui->comboBox_mode->setCurrentIndex(-1);
}

void FilterDialog::update_comboBox_mode_list_02(const QString &body)
{
    const QPointer<FilterDialog> self(this);
    const ScopedFlag filling(this, &bUserAction, false);
    const auto modes = reader().modesOf(body);
    if (self)
        showChoices(ui->comboBox_mode, modes);
}

void FilterDialog::update_comboBox_mode()
{
    const ScopedFlag filling(this, &bUserAction, false);
    const QString body = currentBody();
    const QPointer<FilterDialog> self(this);
    std::optional<QString> mode;
    if (!body.isEmpty()) {
        if (link().protocolAtLeast(1, 21))
            update_comboBox_mode_list_02(body);
        if (self)
            mode = reader().mode(body);
    }
    if (!self)
        return;
    ui->comboBox_mode->setCurrentIndex(indexOf(ui->comboBox_mode, mode));
    ui->comboBox_mode->setEnabled(isOwnPresetActive());
}

void FilterDialog::done(int result)
{
    const QPointer<FilterDialog> self(this);
    if (isUserAction()) {
        const Waiting waiting(m_observer, Waiting::For::Action, tr("Writing the filter ..."));
        // Closing by key or button may leave the focus in the box, which then still holds the edit.
        ui->doubleSpinBox_strength->interpretText();
        on_doubleSpinBox_strength_editingFinished();
    }
    if (self && isUserAction()) {
        ui->spinBox_prediction->interpretText();
        on_spinBox_prediction_editingFinished();
    }
    if (self)
        QDialog::done(result);
}

void FilterDialog::on_comboBox_body_currentIndexChanged(int)
{
    if (!isUserAction())
        return;
    const Waiting waiting(m_observer, Waiting::For::Refresh, tr("Reading the filter ..."));
    updateBody();
}

void FilterDialog::on_checkBox_active_stateChanged(int state)
{
    if (!isUserAction())
        return;
    const QString body = currentBody();
    if (body.isEmpty()) {
        update_checkbox_active();
        return;
    }
    const Waiting waiting(m_observer, Waiting::For::Action, tr("Writing the filter ..."));
    const QPointer<FilterDialog> self(this);
    FilterCommands(link()).setEnabled(body, state == Qt::Checked);
    if (self)
        updateFilterValues();
}

void FilterDialog::on_comboBox_preset_currentIndexChanged(int index)
{
    const QString body = currentBody();
    if (!isUserAction() || index < 0 || body.isEmpty())
        return;
    const QString preset = ui->comboBox_preset->itemData(index).toString();
    const Waiting waiting(m_observer, Waiting::For::Action, tr("Writing the filter ..."));
    const QPointer<FilterDialog> self(this);
    FilterCommands(link()).setPreset(body, preset);
    if (self)
        updatePresetValues();
}

void FilterDialog::on_doubleSpinBox_strength_editingFinished()
{
    const QString body = currentBody();
    if (!isUserAction() || body.isEmpty())
        return;
    // Leaving the box also ends editing; only a change by the user is sent.
    if (const auto strength = m_strength->takeEdit())
        FilterCommands(link()).setStrength(body, *strength);
}

void FilterDialog::on_spinBox_prediction_editingFinished()
{
    const QString body = currentBody();
    if (!isUserAction() || body.isEmpty())
        return;
    if (const auto predictionMs = m_predictionMs->takeEdit())
        FilterCommands(link()).setPredictionMs(body, *predictionMs);
}

void FilterDialog::on_comboBox_mode_currentIndexChanged(int index)
{
    const QString body = currentBody();
    if (!isUserAction() || index < 0 || body.isEmpty())
        return;
    FilterCommands(link()).setMode(body, ui->comboBox_mode->itemData(index).toString());
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

// Returned by value, because a host may delete the dialog while the reader works.
FilterReader FilterDialog::reader() const
{
    return FilterReader(m_link, this);
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
