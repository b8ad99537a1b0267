#pragma once

#include "ScriptContext.h"

#include <QString>
#include <QStringList>
#include <QVector>

#include <functional>

/** One action or expectation of the script language. */
struct ScriptCommand {
    QString word; ///< first word; expectations have two, "expect text"
    int minimum;  ///< number of arguments
    int maximum;
    QString usage; ///< names of the arguments, for messages and documentation
    /** Carries the command out; returns "expected ..., found ...", or an empty text on success. */
    std::function<QString(ScriptContext &, const QStringList &)> run;
};

/** All commands of the script language. */
namespace ScriptCommands {

/** The actions of a user or a second client. */
const QVector<ScriptCommand> &actions();
/** The expectations. */
const QVector<ScriptCommand> &expectations();
/**
 * The command with which the words begin, and the number of words in its name; null when there is
 * none.
 */
const ScriptCommand *find(const QStringList &words, int *nameLength);

} // namespace ScriptCommands
