#pragma once

#include "LineRunner.h"
#include "TranscriptEntry.h"

#include <QStringList>
#include <QVector>

class QMessageBox;

/** What one line of a script led to. */
struct SweepStep {
    Script::Line line;
    QVector<TranscriptEntry> operations; ///< without messages
    QStringList log;                     ///< lines of the message log
    int boxes = 0;                       ///< boxes that were answered because no line did
    QString window;                      ///< class of the window that the line acts on
};

/**
 * Plays a script while the controller is disturbed, as an operator who goes on as well as possible:
 * what cannot be done is left out, and an unexpected box is answered with its safe button. Then the
 * disturbance ends, and each dialog must show the controller again.
 *
 * Undisturbed it plays the same, but every line must succeed.
 */
class SweepRun : public LineRunner {
    Q_OBJECT

public:
    /** @param firstOperation number of operations before the module was loaded */
    SweepRun(const Script &script, const ScriptContext &context, bool isDisturbed,
             qint64 firstOperation);

    /**
     * A line that enters something is left out while another window is in front than in that run:
     * no operator presses OK in a window he did not expect.
     */
    void follow(const QVector<SweepStep> &undisturbed) { m_undisturbed = undisturbed; }
    /**
     * What the module asks for only when it is loaded stays as it was answered, so that a dialog
     * may differ from the controller when that was disturbed.
     */
    void allowDifferences() { m_allowsDifferences = true; }

    /** Steps of the script; the first one is the loading of the module and has no words. */
    const QVector<SweepStep> &steps() const { return m_steps; }
    /** What was wrong with the boxes, and with the dialogs when the disturbance was over. */
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
    /** A search keeps the dialog open until it is stopped. */
    void stopSearchFirst();
    void endDisturbance();
    /** The next line of the inspection, which depends on the pages there are. */
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
