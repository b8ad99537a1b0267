#include "CommandTable.h"

#include "CommandFamilies.h"
#include "ControllerRules.h"

namespace {

/** A placeholder for a numbered item reads as a small letter and "NN". */
bool isNumberPlaceholder(const QByteArray &word)
{
    return word.size() == 3 && word.endsWith("NN");
}

bool isNumbered(const QByteArray &word, char prefix)
{
    const QString text = QString::fromUtf8(word);
    return text == ControllerRules::numberedWord(prefix, ControllerRules::numberOf(text));
}

bool isPlaceholder(const QByteArray &word)
{
    return word == "TYPE" || word == "NAME" || word == "VALUE";
}

QString joined(const QList<QByteArray> &words, int from, int count)
{
    return QString::fromUtf8(words.mid(from, count).join(' '));
}

bool matches(const QList<QByteArray> &pattern, const QList<QByteArray> &words,
             QStringList *arguments)
{
    int at = 0;
    for (int i = 0; i < pattern.size(); ++i) {
        const QByteArray &expected = pattern.at(i);
        if (at >= words.size())
            return false;
        if (expected == "TEXT") {
            *arguments << joined(words, at, -1);
            return true;
        }
        int taken = 1;
        if (expected == "SENSOR")
            taken = words.size() - at - (pattern.size() - i - 1);
        if (taken < 1 || words.mid(at, taken).contains(QByteArray()))
            return false;
        const bool stands =
                expected == "SENSOR" || isPlaceholder(expected)
                || (isNumberPlaceholder(expected) && isNumbered(words.at(at), expected.at(0)));
        if (!stands && expected != words.at(at))
            return false;
        if (stands)
            *arguments << joined(words, at, taken);
        at += taken;
    }
    return at == words.size();
}

} // namespace

CommandTable::CommandTable()
{
    m_entries = bodyCommands() + bodyFilterCommands() + bodyTypeCommands() + targetLibraryCommands()
                + filter6dCommands() + inertialCommands() + systemCommands() + actionCommands();
    for (int i = 0; i < m_entries.size(); ++i) {
        m_patterns << QByteArray(m_entries.at(i).pattern).split(' ');
        m_byModule[m_patterns.last().first()] << i;
    }
}

const CommandTable &CommandTable::instance()
{
    static const CommandTable table;
    return table;
}

CommandTable::Match CommandTable::find(CommandAccess access, const QByteArray &line) const
{
    int start = 0;
    while (start < line.size() && line.at(start) == ' ')
        ++start;
    const QList<QByteArray> words = line.mid(start).split(' ');
    for (int index : m_byModule.value(words.first())) {
        QStringList arguments;
        const CommandEntry &entry = m_entries.at(index);
        if (entry.access == access && matches(m_patterns.at(index), words, &arguments))
            return {&entry, arguments};
    }
    return {};
}
