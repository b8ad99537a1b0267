#include "Script.h"

#include "ScriptCommand.h"
#include "Suggestion.h"

#include <QDir>
#include <QFile>
#include <QFileInfo>

#include <algorithm>

namespace {

/** Reads a line of the script's head; false when the line does not belong to the head. */
bool takeHead(Script *script, const QStringList &words)
{
    if (words.size() != 2)
        return false;
    if (words.first() == QLatin1String("scenario"))
        script->scenario = words.last();
    else if (words.first() == QLatin1String("tell"))
        script->telling << words.last();
    else if (words.first() == QLatin1String("latency"))
        script->latencyMs = words.last().toInt();
    else if (words.first() == QLatin1String("language"))
        script->language = words.last();
    else if (words == QStringList{QStringLiteral("palette"), QStringLiteral("dark")})
        script->isDark = true;
    else if (words == QStringList{QStringLiteral("home"), QStringLiteral("unwritable")})
        script->unwritableHome = true;
    else
        return false;
    return true;
}

/** What is wrong with the words of a line; empty when they are a command. */
QString problemOf(const QStringList &words)
{
    int nameLength = 0;
    const ScriptCommand *command = ScriptCommands::find(words, &nameLength);
    if (!command) {
        const bool isExpectation = words.first() == QLatin1String("expect");
        QStringList known;
        for (const ScriptCommand &one :
             isExpectation ? ScriptCommands::expectations() : ScriptCommands::actions())
            known << one.word.section(QLatin1Char(' '), -1);
        return QStringLiteral("expected an action or an expectation, found \"%1\"%2")
                .arg(words.mid(0, nameLength).join(QLatin1Char(' ')),
                     Suggestion::forWord(words.value(nameLength - 1), known));
    }
    const int count = words.size() - nameLength;
    if (count < command->minimum || count > command->maximum) {
        return QStringLiteral("expected \"%1 %2\", found %3 arguments")
                .arg(command->word, command->usage)
                .arg(count);
    }
    return QString();
}

} // namespace

bool Script::split(const QString &line, QStringList *words)
{
    words->clear();
    QString word;
    bool inQuotes = false;
    bool inWord = false;
    for (int i = 0; i < line.size(); ++i) {
        const QChar character = line.at(i);
        if (inQuotes && character == QLatin1Char('\\') && i + 1 < line.size()) {
            const QChar escaped = line.at(++i);
            word += escaped == QLatin1Char('n') ? QLatin1Char('\n') : escaped;
        } else if (character == QLatin1Char('"')) {
            inQuotes = !inQuotes;
            inWord = true;
        } else if (character.isSpace() && !inQuotes) {
            if (inWord)
                words->append(word);
            word.clear();
            inWord = false;
        } else {
            word += character;
            inWord = true;
        }
    }
    if (inWord)
        words->append(word);
    return !inQuotes;
}

QString Script::joined(const QStringList &words)
{
    const auto needsQuotes = [](QChar c) {
        return c.isSpace() || c == QLatin1Char('"') || c == QLatin1Char('\\');
    };
    QStringList written;
    for (QString word : words) {
        if (word.isEmpty() || std::any_of(word.cbegin(), word.cend(), needsQuotes)) {
            word.replace(QLatin1String("\\"), QLatin1String("\\\\"));
            word.replace(QLatin1String("\""), QLatin1String("\\\""));
            word.replace(QLatin1String("\n"), QLatin1String("\\n"));
            word = QLatin1Char('"') + word + QLatin1Char('"');
        }
        written << word;
    }
    return written.join(QLatin1Char(' '));
}

bool Script::parse(const QByteArray &text, const QString &name, Script *script, QString *error)
{
    *script = Script();
    script->name = name;
    const QStringList lines = QString::fromUtf8(text).split(QLatin1Char('\n'));
    for (int i = 0; i < lines.size(); ++i) {
        const QString line = lines.at(i).trimmed();
        if (line.isEmpty() || line.startsWith(QLatin1Char('#')))
            continue;
        Line parsed;
        parsed.number = i + 1;
        QString problem;
        if (!split(line, &parsed.words))
            problem = QStringLiteral("expected a closing quote, found the end of the line");
        else if (script->lines.isEmpty() && takeHead(script, parsed.words))
            continue;
        else if (script->setup.isEmpty() && parsed.words == QStringList{QStringLiteral("begin")}) {
            script->setup.swap(script->lines);
            continue;
        } else
            problem = problemOf(parsed.words);
        if (!problem.isEmpty()) {
            *error = QStringLiteral("%1:%2: %3").arg(name).arg(i + 1).arg(problem);
            return false;
        }
        script->lines.append(parsed);
    }
    return true;
}

bool Script::load(const QString &file, Script *script, QString *error)
{
    QFile input(file);
    if (!input.open(QIODevice::ReadOnly)) {
        *error = QStringLiteral("%1: the script cannot be read: %2").arg(file, input.errorString());
        return false;
    }
    if (!parse(input.readAll(), file, script, error))
        return false;
    // A script may have its own scenario beside it.
    const QString beside = QFileInfo(file).absoluteDir().filePath(script->scenario);
    if (!script->scenario.isEmpty() && QFileInfo(beside).isFile())
        script->scenario = beside;
    return true;
}
