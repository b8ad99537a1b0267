#include "bodyadministrationdialog.h"

#include "ui_bodyadministrationdialog.h"

#include "BackendVersions.h"
#include "BodyTypeAdministrationTab.h"
#include "bodyadminmessagereceiver.h"
#include "configurationwatch.h"
#include "fingertrackingadministration.h"
#include "joywandadministration.h"
#include "linkobserver.h"
#include "mtadministration.h"
#include "standardadministration.h"
#include "support/filterdialogrun.h"
#include "support/modulerequests.h"
#include "support/moduleversion.h"
#include "targetlibrary.h"
#include "waiting.h"
#include "wheelguard.h"

#include <QKeyEvent>
#include <QLayout>
#include <QPointer>
#include <QScreen>
#include <QStyle>

namespace {

enum TabKey { StandardTab = 0, JoywandTab = 1, HandsTab = 2, MeasurementToolTab = 3 };

/** The compact system offers measurement tools from the version after this one. */
const VersionInfo lastCompactWithoutTools(2, 9, 3);

/** Lets the layouts of a window that is not shown yet measure what was filled into it. */
void measureAgain(QWidget *widget)
{
    for (QObject *child : widget->children()) {
        if (child->isWidgetType())
            measureAgain(static_cast<QWidget *>(child));
    }
    if (QLayout *layout = widget->layout()) {
        layout->invalidate();
        layout->activate();
    }
}

} // namespace

BodyAdministrationDlg::BodyAdministrationDlg(IOManager *manager, QWidget *parent,
                                             BackendVersions *versions)
    : QDialog(parent),
      iom(manager),
      beVers(versions),
      m_parent(parent),
      m_observer(new LinkObserver(this)),
      m_link(manager, versions, m_observer),
      ui(std::make_unique<Ui::BodyAdministrationDlg>()),
      tl(nullptr)
{
    ui->setupUi(this);
    ui->messageLine->follow(m_observer);
    tl = new Targetlibrary(iom, beVers, this);
    m_icon_lock = QIcon(QStringLiteral(":/lock.png"));
    createTabs();
    update_config_locked();
    initMessageReceiver();
    addPages();
    m_is_bodycal_module_available = false;
    m_is_bodyadjustment_module_available = false;
    m_is_joywand_multiuser = false;
    chainTabOrder();
    WheelGuard::protect(this);
    setWindowFlag(Qt::WindowMaximizeButtonHint);
    setSizeGripEnabled(true);
}

BodyAdministrationDlg::~BodyAdministrationDlg() = default;

void BodyAdministrationDlg::fitToContents()
{
    // The size that the user chose last stays.
    if (testAttribute(Qt::WA_Resized))
        return;
    measureAgain(this);
    const QWidget *beside = m_parent ? m_parent->window() : this;
    const QScreen *screen = beside->screen();
    const int titleBar = style()->pixelMetric(QStyle::PM_TitleBarHeight, nullptr, this);
    // The pages scroll where the screen is too small, so that the buttons stay in it.
    const QSize room =
            screen ? screen->availableSize() - QSize(titleBar, 2 * titleBar) : sizeHint();
    resize(sizeHint().boundedTo(room));
}

void BodyAdministrationDlg::chainTabOrder()
{
    QWidget *last = ui->tabWidget;
    for (QWidget *next = nextInFocusChain(); next != this; next = next->nextInFocusChain()) {
        if (ui->tabWidget->isAncestorOf(next))
            last = next;
    }
    for (QPushButton *button :
         {ui->pushButton_filter, ui->pushButton_calibration, ui->pushButton_hybridCalibration,
          ui->pushButton_body_adjustment, ui->pushButton_exit}) {
        setTabOrder(last, button);
        last = button;
    }
}

