#pragma once

#include "controllerlink.h"
#include "settings/fixedanglebody.h"

#include <QObject>
#include <QPointer>

/**
 * Reads and writes the fixed angles of the standard bodies, which are numbered from one.
 *
 * A value without widgets; every failure is one line in the message log. Lists are read no further
 * when the dialog that asks is deleted meanwhile.
 */
class FixedAngles {
public:
    FixedAngles(const ControllerLink &link, const QObject *asker);

    /** True when any axis of any body is fixed; all bodies are read. */
    bool isAnyFixed() const;

    /** The number of bodies that have angles; 0 when it cannot be read. */
    int count() const;
    FixedAngleBody read(int number) const;
    /** False when the controller refused it. */
    bool write(const FixedAngleBody &body) const;

private:
    bool readAngles(FixedAngleBody *body) const;

    ControllerLink m_link;
    QPointer<const QObject> m_asker;
};
