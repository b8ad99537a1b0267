#pragma once

#include "controllerlink.h"

#include <QPointer>
#include <QWidget>

/**
 * The parent of a window that queries the controller in its constructor. The window becomes its
 * child only when the window is complete. A host may delete the parent before that; deleting the
 * window with it would crash, so that only the window's link is closed.
 */
class LateParent {
public:
    LateParent(QWidget *parent, const ControllerLink &link)
        : m_parent(parent), m_sign(parent ? new QObject(parent) : nullptr)
    {
        // This is not a signal of the parent, because code that deletes the parent may disconnect
        // its signals first.
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

    /**
     * Makes `window` the parent's child, with the parent's icon; does nothing when the parent is
     * null or deleted.
     */
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
