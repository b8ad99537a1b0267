#include "DialogOracle.h"
#include "FaultEngine.h"
#include "MainWindow.h"
#include "MessageLogDock.h"
#include "ScriptCommand.h"
#include "ScriptItem.h"
#include "StatePath.h"
#include "WidgetFinder.h"
#include "WidgetText.h"
#include "WorkbenchSession.h"

#include <QAbstractItemView>
#include <QAccessible>
#include <QApplication>
#include <QLabel>

namespace {

QString compare(const QString &what, const QString &expected, const QString &found)
{
    return expected == found
                   ? QString()
                   : QStringLiteral("expected %1 \"%2\", found \"%3\"").arg(what, expected, found);
}

/** The text of a widget, or of the first of its labels that has a text. */
QString shownIn(const QWidget *widget)
{
    const QString own = WidgetText::of(widget);
    if (!own.isEmpty())
        return own;
    for (const QLabel *label : widget->findChildren<QLabel *>()) {
        if (label->isVisible() && !WidgetText::of(label).isEmpty())
            return WidgetText::of(label);
    }
    return QString();
}

QString quoted(const QStringList &lines)
{
    return lines.isEmpty() ? QStringLiteral("nothing")
                           : QStringLiteral("\"%1\"").arg(lines.join(QStringLiteral("\", \"")));
}

QString expectText(ScriptContext &, const QStringList &arguments)
{
    QString problem;
    const QWidget *widget = WidgetFinder::visible(arguments.at(0), &problem);
    return widget ? compare(arguments.at(0), arguments.at(1), WidgetText::of(widget)) : problem;
}

QString expectCell(ScriptContext &, const QStringList &arguments)
{
    QString problem;
    const ScriptItem item =
            ScriptItem::find(arguments.at(0), arguments.at(1), arguments.at(2), false, &problem);
    if (!problem.isEmpty())
        return problem;
    return compare(QStringLiteral("row %1, %2,").arg(arguments.at(1), arguments.at(2)),
                   arguments.at(3), WidgetText::ofItem(item.index));
}

QString expectRows(ScriptContext &, const QStringList &arguments)
{
    QString problem;
    const auto *view =
            qobject_cast<QAbstractItemView *>(WidgetFinder::visible(arguments.at(0), &problem));
    if (!problem.isEmpty())
        return problem;
    const int rows = view ? view->model()->rowCount() : 0;
    return compare(QStringLiteral("rows"), arguments.at(1), QString::number(rows));
}

QString expectState(ScriptContext &context, const QStringList &arguments)
{
    QString problem;
    QString value;
    if (!StatePath::read(context.session->state(), arguments.at(0), &value, &problem))
        return problem;
    return compare(arguments.at(0), arguments.at(1), value);
}

/** The lines sent since the mark; with `onlyWrites` without queries and messages. */
QStringList commandsSinceMark(const ScriptContext &context, bool onlyWrites)
{
    QStringList lines;
    const SimulatedIOManager *io = context.session->io();
    const QVector<TranscriptEntry> &all = io->transcript();
    const qint64 sinceMark = io->operationCount() - context.transcriptMark;
    for (int i = int(qMax<qint64>(0, all.size() - sinceMark)); i < all.size(); ++i) {
        const bool isMessage = all.at(i).operation == TranscriptEntry::Operation::Message;
        if (!isMessage && !(onlyWrites && all.at(i).isGet()))
            lines << QString::fromUtf8(all.at(i).line);
    }
    return lines;
}

/**
 * An explanation when operations since the mark are no longer in the transcript; otherwise empty.
 */
QString missingSinceMark(const ScriptContext &context)
{
    const SimulatedIOManager *io = context.session->io();
    const qint64 missing = io->operationCount() - context.transcriptMark - io->transcript().size();
    return missing > 0 ? QStringLiteral("expected all operations since the mark in the transcript, "
                                        "found %1 of them dropped or cleared")
                                 .arg(missing)
                       : QString();
}

QString expectCommand(ScriptContext &context, const QStringList &arguments)
{
    if (commandsSinceMark(context, false).contains(arguments.first()))
        return QString();
    return QStringLiteral("expected the command \"%1\", found %2")
            .arg(arguments.first(), quoted(commandsSinceMark(context, true)));
}

QString expectNoCommand(ScriptContext &context, const QStringList &arguments)
{
    return commandsSinceMark(context, false).contains(arguments.first())
                   ? QStringLiteral("expected no command \"%1\", found it").arg(arguments.first())
                   : missingSinceMark(context);
}

QString expectWrites(ScriptContext &context, const QStringList &arguments)
{
    const QStringList writes = commandsSinceMark(context, true);
    return writes == arguments ? missingSinceMark(context)
                               : QStringLiteral("expected exactly %1, found %2")
                                         .arg(quoted(arguments), quoted(writes));
}

QStringList logSinceMark(const ScriptContext &context)
{
    return context.window->messageLog()->lines().mid(context.logMark);
}

QString expectLog(ScriptContext &context, const QStringList &arguments)
{
    for (const QString &line : logSinceMark(context)) {
        if (line.startsWith(arguments.first()))
            return QString();
    }
    return QStringLiteral("expected a log line \"%1\", found %2")
            .arg(arguments.first(), quoted(logSinceMark(context)));
}

QString expectNoLog(ScriptContext &context, const QStringList &)
{
    return logSinceMark(context).isEmpty() ? QString()
                                           : QStringLiteral("expected no log line, found %1")
                                                     .arg(quoted(logSinceMark(context)));
}

QString expectWindow(ScriptContext &, const QStringList &arguments)
{
    QStringList titles;
    for (const QWidget *window : QApplication::topLevelWidgets()) {
        if (window->isVisible())
            titles << window->windowTitle();
    }
    titles.sort();
    return titles.contains(arguments.first()) ? QString()
                                              : QStringLiteral("expected a window \"%1\", found %2")
                                                        .arg(arguments.first(), quoted(titles));
}

QString expectNoWindow(ScriptContext &, const QStringList &)
{
    const QWidget *modal = WidgetFinder::modalWindow();
    return modal ? QStringLiteral("expected no open window, found %1")
                           .arg(WidgetFinder::describe(modal))
                 : QString();
}

QString expectEnabled(const QString &name, bool enabled)
{
    QString problem;
    const QWidget *widget = WidgetFinder::visible(name, &problem);
    if (!widget || widget->isEnabled() == enabled)
        return problem;
    return enabled ? QStringLiteral("expected \"%1\" enabled, found it disabled").arg(name)
                   : QStringLiteral("expected \"%1\" disabled, found it enabled").arg(name);
}

QString expectHidden(ScriptContext &, const QStringList &arguments)
{
    QString problem;
    return WidgetFinder::visible(arguments.first(), &problem)
                   ? QStringLiteral("expected \"%1\" hidden, found it visible")
                             .arg(arguments.first())
                   : QString();
}

QString expectAccessibleName(ScriptContext &, const QStringList &arguments)
{
    QString problem;
    QWidget *widget = WidgetFinder::visible(arguments.at(0), &problem);
    if (!widget)
        return problem;
    const QAccessibleInterface *accessible = QAccessible::queryAccessibleInterface(widget);
    return compare(arguments.at(0) + QStringLiteral(" read out as"), arguments.at(1),
                   accessible ? accessible->text(QAccessible::Name) : QString());
}

QString expectMessage(ScriptContext &, const QStringList &arguments)
{
    QString problem;
    const QWidget *line = WidgetFinder::visible(QStringLiteral("messageLine"), &problem);
    return line ? compare(QStringLiteral("the message"), arguments.first(), shownIn(line))
                : problem;
}

QString expectFired(ScriptContext &context, const QStringList &arguments)
{
    const QVector<FaultRule> &rules = context.session->io()->faults()->rules();
    const int index = arguments.at(0).toInt() - 1;
    if (index < 0 || index >= rules.size())
        return QStringLiteral("expected a rule %1, found %2 rules")
                .arg(arguments.at(0))
                .arg(rules.size());
    return compare(QStringLiteral("firings of rule %1").arg(arguments.at(0)), arguments.at(1),
                   QString::number(rules.at(index).fired));
}

QString expectWithin(ScriptContext &context, const QStringList &arguments)
{
    const qint64 elapsedMs = context.session->io()->virtualTime() - context.timeMarkMs;
    return elapsedMs <= arguments.first().toLongLong()
                   ? QString()
                   : QStringLiteral("expected at most %1 ms, found %2 ms")
                             .arg(arguments.first())
                             .arg(elapsedMs);
}

QString expectNoDifference(ScriptContext &context, const QStringList &)
{
    const QStringList lines =
            DialogOracle::differences(context.session->state(), WidgetFinder::modalWindow());
    return lines.isEmpty() ? QString()
                           : QStringLiteral("expected no difference, found %1").arg(quoted(lines));
}

} // namespace

