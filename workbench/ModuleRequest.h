#pragma once

#include <QString>

/** A request for work on one body, which one module of the frontend sends to another. */
struct ModuleRequest {
    QString bodyType;   ///< type word, e.g. "standard"
    int bodyNumber = 0; ///< one-based; 0 when the text is not such a request
    QString status;     ///< calibration status that the sender knows; empty when it sends none

    bool isValid() const { return bodyNumber > 0; }

    /**
     * Reads "VERB TYPE bNN" or "VERB TYPE|N|STATUS".
     *
     * @param verb the first word of the request
     * @return an invalid request when the text has another form
     */
    static ModuleRequest parse(const QString &text, const QString &verb);
};
