#pragma once

#include "LineRunner.h"

#include <QStringList>
#include <QVector>

/**
 * Runs a script line by line and stops at the first line that fails.
 *
 * Owned by main() or a test. It must outlive the event loops in which it runs.
 */
class ScriptRunner : public LineRunner {
    Q_OBJECT

public:
    ScriptRunner(const Script &script, const ScriptContext &context, QObject *parent = nullptr);

    /**
     * For each line that sent operations: their number, and the longest time in which the dialogs
     * could not react.
     */
    QStringList actionCosts() const { return m_costs; }
    /** Number of lines that were begun. */
    int linesBegun() const { return m_next; }

protected:
    QString checkOutcome() override;
    bool takeLine(Script::Line *line) override;
    QString checkEnd() override;
    QString judge(const Script::Line &line, const QString &problem) override;
    QString placeOf(const Script::Line &line) const override;

private:
    void recordCost();

    Script m_script;
    int m_next = 0;
    qint64 m_operationsBefore = 0; ///< number of operations when the last line began
    QStringList m_costs;
};
