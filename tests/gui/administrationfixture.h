#pragma once

#include "BodyTypeAdministrationTab.h"
#include "bodyadministrationdialog.h"
#include "dialogtest.h"

#include <QLabel>
#include <QPushButton>
#include <QSpinBox>
#include <QTabBar>
#include <QTabWidget>
#include <QTableWidget>

#include <functional>

/** Helpers of the tests of the body administration: its window, its pages, its messages. */
class AdministrationFixture : public DialogTest {
protected:
    using Box = QMessageBox;

    static constexpr const char *standardPage = "StandardAdministrationClass";
    static constexpr const char *joywandPage = "JoywandAdministrationClass";
    static constexpr const char *handsPage = "FingertrackingAdministrationClass";
    static constexpr const char *toolsPage = "MtAdministrationClass";
    /** The dialog's own buttons for the current body. */
    static constexpr const char *actionButtons[] = {"pushButton_filter", "pushButton_calibration",
                                                    "pushButton_hybridCalibration",
                                                    "pushButton_body_adjustment"};

    /** The title of a box that asks or informs. */
    static inline const QString boxTitle = QStringLiteral("MORVEK3");
    /** The title of a box that warns. */
    static inline const QString warning = QStringLiteral("Warning");
    /** The category of the targets that a search found, and the heading above them. */
    static inline const QString foundTargets = QStringLiteral("- Found Targets -");
    /** The check for custom calibrations, which changes nothing. */
    static inline const QString customCheck =
            QStringLiteral("morvek2 targetlib check_custom_calibration");

    /** The columns of the table of standard bodies. */
    enum Column {
        IdColumn,
        ActiveColumn,
        ReferenceColumn,
        NameColumn,
        ModelColumn,
        DeviceIdColumn,
        CalibrationColumn,
        FilterColumn,
        DeleteColumn,
        ResetColumn
    };
    using Acts = std::function<void(QWidget *window, QTableWidget *bodies)>;

    /** Opens the dialog, calls `drive`, and returns when the dialog is closed or hidden. */
    void open(BodyAdministrationDlg *dialog, const std::function<void(QWidget *)> &drive)
    {
        robot().expectDialog(QStringLiteral("BodyAdministrationDlg"), drive);
        dialog->update_and_exec();
        robot().verify();
    }

    /** Opens a dialog over `host`; `drive` acts on the standard bodies with an empty transcript. */
    void open(TestHost &host, const Acts &drive)
    {
        BodyAdministrationDlg dialog(&host.io, &host.mainWindow, &host.versions);
        expectStandardPage(host, drive);
        dialog.update_and_exec();
    }

    /** The same, with a dialog that deletion() deletes while a box is open. */
    void openDeletable(TestHost &host, const Acts &drive)
    {
        m_dialog = new BodyAdministrationDlg(&host.io, &host.mainWindow, &host.versions);
        expectStandardPage(host, drive);
        m_dialog->update_and_exec();
        const bool gone = m_dialog.isNull();
        delete m_dialog;
        QVERIFY2(gone, "the dialog was not deleted while its box was shown");
    }
    std::function<void()> deletion()
    {
        return [this] { delete m_dialog; };
    }

    /** Opens a dialog over `host` at the page of that form. */
    void openAt(TestHost &host, const char *form, const std::function<void(QWidget *)> &drive)
    {
        BodyAdministrationDlg dialog(&host.io, &host.mainWindow, &host.versions);
        open(&dialog, [&](QWidget *window) {
            goTo(window, form);
            drive(page(window, form));
        });
    }

    static QTabWidget *pages(QWidget *window)
    {
        return Drive::find<QTabWidget>(window, "tabWidget");
    }

    static QWidget *page(QWidget *window, const char *form)
    {
        return Drive::find<QWidget>(window, form);
    }

    static QTableWidget *bodies(QWidget *window)
    {
        return Drive::find<QTableWidget>(window, "tableWidget_standard");
    }
    /** The standard page; other pages and the dialog have widgets of the same names. */
    static QWidget *page(QWidget *window) { return page(window, standardPage); }
    static QTableWidget *targets(QWidget *window)
    {
        return Drive::find<QTableWidget>(page(window), "tableWidget_targetlibrary");
    }
    static QVector<BodyState> &bodies(ControllerState &state, const char *type)
    {
        return state.bodyTypes[QString::fromLatin1(type)].bodies;
    }
    static BodyState body(const TestHost &host, int index)
    {
        return host.state().bodyTypes["standard"].bodies.value(index);
    }

    /** The question and, below it, the name of the standard body, as its box shows them. */
    static QString named(const TestHost &host, int index, const QString &question)
    {
        const QString name = body(host, index).description;
        return name.isEmpty() ? question : question + QLatin1Char('\n') + name;
    }

    static QStringList titles(QWidget *window)
    {
        QStringList texts;
        for (int i = 0; i < pages(window)->count(); ++i)
            texts.append(pages(window)->tabText(i));
        return texts;
    }

    /** Clicks the page's tab. */
    static void goTo(QWidget *window, const char *form)
    {
        QTabBar *bar = pages(window)->tabBar();
        const int index = pages(window)->indexOf(page(window, form));
        QTest::mouseClick(bar, Qt::LeftButton, Qt::NoModifier, bar->tabRect(index).center());
    }

    static QTableWidget *table(QWidget *root, const char *name)
    {
        return Drive::find<QTableWidget>(root, name);
    }

    static bool isLive(const QTableWidget *table, int row, int column)
    {
        return table->item(row, column)->data(Qt::UserRole + 1).toInt() == 1;
    }

    /** Clicks a cell and handles the events that follow. */
    static void press(QTableWidget *table, int row, int column)
    {
        Drive::clickCell(table, row, column);
        Drive::settle();
    }
    /** Clicks the check box of a cell and handles the events that follow. */
    static void toggle(QTableWidget *table, int row, int column)
    {
        Drive::toggleCell(table, row, column);
        Drive::settle();
    }

    static QString label(QWidget *root, const char *name)
    {
        return Drive::find<QLabel>(root, name)->text();
    }

    static void announce(TestHost &host, const char *text, const char *sender = "AnyModule")
    {
        host.io.send_message("GlobalEvent", sender, 1, text);
    }

    /** Announces both modules to which the dialog sends requests. */
    static void announceModules(TestHost &host)
    {
        announce(host, "bodycalibration available");
        announce(host, "bodyadjustment available");
    }

    static void configurationChanged(TestHost &host)
    {
        announce(host, "ActiveConfigurationChanged", "ConfigurationModule");
        Drive::settle();
    }

    /** The lines that change the controller: all written lines except customCheck. */
    static QStringList changes(const TestHost &host)
    {
        QStringList lines = host.writes();
        lines.removeAll(customCheck);
        return lines;
    }

    QPointer<BodyAdministrationDlg> m_dialog;

private:
    void expectStandardPage(TestHost &host, const Acts &drive)
    {
        robot().expectDialog(QStringLiteral("BodyAdministrationDlg"),
                             [&host, drive](QWidget *window) {
                                 Drive::settle();
                                 host.clear();
                                 drive(window, bodies(window));
                             });
    }
};
