/*
 * The count of octets that the C library copies for the program. Counting slows every copy down, so
 * only a library loaded for this purpose counts: LD_PRELOAD=libqvlcopies.so.
 */
#pragma once

#include <dlfcn.h>

/// Returns the octets copied since the program started.
using CopyCounter = long (*)();

/// Null if the library is not loaded.
inline CopyCounter copyCounter()
{
    static const auto counter =
        reinterpret_cast<CopyCounter>(dlsym(RTLD_DEFAULT, "qvlCopiedOctets"));
    return counter;
}
