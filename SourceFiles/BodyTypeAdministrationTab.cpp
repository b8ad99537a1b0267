#include "BodyTypeAdministrationTab.h"

#include "bodies/bodycommands.h"
#include "bodynumber.h"
#include "filterdialog.h"
#include "support/fillguard.h"
#include "support/userquestion.h"
#include "targetlibrary.h"
#include "targets/target.h"

#include <QAbstractItemDelegate>
#include <QComboBox>
#include <QHeaderView>
#include <QLabel>
#include <QSignalBlocker>
#include <QSpinBox>
#include <QTableWidget>
#include <QTimer>

using UserQuestion::Answer;

BodyTypeAdministrationTab::BodyTypeAdministrationTab(IOManager *manager, QWidget *parent,
                                                     BackendVersions *versions,
                                                     const QString &moduleVersion,
                                                     Targetlibrary *library)
    : QWidget(parent),
      iom(manager),
      beVers(versions),
      m_module_version(moduleVersion),
      icon_ok(QStringLiteral(":/green.png")),
      icon_not_cal(QStringLiteral(":/red.png")),
      icon_yellow_hook(QStringLiteral(":/yellow.png")),
      icon_cross(QStringLiteral(":/118.png")),
      icon_reset(QStringLiteral(":/48.png")),
      targetlib(library),
      timerDoMea_tl(new QTimer(this)),
      timerCheckForTracked_tl(new QTimer(this)),
      m_link(manager, versions),
      m_reader(m_link),
      m_assignment(m_link, library),
      m_tableIcons(std::make_unique<BodyTableIcons>(icon_ok, icon_not_cal, icon_yellow_hook,
                                                    icon_cross, icon_reset)),
      m_search(m_link, timerDoMea_tl, timerCheckForTracked_tl)
{
    timerDoMea_tl->setObjectName(QStringLiteral("timerDoMea_tl"));
    timerCheckForTracked_tl->setObjectName(QStringLiteral("timerCheckForTracked_tl"));
    connect(timerDoMea_tl, &QTimer::timeout, this, &BodyTypeAdministrationTab::doMeasurement_tl);
    connect(timerCheckForTracked_tl, &QTimer::timeout, this,
            &BodyTypeAdministrationTab::updateTrackedAndAcceptStatus_tl);
}

BodyTypeAdministrationTab::~BodyTypeAdministrationTab() = default;

// Registry

AdminBodyType *BodyTypeAdministrationTab::recordOf(const QString &type)
{
    const auto found = bodytypes.find(type);
    return found == bodytypes.end() ? nullptr : &found.value();
}

const AdminBodyType *BodyTypeAdministrationTab::record(const QString &type) const
{
    const auto found = bodytypes.constFind(type);
    return found == bodytypes.constEnd() ? nullptr : &found.value();
}

const AdminBody *BodyTypeAdministrationTab::bodyOf(const QString &type, int index) const
{
    const AdminBodyType *known = record(type);
    return known && known->isValidIndex(index) ? &known->bodies.at(index) : nullptr;
}

QString BodyTypeAdministrationTab::typeOfTable(const QObject *table) const
{
    for (auto type = bodytypes.constBegin(); type != bodytypes.constEnd(); ++type) {
        if (table && type->tableWidget == table)
            return type.key();
    }
    return {};
}

void BodyTypeAdministrationTab::registerBodyType(const QString &type)
{
    AdminBodyType fresh;
    m_reader.readType(fresh, type);
    bodytypes.insert(type, fresh);
}

void BodyTypeAdministrationTab::unregisterBodyType(const QString &type)
{
    bodytypes.remove(type);
}

bool BodyTypeAdministrationTab::isBodyTypeRegistered(const QString &type) const
{
    return bodytypes.contains(type);
}

void BodyTypeAdministrationTab::registerSpinBox(const QString &type, QSpinBox *spinBox)
{
    bodytypes[type].spinBox = spinBox;
    // A count that is being typed must not drop bodies with every digit.
    spinBox->setKeyboardTracking(false);
    // Nor may a wheel that happens to turn above it.
    spinBox->setFocusPolicy(Qt::StrongFocus);
    spinBox->installEventFilter(this);
    connect(spinBox, SIGNAL(valueChanged(int)), this, SLOT(ON_spinBox_valueChanged(int)));
}

