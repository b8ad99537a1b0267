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
 * The dialog behind "Body administration": one tab per body type above the buttons that act on the
 * body selected in the current tab.
 *
 * Created once by the module and reused for every opening; owns its tabs, the target catalogue and
 * the message receiver. Calibration and adjustment are other modules' work: the dialog hides
 * itself, sends them a request and shows itself again when they answer "reopen". May be deleted
 * while it is open.
 */
class BodyAdministrationDlg : public QDialog {
    Q_OBJECT

public:
    /** Registers for the host's messages; the host's objects outlive the dialog. */
    BodyAdministrationDlg(IOManager *iom, QWidget *parent, BackendVersions *beVers);
    ~BodyAdministrationDlg() override;

    /** Withdraws the receiver from the host's channels; the host is about to shut down. */
    void about_to_exit();

public slots:
    /** Reads everything again and shows the dialog modally; returns when it is closed or hidden. */
    void update_and_exec();
    /** Closes the dialog; while the controller searches or calibrates it logs so and stays. */
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
    /** Reads what an opening shows; false when the dialog was deleted meanwhile. */
    bool prepare();
    /** Shows the dialog after `reading`, which is false when the dialog was deleted meanwhile. */
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
    bool m_opening = false;       ///< reads what it is about to show
    bool m_isExiting = false;     ///< the host shuts down
    bool m_running = false;       ///< exec() is on the stack
    bool m_reopenPending = false; ///< "reopen" came before exec() had returned
};
