#pragma once

#include <QString>

/** A request to work on one body, as the modules of the frontend send it to each other. */
struct ModuleRequest {
    QString bodyType;   ///< type word, e.g. "standard"
    int bodyNumber = 0; ///< one-based; 0 when the text is no such request
    QString status;     ///< calibration status the sender knows; empty when it sends none

    bool isValid() const { return bodyNumber > 0; }

    /**
     * Reads "VERB TYPE bNN" or "VERB TYPE|N|STATUS".
     *
     * @param verb the word the request must begin with
     * @return an invalid request when the text is another one
     */
    static ModuleRequest parse(const QString &text, const QString &verb);
};
