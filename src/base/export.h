/** @file
 * Exports of the shared libraries; everything else has hidden visibility.
 */
#pragma once

#include <QtCore/qcompilerdetection.h>

/// Marks a class or function as part of the library's binary interface.
#define QVL_EXPORT Q_DECL_EXPORT

/// Marks an operation of an exported class as not exported.
#define QVL_INTERNAL Q_DECL_HIDDEN
