#pragma once

#include "CommandContext.h"
#include "SimulatedController.h"

#include <QByteArray>
#include <QHash>
#include <QStringList>
#include <QVector>

#include <array>

/** One command that the controller knows. */
struct CommandEntry {
    /** Carries a command out. */
    using Handler = CommandOutcome (*)(CommandContext &);

    CommandAccess access; ///< how the line reaches the controller
    /**
     * The line, as words and placeholders. TYPE, NAME and VALUE each mean one word. bNN, tNN, gNN,
     * mNN and dNN mean that letter and a number of at least two digits. SENSOR means one or more
     * words, TEXT the rest of the line.
     */
    const char *pattern;
    int major; ///< major number of the first protocol that has the command
    int minor; ///< minor number of that protocol
    /** True when a locked configuration refuses the command. */
    bool changesConfiguration;
    const char *meaning; ///< in English, for people
    const char *usedBy;  ///< classes of the module, separated by ", "
    Handler handler;     ///< never null
};

/** All commands of the controller. Built once and not changed afterwards. */
class CommandTable {
public:
    /** The entry that matches a line. */
    struct Match {
        const CommandEntry *entry = nullptr; ///< null when no entry matches the line
        /// the words in the places of the placeholders, in order
        QStringList arguments;
    };

    /** "get", "set" or "action". */
    static QString accessName(CommandAccess access);
    /** The one table of the process. */
    static const CommandTable &instance();

    /** All entries, family by family. */
    const QVector<CommandEntry> &entries() const { return m_entries; }
    /** The entry that matches a line. Blanks before the first word are ignored. */
    Match find(CommandAccess access, const QByteArray &line) const;

private:
    CommandTable();

    QVector<CommandEntry> m_entries;
    QVector<QList<QByteArray>> m_patterns; ///< the words of each entry's pattern
    /** Entries by access and by the first two words of the line, which are never placeholders. */
    std::array<QHash<QByteArray, QVector<int>>, 3> m_byBeginning;
};