void BodyAdministrationDlg::createTabs()
{
    const QString version = moduleVersion();
    const bool compact = m_link.isPocketUnit();
    m_tabs[StandardTab] = new StandardAdministration(iom, this, beVers, version, tl);
    m_joywandTab = new JoywandAdministration(iom, this, beVers, version, tl);
    m_tabs[JoywandTab] = m_joywandTab;
    const bool toolsOffered = !compact || beVers->sysPt > lastCompactWithoutTools;
    if (toolsOffered && m_link.protocolAtLeast(1, 3))
        m_tabs[MeasurementToolTab] = new MtAdministration(iom, this, beVers, version, tl);
    if (!compact && m_link.protocolAtLeast(0, 17))
        m_tabs[HandsTab] = new FingertrackingAdministration(iom, this, beVers, version, tl);
}

void BodyAdministrationDlg::initMessageReceiver()
{
    messageReceiver = new BodyAdminMessageReceiver(this, iom);
    m_link.registerReceiver("GlobalEvent", messageReceiver);
    m_link.registerReceiver("BodyAdministrationModule", messageReceiver);
    connect(messageReceiver, &BodyAdminMessageReceiver::dialogReopen, this,
            &BodyAdministrationDlg::onReceiveReopen, Qt::QueuedConnection);
    connect(messageReceiver, &BodyAdminMessageReceiver::BodyCalAvailable, this,
            &BodyAdministrationDlg::onReceiveBodyCalAvailable);
    connect(messageReceiver, &BodyAdminMessageReceiver::BodyAdjustmentAvailable, this,
            &BodyAdministrationDlg::onReceiveBodyAdjustmentAvailable);
    connect(messageReceiver, &BodyAdminMessageReceiver::activeConfigurationChanged, this,
            &BodyAdministrationDlg::update_config_locked);
    for (BodyTypeAdministrationTab *tab : qAsConst(m_tabs)) {
        connect(messageReceiver, &BodyAdminMessageReceiver::activeConfigurationChanged, tab,
                &BodyTypeAdministrationTab::ON_activeConfigurationChanged);
    }
    // What an open dialog shows belongs to the configuration that is gone.
    connect(messageReceiver, &BodyAdminMessageReceiver::activeConfigurationChanged, this,
            &BodyAdministrationDlg::refreshIfVisible, Qt::QueuedConnection);
    // The settings dialogs that are open hear of it through here, whoever opened them.
    connect(messageReceiver, &BodyAdminMessageReceiver::activeConfigurationChanged, this,
            [this] { ConfigurationWatch::announce(iom); });
}

void BodyAdministrationDlg::addPages()
{
    ui->tabWidget->clear();
    for (BodyTypeAdministrationTab *tab : qAsConst(m_tabs)) {
        connect(tab, &BodyTypeAdministrationTab::selection_changed, this,
                &BodyAdministrationDlg::onAdminTabWidget_selectionChanged);
        ui->tabWidget->addTab(tab, tab->getTabTitle());
    }
}

void BodyAdministrationDlg::about_to_exit()
{
    m_link.unregisterReceiver("BodyAdministrationModule", messageReceiver);
    m_link.unregisterReceiver("GlobalEvent", messageReceiver);
}

// Opening, closing, reopening

void BodyAdministrationDlg::update_and_exec()
{
    prepare();
    runModally();
}

void BodyAdministrationDlg::prepare()
{
    const Waiting waiting(m_observer, Waiting::For::Refresh, tr("Reading bodies ..."));
    update_config_locked();
    readMissing();
    m_is_joywand_multiuser = m_joywandTab->is_multiuser_enabled();
    showLockState();
    ui->pushButton_calibration->setVisible(m_current_tab == MeasurementToolTab);
    applyButtonRules();
    refreshCurrentTab();
    fitToContents();
}

void BodyAdministrationDlg::readMissing()
{
    const bool isLibraryNew = tl->readMissing();
    for (BodyTypeAdministrationTab *tab : qAsConst(m_tabs))
        tab->readMissing(isLibraryNew);
}