void BodyTypeAdministrationTab::registerComboBox(const QString &type, QComboBox *comboBox)
{
    bodytypes[type].comboBox = comboBox;
}

void BodyTypeAdministrationTab::registerTableWidget(const QString &type, QTableWidget *table,
                                                    const QVector<COLUMN_TYPE> &columns,
                                                    const QString &idFormat)
{
    AdminBodyType &known = bodytypes[type];
    known.tableWidget = table;
    known.tableWidgetColumns = columns;
    known.tableWidgetColumnIdFormat = idFormat;
    // A name is changed by a double click and by nothing else.
    table->setEditTriggers(QAbstractItemView::DoubleClicked);
    table->setTabKeyNavigation(false);
    table->installEventFilter(this);
    connect(table, &QTableWidget::cellClicked, this,
            &BodyTypeAdministrationTab::ON_tableWidget_cellClicked);
    connect(table, &QTableWidget::cellDoubleClicked, this,
            &BodyTypeAdministrationTab::ON_tableWidget_cellDoubleClicked);
    connect(table, &QTableWidget::currentItemChanged, this,
            &BodyTypeAdministrationTab::ON_tableWidget_currentItemChanged);
    connect(table, &QTableWidget::itemChanged, this,
            &BodyTypeAdministrationTab::ON_tableWidget_itemChanged);
    const int nameColumn = known.columnOf(COLUMN_TYPE_NAME);
    if (nameColumn < 0)
        return;
    QAbstractItemDelegate *delegate = table->itemDelegateForColumn(nameColumn);
    connect(delegate ? delegate : table->itemDelegate(), &QAbstractItemDelegate::closeEditor, this,
            [this, type] {
                if (AdminBodyType *edited = recordOf(type))
                    edited->tableWidgetColumnNameStartEdit = false;
            });
}

void BodyTypeAdministrationTab::registerTableWidget_tl(const QString &type, QTableWidget *table)
{
    bodytypes[type].tableWidget_tl = table;
}

QString BodyTypeAdministrationTab::getBodyTypeDescription(const QString &type) const
{
    const AdminBodyType *known = record(type);
    return known ? known->typedesc : QString();
}

QString BodyTypeAdministrationTab::typeLabel(const QString &type) const
{
    const QString description = getBodyTypeDescription(type);
    return description.isEmpty() ? type : description;
}

bool BodyTypeAdministrationTab::getBodyTypeFilter6dAvailable(const QString &type) const
{
    const AdminBodyType *known = record(type);
    return known && known->filter6dAvailable;
}

int BodyTypeAdministrationTab::getNumberOfInertialSensors(const QString &type) const
{
    const AdminBodyType *known = record(type);
    return known ? known->numInertialSensors : 0;
}

int BodyTypeAdministrationTab::getNumberOfBodies(const QString &type) const
{
    const AdminBodyType *known = record(type);
    return known ? known->bodies.size() : 0;
}

int BodyTypeAdministrationTab::getNumberOfCalibratedBodies(const QString &type) const
{
    int calibrated = 0;
    for (int index = 0; index < getNumberOfBodies(type); ++index)
        calibrated += isBodyCalibrated(type, index) ? 1 : 0;
    return calibrated;
}

bool BodyTypeAdministrationTab::isBodyActive(const QString &type, int index) const
{
    const AdminBody *body = bodyOf(type, index);
    return body && body->active;
}

bool BodyTypeAdministrationTab::isBodyCalibrated(const QString &type, int index) const
{
    const AdminBody *body = bodyOf(type, index);
    return body && body->calibrated;
}

bool BodyTypeAdministrationTab::isBodyRecalibrated(const QString &type, int index) const
{
    const AdminBody *body = bodyOf(type, index);
    return body && body->recalibrated;
}

bool BodyTypeAdministrationTab::hasBodyHandEye(const QString &type, int index) const
{
    const AdminBody *body = bodyOf(type, index);
    return body && body->has_handeye;
}

