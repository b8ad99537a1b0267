#pragma once

#include "controllerlink.h"
#include "settings/fixedanglebody.h"

#include <QDialog>
#include <QList>

#include <memory>

class AngleTableWidget;
class BackendVersions;
class ConfigurationWatch;
class IOManager;
class LinkObserver;

namespace Ui {
class FixedAngleDlg;
}

/**
 * Shows and writes the fixed angles of the standard bodies.
 *
 * The dialog that opens it makes it for one opening and destroys it afterwards. The host's objects
 * outlive it. Nothing is sent before OK.
 */
class FixedAngleDlg final : public QDialog {
    Q_OBJECT

public:
    FixedAngleDlg(IOManager *iom, QWidget *parent, BackendVersions *beVers);
    ~FixedAngleDlg() override;

    /** Reads the bodies and runs the dialog. Below protocol 1.6 the table is empty. */
    int update_and_exec();
    /** Appends one record for each standard body, owned by the caller. A failed query is logged. */
    void get_fixed_angle_info(QList<FixedAngleBody *> &bodies) const;
    /**
     * Writes every row that was read or that the user has filled. Writes nothing and returns false
     * when a row does not hold three numbers. Also returns false when the controller refused a row
     * or when a row was filled only in part; a box then names the rows.
     */
    bool save_fix_angle_settings();

protected:
    void resizeEvent(QResizeEvent *event) override;
    void showEvent(QShowEvent *event) override;

private slots:
    void on_pushButton_ok_clicked();
    void on_pushButton_cancel_clicked();
    void on_pushButton_help_clicked();

private:
    void resizeToFont();
    void fitColumns();
    static QString shownName(const FixedAngleBody &body);
    bool report(const QStringList &refused, const QStringList &unread);
    void warn(const QString &text);

    LinkObserver *m_observer;
    ControllerLink m_link;
    std::unique_ptr<Ui::FixedAngleDlg> m_ui;
    AngleTableWidget *m_table;           ///< owned as a child
    ConfigurationWatch *m_configuration; ///< changes since the reading; owned as a child
    bool m_writing = false;              ///< true while an OK is being carried out
};
