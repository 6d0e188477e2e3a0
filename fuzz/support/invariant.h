/*
 * Checks of conditions that hold for every input.
 */
#pragma once

#include <cstdio>
#include <cstdlib>

/// Ends the program, which the fuzzer reports as a finding, unless @p holds.
inline void require(bool holds, const char *what)
{
    if (holds)
        return;
    std::fprintf(stderr, "does not hold: %s\n", what);
    std::abort();
}
