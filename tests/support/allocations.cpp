#include "support/allocations.h"

#include <QtGlobal>

#include <algorithm>
#include <cerrno>
#include <utility>

#include <malloc.h>

namespace {

struct Tally
{
    bool active = false;
    CountedAllocations::Judge shouldFail = nullptr;
    long count = 0;
    long octets = 0;
    long held = 0;
    long peak = 0;
    long balance = 0;
};

thread_local Tally tally;

bool fails()
{
    if (!tally.active || !tally.shouldFail)
        return false;
    tally.active = false; // the callback may allocate memory
    const bool failing = tally.shouldFail();
    tally.active = true;
    return failing;
}

void *taken(void *block)
{
    if (!tally.active || !block)
        return block;
    const auto size = long(malloc_usable_size(block));
    ++tally.count;
    ++tally.balance;
    tally.octets += size;
    tally.held += size;
    tally.peak = std::max(tally.peak, tally.held);
    return block;
}

void givingBack(void *block)
{
    if (!tally.active || !block)
        return;
    --tally.balance;
    tally.held -= long(malloc_usable_size(block));
}

} // namespace

extern "C" {
void *__libc_malloc(size_t size);
void *__libc_calloc(size_t count, size_t size);
void *__libc_memalign(size_t alignment, size_t size);
void *__libc_realloc(void *block, size_t size);
void __libc_free(void *block);

// Exported, so that the libraries use them too.
Q_DECL_EXPORT void *malloc(size_t size)
{
    return fails() ? nullptr : taken(__libc_malloc(size));
}

Q_DECL_EXPORT void *calloc(size_t count, size_t size)
{
    return fails() ? nullptr : taken(__libc_calloc(count, size));
}

Q_DECL_EXPORT void *realloc(void *block, size_t size)
{
    if (fails())
        return nullptr;
    givingBack(block);
    return taken(__libc_realloc(block, size));
}

Q_DECL_EXPORT int posix_memalign(void **block, size_t alignment, size_t size)
{
    *block = fails() ? nullptr : taken(__libc_memalign(alignment, size));
    return *block ? 0 : ENOMEM;
}

Q_DECL_EXPORT void free(void *block)
{
    givingBack(block);
    __libc_free(block);
}
}

CountedAllocations::CountedAllocations(Judge shouldFail)
{
    tally = {};
    tally.shouldFail = shouldFail;
    tally.active = true;
}

CountedAllocations::~CountedAllocations()
{
    tally.active = false;
}

long CountedAllocations::count() const
{
    return tally.count;
}

long CountedAllocations::octets() const
{
    return tally.octets;
}

long CountedAllocations::peak() const
{
    return tally.peak;
}

long CountedAllocations::balance() const
{
    return tally.balance;
}

UncountedAllocations::UncountedAllocations() : m_wasActive(std::exchange(tally.active, false)) { }

UncountedAllocations::~UncountedAllocations()
{
    tally.active = m_wasActive;
}
