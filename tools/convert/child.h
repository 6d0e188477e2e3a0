/*
 * The child process that converts or streams a clip: reads it from standard input and writes the
 * result to standard output. Hostile clips may crash or fill it without harm to the program.
 */
#pragma once

#include <QStringList>

#include <string_view>

namespace ConvertChild {

/// The first argument of a child process. Not for users.
inline constexpr char Argument[] = "--convert-clip";

/// Exit codes of a child.
enum ExitCode {
    Converted = 0,
    NotDecoded = 1, ///< the clip has nothing that can be decoded
    NotStarted = 2, ///< no clip was read: the module is missing, or the arguments are wrong
};

/// The file extensions of clips that a child can convert.
QStringList extensions();

/// True for the file extensions of clips that a child can convert.
bool canConvert(std::string_view extension);

/// Runs the child with the arguments after Argument and returns its exit code. The arguments are
/// "sound" or "picture", to convert, or "stream=MS", to stream from that millisecond on in the form
/// of clip_stream.h; then a file extension, and the folder of the module.
int run(int argc, char **argv);

} // namespace ConvertChild
