#pragma once

#include "model/logic_config.h"
#include "platform/file_error.h"

#include <string>

namespace brindle {

/// The bytes that the file of a logic of either relay holds. Fails where no file can hold the logic, as
/// EncodeProgram does; `bytes` is then unchanged.
FileError EncodeLogic(const LogicConfig& config, std::string& bytes);

} // namespace brindle
