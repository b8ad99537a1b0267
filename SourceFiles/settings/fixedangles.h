#pragma once

#include "controllerlink.h"
#include "settings/fixedanglebody.h"

#include <QObject>
#include <QPointer>

/**
 * Reads and writes the fixed angles of the standard bodies, which are numbered from one.
 *
 * A value without widgets; every failure is one line in the message log. Reading stops when the
 * dialog that called it is deleted meanwhile.
 */
class FixedAngles {
public:
    FixedAngles(const ControllerLink &link, const QObject *asker);

    /** True when any axis of any body is fixed; reads all bodies. */
    bool isAnyFixed() const;

    /** Number of bodies that have angles; 0 when it cannot be read. */
    int count() const;
    FixedAngleBody read(int number) const;
    /** Writes the angles of one body. False when the controller refused them. */
    bool write(const FixedAngleBody &body) const;

private:
    bool readAngles(FixedAngleBody *body) const;

    ControllerLink m_link;
    QPointer<const QObject> m_asker;
};
