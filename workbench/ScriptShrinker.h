#pragma once

#include <QByteArray>
#include <QString>
#include <QStringList>

class QProcess;

/** Removes lines from a script as long as it still fails in the same way. */
class ScriptShrinker {
public:
    /** @param arguments arguments of the program that plays a script, without the script itself */
    explicit ScriptShrinker(const QStringList &arguments) : m_arguments(arguments) {}

    /** The shortest script that was found. The first line, which names the scenario, is kept. */
    QByteArray shrunk(const QByteArray &script, const QString &failure) const;

    /** The failure that a finished process reports, or its crash; empty for success. */
    static QString failureOf(QProcess *process);
    /**
     * The failure without its place and its numbers; two failures with the same kind are the same.
     */
    static QString kindOf(const QString &failure);

private:
    bool fails(const QList<QByteArray> &lines, const QString &kind) const;

    QStringList m_arguments;
    mutable int m_tries = 0;
};
