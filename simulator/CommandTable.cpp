#include "CommandTable.h"

#include "CommandFamilies.h"
#include "ControllerRules.h"

namespace {

/** True for a placeholder of a numbered item, which is a small letter and "NN". */
bool isNumberPlaceholder(const QByteArray &word)
{
    return word.size() == 3 && word.endsWith("NN");
}

/** True for the prefix and a number of at least two digits without needless zeros. */
bool isNumbered(const QByteArray &word, char prefix)
{
    constexpr int shortest = 3;
    constexpr int longest = 10;
    if (word.size() < shortest || word.size() > longest || word.at(0) != prefix)
        return false;
    for (int i = 1; i < word.size(); ++i) {
        if (word.at(i) < '0' || word.at(i) > '9')
            return false;
    }
    return word.size() == shortest || word.at(1) != '0';
}

bool isPlaceholder(const QByteArray &word)
{
    return word == "TYPE" || word == "NAME" || word == "VALUE";
}

QString joined(const QList<QByteArray> &words, int from, int count)
{
    return count == 1 ? QString::fromUtf8(words.at(from))
                      : QString::fromUtf8(words.mid(from, count).join(' '));
}

/** True when no word is empty; two blanks in a row give an empty word. */
bool areWords(const QList<QByteArray> &words, int from, int count)
{
    for (int i = from; i < from + count; ++i) {
        if (words.at(i).isEmpty())
            return false;
    }
    return count > 0;
}

/** Position after the second word; the size of a line that has fewer words. */
int endOfBeginning(const QByteArray &line)
{
    const int first = line.indexOf(' ');
    const int second = first < 0 ? -1 : line.indexOf(' ', first + 1);
    return second < 0 ? line.size() : second;
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
        if (!areWords(words, at, taken))
            return false;
        const bool isArgument =
                expected == "SENSOR" || isPlaceholder(expected)
                || (isNumberPlaceholder(expected) && isNumbered(words.at(at), expected.at(0)));
        if (!isArgument && expected != words.at(at))
            return false;
        if (isArgument)
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
        const QByteArray pattern(m_entries.at(i).pattern);
        m_patterns << pattern.split(' ');
        m_byBeginning[std::size_t(m_entries.at(i).access)][pattern.left(endOfBeginning(pattern))]
                << i;
    }
}

QString CommandTable::accessName(CommandAccess access)
{
    switch (access) {
    case CommandAccess::Get:
        return QStringLiteral("get");
    case CommandAccess::Set:
        return QStringLiteral("set");
    case CommandAccess::Action:
        return QStringLiteral("action");
    }
    return {};
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
    const QByteArray text = start > 0 ? line.mid(start) : line;
    const auto candidates = m_byBeginning[std::size_t(access)].constFind(
            QByteArray::fromRawData(text.constData(), endOfBeginning(text)));
    if (candidates == m_byBeginning[std::size_t(access)].constEnd())
        return {};
    const QList<QByteArray> words = text.split(' ');
    for (int index : *candidates) {
        QStringList arguments;
        const CommandEntry &entry = m_entries.at(index);
        if (matches(m_patterns.at(index), words, &arguments))
            return {&entry, arguments};
    }
    return {};
}
