/** @file
 * What leaves the shared libraries: everything else is built with hidden visibility.
 */
#pragma once

#include <QtCore/qcompilerdetection.h>

/// Marks a class or function as part of the library's binary interface.
#define QVL_EXPORT Q_DECL_EXPORT

/// Marks an operation of such a class that only the library itself calls.
#define QVL_INTERNAL Q_DECL_HIDDEN
