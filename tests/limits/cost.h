/*
 * The cost of an operation, counted instead of timed.
 */
#pragma once

#include "limits/steps.h"
#include "support/allocations.h"

#include <functional>

/// An operation that is run once, on an input that it owns.
using Work = std::function<void()>;

struct Cost
{
    long steps = 0; ///< basic blocks of the library that were executed
    long allocations = 0;
    long octets = 0; ///< allocated in total
};

inline Cost costOf(const Work &work)
{
    const CountedAllocations allocations;
    Steps::reset();
    work();
    return {Steps::count(), allocations.count(), allocations.octets()};
}
