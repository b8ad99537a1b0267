#include "FaultRuleParser.h"

#include <QVector>

namespace {

using Effect = FaultRule::Effect;
using Trigger = FaultRule::Trigger;

struct EffectName {
    const char *name;
    Effect effect;
};

constexpr EffectName effectNames[] = {
        {"fail", Effect::Fail},
        {"delay", Effect::Delay},
        {"empty", Effect::EmptyAnswer},
        {"wrong-type", Effect::WrongType},
        {"garbled", Effect::Garbled},
        {"long", Effect::LongAnswer},
        {"over-long", Effect::OverlongAnswer},
        {"answer", Effect::Answer},
        {"refuse", Effect::Refuse},
        {"clamp", Effect::Clamp},
        {"report-failed", Effect::ReportFailed},
        {"lock", Effect::Lock},
        {"link-dead", Effect::LinkDead},
};

const QStringList triggerNames = {QStringLiteral("always"), QStringLiteral("call"),
                                  QStringLiteral("every"),  QStringLiteral("between"),
                                  QStringLiteral("random"), QStringLiteral("at"),
                                  QStringLiteral("from")};

struct Token {
    QString text;
    int column = 0; ///< zero-based
};

QVector<Token> tokensOf(const QString &text)
{
    QVector<Token> tokens;
    for (int i = 0; i < text.size(); ++i) {
        if (text.at(i).isSpace())
            continue;
        if (i == 0 || text.at(i - 1).isSpace())
            tokens << Token{QString(), i};
        tokens.last().text += text.at(i);
    }
    return tokens;
}

QString effectList()
{
    QStringList names;
    for (const EffectName &one : effectNames)
        names << QString::fromLatin1(one.name);
    return names.join(QStringLiteral(", "));
}

/** Reads one rule from left to right, and stops at the first mistake. */
class RuleReader {
public:
    RuleReader(const QString &text, FaultRule *rule)
        : m_text(text), m_tokens(tokensOf(text)), m_rule(rule)
    {
    }

    bool read()
    {
        return readPattern() && readTrigger() && readEffect() && readEnd() && checkKind();
    }
    QString error() const { return m_error; }

private:
    bool fail(const QString &expected)
    {
        const bool atEnd = m_at >= m_tokens.size();
        const int column = atEnd ? m_text.size() : m_tokens.at(m_at).column;
        const QString found = atEnd ? QStringLiteral("the end of the rule")
                                    : QLatin1Char('"') + m_tokens.at(m_at).text + QLatin1Char('"');
        m_error = QStringLiteral("column %1: expected %2, found %3")
                          .arg(column + 1)
                          .arg(expected, found);
        return false;
    }

    QString word() const { return m_tokens.value(m_at).text; }

    static bool findEffect(const QString &word, Effect *effect)
    {
        for (const EffectName &one : effectNames) {
            if (word == QLatin1String(one.name)) {
                *effect = one.effect;
                return true;
            }
        }
        return false;
    }

    bool readPattern()
    {
        Effect effect;
        bool isEnded = false;
        while (!isEnded && m_at < m_tokens.size() && !triggerNames.contains(word())
               && !findEffect(word(), &effect)) {
            const int star = word().indexOf(QLatin1Char('*'));
            isEnded = star >= 0;
            if (isEnded && star != word().size() - 1) {
                m_error = QStringLiteral("column %1: expected \"*\" only at the end of the pattern")
                                  .arg(m_tokens.at(m_at).column + star + 1);
                return false;
            }
            ++m_at;
        }
        if (m_at == 0)
            return fail(QStringLiteral("a command pattern"));
        const int end = m_at < m_tokens.size() ? m_tokens.at(m_at).column : m_text.size();
        const int begin = m_tokens.first().column;
        m_rule->pattern = m_text.mid(begin, end - begin).trimmed();
        return true;
    }

    /** Reads a whole number of at least `minimum` as the next word. */
    bool readNumber(qint64 minimum, const QString &what, qint64 *number)
    {
        bool ok = false;
        *number = word().toLongLong(&ok);
        if (!ok || *number < minimum)
            return fail(QStringLiteral("%1 (a whole number from %2)").arg(what).arg(minimum));
        ++m_at;
        return true;
    }

    bool readCount(Trigger trigger, const QString &what)
    {
        qint64 count = 0;
        if (!readNumber(1, what, &count))
            return false;
        m_rule->trigger = trigger;
        m_rule->k = int(qMin<qint64>(count, std::numeric_limits<int>::max()));
        return true;
    }

    bool readWindow()
    {
        m_rule->trigger = Trigger::TimeWindow;
        return readNumber(0, QStringLiteral("the first millisecond"), &m_rule->fromMs)
               && readNumber(m_rule->fromMs + 1, QStringLiteral("the millisecond after the last"),
                             &m_rule->toMs);
    }

