/*
 * What a piece of work costs, counted instead of timed.
 */
#pragma once

#include "limits/steps.h"
#include "support/allocations.h"

#include <functional>

/// Something that is done once to an input that it owns.
using Work = std::function<void()>;

struct Cost
{
    long steps = 0; ///< basic blocks of the library that were passed
    long allocations = 0;
    long octets = 0; ///< of memory, taken in all
};

inline Cost costOf(const Work &work)
{
    const CountedAllocations allocations;
    Steps::reset();
    work();
    return {Steps::count(), allocations.count(), allocations.octets()};
}
