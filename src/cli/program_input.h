#pragma once

#include "cli/commands.h"
#include "model/logic_config.h"

#include <string>

namespace brindle {

/// Reads the program file at `path` for a command. Returns ExitFailed when it cannot be read; ExitFinding,
/// `config` being usable, when it is not 2048 bytes long; else ExitWell. Whatever is amiss is complained of.
int ReadProgramInput(const CommandEnvironment& environment, const std::string& path, LogicConfig& config);

} // namespace brindle