bool BodyTypeAdministrationTab::getBodyIsReference(const QString &type, int index) const
{
    const AdminBodyType *known = record(type);
    return known && known->getBodyIsReference(index);
}

bool BodyTypeAdministrationTab::isBodyReference(const QString &type, int index) const
{
    return getBodyIsReference(type, index);
}

QString BodyTypeAdministrationTab::getBodyDescription(const QString &type, int index) const
{
    const AdminBody *body = bodyOf(type, index);
    return body ? body->desc : QString();
}

QString BodyTypeAdministrationTab::getBodyTargetlibName(const QString &type, int index) const
{
    const AdminBody *body = bodyOf(type, index);
    return body ? body->tlibName : QString();
}

QString BodyTypeAdministrationTab::getBodyCalibrationStatus(const QString &type, int index) const
{
    const AdminBody *body = bodyOf(type, index);
    return body ? body->calibrationStatus : QString();
}

QString BodyTypeAdministrationTab::getBodyInertialSensor(const QString &type, int index) const
{
    const AdminBody *body = bodyOf(type, index);
    return body ? body->inertialSensor : QString();
}

QString BodyTypeAdministrationTab::getBodyFilter6dPreset(const QString &type, int index) const
{
    const AdminBody *body = bodyOf(type, index);
    return body ? body->filter6dPreset : QString();
}

// Readers

void BodyTypeAdministrationTab::updateBodyTypesInfo()
{
    const QStringList types = bodytypes.keys();
    for (const QString &type : types) {
        updateBodyTypeInfo(type);
        updateNumberOfInertialSensors(type);
        updateTableWidget(type);
    }
}

void BodyTypeAdministrationTab::updateBodyTypeInfo(const QString &type)
{
    AdminBodyType *known = recordOf(type);
    if (!known)
        return;
    known->bodies.resize(m_reader.readCount(type));
    updateBodyTypeSpinBox(type, false);
    for (int index = 0; index < known->bodies.size(); ++index)
        updateBodyInfo(type, index);
    updateNumberOfInertialSensors(type);
}

void BodyTypeAdministrationTab::updateBodyInfo(const QString &type, int index)
{
    if (AdminBodyType *known = recordOf(type))
        m_reader.readBody(*known, type, index);
}

void BodyTypeAdministrationTab::updateBodyFilter6dPreset(const QString &type, int index)
{
    if (AdminBodyType *known = recordOf(type))
        m_reader.readFilterSummary(*known, type, index);
}

void BodyTypeAdministrationTab::updateNumberOfInertialSensors(const QString &type)
{
    AdminBodyType *known = recordOf(type);
    if (!known)
        return;
    known->numInertialSensors = 0;
    for (const AdminBody &body : qAsConst(known->bodies))
        known->numInertialSensors += body.inertialSensor.isEmpty() ? 0 : 1;
}

void BodyTypeAdministrationTab::updateBodyTypeSpinBox(const QString &type, bool readMaximum)
{
    const AdminBodyType *known = record(type);
    if (!known || !known->spinBox)
        return;
    const QSignalBlocker silent(known->spinBox);
    const int limit = readMaximum ? morvek2_getMaxNumberOfBodies(type) : known->spinBox->maximum();
    // A limit that could not be read must not make the box show fewer bodies than there are.
    known->spinBox->setRange(0, qMax(limit, known->bodies.size()));
    known->spinBox->setValue(known->bodies.size());
}

void BodyTypeAdministrationTab::updateTableWidget(const QString &type)
{
    const bool warmupRuleMet = m_reader.isWarmupRuleMet();
    const AdminBodyType *known = record(type);
    if (!known || !known->tableWidget)
        return;
    const FillGuard filling(m_filling);
    const BodyTableFiller filler(*m_tableIcons, warmupRuleMet, m_is_config_locked);
    filler.fill(type, *known,
                [this](const QString &cellType, int row, int column, QTableWidgetItem *item) {
                    updateTableWidgetCell(cellType, row, column, item);
                });
}

