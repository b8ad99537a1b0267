#pragma once

#include "LineRunner.h"

#include <QStringList>
#include <QVector>

/**
 * Runs a script line by line and stops at the first failed one.
 *
 * Owned by main() or a test; must outlive the event loops it runs in.
 */
class ScriptRunner : public LineRunner {
    Q_OBJECT

public:
    ScriptRunner(const Script &script, const ScriptContext &context, QObject *parent = nullptr);

    /**
     * For each line that asked the controller for anything: number of operations, and the longest
     * time in which the dialogs could not react.
     */
    QStringList actionCosts() const { return m_costs; }
    /** How many lines were begun. */
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
    qint64 m_operationsBefore = 0; ///< when the last line began
    QStringList m_costs;
};
