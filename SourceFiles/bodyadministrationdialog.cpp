#include "bodyadministrationdialog.h"

#include "ui_bodyadministrationdialog.h"

#include "BackendVersions.h"
#include "BodyTypeAdministrationTab.h"
#include "bodyadminmessagereceiver.h"
#include "configurationwatch.h"
#include "fingertrackingadministration.h"
#include "hostcall.h"
#include "joywandadministration.h"
#include "linkobserver.h"
#include "mtadministration.h"
#include "standardadministration.h"
#include "support/filterdialogrun.h"
#include "support/modulerequests.h"
#include "support/moduleversion.h"
#include "support/steps.h"
#include "support/windowsize.h"
#include "targetlibrary.h"
#include "waiting.h"
#include "wheelguard.h"

#include <QKeyEvent>
#include <QPointer>
#include <QTabBar>

#include <utility>

namespace {

enum TabKey { StandardTab = 0, JoywandTab = 1, HandsTab = 2, MeasurementToolTab = 3 };

/** The compact system offers measurement tools in versions after this one. */
const VersionInfo lastCompactWithoutTools(2, 9, 3);

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

BodyAdministrationDlg::~BodyAdministrationDlg()
{
    about_to_exit();
    messageReceiver->disconnect();
    for (BodyTypeAdministrationTab *tab : qAsConst(m_tabs))
        tab->abandon();
    m_link.close();
    ui->tabWidget->disconnect(this);
    if (HostCall::isUnderWay()) {
        // Each page keeps its widgets, but the code of the tab no longer runs.
        qDeleteAll(m_tabs);
        HostCall::keepWidgetsOf(this);
    }
}

void BodyAdministrationDlg::fitToContents()
{
    WindowSize::fitToContents(this, m_parent);
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
    const auto changed = &BodyAdminMessageReceiver::activeConfigurationChanged;
    // This comes before any query: records and typed text belong to the previous configuration.
    for (BodyTypeAdministrationTab *tab : qAsConst(m_tabs))
        connect(messageReceiver, changed, tab, &BodyTypeAdministrationTab::outdate);
    connect(messageReceiver, changed, this, &BodyAdministrationDlg::update_config_locked);
    for (BodyTypeAdministrationTab *tab : qAsConst(m_tabs)) {
        connect(messageReceiver, changed, tab,
                &BodyTypeAdministrationTab::ON_activeConfigurationChanged);
    }
    // An open dialog shows values of the previous configuration.
    connect(messageReceiver, changed, this, &BodyAdministrationDlg::refreshIfVisible,
            Qt::QueuedConnection);
    // This is how open settings dialogs receive the change, even those opened by other code.
    connect(messageReceiver, changed, this, [this] { ConfigurationWatch::announce(iom); });
}

void BodyAdministrationDlg::addPages()
{
    ui->tabWidget->clear();
    for (BodyTypeAdministrationTab *tab : qAsConst(m_tabs)) {
        connect(tab, &BodyTypeAdministrationTab::selection_changed, this,
                &BodyAdministrationDlg::onAdminTabWidget_selectionChanged);
        ui->tabWidget->addTab(tab, tab->getTabTitle());
    }
    ui->tabWidget->installEventFilter(this);
    ui->tabWidget->tabBar()->installEventFilter(this);
}

void BodyAdministrationDlg::about_to_exit()
{
    if (std::exchange(m_isExiting, true))
        return;
    m_link.unregisterReceiver("BodyAdministrationModule", messageReceiver);
    m_link.unregisterReceiver("GlobalEvent", messageReceiver);
    for (BodyTypeAdministrationTab *tab : qAsConst(m_tabs))
        tab->retire();
}

// Opening, closing, reopening

void BodyAdministrationDlg::update_and_exec()
{
    showAfter([this] { return prepare(); });
}

void BodyAdministrationDlg::showAfter(const std::function<bool()> &reading)
{
    // The opening that is already in progress shows the dialog.
    if (m_opening)
        return;
    m_opening = true;
    if (!reading())
        return;
    m_opening = false;
    runModally();
}

bool BodyAdministrationDlg::prepare()
{
    const Waiting waiting(m_observer, Waiting::For::Refresh, tr("Reading bodies ..."));
    bool isMultiuser = false;
    return runSteps(this, {[&] { update_config_locked(); }, [&] { readMissing(); },
                           [&] { isMultiuser = m_joywandTab->is_multiuser_enabled(); },
                           [&] {
                               m_is_joywand_multiuser = isMultiuser;
                               showLockState();
                           },
                           [&] { applyButtonRules(); }, [&] { refreshCurrentTab(); },
                           [&] { fitToContents(); }});
}

void BodyAdministrationDlg::readMissing()
{
    const ControllerLink link = m_link;
    const bool isLibraryNew = tl->readMissing();
    const auto tabs = link.isClosed() ? decltype(m_tabs)() : m_tabs;
    for (auto tab = tabs.begin(); tab != tabs.end() && !link.isClosed(); ++tab)
        (*tab)->readMissing(isLibraryNew);
}

void BodyAdministrationDlg::runModally()
{
    if (m_running && !isVisible()) {
        // The dialog is hidden for another module, and is shown when that module's call returns.
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
    } while (self && m_reopenPending && !m_isExiting);
    if (self)
        m_running = false;
}

void BodyAdministrationDlg::onReceiveReopen()
{
    if (m_isExiting)
        return;
    showLockState();
    showAfter([this] {
        return runSteps(this, {[this] { refreshCurrentTab(); }, [this] { fitToContents(); }});
    });
}

void BodyAdministrationDlg::refreshIfVisible()
{
    if (!isVisible() || m_isExiting)
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
    const ControllerLink link = m_link;
    const bool searching = isCalTargetlibactive();
    if (link.isClosed())
        return;
    if (searching) {
        offerStop();
        link.log(QString::fromLatin1(QT_TRANSLATE_NOOP(
                "MessageLine", "Unable to close dialog during calibration is running")));
        return;
    }
    currentTab()->commitEditing();
    for (BodyTypeAdministrationTab *tab : qAsConst(m_tabs))
        tab->about_to_exit();
    accept();
}

void BodyAdministrationDlg::offerStop()
{
    for (const BodyTypeAdministrationTab *tab : qAsConst(m_tabs)) {
        if (tab->isSearchRunning())
            return;
    }
    // The search lost its poll or belongs to another client. Only the operator can end it now.
    currentTab()->offerStop();
}

bool BodyAdministrationDlg::isCalTargetlibactive() const
{
    const ControllerLink link = m_link;
    const auto active = link.text("status active");
    if (!active)
        link.log(QStringLiteral("Error: Unable to get state of calibration"));
    return active && *active != QLatin1String("none");
}

void BodyAdministrationDlg::keyPressEvent(QKeyEvent *event)
{
    if (event->key() == Qt::Key_Return || event->key() == Qt::Key_Enter) {
        event->accept();
        // Enter ends the editing of a field and must not press a default button as well. It presses
        // a button only while that button has the focus.
        if (auto *button = qobject_cast<QPushButton *>(focusWidget());
            button && !event->isAutoRepeat())
            button->click();
        return;
    }
    if (event->key() != Qt::Key_F8) {
        QDialog::keyPressEvent(event);
        return;
    }
    currentTab()->commitEditing();
    ui->tabWidget->setCurrentIndex((ui->tabWidget->currentIndex() + 1) % ui->tabWidget->count());
}

bool BodyAdministrationDlg::eventFilter(QObject *watched, QEvent *event)
{
    // Typed text is taken over before its page is left, because a hidden page no longer acts.
    // Unhandled keys and clicks arrive here, too, but they leave no page.
    const auto *key = event->type() == QEvent::KeyPress ? static_cast<QKeyEvent *>(event) : nullptr;
    const bool leavesByKey = key && (key->modifiers() & Qt::ControlModifier) != 0
                             && (key->key() == Qt::Key_Tab || key->key() == Qt::Key_Backtab);
    const bool leavesByBar = watched == ui->tabWidget->tabBar()
                             && (event->type() == QEvent::Shortcut || event->type() == QEvent::Wheel
                                 || event->type() == QEvent::MouseButtonPress);
    if (leavesByKey || leavesByBar)
        currentTab()->commitEditing();
    return QDialog::eventFilter(watched, event);
}

BodyTypeAdministrationTab *BodyAdministrationDlg::currentTab() const
{
    return m_tabs.value(m_current_tab);
}

void BodyAdministrationDlg::refreshCurrentTab()
{
    const Waiting waiting(m_observer, Waiting::For::Refresh, tr("Reading bodies ..."));
    m_refresh.run(this, {[&] {
                             BodyTypeAdministrationTab *tab = currentTab();
                             tab->updateCalStatusTablewidgetTl(tab->mainBodyType());
                         },
                         // The tab announces its current body, and the button rules follow.
                         [&] { currentTab()->update_tab(); }});
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
    runSteps(this, {[&] { refreshCurrentTab(); }, [&] { applyButtonRules(); }});
}

void BodyAdministrationDlg::onAdminTabWidget_selectionChanged(const QString &type, int index)
{
    current_btype = type;
    current_bid = index;
    runSteps(this, {[&] { applyButtonRules(); }, [&] { activateSelectDeselectButtons(type); }});
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

void BodyAdministrationDlg::applyButtonRules()
{
    runSteps(this, {[&] { update_calibration_button(); }, [&] { update_body_adjustment_button(); },
                    [&] { update_body_hybridCalibration_button(); },
                    [&] { update_body_filter_button(); }});
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
    const QPointer<QPushButton> button = ui->pushButton_hybridCalibration;
    const bool possible = currentTab()->is_hybridbodycalibration_possible();
    if (button)
        button->setEnabled(possible);
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
    currentTab()->perform([this] {
        if (runFilterDialog(this, iom, beVers, m_current_tab, getCurrentBodyindex(m_current_tab)))
            runSteps(this, {[&] { currentTab()->update_tab(); }, [&] { applyButtonRules(); }});
    });
}

int BodyAdministrationDlg::getCurrentBodyindex(int type) const
{
    const bool filtered = type == StandardTab || type == JoywandTab;
    return filtered ? m_tabs.value(type)->getCurrentBodyindex() : -1;
}

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
    const ControllerLink link = m_link;
    return link.isConfigLocked();
}

void BodyAdministrationDlg::update_config_locked()
{
    const ControllerLink link = m_link;
    const bool locked = is_config_locked();
    if (link.isClosed())
        return;
    m_is_config_locked = locked;
    const auto tabs = m_tabs;
    for (auto tab = tabs.begin(); tab != tabs.end() && !link.isClosed(); ++tab)
        (*tab)->setConfigLockedStatus(locked);
}

void BodyAdministrationDlg::showLockState()
{
    ui->pushButton_calibration->setVisible(m_current_tab == MeasurementToolTab);
    const QIcon icon = m_is_config_locked ? m_icon_lock
                       : m_parent         ? m_parent->windowIcon()
                                          : QIcon();
    if (windowIcon().cacheKey() != icon.cacheKey())
        setWindowIcon(icon);
    // The button rules enable what the current body allows; enabling all buttons first flickers.
    const bool isAdjustable = m_is_bodyadjustment_module_available && !m_is_joywand_multiuser;
    const std::pair<QPushButton *, bool> buttons[] = {
            {ui->pushButton_filter, true},
            {ui->pushButton_calibration, m_is_bodycal_module_available},
            {ui->pushButton_hybridCalibration, true},
            {ui->pushButton_body_adjustment, isAdjustable}};
    for (const auto &[button, available] : buttons) {
        if (m_is_config_locked || !available)
            button->setEnabled(false);
    }
}
