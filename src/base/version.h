/** @file
 * The version of the library at compile time and at run time.
 */
#pragma once

#include "export.h"

/// @name The version that a program is compiled with
/// @{
#define QVL_VERSION_MAJOR 1
#define QVL_VERSION_MINOR 1
#define QVL_VERSION_PATCH 0
/// The version as a number: 0x010203 for 1.2.3.
#define QVL_VERSION (QVL_VERSION_MAJOR << 16 | QVL_VERSION_MINOR << 8 | QVL_VERSION_PATCH)
/// @}

/// The version of the library that the program runs with, such as "1.2.3".
QVL_EXPORT const char *qvlVersion();
