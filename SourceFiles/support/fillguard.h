#pragma once

#include <QObject>
#include <QPointer>

/**
 * Marks code in which the program fills widgets. Guards can be nested, and the owner may be deleted
 * meanwhile.
 */
class FillGuard {
public:
    /** `depth` is a member of `owner`. */
    FillGuard(QObject *owner, int &depth) : m_owner(owner), m_depth(depth) { ++m_depth; }
    ~FillGuard()
    {
        if (m_owner)
            --m_depth;
    }
    FillGuard(const FillGuard &) = delete;
    FillGuard &operator=(const FillGuard &) = delete;

private:
    const QPointer<QObject> m_owner;
    int &m_depth;
};
