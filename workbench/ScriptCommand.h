#pragma once

#include "ScriptContext.h"

#include <QString>
#include <QStringList>
#include <QVector>

#include <functional>

/** One thing a line of a script can say. */
struct ScriptCommand {
    QString word; ///< first word; expectations have two, "expect text"
    int minimum;  ///< number of arguments
    int maximum;
    QString usage; ///< names of the arguments, for messages and documentation
    /** Carries it out; answers "expected ..., found ...", or an empty text when all is well. */
    std::function<QString(ScriptContext &, const QStringList &)> run;
};

/** Everything the script language knows. */
namespace ScriptCommands {

/** What a user or a second client does. */
const QVector<ScriptCommand> &actions();
/** What must be so. */
const QVector<ScriptCommand> &expectations();
/** The command the words begin with, and how many words name it; null when there is none. */
const ScriptCommand *find(const QStringList &words, int *nameLength);

} // namespace ScriptCommands
