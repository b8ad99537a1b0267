#pragma once

#include "Script.h"
#include "ScriptContext.h"

#include <QElapsedTimer>
#include <QObject>
#include <QString>
#include <QTimer>

/**
 * Carries out lines one by one from the event loop. It works in any event loop: when a line opens a
 * modal dialog, the next line follows while the dialog runs. Subclasses provide the lines and
 * decide what a failed line means.
 *
 * Owned by main() or a test. It must outlive the event loops in which it runs.
 */
class LineRunner : public QObject {
    Q_OBJECT

public:
    explicit LineRunner(const ScriptContext &context, QObject *parent = nullptr);

    /** Carries out the first line when control returns to the event loop. */
    void start();
    bool isFinished() const { return m_finished; }
    /** The reason for an early end; empty when every line succeeded. */
    QString failure() const { return m_failure; }

signals:
    /** `place` is "file:line". */
    void lineStarted(const QString &place);
    void finished(bool success);

protected:
    /**
     * Called when all work of the last line is done. Returns what is wrong with its outcome, or an
     * empty text.
     */
    virtual QString checkOutcome() { return QString(); }
    /** True when another action had to be done first; the runner waits for its outcome. */
    virtual bool clearTheWay() { return false; }
    /** Provides the next line; false at the end. */
    virtual bool takeLine(Script::Line *line) = 0;
    /** Returns what is wrong after the last line, or an empty text. */
    virtual QString checkEnd() { return QString(); }
    /**
     * Called with "expected ..., found ..." after a line; a result that is not empty ends the run.
     */
    virtual QString judge(const Script::Line &line, const QString &problem) = 0;
    /** The name of a line in messages. */
    virtual QString placeOf(const Script::Line &line) const = 0;

    const ScriptContext &context() const { return m_context; }
    ScriptContext &context() { return m_context; }
    /** The longest time in ns for which the last line blocked the event loop. */
    qint64 heldNs() const { return m_heldNs; }

private:
    void awaitSettling();
    void takeTurn();
    void runNext();
    void finish(const QString &failure);

    ScriptContext m_context;
    QTimer m_turn;
    int m_roundsLeft = 0;  ///< rounds of the event loop until the next line
    QElapsedTimer m_clock; ///< measures since the event loop last had control
    qint64 m_heldNs = 0;
    bool m_finished = false;
    QString m_failure;
};
