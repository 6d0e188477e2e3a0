/*
 * The octets that the C library copies for the program: memcpy() and memmove(), of which small ones
 * of a known size are compiled in and do not count.
 */
#pragma once

/// Octets copied since the program started.
long copiedOctets();
