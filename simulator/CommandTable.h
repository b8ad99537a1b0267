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
     * The line: words as they are, and placeholders. TYPE, NAME and VALUE stand for one word, bNN,
     * tNN, gNN, mNN and dNN for that letter and a number of two digits at least, SENSOR for one or
     * more words, TEXT for the rest of the line.
     */
    const char *pattern;
    int major; ///< first protocol that knows the command
    int minor; ///< and its minor number
    /** Refused while the configuration is locked. */
    bool changesConfiguration;
    const char *meaning; ///< in English, for people
    const char *usedBy;  ///< classes of the module, separated by ", "
    Handler handler;     ///< never null
};

/** Every command there is. Built once; only read afterwards. */
class CommandTable {
public:
    /** What a line turns out to be. */
    struct Match {
        const CommandEntry *entry = nullptr; ///< null when the line is unknown
        QStringList arguments;               ///< what the placeholders took, in order
    };

    /** The one table of the process. */
    static const CommandTable &instance();

    /** All entries, family by family. */
    const QVector<CommandEntry> &entries() const { return m_entries; }
    /** The entry that a line belongs to. Blanks in front of the first word do not count. */
    Match find(CommandAccess access, const QByteArray &line) const;

private:
    CommandTable();

    QVector<CommandEntry> m_entries;
    QVector<QList<QByteArray>> m_patterns; ///< the words of each entry's pattern
    /** Entries by access and by the first two words of the line, which are never placeholders. */
    std::array<QHash<QByteArray, QVector<int>>, 3> m_byBeginning;
};
