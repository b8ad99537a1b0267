#include "bodies/bodyquestions.h"

#include "bodies/bodyregistry.h"
#include "bodies/bodysnapshot.h"
#include "bodynumber.h"

using UserQuestion::Answer;

QString BodyQuestions::about(const QString &text, const QString &type, int index) const
{
    return text.arg(m_registry.label(type), bodyNumber(index));
}

bool BodyQuestions::warn(const QString &text, const QString &names) const
{
    return UserQuestion::warning(m_parent, tr("Warning"), text, names);
}

QString BodyQuestions::name(const QString &type, int index) const
{
    return m_registry.body(type, index).desc;
}

Answer BodyQuestions::confirm(const QString &type, int index, const QString &text,
                              const QString &informativeText) const
{
    return confirm(BodySnapshot(m_registry, type, index), text, informativeText);
}

Answer BodyQuestions::confirm(const BodySnapshot &asked, const QString &text,
                              const QString &informativeText) const
{
    const Answer answer =
            UserQuestion::yesNo(m_parent, tr("MORVEK3"), text, informativeText, asked.name());
    if (answer != Answer::Accepted)
        return answer;
    if (asked.isCurrent(m_registry))
        return Answer::Accepted;
    logChanged(m_link);
    return Answer::Declined;
}

void BodyQuestions::logChanged(const ControllerLink &link)
{
    link.log(QStringLiteral("Error: ")
             + QString::fromLatin1(QT_TRANSLATE_NOOP(
                     "MessageLine", "The bodies have changed meanwhile. Nothing was sent.")));
}

Answer BodyQuestions::confirmResetToLibrary(const QString &type, int index) const
{
    return confirm(type, index, about(tr("Reset %1 %2\nto Target-Library geometry?"), type, index));
}

Answer BodyQuestions::confirmSensorReset(const BodySnapshot &asked,
                                         const BodyCommands::SensorReset &reset) const
{
    const QString question = reset.hasStorage ? tr("Reset %1 %2\nto sensor stored values?")
                             : reset.hasHandEye
                                     ? tr("Reset %1 %2?\nHand eye calibration will be deleted!")
                                     : tr("Reset %1 %2?");
    return confirm(asked, about(question, asked.type(), asked.index()));
}

Answer BodyQuestions::confirmDelete(const QString &type, int index) const
{
    const AdminBody &body = m_registry.body(type, index);
    if (body.isReference) {
        return confirm(
                type, index,
                about(tr("Delete geometry of %1 %2?\n"
                         "If yes, the assignment as reference to other bodies will be deleted."),
                      type, index));
    }
    if (!body.inertialSensor.isEmpty()) {
        return confirm(
                type, index,
                tr("Delete assignment of sensor %1 and \ndelete geometry of %2 %3?")
                        .arg(body.inertialSensor, m_registry.label(type), bodyNumber(index)));
    }
    return confirm(type, index, about(tr("Delete geometry of %1 %2?"), type, index));
}

Answer BodyQuestions::confirmReferenceDropped(const QString &type, int index) const
{
    return confirm(type, index,
                   tr("Decreasing the number of standard bodies will disable the reference!\n\n"
                      "Continue?"));
}

bool BodyQuestions::showInactiveReference(const QString &type, int index) const
{
    return warn(tr("A de-activated body cannot be set as reference.\n"
                   "Please activate this body before."),
                name(type, index));
}

bool BodyQuestions::showUnknownReset(const QString &type, int index) const
{
    return warn(about(tr("Unknown reset of %1 %2!"), type, index), name(type, index));
}

bool BodyQuestions::showResetFailed(const QString &type, int index) const
{
    return warn(about(tr("Reset of %1 %2 failed!"), type, index), name(type, index));
}

bool BodyQuestions::showDeleteFailed(const QString &type, int index,
                                     BodyCommands::DeleteStep step) const
{
    QString detail;
    switch (step) {
    case BodyCommands::DeleteStep::Filter:
        detail = tr("Unable to reset filter6d of %1 %2");
        break;
    case BodyCommands::DeleteStep::Sensor:
        detail = tr("Unable to reset sensor of %1 %2");
        break;
    case BodyCommands::DeleteStep::Markers:
        detail = tr("Unable to reset markers of %1 %2");
        break;
    case BodyCommands::DeleteStep::Description:
        detail = tr("Unable to reset description of %1 %2");
        break;
    case BodyCommands::DeleteStep::Done:
        return true;
    }
    return showDeleteFailed(type, index,
                            about(detail, type, index) + QLatin1Char('\n')
                                    + about(tr("Delete %1 %2 failed"), type, index));
}

bool BodyQuestions::showDeleteFailed(const QString &type, int index, const QString &text) const
{
    return warn(text, name(type, index));
}

bool BodyQuestions::showSwitchFailed(const QString &type, int index, int otherIndex) const
{
    QStringList names{name(type, index), name(type, otherIndex)};
    names.removeAll(QString());
    return warn(tr("Switching %1 %2 and %3 failed!")
                        .arg(m_registry.label(type), bodyNumber(index), bodyNumber(otherIndex)),
                names.join(QLatin1Char('\n')));
}

bool BodyQuestions::showFoundTargets(int count) const
{
    QString text = tr("%1 targets could be identified in library").arg(count);
    if (count == 0)
        text = tr("No targets could be identified in library");
    else if (count == 1)
        text = tr("One target could be identified in library");
    return UserQuestion::information(m_parent, tr("MORVEK3"), text);
}