void BodyTypeAdministrationTab::update_tab()
{
    const QStringList types = bodytypes.keys();
    for (const QString &type : types)
        updateBodyTypeSpinBox(type, true);
    updateBodyTypesInfo();
    current_bid = qMin(current_bid, getNumberOfBodies(current_btype) - 1);
    updateView();
}

int BodyTypeAdministrationTab::maximumOr(const std::optional<int> &maximum, int defaultMaximum,
                                         const QString &error) const
{
    if (!maximum)
        m_link.log(error);
    return maximum.value_or(defaultMaximum);
}

void BodyTypeAdministrationTab::showLimit(QLabel *label, const QSpinBox *spinBox,
                                          const QString &text)
{
    label->setText(spinBox->value() >= spinBox->maximum() ? text : QString());
}

void BodyTypeAdministrationTab::bodyRowChosen()
{
    activate_pushButton_select();
    activate_pushButton_deselect();
}

void BodyTypeAdministrationTab::refreshBody(const QString &type, int index)
{
    updateBodyInfo(type, index);
    updateTableWidget(type);
    updateView();
}

void BodyTypeAdministrationTab::about_to_exit()
{
    stopAllTimer();
}

void BodyTypeAdministrationTab::ON_activeConfigurationChanged() {}
void BodyTypeAdministrationTab::updateTableWidgetCell(const QString &, int, int, QTableWidgetItem *)
{
}
void BodyTypeAdministrationTab::saveSelectionOfMtTables() {}
bool BodyTypeAdministrationTab::mayAssignTarget(const QString &)
{
    return true;
}
void BodyTypeAdministrationTab::targetAssigned(const QString &) {}

// Button rules of the dialog

bool BodyTypeAdministrationTab::is_bodycal_possible()
{
    return !m_is_config_locked && current_bid != -1;
}

bool BodyTypeAdministrationTab::is_bodyadjustment_possible()
{
    return !m_is_config_locked && isBodyCalibrated(current_btype, current_bid);
}

bool BodyTypeAdministrationTab::is_filter6d_possible()
{
    if (m_is_config_locked || bodytypes.isEmpty())
        return false;
    const QString type = bodytypes.firstKey();
    return getBodyTypeFilter6dAvailable(type) && getNumberOfBodies(type) > 0
           && getNumberOfCalibratedBodies(type) > 0 && isBodyCalibrated(type, current_bid);
}

bool BodyTypeAdministrationTab::is_hybridbodycalibration_possible()
{
    return !m_is_config_locked && isBodyActive(current_btype, current_bid)
           && isBodyCalibrated(current_btype, current_bid)
           && !getBodyInertialSensor(current_btype, current_bid).isEmpty()
           && is_hybridbodycalibration_available(current_btype, current_bid);
}

bool BodyTypeAdministrationTab::is_hybridbodycalibration_available(const QString &type, int index)
{
    if (index < 0 || type.isEmpty())
        return false;
    const auto available = m_link.flag("inertial available");
    if (!available)
        m_link.log(tr("Error: Unable to get availability of inertial sensors"));
    if (!available.value_or(false))
        return false;
    const auto sensor = m_link.text("body inertial_sensor %s b%02d",
                                    ControllerLink::argument(type).constData(), index + 1);
    if (!sensor) {
        m_link.log(tr("Error: Unable to get inertial sensor of body %1 b%2")
                           .arg(type, bodyNumber(index)));
        return false;
    }
    if (*sensor == QLatin1String("none"))
        return false;
    const auto present = m_link.flag("inertial sensor_present %s",
                                     ControllerLink::argument(*sensor).constData());
    if (!present)
        m_link.log(tr("Error: Unable to get presence of inertial sensor %1").arg(*sensor));
    return present.value_or(false);
}

void BodyTypeAdministrationTab::setConfigLockedStatus(bool locked)
{
    const bool changed = locked != m_is_config_locked;
    m_is_config_locked = locked;
    if (!tabWidgets().bodyTable)
        return;
    m_search.setConfigLocked(locked);
    if (!changed || !isVisible())
        return;
    const QStringList types = bodytypes.keys();
    for (const QString &type : types)
        updateTableWidget(type);
    updateView();
}
