/** @file
 * Pointers that know whether their target still exists. Media objects point at body parts, and the
 * presentation points at the message, without owning them, and either side may be deleted first.
 */
#pragma once

#include "../base/export.h"

#include <memory>

/**
 * Per-object state that copies must not share: the token that QvlWeakPointer watches, and whether a
 * container has taken the object. Copying starts with fresh state; assignment keeps the old one.
 */
class QvlLiveness
{
public:
    /// State of an object that no container has taken.
    QvlLiveness() = default;
    /// Fresh state: copies nothing.
    QvlLiveness(const QvlLiveness &) { }
    /// Changes nothing.
    QvlLiveness &operator=(const QvlLiveness &) { return *this; }

    /// Expires when the object is destroyed. Already expired when there is no memory for the token.
    QVL_EXPORT std::weak_ptr<const void> watch() const;

    /// Whether a container has taken the object. Never becomes false again.
    bool isHeld() const { return m_held; }
    /// @copydoc isHeld
    void setHeld() { m_held = true; }

private:
    mutable std::shared_ptr<char> m_token;
    bool m_held = false;
};

/// Non-owning pointer to a T with an operation liveness(). Null once the T is destroyed, and from
/// the start when there is no memory for watching it.
template <typename T>
class QvlWeakPointer
{
public:
    /// Points at @p target, which it does not own; null points at nothing.
    QvlWeakPointer(T *target = nullptr) : m_target(target)
    {
        if (m_target)
            m_alive = m_target->liveness().watch();
    }

    /// True unless set to null; stays true when the target is destroyed.
    bool isSet() const { return m_target != nullptr; }

    /// The target, or null when it is destroyed.
    T *get() const { return m_alive.expired() ? nullptr : m_target; }

private:
    T *m_target;
    std::weak_ptr<const void> m_alive;
};