void BodyAdministrationDlg::runModally()
{
    if (m_running && !isVisible()) {
        // Hidden for another module whose call has not returned yet: shown as soon as it does.
        m_reopenPending = true;
        return;
    }
    if (m_running) {
        raise();
        activateWindow();
        return;
    }
    const QPointer<BodyAdministrationDlg> self(this);
    m_running = true;
    do {
        m_reopenPending = false;
        exec();
    } while (self && m_reopenPending);
    if (self)
        m_running = false;
}

void BodyAdministrationDlg::onReceiveReopen()
{
    refreshCurrentTab();
    runModally();
}

void BodyAdministrationDlg::refreshIfVisible()
{
    if (!isVisible())
        return;
    showLockState();
    refreshCurrentTab();
}

void BodyAdministrationDlg::on_pushButton_exit_clicked()
{
    leave();
}

void BodyAdministrationDlg::reject()
{
    leave();
}

void BodyAdministrationDlg::leave()
{
    if (isCalTargetlibactive()) {
        m_link.log(QString::fromLatin1(QT_TRANSLATE_NOOP(
                "MessageLine", "Unable to close dialog during calibration is running")));
        return;
    }
    for (BodyTypeAdministrationTab *tab : qAsConst(m_tabs))
        tab->about_to_exit();
    accept();
}

bool BodyAdministrationDlg::isCalTargetlibactive() const
{
    const auto active = m_link.text("status active");
    if (!active)
        m_link.log(QStringLiteral("Error: Unable to get state of calibration"));
    return active && *active != QLatin1String("none");
}

void BodyAdministrationDlg::keyPressEvent(QKeyEvent *event)
{
    if (event->key() == Qt::Key_Return || event->key() == Qt::Key_Enter) {
        event->accept();
        // Enter ends the editing of a field and must not press a button besides; Enter presses
        // only the button that has the focus.
        if (auto *button = qobject_cast<QPushButton *>(focusWidget());
            button && !event->isAutoRepeat())
            button->click();
        return;
    }
    if (event->key() != Qt::Key_F8) {
        QDialog::keyPressEvent(event);
        return;
    }
    ui->tabWidget->setCurrentIndex((ui->tabWidget->currentIndex() + 1) % ui->tabWidget->count());
}

// The current tab

BodyTypeAdministrationTab *BodyAdministrationDlg::currentTab() const
{
    return m_tabs.value(m_current_tab);
}

void BodyAdministrationDlg::refreshCurrentTab()
{
    const Waiting waiting(m_observer, Waiting::For::Refresh, tr("Reading bodies ..."));
    BodyTypeAdministrationTab *tab = currentTab();
    tab->updateCalStatusTablewidgetTl(tab->mainBodyType());
    tab->update_tab();
    applyButtonRules();
}

void BodyAdministrationDlg::on_tabWidget_currentChanged(int index)
{
    if (!isVisible())
        return;
    m_current_tab = index;
    if (!m_tabs.contains(index))
        m_current_tab = index == HandsTab && m_tabs.contains(MeasurementToolTab)
                                ? MeasurementToolTab
                                : StandardTab;
    ui->pushButton_calibration->setVisible(m_current_tab == MeasurementToolTab);
    refreshCurrentTab();
}

void BodyAdministrationDlg::onAdminTabWidget_selectionChanged(const QString &type, int index)
{
    current_btype = type;
    current_bid = index;
    applyButtonRules();
    activateSelectDeselectButtons(type);
}

void BodyAdministrationDlg::activateSelectDeselectButtons(const QString &type)
{
    static const QStringList typesWithTargets = {
            QStringLiteral("standard"), QStringLiteral("joywand"), QStringLiteral("fingertracking"),
            QStringLiteral("measurementtool_reference")};
    if (!typesWithTargets.contains(type))
        return;
    currentTab()->activate_pushButton_select();
    currentTab()->activate_pushButton_deselect();
}

