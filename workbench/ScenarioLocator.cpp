#include "ScenarioLocator.h"

#include <QCoreApplication>
#include <QDir>
#include <QFileInfo>

namespace {

QStringList stems(const QString &folder, const QString &pattern)
{
    QStringList names;
    const QStringList files = QDir(folder).entryList({pattern}, QDir::Files, QDir::Name);
    for (const QString &file : files)
        names << QFileInfo(file).completeBaseName();
    return names;
}

QString shipped(const QString &nameOrFile, const QString &pattern)
{
    if (QFileInfo(nameOrFile).isFile())
        return nameOrFile;
    return ScenarioLocator::folder() + pattern.arg(nameOrFile);
}

} // namespace

QString ScenarioLocator::folder()
{
    const QDir programDir(QCoreApplication::applicationDirPath());
    // build/<preset>/bin lies three levels below the source tree.
    const QStringList candidates = {
            programDir.absoluteFilePath(QStringLiteral("../../../scenarios")),
            programDir.absoluteFilePath(
                    QStringLiteral("../" WORKBENCH_DATA_INSTALL_DIR "/scenarios")),
            QStringLiteral(WORKBENCH_SOURCE_SCENARIOS),
    };
    for (const QString &candidate : candidates) {
        if (QFileInfo::exists(candidate + QStringLiteral("/tour.script")))
            return QDir::cleanPath(candidate);
    }
    return QDir::cleanPath(candidates.last());
}

QString ScenarioLocator::scenarioFile(const QString &nameOrFile)
{
    return shipped(nameOrFile, QStringLiteral("/%1.json"));
}

QString ScenarioLocator::demoFile(const QString &nameOrFile)
{
    return shipped(nameOrFile, QStringLiteral("/demos/%1.script"));
}

QStringList ScenarioLocator::tourFiles()
{
    const QDir shipped(folder());
    QStringList files{shipped.filePath(QStringLiteral("tour.script"))};
    for (const QString &name : shipped.entryList({QStringLiteral("tour-*.script")}, QDir::Files))
        files << shipped.filePath(name);
    return files;
}

QStringList ScenarioLocator::scenarioNames()
{
    return stems(folder(), QStringLiteral("*.json"));
}

QStringList ScenarioLocator::demoNames()
{
    return stems(folder() + QStringLiteral("/demos"), QStringLiteral("*.script"));
}
