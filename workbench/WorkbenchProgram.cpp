#include "WorkbenchProgram.h"

#include "Dress.h"
#include "JUnitReport.h"
#include "MainWindow.h"
#include "MessageLogDock.h"
#include "PlayStage.h"
#include "ProgramStatus.h"
#include "Recorder.h"
#include "Recording.h"
#include "Replayer.h"
#include "ScenarioLocator.h"
#include "ScriptCommand.h"
#include "ScriptRunner.h"
#include "ScriptWatchdog.h"
#include "StallMeter.h"
#include "SweepCommand.h"
#include "TimerHold.h"
#include "ToolWindow.h"
#include "TranscriptDock.h"
#include "TranscriptText.h"
#include "WidgetFinder.h"
#include "WorkbenchSession.h"

#include <QApplication>
#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QSaveFile>
#include <QScreen>
#include <QTemporaryDir>
#include <QTextStream>
#include <QTimer>

namespace {

constexpr int clockStepMs = 100;

} // namespace

WorkbenchProgram::WorkbenchProgram(const WorkbenchOptions &options) : m_options(options) {}

WorkbenchProgram::~WorkbenchProgram() = default;

int WorkbenchProgram::run()
{
    if (!m_options.transcriptDiff.isEmpty())
        return compareRecordings();
    if (!m_options.scenarioCheckFile.isEmpty())
        return checkScenario();
    Exploration::Request exploration;
    QString error;
    if (!m_options.explore.isEmpty() && !readExploration(&exploration, &error)) {
        return ProgramStatus::complain(error);
    }
    if (!m_options.explore.isEmpty() && m_options.exploreInto.isEmpty())
        return Exploration::search(exploration);
    if (m_options.isScripted()) {
        m_watchdog = std::make_unique<ScriptWatchdog>(m_options.timeoutS);
        m_watchdog->watch(QStringLiteral("the start"));
    }
    if (!loadScript(&error) || !prepareHome(&error) || !createSession(&error)
        || !startRecording(&error) || !dress(&error) || !openWindows(&error)
        || !setTheStage(&error)) {
        return ProgramStatus::complain(error);
    }
    int status = 0;
    if (!m_options.sweepFile.isEmpty())
        status = runSweep();
    else if (!m_options.exploreInto.isEmpty())
        status = drive(exploration);
    else
        status = m_options.isScripted() ? runScripted() : runInteractive();
    shutDown();
    if (m_replayer && !m_replayer->difference().isEmpty()) {
        ProgramStatus::complain(m_replayer->difference());
        status = ProgramStatus::failed;
    }
    return status;
}

int WorkbenchProgram::checkScenario()
{
    Scenario scenario;
    QString error;
    if (!ScenarioFile::load(m_options.scenarioCheckFile, &scenario, &error)) {
        return ProgramStatus::complain(error);
    }
    QTextStream(stdout) << QString::fromUtf8(ScenarioFile::toBytes(scenario));
    return ProgramStatus::done;
}

int WorkbenchProgram::runSweep()
{
    PlayStage stage(m_session.get(), m_window.get(), pluginFile(), m_rules);
    const int status =
            SweepCommand::run(m_script, &stage, m_options.sweepPlan, m_options.junitFile,
                              [this](const QString &repetition) { m_watchdog->watch(repetition); });
    m_watchdog->watch(QStringLiteral("the shutdown"));
    return status;
}

bool WorkbenchProgram::readExploration(Exploration::Request *request, QString *error) const
{
    request->steps = m_options.steps;
    request->scenario = m_options.scenario;
    request->plugin = m_options.pluginFile;
    request->timeoutS = m_options.timeoutS;
    return Exploration::readSeeds(m_options.explore, request, error);
}

int WorkbenchProgram::drive(const Exploration::Request &request)
{
    PlayStage stage(m_session.get(), m_window.get(), pluginFile(), m_rules);
    const int status =
            Exploration::drive(request, &stage, m_options.exploreInto,
                               [this](const QString &place) { m_watchdog->watch(place); });
    m_watchdog->watch(QStringLiteral("the shutdown"));
    return status;
}

QString WorkbenchProgram::pluginFile() const
{
    return m_options.pluginFile.isEmpty() ? ModuleLoader::defaultFile() : m_options.pluginFile;
}

QString WorkbenchProgram::inputProblem()
{
    QString error;
    Scenario scenario;
    const bool isUsable = loadScript(&error) && loadScenario(&scenario, &error);
    return isUsable ? QString() : error;
}

int WorkbenchProgram::compareRecordings()
{
    QVector<TranscriptEntry> left;
    QVector<TranscriptEntry> right;
    QString error;
    if (!Recording::load(m_options.transcriptDiff.at(0), &left, &error)
        || !Recording::load(m_options.transcriptDiff.at(1), &right, &error)) {
        return ProgramStatus::complain(error);
    }
    const QString difference = Recording::difference(left, right);
    QTextStream(stdout) << difference;
    return difference.isEmpty() ? ProgramStatus::done : ProgramStatus::failed;
}

