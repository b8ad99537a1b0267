#include "Explorer.h"

#include "LineChecks.h"

#include <QFile>

#include <algorithm>

Explorer::Explorer(const ScriptContext &context, quint32 seed, const QString &scenario, int steps,
                   const QString &file)
    : LineRunner(context),
      m_chooser(context.session, seed),
      m_seed(seed),
      m_scenario(scenario),
      m_stepsLeft(steps),
      m_file(file),
      m_waiting{{"sound", "on"}}
{
}

QString Explorer::checkOutcome()
{
    const QString problem = m_done.isEmpty() ? QString() : LineChecks::afterLine(context());
    return problem.isEmpty() ? QString()
                             : QStringLiteral("%1: %2").arg(placeOf(m_done.last()), problem);
}

bool Explorer::takeLine(Script::Line *line)
{
    if (m_waiting.isEmpty() && m_stepsLeft > 0) {
        --m_stepsLeft;
        m_waiting = m_chooser.choose();
    }
    if (m_waiting.isEmpty())
        return false;
    line->words = m_waiting.takeFirst();
    // The first line names the scenario.
    line->number = m_done.isEmpty() ? 2 : m_done.last().number + 1;
    m_done << *line;
    const QString problem = save();
    if (problem.isEmpty())
        return true;
    m_waiting.clear();
    m_stepsLeft = 0;
    return false;
}

QString Explorer::save() const
{
    QFile file(m_file);
    if (!file.open(QIODevice::WriteOnly | QIODevice::Truncate))
        return QStringLiteral("%1: %2").arg(m_file, file.errorString());
    QStringList lines{Script::joined({"scenario", m_scenario})};
    for (const Script::Line &line : m_done)
        lines << Script::joined(line.words);
    file.write(lines.join(QLatin1Char('\n')).toUtf8() + '\n');
    return QString();
}

QString Explorer::judge(const Script::Line &line, const QString &)
{
    // The line could not be carried out, so that a repetition must not contain it.
    const auto gone = std::find_if(m_done.begin(), m_done.end(), [&line](const Script::Line &one) {
        return one.number == line.number;
    });
    if (gone != m_done.end())
        m_done.erase(gone);
    return QString();
}

QString Explorer::placeOf(const Script::Line &line) const
{
    return QStringLiteral("seed %1:%2").arg(m_seed).arg(line.number);
}
