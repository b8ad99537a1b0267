#pragma once

#include "FaultEngine.h"

#include <QString>

/** Reads the text form of a fault rule. */
namespace FaultRuleParser {

/**
 * Reads `text` into *rule. False, with the column and the expectation in *error, when it is not a
 * rule.
 */
bool parse(const QString &text, FaultRule *rule, QString *error);

/** The effect as rules spell it, without its argument. */
QString effectName(FaultRule::Effect effect);

/** True when the rule can disturb operations of this kind. */
bool concerns(const FaultRule &rule, TranscriptEntry::Operation operation);

} // namespace FaultRuleParser