bool WorkbenchProgram::startRecording(QString *error)
{
    if (!m_options.replayFile.isEmpty()) {
        QVector<TranscriptEntry> recording;
        if (!Recording::load(m_options.replayFile, &recording, error))
            return false;
        m_replayer = std::make_unique<Replayer>(m_session->io(), recording);
        // After the first difference module and recording no longer agree, so that the replay ends.
        QObject::connect(
                m_replayer.get(), &Replayer::differed, qApp,
                [] { QApplication::exit(ProgramStatus::failed); }, Qt::QueuedConnection);
    }
    if (m_options.recordFile.isEmpty())
        return true;
    m_recorder = std::make_unique<Recorder>(m_session->io());
    return m_recorder->start(m_options.recordFile, error);
}

bool WorkbenchProgram::loadScript(QString *error)
{
    QString file = m_options.scriptFile + m_options.sweepFile;
    if (!m_options.tourDir.isEmpty())
        file = m_options.tourScript;
    else if (!m_options.demo.isEmpty())
        file = ScenarioLocator::demoFile(m_options.demo);
    if (file.isEmpty())
        return true;
    if (!m_options.demo.isEmpty() && !QFileInfo(file).isFile()) {
        *error = QStringLiteral("--demo: expected one of %1, found \"%2\"")
                         .arg(ScenarioLocator::demoNames().join(QStringLiteral(", ")),
                              m_options.demo);
        return false;
    }
    if (!Script::load(file, &m_script, error))
        return false;
    if (!m_script.scenario.isEmpty() && !m_options.scenarioGiven)
        m_options.scenario = m_script.scenario;
    return true;
}

bool WorkbenchProgram::prepareHome(QString *error)
{
    // The user's preferences must neither affect a script nor be changed by it.
    if (!m_options.isScripted() && m_options.demo.isEmpty())
        return true;
    m_home = std::make_unique<QTemporaryDir>();
    qputenv("HOME", QFile::encodeName(m_home->path()));
    if (!m_home->isValid()) {
        *error = QStringLiteral("no temporary home folder: %1").arg(m_home->errorString());
        return false;
    }
    // A file in the place of a folder prevents writing even for the superuser.
    QFile obstacle(m_home->filePath(QStringLiteral(".QOR")));
    if (m_script.unwritableHome && !obstacle.open(QIODevice::WriteOnly)) {
        *error = QStringLiteral("%1: %2").arg(obstacle.fileName(), obstacle.errorString());
        return false;
    }
    return true;
}

bool WorkbenchProgram::loadScenario(Scenario *scenario, QString *error) const
{
    const QString file = ScenarioLocator::scenarioFile(m_options.scenario);
    if (!QFileInfo(file).isFile()) {
        *error = QStringLiteral("--scenario: expected a file or one of %1, found \"%2\"")
                         .arg(ScenarioLocator::scenarioNames().join(QStringLiteral(", ")),
                              m_options.scenario);
        return false;
    }
    return ScenarioFile::load(file, scenario, error);
}

bool WorkbenchProgram::createSession(QString *error)
{
    Scenario scenario;
    if (!loadScenario(&scenario, error))
        return false;
    m_session = std::make_unique<WorkbenchSession>(scenario);
    m_session->io()->setTranscriptLimit(m_options.transcriptLimit);
    m_session->io()->setDialogProbe([] {
        const QWidget *modal = WidgetFinder::modalWindow();
        return modal ? QString::fromLatin1(modal->metaObject()->className()) : QString();
    });
    m_session->io()->setScript(m_script.name);
    m_rules = scenario.faults + m_options.faults;
    for (const QString &rule : qAsConst(m_rules)) {
        if (!m_session->addFault(rule, error)) {
            *error = QStringLiteral("--fault \"%1\": %2").arg(rule, *error);
            return false;
        }
    }
    return true;
}

bool WorkbenchProgram::dress(QString *error)
{
    m_dress = std::make_unique<Dress>();
    if (m_script.isDark)
        m_dress->darken();
    return m_script.language.isEmpty()
           || m_dress->translate(m_script.language, pluginFile(), error);
}

bool WorkbenchProgram::openWindows(QString *error)
{
    m_window = std::make_unique<MainWindow>(m_session.get());
    m_window->toolWindow()->transcript()->setRecordingFile(m_options.recordFile);
    if (!m_session->loadModule(pluginFile(), m_window.get(), error))
        return false;
    StallMeter *stalls = m_window->toolWindow()->stalls();
    stalls->setLatencyMs(m_options.latencyMs);
    stalls->start();
    // The windows are placed side by side where the screen is wide enough, so that both are
    // visible.
    const QRect area = QGuiApplication::primaryScreen()->availableGeometry();
    ToolWindow *tools = m_window->toolWindow();
    m_window->move(area.topLeft());
    tools->move(qMax(area.left(), area.right() - tools->frameGeometry().width()), area.top());
    tools->show();
    m_window->show();
    m_window->activateWindow();
    return true;
}

