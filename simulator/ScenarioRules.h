#pragma once

#include <QString>

/** The allowed values in a scenario. */
namespace ScenarioRules {

/** A range that includes both ends. */
struct NumberRange {
    double minimum; ///< in the unit of the value
    double maximum; ///< not below the minimum
};

/** The texts that a value may have. */
struct TextRule {
    bool (*accepts)(const QString &text); ///< true when the text is allowed
    const char *expected;                 ///< completes "expected ..."
};

/** Allows any text. */
TextRule anyText();
/** Allows one line without double quotes that fits into an answer. */
TextRule unquotedText();
/** Allows one or more characters without blanks and quotes. */
TextRule word();
/** Allows a word or an empty text. */
TextRule wordOrNothing();
/** Allows vendor, model and 'device id', separated by blanks. */
TextRule sensorName();
/** Allows two or three numbers separated by dots. */
TextRule version();

} // namespace ScenarioRules
