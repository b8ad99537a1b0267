#pragma once

#include "LineRunner.h"
#include "TranscriptEntry.h"

#include <QStringList>
#include <QVector>

class QMessageBox;

/** The effects of one line of a script. */
struct SweepStep {
    Script::Line line;
    QVector<TranscriptEntry> operations; ///< without messages
    QStringList log;                     ///< lines of the message log
    int boxes = 0;                       ///< boxes that no line of the script answered
    QString window;                      ///< class of the window that the line uses
};

/**
 * Plays a script while the controller is disturbed, as an operator would who goes on as well as
 * possible: lines that cannot be done are skipped, and an unexpected box is answered with its safe
 * button. Then the disturbance ends, and each dialog must show the controller's state again.
 *
 * An undisturbed run plays the same lines, but every line must succeed.
 */
class SweepRun : public LineRunner {
    Q_OBJECT

public:
    /** @param firstOperation number of operations before the module was loaded */
    SweepRun(const Script &script, const ScriptContext &context, bool isDisturbed,
             qint64 firstOperation);

    /**
     * Skips a line that enters something when the window in front is not the one of the
     * `undisturbed` run, because no operator presses OK in an unexpected window.
     */
    void follow(const QVector<SweepStep> &undisturbed) { m_undisturbed = undisturbed; }
    /**
     * Allows a dialog to differ from the controller, because the module queries some values only
     * when it is loaded, and those queries were disturbed.
     */
    void allowDifferences() { m_allowsDifferences = true; }

    /** Steps of the script; the first one is the loading of the module and has no words. */
    const QVector<SweepStep> &steps() const { return m_steps; }
    /** What was wrong with the boxes, and with the dialogs after the disturbance. */
    const QStringList &violations() const { return m_violations; }
    /** Number of operations in the steps. */
    int operationCount() const;

protected:
    QString checkOutcome() override;
    bool clearTheWay() override;
    bool takeLine(Script::Line *line) override;
    QString judge(const Script::Line &line, const QString &problem) override;
    QString placeOf(const Script::Line &line) const override;

private:
    enum class Phase { Script, Closing, Inspection };

    void beginStep(const Script::Line &line);
    bool isLeftOut(const Script::Line &line) const;
    void endStep();
    bool dismissBox(QMessageBox *box);
    bool closeWindows();
    /** Stops a running search, which would keep the dialog open. */
    void stopSearchFirst();
    void endDisturbance();
    /** Provides the next line of the inspection, which depends on the existing pages. */
    bool takeInspection(Script::Line *line);

    Script m_script;
    const bool m_isDisturbed;
    const bool m_wasChangeable;
    Phase m_phase = Phase::Script;
    int m_next = 0;
    int m_closed = 0;
    QVector<QStringList> m_inspection;
    bool m_knowsPages = false;
    bool m_allowsDifferences = false;
    qint64 m_stepStart;
    int m_logStart = 0;
    QVector<SweepStep> m_undisturbed;
    QVector<SweepStep> m_steps;
    QStringList m_violations;
};
