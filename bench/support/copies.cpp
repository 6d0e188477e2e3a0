/*
 * Counts the octets copied by memcpy() and memmove(). Does not see small copies of a known size,
 * which compilers inline.
 */
#include <cstddef>

#include <dlfcn.h>

namespace {

using Copy = void *(*)(void *, const void *, std::size_t);

long copied = 0;

void *counted(void *to, const void *from, std::size_t size)
{
    static const auto copy = reinterpret_cast<Copy>(dlsym(RTLD_NEXT, "memmove"));
    copied += long(size);
    return copy(to, from, size);
}

} // namespace

#define EXPORTED extern "C" __attribute__((visibility("default")))

EXPORTED void *memcpy(void *to, const void *from, std::size_t size) noexcept
{
    return counted(to, from, size);
}

EXPORTED void *memmove(void *to, const void *from, std::size_t size) noexcept
{
    return counted(to, from, size);
}

EXPORTED long qvlCopiedOctets()
{
    return copied;
}
