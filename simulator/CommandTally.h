#pragma once

#include "FaultEngine.h"
#include "SimulatedController.h"

#include <QByteArray>
#include <QSet>
#include <QString>
#include <QVector>

#include <memory>

/**
 * What clients ask of a simulated controller, for the page that says what covers each command.
 *
 * A row is a line of five texts with tabs between them: the kind of access, the command as the
 * table of commands has it, the class of the dialog in front, the effect of the fault that
 * disturbed it, and the script that was played; the last three are empty when there was none. What
 * is asked again, or what no controller knows, makes no row.
 */
class CommandTally {
public:
    /** A tally for the file that TRACKING_COMMAND_TALLY names; null while that names none. */
    static std::unique_ptr<CommandTally> wanted();

    /** Appends to the file when it is destroyed; several processes may do that at a time. */
    explicit CommandTally(const QString &file);
    ~CommandTally();

    CommandTally(const CommandTally &) = delete;
    CommandTally &operator=(const CommandTally &) = delete;

    /** The script that asks from now on, as its folder and name, "walks/morning". */
    void setScript(const QString &file);
    /**
     * Enters an operation.
     *
     * @param access whether the line asks, sets or acts
     * @param line the line as the module sent it
     * @param dialog class of the dialog in front; empty when there is none
     * @param fired rules that disturbed it
     * @param isLinkDead nothing arrives any more, whatever fired
     */
    void add(CommandAccess access, const QByteArray &line, const QString &dialog,
             const QVector<FaultRule> &fired, bool isLinkDead);

private:
    const QString m_file;
    QByteArray m_script;
    QSet<QByteArray> m_rows; ///< with a line break each
};
