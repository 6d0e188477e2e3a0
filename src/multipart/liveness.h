/** @file
 * Pointers that know whether their target is still there. Media objects point at body parts, and
 * the presentation at the message, without owning them, while either side may be deleted first.
 */
#pragma once

#include "../base/export.h"

#include <memory>

/**
 * State of an object that copies must not share: that it is alive, for QvlWeakPointer, and that a
 * container has taken it. A copy of this member starts afresh, and assignment keeps it.
 */
class QvlLiveness
{
public:
    /// Of an object that nobody has taken yet.
    QvlLiveness() = default;
    /// The same: nothing is copied.
    QvlLiveness(const QvlLiveness &) { }
    /// Changes nothing.
    QvlLiveness &operator=(const QvlLiveness &) { return *this; }

    /// Expires when the object that holds the token is destroyed.
    /// Has expired already when there is no memory for the token.
    QVL_EXPORT std::weak_ptr<const void> watch() const;

    /// Whether a container has taken the object; it stays true from then on.
    bool isHeld() const { return m_held; }
    /// @copydoc isHeld
    void setHeld() { m_held = true; }

private:
    mutable std::shared_ptr<char> m_token;
    bool m_held = false;
};

/// Pointer to a T, which has an operation liveness(); null once the T is gone, and from the start
/// when there is no memory for watching it. Owns nothing.
template <typename T>
class QvlWeakPointer
{
public:
    /// Points at @p target, which stays its owner's; null points at nothing.
    QvlWeakPointer(T *target = nullptr) : m_target(target)
    {
        if (m_target)
            m_alive = m_target->liveness().watch();
    }

    /// True unless it was set to null, also when the target is gone.
    bool isSet() const { return m_target != nullptr; }

    /// The target, or null when it is gone.
    T *get() const { return m_alive.expired() ? nullptr : m_target; }

private:
    T *m_target;
    std::weak_ptr<const void> m_alive;
};
