#include "ControllerRules.h"
#include "FaultEngine.h"
#include "MainWindow.h"
#include "MessageLogDock.h"
#include "ScriptFamilies.h"
#include "StatePath.h"
#include "TimerHold.h"
#include "WidgetFinder.h"
#include "WorkbenchSession.h"
#include "WorkbenchTime.h"

#include <QAbstractItemView>
#include <QApplication>
#include <QDir>

namespace {

QString tick(ScriptContext &context, const QStringList &arguments)
{
    constexpr int pollMs = 600;
    bool isNumber = true;
    const int count = arguments.isEmpty() ? 1 : arguments.first().toInt(&isNumber);
    if (!isNumber || count < 1)
        return QStringLiteral("expected a number of ticks, found \"%1\"").arg(arguments.first());
    // A box that a timer opened, and that a later line has answered, ends the wait.
    const int linesBefore = context.linesStarted;
    for (int i = 0; i < count && context.linesStarted == linesBefore; ++i) {
        context.session->io()->advance(pollMs);
        context.timers->tick();
    }
    return QString();
}

QString addFault(ScriptContext &context, const QStringList &arguments)
{
    QString problem;
    context.session->addFault(arguments.first(), &problem);
    return problem;
}

QString switchFault(ScriptContext &context, const QString &number, bool on)
{
    FaultEngine *faults = context.session->io()->faults();
    const int index = number.toInt() - 1;
    if (index < 0 || index >= faults->rules().size()) {
        return QStringLiteral("expected a rule from 1 to %1, found \"%2\"")
                .arg(faults->rules().size())
                .arg(number);
    }
    faults->setEnabled(index, on);
    return QString();
}

/** Reads the command's word for on or off; returns an expectation for any other text. */
QString readSwitch(const QString &text, const QString &on, const QString &off, bool *value)
{
    *value = text == on;
    if (*value || text == off)
        return QString();
    return QStringLiteral("expected \"%1\" or \"%2\", found \"%3\"").arg(on, off, text);
}

QString setLink(ScriptContext &context, const QStringList &arguments)
{
    bool dead = false;
    const QString problem =
            readSwitch(arguments.first(), QStringLiteral("dead"), QStringLiteral("back"), &dead);
    if (problem.isEmpty())
        context.session->io()->faults()->setLinkDead(dead);
    return problem;
}

QString setState(ScriptContext &context, const QStringList &arguments)
{
    QString problem;
    ControllerState state = context.session->state();
    if (StatePath::write(&state, arguments.at(0), arguments.at(1), &problem))
        context.session->controller()->setState(state);
    return problem;
}

QString setInVolume(ScriptContext &context, const QStringList &arguments)
{
    bool inVolume = false;
    const QString problem =
            readSwitch(arguments.at(1), QStringLiteral("in"), QStringLiteral("out"), &inVolume);
    if (!problem.isEmpty())
        return problem;
    bool isKnown = false;
    context.session->edit([&](ControllerState &state) {
        for (TargetState &target : state.targets) {
            if (target.shortName == arguments.at(0)) {
                target.inVolume = inVolume;
                isKnown = true;
            }
        }
    });
    return isKnown ? QString()
                   : QStringLiteral("expected a target's short name, found \"%1\"")
                             .arg(arguments.at(0));
}

QString swapBodies(ScriptContext &context, const QStringList &arguments)
{
    const int count = context.session->state().bodyTypes.value(arguments.at(0)).bodies.size();
    const int first = arguments.at(1).toInt();
    const int second = arguments.at(2).toInt();
    if (qMin(first, second) < 1 || qMax(first, second) > count) {
        return QStringLiteral("expected two bodies from 1 to %1, found %2 and %3")
                .arg(count)
                .arg(arguments.at(1), arguments.at(2));
    }
    context.session->edit([&](ControllerState &state) {
        ControllerRules::switchBodies(state, arguments.at(0), first, second);
    });
    return QString();
}

/** The body number of the arguments "TYPE BODY"; 0, with *problem, when the body does not exist. */
int bodyNumber(ScriptContext &context, const QStringList &arguments, QString *problem)
{
    const int count = context.session->state().bodyTypes.value(arguments.at(0)).bodies.size();
    const int number = arguments.at(1).toInt();
    if (number >= 1 && number <= count)
        return number;
    *problem = QStringLiteral("expected a body from 1 to %1, found \"%2\"")
                       .arg(count)
                       .arg(arguments.at(1));
    return 0;
}

QString deleteBody(ScriptContext &context, const QStringList &arguments)
{
    QString problem;
    const int number = bodyNumber(context, arguments, &problem);
    if (number > 0) {
        context.session->edit([&](ControllerState &state) {
            ControllerRules::deleteBody(state, arguments.at(0), number);
        });
    }
    return problem;
}

QString renameBody(ScriptContext &context, const QStringList &arguments)
{
    QString problem;
    const int number = bodyNumber(context, arguments, &problem);
    if (number < 1)
        return problem;
    QString refusal;
    context.session->edit([&](ControllerState &state) {
        BodyState *body = ControllerRules::body(state, arguments.at(0), number);
        ControllerRules::rename(*body, arguments.at(2), &refusal);
    });
    return refusal.isEmpty() ? QString() : QStringLiteral("expected a name, found %1").arg(refusal);
}

QString setBodyCount(ScriptContext &context, const QStringList &arguments)
{
    const int maximum = context.session->state().bodyTypes.value(arguments.at(0)).maximum;
    bool isNumber = false;
    const int count = arguments.at(1).toInt(&isNumber);
    if (!isNumber || count < 0 || count > maximum) {
        return QStringLiteral("expected a count from 0 to %1, found \"%2\"")
                .arg(maximum)
                .arg(arguments.at(1));
    }
    context.session->edit([&](ControllerState &state) {
        ControllerRules::setBodyCount(state, arguments.at(0), count);
    });
    return QString();
}

QString sendMessage(ScriptContext &context, const QStringList &arguments)
{
    constexpr int kind = 1;
    context.session->io()->send_message(arguments.at(0).toUtf8().constData(),
                                        arguments.at(1).toUtf8().constData(), kind,
                                        arguments.at(2).toUtf8().constData());
    return QString();
}

QString setOracle(ScriptContext &context, const QStringList &arguments)
{
    return readSwitch(arguments.first(), QStringLiteral("on"), QStringLiteral("off"),
                      &context.comparesDialogs);
}

QString setSoundness(ScriptContext &context, const QStringList &arguments)
{
    return readSwitch(arguments.first(), QStringLiteral("on"), QStringLiteral("off"),
                      &context.checksSoundness);
}

QString setMeasurement(ScriptContext &context, const QStringList &arguments)
{
    bool running = false;
    const QString problem =
            readSwitch(arguments.first(), QStringLiteral("on"), QStringLiteral("off"), &running);
    if (problem.isEmpty())
        context.session->setMeasurementRunning(running);
    return problem;
}

QString restart(ScriptContext &context, const QStringList &arguments)
{
    return context.session->restartWithProtocol(arguments.first())
                   ? QString()
                   : QStringLiteral("expected a version such as 1.24, found \"%1\"")
                             .arg(arguments.first());
}

QString setMark(ScriptContext &context, const QStringList &)
{
    context.transcriptMark = context.session->io()->operationCount();
    context.timeMarkMs = context.session->io()->virtualTime();
    context.logMark = context.window->messageLog()->lines().size();
    return QString();
}

/** Lets the layouts adapt to filled tables, without handling any other event. */
void settleLayouts(QWidget *window)
{
    for (QAbstractItemView *table : window->findChildren<QAbstractItemView *>())
        QCoreApplication::sendPostedEvents(table, QEvent::MetaCall);
    QCoreApplication::sendPostedEvents(nullptr, QEvent::LayoutRequest);
}

QString takePicture(ScriptContext &context, const QStringList &arguments)
{
    const WorkbenchTime own;
    QWidget *modal = WidgetFinder::modalWindow();
    QWidget *window = modal ? modal : QApplication::activeWindow();
    if (arguments.size() > 1) {
        QString problem;
        QWidget *part = WidgetFinder::visible(arguments.at(1), &problem);
        if (!part)
            return problem;
        window = part->window();
    }
    const QString file =
            QDir(context.pictureDir).filePath(arguments.at(0) + QStringLiteral(".png"));
    window = window ? window : context.window;
    settleLayouts(window);
    return window->grab().save(file)
                   ? QString()
                   : QStringLiteral("expected to write %1, found it impossible").arg(file);
}

/** The actions that disturb operations. */
QVector<ScriptCommand> linkActions()
{
    return {
            {"tick", 0, 1, "[COUNT]", tick},
            {"fault", 1, 1, "RULE", addFault},
            {"fault-on", 1, 1, "NUMBER",
             [](ScriptContext &context, const QStringList &arguments) {
                 return switchFault(context, arguments.first(), true);
             }},
            {"fault-off", 1, 1, "NUMBER",
             [](ScriptContext &context, const QStringList &arguments) {
                 return switchFault(context, arguments.first(), false);
             }},
            {"no-faults", 0, 0, "",
             [](ScriptContext &context, const QStringList &) {
                 context.session->io()->faults()->clear();
                 return QString();
             }},
            {"link", 1, 1, "dead|back", setLink},
    };
}

/** The actions of the second client and the host, and those for the script itself. */
QVector<ScriptCommand> otherActions()
{
    return {
            {"set", 2, 2, "PATH VALUE", setState},
            {"swap", 3, 3, "TYPE BODY BODY", swapBodies},
            {"count", 2, 2, "TYPE COUNT", setBodyCount},
            {"delete", 2, 2, "TYPE BODY", deleteBody},
            {"rename", 3, 3, "TYPE BODY NAME", renameBody},
            {"message", 3, 3, "CHANNEL SENDER TEXT", sendMessage},
            {"volume", 2, 2, "TARGET in|out", setInVolume},
            {"measurement", 1, 1, "on|off", setMeasurement},
            {"configuration", 0, 0, "",
             [](ScriptContext &context, const QStringList &) {
                 context.session->announceConfiguration();
                 return QString();
             }},
            {"restart", 1, 1, "PROTOCOL", restart},
            {"unload", 0, 0, "",
             [](ScriptContext &context, const QStringList &) {
                 context.session->unloadModule();
                 return QString();
             }},
            {"oracle", 1, 1, "on|off", setOracle},
            {"sound", 1, 1, "on|off", setSoundness},
            {"mark", 0, 0, "", setMark},
            {"screenshot", 1, 2, "NAME [WIDGET]", takePicture},
    };
}

} // namespace

QVector<ScriptCommand> ScriptCommands::controllerActions()
{
    return linkActions() + otherActions();
}
