#pragma once

#include "controllerlink.h"

#include <QDialog>
#include <QStringList>

#include <memory>
#include <optional>

class BackendVersions;
class ConfigurationWatch;
class EditDelegate;
class IOManager;
class LinkObserver;

namespace Ui {
class BodySettingsDlg;
}

/**
 * Lists the standard bodies and lets the user rename them; OK writes the names.
 *
 * The embedding program owns the dialog and may open it any number of times. The host's objects
 * outlive it.
 */
class BodySettingsDlg : public QDialog {
    Q_OBJECT

public:
    /** `moduleVersion` is a parameter for embedding programs; the dialog does not show it. */
    BodySettingsDlg(IOManager *iom, QWidget *parent, BackendVersions *beVers,
                    QString moduleVersion);
    ~BodySettingsDlg() override;

    /** Sets up columns and headers of the empty table. */
    void setupTable();
    /** Fills the table from the controller. A failed query is logged, and the next one follows. */
    void updateTable();
    /** The names in the table, in row order. */
    QStringList get_current_body_names() const;
    /**
     * Writes every name, even an unchanged one, except a name that could not be read and was not
     * entered since. A refused name is logged, and the next one follows.
     */
    void saveBodySettings();
    /** Shows or hides the button of the fixed angles, which old protocols do not have. */
    void show_fixed_angle_button(bool show);

public slots:
    /** Reads the bodies and runs the dialog. Below protocol 1.16 nothing can be edited. */
    int update_and_exec();

protected:
    void resizeEvent(QResizeEvent *event) override;
    void showEvent(QShowEvent *event) override;

private slots:
    void on_pushButton_ok_clicked();
    void on_pushButton_cancel_clicked();
    void on_pushButton_special_clicked();

private:
    enum Column { IdColumn, NameColumn, StateColumn, ColumnCount };

    void fitColumns();
    /** A body as read from the controller. */
    struct Body {
        std::optional<QString> name; ///< nothing when it cannot be read
        bool isCalibrated = false;
    };
    static Body readBody(const ControllerLink &link, int number);
    void fillRow(int row, const Body &body);
    bool isUnread(int row) const;
    bool canRename() const { return m_link.protocolAtLeast(1, 16); }

    IOManager *m_iom;
    BackendVersions *m_beVers;
    LinkObserver *m_observer;
    ControllerLink m_link;
    std::unique_ptr<Ui::BodySettingsDlg> m_ui;
    EditDelegate *m_nameDelegate;        ///< owned as a child
    ConfigurationWatch *m_configuration; ///< changes since the last reading; owned as a child
    bool m_busy = false;                 ///< true while the dialog reads or carries out an OK
};
