#include "testhost.h"

#include "FaultEngine.h"
#include "ScenarioFile.h"

#include <QApplication>
#include <QtTest>

namespace {

using Operation = TranscriptEntry::Operation;

QVector<TranscriptEntry> messages(const SimulatedIOManager &io)
{
    QVector<TranscriptEntry> found;
    for (const TranscriptEntry &entry : io.transcript()) {
        if (entry.operation == Operation::Message)
            found.append(entry);
    }
    return found;
}

/** "channel|sender|kind|text" as its four parts. */
QStringList parts(const TranscriptEntry &message)
{
    const QString line = QString::fromUtf8(message.line);
    return {line.section(QLatin1Char('|'), 0, 0), line.section(QLatin1Char('|'), 1, 1),
            line.section(QLatin1Char('|'), 2, 2), line.section(QLatin1Char('|'), 3)};
}

} // namespace

TestHost::TestHost(const ControllerState &state) : controller(state), io(&controller)
{
    io.setDialogProbe([] {
        const QWidget *modal = QApplication::activeModalWidget();
        return modal ? QString::fromLatin1(modal->metaObject()->className()) : QString();
    });
    versions.sysPt.fromString(state.systemVersion);
    versions.sysCt.fromString(state.controllerVersion);
    versions.prot.fromString(state.protocol);
    versions.mod = state.model;
}

TestHost::~TestHost()
{
    const QStringList unknown = controller.unknownCommands();
    if (!unknown.isEmpty()) {
        QTest::qFail(qPrintable(QStringLiteral("commands that no controller knows: ")
                                + unknown.join(QStringLiteral("; "))),
                     __FILE__, __LINE__);
    }
}

ControllerState TestHost::scenario(const QString &name)
{
    Scenario scenario;
    QString error;
    const QString path = QStringLiteral(TRACKING_SCENARIO_DIR "/%1.json").arg(name);
    if (!ScenarioFile::load(path, &scenario, &error))
        qFatal("%s", qPrintable(error));
    return scenario.state;
}

void TestHost::edit(const std::function<void(ControllerState &)> &change)
{
    ControllerState changed = controller.state();
    change(changed);
    controller.setState(changed);
}

QStringList TestHost::writes() const
{
    QStringList found;
    for (const TranscriptEntry &entry : io.transcript()) {
        if (entry.operation == Operation::Set || entry.operation == Operation::Command)
            found.append(QString::fromUtf8(entry.line));
    }
    return found;
}

QStringList TestHost::queries() const
{
    QStringList found;
    for (const TranscriptEntry &entry : io.transcript()) {
        if (entry.isGet())
            found.append(QString::fromUtf8(entry.line));
    }
    return found;
}

QStringList TestHost::lines() const
{
    QStringList found;
    for (const TranscriptEntry &entry : io.transcript()) {
        if (entry.operation != Operation::Message)
            found.append(QString::fromUtf8(entry.line));
    }
    return found;
}

QStringList TestHost::log() const
{
    QStringList found;
    for (const TranscriptEntry &entry : messages(io)) {
        const QStringList message = parts(entry);
        if (message.at(0) == QLatin1String("standard"))
            found.append(message.at(3));
    }
    return found;
}

QStringList TestHost::requests() const
{
    QStringList found;
    for (const TranscriptEntry &entry : messages(io)) {
        const QStringList message = parts(entry);
        if (message.at(0) != QLatin1String("standard"))
            found.append(QStringList{message.at(0), message.at(1), message.at(3)}.join(
                    QLatin1Char('|')));
    }
    return found;
}

void TestHost::clear()
{
    io.clearTranscript();
}

void TestHost::fault(const QString &rule)
{
    QString error;
    if (!io.faults()->add(rule, &error))
        QTest::qFail(qPrintable(rule + QStringLiteral(": ") + error), __FILE__, __LINE__);
}

ControllerState studio(const QString &protocol)
{
    ControllerState state = TestHost::scenario(QStringLiteral("studio"));
    state.protocol = protocol;
    return state;
}

ControllerState studio(const std::function<void(ControllerState &)> &change)
{
    ControllerState state = studio();
    change(state);
    return state;
}

ControllerState twoBodies(const QString &protocol)
{
    ControllerState state = studio(protocol);
    state.trackingReference.clear();
    QVector<BodyState> bodies(2);
    bodies[0].description = QStringLiteral("Head");
    bodies[0].calibrated = true;
    bodies[0].markers = 5;
    bodies[1].description = QStringLiteral("Left hand");
    bodies[1].active = false;
    state.bodyTypes[QStringLiteral("standard")].bodies = bodies;
    state.autoRestart = false;
    return state;
}
