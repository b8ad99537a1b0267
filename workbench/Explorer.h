#pragma once

#include "ActionChooser.h"
#include "LineRunner.h"

#include <QStringList>
#include <QVector>

/**
 * Drives the dialogs at random with lines of scripts. It writes each line to a file before it
 * carries the line out, so that the script exists even after a crash.
 */
class Explorer : public LineRunner {
    Q_OBJECT

public:
    /**
     * @param scenario name for the script's first line
     * @param steps number of actions; at least 1
     * @param file is written again before each line
     */
    Explorer(const ScriptContext &context, quint32 seed, const QString &scenario, int steps,
             const QString &file);

protected:
    QString checkOutcome() override;
    bool takeLine(Script::Line *line) override;
    QString judge(const Script::Line &line, const QString &problem) override;
    QString placeOf(const Script::Line &line) const override;

private:
    QString save() const;

    ActionChooser m_chooser;
    const quint32 m_seed;
    const QString m_scenario;
    int m_stepsLeft;
    const QString m_file;
    QVector<QStringList> m_waiting;
    QVector<Script::Line> m_done;
};
