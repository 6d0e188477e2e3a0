/*
 * The child process that converts a clip: reads it from standard input and writes the result to
 * standard output. Hostile clips may crash or fill it without harm to the command.
 */
#pragma once

#include <string_view>

namespace ConvertChild {

/// The first argument of a child process. Not for users.
inline constexpr char Argument[] = "--convert-clip";

/// True for the file extensions of clips that a child can convert.
bool canConvert(std::string_view extension);

/// Runs the child with the arguments after Argument: "sound" or "picture", and a file extension.
/// Returns the exit code, 0 when something was converted.
int run(int argc, char **argv);

} // namespace ConvertChild
