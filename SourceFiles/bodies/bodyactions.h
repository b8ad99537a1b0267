#pragma once

#include "bodies/bodycommands.h"
#include "bodies/bodyquestions.h"

#include <QString>

class BodyRegistry;
class BodySnapshot;

/**
 * Resets, deletes and exchanges bodies, from the question to the box that says what failed. The
 * caller reads the records again as the outcome requires. Owned by the tab, which is the parent of
 * the boxes.
 */
class BodyActions {
public:
    enum class Outcome {
        Left,   ///< nothing was sent, or the tab was deleted, so that nothing is to be read again
        Failed, ///< nothing or only a part was done
        Done
    };

    /** The registry and the questions outlive the object. */
    BodyActions(const ControllerLink &link, const BodyRegistry &registry,
                const BodyQuestions &questions)
        : m_commands(link), m_registry(registry), m_questions(questions)
    {
    }

    /**
     * Undoes the calibration of a body: the body gets the geometry of its library target or the
     * values of its sensor.
     */
    Outcome reset(const QString &type, int index) const;
    /** Clears a body slot. */
    Outcome clear(const QString &type, int index) const;
    /** Exchanges two bodies without a question; the outcome is never Failed. */
    Outcome exchange(const QString &type, int index, int otherIndex) const;

private:
    Outcome resetToLibrary(const QString &type, int index) const;
    Outcome resetSensor(const BodySnapshot &body) const;
    Outcome resetOutcome(const QString &type, int index, bool done) const;

    BodyCommands m_commands;
    const BodyRegistry &m_registry;
    const BodyQuestions &m_questions;
};