    bool readRandom()
    {
        bool ok = false;
        m_rule->trigger = Trigger::Random;
        m_rule->probability = word().toDouble(&ok);
        if (!ok || !(m_rule->probability >= 0.0 && m_rule->probability <= 1.0))
            return fail(QStringLiteral("a probability from 0 to 1"));
        ++m_at;
        if (word() != QLatin1String("seed"))
            return true;
        ++m_at;
        qint64 seed = 0;
        if (!readNumber(0, QStringLiteral("a seed"), &seed))
            return false;
        m_rule->seed = quint32(seed);
        return true;
    }

    bool readTrigger()
    {
        const int index = triggerNames.indexOf(word());
        if (index < 0)
            return true;
        ++m_at;
        switch (index) {
        case 1:
            return readCount(Trigger::KthCall, QStringLiteral("which call"));
        case 2:
            return readCount(Trigger::EveryNth, QStringLiteral("every how many calls"));
        case 3:
            return readWindow();
        case 4:
            return readRandom();
        case 5:
            return readCount(Trigger::At, QStringLiteral("which operation"));
        case 6:
            return readCount(Trigger::From, QStringLiteral("from which operation on"));
        default:
            return true;
        }
    }

    bool readEffect()
    {
        if (!findEffect(word(), &m_rule->effect))
            return fail(QStringLiteral("an effect (%1)").arg(effectList()));
        m_effectAt = m_at++;
        if (m_rule->effect == Effect::Answer)
            return readText();
        if (m_rule->effect != Effect::Delay)
            return true;
        qint64 number = 0;
        if (!readNumber(0, QStringLiteral("milliseconds"), &number))
            return false;
        m_rule->number = int(qMin<qint64>(number, std::numeric_limits<int>::max()));
        return true;
    }

    /**
     * Reads text in double quotes up to the end of the rule; \" and \\ mean the character itself.
     */
    bool readText()
    {
        if (!word().startsWith(QLatin1Char('"')))
            return fail(QStringLiteral("a text in double quotes"));
        int i = m_tokens.at(m_at).column + 1;
        for (; i < m_text.size() && m_text.at(i) != QLatin1Char('"'); ++i) {
            if (m_text.at(i) == QLatin1Char('\\') && i + 1 < m_text.size())
                ++i;
            m_rule->text += m_text.at(i);
        }
        const bool isClosed = i < m_text.size();
        while (isClosed && m_at < m_tokens.size() && m_tokens.at(m_at).column <= i)
            ++m_at;
        if (isClosed && (i + 1 == m_text.size() || m_text.at(i + 1).isSpace()))
            return true;
        m_error = QStringLiteral("column %1: expected %2")
                          .arg(qMin(i + 1, m_text.size()) + 1)
                          .arg(isClosed ? QStringLiteral("the end of the rule after the text")
                                        : QStringLiteral("the text's closing double quote"));
        return false;
    }

    bool readEnd()
    {
        return m_at >= m_tokens.size() || fail(QStringLiteral("the end of the rule"));
    }

    /**
     * Refuses "get" with an effect on writes and the reverse, since such a rule would never fire.
     */
    bool checkKind()
    {
        using Operation = TranscriptEntry::Operation;
        for (Operation one : {Operation::GetString, Operation::Set, Operation::Command}) {
            if (FaultRuleParser::concerns(*m_rule, one))
                return true;
        }
        m_at = m_effectAt;
        return fail(QStringLiteral("an effect that can disturb this kind of command"));
    }

    QString m_text;
    QVector<Token> m_tokens;
    FaultRule *m_rule;
    QString m_error;
    int m_at = 0;
    int m_effectAt = 0;
};

bool concernsEffect(Effect effect, TranscriptEntry::Operation operation)
{
    using Operation = TranscriptEntry::Operation;
    switch (effect) {
    case Effect::EmptyAnswer:
    case Effect::WrongType:
    case Effect::Garbled:
    case Effect::LongAnswer:
    case Effect::OverlongAnswer:
    case Effect::Answer:
        return operation != Operation::Set;
    case Effect::Refuse:
        return operation == Operation::Set || operation == Operation::Command;
    case Effect::Clamp:
        return operation == Operation::Set;
    default:
        return true;
    }
}

} // namespace

namespace FaultRuleParser {

bool parse(const QString &text, FaultRule *rule, QString *error)
{
    FaultRule parsed;
    RuleReader reader(text, &parsed);
    if (!reader.read()) {
        if (error)
            *error = reader.error();
        return false;
    }
    parsed.source = text.trimmed();
    *rule = parsed;
    return true;
}

QString effectName(FaultRule::Effect effect)
{
    for (const EffectName &one : effectNames) {
        if (one.effect == effect)
            return QString::fromLatin1(one.name);
    }
    return {};
}

bool concerns(const FaultRule &rule, TranscriptEntry::Operation operation)
{
    using Operation = TranscriptEntry::Operation;
    if (operation == Operation::Message || !concernsEffect(rule.effect, operation))
        return false;
    const QString kind = rule.pattern.section(QLatin1Char(' '), 0, 0);
    if (kind == QLatin1String("set"))
        return operation == Operation::Set;
    if (kind == QLatin1String("command"))
        return operation == Operation::Command;
    return kind != QLatin1String("get")
           || (operation != Operation::Set && operation != Operation::Command);
}

} // namespace FaultRuleParser
