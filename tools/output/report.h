/*
 * What a command that writes files prints.
 */
#pragma once

#include <QStringList>

struct Report
{
    QStringList written; ///< a line for each file, for standard output
    QStringList remarks; ///< lines for standard error
};
