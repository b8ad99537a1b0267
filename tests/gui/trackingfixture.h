#pragma once

#include "TrackingDlg.h"
#include "dialogrobot.h"
#include "dialogtest.h"
#include "drive.h"
#include "testhost.h"

#include <QCheckBox>
#include <QDir>
#include <QFile>
#include <QtTest>

#include <functional>

/** Helpers of the tests of the tracking settings dialog. */
class TrackingFixture : public DialogTest {
protected:
    const QString moduleVersion = QStringLiteral("v3.0.6");
    const QByteArray showAutoRestart = "<AUTO_RESTART_MEA_AFTER_SYNC_LOST HIDE=\"false\"/>";

    /** Writes a preferences file with these elements into the dialog's folder. */
    static void writePreferences(const QByteArray &children)
    {
        const QString folder = QDir::homePath() + QStringLiteral("/.QOR/MORVEK3/modules/")
                               + QStringLiteral("trackingsettings/v3.0.6/config");
        QVERIFY(QDir().mkpath(folder));
        QFile file(folder + QStringLiteral("/trackingsettings-preferences.xml"));
        QVERIFY(file.open(QIODevice::WriteOnly));
        file.write("<?xml version=\"1.0\" encoding=\"UTF-8\"?>\n<MORVEK>" + children
                   + "</MORVEK>\n");
    }

    static void toggle(QWidget *dialog, const char *checkBox)
    {
        auto *box = Drive::find<QCheckBox>(dialog, checkBox);
        box->setFocus();
        QTest::keyClick(box, Qt::Key_Space);
    }

    /** Presses Alt and the letter in the dialog, which becomes the active window first. */
    static void mnemonic(QWidget *dialog, Qt::Key letter)
    {
        QApplication::setActiveWindow(dialog);
        QTest::keyClick(dialog, letter, Qt::AltModifier);
    }

    /** Opens the dialog, calls `drive`, and returns when the dialog is closed. */
    void open(TrackingDlg *dialog, const std::function<void(QWidget *)> &drive)
    {
        robot().expectDialog(QStringLiteral("TrackingDlg"), drive);
        dialog->update_and_exec();
        robot().verify();
    }
    void openAndCancel(TrackingDlg *dialog)
    {
        open(dialog, [](QWidget *shown) { Drive::click(shown, "pushButton_cancel"); });
    }
};
