#include "DisplayCheck.h"
#include "ProgramStatus.h"
#include "ScenarioLocator.h"
#include "WorkbenchOptions.h"
#include "WorkbenchProgram.h"
#include "projectversion.h"

#include <QApplication>
#include <QDir>
#include <QFileInfo>
#include <QProcess>
#include <QTextStream>

#include <cstdlib>
#include <memory>

#if defined(__SANITIZE_ADDRESS__)
#include <sanitizer/lsan_interface.h>
#endif

namespace {

QString noDisplay()
{
    return QStringLiteral("there is no display. Without one, --tour DIR drives the dialogs and "
                          "writes pictures, and --headless runs --script FILE or --demo NAME.");
}

QtMessageHandler defaultHandler = nullptr;
bool isStarting = true;

/** Ends the program with a message where Qt, finding no screen, would abort. */
[[noreturn]] void giveUpStarting()
{
    const QByteArray platform = qgetenv("QT_QPA_PLATFORM");
    ProgramStatus::complain(
            platform.isEmpty() ? QStringLiteral("the toolkit cannot use the display.")
                               : QStringLiteral("the toolkit cannot use the platform \"%1\" that "
                                                "QT_QPA_PLATFORM names.")
                                         .arg(QString::fromLocal8Bit(platform)));
    std::_Exit(ProgramStatus::unusable);
}

/** Drops the messages of the offscreen platform about windows that are not visible. */
void quietHandler(QtMsgType type, const QMessageLogContext &context, const QString &text)
{
    if (type == QtFatalMsg && isStarting)
        giveUpStarting();
    if (!text.startsWith(QLatin1String("This plugin does not support "))
        && !text.startsWith(QLatin1String("QStandardPaths: XDG_RUNTIME_DIR")))
        defaultHandler(type, context, text);
}

std::unique_ptr<QApplication> makeApplication(int &argc, char **argv)
{
#if defined(__SANITIZE_ADDRESS__)
    // The offscreen platform never frees the screen that it makes here.
    const __lsan::ScopedDisabler platformOnly;
#endif
    auto application = std::make_unique<QApplication>(argc, argv);
    isStarting = false;
    return application;
}

/** Plays the parts of the tour, each with a controller and a module of its own. */
int runTour(WorkbenchOptions options)
{
    for (const QString &script : ScenarioLocator::tourFiles()) {
        options.tourScript = script;
        const int status = WorkbenchProgram(options).run();
        if (status != 0)
            return status;
    }
    // No menu entry opens the dialog for the names of the bodies; the program that embeds it does.
    const QDir programs(QCoreApplication::applicationDirPath());
    const QString example = programs.filePath(QStringLiteral("bodynames"));
    if (!QFileInfo(example).isExecutable())
        return 0;
    const QString picture =
            QDir(options.tourDir).filePath(QStringLiteral("example-body-names.png"));
    QProcess shown;
    shown.setStandardOutputFile(QProcess::nullDevice());
    shown.setStandardErrorFile(QProcess::nullDevice());
    shown.start(example, {QStringLiteral("--picture"), picture});
    const bool done = shown.waitForFinished() && shown.exitStatus() == QProcess::NormalExit
                      && shown.exitCode() == 0;
    if (!done)
        QTextStream(stderr) << "workbench: " << example << " shows no picture\n";
    return done ? 0 : 1;
}

} // namespace

int main(int argc, char *argv[])
{
    QStringList arguments;
    for (int i = 1; i < argc; ++i)
        arguments << QString::fromLocal8Bit(argv[i]);
    WorkbenchOptions options;
    QString error;
    if (!WorkbenchOptions::parse(arguments, &options, &error))
        return ProgramStatus::complain(error);
    if (options.help || options.version) {
        QTextStream(stdout) << (options.help ? WorkbenchOptions::helpText()
                                             : QStringLiteral("workbench " TRACKING_VERSION "\n"));
        return 0;
    }
    const bool needsDisplay = !options.isScripted() && !options.needsNoWindow();
    if (!needsDisplay && !DisplayCheck::isReachable())
        qputenv("QT_QPA_PLATFORM", "offscreen");
    defaultHandler = qInstallMessageHandler(quietHandler);
    // Qt gets no arguments, so that the environment and not an option chooses the platform.
    int ownArguments = 1;
    if (!DisplayCheck::isReachable()) {
        const QCoreApplication withoutDisplay(ownArguments, argv);
        // Mistakes that do not depend on a display are reported first.
        const QString mistake = WorkbenchProgram(options).inputProblem();
        return ProgramStatus::complain(!mistake.isEmpty() ? mistake : noDisplay());
    }
    const auto application = makeApplication(ownArguments, argv);
    QApplication::setApplicationName(QStringLiteral("workbench"));
    QApplication::setQuitOnLastWindowClosed(false);
    return options.tourDir.isEmpty() ? WorkbenchProgram(options).run() : runTour(options);
}
