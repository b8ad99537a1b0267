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

/** What the tests of the body administration share: its window, its pages, its messages. */
class AdministrationFixture : public DialogTest {
protected:
    using Box = QMessageBox;

    static constexpr const char *standardPage = "StandardAdministrationClass";
    static constexpr const char *joywandPage = "JoywandAdministrationClass";
    static constexpr const char *handsPage = "FingertrackingAdministrationClass";
    static constexpr const char *toolsPage = "MtAdministrationClass";

    static ControllerState studio(const QString &protocol = QStringLiteral("1.24"))
    {
        ControllerState state = TestHost::scenario(QStringLiteral("studio"));
        state.protocol = protocol;
        return state;
    }

    /** Opens the dialog, lets `drive` work it, and returns when it is closed or hidden. */
    void open(BodyAdministrationDlg *dialog, const std::function<void(QWidget *)> &drive)
    {
        robot().expectDialog(QStringLiteral("BodyAdministrationDlg"), drive);
        dialog->update_and_exec();
        robot().verify();
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

    static bool isEnabled(QWidget *root, const char *name)
    {
        return Drive::find<QWidget>(root, name)->isEnabled();
    }

    static bool isVisible(QWidget *root, const char *name)
    {
        return Drive::find<QWidget>(root, name)->isVisible();
    }

    static QString label(QWidget *root, const char *name)
    {
        return Drive::find<QLabel>(root, name)->text();
    }

    static void announce(TestHost &host, const char *text, const char *sender = "AnyModule")
    {
        host.io.send_message("GlobalEvent", sender, 1, text);
    }

    /** Both modules that the dialog hands bodies to are there. */
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

    /** The lines that change the controller; the check for custom calibrations changes nothing. */
    static QStringList changes(const TestHost &host)
    {
        QStringList lines = host.writes();
        lines.removeAll(QStringLiteral("morvek2 targetlib check_custom_calibration"));
        return lines;
    }
};
