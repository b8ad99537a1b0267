#pragma once

#include "Script.h"
#include "ScriptContext.h"

#include <QElapsedTimer>
#include <QObject>
#include <QString>
#include <QStringList>

/**
 * Runs a script line by line from the event loop, whichever event loop that is: a line that opens a
 * modal dialog is followed by the next one while the dialog runs. Stops at the first failed line.
 *
 * Owned by main() or a test; must outlive the event loops it runs in.
 */
class ScriptRunner : public QObject {
    Q_OBJECT

public:
    ScriptRunner(const Script &script, const ScriptContext &context, QObject *parent = nullptr);

    /** Runs the first line when control returns to the event loop. */
    void start();
    bool isFinished() const { return m_finished; }
    /** "file:line: expected ..., found ..."; empty when every line succeeded. */
    QString failure() const { return m_failure; }
    /**
     * For each line that asked the controller for anything: number of operations, and the longest
     * time in which the dialogs could not react.
     */
    QStringList actionCosts() const { return m_costs; }

signals:
    /** `place` is "file:line". */
    void lineStarted(const QString &place);
    void finished(bool success);

private:
    void scheduleNext(int hops);
    void runNext();
    void finish(const QString &failure);
    /** What the oracle has to say about the last line; empty when it is not asked or content. */
    QString differenceAfterLine() const;
    void recordCost();

    Script m_script;
    ScriptContext m_context;
    int m_next = 0;
    int m_operationsBefore = 0; ///< when the last line began
    QElapsedTimer m_clock;      ///< runs since the event loop last had control
    qint64 m_heldNs = 0;        ///< longest time the last line kept it from the event loop
    bool m_finished = false;
    QString m_failure;
    QStringList m_costs;
};
