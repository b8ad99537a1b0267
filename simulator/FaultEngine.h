#pragma once

#include "TranscriptEntry.h"

#include <QByteArray>
#include <QObject>
#include <QString>
#include <QVector>

/** One rule that disturbs matching commands. */
struct FaultRule {
    /** Which of the matching calls the rule disturbs. */
    enum class Trigger {
        Always,
        KthCall,  ///< call number `k` of those that match
        EveryNth, ///< every `k`th call of those that match
        At,       ///< operation number `k` since the rule was added
        From,     ///< operation number `k` and all later ones
        TimeWindow,
        Random
    };
    /** What happens to a disturbed call. */
    enum class Effect {
        Fail,  ///< the operation fails and is not carried out
        Delay, ///< virtual time passes by `number` ms
        EmptyAnswer,
        WrongType,      ///< a text where a number is expected, or a number where a text is expected
        Garbled,        ///< bytes that are not valid text
        LongAnswer,     ///< exactly 199 bytes
        OverlongAnswer, ///< more than the 200 bytes that a buffer must have
        Answer,         ///< `text` instead of the controller's answer
        Refuse,         ///< a set or an action is refused
        Clamp,          ///< a set is carried out with half of its last number
        ReportFailed,   ///< the operation is carried out but reported as failed
        Lock,           ///< the configuration gets locked before the operation is carried out
        LinkDead        ///< from this call on every operation fails, until the link is restored
    };
    QString source;                    ///< the text of the rule
    QString pattern;                   ///< the line, or a prefix of it followed by "*"
    Trigger trigger = Trigger::Always; ///< which of the matching calls are disturbed
    int k = 1;                         ///< KthCall, EveryNth, At and From
    qint64 fromMs = 0;                 ///< TimeWindow, virtual time
    qint64 toMs = 0;                   ///< TimeWindow: the end, not below fromMs
    double probability = 0.0;          ///< Random
    quint32 seed = 1;                  ///< Random
    Effect effect = Effect::Fail;      ///< what happens to a disturbed call
    int number = 0;                    ///< Delay: ms
    QString text;                      ///< Answer
    bool enabled = true;               ///< false when the rule disturbs nothing
    int operations = 0;                ///< operations since the rule was added, matching or not
    int calls = 0;                     ///< matching calls since the rule was added
    int fired = 0;                     ///< how often the effect was applied
};

/**
 * Decides which effects disturb a command. The panel, the scenario file, the command line and the
 * tests use the same engine. Owned by the SimulatedIOManager.
 *
 * A rule has the form PATTERN [TRIGGER] EFFECT, for example
 *   body desc* fail
 *   set body active* every 2 refuse
 *   status progress call 3 answer "abc"
 *   * at 12 empty
 *   * from 12 fail
 *   * between 1000 2000 delay 200
 *   body* random 0.1 seed 7 garbled
 * A pattern that begins with get, set or command restricts the rule to that kind of operation. The
 * effects are fail, delay MS, empty, wrong-type, garbled, long, over-long, answer "TEXT", refuse,
 * clamp, report-failed, lock and link-dead. An operation that the effect cannot disturb does not
 * match: a read cannot be refused, and a set has no answer.
 */
class FaultEngine : public QObject {
    Q_OBJECT

public:
    /** Makes an engine without rules, with a working link. */
    explicit FaultEngine(QObject *parent = nullptr);

    /**
     * Adds a rule. False, with the column and the expectation in *error, when the text is not a
     * rule.
     */
    bool add(const QString &rule, QString *error = nullptr);
    /** Removes rule `index` of rules(); does nothing for another index. */
    void remove(int index);
    /** Removes all rules. */
    void clear();
    /** Switches rule `index` of rules() on or off; does nothing for another index. */
    void setEnabled(int index, bool enabled);
    /** The rules in the order in which they were added. */
    const QVector<FaultRule> &rules() const { return m_rules; }

    /** True while the link is dead, so that every operation fails. */
    bool linkDead() const { return m_linkDead; }
    void setLinkDead(bool dead); ///< false restores the link

    /**
     * The rules that disturb this call, in their order; counts the call. None while the link is
     * dead.
     */
    QVector<FaultRule> fire(TranscriptEntry::Operation operation, const QByteArray &line,
                            qint64 virtualMs);

signals:
    /** A rule was added, removed, switched or fired, or the link died or was restored. */
    void changed();

private:
    QVector<FaultRule> m_rules;
    bool m_linkDead = false;
};
