#pragma once

#include "FaultEngine.h"
#include "dialogrobot.h"
#include "dialogtest.h"
#include "drive.h"
#include "filterdialog.h"
#include "testhost.h"

#include <QCheckBox>
#include <QComboBox>
#include <QDoubleSpinBox>
#include <QLabel>
#include <QSpinBox>
#include <QtTest>

#include <functional>

/** The widgets of an open filter dialog. */
struct FilterWidgets {
    explicit FilterWidgets(QWidget *dialog)
        : dialog(dialog),
          body(Drive::find<QComboBox>(dialog, "comboBox_body")),
          active(Drive::find<QCheckBox>(dialog, "checkBox_active")),
          preset(Drive::find<QComboBox>(dialog, "comboBox_preset")),
          labelStrength(Drive::find<QLabel>(dialog, "label_strength")),
          strength(Drive::find<QDoubleSpinBox>(dialog, "doubleSpinBox_strength")),
          prediction(Drive::find<QSpinBox>(dialog, "spinBox_prediction")),
          mode(Drive::find<QComboBox>(dialog, "comboBox_mode")),
          error(Drive::find<QLabel>(dialog, "label_error"))
    {
    }

    QWidget *dialog;
    QComboBox *body;
    QCheckBox *active;
    QComboBox *preset;
    QLabel *labelStrength;
    QDoubleSpinBox *strength;
    QSpinBox *prediction;
    QComboBox *mode;
    QLabel *error;
};

/** The entries of a combo box. */
inline QStringList entries(const QComboBox *box)
{
    QStringList texts;
    for (int i = 0; i < box->count(); ++i)
        texts << box->itemText(i);
    return texts;
}

/**
 * The base of the filter dialog's tests: a small controller, and a dialog with a simulated user.
 */
class FilterDialogTest : public DialogTest {
protected:
    static constexpr int standard = 0;
    static constexpr int joywand = 1;
    static constexpr int allBodies = -1;

    using User = std::function<void(FilterWidgets)>;

    /**
     * Three standard bodies: "Cap" with a custom preset, "Rig" with an inertial sensor, and an
     * uncalibrated one. Two Joywand devices, the second one uncalibrated. Two presets and two
     * modes.
     */
    static ControllerState smallState(const QString &protocol = QStringLiteral("1.24"))
    {
        ControllerState state = TestHost::scenario(QStringLiteral("studio"));
        state.protocol = protocol;
        state.filterPresets = {
                preset("preset6d_default", "Default", 0.5, 0.033, "adaptive_slow", true),
                preset("preset6d_custom", "Custom", 0.51, 0.03, "adaptive_fast", false)};
        state.filterModes = {{"adaptive_fast", "Adaptive fast", true, false},
                             {"adaptive_slow", "Adaptive slow", true, false}};
        BodyState cap = body("Cap", "preset6d_custom");
        cap.filterStrength = 0.42;
        cap.filterPrediction = 0.02;
        cap.filterMode = "adaptive_fast";
        BodyState rig = body("Rig", "preset6d_default");
        rig.sensor = state.sensors.first().name;
        BodyState free;
        free.filterPreset = "preset6d_default";
        free.filterMode = "adaptive_slow";
        state.trackingReference.clear();
        state.bodyTypes["standard"].bodies = {cap, rig, free};
        state.bodyTypes["joywand"].bodies = {body("Wand", "preset6d_default"), free};
        return state;
    }

    static FilterPresetState preset(const char *id, const char *description, double strength,
                                    double predictionSeconds, const char *mode, bool forInertial)
    {
        FilterPresetState preset;
        preset.id = id;
        preset.description = description;
        preset.strength = strength;
        preset.prediction = predictionSeconds;
        preset.mode = mode;
        preset.availableForInertial = forInertial;
        return preset;
    }

    static BodyState body(const char *description, const char *preset)
    {
        BodyState body;
        body.description = description;
        body.calibrated = true;
        body.markers = 5;
        body.filterPreset = preset;
        body.filterStrength = 0.5;
        body.filterPrediction = 0.033;
        body.filterMode = "adaptive_slow";
        return body;
    }

    static BodyState &standardBody(ControllerState &state, int index)
    {
        return state.bodyTypes["standard"].bodies[index];
    }

    /**
     * Opens the dialog and calls `user`; then closes the dialog with Escape if it is still open.
     */
    void visit(TestHost &host, FilterDialog &dialog, int type, int index, const User &user)
    {
        bool visited = false;
        robot().expectDialog("FilterDialog", [&](QWidget *shown) {
            visited = true;
            QVERIFY(QTest::qWaitForWindowActive(shown));
            user(FilterWidgets(shown));
        });
        dialog.update_and_exec(type, index);
        QVERIFY2(visited, "the dialog was not shown");
        QVERIFY(host.controller.unknownCommands().isEmpty());
    }

    void visit(TestHost &host, int type, int index, const User &user)
    {
        FilterDialog dialog(&host.io, &host.mainWindow, &host.versions);
        visit(host, dialog, type, index, user);
    }

    static User nothing()
    {
        return [](const FilterWidgets &) {};
    }

    /** Gives the check box the focus and presses the space key. */
    static void toggle(QCheckBox *box)
    {
        box->setFocus(Qt::TabFocusReason);
        QTest::keyClick(box, Qt::Key_Space);
    }

    /** Gives the box the focus and replaces its text by typing. */
    static void type(QAbstractSpinBox *box, const QString &text)
    {
        box->setFocus(Qt::TabFocusReason);
        QTest::keyClick(box, Qt::Key_A, Qt::ControlModifier);
        QTest::keyClicks(box, text);
    }
};
