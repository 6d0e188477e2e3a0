/*
 * What a thread takes from the heap. A program that links allocations.cpp has its allocator
 * counted, Qt's and FFmpeg's blocks included, and can let an allocation fail. Not together with
 * sanitizers, which bring an allocator of their own.
 */
#pragma once

#include <cstddef>

/// Counts the allocations of this thread while it lives; one at a time.
class CountedAllocations
{
public:
    /// Told of every allocation; true lets it fail. What it takes itself is not counted.
    using Judge = bool (*)();

    explicit CountedAllocations(Judge shouldFail = nullptr);
    CountedAllocations(const CountedAllocations &) = delete;
    CountedAllocations &operator=(const CountedAllocations &) = delete;
    ~CountedAllocations();

    /// How often memory was taken, growth of a block included.
    long count() const;
    /// Octets taken in all.
    long octets() const;
    /// The most octets that were held at once, beyond those held at the begin.
    long peak() const;
    /// Blocks taken and not given back; negative when older ones were given back.
    long balance() const;
};
