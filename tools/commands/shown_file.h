/*
 * What a command prints for one of many files.
 */
#pragma once

#include <QString>

#include <string>

/// The output for one file.
struct ShownFile
{
    std::string text;
    QString error; ///< when the file could not be read
    QString advice; ///< when it is not a message
    int exitCode = 0;
};
