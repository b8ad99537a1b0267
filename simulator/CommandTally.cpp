#include "CommandTally.h"

#include "CommandTable.h"
#include "FaultRuleParser.h"

#include <QDir>
#include <QFile>
#include <QFileInfo>

namespace {

/** The effects, each once; one empty effect when nothing disturbs. */
QSet<QString> effectsOf(const QVector<FaultRule> &fired, bool isLinkDead)
{
    QSet<QString> effects;
    for (const FaultRule &rule : fired)
        effects << FaultRuleParser::effectName(rule.effect);
    if (isLinkDead)
        effects << FaultRuleParser::effectName(FaultRule::Effect::LinkDead);
    if (effects.isEmpty())
        effects << QString();
    return effects;
}

/** What this process appended; a test makes a controller for each of its functions. */
QSet<QByteArray> &appendedRows(const QString &file)
{
    static QHash<QString, QSet<QByteArray>> rows;
    return rows[file];
}

} // namespace

std::unique_ptr<CommandTally> CommandTally::wanted()
{
    const QString file = qEnvironmentVariable("TRACKING_COMMAND_TALLY");
    return file.isEmpty() ? nullptr : std::make_unique<CommandTally>(file);
}

CommandTally::CommandTally(const QString &file) : m_file(file) {}

CommandTally::~CommandTally()
{
    QSet<QByteArray> &appended = appendedRows(m_file);
    m_rows.subtract(appended);
    const QList<QByteArray> rows = m_rows.values();
    // A single write at the end of the file comes between no other process's rows.
    QFile file(m_file);
    if (rows.isEmpty() || !file.open(QIODevice::Append | QIODevice::Unbuffered))
        return;
    if (file.write(rows.join()) > 0)
        appended.unite(m_rows);
}

void CommandTally::setScript(const QString &file)
{
    const QFileInfo script(file);
    m_script = file.isEmpty() ? QByteArray()
                              : (script.absoluteDir().dirName() + QLatin1Char('/')
                                 + script.completeBaseName())
                                        .toUtf8();
}

void CommandTally::add(CommandAccess access, const QByteArray &line, const QString &dialog,
                       const QVector<FaultRule> &fired, bool isLinkDead)
{
    const CommandEntry *entry = CommandTable::instance().find(access, line).entry;
    if (!entry)
        return;
    const QByteArray begin = CommandTable::accessName(access).toUtf8() + '\t' + entry->pattern
                             + '\t' + dialog.toUtf8() + '\t';
    for (const QString &effect : effectsOf(fired, isLinkDead))
        m_rows << begin + effect.toUtf8() + '\t' + m_script + '\n';
}
