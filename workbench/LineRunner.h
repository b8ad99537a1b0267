#pragma once

#include "Script.h"
#include "ScriptContext.h"

#include <QElapsedTimer>
#include <QObject>
#include <QString>
#include <QTimer>

/**
 * Carries out lines one by one from the event loop, whichever event loop that is: a line that opens
 * a modal dialog is followed by the next one while the dialog runs. Where the lines come from and
 * what a failed one means is up to who derives from it.
 *
 * Owned by main() or a test; must outlive the event loops it runs in.
 */
class LineRunner : public QObject {
    Q_OBJECT

public:
    explicit LineRunner(const ScriptContext &context, QObject *parent = nullptr);

    /** Carries out the first line when control returns to the event loop. */
    void start();
    bool isFinished() const { return m_finished; }
    /** Why it ended early; empty when every line succeeded. */
    QString failure() const { return m_failure; }

signals:
    /** `place` is "file:line". */
    void lineStarted(const QString &place);
    void finished(bool success);

protected:
    /** All work of the last line is done. Answers what is wrong with its outcome. */
    virtual QString checkOutcome() { return QString(); }
    /** True when something else had to be done first; its outcome is waited for. */
    virtual bool clearTheWay() { return false; }
    /** The next line; false at the end. */
    virtual bool takeLine(Script::Line *line) = 0;
    /** What is wrong after the last line. */
    virtual QString checkEnd() { return QString(); }
    /** A line said "expected ..., found ..."; the answer ends the run unless it is empty. */
    virtual QString judge(const Script::Line &line, const QString &problem) = 0;
    /** How a line is named in messages. */
    virtual QString placeOf(const Script::Line &line) const = 0;

    const ScriptContext &context() const { return m_context; }
    ScriptContext &context() { return m_context; }
    /** The longest time in ns for which the last line kept the event loop from its turn. */
    qint64 heldNs() const { return m_heldNs; }

private:
    void awaitSettling();
    void takeTurn();
    void runNext();
    void finish(const QString &failure);

    ScriptContext m_context;
    QTimer m_turn;
    int m_roundsLeft = 0;  ///< until the next line
    QElapsedTimer m_clock; ///< runs since the event loop last had control
    qint64 m_heldNs = 0;
    bool m_finished = false;
    QString m_failure;
};
