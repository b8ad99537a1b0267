#pragma once

#include "FaultEngine.h"

#include <QString>

/** Reads the text form of a fault rule. */
namespace FaultRuleParser {

/** False with the column and what was expected there in *error when `text` is no rule. */
bool parse(const QString &text, FaultRule *rule, QString *error);

/** How an effect is written, without its argument. */
QString effectName(FaultRule::Effect effect);

/** The rule can disturb operations of this kind. */
bool concerns(const FaultRule &rule, TranscriptEntry::Operation operation);

} // namespace FaultRuleParser
