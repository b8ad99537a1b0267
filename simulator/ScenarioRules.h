#pragma once

#include <QString>

/** What single values of a scenario may be. */
namespace ScenarioRules {

/** Both ends are allowed. */
struct NumberRange {
    double minimum; ///< in the unit of the value
    double maximum; ///< not below the minimum
};

/** Which texts a value may be. */
struct TextRule {
    bool (*accepts)(const QString &text); ///< judges one text
    const char *expected;                 ///< completes "expected ..."
};

/** Anything. */
TextRule anyText();
/** One line without double quotes that fits into an answer. */
TextRule unquotedText();
/** One or more characters without blanks and quotes. */
TextRule word();
/** A word or an empty text. */
TextRule wordOrNothing();
/** Vendor, model and 'device id', separated by blanks. */
TextRule sensorName();
/** Two or three numbers separated by dots. */
TextRule version();

} // namespace ScenarioRules