const QVector<ScriptCommand> &ScriptCommands::expectations()
{
    static const QVector<ScriptCommand> all = {
            {"expect text", 2, 2, "WIDGET TEXT", expectText},
            {"expect cell", 4, 4, "TABLE ROW COLUMN TEXT", expectCell},
            {"expect rows", 2, 2, "TABLE COUNT", expectRows},
            {"expect state", 2, 2, "PATH VALUE", expectState},
            {"expect command", 1, 1, "LINE", expectCommand},
            {"expect no-command", 1, 1, "LINE", expectNoCommand},
            {"expect writes", 0, 100, "[LINE...]", expectWrites},
            {"expect log", 1, 1, "BEGINNING", expectLog},
            {"expect no-log", 0, 0, "", expectNoLog},
            {"expect window", 1, 1, "TITLE", expectWindow},
            {"expect no-window", 0, 0, "", expectNoWindow},
            {"expect enabled", 1, 1, "WIDGET",
             [](ScriptContext &, const QStringList &arguments) {
                 return expectEnabled(arguments.first(), true);
             }},
            {"expect disabled", 1, 1, "WIDGET",
             [](ScriptContext &, const QStringList &arguments) {
                 return expectEnabled(arguments.first(), false);
             }},
            {"expect hidden", 1, 1, "WIDGET", expectHidden},
            {"expect within", 1, 1, "MS", expectWithin},
            {"expect no-difference", 0, 0, "", expectNoDifference},
            {"expect a11y", 2, 2, "WIDGET NAME", expectAccessibleName},
            {"expect message", 1, 1, "TEXT", expectMessage},
            {"expect fired", 2, 2, "RULE TIMES", expectFired},
    };
    return all;
}
