#include "FaultEngine.h"

#include "FaultRuleParser.h"

namespace {

bool matchesPattern(const FaultRule &rule, const QByteArray &line)
{
    QString pattern = rule.pattern;
    for (const char *kind : {"get", "set", "command"}) {
        const QString prefix = QLatin1String(kind) + QLatin1Char(' ');
        if (pattern.startsWith(prefix)) {
            pattern = pattern.mid(prefix.size()).trimmed();
            break;
        }
    }
    const QString text = QString::fromUtf8(line).trimmed();
    if (pattern.endsWith(QLatin1Char('*')))
        return text.startsWith(pattern.left(pattern.size() - 1));
    return text == pattern;
}

/** A number from 0 up to 1 that depends only on seed and call, on every machine. */
double randomNumber(quint32 seed, int call)
{
    quint64 z = (quint64(seed) << 32) + quint64(call) * Q_UINT64_C(0x9E3779B97F4A7C15);
    z = (z ^ (z >> 30)) * Q_UINT64_C(0xBF58476D1CE4E5B9);
    z = (z ^ (z >> 27)) * Q_UINT64_C(0x94D049BB133111EB);
    z ^= z >> 31;
    constexpr double twoToThe53 = 9007199254740992.0;
    return double(z >> 11) / twoToThe53;
}

/** True when the call that was counted last triggers the rule. */
bool isTriggered(const FaultRule &rule, qint64 virtualMs)
{
    switch (rule.trigger) {
    case FaultRule::Trigger::Always:
        return true;
    case FaultRule::Trigger::KthCall:
        return rule.calls == rule.k;
    case FaultRule::Trigger::EveryNth:
        return rule.calls % rule.k == 0;
    case FaultRule::Trigger::At:
        return rule.operations == rule.k;
    case FaultRule::Trigger::From:
        return rule.operations >= rule.k;
    case FaultRule::Trigger::TimeWindow:
        return virtualMs >= rule.fromMs && virtualMs < rule.toMs;
    case FaultRule::Trigger::Random:
        return randomNumber(rule.seed, rule.calls) < rule.probability;
    }
    return false;
}

} // namespace

FaultEngine::FaultEngine(QObject *parent) : QObject(parent) {}

bool FaultEngine::add(const QString &rule, QString *error)
{
    FaultRule parsed;
    if (!FaultRuleParser::parse(rule, &parsed, error))
        return false;
    m_rules << parsed;
    emit changed();
    return true;
}

void FaultEngine::remove(int index)
{
    if (index < 0 || index >= m_rules.size())
        return;
    m_rules.removeAt(index);
    emit changed();
}

void FaultEngine::clear()
{
    m_rules.clear();
    emit changed();
}

void FaultEngine::setEnabled(int index, bool enabled)
{
    if (index < 0 || index >= m_rules.size() || m_rules.at(index).enabled == enabled)
        return;
    m_rules[index].enabled = enabled;
    emit changed();
}

void FaultEngine::setLinkDead(bool dead)
{
    if (m_linkDead == dead)
        return;
    m_linkDead = dead;
    emit changed();
}

QVector<FaultRule> FaultEngine::fire(TranscriptEntry::Operation operation, const QByteArray &line,
                                     qint64 virtualMs)
{
    QVector<FaultRule> fired;
    if (operation == TranscriptEntry::Operation::Message)
        return fired;
    for (FaultRule &rule : m_rules)
        ++rule.operations;
    if (m_linkDead)
        return fired;
    for (FaultRule &rule : m_rules) {
        if (!rule.enabled || !FaultRuleParser::concerns(rule, operation)
            || !matchesPattern(rule, line))
            continue;
        ++rule.calls;
        if (!isTriggered(rule, virtualMs))
            continue;
        ++rule.fired;
        fired << rule;
    }
    if (!fired.isEmpty())
        emit changed();
    return fired;
}
