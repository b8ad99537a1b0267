#pragma once

#include "FaultEngine.h"
#include "TrackingDlg.h"
#include "UserInput.h"
#include "administrationfixture.h"
#include "bodysettingsdlg.h"
#include "filterdialog.h"
#include "fixedangledlg.h"

#include <QComboBox>
#include <QPointer>

#include <functional>
#include <memory>

/** An action of a user or of another module, with its preparation. */
struct Deed {
    using Act = std::function<void(QWidget *window, TestHost &host)>;
    struct Box {
        QString title;
        QString text;
    };

    const char *dialog;      ///< class of the dialog in which the action happens
    Act act = {};            ///< empty when the action is the opening of the dialog
    Act before = {};         ///< done before the operations are counted
    QVector<Box> boxes = {}; ///< answered with Yes, or with OK when the box has no Yes
    /// class of the dialog that the action opens; it is closed with Escape
    const char *opens = "";
    QStringList faults = {}; ///< fault rules in force while the dialog is made
    const char *protocol = "1.24";
    bool isLeft = true;    ///< true when the sweep also covers the closing of the dialog
    bool isCompact = true; ///< true for a system with only two pages, which opens twice as fast
};

Q_DECLARE_METATYPE(Deed)

/**
 * Carries an action out once undisturbed and counts its operations. Then it repeats the action once
 * for each operation; each time the host deletes the dialog's window, and every dialog with it,
 * inside that operation.
 */
class DeletionSweep : public AdministrationFixture {
protected:
    static constexpr const char *administration = "BodyAdministrationDlg";

    /** A controller with few objects, so that many rounds are fast. */
    static ControllerState smallState()
    {
        ControllerState state = studio();
        const auto keep = [&state](const char *type, int count) {
            bodies(state, type).resize(count);
        };
        keep("standard", 3);
        keep("joywand", 1);
        keep("fingertracking", 1);
        keep("measurementtool", 1);
        keep("measurementtool_reference", 1);
        bodies(state, "standard")[1].sensor = state.sensors.first().name;
        bodies(state, "standard")[2] = BodyState();
        bodies(state, "standard")[2].active = false;
        QVector<TargetState> targets;
        for (const TargetState &target : qAsConst(state.targets)) {
            if (QStringList{"CR01", "CR02", "GL01", "JW01", "HN01", "TR01"}.contains(
                        target.shortName))
                targets.append(target);
        }
        state.targets = targets;
        state.targetGroups = QStringList{"Cross Target", "Glasses Target", "Tool Reference"};
        QVector<FilterPresetState> presets;
        for (const FilterPresetState &preset : qAsConst(state.filterPresets)) {
            if (QStringList{"preset6d_default", "preset6d_custom"}.contains(preset.id))
                presets.append(preset);
        }
        state.filterPresets = presets;
        state.sensors.resize(1);
        return state;
    }

    /** Deletes the window inside every operation of the action, one operation in each round. */
    void sweep(const Deed &deed)
    {
        const int count = play(deed, -1);
        QVERIFY2(count > 0, "nothing is asked or written");
        for (int operation = 0; operation < count && !QTest::currentTestFailed(); ++operation) {
            QCOMPARE(play(deed, operation), operation + 1);
            if (QTest::currentTestFailed())
                qInfo("deleted inside operation %d of %d", operation, count);
        }
    }

    // What a user does on the pages

    static Deed onFourPages(Deed deed)
    {
        deed.isCompact = false;
        return deed;
    }
    static Deed::Act clickTab(const char *form)
    {
        return [form](QWidget *window, TestHost &) {
            QTabWidget *tabs = pages(window);
            UserInput::clickTab(tabs->tabBar(), tabs->indexOf(page(window, form)));
        };
    }
    static Deed::Act key(int code)
    {
        return [code](QWidget *window, TestHost &) { UserInput::pressKey(window, code); };
    }
    static Deed::Act press(const char *form, const char *button)
    {
        return [=](QWidget *window, TestHost &) { Drive::click(page(window, form), button); };
    }
    static Deed::Act cell(const char *name, int row, int column)
    {
        return [=](QWidget *window, TestHost &) {
            Drive::clickCell(table(window, name), row, column);
        };
    }
    static Deed::Act mark(const char *name, int row, int column)
    {
        return [=](QWidget *window, TestHost &) {
            Drive::toggleCell(table(window, name), row, column);
        };
    }
    static Deed::Act category(const char *name)
    {
        return [=](QWidget *window, TestHost &) {
            Drive::choose(Drive::find<QComboBox>(page(window), "comboBox_filter"), name);
        };
    }
    static Deed::Act tick(const char *timer)
    {
        return [=](QWidget *window, TestHost &) { Drive::tick(page(window), timer); };
    }
    static Deed::Act inTurn(const Deed::Act &first, const Deed::Act &second)
    {
        return [=](QWidget *window, TestHost &host) {
            const QPointer<QWidget> guard(window);
            first(window, host);
            Drive::settle();
            if (guard)
                second(window, host);
        };
    }
    static void hold(QWidget *window, TestHost &) { Drive::holdTimers(page(window)); }
    static Deed::Act searching(int ticks = 10)
    {
        return [=](QWidget *window, TestHost &host) {
            host.edit([=](ControllerState &state) { state.search.durationTicks = ticks; });
            Drive::holdTimers(page(window));
            Drive::click(page(window), "pushButton_start");
        };
    }

private:
    using Run = std::function<void()>;

