#include "CommandReference.h"

#include "CommandTable.h"

namespace {

QString introduction()
{
    return QStringLiteral(
            "# Controller commands\n"
            "\n"
            "The commands that the simulated controller knows. This page is generated from its\n"
            "command table; a test fails when the two differ.\n"
            "\n"
            "In a command `TYPE`, `NAME` and `VALUE` stand for one word, `bNN`, `tNN`, `gNN`,\n"
            "`mNN` and `dNN` for a body, target, group, member or sensor number of two digits at\n"
            "least, `SENSOR` for the words of a sensor's name and `TEXT` for the rest of the "
            "line.\n"
            "\"From\" is the first protocol version that knows the command; older ones refuse it.\n"
            "\"Locked\" tells what a locked configuration does to it.\n");
}

} // namespace

QString commandsMarkdown()
{
    QString page = introduction();
    QString module;
    for (const CommandEntry &entry : CommandTable::instance().entries()) {
        const QString pattern = QString::fromLatin1(entry.pattern);
        const QString word = pattern.section(QLatin1Char(' '), 0, 0);
        if (word != module) {
            module = word;
            page += QStringLiteral("\n## %1\n\n"
                                   "| Command | Access | From | Locked | Meaning | Used by |\n"
                                   "|---|---|---|---|---|---|\n")
                            .arg(module);
        }
        page += QStringLiteral("| `%1` | %2 | %3.%4 | %5 | %6 | %7 |\n")
                        .arg(pattern, CommandTable::accessName(entry.access))
                        .arg(entry.major)
                        .arg(entry.minor)
                        .arg(entry.changesConfiguration ? QStringLiteral("refused")
                                                        : QStringLiteral("allowed"),
                             QString::fromLatin1(entry.meaning), QString::fromLatin1(entry.usedBy));
    }
    return page;
}
