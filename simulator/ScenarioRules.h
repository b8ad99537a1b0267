#pragma once

#include <QString>

/** What single values of a scenario may be. */
namespace ScenarioRules {

struct NumberRange {
    double minimum;
    double maximum;
};

struct TextRule {
    bool (*accepts)(const QString &text);
    const char *expected; ///< completes "expected ..."
};

/** Anything. */
TextRule anyText();
/** One line without double quotes that fits into an answer. */
TextRule unquotedText();
/** One or more characters without blanks and quotes. */
TextRule word();
TextRule wordOrNothing();
/** Vendor, model and 'device id', separated by blanks. */
TextRule sensorName();
/** Two or three numbers separated by dots. */
TextRule version();

} // namespace ScenarioRules
