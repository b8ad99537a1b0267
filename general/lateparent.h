#pragma once

#include "controllerlink.h"

#include <QPointer>
#include <QWidget>

/**
 * The parent of a window that asks the controller in its constructor: it gets the window as its
 * child when that is made. A host may delete the parent meanwhile, and the window with it
 * otherwise; so it only closes the window's link.
 */
class LateParent {
public:
    LateParent(QWidget *parent, const ControllerLink &link)
        : m_parent(parent), m_sign(parent ? new QObject(parent) : nullptr)
    {
        // Not a signal of the parent: whoever deletes it may disconnect those before.
        if (m_sign)
            QObject::connect(m_sign, &QObject::destroyed, [link] { link.close(); });
    }
    ~LateParent()
    {
        if (m_sign)
            m_sign->disconnect();
        delete m_sign;
    }
    LateParent(const LateParent &) = delete;
    LateParent &operator=(const LateParent &) = delete;

    /** Makes `window` its child, with its icon; nothing when there is no parent, or no more. */
    void adopt(QWidget *window) const
    {
        if (!m_sign)
            return;
        window->setWindowIcon(m_parent->windowIcon());
        window->setParent(m_parent, window->windowFlags());
    }

private:
    QWidget *m_parent;
    const QPointer<QObject> m_sign; ///< deleted with the parent
};
