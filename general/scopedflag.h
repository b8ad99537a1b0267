#pragma once

#include <QObject>
#include <QPointer>

/**
 * Gives a flag of an object another value, and restores the old one in the destructor.
 *
 * A host may run its event loop inside an operation and delete the flag's object meanwhile; the
 * flag is then not touched.
 */
class ScopedFlag {
public:
    ScopedFlag(QObject *owner, bool *flag, bool value)
        : m_owner(owner), m_flag(flag), m_before(*flag)
    {
        *flag = value;
    }
    ~ScopedFlag()
    {
        if (m_owner)
            *m_flag = m_before;
    }
    ScopedFlag(const ScopedFlag &) = delete;
    ScopedFlag &operator=(const ScopedFlag &) = delete;

private:
    QPointer<QObject> m_owner;
    bool *m_flag;
    bool m_before;
};
