#pragma once

#include "bodyadministrationdialog.h"
#include "dialogtest.h"

#include <QLabel>
#include <QPushButton>
#include <QSpinBox>
#include <QTableWidget>

#include <functional>

/** What the tests of the page of the standard bodies have in common. */
class StandardPageTest : public DialogTest {
protected:
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

    /** Runs the dialog; `drive` acts on it with an empty transcript. The dialog is then closed. */
    void open(TestHost &host, const Acts &drive)
    {
        BodyAdministrationDlg dialog(&host.io, &host.mainWindow, &host.versions);
        expectPage(host, drive);
        dialog.update_and_exec();
    }

    /** As open(), with a dialog that a box's `meanwhile` may delete through m_dialog. */
    void openDeletable(TestHost &host, const Acts &drive)
    {
        m_dialog = new BodyAdministrationDlg(&host.io, &host.mainWindow, &host.versions);
        expectPage(host, drive);
        m_dialog->update_and_exec();
        const bool gone = m_dialog.isNull();
        delete m_dialog;
        QVERIFY2(gone, "the dialog was not deleted while its box stood");
    }
    std::function<void()> deletion()
    {
        return [this] { delete m_dialog; };
    }

    static QTableWidget *bodies(QWidget *window)
    {
        return Drive::find<QTableWidget>(window, "tableWidget_standard");
    }
    static QTableWidget *targets(QWidget *window)
    {
        return Drive::find<QTableWidget>(page(window), "tableWidget_targetlibrary");
    }
    /** The page; other pages and the dialog have widgets of the same names. */
    static QWidget *page(QWidget *window)
    {
        return Drive::find<QWidget>(window, "StandardAdministrationClass");
    }
    static BodyState body(const TestHost &host, int index)
    {
        return host.state().bodyTypes["standard"].bodies.value(index);
    }
    /** The studio with one thing changed. */
    static ControllerState studio(const std::function<void(ControllerState &)> &change)
    {
        ControllerState state = TestHost::scenario(QStringLiteral("studio"));
        change(state);
        return state;
    }
    static ControllerState studioOfProtocol(const QString &protocol)
    {
        return studio([&](ControllerState &state) { state.protocol = protocol; });
    }
    static bool isLive(const QTableWidget *table, int row, int column)
    {
        return table->item(row, column)->data(Qt::UserRole + 1).toInt() == 1;
    }
    /** Clicks a cell and lets what it triggers happen. */
    static void press(QTableWidget *table, int row, int column)
    {
        Drive::clickCell(table, row, column);
        Drive::settle();
    }
    static void toggle(QTableWidget *table, int row, int column)
    {
        Drive::toggleCell(table, row, column);
        Drive::settle();
    }

    QPointer<BodyAdministrationDlg> m_dialog;

private:
    void expectPage(TestHost &host, const Acts &drive)
    {
        robot().expectDialog(QStringLiteral("BodyAdministrationDlg"),
                             [&host, drive](QWidget *window) {
                                 Drive::settle();
                                 host.clear();
                                 drive(window, bodies(window));
                             });
    }
};
