#include "ScriptShrinker.h"

#include <QCoreApplication>
#include <QFile>
#include <QProcess>
#include <QRegularExpression>
#include <QTemporaryDir>

namespace {

constexpr int mostTries = 300;

/** The line that names the failure in the report of a sanitizer or of the workbench. */
QString tellingLine(const QString &errors)
{
    const QStringList lines = errors.split(QLatin1Char('\n'), Qt::SkipEmptyParts);
    for (const char *sign : {"SUMMARY: ", "runtime error: ", "workbench: "}) {
        for (const QString &line : lines) {
            if (line.contains(QLatin1String(sign)))
                return line.mid(line.indexOf(QLatin1String(sign)));
        }
    }
    return lines.isEmpty() ? QString() : lines.last();
}

} // namespace

QString ScriptShrinker::failureOf(QProcess *process)
{
    if (process->exitStatus() == QProcess::NormalExit && process->exitCode() == 0)
        return QString();
    const QString telling = tellingLine(QString::fromUtf8(process->readAllStandardError()));
    if (process->exitStatus() != QProcess::NormalExit)
        return QStringLiteral("crash: ") + telling;
    return telling.isEmpty() ? QStringLiteral("exit status %1").arg(process->exitCode()) : telling;
}

QString ScriptShrinker::kindOf(const QString &failure)
{
    static const QRegularExpression place(QStringLiteral("^.*?:\\d+: "));
    static const QRegularExpression numbers(QStringLiteral("\\d+"));
    static const QRegularExpression quoted(QStringLiteral("\"[^\"]*\""));
    constexpr int telling = 80;
    QString kind = failure;
    kind.remove(place);
    kind.replace(quoted, QStringLiteral("\"\""));
    kind.replace(numbers, QStringLiteral("0"));
    return kind.left(telling);
}

bool ScriptShrinker::fails(const QList<QByteArray> &lines, const QString &kind) const
{
    if (++m_tries > mostTries)
        return false;
    const QTemporaryDir dir;
    QFile file(dir.filePath(QStringLiteral("shrunk.script")));
    if (!file.open(QIODevice::WriteOnly))
        return false;
    file.write(lines.join('\n') + '\n');
    file.close();
    QProcess process;
    process.start(QCoreApplication::applicationFilePath(),
                  m_arguments + QStringList{QStringLiteral("--script"), file.fileName()});
    process.waitForFinished(-1);
    return kindOf(failureOf(&process)) == kind;
}

QByteArray ScriptShrinker::shrunk(const QByteArray &script, const QString &failure) const
{
    const QString kind = kindOf(failure);
    QList<QByteArray> lines = script.trimmed().split('\n');
    if (!fails(lines, kind))
        return "# the same lines in a process of their own do not fail\n" + script;
    // Smaller and smaller parts are removed, as long as the rest fails in the same way.
    for (int part = qMax(1, (lines.size() - 1) / 2); part >= 1; part /= 2) {
        for (int at = lines.size() - part; at >= 1; at -= part) {
            QList<QByteArray> fewer = lines.mid(0, at) + lines.mid(at + part);
            if (fails(fewer, kind))
                lines = fewer;
        }
    }
    return lines.join('\n') + '\n';
}
