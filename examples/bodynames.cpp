// Shows how another program embeds a dialog of the module: it provides an IOManager and the
// versions of the controller, makes the dialog, and opens it. Here the simulated controller
// provides both.

#include "BackendVersions.h"
#include "ScenarioFile.h"
#include "SimulatedController.h"
#include "SimulatedIOManager.h"
#include "bodysettingsdlg.h"
#include "projectversion.h"
#include "support/moduleversion.h"

#include <QApplication>
#include <QCommandLineParser>
#include <QPixmap>
#include <QTextStream>
#include <QTimer>

#include <cstdlib>

namespace {

constexpr int wrongInput = 2;

struct Arguments {
    QString scenario;
    QString picture; ///< empty when a user operates the dialog
};

/** Reads the arguments before there is a window, so that the help needs no display. */
Arguments readArguments(int argc, char **argv)
{
    const QCoreApplication application(argc, argv);
    QCoreApplication::setApplicationVersion(QStringLiteral(TRACKING_VERSION));
    QCommandLineParser parser;
    parser.setApplicationDescription(QStringLiteral(
            "Opens the body names dialog over a simulated controller and prints what it wrote."));
    parser.addHelpOption();
    parser.addVersionOption();
    parser.addPositionalArgument(QStringLiteral("scenario"),
                                 QStringLiteral("controller as a JSON file"),
                                 QStringLiteral("[scenario]"));
    const QCommandLineOption picture(
            QStringLiteral("picture"),
            QStringLiteral("Save a picture of the dialog as <file> and accept it at once."),
            QStringLiteral("file"));
    parser.addOption(picture);
    if (!parser.parse(QCoreApplication::arguments())) {
        QTextStream(stderr) << parser.errorText() << '\n';
        std::exit(wrongInput);
    }
    parser.process(application); // shows help or version and ends the program
    return {parser.positionalArguments().value(0, QStringLiteral(TRACKING_SCENARIO_FILE)),
            parser.value(picture)};
}

BackendVersions versionsOf(const ControllerState &state)
{
    BackendVersions versions;
    versions.systemPt().fromString(state.systemVersion);
    versions.systemCt().fromString(state.controllerVersion);
    versions.protocol().fromString(state.protocol);
    versions.atcModel() = state.model;
    return versions;
}

void printWrites(const SimulatedIOManager &io)
{
    QTextStream out(stdout);
    for (const TranscriptEntry &entry : io.transcript()) {
        if (entry.operation == TranscriptEntry::Operation::Set)
            out << QString::fromUtf8(entry.line) << '\n';
    }
}

/** Ends the program with a message where Qt, finding no screen, would abort. */
void endWithoutScreen(QtMsgType type, const QMessageLogContext &, const QString &text)
{
    QTextStream(stderr) << text << '\n';
    if (type != QtFatalMsg)
        return;
    QTextStream(stderr) << "bodynames: no screen can be used for the dialog.\n";
    std::_Exit(wrongInput);
}

} // namespace

int main(int argc, char **argv)
{
    const Arguments arguments = readArguments(argc, argv);
    Scenario scenario;
    QString error;
    if (!ScenarioFile::load(arguments.scenario, &scenario, &error)) {
        QTextStream(stderr) << error << '\n';
        return wrongInput;
    }
    qInstallMessageHandler(endWithoutScreen);
    const QApplication application(argc, argv);
    qInstallMessageHandler(nullptr);

    SimulatedController controller(scenario.state);
    SimulatedIOManager io(&controller);
    BackendVersions versions = versionsOf(scenario.state);

    BodySettingsDlg dialog(&io, nullptr, &versions, moduleVersion());
    bool isSaved = true;
    if (!arguments.picture.isEmpty()) {
        // The timer fires in the event loop of exec(), when the dialog is on the screen.
        QTimer::singleShot(0, &dialog, [&] {
            isSaved = dialog.grab().save(arguments.picture);
            dialog.saveBodySettings();
            dialog.accept();
        });
    }
    dialog.update_and_exec();
    printWrites(io);
    if (!isSaved)
        QTextStream(stderr) << "The picture cannot be written: " << arguments.picture << '\n';
    return isSaved ? EXIT_SUCCESS : EXIT_FAILURE;
}
