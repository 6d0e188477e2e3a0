/** @file
 * What leaves the shared libraries: everything else is built with hidden visibility.
 */
#pragma once

#include <QtCore/qcompilerdetection.h>

/// Marks a class or function as part of the library's binary interface.
#define QVL_EXPORT Q_DECL_EXPORT