int WorkbenchProgram::runScripted()
{
    m_timers = std::make_unique<TimerHold>();
    for (const _GuiElement *element : m_session->module()->elements())
        m_timers->watch(element->content);
    ScriptContext context;
    context.session = m_session.get();
    context.window = m_window.get();
    context.timers = m_timers.get();
    context.pictureDir = m_options.tourDir;
    if (!m_options.tourDir.isEmpty() && !QDir().mkpath(m_options.tourDir)) {
        return ProgramStatus::complain(
                QStringLiteral("%1: the folder cannot be created").arg(m_options.tourDir));
    }
    m_runner = std::make_unique<ScriptRunner>(m_script, context);
    QObject::connect(m_runner.get(), &ScriptRunner::lineStarted, m_runner.get(),
                     [this](const QString &place) { m_watchdog->watch(place); });
    QObject::connect(m_runner.get(), &ScriptRunner::finished, qApp, [](bool success) {
        // This also ends the event loops of open dialogs.
        QApplication::exit(success ? ProgramStatus::done : ProgramStatus::failed);
    });
    m_runner->start();
    int status = QApplication::exec();
    if (!m_runner->isFinished()) {
        ProgramStatus::complain(
                QStringLiteral("%1: the window was closed before the end").arg(m_script.name));
        status = ProgramStatus::failed;
    }
    if (!m_runner->failure().isEmpty())
        ProgramStatus::complain(m_runner->failure());
    QString error;
    if (!m_options.junitFile.isEmpty() && !writeJUnit(&error)) {
        status = ProgramStatus::complain(error);
    }
    if (!m_options.tourDir.isEmpty() && !writeTourResults(&error)) {
        status = ProgramStatus::complain(error);
    }
    return status;
}

bool WorkbenchProgram::writeJUnit(QString *error) const
{
    JUnitReport report(m_script.name);
    const bool failed = !m_runner->failure().isEmpty() || !m_runner->isFinished();
    const QString failure = failed && m_runner->failure().isEmpty()
                                    ? QStringLiteral("the window was closed before the end")
                                    : m_runner->failure();
    const int begun = m_runner->linesBegun();
    for (int i = 0; i < m_script.lines.size(); ++i) {
        const Script::Line &line = m_script.lines.at(i);
        const QString name =
                QStringLiteral("line %1: %2").arg(line.number).arg(Script::joined(line.words));
        if (i >= begun)
            report.addSkipped(name);
        else if (failed && i == begun - 1)
            report.addFailed(name, failure);
        else
            report.addPassed(name);
    }
    return report.save(m_options.junitFile, error);
}

bool WorkbenchProgram::writeTourResults(QString *error) const
{
    const QDir dir(m_options.tourDir);
    // tour-full.script gives transcript-full.txt.
    const QString part =
            QFileInfo(m_options.tourScript).completeBaseName().section(QStringLiteral("tour"), 1);
    if (!TranscriptText::save(dir.filePath(QStringLiteral("transcript%1.txt").arg(part)),
                              m_session->io()->transcript(), error))
        return false;
    QSaveFile costs(dir.filePath(QStringLiteral("stalls%1.txt").arg(part)));
    const QByteArray text = m_runner->actionCosts().join(QLatin1Char('\n')).toUtf8() + '\n';
    const bool saved =
            costs.open(QIODevice::WriteOnly) && costs.write(text) == text.size() && costs.commit();
    if (!saved)
        *error = QStringLiteral("%1: %2").arg(costs.fileName(), costs.errorString());
    return saved;
}

bool WorkbenchProgram::setTheStage(QString *error)
{
    ScriptContext context;
    context.session = m_session.get();
    context.window = m_window.get();
    for (const Script::Line &line : qAsConst(m_script.setup)) {
        int nameLength = 0;
        const ScriptCommand *command = ScriptCommands::find(line.words, &nameLength);
        const QString problem = command->run(context, line.words.mid(nameLength));
        if (!problem.isEmpty()) {
            *error = QStringLiteral("%1:%2: %3").arg(m_script.name).arg(line.number).arg(problem);
            return false;
        }
    }
    if (!m_options.isScripted() && !m_script.lines.isEmpty()) {
        StallMeter *stalls = m_window->toolWindow()->stalls();
        stalls->setLatencyMs(qMax(m_options.latencyMs, m_script.latencyMs));
        m_window->toolWindow()->showDemonstration(m_script, context);
    }
    return true;
}

int WorkbenchProgram::runInteractive()
{
    m_session->io()->setMeasuring(true);
    QTimer clock;
    QObject::connect(&clock, &QTimer::timeout, qApp,
                     [this] { m_session->io()->advance(clockStepMs); });
    clock.start(clockStepMs);
    return QApplication::exec();
}

void WorkbenchProgram::shutDown()
{
    if (m_watchdog)
        m_watchdog->watch(QStringLiteral("the shutdown"));
    m_runner.reset();
    m_session->unloadModule();
    m_window.reset();
    m_timers.reset();
}
