#pragma once

#include "TranscriptEntry.h"

#include <QByteArray>
#include <QObject>
#include <QString>
#include <QVector>

/** One rule that disturbs matching commands. */
struct FaultRule {
    /** Which of the matching calls are disturbed. */
    enum class Trigger {
        Always,
        KthCall,  ///< the call `k` of those that match
        EveryNth, ///< every call `k` of those that match
        At,       ///< the operation `k` of all since the rule was added
        From,     ///< that operation and all later ones
        TimeWindow,
        Random
    };
    /** What happens to a call that is disturbed. */
    enum class Effect {
        Fail,  ///< the operation fails, nothing is carried out
        Delay, ///< virtual time passes by `number` ms
        EmptyAnswer,
        WrongType,      ///< a text where a number is expected and the other way round
        Garbled,        ///< bytes that are no valid text
        LongAnswer,     ///< exactly 199 bytes
        OverlongAnswer, ///< more than the 200 bytes callers must have room for
        Answer,         ///< answers `text` instead of the controller's answer
        Refuse,         ///< a set or an action is refused
        Clamp,          ///< a set is carried out with its last number halved
        ReportFailed,   ///< carried out, but reported as failed
        Lock,           ///< the configuration gets locked before the operation is carried out
        LinkDead        ///< from this call on everything fails, until the link is back
    };
    QString source;                    ///< the text the rule was parsed from
    QString pattern;                   ///< the line, or a prefix of it followed by "*"
    Trigger trigger = Trigger::Always; ///< which of the matching calls
    int k = 1;                         ///< KthCall, EveryNth, At and From
    qint64 fromMs = 0;                 ///< TimeWindow, virtual time
    qint64 toMs = 0;                   ///< TimeWindow: the end, not below fromMs
    double probability = 0.0;          ///< Random
    quint32 seed = 1;                  ///< Random
    Effect effect = Effect::Fail;      ///< what happens then
    int number = 0;                    ///< Delay: ms
    QString text;                      ///< Answer
    bool enabled = true;               ///< false: disturbs nothing
    int operations = 0;                ///< operations seen, matching or not
    int calls = 0;                     ///< matching calls seen
    int fired = 0;                     ///< times the effect was applied
};

/**
 * Decides which effect disturbs a command. One engine serves the panel, the scenario file, the
 * command line and the tests. Owned by the SimulatedIOManager.
 *
 * A rule reads PATTERN [TRIGGER] EFFECT, for example
 *   body desc* fail
 *   set body active* every 2 refuse
 *   status progress call 3 answer "abc"
 *   * at 12 empty
 *   * from 12 fail
 *   * between 1000 2000 delay 200
 *   body* random 0.1 seed 7 garbled
 * A pattern that begins with get, set or command restricts the rule to that kind of operation. The
 * effects are fail, delay MS, empty, wrong-type, garbled, long, over-long, answer "TEXT", refuse,
 * clamp, report-failed and link-dead. An operation that the effect cannot disturb (a read cannot be
 * refused, a set has no answer) does not match.
 */
class FaultEngine : public QObject {
    Q_OBJECT

public:
    /** Has no rules; the link is alive. */
    explicit FaultEngine(QObject *parent = nullptr);

    /** Adds a rule. False, with the column and what was expected in *error, when it is none. */
    bool add(const QString &rule, QString *error = nullptr);
    /** Takes rule `index` of rules() away; another index does nothing. */
    void remove(int index);
    /** Takes all rules away. */
    void clear();
    /** Switches rule `index` of rules() on or off; another index does nothing. */
    void setEnabled(int index, bool enabled);
    /** The rules in the order in which they were added. */
    const QVector<FaultRule> &rules() const { return m_rules; }

    /** The link is dead: every operation fails. */
    bool linkDead() const { return m_linkDead; }
    void setLinkDead(bool dead); ///< false brings the link back

    /** The rules that fire for this call, in order; counts the call. None while the link is dead.
     */
    QVector<FaultRule> fire(TranscriptEntry::Operation operation, const QByteArray &line,
                            qint64 virtualMs);

signals:
    /** A rule was added, taken away, switched or fired, or the link died or came back. */
    void changed();

private:
    QVector<FaultRule> m_rules;
    bool m_linkDead = false;
};
