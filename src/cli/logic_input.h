#pragma once

#include "cli/commands.h"
#include "model/logic_config.h"

#include <string>

namespace brindle {

/// Reads the file of either model that a command is given. Returns ExitFailed when it cannot be read or a
/// line of it is refused; ExitFinding, `config` being usable, when it is not as it should be: a program that
/// is not 2048 bytes long, a logic file that lacks units or whose signals nobody names; else ExitWell.
/// Whatever is amiss is complained of. No option file is ever written.
int ReadLogicInput(const CommandEnvironment& environment, const LogicInput& input, LogicConfig& config);

} // namespace brindle
