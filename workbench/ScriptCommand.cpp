#include "ScriptFamilies.h"

namespace {

const ScriptCommand *byWord(const QVector<ScriptCommand> &commands, const QString &word)
{
    for (const ScriptCommand &command : commands) {
        if (command.word == word)
            return &command;
    }
    return nullptr;
}

} // namespace

const QVector<ScriptCommand> &ScriptCommands::actions()
{
    static const QVector<ScriptCommand> all = inputActions() + controllerActions();
    return all;
}

const ScriptCommand *ScriptCommands::find(const QStringList &words, int *nameLength)
{
    if (words.value(0) == QLatin1String("expect")) {
        *nameLength = 2;
        return byWord(expectations(), QStringLiteral("expect ") + words.value(1));
    }
    *nameLength = 1;
    return byWord(actions(), words.value(0));
}
