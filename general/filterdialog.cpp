#include "filterdialog.h"

#include "ui_filterdialog.h"

#include "filterhelp.h"

#include <QScopedValueRollback>

namespace {

constexpr int standardType = 0;
constexpr int joywandType = 1;
constexpr double millisecondsPerSecond = 1000.0;

QString twoDigits(int number)
{
    return QStringLiteral("%1").arg(number, 2, 10, QLatin1Char('0'));
}

bool isOwnPreset(const QString &preset)
{
    return preset.contains(QLatin1String("preset6d_")) && preset.contains(QLatin1String("_custom"));
}

} // namespace

FilterDialog::FilterDialog(IOManager *iom, QWidget *parent, BackendVersions *beVers)
    : QDialog(parent), ui(std::make_unique<Ui::FilterDialog>()), iom(iom), beVers(beVers)
{
    ui->setupUi(this);
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

template <typename Answer>
std::optional<Answer> FilterDialog::answered(std::optional<Answer> answer,
                                             const QString &errorLine) const
{
    // A controller that has no filter yet fails every query; that is no news to the user.
    if (!answer && link().protocolAtLeast(1, 12))
        link().log(errorLine);
    return answer;
}

int FilterDialog::update_and_exec(int bodyType, int bodyIndex)
{
    bUserAction = false;
    const bool available = isFilterAvailable(bodyType);
    bIsConfigLocked = getConfigLocked();
    if (!available || bIsConfigLocked) {
        clearBodies();
        enableDialog(false, bodyType);
        return exec();
    }
    enableDialog(true, standardType);
    update_comboBox_body(bodyType, bodyIndex);
    update_checkbox_active();
    updateFilterValues();
    bUserAction = true;
    return exec();
}

void FilterDialog::clearBodies()
{
    // Only a dialog that was open before has something to show of a body.
    if (ui->comboBox_body->count() == 0)
        return;
    mapIsTargetInertial.clear();
    ui->comboBox_body->clear();
    update_checkbox_active();
    updateFilterValues();
}

bool FilterDialog::isFilterAvailable(int bodyType) const
{
    if (!link().protocolAtLeast(1, 12) || (bodyType != standardType && bodyType != joywandType))
        return false;
    const bool standard = bodyType == standardType;
    const auto answer = answered(
            standard ? link().text("filter6d available standard")
                     : link().text("filter6d available joywand"),
            tr("Error: Unable to get availability of filter6d for bodytype %1")
                    .arg(standard ? QStringLiteral("standard") : QStringLiteral("joywand")));
    return answer == QLatin1String("yes");
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
    if (bodyType != standardType && bodyType != joywandType)
        return;
    const bool standard = bodyType == standardType;
    if (bodyIndex >= 0) {
        addBody(standard, bodyIndex + 1);
        return;
    }
    const int count = standard ? answered(link().count("body number_of_bodies standard"),
                                          tr("Error: Unable to get number of standard bodies"))
                                         .value_or(0)
                               : answered(link().count("joywand number_of_devices"),
                                          tr("Error: Unable to get number of Joywand devices"))
                                         .value_or(0);
    for (int number = 1; number <= count; ++number) {
        const QString type = standard ? QStringLiteral("standard") : QStringLiteral("joywand");
        const auto calibrated =
                answered(standard ? link().text("body calibrated standard b%.2d", number)
                                  : link().text("body calibrated joywand b%.2d", number),
                         tr("Error: Unable to get calibration state of body %1 b%2")
                                 .arg(type, twoDigits(number)));
        if (calibrated == QLatin1String("yes"))
            addBody(standard, number);
    }
}

void FilterDialog::addBody(bool standard, int number)
{
    if (standard)
        addStandardBody(number);
    else
        addJoywandBody(number);
}

void FilterDialog::addStandardBody(int number)
{
    const QString body = QStringLiteral("standard b%1").arg(twoDigits(number));
    const QString sensor = answered(link().text("body inertial_sensor standard b%.2d", number),
                                    tr("Error: Unable to get inertial sensor of body %1").arg(body))
                                   .value_or(QStringLiteral("none"));
    const QString description =
            answered(link().text("body desc standard b%.2d", number),
                     tr("Error: Unable to get description of body %1").arg(body))
                    .value_or(QString());
    QString shown = tr("standard body %1").arg(twoDigits(number));
    if (!description.isEmpty())
        shown += QStringLiteral(" (%1)").arg(description);
    mapIsTargetInertial.insert(body, sensor != QLatin1String("none"));
    ui->comboBox_body->addItem(shown, body);
}

void FilterDialog::addJoywandBody(int number)
{
    const QString body = QStringLiteral("joywand b%1").arg(twoDigits(number));
    mapIsTargetInertial.insert(body, false);
    ui->comboBox_body->addItem(tr("Joywand body %1").arg(twoDigits(number)), body);
}

void FilterDialog::update_checkbox_active()
{
    const QScopedValueRollback<bool> filling(bUserAction, false);
    const QString body = currentBody();
    if (body.isEmpty()) {
        ui->checkBox_active->setChecked(false);
        return;
    }
    const auto enabled = answered(
            link().text("body filter6d_enabled %s", ControllerLink::argument(body).constData()),
            tr("Error: Unable to get filter 6d state for body %1").arg(body));
    ui->checkBox_active->setChecked(enabled == QLatin1String("yes"));
    activate_checkbox_active(body);
}

void FilterDialog::activate_checkbox_active(const QString &body)
{
    if (!link().protocolAtLeast(1, 12)) {
        ui->checkBox_active->show();
        return;
    }
    const QString sensor = answered(link().text("body inertial_sensor %s",
                                                ControllerLink::argument(body).constData()),
                                    tr("Error: Unable to get inertial sensor of body %1").arg(body))
                                   .value_or(QStringLiteral("none"));
    ui->checkBox_active->setVisible(sensor == QLatin1String("none"));
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
    m_strengthMin = answered(link().real("filter6d limit strength_min"),
                             tr("Error: Unable to get minimum of filter 6d strength"))
                            .value_or(0.0);
    m_strengthMax = answered(link().real("filter6d limit strength_max"),
                             tr("Error: Unable to get maximum of filter 6d strength"))
                            .value_or(0.0);
    ui->doubleSpinBox_strength->setRange(m_strengthMin, m_strengthMax);
}

void FilterDialog::setup_spinBox_prediction()
{
    const double minimumSeconds =
            answered(link().real("filter6d limit prediction_min"),
                     tr("Error: Unable to get minimum of filter 6d prediction"))
                    .value_or(0.0);
    const double maximumSeconds =
            answered(link().real("filter6d limit prediction_max"),
                     tr("Error: Unable to get maximum of filter 6d prediction"))
                    .value_or(0.0);
    m_predictionMinMs = ControllerLink::wholeMilliseconds(minimumSeconds);
    m_predictionMaxMs = ControllerLink::wholeMilliseconds(maximumSeconds);
    ui->spinBox_prediction->setRange(m_predictionMinMs, m_predictionMaxMs);
}

void FilterDialog::update_doubleSpinBox_strength()
{
    const QString body = currentBody();
    std::optional<double> strength;
    if (!body.isEmpty()) {
        strength = answered(link().real("body filter6d_strength %s",
                                        ControllerLink::argument(body).constData()),
                            tr("Error: Unable to get filter 6d strength for body %1").arg(body));
    }
    showStrength(strength);
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
    std::optional<int> predictionMs;
    if (!body.isEmpty()) {
        const auto seconds =
                answered(link().real("body filter6d_prediction %s",
                                     ControllerLink::argument(body).constData()),
                         tr("Error: Unable to get filter 6d prediction for body %1").arg(body));
        if (seconds)
            predictionMs = ControllerLink::wholeMilliseconds(*seconds);
    }
    showPrediction(predictionMs);
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
    const int count = answered(link().count("filter6d number_of_presets"),
                               tr("Error: Unable to get number of filter 6d presets"))
                              .value_or(0);
    for (int number = 1; number <= count; ++number) {
        const auto id = answered(link().text("filter6d preset_id t%.2d", number),
                                 tr("Error: Unable to get filter 6d preset id"));
        if (!id)
            continue;
        const auto description = answered(
                link().text("filter6d preset_desc %s", ControllerLink::argument(*id).constData()),
                tr("Error: Unable to get filter 6d preset description"));
        if (!description)
            continue;
        const bool forInertial = *id == QLatin1String("preset6d_default")
                                 || *id == QLatin1String("preset6d_med_pred");
        listPresets.append(new PresetInfo{*id, ControllerLink::withoutDoubleQuotes(*description),
                                          forInertial});
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
    const int count = answered(link().count("filter6d number_of_presets"),
                               tr("Error: Unable to get number of filter 6d presets"))
                              .value_or(0);
    for (int number = 1; number <= count; ++number) {
        const auto id = answered(link().text("filter6d preset_id t%02d", number),
                                 tr("Error: Unable to get filter 6d preset id"));
        if (!id)
            continue;
        const QByteArray preset = ControllerLink::argument(*id);
        const auto available = answered(link().text("body filter6d_preset_available %s %s",
                                                    ControllerLink::argument(body).constData(),
                                                    preset.constData()),
                                        tr("Error: Unable to get filter 6d preset id available"));
        if (available != QLatin1String("yes"))
            continue;
        const auto description =
                answered(link().text("filter6d preset_desc %s", preset.constData()),
                         tr("Error: Unable to get filter 6d preset description"));
        if (description)
            ui->comboBox_preset->addItem(ControllerLink::withoutDoubleQuotes(*description), *id);
    }
}

void FilterDialog::update_combobox_preset()
{
    const QScopedValueRollback<bool> filling(bUserAction, false);
    const QString body = currentBody();
    int selected = -1;
    if (!body.isEmpty()) {
        if (link().protocolAtLeast(1, 21))
            update_combobox_preset_list_02(body);
        else
            update_combobox_preset_list_01(body);
        const auto preset = answered(
                link().text("body filter6d_preset %s", ControllerLink::argument(body).constData()),
                tr("Error: Unable to get filter 6d preset for body %1").arg(body));
        if (preset)
            selected = ui->comboBox_preset->findData(*preset, Qt::UserRole,
                                                     Qt::MatchExactly | Qt::MatchCaseSensitive);
    }
    ui->comboBox_preset->setCurrentIndex(selected);
    ui->comboBox_preset->setEnabled(ui->checkBox_active->isChecked());
}

void FilterDialog::setup_comboBox_mode()
{
    const QScopedValueRollback<bool> filling(bUserAction, false);
    const int count = answered(link().count("filter6d number_of_modes"),
                               tr("Error: Unable to get number of filter 6d modes"))
                              .value_or(0);
    for (int number = 1; number <= count; ++number) {
        const auto id = answered(link().text("filter6d mode_id t%.2d", number),
                                 tr("Error: Unable to get filter 6d mode id"));
        if (!id)
            continue;
        const auto description = answered(
                link().text("filter6d mode_desc %s", ControllerLink::argument(*id).constData()),
                tr("Error: Unable to get filter 6d mode description"));
        if (description)
            ui->comboBox_mode->addItem(ControllerLink::withoutDoubleQuotes(*description), *id);
    }
    ui->comboBox_mode->setCurrentIndex(-1);
}

void FilterDialog::update_comboBox_mode_list_02(const QString &body)
{
    const QScopedValueRollback<bool> filling(bUserAction, false);
    ui->comboBox_mode->clear();
    const int count = answered(link().count("filter6d number_of_modes"),
                               tr("Error: Unable to get number of filter 6d modes"))
                              .value_or(0);
    for (int number = 1; number <= count; ++number) {
        const auto id = answered(link().text("filter6d mode_id t%02d", number),
                                 tr("Error: Unable to get filter 6d mode id"));
        if (!id)
            continue;
        const QByteArray mode = ControllerLink::argument(*id);
        const auto available =
                answered(link().text("body filter6d_mode_available %s %s",
                                     ControllerLink::argument(body).constData(), mode.constData()),
                         tr("Error: Unable to get filter 6d mode id available"));
        if (available != QLatin1String("yes"))
            continue;
        const auto description = answered(link().text("filter6d mode_desc %s", mode.constData()),
                                          tr("Error: Unable to get filter 6d mode description"));
        if (description)
            ui->comboBox_mode->addItem(ControllerLink::withoutDoubleQuotes(*description), *id);
    }
}

void FilterDialog::update_comboBox_mode()
{
    const QScopedValueRollback<bool> filling(bUserAction, false);
    const QString body = currentBody();
    int selected = -1;
    if (!body.isEmpty()) {
        if (link().protocolAtLeast(1, 21))
            update_comboBox_mode_list_02(body);
        const auto mode = answered(
                link().text("body filter6d_mode %s", ControllerLink::argument(body).constData()),
                tr("Error: Unable to get filter 6d mode for body %1").arg(body));
        if (mode)
            selected = ui->comboBox_mode->findData(*mode, Qt::UserRole,
                                                   Qt::MatchExactly | Qt::MatchCaseSensitive);
    }
    ui->comboBox_mode->setCurrentIndex(selected);
    ui->comboBox_mode->setEnabled(isOwnPresetActive());
}

void FilterDialog::done(int result)
{
    if (bUserAction) {
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
    if (!link().set("body filter6d_enabled %s %s", ControllerLink::argument(body).constData(),
                    state == Qt::Checked ? "yes" : "no"))
        link().log(tr("Error: Unable to activate/deactivate filter 6d for body %1").arg(body));
    updateFilterValues();
}

void FilterDialog::on_comboBox_preset_currentIndexChanged(int index)
{
    const QString body = currentBody();
    if (!bUserAction || index < 0 || body.isEmpty())
        return;
    const QString preset = ui->comboBox_preset->itemData(index).toString();
    if (!link().set("body filter6d_preset %s %s", ControllerLink::argument(body).constData(),
                    ControllerLink::argument(preset).constData()))
        link().log(tr("Error: Unable to set filter 6d preset for body %1").arg(body));
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
        link().log(tr("Error: Unable to set filter 6d strength for body %1").arg(body));
}

void FilterDialog::on_spinBox_prediction_editingFinished()
{
    const QString body = currentBody();
    if (!bUserAction || body.isEmpty() || ui->spinBox_prediction->value() == m_knownPredictionMs)
        return;
    showPrediction(ui->spinBox_prediction->value());
    if (!link().set("body filter6d_prediction %s %f", ControllerLink::argument(body).constData(),
                    m_knownPredictionMs / millisecondsPerSecond))
        link().log(tr("Error: Unable to set filter 6d prediction for body %1").arg(body));
}

void FilterDialog::on_comboBox_mode_currentIndexChanged(int index)
{
    const QString body = currentBody();
    if (!bUserAction || index < 0 || body.isEmpty())
        return;
    const QString mode = ui->comboBox_mode->itemData(index).toString();
    if (!link().set("body filter6d_mode %s %s", ControllerLink::argument(body).constData(),
                    ControllerLink::argument(mode).constData()))
        link().log(tr("Error: Unable to set filter 6d mode for body %1").arg(body));
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
    return ControllerLink(iom, beVers);
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
    return ui->checkBox_active->isChecked() && isOwnPreset(currentPreset());
}
