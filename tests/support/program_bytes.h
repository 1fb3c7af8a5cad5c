#pragma once

#include "files/program_file.h"
#include "model/logic_config.h"

#include <gtest/gtest.h>

#include <string>

namespace brindle {

/// The bytes of the program file of `config`.
inline std::string ProgramBytes(const LogicConfig& config) {
    ProgramImage image{};
    const FileError error = EncodeProgram(config, image);
    EXPECT_FALSE(error.Failed()) << error.Source;
    return {image.data(), image.size()};
}

/// The bytes of a new, empty program file.
inline std::string NewProgramBytes(float version) {
    LogicConfig config;
    MakeNewVdr812(config, version);
    return ProgramBytes(config);
}

} // namespace brindle
