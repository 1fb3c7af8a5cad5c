#pragma once

#include "model/logic_config.h"

#include <string>

namespace brindle {

/// What the main window tells of the file of a VDR810 logic, in lines joined by CR LF: its name, `date` and
/// `time` of this look at it, version and options number; and, unless `missingOptionFile` is empty, the name
/// of the option file that should be in the program's folder. Empty for a VDR812.
std::string IdentityCaption(const LogicConfig& config, const std::string& date, const std::string& time,
                            const std::string& missingOptionFile);

} // namespace brindle
