#pragma once

#include "controllerlink.h"
#include "support/refreshgate.h"

#include <QDialog>
#include <QIcon>
#include <QMap>

#include <memory>

class BodyAdminMessageReceiver;
class BodyTypeAdministrationTab;
class JoywandAdministration;
class LinkObserver;
class Targetlibrary;

namespace Ui {
class BodyAdministrationDlg;
}

/**
 * The dialog behind "Body administration": one tab for each body type, and below the tabs the
 * buttons that act on the body selected in the current tab.
 *
 * The module creates it once and uses it for every opening. The dialog owns its tabs, the target
 * catalogue and the message receiver. Other modules calibrate and adjust bodies: the dialog hides
 * itself, sends them a request and shows itself again when they answer "reopen". The host may
 * delete the dialog while it is open.
 */
class BodyAdministrationDlg : public QDialog {
    Q_OBJECT

public:
    /** Registers for the host's messages; the host's objects outlive the dialog. */
    BodyAdministrationDlg(IOManager *iom, QWidget *parent, BackendVersions *beVers);
    ~BodyAdministrationDlg() override;

    /** Withdraws the receiver from the host's channels, because the host is about to shut down. */
    void about_to_exit();

public slots:
    /** Reads everything again and shows the dialog modally; returns when it is closed or hidden. */
    void update_and_exec();
    /**
     * Closes the dialog. While the controller searches or calibrates, it logs a line and remains
     * open.
     */
    void reject() override;

protected:
    void keyPressEvent(QKeyEvent *event) override;
    bool eventFilter(QObject *watched, QEvent *event) override;

private slots:
    void on_tabWidget_currentChanged(int index);
    void onAdminTabWidget_selectionChanged(const QString &type, int index);
    void on_pushButton_calibration_clicked();
    void on_pushButton_hybridCalibration_clicked();
    void on_pushButton_body_adjustment_clicked();
    void on_pushButton_filter_clicked();
    void on_pushButton_exit_clicked();
    void onReceiveReopen();
    void onReceiveBodyCalAvailable();
    void onReceiveBodyAdjustmentAvailable();
    void update_config_locked();
    void refreshIfVisible();

private:
    void createTabs();
    void fitToContents();
    void chainTabOrder();
    void addPages();
    void initMessageReceiver();
    bool is_config_locked() const;
    bool isCalTargetlibactive() const;
    int getCurrentBodyindex(int type) const;
    BodyTypeAdministrationTab *currentTab() const;
    void showLockState();
    void refreshCurrentTab();
    void applyButtonRules();
    void update_calibration_button();
    void update_body_adjustment_button();
    void update_body_hybridCalibration_button();
    void update_body_filter_button();
    void activateSelectDeselectButtons(const QString &type);
    bool hasCurrentBody() const;
    void readMissing();
    /** Reads what the dialog shows at its opening. False when the dialog was deleted meanwhile. */
    bool prepare();
    /** Runs `reading` and, unless it returns false for a deleted dialog, shows the dialog. */
    void showAfter(const std::function<bool()> &reading);
    void offerStop();
    void runModally();
    void leave();

    IOManager *iom;
    BackendVersions *beVers;
    QWidget *m_parent;
    LinkObserver *m_observer;
    ControllerLink m_link;
    std::unique_ptr<Ui::BodyAdministrationDlg> ui;
    Targetlibrary *tl;
    QMap<int, BodyTypeAdministrationTab *> m_tabs;
    JoywandAdministration *m_joywandTab = nullptr;
    int m_current_tab = 0;
    QString current_btype;
    int current_bid = -1;
    BodyAdminMessageReceiver *messageReceiver = nullptr;
    bool m_is_bodycal_module_available = false;
    bool m_is_bodyadjustment_module_available = false;
    bool m_is_joywand_multiuser = false;
    bool m_is_config_locked = false;
    QIcon m_icon_lock;
    RefreshGate m_refresh;
    bool m_opening = false;       ///< true while the dialog reads what it is about to show
    bool m_isExiting = false;     ///< true once the host shuts down
    bool m_running = false;       ///< true while exec() is on the stack
    bool m_reopenPending = false; ///< true when "reopen" came before exec() had returned
};
