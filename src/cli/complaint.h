#pragma once

#include "cli/commands.h"
#include "platform/file_error.h"

#include <string>

namespace brindle {

inline constexpr const char* CompanionName = "brindle-cli";

/// Writes "brindle-cli: " and `text` to `Err` as one line. Control characters within `text` become
/// blanks, so that a script can count on one line for each trouble.
void Complain(const CommandEnvironment& environment, const std::string& text);

/// Complains of a failed file operation on `path`: description, number and source. Returns ExitFailed.
int ComplainOfFile(const CommandEnvironment& environment, const std::string& path, const FileError& error);

} // namespace brindle
