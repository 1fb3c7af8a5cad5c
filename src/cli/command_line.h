#pragma once

#include "cli/commands.h"

#include <string>
#include <vector>

namespace brindle {

/// Runs the command that `arguments` (without the program's name) ask for and returns its exit code. Results
/// that did not reach `Out` whole make it ExitFailed.
int RunCommandLine(const std::vector<std::string>& arguments, const CommandEnvironment& environment);

} // namespace brindle
