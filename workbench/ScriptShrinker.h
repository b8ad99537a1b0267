#pragma once

#include <QByteArray>
#include <QString>
#include <QStringList>

class QProcess;

/** Takes lines out of a script for as long as it fails in the same way. */
class ScriptShrinker {
public:
    /** @param arguments of the program that plays a script, besides the script itself */
    explicit ScriptShrinker(const QStringList &arguments) : m_arguments(arguments) {}

    /** The shortest script that was found; the first line, which names the scenario, stays. */
    QByteArray shrunk(const QByteArray &script, const QString &failure) const;

    /** What a finished process says of its failure, a crash included; empty for success. */
    static QString failureOf(QProcess *process);
    /** The failure without its place and its numbers, by which two are the same. */
    static QString kindOf(const QString &failure);

private:
    bool fails(const QList<QByteArray> &lines, const QString &kind) const;

    QStringList m_arguments;
    mutable int m_tries = 0;
};
