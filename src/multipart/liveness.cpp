/*
 * Creates the token that weak pointers watch, when the first one needs it.
 */
#include "multipart/liveness.h"

#include "base/no_memory.h"

std::weak_ptr<const void> QvlLiveness::watch() const
{
    asFarAsMemoryGoes([this] {
        if (!m_token)
            m_token = std::make_shared<char>();
    });
    return m_token;
}