    static Run make(const Deed &deed, TestHost &host, QWidget *window)
    {
        const QByteArray name = deed.dialog;
        if (name == "BodyAdministrationDlg") {
            auto *dialog = new BodyAdministrationDlg(&host.io, window, &host.versions);
            // A window with a given size does not measure its contents, which would take most of
            // the time.
            dialog->resize(800, 600);
            return [dialog] { dialog->update_and_exec(); };
        }
        if (name == "FilterDialog") {
            auto *dialog = new FilterDialog(&host.io, window, &host.versions);
            return [dialog] { dialog->update_and_exec(0, -1); };
        }
        if (name == "TrackingDlg") {
            auto *dialog = new TrackingDlg(&host.io, window, &host.versions, "v3.0.6");
            return [dialog] { dialog->update_and_exec(); };
        }
        if (name == "FixedAngleDlg") {
            auto *dialog = new FixedAngleDlg(&host.io, window, &host.versions);
            return [dialog] { dialog->update_and_exec(); };
        }
        auto *dialog = new BodySettingsDlg(&host.io, window, &host.versions, "v3.0.6");
        return [dialog] { dialog->update_and_exec(); };
    }

    void expectDeed(const Deed &deed, TestHost &host, bool *isCounting)
    {
        m_user->expectDialog(deed.dialog, [this, deed, &host, isCounting](QWidget *window) {
            const QPointer<QWidget> guard(window);
            QApplication::setActiveWindow(window);
            if (deed.before)
                deed.before(window, host);
            Drive::settle();
            for (const Deed::Box &box : deed.boxes) {
                const bool asks = box.text.contains(QLatin1Char('?'));
                m_user->expectBox(box.title, box.text, asks ? Box::Yes : Box::Ok);
            }
            if (*deed.opens)
                m_user->expectDialog(deed.opens, [](QWidget *) {});
            if (deed.act) {
                *isCounting = true;
                deed.act(window, host);
            }
            Drive::settle();
            *isCounting = *isCounting && deed.isLeft;
            if (!deed.isLeft && guard)
                guard->hide();
        });
    }

    /** The number of operations until the end, or until the operation that deletes the window. */
    int play(const Deed &deed, int deletedInside)
    {
        static const ControllerState everything = smallState();
        ControllerState state = everything;
        state.protocol = QString::fromLatin1(deed.protocol);
        if (deed.dialog == QByteArray("BodyAdministrationDlg"))
            bodies(state, "standard").removeFirst();
        if (deed.isCompact) {
            state.model = QStringLiteral("POCKETUNIT");
            state.systemVersion = QStringLiteral("2.9.3");
        }
        TestHost host(state);
        for (const QString &fault : deed.faults)
            host.fault(fault);
        const QPointer<QWidget> window = new QWidget;
        const Run run = make(deed, host, window);
        host.io.faults()->clear();
        // Each round needs a new robot, because the windows that the old one expects never open
        // after the deletion.
        qApp->removeEventFilter(&robot());
        m_user = std::make_unique<DialogRobot>();
        int operations = 0;
        int boxes = 0;
        bool isCounting = !deed.act;
        QObject::connect(&host.io, &SimulatedIOManager::recorded, &host.mainWindow, [&] {
            if (!isCounting || operations++ != deletedInside)
                return;
            delete window;
            boxes = m_user->boxes().size();
            host.clear();
        });
        expectDeed(deed, host, &isCounting);
        run();
        isCounting = false;
        Drive::settle();
        QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
        if (deletedInside < 0) {
            m_user->verify();
            delete window;
        } else {
            verifyNothingFollowed(host, window, boxes);
        }
        m_user.reset();
        return operations;
    }

    void verifyNothingFollowed(const TestHost &host, const QWidget *window, int boxes) const
    {
        QVERIFY(!window);
        QCOMPARE(m_user->boxes().size(), boxes);
        QCOMPARE(host.lines(), QStringList());
        QCOMPARE(host.log(), QStringList());
        QCOMPARE(host.io.receiverCount("GlobalEvent"), 0);
    }

    std::unique_ptr<DialogRobot> m_user;
};
