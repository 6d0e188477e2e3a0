/*
 * The heap allocations of a thread. A program that links allocations.cpp can count them, including
 * those of Qt and FFmpeg, and can let one fail. Not with sanitizers, which have their own
 * allocator.
 */
#pragma once

#include <cstddef>

/// Counts the allocations of this thread during its lifetime. Only one may exist at a time.
class CountedAllocations
{
public:
    /// Called for every allocation; returns true to let it fail. Its own allocations are not
    /// counted.
    using Judge = bool (*)();

    explicit CountedAllocations(Judge shouldFail = nullptr);
    CountedAllocations(const CountedAllocations &) = delete;
    CountedAllocations &operator=(const CountedAllocations &) = delete;
    ~CountedAllocations();

    /// The number of allocations, including growth of a block.
    long count() const;
    /// Octets allocated in total.
    long octets() const;
    /// The peak of the octets in use, beyond those in use at the begin.
    long peak() const;
    /// Blocks allocated and not freed; negative if older blocks were freed.
    long balance() const;
};

/// Within CountedAllocations: during its lifetime allocations are not counted and do not fail.
class UncountedAllocations
{
public:
    UncountedAllocations();
    UncountedAllocations(const UncountedAllocations &) = delete;
    UncountedAllocations &operator=(const UncountedAllocations &) = delete;
    ~UncountedAllocations();

private:
    bool m_wasActive;
};