// Button rules

void BodyAdministrationDlg::applyButtonRules()
{
    update_calibration_button();
    update_body_adjustment_button();
    update_body_hybridCalibration_button();
    update_body_filter_button();
}

void BodyAdministrationDlg::update_calibration_button()
{
    if (m_is_bodycal_module_available)
        ui->pushButton_calibration->setEnabled(currentTab()->is_bodycal_possible());
}

void BodyAdministrationDlg::update_body_adjustment_button()
{
    if (m_is_bodyadjustment_module_available && !m_is_joywand_multiuser)
        ui->pushButton_body_adjustment->setEnabled(currentTab()->is_bodyadjustment_possible());
}

void BodyAdministrationDlg::update_body_hybridCalibration_button()
{
    ui->pushButton_hybridCalibration->setEnabled(currentTab()->is_hybridbodycalibration_possible());
}

void BodyAdministrationDlg::update_body_filter_button()
{
    ui->pushButton_filter->setEnabled(currentTab()->is_filter6d_possible());
}

bool BodyAdministrationDlg::hasCurrentBody() const
{
    return current_bid >= 0;
}

void BodyAdministrationDlg::on_pushButton_calibration_clicked()
{
    if (!hasCurrentBody())
        return;
    hide();
    ModuleRequests(m_link).calibrateBody(current_btype, current_bid);
}

void BodyAdministrationDlg::on_pushButton_hybridCalibration_clicked()
{
    if (!hasCurrentBody())
        return;
    const QString status = currentTab()->getBodyCalibrationStatus(current_btype, current_bid);
    hide();
    ModuleRequests(m_link).calibrateHybrid(current_btype, current_bid, status);
}

void BodyAdministrationDlg::on_pushButton_body_adjustment_clicked()
{
    if (!hasCurrentBody())
        return;
    const bool calibrated = currentTab()->getBodyCalibrationStatus(current_btype, current_bid)
                            != QLatin1String("not calibrated");
    hide();
    ModuleRequests(m_link).adjustBody(current_btype, current_bid, calibrated);
}

void BodyAdministrationDlg::on_pushButton_filter_clicked()
{
    if (runFilterDialog(this, iom, beVers, m_current_tab, getCurrentBodyindex(m_current_tab))) {
        currentTab()->update_tab();
        applyButtonRules();
    }
}

int BodyAdministrationDlg::getCurrentBodyindex(int type) const
{
    const bool filtered = type == StandardTab || type == JoywandTab;
    return filtered ? m_tabs.value(type)->getCurrentBodyindex() : -1;
}

// Messages and the configuration lock

void BodyAdministrationDlg::onReceiveBodyCalAvailable()
{
    m_is_bodycal_module_available = true;
}

void BodyAdministrationDlg::onReceiveBodyAdjustmentAvailable()
{
    m_is_bodyadjustment_module_available = true;
}

bool BodyAdministrationDlg::is_config_locked() const
{
    return m_link.isConfigLocked();
}

void BodyAdministrationDlg::update_config_locked()
{
    m_is_config_locked = is_config_locked();
    for (BodyTypeAdministrationTab *tab : qAsConst(m_tabs))
        tab->setConfigLockedStatus(m_is_config_locked);
}

void BodyAdministrationDlg::showLockState()
{
    setWindowIcon(m_is_config_locked ? m_icon_lock : m_parent ? m_parent->windowIcon() : QIcon());
    for (QPushButton *button : {ui->pushButton_filter, ui->pushButton_calibration,
                                ui->pushButton_hybridCalibration, ui->pushButton_body_adjustment})
        button->setEnabled(!m_is_config_locked);
    if (!m_is_bodycal_module_available)
        ui->pushButton_calibration->setEnabled(false);
    if (!m_is_bodyadjustment_module_available || m_is_joywand_multiuser)
        ui->pushButton_body_adjustment->setEnabled(false);
}
