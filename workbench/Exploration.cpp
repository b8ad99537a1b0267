#include "Exploration.h"

#include "Explorer.h"
#include "PlayStage.h"
#include "ProgramStatus.h"
#include "ScriptShrinker.h"

#include <QCoreApplication>
#include <QFile>
#include <QProcess>
#include <QRegularExpression>
#include <QTemporaryDir>
#include <QTextStream>

namespace {

const QString seedWord = QStringLiteral("seed ");

QByteArray contents(const QString &file)
{
    QFile input(file);
    return input.open(QIODevice::ReadOnly) ? input.readAll() : QByteArray();
}

/** The seed that the process has driven last. */
quint32 lastSeed(const QByteArray &output)
{
    quint32 seed = 0;
    for (const QByteArray &line : output.split('\n')) {
        if (line.startsWith(seedWord.toUtf8()))
            seed = line.mid(seedWord.size()).toUInt();
    }
    return seed;
}

QStringList commonArguments(const Exploration::Request &request)
{
    QStringList arguments{QStringLiteral("--headless"), QStringLiteral("--timeout"),
                          QString::number(request.timeoutS)};
    if (!request.plugin.isEmpty())
        arguments << QStringLiteral("--plugin") << request.plugin;
    return arguments;
}

/** Prints the failure with the shortest script that leads to it. */
void explain(quint32 seed, const QString &failure, const QByteArray &script,
             const QStringList &arguments)
{
    QTextStream out(stdout);
    out << QStringLiteral("seed %1: %2\n").arg(seed).arg(failure);
    out.flush();
    const ScriptShrinker shrinker(arguments);
    const QByteArray shortest = shrinker.shrunk(script, failure);
    out << QStringLiteral("# seed %1: %2 lines repeat it:\n").arg(seed).arg(shortest.count('\n'))
        << QString::fromUtf8(shortest);
}

} // namespace

bool Exploration::readSeeds(const QString &text, Request *request, QString *problem)
{
    static const QRegularExpression shape(QStringLiteral("^(\\d{1,9})(?:-(\\d{1,9}))?$"));
    const QRegularExpressionMatch match = shape.match(text);
    request->firstSeed = match.captured(1).toUInt();
    request->lastSeed =
            match.captured(2).isEmpty() ? request->firstSeed : match.captured(2).toUInt();
    if (match.hasMatch() && request->firstSeed <= request->lastSeed)
        return true;
    *problem = QStringLiteral("--explore: expected a seed such as 7 or seeds such as 1-20, found "
                              "\"%1\"")
                       .arg(text);
    return false;
}

int Exploration::drive(const Request &request, PlayStage *stage, const QString &file,
                       const std::function<void(const QString &)> &watch)
{
    for (quint32 seed = request.firstSeed; seed <= request.lastSeed; ++seed) {
        QTextStream(stdout) << seedWord << seed << '\n';
        QString error;
        if (!stage->reset(QString(), &error)) {
            return ProgramStatus::complain(error);
        }
        Explorer explorer(stage->context(), seed, request.scenario, request.steps, file);
        QObject::connect(&explorer, &LineRunner::lineStarted, &explorer, watch);
        stage->play(&explorer);
        if (!explorer.failure().isEmpty()) {
            ProgramStatus::complain(explorer.failure());
            return ProgramStatus::failed;
        }
    }
    return ProgramStatus::done;
}

int Exploration::search(const Request &request)
{
    const QTemporaryDir dir;
    const QString file = dir.filePath(QStringLiteral("explored.script"));
    quint32 next = request.firstSeed;
    int failures = 0;
    while (next <= request.lastSeed) {
        const QStringList arguments = commonArguments(request);
        QProcess process;
        process.start(QCoreApplication::applicationFilePath(),
                      arguments
                              + QStringList{"--explore",
                                            QStringLiteral("%1-%2").arg(next).arg(request.lastSeed),
                                            "--steps", QString::number(request.steps), "--scenario",
                                            request.scenario, "--explore-into", file});
        process.waitForFinished(-1);
        const QString failure = ScriptShrinker::failureOf(&process);
        if (failure.isEmpty())
            break;
        const quint32 seed = lastSeed(process.readAllStandardOutput());
        if (seed < next) {
            QTextStream(stderr) << failure << '\n';
            return ProgramStatus::unusable;
        }
        ++failures;
        explain(seed, failure, contents(file), arguments);
        next = seed + 1;
    }
    QTextStream(stdout) << QStringLiteral("%1 seeds of %2 steps, %3 failures\n")
                                   .arg(request.lastSeed - request.firstSeed + 1)
                                   .arg(request.steps)
                                   .arg(failures);
    return failures == 0 ? ProgramStatus::done : ProgramStatus::failed;
}
