/*
 * The octets that the C library copies for the program. Counting them makes every copy slower, so
 * it is the business of a library that is loaded only for that: LD_PRELOAD=libqvlcopies.so.
 */
#pragma once

#include <dlfcn.h>

/// Tells the octets copied since the program started.
using CopyCounter = long (*)();

/// Null when the library is not loaded.
inline CopyCounter copyCounter()
{
    static const auto counter =
        reinterpret_cast<CopyCounter>(dlsym(RTLD_DEFAULT, "qvlCopiedOctets"));
    return counter;
}
